// Generated volumes add up.
#include "setup/generate.h"

#include "installation.h"

namespace kalvane {
namespace {

using namespace test;

// The demonstration without its documents; their 60 numbers stay taken.
struct Company : Installation {
    Company() {
        for (const char* table : {"T営業請求", "T営業請求明細", "R営業請求"})
            main(std::string("DELETE FROM ") + table);
    }
};

// Three years up to 2020-03-31 begin on 2017-04-01 and hold the change of the rate on 2019-10-01.
Outcome generate(const Installation& at, int invoices, int lines, int seed) {
    os::freeze_clock({{2020, 3, 31}, 12, 0, 0});
    const auto outcome = command({"generate", at.root(), "--invoices", std::to_string(invoices), "--lines",
                                  std::to_string(lines), "--seed", std::to_string(seed)});
    os::release_clock();
    return outcome;
}

TEST(Generate, KeepsCountersAndTotalsInStep) {
    const Company demo;
    ASSERT_EQ(generate(demo, 120, 3, 7).status, 0);
    ASSERT_EQ(generate(demo, 30, 0, 7).status, 0);
    // the last day: 119 * 1096 / 120 = 1086 days on; the document lies at the site of the customer's
    // salesperson; tax of the lines at the rate of their day, amounts from quantity and price, sums in the
    // header
    for (const auto& r : table(R"(連番, 履歴連番 FROM A番号情報 WHERE 番号ID = '16240'|00000210,00000070
        COUNT(*), COUNT(DISTINCT 営業請求No), MIN(営業請求No), MAX(営業請求No) FROM \
          T営業請求|150,150,00000061,00000210
        COUNT(*) FROM T営業請求明細|360 ; COUNT(*) FROM R営業請求|0
        MIN(営業請求日付), MAX(営業請求日付) FROM T営業請求 WHERE 営業請求No <= '00000180'|20170401,20200322
        COUNT(DISTINCT 事業所コード), MIN(請求金額合計) > 0 FROM T営業請求|3,1
        COUNT(*) FROM T営業請求 AS H WHERE 事業所コード <> (SELECT 事業所コード FROM M担当者 WHERE コード = \
          H.担当者コード)|0
        COUNT(*) FROM T営業請求明細 WHERE 請求消費税 <> 請求金額 * (CASE WHEN 営業請求日付 < '20191001' THEN 8 \
          ELSE 10 END) / 100 OR 請求金額 <> CAST(請求数量 * 請求単価 AS INTEGER)|0
        COUNT(*) FROM T営業請求 AS H WHERE 営業請求No <= '00000180' AND (税込請求金額合計 <> 請求金額合計 + \
          請求消費税合計 OR 請求金額合計 <> (SELECT SUM(請求金額) @lines) OR 請求消費税合計 <> (SELECT \
          SUM(請求消費税) @lines))|0)",
                               {{"@lines",
                                 "FROM T営業請求明細 AS L WHERE L.事業所コード = H.事業所コード AND "
                                 "L.営業請求No = H.営業請求No"}}))
        EXPECT_EQ(Replace(demo.main("SELECT " + r[0]), "|", ","), r[1]) << r[0];
}

}  // namespace
}  // namespace kalvane

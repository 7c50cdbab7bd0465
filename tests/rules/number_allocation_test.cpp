#include "rules/number_allocation.h"

#include <functional>

#include "platform/os/files.h"
#include "rules_database.h"

namespace kalvane {
namespace {

using Texts = std::vector<std::string>;
using Routine = std::string (*)(const std::string&, const std::string&, const std::string&);

constexpr const char* fault = "番号情報に問題が発生設定できませんでした。";
const std::string series_read = "SELECT A番号情報.* FROM A番号情報 WHERE A番号情報.番号ID = '16240'";
const std::string dated_where =
    " WHERE A期日別番号情報.番号ID = '16240' AND A期日別番号情報.期日 = '20240331'";
const std::string dated_read = "SELECT A期日別番号情報.* FROM A期日別番号情報" + dated_where;
const std::string dated_insert =
    "INSERT INTO [A期日別番号情報] ([番号ID],[期日],[連番],[履歴連番]) VALUES "
    "('16240','20240331','00000000','00000000')";
const std::string site_where =
    " WHERE A事業所別番号情報.事業所コード = '001' AND A事業所別番号情報.番号ID = '16240'";
const std::string site_read = "SELECT A事業所別番号情報.* FROM A事業所別番号情報" + site_where;
const std::string site_insert =
    "INSERT INTO [A事業所別番号情報] ([事業所コード],[番号ID],[連番],[履歴連番]) VALUES "
    "('001','16240','00000000','00000000')";
const std::string site_dated_where =
    " WHERE A事業所別期日別番号情報.事業所コード = '001' AND A事業所別期日別番号情報.番号ID = '16240' AND "
    "A事業所別期日別番号情報.期日 = '20240331'";
const std::string site_dated_read =
    "SELECT A事業所別期日別番号情報.* FROM A事業所別期日別番号情報" + site_dated_where;
const std::string wrong_series_read =
    "SELECT A番号情報.* FROM A番号情報 WHERE A事業所別番号情報.番号ID = '16240'";

struct NumberAllocation : RulesDatabase {
    void series(const std::string& kind, const std::string& number,
                const std::string& history = "'00000000'") {
        run("DELETE FROM A番号情報");
        run("INSERT INTO A番号情報 VALUES ('16240'," + kind + "," + number + "," + history + ",NULL)");
        statements.clear();
        boxes.clear();
    }
};

TEST_F(NumberAllocation, 番号基準日付取得) {
    os::freeze_clock({{2024, 3, 25}, 10, 0, 0});
    実行環境.決算月 = 3;
    実行環境.決算日 = 20;
    struct Row {
        const char *kind, *date, *base;
    };
    const Row rows[] = {
        {"'0'", "20240515", "99999999"},  {"'1'", "20240515", "20250320"},   {"'2'", "20240515", "20240520"},
        {"'3'", "20240515", "20240515"},  {"'4'", "20240515", "88888888"},   {"'9'", "20240515", "88888888"},
        {"NULL", "20240515", "99999999"}, {"'2月'", "20240521", "20240620"}, {"'1'", "99999999", "20250320"},
        {"'2'", "99999999", "20240420"},  {"'3'", "99999999", "20240325"},
    };
    for (const Row& r : rows) {
        series(r.kind, "'00000000'");
        EXPECT_EQ(番号基準日付取得("16240", r.date), r.base) << r.kind << ' ' << r.date;
        EXPECT_EQ(statements, Texts{series_read});
    }
    EXPECT_EQ(番号基準日付取得("00000", "20240515"), "");
    EXPECT_TRUE(boxes.empty());
}

TEST_F(NumberAllocation, StatementsOfEachRoutine) {
    struct Row {
        Routine routine;
        std::int16_t by_site;
        const char* kind;
        const char* number;
        Texts statements;
    };
    const Row rows[] = {
        {次番号参照, 0, "'0'", "00000008", {series_read}},
        {番号採番,
         0,
         "'0'",
         "00000008",
         {series_read, "UPDATE A番号情報 SET  連番 = '00000008' WHERE A番号情報.番号ID = '16240'"}},
        {履歴番号採番,
         0,
         "'0'",
         "00000042",
         {series_read, "UPDATE A番号情報 SET  履歴連番 = '00000042' WHERE A番号情報.番号ID = '16240'"}},
        {次番号参照, 0, "'1'", "00000001", {series_read, dated_read, series_read, dated_insert, dated_read}},
        {番号採番,
         0,
         "'2'",
         "00000001",
         {series_read, dated_read, series_read, dated_insert, dated_read,
          "UPDATE A期日別番号情報 SET  連番 = '00000001'" + dated_where}},
        {履歴番号採番,
         0,
         "'3'",
         "00000001",
         {series_read, dated_read, series_read, dated_insert, dated_read,
          "UPDATE A期日別番号情報 SET  履歴連番 = '00000001'" + dated_where}},
        {次番号参照, 0, "'9'", "", {series_read, dated_read, series_read, dated_insert}},
        {番号採番, 0, "'9'", "", {series_read, dated_read, series_read, dated_insert}},
        {履歴番号採番,
         0,
         "'9'",
         "00000042",
         {series_read, "UPDATE A番号情報 SET  履歴連番 = '00000042' WHERE A番号情報.番号ID = '16240'"}},
        {次番号参照, 1, "'0'", "00000001", {series_read, site_read, series_read, site_insert, site_read}},
        {番号採番,
         1,
         "'0'",
         "00000001",
         {series_read, site_read, series_read, site_insert, site_read,
          "UPDATE A事業所別番号情報 SET  連番 = '00000001'" + site_where}},
        {履歴番号採番,
         9,
         "'4'",
         "00000001",
         {series_read, site_read, series_read, site_insert, site_read,
          "UPDATE A事業所別番号情報 SET  履歴連番 = '00000001'" + site_where}},
        {次番号参照, 1, "'1'", "", {series_read, site_dated_read, wrong_series_read, site_dated_read}},
        {番号採番,
         1,
         "'1'",
         "",
         {series_read, site_dated_read, wrong_series_read, site_dated_read,
          "UPDATE A事業所別期日別番号情報 SET  連番 = ''" + site_dated_where}},
        {履歴番号採番,
         1,
         "'3'",
         "",
         {series_read, site_dated_read, wrong_series_read, site_dated_read,
          "UPDATE A事業所別期日別番号情報 SET  履歴連番 = ''" + site_dated_where}},
        {番号採番, 1, "'9'", "", {series_read, site_dated_read, wrong_series_read}},
    };
    for (const Row& r : rows) {
        for (const char* table : {"A期日別番号情報", "A事業所別番号情報", "A事業所別期日別番号情報"})
            run(std::string("DELETE FROM ") + table);
        実行環境.伝票番号管理区分 = r.by_site;
        series(r.kind, "'00000007'", "'00000041'");
        EXPECT_EQ(r.routine("16240", "20240331", "001"), r.number);
        EXPECT_EQ(statements, r.statements) << r.kind << " by site " << r.by_site;
        EXPECT_TRUE(boxes.empty());
    }
    EXPECT_EQ(error_rows(), "4") << "one for each look at the series of a dated counter by site";
}

TEST_F(NumberAllocation, NextNumber) {
    struct Row {
        const char *last, *next;
    };
    const Row rows[] = {
        {"'00000000'", "00000001"},   {"'00000123'", "00000124"}, {"'99999999'", "100000000"},
        {"'100000000'", "100000001"}, {"'abc'", "00000001"},      {"NULL", "00000001"},
        {"''", "00000001"},           {"'-1'", "00000001"},       {"'12'", "00000013"},
    };
    for (const Row& r : rows) {
        series("'0'", r.last);
        const std::string before = value("SELECT 連番 FROM A番号情報");
        EXPECT_EQ(次番号参照("16240", "99999999", "000"), r.next) << r.last;
        EXPECT_EQ(次番号参照("16240", "99999999", "000"), r.next) << r.last;
        EXPECT_EQ(value("SELECT 連番 FROM A番号情報"), before);
        EXPECT_EQ(番号採番("16240", "99999999", "000"), r.next) << r.last;
        EXPECT_EQ(value("SELECT 連番 FROM A番号情報"), r.next);
    }
}

TEST_F(NumberAllocation, CountersStandAlone) {
    series("'1'", "'00000500'");
    run("INSERT INTO A事業所別期日別番号情報 VALUES ('002','16240','20240331','00000070','00000090')");
    EXPECT_EQ(番号採番("16240", "20240331", "001"), "00000001");
    EXPECT_EQ(番号採番("16240", "20240331", "002"), "00000002");
    EXPECT_EQ(番号採番("16240", "20250331", "001"), "00000001");
    EXPECT_EQ(履歴番号採番("16240", "20240331", "001"), "00000001");
    実行環境.伝票番号管理区分 = 1;
    EXPECT_EQ(番号採番("16240", "20240331", "002"), "00000071");
    EXPECT_EQ(履歴番号採番("16240", "20240331", "002"), "00000091");
    EXPECT_EQ(次番号参照("16240", "20240331", "002"), "00000072");
    EXPECT_EQ(value("SELECT 連番 FROM A期日別番号情報 WHERE 期日 = '20240331'"), "00000002");
    EXPECT_EQ(value("SELECT 連番 FROM A番号情報"), "00000500");
    series("'0'", "'00000500'");
    EXPECT_EQ(番号採番("16240", "99999999", "001"), "00000001");
    EXPECT_EQ(番号採番("16240", "99999999", "003"), "00000001");
    EXPECT_EQ(番号採番("16240", "99999999", "001"), "00000002");
    EXPECT_EQ(error_rows(), "0");
}

TEST_F(NumberAllocation, BoxesOfAMissingSeries) {
    for (const std::int16_t by_site : {std::int16_t{0}, std::int16_t{1}}) {
        実行環境.伝票番号管理区分 = by_site;
        for (const Routine routine : {次番号参照, 番号採番, 履歴番号採番}) {
            boxes.clear();
            EXPECT_EQ(routine("16240", "20240331", "001"), "00000000");
            EXPECT_EQ(boxes, (Texts{fault, fault}));
        }
    }
    const std::function<std::string()> variants[] = {
        [] { return 次番号参照全社("16240", "20240331"); },
        [] { return 番号採番全社("16240", "20240331"); },
        [] { return 履歴番号採番全社("16240", "20240331"); },
        [] { return 次番号参照事業所別("16240", "20240331", "001"); },
        [] { return 番号採番事業所別("16240", "20240331", "001"); },
        [] { return 履歴番号採番事業所別("16240", "20240331", "001"); },
    };
    for (const auto& variant : variants) {
        boxes.clear();
        EXPECT_EQ(variant(), "00000000");
        EXPECT_EQ(boxes, Texts{fault});
    }
    EXPECT_EQ(value("SELECT COUNT(*) FROM A期日別番号情報"), "0");
}

TEST_F(NumberAllocation, AFailingUpdateIsNotSeen) {
    series("'0'", "'00000007'");
    failing = "UPDATE";
    EXPECT_EQ(番号採番("16240", "99999999", "000"), "00000008");
    EXPECT_TRUE(boxes.empty());
    EXPECT_EQ(error_rows(), "1");
    failing = "SELECT";
    EXPECT_EQ(番号採番("16240", "99999999", "000"), "00000000");
    EXPECT_EQ(番号基準日付取得("16240", "20240515"), "");
}

TEST_F(NumberAllocation, RowsAreMadeOnce) {
    series("'1'", "'00000000'");
    for (int i = 0; i < 2; ++i) {
        期日別番号行作成("16240", "20240331");
        事業所別番号行作成("16240", "001");
        事業所別期日別番号行作成("16240", "20240331", "001");
        期日別番号行作成("00000", "20240331");
        事業所別番号行作成("00000", "001");
    }
    EXPECT_EQ(value("SELECT COUNT(*) FROM A期日別番号情報"), "1");
    EXPECT_EQ(value("SELECT COUNT(*) FROM A事業所別番号情報"), "1");
    EXPECT_EQ(value("SELECT COUNT(*) FROM A事業所別期日別番号情報"), "0");
    EXPECT_EQ(error_rows(), "2");
}

TEST_F(NumberAllocation, 更新プログラム起動) {
    static Texts started;
    static bool refuse;
    os::launcher = [](const os::Launch& launch) {
        if (refuse) throw os::FileError(53, "no such file");
        started.push_back(launch.path + (launch.mode == os::WindowMode::minimised ? " minimised" : ""));
    };
    struct Row {
        const char* program;
        bool refuse;
        Texts started;
    };
    const Row rows[] = {
        {"'KalvaneUpdate.exe'", false, {"C:\\k\\prgbin\\KalvaneUpdate.exe minimised"}},
        {"'KalvaneUpdate.exe'", true, {}},
        {"''", false, {}},
        {"NULL", false, {}},
    };
    for (const Row& r : rows) {
        series("'0'", "'00000000'");
        run(std::string("UPDATE A番号情報 SET 更新プログラム = ") + r.program);
        statements.clear();
        started.clear();
        refuse = r.refuse;
        更新プログラム起動("16240");
        EXPECT_EQ(started, r.started) << r.program;
        EXPECT_EQ(statements, Texts{"SELECT 更新プログラム FROM A番号情報 WHERE 番号ID = '16240'"});
    }
    started.clear();
    更新プログラム起動("00000");
    EXPECT_TRUE(started.empty());
    EXPECT_TRUE(boxes.empty());
}

}  // namespace
}  // namespace kalvane

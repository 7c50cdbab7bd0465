// Counters, base dates and the statements that move them.
#include "rules/number_allocation.h"

#include <map>

#include "platform/os/files.h"
#include "support/program_database.h"

namespace kalvane {
namespace {

using Texts = std::vector<std::string>;
using Routine = std::string (*)(const std::string&, const std::string&, const std::string&);

constexpr const char* fault = "番号情報に問題が発生設定できませんでした。";
const std::string series_read = "SELECT A番号情報.* FROM A番号情報 WHERE A番号情報.番号ID = '16240'";

// A counter of a kind: its table, its key, the columns and values of a new row.
struct Counter {
    std::string table, where, columns, values;
    std::string read() const { return "SELECT " + table + ".* FROM " + table + where; }
    std::string insert() const {
        return "INSERT INTO [" + table + "] (" + columns + "[連番],[履歴連番]) VALUES (" + values +
               "'00000000','00000000')";
    }
    std::string update(const char* column, const std::string& number) const {
        return "UPDATE " + table + " SET  " + column + " = '" + number + "'" + where;
    }
};
const Counter plain{"A番号情報", " WHERE A番号情報.番号ID = '16240'", "", ""},
    dated{"A期日別番号情報", " WHERE A期日別番号情報.番号ID = '16240' AND A期日別番号情報.期日 = '20240331'",
          "[番号ID],[期日],", "'16240','20240331',"},
    of_site{"A事業所別番号情報",
            " WHERE A事業所別番号情報.事業所コード = '001' AND A事業所別番号情報.番号ID = '16240'",
            "[事業所コード],[番号ID],", "'001','16240',"},
    dated_of_site{"A事業所別期日別番号情報",
                  " WHERE A事業所別期日別番号情報.事業所コード = '001' AND A事業所別期日別番号情報.番号ID = "
                  "'16240' AND A事業所別期日別番号情報.期日 = '20240331'",
                  "", ""};

struct NumberAllocation : ProgramDatabase {
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
    for (const auto& r : test::table(R"('0'|20240515|99999999 ; '1'|20240515|20250320 ; '2'|20240515|20240520
        '3'|20240515|20240515 ; '4'|20240515|88888888 ; '9'|20240515|88888888 ; NULL|20240515|99999999
        '2月'|20240521|20240620 ; '1'|99999999|20250320 ; '2'|99999999|20240420 ; '3'|99999999|20240325)")) {
        series(r[0], "'00000000'");
        EXPECT_EQ(番号基準日付取得("16240", r[1]), r[2]) << r[0] << ' ' << r[1];
        EXPECT_EQ(statements, Texts{series_read});
    }
    EXPECT_EQ(番号基準日付取得("00000", "20240515"), "");
    EXPECT_TRUE(boxes.empty());
}

// The series stands at 7 and its history at 41. Routine, by site, kind of series, counter, number,
// statements: S reads the series, W with the name of another table (which fails); r reads the counter's row,
// i makes it, u updates it.
TEST_F(NumberAllocation, StatementsOfEachRoutine) {
    const std::map<std::string, Routine> routines = {
        {"preview", 次番号参照}, {"number", 番号採番}, {"history", 履歴番号採番}};
    const std::map<std::string, Counter> counters = {
        {"", plain}, {"dated", dated}, {"site", of_site}, {"both", dated_of_site}};
    for (const auto& r :
         test::table(R"(preview|0|'0'||00000008|S ; number|0|'0'||00000008|Su ; history|0|'0'||00000042|Su
        preview|0|'1'|dated|00000001|SrSir ; number|0|'2'|dated|00000001|SrSiru
        preview|0|'3'|dated|00000001|SrSir ; history|0|'3'|dated|00000001|SrSiru
        preview|0|'9'|dated||SrSi ; number|0|'9'|dated||SrSi
        history|0|'9'||00000042|Su ; preview|1|'0'|site|00000001|SrSir ; number|1|'0'|site|00000001|SrSiru
        history|9|'4'|site|00000001|SrSiru ; preview|1|'1'|both||SrWr ; number|1|'1'|both||SrWru
        history|1|'3'|both||SrWru ; number|1|'9'|both||SrW)")) {
        for (const Counter& c : {dated, of_site, dated_of_site}) run("DELETE FROM " + c.table);
        実行環境.伝票番号管理区分 = to_i16(r[1]);
        series(r[2], "'00000007'", "'00000041'");
        EXPECT_EQ(routines.at(r[0])("16240", "20240331", "001"), r[4]);
        const Counter& counter = counters.at(r[3]);
        Texts expected;
        for (const char step : r[5])
            expected.push_back(step == 'S' ? series_read
                               : step == 'W'
                                   ? Replace(series_read, "WHERE A番号情報", "WHERE A事業所別番号情報")
                               : step == 'r' ? counter.read()
                               : step == 'i' ? counter.insert()
                                             : counter.update(r[0] == "history" ? "履歴連番" : "連番", r[4]));
        EXPECT_EQ(statements, expected) << r[0] << r[2] << " by site " << r[1];
        EXPECT_TRUE(boxes.empty());
    }
    EXPECT_EQ(error_rows(), "4") << "one for each look at the series of a dated counter by site";
}

TEST_F(NumberAllocation, NextNumber) {
    for (const auto& r : test::table(R"('00000000'|00000001 ; '00000123'|00000124 ; '99999999'|100000000
        '100000000'|100000001 ; 'abc'|00000001 ; NULL|00000001 ; ''|00000001 ; '-1'|00000001
        '12'|00000013)")) {
        series("'0'", r[0]);
        const std::string before = value("SELECT 連番 FROM A番号情報");
        EXPECT_EQ(次番号参照("16240", "99999999", "000"), r[1]) << r[0];
        EXPECT_EQ(value("SELECT 連番 FROM A番号情報"), before);
        EXPECT_EQ(番号採番("16240", "99999999", "000"), r[1]) << r[0];
        EXPECT_EQ(value("SELECT 連番 FROM A番号情報"), r[1]);
    }
}

TEST_F(NumberAllocation, CountersStandAlone) {
    series("'1'", "'00000500'");
    run("INSERT INTO A事業所別期日別番号情報 VALUES ('002','16240','20240331','00000070','00000090')");
    const auto numbers = [](const char* date, const char* site) {
        const std::string number = 番号採番("16240", date, site), history = 履歴番号採番("16240", date, site);
        return number + " " + history + " " + 次番号参照("16240", date, site);
    };
    EXPECT_EQ(numbers("20240331", "001"), "00000001 00000001 00000002");
    EXPECT_EQ(numbers("20240331", "002"), "00000002 00000002 00000003");
    EXPECT_EQ(numbers("20250331", "001"), "00000001 00000001 00000002");
    実行環境.伝票番号管理区分 = 1;
    EXPECT_EQ(numbers("20240331", "002"), "00000071 00000091 00000072");
    EXPECT_EQ(value("SELECT 連番 FROM A期日別番号情報 WHERE 期日 = '20240331'"), "00000002");
    EXPECT_EQ(value("SELECT 連番 FROM A番号情報"), "00000500");
    series("'0'", "'00000500'");
    EXPECT_EQ(numbers("99999999", "001"), "00000001 00000001 00000002");
    EXPECT_EQ(numbers("99999999", "003"), "00000001 00000001 00000002");
    EXPECT_EQ(numbers("99999999", "001"), "00000002 00000002 00000003");
    EXPECT_EQ(error_rows(), "0");
}

// Once by the variant for the company or the site, and once more by the routine that chooses between them.
TEST_F(NumberAllocation, BoxesOfAMissingSeries) {
    const std::string id = "16240", date = "20240331", site = "001";
    for (const Routine routine : {次番号参照, 番号採番, 履歴番号採番})
        for (const bool by_site : {false, true}) {
            実行環境.伝票番号管理区分 = by_site;
            boxes.clear();
            EXPECT_EQ(routine(id, date, site), "00000000");
            EXPECT_EQ(boxes, Texts(2, fault));
        }
    EXPECT_EQ(value("SELECT COUNT(*) FROM A期日別番号情報"), "0");
}

TEST_F(NumberAllocation, AFailingStatementIsNotSeen) {
    series("'0'", "'00000007'");
    failing = "UPDATE";
    EXPECT_EQ(番号採番("16240", "99999999", "000"), "00000008");
    EXPECT_TRUE(boxes.empty());
    EXPECT_EQ(error_rows(), "1");
    failing = "SELECT";
    EXPECT_EQ(番号採番("16240", "99999999", "000"), "00000000");
    EXPECT_EQ(番号基準日付取得("16240", "20240515"), "");
}

TEST_F(NumberAllocation, 更新プログラム起動) {
    static Texts started;
    static bool refuse;
    os::launcher = [](const os::Launch& launch) {
        if (refuse) throw os::FileError(53, "no such file");
        started.push_back(launch.path + (launch.mode == os::WindowMode::minimised ? " minimised" : ""));
    };
    for (const auto& r :
         test::table("'KalvaneUpdate.exe'|y| ; ''|y| ; NULL|y| ; 'KalvaneUpdate.exe'|n|refused")) {
        refuse = r[2] == "refused";
        series("'0'", "'00000000'");
        run("UPDATE A番号情報 SET 更新プログラム = " + r[0]);
        statements.clear();
        started.clear();
        更新プログラム起動("16240");
        EXPECT_EQ(started, r[0] == "'KalvaneUpdate.exe'" && !refuse
                               ? Texts{"C:\\k\\prgbin\\KalvaneUpdate.exe minimised"}
                               : Texts{});
        EXPECT_EQ(statements, Texts{"SELECT 更新プログラム FROM A番号情報 WHERE 番号ID = '16240'"});
    }
    refuse = false;
    更新プログラム起動("00000");
    EXPECT_TRUE(started.empty() && boxes.empty());
}

}  // namespace
}  // namespace kalvane

#include "rules/number_allocation.h"

#include <functional>

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

// The series stands at 7 and its history at 41. S reads the series, W with the name of another table (which
// fails); r reads the counter's row, i makes it, u updates it.
TEST_F(NumberAllocation, StatementsOfEachRoutine) {
    struct Row {
        Routine routine;
        std::int16_t by_site;
        const char *kind, *number;
        const Counter& counter;
        const char* statements;
    };
    const Row rows[] = {{次番号参照, 0, "'0'", "00000008", plain, "S"},
                        {番号採番, 0, "'0'", "00000008", plain, "Su"},
                        {履歴番号採番, 0, "'0'", "00000042", plain, "Su"},
                        {次番号参照, 0, "'1'", "00000001", dated, "SrSir"},
                        {番号採番, 0, "'2'", "00000001", dated, "SrSiru"},
                        {履歴番号採番, 0, "'3'", "00000001", dated, "SrSiru"},
                        {次番号参照, 0, "'9'", "", dated, "SrSi"},
                        {番号採番, 0, "'9'", "", dated, "SrSi"},
                        {履歴番号採番, 0, "'9'", "00000042", plain, "Su"},
                        {次番号参照, 1, "'0'", "00000001", of_site, "SrSir"},
                        {番号採番, 1, "'0'", "00000001", of_site, "SrSiru"},
                        {履歴番号採番, 9, "'4'", "00000001", of_site, "SrSiru"},
                        {次番号参照, 1, "'1'", "", dated_of_site, "SrWr"},
                        {番号採番, 1, "'1'", "", dated_of_site, "SrWru"},
                        {履歴番号採番, 1, "'3'", "", dated_of_site, "SrWru"},
                        {番号採番, 1, "'9'", "", dated_of_site, "SrW"}};
    for (const Row& r : rows) {
        for (const Counter& c : {dated, of_site, dated_of_site}) run("DELETE FROM " + c.table);
        実行環境.伝票番号管理区分 = r.by_site;
        series(r.kind, "'00000007'", "'00000041'");
        EXPECT_EQ(r.routine("16240", "20240331", "001"), r.number);
        Texts expected;
        for (const char* s = r.statements; *s; ++s)
            expected.push_back(
                *s == 'S'   ? series_read
                : *s == 'W' ? Replace(series_read, "WHERE A番号情報", "WHERE A事業所別番号情報")
                : *s == 'r' ? r.counter.read()
                : *s == 'i' ? r.counter.insert()
                            : r.counter.update(r.routine == 履歴番号採番 ? "履歴連番" : "連番", r.number));
        EXPECT_EQ(statements, expected) << r.kind << " by site " << r.by_site;
        EXPECT_TRUE(boxes.empty());
    }
    EXPECT_EQ(error_rows(), "4") << "one for each look at the series of a dated counter by site";
}

TEST_F(NumberAllocation, NextNumber) {
    for (const auto& r : test::table(R"('00000000'|00000001 ; '00000123'|00000124 ; '99999999'|100000000
        '100000000'|100000001 ; 'abc'|00000001 ; NULL|00000001 ; ''|00000001 ; '-1'|00000001 ; '12'|00000013)")) {
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
    for (const bool by_site : {false, true}) {
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
        [] { return 履歴番号採番事業所別("16240", "20240331", "001"); }};
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
    EXPECT_EQ(value("SELECT COUNT(*) FROM A期日別番号情報") +
                  value("SELECT COUNT(*) FROM A事業所別番号情報") +
                  value("SELECT COUNT(*) FROM A事業所別期日別番号情報"),
              "110");
    EXPECT_EQ(error_rows(), "2");
}

TEST_F(NumberAllocation, 更新プログラム起動) {
    static Texts started;
    static bool refuse;
    os::launcher = [](const os::Launch& launch) {
        if (refuse) throw os::FileError(53, "no such file");
        started.push_back(launch.path + (launch.mode == os::WindowMode::minimised ? " minimised" : ""));
    };
    for (const char* program : {"'KalvaneUpdate.exe'", "''", "NULL"})
        for (const bool refused : {false, true}) {
            refuse = refused;
            series("'0'", "'00000000'");
            run(std::string("UPDATE A番号情報 SET 更新プログラム = ") + program);
            statements.clear();
            started.clear();
            更新プログラム起動("16240");
            EXPECT_EQ(started, *(program + 1) == 'K' && !refuse
                                   ? Texts{"C:\\k\\prgbin\\KalvaneUpdate.exe minimised"}
                                   : Texts{})
                << program;
            EXPECT_EQ(statements, Texts{"SELECT 更新プログラム FROM A番号情報 WHERE 番号ID = '16240'"});
        }
    started.clear();
    refuse = false;
    更新プログラム起動("00000");
    EXPECT_TRUE(started.empty() && boxes.empty());
}

}  // namespace
}  // namespace kalvane

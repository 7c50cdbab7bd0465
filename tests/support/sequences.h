// Pieces of the statement sequences of documents, as the tests write them down.
#pragma once
#include <sstream>
#include <string>

#include "base/text.h"
#include "support/recorder.h"
#include "support/table.h"

namespace kalvane::test {

// One statement a line, its connection before it; "~" for a blank at the end.
inline Expected sequence(const std::string& text) {
    Expected out;
    std::istringstream lines(joined(text));
    for (std::string line; std::getline(lines, line);) {
        line = LTrim(line);
        const char* connection = line.starts_with("main")     ? "main"
                                 : line.starts_with("config") ? "config"
                                                              : "history";
        if (!line.empty()) out.emplace_back(connection, Replace(line.substr(line.find(' ') + 1), "~", " "));
    }
    return out;
}
inline std::string series(const std::string& id = "16240") {
    return "SELECT A番号情報.* FROM A番号情報 WHERE A番号情報.番号ID = '" + id + "'";
}
inline Expected rights(const char* program) {
    return sequence(Replace(R"(config SELECT * FROM 動作環境定義 WHERE 動作環境定義ID = '001'
        main SELECT M担当者.* FROM M担当者 WHERE M担当者.コード = '00001'
        main SELECT 担当者別操作許可プログラム.* FROM 担当者別操作許可プログラム WHERE \
          担当者別操作許可プログラム.担当者コード = '00001' AND 担当者別操作許可プログラム.業務メニュ = \
          'Kalvane' AND 担当者別操作許可プログラム.プログラムID = '@'
        config SELECT * FROM Kalvane WHERE プログラムID = '@')",
                            "@", program));
}
inline Expected referred(const std::string& number, const std::string& base = "99999999") {
    return {{"main",
             "SELECT TOP 1 * FROM T営業請求 WHERE 参照営業請求事業所コード = '000' AND "
             "参照営業請求番号基準日付 = '" +
                 base + "' AND 参照営業請求No = '" + number + "'"}};
}
inline Expected taxes(const std::string& date = "20240410") {
    return Expected(4, {"main", "SELECT G消費税.* FROM G消費税 WHERE G消費税.施行日 <= '" + date +
                                    "' ORDER BY G消費税.施行日 DESC"});
}
// How a run of statements ends.
inline void expect_end(const std::vector<Recorded>& ran, const Expected& end) {
    ASSERT_GE(ran.size(), end.size());
    expect_sequence({ran.end() - static_cast<std::ptrdiff_t>(end.size()), ran.end()}, end);
}
// The number looked for before it is used, in the live table ("営業請求No") or in the journal.
inline Expected looked_for(const std::string& number, bool journal, const std::string& base = "99999999") {
    return {{"main", std::string("SELECT TOP 1 営業請求No FROM ") + (journal ? "R" : "T") +
                         "営業請求 WHERE 事業所コード = '000' AND 番号基準日付 = '" + base +
                         "' AND 営業請求" + (journal ? "履歴" : "") + "No = '" + number + "'"}};
}
inline Expected history_number(const std::string& number) {
    return sequence("main " + series() + "\nmain UPDATE A番号情報 SET  履歴連番 = '" + number +
                    "' WHERE A番号情報.番号ID = '16240'") +
           looked_for(number, true);
}
inline Expected logged(const std::string& statement) {
    return {{"main", statement}, {"history", "INSERT INTO プログラム稼動履歴 "}};
}
// base date, history number, "0" red or "1" black, number, what was done
inline std::string queue_row(const std::string& base, const std::string& history,
                             const std::string& red_black, const std::string& number,
                             const std::string& action) {
    return "INSERT INTO [未集計情報] ([事業所コード],[番号ID],[番号基準日付],[履歴No],[赤黒区分],[伝票No],"
           "[追加キー項目],[データフラグ],[登録情報区分],[予備項目]) VALUES ('000','16240','" +
           base + "','" + history + "','" + red_black + "','" + number + "','','0','" + action +
           "','tanaka00001SEAT01')";
}
// The rows of the document 00000001 taken away: its header, and lines 001 and 002.
inline Expected taken_away(const std::string& base = "99999999") {
    std::string text = R"(main SELECT * FROM T営業請求 WHERE %
        main INSERT INTO [R営業請求] (
        main DELETE FROM T営業請求 WHERE %
        history INSERT INTO プログラム稼動履歴~
        main SELECT * FROM T営業請求明細 WHERE # ORDER BY T営業請求明細.営業請求行No
        main INSERT INTO [R営業請求明細] (
        main DELETE FROM T営業請求明細 WHERE # AND T営業請求明細.営業請求固有行No = '001'
        main INSERT INTO [R営業請求明細] (
        main DELETE FROM T営業請求明細 WHERE # AND T営業請求明細.営業請求固有行No = '002')";
    const std::string key =
        "@事業所コード = '000' AND @番号基準日付 = '" + base + "' AND @営業請求No = '00000001'";
    text = Replace(text, "%", Replace(key, "@", ""));
    return sequence(Replace(text, "#", Replace(key, "@", "T営業請求明細.")));
}
// Header and two lines written, live and black.
inline Expected written_two_lines() {
    const Expected line = sequence("main INSERT INTO [T営業請求明細] (\nmain INSERT INTO [R営業請求明細] (");
    return logged("INSERT INTO [T営業請求] (") + sequence("main INSERT INTO [R営業請求] (") + line + line;
}
// A cleared document: base date and preview of its number.
inline Expected cleared() {
    return {{"main", series()}, {"main", series()}};
}

}  // namespace kalvane::test

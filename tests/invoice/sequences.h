// Pieces of the statement sequences of documents, as the tests write them down.
#pragma once
#include <string>

#include "support/recorder.h"

namespace kalvane::test {

inline std::string series(const char* id = "16240") {
    return std::string("SELECT A番号情報.* FROM A番号情報 WHERE A番号情報.番号ID = '") + id + "'";
}
inline Expected rights(const char* program) {
    return {{"config", "SELECT * FROM 動作環境定義 WHERE 動作環境定義ID = '001'"},
            {"main", "SELECT M担当者.* FROM M担当者 WHERE M担当者.コード = '00001'"},
            {"main",
             std::string("SELECT 担当者別操作許可プログラム.* FROM 担当者別操作許可プログラム WHERE "
                         "担当者別操作許可プログラム.担当者コード = '00001' AND "
                         "担当者別操作許可プログラム.業務メニュ = 'Kalvane' AND 担当者別操作許可プログラム.プログラムID = '") +
                 program + "'"},
            {"config", std::string("SELECT * FROM Kalvane WHERE プログラムID = '") + program + "'"}};
}
inline Expected referred(const char* number) {
    return {{"main", std::string("SELECT TOP 1 * FROM T営業請求 WHERE 参照営業請求事業所コード = '000' AND "
                                 "参照営業請求番号基準日付 = '99999999' AND 参照営業請求No = '") +
                         number + "'"}};
}
inline Expected taxes(const char* date = "20240410") {
    const std::string one =
        std::string("SELECT G消費税.* FROM G消費税 WHERE G消費税.施行日 <= '") + date + "' ORDER BY G消費税.施行日 DESC";
    return {{"main", one}, {"main", one}, {"main", one}, {"main", one}};
}
inline Expected history_number(const char* number) {
    return {{"main", series()},
            {"main", std::string("UPDATE A番号情報 SET  履歴連番 = '") + number + "' WHERE A番号情報.番号ID = '16240'"},
            {"main", std::string("SELECT TOP 1 営業請求No FROM R営業請求 WHERE 事業所コード = '000' AND 番号基準日付 = '99999999' "
                                 "AND 営業請求履歴No = '") +
                         number + "'"}};
}
inline Expected logged(const std::string& statement) {
    return {{"main", statement}, {"history", "INSERT INTO プログラム稼動履歴 "}};
}
// base date, history number, "0" red or "1" black, number, what was done
inline std::string queue_row(const char* base, const char* history, const char* red_black, const char* number,
                             const char* action) {
    return std::string("INSERT INTO [未集計情報] "
                       "([事業所コード],[番号ID],[番号基準日付],[履歴No],[赤黒区分],[伝票No],[追加キー項目],[データフラグ],"
                       "[登録情報区分],[予備項目]) VALUES ('000','16240','") +
           base + "','" + history + "','" + red_black + "','" + number + "','','0','" + action + "','tanaka00001SEAT01')";
}
// The rows of the document 00000001 taken away: its header, and lines 001 and 002.
inline Expected taken_away(const char* base = "99999999", const char* number = "00000001") {
    const std::string key = std::string("事業所コード = '000' AND 番号基準日付 = '") + base + "' AND 営業請求No = '" + number + "'";
    const std::string of_lines = std::string("T営業請求明細.事業所コード = '000' AND T営業請求明細.番号基準日付 = '") + base +
                                 "' AND T営業請求明細.営業請求No = '" + number + "'";
    const auto erase_line = [&](const char* identity) {
        return "DELETE FROM T営業請求明細 WHERE " + of_lines + " AND T営業請求明細.営業請求固有行No = '" + identity + "'";
    };
    return Expected{{"main", "SELECT * FROM T営業請求 WHERE " + key}, {"main", "INSERT INTO [R営業請求] ("}} +
           logged("DELETE FROM T営業請求 WHERE " + key) +
           Expected{{"main", "SELECT * FROM T営業請求明細 WHERE " + of_lines + " ORDER BY T営業請求明細.営業請求行No"},
                    {"main", "INSERT INTO [R営業請求明細] ("},
                    {"main", erase_line("001")},
                    {"main", "INSERT INTO [R営業請求明細] ("},
                    {"main", erase_line("002")}};
}
// Header and two lines written, live and black.
inline Expected written_two_lines() {
    return logged("INSERT INTO [T営業請求] (") + Expected{{"main", "INSERT INTO [R営業請求] ("},
                                                        {"main", "INSERT INTO [T営業請求明細] ("},
                                                        {"main", "INSERT INTO [R営業請求明細] ("},
                                                        {"main", "INSERT INTO [T営業請求明細] ("},
                                                        {"main", "INSERT INTO [R営業請求明細] ("}};
}
// A cleared document: base date and preview of its number.
inline Expected cleared() { return {{"main", series()}, {"main", series()}}; }

}  // namespace kalvane::test

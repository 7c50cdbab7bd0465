// Rows of a run's start and end, and the sweeping of old ones.
//
// How to add a table that is swept: a row in retentions, with the column of its date.
#include "data/run_history.h"

#include <array>

#include "data/history_row.h"
#include "data/operator_record.h"
#include "data/query.h"
#include "platform/os/clock.h"

namespace kalvane {
namespace {

void usage_row(const std::string& column) {
    const std::string seat = " WHERE コンピュータID = " + literal(実行環境.コンピュータID) +
                             " AND ユーザID = " + literal(実行環境.ユーザID);
    const bool found = has_row("SELECT * FROM 使用状況" + seat);
    const std::string now = 現在日時();
    const bool start = column == "開始日時";
    if (found)
        主DB実行("UPDATE 使用状況 SET プログラムID = " + literal(プログラムID) + ", " + column + " = " +
                 literal(now) + seat);
    else
        主DB実行("INSERT INTO 使用状況 (コンピュータID,ユーザID,プログラムID,開始日時,終了日時)VALUES (" +
                 literals({実行環境.コンピュータID, 実行環境.ユーザID, プログラムID, start ? now : "",
                           start ? "" : now}) +
                 ")");
}

struct Retention {
    const char* table;
    const char* column;
    int months;
    int days;
};
constexpr std::array<Retention, 4> retentions{{
    {"プログラム稼動履歴", "実行日付", 6, 0},
    {"プログラム連携情報", "発信日時", 0, 3},
    {"プログラムクリップボード", "貼付日時", 0, 3},
    {"プログラムクリップボード明細", "貼付日時", 0, 3},
}};

std::string limit_condition(const Retention& r) {
    DateTime t = os::now();
    t = shift_months(t, -r.months);
    t.date = add_days(t.date, -r.days);
    return std::string(" FROM ") + r.table + " WHERE " + r.column + " <= " + literal(date_time_text(t));
}

}  // namespace

void 稼動履歴開始記録(const std::string& trimmed_command_line) {
    起動担当者読込();
    history_row("開始 ", trimmed_command_line);
}

void 稼動履歴終了記録() {
    if (history_row("終了")) 使用終了記録();
}

void 使用開始記録() {
    usage_row("開始日時");
}
void 使用終了記録() {
    usage_row("終了日時");
}

void 使用状況整理() {
    主DB実行("DELETE FROM 使用状況 WHERE 終了日時 < " + literal(date_text(shift_months(os::today(), -1))) +
             " AND 終了日時 <> ''");
}

void 履歴整理() {
    for (const Retention& r : retentions) {
        ado::Recordset rs;
        const bool found = 設定DB参照(rs, "SELECT *" + limit_condition(r));
        rs.Close();
        if (found) 設定DB実行("DELETE" + limit_condition(r));
    }
}

}  // namespace kalvane

// The INSERT of one history row.
#include "data/history_row.h"

#include "base/format.h"
#include "base/text.h"
#include "data/sql_text.h"
#include "records/run_context.h"

namespace kalvane {

bool history_row(std::string_view kind, std::string_view text) {
    const std::string now = 現在日時();
    実行環境.proccounter += 1;
    std::string sql =
        "INSERT INTO プログラム稼動履歴 "
        "(実行日付,プログラムID,proccounter,摘要,運用事業所コード,起動担当者コード,ユーザID)VALUES (";
    sql += literals(
        {now, プログラムID, Format(static_cast<std::int64_t>(実行環境.proccounter), "000000000000")});
    sql += ", '";
    sql += kind;
    append_doubled(sql, Replace(text, std::string_view("\0", 1), ""));  // the rows are there to be read
    sql += "', " + literals({実行環境.運用事業所コード, 実行環境.起動担当者コード, 実行環境.ユーザID}) + ")";
    try {
        実行環境.設定接続.Execute(sql);
        return true;
    } catch (const ado::Error&) {
        return false;
    }
}

void 稼動履歴出力記録(const std::string& sql) {
    if (contains(プログラムID, "更新モニタ") && contains(sql, "未集計情報")) return;
    history_row("出力終了 ", sql);
}

void 稼動履歴エラー記録(const std::string& text) {
    history_row("エラー ", text);
}

}  // namespace kalvane

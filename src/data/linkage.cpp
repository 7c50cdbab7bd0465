// Request, reply and clipboard rows.
#include "data/linkage.h"

#include "base/failure.h"
#include "data/configuration.h"
#include "data/fields.h"
#include "data/operator_record.h"
#include "data/query.h"

namespace kalvane {
namespace {

void take_request(ado::Recordset& rs, const std::string& command_line, const std::string& since) {
    if (設定DB参照(rs, "SELECT * FROM プログラム連携情報 WHERE 発信日時 >= " + literal(since) +
                           " AND 受信プログラムID = " + literal(プログラムID) +
                           " AND 起動連携情報 = " + name_literal(command_line) + " AND 連携区分 = '00'")) {
        実行環境.連携元プログラムID = text_of(rs, "発信プログラムID");
        実行環境.起動連携情報 = text_of(rs, "起動連携情報");
        設定DB実行("DELETE FROM プログラム連携情報 WHERE 発信日時 = " + literal(text_of(rs, "発信日時")) +
                   " AND 発信プログラムID = " + literal(text_of(rs, "発信プログラムID")) +
                   " AND 受信プログラムID = " + literal(text_of(rs, "受信プログラムID")) +
                   " AND 連携区分 = '00'");
    }
}

}  // namespace

void 連携受信(const std::string& command_line, const std::string& since) {
    実行環境.連携元プログラムID.clear();
    ado::Recordset rs;
    try {
        take_request(rs, command_line, since);
    } catch (const RunFailure&) {
        // a table without a column: no request
    }
    rs.Close();
}

void 連携応答(const std::string& reply) {
    起動担当者読込();
    実行環境.終了連携情報 = reply;
    const std::string now = 現在日時();
    設定DB実行(
        "INSERT INTO プログラム連携情報 "
        "(発信日時,発信プログラムID,受信プログラムID,受信期限,連携区分,起動連携情報,終了連携情報,"
        "運用事業所コード,起動担当者コード,ユーザID)VALUES (" +
        literals({now, 実行環境.連携元プログラムID, プログラムID, now, "99"}) + ", " +
        name_literal(実行環境.起動連携情報) + ", " + name_literal(実行環境.終了連携情報) + ", " +
        literals({実行環境.運用事業所コード, 実行環境.起動担当者コード, 実行環境.ユーザID}) + ")");
    設定DB再接続();
}

bool クリップボード検索(const std::string& 貼付プログラムID, const std::string& 伝票番号ID,
                        ClipboardSource& out) {
    ado::Recordset rs;
    const bool found = 設定DB参照(
        rs,
        "SELECT * FROM プログラムクリップボード明細 WHERE 貼付プログラムID = " + literal(貼付プログラムID) +
            " AND 貼付情報区分 = '1' AND 伝票番号ID = " + literal(伝票番号ID) + " AND 貼付日時 < " +
            literal(現在日時()) + " ORDER BY 貼付日時 DESC");
    if (found)
        out = {text_of(rs, "伝票事業所コード"), text_of(rs, "伝票番号基準日付"), text_of(rs, "伝票No"),
               text_of(rs, "伝票付加情報")};
    rs.Close();
    return found;
}

}  // namespace kalvane

// The sequences of a new, a changed and a deleted invoice.
#include "document/save_statements.h"

#include "base/format.h"
#include "base/text.h"
#include "data/query.h"
#include "document/document_sql.h"
#include "records/document.h"
#include "records/run_context.h"
#include "rules/free_number.h"
#include "rules/number_allocation.h"
#include "session/session.h"

namespace kalvane {
namespace {

enum Status : std::int16_t { written = 1, insert_failed = 3, row_gone = 6, deleted = 7 };
constexpr const char* insert_failed_words = "登録済です。登録できませんでした。";
constexpr const char* row_gone_words = "既に削除されています。削除できませんでした。";

void set_status(Status status) {
    請求ヘッダ.登録結果区分 = status;
    請求ヘッダ.登録結果文言 = status == insert_failed ? insert_failed_words
                              : status == row_gone    ? row_gone_words
                                                      : "";
}

void insert(const std::string& sql, bool log = false) {
    set_status(主DB実行(sql, log) ? written : insert_failed);
}
void erase(const std::string& sql, bool log = false) {
    set_status(主DB実行(sql, log) ? deleted : row_gone);
}

std::string site_and_date() {
    return " WHERE 事業所コード = " + literal(実行環境.事業所コード) +
           " AND 番号基準日付 = " + literal(実行環境.番号基準日付);
}

// The old key, its columns qualified or not.
std::string old_key(const std::string& table) {
    const HeaderRecord& h = 請求ヘッダ;
    return " WHERE " + table + "事業所コード = " + literal(h.旧事業所コード) + " AND " + table +
           "番号基準日付 = " + literal(h.旧番号基準日付) + " AND " + table +
           "営業請求No = " + literal(h.旧営業請求No);
}

// Before the first statement: a document that runs out of identities must not be written in part.
void 固有行No設定() {
    std::int16_t& last = 請求ヘッダ.最終固有行No;
    for (int i = 0; i <= 実行環境.最終行; ++i) {
        LineRecord& line = 請求明細行[i];
        if (Val(line.営業請求固有行No) != 0) continue;
        last = to_i16(last + 1);
        line.営業請求固有行No = Format(last, "000");
    }
}

void begin_run(const char* kind) {
    請求ヘッダ.赤履歴No.clear();
    請求ヘッダ.黒履歴No.clear();
    請求ヘッダ.登録情報区分 = kind;
}

}  // namespace

void 営業請求保存() {
    if (実行環境.新規入力中)
        新規書込();
    else
        修正書込();
    if (実行環境.新規入力中 && 実行環境.引数起動 && 請求ヘッダ.登録結果区分 == written)
        実行環境.終了連携情報 = 実行環境.事業所コード + 実行環境.番号基準日付 + 実行環境.営業請求No;
}

void 新規書込() {
    固有行No設定();
    begin_run("0");
    if (!営業請求No確定()) return;
    請求ヘッダ書込();
    請求明細書込();
    未集計登録();
}

void 修正書込() {
    固有行No設定();
    begin_run("1");
    if (請求ヘッダ.旧番号基準日付 != 実行環境.番号基準日付) {
        // a new key: the new rows come first
        if (!営業請求No確定()) return;
        請求ヘッダ書込();
        請求明細書込();
        請求ヘッダ取消();
        請求明細取消();
    } else {
        請求ヘッダ取消();
        請求明細取消();
        請求ヘッダ書込();
        請求明細書込();
    }
    未集計登録();
}

void 削除書込() {
    begin_run("2");
    請求ヘッダ取消();
    請求明細取消();
    未集計登録();
}

bool 営業請求No確定() {
    const auto taken = [](const char* select, const std::string& number) {
        return has_row(select + site_and_date() + " AND 営業請求No = " + literal(number));
    };
    if (!次番号参照(請求番号ID, 実行環境.番号基準日付, 実行環境.事業所コード).empty()) {
        実行環境.営業請求No = 空き番号(
            [] { return 番号採番(請求番号ID, 実行環境.番号基準日付, 実行環境.事業所コード); },
            [&](const std::string& n) { return taken("SELECT TOP 1 営業請求No FROM T営業請求", n); });
        return true;
    }
    if (!taken("SELECT  TOP 1 営業請求No FROM T営業請求", 実行環境.営業請求No)) return true;
    set_status(insert_failed);
    return false;
}

std::string 営業請求履歴No採番() {
    return 空き番号([] { return 履歴番号採番(請求番号ID, 実行環境.番号基準日付, 実行環境.事業所コード); },
                    [](const std::string& n) {
                        return has_row("SELECT TOP 1 営業請求No FROM R営業請求" + site_and_date() +
                                       " AND 営業請求履歴No = " + literal(n));
                    });
}

void 請求ヘッダ書込() {
    請求ヘッダ.黒履歴No = 営業請求履歴No採番();
    請求ヘッダ.登録日付 = 現在日時();
    insert(header_insert(), true);
    const HistoryMark mark{請求ヘッダ.黒履歴No, black};
    insert(header_insert(&mark));
}

void 請求明細書込() {
    const HistoryMark mark{請求ヘッダ.黒履歴No, black};
    int counter = 0;
    for (int i = 0; i <= 実行環境.最終行; ++i) {
        LineRecord& line = 請求明細行[i];
        line.営業請求行No = Format(++counter, "000");
        insert(line_insert(i, 現在日時()));
        insert(line_insert(i, 現在日時(), &mark));
    }
}

void 請求ヘッダ取消() {
    請求ヘッダ.赤履歴No = 営業請求履歴No採番();
    ado::Recordset row;
    if (主DB読込(row, "SELECT * FROM T営業請求" + old_key(""))) {
        insert(header_copy(row, {請求ヘッダ.赤履歴No, red}));
        erase("DELETE FROM T営業請求" + old_key(""), true);
    }
    row.Close();
}

void 請求明細取消() {
    const std::string key = old_key("T営業請求明細.");
    ado::Recordset row;
    if (!主DB読込(row, "SELECT * FROM T営業請求明細" + key + " ORDER BY T営業請求明細.営業請求行No")) {
        set_status(row_gone);
        row.Close();
        return;
    }
    for (; !row.Eof(); row.MoveNext()) {
        insert(line_copy(row, {請求ヘッダ.赤履歴No, red}, 現在日時()));
        erase("DELETE FROM T営業請求明細" + key +
              " AND T営業請求明細.営業請求固有行No = " + literal(row.Fields("営業請求固有行No").text()));
    }
    row.Close();
    set_status(deleted);
}

void 未集計登録() {
    const HeaderRecord& h = 請求ヘッダ;
    const RunContext& r = 実行環境;
    if (Val(h.赤履歴No) != 0)
        未集計情報登録(h.登録情報区分, red, 請求番号ID, r.事業所コード, h.旧番号基準日付, h.旧営業請求No,
                       h.赤履歴No);
    if (Val(h.黒履歴No) != 0)
        未集計情報登録(h.登録情報区分, black, 請求番号ID, r.事業所コード, r.番号基準日付, r.営業請求No,
                       h.黒履歴No);
    if (r.更新実行区分 != 0) return;
    終了処理();
    データベース起動();
    更新プログラム起動(請求番号ID);
}

void 未集計情報登録(const std::string& 登録情報区分, const std::string& 赤黒区分, const std::string& 番号ID,
                    const std::string& 事業所コード, const std::string& 番号基準日付,
                    const std::string& 伝票No, const std::string& 履歴No) {
    const std::string sql =
        "INSERT INTO [未集計情報] ([事業所コード],[番号ID],[番号基準日付],[履歴No],[赤黒区分],[伝票No],"
        "[追加キー項目],[データフラグ],[登録情報区分],[予備項目]) VALUES (" +
        literals(
            {事業所コード, 番号ID, 番号基準日付, 履歴No, 赤黒区分, 伝票No, "", "0", 登録情報区分, 更新者()},
            ",") +
        ")";
    const bool done = 実行環境.更新実行区分 == 1 ? 主DB実行(sql, true) : 設定DB実行(sql);
    set_status(done ? written : insert_failed);
}

}  // namespace kalvane

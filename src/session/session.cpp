// Opens the databases in order, and ends the run.
#include "session/session.h"

#include <cstring>

#include "base/failure.h"
#include "base/text.h"
#include "data/configuration.h"
#include "data/linkage.h"
#include "data/operator_record.h"
#include "data/run_history.h"
#include "data/sql_text.h"
#include "platform/os/clock.h"
#include "platform/os/files.h"
#include "platform/os/process.h"

namespace kalvane {
namespace {

bool start_databases() {
    画面情報取得();
    実行環境.proccounter = 0;
    const std::string command_line = Trim(os::command_line());
    if (!環境定義読込()) return false;
    稼動履歴開始記録(command_line);
    連携受信(command_line, date_time_text(add_seconds(os::now(), -60)));
    // the retention is the duty of the family's menu program
    if (std::strcmp(プログラムID, 業務メニュ) == 0) 履歴整理();
    if (!主DB接続()) return false;
    使用状況整理();
    使用開始記録();
    if (起動担当者読込()) 担当者情報読込(実行環境.起動担当者コード);
    return true;
}

void close_quietly(ado::Connection& c, bool& open) {
    if (!open) return;
    try {
        c.Close();
    } catch (const ado::Error&) {
    }
    open = false;
}

}  // namespace

void 画面情報取得() {
    const os::ScreenSize size = os::screen_size();
    実行環境.画面幅 = size.width;
    実行環境.画面高さ = size.height;
}

bool データベース起動() {
    try {
        return start_databases();
    } catch (const ado::Error&) {
    } catch (const os::FileError&) {
    } catch (const RunFailure&) {
    }
    return false;
}

void 終了処理() {
    try {
        if (!実行環境.起動連携情報.empty()) 連携応答(実行環境.終了連携情報);
    } catch (const RunFailure&) {
        // a column that the table no longer has must not keep the program from ending
    }
    稼動履歴終了記録();
    ado::force_logs();  // the documents before the history that tells of them
    close_quietly(実行環境.設定接続, 実行環境.設定接続中);
    close_quietly(実行環境.主接続, 実行環境.主接続中);
}

}  // namespace kalvane

// From the program's folder to open connections.
//
// How to add a column that is read at start: its member in records/run_context.h, a row in the fields of its
// table, its column in setup/schema.cpp.
#include "data/configuration.h"

#include <array>

#include "base/failure.h"
#include "base/text.h"
#include "data/client_trust.h"
#include "data/fault_box.h"
#include "data/fields.h"
#include "data/file_helpers.h"
#include "data/history_row.h"
#include "data/query.h"
#include "data/wait_box.h"
#include "platform/os/files.h"
#include "platform/os/paths.h"
#include "platform/os/process.h"
#include "platform/os/secrets.h"
#include "records/run_context.h"

namespace kalvane {
namespace {

constexpr auto definition_fields = std::to_array<Field<RunContext>>({
    {"ドライバ名", &RunContext::ドライバ名},
    {"データベース名", &RunContext::データベース名},
    {"サーバー名", &RunContext::サーバー名},
    {"接続文字列", &RunContext::接続文字列},
    {"ユーザーID", &RunContext::ユーザーID},
    {"パスワード", &RunContext::パスワード},
    {"プロバイダ名", &RunContext::プロバイダ名},
    {"データソース名", &RunContext::データソース名},
});

constexpr auto environment_fields = std::to_array<Field<RunContext>>({
    {"インストール区分", &RunContext::インストール区分},
    {"CL更新実行区分", &RunContext::CL更新実行区分},
});

constexpr auto backup_fields = std::to_array<Field<RunContext>>({
    {"バックアップ日付", &RunContext::バックアップ日付},
    {"運用条件切替日付", &RunContext::運用条件切替日付},
    {"バックアップ方法", &RunContext::バックアップ方法},
    {"バックアップ日指定", &RunContext::バックアップ日指定},
    {"月曜バックアップ", &RunContext::月曜バックアップ},
    {"火曜バックアップ", &RunContext::火曜バックアップ},
    {"水曜バックアップ", &RunContext::水曜バックアップ},
    {"木曜バックアップ", &RunContext::木曜バックアップ},
    {"金曜バックアップ", &RunContext::金曜バックアップ},
    {"土曜バックアップ", &RunContext::土曜バックアップ},
    {"日曜バックアップ", &RunContext::日曜バックアップ},
    {"バックアップ開始時刻", &RunContext::バックアップ開始時刻},
    {"バックアップフォルダ", &RunContext::バックアップフォルダ},
});

std::string lower_ascii(std::string s) {
    for (char& c : s)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return s;
}

// The file kind at stem: 1 .accdb, 2 .mdb, 0 neither; the path found, or "".
std::int16_t file_kind(const std::string& stem, std::string& path) {
    constexpr std::array<const char*, 2> endings{".accdb", ".mdb"};
    for (std::size_t i = 0; i < endings.size(); ++i) {
        if (ファイル存在確認(stem + endings[i])) {
            path = stem + endings[i];
            return static_cast<std::int16_t>(i + 1);
        }
    }
    path.clear();
    return 0;
}

const char* ending(std::int16_t kind) {
    return kind == 1 ? ".accdb" : ".mdb";
}

std::string config_connection_text(const std::string& path) {
    const char* provider = 実行環境.設定DB種別 == 1 ? "Microsoft.ACE.OLEDB.12.0" : "Microsoft.Jet.OLEDB.4.0";
    return std::string("Provider=") + provider + ";User ID=;Password=;Data Source=" + path;
}

void open_with_settings(ado::Connection& c, const std::string& text,
                        ado::Access access = ado::Access::program) {
    c.ConnectionTimeout = 60;
    c.CommandTimeout = 30000;
    c.CursorLocation = 3;
    c.Open(text, access);
}

// 設定接続 on the folder that counts; this path carries a semicolon of its own.
void open_config() {
    open_with_settings(実行環境.設定接続, config_connection_text(実行環境.設定フォルダ + "\\usrcnfg" +
                                                                 ending(実行環境.設定DB種別) + ";"));
    実行環境.設定接続中 = true;
}

// What is committed may stand in the log of the database alone, which its file lacks. A copy that fails is
// missed when it is opened.
void copy_configuration(const std::string& from, const std::string& to) {
    try {
        ado::Connection c;
        open_with_settings(c, config_connection_text(from), ado::Access::reader);
        c.CopyTo(to);
    } catch (const ado::Error&) {
    }
}

std::string not_null(const ado::Recordset& rs, std::string_view column) {
    const ado::Value& v = rs.Fields(column);
    if (v.is_null()) throw RunFailure("Null の使い方が不正です。");
    return v.text();
}

// Folders up to the kind of the configuration database; its path, or "" when the start must stop.
std::string find_installation() {
    実行環境.ユーザID = 文字列終端切詰(os::user_name_buffer());
    実行環境.コンピュータID = 文字列終端切詰(os::computer_name_buffer());
    const std::string& exe = os::executable_path();
    const std::string folder = exe.substr(0, exe.rfind('\\') == std::string::npos ? 0 : exe.rfind('\\'));
    std::size_t at = std::string::npos;
    for (const char* word : {"prgbin", "prgsrc"})
        if (at == std::string::npos) at = lower_ascii(folder).find(word);
    if (at == std::string::npos) return {};
    const std::string p = folder.substr(0, at);
    実行環境.ルートフォルダ = p.substr(0, p.empty() ? 0 : p.size() - 1);
    実行環境.プログラムフォルダ = p + "prgbin";
    os::set_share_root(os::native_path(p + "shares"));
    実行環境.共通DB種別 = file_kind(p + "data\\gnrdb", 実行環境.共通DBパス);
    std::string config_path;
    実行環境.設定DB種別 = file_kind(p + "conf\\usrcnfg", config_path);
    実行環境.共通設定フォルダ = p + "conf";
    os::set_key_file(実行環境.共通設定フォルダ + "\\" + os::key_file_name);
    実行環境.共通帳票フォルダ = p + "report";
    実行環境.マニュアルフォルダ = p + "manual";
    std::string report_path;
    実行環境.帳票DB種別 = file_kind(実行環境.共通帳票フォルダ + "\\repdb", report_path);
    return config_path;
}

void read_definition() {
    ado::Recordset rs;
    if (設定DB読込(rs, "SELECT * FROM データベース定義 WHERE 情報種類 = 'GNR'")) {
        実行環境.db = not_null(rs, "db");
        実行環境.dbmw = not_null(rs, "dbmw");
        for (const Field<RunContext>& f : definition_fields) {
            take(rs, f, 実行環境);
            std::string& text = 実行環境.*std::get<std::string RunContext::*>(f.member);
            text = Trim(text);
        }
    }
    rs.Close();
}

void read_environment(bool with_backup) {
    ado::Recordset rs;
    if (設定DB読込(rs, "SELECT * FROM 動作環境定義 WHERE 動作環境定義ID = '001'")) {
        const ado::Value& site = rs.Fields("運用事業所コード");
        実行環境.運用事業所コード = site.is_null() ? 全社事業所 : site.text();
        実行環境.インストール区分 = 実行環境.CL更新実行区分 = 0;
        take_all(rs, environment_fields, 実行環境);
        if (with_backup) {
            take_all(rs, backup_fields, 実行環境);
            for (auto day : {&RunContext::バックアップ日付, &RunContext::運用条件切替日付})
                実行環境.*day = Left(実行環境.*day, 8);
        }
    }
    rs.Close();
}

}  // namespace

bool 環境定義読込() {
    実行環境.主接続.name = "main";
    実行環境.設定接続.name = "config";
    try {
        const std::string config_path = find_installation();
        if (config_path.empty()) {
            実行環境.設定接続中 = false;
            return false;
        }
        open_with_settings(実行環境.設定接続, config_connection_text(config_path), ado::Access::reader);
        実行環境.設定接続中 = true;
    } catch (const ado::Error& e) {
        show_fault(Fault::configuration_not_opened, std::to_string(e.number()) + " " + e.what());
        実行環境.設定接続中 = false;
        return false;
    }
    read_definition();
    read_environment(false);
    実行環境.設定接続.Close();
    const std::string root = 実行環境.プログラムフォルダ.substr(0, 実行環境.プログラムフォルダ.size() - 6);
    if (実行環境.インストール区分 == 0) {
        実行環境.設定フォルダ = root + "conf";
        実行環境.帳票フォルダ = root + "report";
    } else if (実行環境.インストール区分 == 1) {
        実行環境.設定フォルダ = root + "users\\" + 実行環境.ユーザID + "\\conf";
        実行環境.帳票フォルダ = root + "users\\" + 実行環境.ユーザID + "\\report";
        ユーザ別環境準備();
    }
    open_config();
    read_environment(true);
    実行環境.事業所コード = 実行環境.運用事業所コード;
    return 実行環境.設定接続中;
}

bool 主DB接続() {
    RunContext& r = 実行環境;
    std::string text = "Provider=" + r.プロバイダ名 + ";User ID=" + r.ユーザーID +
                       ";Password=" + r.パスワード + ";Data Source=";
    try {
        if (r.db == "A") {
            r.データベースパス = Trim(r.データソース名);
            open_with_settings(r.主接続, text + r.データソース名 + ";");
        } else if (r.db == "S") {
            open_with_settings(r.主接続, text + r.サーバー名 + ";Initial Catalog=" + r.データベース名 + ";");
        } else if (r.db == "O") {
            open_with_settings(r.主接続, text + r.データソース名 + ";");
        }
        r.主接続中 = true;
        return true;
    } catch (const ado::Error& e) {
        稼動履歴エラー記録("DB_OPEN ERROR" + std::to_string(e.number()) + " " + e.what());
        return false;
    }
}

bool 設定DB再接続() {
    ado::force_logs();
    if (実行環境.設定接続中) {
        try {
            実行環境.設定接続.Close();
        } catch (const ado::Error&) {
        }
        実行環境.設定接続中 = false;
    }
    try {
        open_config();
    } catch (const ado::Error&) {
        実行環境.設定接続中 = false;
    }
    return 実行環境.設定接続中;
}

void ユーザ別環境準備() {
    const std::string config = std::string("\\usrcnfg") + ending(実行環境.設定DB種別);
    フォルダ作成(実行環境.設定フォルダ + config);
    if (!ファイル存在確認(実行環境.設定フォルダ + config))
        copy_configuration(実行環境.共通設定フォルダ + config, 実行環境.設定フォルダ + config);
    if (実行環境.帳票DB種別 == 0) return;
    const std::string report = std::string("\\repdb") + ending(実行環境.帳票DB種別);
    フォルダ作成(実行環境.帳票フォルダ + report);
    if (ファイル存在確認(実行環境.帳票フォルダ + report)) return;
    const お待ち wait;
    std::vector<std::string> files{report, std::string("\\repfrmdb") + ending(実行環境.帳票DB種別)};
    if (実行環境.帳票DB種別 == 2) files.push_back("\\repfrmdb.accdb");
    for (const std::string& f : files) ファイル複写(実行環境.共通帳票フォルダ + f, 実行環境.帳票フォルダ + f);
    Access信頼設定();
}

}  // namespace kalvane

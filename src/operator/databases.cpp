// Rows and statements of another station.
#include "operator/databases.h"

#include "base/text.h"
#include "data/sql_text.h"
#include "platform/ado/ado.h"
#include "platform/os/clock.h"
#include "platform/os/files.h"
#include "platform/os/paths.h"
#include "records/run_context.h"

namespace kalvane::script {
namespace {

// The program's own configuration folder once it has found it, before that the shared one.
std::string config_folder() {
    if (!実行環境.設定フォルダ.empty()) return 実行環境.設定フォルダ;
    const std::string& path = os::executable_path();
    for (const char* folder : {"PRGBIN", "PRGSRC"})
        if (const std::size_t at = InStr(UCase(path), folder)) return Left(path, at - 1) + "conf";
    throw ado::Error(-1, "no installation at " + path);
}

std::string config_text() {
    const std::string base = config_folder() + "\\usrcnfg";
    const bool newer = os::FileExists(base + ".accdb") || !os::FileExists(base + ".mdb");
    return newer ? "Provider=Microsoft.ACE.OLEDB.12.0;Data Source=" + base + ".accdb;"
                 : "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + base + ".mdb;";
}

// The business database by its row in the configuration.
std::string main_text() {
    ado::Connection config;
    config.Open(config_text());
    ado::Recordset row;
    row.Open("SELECT * FROM データベース定義 WHERE 情報種類 = 'GNR'", config);
    if (row.Eof()) throw ado::Error(-1, "データベース定義 has no row GNR");
    const auto column = [&row](std::string_view name) { return Trim(row.Fields(name).text()); };
    const bool server = column("db") == "S";
    std::string text = "Provider=" + column("プロバイダ名") + ";User ID=" + column("ユーザーID") +
                       ";Password=" + column("パスワード") +
                       ";Data Source=" + column(server ? "サーバー名" : "データソース名") + ";";
    if (server) text += "Initial Catalog=" + column("データベース名") + ";";
    return text;
}

void open(ado::Connection& connection, Database database) {
    connection.name = "operator";
    connection.Open(database == Database::main ? main_text() : config_text(), ado::Access::keeper);
}

}  // namespace

void execute_sql(Database database, const std::string& sql) {
    ado::Connection connection;
    open(connection, database);
    connection.Execute(sql);
    connection.Close();
}

std::string query_sql(Database database, const std::string& sql) {
    ado::Connection connection;
    open(connection, database);
    ado::Recordset rows;
    rows.Open(sql, connection);
    std::string text;
    for (bool first = true; !rows.Eof(); rows.MoveNext(), first = false) {
        if (!first) text += "\n";
        for (int i = 0; i < static_cast<int>(rows.columns().size()); ++i) {
            if (i > 0) text += "|";
            text += rows.at(i).is_null() ? "NULL" : rows.at(i).text();
        }
    }
    return text;
}

bool reply_to_request(const std::string& program, const std::string& reply) {
    ado::Connection connection;
    open(connection, Database::config);
    ado::Recordset row;
    row.Open("SELECT * FROM プログラム連携情報 WHERE 受信プログラムID = " + literal(program) +
                 " AND 連携区分 = '00' ORDER BY 発信日時 DESC",
             connection);
    if (row.Eof()) return false;
    const auto column = [&row](std::string_view name) { return literal(row.Fields(name).text()); };
    const std::string now = literal(date_time_text(os::now()));
    const std::string caller = column("発信プログラムID"), text = column("起動連携情報");
    const std::string sent = column("発信日時");
    connection.Execute(
        "INSERT INTO プログラム連携情報 "
        "(発信日時,発信プログラムID,受信プログラムID,受信期限,連携区分,起動連携情報,"
        "終了連携情報,運用事業所コード,起動担当者コード,ユーザID)VALUES (" +
        now + ", " + caller + ", " + literal(program) + ", " + now + ", '99', " + text + ", " +
        literal(reply) + ", " + column("運用事業所コード") + ", " + column("起動担当者コード") + ", " +
        column("ユーザID") + ")");
    row.Close();
    connection.Execute("DELETE FROM プログラム連携情報 WHERE 発信日時 = " + sent +
                       " AND 発信プログラムID = " + caller + " AND 受信プログラムID = " + literal(program) +
                       " AND 連携区分 = '00'");
    connection.Close();
    return true;
}

}  // namespace kalvane::script

// Makes the folders, the files and their content.
#include "setup/install.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <optional>

#include "base/date.h"
#include "base/text.h"
#include "base/width.h"
#include "platform/os/clock.h"
#include "platform/os/paths.h"
#include "platform/os/secrets.h"
#include "records/run_context.h"
#include "setup/content.h"
#include "setup/schema.h"
#include "setup/seed.h"

namespace kalvane::setup {
namespace fs = std::filesystem;
namespace {

constexpr std::string_view provider = "Microsoft.ACE.OLEDB.12.0";

constexpr auto folders =
    std::to_array<std::string_view>({"prgbin", "conf", "data", "report", "manual", "documents"});
constexpr auto programs =
    std::to_array<std::string_view>({"KalvaneOperator", "KalvaneSetup", "KalvaneInvoiceEntry"});

constexpr std::string_view manual_text =
    "請求書入力\r\n\r\n"
    "得意先コードを入力し、明細に商品コード、数量、単価を入力して、登録ボタンで登録します。\r\n"
    "コードの欄で Ctrl キーを押すと一覧から選択できます。\r\n";

bool holds_database(const fs::path& root) {
    for (const DatabaseFile& row : databases)
        if (fs::exists(fs::symlink_status(root / row.file))) return true;
    return false;
}

void remove_databases(const fs::path& root) {
    std::error_code ignored;
    for (const DatabaseFile& row : databases)
        for (std::string_view tail : {"", "-wal", "-shm", "-journal"})
            fs::remove(root / std::string(row.file).append(tail), ignored);
}

void make_folders(const fs::path& root) {
    for (std::string_view folder : folders) fs::create_directories(root / folder);
}

void link_programs(const fs::path& root, const fs::path& from) {
    for (std::string_view name : programs) {
        const fs::path target = from / name, link = root / "prgbin" / name;
        if (!fs::exists(target)) continue;
        if (fs::is_symlink(fs::symlink_status(link))) fs::remove(link);  // of an attempt that failed
        fs::create_symlink(fs::canonical(target), link);
    }
}

// The manual is asked for by the program's name in full-width letters.
void write_manual(const fs::path& root) {
    std::ofstream out(root / "manual" / (全角変換(プログラムID) + ".doc"), std::ios::binary);
    out << manual_text;
    if (!out.flush()) throw SetupError("マニュアルを書き込めません。");
}

void fill_databases(const CreateRequest& request, const std::string& root) {
    std::array<ado::Connection, databases.size()> open;
    for (std::size_t i = 0; i < databases.size(); ++i) {
        open_database(open[i], root, databases[i].file, ado::Access::owner);
        open[i].Execute("BEGIN");
        for (const SchemaObject& object : schema_objects(databases[i].kind)) open[i].Execute(object.sql);
        insert_rows(open[i], "セットアップ情報", "版 内容 作成日時",
                    {{std::to_string(schema_version), request.content == Content::demo ? "demo" : "empty",
                      date_time_text(os::now())}});
    }
    ado::Connection& main = open.front();
    ado::Connection& config = open.back();
    fill_common(main, config);
    if (request.content == Content::demo)
        fill_demo_company(main);
    else
        fill_empty_company(main);
    const fs::path at(root);
    main.Execute("UPDATE Mユーザ SET ドキュメントフォルダ = " +
                 literal(os::program_path((at / "documents").string())));
    insert_rows(config, "データベース定義", "情報種類 db プロバイダ名 データソース名",
                {{"GNR", "A", std::string(provider), os::program_path((at / main_file).string())}});
    for (ado::Connection& connection : open) connection.Execute("COMMIT");
    for (ado::Connection& connection : open) connection.Close();
}

std::string key_file(const std::string& root) {
    return os::program_path((fs::path(root) / "conf" / os::key_file_name).string());
}

// Operators of the demonstration who sign on with a PIN.
constexpr auto demo_pins = std::to_array<std::pair<std::string_view, std::string_view>>(
    {{"00002", "SUZUKI2"}, {"00003", "TANAKA3"}});

}  // namespace

std::string checked_root(std::string_view root) {
    const fs::path path = fs::absolute(fs::path(root)).lexically_normal();
    std::string native = path.string();
    while (native.size() > 1 && native.back() == '/') native.pop_back();
    // the program finds its root by the first "prgbin" of its path, and the path stands in connection texts
    if (native == "/" || contains(UCase(native), "PRGBIN") ||
        native.find_first_of(";\\\"\r\n") != std::string::npos)
        throw SetupError("このフォルダには作成できません: " + native);
    return native;
}

void open_database(ado::Connection& connection, const std::string& root, std::string_view file,
                   ado::Access access) {
    const std::string path = (fs::path(root) / file).string();
    if (access == ado::Access::owner) connection.name = file == main_file ? "main" : "config";
    try {
        connection.Open("Provider=" + std::string(provider) +
                            ";User ID=;Password=;Data Source=" + os::program_path(path) + ";",
                        access);
    } catch (const ado::Error& e) {
        throw SetupError("データベースを開けません: " + path + "\n" + e.what());
    }
}

void set_pin(std::string_view root, std::string_view code, bool site, std::string_view pin) {
    constexpr std::size_t shortest = 4;
    if (Len(pin) < shortest) throw SetupError("暗証番号は4文字以上です。");
    if (std::any_of(pin.begin(), pin.end(), [](unsigned char c) { return c < ' ' || c == 0x7F; }))
        throw SetupError("暗証番号に使えない文字があります。");  // nobody could type them into the box
    const std::string at = checked_root(root);
    os::set_key_file(key_file(at));
    const char* table = site ? "M事業所" : "M担当者";
    ado::Connection main;
    open_database(main, at, main_file, ado::Access::program);
    ado::Recordset row;
    row.Open(std::string("SELECT コード FROM ").append(table) + " WHERE コード = " + literal(code), main);
    const bool found = !row.Eof();
    row.Close();
    if (!found) throw SetupError(std::string(table).append("にありません: ").append(code));
    main.Execute(std::string("UPDATE ").append(table) + " SET " + (site ? "特権暗証番号" : "暗証番号") +
                 " = " + literal(os::暗号化(UCase(pin))) + " WHERE コード = " + literal(code));
    main.Close();
}

int stored_version(const std::string& root, const DatabaseFile& database) {
    if (!fs::exists(fs::path(root) / database.file)) return 0;
    try {
        ado::Connection connection;
        open_database(connection, root, database.file, ado::Access::program);
        ado::Recordset rows;
        rows.Open("SELECT 版 FROM セットアップ情報", connection);
        const int version = rows.Eof() ? 0 : static_cast<int>(rows.Fields("版").number());
        rows.Close();
        connection.Close();
        return version;
    } catch (const std::runtime_error&) {  // no set-up information that could be read
        return 0;
    }
}

int installed_version(std::string_view root) {
    const std::string at = checked_root(root);
    if (!holds_database(at)) return -1;
    for (const DatabaseFile& row : databases)
        if (!fs::exists(fs::path(at) / row.file)) return 0;
    return stored_version(at, databases.back());
}

void create_installation(const CreateRequest& request) {
    const std::string root = checked_root(request.root);
    const int version = installed_version(root);
    if (version == schema_version)
        throw SetupError("同じ版 (" + std::to_string(version) +
                         ") が既に作成されています。変更しません: " + root);
    if (version > 0)
        throw SetupError("別の版 (" + std::to_string(version) +
                         ") が既に作成されています。変更しません: " + root);
    if (version == 0)
        throw SetupError("作成途中または別のデータベースがあります。フォルダを確認してください: " + root);
    try {
        make_folders(root);
        link_programs(root, request.programs);
        write_manual(root);
        os::create_key_file(key_file(root));
        fill_databases(request, root);
        if (request.content == Content::demo) {
            fill_demo_documents(root);
            for (const auto& [code, pin] : demo_pins) set_pin(root, code, false, pin);
        }
    } catch (const std::exception& e) {
        remove_databases(root);
        throw SetupError("作成できません: " + root + "\n" + e.what());
    }
}

}  // namespace kalvane::setup

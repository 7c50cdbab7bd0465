// The embedded engine. A file is opened read-write with a write-ahead log; what the program runs is held to
// rows by an authorizer.
#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <deque>
#include <filesystem>
#include <optional>
#include <utility>

#include "platform/ado/adapt.h"
#include "platform/ado/driver.h"
#include "platform/os/paths.h"

namespace kalvane::ado::detail {
namespace {

struct Finalize {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Statement = std::unique_ptr<sqlite3_stmt, Finalize>;

// A reading statement that is kept: the program asks the same small questions over and over.
struct KeptRead {
    std::string sql;  // as the program wrote it
    Statement statement;
    ColumnNames columns;
    int prepared_again = 0;  // the engine's count when the columns were taken
    std::uint64_t last_use = 0;
    bool in_use = false;
};

struct SqliteCursor;

struct SqliteSession : Session {
    using Session::Session;
    ~SqliteSession() { shut(); }
    SqliteSession(const SqliteSession&) = delete;
    SqliteSession& operator=(const SqliteSession&) = delete;
    void shut();

    sqlite3* db = nullptr;
    std::array<KeptRead, 16> kept;
    std::uint64_t uses = 0;
    std::vector<SqliteCursor*> running;
    int log_pages = 0;  // in the log behind the last write of this session
};

struct SqliteCursor : Cursor {
    using Cursor::Cursor;
    ~SqliteCursor() override { finish(); }
    SqliteCursor(const SqliteCursor&) = delete;
    SqliteCursor& operator=(const SqliteCursor&) = delete;
    bool step(Row& row);
    // A change of the schema may have prepared a kept statement again, with other columns.
    void check_columns();
    // Takes the rest of the rows into memory and ends the statement.
    void settle();
    // Gives the statement back, or ends it.
    void finish();

    std::shared_ptr<SqliteSession> session;
    sqlite3_stmt* statement = nullptr;
    KeptRead* kept = nullptr;  // where the statement belongs
    Statement own;             // else here
    bool started = false;
    std::deque<Row> settled;
    std::optional<Error> failure;  // met while settling
};

[[noreturn]] void fail(sqlite3* db) {
    throw Error(sqlite3_extended_errcode(db), sqlite3_errmsg(db));
}

bool blank_or_comment(std::string_view text) {
    while (!text.empty()) {
        const std::string_view head = text.substr(0, 2);
        std::size_t skip = 1;
        if (head == "--" || head == "/*") {
            const std::size_t end = text.find(head == "--" ? "\n" : "*/", 2);
            skip = end == std::string_view::npos ? text.size() : end + (head == "--" ? 1 : 2);
        } else if (std::string_view(" \t\r\n\f").find(text.front()) == std::string_view::npos) {
            return false;
        }
        text.remove_prefix(skip);
    }
    return true;
}

Statement prepare(sqlite3* db, std::string_view sql) {
    sqlite3_stmt* raw = nullptr;
    const char* tail = nullptr;
    const int rc = sqlite3_prepare_v2(db, sql.data(), static_cast<int>(sql.size()), &raw, &tail);
    Statement statement(raw);
    if (rc != SQLITE_OK) fail(db);
    if (!statement) throw Error(layer_error, "the statement is empty");
    const auto used = static_cast<std::size_t>(tail - sql.data());
    if (used < sql.size() && !blank_or_comment(sql.substr(used)))
        throw Error(layer_error, "text behind the statement");
    return statement;
}

std::string first_value(sqlite3* db, const char* sql) {
    const Statement statement = prepare(db, sql);
    const int rc = sqlite3_step(statement.get());
    if (rc != SQLITE_ROW && rc != SQLITE_DONE) fail(db);
    const auto* text = rc == SQLITE_ROW ? sqlite3_column_text(statement.get(), 0) : nullptr;
    return text ? reinterpret_cast<const char*>(text) : "";
}

Value column_value(sqlite3_stmt* statement, int column) {
    switch (sqlite3_column_type(statement, column)) {
        case SQLITE_NULL:
            return {};
        case SQLITE_INTEGER:
            return Value(static_cast<std::int64_t>(sqlite3_column_int64(statement, column)));
        case SQLITE_FLOAT:
            return Value(sqlite3_column_double(statement, column));
        default: {
            const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
            const auto size = static_cast<std::size_t>(sqlite3_column_bytes(statement, column));
            return Value(text ? std::string(text, size) : std::string());
        }
    }
}

void read_row(sqlite3_stmt* statement, Row& row) {
    const int count = sqlite3_data_count(statement);
    row.clear();
    row.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) row.push_back(column_value(statement, i));
}

ColumnNames column_names(sqlite3_stmt* statement) {
    auto names = std::make_shared<std::vector<std::string>>();
    const int count = sqlite3_column_count(statement);
    names->reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) names->emplace_back(sqlite3_column_name(statement, i));
    return names;
}

// What the program may do: read and write the rows of the tables. No files, settings, schema, transactions.
int authorize(void*, int action, const char* first, const char* second, const char*, const char*) {
    switch (action) {
        case SQLITE_SELECT:
        case SQLITE_READ:
        case SQLITE_RECURSIVE:
            return SQLITE_OK;
        case SQLITE_INSERT:
        case SQLITE_UPDATE:
        case SQLITE_DELETE:
            return first && sqlite3_strnicmp(first, "sqlite_", 7) == 0 ? SQLITE_DENY : SQLITE_OK;
        case SQLITE_FUNCTION:
            return second && sqlite3_stricmp(second, "load_extension") == 0 ? SQLITE_DENY : SQLITE_OK;
        default:
            return SQLITE_DENY;
    }
}

void SqliteSession::shut() {
    for (KeptRead& read : kept) read = {};
    while (sqlite3_stmt* statement = db ? sqlite3_next_stmt(db, nullptr) : nullptr)
        sqlite3_finalize(statement);
    running.clear();
    sqlite3_close(db);
    db = nullptr;
}

void SqliteCursor::finish() {
    if (!statement) return;
    statement = nullptr;
    if (!session->db) {
        // closing has ended the statement; it is no longer ours to end
        static_cast<void>(own.release());
        return;
    }
    std::erase(session->running, this);
    if (kept) {
        sqlite3_reset(kept->statement.get());
        kept->in_use = false;
    }
    own.reset();
}

void SqliteCursor::check_columns() {
    const int count = sqlite3_stmt_status(statement, SQLITE_STMTSTATUS_REPREPARE, 0);
    if (std::exchange(kept->prepared_again, count) == count) return;
    columns = kept->columns = column_names(statement);
}

bool SqliteCursor::step(Row& row) {
    if (!settled.empty()) {
        row = std::move(settled.front());
        settled.pop_front();
        return true;
    }
    if (failure) throw Error(*std::exchange(failure, std::nullopt));
    if (!statement) return false;
    if (!session->db) throw Error(layer_error, "the connection has been closed");
    const int rc = sqlite3_step(statement);
    if (!std::exchange(started, true) && kept) check_columns();
    if (rc == SQLITE_ROW) {
        read_row(statement, row);
        return true;
    }
    if (rc == SQLITE_DONE) {
        finish();
        return false;
    }
    const Error error(sqlite3_extended_errcode(session->db), sqlite3_errmsg(session->db));
    finish();
    throw error;
}

void SqliteCursor::settle() {
    std::deque<Row> rows;
    try {
        Row row;
        while (step(row)) rows.push_back(std::move(row));
    } catch (const Error& error) {
        failure = error;
    }
    settled = std::move(rows);
}

KeptRead* find_kept(SqliteSession& session, std::string_view sql) {
    const auto found = std::find_if(session.kept.begin(), session.kept.end(),
                                    [&](const KeptRead& read) { return read.statement && read.sql == sql; });
    return found == session.kept.end() ? nullptr : &*found;
}

// The place that has not been used for longest; none when all are in use.
KeptRead* free_place(SqliteSession& session) {
    KeptRead* place = nullptr;
    for (KeptRead& read : session.kept)
        if (!read.in_use && (!place || read.last_use < place->last_use)) place = &read;
    return place;
}

Statement prepare_read(sqlite3* db, std::string_view sql) {
    std::string storage;
    Statement statement = prepare(db, adapt(sql, engine_sqlite, storage));
    if (!sqlite3_stmt_readonly(statement.get()) || sqlite3_column_count(statement.get()) == 0)
        throw Error(layer_error, "the statement gives no rows");
    return statement;
}

// Room for the statement among those that are kept; none when all of them are in use.
KeptRead* keep(SqliteSession& session, std::string_view sql, Statement& statement) {
    KeptRead* place = free_place(session);
    if (!place) return nullptr;
    place->sql = sql;
    place->statement = std::move(statement);
    place->columns = column_names(place->statement.get());
    place->prepared_again = 0;
    return place;
}

std::unique_ptr<Cursor> query(const std::shared_ptr<Session>& base, std::string_view sql) {
    auto session = std::static_pointer_cast<SqliteSession>(base);
    auto cursor = std::make_unique<SqliteCursor>(sqlite_driver);
    KeptRead* kept = find_kept(*session, sql);
    if (!kept || kept->in_use) {
        // a question whose answer is just being read is asked once more beside it
        cursor->own = prepare_read(session->db, sql);
        kept = kept ? nullptr : keep(*session, sql, cursor->own);
    }
    if (kept) {
        kept->in_use = true;
        kept->last_use = ++session->uses;
    }
    cursor->kept = kept;
    cursor->statement = kept ? kept->statement.get() : cursor->own.get();
    cursor->columns = kept ? kept->columns : column_names(cursor->statement);
    session->running.push_back(cursor.get());
    cursor->session = std::move(session);
    return cursor;
}

bool step(Cursor& cursor, Row& row) {
    return static_cast<SqliteCursor&>(cursor).step(row);
}

bool execute(Session& base, std::string_view sql) {
    auto& session = static_cast<SqliteSession&>(base);
    std::string storage;
    const Statement statement = prepare(session.db, adapt(sql, engine_sqlite, storage));
    const bool writes = !sqlite3_stmt_readonly(statement.get());
    // a result that is still being read would hold an old state of the file, on which nothing can be written
    // once another process has written
    if (writes)
        for (SqliteCursor* cursor : std::vector(session.running)) cursor->settle();
    int rc = SQLITE_ROW;
    while (rc == SQLITE_ROW) rc = sqlite3_step(statement.get());
    if (rc != SQLITE_DONE) fail(session.db);
    return writes;
}

// Pages of a log that is brought over into the database once it is forced: the engine's own default.
constexpr int long_log = 1000;

void force_log(Session& base) {
    auto& session = static_cast<SqliteSession&>(base);
    sqlite3_file* log = nullptr;
    const int found = sqlite3_file_control(session.db, "main", SQLITE_FCNTL_JOURNAL_POINTER, &log);
    if (found != SQLITE_OK || !log || !log->pMethods) return;
    if (const int rc = log->pMethods->xSync(log, SQLITE_SYNC_NORMAL); rc != SQLITE_OK)
        throw Error(rc, sqlite3_errstr(rc));
    if (session.log_pages < long_log) return;
    session.log_pages = 0;
    // a log that others still read is brought over another time
    sqlite3_wal_checkpoint_v2(session.db, "main", SQLITE_CHECKPOINT_PASSIVE, nullptr, nullptr);
}

// In place of the engine's own checkpoints, each of which waits for the disk amid the statements of a save.
int log_grew(void* session, sqlite3*, const char*, int pages) {
    static_cast<SqliteSession*>(session)->log_pages = pages;
    return SQLITE_OK;
}

struct CloseDatabase {
    void operator()(sqlite3* db) const { sqlite3_close(db); }
};

void copy_into(sqlite3* from, const std::string& path) {
    sqlite3* raw = nullptr;
    const int rc = sqlite3_open_v2(path.c_str(), &raw, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
    const std::unique_ptr<sqlite3, CloseDatabase> to(raw);
    if (rc != SQLITE_OK) throw Error(rc, sqlite3_errstr(rc));
    sqlite3_backup* const backup = sqlite3_backup_init(to.get(), "main", from, "main");
    if (!backup) fail(to.get());
    sqlite3_backup_step(backup, -1);
    if (sqlite3_backup_finish(backup) != SQLITE_OK) fail(to.get());
}

// Through a neighbour that is renamed, so that a copy that breaks off leaves no half of a database.
void copy(Session& base, std::string_view path) {
    const std::string target = os::native_path(path), part = target + "-part";
    const auto remove_part = [&part] {
        std::error_code ignored;
        for (const char* tail : {"", "-journal"}) std::filesystem::remove(part + tail, ignored);
    };
    remove_part();  // of a copy that broke off
    try {
        copy_into(static_cast<SqliteSession&>(base).db, part);
        if (std::rename(part.c_str(), target.c_str()) != 0)
            throw Error(SQLITE_CANTOPEN, std::strerror(errno));
    } catch (const Error&) {
        remove_part();
        throw;
    }
}

void close(Session& base) {
    static_cast<SqliteSession&>(base).shut();
}

// With a log beside it the engine must have its way, and where it can make one it needs no help. Else the
// file is opened anew as one that nobody changes.
bool open_as_it_stands(SqliteSession& session, const std::string& path) {
    try {
        first_value(session.db, "PRAGMA page_count");
        return false;
    } catch (const Error& error) {
        const int code = static_cast<int>(error.number()) & 0xFF;
        if ((code != SQLITE_CANTOPEN && code != SQLITE_READONLY) || std::filesystem::exists(path + "-wal"))
            return false;
    }
    std::string name = "file:";
    for (const char c : path)
        if (c == '%' || c == '?' || c == '#') {
            constexpr std::string_view digits = "0123456789ABCDEF";
            const auto byte = static_cast<unsigned char>(c);
            (name += '%').append({digits[byte >> 4], digits[byte & 15]});
        } else {
            name += c;
        }
    sqlite3_close(std::exchange(session.db, nullptr));
    const int rc = sqlite3_open_v2((name + "?immutable=1").c_str(), &session.db,
                                   SQLITE_OPEN_READONLY | SQLITE_OPEN_URI, nullptr);
    if (rc != SQLITE_OK) throw Error(rc, sqlite3_errstr(rc));
    return true;
}

std::shared_ptr<Session> open(const ConnectionText& text, Access access, int wait_ms) {
    std::string path = os::native_path(text.data_source);
    if (path.empty()) throw Error(SQLITE_CANTOPEN, "no data source is named");
    if (path.front() != '/') path.insert(0, "./");  // a plain name such as ":memory:" is a file, too
    auto session = std::make_shared<SqliteSession>(sqlite_driver);
    const int create = access == Access::owner ? SQLITE_OPEN_CREATE : 0;
    const int rc = sqlite3_open_v2(path.c_str(), &session->db, SQLITE_OPEN_READWRITE | create, nullptr);
    if (rc != SQLITE_OK) {
        if (!session->db) throw Error(rc, sqlite3_errstr(rc));
        throw Error(sqlite3_extended_errcode(session->db),
                    std::string(sqlite3_errmsg(session->db)) + ": " + text.data_source);
    }
    sqlite3_busy_timeout(session->db, wait_ms);
    if (access != Access::reader || !open_as_it_stands(*session, path)) {
        // reads the header, so that a file of another kind fails here; an empty one passes for a new database
        if (first_value(session->db, "PRAGMA page_count") == "0" && access != Access::owner)
            throw Error(SQLITE_NOTADB, "file is not a database: " + text.data_source);
        first_value(session->db, "PRAGMA journal_mode=WAL");
        first_value(session->db, "PRAGMA synchronous=NORMAL");
    }
    sqlite3_db_config(session->db, SQLITE_DBCONFIG_ENABLE_LOAD_EXTENSION, 0, nullptr);
    if (access == Access::program || access == Access::reader) {
        sqlite3_db_config(session->db, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
        sqlite3_set_authorizer(session->db, authorize, nullptr);
        sqlite3_wal_hook(session->db, log_grew, session.get());
    }
    return session;
}

}  // namespace

const Driver sqlite_driver{.open = open,
                           .execute = execute,
                           .query = query,
                           .step = step,
                           .copy = copy,
                           .force_log = force_log,
                           .close = close};

}  // namespace kalvane::ado::detail

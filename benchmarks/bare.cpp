// Statements on the engine itself.
#include "bare.h"

#include <sqlite3.h>

#include <stdexcept>

namespace kalvane::bench {
namespace {

constexpr int long_log = 1000;  // pages, the engine's default and the program's

void check(bool good, sqlite3* db, const std::string& what) {
    if (!good) throw std::runtime_error(what + ": " + sqlite3_errmsg(db));
}

}  // namespace

Bare::Bare(const std::string& file) {
    check(sqlite3_open_v2(file.c_str(), &db_, SQLITE_OPEN_READWRITE, nullptr) == SQLITE_OK, db_, file);
    run("PRAGMA journal_mode=WAL");
    run("PRAGMA synchronous=NORMAL");
    // a log is brought over into the database when it is forced, as the program does it
    sqlite3_wal_hook(
        db_,
        [](void* bare, sqlite3*, const char*, int pages) {
            static_cast<Bare*>(bare)->log_pages_ = pages;
            return SQLITE_OK;
        },
        this);
}

Bare::~Bare() {
    sqlite3_close(db_);
}

void Bare::run(const std::string& sql) {
    sqlite3_stmt* statement = nullptr;
    // with the NUL behind the text it is not copied
    const int length = static_cast<int>(sql.size()) + 1;
    check(sqlite3_prepare_v2(db_, sql.c_str(), length, &statement, nullptr) == SQLITE_OK, db_, sql);
    int rc = SQLITE_ROW;
    while (rc == SQLITE_ROW) rc = sqlite3_step(statement);
    sqlite3_finalize(statement);
    check(rc == SQLITE_DONE, db_, sql);
}

void Bare::force_log() {
    sqlite3_file* log = nullptr;
    sqlite3_file_control(db_, "main", SQLITE_FCNTL_JOURNAL_POINTER, &log);
    if (log && log->pMethods) check(log->pMethods->xSync(log, SQLITE_SYNC_NORMAL) == SQLITE_OK, db_, "sync");
    if (log_pages_ < long_log) return;
    log_pages_ = 0;
    sqlite3_wal_checkpoint_v2(db_, "main", SQLITE_CHECKPOINT_PASSIVE, nullptr, nullptr);
}

}  // namespace kalvane::bench

#include <gtest/gtest.h>

#include <chrono>
#include <future>
#include <thread>

#include "ado_support.h"
#include "platform/ado/ado.h"
#include "support/table.h"

namespace kalvane {
namespace {

using test::connection_text;
using test::Database;
using test::HookGuard;
using test::numbered;
using test::rows_of;
using test::TempFolder;

constexpr long busy = 5, constraint = 19;  // primary numbers of the engine

// The primary number of the failure, 0 for none.
template <class Work>
long failure_of(Work work) {
    try {
        work();
    } catch (const ado::Error& error) {
        EXPECT_STRNE(error.what(), "");
        return error.number() & 0xff;
    }
    return 0;
}

TEST(Connection, OpensOnlyAnExistingDatabaseFile) {
    const TempFolder folder;
    folder.write("foreign.accdb", std::string(4096, 'x'));
    folder.write("short.accdb", "SQLite format 3");
    folder.write("empty.accdb", "");
    folder.write("sub/file", "");
    for (const char* file : {"missing.accdb", "foreign.accdb", "short.accdb", "empty.accdb", "sub"}) {
        ado::Connection connection;
        EXPECT_THROW(connection.Open(connection_text(folder, file)), ado::Error) << file;
        EXPECT_FALSE(connection.is_open()) << file;
        EXPECT_THROW(connection.Close(), ado::Error) << file;
    }
    EXPECT_FALSE(folder.holds("missing.accdb"));
    EXPECT_EQ(folder.read("empty.accdb"), "");
}

TEST(Connection, FailsOnADamagedFile) {
    Database db(numbered(2000));
    db.program.Close();
    db.owner.Close();
    std::string content = db.folder.read("main.accdb");
    content.replace(100, 3000, 3000, 'x');  // the header stands, the list of tables does not
    db.folder.write("main.accdb", content);
    EXPECT_THROW(db.program.Open(connection_text(db.folder)), ado::Error);
}

TEST(Connection, TextPicksProviderAndFile) {
    const TempFolder folder;
    ado::Connection owner, second;
    owner.Open(connection_text(folder), ado::Access::owner);
    owner.Execute("CREATE TABLE T (a)");
    const std::string source = "Data Source=" + folder.program("MAIN.ACCDB");
    for (const std::string& text :
         {"Provider=Microsoft.Jet.OLEDB.4.0;User ID=;Password=;" + source,
          "provider = microsoft.ace.oledb.12.0 ; " + source + ";Initial Catalog=x;;"}) {
        second.Open(text);
        EXPECT_EQ(rows_of(second, "SELECT COUNT(*) FROM T"), "0") << text;
        EXPECT_THROW(second.Open(text), ado::Error) << "a second time";
        second.Close();
    }
    for (const std::string& text : {"Provider=SQLOLEDB;" + source, source, std::string(),
                                    std::string("Provider=Microsoft.ACE.OLEDB.12.0;Data Source=;"),
                                    std::string("Provider=Microsoft.ACE.OLEDB.12.0;Data Source=:memory:")})
        EXPECT_THROW(second.Open(text), ado::Error) << text;
    try {
        second.Open("Provider=OraOLEDB.Oracle;" + source);
        FAIL();
    } catch (const ado::Error& error) {
        EXPECT_STREQ(error.what(), "no driver for provider OraOLEDB.Oracle");
    }
}

TEST(Connection, RefusedStatementsLeaveTheDatabaseAsItWas) {
    Database db({"CREATE TABLE T (a TEXT)", "INSERT INTO T VALUES ('x')"});
    const std::string schema = rows_of(db.owner, "SELECT * FROM sqlite_master");
    const std::uint64_t writes = ado::write_count();
    for (const auto& row :
         test::table(R"(|;|-- DELETE FROM T|SELECT a FROM T; DELETE FROM T|SELECT FROM|BEGIN|VACUUM
        DELETE FROM T WHERE a = '-'; /*;*/ DELETE FROM T|DELETE FROM T WHERE T.b = ''|ATTACH 'out.db' AS o
        PRAGMA journal_mode=DELETE|SELECT * FROM pragma_user_version|CREATE TABLE U (a)|CREATE TEMP TABLE U (a)
        CREATE VIEW V AS SELECT 1|CREATE INDEX I ON T (a)|DROP TABLE T|ALTER TABLE T ADD b|SAVEPOINT s|ANALYZE
        VACUUM INTO 'out.db'|SELECT load_extension('x')|DELETE FROM sqlite_master
        UPDATE sqlite_schema SET sql = ''|CREATE TRIGGER R DELETE ON T BEGIN SELECT 1; END)"))
        for (const std::string& sql : row) {
            EXPECT_THROW(db.program.Execute(sql), ado::Error) << sql;
            ado::Recordset rs;
            EXPECT_THROW(rs.Open(sql, db.program), ado::Error) << sql;
            EXPECT_FALSE(rs.is_open()) << sql;
            EXPECT_EQ(rows_of(db.owner, "SELECT * FROM sqlite_master"), schema) << sql;
            EXPECT_EQ(rows_of(db.program, "SELECT * FROM T"), "x") << sql;
        }
    EXPECT_EQ(ado::write_count(), writes);
    EXPECT_FALSE(db.folder.holds("out.db"));
}

TEST(Connection, RunsOneStatementWithBlanksAndCommentsBehind) {
    Database db({"CREATE TABLE T (a TEXT PRIMARY KEY)"});
    db.program.Execute("INSERT INTO [T] ([a]) VALUES ('x') ; \n-- done\n /* so */ ");
    db.program.Execute("UPDATE T SET  a = 'y' WHERE T.a = 'x' -- ;");
    EXPECT_EQ(failure_of([&] { db.program.Execute("INSERT INTO T VALUES ('y')"); }), constraint);
    EXPECT_EQ(rows_of(db.owner, "SELECT * FROM T"), "y");
}

TEST(Connection, CountsWritesAndTellsTheHookFirst) {
    Database db(numbered(3));
    const std::uint64_t before = ado::write_count();
    std::vector<std::string> seen;
    HookGuard guard([&](const ado::Connection& connection, std::string_view sql) {
        seen.push_back(connection.name + ": " + std::string(sql));
        if (sql.find("refuse") != std::string_view::npos) throw ado::Error(1, "refused");
    });
    db.program.Execute("INSERT INTO N VALUES (7, 'x')");
    db.program.Execute("SELECT TOP 1 * FROM N");
    EXPECT_THROW(db.program.Execute("DELETE FROM N WHERE t <> 'refuse'"), ado::Error);
    EXPECT_THROW(rows_of(db.program, "SELECT 'refuse'"), ado::Error);
    EXPECT_EQ(rows_of(db.program, "SELECT  TOP 1 t FROM N ORDER BY i DESC"), "x");
    EXPECT_EQ(ado::write_count(), before + 1);
    EXPECT_EQ(seen,
              (std::vector<std::string>{"main: INSERT INTO N VALUES (7, 'x')", "main: SELECT TOP 1 * FROM N",
                                        "main: DELETE FROM N WHERE t <> 'refuse'", "main: SELECT 'refuse'",
                                        "main: SELECT  TOP 1 t FROM N ORDER BY i DESC"}));
}

// Another process's lock: waited for, but not for ever.
TEST(Connection, WaitsForALock) {
    Database db(numbered(1));
    ado::lock_wait_scale = 0.001;
    ado::Connection hasty;
    hasty.Open(connection_text(db.folder));
    ado::lock_wait_scale = 1.0;
    db.owner.Execute("BEGIN IMMEDIATE");
    EXPECT_EQ(failure_of([&] { hasty.Execute("INSERT INTO N VALUES (2, '')"); }), busy);
    EXPECT_EQ(rows_of(hasty, "SELECT COUNT(*) FROM N"), "1");  // readers are not kept waiting

    std::promise<void> asked;
    HookGuard guard([&](const ado::Connection& connection, std::string_view) {
        if (connection.name == "main") asked.set_value();
    });
    std::thread holder([&] {
        asked.get_future().wait();
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        db.owner.Execute("COMMIT");
    });
    EXPECT_EQ(failure_of([&] { db.program.Execute("INSERT INTO N VALUES (2, '')"); }), 0);
    holder.join();
}

TEST(Connection, ForcingLogsTakesEveryOpenConnection) {
    Database db(numbered(1));
    ado::Connection second;
    second.Open(connection_text(db.folder));
    db.program.Execute("INSERT INTO N VALUES (2, 'a')");
    second.Execute("INSERT INTO N VALUES (3, 'b')");
    db.owner.Close();
    ado::force_logs();
    ado::force_logs();
    EXPECT_EQ(rows_of(second, "SELECT COUNT(*) FROM N"), "3");
}

}  // namespace
}  // namespace kalvane

// Connections and recordsets on real files.
#include <unistd.h>

#include <chrono>
#include <future>
#include <optional>
#include <thread>

#include "ado_support.h"
#include "base/failure.h"
#include "support/table.h"

namespace kalvane {
namespace {

using namespace test;

constexpr long busy = 5, constraint = 19;  // primary numbers of the engine

// The primary number of the failure, 0 for none.
long failure_of(ado::Connection& connection, const char* sql) {
    try {
        connection.Execute(sql);
    } catch (const ado::Error& error) {
        EXPECT_STRNE(error.what(), "");
        return error.number() & 0xff;
    }
    return 0;
}

TEST(Connection, OpensOnlyAnExistingDatabaseFile) {
    Database db(numbered(2000));
    db.program.Close();
    db.owner.Close();
    std::string content = db.folder.read("main.accdb");
    content.replace(100, 3000, 3000, 'x');  // the header stands, the list of tables does not
    db.folder.write("damaged.accdb", content);
    db.folder.write("foreign.accdb", std::string(4096, 'x'));
    db.folder.write("short.accdb", "SQLite format 3");
    db.folder.write("empty.accdb", "");
    db.folder.write("folder.accdb/file", "");
    for (const std::string file : {"missing", "damaged", "foreign", "short", "empty", "folder"}) {
        ado::Connection connection;
        EXPECT_THROW(connection.Open(connection_text(db.folder, file + ".accdb")), ado::Error) << file;
        EXPECT_FALSE(connection.is_open()) << file;
        EXPECT_THROW(connection.Close(), ado::Error) << file;
    }
    EXPECT_FALSE(db.folder.holds("missing.accdb"));
    EXPECT_EQ(db.folder.read("empty.accdb"), "");
}

// Somebody who may not write the folder of the database, for the rest of the scope.
class Stranger {
  public:
    Stranger() { was_ = geteuid() == 0 && seteuid(65534) == 0; }
    ~Stranger() { EXPECT_TRUE(!was_ || seteuid(0) == 0); }
    Stranger(const Stranger&) = delete;
    Stranger& operator=(const Stranger&) = delete;

  private:
    bool was_;
};

// The copy holds what stands in the log alone, also where no log could be made, with nobody at the file and
// with somebody.
TEST(Connection, CopiesWithTheLog) {
    namespace fs = std::filesystem;
    TempFolder target;
    fs::permissions(target.native(), fs::perms::all);
    for (const bool alone : {false, true}) {
        Database db(numbered(3));
        db.program.Execute("UPDATE N SET t = 'new' WHERE i = 3");
        if (alone) {
            db.owner.Close();
            db.program.Close();
        }
        fs::permissions(db.folder.native(), fs::perms(0555));
        for (const bool stranger : {false, true}) {
            SCOPED_TRACE(std::string(alone ? "alone" : "shared") + (stranger ? ", stranger" : ""));
            const std::string name = std::string(alone ? "a" : "s") + (stranger ? "s" : "") + ".accdb";
            const std::optional<Stranger> who(stranger ? std::make_optional<Stranger>() : std::nullopt);
            ado::Connection from, copy;
            from.Open(connection_text(db.folder), ado::Access::reader);
            EXPECT_THROW(from.CopyTo(target.program("none/x.accdb")), ado::Error);
            from.CopyTo(target.program(name));
            copy.Open(connection_text(target, name));
            EXPECT_EQ(rows_of(copy, "SELECT i, t FROM N WHERE i > 1"), "2|row 2/3|new");
        }
        fs::permissions(db.folder.native(), fs::perms(0755));
    }
}

TEST(Connection, TextPicksProviderAndFile) {
    Database db(numbered(1));
    ado::Connection second;
    const std::string source = "Data Source=" + db.folder.program("MAIN.ACCDB");
    for (const std::string& text :
         {"Provider=Microsoft.Jet.OLEDB.4.0;User ID=;Password=;" + source,
          "provider = microsoft.ace.oledb.12.0 ; " + source + ";Initial Catalog=x;;"}) {
        second.Open(text);
        EXPECT_EQ(rows_of(second, "SELECT COUNT(*) FROM N"), "1") << text;
        EXPECT_THROW(second.Open(text), ado::Error) << "a second time";
        second.Close();
    }
    for (const std::string& text :
         {source, std::string(), std::string("Provider=Microsoft.ACE.OLEDB.12.0;Data Source=;"),
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
    for (const auto& row : table(R"(|;|-- DELETE FROM T|SELECT a FROM T; DELETE FROM T|SELECT FROM|BEGIN
        DELETE FROM T WHERE a = '-'; /*;*/ DELETE FROM T|DELETE FROM T WHERE T.b = ''|ATTACH 'out.db' AS o
        PRAGMA journal_mode=DELETE|SELECT * FROM pragma_user_version|CREATE TABLE U (a)|VACUUM|ANALYZE
        SAVEPOINT s|CREATE TEMP TABLE U (a)|CREATE VIEW V AS SELECT 1|CREATE INDEX I ON T (a)|DROP TABLE T
        ALTER TABLE T ADD b|VACUUM INTO 'out.db'|SELECT load_extension('x')|DELETE FROM sqlite_master
        UPDATE sqlite_schema SET sql = ''|CREATE TRIGGER R DELETE ON T BEGIN SELECT 1; END)"))
        for (const std::string& sql : row) {
            EXPECT_THROW(db.program.Execute(sql), ado::Error) << sql;
            EXPECT_THROW(rows_of(db.program, sql), ado::Error) << sql;
            EXPECT_EQ(rows_of(db.owner, "SELECT * FROM sqlite_master"), schema) << sql;
            EXPECT_EQ(rows_of(db.program, "SELECT * FROM T"), "x") << sql;
        }
    EXPECT_EQ(ado::write_count(), writes);
    EXPECT_FALSE(db.folder.holds("out.db"));
}

// Another process's lock: waited for, but not for ever.
TEST(Connection, WaitsForALock) {
    Database db(numbered(1));
    ado::lock_wait_scale = 0.001;
    ado::Connection hasty;
    hasty.Open(connection_text(db.folder));
    ado::lock_wait_scale = 1.0;
    db.owner.Execute("BEGIN IMMEDIATE");
    EXPECT_EQ(failure_of(hasty, "INSERT INTO N VALUES (2, '')"), busy);
    EXPECT_EQ(rows_of(hasty, "SELECT COUNT(*) FROM N"), "1");  // readers are not kept waiting

    std::promise<void> asked;
    ado::hook.before = [&](const ado::Connection& connection, std::string_view) {
        if (connection.name == "main") asked.set_value();
    };
    std::thread holder([&] {
        asked.get_future().wait();
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        db.owner.Execute("COMMIT");
    });
    EXPECT_EQ(failure_of(db.program, "INSERT INTO N VALUES (2, '')"), 0);
    holder.join();
}

// --- results

// Reads on until a failure; the number of rows that were moved to.
int moves_until_failure(ado::Recordset& rs) {
    int moves = 0;
    EXPECT_THROW(for (;; ++moves) rs.MoveNext(), ado::Error);
    return moves;
}

TEST(Recordset, ReadsValuesByTheLastColumnOfAName) {
    Database db({"CREATE TABLE T (code TEXT, n NUMERIC, x REAL, 名称 TEXT, blank TEXT)",
                 "INSERT INTO T VALUES ('007', '1200.5000', 2, '12個', NULL), ('008', '90.0', 0.1, '', '')"});
    ado::Recordset rs;
    rs.Open("SELECT T.*, '営業' AS 名称, n AS CODE FROM T ORDER BY T.code", db.program, 0, 1, 1);
    ASSERT_TRUE(rs.is_open() && !rs.Bof() && !rs.Eof());
    EXPECT_EQ(rs.Fields("名称").text(), "営業");
    EXPECT_EQ(rs.Fields("Code").text(), "1200.5");
    EXPECT_EQ(rs.Fields("N").currency().units(), 12005000);
    EXPECT_EQ(rs.Fields("X").text(), "2");
    EXPECT_EQ(rs.at(0).text_view(), "007");
    EXPECT_EQ(rs.at(0).number(), 7.0);
    EXPECT_EQ(rs.at(3).currency().units(), 120000);
    EXPECT_TRUE(rs.Fields("blank").is_null());
    EXPECT_EQ(rs.Fields("blank").text(), "");
    EXPECT_EQ(rs.Fields("blank").number(), 0.0);
    EXPECT_EQ(rs.column_index("none"), -1);
    EXPECT_THROW(rs.Fields("none"), RunFailure);
    for (const int column : {-1, 7}) EXPECT_THROW(rs.at(column), RunFailure);
    rs.MoveNext();
    EXPECT_FALSE(rs.Fields("blank").is_null());
    EXPECT_EQ(rs.at(1).text(), "90");
    rs.MoveNext();
    EXPECT_TRUE(rs.Eof() && !rs.Bof());
    EXPECT_THROW(rs.Fields("code"), RunFailure);
    EXPECT_THROW(rs.MoveNext(), ado::Error);
    rs.Close();
    EXPECT_THROW(rs.at(0), RunFailure);
}

TEST(Recordset, OfNoRowsIsOpenAndOfAFailureIsNot) {
    Database db(numbered(0));
    ado::Recordset rs;
    rs.Close();
    rs.Open("SELECT * FROM N", db.program);
    EXPECT_TRUE(rs.is_open() && rs.Bof() && rs.Eof());
    EXPECT_EQ(rs.columns(), (std::vector<std::string>{"i", "t"}));
    for (const char* sql : {"SELECT * FROM nowhere", "INSERT INTO N VALUES (1, '')",
                            "INSERT INTO N VALUES (1, '') RETURNING i", "UPDATE N SET t = ''"}) {
        EXPECT_THROW(rs.Open(sql, db.program), ado::Error) << sql;
        EXPECT_FALSE(rs.is_open()) << sql;
        rs.Close();
    }
    EXPECT_EQ(rows_of(db.program, "SELECT COUNT(*) FROM N"), "0");
    ado::Connection closed;
    EXPECT_THROW(rs.Open("SELECT 1", closed), ado::Error);
    EXPECT_THROW(closed.Execute("DELETE FROM N"), ado::Error);
}

TEST(Recordset, StandsWhileItsRowsAreDeletedAndOthersWrite) {
    Database db(numbered(3000));
    ado::Recordset rs;
    int read = 0;
    for (rs.Open("SELECT i FROM N ORDER BY i", db.program); !rs.Eof(); rs.MoveNext(), ++read) {
        if (read == 10) db.owner.Execute("INSERT INTO N VALUES (9000, 'of another process')");
        if (read % 500 == 10)
            db.program.Execute("DELETE FROM N WHERE i > " + rs.at(0).text() + " AND i < 8000");
    }
    EXPECT_EQ(read, 3000);
    EXPECT_EQ(rows_of(db.program, "SELECT COUNT(*), MAX(i) FROM N"), "12|9000");
}

TEST(Recordset, EndsWithAFailureOnTheWay) {
    Database db(numbered(1500));
    for (const bool settled : {false, true}) {
        ado::Recordset rs;
        rs.Open("SELECT CASE WHEN i = 1200 THEN abs(-9223372036854775807 - 1) ELSE i END FROM N ORDER BY i",
                db.program);
        if (settled) db.program.Execute("UPDATE N SET t = ''");
        EXPECT_EQ(moves_until_failure(rs), 1198);
        EXPECT_TRUE(rs.Eof());
        EXPECT_EQ(moves_until_failure(rs), 0);
    }
}

TEST(Recordset, OutlivesItsConnection) {
    Database db(numbered(3000));
    ado::Recordset longer, shorter;
    longer.Open("SELECT i FROM N ORDER BY i", db.program);
    shorter.Open("SELECT i FROM N WHERE i < 3 ORDER BY i", db.program);
    db.program.Close();
    shorter.MoveNext();
    EXPECT_EQ(shorter.at(0).text(), "2");
    EXPECT_EQ(moves_until_failure(longer), 1023);
    longer.Close();
    db.program.Open(connection_text(db.folder));
    EXPECT_EQ(rows_of(db.program, "SELECT COUNT(*) FROM N"), "3000");
}

// Small questions are kept prepared: none of them may see old rows, old columns or another's place.
TEST(Recordset, RepeatedReadsSeeTheStateOfNow) {
    Database db(numbered(1100));
    const std::string all = "SELECT * FROM N ORDER BY i";
    {
        ado::Recordset first, second;
        first.Open(all, db.program);
        second.Open(all, db.program);
        first.MoveNext();
        EXPECT_EQ(first.at(0).text() + second.at(0).text(), "21");
    }
    db.owner.Execute("DELETE FROM N WHERE i > 1");
    EXPECT_EQ(rows_of(db.program, all), "1|row 1");
    db.owner.Execute("ALTER TABLE N ADD COLUMN 備考 TEXT DEFAULT 'new'");
    EXPECT_EQ(rows_of(db.program, all), "1|row 1|new");
    for (int i = 0; i < 40; ++i)
        EXPECT_EQ(rows_of(db.program, "SELECT " + std::to_string(i)), std::to_string(i));
    std::vector<ado::Recordset> open(20);  // more at a time than are kept
    for (std::size_t i = 0; i < open.size(); ++i)
        open[i].Open("WITH RECURSIVE c(i) AS (SELECT " + std::to_string(i) +
                         " UNION ALL SELECT i + 1 FROM c LIMIT 1100) SELECT i FROM c",
                     db.program);
    for (std::size_t i = 0; i < open.size(); ++i) EXPECT_EQ(open[i].at(0).text(), std::to_string(i));
    db.owner.Execute("DROP TABLE N");
    EXPECT_THROW(rows_of(db.program, all), ado::Error);
    db.program.Close();  // amid all that is being read
}

}  // namespace
}  // namespace kalvane

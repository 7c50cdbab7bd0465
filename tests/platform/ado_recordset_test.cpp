#include <gtest/gtest.h>

#include "ado_support.h"
#include "base/failure.h"
#include "platform/ado/ado.h"

namespace kalvane {
namespace {

using test::connection_text;
using test::Database;
using test::numbered;
using test::rows_of;

TEST(Recordset, ReadsValuesByTheLastColumnOfAName) {
    Database db({"CREATE TABLE T (code TEXT, n NUMERIC, x REAL, 名称 TEXT, blank TEXT)",
                 "INSERT INTO T VALUES ('007', '1200.5000', 2, '12個', NULL), ('008', '90.0', 0.1, '', '')"});
    ado::Recordset rs;
    rs.Open("SELECT T.*, '営業' AS 名称, n AS CODE FROM T ORDER BY T.code", db.program, 0, 1, 1);
    ASSERT_TRUE(rs.is_open());
    EXPECT_FALSE(rs.Bof() || rs.Eof());
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
    EXPECT_THROW(rs.at(7), RunFailure);
    EXPECT_THROW(rs.at(-1), RunFailure);
    rs.MoveNext();
    EXPECT_FALSE(rs.Fields("blank").is_null());
    EXPECT_EQ(rs.at(1).text(), "90");
    rs.MoveNext();
    EXPECT_TRUE(rs.Eof());
    EXPECT_FALSE(rs.Bof());
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

// Around the number of rows that are read ahead, each row once and in order.
TEST(Recordset, ReadsResultsOfAnyLength) {
    Database db(numbered(3000));
    for (const int length : {1, 1023, 1024, 1025, 3000}) {
        ado::Recordset rs;
        rs.Open("SELECT i FROM N WHERE i <= " + std::to_string(length) + " ORDER BY i", db.program);
        int expected = 0;
        for (; !rs.Eof(); rs.MoveNext()) ASSERT_EQ(rs.at(0).number(), ++expected);
        EXPECT_EQ(expected, length);
    }
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
    const std::string sql =
        "SELECT CASE WHEN i = 1200 THEN abs(-9223372036854775807 - 1) ELSE i END FROM N ORDER BY i";
    for (const bool settled : {false, true}) {
        ado::Recordset rs;
        rs.Open(sql, db.program);
        if (settled) db.program.Execute("UPDATE N SET t = ''");
        int read = 0;
        EXPECT_THROW(for (;; ++read) rs.MoveNext(), ado::Error);
        EXPECT_EQ(read, 1198);
        EXPECT_TRUE(rs.Eof());
        EXPECT_THROW(rs.MoveNext(), ado::Error);
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
    int read = 1;
    EXPECT_THROW(for (;; ++read) longer.MoveNext(), ado::Error);
    EXPECT_EQ(read, 1024);
    longer.Close();
    db.program.Open(connection_text(db.folder));
    EXPECT_EQ(rows_of(db.program, "SELECT COUNT(*) FROM N"), "3000");
}

TEST(Recordset, MovesWithItsPlace) {
    Database db(numbered(2000));
    ado::Recordset rs;
    rs.Open("SELECT i FROM N ORDER BY i", db.program);
    ado::Recordset other(std::move(rs));
    EXPECT_TRUE(!rs.is_open() && rs.Eof() && rs.Bof());
    other.MoveNext();
    EXPECT_EQ(other.at(0).text(), "2");
}

// Small questions are kept prepared: none of them may see old rows, old columns or another's place.
TEST(Recordset, RepeatedReadsSeeTheStateOfNow) {
    Database db(numbered(1100));
    const std::string all = "SELECT * FROM N ORDER BY i";
    ado::Recordset first, second;
    first.Open(all, db.program);
    second.Open(all, db.program);
    first.MoveNext();
    EXPECT_EQ(first.at(0).text(), "2");
    EXPECT_EQ(second.at(0).text(), "1");
    first.Close();
    second.Close();
    db.owner.Execute("DELETE FROM N WHERE i > 1");
    EXPECT_EQ(rows_of(db.program, all), "1|row 1");
    db.owner.Execute("ALTER TABLE N ADD COLUMN 備考 TEXT DEFAULT 'new'");
    first.Open(all, db.program);
    EXPECT_EQ(first.Fields("備考").text(), "new");
    first.Close();
    for (int i = 0; i < 40; ++i)
        EXPECT_EQ(rows_of(db.program, "SELECT " + std::to_string(i)), std::to_string(i));
    std::vector<ado::Recordset> open(20);  // more at a time than are kept
    for (int i = 0; i < 20; ++i)
        open[static_cast<std::size_t>(i)].Open(
            "WITH RECURSIVE c(i) AS (SELECT " + std::to_string(i) +
                " UNION ALL SELECT i + 1 FROM c LIMIT 1100) SELECT i FROM c",
            db.program);
    for (int i = 0; i < 20; ++i) EXPECT_EQ(open[static_cast<std::size_t>(i)].at(0).text(), std::to_string(i));
    db.owner.Execute("DROP TABLE N");
    EXPECT_THROW(first.Open(all, db.program), ado::Error);
    db.program.Close();
}

}  // namespace
}  // namespace kalvane

// An installation of the former version brought to this one: rows kept, whatever breaks it off.
#include <sys/wait.h>
#include <unistd.h>

#include "installation.h"
#include "platform/os/paths.h"

namespace kalvane {
namespace {

using namespace test;

constexpr const char* files[] = {"data/kalvane.accdb", "data/gnrdb.accdb", "report/repdb.accdb",
                                 "report/repfrmdb.accdb", "conf/usrcnfg.accdb"};

std::string in(const Installation& at, const char* file, const std::vector<std::string>& statements) {
    ado::Connection c;
    setup::open_database(c, at.root(), file, ado::Access::owner);
    std::string rows;
    for (const std::string& sql : statements) {
        if (sql.starts_with("SELECT"))
            rows += rows_of(c, sql);
        else
            c.Execute(sql);
    }
    c.Close();
    return rows;
}
std::string versions(const Installation& at) {
    std::string all;
    for (const char* file : files) all += in(at, file, {"SELECT 版 FROM セットアップ情報"});
    return all;
}

// Codes told apart by the case of their letters, history rows with a key; a table, a column, an index and a
// trigger of somebody else.
void make_former(const Installation& at) {
    std::vector<std::string> statements;
    std::vector<std::string> indexes;
    for (const setup::SchemaObject& object : setup::schema_objects(setup::main_database)) {
        if (object.name != object.table) {
            if (object.table[0] != 'R') indexes.push_back(object.sql);
            continue;
        }
        std::string sql = Replace(object.sql, " COLLATE NOCASE", "");
        if (object.table.starts_with("R"))
            sql.insert(sql.size() - 1,
                       ", PRIMARY KEY (事業所コード, 番号基準日付, 営業請求履歴No, 赤黒区分, 営業請求No" +
                           std::string(object.table == "R営業請求" ? ")" : ", 営業請求固有行No)"));
        if (sql == object.sql) continue;
        statements.insert(statements.end(),
                          {"ALTER TABLE [" + object.name + "] RENAME TO [x]", sql,
                           "INSERT INTO [" + object.name + "] SELECT * FROM [x]", "DROP TABLE [x]"});
    }
    for (const std::string& index : indexes)
        statements.push_back(Replace(index, "CREATE INDEX", "CREATE INDEX IF NOT EXISTS"));
    statements.insert(
        statements.end(),
        {"CREATE TABLE 別 (a TEXT)", "ALTER TABLE M商品 ADD COLUMN 棚番 TEXT",
         "UPDATE M商品 SET 棚番 = 'R-' || rowid", "CREATE INDEX 棚 ON M商品 (棚番)",
         "CREATE TRIGGER 見張 AFTER DELETE ON M商品 BEGIN INSERT INTO 別 VALUES (OLD.コード); END"});
    in(at, files[0], statements);
    for (const char* file : files) in(at, file, {"UPDATE セットアップ情報 SET 版 = '3'"});
    at.keep();
}

std::string rows(const Installation& at) {
    std::vector<std::string> selects;
    for (const setup::TableDefinition& t : setup::schema_tables())
        if (t.databases & setup::main_database && t.name != "セットアップ情報")
            selects.push_back("SELECT '" + t.name + "', rowid, * FROM " + t.name + " ORDER BY rowid");
    return in(at, files[0], selects);
}

TEST(Upgrade, KeepsRowsAndWhatOthersAdded) {
    const Installation at;
    make_former(at);
    const std::string former = rows(at);
    EXPECT_EQ(at.main("SELECT コード FROM M商品 WHERE コード = 'p0043'"), "");
    EXPECT_EQ(command({"check", at.root()}).status, 1);
    for (int time = 0; time < 2; ++time) {
        const auto done = command({"upgrade", at.root()});
        EXPECT_EQ(done.status, 0) << done.err;
        EXPECT_EQ(command({"check", at.root()}).status, 0);
        EXPECT_TRUE(rows(at) == former);
    }
    for (const setup::SchemaObject& object : setup::schema_objects(setup::main_database)) {
        const std::string sql = at.main("SELECT sql FROM sqlite_master WHERE name = '" + object.name + "'");
        EXPECT_TRUE(sql == object.sql || (object.name == "M商品" && contains(sql, "[棚番]"))) << sql;
    }
    EXPECT_EQ(at.main("SELECT コード FROM M商品 WHERE コード = 'p0043'"), "P0043");
    EXPECT_EQ(at.main("SELECT COUNT(*) FROM sqlite_master WHERE name LIKE '旧%'"), "0");
    at.main("DELETE FROM M商品 WHERE 棚番 = 'R-1'");
    EXPECT_EQ(at.main("SELECT COUNT(*) FROM 別"), "1");
    EXPECT_EQ(at.main("SELECT COUNT(*) FROM sqlite_master WHERE name = '棚'"), "1");
}

// Broken off at a statement, by a failure or by the end of the process: each file is of one version or the
// other, and the next attempt goes on from there.
TEST(Upgrade, MayBeBrokenOff) {
    const Installation at(setup::Content::empty);
    make_former(at);
    const auto shape = [&at] { return at.main("SELECT name, sql FROM sqlite_master ORDER BY name"); };
    const std::string former = rows(at), former_shape = shape();
    int statements = 0;
    bool killed = false;
    ado::hook.before = [&](const ado::Connection&, std::string_view) { ++statements; };
    EXPECT_EQ(command({"upgrade", at.root()}).status, 0);
    ado::hook = {};
    const std::string new_shape = shape();
    for (const int n : {2, statements / 3, statements / 2 + 1, statements - 20, statements - 1, statements}) {
        SCOPED_TRACE(n);
        at.restore();
        for (int i = 1; i < 4; ++i) in(at, files[i], {"UPDATE セットアップ情報 SET 版 = '3'"});
        killed = !killed;
        ado::hook.before = [killed, left = n](const ado::Connection&, std::string_view) mutable {
            if (--left > 0) return;
            if (killed) _exit(9);
            throw ado::Error(13, "disk full");
        };
        if (killed) {
            const pid_t child = fork();
            if (child == 0) _exit(command({"upgrade", at.root()}).status);
            int status = 0;
            waitpid(child, &status, 0);
            EXPECT_EQ(WEXITSTATUS(status), 9);
        } else {
            EXPECT_EQ(command({"upgrade", at.root()}).status, 1);
        }
        ado::hook = {};
        const std::string left = versions(at);
        EXPECT_EQ(left.find_first_not_of("34"), std::string::npos) << left;
        EXPECT_EQ(left.back(), '3');
        EXPECT_TRUE(shape() == (left[0] == '3' ? former_shape : new_shape)) << shape();
        EXPECT_TRUE(rows(at) == former);
        EXPECT_EQ(command({"upgrade", at.root()}).status, 0);
        EXPECT_EQ(versions(at), "44444");
        EXPECT_TRUE(rows(at) == former);
    }
}

TEST(Upgrade, IsRefused) {
    const Installation at(setup::Content::empty);
    make_former(at);
    // two products that have become one
    at.main("INSERT INTO M商品 (コード) VALUES ('x1'), ('X1')");
    EXPECT_EQ(command({"upgrade", at.root()}).status, 1);
    EXPECT_EQ(versions(at), "33333");
    at.main("DELETE FROM M商品 WHERE コード = 'X1'");
    // a newer version, or none, in any of the files
    for (const char* change : {"UPDATE セットアップ情報 SET 版 = '99'", "DELETE FROM セットアップ情報"}) {
        in(at, files[3], {change});
        const auto refused = command({"upgrade", at.root()});
        EXPECT_EQ(refused.status, 1);
        EXPECT_TRUE(contains(refused.err, "変更しません")) << refused.err;
        EXPECT_TRUE(versions(at).starts_with("333")) << versions(at);
    }
    EXPECT_EQ(command({"upgrade", at.root() + "/none"}).status, 1);
    EXPECT_EQ(command({"upgrade"}).status, 2);
}

}  // namespace
}  // namespace kalvane

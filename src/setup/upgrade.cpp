// Rebuilds the tables whose statement has changed.
#include "setup/upgrade.h"

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "data/sql_text.h"
#include "setup/install.h"
#include "setup/schema.h"

namespace kalvane::setup {
namespace {

std::vector<std::vector<std::string>> rows_of(ado::Connection& c, const std::string& sql) {
    std::vector<std::vector<std::string>> rows;
    ado::Recordset rs;
    for (rs.Open(sql, c); !rs.Eof(); rs.MoveNext()) {
        std::vector<std::string>& row = rows.emplace_back();
        for (std::size_t i = 0; i < rs.columns().size(); ++i)
            row.push_back(rs.at(static_cast<int>(i)).text());
    }
    rs.Close();
    return rows;
}

// The statement that laid an object of that name down; "" when there is none.
std::string laid_down_by(ado::Connection& c, const std::string& name) {
    const auto rows = rows_of(c, "SELECT sql FROM sqlite_master WHERE name = " + literal(name));
    return rows.empty() ? "" : rows[0][0];
}

struct StoredColumn {
    std::string name, type;
};
std::vector<StoredColumn> columns_of(ado::Connection& c, const std::string& table) {
    std::vector<StoredColumn> columns;
    for (const auto& row : rows_of(c, "SELECT name, type FROM pragma_table_info(" + literal(table) + ")"))
        columns.push_back({row[0], row[1]});
    return columns;
}

bool has(const std::vector<StoredColumn>& columns, std::string_view name) {
    return std::ranges::any_of(columns, [name](const StoredColumn& c) { return c.name == name; });
}

// What the table holds goes into a new one of its name, in the order of its rows.
void rebuild(ado::Connection& c, const SchemaObject& table) {
    const std::string former = "旧_" + table.name;
    const auto hanging =
        rows_of(c, "SELECT name, sql FROM sqlite_master WHERE tbl_name = " + literal(table.name) +
                       " AND type IN ('index', 'trigger') AND sql IS NOT NULL");
    const std::vector<StoredColumn> stored = columns_of(c, table.name);
    c.Execute("ALTER TABLE [" + table.name + "] RENAME TO [" + former + "]");
    c.Execute(table.sql);
    std::string names, values;
    const auto copy = [&](const std::string& name, const std::string& value) {
        names += (names.empty() ? "[" : ", [") + name + "]";
        values += (values.empty() ? "" : ", ") + value;
    };
    const TableDefinition& wanted = schema_table(table.name);
    for (const ColumnDefinition& column : wanted.columns)
        copy(column.name, has(stored, column.name)            ? "[" + column.name + "]"
                          : column.type == ColumnType::number ? "0"
                                                              : "''");
    for (const StoredColumn& column : stored) {
        if (std::ranges::any_of(wanted.columns, [&](const auto& w) { return w.name == column.name; }))
            continue;
        c.Execute("ALTER TABLE [" + table.name + "] ADD COLUMN [" + column.name + "] " + column.type);
        copy(column.name, "[" + column.name + "]");
    }
    c.Execute("INSERT INTO [" + table.name + "] (" + names + ") SELECT " + values + " FROM [" + former +
              "] ORDER BY rowid");
    c.Execute("DROP TABLE [" + former + "]");
    // those of the schema are laid down again from it
    for (const auto& object : hanging)
        if (!object[0].starts_with("索引_")) c.Execute(object[1]);
}

void lay_down(ado::Connection& c, const SchemaObject& object) {
    const std::string stored = laid_down_by(c, object.name);
    if (stored == object.sql) return;
    if (stored.empty())
        c.Execute(object.sql);
    else if (object.name == object.table)
        rebuild(c, object);
    else
        for (const std::string& sql : {"DROP INDEX [" + object.name + "]", object.sql}) c.Execute(sql);
}

void upgrade_database(const std::string& root, const DatabaseFile& row) {
    ado::Connection c;
    open_database(c, root, row.file, ado::Access::owner);
    // views and triggers keep the names that they were written with, while a table goes by another
    c.Execute("PRAGMA legacy_alter_table = ON");
    c.Execute("BEGIN IMMEDIATE");
    for (const SchemaObject& object : schema_objects(row.kind)) lay_down(c, object);
    c.Execute("UPDATE セットアップ情報 SET 版 = " + literal(std::to_string(schema_version)));
    c.Execute("COMMIT");
    c.Close();
}

}  // namespace

void upgrade_installation(std::string_view given) {
    const std::string root = checked_root(given);
    if (installed_version(root) < 0) throw SetupError("環境がありません: " + root);
    std::vector<DatabaseFile> former;
    for (const DatabaseFile& row : databases) {
        const int version = stored_version(root, row);
        const std::string file = (std::filesystem::path(root) / row.file).string();
        if (version <= 0) throw SetupError("版が分かりません。変更しません: " + file);
        if (version > schema_version)
            throw SetupError("新しい版 (" + std::to_string(version) + ") です。変更しません: " + file);
        if (version < schema_version) former.push_back(row);
    }
    for (const DatabaseFile& row : former) {
        try {
            upgrade_database(root, row);
        } catch (const std::exception& e) {
            throw SetupError("この版にできません: " + (std::filesystem::path(root) / row.file).string() +
                             "\n" + e.what());
        }
    }
}

}  // namespace kalvane::setup

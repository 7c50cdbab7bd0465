// Cuts seed text into INSERT statements.
#include "setup/seed.h"

#include <algorithm>
#include <stdexcept>

#include "setup/schema.h"

namespace kalvane::setup {
namespace {

std::vector<std::string_view> split(std::string_view text, char mark) {
    std::vector<std::string_view> parts;
    for (std::size_t start = 0;;) {
        const std::size_t end = text.find(mark, start);
        parts.push_back(text.substr(start, end - start));
        if (end == std::string_view::npos) return parts;
        start = end + 1;
    }
}

}  // namespace

void insert_rows(ado::Connection& connection, std::string_view table, std::string_view columns,
                 const std::vector<Row>& rows) {
    const std::vector<std::string_view> named = words(columns);
    std::string head = "INSERT INTO [" + std::string(table) + "] (", rest;
    for (std::string_view name : named) head.append(name == named[0] ? "[" : ", [").append(name).append("]");
    for (const ColumnDefinition& column : schema_table(table).columns)
        if (std::find(named.begin(), named.end(), column.name) == named.end()) {
            head += ", [" + column.name + "]";
            rest += column.type == ColumnType::number ? ", 0" : ", ''";
        }
    head += ") VALUES (";
    for (const Row& row : rows) {
        if (row.size() != named.size())
            throw std::logic_error("row of " + std::string(table) + ": " + row[0]);
        std::string sql = head;
        for (const std::string& value : row) sql += (&value == &row[0] ? "" : ", ") + literal(value);
        connection.Execute(sql + rest + ")");
    }
}

void insert_seed(ado::Connection& connection, const Seed& seed) {
    std::vector<Row> rows;
    for (std::string_view line : split(seed.rows, '\n')) {
        const auto values = split(line, '|');
        rows.emplace_back(values.begin(), values.end());
    }
    insert_rows(connection, seed.table, seed.columns, rows);
}

}  // namespace kalvane::setup

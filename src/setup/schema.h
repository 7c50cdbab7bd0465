// The tables of an installation: every table and column that the program and its siblings share, their keys
// and their indexes, as rows of tables, and the statements that lay them down.
//
// How to add a column: put its name into the row of its table in schema.cpp (a column of an invoice table
// into records/columns.h, from which the document tables are derived), raise schema_version, and
// name it among the columns that others use in the tests, unless a statement of the program does.
// KalvaneSetup upgrade rebuilds every table whose statement has changed.
#pragma once
#include <string>
#include <string_view>
#include <vector>

namespace kalvane::setup {

// Stands in セットアップ情報 of every database of an installation; raised with every change of the tables or
// of the demonstration company.
inline constexpr int schema_version = 4;

// The databases of an installation, as a mask.
enum Database : unsigned {
    main_database = 1,    // data/kalvane.accdb, the business database
    config_database = 2,  // conf/usrcnfg.accdb
    other_database = 4,   // the general data file and the report databases
};

// key: TEXT, part of the primary key, never NULL; a history table has none, its rows add. text: codes, 区分,
// dates, free text. number: quantities, prices, amounts, rates. Only keys are NOT NULL, nothing has a
// default.
enum class ColumnType { key, text, number };

struct ColumnDefinition {
    std::string name;
    ColumnType type;
    bool folds_case = false;  // a code, the same whatever the case of its Latin letters
};

struct TableDefinition {
    std::string name;
    unsigned databases;  // mask of Database
    std::vector<ColumnDefinition> columns;
};

// All tables, made once.
const std::vector<TableDefinition>& schema_tables();
// The table of that name; one that does not exist is a failure of the program (std::logic_error).
const TableDefinition& schema_table(std::string_view name);
// The columns of a source document's table and what they are called in the invoice's, in the same order;
// columns that the invoice lacks are not among them.
struct RenamedColumn {
    std::string name, from;
};
std::vector<RenamedColumn> renamed_columns(std::string_view table);
// A table or an index of one database, and the statement that lays it down.
struct SchemaObject {
    std::string name, table;  // the same for a table
    std::string sql;
};
// The tables of one database, then its indexes.
std::vector<SchemaObject> schema_objects(Database database);
// The words of a text in which they are parted by single blanks.
std::vector<std::string_view> words(std::string_view text);

}  // namespace kalvane::setup

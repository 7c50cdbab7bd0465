// Rows laid down by the set-up, written as text: columns parted by blanks, rows by line ends, values by "|".
#pragma once
#include <string>
#include <string_view>
#include <vector>

#include "data/sql_text.h"
#include "platform/ado/ado.h"

namespace kalvane::setup {

struct Seed {
    std::string_view table;
    std::string_view columns;  // parted by single blanks
    std::string_view rows;     // "a|b|c\nd|e|f"
};

using Row = std::vector<std::string>;

// Inserts the rows. Columns of the table that are not named get '' (texts) or 0 (numbers), so that nothing is
// NULL. A row with another number of values than columns is a failure of the program (std::logic_error).
// ado::Error: the rows before the failing one stand.
void insert_rows(ado::Connection& connection, std::string_view table, std::string_view columns,
                 const std::vector<Row>& rows);
void insert_seed(ado::Connection& connection, const Seed& seed);

}  // namespace kalvane::setup

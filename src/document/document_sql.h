// The INSERT texts of the document tables, walked along the column tables: live and black rows from memory,
// red rows copied from the row read.
#pragma once
#include <string>

#include "platform/ado/ado.h"

namespace kalvane {

// What a history row has beyond the live row: its number, "1" black or "0" red.
struct HistoryMark {
    std::string number;
    const char* red_black;
};
inline constexpr const char* black = "1";
inline constexpr const char* red = "0";

// The header in memory; with a mark into the history table.
std::string header_insert(const HistoryMark* history = nullptr);
// Line i in memory, written at `now`.
std::string line_insert(int i, const std::string& now, const HistoryMark* history = nullptr);
// The current row of a recordset over the live table, into the history table. A NULL text is written empty,
// a NULL number as 0. The header's stamps stay; a line takes `now` as its 更新日付.
std::string header_copy(const ado::Recordset& row, const HistoryMark& history);
std::string line_copy(const ado::Recordset& row, const HistoryMark& history, const std::string& now);
// Who writes: logon name, operator, computer.
std::string 更新者();

}  // namespace kalvane

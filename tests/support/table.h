// Tables of tests written as text.
#pragma once
#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "base/text.h"

namespace kalvane::test {

// The text with each line that ends in a backslash joined to the next, whose leading blanks go.
inline std::string joined(std::string_view text) {
    std::string out(text);
    for (std::size_t at = 0; (at = out.find("\\\n", at)) != out.npos;)
        out.erase(at, std::min(out.find_first_not_of(' ', at + 2), out.size()) - at);
    return out;
}

using Table = std::vector<std::vector<std::string>>;

// Rows are parted by line ends or " ; ", cells by "|"; blanks before a row are cut. The first cell of each of
// the shorthands stands for the second, wherever it is.
inline Table table(std::string_view given, const Table& shorthands = {}) {
    std::string whole = joined(given);
    for (const auto& shorthand : shorthands) whole = Replace(whole, shorthand[0], shorthand[1]);
    std::string_view text = whole;
    Table rows;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.find(" ; "));
        std::string_view row = text.substr(0, end);
        text.remove_prefix(end == text.npos ? text.size() : end + (text[end] == '\n' ? 1 : 3));
        row.remove_prefix(std::min(row.find_first_not_of(' '), row.size()));
        if (row.empty()) continue;
        rows.emplace_back();
        for (std::size_t at = 0, mark = 0; mark != row.npos; at = mark + 1) {
            mark = row.find('|', at);
            rows.back().emplace_back(row.substr(at, mark == row.npos ? mark : mark - at));
        }
    }
    return rows;
}

}  // namespace kalvane::test

// Tables of tests written as text.
#pragma once
#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace kalvane::test {

// The text with each line that ends in a backslash joined to the next, whose leading blanks go.
inline std::string joined(std::string_view text) {
    std::string out(text);
    for (std::size_t at = 0; (at = out.find("\\\n", at)) != out.npos;)
        out.erase(at, std::min(out.find_first_not_of(' ', at + 2), out.size()) - at);
    return out;
}

// Rows are parted by line ends or " ; ", cells by "|"; blanks before a row are cut.
inline std::vector<std::vector<std::string>> table(std::string_view given) {
    const std::string whole = joined(given);
    std::string_view text = whole;
    std::vector<std::vector<std::string>> rows;
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

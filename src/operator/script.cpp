// Cuts script lines into words.
#include "operator/script.h"

#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <system_error>
#include <utility>

namespace kalvane::script {
namespace {

constexpr int deepest_include = 32;

bool is_blank(char c) {
    return c == ' ' || c == '\t';
}

int hex_digit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

// Reads what stands behind a backslash at line[i]; i is left on its last character.
char escaped(std::string_view line, std::size_t& i) {
    const char c = ++i < line.size() ? line[i] : '\0';
    if (c == 'n') return '\n';
    if (c == '"' || c == '\\') return c;
    if (c == 'x' && i + 2 < line.size()) {
        const int high = hex_digit(line[i + 1]), low = hex_digit(line[i + 2]);
        if (high >= 0 && low >= 0) {
            i += 2;
            return static_cast<char>(high * 16 + low);
        }
    }
    throw ScriptError("a backslash that begins none of \\\" \\\\ \\n \\xNN");
}

// A word in double quotes at line[i]; i is left behind the closing one.
std::string quoted_word(std::string_view line, std::size_t& i) {
    std::string word;
    for (++i; i < line.size(); ++i) {
        if (line[i] == '"') {
            if (++i < line.size() && !is_blank(line[i])) throw ScriptError("no blank behind a quoted word");
            return word;
        }
        word += line[i] == '\\' ? escaped(line, i) : line[i];
    }
    throw ScriptError("a quoted word without an end");
}

void append_lines(std::vector<Line>& lines, std::string_view text, const std::string& file, int depth);

void append_include(std::vector<Line>& lines, const Line& line, int depth) {
    if (line.words.size() != 2) throw ScriptError(place(line) + ": include takes one file");
    if (depth == deepest_include) throw ScriptError(place(line) + ": files include each other");
    const std::string path = (std::filesystem::path(line.file).parent_path() / line.words[1]).string();
    std::string text;
    try {
        text = read_script(path);
    } catch (const ScriptError& e) {
        throw ScriptError(place(line) + ": " + e.what());
    }
    append_lines(lines, text, path, depth + 1);
}

void append_lines(std::vector<Line>& lines, std::string_view text, const std::string& file, int depth) {
    int number = 0;
    if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        std::string_view row = text.substr(0, end);
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
        if (row.ends_with('\r')) row.remove_suffix(1);
        Line line{file, ++number, {}};
        try {
            line.words = split_words(row);
        } catch (const ScriptError& e) {
            throw ScriptError(place(line) + ": " + e.what());
        }
        if (line.words.empty()) continue;
        if (line.words[0] == "include")
            append_include(lines, line, depth);
        else
            lines.push_back(std::move(line));
    }
}

}  // namespace

std::string place(const Line& line) {
    return line.file + ":" + std::to_string(line.number);
}

Words split_words(std::string_view line) {
    Words words;
    std::size_t i = 0;
    while (true) {
        while (i < line.size() && is_blank(line[i])) ++i;
        if (i == line.size() || (words.empty() && line[i] == '#')) return words;
        if (line[i] == '"') {
            words.push_back(quoted_word(line, i));
            continue;
        }
        const std::size_t start = i;
        while (i < line.size() && !is_blank(line[i])) ++i;
        words.emplace_back(line.substr(start, i - start));
    }
}

std::vector<Line> parse_script(std::string_view text, const std::string& file) {
    std::vector<Line> lines;
    append_lines(lines, text, file, 0);
    return lines;
}

std::string read_script(const std::string& file) {
    if (file == "-") return {std::istreambuf_iterator<char>(std::cin), {}};
    std::error_code ignored;
    std::ifstream in(file, std::ios::binary);
    if (!in.is_open() || std::filesystem::is_directory(file, ignored))
        throw ScriptError("the file " + file + " cannot be read");
    return {std::istreambuf_iterator<char>(in), {}};
}

}  // namespace kalvane::script

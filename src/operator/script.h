// The text of an operator script: lines of words, with the files that it includes put in their place.
#pragma once
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace kalvane::script {

using Words = std::vector<std::string>;

struct Line {
    std::string file;
    int number = 0;
    Words words;  // the verb first
};

// A script that is wrong as such; the text begins with file and line.
class ScriptError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

std::string place(const Line& line);  // "file:12"

// The words of one line; none for an empty line and a comment. Throws ScriptError without a place.
Words split_words(std::string_view line);
// All lines of a script text. An include is read relative to the folder of file. Throws ScriptError.
std::vector<Line> parse_script(std::string_view text, const std::string& file);
// The content of a file, or of standard input for "-". Throws ScriptError.
std::string read_script(const std::string& file);

}  // namespace kalvane::script

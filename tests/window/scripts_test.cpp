// Every script of tests/scripts by real keys and clicks: the same outcome, the same screen at its end, the
// same rows.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "window/seat.h"

namespace kalvane {
namespace {

std::vector<std::string> script_names() {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(KALVANE_SCRIPTS))
        if (entry.path().extension() == ".script") names.push_back(entry.path().stem().string());
    std::sort(names.begin(), names.end());
    return names;
}

// The screen behind each expectation of a window or a focus, and the rows at the end.
std::string with_shows(const std::string& file) {
    std::ifstream lines(file);
    std::string text = "today 20240410\n", line;  // the same moment in both, for a script that names none
    while (std::getline(lines, line)) {
        text += line + "\n";
        if (line.starts_with("expect focus") || line.starts_with("expect window frm")) text += "show\n";
    }
    for (const char* table :
         {"main T営業請求", "main T営業請求明細", "main R営業請求", "main R営業請求明細", "main 未集計情報",
          "main T閲覧", "main A番号情報", "config プログラム連携情報", "config プログラム稼動履歴"}) {
        const std::string words = table;
        const auto space = words.find(' ');
        text += "sql " + words.substr(0, space) + " \"SELECT * FROM " + words.substr(space + 1) + "\"\n";
    }
    return text;
}

class OnWindow : public testing::TestWithParam<std::string> {};

TEST_P(OnWindow, PlaysAsOnTheModels) {
    const std::string file = std::string(KALVANE_SCRIPTS) + "/" + GetParam() + ".script";
    const std::string text = with_shows(file);
    const test::Played models = test::play(text, nullptr, file),
                       window = test::play(text, &test::real_hands(), file);
    EXPECT_EQ(window.status, script_held) << window.err;
    EXPECT_EQ(window.status, models.status);
    EXPECT_EQ(window.out, models.out);
}

INSTANTIATE_TEST_SUITE_P(Road, OnWindow, testing::ValuesIn(script_names()),
                         [](const auto& script) { return script.param; });

}  // namespace
}  // namespace kalvane

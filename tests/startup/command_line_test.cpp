// The positional command line.
#include "startup/command_line.h"

#include <gtest/gtest.h>

#include "base/text.h"
#include "startup/start_run.h"

namespace kalvane {
namespace {

struct Case {
    const char* name;
    const char* text;
    const char *site, *date, *number;
    bool started = false, quoted = false, fresh = true;  // 引数起動, 引用起動, 新規入力中
};
void PrintTo(const Case& c, std::ostream* out) {
    *out << c.name;
}
class コマンドライン : public testing::TestWithParam<Case> {};

TEST_P(コマンドライン, 切出) {
    const Case& c = GetParam();
    実行環境 = RunContext{};
    実行環境.事業所コード = "009";
    実行環境.引数起動 = 実行環境.引用起動 = true;
    コマンドライン切出(Trim(c.text));
    EXPECT_EQ(実行環境.事業所コード, c.site);
    EXPECT_EQ(実行環境.番号基準日付, c.date);
    EXPECT_EQ(実行環境.営業請求No, c.number);
    EXPECT_EQ(実行環境.引数起動, c.started);
    EXPECT_EQ(実行環境.引用起動, c.quoted);
    EXPECT_EQ(実行環境.新規入力中, c.fresh);
}

constexpr Case cases[] = {
    {"empty", "", "009", "", ""},
    {"blanks", "     ", "009", "", ""},
    {"whole", "0012024040100000012", "001", "20240401", "00000012", true, false, false},
    {"sources_behind", "001202404010000001200020240401000000X", "001", "20240401", "00000012", true, false,
     false},
    {"short_number", "001202404017", "001", "20240401", "7", true, false, false},
    {"no_number", "00120240401", "001", "20240401", ""},
    {"site_alone", "001", "001", "", ""},
    // trimmed before it is cut, so that all parts move up
    {"blank_site", "   2024040100000012", "202", "40401000", "00012", true, false, false},
    {"blank_date", "001        00000012", "001", "        ", "00000012"},
    // the number is the one part that is not trimmed before it is tested
    {"blank_number", "00120240401        X", "001", "20240401", "        ", true, false, false},
    {"blank_at_the_ends", "01 2024040 12      ", "01 ", "2024040 ", "12", true, false, false},
    {"new_with_sources", "0010000000000000000", "001", "00000000", "00000000", true, true, true},
    {"short_zeros", "001000000000000000", "001", "00000000", "0000000", true, false, false},
    {"zero_date_alone", "0010000000000000001", "001", "00000000", "00000001", true, false, false},
    {"code_characters", "a-Z./_09xx1", "a-Z", "./_09xx1", ""},
    {"quote_in_site", "0'12024040100000012", "", "", ""},
    {"quote_in_date", "001202404'100000012", "", "", ""},
    {"quote_in_number", "00120240401000000'2", "", "", ""},
    {"percent", "00120240401000000%2", "", "", ""},
    {"blank_inside", "0 12024040100000012", "", "", ""},
    {"tab", "001\t024040100000012", "", "", ""},
    {"kana", "001202404あ100000012", "", "", ""},
    {"full_width_digits", "００１２０２４０４０１", "", "", ""},
    {"broken_character", "001\xE3\x81", "", "", ""},
    {"bad_character_behind_the_key", "0012024040100000012'", "001", "20240401", "00000012", true, false,
     false},
};
INSTANTIATE_TEST_SUITE_P(Cases, コマンドライン, testing::ValuesIn(cases),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(コマンドライン, キーの位置) {
    const std::string text =
        "0012024040100000012"
        "00220240402000000AB"
        "003";
    EXPECT_EQ(伝票キー切出(text, 20).No, "000000AB");
    EXPECT_EQ(伝票キー切出(text, 39).事業所コード, "003");
    EXPECT_EQ(伝票キー切出(text, 39).番号基準日付, "");
    EXPECT_EQ(伝票キー切出(text, 77).事業所コード, "");
}

// Whatever stands on it, the program starts with a new document of its own site, and the run history tells
// what it was.
TEST(コマンドライン, 異様な文字列) {
    const test::Installation at(setup::Content::empty);
    std::string all_bytes, many, quotes(10000, '\'');
    for (int b = 1; b < 256; ++b) all_bytes += static_cast<char>(b);
    for (int i = 0; i < 10000; ++i) many += "あ";
    const std::string texts[] = {all_bytes,
                                 many,
                                 quotes,
                                 "\xFF\xFE\xE3\x81",
                                 "-- ; DROP TABLE 使用状況",
                                 "00120240401\xE3\x81\x82\xE3\x81"};
    for (const std::string& text : texts) {
        SCOPED_TRACE(text.substr(0, 20));
        at.restore();
        {
            test::Start start(at.root(), {.command_line = text});
            EXPECT_TRUE(start.running());
            EXPECT_TRUE(test::Start::boxes.empty());
            EXPECT_TRUE(実行環境.新規入力中);
            EXPECT_EQ(実行環境.事業所コード, "000");
            EXPECT_EQ(実行環境.営業請求No, "00000001");
        }
        EXPECT_EQ(at.config("SELECT 摘要 FROM プログラム稼動履歴 ORDER BY rowid LIMIT 1"), "開始 " + text);
        EXPECT_EQ(at.main("SELECT COUNT(*) FROM 使用状況"), "1");
    }
}

}  // namespace
}  // namespace kalvane

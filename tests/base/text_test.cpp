// Text by characters, ill-formed bytes among it.
#include "base/text.h"

#include <gtest/gtest.h>

#include "support/table.h"

namespace kalvane {
namespace {

const std::string broken = "あ\xE3\x81い\xFF";  // あ, two broken bytes, い, one broken byte

TEST(Text, CountsCharactersAndPageBytes) {
    auto rows = test::table("abc|3|3 ; あいう|3|6 ; ｱｲﾞ｡|4|4 ; ￥é|2|4 ; 𠮷野家|3|6");
    // overlong twice, a surrogate, behind the last code point, cut off
    for (const char* bytes :
         {"\xC0\x80", "\xE0\x80\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xF0\xA0\xAE"}) {
        const std::size_t size = std::string(bytes).size();
        rows.push_back({bytes, std::to_string(size), std::to_string(2 * size)});
    }
    rows.push_back({broken, "5", "10"});
    rows.push_back({std::string("a\0b", 3), "3", "3"});
    for (const auto& r : rows) {
        EXPECT_EQ(Len(r[0]), std::stoul(r[1])) << r[0];
        EXPECT_EQ(ByteLen(r[0]), std::stoul(r[2])) << r[0];
        EXPECT_EQ(characters(r[0]).size(), std::stoul(r[1])) << r[0];
    }
    EXPECT_EQ(Len("") + ByteLen("") + characters("").size(), 0U);
}

TEST(Text, MidLeftRight) {
    constexpr auto rest = std::string::npos;
    const std::tuple<std::string, std::size_t, std::size_t, std::string> rows[] = {
        {"あいうえ", 2, 2, "いう"}, {"あいうえ", 4, 9, "え"},
        {"あいうえ", 5, 1, ""},     {"あいうえ", 3, rest, "うえ"},
        {"abc", 1, 0, ""},          {"", 1, 3, ""},
        {"abc", 0, 2, ""},          {broken, 2, 2, "\xE3\x81"},
        {broken, 4, rest, "い\xFF"}};
    for (const auto& [text, start, length, part] : rows)
        EXPECT_EQ(Mid(text, start, length), part) << text << start;
    EXPECT_EQ(Left("あいう", 2) + Left("あ", 7) + Right("うえお", 2) + Right("か", 3) + Right("あ", 0),
              "あいあえおか");
}

TEST(Text, InStr) {
    for (const auto& r : test::table(
             R"(1|あいうい|い|2 ; 3|あいうい|い|4 ; 5|あいうい|い|0 ; 0|あい|あ|0 ; 1|あい|う|0 ; 2|あい||2
        3|あい||0 ; 1|||0 ; 1|aab|ab|2 ; 1|ab|abc|0)"))
        EXPECT_EQ(InStr(std::stoul(r[0]), r[1], r[2]), std::stoul(r[3])) << r[1] << ' ' << r[2];
    // no match begins inside a character
    EXPECT_EQ(InStr(1, "あい", "\x81") + InStr(1, "あい", "\xE3"), 0U);
    EXPECT_EQ(InStr(1, broken, "い"), 4U);
    EXPECT_EQ(InStr(1, broken, "\xFF"), 5U);
}

TEST(Text, TrimsOnlyTheAsciiBlank) {
    EXPECT_EQ(Trim("  あ い  ") + LTrim("  a ") + RTrim("  a "), "あ いa   a");
    EXPECT_EQ(Trim("　a　 ") + Trim("\ta\t"), "　a　\ta\t");
    EXPECT_EQ(Trim("   ") + LTrim("   ") + RTrim(""), "");
    EXPECT_TRUE(blank("") && blank("  ") && !blank(" 　"));
}

// A tie between two doubles goes to the even one.
TEST(Text, Val) {
    for (const auto& r : test::table(R"(|0 ; 12|12 ; -12.50|-12.5 ; +3|3 ; 1,234|1 ; 12abc|12 ; A1|0 ; .5|0.5
        5.|5 ; -|0 ; .|0 ; 1e5|1 ; 0x10|0 ; inf|0 ; nan|0 ; --1|0 ; - 1|0 ; 00012|12 ; １２|0 ; 1.2.3|1.2
        1 2|1 ; 9007199254740993|9007199254740992 ; 9007199254740993.1|9007199254740994 ; 0.1|0.1)"))
        EXPECT_EQ(Val(r[0]), std::stod(r[1])) << r[0];
    EXPECT_EQ(Val("  12"), 12);
    EXPECT_EQ(Val("\t1"), 0);
    EXPECT_GT(Val(std::string(400, '9')), 1e308);
    EXPECT_LT(Val("-" + std::string(400, '9')), -1e308);
    EXPECT_EQ(Val("0." + std::string(400, '0') + "1"), 0);
}

TEST(Text, ReplaceFoldAndCodePoints) {
    EXPECT_EQ(Replace("a'b''", "'", "''"), "a''b''''");
    EXPECT_EQ(Replace("ああい", "あ", ""), "い");
    EXPECT_EQ(Replace("abc", "", "x"), "abc");
    EXPECT_EQ(UCase("abcＡａé1"), "ABCＡａé1");
    EXPECT_TRUE(equal_fold("連番Id", "連番iD"));
    EXPECT_FALSE(equal_fold("ａ", "Ａ"));
    EXPECT_FALSE(equal_fold("ab", "abc"));
    EXPECT_TRUE(contains("あいう", "いう"));
    EXPECT_EQ(Space(3), "   ");
    for (const char* c : {"A", "é", "あ", "𠮷"}) EXPECT_EQ(to_utf8(code_point(c)), c);
    EXPECT_EQ(code_point("𠮷"), char32_t{0x20BB7});
    EXPECT_EQ(code_point("\x81"), char32_t{0xFFFD});
    EXPECT_EQ(valid_utf8(broken), "あい");
}

}  // namespace
}  // namespace kalvane

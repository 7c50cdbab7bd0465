#include <gtest/gtest.h>

#include "base/format.h"
#include "platform/screen/control.h"

namespace kalvane {
namespace {

int changes = 0;

Control field(InputMode mode, int max_length = 0) {
    Control c;
    c.mode = mode;
    c.max_length = max_length;
    c.Change = [](Control&) { ++changes; };
    return c;
}

Control number(int decimals, std::int64_t smallest, std::int64_t largest) {
    Control c = field(InputMode::number);
    c.kind = ControlKind::xNum;
    c.decimals = decimals;
    c.smallest = 通貨::whole(smallest);
    c.largest = 通貨::whole(largest);
    return c;
}

void type_all(Control& c, const std::vector<std::string>& keys) {
    for (const std::string& key : keys) type_character(c, key);
}

struct KeyRow {
    const char* name;
    InputMode mode;
    int max_length;
    std::vector<std::string> keys;
    std::string text;
};
void PrintTo(const KeyRow& r, std::ostream* out) {
    *out << r.name;
}

class Keys : public testing::TestWithParam<KeyRow> {};

TEST_P(Keys, OnlyWhatTheModeTakesArrives) {
    Control c = field(GetParam().mode, GetParam().max_length);
    type_all(c, GetParam().keys);
    EXPECT_EQ(c.text, GetParam().text);

    // a paste goes through the same filter, as one change
    Control pasted = field(GetParam().mode, GetParam().max_length);
    std::string all;
    for (const std::string& key : GetParam().keys) all += key;
    changes = 0;
    paste_text(pasted, all);
    EXPECT_EQ(pasted.text, GetParam().text);
    EXPECT_EQ(changes, GetParam().text.empty() ? 0 : 1);
}

INSTANTIATE_TEST_SUITE_P(
    Modes, Keys,
    testing::Values(KeyRow{"digits", InputMode::digits, 8, {"1", "a", "-", "2", "１", " ", "'", "3"}, "123"},
                    KeyRow{"digits_full", InputMode::digits, 3, {"1", "2", "3", "4"}, "123"},
                    KeyRow{"code",
                           InputMode::code,
                           20,
                           {"a", "Z", "0", "-", "_", ".", "/", "'", "\"", "あ", " "},
                           "aZ0-_./"},
                    KeyRow{"japanese_is_cut_later",
                           InputMode::japanese,
                           4,
                           {"あ", "い", "う", "'", "\t", "\n", "\x7F"},
                           "あいう'"},
                    KeyRow{"plain", InputMode::plain, 0, {"a", " ", "\x01", "\xC2\x85", "ｱ", "𠮷"}, "a ｱ𠮷"},
                    KeyRow{"broken_bytes", InputMode::plain, 0, {"あ", "\xFF", "\xE3\x81", "い"}, "あい"},
                    KeyRow{"none", InputMode::none, 0, {"a", "1"}, ""}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(TextControls, MemoTakesLineBreaks) {
    Control memo = field(InputMode::japanese);
    memo.kind = ControlKind::xText;
    type_all(memo, {"a", "\n", "b"});
    EXPECT_EQ(memo.text, "a\nb");
    paste_text(memo, "1\r\n2\r3\t");
    EXPECT_EQ(memo.text, "1\n2\n3");
}

TEST(TextControls, SelectedContentGivesWayToTheFirstKeyTaken) {
    Control c = field(InputMode::digits, 3);
    set_text(c, "999");
    c.select_all = true;
    EXPECT_FALSE(type_character(c, "x"));
    EXPECT_EQ(c.text, "999");
    EXPECT_TRUE(type_character(c, "1"));
    EXPECT_TRUE(type_character(c, "2"));
    EXPECT_EQ(c.text, "12");
    paste_text(c, "abc");  // nothing of it is taken
    EXPECT_EQ(c.text, "12");
    delete_content(c);
    EXPECT_EQ(c.text, "");
}

TEST(TextControls, ReadOnlyRefusesKeysButNotCode) {
    Control c = field(InputMode::plain);
    c.read_only = true;
    set_text(c, "x");
    EXPECT_FALSE(type_character(c, "a"));
    paste_text(c, "abc");
    delete_content(c);
    EXPECT_EQ(c.text, "x");
}

TEST(TextControls, AWholeTextIsTakenOrNot) {
    EXPECT_TRUE(mode_takes(field(InputMode::code, 2), "A-1/b"));  // the length is another matter
    EXPECT_FALSE(mode_takes(field(InputMode::code), "1' OR '1"));
    EXPECT_FALSE(mode_takes(field(InputMode::digits), "12a"));
    EXPECT_TRUE(mode_takes(field(InputMode::digits), ""));
    EXPECT_FALSE(mode_takes(field(InputMode::japanese), "a\nb"));
    EXPECT_FALSE(mode_takes(field(InputMode::plain), "\xFF"));
    EXPECT_TRUE(mode_takes(number(2, -99, 99), "-12.5"));
    EXPECT_FALSE(mode_takes(number(2, -99, 99), "100"));
}

struct NumberRow {
    const char* name;
    int decimals;
    std::int64_t smallest, largest;
    std::vector<std::string> keys;
    std::string typed, value;
    int changes;
};
void PrintTo(const NumberRow& r, std::ostream* out) {
    *out << r.name;
}

class NumberKeys : public testing::TestWithParam<NumberRow> {};

TEST_P(NumberKeys, RefuseWhatBreaksFormOrLimits) {
    const NumberRow& r = GetParam();
    Control c = number(r.decimals, r.smallest, r.largest);
    c.value = 通貨::whole(7);
    c.select_all = true;
    changes = 0;
    type_all(c, r.keys);
    EXPECT_EQ(c.typed.value_or("(formatted)"), r.typed);
    EXPECT_EQ(plain_number(c.value), r.value);
    EXPECT_EQ(changes, r.changes);
}

INSTANTIATE_TEST_SUITE_P(
    Limits, NumberKeys,
    testing::Values(
        NumberRow{"two_decimals", 2, -999, 999, {"1", "2", ".", "3", "4", "5"}, "12.34", "12.34", 4},
        NumberRow{"no_decimals", 0, -999, 999, {"1", ".", "5"}, "15", "15", 2},
        NumberRow{"sign_in_front", 0, -999, 999, {"-", "4", "-", "+", "2"}, "-42", "-42", 2},
        NumberRow{"largest", 0, -999, 999, {"9", "9", "9", "9"}, "999", "999", 3},
        NumberRow{"smallest", 0, 0, 9, {"-", "1"}, "-", "7", 0},
        NumberRow{"one_point", 2, 0, 99, {".", ".", "5"}, ".5", "0.5", 1},
        NumberRow{"letters", 2, 0, 99, {"1", "e", ",", "３", " "}, "1", "1", 1},
        NumberRow{"same_value", 2, 0, 99, {"7", ".", "0"}, "7.0", "7", 0},
        NumberRow{"nothing_taken", 0, 0, 99, {"a", "b"}, "(formatted)", "7", 0}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(NumberControls, HoldExactlyWhatWasWritten) {
    Control c = number(0, 0, 9);
    set_value(c, 通貨::from_units(1234567));  // 123.4567, outside decimals and limits
    EXPECT_EQ(c.value.units(), 1234567);
    EXPECT_EQ(shown_text(c), "123");
    c.decimals = 2;
    EXPECT_EQ(shown_text(c), "123.46");
    set_value(c, 通貨::whole(-1234567));
    EXPECT_EQ(shown_text(c), "-1,234,567.00");
}

TEST(NumberControls, AnEmptyTextIsZeroWhereZeroIsAllowed) {
    Control c = number(0, -9, 9);
    c.value = 通貨::whole(5);
    delete_content(c);
    EXPECT_EQ(shown_text(c), "");
    EXPECT_TRUE(c.value.is_zero());

    Control code = number(0, 1, 3);
    code.value = 通貨::whole(2);
    delete_content(code);
    EXPECT_EQ(shown_text(code), "");
    EXPECT_EQ(code.value, 通貨::whole(2));
}

TEST(NumberControls, AKeyBehindTheFormattedValueContinuesIt) {
    Control c = number(2, -9999, 9999);
    c.value = 通貨::whole(1200);
    EXPECT_TRUE(type_character(c, "."));
    EXPECT_TRUE(type_character(c, "5"));
    EXPECT_EQ(shown_text(c), "1200.5");
    set_value(c, 通貨::whole(3));
    EXPECT_EQ(shown_text(c), "3.00");
}

TEST(NumberControls, TenThousandDigitsDoNotOverflow) {
    Control c = field(InputMode::number);
    c.kind = ControlKind::xNum;
    paste_text(c, std::string(10000, '9'));
    EXPECT_EQ(c.value.units() / 10000, 99999999999999);  // the longest run of nines that the type holds
}

TEST(Writes, RaiseChangeOnlyWhenTheValueDiffers) {
    Control c = field(InputMode::plain);
    changes = 0;
    set_text(c, "a");
    set_text(c, "a");
    set_number(c, 0);
    set_number(c, -5);  // a bar keeps what it is given
    set_entries(c, {"x", "y"});
    set_list_index(c, 1);
    set_list_index(c, 2);  // no such entry: shows none
    set_list_index(c, -1);
    set_caption(c, "b");
    EXPECT_EQ(changes, 4);
    EXPECT_EQ(c.number, -5);
    EXPECT_EQ(c.list_index, -1);
}

TEST(Writes, CountRevisions) {
    Control c;
    const unsigned before = c.revision;
    set_enabled(c, true);
    set_caption(c, "");
    EXPECT_EQ(c.revision, before);
    set_enabled(c, false);
    set_fore(c, RGB(1, 2, 3));
    EXPECT_EQ(c.revision, before + 2);
}

TEST(Colours, HaveTexts) {
    EXPECT_EQ(colour_text(RGB(192, 64, 0)), "C04000");
    EXPECT_EQ(colour_text(RGB(0, 10, 255)), "000AFF");
    EXPECT_EQ(colour_text(button_text_colour), "ButtonText");
    EXPECT_EQ(colour_text(window_text_colour), "WindowText");
    EXPECT_EQ(colour_text(window_colour), "Window");
}

}  // namespace
}  // namespace kalvane

// What keys and pastes do to a control.
#include <gtest/gtest.h>

#include "base/format.h"
#include "base/text.h"
#include "platform/screen/control.h"
#include "support/table.h"

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

void type_all(Control& c, const std::string& keys) {
    for (const std::string_view key : characters(keys)) type_character(c, std::string(key));
}

// What arrives of the keys; a paste goes through the same filter, as one change.
TEST(TextControls, OnlyWhatTheModeTakesArrives) {
    const std::tuple<InputMode, int, std::string, std::string> rows[] = {
        {InputMode::digits, 8, "1a-2１ '3", "123"},
        {InputMode::digits, 3, "1234", "123"},
        {InputMode::code, 20, "aZ0-_./'%\"あ ", "aZ0-_./"},
        {InputMode::japanese, 4, "あいう'\t\n\x7F", "あいう'"},  // cut when it is left
        {InputMode::plain, 0, "a \x01\xC2\x85ｱ𠮷", "a ｱ𠮷"},
        {InputMode::plain, 0, "あ\xFF\xE3\x81い", "あい"},
        {InputMode::none, 0, "a1", ""}};
    for (const auto& [mode, length, keys, text] : rows) {
        Control c = field(mode, length), pasted = field(mode, length);
        type_all(c, keys);
        EXPECT_EQ(c.text, text) << keys;
        changes = 0;
        paste_text(pasted, keys);
        EXPECT_EQ(pasted.text, text) << keys;
        EXPECT_EQ(changes, text.empty() ? 0 : 1) << keys;
    }
    Control memo = field(InputMode::japanese);
    memo.kind = ControlKind::xText;
    type_all(memo, "a\nb");
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
    type_all(c, "12");
    paste_text(c, "abc");  // nothing of it is taken
    EXPECT_EQ(c.text, "12");
    delete_content(c);
    EXPECT_EQ(c.text, "");
    // keys are refused where the field is read only, code is not
    c.read_only = true;
    set_text(c, "7");
    EXPECT_FALSE(type_character(c, "1"));
    paste_text(c, "123");
    delete_content(c);
    EXPECT_EQ(c.text, "7");
}

TEST(TextControls, AWholeTextIsTakenOrNot) {
    EXPECT_TRUE(mode_takes(field(InputMode::code, 2), "A-1/b"));  // the length is another matter
    EXPECT_TRUE(mode_takes(field(InputMode::digits), ""));
    EXPECT_TRUE(mode_takes(number(2, -99, 99), "-12.5"));
    EXPECT_FALSE(mode_takes(number(2, -99, 99), "100"));
    EXPECT_FALSE(mode_takes(field(InputMode::code), "1' OR '1"));
    EXPECT_FALSE(mode_takes(field(InputMode::digits), "12a"));
    EXPECT_FALSE(mode_takes(field(InputMode::japanese), "a\nb"));
    EXPECT_FALSE(mode_takes(field(InputMode::plain), "\xFF"));
}

// A key that would break form or limits is refused. The value was 7.
TEST(NumberControls, Keys) {
    // decimals, limits, keys, what is typed then ("(formatted)" for nothing), the value, and the changes
    for (const auto& r : test::table(R"(2|-999|999|12.345|12.34|12.34|4 ; 0|-999|999|1.5|15|15|2
        0|-999|999|-4-+2|-42|-42|2 ; 0|-999|999|9999|999|999|3 ; 0|0|9|-1|-|7|0 ; 2|0|99|..5|.5|0.5|1
        2|0|99|1e,３ |1|1|1 ; 2|0|99|7.0|7.0|7|0 ; 0|0|99|ab|(formatted)|7|0)")) {
        Control c = number(std::stoi(r[0]), std::stoi(r[1]), std::stoi(r[2]));
        c.value = 通貨::whole(7);
        c.select_all = true;
        changes = 0;
        type_all(c, r[3]);
        EXPECT_EQ(c.typed.value_or("(formatted)"), r[4]) << r[3];
        EXPECT_EQ(plain_number(c.value), r[5]) << r[3];
        EXPECT_EQ(changes, std::stoi(r[6])) << r[3];
    }
    Control c = number(2, -9999, 9999);
    c.value = 通貨::whole(1200);
    type_all(c, ".5");  // behind the formatted value
    EXPECT_EQ(shown_text(c), "1200.5");
}

TEST(NumberControls, HoldExactlyWhatWasWritten) {
    Control c = number(0, 0, 9);
    set_value(c, 通貨::from_units(1234567));  // 123.4567, outside decimals and limits
    EXPECT_EQ(c.value.units(), 1234567);
    EXPECT_EQ(shown_text(c), "123");
    c.decimals = 2;
    EXPECT_EQ(shown_text(c), "123.46");
    set_value(c, 通貨::whole(-1234567));
    EXPECT_EQ(shown_text(c), "-1,234,567.00");
    delete_content(c);  // an empty text is zero where zero is allowed
    EXPECT_EQ(shown_text(c), "");
    EXPECT_TRUE(c.value.is_zero());
    Control code = number(0, 1, 3);
    code.value = 通貨::whole(2);
    delete_content(code);
    EXPECT_EQ(shown_text(code) + plain_number(code.value), "2");
    Control any = field(InputMode::number);
    any.kind = ControlKind::xNum;
    paste_text(any, std::string(10000, '9'));
    EXPECT_EQ(any.value.units() / 10000, 99999999999999);  // the longest run of nines that the type holds
}

TEST(Writes, RaiseChangeOnlyWhenTheValueDiffers) {
    Control c = field(InputMode::plain);
    changes = 0;
    set_text(c, "a");
    set_text(c, "a");
    set_number(c, 0);
    set_number(c, -5);  // a bar keeps what it is given
    set_entries(c, {"x", "y"});
    for (const int entry : {1, 2, -1}) set_list_index(c, entry);  // there is no 2: shows none
    EXPECT_EQ(changes, 4);
    EXPECT_EQ(c.number, -5);
    EXPECT_EQ(c.list_index, -1);
    const unsigned before = c.revision;
    set_enabled(c, true);
    set_caption(c, "");
    EXPECT_EQ(c.revision, before);
    set_enabled(c, false);
    set_fore(c, RGB(1, 2, 3));
    EXPECT_EQ(c.revision, before + 2);
}

}  // namespace
}  // namespace kalvane

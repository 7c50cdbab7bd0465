// Masks, byte lengths and patterns.
#include "rules/field_text.h"

#include <gtest/gtest.h>

#include "platform/screen/form.h"
#include "support/table.h"

namespace kalvane {
namespace {

TEST(FieldText, LimitsInBytes) {
    auto rows = test::table(R"(ABCDEFG|4|3|ABCD ; あいう|5|1|あい ; あいう|6|0|あいう ; あいう|4|1|あい
        あいうえ|4|2|あい ; ｱｲｳ|3|0|ｱｲｳ ; ｱあ|2|1|ｱ ; A|0|1| ; |0|0| ; AB|-1|3| ; 𠮷田|3|1|𠮷)");
    rows.push_back({"あ\xE3", "3", "1", "あ"});
    rows.push_back({std::string(10000, 'a'), "40", "9960", std::string(40, 'a')});
    for (const auto& r : rows) {
        EXPECT_EQ(文字数超過(r[0], std::stoi(r[1])), std::stoi(r[2])) << r[0];
        EXPECT_EQ(文字数切詰(r[0], std::stoi(r[1])), r[3]) << r[0];
    }
}

TEST(FieldText, 文字数確認) {
    Form form;
    Control notice;
    form.notice = &notice;
    open_forms = {&form};
    notice.caption = "前の案内";
    文字数確認("ABCDEFG", 4);
    EXPECT_EQ(notice.caption, "3文字オーバーです。");
    文字数確認("ABCD", 4);
    EXPECT_EQ(notice.caption, "");
    open_forms.clear();
}

TEST(FieldText, 桁揃え) {
    for (const auto& r :
         test::table(R"(12|000000|000012 ; 12|00000000|00000012 ; 12345678|000000|123456 ; 1.5|000|002 ; |000|
        12||12 ; A12|000000|A12 ; A1234567|000000|A12345 ; -5|000|-00 ; 1.2.3|000000|1.2.3
        1,5|0000|1,5 ; -|000|- ; あいうえ|000|あいう ; １２|000000|１２)"))
        EXPECT_EQ(桁揃え(r[0], r[1]), r[2]) << r[0] << ' ' << r[1];
    EXPECT_EQ(桁揃え(" 12", "000000"), " 12");
}

}  // namespace
}  // namespace kalvane

// Operation rights, and the operator's record.
#include "startup/sign_on.h"

#include <gtest/gtest.h>

#include "startup/operator_record.h"
#include "startup/start_run.h"

namespace kalvane {
namespace {

using test::Installation;
using test::Start;

// The operator 00001 has every right, the program is of class 1, and operators sign on with PINs.
struct Case {
    const char* name;
    bool allowed;
    std::string rights = {};            // assignments to the operator's row
    const char* program_class = "'1'";  // "" for no row of the program
    Operation kind = Operation::start;
    const char* override_row = "";  // family and eight rights of 担当者別操作許可プログラム
    const char* family = "Kalvane";
    const char* site = "000";
    std::int16_t sites = 0;
    const char* config = "";
    std::int16_t pins = 1;
};
void PrintTo(const Case& c, std::ostream* out) {
    *out << c.name;
}
class 操作権限 : public testing::TestWithParam<Case> {};

TEST_P(操作権限, 判定) {
    const Case& c = GetParam();
    const Installation at(setup::Content::empty);
    Start start(at.root());
    ASSERT_TRUE(start.running());
    if (!c.rights.empty()) at.main("UPDATE M担当者 SET " + c.rights);
    if (*c.override_row)
        at.main(
            std::string(
                "INSERT INTO 担当者別操作許可プログラム (プログラムID, 担当者コード, 業務メニュ, 操作許可, "
                "入力許可, 修正許可, 削除許可, 印刷許可, プレビュ許可, テキスト出力許可, イメージ出力許可) "
                "VALUES ('KalvaneInvoiceEntry', '00001', ") +
            c.override_row + ")");
    at.config(*c.program_class ? std::string("UPDATE Kalvane SET 処理分類 = ") + c.program_class
                               : "DELETE FROM Kalvane");
    if (*c.config) at.config(c.config);
    実行環境.暗証番号有無 = c.pins;
    実行環境.運用事業所コード = c.site;
    実行環境.事業所件数 = c.sites;
    EXPECT_EQ(操作権限確認(c.family, "KalvaneInvoiceEntry", c.kind), c.allowed);
}

const std::string all = "操作許可 = '1', 入力許可 = '1', 修正許可 = '1', 処理分類1操作許可 = '1'";
constexpr const char* may_start = "'Kalvane', '0', '1', NULL, '0', '0', '0', '0', '0'";
constexpr const char* of_other = "'Other', '0', '0', '0', '0', '0', '0', '0', '0'";
constexpr auto start_kind = Operation::start, input_kind = Operation::input;

const Case cases[] = {
    {"all_allowed", true},
    {"start", false, "操作許可 = '1'"},
    {"start_but_asked_for_input", true, "操作許可 = '1'", "'1'", input_kind},
    {"input", false, "入力許可 = '1'", "'1'", input_kind},
    {"modify", false, "修正許可 = '1'", "'1'", Operation::modify},
    {"erase", false, "削除許可 = '1'", "'1'", Operation::erase},
    {"print", false, "印刷許可 = '1'", "'1'", Operation::print},
    {"preview", false, "プレビュ許可 = '1'", "'1'", Operation::preview},
    {"text_output", false, "テキスト出力許可 = '1'", "'1'", Operation::text_output},
    {"image_output", false, "イメージ出力許可 = '1'", "'1'", Operation::image_output},
    {"kind_8", true, "操作許可 = '1', イメージ出力許可 = '1'", "'1'", static_cast<Operation>(8)},
    // the value of a right: 0 allows, all else denies
    {"value_empty", true, "操作許可 = ''"},
    {"value_letters", true, "操作許可 = 'x1'"},
    {"value_zero_point", true, "操作許可 = '0.0'"},
    {"value_half", false, "操作許可 = '0.4'"},
    {"value_negative", false, "操作許可 = '-1'"},
    // the class of the program
    {"class_denied", false, "処理分類1操作許可 = '1'"},
    {"class_of_another", true, "処理分類1操作許可 = '1'", "'9'"},
    {"class_9_denied", false, "処理分類9操作許可 = '1'", "'9'"},
    {"class_null_is_0", false, "処理分類0操作許可 = '1'", "NULL"},
    {"class_10", true, all, "'10'", Operation::erase},
    {"class_negative", true, all, "'-1'", Operation::erase},
    {"class_between", true, "処理分類1操作許可 = '1'", "'1.5'"},
    {"no_class_row", false, "", ""},
    {"class_3_without_sites", true, "処理分類3操作許可 = '1'", "'3'"},
    {"class_3_without_sites_asks_the_kind", false, all, "'3'"},
    {"class_3_head_office", false, "", "'3'", start_kind, "", "Kalvane", "000", 1},
    {"class_3_site", true, "", "'3'", start_kind, "", "Kalvane", "001", 1},
    {"class_3_site_denied", false, "処理分類3操作許可 = '1'", "'3'", start_kind, "", "Kalvane", "001", 1},
    // a row for the program overrides the operator's rights and the class
    {"override_allows", true, all, "'1'", start_kind, may_start},
    {"override_denies_input", false, "", "'1'", input_kind, may_start},
    {"override_null_is_empty", true, all, "'1'", Operation::modify, may_start},
    {"override_denies_every_kind", false, "", "'1'", input_kind,
     "'Kalvane', '1', '0', '0', '0', '0', '0', '0', '0'"},
    {"override_of_another_family", false, all, "'1'", start_kind, of_other},
    // outside the four families the family is no part of the key, and its table is not asked
    {"override_of_any_family", true, "", "'1'", start_kind, of_other, "Kalvaneマイメニュ"},
    {"family_without_table", false, "", "'1'", start_kind, "", "Kalvaneマイメニュ"},
    // who is asked
    {"departed_operator", true, "在籍区分 = '1', 退社日付 = '20200101'"},
    {"unknown_operator", false, "コード = '00002'"},
    {"no_operator", false, "", "'1'", start_kind, "", "Kalvane", "000", 0,
     "UPDATE 動作環境定義 SET 起動担当者コード = '  '"},
    {"another_signed_on", false, "", "'1'", start_kind, "", "Kalvane", "000", 0,
     "UPDATE 動作環境定義 SET 起動担当者コード = '00002'"},
    {"without_pins", true, all, "''", start_kind, "", "Kalvane", "000", 0, "", 0},
    {"pins_2", true, all, "'1'", start_kind, "", "Kalvane", "000", 0, "", 2},
    {"without_pins_unknown_operator", true, "コード = '00002'", "'1'", start_kind, "", "Kalvane", "000", 0,
     "", 0},
};
INSTANTIATE_TEST_SUITE_P(Cases, 操作権限, testing::ValuesIn(cases),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(担当者, 空の列は前の値) {
    const Installation at(setup::Content::empty);
    at.main(
        "INSERT INTO M担当者 (コード, 氏名, 事業所コード, 部門コード, セクションコード, 役職コード, "
        "社員区分, "
        "アクセス権限, 処理分類4操作許可, 印刷許可) VALUES ('00002', '二番', '001', '010', '020', '030', "
        "'2', "
        "'6x', '1', '1'), ('00003', NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL)");
    Start start(at.root());
    for (const char* code : {"00002", "00003"}) {
        SCOPED_TRACE(code);
        EXPECT_TRUE(担当者情報読込(code));
        EXPECT_EQ(実行環境.起動担当者コード, code);
        EXPECT_EQ(実行環境.起動担当者名, "二番");
        EXPECT_EQ(実行環境.担当者事業所コード, "001");
        EXPECT_EQ(実行環境.担当者部門コード, "010");
        EXPECT_EQ(実行環境.担当者セクションコード, "020");
        EXPECT_EQ(実行環境.担当者役職コード, "030");
        EXPECT_EQ(実行環境.担当者社員区分, 2);
        EXPECT_EQ(実行環境.アクセス権限, 6);
        EXPECT_EQ(実行環境.処理分類操作許可[4], "1");
        EXPECT_EQ(実行環境.印刷許可, "1");
        EXPECT_EQ(実行環境.操作許可, "0");  // of 00001, read at the start
    }
    EXPECT_FALSE(担当者情報読込("99999"));
    EXPECT_EQ(実行環境.起動担当者コード, "00003");
    EXPECT_EQ(実行環境.担当者ログインID, "");  // only the sign-on box reads it
    at.config("UPDATE 動作環境定義 SET 起動担当者コード = NULL");
    EXPECT_FALSE(起動担当者読込());
    EXPECT_EQ(実行環境.起動担当者コード, "");
}

// The rights that a program's own row gave stay until the operator is read again.
TEST(担当者, 個別権限の残り) {
    const Installation at(setup::Content::empty);
    Start start(at.root());
    at.main(
        "INSERT INTO 担当者別操作許可プログラム VALUES ('00001', 'Kalvane', 'KalvaneInvoicePrint', '0', '1', "
        "'1', "
        "'1', '0', '0', '0', '0')");
    EXPECT_TRUE(権限判定("Kalvane", "KalvaneInvoicePrint", Operation::print));
    EXPECT_EQ(実行環境.入力許可, "1");
    EXPECT_FALSE(権限判定("Kalvane", "KalvaneInvoiceEntry", Operation::input));
    EXPECT_TRUE(担当者情報読込("00001"));
    EXPECT_TRUE(権限判定("Kalvane", "KalvaneInvoiceEntry", Operation::input));
}

}  // namespace
}  // namespace kalvane

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
    bool allowed;
    std::string rights = {};            // assignments to the operator's row
    const char* program_class = "'1'";  // "" for no row of the program
    Operation kind = Operation::start;
    const char* override_row = "";  // family and eight rights of 担当者別操作許可プログラム
    const char* family = "Kalvane";
    const char* site = "";  // of three, "" for no sites
    const char* signed_on = "00001";
    std::int16_t pins = 1;
};
const std::string all = "操作許可 = '1', 入力許可 = '1', 修正許可 = '1', 処理分類1操作許可 = '1'";
constexpr const char* may_start = "'Kalvane', '0', '1', NULL, '0', '0', '0', '0', '0'";
constexpr const char* of_other = "'Other', '0', '0', '0', '0', '0', '0', '0', '0'";
constexpr auto start_kind = Operation::start, input_kind = Operation::input;

const Case cases[] = {
    {true},
    {false, "操作許可 = '1'"},
    {true, "操作許可 = '1'", "'1'", input_kind},
    {false, "入力許可 = '1'", "'1'", input_kind},
    {false, "修正許可 = '1'", "'1'", Operation::modify},
    {false, "削除許可 = '1'", "'1'", Operation::erase},
    {false, "印刷許可 = '1'", "'1'", Operation::print},
    {false, "プレビュ許可 = '1'", "'1'", Operation::preview},
    {false, "テキスト出力許可 = '1'", "'1'", Operation::text_output},
    {false, "イメージ出力許可 = '1'", "'1'", Operation::image_output},
    {true, "操作許可 = '1', イメージ出力許可 = '1'", "'1'", static_cast<Operation>(8)},
    // the value of a right: 0 allows, all else denies
    {true, "操作許可 = ''"},
    {true, "操作許可 = 'x1'"},
    {true, "操作許可 = '0.0'"},
    {false, "操作許可 = '0.4'"},
    {false, "操作許可 = '-1'"},
    // the class of the program
    {false, "処理分類1操作許可 = '1'"},
    {true, "処理分類1操作許可 = '1'", "'9'"},
    {false, "処理分類9操作許可 = '1'", "'9'"},
    {false, "処理分類0操作許可 = '1'", "NULL"},
    {true, all, "'10'", Operation::erase},
    {true, all, "'-1'", Operation::erase},
    {true, "処理分類1操作許可 = '1'", "'1.5'"},
    {false, "", ""},
    {true, "処理分類3操作許可 = '1'", "'3'"},
    {false, all, "'3'"},
    {false, "", "'3'", start_kind, "", "Kalvane", "000"},
    {true, "", "'3'", start_kind, "", "Kalvane", "001"},
    {false, "処理分類3操作許可 = '1'", "'3'", start_kind, "", "Kalvane", "001"},
    // a row for the program overrides the operator's rights and the class
    {true, all, "'1'", start_kind, may_start},
    {false, "", "'1'", input_kind, may_start},
    {true, all, "'1'", Operation::modify, may_start},
    {false, "", "'1'", input_kind, "'Kalvane', '1', '0', '0', '0', '0', '0', '0', '0'"},
    {false, all, "'1'", start_kind, of_other},
    // outside the four families the family is no part of the key, and its table is not asked
    {true, "", "'1'", start_kind, of_other, "Kalvaneマイメニュ"},
    {false, "", "'1'", start_kind, "", "Kalvaneマイメニュ"},
    // who is asked
    {true, "在籍区分 = '1', 退社日付 = '20200101'"},
    {false, "コード = '00002'"},
    {false, "", "'1'", start_kind, "", "Kalvane", "", "  "},
    {false, "", "'1'", start_kind, "", "Kalvane", "", "00002"},
    {true, all, "''", start_kind, "", "Kalvane", "", "00001", 0},
    {true, all, "'1'", start_kind, "", "Kalvane", "", "00001", 2},
    {true, "コード = '00002'", "'1'", start_kind, "", "Kalvane", "", "00001", 0}};

TEST(操作権限, 判定) {
    const Installation at(setup::Content::empty);
    for (std::size_t i = 0; i < std::size(cases); ++i) {
        const Case& c = cases[i];
        SCOPED_TRACE(std::to_string(i) + " " + c.rights);
        at.restore();
        Start start(at.root());
        ASSERT_TRUE(start.running());
        if (!c.rights.empty()) at.main("UPDATE M担当者 SET " + c.rights);
        if (*c.override_row)
            at.main(
                std::string(
                    "INSERT INTO 担当者別操作許可プログラム (プログラムID, 担当者コード, 業務メニュ, "
                    "操作許可, 入力許可, "
                    "修正許可, 削除許可, 印刷許可, プレビュ許可, テキスト出力許可, イメージ出力許可) VALUES "
                    "('KalvaneInvoiceEntry', '00001', ") +
                c.override_row + ")");
        at.config(*c.program_class ? std::string("UPDATE Kalvane SET 処理分類 = ") + c.program_class
                                   : "DELETE FROM Kalvane");
        at.config(std::string("UPDATE 動作環境定義 SET 起動担当者コード = '") + c.signed_on + "'");
        実行環境.暗証番号有無 = c.pins;
        実行環境.運用事業所コード = *c.site ? c.site : "000";
        実行環境.事業所件数 = *c.site != 0;
        EXPECT_EQ(操作権限確認(c.family, "KalvaneInvoiceEntry", c.kind), c.allowed);
    }
}

TEST(担当者, 空の列は前の値) {
    const Installation at(setup::Content::empty);
    at.main(
        "INSERT INTO M担当者 (コード, 氏名, 事業所コード, 部門コード, セクションコード, 役職コード, "
        "社員区分, アクセス権限, 処理分類4操作許可, 印刷許可) VALUES ('00002', '二番', '001', '010', '020', "
        "'030', '2', '6x', '1', '1'), ('00003', NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL)");
    Start start(at.root());
    for (const char* code : {"00002", "00003"}) {
        SCOPED_TRACE(code);
        EXPECT_TRUE(担当者情報読込(code));
        const RunContext& r = 実行環境;
        EXPECT_EQ(r.起動担当者コード, code);
        EXPECT_EQ(r.起動担当者名 + r.担当者事業所コード + r.担当者部門コード + r.担当者セクションコード +
                      r.担当者役職コード,
                  "二番001010020030");
        EXPECT_EQ(r.担当者社員区分 * 10 + r.アクセス権限, 26);
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
        "'1', '1', '0', '0', '0', '0')");
    EXPECT_TRUE(権限判定("Kalvane", "KalvaneInvoicePrint", Operation::print));
    EXPECT_EQ(実行環境.入力許可, "1");
    EXPECT_FALSE(権限判定("Kalvane", "KalvaneInvoiceEntry", Operation::input));
    EXPECT_TRUE(担当者情報読込("00001"));
    EXPECT_TRUE(権限判定("Kalvane", "KalvaneInvoiceEntry", Operation::input));
}

}  // namespace
}  // namespace kalvane

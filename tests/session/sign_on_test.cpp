// Operation rights, and the operator's record.
#include "session/sign_on.h"

#include "base/text.h"
#include "data/operator_record.h"
#include "support/start_run.h"

namespace kalvane {
namespace {

using namespace test;

// The operator 00001 has every right, the program is of class 1, and operators sign on with PINs. The answer,
// the kind of operation (0 to start), assignments to the operator's row, and what is arranged besides: "class
// X", "no row" of the program, "own X" for its row in 担当者別操作許可プログラム, "family X", "site X" of
// one, "code X" signed on, "pins X", "lacks TABLE COLUMN", "config_lacks TABLE COLUMN".
const auto cases = table(R"(yes|0|| ; no|0|操作許可 = '1'| ; yes|1|操作許可 = '1'| ; no|1|入力許可 = '1'|
    no|2|修正許可 = '1'| ; no|3|削除許可 = '1'| ; no|4|印刷許可 = '1'| ; no|5|プレビュ許可 = '1'|
    no|6|テキスト出力許可 = '1'| ; no|7|イメージ出力許可 = '1'| ; yes|8|操作許可 = '1', イメージ出力許可 = '1'|
    yes|0|操作許可 = ''| ; yes|0|操作許可 = 'x1'| ; yes|0|操作許可 = '0.0'| ; no|0|操作許可 = '0.4'|
    no|0|操作許可 = '-1'| ; no|0|処理分類1操作許可 = '1'| ; yes|0|処理分類1操作許可 = '1'|class '9'
    no|0|処理分類9操作許可 = '1'|class '9' ; no|0|処理分類0操作許可 = '1'|class NULL
    yes|3|@all|class '10' ; yes|3|@all|class '-1' ; yes|0|処理分類1操作許可 = '1'|class '1.5' ; no|0||no row
    yes|0|処理分類3操作許可 = '1'|class '3' ; no|0|@all|class '3'
    no|0||class '3'; site 000 ; yes|0||class '3'; site 001 ; no|0|処理分類3操作許可 = '1'|class '3'; site 001
    yes|0|@all|own 'Kalvane', @id, '0', '1', NULL ; no|1||own 'Kalvane', @id, '0', '1', NULL
    yes|2|@all|own 'Kalvane', @id, '0', '1', NULL ; no|1||own 'Kalvane', @id, '1', '0', '0'
    no|0|@all|own 'Other', @id, '0', '0', '0'
    yes|0||family Kalvaneマイメニュ; own 'Other', @id, '0', '0', '0' ; no|0||family Kalvaneマイメニュ
    yes|0|在籍区分 = '1', 退社日付 = '20200101'| ; no|0|コード = '00002'| ; no|0||code   ; no|0||code 00002
    no|0||config_lacks Kalvane 処理分類 ; no|0||config_lacks 動作環境定義 起動担当者コード ; no|0||lacks M担当者 印刷許可
    no|0||lacks M担当者 役職コード ; no|0||lacks M担当者 処理分類9操作許可
    no|0||own 'Kalvane', @id, '0', '0', '0'; lacks 担当者別操作許可プログラム 印刷許可
    yes|0|@all|class ''; pins 0 ; yes|0|@all|pins 2 ; yes|0|コード = '00002'|pins 0)",
                         {{"@all", "操作許可 = '1', 入力許可 = '1', 修正許可 = '1', 処理分類1操作許可 = '1'"},
                          {"@id", "'KalvaneInvoiceEntry'"}});

TEST(操作権限, 判定) {
    const Installation at(setup::Content::empty);
    for (const auto& r : cases) {
        SCOPED_TRACE(r[0] + " " + r[1] + " " + r[2] + " " + r[3]);
        at.restore();
        Start start(at.root());
        ASSERT_TRUE(start.running());
        実行環境.暗証番号有無 = 1;
        実行環境.事業所件数 = contains(r[3], "site ") ? 1 : 0;
        at.config("UPDATE 動作環境定義 SET 起動担当者コード = '00001'");
        if (!r[2].empty()) at.main("UPDATE M担当者 SET " + r[2]);
        std::string family = "Kalvane";
        for (const std::string& step : lines_of(Replace(r[3], "; ", "\n"))) {
            const std::string verb = step.substr(0, step.find(' ')), rest = step.substr(verb.size() + 1);
            if (verb == "class") at.config("UPDATE Kalvane SET 処理分類 = " + rest);
            if (verb == "no") at.config("DELETE FROM Kalvane");
            if (verb == "own")
                at.main("INSERT INTO 担当者別操作許可プログラム VALUES ('00001', " + rest +
                        ", '0', '0', '0', '0', '0')");
            if (verb == "family") family = rest;
            if (verb == "site") 実行環境.運用事業所コード = rest;
            if (verb == "code") at.config("UPDATE 動作環境定義 SET 起動担当者コード = '" + rest + "'");
            if (verb == "lacks" || verb == "config_lacks") {
                const std::string drop = "ALTER TABLE " + Replace(rest, " ", " DROP COLUMN ");
                verb == "lacks" ? at.main(drop) : at.config(drop);
            }
            if (verb == "pins") 実行環境.暗証番号有無 = to_i16(rest);
        }
        EXPECT_EQ(操作権限確認(family, "KalvaneInvoiceEntry", static_cast<Operation>(std::stoi(r[1]))),
                  r[0] == "yes");
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

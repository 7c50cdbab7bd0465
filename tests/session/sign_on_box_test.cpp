// The box that asks for an operator and a PIN. The demonstration's 00002 signs on with SUZUKI2, 00003 with
// TANAKA3; the logon name of the seat is that of 00003. The site's own PIN is SITE99.
#include "session/sign_on_box.h"

#include <map>

#include "base/text.h"
#include "data/query.h"
#include "platform/os/secrets.h"
#include "session/sign_on.h"
#include "support/recorder.h"
#include "support/start_run.h"

namespace kalvane {
namespace {

using namespace test;

SignOnBox& box() {
    return msg暗証番号確認;
}

const Installation& company() {
    static const Installation made;
    made.restore();
    return made;
}

// A step is a control that is clicked, "a control and its text" typed into it, a key, or "frame"; "~" is a
// blank.
void act(const std::string& step) {
    const std::map<std::string, Key> keys{
        {"Escape", Key::Escape}, {"Delete", Key::Delete}, {"Tab", Key::Tab}, {"Shift+Tab", Key::ShiftTab}};
    const std::size_t blank = step.find(' ');
    Control* const c = find_control(box(), step.substr(0, blank));
    if (step == "frame") return static_cast<void>(close_form(box()));
    if (keys.contains(step)) return press_key(box(), keys.at(step));
    ASSERT_NE(c, nullptr) << step;
    if (blank == std::string::npos) return click(*c);
    press_focus(*c);
    press_key(box(), Key::Delete);
    type_text(box(), Replace(step.substr(blank + 1), "~", " "));
}

// A seat at a company with PINs and nobody signed on.
struct SignOn : Seat {
    bool stayed = false;  // the box still waits after the steps

    SignOn() : Seat(company()) {
        実行環境.暗証番号有無 = 1;
        設定DB実行("UPDATE 動作環境定義 SET 起動担当者コード = ''");
        実行環境.事業所特権暗証番号 = "SITE99";
    }
    bool ask(const std::string& steps) {
        modal = [this, &steps](Form&) {
            for (const std::string& step : lines_of(Replace(steps, "; ", "\n"))) act(step);
            stayed = box().visible;
        };
        return 操作権限確認(業務メニュ, プログラムID, Operation::start);
    }
};

// "staff ASSIGNMENTS" of the row of 00003, "pin TEXT" stored for it, "config SQL", "failing BEGINNING" of a
// statement; the rest is the run context's.
void arrange(const std::string& text) {
    const std::string verb = text.substr(0, text.find(' ')), rest = text.substr(verb.size() + 1);
    const auto staff = [](const std::string& assignments) {
        EXPECT_TRUE(主DB実行("UPDATE M担当者 SET " + assignments + " WHERE コード = '00003'", false));
    };
    if (verb == "staff") staff(rest);
    if (verb == "pin") staff("暗証番号 = '" + os::暗号化(rest) + "'");
    if (verb == "config") 設定DB実行(rest);
    if (verb == "site") 実行環境.事業所コード = rest;
    if (verb == "site_pin") 実行環境.事業所特権暗証番号 = Replace(rest, "~", "");
    if (verb == "key_file") os::set_key_file(実行環境.共通設定フォルダ + "\\" + rest);
    if (verb == "rights") 実行環境.処理分類操作許可[1] = 実行環境.操作許可 = rest;
    if (verb != "failing") return;
    ado::hook.before = [rest](const ado::Connection&, std::string_view sql) {
        if (sql.starts_with(rest)) throw ado::Error(7, "倒れました");
    };
}

const auto shorthands = table(R"(
    @own|暗証番号 TANAKA3; btn_OK
    @no_login|staff ログインID = ''
    @in|allowed 00003/00003
    @wrong|refused / 暗証番号が違います。 open
    @short|refused / 暗証番号を入力してください。 open
    @lost|データベースに問題が発生し修正できませんでした。)");
const std::string own = shorthands[0][1], no_login = shorthands[1][1];

// What is arranged; the steps; the answer, the code in the run context / in 動作環境定義, the boxes, and
// whether the box stays. First PINs and their stored forms, then the site's PIN, which opens for every
// operator and for none; who counts as an operator; the right behind the sign-on; giving up; a sign-on that
// cannot be kept.
const auto cases = table(R"(|@own|@in ; |暗証番号 tanaka3; btn_OK|@in
    |担当者コード 2; 暗証番号 SUZUKI2; btn_OK|allowed 00002/00002 ; |暗証番号 SUZUKI2; btn_OK|@wrong
    |暗証番号 TANAKA; btn_OK; btn_OK; 暗証番号 xyz; btn_OK; btn_OK; @own|@in 暗証番号が違います。 \
      暗証番号が違います。 暗証番号を入力してください。 暗証番号を入力してください。
    |btn_OK|@short ; pin ABC|暗証番号 ABC; btn_OK|@short ; pin 暗証番号|暗証番号 暗証番号; btn_OK|@in
    pin tanaka3|暗証番号 tanaka3; btn_OK|@wrong ; staff 暗証番号 = ''|暗証番号 ~~~~; btn_OK|@wrong
    staff 暗証番号 = NULL|@own|@wrong ; staff 暗証番号 = 'TANAKA3'|@own|@wrong ; key_file none|@own|@wrong
    |暗証番号 site99; btn_OK|@in ; |暗証番号 SITE99; itm_ttl_担当者コード; Delete; btn_OK|allowed /
    |担当者コード 99; 暗証番号 SITE99; btn_OK|allowed 00099/00099
    site_pin site99|暗証番号 site99; btn_OK|@wrong ; site_pin ~|暗証番号 ~~~~; btn_OK|@wrong
    |担当者コード 99; @own|allowed 00099/00099 ; @no_login|担当者コード 99; @own|@wrong
    staff 在籍区分 = '1', 退社日付 = '20240410'|担当者コード 3; @own|@wrong
    staff 在籍区分 = '1', 退社日付 = '20240411'|@own|@in
    staff 在籍区分 = '1', 退社日付 = ''|担当者コード 3; @own|@wrong
    staff 事業所コード = '001'|担当者コード 3; @own|@wrong ; site 001|@own|@in
    staff 事業所コード = '001'; site 001|@own|@in
    staff コード = 'A-03'|担当者コード a-03; @own|allowed A-03/A-03
    staff 操作許可 = '1'|@own|refused 00003/00003 ; config DELETE FROM Kalvane|@own|refused 00003/00003
    staff 処理分類1操作許可 = NULL, 操作許可 = NULL, アクセス権限 = NULL; rights 1|@own|@in
    |暗証番号 TANAKA3; btn_キャンセル|refused / ; |暗証番号 TANAKA3; frame|refused /
    |暗証番号 TANAKA; btn_OK; Escape|refused / 暗証番号が違います。
    config UPDATE 動作環境定義 SET 起動担当者コード = '00011'|暗証番号 TANAKA; btn_キャンセル|refused /00011
    failing UPDATE 動作環境定義|@own|refused 00003/ @lost open
    failing UPDATE 動作環境定義|@own; 暗証番号 TANAKA; btn_OK; frame|refused / @lost 暗証番号が違います。)",
                         shorthands);

TEST(暗証番号確認, 判定) {
    for (const auto& r : cases) {
        SCOPED_TRACE(r[0] + ": " + r[1]);
        SignOn at;
        for (const std::string& step : lines_of(Replace(r[0], "; ", "\n"))) arrange(step);
        std::string outcome = at.ask(r[1]) ? "allowed " : "refused ";
        ado::hook = {};
        ado::Recordset rs;
        EXPECT_TRUE(設定DB読込(rs, "SELECT 起動担当者コード FROM 動作環境定義"));
        outcome += 実行環境.起動担当者コード + "/" + rs.at(0).text();
        for (const std::string& text : Seat::boxes) outcome += " " + text;
        EXPECT_EQ(outcome + (at.stayed ? " open" : ""), r[2]);
    }
}

// What has the focus after each step, and what stands in the code; the name comes with a known code and
// stays.
TEST(暗証番号確認, 項目の移動) {
    SignOn at;
    arrange(no_login);
    Seat::modal = [&](Form&) {
        ASSERT_EQ(box().active, &box().担当者コード);
        EXPECT_TRUE(box().担当者コード.tab_stop);
        bool known = false;
        // the PIN waits for a code; the name passes the focus on
        for (const auto& m : table(R"(Tab|担当者コード| ; itm_ttl_担当者名|担当者コード|
            担当者名|担当者コード| ; 担当者コード 2|担当者コード|2 ; Tab|暗証番号|00002
            Shift+Tab|暗証番号|00002 ; itm_ttl_担当者コード|担当者コード|00002
            担当者コード 12x+345|担当者コード|12x34 ; itm_ttl_暗証番号|暗証番号|12x34 ; btn_OK|暗証番号|12x34
            Tab|btn_OK|12x34 ; Tab|btn_キャンセル|12x34 ; 担当者コード |担当者コード| ; btn_OK|担当者コード|)")) {
            SCOPED_TRACE(m[0]);
            act(m[0]);
            ASSERT_NE(box().active, nullptr);
            EXPECT_EQ(box().active->name, m[1]);
            EXPECT_EQ(box().担当者コード.text, m[2]);
            known = known || m[2] == "00002";
            EXPECT_EQ(box().担当者名.text, known ? "鈴木 陽子" : "");
        }
    };
    暗証番号確認表示("x");
    EXPECT_EQ(Seat::boxes.size(), 2u);
}

TEST(暗証番号確認, ログイン名の担当者) {
    SignOn at;
    Seat::modal = [](Form&) {
        EXPECT_EQ(box().caption, "Kalvane/暗証確認");
        EXPECT_EQ(box().active, &box().暗証番号);
        EXPECT_FALSE(box().担当者コード.tab_stop);
        EXPECT_EQ(box().担当者コード.text + box().担当者名.text + box().暗証番号.text, "00003田中 浩二");
        EXPECT_EQ(実行環境.起動担当者コード, "");
        act("暗証番号 TANAKA3");
        EXPECT_EQ(shown_text(box().暗証番号), "*******");
    };
    EXPECT_FALSE(操作権限確認(業務メニュ, プログラムID, Operation::start));
    // another showing begins anew: no PIN typed, none of the operator found last, the code in the tab order
    arrange(no_login);
    EXPECT_FALSE(at.ask("担当者コード 99; btn_OK; " + own + "; frame"));
    EXPECT_EQ(Seat::boxes,
              (std::vector<std::string>{"暗証番号を入力してください。", "暗証番号が違います。"}));
    EXPECT_TRUE(box().担当者コード.tab_stop);
}

// The operator found in the box counts before a PIN, and stays when the box is given up.
TEST(暗証番号確認, 取消の後の実行環境) {
    SignOn at;
    arrange(
        "staff ログインID = 'TANAKA', アクセス権限 = NULL, 処理分類1操作許可 = NULL, 印刷許可 = NULL, "
        "削除許可 = "
        "'1', 部門コード = '009'");
    RunContext& r = 実行環境;
    r.担当者ログインID = r.印刷許可 = r.処理分類操作許可[1] = "1";
    const std::string name = r.起動担当者名, department = r.担当者部門コード;
    EXPECT_FALSE(at.ask("担当者コード 3; btn_キャンセル"));
    EXPECT_EQ(r.担当者ログインID + "|" + r.処理分類操作許可[1] + "|" + r.印刷許可 + "|" + r.削除許可,
              "TANAKA|0||1");
    EXPECT_EQ(r.アクセス権限, 0);
    EXPECT_EQ(r.起動担当者コード + r.起動担当者名 + r.担当者部門コード, name + department);
}

TEST(暗証番号確認, 送る文) {
    SignOn at;
    const std::string counted =
        " AND (M担当者.在籍区分 = '0' OR (M担当者.在籍区分 = '1' AND M担当者.退社日付 <>'' AND "
        "M担当者.退社日付 > '20240410')) AND (M担当者.事業所コード = '000' OR M担当者.事業所コード = '000')";
    const std::string by_code = "SELECT M担当者.* FROM M担当者 WHERE M担当者.コード = '00003'";
    const Recorder recorder;
    EXPECT_TRUE(at.ask(own));
    expect_sequence(
        recorder.statements,
        {{"config", "SELECT * FROM 動作環境定義 WHERE 動作環境定義ID = '001'"},
         {"main", "SELECT M担当者.* FROM M担当者 WHERE M担当者.ログインID = 'tanaka'" + counted},
         {"main", by_code + counted},
         {"config", "UPDATE 動作環境定義 SET 起動担当者コード = '00003'  WHERE 動作環境定義ID = '001'"},
         {"history", "INSERT INTO プログラム稼動履歴"},
         {"main", by_code},
         {"main",
          "SELECT 担当者別操作許可プログラム.* FROM 担当者別操作許可プログラム WHERE "
          "担当者別操作許可プログラム.担当者コード = '00003' AND 担当者別操作許可プログラム.業務メニュ = "
          "'Kalvane' AND 担当者別操作許可プログラム.プログラムID = 'KalvaneInvoiceEntry'"},
         {"config", "SELECT * FROM Kalvane WHERE プログラムID = 'KalvaneInvoiceEntry'"}});
    EXPECT_EQ(recorder.statements[5].text, by_code);  // found wherever and whenever employed
}

}  // namespace
}  // namespace kalvane

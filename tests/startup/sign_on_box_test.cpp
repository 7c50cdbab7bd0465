// The box that asks for an operator and a PIN. The demonstration's 00002 signs on with SUZUKI2, 00003 with
// TANAKA3; the logon name of the seat is that of 00003. The site's own PIN is SITE99.
#include "startup/sign_on_box.h"

#include <gtest/gtest.h>

#include "data/query.h"
#include "platform/os/secrets.h"
#include "startup/sign_on.h"
#include "support/recorder.h"

namespace kalvane {
namespace {

using test::Seat;

SignOnBox& box() {
    return msg暗証番号確認;
}

const test::Installation& company() {
    static const test::Installation made;
    made.restore();
    return made;
}

// A step is a control that is clicked, "a control and its text" typed into it, a key, or "frame".
void act(const std::string& step) {
    const std::size_t blank = step.find(' ');
    Control* const c = find_control(box(), step.substr(0, blank));
    if (step == "frame") return static_cast<void>(close_form(box()));
    if (step == "Escape") return press_key(box(), Key::Escape);
    if (step == "Tab") return press_key(box(), Key::Tab);
    if (step == "Shift+Tab") return press_key(box(), Key::ShiftTab);
    ASSERT_NE(c, nullptr) << step;
    if (blank == std::string::npos) return click(*c);
    press_focus(*c);
    press_key(box(), Key::Delete);
    type_text(box(), step.substr(blank + 1));
}

// A seat at a company with PINs and nobody signed on.
struct SignOn : Seat {
    bool stayed = false;  // the box still waits after the steps

    SignOn() : Seat(company()) {
        実行環境.暗証番号有無 = 1;
        設定DB実行("UPDATE 動作環境定義 SET 起動担当者コード = ''");
        実行環境.事業所特権暗証番号 = "SITE99";
    }
    // Steps are parted by "; ".
    bool ask(const std::string& steps) {
        modal = [this, &steps](Form&) {
            for (std::size_t from = 0, to = 0; to != std::string::npos; from = to + 2) {
                to = steps.find("; ", from);
                act(steps.substr(from, to - from));
            }
            stayed = box().visible;
        };
        return 操作権限確認(業務メニュ, プログラムID, Operation::start);
    }
    static std::string saved() {
        ado::Recordset rs;
        EXPECT_TRUE(設定DB読込(rs, "SELECT 起動担当者コード FROM 動作環境定義"));
        std::string code = rs.at(0).text();
        rs.Close();
        return code;
    }
};

void change(const std::string& assignments) {
    EXPECT_TRUE(主DB実行("UPDATE M担当者 SET " + assignments + " WHERE コード = '00003'", false));
}
void store(const std::string& pin) {
    change("暗証番号 = '" + pin + "'");
}
void leaves(const char* date) {
    change(std::string("在籍区分 = '1', 退社日付 = '") + date + "'");
}
void no_login() {
    change("ログインID = ''");
}

void no_update() {
    ado::hook.before = [](const ado::Connection&, std::string_view sql) {
        if (sql.starts_with("UPDATE 動作環境定義")) throw ado::Error(7, "倒れました");
    };
}

constexpr const char *in = "allowed 00003/00003", *in_without_right = "refused 00003/00003";
constexpr const char* wrong = "refused / 暗証番号が違います。 open";
constexpr const char* too_short = "refused / 暗証番号を入力してください。 open";
constexpr const char *own = "暗証番号 TANAKA3; btn_OK", *coded = "担当者コード 3; 暗証番号 TANAKA3; btn_OK";

struct Case {
    const char *name, *steps;
    // the answer; the code in the run context / in 動作環境定義; the boxes; whether the box stays
    const char* outcome;
    void (*arrange)() = [] {};
};
void PrintTo(const Case& c, std::ostream* out) {
    *out << c.name;
}
class 暗証番号確認 : public testing::TestWithParam<Case> {};

TEST_P(暗証番号確認, 判定) {
    SignOn at;
    GetParam().arrange();
    std::string outcome = at.ask(GetParam().steps) ? "allowed " : "refused ";
    outcome += 実行環境.起動担当者コード + "/" + SignOn::saved();
    for (const std::string& text : Seat::boxes) outcome += " " + text;
    EXPECT_EQ(outcome + (at.stayed ? " open" : ""), GetParam().outcome);
}

const Case cases[] = {
    {"own_pin", own, in},
    {"lower_case", "暗証番号 tanaka3; btn_OK", in},
    {"another_operator", "担当者コード 2; 暗証番号 SUZUKI2; btn_OK", "allowed 00002/00002"},
    {"pin_of_another", "暗証番号 SUZUKI2; btn_OK", wrong},
    {"any_number_of_tries",
     "暗証番号 TANAKA; btn_OK; btn_OK; 暗証番号 xyz; btn_OK; btn_OK; 暗証番号 TANAKA3; btn_OK",
     "allowed 00003/00003 暗証番号が違います。 暗証番号が違います。 暗証番号を入力してください。 "
     "暗証番号を入力してください。"},
    {"no_pin", "btn_OK", too_short},
    {"three_that_match", "暗証番号 ABC; btn_OK", too_short, [] { store(os::暗号化("ABC")); }},
    {"four", "暗証番号 暗証番号; btn_OK", in, [] { store(os::暗号化("暗証番号")); }},
    {"stored_in_lower_case", "暗証番号 tanaka3; btn_OK", wrong, [] { store(os::暗号化("tanaka3")); }},
    {"stored_empty", "暗証番号     ; btn_OK", wrong, [] { store(""); }},
    {"stored_null", own, wrong, [] { change("暗証番号 = NULL"); }},
    {"stored_plain", own, wrong, [] { store("TANAKA3"); }},
    {"key_missing", own, wrong, [] { os::set_key_file(実行環境.共通設定フォルダ + "\\none"); }},
    // the site's PIN opens for every operator, and for none
    {"site_pin", "暗証番号 site99; btn_OK", in},
    {"site_pin_without_operator", "暗証番号 SITE99; 担当者コード ; btn_OK", "allowed /"},
    {"site_pin_unknown_operator", "担当者コード 99; 暗証番号 SITE99; btn_OK", "allowed 00099/00099"},
    {"site_pin_in_lower_case", "暗証番号 site99; btn_OK", wrong,
     [] { 実行環境.事業所特権暗証番号 = "site99"; }},
    {"site_pin_empty", "暗証番号     ; btn_OK", wrong, [] { 実行環境.事業所特権暗証番号 = ""; }},
    // within one showing an unknown code keeps the PIN of the operator found last
    {"unknown_behind_a_known", "担当者コード 99; 暗証番号 TANAKA3; btn_OK", "allowed 00099/00099"},
    {"unknown", "担当者コード 99; 暗証番号 TANAKA3; btn_OK", wrong, no_login},
    // who counts as an operator
    {"leaves_today", coded, wrong, [] { leaves("20240410"); }},
    {"leaves_tomorrow", own, in, [] { leaves("20240411"); }},
    {"leaves_without_a_date", coded, wrong, [] { leaves(""); }},
    {"of_another_site", coded, wrong, [] { change("事業所コード = '001'"); }},
    {"of_the_head_office", own, in, [] { 実行環境.事業所コード = "001"; }},
    {"of_this_site", own, in,
     [] {
         change("事業所コード = '001'");
         実行環境.事業所コード = "001";
     }},
    // signed on, but without the right
    {"without_the_right", own, in_without_right, [] { change("操作許可 = '1'"); }},
    {"program_in_no_menu", own, in_without_right, [] { 設定DB実行("DELETE FROM Kalvane"); }},
    {"no_right_filled", own, in,
     [] {
         change("処理分類1操作許可 = NULL, 操作許可 = NULL, アクセス権限 = NULL");
         実行環境.処理分類操作許可[1] = 実行環境.操作許可 = "1";
     }},
    // giving up
    {"cancel", "暗証番号 TANAKA3; btn_キャンセル", "refused /"},
    {"escape_after_a_try", "暗証番号 TANAKA; btn_OK; Escape", "refused / 暗証番号が違います。"},
    {"frame", "暗証番号 TANAKA3; frame", "refused /"},
    {"saved_without_the_right", "暗証番号 TANAKA; btn_キャンセル", "refused /00011",
     [] { 設定DB実行("UPDATE 動作環境定義 SET 起動担当者コード = '00011'"); }},
    // the sign-on cannot be kept
    {"update_fails", own, "refused 00003/ データベースに問題が発生し修正できませんでした。 open", no_update},
    {"wrong_after_it", "暗証番号 TANAKA3; btn_OK; 暗証番号 TANAKA; btn_OK; frame",
     "refused / データベースに問題が発生し修正できませんでした。 暗証番号が違います。", no_update},
};
INSTANTIATE_TEST_SUITE_P(Cases, 暗証番号確認, testing::ValuesIn(cases),
                         [](const auto& info) { return std::string(info.param.name); });

// What has the focus after each step, and what stands in the code and the name.
TEST(暗証番号確認, 項目の移動) {
    struct Move {
        const char *step, *focus, *code, *name;
    };
    constexpr const char* suzuki = "鈴木 陽子";
    constexpr Move moves[] = {
        {"Tab", "担当者コード", "", ""},  // the PIN waits for a code
        {"itm_ttl_担当者名", "担当者コード", "", ""},
        {"担当者名", "担当者コード", "", ""},
        {"担当者コード 2", "担当者コード", "2", ""},
        {"Tab", "暗証番号", "00002", suzuki},
        {"Shift+Tab", "暗証番号", "00002", suzuki},  // the name passes it on
        {"itm_ttl_担当者コード", "担当者コード", "00002", suzuki},
        {"担当者コード 12x3456", "担当者コード", "12345", suzuki},
        {"itm_ttl_暗証番号", "暗証番号", "12345", suzuki},
        {"btn_OK", "暗証番号", "12345", suzuki},
        {"Tab", "btn_OK", "12345", suzuki},
        {"Tab", "btn_キャンセル", "12345", suzuki},
        {"担当者コード ", "担当者コード", "", suzuki},
        {"btn_OK", "担当者コード", "", suzuki},
    };
    SignOn at;
    no_login();
    Seat::modal = [&](Form&) {
        ASSERT_EQ(box().active, &box().担当者コード);
        EXPECT_TRUE(box().担当者コード.tab_stop);
        for (const Move& m : moves) {
            SCOPED_TRACE(m.step);
            act(m.step);
            ASSERT_NE(box().active, nullptr);
            EXPECT_EQ(box().active->name, m.focus);
            EXPECT_EQ(box().担当者コード.text, m.code);
            EXPECT_EQ(box().担当者名.text, m.name);
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
    no_login();
    EXPECT_FALSE(at.ask("担当者コード 99; btn_OK; 暗証番号 TANAKA3; btn_OK; frame"));
    EXPECT_EQ(Seat::boxes,
              (std::vector<std::string>{"暗証番号を入力してください。", "暗証番号が違います。"}));
    EXPECT_TRUE(box().担当者コード.tab_stop);
}

// The operator found in the box counts before a PIN, and stays when the box is given up.
TEST(暗証番号確認, 取消の後の実行環境) {
    SignOn at;
    change(
        "ログインID = 'TANAKA', アクセス権限 = NULL, 処理分類1操作許可 = NULL, 印刷許可 = NULL, 削除許可 = "
        "'1', "
        "部門コード = '009'");
    実行環境.担当者ログインID = 実行環境.印刷許可 = 実行環境.処理分類操作許可[1] = "1";
    const std::string name = 実行環境.起動担当者名, department = 実行環境.担当者部門コード;
    EXPECT_FALSE(at.ask("担当者コード 3; btn_キャンセル"));
    EXPECT_EQ(実行環境.担当者ログインID, "TANAKA");
    EXPECT_EQ(実行環境.アクセス権限, 0);
    EXPECT_EQ(実行環境.処理分類操作許可[1], "0");
    EXPECT_EQ(実行環境.印刷許可, "");
    EXPECT_EQ(実行環境.削除許可, "1");
    EXPECT_EQ(実行環境.起動担当者コード, "");
    EXPECT_EQ(実行環境.起動担当者名, name);
    EXPECT_EQ(実行環境.担当者部門コード, department);
}

TEST(暗証番号確認, 送る文) {
    SignOn at;
    const std::string counted =
        " AND (M担当者.在籍区分 = '0' OR (M担当者.在籍区分 = '1' AND M担当者.退社日付 <>'' AND "
        "M担当者.退社日付 > "
        "'20240410')) AND (M担当者.事業所コード = '000' OR M担当者.事業所コード = '000')";
    const std::string by_code = "SELECT M担当者.* FROM M担当者 WHERE M担当者.コード = '00003'";
    const std::string update =
        "UPDATE 動作環境定義 SET 起動担当者コード = '00003'  WHERE 動作環境定義ID = '001'";
    const test::Recorder recorder;
    EXPECT_TRUE(at.ask(own));
    test::expect_sequence(
        recorder.statements,
        {{"config", "SELECT * FROM 動作環境定義 WHERE 動作環境定義ID = '001'"},
         {"main", "SELECT M担当者.* FROM M担当者 WHERE M担当者.ログインID = 'tanaka'" + counted},
         {"main", by_code + counted},
         {"config", update},
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

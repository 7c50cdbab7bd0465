// The controls and events of msg暗証番号確認.
#include "session/sign_on_box.h"

#include "base/text.h"
#include "data/fields.h"
#include "data/operator_record.h"
#include "data/query.h"
#include "platform/os/secrets.h"
#include "platform/screen/host.h"
#include "rules/field_text.h"

namespace kalvane {
namespace {

SignOnBox& box() {
    return msg暗証番号確認;
}

// Employed, or leaving after today; of this site or of the head office.
std::string conditions() {
    return " AND (M担当者.在籍区分 = '0' OR (M担当者.在籍区分 = '1' AND M担当者.退社日付 <>'' AND "
           "M担当者.退社日付 > '" +
           現在日付() + "')) AND (M担当者.事業所コード = '" + 実行環境.事業所コード +
           "' OR M担当者.事業所コード = '" + 全社事業所 + "')";
}

bool find_operator(ado::Recordset& rs, const char* column, const std::string& value) {
    return 主DB読込(rs, std::string("SELECT M担当者.* FROM M担当者 WHERE M担当者.") + column + " = '" +
                            value + "'" + conditions());
}

void show_operator(const ado::Recordset& rs) {
    set_text(box().担当者コード, text_of(rs, "コード"));
    set_text(box().担当者名, text_of(rs, "氏名"));
}

bool 担当者検索(const std::string& code) {
    RunContext& r = 実行環境;
    ado::Recordset rs;
    const bool found = find_operator(rs, "コード", code);
    if (found) {
        show_operator(rs);
        box().担当者暗証番号 = os::復号(text_of(rs, "暗証番号"));
        r.担当者ログインID = text_of(rs, "ログインID");
        r.アクセス権限 = to_i16(rs.Fields("アクセス権限").number());
        for (int k = 0; k < 10; ++k) {
            const ado::Value& right = rs.Fields(class_right_column(k));
            r.処理分類操作許可[static_cast<std::size_t>(k)] = right.is_null() ? "0" : right.text();
        }
        for (const OperationRight& right : rights) r.*right.member = text_of(rs, right.column);
    }
    rs.Close();
    return found;
}

void ログイン担当者検索() {
    ado::Recordset rs;
    const bool found = find_operator(rs, "ログインID", 実行環境.ユーザID);
    if (found) show_operator(rs);
    rs.Close();
    if (found && 担当者検索(box().担当者コード.text)) set_tab_stop(box().担当者コード, false);
}

bool 起動担当者更新(const std::string& code) {
    if (blank(code)) return true;
    if (!設定DB実行記録("UPDATE 動作環境定義 SET 起動担当者コード = '" + code +
                        "'  WHERE 動作環境定義ID = '001'")) {
        message_box("データベースに問題が発生し修正できませんでした。");
        return false;
    }
    担当者情報読込(code);
    return true;
}

void accept() {
    実行環境.起動担当者コード = box().担当者コード.text;
    if (!起動担当者更新(実行環境.起動担当者コード)) return;
    実行環境.暗証番号確認済 = true;
    unload_form(box());
}

void refuse(const char* words) {
    実行環境.起動担当者コード.clear();
    実行環境.暗証番号確認済 = false;
    message_box(words);
    set_focus(box().暗証番号);
}

void ok_clicked(Control&) {
    constexpr std::size_t too_short = 3;
    const std::string pin = UCase(box().暗証番号.text);
    if (Len(pin) <= too_short)
        refuse("暗証番号を入力してください。");
    else if (pin == 実行環境.事業所特権暗証番号 || pin == box().担当者暗証番号)
        accept();
    else
        refuse("暗証番号が違います。");
}

void cancel_clicked(Control&) {
    実行環境.暗証番号確認済 = false;
    unload_form(box());
}

void code_left(Control& c) {
    set_text(c, 桁揃え(c.text, "00000"));
    担当者検索(c.text);
}

void load(Form&) {
    for (Control* c : {&box().担当者コード, &box().担当者名, &box().暗証番号}) set_text(*c, "");
    box().担当者暗証番号.clear();
    実行環境.起動担当者コード.clear();
    ログイン担当者検索();
}

struct Part {
    Control SignOnBox::*control;
    ControlKind kind;
    const char* name;
    const char* caption;
    InputMode mode;
    int max_length;
    Handler click;
};
void to_code(Control&) {
    set_focus(box().担当者コード);
}
void to_pin(Control&) {
    set_focus(box().暗証番号);
}
constexpr Part parts[] = {
    {&SignOnBox::itm_ttl_担当者コード, ControlKind::label, "itm_ttl_担当者コード", "担当者コード",
     InputMode::none, 0, to_code},
    {&SignOnBox::担当者コード, ControlKind::xField, "担当者コード", "", InputMode::digits, 5, nullptr},
    {&SignOnBox::itm_ttl_担当者名, ControlKind::label, "itm_ttl_担当者名", "担当者名", InputMode::none, 0,
     to_pin},
    {&SignOnBox::担当者名, ControlKind::xField, "担当者名", "", InputMode::none, 0, nullptr},
    {&SignOnBox::itm_ttl_暗証番号, ControlKind::label, "itm_ttl_暗証番号", "暗証番号", InputMode::none, 0,
     to_pin},
    {&SignOnBox::暗証番号, ControlKind::xPass, "暗証番号", "", InputMode::plain, 20, nullptr},
    {&SignOnBox::btn_OK, ControlKind::SSCommand, "btn_OK", "OK", InputMode::none, 0, ok_clicked},
    {&SignOnBox::btn_キャンセル, ControlKind::SSCommand, "btn_キャンセル", "キャンセル", InputMode::none, 0,
     cancel_clicked},
};

void build() {
    SignOnBox& b = box();
    static_cast<Form&>(b) = Form{};
    b.name = "msg暗証番号確認";
    int tab_index = 0;
    for (const Part& p : parts) {
        Control& c = b.*p.control;
        c = Control{};
        add_control(b, c, p.kind, p.name);
        c.caption = p.caption;
        c.mode = p.mode;
        c.max_length = p.max_length;
        c.Click = p.click;
        c.tab_index = tab_index++;
    }
    b.担当者コード.LostFocus = code_left;
    b.担当者名.GotFocus = to_pin;
    b.暗証番号.GotFocus = [](Control&) {
        if (box().担当者コード.text.empty()) set_focus(box().担当者コード);
    };
    b.cancel = &b.btn_キャンセル;
    b.Load = load;
}

}  // namespace

void 暗証番号確認表示(const std::string& caption) {
    build();
    set_form_caption(box(), caption);
    show_modal(box());
}

}  // namespace kalvane

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
           "M担当者.退社日付 > " +
           literal(現在日付()) + ")) AND (M担当者.事業所コード = " + literal(実行環境.事業所コード) +
           " OR M担当者.事業所コード = " + literal(全社事業所) + ")";
}

bool find_operator(ado::Recordset& rs, const char* column, const std::string& value) {
    return 主DB読込(rs, std::string("SELECT M担当者.* FROM M担当者 WHERE M担当者.") + column + " = " +
                            literal(value) + conditions());
}

void show_operator(const ado::Recordset& rs) {
    set_text(box().担当者コード, text_of(rs, "コード"));
    set_text(box().担当者名, text_of(rs, "氏名"));
}

bool 担当者検索(const std::string& code) {
    RunContext& r = 実行環境;
    ado::Recordset rs;
    const bool found = find_operator(rs, "コード", code) &&
                       has_columns(rs, {"コード", "氏名", "暗証番号", "ログインID", "アクセス権限"}) &&
                       has_operator_rights(rs);
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
    const bool found =
        find_operator(rs, "ログインID", 実行環境.ユーザID) && has_columns(rs, {"コード", "氏名"});
    if (found) show_operator(rs);
    rs.Close();
    if (found && 担当者検索(box().担当者コード.text)) set_tab_stop(box().担当者コード, false);
}

bool 起動担当者更新(const std::string& code) {
    if (blank(code)) return true;
    if (!設定DB実行記録("UPDATE 動作環境定義 SET 起動担当者コード = " + literal(code) +
                        "  WHERE 動作環境定義ID = '001'")) {
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

void to_code(Control&) {
    set_focus(box().担当者コード);
}
void to_pin(Control&) {
    set_focus(box().暗証番号);
}
void pin_entered(Control& c) {
    if (box().担当者コード.text.empty()) to_code(c);
}

constexpr auto parts = std::to_array<Part>({
    {.control = &msg暗証番号確認.itm_ttl_担当者コード,
     .name = "itm_ttl_担当者コード",
     .kind = ControlKind::label,
     .caption = "担当者コード",
     .Click = to_code},
    {.control = &msg暗証番号確認.担当者コード,
     .name = "担当者コード",
     .kind = ControlKind::xField,
     .mode = InputMode::code,
     .max_length = 5,
     .LostFocus = code_left},
    {.control = &msg暗証番号確認.itm_ttl_担当者名,
     .name = "itm_ttl_担当者名",
     .kind = ControlKind::label,
     .caption = "担当者名",
     .Click = to_pin},
    {.control = &msg暗証番号確認.担当者名,
     .name = "担当者名",
     .kind = ControlKind::xField,
     .GotFocus = to_pin},
    {.control = &msg暗証番号確認.itm_ttl_暗証番号,
     .name = "itm_ttl_暗証番号",
     .kind = ControlKind::label,
     .caption = "暗証番号",
     .Click = to_pin},
    {.control = &msg暗証番号確認.暗証番号,
     .name = "暗証番号",
     .kind = ControlKind::xPass,
     .mode = InputMode::plain,
     .max_length = 20,
     .GotFocus = pin_entered},
    {.control = &msg暗証番号確認.btn_OK,
     .name = "btn_OK",
     .kind = ControlKind::SSCommand,
     .caption = "OK",
     .Click = ok_clicked},
    {.control = &msg暗証番号確認.btn_キャンセル,
     .name = "btn_キャンセル",
     .kind = ControlKind::SSCommand,
     .caption = "キャンセル",
     .Click = cancel_clicked,
     .cancel = true},
});

}  // namespace

void 暗証番号確認表示(const std::string& caption) {
    build_form(box(), "msg暗証番号確認", parts, load);
    set_form_caption(box(), caption);
    show_modal(box());
}

}  // namespace kalvane

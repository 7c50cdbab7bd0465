// Rights, question, save and cleared screen.
#include "events/save_dialogue.h"

#include "base/format.h"
#include "data/wait_box.h"
#include "document/calculation.h"
#include "document/clearing.h"
#include "document/document_date.h"
#include "document/reference.h"
#include "document/save_statements.h"
#include "events/focus.h"
#include "events/launching.h"
#include "platform/screen/host.h"
#include "screen/screen_display.h"

namespace kalvane {
namespace {

constexpr const char* print_program = "KalvaneInvoicePrint";
constexpr Colour change_colour = {Colour::Kind::rgb, 0xC00000};  // 192 as red

template <std::int16_t result>
void answer(Control&) {
    実行環境.印刷確認結果 = result;
    unload_form(msg印刷確認);
}

constexpr auto parts = std::to_array<Part>({
    {.control = &msg印刷確認.lab_inpmsg, .name = "lab_inpmsg", .kind = ControlKind::label},
    {.control = &msg印刷確認.lab_msg, .name = "lab_msg", .kind = ControlKind::label},
    {.control = &msg印刷確認.btn_いいえ,
     .name = "btn_いいえ",
     .kind = ControlKind::SSCommand,
     .caption = "いいえ",
     .Click = answer<2>,
     .cancel = true,
     .first = true},
    {.control = &msg印刷確認.btn_登録印刷,
     .name = "btn_登録印刷",
     .kind = ControlKind::SSCommand,
     .caption = "登録印刷",
     .Click = answer<0>},
    {.control = &msg印刷確認.btn_登録,
     .name = "btn_登録",
     .kind = ControlKind::SSCommand,
     .caption = "登録",
     .Click = answer<1>},
});

std::string confirmation_message() {
    std::string message;
    if (!実行環境.新規入力中 && 他請求参照確認() == 1) message = "他の請求に参照済です。";
    const std::int16_t difference = to_i16(消費税差額計算());
    if (difference == 0) return message;
    if (!message.empty()) message += "\r";
    message += "合計計算消費税は" + Format(請求ヘッダ.請求消費税合計, "###,###,##0") + "円です。\r";
    message += "消費税に" + Format(difference, "###,##0") + "円の差額が有ります。";
    return message;
}

}  // namespace

void 登録要求() {
    const Gap gap = 必須項目確認();
    if (gap.area == Area::none) {
        登録処理();
        return;
    }
    未入力項目移動(gap);
}

bool 書込可否確認(Operation kind) {
    if (操作権限確認(業務メニュ, プログラムID, kind) && 登録可能日付確認()) return true;
    message_box("操作権限がありません。");
    離脱項目移動();
    return false;
}

void 登録処理() {
    if (!書込可否確認(実行環境.新規入力中 ? Operation::input : Operation::modify)) return;
    std::int16_t result = 2;
    登録確認表示(プログラムID, confirmation_message(), result);
    if (process_ended()) return;
    if (result == 2) {
        離脱項目移動();
        return;
    }
    {
        const お待ち wait;
        営業請求保存();
        if (result == 0 && 操作権限確認(業務メニュ, print_program, Operation::print)) 請求書印刷();
        登録後画面初期化();
    }
    登録後終了();
}

void 登録確認表示(const std::string& title, const std::string& message, std::int16_t& result) {
    SaveQuestion& q = msg印刷確認;
    build_form(q, "msg印刷確認", parts, [](Form&) { 実行環境.印刷確認結果 = 2; });
    set_form_caption(q, title);
    load_form(q);
    set_caption(q.lab_inpmsg, message);
    set_caption(q.lab_msg,
                実行環境.新規入力中 ? "登録します。よろしいですか？" : "修正します。よろしいですか？");
    set_fore(q.lab_msg, 実行環境.新規入力中 ? window_text_colour : change_colour);
    show_modal(q);
    result = 実行環境.印刷確認結果;
}

void 登録後画面初期化() {
    文書初期化();
    画面表示();
    画面部品初期化();
    ボタン状態更新();
}

void 登録後終了() {
    if (実行環境.引数起動)
        click(frmKalvaneInvoiceEntry.btn_終了);
    else if (実行環境.先頭コントロール)
        フォーカス設定(*実行環境.先頭コントロール);
}

}  // namespace kalvane

// Sets the handlers of the entry screen.
#include "events/events.h"

#include "events/clear_button.h"
#include "events/deleting.h"
#include "events/field_changes.h"
#include "events/focus.h"
#include "events/launching.h"
#include "events/navigation.h"
#include "events/save_dialogue.h"
#include "events/sentinels.h"
#include "lists/list_window.h"
#include "rules/field_text.h"
#include "screen/screen_display.h"
#include "screen/scrolling.h"

namespace kalvane {
namespace {

EntryScreen& screen() {
    return frmKalvaneInvoiceEntry;
}
bool guarded() {
    return 実行環境.連携待ち中 || 実行環境.処理中;
}

// --- fields
void got_focus(Control& c) {
    if (guarded()) return;
    実行環境.取得コントロール = &c;
    入力順序確認(c);
}

void lost_focus(Control& c) {
    if (guarded()) return;
    実行環境.離脱コントロール = &c;
    if (const ScreenField* f = field_of(c)) 項目離脱処理(c, *f);
}

void text_changed(Control& c) {
    if (!guarded()) 文字数確認(c.text, c.max_length);
}

void code_changed(Control& c) {
    if (guarded()) return;
    if (const ScreenField* f = field_of(c)) 区分変更処理(c, *f);
}

// --- lists: a field that may not be entered opens nothing
void open_list(Control& field) {
    if (guarded() || 入力順序確認(field)) return;
    一覧表示(field);
}
void list_key(Control& c, int code) {
    if (code == key_ctrl) open_list(c);
}

// --- caption panels and buttons that stand for a field
struct Request {
    Control EntryScreen::*panel;
    Control EntryScreen::*field;
};
constexpr Request panel_requests[] = {
    {&EntryScreen::itm_ttl_営業請求日付, &EntryScreen::営業請求日付年},
    {&EntryScreen::itm_ttl_得意先消費税算出区分, &EntryScreen::得意先消費税算出区分},
    {&EntryScreen::itm_ttl_得意先消費税区分, &EntryScreen::得意先消費税区分},
    {&EntryScreen::itm_ttl_消費税表示区分, &EntryScreen::消費税表示区分},
    {&EntryScreen::itm_ttl_合計表示区分, &EntryScreen::合計表示区分},
    {&EntryScreen::itm_ttl_タイトル, &EntryScreen::タイトル},
    {&EntryScreen::itm_ttl_支払条件, &EntryScreen::支払条件},
    {&EntryScreen::itm_ttl_売上完了区分, &EntryScreen::売上完了区分},
    {&EntryScreen::itm_ttl_請求伝票備考, &EntryScreen::請求伝票備考A},
};
constexpr Request list_buttons[] = {
    {&EntryScreen::btn_営業請求No, &EntryScreen::営業請求No},
    {&EntryScreen::btn_営業見積No, &EntryScreen::営業見積No},
    {&EntryScreen::btn_顧客注文No, &EntryScreen::顧客注文No},
    {&EntryScreen::btn_営業納品No, &EntryScreen::営業納品No},
    {&EntryScreen::btn_参照営業請求No, &EntryScreen::参照営業請求No},
    {&EntryScreen::btn_得意先コード, &EntryScreen::得意先コード},
    {&EntryScreen::btn_得意先御担当者コード, &EntryScreen::得意先御担当者コード},
    {&EntryScreen::btn_担当者コード, &EntryScreen::担当者コード},
    {&EntryScreen::btn_部門コード, &EntryScreen::部門コード},
    {&EntryScreen::btn_セクションコード, &EntryScreen::セクションコード},
    {&EntryScreen::btn_納品先コード, &EntryScreen::納品先コード},
};
struct RowRequest {
    RowControls EntryScreen::*button;
    RowControls EntryScreen::*field;
};
constexpr RowRequest row_list_buttons[] = {
    {&EntryScreen::btn_商品コード, &EntryScreen::商品コード},
    {&EntryScreen::btn_仕入先コード, &EntryScreen::仕入先コード},
};

void request_by_panel(Control& panel) {
    if (guarded()) return;
    for (const Request& r : panel_requests)
        if (Control& field = screen().*r.field; &(screen().*r.panel) == &panel && !入力順序確認(field))
            ヘッド項目移動(field);  // from a button or a check box, which are no fields of the flow
}

void list_by_button(Control& button) {
    for (const Request& r : list_buttons)
        if (&(screen().*r.panel) == &button) open_list(screen().*r.field);
    if (button.row < 0) return;
    const auto row = static_cast<std::size_t>(button.row);
    for (const RowRequest& r : row_list_buttons)
        if (&(screen().*r.button)[row] == &button) open_list((screen().*r.field)[row]);
}

void request_product_code(Control& panel) {
    if (guarded()) return;
    const int row = panel.row >= 0 ? panel.row : 実行環境.現在画面行;
    Control& code = screen().商品コード[static_cast<std::size_t>(row)];
    if (!入力順序確認(code)) 明細項目移動(code);
}

// --- the frame
struct ButtonAction {
    Control EntryScreen::*button;
    void (*action)();
};
void flip_suppliers() {
    実行環境.仕入先表示 = !実行環境.仕入先表示;
    ヘッド画面表示();
    明細画面表示();
    離脱項目移動();
}
void close_screen() {
    unload_form(screen());
}
constexpr ButtonAction button_actions[] = {
    {&EntryScreen::btn_登録, 登録要求},         {&EntryScreen::btn_削除, 削除処理},
    {&EntryScreen::btn_前No, 前No表示},         {&EntryScreen::btn_次No, 次No表示},
    {&EntryScreen::btn_画面クリア, 画面クリア}, {&EntryScreen::btn_仕入先表示, flip_suppliers},
    {&EntryScreen::btn_終了, close_screen},
};
void frame_button(Control& c) {
    if (guarded()) return;
    for (const ButtonAction& b : button_actions)
        if (&(screen().*b.button) == &c) b.action();
}

void scrolled(Control&) {
    if (!guarded()) 行スクロール変更();
}

void page_turned(Control& c) {
    if (guarded()) return;
    switch (c.number) {
        case 0:
        case 1:
            フォーカス設定(first_row_field(実行環境.現在画面行, c.number));
            break;
        case 2:
            フォーカス設定(screen().営業請求メモ);
            break;
        default:
            フォーカス設定(c);
            break;  // the strip itself; what had the focus is hidden now
    }
}

// --- sentinels
template <void (*arrive)(Control&)>
void sentinel(Control& c) {
    if (!guarded()) arrive(c);
}

void wire_field(Control& c, const ScreenField& f) {
    if (f.area == Area::none && f.store == Store::none) return;
    c.GotFocus = got_focus;
    c.LostFocus = lost_focus;
    if (f.limit_notice) c.Change = text_changed;
    if (f.store == Store::head_digit || f.store == Store::line_kind || f.store == Store::line_check ||
        f.store == Store::head_check)
        c.Change = code_changed;
    const bool may_list = f.store == Store::head_code || f.store == Store::line_code ||
                          f.store == Store::head_text || f.store == Store::line_text;
    if (may_list && f.kind == ControlKind::xField) {
        c.DropDown = open_list;
        c.DblClick = open_list;
        c.KeyDown = list_key;
    }
}

// --- copies of the records around an event
struct Copies {
    RunContext run;
    HeaderRecord header;
    LineArray lines;
};
Copies& copies() {
    static Copies kept;
    return kept;
}

}  // namespace

void 画面イベント設定() {
    EntryScreen& s = screen();
    for (const ScreenField& f : screen_fields()) {
        if (f.one) wire_field(s.*f.one, f);
        if (f.rows)
            for (Control& c : s.*f.rows) wire_field(c, f);
    }
    s.List付属書類.GotFocus = got_focus;
    s.List付属書類.LostFocus = lost_focus;
    for (const Request& r : panel_requests) (s.*r.panel).Click = request_by_panel;
    for (const Request& r : list_buttons) (s.*r.panel).Click = list_by_button;
    for (const RowRequest& r : row_list_buttons)
        for (Control& c : s.*r.button) c.Click = list_by_button;
    s.itm_ttl_行No.Click = request_product_code;
    for (RowControls* panels : {&s.Lab_行No, &s.bak_dtla})
        for (Control& c : *panels) c.Click = request_product_code;
    for (const ButtonAction& b : button_actions) (s.*b.button).Click = frame_button;
    s.scl_行.Change = scrolled;
    s.tab_詳細.Change = page_turned;
    s.ヘッド終了.GotFocus = sentinel<ヘッド終了到達>;
    s.テイル終了.GotFocus = sentinel<テイル終了到達>;
    for (RowControls* ends : {&s.頁1終了, &s.頁2終了})
        for (Control& c : *ends) c.GotFocus = sentinel<頁終了到達>;
}

void install_event_copies() {
    event_copies.keep = [] {
        copies().run = 実行環境;
        copies().header = 請求ヘッダ;
        copies().lines = 請求明細行;
    };
    event_copies.restore = [] {
        実行環境 = copies().run;
        請求ヘッダ = copies().header;
        請求明細行 = copies().lines;
        画面表示();
        スクロール設定();
        ボタン状態更新();
    };
}

}  // namespace kalvane

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
#include "records/record_copy.h"
#include "rules/field_text.h"
#include "screen/screen_display.h"
#include "screen/scrolling.h"

namespace kalvane {
namespace {

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
    const ScreenField* f = field_of(field);
    if (!f || f->list.window == ListWindow::none) return;
    実行環境.一覧戻り先 = &field;
    実行環境.一覧次項目 = f->list.next.at(field.row);
    一覧表示(f->list.window);
}
void list_key(Control& c, int code) {
    if (code == key_ctrl) open_list(c);
}
void list_by_button(Control& button) {
    for (const ScreenField& f : screen_fields())
        if (f.list.button.at(button.row) == &button) return open_list(*f.control.at(button.row));
}

// --- captions that stand for a field
void request_by_panel(Control& panel) {
    if (guarded()) return;
    for (const ScreenField& f : screen_fields()) {
        if (!f.panel || &(screen().*f.panel) != &panel) continue;
        Control& field = screen().*f.control.one;
        // from a button or a check box, which are no fields of the flow
        if (!入力順序確認(field)) ヘッド項目移動(field);
    }
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
constexpr auto button_actions = std::to_array<ButtonAction>({
    {&EntryScreen::btn_登録, 登録要求},
    {&EntryScreen::btn_削除, 削除処理},
    {&EntryScreen::btn_前No, 前No表示},
    {&EntryScreen::btn_次No, 次No表示},
    {&EntryScreen::btn_画面クリア, 画面クリア},
    {&EntryScreen::btn_仕入先表示, flip_suppliers},
    {&EntryScreen::btn_終了, close_screen},
});
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
    if (f.flow.area == Area::none && f.store == Store::none) return;
    c.GotFocus = got_focus;
    c.LostFocus = lost_focus;
    if (f.input.limit_notice) c.Change = text_changed;
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

// --- the records as they were before the event
RecordCopy& kept_records() {
    static RecordCopy kept;
    return kept;
}

}  // namespace

void 画面イベント設定() {
    EntryScreen& s = screen();
    for (const ScreenField& f : screen_fields()) {
        for (Control& c : f.control.all()) wire_field(c, f);
        for (Control& button : f.list.button.all()) button.Click = list_by_button;
        if (f.panel) (s.*f.panel).Click = request_by_panel;
    }
    for (Control* c : {&s.List付属書類, &s.tab_詳細}) {
        c->GotFocus = got_focus;
        c->LostFocus = lost_focus;
    }
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
    event_copies.keep = [] { kept_records().keep(); };
    event_copies.restore = [] {
        kept_records().restore();
        画面再表示();
    };
}

}  // namespace kalvane

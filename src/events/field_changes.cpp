// What a leave or a change of each kind of field stores.
#include "events/field_changes.h"

#include "document/calculation.h"
#include "document/document_date.h"
#include "document/loading.h"
#include "document/lookups.h"
#include "events/focus.h"
#include "rules/field_text.h"
#include "screen/screen_display.h"
#include "screen/scrolling.h"

namespace kalvane {
namespace {

LineRecord& current_line() {
    return 請求明細行[実行環境.現在行];
}

void show_current_row() {
    明細行表示(実行環境.現在行, 実行環境.現在画面行);
    テイル画面表示();
}

void finish() {
    案内表示();
    ボタン状態更新();
}

// --- codes and numbers: looked up
// The typed text in the form of the field's mask, shown so.
std::string masked(Control& c, const ScreenField& f) {
    std::string text = 桁揃え(c.text, f.input.mask);
    const ProcessingGuard guard;
    set_text(c, text);
    return text;
}

void leave_head_code(Control& c, const ScreenField& f) {
    const std::string text = masked(c, f);
    bool changed = false;
    const auto look_up = [&] { changed = f.look_up(text); };
    if (f.loads)
        読込表示(look_up);
    else
        look_up();
    if (!changed) return;
    画面再表示();
    案内表示();
}

void leave_line_code(Control& c, const ScreenField& f) {
    const std::string code = masked(c, f);
    if (code == current_line().*f.shows.line_text) return;
    現在行追加();
    if (!f.look_up(code)) return;
    show_current_row();
    finish();
}

// --- texts
// Takes what fits of the typed text, also of one that was longer already. False when the screen shows it.
bool take_cut(const Control& c, const ScreenField& f, std::string& member) {
    const std::string text = f.input.max_length > 0 ? 文字数切詰(c.text, f.input.max_length) : c.text;
    if (text == member && text == c.text) return false;
    if (text != member) 実行環境.入力変更あり = true;
    member = text;
    実行環境.案内メッセージ.clear();
    return true;
}

void leave_head_text(const Control& c, const ScreenField& f) {
    if (!take_cut(c, f, 請求ヘッダ.*f.shows.head_text)) return;
    if (f.flow.area == Area::tail)
        テイル画面表示();
    else
        ヘッド画面表示();
    finish();
}

void leave_line_text(const Control& c, const ScreenField& f) {
    if (!take_cut(c, f, current_line().*f.shows.line_text)) return;
    現在行追加();
    明細行表示(実行環境.現在行, 実行環境.現在画面行);
    finish();
}

void leave_date_part(Control& c, const ScreenField& f) {
    std::string& member = 請求ヘッダ.*f.shows.head_text;
    const std::string part = masked(c, f);
    if (part == member) return;
    member = part;
    実行環境.入力変更あり = true;
    営業請求日付確定();
    全行税再計算();
    実行環境.案内メッセージ.clear();
    画面表示();
    finish();
}

// --- figures of a line
// With 消費税表示区分 0 the tax fields show 0 while the line keeps its tax; leaving one untouched stores
// nothing.
bool shows_no_tax(const ScreenField& f) {
    return 請求ヘッダ.消費税表示区分 == 0 &&
           (f.shows.line_money == &LineRecord::請求消費税 || f.shows.line_money == &LineRecord::仕入消費税);
}

void leave_line_figure(Control& c, const ScreenField& f) {
    通貨& member = current_line().*f.shows.line_money;
    if (c.value == member || (shows_no_tax(f) && c.value.is_zero())) return;
    現在行追加();
    member = c.value;
    実行環境.入力変更あり = true;
    for (auto step : f.steps)
        if (step) step(実行環境.現在行);
    合計計算();
    実行環境.案内メッセージ.clear();
    show_current_row();
    finish();
}

// --- codes with a combo
int code_of(const Control& c, const ScreenField& f) {
    return c.kind == ControlKind::combo ? c.list_index + f.base : to_i16(Fix(c.value));
}

bool in_list(int code, int base, const Control& combo) {
    return code >= base && code < base + static_cast<int>(combo.entries.size());
}

void change_head_digit(Control& c, const ScreenField& f) {
    std::int16_t& member = 請求ヘッダ.*f.shows.head_digit;
    const int code = code_of(c, f);
    const Control& combo = c.kind == ControlKind::combo ? c : screen().*f.combo;
    if (code == member || !in_list(code, f.base, combo)) return;
    member = static_cast<std::int16_t>(code);
    実行環境.入力変更あり = true;
    if (f.shows.head_digit == &HeaderRecord::得意先消費税算出区分 ||
        f.shows.head_digit == &HeaderRecord::得意先消費税区分)
        全行税再計算();
    実行環境.案内メッセージ.clear();
    画面表示();
    finish();
}

void change_line_kind(Control& c, const ScreenField& f) {
    std::int16_t& member = current_line().行区分;
    const int code = code_of(c, f);
    if (code == member || !in_list(code, 0, screen().行区分名称[static_cast<std::size_t>(c.row)])) return;
    現在行追加();
    member = static_cast<std::int16_t>(code);
    行区分設定(実行環境.現在行);
    合計計算();
    実行環境.案内メッセージ.clear();
    show_current_row();
    finish();
}

void change_line_check(const Control& c, const ScreenField& f) {
    std::int16_t& member = current_line().*f.shows.line_digit;
    if (c.number == member) return;
    現在行追加();
    member = static_cast<std::int16_t>(c.number);
    if (f.shows.line_digit == &LineRecord::計区分) {
        実行環境.入力変更あり = true;
        合計計算();
        show_current_row();
    }
    ボタン状態更新();
}

// The events of a row count only while it is the current one.
bool of_current_row(const Control& c) {
    return c.row == 実行環境.現在画面行;
}

}  // namespace

void 項目離脱処理(Control& c, const ScreenField& f) {
    if (f.control.rows && !of_current_row(c)) return;
    switch (f.store) {
        case Store::date_part:
            leave_date_part(c, f);
            break;
        case Store::head_code:
            leave_head_code(c, f);
            break;
        case Store::head_text:
            leave_head_text(c, f);
            break;
        case Store::line_code:
            leave_line_code(c, f);
            break;
        case Store::line_text:
            leave_line_text(c, f);
            break;
        case Store::line_figure:
            leave_line_figure(c, f);
            break;
        // an emptied code goes back to the one held
        case Store::head_digit:
            ヘッド画面表示();
            break;
        case Store::line_kind:
            明細行表示(実行環境.現在行, 実行環境.現在画面行);
            break;
        default:
            break;
    }
}

void 区分変更処理(Control& c, const ScreenField& f) {
    if (f.control.rows && !of_current_row(c)) return;
    switch (f.store) {
        case Store::head_digit:
            change_head_digit(c, f);
            break;
        case Store::line_kind:
            change_line_kind(c, f);
            break;
        case Store::line_check:
            change_line_check(c, f);
            break;
        case Store::head_check:
            請求ヘッダ.KalvaneEnvelopePrint = static_cast<std::int16_t>(c.number);
            break;
        default:
            break;
    }
}

}  // namespace kalvane

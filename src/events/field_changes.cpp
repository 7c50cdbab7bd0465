// What a leave or a change of each kind of field stores.
#include "events/field_changes.h"

#include "document/calculation.h"
#include "document/document_date.h"
#include "document/loading.h"
#include "document/lookups.h"
#include "rules/field_text.h"
#include "screen/screen_display.h"
#include "screen/scrolling.h"

namespace kalvane {
namespace {

EntryScreen& screen() {
    return frmKalvaneInvoiceEntry;
}
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

// --- codes and numbers: what decides on the text, and whether the whole screen follows
struct HeadCode {
    Control EntryScreen::*field;
    bool (*decide)(const std::string&);
    bool loads = false;  // a document, by its number
};
constexpr HeadCode head_codes[] = {
    {&EntryScreen::営業請求No, 営業請求No変更, true},
    {&EntryScreen::営業見積No, 営業見積No変更, true},
    {&EntryScreen::顧客注文No, 顧客注文No変更, true},
    {&EntryScreen::営業納品No, 営業納品No変更, true},
    {&EntryScreen::参照営業請求No, 参照営業請求No変更, true},
    {&EntryScreen::得意先コード, 得意先コード変更},
    {&EntryScreen::得意先御担当者コード, 得意先御担当者コード変更},
    {&EntryScreen::担当者コード, 担当者コード変更},
    {&EntryScreen::部門コード, 部門コード変更},
    {&EntryScreen::セクションコード, セクションコード変更},
    {&EntryScreen::納品先コード, 納品先コード変更},
};

// The typed text in the form of the field's mask, shown so.
std::string masked(Control& c, const ScreenField& f) {
    const std::string text = 桁揃え(c.text, f.mask);
    const ProcessingGuard guard;
    set_text(c, text);
    return text;
}

void leave_head_code(Control& c, const ScreenField& f) {
    const std::string text = masked(c, f);
    for (const HeadCode& h : head_codes) {
        if (&(screen().*h.field) != &c) continue;
        bool changed = false;
        const auto decide = [&] { changed = h.decide(text); };
        if (h.loads)
            読込表示(decide);
        else
            decide();
        if (!changed) return;
        画面再表示();
        案内表示();
        return;
    }
}

void leave_line_code(Control& c, const ScreenField& f) {
    const std::string text = masked(c, f);
    const bool changed =
        f.line_text == &LineRecord::商品コード ? 商品コード変更(text) : 仕入先コード変更(text);
    if (!changed) return;
    show_current_row();
    finish();
}

// --- texts
std::string cut(const std::string& text, int limit) {
    return limit > 0 ? 文字数切詰(text, limit) : text;
}

void leave_head_text(Control& c, const ScreenField& f) {
    std::string& member = 請求ヘッダ.*f.head_text;
    if (c.text == member) return;
    member = cut(c.text, f.max_length);
    実行環境.入力変更あり = true;
    実行環境.案内メッセージ.clear();
    if (f.area == Area::tail)
        テイル画面表示();
    else
        ヘッド画面表示();
    finish();
}

void leave_line_text(Control& c, const ScreenField& f) {
    std::string& member = current_line().*f.line_text;
    if (c.text == member) return;
    member = cut(c.text, f.max_length);
    実行環境.入力変更あり = true;
    実行環境.案内メッセージ.clear();
    明細行表示(実行環境.現在行, 実行環境.現在画面行);
    finish();
}

void leave_date_part(Control& c, const ScreenField& f) {
    std::string& member = 請求ヘッダ.*f.head_text;
    if (c.text == member) return;
    member = c.text;
    実行環境.入力変更あり = true;
    営業請求日付確定();
    全行税再計算();
    実行環境.案内メッセージ.clear();
    画面表示();
    finish();
}

// --- figures of a line: the recalculations that each starts, in order
void purchase_quantity_follows(int i) {
    請求明細行[i].仕入数量 = 請求明細行[i].請求数量;
}
struct FigureSteps {
    通貨 LineRecord::*figure;
    void (*steps[5])(int);
};
constexpr FigureSteps figure_steps[] = {
    {&LineRecord::請求数量,
     {purchase_quantity_follows, 請求金額計算, 請求消費税計算, 仕入金額計算, 仕入消費税計算}},
    {&LineRecord::請求単価, {請求単価入力, 請求金額計算, 請求消費税計算}},
    {&LineRecord::請求金額, {請求消費税計算}},
    {&LineRecord::請求消費税, {}},
    {&LineRecord::仕入数量, {仕入金額計算, 仕入消費税計算}},
    {&LineRecord::仕入単価, {仕入単価入力, 仕入金額計算, 仕入消費税計算}},
    {&LineRecord::仕入金額, {仕入消費税計算}},
    {&LineRecord::仕入消費税, {}},
};

// With 消費税表示区分 0 the tax fields show 0 while the line keeps its tax; leaving one untouched stores
// nothing.
bool shows_no_tax(const ScreenField& f) {
    return 請求ヘッダ.消費税表示区分 == 0 &&
           (f.line_money == &LineRecord::請求消費税 || f.line_money == &LineRecord::仕入消費税);
}

void leave_line_figure(Control& c, const ScreenField& f) {
    通貨& member = current_line().*f.line_money;
    if (c.value == member || (shows_no_tax(f) && c.value.is_zero())) return;
    member = c.value;
    実行環境.入力変更あり = true;
    for (const FigureSteps& s : figure_steps) {
        if (s.figure != f.line_money) continue;
        for (auto step : s.steps)
            if (step) step(実行環境.現在行);
    }
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
    std::int16_t& member = 請求ヘッダ.*f.head_digit;
    const int code = code_of(c, f);
    const Control& combo = c.kind == ControlKind::combo ? c : screen().*f.combo;
    if (code == member || !in_list(code, f.base, combo)) return;
    member = static_cast<std::int16_t>(code);
    実行環境.入力変更あり = true;
    if (f.head_digit == &HeaderRecord::得意先消費税算出区分 ||
        f.head_digit == &HeaderRecord::得意先消費税区分)
        全行税再計算();
    実行環境.案内メッセージ.clear();
    画面表示();
    finish();
}

void change_line_kind(Control& c, const ScreenField& f) {
    std::int16_t& member = current_line().行区分;
    const int code = code_of(c, f);
    if (code == member || !in_list(code, 0, screen().行区分名称[static_cast<std::size_t>(c.row)])) return;
    member = static_cast<std::int16_t>(code);
    行区分設定(実行環境.現在行);
    合計計算();
    実行環境.案内メッセージ.clear();
    show_current_row();
    finish();
}

void change_line_check(const Control& c, const ScreenField& f) {
    std::int16_t& member = current_line().*f.line_digit;
    if (c.number == member) return;
    member = static_cast<std::int16_t>(c.number);
    if (f.line_digit == &LineRecord::計区分) {
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
    if (f.rows && !of_current_row(c)) return;
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
    if (f.rows && !of_current_row(c)) return;
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

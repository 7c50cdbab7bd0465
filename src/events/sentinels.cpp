// Where the end of an area leads.
#include "events/sentinels.h"

#include <algorithm>

#include "document/clearing.h"
#include "events/focus.h"
#include "events/save_dialogue.h"
#include "screen/scrolling.h"

namespace kalvane {
namespace {

int page() {
    return screen().tab_詳細.number;
}

bool left_was(std::initializer_list<Control EntryScreen::*> controls) {
    return std::any_of(controls.begin(), controls.end(),
                       [](auto c) { return 実行環境.離脱コントロール == &(screen().*c); });
}

bool left_was_row_field(std::initializer_list<RowControls EntryScreen::*> fields) {
    const Control* left = 実行環境.離脱コントロール;
    return left && std::any_of(fields.begin(), fields.end(), [left](auto f) {
               const RowControls& controls = screen().*f;
               return std::any_of(controls.begin(), controls.end(),
                                  [left](const Control& c) { return &c == left; });
           });
}

bool came_from_tail() {
    const Control* left = 実行環境.離脱コントロール;
    const ScreenField* f = left ? field_of(*left) : nullptr;
    return f && f->flow.area == Area::tail && left != &screen().営業請求メモ;
}

void back_to_head() {
    フォーカス設定(screen().支払条件);
}

void to_last_field(int row) {
    フォーカス設定(last_row_field(row, page()));
}

// The line beyond which Enter leads to the tail: behind the last one, or the last one when nothing was
// entered in it (an entered row is already a line).
bool at_the_end() {
    const RunContext& r = 実行環境;
    if (r.現在行 > r.最終行 || (r.最終行 == last_entry_line && r.現在行 == r.最終行)) return true;
    if (r.現在行 != r.最終行 || r.現在行 <= 0) return false;
    const LineRecord& l = 請求明細行[r.現在行];
    return sale_empty(l) && (page() == 0 || purchase_empty(l));
}

void forward() {
    const RunContext& r = 実行環境;
    if (at_the_end()) {
        明細終了移動();
    } else if (r.現在画面行 < screen_rows - 1) {
        フォーカス設定(first_row_field(r.現在画面行 + 1, page()));
    } else {
        行スクロール(r.先頭行 + 1);
        Control& first = first_row_field(screen_rows - 1, page());
        フォーカス設定(first);
        入力順序確認(first);  // the scrolling may have given it the focus, but it makes no line
    }
}

void backward() {
    const RunContext& r = 実行環境;
    if (r.現在画面行 > 0) {
        to_last_field(r.現在画面行 - 1);
    } else if (r.現在行 <= 0) {
        back_to_head();
    } else {
        行スクロール(r.先頭行 - 1);
        to_last_field(0);
    }
}

void back_from_tail() {
    const RunContext& r = 実行環境;
    if (r.最終行 < 0)
        back_to_head();
    else
        to_last_field(std::max(0, std::min<int>(r.現在画面行, r.最終行 - r.先頭行)));
}

// A sentinel that nothing moved the focus from hands it back.
void never_stay(Control& sentinel) {
    if (screen().active == &sentinel) 離脱項目移動();
}

}  // namespace

void ヘッド終了到達(Control& sentinel) {
    const RunContext& r = 実行環境;
    if (const int gap = head_gap()) {
        実行環境.取得コントロール = &sentinel;
        ヘッド番号移動(gap);
    } else if (left_was(
                   {&EntryScreen::支払条件, &EntryScreen::売上完了区分, &EntryScreen::売上完了区分名称})) {
        switch (page()) {
            case 2:
                フォーカス設定(screen().営業請求メモ);
                break;
            case 3:
                フォーカス設定(screen().List付属書類);
                break;
            default:
                フォーカス設定(first_row_field(0, page()));
        }
    } else if (r.現在行 <= 0 || page() >= 2) {
        back_to_head();
    } else {
        if (r.先頭行 > 0) 行スクロール(r.先頭行 - 1);
        to_last_field(0);
    }
    never_stay(sentinel);
}

void 頁終了到達(Control& sentinel) {
    const int current = 実行環境.現在画面行;
    if (came_from_tail())
        back_from_tail();
    else if (sentinel.row == current)
        forward();
    else if (sentinel.row == current - 1)
        backward();
    else if (page() == 0 ? left_was_row_field({&EntryScreen::請求消費税, &EntryScreen::請求金額,
                                               &EntryScreen::請求単価, &EntryScreen::商品名})
                         : left_was_row_field({&EntryScreen::仕入消費税, &EntryScreen::仕入金額,
                                               &EntryScreen::仕入単価, &EntryScreen::仕入先名称A}))
        forward();
    else
        backward();
    never_stay(sentinel);
}

void 明細終了移動() {
    const RunContext& r = 実行環境;
    const bool kept = 請求明細行[r.現在行].行区分 != 0;
    if (kept && r.現在行 != 0 && r.最終行 <= r.現在行)
        テイル項目移動(screen().請求伝票備考A);
    else
        明細番号移動(r.現在画面行);
}

void テイル終了到達(Control& sentinel) {
    if (実行環境.離脱コントロール != &screen().請求伝票備考B) {
        フォーカス設定(screen().請求伝票備考B);
    } else {
        実行環境.離脱コントロール = 実行環境.先頭コントロール;
        const Gap gap = 必須項目確認();
        if (!実行環境.入力変更あり || (gap.area == Area::none && 実行環境.最終行 < 0))
            フォーカス設定(*実行環境.先頭コントロール);
        else
            登録要求();
    }
    if (!process_ended()) never_stay(sentinel);
}

}  // namespace kalvane

// The order rule and the routines that move the focus.
#include "events/focus.h"

#include <algorithm>

#include "document/clearing.h"
#include "screen/screen_display.h"
#include "screen/scrolling.h"

namespace kalvane {
namespace {

bool is(const Control* a, const Control& b) {
    return a == &b;
}

// Display fields and master names are stepped over; the way depends on the field that was left.
Control* ヘッド飛先(const StepOver& s) {
    if (!s.before || (s.unless && 請求ヘッダ.*s.unless != 0)) return nullptr;
    return is(実行環境.離脱コントロール, screen().*s.before) ? &(screen().*s.after) : &(screen().*s.before);
}

bool arrived(const Control& field) {
    return is(実行環境.取得コントロール, field);
}

bool enter_head(Control& field, const ScreenField& f) {
    const int gap = head_gap();
    if (gap != 0 && f.flow.order > gap) {
        ヘッド番号移動(gap);
        return true;
    }
    if (Control* over = ヘッド飛先(f.step_over)) {
        if (!arrived(*over)) ヘッド項目移動(*over);
        return true;
    }
    if (!arrived(field)) ヘッド項目移動(field);
    return !arrived(field);
}

// Makes the screen row the current one. Entering the first free row brings its line into being, unless the
// rows have only moved under the focus.
void make_row_current(int row) {
    RunContext& r = 実行環境;
    const int line_before = r.現在行, last_before = r.最終行;
    r.現在画面行 = static_cast<std::int16_t>(row);
    r.現在行 = static_cast<std::int16_t>(r.先頭行 + row);
    if (!r.スクロール中) 現在行追加();
    スクロール設定();
    if (r.現在行 != line_before || r.最終行 != last_before) ボタン状態更新(false);
}

bool line_has_gap(int line) {
    return line >= 0 && line <= 実行環境.最終行 && 請求明細行[line].行区分 == 0;
}

bool enter_line(Control& field, const ScreenField& f) {
    if (const int gap = head_gap()) {
        ヘッド番号移動(gap);
        return true;
    }
    make_row_current(field.row);
    const int free_line = 実行環境.最終行 + 1;
    if (実行環境.先頭行 + field.row > free_line) {
        const int row = std::clamp(free_line - 実行環境.先頭行, 0, screen_rows - 1);
        if (field.page == 1)
            フォーカス設定(first_row_field(row, 1));
        else
            明細番号移動(row);
        return true;
    }
    if (f.flow.order > 1 && line_has_gap(実行環境.先頭行 + field.row)) {
        明細番号移動(field.row);
        return true;
    }
    if (!arrived(field)) 明細項目移動(field);
    return !arrived(field);
}

bool enter_tail(Control& field, const ScreenField& f) {
    if (const int gap = head_gap()) {
        ヘッド番号移動(gap);
        return true;
    }
    RunContext& r = 実行環境;
    r.現在行 = static_cast<std::int16_t>(r.先頭行 + r.現在画面行);
    スクロール設定();
    if (r.現在画面行 == 0 && line_has_gap(r.現在行)) {
        明細番号移動(0);
        return true;
    }
    // a total counts as the last remark
    Control& target = f.shows.head_money ? screen().請求伝票備考B : field;
    if (!arrived(target)) テイル項目移動(target);
    return !arrived(field);
}

Control& in_row(RowControls EntryScreen::*field, int row) {
    return (screen().*field)[static_cast<std::size_t>(row)];
}

}  // namespace

Control& first_row_field(int row, int page) {
    if (page == 0) return in_row(&EntryScreen::商品コード, row);
    Control& supplier = in_row(&EntryScreen::仕入先コード, row);
    return supplier.visible ? supplier : in_row(&EntryScreen::仕入数量, row);
}

Control& last_row_field(int row, int page) {
    const auto fields = screen_fields();
    for (auto f = fields.rbegin(); f != fields.rend(); ++f) {
        if (f->flow.area != Area::lines || f->page != page) continue;
        if (Control& c = *f->control.at(row); c.tab_stop && c.visible) return c;
    }
    return first_row_field(row, page);
}

void 現在行追加() {
    RunContext& r = 実行環境;
    if (r.現在行 != r.最終行 + 1 || r.現在行 > last_entry_line || 請求明細行[r.現在行].行区分 <= 0) return;
    r.最終行 = r.現在行;
    明細固有項目初期化(r.現在行);
    スクロール設定();
}

void フォーカス設定(Control& c) {
    if (c.page >= 0 && c.page != screen().tab_詳細.number) {
        const ProcessingGuard guard;
        set_number(screen().tab_詳細, c.page);
    }
    set_focus(c);
}

void ヘッド番号移動(int n) {
    フォーカス設定(required_head_field(n));
}
void ヘッド項目移動(Control& field) {
    フォーカス設定(field);
}
void 明細番号移動(int row) {
    フォーカス設定(in_row(&EntryScreen::行区分, row));
}
void 明細項目移動(Control& field) {
    フォーカス設定(field.visible ? field : first_row_field(field.row, field.page));
}
void テイル項目移動(Control& field) {
    フォーカス設定(field);
}

void 離脱項目移動() {
    Control* left = 実行環境.離脱コントロール;
    if (!left) return;
    if (left->row >= 0)
        明細項目移動(*left);
    else
        フォーカス設定(*left);
}

void 未入力項目移動(const Gap& gap) {
    お知らせ表示("必須項目が未入力です。");
    if (gap.area == Area::head) ヘッド番号移動(gap.place);
    if (gap.area != Area::lines) return;
    RunContext& r = 実行環境;
    // by pages of ten; the last page would reach behind the arrays
    constexpr int last_page = 990;
    int first = gap.place - gap.place % screen_rows;
    if (first >= last_page) first = std::max(スクロール終端(), gap.place - screen_rows + 1);
    r.現在行 = static_cast<std::int16_t>(gap.place);
    r.先頭行 = static_cast<std::int16_t>(first);
    r.現在画面行 = static_cast<std::int16_t>(gap.place - first);
    行スクロール(r.先頭行);
    明細画面表示();
    明細番号移動(r.現在画面行);
}

bool 入力順序確認(Control& field) {
    const ScreenField* f = field_of(field);
    if (!f) return false;
    switch (f->flow.area) {
        case Area::head:
            return enter_head(field, *f);
        case Area::lines:
            return enter_line(field, *f);
        case Area::tail:
            return enter_tail(field, *f);
        case Area::none:
            break;
    }
    return false;
}

}  // namespace kalvane

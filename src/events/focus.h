// The order in which fields may be entered, and the moves of the focus.
#pragma once
#include "screen/required.h"

namespace kalvane {

// Sets the focus when the control can take it; a page that is not shown is turned to first.
void フォーカス設定(Control& c);
void ヘッド番号移動(int n);  // required head field 1 to 8
void ヘッド項目移動(Control& field);
void 明細番号移動(int row);         // 行区分 of the row
void 明細項目移動(Control& field);  // a hidden field passes to the next usable one of its row
void テイル項目移動(Control& field);
// Back to the field that was left last.
void 離脱項目移動();
// Says that something is missing and goes to the gap of the mandatory check, with its line made current.
void 未入力項目移動(const Gap& gap);

// The current line comes into being when it is the first free one: its row has been entered, or something has
// been typed in a row that was only scrolled to.
void 現在行追加();

// May the field be entered? What must come before it is looked at, the row of a line field is made
// current, display fields are stepped over. True when the focus went elsewhere than to this field.
bool 入力順序確認(Control& field);

// The first field of a row on the page shown: 商品コード, or the supplier's (its quantity while it is
// hidden).
Control& first_row_field(int row, int page);
// The last field of a row that has a tab stop, on the page shown.
Control& last_row_field(int row, int page);

}  // namespace kalvane

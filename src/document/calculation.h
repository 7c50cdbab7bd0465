// The arithmetic of the document in memory: line amounts and taxes, tax-in and tax-out prices, subtotal
// rows, totals, the tax of the document. The index is that of the line, 0 to 最終行; an index outside the
// arrays, and a figure outside the currency's range, raise RunFailure. The tax routine reads the rate table.
#pragma once
#include <cstdint>

#include "base/currency.h"

namespace kalvane {

// Values of 行区分, 課税区分, 消費税区分 and 消費税算出区分 (from 2 on the tax is the document's).
inline constexpr std::int16_t ordinary_line = 1, subtotal_line = 2, middle_total_line = 3,
                              large_total_line = 4, grand_total_line = 5;
inline constexpr std::int16_t current_rate = 0, not_taxed = 1, previous_rate = 2;
inline constexpr std::int16_t tax_out = 1, tax_in = 2;
inline constexpr std::int16_t no_tax = 0, tax_per_line = 1;

// Tax classes of the line from the product, the customer and the supplier.
void 明細税区分設定(int i);
void 売上税区分設定(int i);
void 仕入税区分設定(int i);
// Unit price from the line's tax-out price after a product look-up.
void 請求単価設定(int i);
void 仕入単価設定(int i);
// Amount from quantity and unit price; a line without one of them keeps its amount.
void 請求金額計算(int i);
void 仕入金額計算(int i);
// The line's tax.
void 請求消費税計算(int i);
void 仕入消費税計算(int i);
// The unit price was typed: the line's tax-in and tax-out working prices follow it.
void 請求単価入力(int i);
void 仕入単価入力(int i);
// Price or amount between tax-in and tax-out after the customer's class has changed; a price of another class
// than the customer's marks the document.
void 請求単価再計算(int i);
void 請求金額再計算(int i);
void 仕入単価再計算(int i);
void 仕入金額再計算(int i);
// Classes and taxes of every line, then the totals; nothing without lines.
void 全行税再計算();
// All totals, subtotal rows and the tax of the document.
void 合計計算();
// One row of 行区分 2 to 5.
void 小計行計算(int row);
// The line's 行区分 has been set: 計区分, 商品名, classes, subtotal.
void 行区分設定(int i);
// Runs 合計計算; what the tax of the document exceeds the sum of its lines by, 0 with tax per line.
通貨 消費税差額計算();

}  // namespace kalvane

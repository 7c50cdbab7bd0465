// Consumption tax: the one routine that every tax figure of the invoice comes from.
#pragma once
#include <cstdint>
#include <string_view>

#include "base/currency.h"

namespace kalvane {

// Tax of an amount, which may be negative, by the rate in force on a day.
//   税区分       1 the amount excludes tax, 2 it includes tax, anything else taxes nothing
//   丸め方法     tenths added before the cut: 0 cuts, 5 rounds at the half
//   丸め桁位置   p >= 0: a multiple of 10 to the power p; p < 0: cut by the factor p times 10
//   基準日付     "yyyymmdd", selects the rate by text
//   旧税率指定   1: the rate before the one in force
// Reads G消費税 once a call; nothing is kept. No such rate, or a failing read, gives 0. Leaving the range of
// currency, or of 16 bits by p times 10, raises RunFailure.
通貨 消費税計算(通貨 対象金額, std::int16_t 税区分, std::int16_t 丸め方法, std::int16_t 丸め桁位置,
                std::string_view 基準日付, std::int16_t 旧税率指定);

}  // namespace kalvane

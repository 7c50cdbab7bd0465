// Rates by date, and the tax of an amount.
#include "rules/consumption_tax.h"

#include <cmath>
#include <string>

#include "data/query.h"
#include "records/run_context.h"

namespace kalvane {

namespace {

// Every step in double, and only the quotient goes back to currency: the last digit depends on it.
通貨 unrounded(double rate, 通貨 amount, std::int16_t kind) {
    const double m = amount.to_double();
    if (kind == 1) return 通貨::from_double(rate * m / 100.0);
    if (kind == 2) return 通貨::from_double(rate * m / (rate + 100.0));
    return 通貨();
}

通貨 rounded(通貨 tax, std::int16_t method, std::int16_t position) {
    const double tenths = static_cast<double>(method) / 10.0;
    const bool negative = tax < 通貨();
    if (position >= 0) {
        const double power = std::pow(10.0, position), scaled = tax.to_double() / power;
        return 通貨::from_double(std::trunc(negative ? scaled - tenths : scaled + tenths) * power);
    }
    // a negative position multiplies by ten times itself, not by a power of ten
    const std::int16_t factor = to_i16(position * 10.0);
    const 通貨 scaled = times(tax, factor), added = 通貨::from_double(tenths);
    return 通貨::from_double(Fix(negative ? scaled - added : scaled + added).to_double() / factor);
}

}  // namespace

通貨 消費税計算(通貨 対象金額, std::int16_t 税区分, std::int16_t 丸め方法, std::int16_t 丸め桁位置,
                std::string_view 基準日付, std::int16_t 旧税率指定) {
    std::string sql;
    if (実行環境.db == "A" || 実行環境.db == "S" || 実行環境.db == "O") {
        sql = "SELECT G消費税.* FROM G消費税 WHERE G消費税.施行日 <= ";
        append_literal(sql, 基準日付);
        sql += " ORDER BY G消費税.施行日 DESC";
    }
    const bool negative = 対象金額 < 通貨();
    const 通貨 amount = negative ? times(対象金額, -1) : 対象金額;
    ado::Recordset rates;
    if (!主DB読込(rates, sql)) {
        rates.Close();
        return 通貨();
    }
    if (旧税率指定 == 1) {
        rates.MoveNext();
        if (rates.Eof()) return 通貨();
    }
    const double rate = rates.Fields("消費税率").number();
    const 通貨 tax = rounded(unrounded(rate, amount, 税区分), 丸め方法, 丸め桁位置);
    rates.Close();
    return negative ? times(tax, -1) : tax;
}

}  // namespace kalvane

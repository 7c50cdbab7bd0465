// The required head fields as a table, and the gap.
#include "screen/required.h"

#include "base/text.h"

namespace kalvane {
namespace {

struct Required {
    Control EntryScreen::*field;
    std::string HeaderRecord::*text;
    std::string RunContext::*key;
};
constexpr std::array<Required, 8> required{{
    {&EntryScreen::営業請求日付年, &HeaderRecord::営業請求日付年, nullptr},
    {&EntryScreen::営業請求日付月, &HeaderRecord::営業請求日付月, nullptr},
    {&EntryScreen::営業請求日付日, &HeaderRecord::営業請求日付日, nullptr},
    {&EntryScreen::営業請求No, nullptr, &RunContext::営業請求No},
    {&EntryScreen::得意先コード, &HeaderRecord::得意先コード, nullptr},
    {&EntryScreen::担当者コード, &HeaderRecord::担当者コード, nullptr},
    {&EntryScreen::部門コード, &HeaderRecord::部門コード, nullptr},
    {&EntryScreen::セクションコード, &HeaderRecord::セクションコード, nullptr},
}};

}  // namespace

int head_gap() {
    for (std::size_t i = 0; i < required.size(); ++i) {
        const Required& r = required[i];
        if (blank(r.text ? 請求ヘッダ.*r.text : 実行環境.*r.key)) return static_cast<int>(i + 1);
    }
    return 0;
}

Control& required_head_field(int n) {
    return frmKalvaneInvoiceEntry.*required[static_cast<std::size_t>(n - 1)].field;
}

Gap 必須項目確認() {
    if (const int n = head_gap()) return {Area::head, n};
    for (int i = 0; i <= 実行環境.最終行; ++i)
        if (請求明細行[i].行区分 == 0) return {Area::lines, i};
    return {};
}

}  // namespace kalvane

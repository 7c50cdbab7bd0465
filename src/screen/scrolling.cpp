// Range and moves of the line scroll bar.
#include "screen/scrolling.h"

#include <algorithm>

#include "screen/screen_display.h"
#include "screen/screen_model.h"

namespace kalvane {
namespace {

struct ScrollingGuard {
    const bool before = 実行環境.スクロール中;
    ScrollingGuard() { 実行環境.スクロール中 = true; }
    ~ScrollingGuard() { 実行環境.スクロール中 = before; }
    ScrollingGuard(const ScrollingGuard&) = delete;
    ScrollingGuard& operator=(const ScrollingGuard&) = delete;
};

}  // namespace

int スクロール終端() {
    constexpr int full = 998, last_position = 988;
    const int lines = 実行環境.最終行 + 1;
    return lines < full ? lines - screen_rows + 1 : last_position;
}

void スクロール設定() {
    Control& bar = frmKalvaneInvoiceEntry.scl_行;
    const int lines = 実行環境.最終行 + 1;
    if (lines < screen_rows) {
        set_enabled(bar, false);
        set_number(bar, 0);
        return;
    }
    const int position = 実行環境.先頭行;
    set_enabled(bar, true);
    // a gap may have been shown at the head of a page that lies behind the range
    set_scroll_range(bar, 0, std::max(スクロール終端(), position));
    set_number(bar, position);
}

void 行スクロール変更() {
    RunContext& r = 実行環境;
    const int position = frmKalvaneInvoiceEntry.scl_行.number;
    if (position == r.先頭行) return;
    r.先頭行 = static_cast<std::int16_t>(position);
    if (r.現在画面行 + r.先頭行 > r.最終行 + 1)
        r.現在画面行 = static_cast<std::int16_t>(std::max(0, r.最終行 - r.先頭行 + 1));
    r.現在行 = static_cast<std::int16_t>(r.現在画面行 + r.先頭行);
    明細画面表示();
    ボタン状態更新(false);
    Control* target = r.取得コントロール;
    if (!target) return;
    const ScrollingGuard guard;
    if (target == frmKalvaneInvoiceEntry.active) {
        // it has the focus already: its entering runs again for the line it shows now
        if (target->GotFocus) target->GotFocus(*target);
    } else {
        set_focus(*target);
    }
}

void 行スクロール(int position) {
    Control& bar = frmKalvaneInvoiceEntry.scl_行;
    if (position > bar.scroll_max) set_scroll_range(bar, bar.scroll_min, position);
    set_number(bar, position);
}

void 画面再表示() {
    画面表示();
    スクロール設定();
    ボタン状態更新();
}

}  // namespace kalvane

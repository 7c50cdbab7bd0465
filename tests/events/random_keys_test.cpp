// An operator out of his mind at the whole program: keys, clicks, pastes, wheel and pages at random, boxes
// answered by a coin. After every event the screen and the document must still agree.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "base/text.h"
#include "screen/required.h"
#include "support/seat.h"
#include "support/table.h"

namespace kalvane {
namespace {

using test::Seat;

class Dice {
  public:
    explicit Dice(unsigned seed) : engine_(seed) {}
    int below(int n) { return static_cast<int>(engine_() % static_cast<unsigned>(n)); }
    bool coin() { return below(2) == 0; }
    template <class Items>
    const auto& one_of(const Items& items) {
        return items[static_cast<std::size_t>(below(static_cast<int>(std::size(items))))];
    }

  private:
    std::mt19937 engine_;
};

const std::string long_text = [] {
    std::string text = "長aｶ\n";
    for (int i = 0; i < 11; ++i) text += text;
    return text;
}();

const std::vector<std::string> words = [] {
    std::vector<std::string> all;
    for (auto& r :
         test::table(R"(3 ; 19 ; 4 ; 40 ; 999 ; P0001 ; P0043 ; P0050 ; P0073 ; 1 ; 2 ; 0 ; -1 ; 2.5 ; 10
        -99999.9 ; 999999.9 ; 99999999.99 ; -9999999999 ; 9999999999 ; 1e9 ; 00008 ; 31 ; 2030 ; 0200 ; 9999
        ' ; a'b"c ; 備考 ; 金額は別途)"))
        all.push_back(r[0]);
    for (const char* odd :
         {" ", "\x01\x02", "\xFF\xFE", "\xE3\x81", "あ\xE3\x81", "\xF0\x9F\x98\x80", "\xED\xA0\x80", "ｶﾞｷﾞ",
          "１２", "x\ny",
          "全角六十バイトを超える案件名で、切られるまで打ち続けられる長さを持つもの、それでもまだ続く"})
        all.emplace_back(odd);
    return all;
}();

constexpr const char* customers[] = {"1", "2", "3", "4", "5", "14", "19", "23", "37"};
constexpr const char* products[] = {"P0001", "P0014", "P0029", "P0043", "P0050", "P0065", "P0073", "P0078"};

constexpr Key often[] = {Key::Enter, Key::Tab,    Key::ShiftTab, Key::Up,
                         Key::Down,  Key::Delete, Key::Space,    Key::Ctrl};
constexpr Key seldom[] = {Key::Escape, Key::F1, Key::F2, Key::F3,  Key::F4,  Key::F5, Key::F6,
                          Key::F7,     Key::F8, Key::F9, Key::F10, Key::F11, Key::F12};

// A document of a few lines to begin with, so that rows scroll and pages have something to show.
void begin(const Seat& seat, Dice& dice) {
    seat.enter(screen().得意先コード, dice.one_of(customers));
    for (int line = 0, lines = dice.below(16); line < lines; ++line) {
        const auto row = static_cast<std::size_t>(std::min(line, screen_rows - 1));
        if (line >= screen_rows) turn_wheel(screen(), -1);
        seat.line(row, dice.one_of(products), std::to_string(dice.below(90)));
    }
}

// Does one event; tells which.
std::string act(Dice& dice) {
    EntryScreen& s = screen();
    Control& any = *dice.one_of(s.controls);
    const std::string name = any.name + "[" + std::to_string(any.row) + "]";
    const auto key = [&](Key k) {
        press_key(s, k);
        return "key " + std::to_string(static_cast<int>(k));
    };
    const int kind = dice.below(100);
    if (kind < 25) return key(Key::Enter);
    if (kind < 35) return key(dice.one_of(often));
    if (kind < 37) return key(dice.one_of(seldom));
    if (kind < 66) {
        const std::string& text = kind >= 60 && dice.coin() ? long_text : dice.one_of(words);
        kind < 60 ? type_text(s, text) : paste_into(s, text);
        return (kind < 60 ? "type " : "paste ") + Left(text, 20);
    }
    if (kind < 78) return press_focus(any), "focus " + name;
    if (kind < 86) {
        // the required head first, else the lines are never reached
        Control& c = dice.coin() ? s.得意先コード : required_head_field(1 + dice.below(8));
        return press_focus(c), "focus " + c.name;
    }
    if (kind < 90) return click(any), "click " + name;
    if (kind < 92) return double_click(any), "double click " + name;
    if (kind < 95) return choose(any, dice.below(8) - 1), "choose " + name;
    if (kind < 96) return choose(s.tab_詳細, dice.below(4)), "page";
    if (kind < 98) return turn_wheel(s, dice.below(7) - 3), "wheel";
    if (kind < 99) return scroll_to(s.scl_行, dice.below(40) - 3), "scroll";
    if (dice.below(10) == 0) return close_form(s), "close";
    return drop_down(s), "drop down";
}

// --- what holds after every event; each gives a complaint or nothing
using Complaint = std::string;

Complaint position() {
    const RunContext& r = 実行環境;
    if (r.処理中) return "still writing";
    if (r.最終行 < -1 || r.最終行 > last_entry_line) return "last line " + std::to_string(r.最終行);
    if (r.現在画面行 < 0 || r.現在画面行 >= screen_rows) return "row " + std::to_string(r.現在画面行);
    if (r.現在行 != r.先頭行 + r.現在画面行) return "current line " + std::to_string(r.現在行);
    if (r.現在行 > r.最終行 + 1) return "behind the free line";
    const Control& bar = screen().scl_行;
    if (bar.number != r.先頭行 || bar.number < bar.scroll_min) return "bar " + std::to_string(bar.number);
    if (bar.enabled != (r.最終行 + 1 >= screen_rows)) return "bar enabled";
    if (bar.enabled && bar.number > bar.scroll_max) return "bar beyond its end";
    return "";
}

Complaint focus() {
    const Control* active = screen().active;
    if (!active) return "no focus";
    // the number of a source document that was read is closed under the focus, until the next key moves on
    const EntryScreen& s = screen();
    const bool source = active == &s.営業見積No || active == &s.顧客注文No || active == &s.営業納品No ||
                        active == &s.参照営業請求No;
    if (!on_show(*active) || (!active->enabled && !source)) return "focus in " + active->name;
    if (active->name.ends_with("終了") && !active->name.starts_with("btn_"))
        return "focus kept by " + active->name;
    const ScreenField* f = field_of(*active);
    if (f && f->flow.area == Area::lines && active->row != 実行環境.現在画面行)
        return "focus off the current row";
    if (f && f->flow.area != Area::none && head_gap() != 0 &&
        (f->flow.area != Area::head || f->flow.order > head_gap()))
        return "focus behind the gap in " + active->name;
    return "";
}

// Independent sums of the lines that count.
Complaint totals() {
    通貨 quantity, amount, cost, subtotal;
    for (int i = 0; i <= 実行環境.最終行; ++i) {
        const LineRecord& l = 請求明細行[i];
        if (l.行区分 == 2 && i > 0 && l.請求金額 != subtotal) return "subtotal in line " + std::to_string(i);
        if (l.行区分 == 5 && i > 0 && l.請求金額 != amount) return "total in line " + std::to_string(i);
        if (l.行区分 >= 2) subtotal = {};
        if (l.行区分 != 1 || l.計区分 != 1) continue;
        quantity += l.請求数量;
        amount += l.請求金額;
        subtotal += l.請求金額;
        cost += l.仕入金額;
    }
    const HeaderRecord& h = 請求ヘッダ;
    if (h.請求数量合計 != quantity) return "total of quantities";
    if (h.請求金額合計 != amount) return "total of amounts";
    if (h.仕入金額合計 != cost) return "total of costs";
    if (h.得意先消費税端数調整区分 != 1 && h.税抜請求金額合計 + h.請求消費税合計 != h.税込請求金額合計)
        return "tax-out and tax make no tax-in";
    return "";
}

bool safe(const std::string& text) {
    return valid_utf8(text) == text && text.find('\0') == std::string::npos;
}
bool safe_code(const std::string& text) {
    return text.find_first_not_of("0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz-_./") ==
           std::string::npos;
}

// Texts are whole characters within their limits, and what the controls show is what the document holds.
Complaint texts() {
    for (const ScreenField& f : screen_fields()) {
        if (f.shows.head_text) {
            const Control& c = *f.control.at(-1);
            const std::string& held = 請求ヘッダ.*f.shows.head_text;
            if (!safe(held)) return "bytes in " + c.name;
            if (f.store == Store::head_code && !safe_code(held)) return "code in " + c.name;
            if (f.store == Store::head_text && f.input.max_length > 0 &&
                ByteLen(held) > static_cast<std::size_t>(f.input.max_length))
                return "length of " + c.name;
            if (screen().active != &c && c.text != held) return c.name + " shows " + c.text + " for " + held;
        }
        if (!f.control.rows) continue;
        for (int row = 0; row < screen_rows; ++row) {
            const Control& c = *f.control.at(row);
            const LineRecord& l = 請求明細行[実行環境.先頭行 + row];
            if (f.shows.line_text && !safe(l.*f.shows.line_text)) return "bytes in " + c.name;
            if (f.store == Store::line_text &&
                ByteLen(l.*f.shows.line_text) > static_cast<std::size_t>(f.input.max_length))
                return "length of " + c.name;
            if (f.store == Store::line_code && !safe_code(l.*f.shows.line_text)) return "code in " + c.name;
            if (screen().active == &c) continue;
            if (f.shows.line_text && c.text != l.*f.shows.line_text)
                return c.name + std::to_string(row) + " shows " + c.text;
            // sums and taxes of rows that were not drawn may lag behind
            const bool own =
                f.shows.line_money == &LineRecord::請求数量 || f.shows.line_money == &LineRecord::請求単価;
            if (own && l.行区分 == 1 && c.value != l.*f.shows.line_money) return c.name + std::to_string(row);
        }
    }
    return "";
}

Complaint buttons() {
    const EntryScreen& s = screen();
    const bool lines = 実行環境.最終行 >= 0;
    if (s.btn_行クリア.enabled != lines) return "btn_行クリア";
    if (s.営業見積No.enabled != (実行環境.新規入力中 && !lines)) return "営業見積No";
    const bool may_save = lines && 実行環境.入力変更あり && 必須項目確認().area == Area::none;
    if (s.btn_登録.enabled != may_save) return "btn_登録";
    return "";
}

class 乱打 : public testing::TestWithParam<unsigned> {};

TEST_P(乱打, 画面と伝票は一致し続ける) {
    static const test::Installation at;
    at.restore();
    Dice dice(GetParam());
    constexpr int events = 700;
    int done = 0, most_lines = 0, runs = 0;
    while (done < events) {
        Seat seat(at);
        ++runs;
        Seat::answer = [&dice](const std::string& text) {
            return contains(text, "終了しますか？") ? dice.below(10) == 0 : dice.coin();
        };
        Seat::modal = [&dice](Form& f) {
            if (&f != &msg印刷確認) return (void)unload_form(f);
            click(dice.coin()   ? msg印刷確認.btn_いいえ
                  : dice.coin() ? msg印刷確認.btn_登録
                                : msg印刷確認.btn_登録印刷);
        };
        if (dice.below(4) > 0) begin(seat, dice);
        for (; done < events && !process_ended(); ++done) {
            const std::string event = act(dice);
            if (process_ended()) break;
            most_lines = std::max(most_lines, 実行環境.最終行 + 1);
            for (Complaint (*rule)() : {position, focus, totals, texts, buttons})
                if (const Complaint complaint = rule(); !complaint.empty())
                    FAIL() << complaint << ", after event " << done << ": " << event << ", focus in "
                           << (screen().active ? screen().active->name : "");
        }
        ASSERT_LT(runs, events);
    }
    EXPECT_GT(most_lines, 1);  // the lines have been reached
}

INSTANTIATE_TEST_SUITE_P(Seeds, 乱打, testing::Values(5u, 17u, 39u));

}  // namespace
}  // namespace kalvane

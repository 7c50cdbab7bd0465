// An operator who does anything, once on the models and once at the window: after every act both show the
// same. KALVANE_RANDOM_SEQUENCES plays that many sequences, from KALVANE_RANDOM_SEED on.
#include <gtest/gtest.h>

#include <cstdlib>
#include <random>

#include "operator/run.h"
#include "operator/values.h"
#include "screen/screen_model.h"
#include "window/seat.h"

namespace kalvane {
namespace {

constexpr int acts = 150;

const std::string long_name = [] {
    std::string text;
    for (int i = 0; i < 12; ++i) text += "長い名前aｶ";
    return text;
}();
constexpr const char* words[] = {"3",        "19",      "37",    "P0001", "P0043", "P0073",    "p0001",
                                 "1",        "2",       "0",     "-1",    "2.5",   "0.1234",   "12.3",
                                 "21001",    "04",      "2024",  "2030",  "31",    "00000060", "99999999.99",
                                 "-",        "1,234.5", "x1 9y", "'",     "件名",  "１２３",   "ｶﾞｷﾞ",
                                 "備考\n次", "a\tb",    " ",     ""};
constexpr Key keys[] = {Key::Tab,  Key::ShiftTab, Key::Up, Key::Down,   Key::Delete, Key::Space,
                        Key::Ctrl, Key::F2,       Key::F3, Key::F4,     Key::F5,     Key::F6,
                        Key::F10,  Key::F12,      Key::F1, Key::Escape, Key::Delete};

// What one play did and saw; the acts come from the seed and from what is on the screen.
struct Player {
    std::mt19937 random;
    Hands hands;
    bool window = false;
    std::vector<std::string> seen;
    std::string box;  // that waits
    bool box_asks = false, answered = false, yes = false;

    int below(int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); }
    template <class List>
    const auto& one_of(const List& list) {
        return list[static_cast<std::size_t>(below(static_cast<int>(std::size(list))))];
    }
    bool over() const { return static_cast<int>(seen.size()) >= acts; }
    void act();
    std::string do_one(Form& form);
};
Player* player = nullptr;

std::string name_of(const Control& c) {
    return c.name + "[" + std::to_string(c.row) + "]";
}

std::string Player::do_one(Form& form) {
    Control& any = *one_of(form.controls);
    const int kind = below(100);
    const auto text = [&]() -> std::string { return below(12) == 0 ? long_name : one_of(words); };
    const auto focus = [&](Control& c) { return hands.press_focus(c), "focus " + name_of(c); };
    if (kind < 22) return hands.press_key(form, Key::Enter), "enter";
    if (kind < 30) {
        const Key key = one_of(keys);
        return hands.press_key(form, key), "key " + std::to_string(static_cast<int>(key));
    }
    if (kind < 50) {
        const std::string typed = text();
        return hands.type_text(form, typed), "type " + typed;
    }
    if (kind < 60) {
        const std::string pasted = text();
        return hands.paste_into(form, pasted), "paste " + pasted;
    }
    if (kind < 72) return takes_text(any) || any.kind == ControlKind::combo ? focus(any) : "nothing";
    if (kind < 82 && &form == &frmKalvaneInvoiceEntry) {
        EntryScreen& s = frmKalvaneInvoiceEntry;
        Control* often[] = {&s.得意先コード, &s.商品コード[0], &s.請求単価[0], &s.請求数量[0],   &s.商品名[0],
                            &s.仕入単価[0],  &s.タイトル,      &s.行区分[0],   &s.営業請求日付月};
        return focus(*one_of(often));
    }
    // a click on a page's name picks it, by the window alone
    if (kind < 88 && any.kind == ControlKind::SSTab) return "nothing";
    if (kind < 88) return hands.click(any), "click " + name_of(any);
    if (kind < 90) return hands.double_click(any), "double click " + name_of(any);
    if (kind < 93) {
        const int entry = below(6) - 1;
        const bool usual = any.kind == ControlKind::combo || any.kind == ControlKind::SSTab;
        if (usual) hands.choose(any, entry);
        return "choose " + name_of(any) + " " + std::to_string(entry);
    }
    if (kind < 95) {
        const int page = below(4);
        if (form.tab_strip) hands.choose(*form.tab_strip, page);
        return "page " + std::to_string(page);
    }
    if (kind < 97) {
        const int notches = below(7) - 3;
        for (int i = 0; i < std::abs(notches); ++i) hands.turn_wheel(form, notches < 0 ? -1 : 1);
        return "wheel " + std::to_string(notches);
    }
    if (kind < 99) {
        const int position = below(30) - 3;
        hands.scroll_to(frmKalvaneInvoiceEntry.scl_行, position);
        return "scroll " + std::to_string(position);
    }
    return hands.drop_down(form), "drop down";
}

void Player::act() {
    if (over()) {
        // loops that opened in loops are left again
        if (!box.empty())
            answered = yes = true, window ? hands.answer_box(true) : void();
        else
            end_process();
        return;
    }
    const std::size_t place = seen.size();
    seen.emplace_back();
    std::string done;
    if (!box.empty()) {
        yes = !box_asks || below(3) != 0;
        done = "answer " + std::to_string(yes);
        answered = true;
        if (window) hands.answer_box(yes);
    } else if (Form* form = top_form()) {
        done = do_one(*form);
    }
    if (window) hands.settle();
    const Form* form = top_form();
    seen[place] = done + "\n" + (form ? script::form_text(*form) : "") + "box " + box;
}

bool show_box(const std::string& text, Buttons buttons, bool default_yes) {
    Player& p = *player;
    const std::string outer = p.box;
    p.box = text;
    p.box_asks = buttons == Buttons::yes_no;
    p.answered = p.yes = false;
    bool yes = false;
    if (p.window)
        yes = p.hands.host.message_box(text, buttons, default_yes);
    else {
        while (!p.answered && !process_ended()) p.act();
        yes = p.yes;
    }
    p.box = outer;
    return yes;
}

std::vector<std::string> played(unsigned seed, bool window) {
    test::demonstration().restore();
    Player p;
    player = &p;
    p.random.seed(seed);
    p.window = window;
    p.hands = window ? test::real_hands() : script::bare_hands();
    reset_run();
    host = window ? p.hands.host : ScreenHost{};
    host.message_box = show_box;
    host.sleep = os::sleep_ms;
    host.pick_file = [](std::string_view, const std::vector<std::pair<std::string, std::string>>&) {
        return std::optional<std::string>();
    };
    host.pick_folder = [](std::string_view, std::string_view) { return std::optional<std::string>(); };
    // without pictures a control has no place, and panels stand where the window puts them
    host.placement = nullptr;
    if (window)
        test::real_hands().set_turn([] { player->act(); });
    else {
        host.run_modal = [](Form& form) {
            while (form.visible && !process_ended()) player->act();
        };
        host.pump = [](Pump what) {
            if (what == Pump::all && !process_ended()) player->act();
        };
    }
    os::launcher = [](const os::Launch&) {};
    os::freeze_clock({{2024, 4, 10}, 9, 30, 0});
    os::set_user_name("tanaka");
    os::set_computer_name("SEAT01");
    os::set_previous_instance(false);
    os::set_executable_path(test::demonstration().root() + "/prgbin/KalvaneInvoiceEntry");
    os::set_command_line("");
    起動処理();
    if (window) p.hands.settle();
    while (!process_ended()) {
        if (window)
            wait_turn();
        else
            p.act();
    }
    if (実行環境.主接続中 || 実行環境.設定接続中) 強制終了();
    test::real_hands().set_turn(nullptr);
    if (window) sync_windows();
    host = {};
    os::launcher = nullptr;
    os::release_clock();
    reset_run();
    return p.seen;
}

TEST(BothHosts, ShowTheSameAfterEveryAct) {
    const char* asked = std::getenv("KALVANE_RANDOM_SEQUENCES");
    const char* first = std::getenv("KALVANE_RANDOM_SEED");
    const int sequences = asked ? std::atoi(asked) : 3;
    const unsigned seed = first ? static_cast<unsigned>(std::atoi(first)) : 1;
    for (unsigned n = seed; n < seed + static_cast<unsigned>(sequences); ++n) {
        const std::vector<std::string> models = played(n, false), window = played(n, true);
        for (std::size_t i = 0; i < std::max(models.size(), window.size()); ++i) {
            const std::string model = i < models.size() ? models[i] : "none",
                              real = i < window.size() ? window[i] : "none";
            if (model == real) continue;
            std::string acts;
            for (std::size_t k = i < 8 ? 0 : i - 8; k <= i && k < models.size(); ++k)
                acts += models[k].substr(0, models[k].find('\n')) + "; ";
            ADD_FAILURE() << "seed " << n << ", act " << i << ": " << acts;
            EXPECT_EQ(model, real);
            break;
        }
    }
}

}  // namespace
}  // namespace kalvane

// The wheel over the entry screen, and the wait box.
#include <gtest/gtest.h>

#include "desktop/client_trust.h"
#include "desktop/wait_box.h"
#include "desktop/wheel.h"
#include "platform/screen/host.h"

namespace kalvane {
namespace {

int former_calls = 0;

struct Wheeled : Form {
    Control bar;
    Wheeled() {
        name = "form";
        add_control(*this, bar, ControlKind::scroll, "bar");
        Wheel = [](Form&, int) { ++former_calls; };
    }
};

TEST(ホイール, 行の移動) {
    reset_screen();
    Wheeled form;
    load_form(form);
    show_form(form);
    EXPECT_TRUE(マウスホイール開始(form, form.bar, 2));
    struct {
        const char* name;
        bool enabled;
        int from, low, high, notches, to;
    } const cases[] = {
        {"toward", true, 0, 0, 10, -1, 2},         {"away", true, 6, 0, 10, 1, 4},
        {"three", true, 0, 0, 10, -3, 6},          {"held_at_the_end", true, 9, 0, 10, -1, 10},
        {"at_the_end", true, 10, 0, 10, -1, 10},   {"at_the_start", true, 1, 0, 10, 1, 0},
        {"turned_limits", true, 5, 10, 0, -4, 10}, {"turned_limits_away", true, 1, 10, 0, 1, 0},
        {"disabled", false, 4, 0, 10, -1, 4}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        set_enabled(form.bar, c.enabled);
        set_scroll_range(form.bar, c.low, c.high);
        set_number(form.bar, c.from);
        former_calls = 0;
        turn_wheel(form, c.notches);
        EXPECT_EQ(form.bar.number, c.to);
        EXPECT_EQ(former_calls, std::abs(c.notches));  // the message reaches the form in any case
    }
    set_enabled(form.bar, true);
    set_number(form.bar, 4);
    EXPECT_TRUE(マウスホイール終了());
    former_calls = 0;
    turn_wheel(form, -1);
    EXPECT_EQ(form.bar.number, 4);
    EXPECT_EQ(former_calls, 1);
    EXPECT_TRUE(マウスホイール終了());  // nothing to take off
    reset_screen();
}

TEST(お待ち, 表示と終了) {
    reset_screen();
    Wheeled form;
    load_form(form);
    show_form(form);
    static std::vector<Pump> pumps;
    pumps.clear();
    host = {};
    host.pump = [](Pump what) { pumps.push_back(what); };
    for (int i = 0; i < 2; ++i) {
        お待ち表示();
        EXPECT_EQ(top_form(), &msgお待ち);
        EXPECT_FALSE(msgお待ち.modal);
        EXPECT_EQ(msgお待ち.controls.size(), 1U);
        お待ち終了();
        EXPECT_EQ(top_form(), &form);
    }
    EXPECT_EQ(pumps, std::vector<Pump>(2, Pump::paint));
    host = {};
    reset_screen();
}

TEST(信頼設定, 相手なし) {
    EXPECT_FALSE(Access信頼設定());
}

}  // namespace
}  // namespace kalvane

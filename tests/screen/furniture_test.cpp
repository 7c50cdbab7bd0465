// The wheel over the entry screen, and the wait box.
#include <gtest/gtest.h>

#include "data/wait_box.h"
#include "platform/screen/host.h"
#include "screen/wheel.h"
#include "support/table.h"

namespace kalvane {
namespace {

int former_calls = 0;
std::vector<Pump> pumps;

struct 備品 : testing::Test {
    Form form;
    Control bar;
    void SetUp() override {
        reset_screen();
        host = {};
        add_control(form, bar, ControlKind::scroll, "bar");
        form.Wheel = [](Form&, int) { ++former_calls; };
        show_form(form);
    }
    void TearDown() override {
        host = {};
        reset_screen();
    }
    int turn(int from, int notches) {
        set_number(bar, from);
        former_calls = 0;
        turn_wheel(form, notches);
        EXPECT_EQ(former_calls, std::abs(notches));  // the message reaches the form in any case
        return bar.number;
    }
};

TEST_F(備品, ホイールの行の移動) {
    EXPECT_TRUE(マウスホイール開始(form, bar, 2));
    // the bar's limits and place, the notches, the place then
    for (const auto& r : test::table(R"(0|10|0|-1|2 ; 0|10|6|1|4 ; 0|10|0|-3|6 ; 0|10|9|-1|10 ; 0|10|10|-1|10
        0|10|1|1|0 ; 10|0|5|-4|10 ; 10|0|1|1|0)")) {
        set_scroll_range(bar, std::stoi(r[0]), std::stoi(r[1]));
        EXPECT_EQ(turn(std::stoi(r[2]), std::stoi(r[3])), std::stoi(r[4])) << r[2] << " by " << r[3];
    }
    set_enabled(bar, false);
    EXPECT_EQ(turn(4, -1), 4);
    set_enabled(bar, true);
    EXPECT_TRUE(マウスホイール終了());
    EXPECT_EQ(turn(4, -1), 4);
    EXPECT_TRUE(マウスホイール終了());  // nothing to take off
}

TEST_F(備品, お待ちの表示と終了) {
    pumps.clear();
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
}

}  // namespace
}  // namespace kalvane

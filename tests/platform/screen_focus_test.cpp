#include <gtest/gtest.h>

#include "platform/screen/form.h"
#include "platform/screen/host.h"

namespace kalvane {
namespace {

std::string events;  // "+a" enter of a, "-a" leave, "=a" change, "!a" click

void log_enter(Control& c) {
    events += "+" + c.name + " ";
}
void log_leave(Control& c) {
    events += "-" + c.name + " ";
}
void log_change(Control& c) {
    events += "=" + c.name + " ";
}
void log_click(Control& c) {
    events += "!" + c.name + " ";
}
void log_key(Control& c, int code) {
    events += c.name + std::to_string(code) + " ";
}

// a b c are fields, n a number, m a memo, k a combo, x y check boxes' options, p and q fields on pages,
// ok a button, lab a label.
struct Desk {
    Form form;
    Control a, b, c, n, m, k, chk, o0, o1, strip, p, q, ok, lab, list, bar;

    Desk() {
        reset_screen();
        host = {};
        events.clear();
        form.name = "desk";
        int index = 10;
        const auto add = [&](Control& control, ControlKind kind, const char* name, int row = -1) {
            add_control(form, control, kind, name, row);
            control.tab_index = index++;
            control.GotFocus = log_enter;
            control.LostFocus = log_leave;
            control.Change = log_change;
            control.Click = log_click;
        };
        add(a, ControlKind::xField, "a");
        add(b, ControlKind::xField, "b");
        add(c, ControlKind::xField, "c");
        add(n, ControlKind::xNum, "n");
        add(m, ControlKind::xText, "m");
        add(k, ControlKind::combo, "k");
        add(chk, ControlKind::check, "chk");
        add(o0, ControlKind::option, "o", 0);
        add(o1, ControlKind::option, "o", 1);
        add(strip, ControlKind::SSTab, "strip");
        add(p, ControlKind::xField, "p");
        add(q, ControlKind::xField, "q");
        add(ok, ControlKind::SSCommand, "ok");
        add(lab, ControlKind::label, "lab");
        add(list, ControlKind::ListView, "list");
        add(bar, ControlKind::scroll, "bar");
        n.mode = InputMode::number;
        n.decimals = 2;
        set_entries(k, {"k0", "k1"});
        for (Control* control : {&n, &m, &k, &chk, &o0, &o1, &strip, &ok, &list}) control->tab_stop = false;
        p.page = 0;
        q.page = 1;
        form.tab_strip = &strip;
        show_form(form);
        events.clear();
    }
    ~Desk() { reset_screen(); }
    std::string active() const { return form.active ? form.active->name : ""; }
};

Desk* desk = nullptr;

struct Focus : testing::Test {
    Desk d;
    Focus() { desk = &d; }
};

TEST_F(Focus, ShowingGivesTheFocusToTheFirstStop) {
    EXPECT_EQ(d.active(), "a");
}

TEST_F(Focus, TabWalksTheStopsRoundTheEnd) {
    std::string road;
    for (int i = 0; i < 5; ++i) {
        press_key(d.form, Key::Tab);
        road += d.active();
    }
    EXPECT_EQ(road, "bcpab");
    road.clear();
    for (Key key : {Key::ShiftTab, Key::Up, Key::ShiftTab, Key::Down, Key::Enter}) {
        press_key(d.form, key);
        road += d.active();
    }
    EXPECT_EQ(road, "apcpa");
}

TEST_F(Focus, EqualTabIndexesGoInTheOrderOfMaking) {
    d.b.tab_index = d.c.tab_index = d.a.tab_index;
    std::string road;
    for (Key key : {Key::Tab, Key::Tab, Key::Tab, Key::Tab, Key::ShiftTab, Key::ShiftTab}) {
        press_key(d.form, key);
        road += d.active();
    }
    EXPECT_EQ(road, "bcpapc");
}

TEST_F(Focus, StopsAreFoundByIndex) {
    EXPECT_EQ(next_stop(d.form, d.a.tab_index), &d.a);
    EXPECT_EQ(next_stop(d.form, d.c.tab_index + 1), &d.p);
    EXPECT_EQ(next_stop(d.form, d.p.tab_index + 1), nullptr);  // q stands on the other page
    EXPECT_EQ(previous_stop(d.form, d.p.tab_index - 1), &d.c);
    EXPECT_EQ(previous_stop(d.form, d.a.tab_index - 1), nullptr);
    set_enabled(d.b, false);
    EXPECT_EQ(next_stop(d.form, d.a.tab_index + 1), &d.c);
}

TEST_F(Focus, WhatCannotTakeItIsIgnored) {
    for (Control* c : {&d.lab, &d.bar, &d.q}) set_focus(*c);
    set_visible(d.b, false);
    set_focus(d.b);
    set_enabled(d.c, false);
    set_focus(d.c);
    set_focus(d.a);
    EXPECT_EQ(events, "");
    set_form_enabled(d.form, false);  // code moves the focus of a disabled form
    set_focus(d.p);
    EXPECT_EQ(events, "-a +p ");
}

TEST_F(Focus, ARedirectInsideTheEnterGoesOnTheSameStack) {
    d.b.GotFocus = [](Control& c) {
        log_enter(c);
        set_focus(desk->c);
        events += "back ";
    };
    press_key(d.form, Key::Tab);
    EXPECT_EQ(events, "-a +b -b +c back ");
    EXPECT_EQ(d.active(), "c");
}

TEST_F(Focus, ALeaveThatMovesTheFocusEndsTheMove) {
    d.a.LostFocus = [](Control& c) {
        log_leave(c);
        set_focus(desk->p);
    };
    set_focus(d.b);
    EXPECT_EQ(events, "-a +p ");
    set_focus(d.a);
    events.clear();
    press_key(d.form, Key::Tab);
    EXPECT_EQ(events, "-a +p ");
}

TEST_F(Focus, ALeaveThatDisablesTheTargetKeepsTheFocus) {
    d.a.LostFocus = [](Control& c) {
        log_leave(c);
        set_enabled(desk->b, false);
    };
    set_focus(d.b);
    EXPECT_EQ(d.active(), "a");
    EXPECT_TRUE(d.form.left);
    set_focus(d.c);  // the leave is not run a second time
    EXPECT_EQ(events, "-a +c ");
}

TEST_F(Focus, TheNextStopIsLookedForAfterTheLeave) {
    d.a.LostFocus = [](Control&) { set_enabled(desk->b, false); };
    press_key(d.form, Key::Tab);
    EXPECT_EQ(d.active(), "c");
}

TEST_F(Focus, AFieldIsLeftOncePerStayUnlessItsContentChanges) {
    commit_field(d.form);
    commit_field(d.form);
    EXPECT_EQ(events, "-a ");
    type_text(d.form, "x");
    commit_field(d.form);
    EXPECT_EQ(events, "-a =a -a ");
    set_text(d.a, "picked");  // a pick written by code is looked up on leaving
    set_focus(d.b);
    EXPECT_EQ(events, "-a =a -a =a -a +b ");
}

TEST_F(Focus, WhatALeaveWritesIntoItsOwnFieldIsNoTyping) {
    d.a.LostFocus = [](Control& c) {
        log_leave(c);
        set_text(c, "000" + c.text);
    };
    type_text(d.form, "1");
    commit_field(d.form);
    commit_field(d.form);
    EXPECT_EQ(d.a.text, "0001");
}

TEST_F(Focus, LeavingANumberShowsTheFormattedValue) {
    press_focus(d.n);
    type_text(d.form, "1234.5");
    EXPECT_EQ(shown_text(d.n), "1234.5");
    press_key(d.form, Key::Tab);
    EXPECT_EQ(shown_text(d.n), "1,234.50");
    press_focus(d.n);
    type_character(d.n, "8");
    EXPECT_EQ(shown_text(d.n), "8");  // entering selected the content
}

struct ActionRow {
    const char* name;
    void (*act)(Desk&);
    const char* events;
};
void PrintTo(const ActionRow& r, std::ostream* out) {
    *out << r.name;
}

class Action : public testing::TestWithParam<ActionRow> {};

// Each begins with the focus on a.
TEST_P(Action, RaisesItsEvents) {
    Desk d;
    desk = &d;
    GetParam().act(d);
    EXPECT_EQ(events, GetParam().events);
}

INSTANTIATE_TEST_SUITE_P(
    Operator, Action,
    testing::Values(
        ActionRow{"button", [](Desk& d) { click(d.ok); }, "-a +ok !ok "},
        ActionRow{"button_again", [](Desk& d) { click(d.ok), click(d.ok); }, "-a +ok !ok !ok "},
        ActionRow{"disabled_button", [](Desk& d) { set_enabled(d.ok, false), click(d.ok); }, ""},
        ActionRow{"button_disabled_by_the_leave",
                  [](Desk& d) {
                      d.a.LostFocus = [](Control&) { set_enabled(desk->ok, false); };
                      click(d.ok);
                  },
                  ""},
        ActionRow{"label", [](Desk& d) { click(d.lab); }, "-a !lab "},
        ActionRow{"check", [](Desk& d) { click(d.chk), click(d.chk); }, "-a +chk =chk !chk =chk !chk "},
        ActionRow{"options", [](Desk& d) { click(d.o0), click(d.o1); }, "-a +o =o !o -o +o =o =o !o "},
        ActionRow{"option_chosen", [](Desk& d) { choose(d.o0, 1); }, "-a +o =o !o "},
        ActionRow{"field", [](Desk& d) { click(d.b); }, "-a +b !b "},
        ActionRow{"press_in_the_active_field", [](Desk& d) { press_focus(d.a); }, ""},
        ActionRow{"combo", [](Desk& d) { choose(d.k, 1); }, "-a +k =k "},
        ActionRow{"combo_and_check_that_send_the_focus_away",
                  [](Desk& d) {
                      d.k.GotFocus = d.chk.GotFocus = [](Control&) { set_focus(desk->c); };
                      choose(d.k, 1);
                      click(d.chk);
                  },
                  "-a -k +c -c -chk +c "},
        ActionRow{"page", [](Desk& d) { choose(d.strip, 1); }, "-a =strip "},
        ActionRow{"disabled_strip", [](Desk& d) { set_enabled(d.strip, false), choose(d.strip, 1); }, ""},
        ActionRow{"field_on_a_page_of_a_disabled_strip",
                  [](Desk& d) { set_enabled(d.strip, false), press_focus(d.p); }, "-a +p "},
        ActionRow{"hidden_page", [](Desk& d) { press_focus(d.q); }, ""},
        ActionRow{"scroll", [](Desk& d) { set_scroll_range(d.bar, 0, 5), scroll_to(d.bar, 9); }, "-a =bar "},
        ActionRow{"scroll_where_nothing_scrolls",
                  [](Desk& d) { set_scroll_range(d.bar, 0, -3), scroll_to(d.bar, 9); }, "-a "},
        ActionRow{"wheel",
                  [](Desk& d) {
                      d.form.Wheel = [](Form&, int delta) { events += std::to_string(delta) + " "; };
                      turn_wheel(d.form, -2);
                  },
                  "-a -1 -1 "},
        ActionRow{"arrows_in_a_combo",
                  [](Desk& d) {
                      press_focus(d.k);
                      for (Key key : {Key::Up, Key::Down, Key::Down, Key::Down, Key::Up})
                          press_key(d.form, key);
                  },
                  "-a +k =k =k =k "},
        ActionRow{"enter_on_a_button", [](Desk& d) { press_focus(d.ok), press_key(d.form, Key::Enter); },
                  "-a +ok !ok "},
        ActionRow{"enter_with_a_handler",
                  [](Desk& d) { d.a.KeyDown = log_key, press_key(d.form, Key::Enter); }, "a13 -a +b "},
        ActionRow{"enter_on_a_list",
                  [](Desk& d) {
                      d.list.KeyDown = log_key;
                      press_focus(d.list);
                      press_key(d.form, Key::Enter);
                  },
                  "-a +list list13 "},
        ActionRow{"ctrl", [](Desk& d) { d.a.KeyDown = log_key, press_key(d.form, Key::Ctrl); }, "a17 "},
        ActionRow{"escape_goes_to_the_cancel_button",
                  [](Desk& d) {
                      d.form.cancel = &d.ok;
                      press_key(d.form, Key::Escape);
                  },
                  "-a +ok !ok "},
        ActionRow{"space_on_a_check_box", [](Desk& d) { press_focus(d.chk), press_key(d.form, Key::Space); },
                  "-a +chk =chk !chk "},
        ActionRow{"function_key",
                  [](Desk& d) {
                      d.ok.function_key = 12;
                      press_key(d.form, Key::F11);
                      press_key(d.form, Key::F12);
                  },
                  "-a +ok !ok "},
        ActionRow{"keys_into_a_disabled_field",
                  [](Desk& d) {
                      set_enabled(d.a, false);
                      type_text(d.form, "x");  // hands the focus on
                      press_key(d.form, Key::Tab);
                  },
                  "-a +b -b +c "},
        ActionRow{"double_click",
                  [](Desk& d) {
                      d.b.DropDown = [](Control&) { events += "list "; };
                      double_click(d.b);
                  },
                  "-a +b list "},
        ActionRow{"double_click_on_a_field_that_sends_the_focus_away",
                  [](Desk& d) {
                      d.b.GotFocus = [](Control&) { set_focus(desk->c); };
                      d.b.DropDown = [](Control&) { events += "list "; };
                      double_click(d.b);
                  },
                  "-a -b +c "},
        ActionRow{"disabled_form",
                  [](Desk& d) {
                      set_form_enabled(d.form, false);
                      press_key(d.form, Key::Tab);
                      click(d.ok);
                      type_text(d.form, "x");
                      turn_wheel(d.form, 1);
                  },
                  ""},
        ActionRow{"form_below_another",
                  [](Desk& d) {
                      Form other;
                      show_form(other);
                      press_key(d.form, Key::Tab);
                      click(d.ok);
                      unload_form(other);
                  },
                  ""}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(Focus, EnterInAMemoIsALineBreak) {
    press_focus(d.m);
    type_text(d.form, "ab");
    press_key(d.form, Key::Enter);
    type_character(d.m, "c");
    press_key(d.form, Key::Up);
    EXPECT_EQ(d.m.text, "ab\nc");
    EXPECT_EQ(d.active(), "m");
    press_key(d.form, Key::Tab);
    EXPECT_EQ(d.active(), "p");
}

TEST_F(Focus, AListOpenedFromACommittedFieldGetsItsLeaveAgain) {
    d.a.DropDown = [](Control& c) { set_text(c, "12"); };
    commit_field(d.form);
    drop_down(d.form);
    set_focus(d.b);
    EXPECT_EQ(events, "-a =a -a +b ");
}

}  // namespace
}  // namespace kalvane

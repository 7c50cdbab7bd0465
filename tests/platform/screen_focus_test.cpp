// Leaves, enters and the tab order.
#include <gtest/gtest.h>

#include <map>
#include <sstream>

#include "platform/screen/form.h"
#include "platform/screen/host.h"

namespace kalvane {
namespace {

std::string events;  // "+a" enter of a, "-a" leave, "=a" change, "!a" click

// a b c are fields, n a number, m a memo, k a combo, chk a check box, o0 o1 options, p and q fields on pages,
// ok a button, lab a label.
struct Desk {
    Form form;
    std::map<std::string, Control> all;
    Control &a = all["a"], &b = all["b"], &c = all["c"], &n = all["n"], &m = all["m"], &k = all["k"],
            &chk = all["chk"], &p = all["p"], &ok = all["ok"], &list = all["list"];

    Desk() {
        reset_screen();
        host = {};
        form.name = "desk";
        const std::pair<ControlKind, const char*> kinds[] = {
            {ControlKind::xField, "a b c p q"}, {ControlKind::xNum, "n"},
            {ControlKind::xText, "m"},          {ControlKind::combo, "k"},
            {ControlKind::check, "chk"},        {ControlKind::option, "o0 o1"},
            {ControlKind::SSTab, "strip"},      {ControlKind::SSCommand, "ok"},
            {ControlKind::label, "lab"},        {ControlKind::ListView, "list"},
            {ControlKind::scroll, "bar"}};
        for (const auto& [kind, names] : kinds) {
            std::istringstream in(names);
            for (std::string name; in >> name;) add(all[name], kind, name);
        }
        n.mode = InputMode::number;
        n.decimals = 2;
        set_entries(k, {"k0", "k1"});
        p.page = 0;
        all["q"].page = 1;
        form.tab_strip = &all["strip"];
        show_form(form);
        events.clear();
    }
    ~Desk() { reset_screen(); }

    void add(Control& control, ControlKind kind, const std::string& name) {
        const bool option = kind == ControlKind::option;
        add_control(form, control, kind, option ? "o" : name, option ? name[1] - '0' : -1);
        control.tab_index = static_cast<int>(form.controls.size()) + 9;
        control.tab_stop = kind == ControlKind::xField;
        control.GotFocus = [](Control& at) { events += "+" + at.name + " "; };
        control.LostFocus = [](Control& at) { events += "-" + at.name + " "; };
        control.Change = [](Control& at) { events += "=" + at.name + " "; };
        control.Click = [](Control& at) { events += "!" + at.name + " "; };
    }

    // "verb:control" or "verb:control,argument", parted by blanks.
    void act(const std::string& script) {
        static const std::map<std::string, Key> keys{{"Tab", Key::Tab},       {"ShiftTab", Key::ShiftTab},
                                                     {"Up", Key::Up},         {"Down", Key::Down},
                                                     {"Enter", Key::Enter},   {"Ctrl", Key::Ctrl},
                                                     {"Escape", Key::Escape}, {"Space", Key::Space},
                                                     {"F11", Key::F11},       {"F12", Key::F12}};
        std::istringstream in(script);
        for (std::string word; in >> word;) {
            const std::size_t colon = word.find(':'), comma = std::min(word.find(','), word.size());
            const std::string verb = word.substr(0, colon), name = word.substr(colon + 1, comma - colon - 1);
            const int number = comma == word.size() ? 0 : std::stoi(word.substr(comma + 1));
            if (verb == "key")
                press_key(form, keys.at(name));
            else if (verb == "type")
                type_text(form, name);
            else if (verb == "commit")
                commit_field(form);
            else if (verb == "wheel")
                turn_wheel(form, std::stoi(name));
            else if (verb == "form")
                set_form_enabled(form, name == "on");
            else {
                Control& control = all.at(name);
                if (verb == "click") click(control);
                if (verb == "double") double_click(control);
                if (verb == "press") press_focus(control);
                if (verb == "focus") set_focus(control);
                if (verb == "choose") choose(control, number);
                if (verb == "range") set_scroll_range(control, 0, number);
                if (verb == "scroll") scroll_to(control, number);
                if (verb == "off") set_enabled(control, false);
                if (verb == "hide") set_visible(control, false);
            }
        }
    }
};

Desk* desk = nullptr;
Form another;

void to_c(Control&) {
    set_focus(desk->c);
}
void log_key(Control& c, int code) {
    events += c.name + std::to_string(code) + " ";
}
void log_list(Control&) {
    events += "list ";
}

struct Row {
    const char* script;  // begins with the focus on a
    const char* events;
    void (*prepare)(Desk&) = nullptr;
};
const Row rows[] = {
    // Tab and the arrows walk the stops round the end, those of one index in the order of making
    {"key:Tab key:Tab key:Tab key:Tab key:Tab", "-a +b -b +c -c +p -p +a -a +b "},
    {"key:ShiftTab key:Up key:Down key:Enter", "-a +p -p +c -c +p -p +a "},
    {"key:Tab key:Tab key:Tab key:ShiftTab", "-a +b -b +c -c +p -p +c ",
     [](Desk& d) { d.b.tab_index = d.c.tab_index = d.a.tab_index; }},
    // what cannot take the focus is ignored; code moves that of a disabled form
    {"focus:lab focus:bar focus:q hide:b focus:b off:c focus:c focus:a", ""},
    {"form:off focus:p", "-a +p "},
    // a redirect inside an enter goes on the same stack, and one inside a leave ends the move
    {"key:Tab", "-a -b +c back ",
     [](Desk& d) { d.b.GotFocus = [](Control& c) { to_c(c), events += "back "; }; }},
    {"focus:b", "-p +c ",
     [](Desk& d) {
         d.act("focus:p"), events.clear(), d.p.LostFocus = [](Control& c) { events += "-p ", to_c(c); };
     }},
    {"key:Tab", "+c ", [](Desk& d) { d.a.LostFocus = to_c; }},
    // a leave that disables the target keeps the focus, and is not run a second time; Tab looks for the next
    {"focus:b focus:c", "off +c ",
     [](Desk& d) { d.a.LostFocus = [](Control&) { events += "off ", set_enabled(desk->b, false); }; }},
    {"key:Tab", "+c ", [](Desk& d) { d.a.LostFocus = [](Control&) { set_enabled(desk->b, false); }; }},
    // a field is left once per stay, unless its content changes, by a key or by code
    {"commit: commit: type:x commit: commit:", "-a =a -a "},
    {"commit: key:Tab", "-a =a +b ",
     [](Desk& d) { d.a.LostFocus = [](Control& c) { events += "-a ", set_text(c, "000"); }; }},
    {"click:ok click:ok", "-a +ok !ok !ok "},
    // a button is looked at behind the leave, which may wake it or put it to sleep
    {"off:ok click:ok key:F12", "-a ", [](Desk& d) { d.ok.function_key = 12; }},
    {"off:ok click:ok", "+ok !ok ",
     [](Desk& d) { d.a.LostFocus = [](Control&) { set_enabled(desk->ok, true); }; }},
    {"click:ok", "", [](Desk& d) { d.a.LostFocus = [](Control&) { set_enabled(desk->ok, false); }; }},
    {"click:lab", "-a !lab "},
    {"click:lab", "", [](Desk& d) { d.all["lab"].Click = nullptr; }},
    {"click:chk click:chk", "-a +chk =chk !chk =chk !chk "},
    {"click:o0 click:o1", "-a +o =o !o -o +o =o =o !o "},
    {"choose:o0,1", "-a +o =o !o "},
    {"press:a click:b", "-a +b !b "},
    {"choose:k,1", "-a +k =k "},
    {"choose:k,1 click:chk", "-a -k +c -c -chk +c ", [](Desk& d) { d.k.GotFocus = d.chk.GotFocus = to_c; }},
    {"choose:strip,1", "-a =strip "},
    {"off:strip choose:strip,1 press:p press:q", "-a +p "},
    {"range:bar,5 scroll:bar,9", "-a =bar "},
    {"range:bar,-3 scroll:bar,9", "-a "},
    {"wheel:-2 wheel:0", "-a -1 ",
     [](Desk& d) { d.form.Wheel = [](Form&, int n) { events += std::to_string(n) + " "; }; }},
    {"press:k key:Up key:Down key:Down key:Down key:Up", "-a +k =k =k =k "},
    {"press:ok key:Enter", "-a +ok !ok "},
    {"key:Enter", "a13 -a +b ", [](Desk& d) { d.a.KeyDown = log_key; }},
    {"press:list key:Enter", "-a +list list13 ", [](Desk& d) { d.list.KeyDown = log_key; }},
    {"key:Ctrl", "a17 ", [](Desk& d) { d.a.KeyDown = log_key; }},
    {"key:Escape", "-a +ok !ok ", [](Desk& d) { d.form.cancel = &d.ok; }},
    {"press:chk key:Space", "-a +chk =chk !chk "},
    {"key:F11 key:F12", "-a +ok !ok ", [](Desk& d) { d.ok.function_key = 12; }},
    // a disabled field hands the focus on
    {"off:a type:x key:Tab", "-a +b -b +c "},
    {"double:b", "-a +b list ", [](Desk& d) { d.b.DropDown = log_list; }},
    {"double:b", "-a -b +c ", [](Desk& d) { d.b.DropDown = log_list, d.b.GotFocus = to_c; }},
    {"form:off key:Tab click:ok type:x wheel:1", ""},
    {"key:Tab click:ok", "", [](Desk&) { show_form(another); }}};

TEST(Focus, Events) {
    for (const Row& r : rows) {
        Desk d;
        desk = &d;
        if (r.prepare) r.prepare(d);
        d.act(r.script);
        EXPECT_EQ(events, r.events) << r.script;
    }
}

TEST(Focus, TextsOnLeaving) {
    Desk d;
    // Enter in a memo is a line break, Tab leaves it
    d.act("press:m type:ab key:Enter");
    type_character(d.m, "c");
    d.act("key:Up");
    EXPECT_EQ(d.m.text, "ab\nc");
    EXPECT_EQ(d.form.active, &d.m);
    d.act("key:Tab");
    EXPECT_EQ(d.form.active, &d.a);
    // a pick written by code into a committed field is looked up on leaving
    d.a.DropDown = [](Control& c) { set_text(c, "12"); };
    d.act("focus:a commit:");
    events.clear();
    drop_down(d.form);
    d.act("focus:b");
    EXPECT_EQ(events, "=a -a +b ");
}

}  // namespace
}  // namespace kalvane

// What follows "expect": one row a subject; anything else names a control.
#include <array>
#include <string_view>

#include "base/text.h"
#include "operator/run.h"
#include "operator/values.h"
#include "platform/screen/form.h"

namespace kalvane::script {
namespace {

void compare(Run& run, const std::string& expected, const std::string& found) {
    expectation(run, unix_lines(expected) == unix_lines(found), expected, found);
}

Control& known_list(const std::string& label) {
    Control* c = control_of(label);
    if (!c || c->kind != ControlKind::ListView) throw WrongLine("no list is named " + label);
    return *c;
}

void expect_focus(Run& run, const Words& w) {
    const Control* expected = control_of(w[1]);
    if (!expected) throw WrongLine("no control is named " + w[1]);
    const Form* form = top_form();
    const Control* active = form ? form->active : nullptr;
    expectation(run, active == expected, "focus " + w[1], active ? "focus " + label_of(*active) : "no focus");
}

void expect_box(Run& run, const Words& w) {
    const bool open = run.waiting && run.waiting->kind != Waiting::Kind::dialog;
    const std::string found = open ? run.waiting->text : "none";
    expectation(run, open == (w[1] != "none") && unix_lines(found) == unix_lines(w[1]), "box " + w[1],
                "box " + found);
}

void expect_window(Run& run, const Words& w) {
    std::string found = "none";
    if (run.waiting)
        found = run.waiting->kind == Waiting::Kind::dialog ? "dialog" : "box";
    else if (const Form* form = top_form())
        found = form->name;
    expectation(run, found == w[1], "window " + w[1], "window " + found);
}

void expect_rows(Run& run, const Words& w) {
    compare(run, std::to_string(whole_number(w[2])), std::to_string(known_list(w[1]).items.size()));
}

void expect_cell(Run& run, const Words& w) {
    const Control& list = known_list(w[1]);
    const int row = whole_number(w[2]), column = whole_number(w[3]);
    if (row < 0 || row >= static_cast<int>(list.items.size()))
        return expectation(run, false, w[4], "no row " + w[2]);
    compare(run, w[4], list_cell(list, row, column));
}

void expect_selected(Run& run, const Words& w) {
    compare(run, std::to_string(whole_number(w[2])), std::to_string(known_list(w[1]).selected));
}

void expect_ended(Run& run, const Words&) {
    expectation(run, process_ended(), "the program ended", "it running");
}

std::string launch_text(const os::Launch& launch) {
    return "launched " + launch.program + " \"" + launch.argument + "\"";
}

// "launched none", "launched PROGRAM TEXT", "launched[K] PROGRAM TEXT"
void expect_launched(Run& run, const Words& w) {
    const auto count = static_cast<int>(run.launched.size());
    int back = 0;
    if (w[0] != "launched") back = whole_number(w[0].substr(9, w[0].size() - 10));
    if (back < 0) throw WrongLine("launches count from 0");
    const os::Launch* launch =
        back < count ? &run.launched[static_cast<std::size_t>(count - 1 - back)] : nullptr;
    const std::string found = launch ? launch_text(*launch) : "launched none";
    if (w.size() == 2) {
        if (w[1] != "none") throw WrongLine("expect launched PROGRAM TEXT, or none");
        return expectation(run, !launch, "launched none", found);
    }
    const os::Launch expected{w[1], "", w[2], os::WindowMode::normal};
    expectation(run, launch && launch->program == w[1] && unix_lines(launch->argument) == unix_lines(w[2]),
                launch_text(expected), found);
}

// "CONTROL TEXT", "CONTROL.Property TEXT"
void expect_property(Run& run, const Words& w) {
    if (w.size() != 2) throw WrongLine("expect CONTROL TEXT");
    const std::size_t point = w[0].rfind('.');
    const std::string label = w[0].substr(0, point);
    const Control* c = control_of(label);
    if (!c) throw WrongLine("no control is named " + label);
    const std::string property =
        point == std::string::npos ? std::string(default_property(*c)) : w[0].substr(point + 1);
    const std::optional<std::string> found = property_text(*c, property);
    if (!found) throw WrongLine(label + " has no property " + property);
    expectation(run, unix_lines(*found) == unix_lines(w[1]), w[0] + " " + w[1], *found);
}

struct Subject {
    std::string_view name;
    std::size_t least, most;  // words behind the name
    void (*expect)(Run&, const Words&);
};

constexpr std::array subjects{
    Subject{"focus", 1, 1, expect_focus},   Subject{"box", 1, 1, expect_box},
    Subject{"window", 1, 1, expect_window}, Subject{"rows", 2, 2, expect_rows},
    Subject{"cell", 4, 4, expect_cell},     Subject{"selected", 2, 2, expect_selected},
    Subject{"ended", 0, 0, expect_ended},   Subject{"launched", 1, 2, expect_launched},
};

}  // namespace

void carry_out_expect(Run& run, const Words& words) {
    const std::string name =
        words[0].starts_with("launched[") && words[0].ends_with("]") ? "launched" : words[0];
    for (const Subject& s : subjects) {
        if (s.name != name) continue;
        if (words.size() - 1 < s.least || words.size() - 1 > s.most)
            throw WrongLine("expect " + words[0] + " with " + std::to_string(words.size() - 1) + " words");
        return s.expect(run, words);
    }
    expect_property(run, words);
}

}  // namespace kalvane::script

// The commands of a script, one row a verb. How to add one: a row in the table with the number of words that
// it takes, and a function below it; then a line in the operator's manual.
#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <ostream>

#include "base/text.h"
#include "operator/databases.h"
#include "operator/run.h"
#include "operator/values.h"
#include "platform/ado/ado.h"
#include "platform/os/clock.h"
#include "platform/screen/form.h"

namespace kalvane::script {
namespace {

// --- what the words name

Form& form_on_top() {
    if (Form* form = top_form()) return *form;
    throw WrongLine("no window is open");
}

// An operator's action meets the window on top; while a message box waits, only its answer is possible.
Form& form_for_input(const Run& run) {
    if (run.waiting) throw WrongLine("a box waits for its answer: " + on_one_line(run.waiting->text));
    return form_on_top();
}

Control& known_control(const std::string& label) {
    if (Control* c = control_of(label)) return *c;
    throw WrongLine("no control is named " + label);
}

Control& control_for_input(const Run& run, const std::string& label) {
    Form& top = form_for_input(run);
    Control& c = known_control(label);
    if (top.modal && c.form != &top) throw WrongLine(label + " lies below the window " + top.name);
    if (!on_show(c)) throw WrongLine(label + " is not on show");
    return c;
}

Control& list_named(const std::string& label) {
    Control& c = known_control(label);
    if (c.kind != ControlKind::ListView) throw WrongLine(label + " is no list");
    return c;
}

Control& active_control(const Run& run) {
    Form& form = form_for_input(run);
    if (!form.active) throw WrongLine("no control has the focus");
    return *form.active;
}

struct NamedKey {
    std::string_view name;
    Key key;
};
constexpr std::array keys{
    NamedKey{"Enter", Key::Enter}, NamedKey{"Tab", Key::Tab},     NamedKey{"Shift+Tab", Key::ShiftTab},
    NamedKey{"Up", Key::Up},       NamedKey{"Down", Key::Down},   NamedKey{"Escape", Key::Escape},
    NamedKey{"Ctrl", Key::Ctrl},   NamedKey{"Space", Key::Space}, NamedKey{"Delete", Key::Delete},
    NamedKey{"F1", Key::F1},       NamedKey{"F2", Key::F2},       NamedKey{"F3", Key::F3},
    NamedKey{"F4", Key::F4},       NamedKey{"F5", Key::F5},       NamedKey{"F6", Key::F6},
    NamedKey{"F7", Key::F7},       NamedKey{"F8", Key::F8},       NamedKey{"F9", Key::F9},
    NamedKey{"F10", Key::F10},     NamedKey{"F11", Key::F11},     NamedKey{"F12", Key::F12},
};

Database database_named(const std::string& word) {
    if (word == "main") return Database::main;
    if (word == "config") return Database::config;
    throw WrongLine("the databases are main and config, not " + word);
}

std::string program_name(std::string name) {
    if (name.size() > 4 && equal_fold(std::string_view(name).substr(name.size() - 4), ".exe"))
        name.resize(name.size() - 4);
    return name;
}

void type_into_active(const Run& run, const std::string& text) {
    active_control(run);
    if (!text.empty()) run.hands.type_text(form_on_top(), text);
}

// --- the commands; w[0] is the verb

void today(Run&, const Words& w) {
    DateTime t;
    if (!parse_date(w[1], w.size() > 2 ? w[2] : "", t)) throw WrongLine("no date and time");
    os::freeze_clock(t);
}

void advance(Run&, const Words& w) {
    const int seconds = whole_number(w[1]);
    if (!os::clock_frozen()) os::freeze_clock(os::now());
    os::advance_clock(seconds * 1000LL);
}

void user(Run&, const Words& w) {
    os::set_user_name(w[1]);
}

void computer(Run&, const Words& w) {
    os::set_computer_name(w[1]);
}

void previous_instance(Run&, const Words& w) {
    if (w[1] != "yes" && w[1] != "no") throw WrongLine("previous-instance is yes or no");
    os::set_previous_instance(w[1] == "yes");
}

void launch(Run& run, const Words& w) {
    if (w[1] != "record" && w[1] != "real") throw WrongLine("launch is record or real");
    run.launch_real = w[1] == "real";
}

void missing(Run& run, const Words& w) {
    run.missing.push_back(program_name(w[1]));
}

void start(Run& run, const Words&) {
    if (run.started) throw WrongLine("the program has been started");
    run_entry(run);
}

void print(Run& run, const Words& w) {
    *run.out << w[1] << "\n";
}

void focus(Run& run, const Words& w) {
    Control& c = control_for_input(run, w[1]);
    if (!can_take_focus(c)) throw WrongLine(w[1] + " cannot take the focus");
    run.hands.press_focus(c);
}

void type(Run& run, const Words& w) {
    type_into_active(run, w[1]);
}

void paste(Run& run, const Words& w) {
    active_control(run);
    run.hands.paste_into(form_on_top(), w[1]);
}

void key(Run& run, const Words& w) {
    const auto known =
        std::find_if(keys.begin(), keys.end(), [&w](const NamedKey& k) { return k.name == w[1]; });
    if (known == keys.end()) throw WrongLine("no key is named " + w[1]);
    run.hands.press_key(form_for_input(run), known->key);
}

void enter(Run& run, const Words& w) {
    for (std::size_t i = 1; i < w.size() && !process_ended(); ++i) {
        type_into_active(run, w[i]);
        run.hands.press_key(form_for_input(run), Key::Enter);
    }
}

void click_control(Run& run, const Words& w) {
    run.hands.click(control_for_input(run, w[1]));
}

void double_click_control(Run& run, const Words& w) {
    run.hands.double_click(control_for_input(run, w[1]));
}

void dropdown(Run& run, const Words&) {
    active_control(run);
    run.hands.drop_down(form_on_top());
}

void choose_entry(Run& run, const Words& w) {
    Control& c = control_for_input(run, w[1]);
    const int entry = whole_number(w[2]);
    const bool combo = c.kind == ControlKind::combo, strip = c.kind == ControlKind::SSTab;
    if (!combo && !strip) throw WrongLine(w[1] + " is neither a combo nor a tab strip");
    const auto count = static_cast<int>(c.entries.size());
    if (entry < 0 || (entry >= count && (combo || count > 0)))
        throw WrongLine(w[1] + " has no entry " + w[2]);
    run.hands.choose(c, entry);
}

void select_row(Run& run, const Words& w) {
    Control& list = control_for_input(run, w[1]);
    const int row = whole_number(w[2]);
    if (row < 0 || row >= static_cast<int>(list_named(w[1]).items.size()))
        throw WrongLine(w[1] + " has no row " + w[2]);
    run.hands.select_item(list, row);
}

void wheel(Run& run, const Words& w) {
    const int notches = whole_number(w[1]), one = notches < 0 ? -1 : 1;  // each notch is an event
    for (int turned = 0; turned != notches; turned += one) run.hands.turn_wheel(form_for_input(run), one);
}

void scroll(Run& run, const Words& w) {
    Form& form = form_for_input(run);
    const auto bar = std::find_if(form.controls.begin(), form.controls.end(), [](const Control* c) {
        return c->kind == ControlKind::scroll && on_show(*c);
    });
    if (bar == form.controls.end()) throw WrongLine("the window has no scroll bar");
    run.hands.scroll_to(**bar, whole_number(w[1]));
}

void press_box_button(const Hands& hands, Waiting& box, const std::string& button) {
    const bool ok = box.kind == Waiting::Kind::ok && button == "OK";
    const bool yes = box.kind == Waiting::Kind::yes_no && button == "はい";
    const bool no = box.kind == Waiting::Kind::yes_no && button == "いいえ";
    if (!ok && !yes && !no) throw WrongLine("the box has no button " + button + ": " + on_one_line(box.text));
    if (hands.answer_box) hands.answer_box(!no);
    box.yes = !no;
    box.answered = true;
}

// "answer BUTTON"; of a dialog "answer pick PATH", "answer cancel", or these without the first word.
void answer(Run& run, const Words& w) {
    const std::size_t first = w[0] == "answer" ? 1 : 0;
    if (!run.waiting) throw WrongLine("no box is open");
    if (run.waiting->kind != Waiting::Kind::dialog) {
        if (w.size() != 2 || first == 0) throw WrongLine("a message box is open, no dialog");
        return press_box_button(run.hands, *run.waiting, w[1]);
    }
    if (w[first] == "pick" && w.size() == first + 2)
        run.waiting->path = w[first + 1];
    else if (w[first] != "cancel" || w.size() != first + 1)
        throw WrongLine("a dialog is answered with pick PATH or cancel");
    run.waiting->answered = true;
}

void close(Run& run, const Words&) {
    if (!run.waiting) {
        run.hands.close_form(form_on_top());
        return;
    }
    if (run.waiting->kind == Waiting::Kind::yes_no) throw WrongLine("the box can only be answered");
    if (run.waiting->kind == Waiting::Kind::ok && run.hands.close_box) run.hands.close_box();
    run.waiting->answered = run.waiting->yes = true;
}

void terminate(Run&, const Words&) {
    end_process();
}

void reply(Run&, const Words& w) {
    if (!reply_to_request(program_name(w[1]), w[2])) throw WrongLine("no request waits for " + w[1]);
}

void exec(Run&, const Words& w) {
    execute_sql(database_named(w[1]), w[2]);
}

void sql(Run& run, const Words& w) {
    const std::string rows = query_sql(database_named(w[1]), w[2]);
    if (!rows.empty()) *run.out << rows << "\n";
}

void expect(Run& run, const Words& w) {
    carry_out_expect(run, Words(w.begin() + 1, w.end()));
}

void expect_sql(Run& run, const Words& w) {
    const Database database = database_named(w[1]);
    std::string found;
    try {
        found = query_sql(database, w[2]);
    } catch (const ado::Error& e) {
        return expectation(run, false, w[3], std::string("the failure ") + e.what());
    }
    expectation(run, unix_lines(found) == unix_lines(w[3]), w[3], found);
}

void show(Run& run, const Words&) {
    if (run.waiting) {
        *run.out << "box " << on_one_line(run.waiting->text) << "\n";
        return;
    }
    *run.out << form_text(form_on_top());
}

void not_available(Run&, const Words& w) {
    throw WrongLine(w[0] + " is not available here");
}

void screenshot(Run& run, const Words& w) {
    if (!run.hands.screenshot) return not_available(run, w);
    if (!run.hands.screenshot(w[1])) throw WrongLine("the picture cannot be written: " + w[1]);
}

enum class When { before_start, running, also_after_end };

struct Command {
    std::string_view verb;
    std::size_t least, most;  // words behind the verb
    When when;
    void (*run)(Run&, const Words&);
};

constexpr std::size_t any = std::numeric_limits<std::size_t>::max();

constexpr std::array commands{
    Command{"today", 1, 2, When::before_start, today},
    Command{"advance", 1, 1, When::before_start, advance},
    Command{"user", 1, 1, When::before_start, user},
    Command{"computer", 1, 1, When::before_start, computer},
    Command{"previous-instance", 1, 1, When::before_start, previous_instance},
    Command{"launch", 1, 1, When::before_start, launch},
    Command{"missing", 1, 1, When::before_start, missing},
    Command{"start", 0, 0, When::before_start, start},
    Command{"print", 1, 1, When::before_start, print},
    Command{"focus", 1, 1, When::running, focus},
    Command{"type", 1, 1, When::running, type},
    Command{"paste", 1, 1, When::running, paste},
    Command{"key", 1, 1, When::running, key},
    Command{"enter", 1, any, When::running, enter},
    Command{"click", 1, 1, When::running, click_control},
    Command{"dblclick", 1, 1, When::running, double_click_control},
    Command{"dropdown", 0, 0, When::running, dropdown},
    Command{"choose", 2, 2, When::running, choose_entry},
    Command{"select", 2, 2, When::running, select_row},
    Command{"header", 2, 2, When::running, not_available},
    Command{"wheel", 1, 1, When::running, wheel},
    Command{"scroll", 1, 1, When::running, scroll},
    Command{"answer", 1, 2, When::running, answer},
    Command{"pick", 1, 1, When::running, answer},
    Command{"cancel", 0, 0, When::running, answer},
    Command{"close", 0, 0, When::running, close},
    Command{"terminate", 0, 0, When::running, terminate},
    Command{"reply", 2, 2, When::running, reply},
    Command{"exec", 2, 2, When::also_after_end, exec},
    Command{"expect", 1, 5, When::also_after_end, expect},
    Command{"sql", 2, 2, When::also_after_end, sql},
    Command{"expect-sql", 3, 3, When::also_after_end, expect_sql},
    Command{"show", 0, 0, When::running, show},
    Command{"screenshot", 1, 1, When::running, screenshot},
};

const Command* command_named(std::string_view verb) {
    for (const Command& c : commands)
        if (c.verb == verb) return &c;
    return nullptr;
}

}  // namespace

void check_command(const Line& line) {
    const Command* command = command_named(line.words[0]);
    if (!command) throw ScriptError(place(line) + ": no command is named " + line.words[0]);
    const std::size_t words = line.words.size() - 1;
    if (words < command->least || words > command->most)
        throw ScriptError(place(line) + ": " + line.words[0] + " with " + std::to_string(words) + " words");
}

bool runs_before_start(const Line& line) {
    return command_named(line.words[0])->when == When::before_start;
}

bool runs_after_end(const Line& line) {
    return command_named(line.words[0])->when != When::running;
}

void carry_out(Run& run, const Line& line) {
    command_named(line.words[0])->run(run, line.words);
}

int whole_number(const std::string& word) {
    int number = 0;
    const auto [end, failure] = std::from_chars(word.data(), word.data() + word.size(), number);
    if (failure != std::errc() || end != word.data() + word.size()) throw WrongLine(word + " is no number");
    return number;
}

}  // namespace kalvane::script

// Carries a script out, line by line.
#include "operator/run.h"

#include <algorithm>
#include <exception>
#include <ostream>
#include <sstream>

#include "operator/operator.h"
#include "operator/values.h"
#include "platform/ado/ado.h"
#include "platform/os/clock.h"
#include "platform/os/paths.h"
#include "platform/screen/form.h"

namespace kalvane {
namespace script {
namespace {

// From here on no line is taken, and every loop of the program leaves.
void stop(Run& run, int status) {
    run.status = std::max(run.status, status);
    run.stopped = true;
    end_process();
}

void wrong(Run& run, const Line& line, const std::string& text) {
    *run.err << place(line) << ": " << text << std::endl;
    stop(run, script_wrong);
}

void finish(Run& run) {
    if (!run.started || run.finished) return;
    run.finished = true;
    end_process();
    if (run.program->finish) run.program->finish();
}

// What the program left undone at its own failure is not the script's to put right.
void guarded(Run& run, void (*what)(Run&)) {
    try {
        what(run);
    } catch (const std::exception& e) {
        *run.err << "the program failed: " << e.what() << std::endl;
        stop(run, program_failed);
    }
}

void run_to_the_end(Run& run) {
    while (take_line(run)) {
        if (process_ended()) guarded(run, finish);
    }
    guarded(run, finish);
    if (run.hands.settle) run.hands.settle();
    run.out->flush();
}

}  // namespace

bool take_line(Run& run) {
    if (run.stopped || run.next >= run.lines.size()) return false;
    const Line& line = run.lines[run.next];
    if (!run.started && !run.scripted_start && !runs_before_start(line)) {
        run_entry(run);  // its loops may take this very line
        return true;
    }
    ++run.next;
    run.line = &line;
    try {
        if (process_ended() && !runs_after_end(line)) throw WrongLine("the program has ended");
        carry_out(run, line);
        if (run.hands.settle) run.hands.settle();
    } catch (const WrongLine& e) {
        wrong(run, line, e.what());
    } catch (const ado::Error& e) {
        wrong(run, line, e.what());
    }
    run.out->flush();
    return !run.stopped;
}

void out_of_lines(Run& run, bool box) {
    if (box && !run.stopped) *run.err << "the script ended while the program waited" << std::endl;
    if (box && !run.stopped) run.status = program_failed;
    run.stopped = true;
    end_process();
}

void run_entry(Run& run) {
    run.started = true;
    guarded(run, [](Run& r) {
        if (r.program->entry) r.program->entry();
    });
}

void expectation(Run& run, bool held, const std::string& what, const std::string& found) {
    if (held) return;
    *run.out << place(*run.line) << ": expected " << on_one_line(what) << ", found " << on_one_line(found)
             << "\n";
    run.status = std::max<int>(run.status, expectation_failed);
}

}  // namespace script

int run_script(const ScriptRun& source, std::ostream& out, std::ostream& err) {
    using namespace script;
    Run run;
    run.program = source.program;
    run.hands = source.hands ? *source.hands : bare_hands();
    run.out = &out;
    run.err = &err;
    try {
        run.lines = parse_script(source.text, source.file);
        for (const Line& line : run.lines) check_command(line);
    } catch (const ScriptError& e) {
        err << e.what() << std::endl;
        return script_wrong;
    }
    run.scripted_start =
        std::any_of(run.lines.begin(), run.lines.end(), [](const Line& l) { return l.words[0] == "start"; });

    os::set_executable_path(source.program_path);
    os::set_command_line(source.command_line);
    os::set_previous_instance(false);
    os::release_clock();
    reset_screen();
    if (run.program->reset) run.program->reset();
    running = &run;
    install_host();
    run_to_the_end(run);
    remove_host();
    running = nullptr;
    os::release_clock();
    return run.status;
}

ScriptResult run_operator_script(const std::string& text, const std::string& root_native,
                                 const std::string& command_line) {
    ScriptRun run;
    run.text = text;
    run.file = "script";
    run.program_path = root_native + "/prgbin/KalvaneInvoiceEntry";
    run.command_line = command_line;
    std::ostringstream out, err;
    ScriptResult result;
    result.status = run_script(run, out, err);
    result.out = out.str();
    result.err = err.str();
    return result;
}

}  // namespace kalvane

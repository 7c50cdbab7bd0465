// The scripted operator: runs the program with a script in place of a person at keys and screen.
#pragma once
#include <iosfwd>
#include <string>

namespace kalvane {

struct Hands;

// What the scripted operator needs of the program it runs.
struct OperatedProgram {
    void (*reset)() = nullptr;  // a fresh start of all records
    void (*entry)() = nullptr;  // the entry routine; returns with the main screen shown, or the process ended
    void (*finish)() = nullptr;  // closing in order at the end of a run; nothing when it has been done
};
extern const OperatedProgram invoice_entry;  // the real one

enum ScriptStatus : int {
    script_held = 0,  // every line was carried out and every expectation held
    expectation_failed = 1,
    script_wrong = 2,    // the script itself is wrong; nothing behind that line was done
    program_failed = 3,  // the program ended by a failure of its own, or a box still waited at the end
};

struct ScriptRun {
    std::string text;          // of the script
    std::string file;          // its name in messages; includes are found from its folder
    std::string program_path;  // native path or argv[0] that the installation is found from
    std::string command_line;  // of the program, as it stands
    const OperatedProgram* program = &invoice_entry;
    const Hands* hands = nullptr;  // of the window; without them the script acts on the models
};

// Runs a script to its end and returns its ScriptStatus. What the script prints and the failed expectations
// go to out; a wrong script's message goes to err. The screen host, the launcher and the clock are the
// run's own and are given back at the end; the records stay as the program left them.
int run_script(const ScriptRun& run, std::ostream& out, std::ostream& err);

struct ScriptResult {
    int status = 0;
    std::string out, err;
};
// For tests: a script text against the installation under a native root folder.
ScriptResult run_operator_script(const std::string& script, const std::string& root_native,
                                 const std::string& command_line = "");

}  // namespace kalvane

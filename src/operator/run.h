// One run of a script: its lines, what waits for an answer, and what it has found so far. The files of this
// folder share it; the hooks of the screen and of the launcher, which carry no argument, reach it through
// `running`.
#pragma once
#include <iosfwd>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "operator/operator.h"
#include "operator/script.h"
#include "platform/os/process.h"
#include "platform/screen/host.h"
#include "window/hands.h"

namespace kalvane::script {

// A message box, or a file or folder dialog, that waits for its answer.
struct Waiting {
    enum class Kind { ok, yes_no, dialog } kind = Kind::ok;
    std::string text;
    bool answered = false;
    bool yes = false;                 // OK and はい
    std::optional<std::string> path;  // picked in a dialog
};

struct Run {
    std::vector<Line> lines;
    std::size_t next = 0;
    const Line* line = nullptr;  // being carried out
    const OperatedProgram* program = nullptr;
    std::ostream* out = nullptr;
    std::ostream* err = nullptr;
    int status = script_held;
    bool scripted_start = false;  // the script has a start of its own
    bool started = false, finished = false;
    bool stopped = false;  // no further line is taken
    Waiting* waiting = nullptr;
    std::vector<os::Launch> launched;
    std::vector<std::string> missing;
    bool launch_real = false;
    Hands hands;  // how the acts reach the program
};
inline Run* running = nullptr;

// What a command throws when the line makes no sense where it stands.
class WrongLine : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// Takes the next line; false when there is none to take.
bool take_line(Run& run);
// The lines have run out while the program waits for input: ends the process, so that its loops leave.
// A box that waits makes it a failure.
void out_of_lines(Run& run, bool box);
void run_entry(Run& run);
void expectation(Run& run, bool held, const std::string& what, const std::string& found);
// The hands that act on the models.
Hands bare_hands();
// Fills the screen host and the launcher with this run's own; and empties them.
void install_host();
void remove_host();

// --- the commands
// Throws ScriptError when the verb is unknown or the words do not fit it.
void check_command(const Line& line);
// Whether the line is carried out without a started program, before its start.
bool runs_before_start(const Line& line);
// Whether it can be carried out once the program has ended.
bool runs_after_end(const Line& line);
// Throws WrongLine, or ado::Error from the databases.
void carry_out(Run& run, const Line& line);
// The part of it that compares; words behind "expect".
void carry_out_expect(Run& run, const Words& words);

int whole_number(const std::string& word);  // throws WrongLine

}  // namespace kalvane::script

// The window's start, leaves and memory.
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "child.h"
#include "measures.h"
#include "rounds.h"

namespace kalvane::bench {
namespace {

constexpr double start_target_ms = 250, leave_target_ms = 16;
constexpr long most_mib = 60;
constexpr const char* leaves = "300";

void write_file(const std::string& file, const std::string& text) {
    std::ofstream out(file);
    out << text;
    out.flush();
    if (!out) throw std::runtime_error("cannot write " + file);
}

// Windows are drawn, but on a screen of the usual size that is none.
void use_no_display(const std::string& folder) {
    const std::string screen = folder + "/screen.json";
    write_file(screen, R"({"screens": [{"name": "", "x": 0, "y": 0, "width": 1366, "height": 768,)"
                       R"( "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})");
    std::filesystem::create_directory(folder + "/runtime");
    std::filesystem::permissions(folder + "/runtime", std::filesystem::perms::owner_all);
    setenv("XDG_RUNTIME_DIR", (folder + "/runtime").c_str(), 0);
    setenv("QT_QPA_PLATFORM", ("offscreen:configfile=" + screen).c_str(), 1);
}

struct Program {
    std::vector<std::string> words;
    std::string input = {};
    bool stays = false;  // until it is terminated
    int status = 0;      // at its end
};

void finish(Child& child, const Program& program) {
    if (program.stays) child.terminate();
    if (const Ended ended = child.end(); ended.status != program.status)
        throw std::runtime_error("failed: " + program.words[0] + "\n" + ended.said);
}

// Until its first word.
double seconds_to_word(const Program& program) {
    Child child(program.words, program.input);
    child.line();
    const double seconds = child.seconds();
    finish(child, program);
    return seconds;
}

// The times that it tells, a line each.
std::vector<double> told_seconds(const Program& program, std::size_t count) {
    Child child(program.words, program.input);
    std::vector<double> seconds;
    for (std::string line = child.line(); !line.empty(); line = child.line())
        seconds.push_back(std::strtod(line.c_str(), nullptr));
    finish(child, program);
    if (seconds.size() != count) throw std::runtime_error("too few times from " + program.words[0]);
    return seconds;
}

void measure_start(const Program& program, const Program& empty) {
    std::vector<double> ours, bare;
    for (int i = -1; i < rounds; ++i) {  // the first round of each is not counted
        const double b = seconds_to_word(empty), o = seconds_to_word(program);
        if (i < 0) continue;
        bare.push_back(b);
        ours.push_back(o);
    }
    std::printf("from the start of the process to a key in the first field, %d runs\n", rounds);
    print_times("program", ours, start_target_ms);
    print_times("empty form of Qt", bare, 0);
}

void print_memory(const char* name, const Program& program, const std::string& target) {
    Child child(program.words);
    std::printf("  %-21s %6.1f MiB%s\n", name, static_cast<double>(child.settled_kib()) / 1024,
                target.c_str());
    finish(child, program);
}

}  // namespace

void measure_window(const Installation& at, const std::string& folder) {
    use_no_display(folder);
    at.refresh();
    const std::string script = folder + "/first_key.script",
                      entry = at.root() + "/prgbin/KalvaneInvoiceEntry";
    // `show` comes when the key has been drawn
    write_file(script, "start\nexpect focus 営業請求日付年\ntype 2\nexpect 営業請求日付年 2\nshow\n");
    const Program first_key{{program_beside("KalvaneOperator"), "--window", "--program", entry, "-"}, script};
    const std::string form = program_beside("KalvaneEmptyForm");
    const Program empty{{form}, "", true, -1};
    measure_start(first_key, empty);

    std::printf("\nresident memory with the form open\n");
    print_memory("program", {{entry}, "", true}, "   target " + std::to_string(most_mib) + " MiB");
    print_memory("empty form of Qt", empty, "");

    const std::size_t count = std::stoul(leaves);
    at.refresh();
    std::printf("\nleaving a quantity in a document of %d lines, painting included, %s times\n",
                document_lines, leaves);
    print_times("program", told_seconds({{program_beside("KalvaneWindowLeaves"), at.root(), leaves}}, count),
                leave_target_ms);
    print_times("empty form painted", told_seconds({{form, leaves}}, count), 0);
    std::printf("\n");
    std::fflush(stdout);
}

}  // namespace kalvane::bench

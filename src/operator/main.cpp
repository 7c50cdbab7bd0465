// KalvaneOperator: plays an operator script against the installation that the program path belongs to.
#include <iostream>
#include <string>
#include <string_view>

#include "operator/operator.h"
#include "operator/script.h"

namespace {

constexpr const char* usage =
    "KalvaneOperator [--window] [--program PATH] SCRIPT [COMMAND-LINE-TEXT]\n"
    "  SCRIPT             a file, or - for standard input\n"
    "  COMMAND-LINE-TEXT  the program's command line, one argument\n"
    "  --program PATH     the program path that the installation is found from\n"
    "  --window           plays on the real window\n";

int wrong(const std::string& text) {
    std::cerr << text << "\n";
    return kalvane::script_wrong;
}

}  // namespace

int main(int argc, char** argv) {
    kalvane::ScriptRun run;
    run.program_path = argv[0];
    int i = 1;
    for (; i < argc && std::string_view(argv[i]).starts_with("--"); ++i) {
        const std::string_view option = argv[i];
        if (option == "--window") return wrong("--window is not available in this build");
        if (option != "--program" || i + 1 == argc) return wrong(usage);
        run.program_path = argv[++i];
    }
    if (i == argc || argc - i > 2) return wrong(usage);
    run.file = argv[i];
    if (i + 1 < argc) run.command_line = argv[i + 1];
    try {
        run.text = kalvane::script::read_script(run.file);
    } catch (const kalvane::script::ScriptError& e) {
        return wrong(e.what());
    }
    return kalvane::run_script(run, std::cout, std::cerr);
}

// KalvaneOperator: plays an operator script against the installation that the program path belongs to.
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <string>
#include <string_view>

#include "operator/operator.h"
#include "operator/script.h"
#include "window/hands.h"

namespace {

constexpr const char* usage =
    "KalvaneOperator [--window] [--size WIDTHxHEIGHT] [--program PATH] SCRIPT [COMMAND-LINE-TEXT]\n"
    "  SCRIPT             a file, or - for standard input\n"
    "  COMMAND-LINE-TEXT  the program's command line, one argument\n"
    "  --program PATH     the program path that the installation is found from\n"
    "  --window           plays on the real window\n"
    "  --size             of that window in pixels; without it 1366x768\n";

int wrong(const std::string& text) {
    std::cerr << text << "\n";
    return kalvane::script_wrong;
}

// "1366x768"
bool read_size(const std::string& text, kalvane::WindowSize& size) {
    char tail = 0;
    return std::sscanf(text.c_str(), "%5dx%5d%c", &size.width, &size.height, &tail) == 2 && size.width > 0 &&
           size.height > 0;
}

// The window system lives as long as the script runs.
int play_on_window(kalvane::ScriptRun& run, char** argv, kalvane::WindowSize size) {
    int one = 1;
    if (!kalvane::start_window_system(one, argv, size)) return EXIT_FAILURE;
    const kalvane::Hands hands = kalvane::window_hands();
    run.hands = &hands;
    const int status = kalvane::run_script(run, std::cout, std::cerr);
    kalvane::stop_window_system();
    return status;
}

}  // namespace

int main(int argc, char** argv) {
    kalvane::ScriptRun run;
    run.program_path = argv[0];
    bool window = false;
    kalvane::WindowSize size{1366, 768};
    int i = 1;
    for (; i < argc && std::string_view(argv[i]).starts_with("--"); ++i) {
        const std::string_view option = argv[i];
        if (option == "--window")
            window = true;
        else if (option == "--program" && i + 1 < argc)
            run.program_path = argv[++i];
        else if (option != "--size" || i + 1 == argc || !read_size(argv[++i], size))
            return wrong(usage);
    }
    if (i == argc || argc - i > 2) return wrong(usage);
    run.file = argv[i];
    if (i + 1 < argc) run.command_line = argv[i + 1];
    try {
        run.text = kalvane::script::read_script(run.file);
    } catch (const kalvane::script::ScriptError& e) {
        return wrong(e.what());
    }
    return window ? play_on_window(run, argv, size) : kalvane::run_script(run, std::cout, std::cerr);
}

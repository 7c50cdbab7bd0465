// KalvaneSetup: lays down installations and fills them with documents for measuring.
#include <filesystem>
#include <iostream>

#include "platform/os/paths.h"
#include "setup/command.h"

int main(int argc, char** argv) {
    namespace os = kalvane::os;
    if (argc > 0) os::set_executable_path(argv[0]);
    // a linked set-up links the programs that were built, not the links
    std::error_code missing;
    const auto program = std::filesystem::canonical(os::native_path(os::executable_path()), missing);
    return kalvane::setup::run_command({argv + (argc > 0 ? 1 : 0), argv + argc},
                                       program.parent_path().string(), std::cout, std::cerr);
}

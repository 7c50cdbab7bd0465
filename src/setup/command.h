// The command line of KalvaneSetup.
#pragma once
#include <iosfwd>
#include <string>
#include <vector>

namespace kalvane::setup {

// Runs one command. arguments: argv[1..]; programs: native folder of the built programs. Reports go to out,
// failures and the usage to err. Result, the exit status: 0 done, 1 refused or failed, 2 wrong command line.
int run_command(const std::vector<std::string>& arguments, const std::string& programs, std::ostream& out,
                std::ostream& err);

}  // namespace kalvane::setup

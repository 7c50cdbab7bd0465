// The installations of these tests, and the set-up program's command line.
#pragma once
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "base/text.h"
#include "setup/command.h"
#include "setup/schema.h"
#include "support/seat.h"
#include "support/table.h"

namespace kalvane::test {

// The demonstration company that tests only read, made once.
inline const Installation& demo() {
    static const Installation installation;
    return installation;
}

struct Outcome {
    int status;
    std::string out, err;
};
inline Outcome command(const std::vector<std::string>& arguments, const std::string& programs = "/nowhere") {
    std::ostringstream out, err;
    const int status = setup::run_command(arguments, programs, out, err);
    return {status, out.str(), err.str()};
}

}  // namespace kalvane::test

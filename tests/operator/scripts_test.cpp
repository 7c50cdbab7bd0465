// Plays every script of tests/scripts, each on the demonstration as it was installed.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "operator/operator.h"
#include "support/seat.h"

namespace kalvane {
namespace {

const test::Installation& demonstration() {
    static const test::Installation made;
    return made;
}

std::vector<std::string> script_names() {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(KALVANE_SCRIPTS))
        if (entry.path().extension() == ".script") names.push_back(entry.path().stem().string());
    std::sort(names.begin(), names.end());
    return names;
}

std::string content_of(const std::string& path) {
    std::ostringstream text;
    text << std::ifstream(path).rdbuf();
    return text.str();
}

class Scripts : public testing::TestWithParam<std::string> {};

TEST_P(Scripts, Holds) {
    demonstration().restore();
    ScriptRun run;
    run.file = std::string(KALVANE_SCRIPTS) + "/" + GetParam() + ".script";
    run.text = content_of(run.file);
    run.program_path = demonstration().root() + "/prgbin/KalvaneInvoiceEntry";
    ASSERT_FALSE(run.text.empty());
    std::ostringstream out, err;
    EXPECT_EQ(run_script(run, out, err), script_held) << out.str() << err.str();
}

INSTANTIATE_TEST_SUITE_P(Road, Scripts, testing::ValuesIn(script_names()),
                         [](const auto& script) { return script.param; });

}  // namespace
}  // namespace kalvane

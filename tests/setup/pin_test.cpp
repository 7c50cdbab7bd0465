// KalvaneSetup pin: PINs from standard input into the stored form.
#include <filesystem>
#include <iostream>
#include <sstream>

#include "installation.h"
#include "platform/os/paths.h"
#include "platform/os/secrets.h"

namespace kalvane {
namespace {

using test::Installation;

struct Pin {
    const char* name;
    std::vector<std::string> who;  // behind the root
    const char* input;
    int status = 0;
    const char* pins = "||";  // of 00001, 00002 and of the site 000
};

const Pin cases[] = {
    {"operator", {"00001"}, "abCd\n", 0, "ABCD||"},
    {"of_windows_and_more_lines", {"00002"}, "ab'c d\r\nsecond\n", 0, "|AB'C D|"},
    {"without_line_end", {"00002"}, "ﾋﾐﾂ秘密", 0, "|ﾋﾐﾂ秘密|"},
    {"site", {"--site", "000"}, "Site99\n", 0, "||SITE99"},
    {"unknown_operator", {"00009"}, "ABCD\n", 1},
    {"unpadded_operator", {"1"}, "ABCD\n", 1},
    {"apostrophe", {"0000'1"}, "ABCD\n", 1},
    {"unknown_site", {"--site", "00001"}, "ABCD\n", 1},
    {"too_short", {"00001"}, "ab暗\n", 1},
    {"no_input", {"00001"}, "", 1},
    {"no_code", {}, "ABCD\n", 2},
    {"no_site", {"--site"}, "ABCD\n", 2},
    {"too_many", {"00001", "00002"}, "ABCD\n", 2},
};

test::Outcome set(const std::string& root, const Pin& p) {
    std::istringstream input(p.input);
    std::streambuf* const former = std::cin.rdbuf(input.rdbuf());
    std::vector<std::string> arguments{"pin", root};
    arguments.insert(arguments.end(), p.who.begin(), p.who.end());
    auto outcome = test::command(arguments);
    std::cin.rdbuf(former);
    std::cin.clear();
    return outcome;
}

std::string plain_pins(const Installation& at, const std::vector<const char*>& selects) {
    os::set_key_file(os::program_path(at.root + "/conf/" + os::key_file_name));
    std::string all;
    for (const char* select : selects) all += (select == selects[0] ? "" : "|") + os::復号(at.rows(select));
    os::set_key_file("");
    return all;
}

TEST(PinCommand, StoresOrRefuses) {
    const Installation at(setup::Content::empty);
    at.run("INSERT INTO M担当者 (コード) VALUES ('00002')");
    for (const Pin& p : cases) {
        SCOPED_TRACE(p.name);
        at.run("UPDATE M担当者 SET 暗証番号 = ''");
        at.run("UPDATE M事業所 SET 特権暗証番号 = ''");
        const auto outcome = set(at.root, p);
        EXPECT_EQ(outcome.status, p.status) << outcome.err;
        EXPECT_EQ(outcome.err.empty(), p.status == 0);
        EXPECT_EQ(plain_pins(at, {"SELECT 暗証番号 FROM M担当者 WHERE コード = '00001'",
                                  "SELECT 暗証番号 FROM M担当者 WHERE コード = '00002'",
                                  "SELECT 特権暗証番号 FROM M事業所 WHERE コード = '000'"}),
                  p.pins);
    }
    const std::string before = at.rows("SELECT 暗証番号 FROM M担当者");
    std::filesystem::remove(at.root + "/conf/" + os::key_file_name);
    EXPECT_EQ(set(at.root, cases[0]).status, 1);
    EXPECT_EQ(at.rows("SELECT 暗証番号 FROM M担当者"), before);
    EXPECT_EQ(set(at.root + "/none", cases[0]).status, 1);
    EXPECT_FALSE(std::filesystem::exists(at.root + "/none"));
}

TEST(PinCommand, TheDemonstrationHasTwo) {
    EXPECT_EQ(plain_pins(test::demo(), {"SELECT 暗証番号 FROM M担当者 WHERE コード = '00002'",
                                        "SELECT 暗証番号 FROM M担当者 WHERE コード = '00003'"}),
              "SUZUKI2|TANAKA3");
    EXPECT_EQ(test::demo().rows("SELECT COUNT(*) FROM M担当者 WHERE 暗証番号 <> ''"), "2");
}

}  // namespace
}  // namespace kalvane

// Identity, instance lock, launching, secrets, signals.
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <filesystem>

#include "base/text.h"
#include "platform/os/clock.h"
#include "platform/os/files.h"
#include "platform/os/process.h"
#include "platform/os/secrets.h"
#include "support/table.h"
#include "support/temp_folder.h"

namespace kalvane {
namespace {

using namespace test;

TEST(Process, SeesAnotherInstanceWhileItLives) {
    const TempFolder folder;
    setenv("XDG_RUNTIME_DIR", folder.native().c_str(), 1);
    const std::string here = folder.program("a"), elsewhere = folder.program("b");
    std::array<int, 2> ready{};
    ASSERT_EQ(pipe(ready.data()), 0);
    const pid_t child = fork();
    if (child == 0) {
        const char answer = os::previous_instance("Entry", here) ? 'y' : 'n';
        if (write(ready[1], &answer, 1) != 1) _exit(1);
        for (;;) pause();
    }
    close(ready[1]);
    char answer = 0;
    ASSERT_EQ(read(ready[0], &answer, 1), 1);
    EXPECT_EQ(answer, 'n');
    EXPECT_TRUE(os::previous_instance("Entry", here));
    EXPECT_TRUE(os::previous_instance("Entry", here)) << "asked again";
    EXPECT_FALSE(os::previous_instance("Entry", elsewhere)) << "another installation";
    EXPECT_FALSE(os::previous_instance("Print", here)) << "another program";
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    EXPECT_FALSE(os::previous_instance("Entry", here));
    os::set_previous_instance(true);
    EXPECT_TRUE(os::previous_instance("Other", here));
    os::set_previous_instance(std::nullopt);
    close(ready[0]);
    unsetenv("XDG_RUNTIME_DIR");
}

// The text, and the program, the path and the argument in it.
TEST(Process, ShellTextIsTakenApart) {
    for (const auto& r : table(R"(
        C:\k\prgbin\Print.exe 00020240401  12|Print|C:\k\prgbin\Print.exe|00020240401  12
        C:\p q\Print.EXE  a |Print|C:\p q\Print.EXE| a 
        C:\k\Print.exe|Print|C:\k\Print.exe| ; C:\k\Print.exe |Print|C:\k\Print.exe|
        C:\k\更新 処理|更新 処理|C:\k\更新 処理| ; C:\k\Run.exe C:\x\y.exe z|Run|C:\k\Run.exe|C:\x\y.exe z)")) {
        os::Launch got;
        os::launcher = [&](const os::Launch& launch) { got = launch; };
        os::Shell(r[0], os::WindowMode::minimised);
        os::launcher = nullptr;
        EXPECT_EQ((std::vector{r[0], got.program, got.path, got.argument}), r);
        EXPECT_EQ(got.mode, os::WindowMode::minimised);
    }
}

TEST(Process, StartsAProgramWithOneArgument) {
    const TempFolder folder;
    // writes beside itself, under a name that appears only when all is written
    const std::string script =
        "#!/bin/sh\ncd \"$(dirname \"$0\")\"\nprintf '%s|%s|%s' $# \"$1\" \"$KALVANE_CLOCK\" > part\nmv part "
        "out\n";
    folder.write("bin/plain", script);
    folder.write("win/Tool.exe", script);
    folder.write("bin/data", "no program");
    chmod(folder.native("bin/plain").c_str(), 0755);
    chmod(folder.native("win/Tool.exe").c_str(), 0755);
    const auto output = [&](const char* name) {
        while (!folder.holds(name)) usleep(1000);
        return folder.read(name);
    };
    os::release_clock();
    os::Shell(folder.program("bin/PLAIN.exe") + " a  \"b\" $HOME 'c ", os::WindowMode::normal);
    EXPECT_EQ(output("bin/out"), "1|a  \"b\" $HOME 'c |");
    os::freeze_clock({{2024, 4, 1}, 9, 30, 0});
    os::Shell(folder.program("win/tool"), os::WindowMode::minimised);
    EXPECT_EQ(output("win/out"), "0||20240401 093000");
    os::release_clock();
    for (const char* name : {"bin/none.exe", "bin/data.exe", "bin"})
        EXPECT_THROW(os::Shell(folder.program(name) + " x", os::WindowMode::normal), os::FileError) << name;
}

// --- the stored form of secret texts, and the key file behind it

struct Secrets : testing::Test {
    void SetUp() override { use("key"); }
    void TearDown() override { os::set_key_file(""); }
    // Makes the key file, unless it exists, and reads secrets by it.
    void use(const char* name) const {
        os::create_key_file(folder.program(name));
        os::set_key_file(folder.program(name));
    }
    TempFolder folder;
};

TEST_F(Secrets, ComeBackUnderTheirKeyAlone) {
    for (const std::string plain : {"ABCD", "SUZUKI2", "暗証番号", "O'BRIEN\"|\\"}) {
        const std::string stored = os::暗号化(plain);
        EXPECT_EQ(os::復号(stored), plain);
        EXPECT_NE(stored, os::暗号化(plain)) << "two stored forms of one text tell that they are equal";
        EXPECT_EQ(stored.find(plain), std::string::npos);
        EXPECT_EQ(stored.find_first_of("'\"|\\"), std::string::npos) << stored;  // it stands in statements
        use("other");
        EXPECT_EQ(os::復号(stored), "");
        use("key");
        EXPECT_EQ(os::復号(stored), plain);
    }
    EXPECT_EQ(os::暗号化(""), "");
    EXPECT_EQ(os::復号(""), "");
}

TEST_F(Secrets, DamagedTextsAreEmpty) {
    std::string stored;
    while (!contains(stored, "_"))
        stored = os::暗号化("TANAKA3");  // the digit that a lax decoder sees in '\x80'
    std::vector<std::string> damaged{
        stored + "A", stored + "=", "TANAKA3", "s1:", "s1:AAAA", "S1:", "暗証番号"};
    for (std::size_t i = 0; i < stored.size(); ++i) {
        damaged.push_back(stored.substr(0, i));
        damaged.push_back(std::string(stored).erase(i, 1));
        damaged.push_back(std::string(stored).insert(i, 1, stored[i]));
        for (const char other : {'A', 'B', '\0', '\x80', '\''})
            if (stored[i] != other) damaged.push_back(std::string(stored).replace(i, 1, 1, other));
    }
    for (const std::string& text : damaged) EXPECT_EQ(os::復号(text), "") << text;
}

TEST_F(Secrets, WithoutAWholeKeyNothingIsReadOrWritten) {
    const std::string stored = os::暗号化("TANAKA3"), key = folder.read("key");
    folder.write("short", key.substr(1));
    folder.write("long", key + "x");
    folder.write("empty", "");
    std::filesystem::create_directory(folder.native("folder"));
    for (const std::string name : {"short", "long", "empty", "folder", "missing", "missing/key"}) {
        os::set_key_file(folder.program(name));
        EXPECT_EQ(os::復号(stored), "") << name;
        EXPECT_THROW(os::暗号化("TANAKA3"), os::FileError) << name;
    }
    os::set_key_file("");
    EXPECT_EQ(os::復号(stored), "");
    folder.write("copy", key);
    os::set_key_file(folder.program("copy"));
    EXPECT_EQ(os::復号(stored), "TANAKA3");
}

TEST_F(Secrets, TheKeyFileIsForOwnerAndGroup) {
    const mode_t mask = umask(0);
    os::create_key_file(folder.program("open"));
    umask(mask);
    struct stat seen {};
    ASSERT_EQ(stat(folder.native("open").c_str(), &seen), 0);
    EXPECT_EQ(seen.st_mode & 0777, 0640u);
    const std::string key = folder.read("key");
    EXPECT_EQ(key.size(), 32u);
    EXPECT_NE(key, folder.read("open"));
    os::create_key_file(folder.program("key"));
    EXPECT_EQ(folder.read("key"), key) << "a key that exists stays";
    EXPECT_THROW(os::create_key_file(folder.program("missing/key")), os::FileError);
}

}  // namespace
}  // namespace kalvane

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>

#include "platform/os/clock.h"
#include "platform/os/files.h"
#include "platform/os/process.h"
#include "platform/os/secrets.h"
#include "support/temp_folder.h"

namespace kalvane {
namespace {

using test::TempFolder;

TEST(Clock, StandsUntilItIsMoved) {
    const DateTime start{{2024, 2, 29}, 23, 59, 58};
    os::freeze_clock(start);
    os::advance_clock(1600);
    os::sleep_ms(300);
    EXPECT_EQ(os::now(), (DateTime{{2024, 2, 29}, 23, 59, 59}));
    os::sleep_ms(100);
    EXPECT_EQ(os::now(), (DateTime{{2024, 3, 1}, 0, 0, 0}));
    EXPECT_EQ(os::today(), (Date{2024, 3, 1}));
    os::release_clock();
    EXPECT_FALSE(os::clock_frozen());
    EXPECT_GT(os::now(), start);
}

TEST(Process, NamesStandInBuffers) {
    os::set_user_name("山田");
    std::string buffer = os::user_name_buffer();
    EXPECT_EQ(buffer.size(), 255U);
    EXPECT_EQ(buffer.substr(0, buffer.find('\0')), "山田");
    os::set_computer_name(std::string(300, 'x'));
    EXPECT_EQ(os::computer_name_buffer().front(), '\0');
    os::set_computer_name("PC01");
    EXPECT_EQ(os::computer_name_buffer().substr(0, 5), std::string("PC01\0", 5));
    EXPECT_EQ(os::復号("anything"), "");
}

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

TEST(Process, ShellTextIsTakenApart) {
    for (const auto& [text, program, path, argument] : std::initializer_list<std::array<const char*, 4>>{
             {"C:\\k\\prgbin\\Print.exe 00020240401  12", "Print", "C:\\k\\prgbin\\Print.exe",
              "00020240401  12"},
             {"C:\\p q\\Print.EXE  a ", "Print", "C:\\p q\\Print.EXE", " a "},
             {"C:\\k\\Print.exe", "Print", "C:\\k\\Print.exe", ""},
             {"C:\\k\\Print.exe ", "Print", "C:\\k\\Print.exe", ""},
             {"C:\\k\\更新 処理", "更新 処理", "C:\\k\\更新 処理", ""},
             {"C:\\k\\Run.exe C:\\x\\y.exe z", "Run", "C:\\k\\Run.exe", "C:\\x\\y.exe z"}}) {
        os::Launch got;
        os::launcher = [&](const os::Launch& launch) { got = launch; };
        os::Shell(text, os::WindowMode::minimised);
        os::launcher = nullptr;
        EXPECT_EQ(got.program + "|" + got.path + "|" + got.argument,
                  std::string(program) + "|" + path + "|" + argument);
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

}  // namespace
}  // namespace kalvane

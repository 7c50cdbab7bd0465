// Files, folders and paths.
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>

#include "base/text.h"
#include "platform/os/clock.h"
#include "platform/os/files.h"
#include "platform/os/paths.h"
#include "platform/os/process.h"
#include "support/table.h"
#include "support/temp_folder.h"

namespace kalvane {
namespace {

using namespace test;

// A path as the program writes it, and as the machine does; "~" stands for the temporary folder.
TEST(Paths, MatchWithoutRegardToCaseExactFirst) {
    const TempFolder folder;
    for (const char* name : {"PrgBin/One.txt", "PrgBin/two.txt", "PrgBin/TWO.txt", "ダタ/Ａ.txt"})
        folder.write(name, "");
    for (const auto& r : table(R"(~\PrgBin\One.txt|~/PrgBin/One.txt ; ~\PRGBIN\ONE.TXT|~/PrgBin/One.txt
        ~\prgbin\TWO.txt|~/PrgBin/TWO.txt ; ~\prgbin\two.txt|~/PrgBin/two.txt ; ~\prgbin\|~/PrgBin/
        ~\prgbin/one.txt|~/PrgBin/One.txt ; ~\ダタ\Ａ.TXT|~/ダタ/Ａ.txt ; ~\None\prgbin|~/None/prgbin
        ~\prgbin\None\Sub.X|~/PrgBin/None/Sub.X ; C:\|/ ; d:\no\Such|/no/Such ; |)"))
        EXPECT_EQ(os::native_path(Replace(r[0], "~", folder.program())), Replace(r[1], "~", folder.native()));
    EXPECT_EQ(os::program_path("/") + os::program_path("/opt/k/prgbin"), "C:\\C:\\opt\\k\\prgbin");
}

TEST(Paths, SharesLieUnderTheirRoot) {
    const TempFolder folder;
    folder.write("etc/Server/docs/a.txt", "");
    EXPECT_FALSE(os::FileExists("\\\\etc\\passwd")) << "no share without a root";
    os::set_share_root(folder.native("etc"));
    EXPECT_EQ(os::native_path("\\\\SERVER\\Docs\\A.txt"), folder.native("etc/Server/docs/a.txt"));
    EXPECT_EQ(os::native_path("\\\\other\\x"), folder.native("etc/other/x"));
    os::set_share_root("");
}

TEST(Paths, ExecutableKeepsLinks) {
    const TempFolder folder;
    folder.write("real/bin/Tool", "");
    chmod(folder.native("real/bin/Tool").c_str(), 0755);
    std::filesystem::create_directories(folder.native("inst"));
    std::filesystem::create_directory_symlink("../real/bin", folder.native("inst/prgbin"));
    const std::string expected = folder.program("inst/prgbin/Tool");
    const std::filesystem::path old = std::filesystem::current_path();
    std::filesystem::current_path(folder.native("inst"));
    for (const std::string& name : {folder.native("inst/prgbin/Tool"), std::string("./prgbin/Tool"),
                                    std::string("prgbin/../prgbin/Tool"), expected}) {
        os::set_executable_path(name);
        EXPECT_EQ(os::executable_path(), expected) << name;
    }
    const std::string path = os::environment("PATH");
    setenv("PATH", ("/nowhere:" + folder.native("inst/prgbin")).c_str(), 1);
    os::set_executable_path("Tool");
    EXPECT_EQ(os::executable_path(), expected);
    setenv("PATH", path.c_str(), 1);
    std::filesystem::current_path(old);
}

TEST(Files, TellWhatIsThere) {
    const TempFolder folder;
    folder.write("Doc/Quote.XLS", "12345");
    const auto told = [](const std::string& path) {  // exists, as a folder; named plainly, as a folder too
        return std::to_string(os::FileExists(path)) + std::to_string(os::FolderExists(path)) + "," +
               os::Dir(path) + "," + os::Dir(path, os::attribute_folder);
    };
    EXPECT_EQ(told(folder.program("doc/quote.xls")), "10,Quote.XLS,Quote.XLS");
    EXPECT_EQ(told(folder.program("DOC")), "01,,Doc");
    EXPECT_EQ(told(folder.program("doc/none")) + " " + told(""), "00,, 00,,");
    EXPECT_EQ(os::Dir(folder.program("DOC") + "\\"), "");
}

TEST(Files, CopyWholeOrNotAtAll) {
    const TempFolder folder;
    const auto p = [&folder](const char* name) { return folder.program(name); };
    for (const auto& r : table("a.txt|new ; b.txt|old ; tree/one.txt|1")) folder.write(r[0], r[1]);
    std::filesystem::last_write_time(folder.native("a.txt"),
                                     std::filesystem::file_time_type::clock::now() - std::chrono::hours(48));
    EXPECT_THROW(os::CopyFile(p("a.txt"), p("b.txt"), false), os::FileError);
    EXPECT_EQ(folder.read("b.txt"), "old");
    os::CopyFile(p("a.txt"), p("B.TXT"), true);
    EXPECT_EQ(os::FileDateTime(p("b.txt")), os::FileDateTime(p("a.txt")));
    EXPECT_THROW(os::CopyFile(p("none"), p("b.txt"), true), os::FileError);
    EXPECT_THROW(os::CopyFile(p("a.txt"), p("tree"), true), os::FileError);
    EXPECT_THROW(os::CopyFile(p("tree"), p("c"), true), os::FileError);
    EXPECT_EQ(folder.read("b.txt"), "new");

    // a disk that fills up midway leaves no target, or the one that stood
    folder.write("large.txt", std::string(100'000, 'x'));
    signal(SIGXFSZ, SIG_IGN);
    rlimit most{}, small{};
    getrlimit(RLIMIT_FSIZE, &most);
    small = {.rlim_cur = 70'000, .rlim_max = most.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
    for (const char* target : {"c.txt", "b.txt"})
        EXPECT_THROW(os::CopyFile(p("large.txt"), p(target), true), os::FileError);
    setrlimit(RLIMIT_FSIZE, &most);
    EXPECT_EQ(folder.read("b.txt"), "new");
    std::filesystem::remove(folder.native("large.txt"));
    // nothing half copied beside the two and the folder
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.native()), {}), 3);
}

TEST(Files, FoldersAreMadeOneLevel) {
    const TempFolder folder;
    os::MkDir(folder.program("a"));
    os::MkDir(folder.program("a/b"));
    EXPECT_TRUE(folder.holds("a/b"));
    EXPECT_THROW(os::MkDir(folder.program("a")), os::FileError);
    EXPECT_THROW(os::MkDir(folder.program("x/y")), os::FileError);
}

}  // namespace
}  // namespace kalvane

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>

#include "platform/os/clock.h"
#include "platform/os/files.h"
#include "platform/os/paths.h"
#include "platform/os/process.h"
#include "support/temp_folder.h"

namespace kalvane {
namespace {

using test::TempFolder;

TEST(Paths, MatchWithoutRegardToCaseExactFirst) {
    const TempFolder folder;
    folder.write("PrgBin/One.txt", "1");
    folder.write("PrgBin/two.txt", "");
    folder.write("PrgBin/TWO.txt", "");
    folder.write("ダタ/Ａ.txt", "");
    struct Case {
        const char *written, *found;
    };
    for (const Case& c :
         {Case{"PrgBin\\One.txt", "PrgBin/One.txt"}, Case{"PRGBIN\\ONE.TXT", "PrgBin/One.txt"},
          Case{"prgbin\\TWO.txt", "PrgBin/TWO.txt"}, Case{"prgbin\\two.txt", "PrgBin/two.txt"},
          Case{"prgbin/one.txt", "PrgBin/One.txt"}, Case{"prgbin\\", "PrgBin/"},
          Case{"ダタ\\Ａ.TXT", "ダタ/Ａ.txt"}, Case{"prgbin\\None\\Sub.X", "PrgBin/None/Sub.X"},
          Case{"None\\prgbin", "None/prgbin"}})
        EXPECT_EQ(os::native_path(folder.program() + "\\" + c.written), folder.native(c.found)) << c.written;
    EXPECT_EQ(os::native_path("C:\\"), "/");
    EXPECT_EQ(os::native_path("d:\\no\\Such"), "/no/Such");
    EXPECT_EQ(os::native_path(""), "");
    EXPECT_EQ(os::program_path("/"), "C:\\");
    EXPECT_EQ(os::program_path("/opt/k/prgbin"), "C:\\opt\\k\\prgbin");
    EXPECT_EQ(os::native_path(os::program_path(folder.native("PrgBin/two.txt"))),
              folder.native("PrgBin/two.txt"));
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
    const std::string file = folder.program("doc/quote.xls"), doc = folder.program("DOC"),
                      none = folder.program("doc/none");
    EXPECT_TRUE(os::FileExists(file));
    EXPECT_FALSE(os::FileExists(doc) || os::FileExists(none) || os::FileExists(""));
    EXPECT_TRUE(os::FolderExists(doc));
    EXPECT_FALSE(os::FolderExists(file) || os::FolderExists(none));
    EXPECT_EQ(os::GetAttr(doc), 16);
    EXPECT_EQ(os::GetAttr(file), 32);
    EXPECT_EQ(os::FileLen(file), 5);
    EXPECT_EQ(os::FileDateTime(file).date.year, os::today().year);
    EXPECT_THROW(os::GetAttr(none), os::FileError);
    EXPECT_THROW(os::FileLen(none), os::FileError);
    EXPECT_THROW(os::FileDateTime(none), os::FileError);
    EXPECT_EQ(os::Dir(file), "Quote.XLS");
    EXPECT_EQ(os::Dir(file, 33), "Quote.XLS");
    EXPECT_EQ(os::Dir(doc), "");
    EXPECT_EQ(os::Dir(doc, 33), "");
    EXPECT_EQ(os::Dir(doc, os::attribute_folder), "Doc");
    EXPECT_EQ(os::Dir(none, os::attribute_folder), "");
    EXPECT_EQ(os::Dir(""), "");
    EXPECT_EQ(os::Dir(doc + "\\"), "");
}

TEST(Files, CopyWholeOrNotAtAll) {
    const TempFolder folder;
    folder.write("a.txt", "new");
    folder.write("b.txt", "old");
    folder.write("tree/one.txt", "1");
    folder.write("tree/sub/two.txt", "2");
    std::filesystem::create_directory_symlink(".", folder.native("tree/sub/round"));
    std::filesystem::last_write_time(folder.native("a.txt"),
                                     std::filesystem::file_time_type::clock::now() - std::chrono::hours(48));
    EXPECT_THROW(os::CopyFile(folder.program("a.txt"), folder.program("b.txt"), false), os::FileError);
    EXPECT_EQ(folder.read("b.txt"), "old");
    os::CopyFile(folder.program("a.txt"), folder.program("B.TXT"), true);
    EXPECT_EQ(folder.read("b.txt"), "new");
    EXPECT_EQ(os::FileDateTime(folder.program("b.txt")), os::FileDateTime(folder.program("a.txt")));
    EXPECT_THROW(os::CopyFile(folder.program("none"), folder.program("b.txt"), true), os::FileError);
    EXPECT_THROW(os::CopyFile(folder.program("a.txt"), folder.program("tree"), true), os::FileError);
    EXPECT_THROW(os::CopyFile(folder.program("tree"), folder.program("c"), true), os::FileError);
    EXPECT_EQ(folder.read("b.txt"), "new");

    folder.write("target/sub/two.txt", "old");
    os::CopyFolder(folder.program("tree"), folder.program("target"), true);
    EXPECT_EQ(folder.read("target/one.txt") + folder.read("target/sub/two.txt"), "12");
    EXPECT_THROW(os::CopyFolder(folder.program("tree"), folder.program("target"), false), os::FileError);
    EXPECT_THROW(os::CopyFolder(folder.program("tree"), folder.program("tree/sub"), true), os::FileError);
    EXPECT_THROW(os::CopyFolder(folder.program("a.txt"), folder.program("x"), true), os::FileError);
    std::size_t left = 0;  // a.txt, b.txt, tree, target: nothing half copied beside them
    for (const auto& entry : std::filesystem::directory_iterator(folder.native()))
        left += !entry.path().empty();
    EXPECT_EQ(left, 4U);
}

TEST(Files, FoldersAreMadeOneLevelAndDeletedWhole) {
    const TempFolder folder;
    os::MkDir(folder.program("a"));
    os::MkDir(folder.program("a/b"));
    EXPECT_THROW(os::MkDir(folder.program("a")), os::FileError);
    EXPECT_THROW(os::MkDir(folder.program("x/y")), os::FileError);
    folder.write("a/b/f.txt", "");
    folder.write("kept/g.txt", "");
    std::filesystem::create_directory_symlink(folder.native("kept"), folder.native("a/link"));
    chmod(folder.native("a/b/f.txt").c_str(), 0444);
    chmod(folder.native("a/b").c_str(), 0555);
    EXPECT_THROW(os::DeleteFolder(folder.program("kept/g.txt"), true), os::FileError);
    os::DeleteFolder(folder.program("A"), true);
    EXPECT_FALSE(folder.holds("a"));
    EXPECT_TRUE(folder.holds("kept/g.txt"));
    EXPECT_THROW(os::DeleteFolder(folder.program("a"), true), os::FileError);
}

TEST(Files, DeleteByPrefixTakesEveryTail) {
    const TempFolder folder;
    for (const char* name :
         {"d/K_x.doc", "d/k_X.doc.bak", "d/K_x", "d/K_y.doc", "d/aK_x.doc", "d/K_xfolder/in.txt"})
        folder.write(name, "");
    os::DeleteByPrefix(folder.program("D/K_X"));
    for (const char* gone : {"d/K_x.doc", "d/k_X.doc.bak", "d/K_x"}) EXPECT_FALSE(folder.holds(gone)) << gone;
    for (const char* kept : {"d/K_y.doc", "d/aK_x.doc", "d/K_xfolder/in.txt"})
        EXPECT_TRUE(folder.holds(kept)) << kept;
    EXPECT_THROW(os::DeleteByPrefix(folder.program("d/K_x")), os::FileError);
    EXPECT_THROW(os::DeleteByPrefix(folder.program("d") + "\\"), os::FileError) << "not the whole folder";
    EXPECT_THROW(os::DeleteByPrefix(folder.program("none/K_x")), os::FileError);
}

}  // namespace
}  // namespace kalvane

// The helpers over files and folders.
#include "data/file_helpers.h"

#include <gtest/gtest.h>

#include "platform/os/files.h"
#include "platform/screen/form.h"
#include "platform/screen/host.h"
#include "support/temp_folder.h"

namespace kalvane {
namespace {

using test::TempFolder;

std::vector<std::string> boxes;

struct ファイル : testing::Test {
    TempFolder folder;
    void SetUp() override {
        reset_screen();
        boxes.clear();
        host = {};
        host.message_box = [](const std::string& text, Buttons, bool) {
            boxes.push_back(text);
            return true;
        };
        os::set_share_root(folder.native("shares"));
    }
    void TearDown() override {
        host = {};
        os::file_hook = {};
        os::set_share_root("");
    }
    // Folders under the temporary one, in the order of their names.
    std::string folders() const {
        std::vector<std::string> names;
        for (const auto& e : std::filesystem::recursive_directory_iterator(folder.native()))
            if (e.is_directory()) names.push_back(e.path().string().substr(folder.native().size() + 1));
        std::sort(names.begin(), names.end());
        std::string out;
        for (const std::string& n : names) out += (out.empty() ? "" : " ") + n;
        return out;
    }
};

TEST_F(ファイル, フォルダ作成の経路) {
    struct {
        std::string path;  // "~" for the temporary folder
        const char* made;
    } const cases[] = {{"", ""},
                       {"   ", ""},
                       {"a\\b\\f.txt", ""},  // no drive, no share
                       {"~\\f.txt", ""},
                       {"~\\a\\b\\f.txt", "a a/b"},
                       {"~\\a\\b\\", "a a/b"},
                       {"~\\日本 語\\f", "日本 語"},
                       {"\\\\srv\\share\\a\\b\\f",
                        "shares shares/srv shares/srv/share shares/srv/share/a shares/srv/share/a/b"},
                       {"\\\\srv\\share\\f", "shares shares/srv shares/srv/share"},
                       {"\\\\srv\\share", "shares shares/srv shares/srv/share"},
                       {"\\\\srv", "shares shares/srv shares/srv/share"}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.path);
        for (const auto& e : std::filesystem::directory_iterator(folder.native()))
            std::filesystem::remove_all(e.path());
        const bool share = c.path.starts_with("\\\\");
        if (share) std::filesystem::create_directories(folder.native("shares/srv/share"));
        std::string path = c.path;
        if (path.starts_with("~")) path.replace(0, 1, folder.program());
        フォルダ作成(path);
        EXPECT_EQ(folders(), c.made);
        フォルダ作成(path);  // what is there stays, in silence
        EXPECT_EQ(boxes, std::vector<std::string>{});
    }
}

// A folder that cannot be made is told, and so is each one below it; the work goes on.
TEST_F(ファイル, フォルダ作成の失敗) {
    os::file_hook.before = [](std::string_view operation, std::string_view path) {
        if (operation == "MkDir" && path.ends_with("\\a")) throw os::FileError(75, "駄目");
    };
    フォルダ作成(folder.program() + "\\a\\b\\f");
    ASSERT_EQ(boxes.size(), 2U);
    EXPECT_EQ(boxes[0], "DIREXISTCHK ERROR75駄目");
    EXPECT_TRUE(boxes[1].starts_with("DIREXISTCHK ERROR2")) << boxes[1];  // there is no such folder
    フォルダ作成("\\\\none\\share\\a\\f");                                // a share is never made
    EXPECT_EQ(boxes.size(), 3U);
    EXPECT_EQ(folders(), "");
}

// What the layer below throws is told by the result.
TEST_F(ファイル, 存在と複写と削除) {
    folder.write("a/f.txt", "1");
    folder.write("target.txt", "old");
    const auto p = [this](const char* name) { return folder.program(name); };
    EXPECT_TRUE(ファイル存在確認(p("A/F.TXT")) && フォルダ存在確認(p("a")));
    EXPECT_FALSE(ファイル存在確認(p("a")) || フォルダ存在確認(p("a/f.txt")) || ファイル存在確認("") ||
                 フォルダ存在確認(""));
    EXPECT_TRUE(ファイル複写(p("a/f.txt"), p("target.txt")));
    EXPECT_FALSE(ファイル複写(p("none"), p("target.txt")) || ファイル複写(p("a/f.txt"), p("none/x")));
    EXPECT_TRUE(フォルダ複写(p("a"), p("c")) && フォルダ複写(p("a"), p("c")));
    EXPECT_EQ(folder.read("target.txt") + folder.read("c/f.txt"), "11");
    EXPECT_FALSE(フォルダ複写(p("none"), p("d")));
    EXPECT_TRUE(フォルダ削除(p("c")));
    EXPECT_FALSE(folder.holds("c") || フォルダ削除(p("c")) || フォルダ削除(p("target.txt")));
    EXPECT_EQ(boxes, std::vector<std::string>{});
}

TEST_F(ファイル, 文字列の終端) {
    using namespace std::string_literals;
    EXPECT_EQ(文字列終端切詰("name\0   "s), "name");
    EXPECT_EQ(文字列終端切詰("a\0b\0"s), "a");
    EXPECT_EQ(文字列終端切詰("\0name"s), "");
    EXPECT_EQ(文字列終端切詰("name"s), "");
    EXPECT_EQ(文字列終端切詰(""s), "");
}

}  // namespace
}  // namespace kalvane

// The helpers over files and folders.
#include "data/file_helpers.h"

#include <set>

#include "base/text.h"
#include "platform/os/files.h"
#include "platform/screen/form.h"
#include "platform/screen/host.h"
#include "support/table.h"
#include "support/temp_folder.h"

namespace kalvane {
namespace {

using namespace test;

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
        std::set<std::string> names;
        for (const auto& e : std::filesystem::recursive_directory_iterator(folder.native()))
            if (e.is_directory()) names.insert(e.path().string().substr(folder.native().size() + 1));
        std::string out;
        for (const std::string& n : names) out += (out.empty() ? "" : " ") + n;
        return out;
    }
};

// The path, "~" for the temporary folder, and the folders that are made.
TEST_F(ファイル, フォルダ作成の経路) {
    for (const auto& r : table(R"(| ; ~~~| ; a\b\f.txt| ; ~\f.txt| ; ~\a\b\f.txt|a a/b ; ~\a\b\|a a/b
        ~\日本 語\f|日本 語 ; \\srv\share\a\b\f|@ @/a @/a/b ; \\srv\share\f|@ ; \\srv\share|@ ; \\srv|@)")) {
        SCOPED_TRACE(r[0]);
        for (const auto& e : std::filesystem::directory_iterator(folder.native()))
            std::filesystem::remove_all(e.path());
        if (r[0].starts_with("\\\\")) std::filesystem::create_directories(folder.native("shares/srv/share"));
        const std::string path = Replace(Replace(r[0], "~~~", "   "), "~", folder.program());
        for (int i = 0; i < 2; ++i) フォルダ作成(path);  // what is there stays, in silence
        EXPECT_EQ(folders(), Replace(r[1].starts_with("@") ? "shares shares/srv " + r[1] : r[1], "@",
                                     "shares/srv/share"));
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

TEST_F(ファイル, 文字列の終端) {
    using namespace std::string_literals;
    EXPECT_EQ(文字列終端切詰("name\0   "s) + "|" + 文字列終端切詰("a\0b\0"s), "name|a");
    for (const std::string& text : {"\0name"s, "name"s, ""s}) EXPECT_EQ(文字列終端切詰(text), "");
}

}  // namespace
}  // namespace kalvane

// The stored form of secret texts, and the key file behind it.
#include "platform/os/secrets.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "platform/os/files.h"
#include "support/temp_folder.h"

namespace kalvane {
namespace {

struct Secrets : testing::Test {
    void SetUp() override { use("key"); }
    void TearDown() override { os::set_key_file(""); }
    // Makes the key file, unless it exists, and reads secrets by it.
    void use(const char* name) const {
        os::create_key_file(folder.program(name));
        os::set_key_file(folder.program(name));
    }
    test::TempFolder folder;
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
    const std::string stored = os::暗号化("TANAKA3");
    for (std::size_t i = 0; i < stored.size(); ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(os::復号(stored.substr(0, i)), "");
        EXPECT_EQ(os::復号(std::string(stored).erase(i, 1)), "");
        EXPECT_EQ(os::復号(std::string(stored).insert(i, 1, stored[i])), "");
        for (const char other : {'A', 'B', '\0', '\x80', '\''})
            if (stored[i] != other) {
                std::string damaged = stored;
                damaged[i] = other;
                EXPECT_EQ(os::復号(damaged), "");
            }
    }
    for (const std::string text : {"TANAKA3", "s1:", "s1:AAAA", "S1:", "暗証番号"})
        EXPECT_EQ(os::復号(text), "");
    EXPECT_EQ(os::復号(stored + "A"), "");
    EXPECT_EQ(os::復号(stored + "="), "");
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

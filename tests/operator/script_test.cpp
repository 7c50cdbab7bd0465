#include "operator/script.h"

#include <gtest/gtest.h>

#include "support/temp_folder.h"

namespace kalvane::script {
namespace {

TEST(SplitWords, Gives) {
    const std::pair<std::string, Words> rows[] = {
        {"", {}},
        {" \t ", {}},
        {"  # click", {}},
        {"  click  商品コード[0]\tx ", {"click", "商品コード[0]", "x"}},
        {R"(type "a b" "")", {"type", "a b", ""}},
        {R"(type "\"\\\n\x41\xe3\x81\x82")", {"type", "\"\\\nAあ"}},
        {R"(pick C:\new\x)", {"pick", R"(C:\new\x)"}},
        {"print # a#b", {"print", "#", "a#b"}},
        {"print あ　い", {"print", "あ　い"}},
        {"print a\"b", {"print", "a\"b"}}};
    for (const auto& [line, words] : rows) EXPECT_EQ(split_words(line), words) << line;
}

TEST(SplitWords, RefusesWhatHasNoEnd) {
    for (const char* line : {R"(type "a)", R"(type "a\")", R"(type "a\q")", R"(type "\x4")", R"(type "\xg1")",
                             R"(type "a"b)", "type \"\\"})
        EXPECT_THROW(split_words(line), ScriptError) << line;
}

struct Folder : testing::Test {
    test::TempFolder folder;
    std::string write(const std::string& file, const std::string& text) const {
        folder.write(file, text);
        return folder.native(file);
    }
};

TEST_F(Folder, LinesKeepTheirPlacesThroughIncludes) {
    write("sub/b.txt", "print b\r\ninclude c.txt\r\n");
    write("sub/c.txt", "\n\nprint c");
    const std::string a = write("a.txt", "\xEF\xBB\xBF# head\nprint a\ninclude sub/b.txt\nprint z\n");
    std::string places;
    for (const Line& line : parse_script(read_script(a), a))
        places += std::filesystem::path(line.file).filename().string() + ":" + std::to_string(line.number) +
                  ":" + line.words[1] + " ";
    EXPECT_EQ(places, "a.txt:2:a b.txt:1:b c.txt:3:c a.txt:4:z ");
}

TEST_F(Folder, WrongFilesNameTheirPlace) {
    const auto message = [](const std::string& file) -> std::string {
        try {
            parse_script(read_script(file), file);
        } catch (const ScriptError& e) {
            return e.what();
        }
        return "";
    };
    const std::string loop = write("loop.txt", "include loop.txt\n");
    EXPECT_EQ(message(loop), loop + ":1: files include each other");
    const std::string missing = write("missing.txt", "print a\ninclude none.txt\n");
    EXPECT_EQ(message(missing).find(missing + ":2: the file "), 0u);
    const std::string quote = write("quote.txt", "print \"a\n");
    EXPECT_EQ(message(quote), quote + ":1: a quoted word without an end");
    EXPECT_NE(message(folder.native()), "");
}

}  // namespace
}  // namespace kalvane::script

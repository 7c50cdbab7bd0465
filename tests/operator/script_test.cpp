// The words of script lines.
#include "operator/script.h"

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
    // The message of a script of that text, "" for none.
    std::string message(const std::string& name, const std::string& text) const {
        folder.write(name, text);
        try {
            parse_script(read_script(folder.native(name)), name);
        } catch (const ScriptError& e) {
            return e.what();
        }
        return "";
    }
};

TEST_F(Folder, LinesKeepTheirPlacesThroughIncludes) {
    folder.write("sub/b.txt", "print b\r\ninclude c.txt\r\n");
    folder.write("sub/c.txt", "\n\nprint c");
    const std::string text = "\xEF\xBB\xBF# head\nprint a\ninclude sub/b.txt\nprint z\n";
    std::string places;
    for (const Line& line : parse_script(text, folder.native("a.txt")))
        places += place(line).substr(folder.native().size() + 1) + ":" + line.words[1] + " ";
    EXPECT_EQ(places, "a.txt:2:a sub/b.txt:1:b sub/c.txt:3:c a.txt:4:z ");
}

TEST_F(Folder, WrongFilesNameTheirPlace) {
    const std::string loop = folder.native("loop.txt");
    EXPECT_EQ(message("loop.txt", "include " + loop + "\n"), loop + ":1: files include each other");
    EXPECT_EQ(message("missing.txt", "print a\ninclude none.txt\n").find("missing.txt:2: the file "), 0u);
    EXPECT_EQ(message("quote.txt", "print \"a\n"), "quote.txt:1: a quoted word without an end");
    EXPECT_THROW(read_script(folder.native()), ScriptError);
}

}  // namespace
}  // namespace kalvane::script

#include "operator/script.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace kalvane::script {
namespace {

struct WordsRow {
    const char* name;
    std::string line;
    Words words;
};
void PrintTo(const WordsRow& r, std::ostream* out) {
    *out << r.name;
}

class SplitWords : public testing::TestWithParam<WordsRow> {};

TEST_P(SplitWords, Gives) {
    EXPECT_EQ(split_words(GetParam().line), GetParam().words);
}

INSTANTIATE_TEST_SUITE_P(
    Lines, SplitWords,
    testing::Values(WordsRow{"empty", "", {}}, WordsRow{"blank", " \t ", {}},
                    WordsRow{"comment", "  # click", {}},
                    WordsRow{"plain", "  click  商品コード[0]\tx ", {"click", "商品コード[0]", "x"}},
                    WordsRow{"quoted", R"(type "a b" "")", {"type", "a b", ""}},
                    WordsRow{"escapes", R"(type "\"\\\n\x41\xe3\x81\x82")", {"type", "\"\\\nAあ"}},
                    WordsRow{"backslash_outside_quotes", R"(pick C:\new\x)", {"pick", R"(C:\new\x)"}},
                    WordsRow{"number_sign_in_a_word", "print # a#b", {"print", "#", "a#b"}},
                    WordsRow{"wide_blank_is_no_blank", "print あ　い", {"print", "あ　い"}},
                    WordsRow{"quote_inside_a_word", "print a\"b", {"print", "a\"b"}}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(SplitWords, RefusesWhatHasNoEnd) {
    for (const char* line : {R"(type "a)", R"(type "a\")", R"(type "a\q")", R"(type "\x4")", R"(type "\xg1")",
                             R"(type "a"b)", "type \"\\"})
        EXPECT_THROW(split_words(line), ScriptError) << line;
}

struct Folder : testing::Test {
    std::filesystem::path path;
    Folder() {
        std::string name = testing::TempDir() + "kalvane-script-XXXXXX";
        path = mkdtemp(name.data());
    }
    ~Folder() override { std::filesystem::remove_all(path); }
    std::string write(const std::string& file, const std::string& text) const {
        std::filesystem::create_directories((path / file).parent_path());
        std::ofstream(path / file, std::ios::binary) << text;
        return (path / file).string();
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
    EXPECT_NE(message(path.string()), "");
}

}  // namespace
}  // namespace kalvane::script

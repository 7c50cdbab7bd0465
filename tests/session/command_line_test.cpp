// The positional command line.
#include "session/command_line.h"

#include "base/text.h"
#include "support/start_run.h"

namespace kalvane {
namespace {

// The text, the key cut from it, and the marks: started with arguments, with sources behind the key, not a
// new document. A text comes trimmed, so that all parts behind a blank site move up; the number is the one
// part that is not trimmed before it is tested.
TEST(コマンドライン, 切出) {
    for (const auto& r : test::table(R"(|009,,| ; 0012024040100000012|001,20240401,00000012|s-o
        001202404010000001200020240401000000X|001,20240401,00000012|s-o ; 001202404017|001,20240401,7|s-o
        00120240401|001,20240401,| ; 001|001,,| ; 2024040100000012|202,40401000,00012|s-o
        001        00000012|001,        ,00000012| ; 00120240401        X|001,20240401,        |s-o
        01 2024040 12      |01 ,2024040 ,12|s-o ; 0010000000000000000|001,00000000,00000000|sq
        001000000000000000|001,00000000,0000000|s-o ; 0010000000000000001|001,00000000,00000001|s-o
        a-Z./_09xx1|a-Z,./_09xx1,| ; 0'12024040100000012|,,| ; 001202404'100000012|,,|
        00120240401000000'2|,,| ; 00120240401000000%2|,,| ; 0 12024040100000012|,,| ; 001202404あ100000012|,,|
        ００１２０２４０４０１|,,| ; 0012024040100000012'|001,20240401,00000012|s-o)")) {
        実行環境 = RunContext{};
        実行環境.事業所コード = "009";
        実行環境.引数起動 = 実行環境.引用起動 = true;
        コマンドライン切出(Trim(r[0]));
        EXPECT_EQ(実行環境.事業所コード + "," + 実行環境.番号基準日付 + "," + 実行環境.営業請求No, r[1])
            << r[0];
        EXPECT_EQ(実行環境.引数起動, !r[2].empty()) << r[0];
        EXPECT_EQ(実行環境.引用起動, r[2] == "sq") << r[0];
        EXPECT_EQ(実行環境.新規入力中, r[2] != "s-o") << r[0];
    }
}

// Whatever stands on it, the program starts with a new document of its own site, and the run history tells
// what it was.
TEST(コマンドライン, 異様な文字列) {
    const test::Installation at(setup::Content::empty);
    std::string all_bytes, many;
    for (int b = 1; b < 256; ++b) all_bytes += static_cast<char>(b);
    for (int i = 0; i < 10000; ++i) many += "あ";
    const std::string texts[] = {all_bytes,
                                 many,
                                 std::string(10000, '\''),
                                 "\xFF\xFE\xE3\x81",
                                 "-- ; DROP TABLE 使用状況",
                                 "00120240401\xE3\x81\x82\xE3\x81"};
    for (const std::string& text : texts) {
        SCOPED_TRACE(text.substr(0, 20));
        at.restore();
        {
            test::Start start(at.root(), {.command_line = text});
            EXPECT_TRUE(start.running() && test::Start::boxes.empty() && 実行環境.新規入力中);
            EXPECT_EQ(実行環境.事業所コード + 実行環境.営業請求No, "00000000001");
        }
        EXPECT_EQ(at.config("SELECT 摘要 FROM プログラム稼動履歴 ORDER BY rowid LIMIT 1"), "開始 " + text);
        EXPECT_EQ(at.main("SELECT COUNT(*) FROM 使用状況"), "1");
    }
}

}  // namespace
}  // namespace kalvane

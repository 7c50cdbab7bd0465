// The link rows of the suite's programs, and the clipboard.
#include "data/linkage.h"

#include "base/text.h"
#include "support/start_run.h"

namespace kalvane {
namespace {

using namespace test;

// A request of that time of today.
void send(const Installation& at, const std::string& time, const std::string& text,
          const std::string& to = "KalvaneInvoiceEntry", const std::string& kind = "00") {
    at.config("INSERT INTO プログラム連携情報 VALUES ('20240410 " + time + "', 'KalvaneCaller', '" + to +
              "', '20240410 " + time + "', '" + kind + "', '" + Replace(text, "'", "''") +
              "', '', '000', '00001', 'tanaka')");
}

// Now is 093000. When and what was sent, for whom and of what kind, the command line, and whether the two
// meet. A sender that left its blanks is not found; a start with nothing is taken, and never answered.
TEST(連携, 受信) {
    const Installation at(setup::Content::empty);
    for (const auto& r : table(R"(093000|x|Entry|00|x|met ; 092900|x|Entry|00|x|met ; 092859|x|Entry|00|x|
        093000|xy|Entry|00|x| ; 093000|X|Entry|00|x| ; 093000|x|Print|00|x| ; 093000|x|Entry|99|x|
        093000|P1|Entry|00|  P1      |met ; 093000|P1 |Entry|00|P1 | ; 093000|it's|Entry|00|it's|met
        093000||Entry|00||met)")) {
        SCOPED_TRACE(r[0] + "|" + r[1] + "|" + r[2] + r[3] + "|" + r[4]);
        at.restore();
        send(at, r[0], r[1], "KalvaneInvoice" + r[2], r[3]);
        Start start(at.root(), {.command_line = r[4]});
        EXPECT_TRUE(start.running());
        EXPECT_EQ(実行環境.連携元プログラムID, r[5].empty() ? "" : "KalvaneCaller");
        EXPECT_EQ(実行環境.起動連携情報, r[5].empty() ? "" : r[1]);
        EXPECT_EQ(at.config("SELECT COUNT(*) FROM プログラム連携情報"), r[5].empty() ? "1" : "0");
    }
    // all requests of that second go, whatever they ask for
    for (const char* text : {"x", "y"}) send(at, "093000", text);
    send(at, "092959", "z");
    Start start(at.root(), {.command_line = "x"});
    EXPECT_EQ(at.config("SELECT 起動連携情報 FROM プログラム連携情報"), "z");
}

TEST(連携応答, 行の内容) {
    const Installation at(setup::Content::empty);
    send(at, "092930", "it's");
    Start start(at.root(), {.command_line = "it's"});
    at.config("UPDATE 動作環境定義 SET 起動担当者コード = '00077'");
    実行環境.運用事業所コード = "001";
    os::advance_clock(2500);
    連携応答("O'Neil  ");
    EXPECT_EQ(
        at.config("SELECT * FROM プログラム連携情報"),
        "20240410 093002|KalvaneCaller|KalvaneInvoiceEntry|20240410 093002|99|it's|O'Neil|001|00077|tanaka");
    EXPECT_EQ(実行環境.終了連携情報, "O'Neil  ");
    EXPECT_TRUE(実行環境.設定接続.is_open());
}

// A start that fails behind the request still answers its caller.
TEST(連携応答, 起動の失敗) {
    const Installation at(setup::Content::empty);
    at.main("DELETE FROM Mユーザ");
    send(at, "093000", "x");
    { Start start(at.root(), {.command_line = "x"}); }
    EXPECT_EQ(at.config("SELECT 連携区分, 起動連携情報, 終了連携情報 FROM プログラム連携情報"), "99|x|");
}

TEST(クリップボード, 検索) {
    const Installation at(setup::Content::empty);
    Start start(at.root());
    ClipboardSource found{"keeps", "", "", ""};
    const auto copied = [&](const char* rows) {
        for (const auto& r : table(rows))
            at.config(
                "INSERT INTO プログラムクリップボード明細 (貼付日時, 貼付プログラムID, 貼付情報区分, "
                "伝票番号ID, "
                "伝票事業所コード, 伝票番号基準日付, 伝票No, 伝票付加情報, ユーザID) VALUES ('202404" +
                r[0] + "', '" + r[1] + "', '" + r[2] + "', '" + r[3] + "', '001', '20240401', '" + r[4] +
                "', 'A', 'suzuki')");
        return クリップボード検索("KalvaneInvoiceEntry", "16240", found);
    };
    EXPECT_FALSE(copied(""));
    EXPECT_FALSE(copied(R"(10 093000|KalvaneInvoiceEntry|1|16240|not before now
        10 092958|KalvaneInvoiceEntry|1|16250|series ; 10 092958|KalvaneQuotation|1|16240|program
        10 092958|KalvaneInvoiceEntry|2|16240|kind)"));
    EXPECT_EQ(found.伝票事業所コード, "keeps");
    EXPECT_TRUE(
        copied(R"(01 000000|KalvaneInvoiceEntry|1|16240|old ; 10 092959|KalvaneInvoiceEntry|1|16240|newest
        02 000000|KalvaneInvoiceEntry|1|16240|old)"));
    EXPECT_EQ(found.伝票事業所コード + found.伝票番号基準日付 + found.伝票No + found.伝票付加情報,
              "00120240401newestA");
}

}  // namespace
}  // namespace kalvane

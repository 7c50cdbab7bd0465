// The link rows of the suite's programs, and the clipboard.
#include "data/linkage.h"

#include <gtest/gtest.h>

#include "startup/start_run.h"

namespace kalvane {
namespace {

using test::Installation;
using test::Start;

std::string request(const std::string& sent, const std::string& text,
                    const std::string& to = "KalvaneInvoiceEntry", const std::string& kind = "00") {
    return "INSERT INTO プログラム連携情報 VALUES ('" + sent + "', 'KalvaneCaller', '" + to + "', '" + sent +
           "', '" + kind + "', '" + text + "', '', '000', '00001', 'tanaka')";
}

struct Received {
    std::vector<std::string> rows;
    std::string command_line;
    const char *caller, *text;
    int left;  // rows that stay
};
// now is 20240410 093000
const Received receptions[] = {
    {{request("20240410 093000", "x")}, "x", "KalvaneCaller", "x", 0},
    {{request("20240410 092900", "x")}, "x", "KalvaneCaller", "x", 0},
    {{request("20240410 092859", "x")}, "x", "", "", 1},
    {{request("20240410 093000", "xy")}, "x", "", "", 1},
    {{request("20240410 093000", "X")}, "x", "", "", 1},
    {{request("20240410 093000", "x", "KalvaneInvoicePrint")}, "x", "", "", 1},
    {{request("20240410 093000", "x", "KalvaneInvoiceEntry", "99")}, "x", "", "", 1},
    {{request("20240410 093000", "P1")}, "  P1      ", "KalvaneCaller", "P1", 0},
    // a sender that left its blanks is not found
    {{request("20240410 093000", "P1 ")}, "P1 ", "", "", 1},
    {{request("20240410 093000", "it''s")}, "it's", "KalvaneCaller", "it's", 0},
    // started with nothing: taken, and never answered
    {{request("20240410 093000", "")}, "", "KalvaneCaller", "", 0},
    // all requests of that second go, whatever they ask for
    {{request("20240410 093000", "x"), request("20240410 093000", "y"), request("20240410 092959", "z")},
     "x",
     "KalvaneCaller",
     "x",
     1}};

TEST(連携, 受信) {
    const Installation at(setup::Content::empty);
    for (const Received& c : receptions) {
        SCOPED_TRACE(c.rows[0] + c.command_line);
        at.restore();
        for (const std::string& sql : c.rows) at.config(sql);
        Start start(at.root(), {.command_line = c.command_line});
        EXPECT_TRUE(start.running());
        EXPECT_EQ(実行環境.連携元プログラムID, c.caller);
        EXPECT_EQ(実行環境.起動連携情報, c.text);
        EXPECT_EQ(at.config("SELECT COUNT(*) FROM プログラム連携情報"), std::to_string(c.left));
    }
}

TEST(連携応答, 行の内容) {
    const Installation at(setup::Content::empty);
    at.config(request("20240410 092930", "it''s"));
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
    at.config(request("20240410 093000", "x"));
    { Start start(at.root(), {.command_line = "x"}); }
    EXPECT_EQ(at.config("SELECT 連携区分, 起動連携情報, 終了連携情報 FROM プログラム連携情報"), "99|x|");
}

TEST(クリップボード, 検索) {
    const Installation at(setup::Content::empty);
    const auto copy = [&at](const char* when, const char* program, const char* kind, const char* series,
                            const char* number, const char* user) {
        at.config(
            std::string(
                "INSERT INTO プログラムクリップボード明細 (貼付日時, 貼付プログラムID, 貼付情報区分, "
                "伝票番号ID, 伝票事業所コード, 伝票番号基準日付, 伝票No, 伝票付加情報, ユーザID) VALUES ('") +
            when + "', '" + program + "', '" + kind + "', '" + series + "', '001', '20240401', '" + number +
            "', 'A', '" + user + "')");
    };
    Start start(at.root());
    ClipboardSource found{"keeps", "", "", ""};
    EXPECT_FALSE(クリップボード検索("KalvaneInvoiceEntry", "16240", found));
    copy("20240410 093000", "KalvaneInvoiceEntry", "1", "16240", "now", "tanaka");  // not before now
    copy("20240410 092958", "KalvaneInvoiceEntry", "1", "16250", "series", "tanaka");
    copy("20240410 092958", "KalvaneQuotation", "1", "16240", "program", "tanaka");
    copy("20240410 092958", "KalvaneInvoiceEntry", "2", "16240", "kind", "tanaka");
    EXPECT_FALSE(クリップボード検索("KalvaneInvoiceEntry", "16240", found));
    EXPECT_EQ(found.伝票事業所コード, "keeps");
    copy("20240401 000000", "KalvaneInvoiceEntry", "1", "16240", "old", "tanaka");
    copy("20240410 092959", "KalvaneInvoiceEntry", "1", "16240", "newest", "suzuki");  // anybody's
    copy("20240402 000000", "KalvaneInvoiceEntry", "1", "16240", "old", "tanaka");
    EXPECT_TRUE(クリップボード検索("KalvaneInvoiceEntry", "16240", found));
    EXPECT_EQ(found.伝票事業所コード + found.伝票番号基準日付 + found.伝票No + found.伝票付加情報,
              "00120240401newestA");
}

}  // namespace
}  // namespace kalvane

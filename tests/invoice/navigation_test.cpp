// The previous and the next invoice.
#include "invoice/navigation.h"

#include <gtest/gtest.h>

#include "invoice/clearing.h"
#include "invoice/sequences.h"
#include "invoice/small_company.h"

namespace kalvane {
namespace {

using namespace test;

// By date and number: 20240401 5; 20240410 3, 4, 9; 20240501 2, in base dates of their own; and another
// site's.
struct 前後 : testing::Test {
    前後() {
        lay_masters(at);
        lay_one("000", "20240331", "00000005", "20240401");
        lay_one("000", "99999999", "00000004", "20240410");
        lay_one("000", "20250331", "00000009", "20240410");
        lay_one("000", "99999999", "00000003", "20240410");
        lay_one("000", "20250331", "00000002", "20240501");
        lay_one("001", "99999999", "00000006", "20240410");
        at.main("UPDATE A番号情報 SET 連番 = '00000009' WHERE 番号ID = '16240'");
    }
    void lay_one(const char* site, const char* base, const char* number, const char* date) const {
        const std::string key =
            std::string("事業所コード=") + site + ", 番号基準日付=" + base + ", 営業請求No=" + number;
        lay(at, "T営業請求",
            key + ", 営業請求日付=" + date +
                ", 得意先コード=000123, 担当者コード=00001, 部門コード=010, セクションコード=020");
        lay(at, "T営業請求明細",
            key + ", 営業請求固有行No=001, 営業請求行No=001, 行区分=1, 商品名=of " + number +
                ", 請求数量=1, 請求金額=100, 計区分=1, 売上消費税区分=1");
    }
    static std::string shown() {
        return 実行環境.営業請求No + " " + 実行環境.番号基準日付 + " " + 請求明細行[0].商品名;
    }
    Installation at{setup::Content::empty};
};

TEST_F(前後, 両方向) {
    Seat seat(at);
    EntryScreen& s = seat.screen();
    open_document(seat, "4");
    const char* forth[] = {"00000009 20250331 of 00000009", "00000002 20250331 of 00000002",
                           "00000002 20250331 of 00000002"};
    const char* back[] = {"00000009 20250331 of 00000009", "00000004 99999999 of 00000004",
                          "00000003 99999999 of 00000003", "00000005 20240331 of 00000005",
                          "00000005 20240331 of 00000005"};
    for (const char* expected : forth) {
        click(s.btn_次No);
        EXPECT_EQ(shown(), expected);
    }
    for (const char* expected : back) {
        click(s.btn_前No);
        EXPECT_EQ(shown(), expected);
        EXPECT_EQ(s.営業請求No.text, 実行環境.営業請求No);
        EXPECT_EQ(請求ヘッダ.税抜請求金額合計, 通貨::whole(100));
        EXPECT_FALSE(実行環境.新規入力中);
    }
    EXPECT_TRUE(Seat::boxes.empty());
    // each that was read left a row of the browse log: 4, and the seven behind it
    EXPECT_EQ(
        at.main("SELECT GROUP_CONCAT(SUBSTR(伝票No, 8), '') FROM (SELECT * FROM T閲覧 ORDER BY 閲覧No)"),
        "4929435");
}

// Unsaved input is asked about; without any the move is made at once.
TEST_F(前後, 入力中の質問) {
    Seat seat(at);
    EntryScreen& s = seat.screen();
    open_document(seat, "4");
    seat.enter(s.タイトル, "変更");
    click(s.btn_前No);
    click(s.btn_次No);
    EXPECT_EQ(Seat::boxes, (std::vector<std::string>{"入力がありました。\rクリアし前Noを表示しますか？",
                                                     "入力がありました。\rクリアし次Noを表示しますか？"}));
    EXPECT_EQ(shown(), "00000004 99999999 of 00000004");
    EXPECT_EQ(請求ヘッダ.タイトル, "変更");
    EXPECT_TRUE(実行環境.入力変更あり);
    Seat::answer = [](const std::string&) { return true; };
    click(s.btn_前No);
    EXPECT_EQ(shown(), "00000003 99999999 of 00000003");
    EXPECT_FALSE(実行環境.入力変更あり);
    EXPECT_EQ(s.active, 実行環境.先頭コントロール);
    Seat::boxes.clear();
    click(s.btn_前No);
    EXPECT_TRUE(Seat::boxes.empty());
}

// From a new document: by its preview of a number, and by the date alone when it has none.
TEST_F(前後, 新しい伝票から) {
    {
        Seat seat(at);  // 20240410, number 10
        EXPECT_TRUE(前No確認());
        EXPECT_TRUE(次No確認());
        click(seat.screen().btn_前No);
        EXPECT_EQ(実行環境.営業請求No, "00000009");
    }
    at.main("UPDATE A番号情報 SET 連番種類 = '9' WHERE 番号ID = '16240'");
    struct Case {
        const char *date, *previous, *next;
    };
    for (const Case& c : {Case{"20240410", "00000009", "00000003"}, Case{"20240409", "00000005", "00000003"},
                          Case{"20240502", "00000002", ""}, Case{"20240331", "", "00000005"}}) {
        SCOPED_TRACE(c.date);
        Seat seat(at);
        ASSERT_EQ(実行環境.営業請求No, "");
        請求ヘッダ.営業請求日付 = c.date;
        EXPECT_EQ(前No確認(), *c.previous != 0);
        EXPECT_EQ(次No確認(), *c.next != 0);
        {
            Recorder recorder;
            前No確認();
            次No確認();
            const std::string read =
                "main SELECT TOP 1 番号基準日付,営業請求No FROM T営業請求 WHERE 事業所コード = '000' AND "
                "営業請求日付 ";
            expect_sequence(
                recorder.statements,
                sequence(read + "<= '" + c.date + "' ORDER BY 営業請求日付 DESC, 営業請求No DESC\n" + read +
                         ">= '" + c.date + "' ORDER BY 営業請求日付 , 営業請求No"));
        }
        次No読込();
        EXPECT_EQ(実行環境.営業請求No, c.next);
    }
}

// Deleted by another station behind the question: a cleared document, its purchase quantities too.
TEST_F(前後, 他端末が削除) {
    Seat seat(at);
    open_document(seat, "4");
    請求ヘッダ.仕入数量合計 = 通貨::whole(5);
    ado::hook.before = [&](const ado::Connection& c, std::string_view text) {
        if (c.name == "main" && text.starts_with("SELECT TOP 1 T営業請求.*"))
            at.main("DELETE FROM T営業請求 WHERE 営業請求No = '00000003'");
    };
    click(seat.screen().btn_前No);
    ado::hook = {};
    EXPECT_EQ(実行環境.営業請求No, "00000010");
    EXPECT_EQ(実行環境.最終行, -1);
    EXPECT_TRUE(実行環境.新規入力中);
    EXPECT_EQ(請求ヘッダ.得意先コード, "");
    EXPECT_TRUE(請求ヘッダ.仕入数量合計.is_zero());
    EXPECT_TRUE(Seat::boxes.empty());
    // and when both have gone: nothing is read
    open_document(seat, "9");
    at.main("DELETE FROM T営業請求 WHERE 営業請求日付 > '20240410'");
    const std::string before = shown();
    次No読込();
    EXPECT_EQ(shown(), before);
}

}  // namespace
}  // namespace kalvane

// The previous and the next invoice.
#include "events/navigation.h"

#include <gtest/gtest.h>

#include "support/sequences.h"
#include "support/small_company.h"

namespace kalvane {
namespace {

using namespace test;

// By date and number: 20240401 5; 20240410 3, 4, 9; 20240501 2, in base dates of their own; and another
// site's.
struct 前後 : SmallCompany {
    前後() {
        for (const auto& r : table(R"(000|20240331|00000005|20240401 ; 000|99999999|00000004|20240410
            000|20250331|00000009|20240410 ; 000|99999999|00000003|20240410 ; 000|20250331|00000002|20240501
            001|99999999|00000006|20240410)")) {
            const std::string key =
                "事業所コード=" + r[0] + ", 番号基準日付=" + r[1] + ", 営業請求No=" + r[2];
            lay(at, "T営業請求",
                key + ", 営業請求日付=" + r[3] +
                    ", 得意先コード=000123, 担当者コード=00001, 部門コード=010, セクションコード=020");
            lay(at, "T営業請求明細",
                key + ", 営業請求固有行No=001, 行区分=1, 商品名=of " + r[2] +
                    ", 請求金額=100, 計区分=1, 売上消費税区分=1");
        }
        at.main("UPDATE A番号情報 SET 連番 = '00000009' WHERE 番号ID = '16240'");
    }
    static std::string shown() {
        return 実行環境.営業請求No + " " + 実行環境.番号基準日付 + " " + 請求明細行[0].商品名;
    }
};

TEST_F(前後, 両方向) {
    Seat seat(at);
    EntryScreen& s = seat.screen();
    open_document(seat, "4");
    for (const auto& [button, expected] : {std::pair{&s.btn_次No, "00000009 20250331 of 00000009"},
                                           {&s.btn_次No, "00000002 20250331 of 00000002"},
                                           {&s.btn_次No, "00000002 20250331 of 00000002"},
                                           {&s.btn_前No, "00000009 20250331 of 00000009"},
                                           {&s.btn_前No, "00000004 99999999 of 00000004"},
                                           {&s.btn_前No, "00000003 99999999 of 00000003"},
                                           {&s.btn_前No, "00000005 20240331 of 00000005"},
                                           {&s.btn_前No, "00000005 20240331 of 00000005"}}) {
        click(*button);
        EXPECT_EQ(shown(), expected);
        EXPECT_EQ(s.営業請求No.text, 実行環境.営業請求No);
        EXPECT_EQ(請求ヘッダ.税抜請求金額合計, 通貨::whole(100));
        EXPECT_FALSE(実行環境.新規入力中);
    }
    EXPECT_TRUE(Seat::boxes.empty());
    // each that was read left a row of the browse log: 4, and the six behind it
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
    EXPECT_EQ(shown() + 請求ヘッダ.タイトル, "00000004 99999999 of 00000004変更");
    say_yes();
    click(s.btn_前No);
    EXPECT_EQ(shown(), "00000003 99999999 of 00000003");
    EXPECT_EQ(s.active, 実行環境.先頭コントロール);
    Seat::boxes.clear();
    click(s.btn_前No);
    EXPECT_TRUE(Seat::boxes.empty());
}

// From a new document: by its preview of a number, and by the date alone when it has none.
TEST_F(前後, 新しい伝票から) {
    {
        Seat seat(at);  // 20240410, number 10
        EXPECT_TRUE(前No確認() && 次No確認());
        click(seat.screen().btn_前No);
        EXPECT_EQ(実行環境.営業請求No, "00000009");
    }
    at.main("UPDATE A番号情報 SET 連番種類 = '9' WHERE 番号ID = '16240'");
    for (const auto& r : table(R"(20240410|00000009|00000003 ; 20240409|00000005|00000003
        20240502|00000002| ; 20240331||00000005)")) {
        SCOPED_TRACE(r[0]);
        Seat seat(at);
        ASSERT_EQ(実行環境.営業請求No, "");
        請求ヘッダ.営業請求日付 = r[0];
        Recorder recorder;
        EXPECT_EQ(前No確認(), !r[1].empty());
        EXPECT_EQ(次No確認(), !r[2].empty());
        const std::string read =
            "main SELECT TOP 1 番号基準日付,営業請求No FROM T営業請求 WHERE 事業所コード = '000' AND "
            "営業請求日付 ";
        expect_sequence(recorder.statements,
                        sequence(read + "<= '" + r[0] + "' ORDER BY 営業請求日付 DESC, 営業請求No DESC\n" +
                                 read + ">= '" + r[0] + "' ORDER BY 営業請求日付 , 営業請求No"));
        次No読込();
        EXPECT_EQ(実行環境.営業請求No, r[2]);
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
    EXPECT_EQ(shown(), "00000010 99999999 ");
    EXPECT_TRUE(実行環境.新規入力中);
    EXPECT_EQ(請求ヘッダ.得意先コード, "");
    EXPECT_TRUE(請求ヘッダ.仕入数量合計.is_zero());
    // and when both have gone: nothing is read
    open_document(seat, "9");
    at.main("DELETE FROM T営業請求 WHERE 営業請求日付 > '20240410'");
    const std::string before = shown();
    次No読込();
    EXPECT_EQ(shown(), before);
    EXPECT_TRUE(Seat::boxes.empty());
}

}  // namespace
}  // namespace kalvane

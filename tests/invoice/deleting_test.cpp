// Deleting a stored invoice, and what stands in the way of that and of another date.
#include <gtest/gtest.h>

#include "invoice/document.h"
#include "invoice/screen_display.h"
#include "invoice/sequences.h"
#include "invoice/small_company.h"

namespace kalvane {
namespace {

using namespace test;

struct 請求削除 : testing::Test {
    請求削除() { lay_masters(at); }
    Installation at{setup::Content::empty};

    static void say_yes() {
        Seat::answer = [](const std::string&) { return true; };
    }
    static void erase(const Seat& seat) { click(seat.screen().btn_削除); }
    void refer(const char* to, const char* from) const {
        at.main(std::string("UPDATE T営業請求 SET 参照営業請求事業所コード = '000', 参照営業請求番号基準日付 "
                            "= 番号基準日付, 参照営業請求No = '") +
                to + "' WHERE 営業請求No = '" + from + "'");
    }
};

TEST_F(請求削除, 文の順序) {
    lay_documents(at);
    Seat seat(at);
    say_yes();
    EXPECT_FALSE(seat.screen().btn_削除.enabled);
    open_document(seat, "1");
    ASSERT_TRUE(seat.screen().btn_削除.enabled);
    const int mark = history_count(at);
    Recorder recorder;
    erase(seat);
    expect_sequence(recorder.statements, rights("KalvaneInvoiceEntry") + referred("00000001") +
                                             history_number("00000002") + taken_away() +
                                             logged(queue_row("99999999", "00000002", "0", "00000001", "2")) +
                                             cleared());
    EXPECT_EQ(history_rows(at, mark), "出力終了 DELETE FROM T営業請求\n出力終了 INSERT INTO [未集計情報");
    EXPECT_EQ(Seat::boxes, std::vector<std::string>{"削除しますか?"});
    EXPECT_EQ(at.main("SELECT (SELECT COUNT(*) FROM T営業請求) + (SELECT COUNT(*) FROM T営業請求明細)"), "0");
    EXPECT_EQ(at.main("SELECT 営業請求履歴No, 赤黒区分 FROM R営業請求 ORDER BY 営業請求履歴No"),
              "00000001|1\n00000002|0");
    EXPECT_EQ(at.main("SELECT 営業請求固有行No FROM R営業請求明細 WHERE 赤黒区分 = '0' AND 営業請求履歴No = "
                      "'00000002'"),
              "001\n002");
    // the number is not given again
    EXPECT_EQ(実行環境.営業請求No, "00000002");
    EXPECT_TRUE(実行環境.新規入力中);
    EXPECT_EQ(実行環境.最終行, -1);
    EXPECT_EQ(seat.screen().active, &seat.screen().営業請求日付年);
}

TEST_F(請求削除, 一文ずつの失敗) {
    lay_documents(at);
    fail_at_each_position(
        at,
        [](const Seat& seat) {
            say_yes();
            open_document(seat, "1");
        },
        erase);
}

const std::string no_right = "操作権限がありません。";

// The document stays, on the screen and in the tables; the focus goes back to the field that was left. The
// right and the date are asked before the reference.
TEST_F(請求削除, 削除しない) {
    struct Refusal {
        const char* date;    // of the document
        bool referred, yes;  // by another station, with the document on the screen
        std::string box;
    };
    lay_documents(at, 2);
    for (const Refusal& r :
         {Refusal{"20240410", false, false, "削除しますか?"}, Refusal{"20230331", false, true, no_right},
          Refusal{"20270401", false, true, no_right}, Refusal{"20230331", true, true, no_right},
          Refusal{"20240410", true, true, "他の請求に参照済です。削除出来ません。"}}) {
        SCOPED_TRACE(r.date + r.box);
        at.restore();
        at.main(std::string("UPDATE T営業請求 SET 営業請求日付 = '") + r.date + "'");
        Seat seat(at);
        if (r.yes) say_yes();
        open_document(seat, "1");
        press_focus(seat.screen().タイトル);
        press_focus(seat.screen().支払条件);
        if (r.referred) refer("00000001", "00000002");
        const std::string before = document_rows(at);
        ASSERT_TRUE(seat.screen().btn_削除.enabled);
        Seat::boxes.clear();
        erase(seat);
        EXPECT_EQ(Seat::boxes, std::vector<std::string>{r.box});
        EXPECT_EQ(document_rows(at), before);
        EXPECT_EQ(実行環境.営業請求No, "00000001");
        EXPECT_FALSE(実行環境.新規入力中);
        EXPECT_EQ(実行環境.最終行, 1);
        EXPECT_EQ(seat.screen().active, 実行環境.離脱コントロール);
        EXPECT_FALSE(process_ended());
    }
}

TEST_F(請求削除, 権限なし) {
    lay_documents(at, 2);
    at.main("UPDATE Mユーザ SET 暗証番号有無 = '1'");
    at.main("UPDATE M担当者 SET 削除許可 = '1', ログインID = 'tanaka' WHERE コード = '00001'");
    Seat seat(at);
    ASSERT_FALSE(process_ended());
    say_yes();
    Seat::modal = [](Form& f) { unload_form(f); };  // somebody else may sign on for it, and does not
    open_document(seat, "1");
    refer("00000001", "00000002");
    const std::string before = document_rows(at);
    erase(seat);
    EXPECT_EQ(Seat::boxes, std::vector<std::string>{no_right});
    EXPECT_EQ(document_rows(at), before);
    EXPECT_FALSE(実行環境.新規入力中);
}

// What would be a date too old is none for the level that may work outside the window; flags of completion
// and approval stop nothing.
TEST_F(請求削除, 期間外の権限と完了) {
    lay_documents(at);
    at.main("UPDATE M担当者 SET アクセス権限 = '6' WHERE コード = '00001'");
    at.main(
        "UPDATE T営業請求 SET 営業請求日付 = '20200101', 出荷完了区分 = '1', 売上完了区分 = '1', 完了フラグ "
        "= '1', "
        "承認区分 = '1', 承認日付 = '20240410'");
    at.main("UPDATE T営業請求明細 SET 明細完了区分 = '1', 出荷数量 = 10, 売上数量 = 10, 承認区分 = '1'");
    Seat seat(at);
    say_yes();
    open_document(seat, "1");
    erase(seat);
    EXPECT_EQ(at.main("SELECT COUNT(*) FROM T営業請求"), "0");
    EXPECT_EQ(at.main("SELECT 完了フラグ, 承認区分 FROM R営業請求 WHERE 赤黒区分 = '0'"), "1|1");
}

// Gone already: no red row, yet a history number and a red queue row; the screen clears in silence.
TEST_F(請求削除, 他端末が削除済み) {
    lay_documents(at);
    Seat seat(at);
    say_yes();
    open_document(seat, "1");
    at.main("DELETE FROM T営業請求");
    at.main("DELETE FROM T営業請求明細");
    erase(seat);
    EXPECT_EQ(Seat::boxes, std::vector<std::string>{"削除しますか?"});
    EXPECT_EQ(請求ヘッダ.登録結果区分, 1);  // that of the queue row, the last statement
    EXPECT_EQ(at.main("SELECT COUNT(*) FROM R営業請求 WHERE 赤黒区分 = '0'"), "0");
    EXPECT_EQ(at.main("SELECT 履歴連番 FROM A番号情報 WHERE 番号ID = '16240'"), "00000002");
    EXPECT_EQ(at.main("SELECT 履歴No, 赤黒区分, 登録情報区分 FROM 未集計情報 ORDER BY rowid"),
              "00000001|1|0\n00000002|0|2");
    EXPECT_TRUE(実行環境.新規入力中);
}

// A run that was started for one document ends with its deletion.
TEST_F(請求削除, 引数起動) {
    lay_documents(at);
    Seat seat(at, "0009999999900000001");
    say_yes();
    erase(seat);
    EXPECT_TRUE(process_ended());
    EXPECT_EQ(at.main("SELECT COUNT(*) FROM T営業請求"), "0");
    EXPECT_EQ(実行環境.終了連携情報, "");
}

// A reference is one by the whole key as it was stored; lines and the other links play no part.
TEST_F(請求削除, 参照の有無) {
    lay_documents(at, 2);
    for (const auto& c :
         std::initializer_list<std::array<const char*, 4>>{{"参照営業請求", "000", "99999999", "00000001"},
                                                           {"参照営業請求", "001", "99999999", "00000001"},
                                                           {"参照営業請求", "000", "20250331", "00000001"},
                                                           {"参照営業請求", "000", "99999999", "00000003"},
                                                           {"営業見積", "000", "99999999", "00000001"}}) {
        const std::string link = c[0];
        const bool referred = link + c[1] + c[2] + c[3] == "参照営業請求0009999999900000001";
        SCOPED_TRACE(link + c[1] + c[2] + c[3]);
        at.restore();
        at.main("UPDATE T営業請求 SET " + link + "事業所コード = '" + c[1] + "', " + link +
                "番号基準日付 = '" + c[2] + "', " + link + "No = '" + c[3] +
                "' WHERE 営業請求No = '00000002'");
        Seat seat(at);
        open_document(seat, "1");
        実行環境.番号基準日付 = "20250331";
        実行環境.営業請求No = "00000003";
        EXPECT_EQ(seat.screen().btn_削除.enabled, !referred);
        dispatch([] { ボタン状態更新(); });
        EXPECT_EQ(seat.screen().btn_削除.enabled, !referred);
    }
}

// A date beyond the closing is refused to a document that another one names; inside it, and to all others, it
// is taken.
TEST_F(請求削除, 日付の変更) {
    at.main("UPDATE A番号情報 SET 連番種類 = '1' WHERE 番号ID = '16240'");
    lay_documents(at, 2);
    refer("00000001", "00000002");
    Seat seat(at);
    const auto date_of = [&](const char* number, const char* month) {
        Seat::boxes.clear();
        open_document(seat, number);
        seat.enter(seat.screen().タイトル, "変更");
        seat.enter(seat.screen().営業請求日付月, month);
        return 請求ヘッダ.営業請求日付 + " " + 請求ヘッダ.営業請求日付年 + 請求ヘッダ.営業請求日付月 +
               請求ヘッダ.営業請求日付日 + " " + 実行環境.番号基準日付 + " " + 実行環境.営業請求No + " " +
               請求ヘッダ.集計日付 + (実行環境.入力変更あり ? " changed" : "");
    };
    EXPECT_EQ(date_of("1", "3"), "20240410 20240410 20250331 00000001 20240430");
    EXPECT_EQ(Seat::boxes, std::vector<std::string>{"決算を超えた日付の変更は出来ません。"});
    EXPECT_EQ(seat.screen().営業請求日付月.text, "04");
    EXPECT_EQ(date_of("2", "5"), "20240510 20240510 20250331 00000002 20240531 changed");
    EXPECT_EQ(date_of("1", "5"), "20240510 20240510 20250331 00000001 20240531 changed");
    EXPECT_EQ(date_of("2", "3"), "20240310 20240310 20240331 00000001 20240331 changed");
    EXPECT_TRUE(Seat::boxes.empty());
}

}  // namespace
}  // namespace kalvane

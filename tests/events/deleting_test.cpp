// Deleting a stored invoice, and what stands in the way of that.
#include <gtest/gtest.h>

#include "records/document.h"
#include "support/sequences.h"
#include "support/small_company.h"

namespace kalvane {
namespace {

using namespace test;

struct 請求削除 : SmallCompany {
    static void open_to_delete(const Seat& seat) {
        say_yes();
        open_document(seat, "1");
    }
    static void erase(const Seat& seat) { click(seat.screen().btn_削除); }
};

TEST_F(請求削除, 文の順序) {
    lay_documents();
    Seat seat(at);
    EXPECT_FALSE(seat.screen().btn_削除.enabled);
    open_to_delete(seat);
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
    EXPECT_EQ(headers() + lines(), "");
    EXPECT_EQ(journal(), "99999999|00000001|1|630\n99999999|00000002|0|630");
    // the number is not given again
    EXPECT_EQ(実行環境.営業請求No, "00000002");
    EXPECT_TRUE(実行環境.新規入力中);
    EXPECT_EQ(実行環境.最終行, -1);
    EXPECT_EQ(seat.screen().active, &seat.screen().営業請求日付年);
}

TEST_F(請求削除, 一文ずつの失敗) {
    lay_documents();
    fail_at_each_position(at, open_to_delete, erase);
}

// The document stays, on the screen and in the tables; the focus goes back to the field that was left. The
// right and the date are asked before the reference. Another station refers with the document on the screen.
TEST_F(請求削除, 削除しない) {
    struct Refusal {
        const char* laid;
        bool referred, yes;
        std::string box;
    };
    const std::string no_right = "操作権限がありません。";
    lay_documents(2);
    for (const Refusal& r :
         {Refusal{"UPDATE T営業請求 SET タイトル = ''", false, false, "削除しますか?"},
          Refusal{"UPDATE T営業請求 SET タイトル = ''", true, true, "他の請求に参照済です。削除出来ません。"},
          Refusal{"UPDATE T営業請求 SET 営業請求日付 = '20270401'", true, true, no_right},
          Refusal{"UPDATE M担当者 SET 削除許可 = '1', ログインID = 'tanaka' WHERE コード = '00001'", true,
                  true, no_right}}) {
        SCOPED_TRACE(r.laid + r.box);
        at.restore();
        at.main(r.laid);
        at.main("UPDATE Mユーザ SET 暗証番号有無 = '1'");
        Seat seat(at);
        Seat::modal = [](Form& f) { unload_form(f); };  // somebody else may sign on for it, and does not
        open_to_delete(seat);
        if (!r.yes) Seat::answer = nullptr;
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
    }
}

// Gone already: no red row, yet a history number and a red queue row, in silence. A change writes the
// document again; a deletion has the status of the queue row, its last statement.
TEST_F(請求削除, 他端末が削除済み) {
    lay_documents();
    for (const bool change : {true, false}) {
        at.restore();
        Seat seat(at);
        change ? change_quantity(seat) : open_to_delete(seat);
        for (const char* table : {"T営業請求", "T営業請求明細"}) at.main(std::string("DELETE FROM ") + table);
        change ? register_document(seat) : erase(seat);
        EXPECT_EQ(headers(), change ? "99999999|00000001|20240410|7" : "");
        EXPECT_EQ(journal(),
                  std::string("99999999|00000001|1|630") + (change ? "\n99999999|00000003|1|432" : ""));
        EXPECT_EQ(queue(), std::string("99999999|00000001|1|00000001|0\n99999999|00000002|0|00000001|") +
                               (change ? "1\n99999999|00000003|1|00000001|1" : "2"));
        EXPECT_EQ(Seat::boxes.size(), change ? 0U : 1U);
        EXPECT_EQ(請求ヘッダ.登録結果区分, 1);
        EXPECT_TRUE(実行環境.新規入力中);
    }
}

}  // namespace
}  // namespace kalvane

// A stored document changed and registered: the statements in their order, the journal, and what is left when
// a statement fails.
#include <gtest/gtest.h>

#include "invoice/document.h"
#include "invoice/sequences.h"
#include "invoice/small_company.h"

namespace kalvane {
namespace {

using namespace test;

void change_quantity(const Seat& seat) {
    open_document(seat, "1");
    seat.enter(seat.screen().請求数量[0], "4");
    press_focus(seat.screen().請求伝票備考A);
}

struct 請求変更 : testing::Test {
    請求変更() { lay_masters(at); }
    void update_kind(const std::string& kind) const {
        for (const char* table : {"Mユーザ", "M事業所"})
            at.main(std::string("UPDATE ") + table + " SET 更新実行区分 = '" + kind + "'");
    }
    Installation at{setup::Content::empty};
};

TEST_F(請求変更, 文の順序) {
    lay_documents(at);
    Seat seat(at);
    change_quantity(seat);
    const int mark = history_count(at);
    Recorder recorder;
    register_document(seat);
    expect_sequence(recorder.statements, rights("KalvaneInvoiceEntry") + referred("00000001") + taxes() +
                                             history_number("00000002") + taken_away() +
                                             history_number("00000003") + written_two_lines() +
                                             logged(queue_row("99999999", "00000002", "0", "00000001", "1")) +
                                             logged(queue_row("99999999", "00000003", "1", "00000001", "1")) +
                                             cleared());
    EXPECT_EQ(history_rows(at, mark),
              "出力終了 DELETE FROM T営業請求\n出力終了 INSERT INTO [T営業請求\n"
              "出力終了 INSERT INTO [未集計情報\n出力終了 INSERT INTO [未集計情報");
    EXPECT_EQ(at.main("SELECT 営業請求履歴No, 赤黒区分, 営業請求No, 税抜請求金額合計 FROM R営業請求 ORDER BY "
                      "営業請求履歴No"),
              "00000001|1|00000001|630\n00000002|0|00000001|630\n00000003|1|00000001|432");
    EXPECT_EQ(at.main("SELECT 営業請求固有行No, 営業請求行No, 請求数量, 請求金額 FROM T営業請求明細 ORDER BY "
                      "営業請求行No"),
              "001|001|4|132\n002|002|3|330");
    EXPECT_TRUE(実行環境.新規入力中);
    EXPECT_EQ(seat.screen().営業請求No.text, "00000002");
}

// Red rows are the rows that stood, black ones what was written; each statement reads the clock but for the
// two of the header, and only a red line takes the time of its writing.
TEST_F(請求変更, 赤と黒の写し) {
    lay_documents(at);
    at.main("UPDATE T営業請求 SET 更新日付 = '20240101 010101', ユーザID = 'someone', 完了フラグ = '7'");
    at.main("UPDATE T営業請求明細 SET 更新日付 = '20240101 010102', ユーザID = 'someone', 出荷数量 = 2");
    const auto header = [&](const char* table, const char* where) {
        return at.main(std::string("SELECT ユーザID, 登録日付, 更新日付, 完了フラグ, タイトル FROM ") +
                       table + where);
    };
    const auto lines = [&](const char* table, const char* where) {
        return at.main(std::string("SELECT ユーザID, 登録日付, 更新日付, 出荷数量, 請求数量 FROM ") + table +
                       where + " ORDER BY 営業請求行No");
    };
    Seat seat(at);
    change_quantity(seat);
    int second = 0;  // every look at the clock is one second later
    ado::hook.before = [&](const ado::Connection& c, std::string_view text) {
        if (c.name == "main" && text.starts_with("INSERT"))
            os::freeze_clock({{2024, 4, 10}, 10, 0, ++second});
    };
    os::freeze_clock({{2024, 4, 10}, 10, 0, 0});
    register_document(seat);
    ado::hook = {};
    EXPECT_EQ(header("R営業請求", " WHERE 赤黒区分 = '0'"),
              "someone|20240410 093000|20240101 010101|7|It's 改装");
    // inserts: 1 red header, 2 and 3 red lines, 4 live header …; a text is built before its statement runs
    EXPECT_EQ(lines("R営業請求明細", " WHERE 赤黒区分 = '0'"),
              "someone|20240410 093000|20240410 100001|2|10\nsomeone|20240410 093000|20240410 100002|2|3");
    EXPECT_EQ(header("T営業請求", ""), "tanaka00001SEAT01|20240410 100003|20240101 010101|7|It's 改装");
    EXPECT_EQ(header("R営業請求", " WHERE 営業請求履歴No = '00000003'"), header("T営業請求", ""));
    EXPECT_EQ(lines("T営業請求明細", ""),
              "tanaka00001SEAT01|20240410 100005|20240101 010102|2|4\n"
              "tanaka00001SEAT01|20240410 100007|20240101 010102|2|3");
    EXPECT_EQ(lines("R営業請求明細", " WHERE 営業請求履歴No = '00000003'"),
              "tanaka00001SEAT01|20240410 100006|20240101 010102|2|4\n"
              "tanaka00001SEAT01|20240410 100008|20240101 010102|2|3");
}

TEST_F(請求変更, 一文ずつの失敗) {
    lay_documents(at);
    fail_at_each_position(at, change_quantity, register_document);
}

// Another base date: the new key is written before the old rows go, and the black number is the lower one.
TEST_F(請求変更, 基準日付が変わる) {
    at.main("UPDATE A番号情報 SET 連番種類 = '1' WHERE 番号ID = '16240'");
    lay_documents(at);
    ASSERT_EQ(at.main("SELECT 番号基準日付, 営業請求No FROM T営業請求"), "20250331|00000001");
    const auto dated = [](const std::string& column, const std::string& number) {
        const std::string key =
            " WHERE A期日別番号情報.番号ID = '16240' AND A期日別番号情報.期日 = '20240331'";
        const std::string row = "SELECT A期日別番号情報.* FROM A期日別番号情報" + key;
        const Expected e{{"main", series()}, {"main", row}, {"main", row}};
        return number.empty()
                   ? e
                   : e + sequence("main UPDATE A期日別番号情報 SET  " + column + " = '" + number + "'" + key);
    };
    const auto history = [&](const char* number) {
        return dated("履歴連番", number) + looked_for(number, true, "20240331");
    };
    const auto move_date = [](const Seat& seat) {
        open_document(seat, "1");
        seat.enter(seat.screen().営業請求日付月, "3");
        press_focus(seat.screen().請求伝票備考A);
    };
    {
        Seat seat(at);
        move_date(seat);
        EXPECT_EQ(実行環境.番号基準日付, "20240331");
        EXPECT_EQ(請求ヘッダ.旧番号基準日付, "20250331");
        const int mark = history_count(at);
        Recorder recorder;
        register_document(seat);
        const Expected number =
            dated("連番", "") + dated("連番", "00000001") + looked_for("00000001", false, "20240331");
        expect_sequence(recorder.statements,
                        rights("KalvaneInvoiceEntry") + referred("00000001", "20250331") + taxes("20240310") +
                            number + history("00000001") + written_two_lines() + history("00000002") +
                            taken_away("20250331") +
                            logged(queue_row("20250331", "00000002", "0", "00000001", "1")) +
                            logged(queue_row("20240331", "00000001", "1", "00000001", "1")) +
                            Expected{{"main", series()}} + dated("連番", ""));
        EXPECT_EQ(history_rows(at, mark),
                  "出力終了 INSERT INTO [T営業請求\n出力終了 DELETE FROM T営業請求\n"
                  "出力終了 INSERT INTO [未集計情報\n出力終了 INSERT INTO [未集計情報");
    }
    EXPECT_EQ(at.main("SELECT 番号基準日付, 営業請求No, 営業請求日付 FROM T営業請求"),
              "20240331|00000001|20240310");
    EXPECT_EQ(
        at.main(
            "SELECT 番号基準日付, 営業請求履歴No, 赤黒区分 FROM R営業請求 ORDER BY 赤黒区分, 番号基準日付"),
        "20250331|00000002|0\n20240331|00000001|1\n20250331|00000001|1");
    fail_at_each_position(at, move_date, register_document);
}

// 更新実行区分 0: the queue lies in the configuration database, and both databases are closed and opened.
TEST_F(請求変更, 即時更新) {
    update_kind("0");
    const std::string rest = "\n終了\n開始";
    const Expected reopened = sequence(R"(history INSERT INTO プログラム稼動履歴~
        main SELECT * FROM 使用状況 WHERE
        main UPDATE 使用状況 SET プログラムID = 'KalvaneInvoiceEntry', 終了日時 =~
        config SELECT * FROM データベース定義
        config SELECT * FROM 動作環境定義
        config SELECT * FROM 動作環境定義
        config SELECT * FROM 動作環境定義
        history INSERT INTO プログラム稼動履歴~
        config SELECT * FROM プログラム連携情報
        main DELETE FROM 使用状況 WHERE 終了日時 <~
        main SELECT * FROM 使用状況 WHERE
        main UPDATE 使用状況 SET プログラムID = 'KalvaneInvoiceEntry', 開始日時 =~
        config SELECT * FROM 動作環境定義
        main SELECT M担当者.* FROM M担当者
        main SELECT 更新プログラム FROM A番号情報 WHERE 番号ID = '16240')");
    Seat seat(at);
    int mark = history_count(at);
    type_two_lines(seat);
    {
        Recorder recorder;
        register_document(seat);
        const auto queue =
            std::find_if(recorder.statements.begin(), recorder.statements.end(), [](const Recorded& r) {
                return r.text == queue_row("99999999", "00000001", "1", "00000001", "0");
            });
        ASSERT_NE(queue, recorder.statements.end());
        EXPECT_EQ(queue->connection, "config");
        expect_sequence({queue + 1, recorder.statements.end()}, reopened + cleared());
    }
    EXPECT_EQ(history_rows(at, mark), "出力終了 INSERT INTO [T営業請求" + rest);
    EXPECT_EQ(at.config("SELECT proccounter FROM プログラム稼動履歴 ORDER BY rowid DESC LIMIT 1"),
              "000000000001");

    change_quantity(seat);
    mark = history_count(at);
    register_document(seat);
    EXPECT_EQ(history_rows(at, mark),
              "出力終了 DELETE FROM T営業請求\n出力終了 INSERT INTO [T営業請求" + rest);

    open_document(seat, "1");
    Seat::answer = [](const std::string&) { return true; };
    mark = history_count(at);
    click(seat.screen().btn_削除);
    EXPECT_EQ(history_rows(at, mark), "出力終了 DELETE FROM T営業請求" + rest);

    EXPECT_EQ(at.main("SELECT COUNT(*) FROM 未集計情報"), "0");
    EXPECT_EQ(at.config("SELECT 赤黒区分, 履歴No, 登録情報区分 FROM 未集計情報 ORDER BY rowid"),
              "1|00000001|0\n0|00000002|1\n1|00000003|1\n0|00000004|2");
    EXPECT_FALSE(process_ended());
    EXPECT_TRUE(Seat::boxes.empty() || Seat::boxes == std::vector<std::string>{"削除しますか?"});
}

// Any other value: the queue lies in the configuration database too, and that is all.
TEST_F(請求変更, 未集計情報は設定へ) {
    update_kind("2");
    Seat seat(at);
    const int mark = history_count(at);
    type_two_lines(seat);
    register_document(seat);
    EXPECT_EQ(history_rows(at, mark), "出力終了 INSERT INTO [T営業請求");
    EXPECT_EQ(at.main("SELECT COUNT(*) FROM 未集計情報"), "0");
    EXPECT_EQ(at.config("SELECT 番号基準日付, 伝票No FROM 未集計情報"), "99999999|00000001");
}

// Identities live on while the display order is written anew; a removed identity is not given again unless it
// was the highest.
TEST_F(請求変更, 固有行No) {
    lay_documents(at);
    for (const char* identity : {"003", "007"})
        lay(at, "T営業請求明細",
            std::string("事業所コード=000, 番号基準日付=99999999, 営業請求No=00000001, 営業請求固有行No=") +
                identity + ", 営業請求行No=" + identity + ", 行区分=1, 商品名=" + identity);
    at.main("DELETE FROM T営業請求明細 WHERE 営業請求固有行No = '002'");
    Seat seat(at);
    open_document(seat, "1");
    EXPECT_EQ(請求ヘッダ.最終固有行No, 7);
    seat.line(3, "P1", "1");
    press_focus(seat.screen().請求伝票備考A);
    register_document(seat);
    EXPECT_EQ(at.main("SELECT 営業請求固有行No, 営業請求行No FROM T営業請求明細 ORDER BY 営業請求行No"),
              "001|001\n003|002\n007|003\n008|004");
}

// A document that another invoice names is changed all the same; the question says so.
TEST_F(請求変更, 参照された請求) {
    lay_documents(at, 2);
    at.main(
        "UPDATE T営業請求 SET 参照営業請求事業所コード = '000', 参照営業請求番号基準日付 = '99999999', "
        "参照営業請求No = '00000001' WHERE 営業請求No = '00000002'");
    // and its customer's tax is not what the lines add up to
    at.main("UPDATE T営業請求 SET 得意先消費税端数調整区分 = '0'");
    Seat seat(at);
    std::string words, question;
    Seat::modal = [&](Form& f) {
        if (&f != &msg印刷確認) return;
        words = msg印刷確認.lab_inpmsg.caption;
        question = msg印刷確認.lab_msg.caption;
        EXPECT_EQ(msg印刷確認.active, &msg印刷確認.btn_いいえ);
        click(msg印刷確認.btn_いいえ);
    };
    change_quantity(seat);
    seat.enter(seat.screen().請求単価[0], "33.4");
    press_focus(seat.screen().請求伝票備考A);
    const std::string before = document_rows(at);
    register_document(seat);
    // 133 tax-out and 330 tax-in: 13 and 30 on the lines, and 13 and 30 on the document
    EXPECT_EQ(words, "他の請求に参照済です。");
    EXPECT_EQ(question, "修正します。よろしいですか？");
    EXPECT_EQ(document_rows(at), before);
    EXPECT_FALSE(実行環境.新規入力中);
    EXPECT_EQ(実行環境.最終行, 1);

    // 14.5 at 1 makes 14 and tax 1; twice that the document's tax is 3 of 29 (2.9)
    seat.enter(seat.screen().請求数量[0], "1");
    seat.enter(seat.screen().請求単価[0], "14.5");
    seat.enter(seat.screen().請求数量[1], "0");
    seat.enter(seat.screen().請求単価[1], "0");
    press_focus(seat.screen().請求伝票備考A);
    請求明細行[1] = 請求明細行[0];
    請求明細行[1].請求金額 = 通貨::whole(15);
    請求明細行[1].請求単価 = {};
    請求明細行[1].請求消費税 = 通貨::whole(1);
    register_document(seat);
    EXPECT_EQ(words, "他の請求に参照済です。\r合計計算消費税は2円です。\r消費税に1円の差額が有ります。");
}

// Gone in between: nothing to take away, and the document is written again. The red number is used up, and
// the red queue row is written.
TEST_F(請求変更, 他端末が削除済み) {
    lay_documents(at);
    Seat seat(at);
    change_quantity(seat);
    at.main("DELETE FROM T営業請求");
    at.main("DELETE FROM T営業請求明細");
    register_document(seat);
    EXPECT_EQ(at.main("SELECT 営業請求No, 請求数量合計 FROM T営業請求"), "00000001|7");
    EXPECT_EQ(at.main("SELECT 営業請求履歴No, 赤黒区分 FROM R営業請求 ORDER BY 営業請求履歴No"),
              "00000001|1\n00000003|1");
    EXPECT_EQ(at.main("SELECT 履歴No, 赤黒区分 FROM 未集計情報 ORDER BY rowid"),
              "00000001|1\n00000002|0\n00000003|1");
    EXPECT_TRUE(Seat::boxes.empty());
}

// An emptied number on a loaded document: the preview is written, and the counter does not move.
TEST_F(請求変更, 番号を空にして登録) {
    lay_documents(at);
    Seat seat(at);
    open_document(seat, "1");
    empty_field(seat, seat.screen().営業請求No);
    EXPECT_EQ(実行環境.営業請求No, "00000002");
    EXPECT_FALSE(実行環境.新規入力中);
    EXPECT_EQ(実行環境.最終行, 1);
    press_focus(seat.screen().請求伝票備考A);
    register_document(seat);
    EXPECT_EQ(at.main("SELECT 営業請求No FROM T営業請求"), "00000002");
    EXPECT_EQ(at.main("SELECT 連番 FROM A番号情報 WHERE 番号ID = '16240'"), "00000001");
}

// A run that was started for one document ends with its save; only a new one tells its key.
TEST_F(請求変更, 引数起動) {
    {
        Seat seat(at, "0000000000000000000");
        EXPECT_TRUE(実行環境.引用起動);
        type_two_lines(seat);
        register_document(seat);
        EXPECT_TRUE(process_ended());
        EXPECT_EQ(実行環境.終了連携情報, "0009999999900000001");
    }
    Seat seat(at, "0009999999900000001");
    EXPECT_FALSE(実行環境.新規入力中);
    seat.enter(seat.screen().請求数量[0], "4");
    press_focus(seat.screen().請求伝票備考A);
    register_document(seat);
    EXPECT_TRUE(process_ended());
    EXPECT_EQ(実行環境.終了連携情報, "");
    EXPECT_EQ(at.main("SELECT 請求数量合計 FROM T営業請求"), "7");
}

// The opening anew takes the site of the seat, and the waiting caller is told of that one.
TEST_F(請求変更, 引数起動と即時更新) {
    update_kind("0");
    Seat seat(at, "0010000000000000000");
    type_two_lines(seat);
    register_document(seat);
    EXPECT_TRUE(process_ended());
    EXPECT_EQ(at.main("SELECT 事業所コード, 営業請求No FROM T営業請求"), "001|00000001");
    EXPECT_EQ(実行環境.終了連携情報, "0009999999900000001");
}

}  // namespace
}  // namespace kalvane

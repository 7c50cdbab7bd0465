// A document registered, and a stored one changed: the statements in their order, the journal, and what is
// left when a statement fails.
#include <gtest/gtest.h>

#include "records/columns.h"
#include "records/document.h"
#include "support/sequences.h"
#include "support/small_company.h"

namespace kalvane {
namespace {

using namespace test;

const std::string header_columns_written =
    R"(事業所コード 番号基準日付 営業請求No 営業見積事業所コード 営業見積番号基準日付 営業見積No 顧客注文事業所コード 顧客注文番号基準日付 顧客注文No 営業納品事業所コード )"
    R"(営業納品番号基準日付 営業納品No 参照営業請求事業所コード 参照営業請求番号基準日付 参照営業請求No 営業請求日付 得意先コード 得意先名称A 得意先名称B 得意先御担当者コード 御担当者名 )"
    R"(担当者コード 部門コード セクションコード 納品先コード 納品先名称A 納品先名称B タイトル 支払条件 消費税表示区分 合計表示区分 請求伝票備考A 請求伝票備考B 請求数量合計 請求金額合計 )"
    R"(税抜請求金額合計 請求消費税合計 税込請求金額合計 仕入数量合計 仕入金額合計 税抜仕入金額合計 仕入消費税合計 税込仕入金額合計 得意先消費税区分 得意先消費税算出区分 得意先消費税丸め方法 )"
    R"(得意先消費税丸め桁位置 得意先消費税端数調整区分 得意先名称入力区分 納品先名称入力区分 出荷完了区分 売上完了区分 完了フラグ 伝票発行区分 営業請求メモ 承認日付 承認者コード 承認区分 )"
    R"(ユーザID 登録日付 更新日付)";
const std::string journal_line_columns =
    R"(事業所コード 番号基準日付 営業請求履歴No 赤黒区分 営業請求No 営業請求固有行No 営業請求行No 営業請求日付 得意先コード 担当者コード 部門コード セクションコード 納品先コード 行区分 )"
    R"(商品コード 商品名 請求数量 請求単位 請求単価 請求金額 請求消費税 売上課税区分 売上消費税区分 仕入先コード 仕入先名称A 仕入数量 仕入単位 仕入単価 仕入金額 仕入消費税 仕入課税区分 )"
    R"(仕入消費税区分 計区分 商品売上課税区分 商品売上消費税区分 商品仕入課税区分 商品仕入消費税区分 商品税抜販売単価 商品税抜仕入単価 商品税込販売単価 商品税込仕入単価 商品名称入力区分 )"
    R"(仕入先消費税区分 仕入先消費税算出区分 仕入先消費税丸め方法 仕入先消費税丸め桁位置 仕入先消費税端数調整区分 仕入先名称入力区分 出荷数量 税抜出荷金額 税込出荷金額 売上数量 税抜売上金額 )"
    R"(税込売上金額 明細完了区分 明細完了日付 明細メモ 承認日付 承認者コード 承認区分 ユーザID 登録日付 更新日付)";
std::string insert(const std::string& table, const std::string& columns, const std::string& row) {
    return "INSERT INTO [" + table + "] ([" + Replace(columns, " ", "],[") + "]) VALUES (" + row + ")";
}

using 請求登録 = SmallCompany;

TEST_F(請求登録, 文の順序) {
    const std::string header =
        R"('000','99999999','00000001','','','','','','','','','','','','','20240410','000123','株式会社 山田商店',)"
        R"('東京本店','','鈴木','00001','010','020','','','','It''s 改装','','1','1','','',13.0,660,630,63,693,13.000,)"
        R"(380,380,38,418,'1','2','5','0','1','0','1','0','0','0','0','','','','','tanaka00001SEAT01',)"
        R"('20240410 093000','')";
    const std::string line =
        R"('000','99999999','00000001','1','00000001','001','001','20240410','000123','00001','010','020',)"
        R"('','1','P1','鉛筆HB',10.0,'本',33.00,330,33,'0','1','','',10.000,'本',20.0000,200,20,'0','1','1','0','0',)"
        R"('0','0',33.00,20.0000,36.00,22.0000,'1','1','1','5','0','0','0',0.0,0,0,0.0,0,0,'0','','','','','0',)"
        R"('tanaka00001SEAT01','20240410 093000','')";
    Seat seat(at);
    type_two_lines(seat);
    Recorder recorder;
    register_document(seat);
    expect_sequence(
        recorder.statements,
        rights("KalvaneInvoiceEntry") + taxes() + cleared() +
            sequence("main UPDATE A番号情報 SET  連番 = '00000001' WHERE A番号情報.番号ID = '16240'") +
            looked_for("00000001", false) + history_number("00000001") +
            logged(insert("T営業請求", header_columns_written, header)) +
            sequence("main INSERT INTO [R営業請求] (\nmain INSERT INTO [T営業請求明細] (") +
            Expected{{"main", insert("R営業請求明細", journal_line_columns, line)}} +
            sequence("main INSERT INTO [T営業請求明細] (\nmain INSERT INTO [R営業請求明細] (") +
            logged(queue_row("99999999", "00000001", "1", "00000001", "0")) + cleared());
    // the second line is priced tax-in: 100 and its tax of 10, three times
    EXPECT_TRUE(
        contains(recorder.statements.at(20).text, "'P2','O''Brien Pad',3.0,'冊',110.00,330,30,'0','2'"));
}

TEST_F(請求登録, 一文ずつの失敗) {
    at.keep();
    fail_at_each_position(at, type_two_lines, register_document);
}

// Save and print asks for the right to print behind the last row.
TEST_F(請求登録, 質問の答え) {
    Seat seat(at);
    Seat::modal = [](Form&) { click(msg印刷確認.btn_登録印刷); };
    type_two_lines(seat);
    Recorder recorder;
    register_document(seat);
    expect_end(recorder.statements,
               logged("INSERT INTO [未集計情報] (") + rights("KalvaneInvoicePrint") + cleared());
}

struct 請求変更 : SmallCompany {
    void update_kind(const std::string& kind) const {
        for (const char* table : {"Mユーザ", "M事業所"})
            at.main(std::string("UPDATE ") + table + " SET 更新実行区分 = '" + kind + "'");
    }
};

TEST_F(請求変更, 文の順序) {
    lay_documents();
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
    EXPECT_EQ(journal(), "99999999|00000001|1|630\n99999999|00000002|0|630\n99999999|00000003|1|432");
    EXPECT_EQ(lines(), "001|001|4|132\n002|002|3|330");
    EXPECT_TRUE(実行環境.新規入力中);
    EXPECT_EQ(seat.screen().営業請求No.text, "00000002");
}

// Red rows are the rows that stood, black ones what was written; each statement reads the clock but for the
// two of the header, and only a red line takes the time of its writing.
TEST_F(請求変更, 赤と黒の写し) {
    lay_documents();
    at.main("UPDATE T営業請求 SET 更新日付 = '20240101 010101', ユーザID = 'someone', 完了フラグ = '7'");
    at.main("UPDATE T営業請求明細 SET 更新日付 = '20240101 010102', ユーザID = 'someone', 出荷数量 = 2");
    Seat seat(at);
    change_quantity(seat);
    int second = 0;  // a text is built before its statement runs, and each insert ends a second
    os::freeze_clock({{2024, 4, 10}, 10, 0, 0});
    ado::hook.before = [&](const ado::Connection& c, std::string_view text) {
        if (c.name == "main" && text.starts_with("INSERT"))
            os::freeze_clock({{2024, 4, 10}, 10, 0, ++second});
    };
    register_document(seat);
    ado::hook = {};
    const auto rows = [&](const char* header, const char* lines, const std::string& where) {
        const std::string select = "SELECT ユーザID, 登録日付, 更新日付, ";
        return at.main(select + "完了フラグ, タイトル FROM " + header + where) + "\n" +
               at.main(select + "出荷数量, 請求数量 FROM " + lines + where + " ORDER BY 営業請求行No");
    };
    EXPECT_EQ(rows("R営業請求", "R営業請求明細", " WHERE 赤黒区分 = '0'"),
              "someone|20240410 093000|20240101 010101|7|It's 改装\n"
              "someone|20240410 093000|20240410 100001|2|10\nsomeone|20240410 093000|20240410 100002|2|3");
    const std::string header = "tanaka00001SEAT01|20240410 100003|20240101 010101|7|It's 改装\n";
    EXPECT_EQ(rows("T営業請求", "T営業請求明細", ""),
              header +
                  "tanaka00001SEAT01|20240410 100005|20240101 010102|2|4\n"
                  "tanaka00001SEAT01|20240410 100007|20240101 010102|2|3");
    EXPECT_EQ(rows("R営業請求", "R営業請求明細", " WHERE 営業請求履歴No = '00000003'"),
              header +
                  "tanaka00001SEAT01|20240410 100006|20240101 010102|2|4\n"
                  "tanaka00001SEAT01|20240410 100008|20240101 010102|2|3");
}

TEST_F(請求変更, 一文ずつの失敗) {
    lay_documents();
    fail_at_each_position(at, change_quantity, register_document);
}

// Another base date: the new key is written before the old rows go, and the black number is the lower one.
TEST_F(請求変更, 基準日付が変わる) {
    at.main("UPDATE A番号情報 SET 連番種類 = '1' WHERE 番号ID = '16240'");
    lay(at, "A期日別番号情報", "番号ID=16240, 期日=20240331, 連番=00000004, 履歴連番=00000000");
    lay_documents();
    const auto move_date = [](const Seat& seat) {
        open_document(seat, "1");
        seat.enter(seat.screen().営業請求日付月, "3");
        press_focus(seat.screen().請求伝票備考A);
    };
    const std::string key = " WHERE A期日別番号情報.番号ID = '16240' AND A期日別番号情報.期日 = '20240331'";
    const std::string row = "SELECT A期日別番号情報.* FROM A期日別番号情報" + key;
    const Expected preview{{"main", series()}, {"main", row}, {"main", row}};
    const auto counted = [&](const std::string& column, const std::string& number) {
        return preview +
               Expected{{"main", "UPDATE A期日別番号情報 SET  " + column + " = '" + number + "'" + key}} +
               looked_for(number, column == "履歴連番", "20240331");
    };
    {
        Seat seat(at);
        move_date(seat);
        EXPECT_EQ(請求ヘッダ.集計日付, "20240331");
        const int mark = history_count(at);
        Recorder recorder;
        register_document(seat);
        expect_sequence(recorder.statements,
                        rights("KalvaneInvoiceEntry") + referred("00000001", "20250331") + taxes("20240310") +
                            preview + counted("連番", "00000005") + counted("履歴連番", "00000001") +
                            written_two_lines() + counted("履歴連番", "00000002") + taken_away("20250331") +
                            logged(queue_row("20250331", "00000002", "0", "00000001", "1")) +
                            logged(queue_row("20240331", "00000001", "1", "00000005", "1")) +
                            Expected{{"main", series()}} + preview);
        EXPECT_EQ(history_rows(at, mark),
                  "出力終了 INSERT INTO [T営業請求\n出力終了 DELETE FROM T営業請求\n"
                  "出力終了 INSERT INTO [未集計情報\n出力終了 INSERT INTO [未集計情報");
    }
    EXPECT_EQ(headers(), "20240331|00000005|20240310|13");
    EXPECT_EQ(journal(), "20250331|00000001|1|630\n20240331|00000001|1|630\n20250331|00000002|0|630");
    fail_at_each_position(at, move_date, register_document);
}

// Red rows of a document that has moved carry a number of its new base date, which its old one may have used.
TEST_F(請求変更, 変更の後に基準日付が変わる) {
    at.main("UPDATE A番号情報 SET 連番種類 = '1' WHERE 番号ID = '16240'");
    lay_documents();
    Seat seat(at);
    change_quantity(seat);
    register_document(seat);
    open_document(seat, "1");
    seat.enter(seat.screen().営業請求日付月, "3");
    press_focus(seat.screen().請求伝票備考A);
    register_document(seat);
    EXPECT_EQ(journal(),
              "20250331|00000001|1|630\n20250331|00000002|0|630\n20250331|00000003|1|432\n"
              "20240331|00000001|1|432\n20250331|00000002|0|432");
    EXPECT_EQ(at.main("SELECT COUNT(*) FROM R営業請求明細 WHERE 営業請求履歴No = '00000002'"), "4");
    EXPECT_EQ(headers(), "20240331|00000001|20240310|7");
    EXPECT_EQ(at.config("SELECT COUNT(*) FROM プログラム稼動履歴 WHERE 摘要 LIKE 'エラー %'"), "0");
}

// Nothing that a stored document holds breaks a statement of its change: quotes in every text, a NUL in one.
TEST_F(請求変更, 異様な文字) {
    lay_documents();
    const auto lay_odd = [&](const std::string& table, const auto& columns) {
        std::string names, changes;
        for (const auto& c : columns) {
            const std::string name(c.field.column);
            if ((c.kind != ColumnKind::text && c.kind != ColumnKind::name) || name.ends_with("日付") ||
                name == "承認区分" || name.ends_with("行No"))
                continue;
            names += (names.empty() ? "" : ", ") + name;
            changes += (changes.empty() ? "" : ", ") + name + " = '" + std::to_string(names.size()) + "''" +
                       (name == "タイトル" ? "' || char(0) || '" : "") + "q'";
        }
        at.main("UPDATE " + table + " SET " + changes);
        return "SELECT DISTINCT " + names + " FROM ";
    };
    const std::string header = lay_odd("T営業請求", header_columns),
                      line = lay_odd("T営業請求明細", line_columns);
    const std::string odd_header = at.main(header + "T営業請求"), odd_line = at.main(line + "T営業請求明細");
    Seat seat(at);
    change_quantity(seat);
    register_document(seat);
    EXPECT_EQ(headers(), "99999999|00000001|20240410|7");
    for (const char* table : {"T営業請求", "R営業請求 WHERE 営業請求履歴No > '00000001'"})
        EXPECT_EQ(at.main(header + table), odd_header);
    for (const char* table : {"T営業請求明細", "R営業請求明細 WHERE 営業請求履歴No > '00000001'"})
        EXPECT_EQ(at.main(line + table), odd_line);
    EXPECT_EQ(at.main("SELECT COUNT(*) FROM R営業請求明細"), "6");
    EXPECT_EQ(at.config("SELECT COUNT(*) FROM プログラム稼動履歴 WHERE 摘要 LIKE 'エラー %'"), "0");
}

// 更新実行区分 0: the queue lies in the configuration database, and both databases are closed and opened.
TEST_F(請求変更, 即時更新) {
    update_kind("0");
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
    const std::string reopening = "\n終了\n開始";
    const auto history_of = [&](const std::function<void(const Seat&)>& act) {
        const int mark = history_count(at);
        act(seat);
        return history_rows(at, mark);
    };
    type_two_lines(seat);
    const auto watched = [&](const Seat& at_it) {
        Recorder recorder;
        register_document(at_it);
        expect_end(recorder.statements,
                   Expected{{"config", queue_row("99999999", "00000001", "1", "00000001", "0")}} + reopened +
                       cleared());
    };
    EXPECT_EQ(history_of(watched), "出力終了 INSERT INTO [T営業請求" + reopening);
    EXPECT_EQ(at.config("SELECT proccounter FROM プログラム稼動履歴 ORDER BY rowid DESC LIMIT 1"),
              "000000000001");
    change_quantity(seat);
    EXPECT_EQ(history_of(register_document),
              "出力終了 DELETE FROM T営業請求\n出力終了 INSERT INTO [T営業請求" + reopening);
    open_document(seat, "1");
    say_yes();
    EXPECT_EQ(history_of([](const Seat& s) { click(s.screen().btn_削除); }),
              "出力終了 DELETE FROM T営業請求" + reopening);
    EXPECT_EQ(queue(), "");
    EXPECT_EQ(at.config(queue_rows),
              "99999999|00000001|1|00000001|0\n99999999|00000002|0|00000001|1\n"
              "99999999|00000003|1|00000001|1\n99999999|00000004|0|00000001|2");
    EXPECT_FALSE(process_ended());
    EXPECT_EQ(Seat::boxes, std::vector<std::string>{"削除しますか?"});
}

// Any other value: the queue lies in the configuration database too, and that is all.
TEST_F(請求変更, 未集計情報は設定へ) {
    update_kind("2");
    Seat seat(at);
    const int mark = history_count(at);
    type_two_lines(seat);
    register_document(seat);
    EXPECT_EQ(history_rows(at, mark), "出力終了 INSERT INTO [T営業請求");
    EXPECT_EQ(queue() + at.config(queue_rows), "99999999|00000001|1|00000001|0");
}

// Identities live on while the display order is written anew; a removed identity is not given again unless it
// was the highest.
TEST_F(請求変更, 固有行No) {
    lay_documents();
    for (const char* line :
         {"営業請求固有行No=007, 営業請求行No=003", "営業請求固有行No=003, 営業請求行No=004"})
        lay(at, "T営業請求明細",
            std::string("事業所コード=000, 番号基準日付=99999999, 営業請求No=00000001, 行区分=1, ") + line);
    at.main("DELETE FROM T営業請求明細 WHERE 営業請求固有行No = '002'");
    Seat seat(at);
    open_document(seat, "1");
    seat.line(3, "P1", "1");
    press_focus(seat.screen().請求伝票備考A);
    register_document(seat);
    EXPECT_EQ(lines(), "001|001|10|330\n007|002|0|0\n003|003|0|0\n008|004|1|33");
}

// A document that another invoice names is changed all the same; the question says so, and tells of a tax
// that is not what the lines add up to.
TEST_F(請求変更, 参照された請求) {
    lay_documents(2);
    refer("00000001", "00000002");
    at.main("UPDATE T営業請求 SET 得意先消費税端数調整区分 = '0'");
    Seat seat(at);
    std::string question;
    Seat::modal = [&](Form&) {
        question = msg印刷確認.lab_inpmsg.caption + "/" + msg印刷確認.lab_msg.caption;
        EXPECT_EQ(msg印刷確認.active, &msg印刷確認.btn_いいえ);
        click(msg印刷確認.btn_いいえ);
    };
    change_quantity(seat);
    seat.enter(seat.screen().請求単価[0], "33.4");
    press_focus(seat.screen().請求伝票備考A);
    const std::string before = document_rows(at);
    register_document(seat);
    // 133 tax-out and 330 tax-in: 13 and 30 on the lines, and 13 and 30 on the document
    EXPECT_EQ(question, "他の請求に参照済です。/修正します。よろしいですか？");
    EXPECT_EQ(document_rows(at), before);
    EXPECT_FALSE(実行環境.新規入力中);

    // two amounts of 14 and 15 with a tax of 1 each, while that of 29 is 3 (2.9)
    for (int i : {0, 1}) {
        請求明細行[i] = LineRecord();
        請求明細行[i].請求金額 = 通貨::whole(14 + i);
        請求明細行[i].請求消費税 = 通貨::whole(1);
    }
    register_document(seat);
    EXPECT_EQ(question,
              "他の請求に参照済です。\r合計計算消費税は2円です。\r消費税に1円の差額が有ります。/"
              "修正します。よろしいですか？");
}

// An emptied number on a loaded document: the preview is written, and the counter does not move.
TEST_F(請求変更, 番号を空にして登録) {
    lay_documents();
    Seat seat(at);
    open_document(seat, "1");
    press_focus(seat.screen().営業請求No);
    press_key(seat.screen(), Key::Delete);
    press_focus(seat.screen().請求伝票備考A);
    EXPECT_EQ(実行環境.営業請求No, "00000002");
    EXPECT_FALSE(実行環境.新規入力中);
    register_document(seat);
    EXPECT_EQ(headers(), "99999999|00000002|20240410|13");
    EXPECT_EQ(at.main("SELECT 連番 FROM A番号情報 WHERE 番号ID = '16240'"), "00000001");
}

// A run that was started for one document ends with its save or deletion; only a new one tells its key.
TEST_F(請求変更, 引数起動) {
    struct Run {
        const char* command_line;
        void (*type)(const Seat&);
        Control EntryScreen::*button;
        const char *reply, *left;
    };
    for (const Run& run :
         {Run{"0000000000000000000", type_two_lines, &EntryScreen::btn_登録, "0009999999900000001", "13"},
          Run{"0009999999900000001", change_quantity, &EntryScreen::btn_登録, "", "7"},
          Run{"0009999999900000001", [](const Seat&) { say_yes(); }, &EntryScreen::btn_削除, "", ""}}) {
        Seat seat(at, run.command_line);
        run.type(seat);
        click(seat.screen().*run.button);
        EXPECT_TRUE(process_ended());
        EXPECT_EQ(実行環境.終了連携情報, run.reply);
        EXPECT_EQ(at.main("SELECT 請求数量合計 FROM T営業請求"), run.left);
    }
}

// The opening anew takes the site of the seat, and the waiting caller is told of that one.
TEST_F(請求変更, 引数起動と即時更新) {
    update_kind("0");
    at.config(
        "INSERT INTO プログラム連携情報 VALUES ('20240410 093000', 'KalvaneCaller', 'KalvaneInvoiceEntry', "
        "'20240410 093000', '00', '0010000000000000000', '', '000', '00001', 'tanaka')");
    Seat seat(at, "0010000000000000000");
    type_two_lines(seat);
    register_document(seat);
    EXPECT_TRUE(process_ended());
    // the caller hears from the re-opening before the number is known; the end answers nobody
    EXPECT_EQ(at.config("SELECT 発信プログラムID, 終了連携情報 FROM プログラム連携情報 WHERE 連携区分 = '99' "
                        "ORDER BY rowid"),
              "KalvaneCaller|\n|0009999999900000001");
    EXPECT_EQ(at.main("SELECT 事業所コード, 営業請求No FROM T営業請求"), "001|00000001");
    EXPECT_EQ(実行環境.終了連携情報, "0009999999900000001");
}

}  // namespace
}  // namespace kalvane

// Stored invoices read into the document.
#include "document/loading.h"

#include <gtest/gtest.h>

#include "records/columns.h"
#include "support/sequences.h"
#include "support/source_rows.h"

namespace kalvane {
namespace {

using namespace test;

using 読込 = SmallCompany;

// Every column comes back as it was: opened and registered, the live row differs in its writer, its time and
// the totals alone; what is shown in the head comes from the masters.
TEST_F(読込, 請求の全項目) {
    // the lines' copies of the header are written from the header
    const std::string
        not_laid =
            " 営業請求日付 得意先消費税算出区分 得意先消費税端数調整区分 営業請求固有行No 営業請求行No ",
        copies = " 営業請求日付 得意先コード 担当者コード 部門コード セクションコード 納品先コード ",
        written_anew =
            " ユーザID 登録日付 請求数量合計 請求金額合計 税抜請求金額合計 請求消費税合計 "
            "税込請求金額合計 仕入数量合計 仕入金額合計 税抜仕入金額合計 仕入消費税合計 "
            "税込仕入金額合計 ";
    const auto names = [](const auto& columns, const std::string& but, auto each) {
        std::string all;
        for (const auto& c : columns)
            if (!contains(but, " " + std::string(c.field.column) + " "))
                all.append(all.empty() ? "" : ", ").append(each(c));
        return all;
    };
    // a value for each column but those that follow from others
    const auto assigned = [n = 0](const auto& c) mutable {
        const std::string name(c.field.column);
        ++n;
        if (c.kind == ColumnKind::key || c.kind == ColumnKind::stamp) return name + " = " + name;
        if (name == "行区分" || name == "計区分") return name + " = '1'";
        const bool number = c.kind == ColumnKind::digit || c.kind == ColumnKind::number_text ||
                            !is_quoted(c.kind) || name == "承認区分";
        return name + " = '" + (number ? "" : "値") + std::to_string(n) + "'";
    };
    lay_documents();
    at.main("UPDATE T営業請求 SET 得意先消費税算出区分 = '1', 得意先消費税端数調整区分 = '0', " +
            names(header_columns, not_laid, assigned));
    at.main("UPDATE T営業請求明細 SET " + names(line_columns, not_laid + copies, assigned));
    const auto rows = [&] {
        const auto name = [](const auto& c) { return std::string(c.field.column); };
        return at.main("SELECT " + names(header_columns, written_anew, name) + " FROM T営業請求") + "\n" +
               at.main("SELECT " + names(line_columns, written_anew + copies, name) +
                       " FROM T営業請求明細 ORDER BY 4");
    };
    const std::string before = rows();
    Seat seat(at);
    os::freeze_clock({{2024, 4, 11}, 9, 30, 0});
    open_document(seat, "1");
    EXPECT_EQ(
        values("旧営業請求日付 旧事業所コード 旧番号基準日付 旧営業請求No 集計日付 入力変更あり 新規入力中"),
        "20240410,000,99999999,00000001,20240430,0,0");
    EXPECT_EQ(請求ヘッダ.営業請求日付年 + "/" + 請求ヘッダ.営業請求日付月 + "/" + 請求ヘッダ.営業請求日付日,
              "2024/04/10");
    EXPECT_EQ(請求ヘッダ.最終固有行No, 2);
    // each value stands in the field that is named after its column
    const auto shown = [&](const auto& columns, const std::string& table, int row) {
        int fields = 0;
        for (const auto& c : columns) {
            const Control* field = find_control(seat.screen(), c.field.column, row);
            if (!field || contains(written_anew, " " + std::string(c.field.column) + " ")) continue;
            ++fields;
            EXPECT_EQ(field->kind == ControlKind::xNum ? plain_number(field->value) : field->text,
                      at.main("SELECT " + std::string(c.field.column) + " FROM " + table))
                << c.field.column;
        }
        return fields;
    };
    EXPECT_EQ(shown(header_columns, "T営業請求", -1), 26);
    EXPECT_EQ(shown(line_columns, "T営業請求明細 WHERE 営業請求行No = '001'", 0), 15);
    dispatch([] { 登録処理(); });
    EXPECT_EQ(rows(), before);
    EXPECT_EQ(at.main("SELECT 登録日付 FROM T営業請求"), "20240411 093000");
}

// A NULL leaves its field as the document before it had it.
TEST_F(読込, 空値は前の伝票のまま) {
    lay_documents();
    lay_header(at, stored, "00000009", ", 営業請求日付=20240401");
    lay_line(at, stored, "00000009", "004");
    Seat seat(at);
    open_document(seat, "1");
    請求ヘッダ.得意先対応先コード = "000555";
    const std::string before = head();
    open_document(seat, "9");
    EXPECT_EQ(head(), before);
    EXPECT_EQ(values("営業請求No 旧営業請求日付 最終行"), "00000009,20240401,0");
    EXPECT_EQ(請求ヘッダ.最終固有行No, 4);
    EXPECT_EQ(values(line_figures, 0), fresh_figures);
    EXPECT_EQ(values(line_settings, 0), fresh_settings);
}

// The figures of stored lines stay, wrong as they may be; the approval of the head is held as a number. Named
// on the command line, the stored totals are shown too, and those that are not read as 0.
TEST_F(読込, 明細は計算しない) {
    lay_full_header(at, stored, "00000007");
    lay_two_lines(at, stored, "00000007");
    at.main(
        R"(UPDATE T営業請求 SET 営業請求日付 = '20240401', 承認区分 = '01', 担当者コード = '00077', 部門コード = '099', )"
        R"(請求金額合計 = 4, 請求数量合計 = 3, 仕入数量合計 = 2, 仕入金額合計 = 1)");
    at.main("UPDATE T営業請求明細 SET 承認区分 = '01', 請求数量 = '12個' WHERE 営業請求行No = '001'");
    for (const bool named : {true, false}) {
        Seat seat(at, named ? "0009999999900000007" : "");
        if (!named) open_document(seat, "7");
        EXPECT_EQ(請求ヘッダ.承認区分 + "/" + 請求明細行[0].承認区分, "1/01");
        EXPECT_EQ(values("新規入力中 最終行"), "0,1");
        EXPECT_EQ(values(line_figures, 0), "Q1,品一,12,箱,100,999,77,1,1,000333,,仕先,3,組,50,888,66,1,1");
        // 999 and 77, not taxed and tax-out, and 500 and 7; the tax of the lines
        EXPECT_EQ(values(totals), named ? "1001,1002,1003,1004,1005,1006" : "1499,84,1583,1288,72,1360");
        EXPECT_EQ(values("請求金額合計 請求数量合計 仕入金額合計 仕入数量合計"),
                  named ? "0,0,0,0" : "1499,12,1288,3");
        EXPECT_EQ(values(staff), "00077,,099,,020,第一課");  // the masters have gone
    }
    EXPECT_EQ(at.main("SELECT 伝票No FROM T閲覧"), "00000007\n00000007");
}

// The statements of an opened invoice, with its one row in the run history; of one that does not exist; and
// of the neighbour of one.
TEST_F(読込, 文の順序) {
    lay_documents(2);
    Seat seat(at);
    const int mark = history_count(at);
    const auto opened = [](const std::string& browse, const std::string& number) {
        const Expected series_row{{"main", series("01110")}};
        return series_row + series_row +
               sequence(Replace(R"(main UPDATE A番号情報 SET  連番 = '@' WHERE A番号情報.番号ID = '01110'
        main SELECT 閲覧No FROM T閲覧 WHERE 事業所コード = '000' AND 番号基準日付 = '99999999' AND 閲覧No = '@'
        main INSERT INTO [T閲覧] ()",
                                "@", browse)) +
               logged(header_read(stored, "000", "99999999", number));
    };
    const auto read = [](const std::string& number) {
        return sequence(Replace(R"(main SELECT T営業請求明細.* FROM T営業請求明細  WHERE \
          T営業請求明細.事業所コード = '000' AND T営業請求明細.番号基準日付 = '99999999' AND \
          T営業請求明細.営業請求No = '@' ORDER BY T営業請求明細.営業請求行No)",
                                "@", number)) +
               taxes() + referred(number) +
               sequence(R"(config SELECT * FROM プログラムクリップボード明細 WHERE 貼付プログラムID = \
          'KalvaneInvoiceEntry' AND 貼付情報区分 = '1' AND 伝票番号ID = '16240' AND 貼付日時 < \
          '20240410 093000' ORDER BY 貼付日時 DESC)");
    };
    const auto run_as = [](const Expected& expected, const std::function<void()>& act) {
        Recorder recorder;
        act();
        expect_sequence(recorder.statements, expected);
    };
    const auto open = [&](const char* number) { return [&seat, number] { open_document(seat, number); }; };
    run_as(opened("00000001", "00000002") + read("00000002"), open("2"));
    run_as(opened("00000002", "00000077") + cleared(), open("77"));
    EXPECT_EQ(history_rows(at, mark), "出力終了 SELECT TOP 1 T営業請求\n出力終了 SELECT TOP 1 T営業請求");
    EXPECT_EQ(seat.screen().お知らせ.caption, "新規情報です。");
    EXPECT_EQ(values("営業請求No 入力変更あり"), "00000003,0");
    open("2")();
    const Expected neighbour = sequence(R"(main SELECT TOP 1 番号基準日付,営業請求No FROM T営業請求 WHERE \
        事業所コード = '000' AND ((営業請求日付 = '20240410' AND 営業請求No < '00000002') OR 営業請求日付 < \
        '20240410') ORDER BY 営業請求日付 DESC, 営業請求No DESC)");
    run_as(neighbour + neighbour + opened("00000004", "00000001") + read("00000001"),
           [&] { click(seat.screen().btn_前No); });
}

// Only the reads of the header and of the lines are missed on the screen; without its lines the invoice is
// new, but known.
TEST_F(読込, 一文ずつの失敗) {
    lay_documents(2);
    int unknown = 0, without_lines = 0;
    const auto open = [&](const Seat& seat) {
        open_document(seat, "2");
        const bool known = !請求ヘッダ.旧営業請求No.empty(), lines = 実行環境.最終行 == 1;
        unknown += !known;
        without_lines += known && !lines;
        EXPECT_EQ(実行環境.新規入力中, !lines);
        EXPECT_EQ(請求明細行[1].商品コード, lines ? "P2" : "");
        EXPECT_EQ(seat.screen().お知らせ.caption, known ? "" : "新規情報です。");
    };
    fail_at_each_position(
        at, [](const Seat&) {}, open);
    EXPECT_EQ(unknown, 1);
    EXPECT_EQ(without_lines, 1);
}

// The decisions on a typed or picked number of the invoice.
TEST_F(読込, 番号の判定) {
    lay_documents();
    Seat seat(at);
    open_document(seat, "1");
    実行環境.選択戻り値 = "C0012023033100000001";
    EXPECT_FALSE(営業請求No変更("00000001"));  // though the pick names another site
    EXPECT_FALSE(実行環境.入力変更あり);
    EXPECT_EQ(実行環境.選択戻り値, "C0012023033100000001");
    // the pick that was left is taken by the next number of any kind
    EXPECT_TRUE(営業見積No変更("00000005"));
    EXPECT_EQ(実行環境.選択戻り値, "");
    for (const auto& r : table(R"(C0012023033100000001|001|20230331| ; |000|99999999|
        T営業請求.x = '12345678'|000|99999999|left ; T営業請求.得意先 = '1234'|000|99999999|left)")) {
        SCOPED_TRACE(r[0]);
        実行環境.選択戻り値 = r[0];
        Recorder recorder;
        営業請求No変更("00000088");
        const std::string sought = header_read(stored, r[1], r[2], "00000088");
        EXPECT_EQ(std::ranges::count(recorder.statements, sought, &Recorded::text), 1);
        EXPECT_EQ(実行環境.選択戻り値, r[3].empty() ? "" : r[0]);
        EXPECT_EQ(実行環境.事業所コード, "000");
    }
}

// A miss clears the whole document but its date; the typed number stands where the series gives none.
TEST_F(読込, 該当なし) {
    lay_documents();
    {
        Seat seat(at);
        const std::string fresh = values(customer) + values(texts);
        open_document(seat, "1");
        請求ヘッダ.営業請求日付 = "20240401";
        seat.enter(seat.screen().タイトル, "捨てる");
        open_document(seat, "88");
        EXPECT_EQ(values("営業請求No 最終行 旧営業請求No 営業請求日付 新規入力中"),
                  "00000002,-1,,20240401,1");
        EXPECT_EQ(values(customer) + values(texts), fresh);
        EXPECT_TRUE(Seat::boxes.empty());
        EXPECT_FALSE(実行環境.recordsets.営業請求.is_open());
    }
    at.main("UPDATE A番号情報 SET 連番種類 = '9' WHERE 番号ID = '16240'");
    Seat seat(at);
    EXPECT_EQ(実行環境.営業請求No, "");
    open_document(seat, "88");
    EXPECT_EQ(実行環境.営業請求No + seat.screen().営業請求No.text, "0000008800000088");
    // saved as it was typed, unless another station was first: then nothing is written, and nothing said
    type_two_lines(seat);
    register_document(seat);
    EXPECT_EQ(headers(), "99999999|00000001|20240410|13\n88888888|00000088|20240410|13");
    open_document(seat, "89");
    type_two_lines(seat);
    lay(at, "T営業請求", "事業所コード=000, 番号基準日付=88888888, 営業請求No=00000089");
    const std::string before = document_rows(at);
    register_document(seat);
    EXPECT_EQ(document_rows(at), before);
    EXPECT_TRUE(Seat::boxes.empty());
    EXPECT_EQ(請求ヘッダ.登録結果区分, 3);
    EXPECT_EQ(実行環境.最終行, -1);
}

// Without lines an invoice opens as new; the save then makes another document beside it.
TEST_F(読込, 明細のない請求) {
    lay_documents();
    at.main("DELETE FROM T営業請求明細");
    Seat seat(at);
    open_document(seat, "1");
    EXPECT_EQ(values("新規入力中 旧営業請求No 営業請求No 得意先コード"), "1,00000001,00000001,000123");
    EXPECT_FALSE(seat.screen().btn_削除.enabled);
    seat.line(0, "P1", "1");
    press_focus(seat.screen().請求伝票備考A);
    register_document(seat);
    EXPECT_EQ(headers(), "99999999|00000001|20240410|13\n99999999|00000002|20240410|1");
}

// What cannot be read, an invoice of another site or a reference, typed or named on the command line: the
// failure in a box; for an invoice a cleared document of the date and site before, for a reference the
// document as it was; nothing written but the look at it, and the program goes on.
TEST_F(読込, 読めない請求) {
    lay_documents(2);
    for (const auto& r : table(R"(消費税表示区分 = '32768'||オーバーフローしました。
        税抜請求金額合計 = 1e15||オーバーフローしました。 ; 営業請求日付 = '99991301'||日付が正しくありません。
        請求単価 = -1e300|明細|オーバーフローしました。 ; 営業請求固有行No = '99999'|明細|オーバーフローしました。
        many||インデックスが有効範囲にありません。 ; 消費税表示区分 = '-40000'|参照|オーバーフローしました。
        many|参照|インデックスが有効範囲にありません。)")) {
        const bool reference = r[1] == "参照";
        at.restore();
        if (r[0] == "many")
            lay_many_lines(at, stored, "00000001", 3, 1200);
        else
            at.main("UPDATE T営業請求" + Replace(r[1], "参照", "") + " SET " + r[0] +
                    " WHERE 営業請求No = '00000001'" +
                    (r[1] == "明細" ? " AND 営業請求固有行No = '002'" : ""));
        const std::string site = reference ? "000" : "001", key = site + "9999999900000001";
        for (const char* table : {"T営業請求", "T営業請求明細"})
            at.main("UPDATE " + std::string(table) + " SET 事業所コード = '" + site +
                    "' WHERE 営業請求No = '00000001'");
        const std::string before = headers() + journal() + queue();
        for (const bool named : {true, false}) {
            SCOPED_TRACE(r[0] + r[1] + (named ? " named" : " typed"));
            Seat seat(at, !named ? "" : reference ? std::string(19 * 4, '0') + key : key);
            EntryScreen& s = seat.screen();
            if (!named && reference) {
                seat.enter(s.得意先コード, "123");
                seat.enter(s.参照営業請求No, "1");
            } else if (!named) {
                open_document(seat, "2");
                実行環境.選択戻り値 = "C" + key;
                open_document(seat, "1");
            }
            EXPECT_EQ(Seat::boxes, std::vector<std::string>{r[2]});
            EXPECT_TRUE(s.visible);
            EXPECT_EQ(values("最終行 新規入力中 営業請求日付 営業請求No") + 実行環境.事業所コード,
                      "-1,1,20240410,00000003000");
            const bool kept = reference && !named;
            EXPECT_EQ(values(customer), kept ? "000123,,株式会社 山田商店,東京本店,,鈴木,0" : ",,,,,,0");
            EXPECT_EQ(values(destination) + values(texts), ",,,,1,,,");
            EXPECT_EQ(s.得意先コード.text + s.参照営業請求No.text, kept ? "000123" : "");
            EXPECT_EQ(link(kinds[3]), "  ");
            EXPECT_FALSE(実行環境.recordsets.営業請求.is_open() ||
                         実行環境.recordsets.参照営業請求.is_open());
            EXPECT_EQ(headers() + journal() + queue(), before);
            open_document(seat, "2");
            EXPECT_EQ(Seat::boxes.size(), 1U);
            EXPECT_EQ(実行環境.営業請求No, "00000002");
        }
    }
}

// The greatest document that the arrays hold.
TEST_F(読込, 九百九十九行) {
    lay_documents();
    lay_many_lines(at, stored, "00000001", 3, 999);
    at.main("UPDATE T営業請求明細 SET 商品名 = 'L' || 営業請求行No");
    Seat seat(at);
    open_document(seat, "1");
    EXPECT_EQ(実行環境.最終行, 998);
    EXPECT_EQ(請求ヘッダ.最終固有行No, 999);
    EXPECT_EQ(請求明細行[998].商品名, "L999");
    open_document(seat, "77");
    EXPECT_EQ(実行環境.最終行, -1);
    EXPECT_EQ(請求明細行[997].商品名 + 請求明細行[998].商品名, "L999");  // the clear ends before it
}

}  // namespace
}  // namespace kalvane

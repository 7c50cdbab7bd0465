// Stored invoices read into the document.
#include "invoice/loading.h"

#include <gtest/gtest.h>

#include "invoice/columns.h"
#include "invoice/sequences.h"
#include "invoice/source_rows.h"

namespace kalvane {
namespace {

using namespace test;

// Every column comes back as it was: opened and registered, the live row differs in its writer, its time and
// the totals alone; what is shown in the head comes from the masters.
TEST_F(読込, 請求の全項目) {
    // a value for each column but those that follow from others
    auto assignments = [n = 0](const auto& columns, const std::string& but) mutable {
        std::string out;
        for (const auto& c : columns) {
            ++n;
            const std::string name(c.name);
            if (c.key || c.kind == ColumnKind::stamp || contains(but, " " + name + " ")) continue;
            const bool number = c.digit || c.money || name == "承認区分";
            out += (out.empty() ? "" : ", ") + name + " = '" +
                   (name == "行区分" || name == "計区分" ? "1" : (number ? "" : "値") + std::to_string(n)) +
                   "'";
        }
        return out;
    };
    lay_documents(at);
    at.main("UPDATE T営業請求 SET 得意先消費税算出区分 = '1', 得意先消費税端数調整区分 = '0', " +
            assignments(header_columns, " 営業請求日付 得意先消費税算出区分 得意先消費税端数調整区分 "));
    // the lines' copies of the header are written from the header
    const std::string copies =
        " 営業請求日付 得意先コード 担当者コード 部門コード セクションコード 納品先コード ";
    at.main("UPDATE T営業請求明細 SET " +
            assignments(line_columns, " 営業請求固有行No 営業請求行No" + copies));
    const auto rows = [&](const char* table, const auto& columns, const std::string& but) {
        std::string names;
        for (const auto& c : columns)
            if (!contains(but, " " + std::string(c.name) + " "))
                names.append(names.empty() ? "" : ", ").append(c.name);
        return at.main("SELECT " + names + " FROM " + table + " ORDER BY 2, 3, 4, 5");
    };
    const auto header = [&] {
        return rows(
            "T営業請求", header_columns,
            " ユーザID 登録日付 請求数量合計 請求金額合計 税抜請求金額合計 請求消費税合計 税込請求金額合計 "
            "仕入数量合計 仕入金額合計 税抜仕入金額合計 仕入消費税合計 税込仕入金額合計 ");
    };
    const auto lines = [&] { return rows("T営業請求明細", line_columns, " ユーザID 登録日付" + copies); };
    const std::string header_before = header(), lines_before = lines();
    Seat seat(at);
    os::freeze_clock({{2024, 4, 11}, 9, 30, 0});
    open_document(seat, "1");
    EXPECT_EQ(
        values("旧営業請求日付 旧事業所コード 旧番号基準日付 旧営業請求No 集計日付 入力変更あり 新規入力中"),
        "20240410,000,99999999,00000001,20240430,0,0");
    EXPECT_EQ(請求ヘッダ.営業請求日付年 + "/" + 請求ヘッダ.営業請求日付月 + "/" + 請求ヘッダ.営業請求日付日,
              "2024/04/10");
    EXPECT_EQ(請求ヘッダ.最終固有行No, 2);
    dispatch([] { 登録処理(); });
    EXPECT_EQ(header(), header_before);
    EXPECT_EQ(lines(), lines_before);
    EXPECT_EQ(at.main("SELECT 登録日付 FROM T営業請求"), "20240411 093000");
}

// A NULL leaves its field as the document before it had it.
TEST_F(読込, 空値は前の伝票のまま) {
    lay_documents(at);
    lay_header(at, stored, "00000009", ", 営業請求日付=20240401");
    lay_line(at, stored, "00000009", "004");
    Seat seat(at);
    open_document(seat, "1");
    請求ヘッダ.得意先対応先コード = "000555";
    const std::string before = customer() + customer_tax() + staff() + destination() + texts();
    open_document(seat, "9");
    EXPECT_EQ(実行環境.営業請求No, "00000009");
    EXPECT_EQ(customer() + customer_tax() + staff() + destination() + texts(), before);
    EXPECT_EQ(請求ヘッダ.旧営業請求日付, "20240401");
    EXPECT_EQ(実行環境.最終行, 0);
    EXPECT_EQ(請求ヘッダ.最終固有行No, 4);
    EXPECT_EQ(line_figures(0), ",,0,,0,0,0,0,1,,,,0,,0,0,0,0,1");
    EXPECT_EQ(line_settings(0), "111115000 0 0 0 0");
}

// The figures of stored lines stay, wrong as they may be; the approval of the head is held as a number.
TEST_F(読込, 明細は計算しない) {
    lay_full_header(at, stored, "00000007");
    lay_two_lines(at, stored, "00000007");
    at.main(
        "UPDATE T営業請求 SET 営業請求日付 = '20240401', 承認区分 = '01', 担当者コード = '00077', 部門コード "
        "= '099'");
    at.main("UPDATE T営業請求明細 SET 承認区分 = '01', 請求数量 = '12個' WHERE 営業請求行No = '001'");
    Seat seat(at);
    open_document(seat, "7");
    EXPECT_EQ(請求ヘッダ.承認区分, "1");
    EXPECT_EQ(請求明細行[0].承認区分, "01");
    EXPECT_EQ(line_figures(0), "Q1,品一,12,箱,100,999,77,1,1,000333,,仕先,3,組,50,888,66,1,1");
    // 999 and 77, not taxed and tax-out, and 500 and 7; the tax of the lines
    EXPECT_EQ(totals(), "1499 84 1583 1288 72 1360");
    EXPECT_EQ(values("請求金額合計 請求数量合計"), "1499,12");
    EXPECT_EQ(staff(), "00077,,099,,020,第一課");  // the masters have gone
}

// Named on the command line: the stored totals are shown as they are, those that are not stored for it as 0.
TEST_F(読込, 起動時は合計しない) {
    lay_full_header(at, stored, "00000007");
    lay_two_lines(at, stored, "00000007");
    at.main(
        "UPDATE T営業請求 SET 営業請求日付 = '20240401', 請求金額合計 = 1007, 請求数量合計 = 9, 仕入数量合計 "
        "= 8, 仕入金額合計 = 7");
    Seat seat(at, "0009999999900000007");
    EXPECT_FALSE(実行環境.新規入力中);
    EXPECT_EQ(実行環境.最終行, 1);
    EXPECT_EQ(totals(), "1001 1002 1003 1004 1005 1006");
    EXPECT_EQ(values("請求金額合計 請求数量合計 仕入金額合計 仕入数量合計"), "0,0,0,0");
    EXPECT_EQ(at.main("SELECT 伝票No FROM T閲覧"), "00000007");
}

// The statements of an opened invoice, with its one row in the run history; of one that does not exist; and
// of the neighbour of one.
TEST_F(読込, 文の順序) {
    lay_documents(at, 2);
    Seat seat(at);
    const int mark = history_count(at);
    const auto opened = [](const std::string& browse, const std::string& number) {
        const Expected series_row{{"main", series("01110")}};
        return series_row + series_row +
               sequence(
                   Replace(Replace(R"(main UPDATE A番号情報 SET  連番 = '@' WHERE A番号情報.番号ID = '01110'
        main SELECT 閲覧No FROM T閲覧 WHERE 事業所コード = '000' AND 番号基準日付 = '99999999' AND 閲覧No = '@'
        main INSERT INTO [T閲覧] (
        main SELECT TOP 1 T営業請求.*, M担当者.氏名 AS 担当者名, M部門.名称 AS 部門名, Mセクション.名称 \
          AS セクション名 FROM Mセクション RIGHT JOIN (M部門 RIGHT JOIN (M担当者 RIGHT JOIN T営業請求 ON \
          M担当者.コード = T営業請求.担当者コード) ON M部門.コード = T営業請求.部門コード) ON \
          Mセクション.コード = T営業請求.セクションコード WHERE T営業請求.営業請求No = '%' AND \
          T営業請求.事業所コード = '000' AND T営業請求.番号基準日付 = '99999999'
        history INSERT INTO プログラム稼動履歴~)",
                                   "@", browse),
                           "%", number));
    };
    const auto read = [](const std::string& number) {
        return sequence(
                   "main SELECT T営業請求明細.* FROM T営業請求明細  WHERE T営業請求明細.事業所コード = '000' "
                   "AND "
                   "T営業請求明細.番号基準日付 = '99999999' AND T営業請求明細.営業請求No = '" +
                   number + "' ORDER BY T営業請求明細.営業請求行No") +
               taxes() + referred(number) +
               sequence(
                   "config SELECT * FROM プログラムクリップボード明細 WHERE 貼付プログラムID = "
                   "'KalvaneInvoiceEntry' AND "
                   "貼付情報区分 = '1' AND 伝票番号ID = '16240' AND 貼付日時 < '20240410 093000' ORDER BY "
                   "貼付日時 DESC");
    };
    {
        Recorder recorder;
        open_document(seat, "2");
        expect_sequence(recorder.statements, opened("00000001", "00000002") + read("00000002"));
    }
    EXPECT_EQ(history_rows(at, mark), "出力終了 SELECT TOP 1 T営業請求");
    {
        Recorder recorder;
        open_document(seat, "77");
        expect_sequence(recorder.statements, opened("00000002", "00000077") + cleared());
    }
    EXPECT_EQ(history_rows(at, mark + 1), "出力終了 SELECT TOP 1 T営業請求");
    EXPECT_EQ(seat.screen().お知らせ.caption, "新規情報です。");
    EXPECT_EQ(実行環境.営業請求No, "00000003");
    EXPECT_FALSE(実行環境.入力変更あり);
    open_document(seat, "2");
    {
        Recorder recorder;
        click(seat.screen().btn_前No);
        const Expected neighbour = sequence(
            "main SELECT TOP 1 番号基準日付,営業請求No FROM T営業請求 WHERE 事業所コード = '000' AND "
            "((営業請求日付 = '20240410' "
            "AND 営業請求No < '00000002') OR 営業請求日付 < '20240410') ORDER BY 営業請求日付 DESC, "
            "営業請求No DESC");
        expect_sequence(recorder.statements,
                        neighbour + neighbour + opened("00000004", "00000001") + read("00000001"));
    }
}

// The decisions on a typed or picked number of the invoice.
TEST_F(読込, 番号の判定) {
    lay_documents(at);
    Seat seat(at);
    open_document(seat, "1");
    実行環境.選択戻り値 = "C0012023033100000001";
    EXPECT_FALSE(営業請求No変更("00000001"));  // though the pick names another site
    EXPECT_FALSE(実行環境.入力変更あり);
    EXPECT_EQ(実行環境.選択戻り値, "C0012023033100000001");
    // the pick that was left is taken by the next number of any kind
    EXPECT_TRUE(営業見積No変更("00000005"));
    EXPECT_EQ(実行環境.選択戻り値, "");
    for (const auto& [pick, site, base] :
         {std::tuple{"C0012023033100000001", "001", "20230331"},
          std::tuple{"T営業請求.x = '12345678'", "000", "99999999"},
          std::tuple{"T営業請求.得意先 = '1234'", "000", "99999999"}, std::tuple{"", "000", "99999999"}}) {
        SCOPED_TRACE(pick);
        実行環境.選択戻り値 = pick;
        const bool picked = std::string(site) == "001";
        Recorder recorder;
        営業請求No変更("00000088");
        std::string found;
        for (const Recorded& r : recorder.statements)
            if (r.text.starts_with("SELECT TOP 1 T営業請求.*")) found = r.text.substr(r.text.find(" WHERE "));
        EXPECT_EQ(found, " WHERE T営業請求.営業請求No = '00000088' AND T営業請求.事業所コード = '" +
                             std::string(site) + "' AND T営業請求.番号基準日付 = '" + base + "'");
        EXPECT_EQ(実行環境.選択戻り値, picked ? "" : pick);
        EXPECT_EQ(実行環境.事業所コード, "000");
    }
}

// A miss clears the whole document but its date; the typed number stands where the series gives none.
TEST_F(読込, 該当なし) {
    lay_documents(at);
    {
        Seat seat(at);
        open_document(seat, "1");
        請求ヘッダ.営業請求日付 = "20240401";
        seat.enter(seat.screen().タイトル, "捨てる");
        open_document(seat, "88");
        EXPECT_EQ(values("営業請求No 最終行 旧営業請求No 営業請求日付 新規入力中"),
                  "00000002,-1,,20240401,1");
        EXPECT_EQ(customer() + texts(), ",,,,,,0,,,");
        EXPECT_TRUE(Seat::boxes.empty());
        EXPECT_FALSE(実行環境.recordsets.営業請求.is_open());
    }
    at.main("UPDATE A番号情報 SET 連番種類 = '9' WHERE 番号ID = '16240'");
    Seat seat(at);
    EXPECT_EQ(実行環境.営業請求No, "");
    seat.enter(seat.screen().営業請求No, "88");
    EXPECT_EQ(実行環境.営業請求No, "00000088");
    EXPECT_EQ(seat.screen().営業請求No.text, "00000088");
    EXPECT_EQ(seat.screen().お知らせ.caption, "新規情報です。");
    // saved as it was typed, unless another station was first: then nothing is written, and nothing said
    type_two_lines(seat);
    register_document(seat);
    EXPECT_EQ(at.main("SELECT 営業請求No FROM T営業請求 WHERE 番号基準日付 = '88888888'"), "00000088");
    seat.enter(seat.screen().営業請求No, "89");
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
    lay_documents(at);
    at.main("DELETE FROM T営業請求明細");
    Seat seat(at);
    open_document(seat, "1");
    EXPECT_TRUE(実行環境.新規入力中);
    EXPECT_EQ(請求ヘッダ.旧営業請求No, "00000001");
    EXPECT_EQ(実行環境.営業請求No, "00000001");
    EXPECT_EQ(seat.screen().得意先コード.text, "000123");
    EXPECT_FALSE(seat.screen().btn_削除.enabled);
    seat.line(0, "P1", "1");
    press_focus(seat.screen().請求伝票備考A);
    register_document(seat);
    EXPECT_EQ(at.main("SELECT 営業請求No, 請求数量合計 FROM T営業請求 ORDER BY 営業請求No"),
              "00000001|13\n00000002|1");
}

// What cannot be read: the failure in a box, a cleared document of the date before, nothing written but the
// look at it, and the program goes on.
TEST_F(読込, 読めない請求) {
    const char *out_of_range = "インデックスが有効範囲にありません。", *overflow = "オーバーフローしました。";
    const std::string second = " WHERE 営業請求固有行No = '002' AND 営業請求No = '00000001'",
                      head = " WHERE 営業請求No = '00000001'";
    const std::pair<std::string, const char*> cases[] = {
        {"WITH RECURSIVE n(i) AS (SELECT 3 UNION ALL SELECT i + 1 FROM n WHERE i < 1200) INSERT INTO "
         "T営業請求明細 "
         "(事業所コード, 番号基準日付, 営業請求No, 営業請求固有行No, 営業請求行No) SELECT '000', '99999999', "
         "'00000001', "
         "PRINTF('%04d', i), PRINTF('%04d', i) FROM n",
         out_of_range},
        {"UPDATE T営業請求 SET 消費税表示区分 = '32768'" + head, overflow},
        {"UPDATE T営業請求 SET 税抜請求金額合計 = 1e15" + head, overflow},
        {"UPDATE T営業請求明細 SET 請求単価 = -1e300" + second, overflow},
        {"UPDATE T営業請求明細 SET 営業請求固有行No = '99999'" + second, overflow},
        {"UPDATE T営業請求 SET 営業請求日付 = '99991301'" + head, "日付が正しくありません。"}};
    lay_documents(at, 2);
    for (const auto& [change, words] : cases) {
        SCOPED_TRACE(change);
        at.restore();
        at.main(change);
        const auto rows = [&] {
            return at.main("SELECT * FROM T営業請求") + at.main("SELECT * FROM R営業請求") +
                   at.main("SELECT * FROM A番号情報 WHERE 番号ID = '16240'");
        };
        const std::string before = rows();
        Seat seat(at);
        open_document(seat, "2");
        Seat::boxes.clear();
        open_document(seat, "1");
        EXPECT_EQ(Seat::boxes, std::vector<std::string>{words});
        EXPECT_FALSE(process_ended());
        EXPECT_EQ(values("最終行 新規入力中 営業請求日付"), "-1,1,20240410");
        EXPECT_EQ(customer() + texts(), ",,,,,,0,,,");
        EXPECT_EQ(seat.screen().得意先コード.text, "");
        EXPECT_EQ(rows(), before);
        Seat::boxes.clear();
        open_document(seat, "2");
        EXPECT_TRUE(Seat::boxes.empty());
        EXPECT_EQ(実行環境.営業請求No, "00000002");
    }
}

// The greatest document that the arrays hold.
TEST_F(読込, 九百九十九行) {
    lay_documents(at);
    at.main(
        "WITH RECURSIVE n(i) AS (SELECT 3 UNION ALL SELECT i + 1 FROM n WHERE i < 999) INSERT INTO "
        "T営業請求明細 (事業所コード, 番号基準日付, 営業請求No, 営業請求固有行No, 営業請求行No, 商品名) "
        "SELECT '000', '99999999', '00000001', PRINTF('%03d', i), PRINTF('%03d', i), 'L' || i FROM n");
    Seat seat(at);
    open_document(seat, "1");
    EXPECT_EQ(実行環境.最終行, 998);
    EXPECT_EQ(請求ヘッダ.最終固有行No, 999);
    EXPECT_EQ(請求明細行[998].商品名, "L999");
    open_document(seat, "77");
    EXPECT_EQ(実行環境.最終行, -1);
    EXPECT_EQ(請求明細行[997].商品名, "");
    EXPECT_EQ(請求明細行[998].商品名, "L999");  // the clear ends before it
}

// One stored line into a row: a new line, with its memo, its prices derived again.
TEST_F(読込, 一行の読込) {
    lay_full_header(at, stored, "00000007");
    lay_two_lines(at, stored, "00000007");
    Seat seat(at);
    請求ヘッダ.得意先消費税丸め方法 = 5;
    実行環境.最終行 = 2;
    請求明細行[2].営業請求固有行No = "005";
    請求明細行[2].承認区分 = "0";
    請求明細行[2].登録日付 = "20240101 000000";
    営業請求行読込(2, "000", "99999999", "00000007", "001");
    // 3 at 91, its tax-out price; against 3 at 45
    EXPECT_EQ(line_figures(2), "Q1,品一,3,箱,91,273,27,0,1,000333,,仕先,3,組,45,135,14,0,1");
    EXPECT_EQ(line_settings(2), "110139111 91 45 101 51");
    EXPECT_EQ(line_own(2), "0000000内");
    EXPECT_TRUE(実行環境.入力変更あり);
    // gone: nothing
    請求明細行[1].営業請求固有行No = "005";
    営業請求行読込(1, "000", "99999999", "00000007", "009");
    EXPECT_EQ(請求明細行[1].営業請求固有行No, "005");
    EXPECT_EQ(請求明細行[1].商品名, "");
}

}  // namespace
}  // namespace kalvane

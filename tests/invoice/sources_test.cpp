// Quotations, orders, deliveries and earlier invoices taken into a new invoice, from the screen and from the
// command line.
#include <gtest/gtest.h>

#include "base/text.h"
#include "invoice/clearing.h"
#include "invoice/source_rows.h"
#include "support/recorder.h"

namespace kalvane {
namespace {

using namespace test;

struct 引用 : 読込, testing::WithParamInterface<Words> {};
INSTANTIATE_TEST_SUITE_P(Kinds, 引用, testing::ValuesIn(kinds),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_P(引用, 新しい請求へ) {
    const Words& w = GetParam();
    lay_full_header(at, w, "00000007");
    lay_two_lines(at, w, "00000007");
    Seat seat(at);
    実行環境.案内メッセージ = "前の案内";
    const std::string before = never_brought();
    EXPECT_TRUE(w.change("00000007"));
    for (const Words& other : kinds)
        EXPECT_EQ(link(other), other.kind == w.kind ? "000 99999999 00000007" : "  ") << other.name;
    EXPECT_EQ(customer(), "000555,,名A,名B,00007,高木,1");
    EXPECT_EQ(customer_tax(), w.reference ? "1 2 0 0 0" : "2 1 5 0 1");
    EXPECT_EQ(staff(), "00001,担当者,010,営業部,020,第一課");
    EXPECT_EQ(destination(), "000777,,納A,納B,0");
    EXPECT_EQ(texts(), w.reference ? "件名,月末,備A,備B" : "件名,,備A,備B");
    EXPECT_EQ(請求ヘッダ.消費税表示区分, 0);
    EXPECT_EQ(請求ヘッダ.合計表示区分, 0);
    EXPECT_EQ(never_brought(), before);
    EXPECT_TRUE(実行環境.新規入力中);
    EXPECT_TRUE(実行環境.入力変更あり);
    EXPECT_EQ(実行環境.案内メッセージ, "");
    ASSERT_EQ(実行環境.最終行, 1);
    // A customer priced tax-in: 300 with 27 in it, 500 with 45 (27.27 and 45.45). A reference brings no tax
    // settings, so that a new document's tax-out stands, cut: 30 and 50. Its purchase side stays as stored.
    EXPECT_EQ(line_figures(0), w.reference ? "Q1,品一,3,箱,100,300,30,0,1,000333,,仕先,3,組,50,888,66,0,1"
                                           : "Q1,品一,3,箱,100,300,27,0,2,000333,,仕先,3,組,50,150,15,0,1");
    EXPECT_EQ(line_figures(1), (w.reference ? ",品二,0,,100,500,50,0,1," : ",品二,0,,100,500,45,0,2,") +
                                   std::string(w.prospects ? ",T00009," : "T00009,,") + ",0,,0,400," +
                                   (w.reference ? "6,0,1" : "40,0,1"));
    EXPECT_EQ(line_settings(0), "110139111 91 45 101 51");
    for (int i : {0, 1}) EXPECT_EQ(line_own(i), "0000000");
    EXPECT_EQ(totals(), w.reference ? "800 80 880 1288 72 1360" : "728 72 800 550 55 605");
}

// A prospect is no customer and no destination yet.
TEST_P(引用, 対応先) {
    const Words& w = GetParam();
    lay_full_header(at, w, "00000007", "1");
    Seat seat(at);
    w.change("00000007");
    EXPECT_EQ(customer(), w.prospects ? ",000555,名A,名B,,高木,1" : "000555,,名A,名B,00007,高木,1");
    EXPECT_EQ(customer_tax(), w.reference ? "1 2 0 0 0" : "2 1 5 0 1");
    EXPECT_EQ(destination(), w.prospects ? ",000555,納A,納B,0" : "000777,,納A,納B,0");
}

// What the invoice has already wins, group by group; a code that begins with a letter is none.
TEST_P(引用, 入力済みの項目) {
    const Words& w = GetParam();
    lay_full_header(at, w, "00000007");
    lay_two_lines(at, w, "00000007");
    lay_full_header(at, w, "00000008");
    Seat seat(at);
    HeaderRecord& h = 請求ヘッダ;
    set("得意先コード=000123 得意先消費税区分=1 担当者コード=00002 部門コード=009 セクションコード=008 "
        "納品先コード=000001 タイトル=T 支払条件=P 請求伝票備考B=B",
        -1);
    h.請求伝票備考A = "   ";
    w.change("00000007");
    EXPECT_EQ(customer(), "000123,,,,,,0");
    EXPECT_EQ(customer_tax(), "1 2 0 0 0");
    EXPECT_EQ(staff(), "00002,,009,,008,");
    EXPECT_EQ(destination(), "000001,,,,1");
    EXPECT_EQ(texts(), "T,P,備A,B");
    EXPECT_EQ(h.消費税表示区分, 0);
    EXPECT_EQ(実行環境.最終行, 1);

    set("得意先コード=A00123 担当者コード=X 納品先コード=-", -1);
    // without lines: all of those before are gone, and the totals with them
    w.change("00000008");
    EXPECT_EQ(link(w), "000 99999999 00000008");
    EXPECT_EQ(h.得意先コード, "000555");
    EXPECT_EQ(staff(), "00001,担当者,009,,008,");
    EXPECT_EQ(destination(), "000777,,納A,納B,0");
    EXPECT_EQ(実行環境.最終行, -1);
    EXPECT_EQ(totals(), "0 0 0 0 0 0");
}

// The totals of a source stand only while the document has no line.
TEST_P(引用, 明細がない間の合計) {
    const Words& w = GetParam();
    lay_full_header(at, w, "00000007");
    Seat seat(at);
    for (const int last : {-1, 0}) {
        実行環境.最終行 = static_cast<std::int16_t>(last);
        合計クリア();
        ASSERT_TRUE(伝票存在確認(w.kind, "000", "99999999", "00000007"));
        伝票ヘッダ読込(w.kind);
        EXPECT_EQ(totals(), last == 0     ? "0 0 0 0 0 0"
                            : w.reference ? "1001 1002 1003 0 0 0"
                                          : "1001 1002 1003 1004 1005 1006");
        EXPECT_FALSE((実行環境.recordsets.*source_row(w.kind).recordset).is_open());
    }
    // and its lines are not read behind others
    lay_line(at, w, "00000007", "001", ", 商品名=新");
    請求明細行[0].商品名 = "旧";
    伝票明細読込(w.kind);
    EXPECT_EQ(請求明細行[0].商品名, "旧");
    EXPECT_EQ(実行環境.最終行, 0);
}

// NULL in every column: nothing changes but the link, and a line is a fresh line.
TEST_P(引用, 空値) {
    const Words& w = GetParam();
    lay_header(at, w, "00000007");
    lay_line(at, w, "00000007", "001");
    Seat seat(at);
    set("得意先名称A=残A 担当者名=残氏 納品先名称B=残B 得意先消費税丸め方法=4 消費税表示区分=0", -1);
    const std::string before =
        customer() + customer_tax() + staff() + destination() + texts() + never_brought();
    w.change("00000007");
    EXPECT_EQ(customer() + customer_tax() + staff() + destination() + texts() + never_brought(), before);
    EXPECT_EQ(link(w), "000 99999999 00000007");
    ASSERT_EQ(実行環境.最終行, 0);
    EXPECT_EQ(line_figures(0), ",,0,,0,0,0,0,1,,,,0,,0,0,0,0,1");
    EXPECT_EQ(line_settings(0), "111115000 0 0 0 0");
    EXPECT_EQ(line_own(0), "0000000");
}

// A text where a number belongs counts by its leading digits.
TEST_P(引用, 数でない文字) {
    const Words& w = GetParam();
    lay_full_header(at, w, "00000007");
    lay_two_lines(at, w, "00000007");
    at.main("UPDATE " + w.table +
            " SET 消費税表示区分 = 'x', 合計表示区分 = ' 1z', 得意先名称入力区分 = '2.5'");
    at.main("UPDATE " + w.table + "明細 SET " + w.amounts +
            "数量 = '2個', 仕入数量 = '個', 行区分 = '1x', 計区分 = ''");
    Seat seat(at);
    w.change("00000007");
    EXPECT_EQ(
        values("消費税表示区分 合計表示区分 得意先名称入力区分 請求数量 請求金額 仕入数量 行区分 計区分", 0),
        "0,1,2,2,200,0,1,0");
}

// The decisions on the text of the field.
TEST_P(引用, 番号の判定) {
    const Words& w = GetParam();
    lay_full_header(at, w, "00000007");
    lay_two_lines(at, w, "00000007");
    Seat seat(at);
    w.change("00000007");
    // the number held: nothing, and the pick stays for the next
    実行環境.入力変更あり = false;
    実行環境.選択戻り値 = "C0019999999900000007";
    EXPECT_FALSE(w.change("00000007"));
    EXPECT_FALSE(実行環境.入力変更あり);
    EXPECT_EQ(実行環境.選択戻り値, "C0019999999900000007");
    実行環境.選択戻り値.clear();
    // emptied: the number alone
    EXPECT_TRUE(w.change(""));
    EXPECT_TRUE(実行環境.入力変更あり);
    EXPECT_EQ(link(w), "000 99999999 ");
    EXPECT_EQ(実行環境.最終行, 1);
    EXPECT_EQ(請求ヘッダ.得意先コード, "000555");
    // unknown: the link goes, the document stays
    EXPECT_TRUE(w.change("00000099"));
    EXPECT_EQ(実行環境.案内メッセージ, "該当情報がありません。");
    EXPECT_EQ(link(w), "  ");
    EXPECT_EQ(実行環境.最終行, 1);
    EXPECT_EQ(請求ヘッダ.得意先コード, "000555");
    EXPECT_FALSE((実行環境.recordsets.*source_row(w.kind).recordset).is_open());
    EXPECT_EQ(at.main("SELECT COUNT(*) FROM T閲覧"), "0");
}

// Where the document is looked for: the pick of a list, the link, the document's site and the series.
TEST_P(引用, 探す場所) {
    const Words& w = GetParam();
    const SourceRow& row = source_row(w.kind);
    // 選択戻り値, the link before, what is looked for, whether the pick was taken; a condition of 20
    // characters
    const std::string condition = Left("T" + w.own + ".x = '12345'                    ", 19) + "!";
    const std::vector<std::string> cases[] = {
        {"", "", "", "000 20250331", ""},
        {"", "001", "", "001 20250331", ""},
        {"", "", "20240331", "000 20240331", ""},
        {"C0022023123100000005", "001", "20240331", "002 20231231", "taken"},
        {"  C0022023123100000005 ", "", "", "002 20231231", "taken"},
        {"C002202312310000005", "001", "20240331", "001 20240331", ""},
        {condition, "001", "20240331", "001 20240331", ""}};
    at.main(std::string("UPDATE A番号情報 SET 連番種類 = '1' WHERE 番号ID = '") + row.number_id + "'");
    Seat seat(at);
    for (const auto& c : cases) {
        SCOPED_TRACE(c[0]);
        実行環境.選択戻り値 = c[0];
        請求ヘッダ.*row.site = c[1];
        請求ヘッダ.*row.base_date = c[2];
        請求ヘッダ.*row.number = "";
        Recorder recorder;
        w.change("00000042");
        EXPECT_EQ(recorder.statements.back().text,
                  w.of("SELECT TOP 1 T#.*, M担当者.氏名 AS 担当者名, M部門.名称 AS 部門名, Mセクション.名称 "
                       "AS セクション名 FROM "
                       "Mセクション RIGHT JOIN (M部門 RIGHT JOIN (M担当者 RIGHT JOIN T# ON M担当者.コード = "
                       "T#.担当者コード) ON "
                       "M部門.コード = T#.部門コード) ON Mセクション.コード = T#.セクションコード WHERE "
                       "T#.#No = '00000042' AND "
                       "T#.事業所コード = '" +
                       Left(c[3], 3) + "' AND T#.番号基準日付 = '" + Mid(c[3], 5) + "'"));
        EXPECT_EQ(実行環境.選択戻り値, c[4].empty() ? c[0] : "");
    }
}

// Too many lines, or a figure that no field can hold: the failure in a box, and a cleared document.
TEST_P(引用, 読めない伝票) {
    const Words& w = GetParam();
    lay_full_header(at, w, "00000007");
    at.main("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 1200) INSERT INTO " +
            w.table + "明細 (事業所コード, 番号基準日付, " + w.own + "No, " + w.own + "固有行No, " + w.own +
            "行No) SELECT '000', '99999999', '00000007', PRINTF('%04d', i), PRINTF('%04d', i) FROM n");
    lay_full_header(at, w, "00000008");
    at.main("UPDATE " + w.table + " SET 消費税表示区分 = '40000' WHERE " + w.own + "No = '00000008'");
    const SourceRow& row = source_row(w.kind);
    const std::string before = document_rows(at);
    Seat seat(at);
    EntryScreen& s = seat.screen();
    Control* fields[] = {nullptr, &s.営業見積No, &s.顧客注文No, &s.営業納品No, &s.参照営業請求No};
    Control& field = *fields[static_cast<int>(w.kind)];
    const char* boxes[] = {"インデックスが有効範囲にありません。", "オーバーフローしました。"};
    for (int i : {0, 1}) {
        seat.enter(s.得意先コード, "123");
        Seat::boxes.clear();
        seat.enter(field, i == 0 ? "7" : "8");
        EXPECT_EQ(Seat::boxes, std::vector<std::string>{boxes[i]});
        EXPECT_EQ(実行環境.最終行, -1);
        EXPECT_EQ(請求ヘッダ.得意先コード, "");
        EXPECT_EQ(s.得意先コード.text, "");
        EXPECT_EQ(field.text, "");
        EXPECT_EQ(実行環境.営業請求No, "00000001");
        EXPECT_TRUE(実行環境.新規入力中);
        EXPECT_FALSE((実行環境.recordsets.*row.recordset).is_open());
        EXPECT_EQ(document_rows(at), before);
    }
    type_two_lines(seat);  // and it goes on
    register_document(seat);
    EXPECT_EQ(at.main("SELECT COUNT(*) FROM T営業請求 WHERE 請求数量合計 = 13"), "1");
}

// --- the command line: what stands behind the key of a new document, the source that is taken, the four
// links after it. A miss clears all, and the one behind it is not tried.
TEST_F(読込, 起動時の引用) {
    const std::string fresh(19, '0'), none = fresh, one = "0009999999900000007", n = "000 00000000 00000000",
                                      l = "000 99999999 00000007";
    const std::vector<std::string> cases[] = {
        {fresh + one + one, "T営業見積", l + "/  /  /  "},
        {fresh + none + one + one, "T顧客注文", n + "/" + l + "/  /  "},
        {fresh + none + none + one, "T営業納品", n + "/" + n + "/" + l + "/  "},
        {fresh + none + none + none + one, "T営業請求", n + "/" + n + "/" + n + "/" + l},
        {fresh + "0009999999900000008" + one, "", "  /  /  /  "},
        {fresh + "0009999999900000000" + one, "T顧客注文", "000 99999999 00000000/" + l + "/  /  "},
        {fresh + "0000000000000000007" + one, "T顧客注文", "000 00000000 00000007/" + l + "/  /  "},
        {fresh + "   9999999900000007" + one, "T顧客注文", "    99999999 00000007/" + l + "/  /  "},
        {fresh + "000        00000007" + one, "T顧客注文", "000          00000007/" + l + "/  /  "},
        {fresh + "0009999999900'00007" + one, "T顧客注文", "  /" + l + "/  /  "},
        {fresh + "０００9999999900000007" + one, "T顧客注文", "  /" + l + "/  /  "},
        {fresh + "00", "", "00  /  /  /  "},
        {fresh + "0009999", "", "000 9999 /  /  /  "},
        {fresh + "00099999999000", "", "  /  /  /  "},
        {fresh, "", "  /  /  /  "},
        {"0009999999900000088" + one, "", "  /  /  /  "},
        {"000" + std::string(8, ' ') + "00000000" + one, "", "  /  /  /  "}};
    for (const Words& w : kinds) {
        lay_full_header(at, w, "00000007");
        at.main(w.of("UPDATE T# SET タイトル = 'T#'"));
        lay_two_lines(at, w, "00000007");
    }
    at.keep();
    for (const auto& c : cases) {
        SCOPED_TRACE(c[0]);
        at.restore();
        Seat seat(at, c[0]);
        EXPECT_TRUE(Seat::boxes.empty());
        EXPECT_FALSE(process_ended());
        EXPECT_EQ(実行環境.引数起動, c[0][3] != ' ');  // a key that can be used
        EXPECT_EQ(請求ヘッダ.タイトル, c[1]);
        EXPECT_EQ(実行環境.最終行, c[1].empty() ? -1 : 1);
        std::string links;
        for (const Words& w : kinds) links += (links.empty() ? "" : "/") + link(w);
        EXPECT_EQ(links, c[2]);
        EXPECT_TRUE(実行環境.新規入力中);
        EXPECT_EQ(実行環境.入力変更あり, !c[1].empty());
        EXPECT_EQ(実行環境.営業請求No, "00000001");
        EXPECT_EQ(実行環境.事業所コード, "000");
    }
}

// The links of a source are saved with the invoice, and nothing is written to the source.
TEST_F(読込, 引用して登録) {
    const Words& w = kinds[0];
    lay_full_header(at, w, "00000007");
    lay_two_lines(at, w, "00000007");
    const std::string source = at.main("SELECT * FROM T営業見積") + at.main("SELECT * FROM T営業見積明細");
    Seat seat(at);
    seat.enter(seat.screen().得意先コード, "123");
    seat.enter(seat.screen().営業見積No, "7");
    press_focus(seat.screen().請求伝票備考A);
    register_document(seat);
    EXPECT_EQ(at.main("SELECT 営業請求No, 営業見積事業所コード, 営業見積番号基準日付, 営業見積No, "
                      "得意先コード, 営業請求日付 FROM T営業請求"),
              "00000001|000|99999999|00000007|000123|20240410");
    EXPECT_EQ(
        at.main(
            "SELECT 営業請求固有行No, 請求数量, 出荷数量, 明細メモ FROM T営業請求明細 ORDER BY 営業請求行No"),
        "001|3|0|\n002|0|0|");
    EXPECT_EQ(at.main("SELECT * FROM T営業見積") + at.main("SELECT * FROM T営業見積明細"), source);
}

}  // namespace
}  // namespace kalvane

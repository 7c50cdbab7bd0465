// Quotations, orders, deliveries and earlier invoices taken into a new invoice, from the screen and from the
// command line.
#include <gtest/gtest.h>

#include "base/text.h"
#include "document/clearing.h"
#include "support/recorder.h"
#include "support/source_rows.h"

namespace kalvane {
namespace {

using namespace test;

struct 引用 : SmallCompany, testing::WithParamInterface<Words> {
    const Words& w = GetParam();
    // The document 00000007 in full, and with lines.
    void lay_source(bool lines = true) const {
        lay_full_header(at, w, "00000007");
        if (lines) lay_two_lines(at, w, "00000007");
    }
};
INSTANTIATE_TEST_SUITE_P(Kinds, 引用, testing::ValuesIn(kinds),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_P(引用, 新しい請求へ) {
    lay_source();
    Seat seat(at);
    実行環境.案内メッセージ = "前の案内";
    const std::string before = values(never_brought);
    EXPECT_TRUE(w.change("00000007"));
    for (const Words& other : kinds)
        EXPECT_EQ(link(other), other.kind == w.kind ? "000 99999999 00000007" : "  ") << other.name;
    EXPECT_EQ(values(customer), "000555,,名A,名B,00007,高木,1");
    EXPECT_EQ(values(customer_tax), w.reference ? "1,2,0,0,0" : "2,1,5,0,1");
    EXPECT_EQ(values(staff), "00001,担当者,010,営業部,020,第一課");
    EXPECT_EQ(values(destination), "000777,,納A,納B,0");
    EXPECT_EQ(values(texts), w.reference ? "件名,月末,備A,備B" : "件名,,備A,備B");
    EXPECT_EQ(values("消費税表示区分 合計表示区分 新規入力中 入力変更あり 案内メッセージ"), "0,0,1,1,");
    EXPECT_EQ(values(never_brought), before);
    ASSERT_EQ(実行環境.最終行, 1);
    // A customer priced tax-in: 300 with 27 in it, 500 with 45 (27.27 and 45.45). A reference brings no tax
    // settings, so that a new document's tax-out stands, cut: 30 and 50. Its purchase side stays as stored.
    EXPECT_EQ(values(line_figures, 0), w.reference
                                           ? "Q1,品一,3,箱,100,300,30,0,1,000333,,仕先,3,組,50,888,66,0,1"
                                           : "Q1,品一,3,箱,100,300,27,0,2,000333,,仕先,3,組,50,150,15,0,1");
    EXPECT_EQ(values(line_figures, 1), w.reference   ? ",品二,0,,100,500,50,0,1,T00009,,,0,,0,400,6,0,1"
                                       : w.prospects ? ",品二,0,,100,500,45,0,2,,T00009,,0,,0,400,40,0,1"
                                                     : ",品二,0,,100,500,45,0,2,T00009,,,0,,0,400,40,0,1");
    EXPECT_EQ(values(line_settings, 0), "1,1,0,1,3,9,1,1,1,91,45,101,51");
    for (int i : {0, 1}) EXPECT_EQ(values(line_own, i), fresh_own);
    EXPECT_EQ(values(totals), w.reference ? "800,80,880,1288,72,1360" : "728,72,800,550,55,605");
}

// A prospect is no customer and no destination yet.
TEST_P(引用, 対応先) {
    lay_full_header(at, w, "00000007", "1");
    Seat seat(at);
    w.change("00000007");
    EXPECT_EQ(values(customer), w.prospects ? ",000555,名A,名B,,高木,1" : "000555,,名A,名B,00007,高木,1");
    EXPECT_EQ(values(customer_tax), w.reference ? "1,2,0,0,0" : "2,1,5,0,1");
    EXPECT_EQ(values(destination), w.prospects ? ",000555,納A,納B,0" : "000777,,納A,納B,0");
}

// What the invoice has already wins, group by group; a code that begins with a letter is none.
TEST_P(引用, 入力済みの項目) {
    lay_source();
    lay_full_header(at, w, "00000008");
    Seat seat(at);
    set("得意先コード=000123 得意先消費税区分=1 担当者コード=00002 部門コード=009 セクションコード=008 "
        "納品先コード=000001 タイトル=T 支払条件=P 請求伝票備考B=B");
    請求ヘッダ.請求伝票備考A = "   ";
    w.change("00000007");
    EXPECT_EQ(head(), "000123,,,,,,0\n1,2,0,0,0\n00002,,009,,008,\n000001,,,,1\nT,P,備A,B\n");
    EXPECT_EQ(values("消費税表示区分 最終行"), "0,1");
    // without lines: all of those before are gone, and the totals with them
    set("得意先コード=A00123 担当者コード=X 納品先コード=-");
    w.change("00000008");
    EXPECT_EQ(link(w), "000 99999999 00000008");
    EXPECT_EQ(請求ヘッダ.得意先コード, "000555");
    EXPECT_EQ(values(staff), "00001,担当者,009,,008,");
    EXPECT_EQ(values(destination), "000777,,納A,納B,0");
    EXPECT_EQ(実行環境.最終行, -1);
    EXPECT_EQ(values(totals), "0,0,0,0,0,0");
}

// The totals of a source stand only while the document has no line; its lines are not read behind others.
TEST_P(引用, 明細がない間の合計) {
    lay_source(false);
    Seat seat(at);
    for (const int last : {-1, 0}) {
        実行環境.最終行 = static_cast<std::int16_t>(last);
        合計クリア();
        ASSERT_TRUE(伝票存在確認(w.kind, "000", "99999999", "00000007"));
        伝票ヘッダ読込(w.kind);
        EXPECT_EQ(values(totals), last == 0     ? "0,0,0,0,0,0"
                                  : w.reference ? "1001,1002,1003,0,0,0"
                                                : "1001,1002,1003,1004,1005,1006");
        EXPECT_FALSE((実行環境.recordsets.*source_row(w.kind).recordset).is_open());
    }
    lay_line(at, w, "00000007", "001", ", 商品名=新");
    請求明細行[0].商品名 = "旧";
    伝票明細読込(w.kind);
    EXPECT_EQ(values("商品名 最終行", 0), "旧,0");
}

// NULL in every column: nothing changes but the link, and a line is a fresh line.
TEST_P(引用, 空値) {
    lay_header(at, w, "00000007");
    lay_line(at, w, "00000007", "001");
    Seat seat(at);
    set("得意先名称A=残A 担当者名=残氏 納品先名称B=残B 得意先消費税丸め方法=4 消費税表示区分=0");
    const std::string before = head() + values(never_brought);
    w.change("00000007");
    EXPECT_EQ(head() + values(never_brought), before);
    EXPECT_EQ(link(w), "000 99999999 00000007");
    ASSERT_EQ(実行環境.最終行, 0);
    EXPECT_EQ(values(line_figures, 0), fresh_figures);
    EXPECT_EQ(values(line_settings, 0), fresh_settings);
    EXPECT_EQ(values(line_own, 0), fresh_own);
}

// The decisions on the text of the field.
TEST_P(引用, 番号の判定) {
    lay_source();
    Seat seat(at);
    w.change("00000007");
    // the number held: nothing, and the pick stays for the next
    実行環境.入力変更あり = false;
    実行環境.選択戻り値 = "C0019999999900000007";
    EXPECT_FALSE(w.change("00000007"));
    EXPECT_FALSE(実行環境.入力変更あり);
    EXPECT_EQ(実行環境.選択戻り値, "C0019999999900000007");
    実行環境.選択戻り値.clear();
    // emptied: the number alone; unknown: the link goes. The document stays
    for (const auto& r : table("|000 99999999 | ; 00000099|  |該当情報がありません。")) {
        EXPECT_TRUE(w.change(r[0]));
        EXPECT_EQ(link(w), r[1]);
        EXPECT_EQ(values("案内メッセージ 入力変更あり 最終行 得意先コード"), r[2] + ",1,1,000555");
    }
    EXPECT_FALSE((実行環境.recordsets.*source_row(w.kind).recordset).is_open());
    EXPECT_EQ(at.main("SELECT COUNT(*) FROM T閲覧"), "0");
}

// Where the document is looked for: the pick of a list, the link, the document's site and the series. Pick,
// site and base date of the link before, of what is looked for, and whether the pick is left; the last is a
// condition of 20 characters.
TEST_P(引用, 探す場所) {
    const SourceRow& row = source_row(w.kind);
    at.main(std::string("UPDATE A番号情報 SET 連番種類 = '1' WHERE 番号ID = '") + row.number_id + "'");
    Seat seat(at);
    auto cases = table(R"(|||000|20250331|left ; |001||001|20250331|left ; ||20240331|000|20240331|left
        C0022023123100000005|001|20240331|002|20231231| ; C0022023123100000005 |||002|20231231|
        C002202312310000005|001|20240331|001|20240331|left)");
    cases.push_back({Left("T" + w.own + ".x = '12345'                    ", 19) + "!", "001", "20240331",
                     "001", "20240331", "left"});
    for (const auto& c : cases) {
        SCOPED_TRACE(c[0]);
        実行環境.選択戻り値 = c[0];
        請求ヘッダ.*row.site = c[1];
        請求ヘッダ.*row.base_date = c[2];
        請求ヘッダ.*row.number = "";
        Recorder recorder;
        w.change("00000042");
        EXPECT_EQ(recorder.statements.back().text, header_read(w, c[3], c[4], "00000042"));
        EXPECT_EQ(実行環境.選択戻り値, c[5].empty() ? "" : c[0]);
    }
}

using 読込 = SmallCompany;

// The command line: what stands behind the key of a new document, the source that is taken, the four links
// after it. A miss clears all, and the one behind it is not tried.
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
        EXPECT_EQ(values("タイトル 最終行 入力変更あり"), c[1] + (c[1].empty() ? ",-1,0" : ",1,1"));
        EXPECT_EQ(link(kinds[0]) + "/" + link(kinds[1]) + "/" + link(kinds[2]) + "/" + link(kinds[3]), c[2]);
        EXPECT_EQ(values("新規入力中 営業請求No"), "1,00000001");
        EXPECT_EQ(実行環境.事業所コード, "000");
    }
}

// Typed into its field and registered: the link is saved with the invoice, its lines are counted from 1
// whatever was opened before, and nothing is written to the source.
TEST_P(引用, 引用して登録) {
    lay_documents();
    lay_source();
    const auto source = [&] {
        return at.main("SELECT * FROM " + w.table + " WHERE タイトル <> 'new'") +
               at.main(w.of("SELECT * FROM T#明細 WHERE #No = '00000007'"));
    };
    const std::string before = source(), field = w.reference ? "参照営業請求" : w.own;
    Seat seat(at);
    EntryScreen& s = seat.screen();
    open_document(seat, "1");
    click(s.btn_画面クリア);
    seat.enter(s.得意先コード, "123");
    seat.enter(s.タイトル, "new");
    seat.enter(*find_control(s, field + "No", -1), "7");
    press_focus(s.請求伝票備考A);
    register_document(seat);
    EXPECT_EQ(at.main("SELECT " +
                      Replace("#事業所コード, #番号基準日付, #No, 得意先コード, 営業請求日付", "#", field) +
                      " FROM T営業請求 WHERE タイトル = 'new'"),
              "000|99999999|00000007|000123|20240410");
    EXPECT_EQ(at.main("SELECT 営業請求固有行No, 請求数量 FROM T営業請求明細 WHERE 営業請求No = '00000002'"),
              "001|3\n002|0");
    EXPECT_EQ(source(), before);
}

}  // namespace
}  // namespace kalvane

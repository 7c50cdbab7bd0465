// Stored invoices and source documents read into the document.
#include "invoice/loading.h"

#include <gtest/gtest.h>

#include "base/format.h"
#include "base/text.h"
#include "invoice/clearing.h"
#include "invoice/columns.h"
#include "invoice/sequences.h"
#include "invoice/small_company.h"

namespace kalvane {
namespace {

using namespace test;

// What a kind of source calls its columns, and how to ask for one.
struct Words {
    const char* name;  // ASCII, of the generated test
    SourceKind kind;
    std::string table, own, amounts;  // T<own>, number <own>No; <amounts>数量 and the like
    bool (*change)(const std::string&);
    bool prospects, reference;
};
const Words kinds[] = {
    {"quotation", SourceKind::quotation, "T営業見積", "営業見積", "見積", 営業見積No変更, true, false},
    {"order", SourceKind::order, "T顧客注文", "顧客注文", "注文", 顧客注文No変更, true, false},
    {"delivery", SourceKind::delivery, "T営業納品", "営業納品", "納品", 営業納品No変更, false, false},
    {"reference", SourceKind::reference, "T営業請求", "営業請求", "請求", 参照営業請求No変更, false, true},
};
void PrintTo(const Words& w, std::ostream* out) { *out << w.name; }

// The three key fields of the kind in the header.
std::string link(const Words& w) {
    const SourceRow& row = source_row(w.kind);
    return 請求ヘッダ.*row.site + " " + 請求ヘッダ.*row.base_date + " " + 請求ヘッダ.*row.number;
}

void lay_header(const Installation& at, const Words& w, const char* number, Columns more = {}) {
    lay(at, w.table, {{"事業所コード", "000"}, {"番号基準日付", "99999999"}, {w.own + "No", number}}, more);
}
void lay_line(const Installation& at, const Words& w, const char* number, const char* row, Columns more = {}) {
    lay(at, w.table + "明細",
        {{"事業所コード", "000"}, {"番号基準日付", "99999999"}, {w.own + "No", number}, {w.own + "固有行No", row}, {w.own + "行No", row}},
        more);
}

// A header with a value in every column that is taken, and in those that must not be.
void lay_full_header(const Installation& at, const Words& w, const char* number, const char* prospect = "0") {
    lay_header(at, w, number,
               {{w.own + "日付", "20230105"}, {"得意先コード", "000555"}, {"得意先名称A", "名A"}, {"得意先名称B", "名B"},
                {"得意先御担当者コード", "00007"}, {"御担当者名", "高木"}, {"担当者コード", "00001"}, {"部門コード", "010"},
                {"セクションコード", "020"}, {"納品先コード", "000777"}, {"納品先名称A", "納A"}, {"納品先名称B", "納B"},
                {"納品先名称入力区分", "0"}, {"タイトル", "件名"}, {"支払条件", "月末"}, {"消費税表示区分", "0"},
                {"合計表示区分", "0"}, {w.amounts + "伝票備考A", "備A"}, {w.amounts + "伝票備考B", "備B"},
                {"税抜" + w.amounts + "金額合計", "1001"}, {w.amounts + "消費税合計", "1002"},
                {"税込" + w.amounts + "金額合計", "1003"}, {"税抜仕入金額合計", "1004"}, {"仕入消費税合計", "1005"},
                {"税込仕入金額合計", "1006"}, {"得意先消費税区分", "2"}, {"得意先消費税算出区分", "1"},
                {"得意先消費税丸め方法", "5"}, {"得意先消費税丸め桁位置", "0"}, {"得意先消費税端数調整区分", "1"},
                {"得意先名称入力区分", "1"}, {"出荷完了区分", "1"}, {"売上完了区分", "1"}, {"完了フラグ", "1"},
                {"伝票発行区分", "1"}, {w.own + "メモ", "秘"}, {"承認日付", "20230106"}, {"承認者コード", "00009"},
                {"承認区分", "1"}, {"登録日付", "20230105 101010"}, {"更新日付", "20230107 101010"}});
    if (w.prospects)
        at.main("UPDATE " + w.table + " SET 得意先対応先区分 = '" + prospect + "', 納品先対応先区分 = '" + prospect + "' WHERE " +
                w.own + "No = '" + number + "'");
}

// 3 at 100 against 50, then a line whose amounts were typed, 500 against 400.
void lay_two_lines(const Installation& at, const Words& w, const char* number) {
    const std::string& a = w.amounts;
    lay_line(at, w, number, "001",
             {{"行区分", "1"}, {"商品コード", "Q1"}, {"商品名", "品一"}, {a + "数量", "3"}, {a + "単位", "箱"}, {a + "単価", "100"},
              {a + "金額", "999"}, {a + "消費税", "77"}, {"売上課税区分", "1"}, {"売上消費税区分", "1"}, {"仕入先コード", "000333"},
              {"仕入先名称A", "仕先"}, {"仕入数量", "3"}, {"仕入単位", "組"}, {"仕入単価", "50"}, {"仕入金額", "888"},
              {"仕入消費税", "66"}, {"仕入課税区分", "1"}, {"仕入消費税区分", "1"}, {"計区分", "1"}, {"商品売上課税区分", "0"},
              {"商品売上消費税区分", "0"}, {"商品仕入課税区分", "0"}, {"商品仕入消費税区分", "0"}, {"商品税抜販売単価", "91"},
              {"商品税抜仕入単価", "45"}, {"商品税込販売単価", "101"}, {"商品税込仕入単価", "51"}, {"商品名称入力区分", "0"},
              {"仕入先消費税区分", "1"}, {"仕入先消費税算出区分", "3"}, {"仕入先消費税丸め方法", "9"}, {"仕入先消費税丸め桁位置", "1"},
              {"仕入先消費税端数調整区分", "1"}, {"仕入先名称入力区分", "1"}, {"出荷数量", "2"}, {"税抜出荷金額", "20"},
              {"税込出荷金額", "22"}, {"売上数量", "1"}, {"税抜売上金額", "10"}, {"税込売上金額", "11"}, {"明細完了区分", "1"},
              {"明細完了日付", "20230108"}, {"明細メモ", "内"}, {"承認日付", "20230109"}, {"承認者コード", "00008"},
              {"承認区分", "1"}, {"登録日付", "20230105 101011"}, {"更新日付", "20230107 101011"}});
    lay_line(at, w, number, "002",
             {{"行区分", "1"}, {"商品名", "品二"}, {a + "数量", "0"}, {a + "単価", "100"}, {a + "金額", "500"}, {a + "消費税", "7"},
              {"仕入先コード", "T00009"}, {"仕入数量", "0"}, {"仕入単価", "0"}, {"仕入金額", "400"}, {"仕入消費税", "6"},
              {"計区分", "1"}, {"商品売上課税区分", "0"}, {"商品売上消費税区分", "0"}, {"商品仕入課税区分", "0"},
              {"商品仕入消費税区分", "0"}, {"仕入先消費税区分", "1"}, {"仕入先消費税算出区分", "1"}});
    if (w.prospects) {
        at.main("UPDATE " + w.table + "明細 SET 仕入先対応先区分 = '0' WHERE " + w.own + "行No = '001'");
        at.main("UPDATE " + w.table + "明細 SET 仕入先対応先区分 = '1' WHERE " + w.own + "行No = '002'");
    }
}

std::string yen(通貨 c) { return plain_number(c); }
std::string customer() {
    const HeaderRecord& h = 請求ヘッダ;
    return h.得意先コード + "," + h.得意先対応先コード + "," + h.得意先名称A + "," + h.得意先名称B + "," + h.得意先御担当者コード + "," +
           h.御担当者名 + "," + std::to_string(h.得意先名称入力区分);
}
std::string customer_tax() {
    const HeaderRecord& h = 請求ヘッダ;
    std::string out;
    for (std::int16_t n : {h.得意先消費税区分, h.得意先消費税算出区分, h.得意先消費税丸め方法, h.得意先消費税丸め桁位置, h.得意先消費税端数調整区分})
        out += (out.empty() ? "" : " ") + std::to_string(n);
    return out;
}
std::string staff() {
    const HeaderRecord& h = 請求ヘッダ;
    return h.担当者コード + h.担当者名 + "," + h.部門コード + h.部門名 + "," + h.セクションコード + h.セクション名;
}
std::string destination() {
    const HeaderRecord& h = 請求ヘッダ;
    return h.納品先コード + "," + h.納品先対応先コード + "," + h.納品先名称A + "," + h.納品先名称B + "," + std::to_string(h.納品先名称入力区分);
}
std::string texts() {
    const HeaderRecord& h = 請求ヘッダ;
    return h.タイトル + "," + h.支払条件 + "," + h.請求伝票備考A + "," + h.請求伝票備考B;
}
std::string totals() {
    const HeaderRecord& h = 請求ヘッダ;
    return yen(h.税抜請求金額合計) + " " + yen(h.請求消費税合計) + " " + yen(h.税込請求金額合計) + " " + yen(h.税抜仕入金額合計) + " " +
           yen(h.仕入消費税合計) + " " + yen(h.税込仕入金額合計);
}
// What a source must leave at the values of a new document.
std::string never_brought() {
    const HeaderRecord& h = 請求ヘッダ;
    return h.営業請求日付 + "," + 実行環境.番号基準日付 + "," + 実行環境.営業請求No + "," + h.営業請求メモ + "," +
           std::to_string(h.出荷完了区分) + std::to_string(h.売上完了区分) + h.完了フラグ + std::to_string(h.伝票発行区分) + "," + h.承認日付 +
           h.承認者コード + h.承認区分 + h.登録日付 + h.更新日付 + h.旧事業所コード + h.旧番号基準日付 + h.旧営業請求No + h.旧営業請求日付;
}
std::string line_figures(int i) {
    const LineRecord& l = 請求明細行[i];
    std::string out = l.商品コード + "," + l.商品名 + "," + yen(l.請求数量) + l.請求単位 + " " + yen(l.請求単価) + " " + yen(l.請求金額) + " " +
                      yen(l.請求消費税) + " " + std::to_string(l.売上課税区分) + std::to_string(l.売上消費税区分) + "," + l.仕入先コード + "," +
                      l.仕入先対応先コード + "," + l.仕入先名称A + "," + yen(l.仕入数量) + l.仕入単位 + " " + yen(l.仕入単価) + " " +
                      yen(l.仕入金額) + " " + yen(l.仕入消費税) + " " + std::to_string(l.仕入課税区分) + std::to_string(l.仕入消費税区分);
    return out;
}
std::string line_settings(int i) {
    const LineRecord& l = 請求明細行[i];
    std::string out;
    for (std::int16_t n : {l.行区分, l.計区分, l.商品名称入力区分, l.仕入先消費税区分, l.仕入先消費税算出区分, l.仕入先消費税丸め方法,
                           l.仕入先消費税丸め桁位置, l.仕入先消費税端数調整区分, l.仕入先名称入力区分})
        out += std::to_string(n);
    for (通貨 c : {l.商品税抜販売単価, l.商品税抜仕入単価, l.商品税込販売単価, l.商品税込仕入単価}) out += " " + yen(c);
    return out;
}
// Identity, shipped and sold figures, memo, approvals and stamps of a line.
std::string line_own(int i) {
    const LineRecord& l = 請求明細行[i];
    return l.営業請求固有行No + yen(l.出荷数量) + yen(l.税抜出荷金額) + yen(l.税込出荷金額) + yen(l.売上数量) + yen(l.税抜売上金額) +
           yen(l.税込売上金額) + std::to_string(l.明細完了区分) + l.明細完了日付 + l.明細メモ + l.承認日付 + l.承認者コード + l.承認区分 + l.登録日付 +
           l.更新日付;
}

struct 読込 : testing::Test {
    読込() { lay_masters(at); }
    Installation at{setup::Content::empty};
};
struct 引用 : 読込, testing::WithParamInterface<Words> {};
INSTANTIATE_TEST_SUITE_P(Kinds, 引用, testing::ValuesIn(kinds), [](const auto& info) { return std::string(info.param.name); });

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
    EXPECT_EQ(staff(), "00001担当者,010営業部,020第一課");
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
    const std::string sale[] = {w.reference ? "Q1,品一,3箱 100 300 30 01," : "Q1,品一,3箱 100 300 27 02,",
                                w.reference ? ",品二,0 100 500 50 01," : ",品二,0 100 500 45 02,"};
    EXPECT_EQ(line_figures(0), sale[0] + "000333,,仕先,3組 50 " + (w.reference ? "888 66 01" : "150 15 01"));
    EXPECT_EQ(line_figures(1), sale[1] + (w.prospects ? ",T00009," : "T00009,,") + ",0 0 400 " + (w.reference ? "6 01" : "40 01"));
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
    h.得意先コード = "000123";
    h.得意先消費税区分 = 1;
    h.担当者コード = "00002";
    h.部門コード = "009";
    h.セクションコード = "008";
    h.納品先コード = "000001";
    h.タイトル = "T";
    h.支払条件 = "P";
    h.請求伝票備考A = "   ";
    h.請求伝票備考B = "B";
    w.change("00000007");
    EXPECT_EQ(customer(), "000123,,,,,,0");
    EXPECT_EQ(customer_tax(), "1 2 0 0 0");
    EXPECT_EQ(staff(), "00002,009,008");
    EXPECT_EQ(destination(), "000001,,,,1");
    EXPECT_EQ(texts(), "T,P,備A,B");
    EXPECT_EQ(h.消費税表示区分, 0);
    EXPECT_EQ(実行環境.最終行, 1);

    h.得意先コード = "A00123";
    h.担当者コード = "X";
    h.納品先コード = "-";
    // without lines: all of those before are gone, and the totals with them
    w.change("00000008");
    EXPECT_EQ(link(w), "000 99999999 00000008");
    EXPECT_EQ(h.得意先コード, "000555");
    EXPECT_EQ(staff(), "00001担当者,009,008");
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
        EXPECT_EQ(totals(), last == 0 ? "0 0 0 0 0 0" : w.reference ? "1001 1002 1003 0 0 0" : "1001 1002 1003 1004 1005 1006");
        EXPECT_FALSE((実行環境.recordsets.*source_row(w.kind).recordset).is_open());
    }
    // and its lines are not read behind others
    lay_line(at, w, "00000007", "001", {{"商品名", "新"}});
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
    HeaderRecord& h = 請求ヘッダ;
    h.得意先名称A = "残A";
    h.担当者名 = "残氏";
    h.納品先名称B = "残B";
    h.得意先消費税丸め方法 = 4;
    h.消費税表示区分 = 0;
    const std::string before = customer() + customer_tax() + staff() + destination() + texts() + never_brought();
    w.change("00000007");
    EXPECT_EQ(customer() + customer_tax() + staff() + destination() + texts() + never_brought(), before);
    EXPECT_EQ(h.消費税表示区分, 0);
    EXPECT_EQ(link(w), "000 99999999 00000007");
    ASSERT_EQ(実行環境.最終行, 0);
    EXPECT_EQ(line_figures(0), ",,0 0 0 0 01,,,,0 0 0 0 01");
    EXPECT_EQ(line_settings(0), "111115000 0 0 0 0");
    EXPECT_EQ(line_own(0), "0000000");
}

// A text where a number belongs counts by its leading digits.
TEST_P(引用, 数でない文字) {
    const Words& w = GetParam();
    lay_full_header(at, w, "00000007");
    lay_two_lines(at, w, "00000007");
    at.main("UPDATE " + w.table + " SET 消費税表示区分 = 'x', 合計表示区分 = ' 1z', 得意先名称入力区分 = '2.5'");
    at.main("UPDATE " + w.table + "明細 SET " + w.amounts + "数量 = '2個', 仕入数量 = '個', 行区分 = '1x', 計区分 = ''");
    Seat seat(at);
    w.change("00000007");
    EXPECT_EQ(請求ヘッダ.消費税表示区分, 0);
    EXPECT_EQ(請求ヘッダ.合計表示区分, 1);
    EXPECT_EQ(請求ヘッダ.得意先名称入力区分, 2);
    EXPECT_EQ(yen(請求明細行[0].請求数量) + " " + yen(請求明細行[0].請求金額), "2 200");
    EXPECT_EQ(yen(請求明細行[0].仕入数量), "0");
    EXPECT_EQ(請求明細行[0].行区分, 1);
    EXPECT_EQ(請求明細行[0].計区分, 0);
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
    struct Case {
        const char *picked, *site, *base;  // 選択戻り値, the link before
        std::string key;                   // what is looked for
        bool taken;
    };
    const std::string guard = "T" + w.own + ".x = '12345'";  // below: cut to 20 characters
    const std::string condition = Left(guard + "                    ", 19) + "!";
    ASSERT_EQ(Len(condition), 20U);
    const Case cases[] = {
        {"", "", "", "000 20250331", false},
        {"", "001", "", "001 20250331", false},
        {"", "", "20240331", "000 20240331", false},
        {"C0022023123100000005", "001", "20240331", "002 20231231", true},
        {"  C0022023123100000005 ", "", "", "002 20231231", true},
        {"C002202312310000005", "001", "20240331", "001 20240331", false},
        {condition.c_str(), "001", "20240331", "001 20240331", false},
    };
    at.main(std::string("UPDATE A番号情報 SET 連番種類 = '1' WHERE 番号ID = '") + row.number_id + "'");
    Seat seat(at);
    for (const Case& c : cases) {
        SCOPED_TRACE(c.picked);
        実行環境.選択戻り値 = c.picked;
        請求ヘッダ.*row.site = c.site;
        請求ヘッダ.*row.base_date = c.base;
        請求ヘッダ.*row.number = "";
        Recorder recorder;
        w.change("00000042");
        const std::string& sql = recorder.statements.back().text;
        const std::string where = " WHERE " + w.table + "." + w.own + "No = '00000042' AND " + w.table + ".事業所コード = '" +
                                  Left(c.key, 3) + "' AND " + w.table + ".番号基準日付 = '" + Mid(c.key, 5) + "'";
        EXPECT_EQ(sql, "SELECT TOP 1 " + w.table +
                           ".*, M担当者.氏名 AS 担当者名, M部門.名称 AS 部門名, Mセクション.名称 AS セクション名 FROM Mセクション RIGHT JOIN "
                           "(M部門 RIGHT JOIN (M担当者 RIGHT JOIN " + w.table + " ON M担当者.コード = " + w.table +
                           ".担当者コード) ON M部門.コード = " + w.table + ".部門コード) ON Mセクション.コード = " + w.table +
                           ".セクションコード" + where);
        EXPECT_EQ(実行環境.選択戻り値, c.taken ? "" : c.picked);
    }
}

// Too many lines, or a figure that no field can hold: the failure in a box, and a cleared document.
TEST_P(引用, 読めない伝票) {
    const Words& w = GetParam();
    lay_full_header(at, w, "00000007");
    at.main("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 1200) INSERT INTO " + w.table +
            "明細 (事業所コード, 番号基準日付, " + w.own + "No, " + w.own + "固有行No, " + w.own +
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

// --- the stored invoice

// The words of the stored invoice, for its rows.
const Words stored{"stored", SourceKind::invoice, "T営業請求", "営業請求", "請求", 営業請求No変更, false, false};

// Every column comes back as it was: opened and registered, the live row differs in its writer, its time and
// the totals alone; what is shown in the head comes from the masters.
TEST_F(読込, 請求の全項目) {
    std::string set_header, set_lines;
    int n = 0;
    for (const HeaderColumn& c : header_columns) {
        ++n;
        if (c.key || c.kind == ColumnKind::stamp || c.name == "営業請求日付" || c.name == "得意先消費税算出区分" ||
            c.name == "得意先消費税端数調整区分")
            continue;
        set_header += (set_header.empty() ? "" : ", ") + std::string(c.name) + " = '" +
                      (c.digit || c.money || c.name == "承認区分" ? std::to_string(n) : "値" + std::to_string(n)) + "'";
    }
    for (const LineColumn& c : line_columns) {
        ++n;
        if (c.key || c.head || c.kind == ColumnKind::stamp || c.name == "営業請求固有行No" || c.name == "営業請求行No") continue;
        set_lines += (set_lines.empty() ? "" : ", ") + std::string(c.name) + " = '" +
                     (c.name == "行区分" || c.name == "計区分" ? "1" : c.digit || c.money ? std::to_string(n) : "値" + std::to_string(n)) + "'";
    }
    lay_documents(at);
    at.main("UPDATE T営業請求 SET 得意先消費税算出区分 = '1', 得意先消費税端数調整区分 = '0', " + set_header);
    at.main("UPDATE T営業請求明細 SET " + set_lines);
    const auto rows = [&](const char* table, const auto& columns, const std::vector<std::string_view>& but) {
        std::string sql = "SELECT ";
        for (const auto& c : columns)
            if (std::find(but.begin(), but.end(), c.name) == but.end()) sql.append(sql.size() > 7 ? ", " : "").append(c.name);
        return at.main(sql + " FROM " + table + " ORDER BY 2, 3, 4, 5");
    };
    const std::vector<std::string_view> header_own{
        "ユーザID", "登録日付", "請求数量合計", "請求金額合計", "税抜請求金額合計", "請求消費税合計", "税込請求金額合計", "仕入数量合計",
        "仕入金額合計", "税抜仕入金額合計", "仕入消費税合計", "税込仕入金額合計"};
    // the lines' copies of the header are written from the header
    const std::vector<std::string_view> line_own{"ユーザID",       "登録日付",         "営業請求日付", "得意先コード",
                                                 "担当者コード", "部門コード", "セクションコード", "納品先コード"};
    const std::string header = rows("T営業請求", header_columns, header_own), lines = rows("T営業請求明細", line_columns, line_own);
    Seat seat(at);
    os::freeze_clock({{2024, 4, 11}, 9, 30, 0});
    open_document(seat, "1");
    EXPECT_EQ(請求ヘッダ.旧営業請求日付, "20240410");
    EXPECT_EQ(請求ヘッダ.旧事業所コード + 請求ヘッダ.旧番号基準日付 + 請求ヘッダ.旧営業請求No, "0009999999900000001");
    EXPECT_EQ(請求ヘッダ.営業請求日付年 + "/" + 請求ヘッダ.営業請求日付月 + "/" + 請求ヘッダ.営業請求日付日, "2024/04/10");
    EXPECT_EQ(請求ヘッダ.集計日付, "20240430");
    EXPECT_FALSE(実行環境.入力変更あり);
    EXPECT_FALSE(実行環境.新規入力中);
    EXPECT_EQ(請求ヘッダ.最終固有行No, 2);
    dispatch([] { 登録処理(); });
    EXPECT_EQ(rows("T営業請求", header_columns, header_own), header);
    EXPECT_EQ(rows("T営業請求明細", line_columns, line_own), lines);
    EXPECT_EQ(at.main("SELECT 登録日付 FROM T営業請求"), "20240411 093000");
}

// A NULL leaves its field as the document before it had it.
TEST_F(読込, 空値は前の伝票のまま) {
    lay_documents(at);
    lay_header(at, stored, "00000009", {{"営業請求日付", "20240401"}});
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
    EXPECT_EQ(line_figures(0), ",,0 0 0 0 01,,,,0 0 0 0 01");
    EXPECT_EQ(line_settings(0), "111115000 0 0 0 0");
}

// The figures of stored lines stay, wrong as they may be; the approval of the head is held as a number.
TEST_F(読込, 明細は計算しない) {
    lay_full_header(at, stored, "00000007");
    lay_two_lines(at, stored, "00000007");
    at.main("UPDATE T営業請求 SET 営業請求日付 = '20240401', 承認区分 = '01', 担当者コード = '00077', 部門コード = '099'");
    at.main("UPDATE T営業請求明細 SET 承認区分 = '01', 請求数量 = '12個' WHERE 営業請求行No = '001'");
    Seat seat(at);
    open_document(seat, "7");
    EXPECT_EQ(請求ヘッダ.承認区分, "1");
    EXPECT_EQ(請求明細行[0].承認区分, "01");
    EXPECT_EQ(line_figures(0), "Q1,品一,12箱 100 999 77 11,000333,,仕先,3組 50 888 66 11");
    // 999 and 77, not taxed and tax-out, and 500 and 7; the tax of the lines
    EXPECT_EQ(totals(), "1499 84 1583 1288 72 1360");
    EXPECT_EQ(yen(請求ヘッダ.請求金額合計) + " " + yen(請求ヘッダ.請求数量合計), "1499 12");
    EXPECT_EQ(staff(), "00077,099,020第一課");  // the masters have gone
}

// Named on the command line: the stored totals are shown as they are, those that are not stored for it as 0.
TEST_F(読込, 起動時は合計しない) {
    lay_full_header(at, stored, "00000007");
    lay_two_lines(at, stored, "00000007");
    at.main("UPDATE T営業請求 SET 営業請求日付 = '20240401', 請求金額合計 = 1007, 請求数量合計 = 9, 仕入数量合計 = 8, 仕入金額合計 = 7");
    Seat seat(at, "0009999999900000007");
    EXPECT_FALSE(実行環境.新規入力中);
    EXPECT_EQ(実行環境.最終行, 1);
    EXPECT_EQ(totals(), "1001 1002 1003 1004 1005 1006");
    EXPECT_EQ(yen(請求ヘッダ.請求金額合計) + yen(請求ヘッダ.請求数量合計) + yen(請求ヘッダ.仕入金額合計) + yen(請求ヘッダ.仕入数量合計), "0000");
    EXPECT_EQ(at.main("SELECT 伝票No FROM T閲覧"), "00000007");
}

// The statements of an opened invoice, with its one row in the run history; of one that does not exist; and
// of the neighbour of one.
TEST_F(読込, 文の順序) {
    lay_documents(at, 2);
    Seat seat(at);
    const int mark = history_count(at);
    const auto opened = [](const char* browse, const char* number) {
        return Expected{{"main", series("01110")},
                        {"main", series("01110")},
                        {"main", std::string("UPDATE A番号情報 SET  連番 = '") + browse + "' WHERE A番号情報.番号ID = '01110'"},
                        {"main", std::string("SELECT 閲覧No FROM T閲覧 WHERE 事業所コード = '000' AND 番号基準日付 = '99999999' AND "
                                             "閲覧No = '") + browse + "'"},
                        {"main", "INSERT INTO [T閲覧] ("},
                        {"main", "SELECT TOP 1 T営業請求.*, M担当者.氏名 AS 担当者名, M部門.名称 AS 部門名, Mセクション.名称 AS "
                                 "セクション名 FROM Mセクション RIGHT JOIN (M部門 RIGHT JOIN (M担当者 RIGHT JOIN T営業請求 ON "
                                 "M担当者.コード = T営業請求.担当者コード) ON M部門.コード = T営業請求.部門コード) ON "
                                 "Mセクション.コード = T営業請求.セクションコード WHERE T営業請求.営業請求No = '" +
                                     std::string(number) + "' AND T営業請求.事業所コード = '000' AND T営業請求.番号基準日付 = "
                                     "'99999999'"},
                        {"history", "INSERT INTO プログラム稼動履歴 "}};
    };
    const auto read = [](const char* number) {
        return Expected{{"main", "SELECT T営業請求明細.* FROM T営業請求明細  WHERE T営業請求明細.事業所コード = '000' AND "
                                 "T営業請求明細.番号基準日付 = '99999999' AND T営業請求明細.営業請求No = '" +
                                     std::string(number) + "' ORDER BY T営業請求明細.営業請求行No"}} +
               taxes() + referred(number) +
               Expected{{"config", "SELECT * FROM プログラムクリップボード明細 WHERE 貼付プログラムID = 'KalvaneInvoiceEntry' AND "
                                   "貼付情報区分 = '1' AND 伝票番号ID = '16240' AND 貼付日時 < '20240410 093000' ORDER BY 貼付日時 "
                                   "DESC"}};
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
        const Expected neighbour{
            {"main", "SELECT TOP 1 番号基準日付,営業請求No FROM T営業請求 WHERE 事業所コード = '000' AND ((営業請求日付 = '20240410' AND "
                     "営業請求No < '00000002') OR 営業請求日付 < '20240410') ORDER BY 営業請求日付 DESC, 営業請求No DESC"}};
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
         {std::tuple{"C0012023033100000001", "001", "20230331"}, std::tuple{"T営業請求.x = '12345678'", "000", "99999999"},
          std::tuple{"T営業請求.得意先 = '1234'", "000", "99999999"}, std::tuple{"", "000", "99999999"}}) {
        SCOPED_TRACE(pick);
        実行環境.選択戻り値 = pick;
        const bool picked = std::string(site) == "001";
        Recorder recorder;
        営業請求No変更("00000088");
        std::string found;
        for (const Recorded& r : recorder.statements)
            if (r.text.starts_with("SELECT TOP 1 T営業請求.*")) found = r.text.substr(r.text.find(" WHERE "));
        EXPECT_EQ(found, " WHERE T営業請求.営業請求No = '00000088' AND T営業請求.事業所コード = '" + std::string(site) +
                             "' AND T営業請求.番号基準日付 = '" + base + "'");
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
        EXPECT_EQ(実行環境.営業請求No, "00000002");
        EXPECT_EQ(実行環境.最終行, -1);
        EXPECT_EQ(customer() + texts(), ",,,,,,0,,,");
        EXPECT_EQ(請求ヘッダ.旧営業請求No, "");
        EXPECT_EQ(請求ヘッダ.営業請求日付, "20240401");
        EXPECT_TRUE(実行環境.新規入力中);
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
    lay(at, "T営業請求", {{"事業所コード", "000"}, {"番号基準日付", "88888888"}, {"営業請求No", "00000089"}});
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
    EXPECT_EQ(at.main("SELECT 営業請求No, 請求数量合計 FROM T営業請求 ORDER BY 営業請求No"), "00000001|13\n00000002|1");
}

// What cannot be read: the failure in a box, a cleared document of the date before, nothing written but the
// look at it, and the program goes on.
TEST_F(読込, 読めない請求) {
    struct Case {
        const char *change, *words;
    };
    const char* out_of_range = "インデックスが有効範囲にありません。";
    const char* overflow = "オーバーフローしました。";
    const Case cases[] = {
        {"WITH RECURSIVE n(i) AS (SELECT 3 UNION ALL SELECT i + 1 FROM n WHERE i < 1200) INSERT INTO T営業請求明細 (事業所コード, "
         "番号基準日付, 営業請求No, 営業請求固有行No, 営業請求行No) SELECT '000', '99999999', '00000001', PRINTF('%04d', i), "
         "PRINTF('%04d', i) FROM n",
         out_of_range},
        {"UPDATE T営業請求 SET 消費税表示区分 = '32768' WHERE 営業請求No = '00000001'", overflow},
        {"UPDATE T営業請求 SET 税抜請求金額合計 = 1e15 WHERE 営業請求No = '00000001'", overflow},
        {"UPDATE T営業請求明細 SET 請求単価 = -1e300 WHERE 営業請求固有行No = '002' AND 営業請求No = '00000001'", overflow},
        {"UPDATE T営業請求明細 SET 営業請求固有行No = '99999' WHERE 営業請求固有行No = '002' AND 営業請求No = '00000001'", overflow},
        {"UPDATE T営業請求 SET 営業請求日付 = '99991301' WHERE 営業請求No = '00000001'", "日付が正しくありません。"},
    };
    lay_documents(at, 2);
    for (const Case& c : cases) {
        SCOPED_TRACE(c.change);
        at.restore();
        at.main(std::string(c.change));
        const auto rows = [&] { return at.main("SELECT * FROM T営業請求") + at.main("SELECT * FROM R営業請求") + at.main("SELECT * FROM A番号情報 WHERE 番号ID = '16240'"); };
        const std::string before = rows();
        Seat seat(at);
        open_document(seat, "2");
        Seat::boxes.clear();
        at.main("DELETE FROM T営業請求 WHERE 営業請求No = 'none'");
        open_document(seat, "1");
        ASSERT_EQ(Seat::boxes.size(), 1U);
        EXPECT_EQ(Seat::boxes[0], c.words);
        EXPECT_FALSE(process_ended());
        EXPECT_EQ(実行環境.最終行, -1);
        EXPECT_TRUE(実行環境.新規入力中);
        EXPECT_EQ(customer() + texts(), ",,,,,,0,,,");
        EXPECT_EQ(請求ヘッダ.営業請求日付, "20240410");
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
    at.main("WITH RECURSIVE n(i) AS (SELECT 3 UNION ALL SELECT i + 1 FROM n WHERE i < 999) INSERT INTO T営業請求明細 (事業所コード, "
            "番号基準日付, 営業請求No, 営業請求固有行No, 営業請求行No, 商品名) SELECT '000', '99999999', '00000001', "
            "PRINTF('%03d', i), PRINTF('%03d', i), 'L' || i FROM n");
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

// --- the command line

struct CommandLine {
    const char* name;
    std::string text;
    const char* found;  // the source's title that was taken, "" for none
    const char* links;  // the four links after it
    bool changed, argument = true;
};
void PrintTo(const CommandLine& c, std::ostream* out) { *out << c.name; }
struct 引用起動 : 読込, testing::WithParamInterface<CommandLine> {};

const std::string fresh_key = "0000000000000000000", none = "0000000000000000000", one = "0009999999900000007";
const CommandLine command_lines[] = {
    {"first_of_two", fresh_key + one + one, "T営業見積", "000 99999999 00000007/  /  /  ", true},
    {"order", fresh_key + none + one + one, "T顧客注文", "000 00000000 00000000/000 99999999 00000007/  /  ", true},
    {"delivery", fresh_key + none + none + one, "T営業納品",
     "000 00000000 00000000/000 00000000 00000000/000 99999999 00000007/  ", true},
    {"reference", fresh_key + none + none + none + one, "T営業請求",
     "000 00000000 00000000/000 00000000 00000000/000 00000000 00000000/000 99999999 00000007", true},
    // a miss clears all, and the one behind it is not tried
    {"first_is_missing", fresh_key + "0009999999900000008" + one, "", "  /  /  /  ", false},
    {"zero_number", fresh_key + "0009999999900000000" + one, "T顧客注文", "000 99999999 00000000/000 99999999 00000007/  /  ", true},
    {"zero_date", fresh_key + "0000000000000000007" + one, "T顧客注文", "000 00000000 00000007/000 99999999 00000007/  /  ", true},
    {"blank_site", fresh_key + "   9999999900000007" + one, "T顧客注文", "    99999999 00000007/000 99999999 00000007/  /  ", true},
    {"blank_date", fresh_key + "000        00000007" + one, "T顧客注文", "000          00000007/000 99999999 00000007/  /  ", true},
    {"refused_characters", fresh_key + "0009999999900'00007" + one, "T顧客注文", "  /000 99999999 00000007/  /  ", true},
    {"full_width", fresh_key + "０００9999999900000007" + one, "T顧客注文", "  /000 99999999 00000007/  /  ", true},
    {"cut_in_the_site", fresh_key + "00", "", "00  /  /  /  ", false},
    {"cut_in_the_date", fresh_key + "0009999", "", "000 9999 /  /  /  ", false},
    {"cut_in_the_number", fresh_key + "00099999999000", "", "  /  /  /  ", false},
    {"cut_behind_the_first", fresh_key, "", "  /  /  /  ", false},
    {"stored_key_looks_at_no_source", "0009999999900000088" + one, "", "  /  /  /  ", false},
    {"unusable_key", "000" + std::string(8, ' ') + "00000000" + one, "", "  /  /  /  ", false, false},
};

TEST_P(引用起動, 伝票) {
    const CommandLine& c = GetParam();
    for (const Words& w : kinds) {
        lay_full_header(at, w, "00000007");
        at.main("UPDATE " + w.table + " SET タイトル = '" + w.table + "'");
        lay_two_lines(at, w, "00000007");
    }
    Seat seat(at, c.text);
    EXPECT_TRUE(Seat::boxes.empty());
    EXPECT_FALSE(process_ended());
    EXPECT_EQ(実行環境.引数起動, c.argument);
    EXPECT_EQ(請求ヘッダ.タイトル, c.found);
    EXPECT_EQ(実行環境.最終行, c.changed ? 1 : -1);
    std::string links;
    for (const Words& w : kinds) links += (links.empty() ? "" : "/") + link(w);
    EXPECT_EQ(links, c.links);
    EXPECT_TRUE(実行環境.新規入力中);
    EXPECT_EQ(実行環境.入力変更あり, c.changed);
    EXPECT_EQ(実行環境.営業請求No, "00000001");
    EXPECT_EQ(実行環境.事業所コード, "000");
}
INSTANTIATE_TEST_SUITE_P(Texts, 引用起動, testing::ValuesIn(command_lines),
                         [](const auto& info) { return std::string(info.param.name); });

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
    EXPECT_EQ(at.main("SELECT 営業請求No, 営業見積事業所コード, 営業見積番号基準日付, 営業見積No, 得意先コード, 営業請求日付 FROM T営業請求"),
              "00000001|000|99999999|00000007|000123|20240410");
    EXPECT_EQ(at.main("SELECT 営業請求固有行No, 請求数量, 出荷数量, 明細メモ FROM T営業請求明細 ORDER BY 営業請求行No"),
              "001|3|0|\n002|0|0|");
    EXPECT_EQ(at.main("SELECT * FROM T営業見積") + at.main("SELECT * FROM T営業見積明細"), source);
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
    EXPECT_EQ(line_figures(2), "Q1,品一,3箱 91 273 27 01,000333,,仕先,3組 45 135 14 01");
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

// Master look-ups: what a hit, a miss and an emptied code leave.
#include "document/lookups.h"

#include "support/program_database.h"

namespace kalvane {
namespace {

using namespace test;

// Master, columns, rows parted by "/" with values parted by ",".
constexpr const char* masters =
    R"(M部門|コード 名称|001,営業部/002,開発部 ; Mセクション|コード 名称|011,一課/012,二課
    M担当者|コード 氏名 事業所コード 部門コード セクションコード 在籍区分|00001,山田,001,001,011,0/\
        00002,鈴木,002,002,012,0/00003,本社,000,009,019,0/00004,退職,001,001,011,1
    M得意先|コード 名称A 名称B 御担当者名 担当者コード 消費税区分 消費税算出区分 消費税丸め方法 消費税丸め桁位置 \
        消費税端数調整区分 名称入力区分 取引状況区分|000001,甲社,東京,佐藤,00001,2,1,5,-1,1,1,1/\
        000002,乙社,,,00003,1,3,0,0,0,0,1/000003,丙社,,,00001,1,2,0,0,0,0,3/000004,丁社,,,00099,1,2,0,0,0,0,1
    M得意先御担当者|得意先コード 御担当者コード 氏名|000001,00007,田中/000002,00007,別人
    M納品先|コード 名称A 名称B 担当者コード 名称入力区分 取引状況区分|000001,倉庫,北,00001,0,1/000002,閉鎖,,,0,3/\
        000003,無人,,00099,0,1
    M仕入先|コード 名称A 消費税区分 消費税算出区分 消費税丸め方法 消費税丸め桁位置 消費税端数調整区分 名称入力区分 \
        取引状況区分|000001,問屋,2,3,9,1,1,1,1/000002,廃業,1,1,0,0,0,0,3
    M商品|コード 名称A 名称B 単位 取扱状況区分 仕入先コード 売上課税区分 売上消費税区分 仕入課税区分 仕入消費税区分 \
        税抜販売単価 税込販売単価 税抜仕入単価 税込仕入単価|A-1,机,大,台,1,000001,2,2,0,1,100.5,108,50,55/\
        B,備考,,式,1,000002,0,1,0,1,10,11,5,6/C,摘,要,式,1,,0,0,0,0,10,11,5,6/D,,,式,1,,0,0,0,0,10,11,5,6/\
        E,備考欄,,式,1,,0,0,0,0,10,11,5,6/X,廃番,,,3,,0,0,0,0,10,11,5,6)";

struct Lookups : ProgramDatabase {
    void SetUp() override {
        ProgramDatabase::SetUp();
        for (const auto& r : table(masters)) put(r[0], r[1], Replace(Replace(r[2], ",", "|"), "/", "\n"));
        statements.clear();
    }
};

// Decisions: the text of the left field, what the document holds before, what must stand after.
const std::pair<bool (*)(const std::string&), const char*> decisions[] = {
    // the customer brings his names, his salesperson with department and section, his tax rules
    // a kept contact, the ceiling of 2, a department that its master does not know
    {得意先コード変更,
     R"(000001|担当者コード=00002 部門コード=002 案内メッセージ=old|案内メッセージ= 入力変更あり=1 \
          得意先コード=000001 得意先名称A=甲社 得意先名称B=東京 御担当者名=佐藤 担当者コード=00001 \
          担当者名=山田 部門コード=001 部門名=営業部 セクションコード=011 セクション名=一課 \
          得意先消費税区分=2 得意先消費税算出区分=1 得意先消費税丸め方法=5 得意先消費税丸め桁位置=-1 \
          得意先消費税端数調整区分=1 得意先名称入力区分=1
      000002|得意先コード=000001 御担当者名=佐藤 部門名=営業部 得意先消費税算出区分=1|得意先コード=000002 \
          得意先名称B= 御担当者名=佐藤 担当者コード=00003 部門コード=009 部門名=営業部 得意先消費税算出区分=2
      000001|御担当者名=old|得意先コード=000001 御担当者名=old
      |得意先コード=000001 得意先名称A=甲社 得意先消費税区分=2 案内メッセージ=old|得意先コード= \
          得意先名称A=甲社 得意先消費税区分=2 案内メッセージ= 入力変更あり=1
      000003|得意先コード=000001 得意先名称A=甲社 得意先消費税区分=2|得意先コード= 得意先名称A=甲社 得意先消費税区分=2
      000004|得意先コード=000001 得意先名称A=甲社|得意先コード= 得意先名称A=甲社)"},
    // the contact is this customer's
    {得意先御担当者コード変更,
     R"(00007|得意先コード=000001|得意先御担当者コード=00007 御担当者名=田中 案内メッセージ= 入力変更あり=1
      00007|得意先コード=000003 得意先御担当者コード=00001 御担当者名=佐藤|得意先御担当者コード= 御担当者名=佐藤
      |得意先御担当者コード=00001 案内メッセージ=old|得意先御担当者コード= 案内メッセージ=)"},
    {担当者コード変更,
     R"(00002||担当者コード=00002 担当者名=鈴木 部門コード=002 部門名=開発部 セクションコード=012 \
          セクション名=二課 案内メッセージ= 入力変更あり=1
      00003|部門名=old セクション名=old|部門コード=009 部門名=old セクションコード=019 セクション名=old
      00004|担当者コード=00001 担当者名=山田|担当者コード= 担当者名=山田
      |担当者コード=00001 担当者名=山田 案内メッセージ=old|担当者コード= 担当者名=山田 案内メッセージ=old
      ００００１|担当者コード=00001|担当者コード=)"},
    {部門コード変更,
     R"(002||部門コード=002 部門名=開発部 案内メッセージ= 入力変更あり=1
      009|部門コード=001 部門名=営業部|部門コード= 部門名=営業部
      |部門コード=001 案内メッセージ=old|部門コード= 案内メッセージ=old)"},
    {セクションコード変更,
     R"(012||セクションコード=012 セクション名=二課
      |セクションコード=011 案内メッセージ=old|セクションコード= 案内メッセージ=old)"},
    {納品先コード変更,
     R"(000001||納品先コード=000001 納品先名称A=倉庫 納品先名称B=北 納品先名称入力区分=0
      000002|納品先コード=000001 納品先名称A=倉庫|納品先コード= 納品先名称A=倉庫
      000003|納品先コード=000001|納品先コード=
      |納品先コード=000001 案内メッセージ=old|納品先コード= 案内メッセージ=)"},
    // the product: 8 per cent with its tax in, supplier's tax rules without a ceiling, line and totals follow
    // remarks leave name and units; a closed supplier leaves none; a supplier in the line stays
    // what cannot be typed is not asked for
    {商品コード変更,
     R"(A-1|請求数量=2 仕入数量=2|商品コード=A-1 商品名=机大 請求単位=台 仕入単位=台 商品税抜販売単価=100.5 \
          商品税込販売単価=108 商品税抜仕入単価=50 商品税込仕入単価=55 売上課税区分=2 売上消費税区分=2 \
          請求単価=108.5 請求金額=217 請求消費税=16 仕入先コード=000001 仕入先名称A=問屋 \
          仕入先消費税算出区分=3 仕入先消費税丸め方法=9 仕入先消費税丸め桁位置=1 仕入単価=50 仕入金額=100 \
          仕入消費税=10 請求金額合計=217 税込仕入金額合計=110 案内メッセージ= 入力変更あり=1
      B|商品名=自由 請求単位=個|商品名=自由 請求単位=個 仕入単位= 商品税抜販売単価=10 仕入先コード=
      C|商品名=自由 仕入先コード=000009|商品名=自由 請求単位= 仕入先コード=000009
      D|商品名=自由|商品名=自由 請求単位= 商品税抜販売単価=10
      E|商品名=自由 商品名称入力区分=0|商品名=備考欄 請求単位=式 商品名称入力区分=0
      A-1|仕入先コード=000009|仕入先コード=000009 仕入先名称A=
      D|行区分=0 計区分=0|行区分=1 計区分=1
      D|行区分=2 計区分=0|行区分=2 計区分=0
      X|商品コード=D 商品名=自由 請求金額=9|商品コード= 商品名=自由 請求金額合計=9
      |商品コード=D 請求金額=9 案内メッセージ=old|商品コード= 請求金額合計=0 案内メッセージ=
      ' OR '1'='1||商品コード=)"},
    // a supplier recalculates nothing
    {仕入先コード変更,
     R"(000001|仕入金額=1100 仕入消費税=7|仕入先コード=000001 仕入先名称A=問屋 仕入先消費税区分=2 \
          仕入先消費税算出区分=3 仕入先消費税端数調整区分=1 仕入先名称入力区分=1 仕入消費税区分=1 \
          仕入消費税=7 仕入金額合計=0
      000002|仕入先コード=000001 仕入先名称A=問屋|仕入先コード= 仕入先名称A=問屋
      |仕入先コード=000001 案内メッセージ=old|仕入先コード= 案内メッセージ=)"}};

TEST_F(Lookups, ACodeBringsItsValues) {
    for (const auto& [decide, rows] : decisions)
        for (const auto& r : table(rows)) {
            SCOPED_TRACE(r[0] + " after " + r[1]);
            fresh_document(1);
            set(r[1]);
            EXPECT_TRUE(decide(r[0]));
            EXPECT_EQ(seen(r[2]), r[2]);
            const bool missed = !r[0].empty() && setup::words(r[2])[0].ends_with('=');
            if (contains(r[2], "案内メッセージ=")) continue;
            EXPECT_EQ(実行環境.案内メッセージ, missed ? "該当情報がありません。" : "");
        }
}

TEST_F(Lookups, TheCodeHeldChangesNothing) {
    fresh_document(1);
    set("得意先コード=000009 商品コード=D 案内メッセージ=old");
    EXPECT_FALSE(得意先コード変更("000009") || 商品コード変更("D") || 担当者コード変更(""));
    EXPECT_EQ(seen("案内メッセージ 入力変更あり"), "案内メッセージ=old 入力変更あり=0");
    EXPECT_TRUE(statements.empty());
}

// A site sees its own people and the head office's, the head office all.
TEST_F(Lookups, StaffOfTheSite) {
    for (const auto& [site, seen] : {std::pair{"000", "yyyn"}, {"001", "ynyn"}}) {
        実行環境.事業所コード = site;
        std::string result;
        for (const char* code : {"00001", "00002", "00003", "00004"})
            result += 担当者存在確認(code) ? "y" : "n";
        EXPECT_EQ(result, seen);
    }
}

TEST_F(Lookups, ACustomerRepricesTheDocument) {
    fresh_document(3);
    for (int i : {0, 1})
        set("商品コード=P 商品税抜販売単価=1000 商品税抜仕入単価=9 請求数量=2 仕入単価=7 仕入数量=1 "
            "仕入金額=7",
            i);
    set("請求金額=500", 2);
    EXPECT_TRUE(得意先コード変更("000001"));  // tax-in; -10 x 100 + 0.5 is cut to -999: 99.9
    EXPECT_EQ(seen("請求単価 請求金額 仕入単価 仕入金額", 1),
              "請求単価=1099.9 請求金額=2199 仕入単価=7 仕入金額=7");
    EXPECT_EQ(seen("請求金額 売上消費税区分", 2), "請求金額=500 売上消費税区分=2");
    EXPECT_EQ(seen("請求金額合計 仕入消費税合計"), "請求金額合計=4898 仕入消費税合計=2");
    fresh_document(0);
    statements.clear();
    EXPECT_TRUE(得意先コード変更("000001"));
    EXPECT_EQ(statements.size(), 1U);
}

// A NULL of a master takes nothing away.
TEST_F(Lookups, ANullLeavesWhatStands) {
    run("UPDATE M得意先 SET 名称A = NULL, 消費税区分 = NULL, 消費税算出区分 = '70000'");
    run("UPDATE M商品 SET 名称B = NULL, 単位 = NULL, 税抜販売単価 = NULL, 仕入先コード = NULL");
    fresh_document(1);
    set("得意先名称A=kept 得意先消費税区分=2 商品税抜販売単価=3");
    EXPECT_TRUE(得意先コード変更("000002") && 商品コード変更("A-1"));
    for (const char* kept : {"得意先名称A=kept 得意先消費税区分=2 得意先消費税算出区分=2",
                             "商品名=机 商品税抜販売単価=3 請求単位= 仕入先コード="})
        EXPECT_EQ(seen(kept), kept);
}

// A row is found whatever its other columns hold; a code that its field would not take is a miss, though a
// master has it.
TEST_F(Lookups, CodesThatCouldNotBeTyped) {
    run("UPDATE M担当者 SET 部門コード = 'A+B' WHERE コード = '00001'");
    run("UPDATE M商品 SET 仕入先コード = 'O''Neil'");
    put("M仕入先", "コード 名称A 取引状況区分", "O'Neil|酒場|1");
    put("M得意先御担当者", "得意先コード 御担当者コード 氏名", "O'Neil|00007|給仕");
    fresh_document(1);
    EXPECT_TRUE(得意先コード変更("000001") && 商品コード変更("A-1"));
    EXPECT_EQ(seen("得意先コード 部門コード 仕入先コード 仕入先名称A"),
              "得意先コード=000001 部門コード=A+B 仕入先コード=O'Neil 仕入先名称A=酒場");
    set("得意先コード=O'Neil");
    EXPECT_TRUE(得意先御担当者コード変更("00007"));
    EXPECT_EQ(seen("御担当者名"), "御担当者名=給仕");
    set("仕入先コード=000001");
    statements.clear();
    EXPECT_TRUE(仕入先コード変更("O'Neil"));
    EXPECT_EQ(seen("仕入先コード 案内メッセージ"), "仕入先コード= 案内メッセージ=該当情報がありません。");
    EXPECT_FALSE(仕入先存在確認("O'Neil"));
    EXPECT_TRUE(statements.empty());
}

// Small letters find a code of capitals and take its spelling; typed once more they find it again.
TEST_F(Lookups, ACodeTakesTheSpellingOfItsMaster) {
    for (const char* name : {"M部門", "Mセクション", "M担当者", "M得意先", "M納品先", "M仕入先", "M商品"})
        put(name, "コード", "K-1");
    run("UPDATE M担当者 SET 在籍区分 = '0'");
    put("M得意先御担当者", "得意先コード 御担当者コード 氏名", "K-1|K-1|田中");
    run("UPDATE M得意先 SET 担当者コード = 'k-1' WHERE コード = 'K-1'");
    run("UPDATE M納品先 SET 担当者コード = 'k-1' WHERE コード = 'K-1'");
    fresh_document(1);
    const std::pair<bool (*)(const std::string&), const char*> fields[] = {
        {部門コード変更, "部門コード"},
        {セクションコード変更, "セクションコード"},
        {担当者コード変更, "担当者コード"},
        {得意先コード変更, "得意先コード"},
        {得意先御担当者コード変更, "得意先御担当者コード"},
        {納品先コード変更, "納品先コード"},
        {仕入先コード変更, "仕入先コード"},
        {商品コード変更, "商品コード"}};
    for (const auto& [decide, member] : fields) {
        for (const char* typed : {"k-1", "k-1"}) {
            EXPECT_TRUE(decide(typed)) << member;
            EXPECT_EQ(seen(member), std::string(member) + "=K-1");
        }
        EXPECT_FALSE(decide("K-1")) << member;
    }
    EXPECT_EQ(実行環境.案内メッセージ, "");
}

TEST_F(Lookups, AFailingReadIsAMiss) {
    set("得意先コード=000001");
    failing = "SELECT";
    EXPECT_TRUE(得意先コード変更("000002"));
    EXPECT_EQ(seen("得意先コード 案内メッセージ"), "得意先コード= 案内メッセージ=該当情報がありません。");
    EXPECT_TRUE(code_table_names("SELECT * FROM K消費税区分 ORDER BY 区分").empty());
    EXPECT_EQ(error_rows(), "2");
}

TEST_F(Lookups, CodeTableNames) {
    put("K消費税算出区分", "区分 名称", "2|合計\n0|なし\n3|別\n1|行");
    EXPECT_EQ(code_table_names("SELECT * FROM K消費税算出区分 WHERE 区分 <= '2' ORDER BY 区分"),
              (std::vector<std::string>{"なし", "行", "合計"}));
}

}  // namespace
}  // namespace kalvane

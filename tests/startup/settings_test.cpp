// Company, site and linked systems, and the title made of them.
#include "startup/settings.h"

#include <gtest/gtest.h>

#include "base/failure.h"
#include "startup/start_run.h"

namespace kalvane {
namespace {

using test::Installation;
using test::Start;

TEST(基本情報, 会社の列) {
    const Installation at(setup::Content::empty);
    at.main(
        "UPDATE Mユーザ SET 売上数量少数以下桁数 = '1', 売上単価少数以下桁数 = '2', 仕入数量少数以下桁数 = "
        "'3', "
        "仕入単価少数以下桁数 = '4x', 在庫数量少数以下桁数 = ' 5', 在庫単価少数以下桁数 = '6.4', "
        "重量少数以下桁数 = "
        "NULL, 住所A = '住所', 電話 = NULL, 現金決済金額 = 1234.5, 特権暗証番号 = 'stored', 決算月 = '-3', "
        "伝票番号管理区分 = ''");
    Start start(at.root());
    const RunContext& r = 実行環境;
    EXPECT_EQ(std::vector({r.見積数量桁数, r.注文数量桁数, r.請求数量桁数}), std::vector<std::int16_t>(3, 1));
    EXPECT_EQ(std::vector({r.見積単価桁数, r.注文単価桁数, r.請求単価桁数}), std::vector<std::int16_t>(3, 2));
    EXPECT_EQ(std::vector({r.発注数量桁数, r.仕入数量桁数}), std::vector<std::int16_t>(2, 3));
    EXPECT_EQ(std::vector({r.発注単価桁数, r.仕入単価桁数}), std::vector<std::int16_t>(2, 4));
    EXPECT_EQ(std::vector({r.在庫数量桁数, r.在庫単価桁数, r.重量桁数}),
              (std::vector<std::int16_t>{5, 6, 0}));
    EXPECT_EQ(r.住所A, "住所");
    EXPECT_EQ(r.電話, "");
    EXPECT_EQ(r.現金決済金額, 通貨::from_double(1234.5));
    EXPECT_EQ(r.特権暗証番号, "stored");
    EXPECT_EQ(r.決算月, -3);
    EXPECT_EQ(r.伝票番号管理区分, 0);
    // each column once, by its name
    for (const char* column : {"ID", "名称", "社印file", "銀行口座D", "ドキュメントフォルダ",
                               "BACKUPフォルダ", "統計整理実行日", "登録日付", "更新日付"})
        at.main(std::string("UPDATE Mユーザ SET ") + column + " = '" +
                (column == std::string("ID") ? "0001" : column) + "'");
    ASSERT_TRUE(基本情報読込());
    EXPECT_EQ(r.ID + r.名称 + r.社印file + r.銀行口座D + r.ドキュメントフォルダ + r.BACKUPフォルダ +
                  r.統計整理実行日 + r.登録日付 + r.更新日付,
              "0001名称社印file銀行口座Dドキュメントフォルダ"
              "BACKUPフォルダ統計整理実行日登録日付更新日付");
    EXPECT_EQ(r.電話, "");
    at.main("UPDATE Mユーザ SET 決算日 = '32768'");
    EXPECT_THROW(基本情報読込(), RunFailure);
}

struct Site {
    const char* name;
    const char* site;  // 運用事業所コード before
    const char* row;   // of M事業所, "" for none
    const char *used, *pins, *update, *text_folder, *backup_folder;
    bool rewritten = false;
};
void PrintTo(const Site& s, std::ostream* out) {
    *out << s.name;
}
class 事業所 : public testing::TestWithParam<Site> {};

// The company has 暗証番号有無 0, 更新実行区分 1 and the folders C and D.
TEST_P(事業所, 会社の設定の置換) {
    const Site& c = GetParam();
    const Installation at(setup::Content::empty);
    at.main(
        "UPDATE Mユーザ SET 暗証番号有無 = '0', 更新実行区分 = '1', テキスト出力フォルダ = 'C', "
        "BACKUPフォルダ = 'D'");
    at.main("UPDATE M事業所 SET 暗証番号有無 = '7', 更新実行区分 = '7', テキスト出力フォルダ = 'H'");
    if (*c.row)
        at.main(std::string(
                    "INSERT INTO M事業所 (コード, 名称, 暗証番号有無, 更新実行区分, テキスト出力フォルダ, "
                    "BACKUPフォルダ) VALUES ") +
                c.row);
    at.config(std::string("UPDATE 動作環境定義 SET 運用事業所コード = ") + c.site);
    Start start(at.root());
    ASSERT_TRUE(start.running());
    EXPECT_EQ(実行環境.運用事業所コード, c.used);
    EXPECT_EQ(実行環境.事業所コード, c.used);  // of the new document
    EXPECT_EQ(std::to_string(実行環境.暗証番号有無), c.pins);
    EXPECT_EQ(std::to_string(実行環境.更新実行区分), c.update);
    EXPECT_EQ(実行環境.テキスト出力フォルダ, c.text_folder);
    EXPECT_EQ(実行環境.BACKUPフォルダ, c.backup_folder);
    const std::vector<std::string> rows = test::history_of(at);
    const std::string rewriting =
        "出力終了 UPDATE 動作環境定義 SET  運用事業所コード = '000' WHERE 動作環境定義ID = '001'";
    EXPECT_EQ(rows, c.rewritten ? (std::vector<std::string>{"開始 ", rewriting})
                                : std::vector<std::string>{"開始 "});
    EXPECT_EQ(at.config("SELECT COALESCE(運用事業所コード, 'NULL') FROM 動作環境定義"),
              std::string(c.site) == "NULL" ? "NULL" : c.used);
}
constexpr Site sites[] = {
    {"head_office", "'000'", "", "000", "0", "1", "C", "D"},
    {"head_office_for_null", "NULL", "", "000", "0", "1", "C", "D"},
    {"own_values", "'001'", "('001', '大阪', '2', '3', 'X', 'Y')", "001", "2", "3", "X", "Y"},
    {"empty_folders_stay", "'001'", "('001', '大阪', '0', '0', '', NULL)", "001", "0", "0", "C", "D"},
    {"null_numbers_win", "'001'", "('001', '大阪', NULL, NULL, NULL, 'Y')", "001", "0", "0", "C", "Y"},
    {"missing", "'777'", "", "000", "0", "1", "C", "D", true},
    {"blank", "''", "", "000", "0", "1", "C", "D", true},
};
INSTANTIATE_TEST_SUITE_P(Sites, 事業所, testing::ValuesIn(sites),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(基本情報, 他業務と件数) {
    const Installation at;
    Start start(at.root());
    std::string names;
    for (const LinkedSystem& l : 実行環境.他業務連携) names += l.業務名 + "/";
    EXPECT_EQ(names, "財務会計/購買管理/給与計算/固定資産/固定資産//////");
    EXPECT_EQ(実行環境.他業務連携件数, 5);
    EXPECT_EQ(実行環境.事業所件数, 2);
    EXPECT_EQ(実行環境.事業所名称, "本社");
    at.main("DELETE FROM M事業所 WHERE コード = '002'");
    EXPECT_TRUE(基本情報読込());
    EXPECT_EQ(実行環境.事業所件数, 1);
}

struct Title {
    const char* name;
    const char* site;
    int sites;
    const char *operator_code, *operator_name;
    const char* title;
};
constexpr Title titles[] = {
    {"head_office_alone", "000", 0, "", "", "KalvaneInvoiceEntry"},
    {"head_office", "000", 2, "", "", "KalvaneInvoiceEntry(全社)"},
    {"site", "001", 2, "", "", "KalvaneInvoiceEntry(大阪営業所)"},
    {"site_of_blanks", "002", 2, "", "", "KalvaneInvoiceEntry"},
    {"site_without_name", "003", 2, "", "", "KalvaneInvoiceEntry"},
    {"unknown_site", "777", 2, "00001", "佐藤 誠", "KalvaneInvoiceEntry「佐藤 誠」"},
    {"operator_without_name", "000", 1, "00001", "", "KalvaneInvoiceEntry(全社)「」"},
};

TEST(タイトル, 組合せ) {
    const Installation at;
    at.main("UPDATE M事業所 SET 名称 = '   ' WHERE コード = '002'");
    at.main("INSERT INTO M事業所 (コード) VALUES ('003')");
    Start start(at.root());
    EXPECT_EQ(frmKalvaneInvoiceEntry.prg_ttl.caption, "KalvaneInvoiceEntry(全社)「佐藤 誠」");
    for (const Title& t : titles) {
        SCOPED_TRACE(t.name);
        実行環境.運用事業所コード = t.site;
        実行環境.事業所件数 = static_cast<std::int16_t>(t.sites);
        実行環境.起動担当者コード = t.operator_code;
        実行環境.起動担当者名 = t.operator_name;
        タイトル表示();
        EXPECT_EQ(frmKalvaneInvoiceEntry.prg_ttl.caption, t.title);
    }
}

}  // namespace
}  // namespace kalvane

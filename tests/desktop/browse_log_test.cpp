// The browse log: who looked at which invoice.
#include <gtest/gtest.h>

#include "invoice/loading.h"
#include "support/seat.h"

namespace kalvane {
namespace {

using test::Installation;
using test::Seat;

struct 閲覧 : testing::Test {
    std::string rows() const { return at.main("SELECT * FROM T閲覧 ORDER BY 閲覧No"); }
    Installation at{setup::Content::empty};
};

// Every column in its place, though there is no such invoice.
TEST_F(閲覧, 一行の全項目) {
    at.main("UPDATE M担当者 SET 氏名 = 'O''Hara  ' WHERE コード = '00001'");
    Seat seat(at);
    os::freeze_clock({{2024, 12, 5}, 7, 8, 9});
    EXPECT_FALSE(営業請求存在確認("012", "20250331", "00000077"));
    EXPECT_EQ(rows(),
              "000|99999999|00000001|20241205|07:08:09|00001|O'Hara|KalvaneInvoiceEntry|012|20250331|"
              "00000077||0||||0|SEAT0100001tanaka|20241205 070809|");
    EXPECT_EQ(at.main("SELECT 連番 FROM A番号情報 WHERE 番号ID = '01110'"), "00000001");
    EXPECT_EQ(at.main("SELECT 連番 FROM A番号情報 WHERE 番号ID = '16240'"), "00000000");
    // the sources and the reference leave none
    営業見積存在確認("000", "99999999", "00000001");
    顧客注文存在確認("000", "99999999", "00000001");
    営業納品存在確認("000", "99999999", "00000001");
    参照営業請求存在確認("000", "99999999", "00000001");
    EXPECT_EQ(at.main("SELECT COUNT(*) FROM T閲覧"), "1");
}

// The number is taken with the site of the seat, and looked for with that of the document; the base date
// follows the day, not the document.
TEST_F(閲覧, 番号の系列) {
    at.main("UPDATE Mユーザ SET 伝票番号管理区分 = '1'");
    at.main("UPDATE A番号情報 SET 連番種類 = '2' WHERE 番号ID = '01110'");
    for (const char* site : {"000", "001"})
        at.main(std::string("INSERT INTO A事業所別期日別番号情報 VALUES ('") + site +
                "', '01110', '20240430', '" + (*(site + 2) == '1' ? "00000500" : "00000040") +
                "', '00000000')");
    at.main(
        "INSERT INTO T閲覧 (事業所コード, 番号基準日付, 閲覧No) VALUES ('001', '20240430', '00000041'), "
        "('001', '20240430', '00000042'), ('000', '20240430', '00000043')");
    Seat seat(at);
    実行環境.事業所コード = "001";
    営業請求存在確認("001", "20230331", "00000001");
    EXPECT_EQ(at.main("SELECT 事業所コード, 番号基準日付, 閲覧No FROM T閲覧 WHERE 伝票No = '00000001'"),
              "001|20240430|00000043");
    EXPECT_EQ(at.main("SELECT 連番 FROM A事業所別期日別番号情報 ORDER BY 事業所コード"),
              "00000043\n00000500");
    EXPECT_TRUE(Seat::boxes.empty());
}

// Without its series the allocator says so twice; the row is stored once, the next is lost, the invoice is
// read all the same.
TEST_F(閲覧, 系列がない) {
    at.main("DELETE FROM A番号情報 WHERE 番号ID = '01110'");
    at.main(
        "INSERT INTO T営業請求 (事業所コード, 番号基準日付, 営業請求No, 営業請求日付) VALUES ('000', "
        "'99999999', '00000001', '20240410')");
    Seat seat(at);
    for (const std::size_t boxes : {2U, 4U}) {
        EXPECT_TRUE(営業請求存在確認("000", "99999999", "00000001"));
        実行環境.recordsets.営業請求.Close();
        EXPECT_EQ(Seat::boxes, std::vector<std::string>(boxes, "番号情報に問題が発生設定できませんでした。"));
    }
    EXPECT_EQ(at.main("SELECT 番号基準日付, 閲覧No, 伝票No FROM T閲覧"), "|00000000|00000001");
    EXPECT_EQ(at.config("SELECT COUNT(*) FROM プログラム稼動履歴 WHERE 摘要 LIKE 'エラー INSERT INTO "
                        "[[]T閲覧%' OR 摘要 LIKE 'エラー INSERT INTO [T閲覧%'"),
              "1");
}

// A look that cannot be written, or a number that cannot be looked for, is nobody's concern.
TEST_F(閲覧, 書けなくても読む) {
    at.main(
        "INSERT INTO T営業請求 (事業所コード, 番号基準日付, 営業請求No, 営業請求日付) VALUES ('000', "
        "'99999999', '00000001', '20240410')");
    for (const char* failing : {"SELECT 閲覧No FROM T閲覧", "INSERT INTO [T閲覧]", "UPDATE A番号情報"}) {
        SCOPED_TRACE(failing);
        Seat seat(at);
        ado::hook.before = [&](const ado::Connection&, std::string_view text) {
            if (text.starts_with(failing)) throw ado::Error(7, "倒れました");
        };
        const std::string before = at.main("SELECT COUNT(*) FROM T閲覧");
        EXPECT_TRUE(営業請求存在確認("000", "99999999", "00000001"));
        ado::hook = {};
        EXPECT_TRUE(Seat::boxes.empty());
        const bool lost = std::string_view(failing).starts_with("INSERT");
        EXPECT_EQ(at.main("SELECT COUNT(*) FROM T閲覧") != before, !lost);
    }
}

}  // namespace
}  // namespace kalvane

// The browse log: who looked at which invoice.
#include "document/loading.h"
#include "support/seat.h"
#include "support/table.h"

namespace kalvane {
namespace {

using namespace test;

struct 閲覧 : testing::Test {
    Installation at{setup::Content::empty};
    void SetUp() override {
        at.main(
            "INSERT INTO T営業請求 (事業所コード, 番号基準日付, 営業請求No) VALUES ('000', '99999999', '1')");
    }
};

// Every column in its place, though there is no such invoice.
TEST_F(閲覧, 一行の全項目) {
    at.main("UPDATE M担当者 SET 氏名 = 'O''Hara  ' WHERE コード = '00001'");
    Seat seat(at);
    os::freeze_clock({{2024, 12, 5}, 7, 8, 9});
    EXPECT_FALSE(営業請求存在確認("012", "20250331", "00000077"));
    // the sources and the reference leave none
    for (auto kind : {SourceKind::quotation, SourceKind::order, SourceKind::delivery, SourceKind::reference})
        伝票存在確認(kind, "000", "99999999", "00000001");
    EXPECT_EQ(at.main("SELECT * FROM T閲覧"),
              "000|99999999|00000001|20241205|07:08:09|00001|O'Hara|KalvaneInvoiceEntry|012|20250331|"
              "00000077||0||||0|SEAT0100001tanaka|20241205 070809|");
    EXPECT_EQ(at.main("SELECT 連番 FROM A番号情報 WHERE 番号ID IN ('01110', '16240') ORDER BY 番号ID"),
              "00000001\n00000000");
}

// The number is taken with the site of the seat, and looked for with that of the document; the base date
// follows the day, not the document.
TEST_F(閲覧, 番号の系列) {
    at.main("UPDATE Mユーザ SET 伝票番号管理区分 = '1'");
    at.main("UPDATE A番号情報 SET 連番種類 = '2' WHERE 番号ID = '01110'");
    at.main(
        "INSERT INTO A事業所別期日別番号情報 VALUES ('000', '01110', '20240430', '00000040', '00000000'), "
        "('001', '01110', '20240430', '00000500', '00000000')");
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
    Seat seat(at);
    for (const std::size_t boxes : {2U, 4U}) {
        EXPECT_TRUE(営業請求存在確認("000", "99999999", "1"));
        実行環境.recordsets.営業請求.Close();
        EXPECT_EQ(Seat::boxes, std::vector<std::string>(boxes, "番号情報に問題が発生設定できませんでした。"));
    }
    EXPECT_EQ(at.main("SELECT 番号基準日付, 閲覧No, 伝票No FROM T閲覧"), "|00000000|1");
    EXPECT_EQ(
        at.config("SELECT COUNT(*) FROM プログラム稼動履歴 WHERE 摘要 LIKE 'エラー INSERT INTO [T閲覧%'"),
        "1");
}

}  // namespace
}  // namespace kalvane

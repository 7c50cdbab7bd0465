// The statements of a registration, in their order, and what is left when one of them fails.
#include <gtest/gtest.h>

#include "invoice/sequences.h"
#include "invoice/small_company.h"
#include "support/recorder.h"

namespace kalvane {
namespace {

using namespace test;

TEST(請求登録, 文の順序) {
    const Installation at(setup::Content::empty);
    lay_masters(at);
    Seat seat(at);
    type_two_lines(seat);
    Recorder recorder;
    click(seat.screen().btn_登録);
    const Expected expected =
        rights("KalvaneInvoiceEntry") + taxes() + cleared() +
        sequence("main UPDATE A番号情報 SET  連番 = '00000001' WHERE A番号情報.番号ID = '16240'") +
        looked_for("00000001", false) + history_number("00000001") + written_two_lines() +
        logged(queue_row("99999999", "00000001", "1", "00000001", "0")) + cleared();
    expect_sequence(recorder.statements, expected);
    ASSERT_EQ(recorder.statements.size(), expected.size());
    EXPECT_EQ(
        recorder.statements[15].text,
        "INSERT INTO [T営業請求] "
        "([事業所コード],[番号基準日付],[営業請求No],[営業見積事業所コード],[営業見積番号基準日付],["
        "営業見積No],[顧客注文事業所コード],[顧客注文番号基準日付],[顧客注文No],[営業納品事業所コード],["
        "営業納品番号基準日付],[営業納品No],[参照営業請求事業所コード],[参照営業請求番号基準日付],["
        "参照営業請求No],[営業請求日付],[得意先コード],[得意先名称A],[得意先名称B],[得意先御担当者コード],["
        "御担当者名],[担当者コード],[部門コード],[セクションコード],[納品先コード],[納品先名称A],["
        "納品先名称B],[タイトル],[支払条件],[消費税表示区分],[合計表示区分],[請求伝票備考A],[請求伝票備考B],["
        "請求数量合計],[請求金額合計],[税抜請求金額合計],[請求消費税合計],[税込請求金額合計],[仕入数量合計],["
        "仕入金額合計],[税抜仕入金額合計],[仕入消費税合計],[税込仕入金額合計],[得意先消費税区分],["
        "得意先消費税算出区分],[得意先消費税丸め方法],[得意先消費税丸め桁位置],[得意先消費税端数調整区分],["
        "得意先名称入力区分],[納品先名称入力区分],[出荷完了区分],[売上完了区分],[完了フラグ],[伝票発行区分],["
        "営業請求メモ],[承認日付],[承認者コード],[承認区分],[ユーザID],[登録日付],[更新日付]) VALUES "
        "('000','99999999','00000001','','','','','','','','','','','','','20240410','000123','株式会社 "
        "山田商店','東京本店','','鈴木','00001','010','020','','','','It''s "
        "改装','','1','1','','',13.0,660,630,63,693,13.0,380,380,38,418,'1','2','5','0','1','0','1','0','0','"
        "0','0','','','','','tanaka00001SEAT01','20240410 093000','')");
    EXPECT_EQ(recorder.statements[19].text,
              "INSERT INTO [R営業請求明細] "
              "([事業所コード],[番号基準日付],[営業請求履歴No],[赤黒区分],[営業請求No],[営業請求固有行No],["
              "営業請求行No],[営業請求日付],[得意先コード],[担当者コード],[部門コード],[セクションコード],["
              "納品先コード],[行区分],[商品コード],[商品名],[請求数量],[請求単位],[請求単価],[請求金額],["
              "請求消費税],[売上課税区分],[売上消費税区分],[仕入先コード],[仕入先名称A],[仕入数量],[仕入単位]"
              ",[仕入単価],[仕入金額],[仕入消費税],[仕入課税区分],[仕入消費税区分],[計区分],["
              "商品売上課税区分],[商品売上消費税区分],[商品仕入課税区分],[商品仕入消費税区分],["
              "商品税抜販売単価],[商品税抜仕入単価],[商品税込販売単価],[商品税込仕入単価],[商品名称入力区分],"
              "[仕入先消費税区分],[仕入先消費税算出区分],[仕入先消費税丸め方法],[仕入先消費税丸め桁位置],["
              "仕入先消費税端数調整区分],[仕入先名称入力区分],[出荷数量],[税抜出荷金額],[税込出荷金額],["
              "売上数量],[税抜売上金額],[税込売上金額],[明細完了区分],[明細完了日付],[明細メモ],[承認日付],["
              "承認者コード],[承認区分],[ユーザID],[登録日付],[更新日付]) VALUES "
              "('000','99999999','00000001','1','00000001','001','001','20240410','000123','00001','010','"
              "020','','1','P1','鉛筆HB',10.0,'本',33.00,330,33,'0','1','','',10.0,'本',20.00,200,20,'0','1',"
              "'1','0','0','0','0',33.00,20.00,36.00,22.00,'1','1','1','5','0','0','0',0.0,0,0,0.0,0,0,'0',''"
              ",'','','','0','tanaka00001SEAT01','20240410 093000','')");
    // the second line is priced tax-in: 100 and its tax of 10, three times
    EXPECT_NE(recorder.statements[20].text.find("'P2','O''Brien Pad',3.0,'冊',110.00,330,30,'0','2'"),
              std::string::npos);
}

TEST(請求登録, 一文ずつの失敗) {
    const Installation at(setup::Content::empty);
    lay_masters(at);
    at.keep();
    fail_at_each_position(at, type_two_lines, register_document);
}

// The answer of the question: save and print asks for the right to print behind the last row; no, and closing
// the box by any other way, leaves the document on the screen and writes nothing.
TEST(請求登録, 質問の答え) {
    const Installation at(setup::Content::empty);
    lay_masters(at);
    Seat seat(at);
    const std::string before = document_rows(at);
    for (void (*answer)(Form&) :
         {+[](Form&) { click(msg印刷確認.btn_いいえ); }, +[](Form& f) { close_form(f); },
          +[](Form& f) { press_key(f, Key::Escape); }, +[](Form& f) { press_key(f, Key::Space); }}) {
        Seat::modal = answer;
        type_two_lines(seat);
        register_document(seat);
        EXPECT_EQ(document_rows(at), before);
        EXPECT_EQ(実行環境.最終行, 1);
        EXPECT_TRUE(実行環境.入力変更あり);
        EXPECT_EQ(実行環境.印刷確認結果, 2);
    }
    Seat::modal = [](Form&) { click(msg印刷確認.btn_登録印刷); };
    Recorder recorder;
    register_document(seat);
    const auto queue =
        std::find_if(recorder.statements.begin(), recorder.statements.end(),
                     [](const Recorded& r) { return r.text.starts_with("INSERT INTO [未集計情報]"); });
    ASSERT_GT(recorder.statements.end() - queue, 6);
    expect_sequence({queue + 2, queue + 6}, rights("KalvaneInvoicePrint"));  // behind its history row
    EXPECT_EQ(at.main("SELECT COUNT(*) FROM T営業請求"), "1");
}

}  // namespace
}  // namespace kalvane

// The one invoice in memory: its header and its 999 lines, as the entry screen, the loaders and the writers
// share them. The key of the document on the screen lives in the run context. Every member's default is the
// value of a fresh document or line, so clearing is assigning a new record.
#pragma once
#include <array>
#include <cstdint>
#include <string>

#include "base/currency.h"
#include "base/failure.h"

namespace kalvane {

// The columns of T営業請求 in memory, and what belongs to the document without being stored.
struct HeaderRecord {
    // columns
    std::string 営業見積事業所コード;
    std::string 営業見積番号基準日付;
    std::string 営業見積No;
    std::string 顧客注文事業所コード;
    std::string 顧客注文番号基準日付;
    std::string 顧客注文No;
    std::string 営業納品事業所コード;
    std::string 営業納品番号基準日付;
    std::string 営業納品No;
    std::string 参照営業請求事業所コード;
    std::string 参照営業請求番号基準日付;
    std::string 参照営業請求No;
    std::string 営業請求日付;
    std::string 得意先コード;
    std::string 得意先名称A;
    std::string 得意先名称B;
    std::string 得意先御担当者コード;
    std::string 御担当者名;
    std::string 担当者コード;
    std::string 部門コード;
    std::string セクションコード;
    std::string 納品先コード;
    std::string 納品先名称A;
    std::string 納品先名称B;
    std::string タイトル;
    std::string 支払条件;
    std::int16_t 消費税表示区分 = 1;
    std::int16_t 合計表示区分 = 1;
    std::string 請求伝票備考A;
    std::string 請求伝票備考B;
    通貨 請求数量合計;
    通貨 請求金額合計;
    通貨 税抜請求金額合計;
    通貨 請求消費税合計;
    通貨 税込請求金額合計;
    通貨 仕入数量合計;
    通貨 仕入金額合計;
    通貨 税抜仕入金額合計;
    通貨 仕入消費税合計;
    通貨 税込仕入金額合計;
    std::int16_t 得意先消費税区分 = 1;
    std::int16_t 得意先消費税算出区分 = 2;
    std::int16_t 得意先消費税丸め方法 = 0;
    std::int16_t 得意先消費税丸め桁位置 = 0;
    std::int16_t 得意先消費税端数調整区分 = 0;
    std::int16_t 得意先名称入力区分 = 0;
    std::int16_t 納品先名称入力区分 = 1;
    std::int16_t 出荷完了区分 = 0;
    std::int16_t 売上完了区分 = 0;
    std::string 完了フラグ = "0";
    std::int16_t 伝票発行区分 = 0;
    std::string 営業請求メモ;
    std::string 承認日付;
    std::string 承認者コード;
    std::string 承認区分;
    std::string 登録日付;
    std::string 更新日付;

    // the date in three parts as typed, "yyyy", "mm", "dd"
    std::string 営業請求日付年;
    std::string 営業請求日付月;
    std::string 営業請求日付日;
    // key and date of the document as it stands in the database; empty on a new document
    std::string 旧事業所コード;
    std::string 旧番号基準日付;
    std::string 旧営業請求No;
    std::string 旧営業請求日付;
    // month closing date of 営業請求日付
    std::string 集計日付;
    // history numbers of the save in progress
    std::string 黒履歴No;
    std::string 赤履歴No;
    // the save in progress: "0" new, "1" change, "2" delete
    std::string 登録情報区分;
    // 1 written, 3 insert failed or number taken, 6 row gone or delete failed, 7 deleted; and its words
    std::int16_t 登録結果区分 = 0;
    std::string 登録結果文言;
    // highest 営業請求固有行No used so far in this document
    std::int16_t 最終固有行No = 0;
    // display names of the codes
    std::string 担当者名;
    std::string 部門名;
    std::string セクション名;
    // prospect codes brought by a source document
    std::string 得意先対応先コード;
    std::string 納品先対応先コード;
    // tax of the whole document as the totals compute it
    通貨 計算消費税合計;
    // amounts by tax class, sale and purchase side
    通貨 売上課税外税額, 売上課税内税額, 売上旧税外税額, 売上旧税内税額, 売上非課税額;
    通貨 仕入課税外税額, 仕入課税内税額, 仕入旧税外税額, 仕入旧税内税額, 仕入非課税額;
    // 1: an envelope goes with the print
    std::int16_t KalvaneEnvelopePrint = 0;
};

// One line: the columns of T営業請求明細 that are the line's own, and its mark and prospect supplier.
struct LineRecord {
    std::string 営業請求固有行No;
    std::string 営業請求行No;
    std::int16_t 行区分 = 1;
    std::string 商品コード;
    std::string 商品名;
    通貨 請求数量;
    std::string 請求単位;
    通貨 請求単価;
    通貨 請求金額;
    通貨 請求消費税;
    std::int16_t 売上課税区分 = 0;
    std::int16_t 売上消費税区分 = 1;
    std::string 仕入先コード;
    std::string 仕入先名称A;
    通貨 仕入数量;
    std::string 仕入単位;
    通貨 仕入単価;
    通貨 仕入金額;
    通貨 仕入消費税;
    std::int16_t 仕入課税区分 = 0;
    std::int16_t 仕入消費税区分 = 1;
    std::int16_t 計区分 = 1;
    std::int16_t 商品売上課税区分 = 0;
    std::int16_t 商品売上消費税区分 = 0;
    std::int16_t 商品仕入課税区分 = 0;
    std::int16_t 商品仕入消費税区分 = 0;
    通貨 商品税抜販売単価;
    通貨 商品税抜仕入単価;
    通貨 商品税込販売単価;
    通貨 商品税込仕入単価;
    std::int16_t 商品名称入力区分 = 1;
    std::int16_t 仕入先消費税区分 = 1;
    std::int16_t 仕入先消費税算出区分 = 1;
    std::int16_t 仕入先消費税丸め方法 = 5;
    std::int16_t 仕入先消費税丸め桁位置 = 0;
    std::int16_t 仕入先消費税端数調整区分 = 0;
    std::int16_t 仕入先名称入力区分 = 0;
    通貨 出荷数量;
    通貨 税抜出荷金額;
    通貨 税込出荷金額;
    通貨 売上数量;
    通貨 税抜売上金額;
    通貨 税込売上金額;
    std::int16_t 明細完了区分 = 0;
    std::string 明細完了日付;
    std::string 明細メモ;
    std::string 承認日付;
    std::string 承認者コード;
    std::string 承認区分;
    std::string 登録日付;
    std::string 更新日付;

    std::int16_t 複写区分 = 0;       // mark for the operations on designated lines
    std::string 仕入先対応先コード;  // prospect supplier brought by a source line
};

inline constexpr int line_capacity = 999;
inline constexpr int last_entry_line = 997;  // the line tools stop here; 998 is the array's last index

// The lines, with a checked index: outside 0..998 is a failure of the program.
struct LineArray {
    std::array<LineRecord, line_capacity> lines;
    LineRecord& operator[](int i) {
        if (i < 0 || i >= line_capacity) throw RunFailure(index_text);
        return lines[static_cast<std::size_t>(i)];
    }
};

inline HeaderRecord 請求ヘッダ;
inline LineArray 請求明細行;

}  // namespace kalvane

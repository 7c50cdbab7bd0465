// The statements of a save: live rows, black and red history rows, the queue. No transaction: each
// statement stands alone, a failure leaves its row in the run history and the sequence goes on. The status
// of the last statement stands in 登録結果区分.
#pragma once
#include <string>

namespace kalvane {

// Chooses 新規書込 or 修正書込; hands the key of a new document to a waiting caller of this program.
void 営業請求保存();
void 新規書込();
void 修正書込();
void 削除書込();
// The final number of a new row. False: the typed number is taken, nothing may be written.
bool 営業請求No確定();
// A history number that is free for the document's site and base date.
std::string 営業請求履歴No採番();
void 請求ヘッダ書込();  // live and black header row
void 請求明細書込();    // live and black line rows
void 請求ヘッダ取消();  // red header row, copied from the table; the live row goes
void 請求明細取消();    // red line rows; the live rows go
// The queue rows of the run, and the immediate update when the company wants it.
void 未集計登録();
void 未集計情報登録(const std::string& 登録情報区分, const std::string& 赤黒区分, const std::string& 番号ID,
                    const std::string& 事業所コード, const std::string& 番号基準日付,
                    const std::string& 伝票No, const std::string& 履歴No);

}  // namespace kalvane

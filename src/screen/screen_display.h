// From the document to the controls. Each routine sets 処理中 while it writes; nothing is reported.
#pragma once

namespace kalvane {

void 画面表示();  // head, lines, tail, then the form is drawn
void ヘッド画面表示();
void 明細画面表示();  // the ten screen rows from 先頭行
void 明細行表示(int line, int row);
void テイル画面表示();
// Enabled state of the buttons and of what depends on the document's state. Without `query` nothing is read:
// the delete button and the paste button keep their last result.
void ボタン状態更新(bool query = true);
// The state of a screen without lines: scroll bar and tab strip disabled at their first place, no notice.
void 画面部品初期化();
void お知らせ表示(const char* text);
void 案内表示();  // 案内メッセージ into お知らせ

}  // namespace kalvane

// The question about unsaved input, and the cleared screen.
#include "events/clear_button.h"

#include "document/clearing.h"
#include "events/focus.h"
#include "platform/screen/host.h"
#include "screen/screen_display.h"

namespace kalvane {

bool 入力破棄確認(const std::string& question) {
    if (!実行環境.入力変更あり || ask("入力がありました。\r" + question, false)) return true;
    if (!process_ended()) 離脱項目移動();
    return false;
}

void 画面クリア() {
    if (!入力破棄確認("クリアしますか？")) return;
    新規伝票初期化();
    画面表示();
    画面部品初期化();
    ボタン状態更新();
    フォーカス設定(*実行環境.先頭コントロール);
}

}  // namespace kalvane

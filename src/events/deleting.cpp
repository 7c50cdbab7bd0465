// The dialogue of a delete.
#include "events/deleting.h"

#include "data/wait_box.h"
#include "document/reference.h"
#include "document/save_statements.h"
#include "events/focus.h"
#include "events/save_dialogue.h"
#include "platform/screen/host.h"

namespace kalvane {

void 削除処理() {
    if (!書込可否確認(Operation::erase)) return;
    const int referred = 他請求参照確認();
    if (referred == 1) {
        message_box("他の請求に参照済です。削除出来ません。");
        離脱項目移動();
        return;
    }
    if (!ask(std::string(referred == 0 ? "？？？。" : "") + "削除しますか?", false)) {
        if (!process_ended()) 離脱項目移動();
        return;
    }
    {
        const お待ち wait;
        削除書込();
        登録後画面初期化();
    }
    登録後終了();
}

}  // namespace kalvane

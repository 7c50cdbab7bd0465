// The program of the entry screen, as a script starts and ends it.
#include "entry/entry.h"
#include "operator/operator.h"
#include "records/run_context.h"

namespace kalvane {

const OperatedProgram invoice_entry{
    .reset = reset_run,
    .entry = 起動処理,
    .finish =
        [] {
            if (実行環境.主接続中 || 実行環境.設定接続中) 強制終了();
        },
};

}  // namespace kalvane

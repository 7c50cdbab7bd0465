#include "operator/operator.h"
#include "startup/entry.h"
#include "startup/run_context.h"

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

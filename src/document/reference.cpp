// One look at the invoices that refer to this one.
#include "document/reference.h"

#include "data/query.h"
#include "records/document.h"

namespace kalvane {

std::int16_t 他請求参照確認() {
    const bool found = has_row("SELECT TOP 1 * FROM T営業請求 WHERE 参照営業請求事業所コード = " +
                               literal(請求ヘッダ.旧事業所コード) +
                               " AND 参照営業請求番号基準日付 = " + literal(請求ヘッダ.旧番号基準日付) +
                               " AND 参照営業請求No = " + literal(請求ヘッダ.旧営業請求No));
    return found ? 1 : -1;
}

bool 削除可否() {
    return 他請求参照確認() < 0;
}

}  // namespace kalvane

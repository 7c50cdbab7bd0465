// The statements of the neighbours, and their buttons.
#include "events/navigation.h"

#include "data/fields.h"
#include "data/query.h"
#include "document/calculation.h"
#include "document/clearing.h"
#include "document/loading.h"
#include "events/clear_button.h"
#include "events/focus.h"
#include "screen/screen_display.h"
#include "screen/scrolling.h"

namespace kalvane {
namespace {

struct Direction {
    const char* comparison;  // of date and number with those on the screen
    const char* order;
    const char* question;
};
constexpr Direction previous{"<", " ORDER BY 営業請求日付 DESC, 営業請求No DESC",
                             "クリアし前Noを表示しますか？"};
constexpr Direction next{">", " ORDER BY 営業請求日付 , 営業請求No", "クリアし次Noを表示しますか？"};

std::string neighbour_statement(const Direction& d) {
    const std::string site = 実行環境.事業所コード, date = 請求ヘッダ.営業請求日付,
                      number = 実行環境.営業請求No;
    const std::string c = d.comparison;
    std::string sql =
        "SELECT TOP 1 番号基準日付,営業請求No FROM T営業請求 WHERE 事業所コード = " + literal(site);
    if (number.empty())
        sql += " AND 営業請求日付 " + c + "= " + literal(date);
    else
        sql += " AND ((営業請求日付 = " + literal(date) + " AND 営業請求No " + c + " " + literal(number) +
               ") OR 営業請求日付 " + c + " " + literal(date) + ")";
    return sql + d.order;
}

bool has_neighbour(const Direction& d) {
    ado::Recordset rs;
    const bool found = 主DB読込(rs, neighbour_statement(d));
    rs.Close();
    return found;
}

void load_neighbour(const Direction& d) {
    ado::Recordset rs;
    const bool found = 主DB読込(rs, neighbour_statement(d));
    const std::string base_date = found ? text_of(rs, "番号基準日付") : "",
                      number = found ? text_of(rs, "営業請求No") : "";
    rs.Close();
    if (!found || 伝票表示読込(実行環境.事業所コード, base_date, number)) return;
    // another station has deleted it in between
    明細全クリア();
    合計クリア();
}

void show_neighbour(const Direction& d) {
    if (!has_neighbour(d)) {
        離脱項目移動();
        return;
    }
    if (!入力破棄確認(d.question)) return;
    読込表示([&] { load_neighbour(d); });
    画面再表示();
    実行環境.案内メッセージ.clear();
    案内表示();
    フォーカス設定(*実行環境.先頭コントロール);
}

}  // namespace

bool 前No確認() {
    return has_neighbour(previous);
}
bool 次No確認() {
    return has_neighbour(next);
}
void 前No読込() {
    load_neighbour(previous);
}
void 次No読込() {
    load_neighbour(next);
}
void 前No表示() {
    show_neighbour(previous);
}
void 次No表示() {
    show_neighbour(next);
}

}  // namespace kalvane

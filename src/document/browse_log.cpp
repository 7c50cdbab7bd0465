// The INSERT of one browse row.
#include "document/browse_log.h"

#include "data/query.h"
#include "platform/os/clock.h"
#include "records/run_context.h"
#include "rules/free_number.h"
#include "rules/number_allocation.h"

namespace kalvane {
namespace {

constexpr const char* browse_series = "01110";

bool taken(const std::string& base_date, const std::string& number) {
    return has_row("SELECT 閲覧No FROM T閲覧 WHERE 事業所コード = " + literal(実行環境.事業所コード) +
                   " AND 番号基準日付 = " + literal(base_date) + " AND 閲覧No = " + literal(number));
}

}  // namespace

void 閲覧記録(const std::string& 閲覧情報, const std::string& 伝票事業所コード,
              const std::string& 伝票番号基準日付, const std::string& 伝票No, const std::string& キー項目) {
    const RunContext& r = 実行環境;
    const std::string base_date = 番号基準日付取得(browse_series, 現在日付());
    const std::string number =
        空き番号([&] { return 番号採番(browse_series, base_date, r.運用事業所コード); },
                 [&](const std::string& n) { return taken(base_date, n); });
    const std::string now = 現在日時();
    主DB実行(
        "INSERT INTO [T閲覧] ([事業所コード],[番号基準日付],[閲覧No],[閲覧日付],[閲覧時刻],[担当者コード],"
        "[担当者名],[閲覧情報],[伝票事業所コード],[伝票番号基準日付],[伝票No],[キー項目],[閲覧区分],"
        "[閲覧メモ],[承認日付],[承認者コード],[承認区分],[ユーザID],[登録日付],[更新日付]) VALUES (" +
        literals({r.事業所コード, base_date, number, 現在日付(), time_text(os::now()), r.起動担当者コード},
                 ",") +
        "," + name_literal(r.起動担当者名) + "," +
        literals({閲覧情報, 伝票事業所コード, 伝票番号基準日付, 伝票No, キー項目, "0", "", "", "", "0",
                  r.コンピュータID + r.起動担当者コード + r.ユーザID, now, ""},
                 ",") +
        ")");
}

}  // namespace kalvane

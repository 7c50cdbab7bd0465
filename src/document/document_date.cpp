// Repair of a typed date, base date and window.
#include "document/document_date.h"

#include "base/text.h"
#include "data/sql_text.h"
#include "document/reference.h"
#include "platform/screen/host.h"
#include "records/run_context.h"
#include "rules/closing_dates.h"
#include "rules/field_text.h"
#include "rules/number_allocation.h"

namespace kalvane {
namespace {

void take_base_date(const std::string& base) {
    実行環境.番号基準日付 = base;
    実行環境.営業請求No = 次番号参照(請求番号ID, 実行環境.番号基準日付, 実行環境.事業所コード);
}

void keep_loaded_number() {
    実行環境.番号基準日付 = 請求ヘッダ.旧番号基準日付;
    実行環境.営業請求No = 請求ヘッダ.旧営業請求No;
}

}  // namespace

void set_document_date(HeaderRecord& header, const std::string& yyyymmdd) {
    header.営業請求日付 = yyyymmdd;
    header.営業請求日付年 = Mid(yyyymmdd, 1, 4);
    header.営業請求日付月 = Mid(yyyymmdd, 5, 2);
    header.営業請求日付日 = Mid(yyyymmdd, 7, 2);
}

void 営業請求日付確定() {
    HeaderRecord& h = 請求ヘッダ;
    h.営業請求日付年 = 桁揃え(h.営業請求日付年, "0000");
    h.営業請求日付月 = 桁揃え(h.営業請求日付月, "00");
    h.営業請求日付日 = 桁揃え(h.営業請求日付日, "00");
    日付補正(h.営業請求日付年, h.営業請求日付月, h.営業請求日付日);
    h.営業請求日付 = h.営業請求日付年 + h.営業請求日付月 + h.営業請求日付日;
    const std::string base = 番号基準日付取得(請求番号ID, h.営業請求日付);
    if (実行環境.新規入力中) {
        if (base != 実行環境.番号基準日付) take_base_date(base);
    } else if (base == h.旧番号基準日付) {
        keep_loaded_number();
    } else if (他請求参照確認() == 1) {
        keep_loaded_number();
        set_document_date(h, h.旧営業請求日付);
        実行環境.入力変更あり = false;
        message_box("決算を超えた日付の変更は出来ません。");
    } else {
        take_base_date(base);
    }
    h.集計日付 = 月締日付(h.営業請求日付);
}

bool 登録可能日付確認() {
    const DateWindow open = 登録可能期間(現在日付());
    const auto inside = [&](const std::string& date) { return open.low <= date && date <= open.high; };
    if (inside(請求ヘッダ.営業請求日付) && (実行環境.新規入力中 || inside(請求ヘッダ.旧営業請求日付)))
        return true;
    return 実行環境.アクセス権限 == 6;
}

}  // namespace kalvane

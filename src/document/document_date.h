// The date of the document: a typed date, and the window of dates in which documents may be registered.
#pragma once
#include <string>

#include "records/document.h"

namespace kalvane {

// 営業請求日付 and its three parts as they are typed, from "yyyymmdd".
void set_document_date(HeaderRecord& header, const std::string& yyyymmdd);

// Applies the typed date parts: repairs them, moves base date and number as the date demands; a date that
// would take a referred-to document out of its base date is put back, with a box. The caller recalculates
// and redraws in every case.
void 営業請求日付確定();
// True when the document's dates lie in the open window, or the operator has access level 6.
bool 登録可能日付確認();

}  // namespace kalvane

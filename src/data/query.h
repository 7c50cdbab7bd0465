// The query helpers over the two connections, and the texts of their statements. A helper that fails writes
// one row of kind "エラー " into the run history and returns false; it shows no message. "Not found" and
// "failed" look alike. No parameters, no transaction, no retry.
#pragma once
#include <string>

#include "data/sql_text.h"
#include "platform/ado/ado.h"

namespace kalvane {

// Opens a forward-only reader on 主接続; true when it has a row. The caller closes it, found or not.
// With log the statement goes to the run history after success.
bool 主DB読込(ado::Recordset& out, const std::string& sql, bool log = false);
// The same on 設定接続; the first is used at start, the second everywhere else.
bool 設定DB読込(ado::Recordset& out, const std::string& sql);
bool 設定DB参照(ado::Recordset& out, const std::string& sql);
// True when the statement finds a row on 主接続.
bool has_row(const std::string& sql);
// Runs a statement on 主接続; true on success.
bool 主DB実行(const std::string& sql, bool log = false);
// Runs a statement on 設定接続; the second writes it into the run history.
bool 設定DB実行(const std::string& sql);
bool 設定DB実行記録(const std::string& sql);

}  // namespace kalvane

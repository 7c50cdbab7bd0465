// The operator saved by the last sign-on, and the operator's row of M担当者.
#pragma once
#include <array>
#include <string>
#include <string_view>

#include "platform/ado/ado.h"
#include "records/run_context.h"

namespace kalvane {

// One of the eight rights of an operator, in the order of the kinds of operation 0 to 7. The value 0 (also
// of an empty text) allows, any other denies.
struct OperationRight {
    std::string_view column;
    std::string RunContext::*member;
};
inline constexpr std::array<OperationRight, 8> rights{{
    {"操作許可", &RunContext::操作許可},
    {"入力許可", &RunContext::入力許可},
    {"修正許可", &RunContext::修正許可},
    {"削除許可", &RunContext::削除許可},
    {"印刷許可", &RunContext::印刷許可},
    {"プレビュ許可", &RunContext::プレビュ許可},
    {"テキスト出力許可", &RunContext::テキスト出力許可},
    {"イメージ出力許可", &RunContext::イメージ出力許可},
}};
// Column of the right to a class of programs, "処理分類0操作許可" to "処理分類9操作許可".
std::string class_right_column(int k);
// Whether a row of M担当者 has all columns of its operator's rights; one that lacks a column counts as no
// row.
bool has_operator_rights(const ado::Recordset& rs);

// Reads 起動担当者コード from 動作環境定義; true when it is not blank. A failing read gives an empty code.
bool 起動担当者読込();
// Reads the operator's row into the run context; a NULL keeps the old value. False without a row.
bool 担当者情報読込(const std::string& code);

}  // namespace kalvane

// Reads the operator of the seat and his rights.
#include "data/operator_record.h"

#include "base/text.h"
#include "data/fields.h"
#include "data/query.h"

namespace kalvane {
namespace {

constexpr auto operator_fields = std::to_array<Field<RunContext>>({
    {"コード", &RunContext::起動担当者コード},
    {"氏名", &RunContext::起動担当者名},
    {"事業所コード", &RunContext::担当者事業所コード},
    {"部門コード", &RunContext::担当者部門コード},
    {"セクションコード", &RunContext::担当者セクションコード},
    {"役職コード", &RunContext::担当者役職コード},
    {"社員区分", &RunContext::担当者社員区分},
    {"アクセス権限", &RunContext::アクセス権限},
});

}  // namespace

std::string class_right_column(int k) {
    return "処理分類" + std::to_string(k) + "操作許可";
}

bool has_operator_rights(const ado::Recordset& rs) {
    for (int k = 0; k < 10; ++k)
        if (rs.column_index(class_right_column(k)) < 0) return false;
    return has_all(rs, rights);
}

bool 起動担当者読込() {
    constexpr std::string_view column = "起動担当者コード";
    実行環境.起動担当者コード.clear();
    ado::Recordset rs;
    if (設定DB参照(rs, "SELECT * FROM 動作環境定義 WHERE 動作環境定義ID = '001'") &&
        has_columns(rs, {column}))
        take(rs.Fields(column), 実行環境.起動担当者コード);
    rs.Close();
    return !blank(実行環境.起動担当者コード);
}

bool 担当者情報読込(const std::string& code) {
    ado::Recordset rs;
    const bool found =
        主DB読込(rs, "SELECT M担当者.* FROM M担当者 WHERE M担当者.コード = " + literal(code)) &&
        has_all(rs, operator_fields) && has_operator_rights(rs);
    if (found) {
        take_all(rs, operator_fields, 実行環境);
        for (int k = 0; k < 10; ++k)
            take(rs.Fields(class_right_column(k)), 実行環境.処理分類操作許可[static_cast<std::size_t>(k)]);
        for (const OperationRight& r : rights) take(rs.Fields(r.column), 実行環境.*r.member);
    }
    rs.Close();
    return found;
}

}  // namespace kalvane

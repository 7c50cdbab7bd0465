// The tests of an operator's right.
#include "session/sign_on.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

#include "base/text.h"
#include "data/fields.h"
#include "data/operator_record.h"
#include "data/query.h"
#include "session/sign_on_box.h"

namespace kalvane {
namespace {

bool allows(const std::string& right) {
    return Val(right) == 0;
}

// Families whose name takes part in the override's key.
constexpr std::array<std::string_view, 4> families{"Kalvane", "Kalvaneデータ管理", "Kalvane補助機能",
                                                   "Kalvaneサービスメニュ"};

// The row that overrides the operator's eight rights for the program; true when there was one.
bool read_override(const std::string& family, const std::string& program, bool& result) {
    if (実行環境.起動担当者コード.empty()) return false;
    std::string sql =
        "SELECT 担当者別操作許可プログラム.* FROM 担当者別操作許可プログラム WHERE "
        "担当者別操作許可プログラム.担当者コード = " +
        literal(実行環境.起動担当者コード);
    if (std::find(families.begin(), families.end(), family) != families.end())
        sql += " AND 担当者別操作許可プログラム.業務メニュ = " + literal(family);
    sql += " AND 担当者別操作許可プログラム.プログラムID = " + literal(program);
    ado::Recordset rs;
    const bool found = 主DB読込(rs, sql);
    if (found && has_all(rs, rights)) {
        for (const OperationRight& r : rights) 実行環境.*r.member = text_of(rs, r.column);
        result = allows(実行環境.操作許可);
    }  // a row that cannot be read whole may have closed what the class would open: nothing is allowed
    rs.Close();
    return found;
}

bool class_test(const std::string& family, const std::string& program) {
    ado::Recordset rs;
    bool result = false;
    if (設定DB参照(rs, "SELECT * FROM " + family + " WHERE プログラムID = " + literal(program)) &&
        has_columns(rs, {"処理分類"})) {
        const double k = rs.Fields("処理分類").number();
        if (!(k >= 0 && k <= 9) || k != std::floor(k))
            result = true;
        else if (k == 3 && 実行環境.事業所件数 < 1)
            result = true;
        else if (k == 3 && 実行環境.運用事業所コード == 全社事業所)
            result = false;
        else
            result = allows(実行環境.処理分類操作許可[static_cast<std::size_t>(k)]);
    }
    rs.Close();
    return result;
}

}  // namespace

bool 権限判定(const std::string& family, const std::string& program, Operation kind) {
    bool result = false;
    if (!read_override(family, program, result)) result = class_test(family, program);
    const auto index = static_cast<std::size_t>(kind);
    if (result && index < rights.size() && !allows(実行環境.*rights[index].member)) result = false;
    return result;
}

bool 操作権限確認(const std::string& family, const std::string& program, Operation kind) {
    実行環境.暗証番号確認済 = false;
    if (起動担当者読込() && 担当者情報読込(実行環境.起動担当者コード) && 権限判定(family, program, kind))
        実行環境.暗証番号確認済 = true;
    if (実行環境.暗証番号有無 != 1) return true;
    if (実行環境.暗証番号確認済) return true;
    暗証番号確認表示(family + "/暗証確認");
    return 実行環境.暗証番号確認済 && 権限判定(family, program, kind);
}

}  // namespace kalvane

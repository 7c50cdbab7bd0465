// The document in memory, written and read by the names of its members.
#pragma once
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

#include "base/format.h"
#include "base/text.h"
#include "records/columns.h"
#include "records/run_context.h"
#include "setup/schema.h"

namespace kalvane::test {

using Member = std::variant<std::string*, std::int16_t*, 通貨*, bool*>;

template <class Columns, class Record>
bool find_member(const Columns& columns, Record& record, std::string_view name, Member& m) {
    for (const auto& c : columns) {
        if (c.field.column != name) continue;
        bool own = false;
        const auto point = [&](auto member) {
            if constexpr (requires { record.*member; }) own = (m = &(record.*member), true);
        };
        std::visit(point, c.field.member);
        if (own) return true;
    }
    return false;
}

// A member of the head or of the run context, or with a row of that line.
inline Member member(std::string_view name, int i = -1) {
    HeaderRecord& h = 請求ヘッダ;
    RunContext& r = 実行環境;
    Member m;
    if (i >= 0 && find_member(line_columns, 請求明細行[i], name, m)) return m;
    if (i >= 0 && name == "仕入先対応先コード") return &請求明細行[i].仕入先対応先コード;
    if (find_member(header_columns, h, name, m)) return m;
#define MEMBER(record, name) \
    { #name, &record.name }
    const std::pair<std::string_view, Member> others[] = {
        MEMBER(h, 担当者名),           MEMBER(h, 部門名),         MEMBER(h, セクション名),
        MEMBER(h, 計算消費税合計),     MEMBER(h, 売上課税外税額), MEMBER(h, 売上課税内税額),
        MEMBER(h, 売上旧税外税額),     MEMBER(h, 売上旧税内税額), MEMBER(h, 売上非課税額),
        MEMBER(h, 仕入課税外税額),     MEMBER(h, 仕入課税内税額), MEMBER(h, 仕入旧税外税額),
        MEMBER(h, 仕入旧税内税額),     MEMBER(h, 仕入非課税額),   MEMBER(h, 得意先対応先コード),
        MEMBER(h, 納品先対応先コード), MEMBER(h, 旧事業所コード), MEMBER(h, 旧番号基準日付),
        MEMBER(h, 旧営業請求No),       MEMBER(h, 旧営業請求日付), MEMBER(h, 集計日付),
        MEMBER(r, 番号基準日付),       MEMBER(r, 営業請求No),     MEMBER(r, 売上金額丸め方法),
        MEMBER(r, 仕入金額丸め方法),   MEMBER(r, 入力変更あり),   MEMBER(r, 新規入力中),
        MEMBER(r, 案内メッセージ),     MEMBER(r, 最終行)};
#undef MEMBER
    for (const auto& [other, pointer] : others)
        if (other == name) return pointer;
    throw std::logic_error("no member " + std::string(name));
}

inline std::string member_text(const Member& m) {
    if (auto s = std::get_if<std::string*>(&m)) return **s;
    if (auto d = std::get_if<std::int16_t*>(&m)) return std::to_string(**d);
    if (auto c = std::get_if<通貨*>(&m)) return plain_number(**c);
    return *std::get<bool*>(m) ? "1" : "0";
}
// "member=value member=value"
inline void set(std::string_view text, int i = 0) {
    for (std::string_view pair : setup::words(text)) {
        const std::size_t mark = pair.find('=');
        const std::string value(pair.substr(mark + 1));
        const Member m = member(pair.substr(0, mark), i);
        if (auto s = std::get_if<std::string*>(&m)) **s = value;
        if (auto d = std::get_if<std::int16_t*>(&m)) **d = to_i16(value);
        if (auto c = std::get_if<通貨*>(&m)) **c = to_currency(value);
        if (auto b = std::get_if<bool*>(&m)) **b = value == "1";
    }
}
// What stands in the members that the text names: as in set, and the values alone with that between them.
inline std::string seen(std::string_view text, int i = 0) {
    std::string result;
    for (std::string_view pair : setup::words(text)) {
        const std::string_view name = pair.substr(0, pair.find('='));
        result.append(result.empty() ? "" : " ")
            .append(name)
            .append("=")
            .append(member_text(member(name, i)));
    }
    return result;
}
inline std::string values(std::string_view names, int i = -1, const char* between = ",") {
    std::string result;
    for (std::string_view name : setup::words(names))
        result.append(name.data() == names.data() ? "" : between).append(member_text(member(name, i)));
    return result;
}

}  // namespace kalvane::test

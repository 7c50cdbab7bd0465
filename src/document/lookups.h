// Master look-ups: a code into the values that it brings to the document. Everything is a read.
//
// How to add a master: a value in MasterKind and its four names below, its row in lookups.cpp, and its
// recordset in the run context.
#pragma once
#include <cstddef>
#include <string>
#include <vector>

namespace kalvane {

// The masters of the header, then those of a line.
enum class MasterKind { customer, contact, staff, department, section, destination, product, supplier };
inline constexpr std::size_t master_kinds = 8;
constexpr bool is_of_line(MasterKind kind) {
    return kind >= MasterKind::product;
}

// Looks for a code; true when found, false without a look for one that its field would not take. The
// recordset stays open in the run context for the next routine.
bool master_exists(MasterKind kind, const std::string& code);
// Columns that are not NULL into the document, for a master of the line into line i; then closes. Nothing on
// a released recordset.
void read_master(MasterKind kind, int i = 0);
// After a miss: the code field is emptied, the recordset closed; names and settings stay.
void miss_master(MasterKind kind, int i = 0);
// Decides on the text of a left field, already masked: false when it is the code held; else the look-up and
// what follows it have run, 案内メッセージ says how it went, and the screen must be redrawn. A master of the
// line works on 現在行.
bool change_master(MasterKind kind, const std::string& text);

// The same by the names of the masters; readers and misses of the line take its index.
template <bool (*routine)(MasterKind, const std::string&), MasterKind kind>
bool by_text(const std::string& text) {
    return routine(kind, text);
}
template <void (*routine)(MasterKind, int), MasterKind kind>
requires(!is_of_line(kind)) void of_header() {
    routine(kind, 0);
}
template <void (*routine)(MasterKind, int), MasterKind kind>
requires(is_of_line(kind)) void of_line(int i) {
    routine(kind, i);
}

inline constexpr auto& 得意先存在確認 = by_text<master_exists, MasterKind::customer>;
inline constexpr auto& 得意先御担当者存在確認 = by_text<master_exists, MasterKind::contact>;
inline constexpr auto& 担当者存在確認 = by_text<master_exists, MasterKind::staff>;
inline constexpr auto& 部門存在確認 = by_text<master_exists, MasterKind::department>;
inline constexpr auto& セクション存在確認 = by_text<master_exists, MasterKind::section>;
inline constexpr auto& 納品先存在確認 = by_text<master_exists, MasterKind::destination>;
inline constexpr auto& 商品存在確認 = by_text<master_exists, MasterKind::product>;
inline constexpr auto& 仕入先存在確認 = by_text<master_exists, MasterKind::supplier>;

inline constexpr auto& 得意先読込 = of_header<read_master, MasterKind::customer>;
inline constexpr auto& 得意先御担当者読込 = of_header<read_master, MasterKind::contact>;
inline constexpr auto& 担当者読込 = of_header<read_master, MasterKind::staff>;
inline constexpr auto& 部門読込 = of_header<read_master, MasterKind::department>;
inline constexpr auto& セクション読込 = of_header<read_master, MasterKind::section>;
inline constexpr auto& 納品先読込 = of_header<read_master, MasterKind::destination>;
inline constexpr auto& 商品読込 = of_line<read_master, MasterKind::product>;
inline constexpr auto& 仕入先読込 = of_line<read_master, MasterKind::supplier>;

inline constexpr auto& 得意先読込取消 = of_header<miss_master, MasterKind::customer>;
inline constexpr auto& 得意先御担当者読込取消 = of_header<miss_master, MasterKind::contact>;
inline constexpr auto& 担当者読込取消 = of_header<miss_master, MasterKind::staff>;
inline constexpr auto& 部門読込取消 = of_header<miss_master, MasterKind::department>;
inline constexpr auto& セクション読込取消 = of_header<miss_master, MasterKind::section>;
inline constexpr auto& 納品先読込取消 = of_header<miss_master, MasterKind::destination>;
inline constexpr auto& 商品読込取消 = of_line<miss_master, MasterKind::product>;
inline constexpr auto& 仕入先読込取消 = of_line<miss_master, MasterKind::supplier>;

inline constexpr auto& 得意先コード変更 = by_text<change_master, MasterKind::customer>;
inline constexpr auto& 得意先御担当者コード変更 = by_text<change_master, MasterKind::contact>;
inline constexpr auto& 担当者コード変更 = by_text<change_master, MasterKind::staff>;
inline constexpr auto& 部門コード変更 = by_text<change_master, MasterKind::department>;
inline constexpr auto& セクションコード変更 = by_text<change_master, MasterKind::section>;
inline constexpr auto& 納品先コード変更 = by_text<change_master, MasterKind::destination>;
inline constexpr auto& 商品コード変更 = by_text<change_master, MasterKind::product>;
inline constexpr auto& 仕入先コード変更 = by_text<change_master, MasterKind::supplier>;

// 名称 of a code table in the order of its statement; empty when the read fails.
std::vector<std::string> code_table_names(const std::string& statement);

}  // namespace kalvane

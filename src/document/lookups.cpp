// The table of the masters, and the four routines over it.
//
// How to add a master: a value in MasterKind and its four names in lookups.h, a list of its columns and a row
// in masters here, its recordset in the run context. The first column is that of the code.
#include "document/lookups.h"

#include <algorithm>
#include <array>
#include <span>
#include <variant>

#include "base/text.h"
#include "data/query.h"
#include "document/calculation.h"
#include "records/document.h"
#include "records/field.h"
#include "records/run_context.h"

namespace kalvane {
namespace {

template <class Record>
struct MasterColumn {
    Field<Record> field;
    bool only_if_missing = false;  // a text already present is kept
    std::int16_t ceiling = 0;      // a greater number is held as this one; 0 for none
};
using HeadColumn = MasterColumn<HeaderRecord>;
using RowColumn = MasterColumn<LineRecord>;

constexpr auto customer_columns = std::to_array<HeadColumn>({
    {.field = {"コード", &HeaderRecord::得意先コード}},
    {.field = {"名称A", &HeaderRecord::得意先名称A}},
    {.field = {"名称B", &HeaderRecord::得意先名称B}},
    {.field = {"御担当者名", &HeaderRecord::御担当者名}, .only_if_missing = true},
    // the salesperson's, with the department and section of his own row
    {.field = {"担当者コード", &HeaderRecord::担当者コード}},
    {.field = {"担当者名", &HeaderRecord::担当者名}},
    {.field = {"部門コード", &HeaderRecord::部門コード}},
    {.field = {"部門名", &HeaderRecord::部門名}},
    {.field = {"セクションコード", &HeaderRecord::セクションコード}},
    {.field = {"セクション名", &HeaderRecord::セクション名}},
    {.field = {"消費税区分", &HeaderRecord::得意先消費税区分}},
    // the list beside the field ends at 2
    {.field = {"消費税算出区分", &HeaderRecord::得意先消費税算出区分}, .ceiling = 2},
    {.field = {"消費税丸め方法", &HeaderRecord::得意先消費税丸め方法}},
    {.field = {"消費税丸め桁位置", &HeaderRecord::得意先消費税丸め桁位置}},
    {.field = {"消費税端数調整区分", &HeaderRecord::得意先消費税端数調整区分}},
    {.field = {"名称入力区分", &HeaderRecord::得意先名称入力区分}},
});
constexpr auto contact_columns = std::to_array<HeadColumn>({
    {.field = {"御担当者コード", &HeaderRecord::得意先御担当者コード}},
    {.field = {"氏名", &HeaderRecord::御担当者名}},
});
constexpr auto staff_columns = std::to_array<HeadColumn>({
    {.field = {"コード", &HeaderRecord::担当者コード}},
    {.field = {"氏名", &HeaderRecord::担当者名}},
    {.field = {"部門コード", &HeaderRecord::部門コード}},
    {.field = {"部門名", &HeaderRecord::部門名}},
    {.field = {"セクションコード", &HeaderRecord::セクションコード}},
    {.field = {"セクション名", &HeaderRecord::セクション名}},
});
constexpr auto department_columns = std::to_array<HeadColumn>({
    {.field = {"コード", &HeaderRecord::部門コード}},
    {.field = {"名称", &HeaderRecord::部門名}},
});
constexpr auto section_columns = std::to_array<HeadColumn>({
    {.field = {"コード", &HeaderRecord::セクションコード}},
    {.field = {"名称", &HeaderRecord::セクション名}},
});
constexpr auto destination_columns = std::to_array<HeadColumn>({
    {.field = {"コード", &HeaderRecord::納品先コード}},
    {.field = {"名称A", &HeaderRecord::納品先名称A}},
    {.field = {"名称B", &HeaderRecord::納品先名称B}},
    {.field = {"名称入力区分", &HeaderRecord::納品先名称入力区分}},
});
constexpr auto product_columns = std::to_array<RowColumn>({
    {.field = {"コード", &LineRecord::商品コード}},
    {.field = {"売上課税区分", &LineRecord::商品売上課税区分}},
    {.field = {"売上消費税区分", &LineRecord::商品売上消費税区分}},
    {.field = {"仕入課税区分", &LineRecord::商品仕入課税区分}},
    {.field = {"仕入消費税区分", &LineRecord::商品仕入消費税区分}},
    {.field = {"税抜販売単価", &LineRecord::商品税抜販売単価}},
    {.field = {"税込販売単価", &LineRecord::商品税込販売単価}},
    {.field = {"税抜仕入単価", &LineRecord::商品税抜仕入単価}},
    {.field = {"税込仕入単価", &LineRecord::商品税込仕入単価}},
});
constexpr auto supplier_columns = std::to_array<RowColumn>({
    {.field = {"コード", &LineRecord::仕入先コード}},
    {.field = {"名称A", &LineRecord::仕入先名称A}},
    {.field = {"消費税区分", &LineRecord::仕入先消費税区分}},
    {.field = {"消費税算出区分", &LineRecord::仕入先消費税算出区分}},
    {.field = {"消費税丸め方法", &LineRecord::仕入先消費税丸め方法}},
    {.field = {"消費税丸め桁位置", &LineRecord::仕入先消費税丸め桁位置}},
    {.field = {"消費税端数調整区分", &LineRecord::仕入先消費税端数調整区分}},
    {.field = {"名称入力区分", &LineRecord::仕入先名称入力区分}},
});

// --- what a look-up does beyond its columns
void read_product_texts(const ado::Recordset& rs, int i);
void reprice_document(int);
void reprice_line(int i);
void totals_only(int) {
    合計計算();
}

struct Master {
    MasterKind kind;
    ado::Recordset RunContext::Recordsets::*recordset;
    // the statement: before, owner's code, between, code, after; by_site puts a condition behind the code
    std::string_view before;
    std::string HeaderRecord::*owner = nullptr;
    std::string_view between = "";
    bool by_site = false;
    std::string_view after = "";
    std::span<const HeadColumn> head = {};
    std::span<const RowColumn> line = {};
    bool tested = true;  // a column is copied, and marks the document, only when it differs
    bool emptied_clears_notice = true;
    void (*more)(const ado::Recordset&, int) = nullptr;  // columns with rules of their own
    void (*after_hit)(int) = nullptr;
    void (*after_miss)(int) = nullptr;
};

constexpr auto masters = std::to_array<Master>({
    {.kind = MasterKind::customer,
     .recordset = &RunContext::Recordsets::得意先,
     .before =
         "SELECT M得意先.*, M担当者.氏名 AS 担当者名, M担当者.部門コード, M担当者.セクションコード, "
         "M部門.名称 AS 部門名, Mセクション.名称 AS セクション名"
         " FROM Mセクション RIGHT JOIN (M部門 RIGHT JOIN (M担当者 INNER JOIN M得意先 ON M担当者.コード = "
         "M得意先.担当者コード) ON M部門.コード = M担当者.部門コード) ON Mセクション.コード = "
         "M担当者.セクションコード"
         " WHERE M得意先.コード = ",
     .after = " AND M得意先.取引状況区分 <> '3'",
     .head = customer_columns,
     .after_hit = reprice_document},
    {.kind = MasterKind::contact,
     .recordset = &RunContext::Recordsets::得意先御担当者,
     .before = "SELECT M得意先御担当者.* FROM M得意先御担当者 WHERE M得意先御担当者.得意先コード = ",
     .owner = &HeaderRecord::得意先コード,
     .between = " AND M得意先御担当者.御担当者コード = ",
     .head = contact_columns},
    {.kind = MasterKind::staff,
     .recordset = &RunContext::Recordsets::担当者,
     .before =
         "SELECT M担当者.*, M部門.名称 AS 部門名, Mセクション.名称 AS セクション名"
         " FROM Mセクション RIGHT JOIN (M部門 RIGHT JOIN M担当者 ON M部門.コード = M担当者.部門コード) ON "
         "Mセクション.コード = M担当者.セクションコード"
         " WHERE M担当者.コード = ",
     .by_site = true,
     .after = " AND M担当者.在籍区分 = '0'",
     .head = staff_columns,
     .tested = false,
     .emptied_clears_notice = false},
    {.kind = MasterKind::department,
     .recordset = &RunContext::Recordsets::部門,
     .before = "SELECT M部門.* FROM M部門 WHERE M部門.コード = ",
     .head = department_columns,
     .tested = false,
     .emptied_clears_notice = false},
    {.kind = MasterKind::section,
     .recordset = &RunContext::Recordsets::セクション,
     .before = "SELECT Mセクション.* FROM Mセクション WHERE Mセクション.コード = ",
     .head = section_columns,
     .tested = false,
     .emptied_clears_notice = false},
    {.kind = MasterKind::destination,
     .recordset = &RunContext::Recordsets::納品先,
     .before = "SELECT M納品先.*, M担当者.氏名 AS 担当者名"
               " FROM M担当者 INNER JOIN M納品先 ON M担当者.コード = M納品先.担当者コード"
               " WHERE M納品先.コード = ",
     .after = " AND M納品先.取引状況区分 <> '3'",
     .head = destination_columns},
    {.kind = MasterKind::product,
     .recordset = &RunContext::Recordsets::商品,
     .before = "SELECT M商品.* FROM M商品 WHERE M商品.コード = ",
     .after = " AND M商品.取扱状況区分 <> '3'",
     .line = product_columns,
     .more = read_product_texts,
     .after_hit = reprice_line,
     .after_miss = totals_only},
    {.kind = MasterKind::supplier,
     .recordset = &RunContext::Recordsets::仕入先,
     .before = "SELECT M仕入先.* FROM M仕入先 WHERE M仕入先.コード = ",
     .after = " AND M仕入先.取引状況区分 <> '3'",
     .line = supplier_columns},
});

template <class Record>
constexpr bool code_first(std::span<const MasterColumn<Record>> columns) {
    return columns.front().field.column.ends_with("コード") &&
           columns.front().field.template holds<std::string Record::*>();
}
// Each row stands at its kind, with a recordset of its own, and writes either the header or the line, whose
// code comes first.
constexpr bool masters_sound() {
    for (std::size_t i = 0; i < masters.size(); ++i) {
        const Master& m = masters[i];
        if (static_cast<std::size_t>(m.kind) != i || m.head.empty() != is_of_line(m.kind)) return false;
        if (m.head.empty() == m.line.empty()) return false;
        if (!(m.head.empty() ? code_first(m.line) : code_first(m.head))) return false;
        for (std::size_t j = 0; j < i; ++j)
            if (masters[j].recordset == m.recordset) return false;
    }
    return masters.size() == master_kinds;
}
static_assert(masters_sound(), "a master out of its place, or without its code");

constexpr const Master& master(MasterKind kind) {
    return masters[static_cast<std::size_t>(kind)];
}

ado::Recordset& recordset(const Master& m) {
    return 実行環境.recordsets.*m.recordset;
}

void release(const Master& m) {
    recordset(m).Close();
    recordset(m) = ado::Recordset();
}

// The field that the code goes into stands first in the columns.
std::string& code_held(const Master& m, int i) {
    return m.head.empty() ? 請求明細行[i].*std::get<std::string LineRecord::*>(m.line[0].field.member)
                          : 請求ヘッダ.*std::get<std::string HeaderRecord::*>(m.head[0].field.member);
}

// What a code field's keys may put into it, and the blanks of a padded column.
bool could_be_typed(std::string_view code) {
    return std::ranges::all_of(code, [](char c) { return c == ' ' || is_code_character(c); });
}

std::string statement(const Master& m, const std::string& code) {
    std::string sql(m.before);
    if (m.owner) append_literal(sql, 請求ヘッダ.*m.owner);
    sql += m.between;
    append_literal(sql, code);
    // the head office sees everyone, a site its own people and the head office's
    if (m.by_site && 実行環境.事業所コード != 全社事業所)
        sql += " AND (M担当者.事業所コード = " + literal(実行環境.事業所コード) +
               " OR M担当者.事業所コード = " + literal(全社事業所) + ")";
    return sql.append(m.after);
}

bool exists(const Master& m, const std::string& code) {
    return 主DB読込(recordset(m), statement(m, code));
}

// A code that the field would not take is a miss, however it came there.
bool entered_exists(const Master& m, const std::string& code) {
    if (could_be_typed(code)) return exists(m, code);
    release(m);
    return false;
}

template <class T>
void copy(T& member, const T& value, bool tested) {
    if (tested) {
        if (member == value) return;
        実行環境.入力変更あり = true;
    }
    member = value;
}

template <class Record>
void read_columns(const Master& m, std::span<const MasterColumn<Record>> columns, Record& record) {
    for (const MasterColumn<Record>& c : columns) {
        const ado::Value& v = recordset(m).Fields(c.field.column);
        if (v.is_null()) continue;
        if (const auto* text = std::get_if<std::string Record::*>(&c.field.member)) {
            const std::string value = v.text();
            if (c.only_if_missing && (value.empty() || !(record.**text).empty())) continue;
            copy(record.**text, value, m.tested);
        }
        if (const auto* digit = std::get_if<std::int16_t Record::*>(&c.field.member)) {
            const bool above = c.ceiling != 0 && v.number() > c.ceiling;
            copy(record.**digit, above ? c.ceiling : to_i16(v.number()), m.tested);
        }
        if (const auto* money = std::get_if<通貨 Record::*>(&c.field.member))
            copy(record.**money, v.currency(), m.tested);
    }
}

void read(const Master& m, int i) {
    if (!recordset(m).is_open() || recordset(m).Eof()) return release(m);
    if (!m.head.empty()) read_columns(m, m.head, 請求ヘッダ);
    if (!m.line.empty()) read_columns(m, m.line, 請求明細行[i]);
    if (m.more) m.more(recordset(m), i);
    release(m);
}

void miss(const Master& m, int i) {
    code_held(m, i).clear();
    release(m);
}

bool decide(const Master& m, const std::string& text, int i) {
    if (text == code_held(m, i)) return false;
    実行環境.入力変更あり = true;
    if (text.empty()) {
        code_held(m, i).clear();
        if (m.emptied_clears_notice) 実行環境.案内メッセージ.clear();
        return true;
    }
    const bool hit = entered_exists(m, text);
    if (hit)
        read(m, i);
    else
        miss(m, i);
    if (const auto after = hit ? m.after_hit : m.after_miss) after(i);
    実行環境.案内メッセージ = hit ? "" : "該当情報がありません。";
    return true;
}

// A product that stands for a remark leaves what the operator wrote: its name is a remark word, a part of
// one, or nothing.
bool stands_for_remark(std::string_view name) {
    return contains("備考", name) || contains("摘要", name);
}

void read_product_texts(const ado::Recordset& rs, int i) {
    LineRecord& line = 請求明細行[i];
    const std::string name = rs.Fields("名称A").text() + rs.Fields("名称B").text();
    if (!stands_for_remark(name)) {
        copy(line.商品名, name, true);
        // the units follow without marking the document
        for (std::string LineRecord::*unit : {&LineRecord::請求単位, &LineRecord::仕入単位})
            if (!rs.Fields("単位").is_null()) line.*unit = rs.Fields("単位").text();
    }
    const std::string supplier_code = rs.Fields("仕入先コード").text();
    if (line.仕入先コード.empty() && !supplier_code.empty()) {
        copy(line.仕入先コード, supplier_code, true);
        if (exists(master(MasterKind::supplier), supplier_code))
            仕入先読込(i);
        else
            仕入先読込取消(i);
    }
    if (line.行区分 == 0) line.行区分 = line.計区分 = ordinary_line;
}

void reprice_document(int) {
    for (int i = 0; i <= 実行環境.最終行; ++i) {
        明細税区分設定(i);
        請求単価設定(i);
        請求金額計算(i);
    }
    全行税再計算();
}

void reprice_line(int i) {
    明細税区分設定(i);
    請求単価設定(i);
    請求金額計算(i);
    請求消費税計算(i);
    仕入単価設定(i);
    仕入金額計算(i);
    仕入消費税計算(i);
    合計計算();
}

}  // namespace

bool master_exists(MasterKind kind, const std::string& code) {
    return entered_exists(master(kind), code);
}
void read_master(MasterKind kind, int i) {
    read(master(kind), i);
}
void miss_master(MasterKind kind, int i) {
    miss(master(kind), i);
}
bool change_master(MasterKind kind, const std::string& text) {
    return decide(master(kind), text, is_of_line(kind) ? 実行環境.現在行 : 0);
}

std::vector<std::string> code_table_names(const std::string& statement) {
    std::vector<std::string> names;
    ado::Recordset table;
    if (主DB読込(table, statement))
        for (; !table.Eof(); table.MoveNext()) names.push_back(table.Fields("名称").text());
    table.Close();
    return names;
}

}  // namespace kalvane

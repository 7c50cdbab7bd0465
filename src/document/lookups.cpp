// How to add a master: a list of its columns, a row in masters, its four routines at the end, and its
// recordset in the run context.
#include "document/lookups.h"

#include <algorithm>
#include <span>

#include "base/text.h"
#include "data/query.h"
#include "document/calculation.h"
#include "records/document.h"
#include "records/run_context.h"

namespace kalvane {
namespace {

// A column and the member that takes it.
template <class Record>
struct MasterColumn {
    std::string_view column;
    std::string Record::*text = nullptr;
    std::int16_t Record::*digit = nullptr;
    通貨 Record::*money = nullptr;
    bool code = false;             // goes unquoted into later statements
    bool only_if_missing = false;  // a text already present is kept
    std::int16_t ceiling = 0;      // a greater value is held as this one; 0 for none
};
using HeadColumn = MasterColumn<HeaderRecord>;
using RowColumn = MasterColumn<LineRecord>;

constexpr HeadColumn customer_columns[] = {
    {.column = "コード", .text = &HeaderRecord::得意先コード, .code = true},
    {.column = "名称A", .text = &HeaderRecord::得意先名称A},
    {.column = "名称B", .text = &HeaderRecord::得意先名称B},
    {.column = "御担当者名", .text = &HeaderRecord::御担当者名, .only_if_missing = true},
    // the salesperson's, with the department and section of his own row
    {.column = "担当者コード", .text = &HeaderRecord::担当者コード, .code = true},
    {.column = "担当者名", .text = &HeaderRecord::担当者名},
    {.column = "部門コード", .text = &HeaderRecord::部門コード, .code = true},
    {.column = "部門名", .text = &HeaderRecord::部門名},
    {.column = "セクションコード", .text = &HeaderRecord::セクションコード, .code = true},
    {.column = "セクション名", .text = &HeaderRecord::セクション名},
    {.column = "消費税区分", .digit = &HeaderRecord::得意先消費税区分},
    // the list beside the field ends at 2
    {.column = "消費税算出区分", .digit = &HeaderRecord::得意先消費税算出区分, .ceiling = 2},
    {.column = "消費税丸め方法", .digit = &HeaderRecord::得意先消費税丸め方法},
    {.column = "消費税丸め桁位置", .digit = &HeaderRecord::得意先消費税丸め桁位置},
    {.column = "消費税端数調整区分", .digit = &HeaderRecord::得意先消費税端数調整区分},
    {.column = "名称入力区分", .digit = &HeaderRecord::得意先名称入力区分},
};
constexpr HeadColumn contact_columns[] = {
    {.column = "御担当者コード", .text = &HeaderRecord::得意先御担当者コード, .code = true},
    {.column = "氏名", .text = &HeaderRecord::御担当者名},
};
constexpr HeadColumn staff_columns[] = {
    {.column = "コード", .text = &HeaderRecord::担当者コード, .code = true},
    {.column = "氏名", .text = &HeaderRecord::担当者名},
    {.column = "部門コード", .text = &HeaderRecord::部門コード, .code = true},
    {.column = "部門名", .text = &HeaderRecord::部門名},
    {.column = "セクションコード", .text = &HeaderRecord::セクションコード, .code = true},
    {.column = "セクション名", .text = &HeaderRecord::セクション名},
};
constexpr HeadColumn department_columns[] = {
    {.column = "コード", .text = &HeaderRecord::部門コード, .code = true},
    {.column = "名称", .text = &HeaderRecord::部門名},
};
constexpr HeadColumn section_columns[] = {
    {.column = "コード", .text = &HeaderRecord::セクションコード, .code = true},
    {.column = "名称", .text = &HeaderRecord::セクション名},
};
constexpr HeadColumn destination_columns[] = {
    {.column = "コード", .text = &HeaderRecord::納品先コード, .code = true},
    {.column = "名称A", .text = &HeaderRecord::納品先名称A},
    {.column = "名称B", .text = &HeaderRecord::納品先名称B},
    {.column = "名称入力区分", .digit = &HeaderRecord::納品先名称入力区分},
};
constexpr RowColumn product_columns[] = {
    {.column = "コード", .text = &LineRecord::商品コード, .code = true},
    {.column = "売上課税区分", .digit = &LineRecord::商品売上課税区分},
    {.column = "売上消費税区分", .digit = &LineRecord::商品売上消費税区分},
    {.column = "仕入課税区分", .digit = &LineRecord::商品仕入課税区分},
    {.column = "仕入消費税区分", .digit = &LineRecord::商品仕入消費税区分},
    {.column = "税抜販売単価", .money = &LineRecord::商品税抜販売単価},
    {.column = "税込販売単価", .money = &LineRecord::商品税込販売単価},
    {.column = "税抜仕入単価", .money = &LineRecord::商品税抜仕入単価},
    {.column = "税込仕入単価", .money = &LineRecord::商品税込仕入単価},
};
constexpr RowColumn supplier_columns[] = {
    {.column = "コード", .text = &LineRecord::仕入先コード, .code = true},
    {.column = "名称A", .text = &LineRecord::仕入先名称A},
    {.column = "消費税区分", .digit = &LineRecord::仕入先消費税区分},
    {.column = "消費税算出区分", .digit = &LineRecord::仕入先消費税算出区分},
    {.column = "消費税丸め方法", .digit = &LineRecord::仕入先消費税丸め方法},
    {.column = "消費税丸め桁位置", .digit = &LineRecord::仕入先消費税丸め桁位置},
    {.column = "消費税端数調整区分", .digit = &LineRecord::仕入先消費税端数調整区分},
    {.column = "名称入力区分", .digit = &LineRecord::仕入先名称入力区分},
};

// --- what a look-up does beyond its columns
void read_product_texts(const ado::Recordset& rs, int i);
void reprice_document(int);
void reprice_line(int i);
void totals_only(int) {
    合計計算();
}

struct Master {
    ado::Recordset RunContext::Recordsets::*recordset;
    // the statement: before, owner's code, between, code, after; by_site puts a condition behind the code
    std::string_view before;
    std::string HeaderRecord::*owner = nullptr;
    std::string_view between = "";
    bool by_site = false;
    std::string_view after = "'";
    std::span<const HeadColumn> head = {};
    std::span<const RowColumn> line = {};
    bool tested = true;  // a column is copied, and marks the document, only when it differs
    bool emptied_clears_notice = true;
    void (*more)(const ado::Recordset&, int) = nullptr;  // columns with rules of their own
    void (*after_hit)(int) = nullptr;
    void (*after_miss)(int) = nullptr;
};

enum MasterIndex { customer, contact, staff, department, section, destination, product, supplier };

constexpr Master masters[] = {
    {.recordset = &RunContext::Recordsets::得意先,
     .before =
         "SELECT M得意先.*, M担当者.氏名 AS 担当者名, M担当者.部門コード, M担当者.セクションコード, "
         "M部門.名称 AS 部門名, Mセクション.名称 AS セクション名"
         " FROM Mセクション RIGHT JOIN (M部門 RIGHT JOIN (M担当者 INNER JOIN M得意先 ON M担当者.コード = "
         "M得意先.担当者コード) ON M部門.コード = M担当者.部門コード) ON Mセクション.コード = "
         "M担当者.セクションコード"
         " WHERE M得意先.コード = '",
     .after = "' AND M得意先.取引状況区分 <> '3'",
     .head = customer_columns,
     .after_hit = reprice_document},
    {.recordset = &RunContext::Recordsets::得意先御担当者,
     .before = "SELECT M得意先御担当者.* FROM M得意先御担当者 WHERE M得意先御担当者.得意先コード = '",
     .owner = &HeaderRecord::得意先コード,
     .between = "' AND M得意先御担当者.御担当者コード = '",
     .head = contact_columns},
    {.recordset = &RunContext::Recordsets::担当者,
     .before =
         "SELECT M担当者.*, M部門.名称 AS 部門名, Mセクション.名称 AS セクション名"
         " FROM Mセクション RIGHT JOIN (M部門 RIGHT JOIN M担当者 ON M部門.コード = M担当者.部門コード) ON "
         "Mセクション.コード = M担当者.セクションコード"
         " WHERE M担当者.コード = '",
     .by_site = true,
     .after = " AND M担当者.在籍区分 = '0'",
     .head = staff_columns,
     .tested = false,
     .emptied_clears_notice = false},
    {.recordset = &RunContext::Recordsets::部門,
     .before = "SELECT M部門.* FROM M部門 WHERE M部門.コード = '",
     .head = department_columns,
     .tested = false,
     .emptied_clears_notice = false},
    {.recordset = &RunContext::Recordsets::セクション,
     .before = "SELECT Mセクション.* FROM Mセクション WHERE Mセクション.コード = '",
     .head = section_columns,
     .tested = false,
     .emptied_clears_notice = false},
    {.recordset = &RunContext::Recordsets::納品先,
     .before = "SELECT M納品先.*, M担当者.氏名 AS 担当者名"
               " FROM M担当者 INNER JOIN M納品先 ON M担当者.コード = M納品先.担当者コード"
               " WHERE M納品先.コード = '",
     .after = "' AND M納品先.取引状況区分 <> '3'",
     .head = destination_columns},
    {.recordset = &RunContext::Recordsets::商品,
     .before = "SELECT M商品.* FROM M商品 WHERE M商品.コード = '",
     .after = "' AND M商品.取扱状況区分 <> '3'",
     .line = product_columns,
     .more = read_product_texts,
     .after_hit = reprice_line,
     .after_miss = totals_only},
    {.recordset = &RunContext::Recordsets::仕入先,
     .before = "SELECT M仕入先.* FROM M仕入先 WHERE M仕入先.コード = '",
     .after = "' AND M仕入先.取引状況区分 <> '3'",
     .line = supplier_columns},
};
static_assert(std::size(masters) == supplier + 1);
static_assert(masters[customer].recordset == &RunContext::Recordsets::得意先);
static_assert(masters[staff].by_site && masters[product].line[0].text == &LineRecord::商品コード);
static_assert(masters[supplier].recordset == &RunContext::Recordsets::仕入先);

ado::Recordset& recordset(const Master& m) {
    return 実行環境.recordsets.*m.recordset;
}

void release(const Master& m) {
    recordset(m).Close();
    recordset(m) = ado::Recordset();
}

// The field that the code goes into stands first in the columns.
std::string& code_held(const Master& m, int i) {
    return m.head.empty() ? 請求明細行[i].*m.line[0].text : 請求ヘッダ.*m.head[0].text;
}

// What a code field's keys may put into it, and the blanks of a padded column. Codes go into statements as
// they are, so one that could not have been typed is not taken from a table either.
bool could_be_typed(std::string_view code) {
    return std::ranges::all_of(code, [](char c) {
        return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '-' ||
               c == '_' || c == '.' || c == '/' || c == ' ';
    });
}

template <class Record>
bool codes_could_be_typed(const ado::Recordset& rs, std::span<const MasterColumn<Record>> columns) {
    return std::ranges::all_of(
        columns, [&rs](const auto& c) { return !c.code || could_be_typed(rs.Fields(c.column).text()); });
}

std::string statement(const Master& m, const std::string& code) {
    std::string sql(m.before);
    if (m.owner) sql += 請求ヘッダ.*m.owner;
    sql += m.between;
    sql += code;
    if (m.by_site) {
        sql += "'";
        // the head office sees everyone, a site its own people and the head office's
        if (実行環境.事業所コード != 全社事業所)
            sql += " AND (M担当者.事業所コード = '" + 実行環境.事業所コード +
                   "' OR M担当者.事業所コード = '" + 全社事業所 + "')";
    }
    return sql.append(m.after);
}

bool exists(const Master& m, const std::string& code) {
    ado::Recordset& rs = recordset(m);
    if (could_be_typed(code) && (!m.owner || could_be_typed(請求ヘッダ.*m.owner))) {
        if (!主DB読込(rs, statement(m, code))) return false;
        if (codes_could_be_typed(rs, m.head) && codes_could_be_typed(rs, m.line)) return true;
    }
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
        const ado::Value& v = recordset(m).Fields(c.column);
        if (v.is_null()) continue;
        if (c.text) {
            const std::string text = v.text();
            if (c.only_if_missing && (text.empty() || !(record.*c.text).empty())) continue;
            copy(record.*c.text, text, m.tested);
        }
        if (c.digit) {
            const bool above = c.ceiling != 0 && v.number() > c.ceiling;
            copy(record.*c.digit, above ? c.ceiling : to_i16(v.number()), m.tested);
        }
        if (c.money) copy(record.*c.money, v.currency(), m.tested);
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
    const bool hit = exists(m, text);
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
        if (仕入先存在確認(supplier_code))
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

bool 得意先存在確認(const std::string& code) {
    return exists(masters[customer], code);
}
bool 得意先御担当者存在確認(const std::string& code) {
    return exists(masters[contact], code);
}
bool 担当者存在確認(const std::string& code) {
    return exists(masters[staff], code);
}
bool 部門存在確認(const std::string& code) {
    return exists(masters[department], code);
}
bool セクション存在確認(const std::string& code) {
    return exists(masters[section], code);
}
bool 納品先存在確認(const std::string& code) {
    return exists(masters[destination], code);
}
bool 商品存在確認(const std::string& code) {
    return exists(masters[product], code);
}
bool 仕入先存在確認(const std::string& code) {
    return exists(masters[supplier], code);
}

void 得意先読込() {
    read(masters[customer], 0);
}
void 得意先御担当者読込() {
    read(masters[contact], 0);
}
void 担当者読込() {
    read(masters[staff], 0);
}
void 部門読込() {
    read(masters[department], 0);
}
void セクション読込() {
    read(masters[section], 0);
}
void 納品先読込() {
    read(masters[destination], 0);
}
void 商品読込(int i) {
    read(masters[product], i);
}
void 仕入先読込(int i) {
    read(masters[supplier], i);
}

void 得意先読込取消() {
    miss(masters[customer], 0);
}
void 得意先御担当者読込取消() {
    miss(masters[contact], 0);
}
void 担当者読込取消() {
    miss(masters[staff], 0);
}
void 部門読込取消() {
    miss(masters[department], 0);
}
void セクション読込取消() {
    miss(masters[section], 0);
}
void 納品先読込取消() {
    miss(masters[destination], 0);
}
void 商品読込取消(int i) {
    miss(masters[product], i);
}
void 仕入先読込取消(int i) {
    miss(masters[supplier], i);
}

bool 得意先コード変更(const std::string& text) {
    return decide(masters[customer], text, 0);
}
bool 得意先御担当者コード変更(const std::string& text) {
    return decide(masters[contact], text, 0);
}
bool 担当者コード変更(const std::string& text) {
    return decide(masters[staff], text, 0);
}
bool 部門コード変更(const std::string& text) {
    return decide(masters[department], text, 0);
}
bool セクションコード変更(const std::string& text) {
    return decide(masters[section], text, 0);
}
bool 納品先コード変更(const std::string& text) {
    return decide(masters[destination], text, 0);
}
bool 商品コード変更(const std::string& text) {
    return decide(masters[product], text, 実行環境.現在行);
}
bool 仕入先コード変更(const std::string& text) {
    return decide(masters[supplier], text, 実行環境.現在行);
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

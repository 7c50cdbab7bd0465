// Header columns of a stored invoice and of a source.
#include "document/source_header.h"

#include <algorithm>
#include <array>

#include "base/format.h"
#include "base/text.h"
#include "data/fields.h"
#include "document/document_date.h"
#include "records/columns.h"
#include "rules/closing_dates.h"

namespace kalvane {
namespace {

// These come from the first run of the totals.
constexpr auto not_read = std::to_array({&HeaderRecord::請求金額合計, &HeaderRecord::請求数量合計,
                                         &HeaderRecord::仕入金額合計, &HeaderRecord::仕入数量合計});

bool is_read(const HeaderColumn& c) {
    return c.kind != ColumnKind::stamp &&
           std::ranges::none_of(not_read, [&c](auto total) { return c.field.is(total); });
}

void take_text(const ado::Recordset& rs, const char* column, std::string& member) {
    take(rs.Fields(column), member);
}

bool no_code(const std::string& code) {
    return Val(code) == 0;
}
bool is_prospect(const ado::Recordset& rs, const SourceRow& source, const char* column) {
    return source.prospects && rs.Fields(column).number() != 0;
}

constexpr auto customer_tax_columns = std::to_array<Field<HeaderRecord>>({
    {"得意先消費税区分", &HeaderRecord::得意先消費税区分},
    {"得意先消費税算出区分", &HeaderRecord::得意先消費税算出区分},
    {"得意先消費税丸め方法", &HeaderRecord::得意先消費税丸め方法},
    {"得意先消費税丸め桁位置", &HeaderRecord::得意先消費税丸め桁位置},
    {"得意先消費税端数調整区分", &HeaderRecord::得意先消費税端数調整区分},
});

void take_customer(const ado::Recordset& rs, const SourceRow& source) {
    HeaderRecord& h = 請求ヘッダ;
    if (!no_code(h.得意先コード)) return;
    const bool prospect = is_prospect(rs, source, "得意先対応先区分");
    take_text(rs, "得意先コード", prospect ? h.得意先対応先コード : h.得意先コード);
    take_text(rs, "得意先名称A", h.得意先名称A);
    take_text(rs, "得意先名称B", h.得意先名称B);
    if (!prospect) take_text(rs, "得意先御担当者コード", h.得意先御担当者コード);
    take_text(rs, "御担当者名", h.御担当者名);
    if (source.customer_tax) take_all(rs, customer_tax_columns, h);
    take(rs.Fields("得意先名称入力区分"), h.得意先名称入力区分);
}

// A code with its name, each group only while the invoice has no such code.
struct CodeGroup {
    Field<HeaderRecord> code, name;
};
constexpr auto staff_groups = std::to_array<CodeGroup>({
    {{"担当者コード", &HeaderRecord::担当者コード}, {"担当者名", &HeaderRecord::担当者名}},
    {{"部門コード", &HeaderRecord::部門コード}, {"部門名", &HeaderRecord::部門名}},
    {{"セクションコード", &HeaderRecord::セクションコード}, {"セクション名", &HeaderRecord::セクション名}},
});

void take_staff(const ado::Recordset& rs) {
    for (const CodeGroup& g : staff_groups) {
        if (!no_code(請求ヘッダ.*std::get<std::string HeaderRecord::*>(g.code.member))) continue;
        take(rs, g.code, 請求ヘッダ);
        take(rs, g.name, 請求ヘッダ);
    }
}

void take_destination(const ado::Recordset& rs, const SourceRow& source) {
    HeaderRecord& h = 請求ヘッダ;
    if (!no_code(h.納品先コード)) return;
    if (is_prospect(rs, source, "納品先対応先区分"))
        take_text(rs, "得意先コード",
                  h.納品先対応先コード);  // the customer's column, as the registers expect it
    else
        take_text(rs, "納品先コード", h.納品先コード);
    take_text(rs, "納品先名称A", h.納品先名称A);
    take_text(rs, "納品先名称B", h.納品先名称B);
    take(rs.Fields("納品先名称入力区分"), h.納品先名称入力区分);
}

void take_into_empty(const ado::Recordset& rs, const char* column, std::string& member) {
    if (blank(member)) take_text(rs, column, member);
}

}  // namespace

void stored_header() {
    ado::Recordset& rs = 実行環境.recordsets.営業請求;
    HeaderRecord& h = 請求ヘッダ;
    for (const HeaderColumn& c : header_columns) {
        if (!is_read(c)) continue;
        take(rs, c.field, 実行環境);
        take(rs, c.field, h);
    }
    take_text(rs, "事業所コード", h.旧事業所コード);
    take_text(rs, "番号基準日付", h.旧番号基準日付);
    take_text(rs, "営業請求No", h.旧営業請求No);
    if (const ado::Value& date = rs.Fields("営業請求日付"); !date.is_null()) {
        h.旧営業請求日付 = date.text();
        set_document_date(h, h.旧営業請求日付);
    }
    for (const CodeGroup& g : staff_groups) take(rs, g.name, h);
    if (const ado::Value& approval = rs.Fields("承認区分"); !approval.is_null())
        h.承認区分 = Format(to_i16(approval.number()), "0");
    rs.Close();
    h.集計日付 = 月締日付(h.営業請求日付);
    実行環境.入力変更あり = false;
}

void source_header(const SourceRow& source) {
    ado::Recordset& rs = 実行環境.recordsets.*source.recordset;
    HeaderRecord& h = 請求ヘッダ;
    take_text(rs, "事業所コード", h.*source.site);
    take_text(rs, "番号基準日付", h.*source.base_date);
    take_text(rs, source.number_column, h.*source.number);
    if (source.customer_first) take_customer(rs, source);
    take_staff(rs);
    if (!source.customer_first) take_customer(rs, source);
    take_destination(rs, source);
    take_into_empty(rs, "タイトル", h.タイトル);
    if (source.terms) take_into_empty(rs, "支払条件", h.支払条件);
    take(rs.Fields("消費税表示区分"), h.消費税表示区分);
    take(rs.Fields("合計表示区分"), h.合計表示区分);
    take_into_empty(rs, source.columns.remark_a, h.請求伝票備考A);
    take_into_empty(rs, source.columns.remark_b, h.請求伝票備考B);
    if (実行環境.最終行 == -1) {
        take(rs.Fields(source.columns.net), h.税抜請求金額合計);
        take(rs.Fields(source.columns.tax), h.請求消費税合計);
        take(rs.Fields(source.columns.gross), h.税込請求金額合計);
        if (source.purchase_totals) {
            take(rs.Fields("税抜仕入金額合計"), h.税抜仕入金額合計);
            take(rs.Fields("仕入消費税合計"), h.仕入消費税合計);
            take(rs.Fields("税込仕入金額合計"), h.税込仕入金額合計);
        }
    }
    rs.Close();
}

}  // namespace kalvane

// Line columns of a stored invoice and of a source.
#include "document/source_lines.h"

#include "base/text.h"
#include "data/fields.h"
#include "data/query.h"
#include "document/calculation.h"
#include "records/columns.h"

namespace kalvane {
namespace {

// What a source or a pasted line brings: the columns between these two, both included. Identity, shipped and
// sold figures, memo, approvals and stamps stay those of a fresh line.
constexpr std::size_t first_brought = 11, last_brought = 45;
static_assert(line_columns[first_brought].field.column == "行区分" &&
              line_columns[last_brought].field.column == "仕入先名称入力区分");

// The name of a line column in a source's table.
std::string_view name_in(const SourceRow& source, std::string_view column) {
    if (column == "請求数量") return source.columns.quantity;
    if (column == "請求単位") return source.columns.unit;
    if (column == "請求単価") return source.columns.price;
    if (column == "請求金額") return source.columns.amount;
    if (column == "請求消費税") return source.columns.line_tax;
    return column;
}

void take_brought(const ado::Recordset& rs, const SourceRow& source, LineRecord& line) {
    const bool prospect = source.prospects && rs.Fields("仕入先対応先区分").number() != 0;
    for (std::size_t i = first_brought; i <= last_brought; ++i) {
        const auto& field = line_columns[i].field;
        if (prospect && field.is(&LineRecord::仕入先コード))
            take(rs.Fields("仕入先コード"), line.仕入先対応先コード);
        else
            take(rs.Fields(name_in(source, field.column)), field, line);
    }
}

void compute(int i, Recompute what) {
    明細税区分設定(i);
    請求金額計算(i);
    請求消費税計算(i);
    if (what != Recompute::both) return;
    仕入金額計算(i);
    仕入消費税計算(i);
}

std::string lines_of(const SourceRow& source, const std::string& site, const std::string& base_date,
                     const std::string& number) {
    const std::string table = source.line_table;
    return "SELECT " + table + ".* FROM " + table + "  WHERE " + table + ".事業所コード = " + literal(site) +
           " AND " + table + ".番号基準日付 = " + literal(base_date) + " AND " + table + "." +
           source.number_column + " = " + literal(number);
}

std::string ordered(const SourceRow& source) {
    return std::string(" ORDER BY ") + source.line_table + "." + source.line_order;
}

}  // namespace

void stored_lines() {
    RunContext& r = 実行環境;
    r.最終行 = -1;
    請求ヘッダ.最終固有行No = 0;
    const SourceRow& source = source_row(SourceKind::invoice);
    ado::Recordset rs;
    if (主DB読込(rs, lines_of(source, r.事業所コード, r.番号基準日付, r.営業請求No) + ordered(source))) {
        for (; !rs.Eof(); rs.MoveNext()) {
            LineRecord& line = 請求明細行[r.最終行 + 1];
            ++r.最終行;
            for (const LineColumn& c : line_columns)
                if (!c.field.is(&LineRecord::営業請求行No)) take(rs, c.field, line);
            if (const double identity = Val(line.営業請求固有行No); identity > 請求ヘッダ.最終固有行No)
                請求ヘッダ.最終固有行No = to_i16(identity);
        }
    }
    rs.Close();
    r.新規入力中 = r.最終行 < 0;
}

void source_lines(const SourceRow& source) {
    RunContext& r = 実行環境;
    if (r.最終行 != -1) return;
    const HeaderRecord& h = 請求ヘッダ;
    ado::Recordset rs;
    if (主DB読込(rs,
                 lines_of(source, h.*source.site, h.*source.base_date, h.*source.number) + ordered(source))) {
        for (; !rs.Eof(); rs.MoveNext()) {
            LineRecord& line = 請求明細行[r.最終行 + 1];
            ++r.最終行;
            take_brought(rs, source, line);
            compute(r.最終行, source.recompute);
        }
    }
    rs.Close();
}

void 営業請求行読込(int i, const std::string& site, const std::string& base_date, const std::string& number,
                    const std::string& identity) {
    const SourceRow& source = source_row(SourceKind::reference);
    ado::Recordset rs;
    if (主DB読込(rs, lines_of(source, site, base_date, number) + " AND " + source.line_table +
                         ".営業請求固有行No = " + literal(identity))) {
        LineRecord& line = 請求明細行[i];
        take_brought(rs, source, line);
        take(rs.Fields("明細メモ"), line.明細メモ);
        for (auto m : {&LineRecord::営業請求固有行No, &LineRecord::承認日付, &LineRecord::承認者コード,
                       &LineRecord::承認区分, &LineRecord::登録日付, &LineRecord::更新日付})
            (line.*m).clear();
        明細税区分設定(i);
        請求単価設定(i);
        請求金額計算(i);
        請求消費税計算(i);
        仕入単価設定(i);
        仕入金額計算(i);
        仕入消費税計算(i);
        実行環境.入力変更あり = true;
    }
    rs.Close();
}

}  // namespace kalvane

// What the five kinds of document differ in, as a table; the readers of document/loading walk it.
//
// How to add a kind: a value in SourceKind, a row here, its recordset in the run context, and its position
// on the command line.
#pragma once
#include <array>
#include <string>

#include "records/document.h"
#include "records/run_context.h"

namespace kalvane {

// The stored invoice and the four sources.
enum class SourceKind { invoice, quotation, order, delivery, reference };

// What is computed anew for a line that was read.
enum class Recompute { none, sale, both };

struct SourceColumns {
    const char *remark_a, *remark_b;  // taken into an empty remark
    const char *net, *tax, *gross;    // totals shown while the document has no line
    const char *quantity, *unit, *price, *amount, *line_tax;
};

struct SourceRow {
    SourceKind kind;
    const char* number_id;
    const char *header_table, *line_table, *number_column, *line_order;
    const char* guard;  // a condition text holds it, a pick's key does not
    // key fields; nullptr for the stored invoice, whose key is the run context's
    std::string HeaderRecord::*site = nullptr;
    std::string HeaderRecord::*base_date = nullptr;
    std::string HeaderRecord::*number = nullptr;
    ado::Recordset RunContext::Recordsets::*recordset = nullptr;
    DocumentKey RunContext::*argument = nullptr;  // key cut from the command line
    std::size_t position = 0;                     // … and where it stands
    SourceColumns columns{};
    bool prospects = false;     // a customer, destination or supplier may be a prospect
    bool customer_tax = false;  // brings the customer's tax columns
    bool terms = false;         // brings 支払条件
    bool purchase_totals = false;
    bool customer_first = false;  // order of the groups
    Recompute recompute = Recompute::none;
};

// clang-format off
inline constexpr std::array<SourceRow, 5> source_rows{{
    {.kind = SourceKind::invoice, .number_id = "16240", .header_table = "T営業請求", .line_table = "T営業請求明細",
     .number_column = "営業請求No", .line_order = "営業請求行No", .guard = "営業請求",
     .recordset = &RunContext::Recordsets::営業請求},
    {.kind = SourceKind::quotation, .number_id = "16210", .header_table = "T営業見積", .line_table = "T営業見積明細",
     .number_column = "営業見積No", .line_order = "営業見積行No", .guard = "営業見積",
     .site = &HeaderRecord::営業見積事業所コード, .base_date = &HeaderRecord::営業見積番号基準日付,
     .number = &HeaderRecord::営業見積No, .recordset = &RunContext::Recordsets::営業見積,
     .argument = &RunContext::引用営業見積キー, .position = 20,
     .columns = {"見積伝票備考A", "見積伝票備考B", "税抜見積金額合計", "見積消費税合計", "税込見積金額合計", "見積数量", "見積単位",
                 "見積単価", "見積金額", "見積消費税"},
     .prospects = true, .customer_tax = true, .purchase_totals = true, .customer_first = true,
     .recompute = Recompute::both},
    {.kind = SourceKind::order, .number_id = "16220", .header_table = "T顧客注文", .line_table = "T顧客注文明細",
     .number_column = "顧客注文No", .line_order = "顧客注文行No", .guard = "顧客注文",
     .site = &HeaderRecord::顧客注文事業所コード, .base_date = &HeaderRecord::顧客注文番号基準日付,
     .number = &HeaderRecord::顧客注文No, .recordset = &RunContext::Recordsets::顧客注文,
     .argument = &RunContext::引用顧客注文キー, .position = 39,
     .columns = {"注文伝票備考A", "注文伝票備考B", "税抜注文金額合計", "注文消費税合計", "税込注文金額合計", "注文数量", "注文単位",
                 "注文単価", "注文金額", "注文消費税"},
     .prospects = true, .customer_tax = true, .purchase_totals = true, .customer_first = true,
     .recompute = Recompute::both},
    {.kind = SourceKind::delivery, .number_id = "16250", .header_table = "T営業納品", .line_table = "T営業納品明細",
     .number_column = "営業納品No", .line_order = "営業納品行No", .guard = "営業納品",
     .site = &HeaderRecord::営業納品事業所コード, .base_date = &HeaderRecord::営業納品番号基準日付,
     .number = &HeaderRecord::営業納品No, .recordset = &RunContext::Recordsets::営業納品,
     .argument = &RunContext::引用営業納品キー, .position = 58,
     .columns = {"納品伝票備考A", "納品伝票備考B", "税抜納品金額合計", "納品消費税合計", "税込納品金額合計", "納品数量", "納品単位",
                 "納品単価", "納品金額", "納品消費税"},
     .customer_tax = true, .purchase_totals = true, .customer_first = true, .recompute = Recompute::both},
    {.kind = SourceKind::reference, .number_id = "16240", .header_table = "T営業請求", .line_table = "T営業請求明細",
     .number_column = "営業請求No", .line_order = "営業請求行No", .guard = "営業請求",
     .site = &HeaderRecord::参照営業請求事業所コード, .base_date = &HeaderRecord::参照営業請求番号基準日付,
     .number = &HeaderRecord::参照営業請求No, .recordset = &RunContext::Recordsets::参照営業請求,
     .argument = &RunContext::引用営業請求キー, .position = 77,
     .columns = {"請求伝票備考A", "請求伝票備考B", "税抜請求金額合計", "請求消費税合計", "税込請求金額合計", "請求数量", "請求単位",
                 "請求単価", "請求金額", "請求消費税"},
     .terms = true, .recompute = Recompute::sale},
}};
// clang-format on

constexpr bool source_rows_in_order() {
    for (std::size_t i = 0; i < source_rows.size(); ++i)
        if (static_cast<std::size_t>(source_rows[i].kind) != i) return false;
    return true;
}
static_assert(source_rows_in_order());

constexpr const SourceRow& source_row(SourceKind kind) {
    return source_rows[static_cast<std::size_t>(kind)];
}

}  // namespace kalvane

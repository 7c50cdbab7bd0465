// Reading stored invoices and source documents into the document, and the decision on a typed or picked
// document number. A loader that fails on its way closes its recordset and raises the failure again; behind a
// stored invoice the document is cleared, its date and site as before (at start the seat's site), behind a
// source it is as it was. A NULL column leaves its field as it was.
#pragma once
#include <string>

#include "records/source_kinds.h"

namespace kalvane {

// Looks for a document; the recordset stays open for its reader. The stored invoice leaves a browse row and
// its statement in the run history.
bool 伝票存在確認(SourceKind kind, const std::string& site, const std::string& base_date,
                  const std::string& number);
// The header into the document; closes the recordset.
void 伝票ヘッダ読込(SourceKind kind);
// The lines of the document whose key the header holds.
void 伝票明細読込(SourceKind kind);
// After a miss: the stored invoice clears the document, a source its three key fields.
void 伝票読込取消(SourceKind kind);
// Header, all lines cleared, lines; without totals.
void 伝票読込(SourceKind kind);

// The stored invoice by its name.
inline bool 営業請求存在確認(const std::string& site, const std::string& base_date,
                             const std::string& number) {
    return 伝票存在確認(SourceKind::invoice, site, base_date, number);
}

// A stored invoice with its totals, for the number field and the neighbours. False on a miss, which clears
// the document.
bool 伝票表示読込(const std::string& site, const std::string& base_date, const std::string& number);

// For the key on the command line. True when the stored invoice was found.
bool 起動読込();
// The first usable source key of the command line into the new document.
void 起動参照読込();

// Decisions on the text of a left number field, already filled to eight digits: false when it is the number
// held; else the screen must be redrawn and 案内メッセージ tells how it went. A number of zeros is none.
bool 営業請求No変更(const std::string& text);
bool change_source(SourceKind kind, const std::string& text);
template <SourceKind kind>
requires(kind != SourceKind::invoice) bool source_change(const std::string& text) {
    return change_source(kind, text);
}
inline constexpr auto& 営業見積No変更 = source_change<SourceKind::quotation>;
inline constexpr auto& 顧客注文No変更 = source_change<SourceKind::order>;
inline constexpr auto& 営業納品No変更 = source_change<SourceKind::delivery>;
inline constexpr auto& 参照営業請求No変更 = source_change<SourceKind::reference>;

// One stored line into line i as a new line, its prices derived again. Nothing when it has gone.
void 営業請求行読込(int i, const std::string& site, const std::string& base_date, const std::string& number,
                    const std::string& identity);

}  // namespace kalvane

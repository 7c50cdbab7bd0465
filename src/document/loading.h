// Reading stored invoices and source documents into the document, and the decision on a typed or picked
// document number. A loader that fails on its way closes its recordset, clears the document and raises the
// failure again. A NULL column leaves its field as it was.
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

// The same by the names of the documents.
inline bool 営業請求存在確認(const std::string& site, const std::string& base_date,
                             const std::string& number) {
    return 伝票存在確認(SourceKind::invoice, site, base_date, number);
}
inline bool 営業見積存在確認(const std::string& site, const std::string& base_date,
                             const std::string& number) {
    return 伝票存在確認(SourceKind::quotation, site, base_date, number);
}
inline bool 顧客注文存在確認(const std::string& site, const std::string& base_date,
                             const std::string& number) {
    return 伝票存在確認(SourceKind::order, site, base_date, number);
}
inline bool 営業納品存在確認(const std::string& site, const std::string& base_date,
                             const std::string& number) {
    return 伝票存在確認(SourceKind::delivery, site, base_date, number);
}
inline bool 参照営業請求存在確認(const std::string& site, const std::string& base_date,
                                 const std::string& number) {
    return 伝票存在確認(SourceKind::reference, site, base_date, number);
}
inline void 営業請求ヘッダ読込() {
    伝票ヘッダ読込(SourceKind::invoice);
}
inline void 営業見積ヘッダ読込() {
    伝票ヘッダ読込(SourceKind::quotation);
}
inline void 顧客注文ヘッダ読込() {
    伝票ヘッダ読込(SourceKind::order);
}
inline void 営業納品ヘッダ読込() {
    伝票ヘッダ読込(SourceKind::delivery);
}
inline void 参照営業請求ヘッダ読込() {
    伝票ヘッダ読込(SourceKind::reference);
}
inline void 営業請求明細読込() {
    伝票明細読込(SourceKind::invoice);
}
inline void 営業見積明細読込() {
    伝票明細読込(SourceKind::quotation);
}
inline void 顧客注文明細読込() {
    伝票明細読込(SourceKind::order);
}
inline void 営業納品明細読込() {
    伝票明細読込(SourceKind::delivery);
}
inline void 参照営業請求明細読込() {
    伝票明細読込(SourceKind::reference);
}
inline void 営業請求読込取消() {
    伝票読込取消(SourceKind::invoice);
}
inline void 営業見積読込取消() {
    伝票読込取消(SourceKind::quotation);
}
inline void 顧客注文読込取消() {
    伝票読込取消(SourceKind::order);
}
inline void 営業納品読込取消() {
    伝票読込取消(SourceKind::delivery);
}
inline void 参照営業請求読込取消() {
    伝票読込取消(SourceKind::reference);
}

// A stored invoice with its totals, for the number field and the neighbours. False on a miss, which clears
// the document.
bool 伝票表示読込(const std::string& site, const std::string& base_date, const std::string& number);

// For the key on the command line. True when the stored invoice was found.
bool 起動読込();
// The first usable source key of the command line into the new document.
void 起動参照読込();

// Decisions on the text of a left number field, already filled to eight digits: false when it is the number
// held; else the screen must be redrawn and 案内メッセージ tells how it went.
bool 営業請求No変更(const std::string& text);
bool 営業見積No変更(const std::string& text);
bool 顧客注文No変更(const std::string& text);
bool 営業納品No変更(const std::string& text);
bool 参照営業請求No変更(const std::string& text);

// One stored line into line i as a new line, its prices derived again. Nothing when it has gone.
void 営業請求行読込(int i, const std::string& site, const std::string& base_date, const std::string& number,
                    const std::string& identity);

}  // namespace kalvane

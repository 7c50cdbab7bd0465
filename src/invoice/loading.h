// Reading stored invoices and source documents into the document, and the decision on a typed or picked
// document number. A loader that fails on its way clears the document and raises the failure again.
#pragma once
#include <string>

namespace kalvane {

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

}  // namespace kalvane

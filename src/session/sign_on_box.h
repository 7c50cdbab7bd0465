// msg暗証番号確認: the box that asks for an operator code and a PIN.
#pragma once
#include <string>

#include "platform/screen/form.h"

namespace kalvane {

struct SignOnBox : Form {
    Control 担当者コード, 担当者名, 暗証番号, btn_OK, btn_キャンセル;
    Control itm_ttl_担当者コード, itm_ttl_担当者名, itm_ttl_暗証番号;
    std::string 担当者暗証番号;  // plain PIN of the operator found last in this showing; empty at its load
};
inline SignOnBox msg暗証番号確認;

// Asks the operator to sign on, modally. 暗証番号確認済 tells the outcome; a right PIN makes the operator
// that of the process and of later starts.
void 暗証番号確認表示(const std::string& caption);

}  // namespace kalvane

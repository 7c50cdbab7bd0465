// Operation rights: one question that all screens ask before start, save, delete, print and image output.
#pragma once
#include <cstdint>
#include <string>

namespace kalvane {

// Kinds of operation.
enum class Operation : std::int16_t {
    start = 0,
    input,
    modify,
    erase,
    print,
    preview,
    text_output,
    image_output
};

// True when the operator may act. Without PINs rights are not enforced; with them the sign-on box shows when
// there is no saved operator or the saved one lacks the right.
bool 操作権限確認(const std::string& family, const std::string& program, Operation kind);
// The rights of the operator alone: the row that overrides them for a program, or the class of the program
// and the operator's rights; then the right to the kind of operation. A failing read is a missing row.
bool 権限判定(const std::string& family, const std::string& program, Operation kind);

}  // namespace kalvane

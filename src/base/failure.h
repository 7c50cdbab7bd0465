// A failure of a routine in its own work: leaving a number's range, an index outside an array, an impossible
// date, a column that is not there. It rises to the dispatch of the event, which shows its text. Start, end
// and the link row go on without what failed.
#pragma once
#include <stdexcept>
#include <string>

namespace kalvane {

class RunFailure : public std::runtime_error {
  public:
    explicit RunFailure(const std::string& text) : std::runtime_error(text) {}
};

// Texts of the failures, shown to the operator in a box.
inline constexpr const char* overflow_text = "オーバーフローしました。";
inline constexpr const char* index_text = "インデックスが有効範囲にありません。";
inline constexpr const char* bad_date_text = "日付が正しくありません。";

}  // namespace kalvane

// Numbers of documents and of their history, from the four counter tables that all programs of the suite
// share, and the base date under which a number counts. 伝票番号管理区分 picks the tables without a site (0)
// or by site. Reading a counter and writing it are two statements without a lock: two stations can get the
// same number, so callers test each number and ask again.
#pragma once
#include <string>

namespace kalvane {

// What the routines give when the series has no row in A番号情報; each variant shows a box, and the routine
// that chose the variant shows it once more.
inline constexpr const char* 番号なし = "00000000";

// Base date ("yyyymmdd") of a series for a date: fiscal year end, month closing, the date itself,
// "99999999" for a continuous series or "88888888" for one without document numbers. The date "99999999"
// means today. "" when the series has no row.
std::string 番号基準日付取得(const std::string& 番号ID, const std::string& 日付);

// The number that the next allocation would give; no counter moves, but a missing counter row is made.
// Eight digits, nine behind 99999999; 番号なし without the series; "" when the series gives no number, or its
// dated row by site is missing.
std::string 次番号参照(const std::string& 番号ID, const std::string& 番号基準日付,
                       const std::string& 事業所コード);
// The next document number; the counter moves on. Results as above. A failing update is not seen.
std::string 番号採番(const std::string& 番号ID, const std::string& 番号基準日付,
                     const std::string& 事業所コード);
// The next history number; series without document numbers have them too. Results as above.
std::string 履歴番号採番(const std::string& 番号ID, const std::string& 番号基準日付,
                         const std::string& 事業所コード);

// The variants. Those by site still take the kind of the series from A番号情報.
std::string 次番号参照全社(const std::string& 番号ID, const std::string& 番号基準日付);
std::string 番号採番全社(const std::string& 番号ID, const std::string& 番号基準日付);
std::string 履歴番号採番全社(const std::string& 番号ID, const std::string& 番号基準日付);
std::string 次番号参照事業所別(const std::string& 番号ID, const std::string& 番号基準日付,
                               const std::string& 事業所コード);
std::string 番号採番事業所別(const std::string& 番号ID, const std::string& 番号基準日付,
                             const std::string& 事業所コード);
std::string 履歴番号採番事業所別(const std::string& 番号ID, const std::string& 番号基準日付,
                                 const std::string& 事業所コード);

// Make the counter row, both counters at zero, when it is missing and the series is known. The last one
// never makes a row: its look at the series fails in the database, and the set-up brings such rows.
void 期日別番号行作成(const std::string& 番号ID, const std::string& 期日);
void 事業所別番号行作成(const std::string& 番号ID, const std::string& 事業所コード);
void 事業所別期日別番号行作成(const std::string& 番号ID, const std::string& 期日,
                              const std::string& 事業所コード);

// Starts the program registered for the series, minimised, without waiting. None registered, a failing read
// or a failing start does nothing.
void 更新プログラム起動(const std::string& 番号ID);

}  // namespace kalvane

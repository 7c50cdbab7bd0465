// The link rows between the programs of the suite: the request that started this one, and its reply; and
// the clipboard of document lines.
#pragma once
#include <string>

namespace kalvane {

// Takes the request row for this program and command line that is not older than since; sets
// 連携元プログラムID and 起動連携情報. Errors end it silently.
void 連携受信(const std::string& command_line, const std::string& since);
// Leaves the reply row for the caller; only with a request taken.
void 連携応答(const std::string& reply);

// The document whose lines were copied last.
struct ClipboardSource {
    std::string 伝票事業所コード, 伝票番号基準日付, 伝票No, 伝票付加情報;
};
// The newest clipboard row of a program and a number series, older than now; false when there is none.
bool クリップボード検索(const std::string& 貼付プログラムID, const std::string& 伝票番号ID,
                        ClipboardSource& out);

}  // namespace kalvane

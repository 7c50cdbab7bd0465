// Cuts keys from fixed positions.
#include "session/command_line.h"

#include <algorithm>

#include "base/text.h"

namespace kalvane {
namespace {

bool code_characters(const std::string& part) {
    return std::ranges::all_of(Trim(part), is_code_character);
}

}  // namespace

DocumentKey 伝票キー切出(const std::string& trimmed_text, std::size_t position) {
    DocumentKey key{Mid(trimmed_text, position, 3), Mid(trimmed_text, position + 3, 8),
                    Mid(trimmed_text, position + 11, 8)};
    for (const std::string* part : {&key.事業所コード, &key.番号基準日付, &key.No})
        if (!code_characters(*part)) return {};
    return key;
}

void コマンドライン切出(const std::string& trimmed_text) {
    RunContext& r = 実行環境;
    r.引数起動 = r.引用起動 = false;
    r.新規入力中 = true;
    if (trimmed_text.empty()) return;
    const DocumentKey key = 伝票キー切出(trimmed_text, 1);
    r.事業所コード = key.事業所コード;
    r.番号基準日付 = key.番号基準日付;
    r.営業請求No = key.No;
    if (blank(key.事業所コード) || blank(key.番号基準日付) || key.No.empty()) return;
    r.引数起動 = true;
    if (key.番号基準日付 == "00000000" && key.No == "00000000")
        r.引用起動 = true;
    else
        r.新規入力中 = false;
}

}  // namespace kalvane

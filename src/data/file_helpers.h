// Small helpers over the file system; the callers see booleans.
#pragma once
#include <string>

namespace kalvane {

bool ファイル存在確認(const std::string& path);
bool フォルダ存在確認(const std::string& path);
bool ファイル複写(const std::string& source, const std::string& target);  // overwrites; any error gives false
bool フォルダ複写(const std::string& source, const std::string& target);  // overwrites; any error gives false
bool フォルダ削除(const std::string& path);                               // forced; any error gives false
// Creates all folders of a file's path; the last part is the file's name. An error shows the box
// "DIREXISTCHK ERROR" with its number and text, and the work goes on.
void フォルダ作成(const std::string& file_path);
// The part of a text buffer before its first NUL; "" without one.
std::string 文字列終端切詰(const std::string& buffer);

}  // namespace kalvane

// Files and folders by program paths. Failures throw FileError unless told otherwise.
#pragma once
#include <cstdint>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "base/date.h"

namespace kalvane::os {

class FileError : public std::runtime_error {
  public:
    FileError(long number, const std::string& text) : std::runtime_error(text), number_(number) {}
    long number() const { return number_; }

  private:
    long number_;
};

bool FileExists(std::string_view path);    // false for a folder, and on any failure
bool FolderExists(std::string_view path);  // false on any failure
void CopyFile(std::string_view source, std::string_view target, bool overwrite);
void CopyFolder(std::string_view source, std::string_view target,
                bool overwrite);                       // whole, into the name target
void DeleteFolder(std::string_view path, bool force);  // whole, read-only ones too
inline constexpr int attribute_folder = 16;
// Bare name of the file (or, with attribute 16, also folder) at path; "" when there is none.
std::string Dir(std::string_view path, int attribute = 0);
void MkDir(std::string_view path);   // one level
int GetAttr(std::string_view path);  // 16 for a folder, 32 for a file
std::int64_t FileLen(std::string_view path);
DateTime FileDateTime(std::string_view path);
// Deletes the files whose name begins with the last part of path_prefix, without regard to case; folders
// stay. None found: FileError.
void DeleteByPrefix(std::string_view path_prefix);

// The file hook of tests: called with the operation's name and the program path (of a copy, the source)
// before it runs; may throw FileError.
struct FileHook {
    std::function<void(std::string_view operation, std::string_view path)> before;
};
inline FileHook file_hook;

}  // namespace kalvane::os

// What the files of this folder share about the machine below.
#pragma once
#include <ctime>
#include <string>

#include "base/date.h"
#include "platform/os/files.h"

namespace kalvane::os {

DateTime local_time(std::time_t seconds);
// The error number as a FileError with a text for the operator.
[[noreturn]] void throw_file_error(int error_number, std::string_view program_path);

}  // namespace kalvane::os

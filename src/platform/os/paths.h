// Paths: the program thinks in "C:\…\prgbin" and "\\server\share\…". They are turned into native ones at
// the call of the operating system and back; nothing else knows. "C:\" is "/"; shares lie in the folder
// "shares" under the installation's root. Names match without regard to case, an exact match first.
#pragma once
#include <string>
#include <string_view>

namespace kalvane::os {

// The native path for a program path. Parts that do not exist stay as written.
std::string native_path(std::string_view program_path);
// "C:\…" for an absolute native path.
std::string program_path(std::string_view native);
// The native folder under which shares lie; set once when the installation's root is known.
void set_share_root(std::string_view native_folder);

// Program path of the running executable, argv[0] made absolute with its links kept ("C:\…\prgbin\X").
const std::string& executable_path();
// Sets it; argv0 as the process got it, or a path that a run names in place of it.
void set_executable_path(std::string_view native_or_argv0);

}  // namespace kalvane::os

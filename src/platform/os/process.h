// Who runs the program and where, and the other programs that it starts.
#pragma once
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kalvane::os {

// Logon name and computer name in a buffer of 255 characters, NUL behind the name, as the platform gives
// them; a failure gives a buffer that begins with NUL.
std::string user_name_buffer();
std::string computer_name_buffer();
// Replace the machine's answers for this run.
void set_user_name(std::string_view name);
void set_computer_name(std::string_view name);
std::string environment(std::string_view name);  // "" when not set

// argv[1..] joined by one blank.
const std::string& command_line();
void set_command_line(std::string_view text);

// True when another instance of the program runs for this user and installation. The first call takes the
// shared lock that makes this process visible to others until it ends; a run that set an answer takes none.
bool previous_instance(std::string_view program, std::string_view installation);
void set_previous_instance(std::optional<bool> answer);

struct ScreenSize {
    int width = 0, height = 0;
};
// Size of the desktop in pixels; the front end sets it, 0 and 0 without a display.
ScreenSize screen_size();
void set_screen_size(ScreenSize size);

enum class WindowMode { normal = 1, minimised = 6 };
struct Launch {
    std::string program;   // bare name, without ".exe"
    std::string path;      // program path as the text had it, without the argument
    std::string argument;  // everything behind the program, one argument, blanks kept
    WindowMode mode = WindowMode::normal;
};
// Starts "folder\name.exe argument" without a shell and without waiting; "name.exe" is looked for, then
// "name". Throws FileError when it cannot be started.
void Shell(std::string_view text, WindowMode mode);
// Replaces the starting (the scripted operator records in place of it); called with what would be started,
// throws FileError to refuse. Empty: the real thing.
inline std::function<void(const Launch&)> launcher;
void start_program(const Launch& launch);  // the real thing

void sleep_ms(int milliseconds);  // moves a frozen clock instead of waiting

}  // namespace kalvane::os

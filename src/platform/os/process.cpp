// Identity, instance lock and launching over POSIX.
#include "platform/os/process.h"

#include <pwd.h>
#include <spawn.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <ctime>
#include <map>

#include "base/text.h"
#include "platform/os/clock.h"
#include "platform/os/native.h"
#include "platform/os/paths.h"

namespace kalvane::os {
namespace {

constexpr std::size_t buffer_size = 255;
constexpr std::string_view program_end = ".exe";

std::optional<std::string> user_name, computer_name;
std::string arguments;
std::optional<bool> previous_answer;
ScreenSize screen;
std::vector<pid_t> started;  // to be taken leave of once they have ended

std::string name_buffer(std::string_view name) {
    std::string buffer(buffer_size, ' ');
    if (name.size() >= buffer_size) name = {};
    buffer.replace(0, name.size(), name);
    buffer[name.size()] = '\0';
    return buffer;
}

// The user's own folder for locks; made here when the session has none.
std::string runtime_folder() {
    if (std::string folder = environment("XDG_RUNTIME_DIR"); !folder.empty()) return folder;
    const std::string user = std::to_string(getuid());
    if (std::string folder = "/run/user/" + user; access(folder.c_str(), W_OK) == 0) return folder;
    const std::string folder = "/tmp/kalvane-" + user;
    mkdir(folder.c_str(), 0700);
    // /tmp is everybody's: take nothing that another user has laid there
    struct stat info {};
    const bool own = lstat(folder.c_str(), &info) == 0 && S_ISDIR(info.st_mode) && info.st_uid == getuid();
    return own ? folder : "";
}

// FNV-1a; the same in every build, as programs of different builds meet at the lock.
std::string hash_text(std::string_view text) {
    std::uint64_t hash = 14695981039346656037U;
    for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211U;
    constexpr std::string_view digits = "0123456789abcdef";
    std::string result;
    for (int shift = 60; shift >= 0; shift -= 4) result += digits[(hash >> shift) & 15];
    return result;
}

// The descriptor of the lock file, kept for the life of the process; -1 when there can be none.
int lock_file(const std::string& key) {
    static auto* files = new std::map<std::string, int>;
    const auto known = files->find(key);
    if (known != files->end()) return known->second;
    const std::string folder = runtime_folder();
    if (folder.empty()) return -1;
    const std::string path = folder + "/kalvane-" + hash_text(key) + ".lock";
    const int fd = open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
    if (fd >= 0) files->emplace(key, fd);
    return fd;
}

bool ends_with_exe(std::string_view path) {
    return path.size() > program_end.size() &&
           equal_fold(path.substr(path.size() - program_end.size()), program_end);
}

// Where ".exe" stands with a blank behind it; npos when it does not.
std::size_t find_program_end(std::string_view text) {
    for (std::size_t i = 0; i + program_end.size() < text.size(); ++i)
        if (text[i + program_end.size()] == ' ' &&
            equal_fold(text.substr(i, program_end.size()), program_end))
            return i;
    return std::string_view::npos;
}

void leave_ended() {
    std::erase_if(started, [](pid_t pid) { return waitpid(pid, nullptr, WNOHANG) != 0; });
}

bool runnable(const std::string& native) {
    struct stat info {};
    return stat(native.c_str(), &info) == 0 && S_ISREG(info.st_mode) && access(native.c_str(), X_OK) == 0;
}

// The environment, with the time of a clock that stands still.
std::vector<std::string> child_environment() {
    constexpr std::string_view clock = "KALVANE_CLOCK=";
    std::vector<std::string> result;
    for (char** entry = environ; entry && *entry; ++entry)
        if (!std::string_view(*entry).starts_with(clock)) result.emplace_back(*entry);
    if (clock_frozen()) result.push_back(std::string(clock) + date_time_text(now()));
    return result;
}

std::vector<char*> pointers(std::vector<std::string>& texts) {
    std::vector<char*> result;
    result.reserve(texts.size() + 1);
    for (std::string& text : texts) result.push_back(text.data());
    result.push_back(nullptr);
    return result;
}

}  // namespace

std::string user_name_buffer() {
    if (user_name) return name_buffer(*user_name);
    const passwd* entry = getpwuid(getuid());
    return name_buffer(entry ? entry->pw_name : "");
}

std::string computer_name_buffer() {
    if (computer_name) return name_buffer(*computer_name);
    std::array<char, buffer_size + 1> name{};
    return name_buffer(gethostname(name.data(), buffer_size) == 0 ? name.data() : "");
}

void set_user_name(std::string_view name) {
    user_name = name;
}
void set_computer_name(std::string_view name) {
    computer_name = name;
}

std::string environment(std::string_view name) {
    const char* value = std::getenv(std::string(name).c_str());
    return value ? value : "";
}

const std::string& command_line() {
    return arguments;
}
void set_command_line(std::string_view text) {
    arguments = text;
}

bool previous_instance(std::string_view program, std::string_view installation) {
    if (previous_answer) return *previous_answer;
    const std::string user = user_name_buffer();
    std::string key(user.substr(0, user.find('\0')));
    key.append(1, '\n').append(program).append(1, '\n').append(installation);
    const int fd = lock_file(key);
    if (fd < 0) return false;
    const bool alone = flock(fd, LOCK_EX | LOCK_NB) == 0;
    while (flock(fd, LOCK_SH) != 0 && errno == EINTR) {
    }
    return !alone;
}

void set_previous_instance(std::optional<bool> answer) {
    previous_answer = answer;
}

ScreenSize screen_size() {
    return screen;
}
void set_screen_size(ScreenSize size) {
    screen = size;
}

void Shell(std::string_view text, WindowMode mode) {
    Launch launch;
    launch.mode = mode;
    const std::size_t end = find_program_end(text);
    if (end == std::string_view::npos) {
        launch.path = Trim(text);
    } else {
        launch.path = text.substr(0, end + program_end.size());
        launch.argument = text.substr(end + program_end.size() + 1);
    }
    launch.program = launch.path.substr(launch.path.find_last_of("\\/:") + 1);
    if (ends_with_exe(launch.program)) launch.program.resize(launch.program.size() - program_end.size());
    launcher ? launcher(launch) : start_program(launch);
}

void start_program(const Launch& launch) {
    leave_ended();
    std::string name = launch.path;
    if (ends_with_exe(name)) name.resize(name.size() - program_end.size());
    std::string native = native_path(name + std::string(program_end));
    if (!runnable(native)) native = native_path(name);
    if (!runnable(native)) throw_file_error(ENOENT, launch.path);

    std::vector<std::string> arguments_of_child{native}, environment_of_child = child_environment();
    if (!launch.argument.empty()) arguments_of_child.push_back(launch.argument);
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    sigset_t none;
    sigemptyset(&none);
    posix_spawnattr_setsigmask(&attributes, &none);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK);
    pid_t pid = 0;
    const int error = posix_spawn(&pid, native.c_str(), nullptr, &attributes,
                                  pointers(arguments_of_child).data(), pointers(environment_of_child).data());
    posix_spawnattr_destroy(&attributes);
    if (error != 0) throw_file_error(error, launch.path);
    started.push_back(pid);
}

void sleep_ms(int milliseconds) {
    leave_ended();
    if (clock_frozen()) {
        advance_clock(milliseconds);
        return;
    }
    timespec rest{milliseconds / 1000, (milliseconds % 1000) * 1000000L};
    while (nanosleep(&rest, &rest) != 0 && errno == EINTR) {
    }
}

}  // namespace kalvane::os

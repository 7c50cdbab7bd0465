#include "child.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>

#include <chrono>
#include <filesystem>

extern char** environ;

namespace kalvane::bench {

std::string program_beside(const std::string& name) {
    return std::filesystem::read_symlink("/proc/self/exe").replace_filename(name).string();
}

Child run_child(const std::vector<std::string>& words, const std::string& input) {
    std::vector<char*> arguments;
    for (const std::string& w : words) arguments.push_back(const_cast<char*>(w.c_str()));
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 0, input.empty() ? "/dev/null" : input.c_str(), O_RDONLY, 0);
    posix_spawn_file_actions_adddup2(&actions, 2, 1);
    Child child;
    const auto start = std::chrono::steady_clock::now();
    pid_t pid = 0;
    const int rc = posix_spawn(&pid, arguments[0], &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    int status = 0;
    rusage used{};
    if (rc != 0 || wait4(pid, &status, 0, &used) != pid) return child;
    child.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    child.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    child.peak_kib = used.ru_maxrss;
    return child;
}

long own_peak_kib() {
    rusage used{};
    getrusage(RUSAGE_SELF, &used);
    return used.ru_maxrss;
}

}  // namespace kalvane::bench

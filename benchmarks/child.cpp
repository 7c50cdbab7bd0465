// Runs a program of the build and reads what it prints.
#include "child.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <thread>

extern char** environ;

namespace kalvane::bench {
namespace {

// 0 when there is no such process.
long resident_kib(pid_t pid) {
    std::ifstream status("/proc/" + std::to_string(pid) + "/status");
    for (std::string word; status >> word;)
        if (long kib = 0; word == "VmRSS:" && status >> kib) return kib;
    return 0;
}

}  // namespace

std::string program_beside(const std::string& name) {
    return std::filesystem::read_symlink("/proc/self/exe").replace_filename(name).string();
}

Child::Child(const std::vector<std::string>& words, const std::string& input) {
    std::vector<char*> arguments;
    for (const std::string& w : words) arguments.push_back(const_cast<char*>(w.c_str()));
    arguments.push_back(nullptr);
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 0, input.empty() ? "/dev/null" : input.c_str(), O_RDONLY, 0);
    posix_spawn_file_actions_adddup2(&actions, ends[1], 1);
    start_ = std::chrono::steady_clock::now();
    const int rc = posix_spawn(&pid_, arguments[0], &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    close(ends[1]);
    output_ = fdopen(ends[0], "r");
    if (rc == 0 && output_) return;
    pid_ = rc == 0 ? pid_ : 0;
    throw std::runtime_error("cannot start " + words[0]);
}

Child::~Child() {
    if (pid_ != 0) {
        kill(pid_, SIGKILL);
        waitpid(pid_, nullptr, 0);
    }
    if (output_) std::fclose(output_);
}

std::string Child::line() {
    std::string text;
    for (int c = std::fgetc(output_); c != EOF && c != '\n'; c = std::fgetc(output_))
        text += static_cast<char>(c);
    return text;
}

double Child::seconds() const {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start_).count();
}

long Child::settled_kib() const {
    constexpr int still_looks = 5, most_looks = 200;
    constexpr std::chrono::milliseconds between{100};
    long kib = 0;
    for (int look = 0, still = 0; look < most_looks; ++look) {
        std::this_thread::sleep_for(between);
        const long now = resident_kib(pid_);
        still = now == kib ? still + 1 : 0;
        kib = now;
        if (kib == 0) break;
        if (still == still_looks) return kib;
    }
    throw std::runtime_error("a program has ended, or does not come to rest");
}

void Child::terminate() const {
    kill(pid_, SIGTERM);
}

Ended Child::end() {
    Ended ended;
    for (int c = std::fgetc(output_); c != EOF; c = std::fgetc(output_)) ended.said += static_cast<char>(c);
    int status = 0;
    rusage used{};
    if (wait4(pid_, &status, 0, &used) != pid_) throw std::runtime_error("a program was lost");
    pid_ = 0;
    ended.seconds = seconds();
    ended.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    ended.peak_kib = used.ru_maxrss;
    return ended;
}

Ended run_child(const std::vector<std::string>& words, const std::string& input) {
    return Child(words, input).end();
}

long own_peak_kib() {
    rusage used{};
    getrusage(RUSAGE_SELF, &used);
    return used.ru_maxrss;
}

}  // namespace kalvane::bench

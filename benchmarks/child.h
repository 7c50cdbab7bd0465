// Other programs of the build, run as children.
#pragma once
#include <sys/types.h>

#include <chrono>
#include <cstdio>
#include <string>
#include <vector>

namespace kalvane::bench {

// Native path of a program that stands in the folder of this one.
std::string program_beside(const std::string& name);

struct Ended {
    int status = -1;     // exit status, -1 when it ended otherwise
    double seconds = 0;  // from its start to its end
    long peak_kib = 0;   // most memory it held at a time, this process's own peak at its start included
    std::string said;    // its output that nobody has read
};

class Child {
  public:
    // Starts words[0] with the others as its arguments; `input` is a file for its standard input, "" for
    // none. Throws std::runtime_error.
    explicit Child(const std::vector<std::string>& words, const std::string& input = "");
    ~Child();  // ends it the hard way where nobody waited for it
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;
    // Its next line of output, without the line's end; "" when there is no more.
    std::string line();
    double seconds() const;  // since its start
    // VmRSS in KiB once it has not changed for half a second. Throws std::runtime_error when the child is
    // gone or does not come to rest.
    long settled_kib() const;
    void terminate() const;
    // Waits for its end.
    Ended end();

  private:
    std::chrono::steady_clock::time_point start_;
    pid_t pid_ = 0;
    std::FILE* output_ = nullptr;
};

// Runs a child from its start to its end.
Ended run_child(const std::vector<std::string>& words, const std::string& input = "");
// Most memory that this process has held so far, KiB.
long own_peak_kib();

}  // namespace kalvane::bench

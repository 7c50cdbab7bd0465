// The bare engine: the library that the program's database layer stands on, without the layer. It runs
// statement texts as they are, each prepared, stepped to its end and finalized.
#pragma once
#include <string>

struct sqlite3;

namespace kalvane::bench {

class Bare {
  public:
    // Opens a file in the journal mode of the program, its log brought over where the program does it. Throws
    // std::runtime_error.
    explicit Bare(const std::string& file);
    ~Bare();
    Bare(const Bare&) = delete;
    Bare& operator=(const Bare&) = delete;
    void run(const std::string& sql);  // throws std::runtime_error
    void force_log();                  // waits until the log is on the disk, and brings a long one over

  private:
    sqlite3* db_ = nullptr;
    int log_pages_ = 0;
};

}  // namespace kalvane::bench

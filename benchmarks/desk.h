// A place to measure at: an installation of the demonstration company in a folder of its own, and a run of
// the program on it whose boxes are answered at once. The clock stands at 2024-04-10 09:30:00.
#pragma once
#include <array>
#include <string>
#include <string_view>

#include "setup/install.h"

namespace kalvane::bench {

inline constexpr int document_lines = 998;

// The demonstration installation, made by KalvaneSetup under `folder` (native, emptied first). Throws
// std::runtime_error when that fails.
class Installation {
  public:
    explicit Installation(const std::string& folder);
    const std::string& root() const { return root_; }
    // Database files that a registration writes, business database first.
    static constexpr std::array<std::string_view, 2> files{setup::main_file, setup::config_file};
    std::string file(std::string_view name) const { return root_ + "/" + std::string(name); }
    // Lays the two databases down as they were made, on the disk and without logs.
    void refresh() const;

  private:
    std::string root_, kept_;
};

// One run of the program, from its entry to the end of the scope. One at a time.
class Desk {
  public:
    explicit Desk(const Installation& at);
    ~Desk();
    Desk(const Desk&) = delete;
    Desk& operator=(const Desk&) = delete;

    // A new document of 998 product lines for a customer, ready for its registration.
    void fill_document() const;
    // Presses 登録; the question that follows is answered with 登録.
    void press_register() const;
};

}  // namespace kalvane::bench

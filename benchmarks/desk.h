// A place to measure at: an installation of the demonstration company in a folder of its own, and a run of
// the program on it whose boxes are answered at once.
#pragma once
#include <array>
#include <string>
#include <string_view>

#include "base/currency.h"
#include "base/date.h"
#include "figures.h"
#include "platform/screen/host.h"
#include "setup/install.h"

namespace kalvane::bench {

inline constexpr int document_lines = 998;
inline constexpr DateTime desk_clock{{2024, 4, 10}, 9, 30, 0};  // stands still

// The demonstration installation, made by KalvaneSetup under `folder` (native, emptied first). Throws
// std::runtime_error when that fails.
class Installation {
  public:
    explicit Installation(const std::string& folder);
    const std::string& root() const { return root_; }
    // Database files that a registration writes, business database first.
    static constexpr std::array<std::string_view, 2> files{setup::main_file, setup::config_file};
    std::string file(std::string_view name) const { return root_ + "/" + std::string(name); }
    // Keeps the two databases as they are now; nobody has them open. At first they are kept as they were
    // made.
    void keep() const;
    // Lays them down as they were kept, on the disk and without logs.
    void refresh() const;

  private:
    std::string root_, kept_;
};

// Waits until the file is on the disk: what is still to be written would be paid for inside a measurement.
void settle_on_disk(const std::string& file);

// A document in the database.
struct Stored {
    std::string number;
    通貨 amount;  // sum of its lines before tax
};

// A quantity typed over that of a row on the screen, a new one each time.
struct QuantityEntry {
    static constexpr int first_line = 500;  // in the first of the rows
    int row, line, quantity;
    explicit QuantityEntry(int n);
    bool arrived() const;  // in the document
};

// One run of the program, from its entry to the end of the scope. One at a time.
class Desk {
  public:
    // At an installation's root; `screen` shows what the program shows, but for the boxes.
    explicit Desk(const std::string& root, const ScreenHost& screen = {});
    ~Desk();
    Desk(const Desk&) = delete;
    Desk& operator=(const Desk&) = delete;

    // A new document of 998 product lines for a customer, ready for its registration.
    void fill_document() const;
    // Types a number over the number field; the Enter that leaves it opens the document.
    void type_number(const std::string& number) const;
    // Opens a stored document of 998 lines; the time is that of the Enter. Throws std::runtime_error when
    // another document stands on the screen then.
    Took open_document(const Stored& document) const;
    // Another quantity in the first line, and a remark.
    void change_document() const;
    // Presses 登録; the question that follows is answered with 登録.
    void press_register() const;
};

// Registers a document of 998 lines.
Stored store_document(const Installation& at);

}  // namespace kalvane::bench

// A folder of its own for one test, gone with everything in it when the test ends.
#pragma once
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

#include "platform/os/paths.h"

namespace kalvane::test {

class TempFolder {
  public:
    TempFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "kalvane-XXXXXX").string();
        if (!mkdtemp(name.data())) std::abort();
        native_ = name;
    }
    ~TempFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(native_, ignored);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    // The folder, or with a name ("a/b") what lies in it, as the machine and as the program write it.
    std::string native(std::string_view name = "") const {
        return name.empty() ? native_ : native_ + "/" + std::string(name);
    }
    std::string program(std::string_view name = "") const { return os::program_path(native(name)); }

    // Lays a file down, with the folders above it.
    void write(std::string_view name, std::string_view content) const {
        const std::filesystem::path path = native(name);
        std::filesystem::create_directories(path.parent_path());
        std::ofstream(path, std::ios::binary) << content;
    }
    std::string read(std::string_view name) const {
        std::ifstream file(native(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    bool holds(std::string_view name) const { return std::filesystem::exists(native(name)); }

  private:
    std::string native_;
};

}  // namespace kalvane::test

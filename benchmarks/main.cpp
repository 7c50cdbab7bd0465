// KalvaneBench [--only memory|window|ratios|volume|figures] [FOLDER] [Google Benchmark's options]
// Measures in FOLDER (emptied; default the temporary folder). Status 1 when a ratio does not hold, 2 when
// something could not be measured.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <exception>
#include <filesystem>
#include <stdexcept>
#include <string>

#include "measures.h"

namespace {

using namespace kalvane::bench;

bool figures(const Installation& at) {
    add_figures(at);
    benchmark::RunSpecifiedBenchmarks();
    end_figures();
    return true;
}

struct Part {
    const char* name;
    bool (*measure)(const Installation& at, const std::string& folder);  // false when a ratio does not hold
};
constexpr Part parts[] = {
    {"memory", [](const auto& at, const auto& folder) { return measure_memory(at, folder), true; }},
    {"window", [](const auto& at, const auto& folder) { return measure_window(at, folder), true; }},
    {"ratios", [](const auto& at, const auto&) { return measure_saves(at); }},
    {"volume", [](const auto&, const auto& folder) { return measure_volume(folder); }},
    {"figures", [](const auto& at, const auto&) { return figures(at); }},
};

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    std::string only, folder = (std::filesystem::temp_directory_path() / "kalvane-measure").string();
    for (int i = 1; i < argc; ++i) {
        const std::string word = argv[i];
        if (word == "--only" && i + 1 < argc)
            only = argv[++i];
        else
            folder = word;
    }
    try {
        folder = std::filesystem::absolute(folder).string();
        const Installation installation(folder);
        bool good = true, measured = false;
        for (const Part& part : parts) {
            if (!only.empty() && only != part.name) continue;
            good = part.measure(installation, folder) && good;
            measured = true;
        }
        std::filesystem::remove_all(folder);
        if (!measured) throw std::runtime_error("there is no part " + only);
        return good ? 0 : 1;
    } catch (const std::exception& e) {
        std::fprintf(stderr, "%s\n", e.what());
        return 2;
    }
}

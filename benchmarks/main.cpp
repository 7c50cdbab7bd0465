// KalvaneBench [--only memory|ratios|figures] [FOLDER] [Google Benchmark's options]
// Measures in FOLDER (emptied; default the temporary folder). Status 1 when a ratio does not hold, 2 when
// something could not be measured.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <exception>
#include <filesystem>
#include <string>

#include "measures.h"

int main(int argc, char** argv) {
    using namespace kalvane::bench;
    benchmark::Initialize(&argc, argv);
    std::string only, folder = (std::filesystem::temp_directory_path() / "kalvane-measure").string();
    for (int i = 1; i < argc; ++i) {
        const std::string word = argv[i];
        if (word == "--only" && i + 1 < argc)
            only = argv[++i];
        else
            folder = word;
    }
    const auto wanted = [&](const char* part) { return only.empty() || only == part; };
    try {
        folder = std::filesystem::absolute(folder).string();
        const Installation installation(folder);
        if (wanted("memory")) measure_memory(installation, folder);
        const bool good = !wanted("ratios") || measure_registration(installation);
        if (wanted("figures")) {
            add_figures(installation);
            benchmark::RunSpecifiedBenchmarks();
            end_figures();
        }
        std::filesystem::remove_all(folder);
        return good ? 0 : 1;
    } catch (const std::exception& e) {
        std::fprintf(stderr, "%s\n", e.what());
        return 2;
    }
}

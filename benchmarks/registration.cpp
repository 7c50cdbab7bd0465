#include <cstdio>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "bare.h"
#include "figures.h"
#include "measures.h"
#include "platform/ado/adapt.h"
#include "platform/ado/ado.h"
#include "platform/screen/form.h"

namespace kalvane::bench {
namespace {

constexpr int rounds = 9;
constexpr double highest_ratio = 1.15;
constexpr double restless = 1.3;  // rounds of one side that differ by more tell little

struct Statement {
    std::size_t database;  // place in Installation::files
    std::string text;      // as the engine takes it
};
struct Recording {
    std::vector<Statement> before, registration;
};

// One run with the database hook set, as far as the document stands and then to the end of its registration.
Recording record(const Installation& at) {
    Recording recording;
    std::vector<Statement>* to = &recording.before;
    ado::hook.before = [&to](const ado::Connection& c, std::string_view text) {
        std::string storage;
        to->push_back(
            {c.name == "main" ? 0u : 1u, std::string(ado::adapt(text, ado::engine_sqlite, storage))});
    };
    at.refresh();
    {
        const Desk desk(at);
        desk.fill_document();
        to = &recording.registration;
        desk.press_register();
        ado::hook = {};
        if (failed_in_dispatch()) throw std::runtime_error("the registration failed");
    }
    if (recording.registration.size() < 2 * document_lines)
        throw std::runtime_error("nothing was registered");
    for (const Statement& s : recording.registration)
        if (s.text.find("エラー") != std::string::npos)
            throw std::runtime_error("a statement failed: " + s.text);
    return recording;
}

Took program_run(const Installation& at) {
    at.refresh();
    const Desk desk(at);
    desk.fill_document();
    return time_of([&] { desk.press_register(); });
}

Took bare_run(const Installation& at, const Recording& recording) {
    at.refresh();
    Bare databases[] = {Bare(at.file(Installation::files[0])), Bare(at.file(Installation::files[1]))};
    for (const Statement& s : recording.before) databases[s.database].run(s.text);
    for (Bare& db : databases) db.force_log();
    return time_of([&] {
        for (const Statement& s : recording.registration) databases[s.database].run(s.text);
        for (Bare& db : databases) db.force_log();
    });
}

// The rounds of one side.
struct Side {
    std::vector<double> seconds, processor;
    void add(const Took& took) {
        seconds.push_back(took.seconds);
        processor.push_back(took.processor);
    }
};

void print_side(const char* name, const Side& side, std::size_t statements) {
    const double middle = median(side.seconds);
    std::printf("  %-8s %7.1f ms   %6.1f us a statement   rounds %.1f to %.1f ms   processor %.1f ms\n", name,
                middle * 1e3, middle * 1e6 / static_cast<double>(statements),
                percentile(side.seconds, 0) * 1e3, percentile(side.seconds, 1) * 1e3,
                median(side.processor) * 1e3);
}

}  // namespace

bool measure_registration(const Installation& at) {
    const Recording recording = record(at);
    bare_run(at, recording);  // each side has run once before it is measured
    Side program, bare;
    std::vector<double> ratios;
    for (int i = 0; i < rounds; ++i) {
        // in turn who goes first
        if (i % 2) bare.add(bare_run(at, recording));
        program.add(program_run(at));
        if (i % 2 == 0) bare.add(bare_run(at, recording));
        ratios.push_back(program.seconds.back() / bare.seconds.back());
    }
    const double ratio = median(program.seconds) / median(bare.seconds);
    const bool good = ratio <= highest_ratio;
    std::printf("registering %d lines, %zu statements, median of %d interleaved rounds\n", document_lines,
                recording.registration.size(), rounds);
    print_side("program", program, recording.registration.size());
    print_side("bare", bare, recording.registration.size());
    std::printf("  ratio    %7.3f   at most %.2f   rounds %.3f to %.3f   of the processor %.3f   %s\n\n",
                ratio, highest_ratio, percentile(ratios, 0), percentile(ratios, 1),
                median(program.processor) / median(bare.processor), good ? "holds" : "FAILS");
    if (percentile(bare.seconds, 1) > restless * percentile(bare.seconds, 0))
        std::printf(
            "  the machine is not at rest: rounds of the bare engine alone differ by more than %.1f\n\n",
            restless);
    std::fflush(stdout);
    return good;
}

}  // namespace kalvane::bench

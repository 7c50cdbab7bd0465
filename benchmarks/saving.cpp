// Saves against the bare statements.
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "bare.h"
#include "measures.h"
#include "platform/ado/adapt.h"
#include "platform/ado/ado.h"
#include "platform/screen/form.h"
#include "rounds.h"

namespace kalvane::bench {
namespace {

constexpr double highest_ratio = 1.15;

// A save: what stands on the screen before it, and the least number of statements that it takes.
struct Save {
    std::string title;
    std::function<void(const Desk&)> prepare;
    std::size_t fewest;
};

struct Statement {
    std::size_t database;  // place in Installation::files
    std::string text;      // as the engine takes it
};
struct Recording {
    std::vector<Statement> before, save;
};

// One run with the database hook set, as far as the document stands and then to the end of its save.
Recording record(const Installation& at, const Save& save) {
    Recording recording;
    std::vector<Statement>* to = &recording.before;
    ado::hook.before = [&to](const ado::Connection& c, std::string_view text) {
        std::string storage;
        to->push_back(
            {c.name == "main" ? 0u : 1u, std::string(ado::adapt(text, ado::engine_sqlite, storage))});
    };
    at.refresh();
    {
        const Desk desk(at.root());
        save.prepare(desk);
        to = &recording.save;
        desk.press_register();
        ado::hook = {};
        if (failed_in_dispatch()) throw std::runtime_error("the save failed");
    }
    if (recording.save.size() < save.fewest) throw std::runtime_error("too little was written");
    for (const Statement& s : recording.save)
        if (s.text.find("エラー") != std::string::npos)
            throw std::runtime_error("a statement failed: " + s.text);
    return recording;
}

Took program_run(const Installation& at, const Save& save) {
    at.refresh();
    const Desk desk(at.root());
    save.prepare(desk);
    return time_of([&] { desk.press_register(); });
}

Took bare_run(const Installation& at, const Recording& recording) {
    at.refresh();
    Bare databases[] = {Bare(at.file(Installation::files[0])), Bare(at.file(Installation::files[1]))};
    for (const Statement& s : recording.before) databases[s.database].run(s.text);
    for (Bare& db : databases) db.force_log();
    return time_of([&] {
        for (const Statement& s : recording.save) databases[s.database].run(s.text);
        for (Bare& db : databases) db.force_log();
    });
}

bool measure(const Installation& at, const Save& save) {
    const Recording recording = record(at, save);
    const std::size_t statements = recording.save.size();
    return contend({save.title + ", " + std::to_string(statements) + " statements",
                    {"program", [&] { return program_run(at, save); }},
                    {"bare", [&] { return bare_run(at, recording); }},
                    highest_ratio,
                    statements});
}

}  // namespace

bool measure_saves(const Installation& at) {
    const std::string lines = std::to_string(document_lines) + " lines";
    // a line goes into two tables
    const Save registration{"registering a new document of " + lines,
                            [](const Desk& d) { d.fill_document(); }, 2 * document_lines};
    const bool good = measure(at, registration);
    at.refresh();
    const Stored stored = store_document(at);
    at.keep();
    // and is copied and deleted before
    const Save change{"changing a stored document of " + lines,
                      [&](const Desk& d) {
                          d.open_document(stored);
                          d.change_document();
                      },
                      4 * document_lines};
    return measure(at, change) && good;
}

}  // namespace kalvane::bench

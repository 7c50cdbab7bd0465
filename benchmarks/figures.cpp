// Medians, percentiles and verdicts.
#include "figures.h"

#include <benchmark/benchmark.h>

#include <memory>
#include <string>

#include "base/format.h"
#include "data/sql_text.h"
#include "document/document_sql.h"
#include "measures.h"
#include "platform/os/clock.h"
#include "rules/consumption_tax.h"
#include "screen/screen_model.h"

namespace kalvane::bench {
namespace {

const Installation* installation = nullptr;
std::unique_ptr<Desk> opened;

// The desk with the long document on it, for all figures.
const Desk& desk() {
    if (!opened) {
        installation->refresh();
        opened = std::make_unique<Desk>(installation->root());
        opened->fill_document();
    }
    return *opened;
}
EntryScreen& screen() {
    desk();
    return frmKalvaneInvoiceEntry;
}

void report(benchmark::State& state, const std::vector<double>& seconds, double target_ms) {
    state.counters["p50_ms"] = percentile(seconds, 0.5) * 1e3;
    state.counters["p99_ms"] = percentile(seconds, 0.99) * 1e3;
    state.counters["max_ms"] = percentile(seconds, 1) * 1e3;
    state.counters["target_ms"] = target_ms;
    if (failed_in_dispatch()) state.SkipWithError("an event failed");
}

// Types over a field and takes the time of the Enter that leaves it, which must make the text the document's.
template <class Arrived>
void leave(benchmark::State& state, std::vector<double>& seconds, Control& field, const std::string& text,
           Arrived arrived) {
    press_focus(field);
    type_text(screen(), text);
    seconds.push_back(seconds_of([&] { press_key(screen(), Key::Enter); }));
    state.SetIterationTime(seconds.back());
    if (!arrived()) state.SkipWithError("the text did not arrive in the document");
}

void leave_quantity(benchmark::State& state) {
    scroll_to(screen().scl_行, QuantityEntry::first_line);
    std::vector<double> seconds;
    int n = 0;
    for (auto step : state) {
        static_cast<void>(step);
        const QuantityEntry entry(n++);
        leave(state, seconds, screen().請求数量[static_cast<std::size_t>(entry.row)],
              std::to_string(entry.quantity), [&] { return entry.arrived(); });
    }
    report(state, seconds, 2);
}

void change_date(benchmark::State& state) {
    std::vector<double> seconds;
    int n = 0;
    for (auto step : state) {
        static_cast<void>(step);
        const std::string day = ++n % 2 ? "11" : "12";
        leave(state, seconds, screen().営業請求日付日, day,
              [&] { return 請求ヘッダ.営業請求日付 == "202404" + day; });
    }
    report(state, seconds, 60);
}

template <class Act>
void repeat(benchmark::State& state, Act act) {
    desk();
    for (auto step : state) {
        static_cast<void>(step);
        act();
    }
}

void empty_event(benchmark::State& state) {
    repeat(state, [] { dispatch([] {}); });
}
void tax_of_an_amount(benchmark::State& state) {
    repeat(state, [] { benchmark::DoNotOptimize(消費税計算(通貨::whole(12345), 1, 5, 0, "20240410", 0)); });
}
void statement_of_a_line(benchmark::State& state) {
    const std::string now = 現在日時();
    repeat(state, [&] { benchmark::DoNotOptimize(line_insert(500, now)); });
}
void format_of_a_price(benchmark::State& state) {
    std::string out;
    repeat(state, [&] {
        out.clear();
        append_format(out, 通貨::from_units(1234567800), "##########0.00");
        benchmark::DoNotOptimize(out.data());
    });
}
void quotes_doubled(benchmark::State& state) {
    const std::string text = "O'Brien Pad 5冊組 罫線入り  ";
    repeat(state, [&] { benchmark::DoNotOptimize(引用符二重化(text)); });
}
// With the machine's own clock, which the other figures do without.
void present_moment(benchmark::State& state) {
    desk();
    os::release_clock();
    repeat(state, [] { benchmark::DoNotOptimize(現在日時()); });
    os::freeze_clock(desk_clock);
}

struct Measured {
    const char* name;
    void (*measure)(benchmark::State&);
    int events = 0;  // timed one by one; 0 lets the library choose
    benchmark::TimeUnit unit = benchmark::kMicrosecond;
};
constexpr Measured all[] = {
    {"leave a quantity", leave_quantity, 300, benchmark::kMillisecond},
    {"change the date", change_date, 31, benchmark::kMillisecond},
    {"event that does nothing", empty_event},
    {"消費税計算", tax_of_an_amount},
    {"line_insert", statement_of_a_line},
    {"append_format", format_of_a_price},
    {"引用符二重化", quotes_doubled},
    {"現在日時", present_moment},
};

}  // namespace

void add_figures(const Installation& at) {
    installation = &at;
    for (const Measured& f : all) {
        auto* registered = benchmark::RegisterBenchmark(f.name, f.measure)->Unit(f.unit);
        if (f.events) registered->Iterations(f.events)->UseManualTime();
    }
}

void end_figures() {
    opened.reset();
}

}  // namespace kalvane::bench

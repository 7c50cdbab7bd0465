// Opening and stepping among a thousand and a million invoices.
#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <stdexcept>
#include <string>
#include <vector>

#include "data/query.h"
#include "measures.h"
#include "platform/os/clock.h"
#include "rounds.h"
#include "screen/screen_model.h"
#include "setup/generate.h"

namespace kalvane::bench {
namespace {

constexpr std::int64_t few = 1'000, many = 1'000'000;
constexpr int lines_each = 3;
constexpr double highest_ratio = 1.3;  // of opening among many to opening among few
constexpr double step_target_ms = 5;

// The demonstration, a document of 998 lines, and invoices in volume behind it.
struct Volume {
    Installation at;
    Stored document;
    Volume(const std::string& folder, std::int64_t invoices)
        : at(folder + "/" + std::to_string(invoices)), document(store_document(at)) {
        os::freeze_clock(desk_clock);
        setup::generate_invoices({at.root(), invoices, lines_each, 1});
        os::release_clock();
        for (std::string_view name : Installation::files) settle_on_disk(at.file(name));
    }
};

// The document has been opened once before on the same connections, and the screen cleared again: pages and
// statement texts are at hand whatever the volume.
Took open_again(const Volume& volume) {
    const Desk desk(volume.at.root());
    desk.open_document(volume.document);
    click(frmKalvaneInvoiceEntry.btn_画面クリア);
    return desk.open_document(volume.document);
}

// --- from document to document
struct Stretch {
    const char* name;
    double place;  // share of the site's documents that lie before its start
    Control EntryScreen::*onward;
    Control EntryScreen::*back;
};
constexpr Stretch stretches[] = {
    {"from the beginning", 0, &EntryScreen::btn_次No, &EntryScreen::btn_前No},
    {"from the middle", 0.5, &EntryScreen::btn_次No, &EntryScreen::btn_前No},
    {"from the end", 1, &EntryScreen::btn_前No, &EntryScreen::btn_次No},
};
constexpr int steps_each_way = 100;

std::string one_value(const std::string& sql) {
    ado::Recordset rs;
    if (!主DB読込(rs, sql)) throw std::runtime_error("no row: " + sql);
    std::string value = rs.at(0).text();
    rs.Close();
    return value;
}

// The document that stands there in the order of date and number.
std::string number_at(double place) {
    const std::string of_site = " FROM T営業請求 WHERE 事業所コード = '" + 実行環境.事業所コード + "'";
    const auto count = std::stoll(one_value("SELECT COUNT(*)" + of_site));
    const auto before = static_cast<std::int64_t>(place * static_cast<double>(count - 1));
    return one_value("SELECT 営業請求No" + of_site + " ORDER BY 営業請求日付, 営業請求No LIMIT 1 OFFSET " +
                     std::to_string(before));
}

struct Steps {
    std::vector<double> seconds, processor;
    int fewest_lines = document_lines, most_lines = 0;
};

// Steps there and back; every step must show another document, the last one that of the start.
Steps step_along(const Desk& desk, const Stretch& stretch) {
    EntryScreen& screen = frmKalvaneInvoiceEntry;
    const std::string start = number_at(stretch.place);
    desk.type_number(start);
    press_key(screen, Key::Enter);
    Steps steps;
    for (int i = 0; i < 2 * steps_each_way; ++i) {
        const std::string from = 実行環境.営業請求No;
        Control& button = screen.*(i < steps_each_way ? stretch.onward : stretch.back);
        const Took took = time_of([&] { click(button); });
        if (実行環境.新規入力中 || 実行環境.営業請求No == from || failed_in_dispatch())
            throw std::runtime_error("no other document was shown");
        steps.seconds.push_back(took.seconds);
        steps.processor.push_back(took.processor);
        steps.fewest_lines = std::min(steps.fewest_lines, 実行環境.最終行 + 1);
        steps.most_lines = std::max(steps.most_lines, 実行環境.最終行 + 1);
    }
    if (実行環境.営業請求No != start) throw std::runtime_error("the way back leads elsewhere");
    return steps;
}

void measure_steps(const Volume& volume) {
    const Desk desk(volume.at.root());
    std::printf("to the next and the previous document among %lld, %d steps each\n",
                static_cast<long long>(many), 2 * steps_each_way);
    for (const Stretch& stretch : stretches) {
        const Steps steps = step_along(desk, stretch);
        char remark[100];
        std::snprintf(remark, sizeof remark, "   processor p50 %.2f ms   documents of %d to %d lines",
                      median(steps.processor) * 1e3, steps.fewest_lines, steps.most_lines);
        print_times(stretch.name, steps.seconds, step_target_ms, remark);
    }
    std::printf("\n");
}

}  // namespace

bool measure_volume(const std::string& folder) {
    const std::string lines = std::to_string(document_lines), few_text = std::to_string(few),
                      many_text = std::to_string(many);
    const auto start = std::chrono::steady_clock::now();
    const Volume small(folder + "/volume", few), large(folder + "/volume", many);
    std::printf("made databases of %s and of %s invoices of %d lines in %.0f s\n\n", few_text.c_str(),
                many_text.c_str(), lines_each,
                std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
    const bool good = contend({"opening a document of " + lines + " lines",
                               {"among " + many_text, [&] { return open_again(large); }},
                               {"among " + few_text, [&] { return open_again(small); }},
                               highest_ratio});
    measure_steps(large);
    return good;
}

}  // namespace kalvane::bench

// Where the controls stand.
#include "window/layout.h"

#include <gtest/gtest.h>

#include <array>
#include <map>

#include "entry/entry.h"
#include "screen/screen_model.h"

namespace kalvane {
namespace {

bool overlap(const Area2& a, const Area2& b) {
    return a.x < b.x + b.w && b.x < a.x + a.w && a.y < b.y + b.h && b.y < a.y + a.h;
}

std::string label(const Placed& p) {
    return p.control->name + " " + std::to_string(p.control->row);
}

// Whether an operator can see both at once.
bool seen_together(const Placed& a, const Placed& b) {
    if (a.control->page >= 0 && b.control->page >= 0 && a.control->page != b.control->page) return false;
    constexpr int pages_with_rows = 2;
    for (const auto& [own, other] : {std::pair(&a, &b), std::pair(&b, &a)})
        if (own->place && own->place->role == Role::with_rows && other->control->page >= pages_with_rows)
            return false;
    return !(a.place && b.place && a.place->face != 0 && b.place->face != 0 &&
             a.place->face != b.place->face);
}

void expect_clear(const Arrangement& arrangement) {
    for (std::size_t i = 0; i < arrangement.controls.size(); ++i) {
        const Placed& a = arrangement.controls[i];
        if (a.place && a.place->role == Role::hidden) continue;
        EXPECT_GT(a.at.w, 0) << label(a);
        EXPECT_GT(a.at.h, 0) << label(a);
        EXPECT_GE(a.at.x, 0) << label(a);
        EXPECT_GE(a.at.y, 0) << label(a);
        EXPECT_LE(a.at.x + a.at.w, arrangement.width) << label(a);
        EXPECT_LE(a.at.y + a.at.h, arrangement.height) << label(a);
        for (std::size_t k = i + 1; k < arrangement.controls.size(); ++k) {
            const Placed& b = arrangement.controls[k];
            if (b.place && b.place->role == Role::hidden) continue;
            EXPECT_FALSE(seen_together(a, b) && overlap(a.at, b.at)) << label(a) << " over " << label(b);
        }
    }
}

TEST(EntryLayout, EveryControlStandsOnceAndClear) {
    reset_run();
    const Layout& layout = *layout_of("frmKalvaneInvoiceEntry");
    std::map<std::string_view, int> times;
    for (const Place& p : layout.places) ++times[p.control];
    for (const ScreenField& f : screen_fields()) EXPECT_EQ(times[f.name], 1) << f.name;
    EXPECT_EQ(times.size(), screen_fields().size());
    const Arrangement arrangement = arrange(frmKalvaneInvoiceEntry);
    EXPECT_EQ(arrangement.width, 1366);
    EXPECT_LE(arrangement.height, 728);
    EXPECT_EQ(arrangement.controls.size(), frmKalvaneInvoiceEntry.controls.size());
    expect_clear(arrangement);
}

TEST(EntryLayout, HeadingsStandClearOfEachOtherAndOfTheRows) {
    const Layout& layout = *layout_of("frmKalvaneInvoiceEntry");
    std::map<int, std::vector<Area2>> pages;
    reset_run();
    for (const Placed& p : arrange(frmKalvaneInvoiceEntry).controls) {
        if (p.control->row != 0 || p.place->heading == 0) continue;
        EXPECT_GE(p.at.y, layout.heading.y + layout.heading.h) << label(p);
        const Area2 heading{p.at.x - p.place->heading_lead, layout.heading.y, p.place->heading,
                            layout.heading.h};
        for (const Area2& other : pages[p.control->page]) EXPECT_FALSE(overlap(heading, other)) << label(p);
        pages[p.control->page].push_back(heading);
    }
    EXPECT_EQ(pages[0].size(), 10u);
    EXPECT_EQ(pages[1].size(), 5u);
}

TEST(FlowLayout, AListWindowNeedsNoTable) {
    Form form;
    std::vector<Control> parts(24);
    form.name = "wnd一覧";
    std::size_t next = 0;
    const auto add = [&](ControlKind kind, const char* name, const char* caption, int length) {
        Control& c = add_control(form, parts[next++], kind, name);
        c.caption = caption;
        c.max_length = length;
    };
    add(ControlKind::SSPanel, "wnd_ttl", "得意先一覧", 0);
    for (int i = 0; i < 8; ++i) {
        add(ControlKind::SSCommand, "btn_検索", "名称検索", 0);
        add(ControlKind::xField, "名称", "", 60);
    }
    add(ControlKind::ListView, "List得意先", "", 0);
    add(ControlKind::label, "lab_注意", "一回の検索で1000件までを表示します。", 0);
    add(ControlKind::SSCommand, "btn_戻る", "戻る", 0);
    const Arrangement arrangement = arrange(form);
    EXPECT_EQ(arrangement.controls.size(), form.controls.size());
    EXPECT_LE(arrangement.width, 1366);
    EXPECT_LE(arrangement.height, 728);
    expect_clear(arrangement);
}

}  // namespace
}  // namespace kalvane

// Makes the controls of the entry screen, and gives them lists, limits and decimals.
#include "screen/screen_model.h"

#include "document/lookups.h"

namespace kalvane {
namespace {

void make(Control& c, const ScreenField& f, int row) {
    c = Control{};
    add_control(screen(), c, f.kind, f.name, row);
    c.page = f.page;
    c.mode = f.input.mode;
    c.max_length = f.input.max_length;
    c.tab_stop = f.tab.stop;
    c.tab_index = f.tab.index + (f.tab.index > 0 && row > 0 ? row * row_step : 0);
    c.read_only = f.input.mode == InputMode::none;
    c.caption = f.caption;
    c.function_key = f.function_key;
}

// The code tables behind the lists, in the order in which they are read.
struct CodeTable {
    const char* statement;
    ControlRef number;
    ControlRef combo;
    int smallest = 0;
};
constexpr auto code_tables = std::to_array<CodeTable>({
    {.statement = "SELECT * FROM K消費税算出区分 WHERE 区分 <= '2' ORDER BY 区分",
     .number = &EntryScreen::得意先消費税算出区分,
     .combo = &EntryScreen::得意先消費税算出区分名称},
    {.statement = "SELECT * FROM K消費税区分 ORDER BY 区分",
     .number = &EntryScreen::得意先消費税区分,
     .combo = &EntryScreen::得意先消費税区分名称,
     .smallest = 1},
    {.statement = "SELECT * FROM K請求消費税表示区分 ORDER BY 区分",
     .number = &EntryScreen::消費税表示区分,
     .combo = &EntryScreen::消費税表示区分名称},
    {.statement = "SELECT * FROM K請求合計表示区分 ORDER BY 区分",
     .number = &EntryScreen::合計表示区分,
     .combo = &EntryScreen::合計表示区分名称},
    {.statement = "SELECT * FROM K請求行区分 ORDER BY 区分",
     .number = &EntryScreen::行区分,
     .combo = &EntryScreen::行区分名称},
});

// Integer digits that keep quantity times price inside the currency's range.
struct Digits {
    int integers;
    int decimals;
};
Digits digits_of(Figure f) {
    switch (f) {
        case Figure::quantity_sale:
            return {6, 実行環境.請求数量桁数};
        case Figure::price_sale:
            return {8, 実行環境.請求単価桁数};
        case Figure::quantity_purchase:
            return {6, 実行環境.仕入数量桁数};
        case Figure::price_purchase:
            return {8, 実行環境.仕入単価桁数};
        case Figure::amount:
            return {10, 0};
        case Figure::none:
            break;
    }
    return {1, 0};
}

void set_digits(Control& c, Figure f) {
    const Digits d = digits_of(f);
    c.decimals = d.decimals < 0 || d.decimals > 4 ? 0 : d.decimals;
    std::int64_t units = 10000;
    for (int i = 0; i < d.integers; ++i) units *= 10;
    set_limits(c, 通貨::from_units(1 - units), 通貨::from_units(units - 1));
}

}  // namespace

void build_entry_screen() {
    EntryScreen& s = screen();
    static_cast<Form&>(s) = Form{};
    s.name = "frmKalvaneInvoiceEntry";
    for (const ScreenField& f : screen_fields()) {
        int row = f.control.one ? -1 : 0;
        for (Control& c : f.control.all()) make(c, f, row++);
    }
    s.tab_strip = &s.tab_詳細;
    s.tab_詳細.entries = {"売上明細", "仕入明細", "メモ", "付属書類"};
    s.notice = &s.お知らせ;
    s.scl_行.large_change = screen_rows;
    s.List付属書類.columns = {{"書類名", 5000, false}, {"サイズ", 1500, true}, {"更新日付", 1500, false}};
    set_entries(s.売上完了区分名称, {"未", "済"});
    set_limits(s.売上完了区分, 通貨::whole(0), 通貨::whole(1));
}

void 画面コード表読込() {
    for (const CodeTable& t : code_tables) {
        const std::vector<std::string> names = code_table_names(t.statement);
        const int rows = static_cast<int>(names.size());
        for (Control& combo : t.combo.all()) set_entries(combo, names);
        for (Control& number : t.number.all())
            set_limits(number, 通貨::whole(t.smallest), 通貨::whole(t.smallest + rows - 1));
    }
    for (const ScreenField& f : screen_fields())
        if (f.figure != Figure::none)
            for (Control& c : f.control.all()) set_digits(c, f.figure);
}

}  // namespace kalvane

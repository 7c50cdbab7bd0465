// One road over the counters: which table counts for a series, its row, the number behind the last one.
//
// How to add a routine: a Routine, and at the end of the file its variants for the whole company and by site
// and the one that chooses. The four tables of `counters` are all there are.
#include "rules/number_allocation.h"

#include <string_view>

#include "base/format.h"
#include "base/text.h"
#include "data/fault_box.h"
#include "data/query.h"
#include "platform/os/clock.h"
#include "platform/os/files.h"
#include "platform/os/process.h"
#include "platform/screen/form.h"
#include "records/run_context.h"
#include "rules/closing_dates.h"

namespace kalvane {

namespace {

struct Key {
    std::string_view id, date, site;
};

struct Counter {
    std::string_view table;
    bool by_site, dated;
    std::string_view series_test;  // table named in the WHERE of the look at the series
};
// [by site][dated]; the last row names the wrong table, which keeps it from ever making a row
constexpr Counter counters[2][2] = {
    {{.table = "A番号情報", .by_site = false, .dated = false, .series_test = "A番号情報"},
     {.table = "A期日別番号情報", .by_site = false, .dated = true, .series_test = "A番号情報"}},
    {{.table = "A事業所別番号情報", .by_site = true, .dated = false, .series_test = "A番号情報"},
     {.table = "A事業所別期日別番号情報",
      .by_site = true,
      .dated = true,
      .series_test = "A事業所別番号情報"}},
};

enum class Choice { undated, dated, none };

constexpr Choice document_counter(double kind) {
    if (kind == 0) return Choice::undated;
    return kind == 1 || kind == 2 || kind == 3 ? Choice::dated : Choice::none;
}
constexpr Choice history_counter(double kind) {
    return kind > 0 && kind < 4 ? Choice::dated : Choice::undated;
}

struct Routine {
    std::string_view column;
    Choice (*counter)(double kind);
    bool writes;
};
constexpr Routine preview{.column = "連番", .counter = document_counter, .writes = false};
constexpr Routine allocate{.column = "連番", .counter = document_counter, .writes = true};
constexpr Routine allocate_history{.column = "履歴連番", .counter = history_counter, .writes = true};

std::string text(std::initializer_list<std::string_view> parts) {
    std::string out;
    for (const std::string_view part : parts) out += part;
    return out;
}

std::string series_sql(std::string_view id, std::string_view tested = "A番号情報") {
    return text({"SELECT A番号情報.* FROM A番号情報 WHERE ", tested, ".番号ID = ", literal(id)});
}

std::string where(const Counter& c, const Key& key) {
    std::string out = " WHERE ";
    if (c.by_site) out += text({c.table, ".事業所コード = ", literal(key.site), " AND "});
    out += text({c.table, ".番号ID = ", literal(key.id)});
    if (c.dated) out += text({" AND ", c.table, ".期日 = ", literal(key.date)});
    return out;
}

std::string counter_sql(const Counter& c, const Key& key) {
    return text({"SELECT ", c.table, ".* FROM ", c.table, where(c, key)});
}

void make_row(const Counter& c, const Key& key) {
    if (has_row(counter_sql(c, key)) || !has_row(series_sql(key.id, c.series_test))) return;
    std::string columns, values;
    if (c.by_site) {
        columns += "[事業所コード],";
        values += literal(key.site) + ",";
    }
    columns += "[番号ID],";
    values += literal(key.id) + ",";
    if (c.dated) {
        columns += "[期日],";
        values += literal(key.date) + ",";
    }
    主DB実行(text({"INSERT INTO [", c.table, "] (", columns, "[連番],[履歴連番]) VALUES (", values,
                   "'00000000','00000000')"}));
}

std::string number_behind(const ado::Recordset& rs, std::string_view column) {
    std::string next = Format(Val(rs.Fields(column).text()) + 1, "00000000");
    return next == 番号なし ? "00000001" : next;
}

// The number of one variant; "" as long as no counter gives one.
std::string number(const Routine& routine, bool by_site, const Key& key) {
    ado::Recordset rs;
    if (!主DB読込(rs, series_sql(key.id))) {
        rs.Close();
        show_fault(Fault::no_number_series);
        return 番号なし;
    }
    const Choice choice = routine.counter(Val(rs.Fields("連番種類").text()));
    const Counter& counter = counters[by_site][choice != Choice::undated];
    const bool in_series_row = !by_site && choice == Choice::undated;
    std::string next;
    if (in_series_row) next = number_behind(rs, routine.column);
    rs.Close();
    if (!in_series_row) make_row(counter, key);
    if (choice == Choice::none) return next;
    if (!in_series_row) {
        if (主DB読込(rs, counter_sql(counter, key))) next = number_behind(rs, routine.column);
        rs.Close();
    }
    if (routine.writes)  // a missing row leaves the number empty, and the update meets no row
        主DB実行(text({"UPDATE ", counter.table, " SET ", " ", routine.column, " = ", literal(next),
                       where(counter, key)}));
    return next;
}

std::string routed(const Routine& routine, const Key& key) {
    std::string next = number(routine, 実行環境.伝票番号管理区分 != 0, key);
    if (next == 番号なし) show_fault(Fault::no_number_series);
    return next;
}

}  // namespace

std::string 番号基準日付取得(const std::string& 番号ID, const std::string& 日付) {
    const std::string date = 日付 == "99999999" ? date_text(os::today()) : 日付;
    const std::string yearly = 決算期末日付(date), monthly = 月締日付(date);
    ado::Recordset rs;
    std::string result;
    if (主DB読込(rs, series_sql(番号ID))) {
        const double kind = Val(rs.Fields("連番種類").text());
        result = kind == 0   ? "99999999"
                 : kind == 1 ? yearly
                 : kind == 2 ? monthly
                 : kind == 3 ? date
                             : "88888888";
    }
    rs.Close();
    return result;
}

std::string 次番号参照全社(const std::string& 番号ID, const std::string& 番号基準日付) {
    return number(preview, false, {番号ID, 番号基準日付, {}});
}
std::string 番号採番全社(const std::string& 番号ID, const std::string& 番号基準日付) {
    return number(allocate, false, {番号ID, 番号基準日付, {}});
}
std::string 履歴番号採番全社(const std::string& 番号ID, const std::string& 番号基準日付) {
    return number(allocate_history, false, {番号ID, 番号基準日付, {}});
}
std::string 次番号参照事業所別(const std::string& 番号ID, const std::string& 番号基準日付,
                               const std::string& 事業所コード) {
    return number(preview, true, {番号ID, 番号基準日付, 事業所コード});
}
std::string 番号採番事業所別(const std::string& 番号ID, const std::string& 番号基準日付,
                             const std::string& 事業所コード) {
    return number(allocate, true, {番号ID, 番号基準日付, 事業所コード});
}
std::string 履歴番号採番事業所別(const std::string& 番号ID, const std::string& 番号基準日付,
                                 const std::string& 事業所コード) {
    return number(allocate_history, true, {番号ID, 番号基準日付, 事業所コード});
}

std::string 次番号参照(const std::string& 番号ID, const std::string& 番号基準日付,
                       const std::string& 事業所コード) {
    return routed(preview, {番号ID, 番号基準日付, 事業所コード});
}
std::string 番号採番(const std::string& 番号ID, const std::string& 番号基準日付,
                     const std::string& 事業所コード) {
    return routed(allocate, {番号ID, 番号基準日付, 事業所コード});
}
std::string 履歴番号採番(const std::string& 番号ID, const std::string& 番号基準日付,
                         const std::string& 事業所コード) {
    return routed(allocate_history, {番号ID, 番号基準日付, 事業所コード});
}

void 期日別番号行作成(const std::string& 番号ID, const std::string& 期日) {
    make_row(counters[false][true], {番号ID, 期日, {}});
}
void 事業所別番号行作成(const std::string& 番号ID, const std::string& 事業所コード) {
    make_row(counters[true][false], {番号ID, {}, 事業所コード});
}
void 事業所別期日別番号行作成(const std::string& 番号ID, const std::string& 期日,
                              const std::string& 事業所コード) {
    make_row(counters[true][true], {番号ID, 期日, 事業所コード});
}

void 更新プログラム起動(const std::string& 番号ID) {
    ado::Recordset rs;
    std::string program;
    if (主DB読込(rs, text({"SELECT 更新プログラム FROM A番号情報 WHERE 番号ID = ", literal(番号ID)})))
        program = rs.Fields("更新プログラム").text();
    rs.Close();
    if (program.empty()) return;
    force_logs_now();
    try {
        os::Shell(実行環境.プログラムフォルダ + "\\" + program, os::WindowMode::minimised);
    } catch (const os::FileError&) {
        // a program that is missing is not this seat's concern
    }
}

}  // namespace kalvane

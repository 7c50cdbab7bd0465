// The demonstration company's documents: quotations, orders and deliveries, and invoices over three fiscal
// years with their history rows, written through the program's own routines so that figures, journal, queue
// and counters agree.
//
// How to change them: the numbers below and the tables; raise schema_version.
#include <array>
#include <string>

#include "base/format.h"
#include "document/calculation.h"
#include "document/clearing.h"
#include "document/document_date.h"
#include "document/document_sql.h"
#include "document/loading.h"
#include "document/lookups.h"
#include "document/save_statements.h"
#include "platform/os/clock.h"
#include "platform/os/process.h"
#include "records/columns.h"
#include "rules/closing_dates.h"
#include "session/settings.h"
#include "setup/content.h"
#include "setup/install.h"
#include "setup/random.h"
#include "setup/schema.h"
#include "setup/seed.h"

namespace kalvane::setup {
namespace {

constexpr int invoices = 60, documents_of_a_kind = 30;
constexpr Date first_day{2022, 4, 4};
constexpr int days = 736;  // to the last one, 9 April 2024

constexpr auto subjects =
    std::to_array<std::string_view>({"事務用品一式", "春季備品", "新社屋什器", "定期納品分", "移転作業",
                                     "年度末納品", "会議室改装", "教材一式", "催事用品", "防災備蓄"});
constexpr auto remarks =
    std::to_array<std::string_view>({"", "", "分納", "直送", "お届けは午前中", "検収後にお支払いください"});

DateTime day_at(int index, int count, int hour) {
    return {add_days(first_day, days * index / (count - 1)), hour, index % 60, 0};
}

void begin_document(const DateTime& t) {
    os::freeze_clock(t);
    set_document_date(請求ヘッダ, date_text(t.date));
    実行環境.事業所コード = 全社事業所;
    新規伝票初期化();
}

void add_line(const std::string& product, std::int64_t quantity) {
    const int i = ++実行環境.最終行;
    実行環境.現在行 = static_cast<std::int16_t>(i);
    明細固有項目初期化(i);
    商品コード変更(product);
    LineRecord& line = 請求明細行[i];
    line.請求数量 = line.仕入数量 = 通貨::whole(quantity);
    請求金額計算(i);
    請求消費税計算(i);
    仕入金額計算(i);
    仕入消費税計算(i);
}

std::string six_digits(std::int64_t n) {
    return Format(n, "000000");
}

// Customer, lines and texts of a document; the lines may be none.
void fill_document(Random& random, int lines) {
    HeaderRecord& h = 請求ヘッダ;
    constexpr std::int64_t customers = 38, destinations = 20, products = 60;
    得意先コード変更(six_digits(random.between(1, customers)));
    if (random.below(3) == 0) 納品先コード変更(six_digits(random.between(1, destinations)));
    h.タイトル = subjects[random.below(subjects.size())];
    h.支払条件 = random.below(2) == 0 ? "月末締め翌月末払い" : "20日締め翌月末払い";
    h.請求伝票備考A = remarks[random.below(remarks.size())];
    for (int n = 0; n < lines; ++n)
        add_line(std::string("P").append(Format(random.between(1, products), "0000")), random.between(1, 20));
    合計計算();
}

// The header and lines in memory into the tables of a source kind, by the road of the live tables.
void write_source(ado::Connection& main, const SourceRow& s, const std::string& number, bool prospect) {
    constexpr const char* passing = "見本作成";  // a number that no invoice has
    実行環境.営業請求No = passing;
    請求ヘッダ.登録日付 = date_time_text(os::now());
    main.Execute(header_insert());
    for (int i = 0; i <= 実行環境.最終行; ++i) {
        請求明細行[i].営業請求固有行No = 請求明細行[i].営業請求行No = Format(i + 1, "000");
        main.Execute(line_insert(i, 請求ヘッダ.登録日付));
    }
    const std::string key = std::string(" WHERE 営業請求No = ").append(literal(passing));
    for (const auto& [table, from] :
         {std::pair{s.header_table, "T営業請求"}, std::pair{s.line_table, "T営業請求明細"}}) {
        std::string columns, values;
        for (const RenamedColumn& c : renamed_columns(table)) {
            columns.append(columns.empty() ? "[" : ",[").append(c.name).append("]");
            values.append(values.empty() ? "" : ",");
            if (c.from == "営業請求No")
                values += literal(number);
            else
                values.append("[").append(c.from).append("]");
        }
        std::string extra, extra_values;
        if (s.prospects && from == std::string_view("T営業請求")) {
            extra = ",[得意先対応先区分],[納品先対応先区分]";
            extra_values = prospect ? ",'1','0'" : ",'0','0'";
        } else if (s.prospects) {
            extra = ",[仕入先対応先区分]";
            extra_values = ",'0'";
        }
        main.Execute(std::string("INSERT INTO [").append(table) + "] (" + columns + extra + ") SELECT " +
                     values + extra_values + " FROM [" + from + "]" + key);
        main.Execute(std::string("DELETE FROM [").append(from) + "]" + key);
    }
}

void make_sources(ado::Connection& main, Random& random) {
    for (const SourceKind kind : {SourceKind::quotation, SourceKind::order, SourceKind::delivery}) {
        const SourceRow& s = source_row(kind);
        for (int n = 0; n < documents_of_a_kind; ++n) {
            begin_document(day_at(n, documents_of_a_kind, 9));
            const bool without_lines = kind == SourceKind::delivery && n == documents_of_a_kind - 1;
            fill_document(random, without_lines ? 0 : static_cast<int>(random.between(1, 6)));
            const bool prospect = s.prospects && n % 10 == 7;
            if (prospect) {
                請求ヘッダ.得意先コード = six_digits(random.between(1, 8));
                請求ヘッダ.得意先名称A = "見込客 " + 請求ヘッダ.得意先コード;
            }
            write_source(main, s, Format(n + 1, "00000000"), prospect);
        }
        main.Execute(std::string("UPDATE A番号情報 SET 連番 = ") +
                     literal(Format(documents_of_a_kind, "00000000")) +
                     " WHERE 番号ID = " + literal(s.number_id));
    }
}

void make_invoices(Random& random) {
    constexpr int referring = 9, changed = 12;  // every so many
    for (int n = 0; n < invoices; ++n) {
        begin_document(day_at(n, invoices, 10));
        fill_document(random, static_cast<int>(random.between(1, 8)));
        if (n > 0 && n % referring == 0) {
            請求ヘッダ.参照営業請求事業所コード = 全社事業所;
            請求ヘッダ.参照営業請求番号基準日付 = 実行環境.番号基準日付;
            請求ヘッダ.参照営業請求No = Format(n, "00000000");
        }
        新規書込();
        if (n % changed != changed - 1) continue;
        const std::string number = 実行環境.営業請求No;
        os::advance_clock(3'600'000);
        伝票表示読込(全社事業所, 実行環境.番号基準日付, number);
        請求ヘッダ.請求伝票備考B = "数量変更済";
        add_line("P0001", 5);
        合計計算();
        修正書込();
    }
}

// Gives the clock back as it was.
class ClockKept {
  public:
    ClockKept() : frozen_(os::clock_frozen()), now_(os::now()) {}
    ~ClockKept() {
        if (frozen_)
            os::freeze_clock(now_);
        else
            os::release_clock();
    }

  private:
    bool frozen_;
    DateTime now_;
};

}  // namespace

void fill_demo_documents(const std::string& root) {
    const ClockKept clock;
    RunContext& r = 実行環境;
    r = RunContext{};
    open_database(r.主接続, root, main_file, ado::Access::owner);
    open_database(r.設定接続, root, config_file, ado::Access::owner);
    r.db = "A";
    r.運用事業所コード = 全社事業所;
    r.ユーザID = "setup";
    r.起動担当者コード = "00001";
    r.起動担当者名 = "佐藤 誠";
    基本情報読込();
    Random random(20240410);
    for (ado::Connection* c :
         {static_cast<ado::Connection*>(&r.主接続), static_cast<ado::Connection*>(&r.設定接続)})
        c->Execute("BEGIN");
    make_sources(r.主接続, random);
    make_invoices(random);
    // nobody has looked at the documents or run the program yet
    r.主接続.Execute("DELETE FROM T閲覧");
    r.主接続.Execute("UPDATE A番号情報 SET 連番 = '00000000' WHERE 番号ID = '01110'");
    r.設定接続.Execute("DELETE FROM プログラム稼動履歴");
    for (ado::Connection* c :
         {static_cast<ado::Connection*>(&r.主接続), static_cast<ado::Connection*>(&r.設定接続)}) {
        c->Execute("COMMIT");
        c->Close();
    }
    r = RunContext{};
    請求ヘッダ = HeaderRecord{};
    請求明細行 = LineArray{};
}

}  // namespace kalvane::setup

// Random invoices in volume, written in large statements.
#include "setup/generate.h"

#include <array>
#include <vector>

#include "base/date.h"
#include "base/format.h"
#include "base/text.h"
#include "platform/ado/ado.h"
#include "platform/os/clock.h"
#include "records/columns.h"
#include "setup/install.h"
#include "setup/random.h"
#include "setup/schema.h"
#include "setup/seed.h"

namespace kalvane::setup {
namespace {

constexpr int days = 1096;                    // three years, today the last
constexpr std::size_t batch_bytes = 100'000;  // of one INSERT
constexpr std::int64_t batch_rows = 50'000;   // of one transaction, headers and lines
constexpr std::string_view writer = "generate";

constexpr auto titles = std::to_array<std::string_view>({
    "事務用品代",
    "月次納品分",
    "コピー用紙代",
    "什器一式",
    "機器更新",
    "消耗品代",
    "保守料金",
    "展示会備品",
    "新人研修資料",
    "年末贈答品",
    "移転に伴う備品",
    "臨時手配分",
    "パソコン入替",
    "会議室備品",
    "防災用品",
    "書籍代",
});
constexpr auto terms =
    std::to_array<std::string_view>({"月末締翌月末払い", "20日締翌月20日払い", "納品後30日以内", "現金"});

struct Customer {
    std::string code, name, second_name, contact, staff, site, department, section;
};
struct Named {
    std::string code, name, second_name;
};
struct ProductRow {
    std::string code, name, unit, supplier, supplier_name;
    通貨 price, cost;
    std::int16_t sale_class = 0, purchase_class = 0;
};
struct Masters {
    std::vector<Customer> customers;
    std::vector<Named> destinations;
    std::vector<ProductRow> products;
    std::vector<std::pair<std::string, 通貨>> rates;  // from the latest day on
};

// Calls take with every row of the statement.
template <class Take>
void each_row(ado::Connection& connection, std::string_view sql, Take take) {
    ado::Recordset rows;
    for (rows.Open(sql, connection); !rows.Eof(); rows.MoveNext())
        take([&rows](std::string_view column) { return rows.Fields(column).text(); }, rows);
    rows.Close();
}

Masters read_masters(ado::Connection& main) {
    Masters m;
    each_row(main,
             "SELECT C.コード, C.名称A, C.名称B, C.御担当者名, C.担当者コード, S.事業所コード, S.部門コード, "
             "S.セクションコード FROM M得意先 AS C INNER JOIN M担当者 AS S ON S.コード = C.担当者コード "
             "WHERE C.取引状況区分 <> '3' ORDER BY C.コード",
             [&m](auto text, auto&) {
                 m.customers.push_back({text("コード"), text("名称A"), text("名称B"), text("御担当者名"),
                                        text("担当者コード"), text("事業所コード"), text("部門コード"),
                                        text("セクションコード")});
             });
    each_row(main, "SELECT コード, 名称A, 名称B FROM M納品先 WHERE 取引状況区分 <> '3' ORDER BY コード",
             [&m](auto text, auto&) {
                 m.destinations.push_back({text("コード"), text("名称A"), text("名称B")});
             });
    // plain products alone: taxed at the current rate, tax-out, with a price
    each_row(main,
             "SELECT P.コード, P.名称A, P.名称B, P.単位, P.仕入先コード, P.税抜販売単価, P.税抜仕入単価, "
             "P.売上消費税区分, P.仕入消費税区分, V.名称A AS 仕入先名称A FROM M商品 AS P "
             "LEFT JOIN M仕入先 AS V ON V.コード = P.仕入先コード "
             "WHERE P.取扱状況区分 <> '3' AND P.売上課税区分 = '0' AND P.売上消費税区分 <> '2' "
             "AND P.税抜販売単価 > 0 ORDER BY P.コード",
             [&m](auto text, const ado::Recordset& row) {
                 m.products.push_back({text("コード"), text("名称A") + text("名称B"), text("単位"),
                                       text("仕入先コード"), text("仕入先名称A"),
                                       row.Fields("税抜販売単価").currency(),
                                       row.Fields("税抜仕入単価").currency(), to_i16(text("売上消費税区分")),
                                       to_i16(text("仕入消費税区分"))});
             });
    each_row(main, "SELECT 施行日, 消費税率 FROM G消費税 ORDER BY 施行日 DESC",
             [&m](auto text, const ado::Recordset& row) {
                 m.rates.emplace_back(text("施行日"), row.Fields("消費税率").currency());
             });
    return m;
}

// Whole percent of the rate in force.
std::int64_t rate_percent(const Masters& m, std::string_view date) {
    for (const auto& [from, rate] : m.rates)
        if (from <= date) return rate.units() / 10000;
    return 0;
}

void append(std::string& out, 通貨 value) {
    if (value.units() % 10000 == 0)
        out += std::to_string(value.units() / 10000);
    else
        out += plain_number(value);
}
void append(std::string& out, std::string_view text) {
    append_literal(out, text);
}
void append(std::string& out, std::int16_t value) {
    append(out, std::to_string(value));
}

// One row in the order of the columns: the key from the run context, the rest from head and record.
template <class Columns, class Record>
void append_values(std::string& out, const Columns& columns, const RunContext& key, const HeaderRecord& head,
                   const Record& record) {
    char mark = '(';
    for (const auto& column : columns) {
        out += mark;
        mark = ',';
        const auto put = [&](auto member) {
            if constexpr (requires { record.*member; })
                append(out, record.*member);
            else if constexpr (requires { head.*member; })
                append(out, head.*member);
            else if constexpr (requires { key.*member; })
                append(out, key.*member);
            else
                append(out, writer);  // the stamp
        };
        std::visit(put, column.field.member);
    }
    out += ')';
}

// Collects rows of one table into INSERTs of many rows.
class Batch {
  public:
    template <class Columns>
    Batch(std::string_view table, const Columns& columns)
        : head_("INSERT INTO [" + std::string(table) + "] (") {
        for (const auto& column : columns)
            head_.append(&column == &columns.front() ? "[" : ",[").append(column.field.column).append("]");
        head_ += ") VALUES ";
    }
    // The text to which the next row is appended; what has come together is run when it is long enough.
    std::string& next(ado::Connection& connection) {
        if (rows_.size() > batch_bytes) run(connection);
        if (!rows_.empty()) rows_ += ',';
        return rows_;
    }
    void run(ado::Connection& connection) {
        if (rows_.empty()) return;
        connection.Execute(head_ + rows_);
        rows_.clear();
    }

  private:
    std::string head_, rows_;
};

// A line's quantity, price and amount, and the sums of the header. Tax is per line, cut to whole yen, as for
// a tax-out customer with rounding method 0.
void fill_line(LineRecord& line, HeaderRecord& head, const ProductRow& product, std::int64_t percent,
               Random& random) {
    const 通貨 quantity = 通貨::whole(random.between(1, 40));
    line.商品コード = product.code;
    line.商品名 = product.name;
    line.請求単位 = line.仕入単位 = product.unit;
    line.請求数量 = line.仕入数量 = quantity;
    line.請求単価 = line.商品税抜販売単価 = product.price;
    line.仕入単価 = line.商品税抜仕入単価 = product.cost;
    line.商品税込販売単価 = 通貨::from_units(product.price.units() * (100 + percent) / 100);
    line.商品税込仕入単価 = 通貨::from_units(product.cost.units() * (100 + percent) / 100);
    line.商品売上消費税区分 = product.sale_class;
    line.商品仕入消費税区分 = product.purchase_class;
    line.仕入先コード = product.supplier;
    line.仕入先名称A = product.supplier_name;
    line.請求金額 = Fix(quantity * product.price);
    line.仕入金額 = Fix(quantity * product.cost);
    line.請求消費税 = Fix(通貨::from_units(line.請求金額.units() * percent / 100));
    line.仕入消費税 = Fix(通貨::from_units(line.仕入金額.units() * percent / 100 + 5000));

    head.請求数量合計 += quantity;
    head.仕入数量合計 += quantity;
    head.請求金額合計 += line.請求金額;
    head.仕入金額合計 += line.仕入金額;
    head.請求消費税合計 += line.請求消費税;
    head.仕入消費税合計 += line.仕入消費税;
}

void fill_header(HeaderRecord& head, const Masters& m, const std::string& date, Random& random) {
    const Customer& customer = m.customers[random.below(m.customers.size())];
    head.営業請求日付 = date;
    head.得意先コード = customer.code;
    head.得意先名称A = customer.name;
    head.得意先名称B = customer.second_name;
    head.御担当者名 = customer.contact;
    head.担当者コード = customer.staff;
    head.部門コード = customer.department;
    head.セクションコード = customer.section;
    if (!m.destinations.empty() && random.below(2) == 0) {
        const Named& destination = m.destinations[random.below(m.destinations.size())];
        head.納品先コード = destination.code;
        head.納品先名称A = destination.name;
        head.納品先名称B = destination.second_name;
    }
    head.タイトル = titles[random.below(titles.size())];
    head.タイトル += " " + date.substr(0, 6);
    head.支払条件 = terms[random.below(terms.size())];
    head.登録日付 = date + " 120000";
}

void finish_totals(HeaderRecord& head) {
    head.税抜請求金額合計 = head.請求金額合計;
    head.税込請求金額合計 = head.請求金額合計 + head.請求消費税合計;
    head.税抜仕入金額合計 = head.仕入金額合計;
    head.税込仕入金額合計 = head.仕入金額合計 + head.仕入消費税合計;
}

std::int64_t last_number(ado::Connection& main) {
    ado::Recordset row;
    row.Open("SELECT 連番, 連番種類 FROM A番号情報 WHERE 番号ID = " + literal(請求番号ID), main);
    if (row.Eof() || row.Fields("連番種類").number() != 0)
        throw SetupError("請求書の番号が連続番号ではありません。");
    const auto number = static_cast<std::int64_t>(row.Fields("連番").number());
    row.Close();
    row.Open("SELECT 伝票番号管理区分 FROM Mユーザ WHERE ID = '0001'", main);
    if (row.Eof() || row.Fields("伝票番号管理区分").number() != 0)
        throw SetupError("伝票番号が事業所別に管理されています。");
    row.Close();
    return number;
}

void write_invoices(ado::Connection& main, const GenerateRequest& request, const Masters& m,
                    std::int64_t last) {
    Random random(request.seed);
    RunContext key;
    key.番号基準日付 = "99999999";
    Batch headers("T営業請求", header_columns), lines("T営業請求明細", line_columns);
    std::vector<LineRecord> document(static_cast<std::size_t>(request.lines));
    const Date first = add_days(os::today(), 1 - days);
    const std::int64_t batch = std::max<std::int64_t>(1, batch_rows / (1 + request.lines));
    int day = -1;
    std::string date;
    std::int64_t percent = 0;
    for (std::int64_t i = 0; i < request.invoices; ++i) {
        if (i % batch == 0) main.Execute("BEGIN IMMEDIATE");
        if (const int d = static_cast<int>(i * days / request.invoices); d != day) {
            day = d;
            date = date_text(add_days(first, day));
            percent = rate_percent(m, date);
        }
        HeaderRecord head;
        fill_header(head, m, date, random);
        for (const Customer& customer : m.customers)
            if (customer.code == head.得意先コード) key.事業所コード = customer.site;
        key.営業請求No = Format(last + i + 1, "00000000");
        for (std::size_t n = 0; n < document.size(); ++n) {
            LineRecord& line = document[n] = LineRecord{};
            line.営業請求固有行No = line.営業請求行No = Format(static_cast<std::int64_t>(n) + 1, "000");
            line.登録日付 = head.登録日付;
            fill_line(line, head, m.products[random.below(m.products.size())], percent, random);
        }
        if (document.empty()) {
            head.請求金額合計 = 通貨::whole(random.between(1, 3000) * 100);
            head.請求消費税合計 = Fix(通貨::from_units(head.請求金額合計.units() * percent / 100));
        }
        finish_totals(head);
        append_values(headers.next(main), header_columns, key, head, head);
        for (const LineRecord& line : document)
            append_values(lines.next(main), line_columns, key, head, line);
        if (i % batch == batch - 1 || i == request.invoices - 1) {
            headers.run(main);
            lines.run(main);
            main.Execute("UPDATE A番号情報 SET 連番 = " + literal(key.営業請求No) +
                         " WHERE 番号ID = " + literal(請求番号ID));
            main.Execute("COMMIT");
        }
    }
}

}  // namespace

void generate_invoices(const GenerateRequest& request) {
    const std::string root = checked_root(request.root);
    if (installed_version(root) != schema_version)
        throw SetupError("この版 (" + std::to_string(schema_version) + ") の環境ではありません: " + root);
    ado::Connection main;
    open_database(main, root, main_file, ado::Access::owner);
    try {
        const std::int64_t last = last_number(main);
        if (last + request.invoices > 99'999'999) throw SetupError("請求書の番号が足りません。");
        const Masters masters = read_masters(main);
        if (masters.customers.empty()) throw SetupError("得意先がありません。--demo で作成してください。");
        if (masters.products.empty() && request.lines > 0)
            throw SetupError("商品がありません。--demo で作成してください。");
        write_invoices(main, request, masters, last);
        main.Close();
    } catch (const ado::Error& e) {
        throw SetupError("請求書を作成できません: " + std::string(e.what()));
    }
}

}  // namespace kalvane::setup

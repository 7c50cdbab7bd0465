// Resident memory of a day's work.
#include <cstdio>
#include <fstream>
#include <stdexcept>
#include <string>

#include "child.h"
#include "measures.h"

namespace kalvane::bench {
namespace {

constexpr long most_mib = 40;

// Types 998 lines with the Enter key and registers them.
void write_script(const std::string& file) {
    std::ofstream out(file);
    out << "today 20240410 093000\nuser tanaka\ncomputer SEAT01\nstart\n"
           "focus 得意先コード\nenter 3\nfocus 商品コード[0]\n";
    for (int i = 0; i < document_lines; ++i)
        out << "enter P000" << 1 + i % 9 << " \"\" " << 1 + i % 40 << " \"\" \"\"\n";
    out << "click btn_登録\nexpect window msg印刷確認\nclick btn_登録\n"
           "expect-sql main \"SELECT MAX(n) FROM (SELECT COUNT(*) AS n FROM T営業請求明細 GROUP BY "
           "営業請求No)\" "
        << document_lines << "\nclick btn_終了\nexpect ended\n";
    out.flush();
    if (!out) throw std::runtime_error("cannot write " + file);
}

}  // namespace

void measure_memory(const Installation& at, const std::string& folder) {
    const std::string script = folder + "/typing.script";
    write_script(script);
    at.refresh();
    const long own = own_peak_kib();
    const Ended child = run_child(
        {program_beside("KalvaneOperator"), "--program", at.root() + "/prgbin/KalvaneOperator", "-"}, script);
    if (child.status != 0) throw std::runtime_error("the operator's script failed:\n" + child.said);
    std::printf("memory of the operator, %d lines typed and registered in %.1f s\n", document_lines,
                child.seconds);
    std::printf("  peak     %7.1f MiB    target %ld MiB   (this process %.1f MiB before it)\n\n",
                static_cast<double>(child.peak_kib) / 1024, most_mib, static_cast<double>(own) / 1024);
    std::fflush(stdout);
}

}  // namespace kalvane::bench

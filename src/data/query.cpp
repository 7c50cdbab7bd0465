// The helpers over one reader and one runner.
#include "data/query.h"

#include "base/text.h"
#include "data/history_row.h"
#include "records/run_context.h"

namespace kalvane {
namespace {

bool is_config(const ado::Connection& c) {
    return &c == &実行環境.設定接続;
}

// A failing history row must not call itself for ever.
void log_failure(const ado::Connection& c, const std::string& sql, const ado::Error& e) {
    if (is_config(c) && contains(sql, "プログラム稼動履歴")) return;
    稼動履歴エラー記録(sql + e.what());
}

bool read(ado::Connection& c, ado::Recordset& out, const std::string& sql, bool log) {
    try {
        out = ado::Recordset();
        out.Open(sql, c, 0, 1, 1);
        const bool found = !(out.Bof() || out.Eof());
        if (log) 稼動履歴出力記録(sql);
        return found;
    } catch (const ado::Error& e) {
        log_failure(c, sql, e);
        return false;
    }
}

bool run(ado::Connection& c, const std::string& sql, bool log) {
    try {
        c.Execute(sql);
        if (log) 稼動履歴出力記録(sql);
        return true;
    } catch (const ado::Error& e) {
        log_failure(c, sql, e);
        return false;
    }
}

}  // namespace

bool 主DB読込(ado::Recordset& out, const std::string& sql, bool log) {
    return read(実行環境.主接続, out, sql, log);
}
bool 設定DB読込(ado::Recordset& out, const std::string& sql) {
    return read(実行環境.設定接続, out, sql, false);
}
bool 設定DB参照(ado::Recordset& out, const std::string& sql) {
    return read(実行環境.設定接続, out, sql, false);
}
bool has_row(const std::string& sql) {
    ado::Recordset rs;
    const bool found = 主DB読込(rs, sql);
    rs.Close();
    return found;
}
bool 主DB実行(const std::string& sql, bool log) {
    return run(実行環境.主接続, sql, log);
}
bool 設定DB実行(const std::string& sql) {
    return run(実行環境.設定接続, sql, false);
}
bool 設定DB実行記録(const std::string& sql) {
    return run(実行環境.設定接続, sql, true);
}

}  // namespace kalvane

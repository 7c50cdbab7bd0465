// The rules of adaptation, each a row.
#include "platform/ado/adapt.h"

#include <algorithm>
#include <array>
#include <optional>
#include <vector>

#include "base/text.h"
#include "platform/ado/sql_tokens.h"

namespace kalvane::ado {
namespace {

// The first token at or behind i, outside parentheses, that is one of the words; the size when none is.
std::size_t find_word(const SqlTokens& t, std::size_t i, std::initializer_list<std::string_view> words) {
    while (i < t.size() && !t.is_any(i, words)) i = t.sign(i, '(') ? t.behind_parenthesis(i) : i + 1;
    return i;
}

std::size_t find_clause_end(const SqlTokens& t, std::size_t i) {
    return find_word(t, i, {"WHERE", "GROUP", "HAVING", "ORDER", "LIMIT", "UNION", "EXCEPT", "INTERSECT"});
}

std::string replaced(std::string_view sql, std::size_t begin, std::size_t end, std::string_view with) {
    std::string result;
    result.reserve(sql.size() + with.size());
    return result.append(sql.substr(0, begin)).append(with).append(sql.substr(end));
}

// SELECT [DISTINCT] TOP n … into SELECT [DISTINCT] … LIMIT n.
bool top_to_limit(std::string& sql) {
    const SqlTokens t(sql);
    const std::size_t top = t.is_any(1, {"DISTINCT", "ALL"}) ? 2 : 1;
    const std::string_view count = t.text(top + 1);
    const bool digits = std::all_of(count.begin(), count.end(), [](char c) { return c >= '0' && c <= '9'; });
    if (!t.valid() || !t.is(top, "TOP") || !digits || t.size() < top + 3) return false;
    std::size_t last = t.size() - 1;
    if (t.sign(last, ';')) --last;
    std::string result = sql;
    // from the back, so that the positions in front stay
    result.insert(t[last].end, " LIMIT " + std::string(count));
    result.erase(t[top].begin, t[top + 2].begin - t[top].begin);
    sql = std::move(result);
    return true;
}

// Reads joins and writes them as one chain without parentheses and without RIGHT JOIN.
class JoinChain {
  public:
    JoinChain(const SqlTokens& t, std::size_t first, std::size_t last) : t_(t), i_(first), last_(last) {}

    // Nothing when it is no join of tables, or one that has no such form.
    std::optional<std::string> flatten() {
        std::optional<Part> all = joined();
        if (!all || i_ != last_ || !turned_) return std::nullopt;
        return std::move(all->text);
    }

  private:
    struct Part {
        std::string text;
        bool single;  // one table
    };

    std::optional<Part> operand() {
        if (t_.sign(i_, '(')) {
            ++i_;
            std::optional<Part> inner = joined();
            if (!inner || !t_.sign(i_, ')')) return std::nullopt;
            ++i_;
            return inner;
        }
        const std::size_t first = i_;
        if (!t_.identifier(i_++)) return std::nullopt;
        if (t_.sign(i_, '.')) i_ += 2;
        if (t_.is(i_, "AS")) ++i_;
        if (i_ < last_ && t_.identifier(i_) && !t_.is_any(i_, {"INNER", "LEFT", "RIGHT", "JOIN", "ON"})) ++i_;
        if (i_ > last_) return std::nullopt;
        return Part{std::string(t_.span(first, i_)), true};
    }

    std::optional<Part> joined() {
        std::optional<Part> left = operand();
        while (left && i_ < last_ && !t_.sign(i_, ')')) {
            const bool right_join = t_.is(i_, "RIGHT"), left_join = t_.is(i_, "LEFT");
            if (right_join || left_join || t_.is(i_, "INNER")) ++i_;
            if ((right_join || left_join) && t_.is(i_, "OUTER")) ++i_;
            if (!t_.is(i_++, "JOIN")) return std::nullopt;
            std::optional<Part> right = operand();
            if (!right || !t_.is(i_++, "ON")) return std::nullopt;
            const std::string on(condition());
            if (right_join) {
                left = hang(*right, " LEFT JOIN ", *left, on);
                turned_ = true;
            } else if (right->single) {
                left = hang(*left, left_join ? " LEFT JOIN " : " INNER JOIN ", *right, on);
            } else if (!left_join) {
                left = hang(*right, " INNER JOIN ", *left, on);
            } else {
                return std::nullopt;
            }
        }
        return left;
    }

    static std::optional<Part> hang(const Part& chain, const char* join, const Part& table,
                                    const std::string& on) {
        if (!table.single || on.empty()) return std::nullopt;
        return Part{chain.text + join + table.text + " ON " + on, false};
    }

    // Up to the next join or the parenthesis that closes the one we are in.
    std::string_view condition() {
        const std::size_t first = i_;
        while (i_ < last_ && !t_.sign(i_, ')') && !t_.is_any(i_, {"INNER", "LEFT", "RIGHT", "JOIN"}))
            i_ = t_.sign(i_, '(') ? t_.behind_parenthesis(i_) : i_ + 1;
        return t_.span(first, i_);
    }

    const SqlTokens& t_;
    std::size_t i_, last_;
    bool turned_ = false;
};

// A RIGHT JOIN (B RIGHT JOIN (C INNER JOIN D ON x) ON y) ON z into C INNER JOIN D ON x LEFT JOIN B ON y LEFT
// JOIN A ON z: the keys of the inner tables serve, and the columns of T.* keep their names.
bool right_joins_to_left(std::string& sql) {
    const SqlTokens t(sql);
    const std::size_t from = find_word(t, 0, {"FROM"});
    if (!t.valid() || from == t.size()) return false;
    const std::size_t end = find_clause_end(t, from);
    const std::string_view before = t.span(from, end);
    const std::optional<std::string> chain = JoinChain(t, from + 1, end).flatten();
    if (!chain) return false;
    const std::size_t begin = t[from].begin;
    sql = replaced(sql, begin, begin + before.size(), "FROM " + *chain);
    return true;
}

struct ListedTable {
    std::string_view text;  // with its alias
    std::string_view name;  // what columns are qualified with
    std::string on;
    std::vector<std::size_t> needs;  // tables that its condition also names
    bool outer = false, placed = false;
};

// The comma form with (+) behind the columns of the outer table into LEFT JOIN.
class OuterMarks {
  public:
    explicit OuterMarks(const SqlTokens& t) : t_(t) {}

    // The text from FROM to the end of the conditions; nothing when a part of it is not understood.
    std::optional<std::string> rewrite(std::size_t from, std::size_t where, std::size_t end) {
        if (!read_tables(from + 1, where) || !read_conditions(where + 1, end)) return std::nullopt;
        std::string result;
        for (ListedTable& table : tables_) {
            if (table.outer) continue;
            result.append(result.empty() ? "FROM " : ", ").append(table.text);
            table.placed = true;
        }
        const bool marked =
            std::any_of(tables_.begin(), tables_.end(), [](const ListedTable& table) { return table.outer; });
        if (result.empty() || !marked || !place_outer(result)) return std::nullopt;
        return result.append(rest_);
    }

  private:
    bool read_tables(std::size_t i, std::size_t end) {
        while (i < end) {
            const std::size_t first = i;
            while (i < end && !t_.sign(i, ',')) {
                if (!t_.identifier(i)) return false;
                ++i;
            }
            if (first == i) return false;
            tables_.push_back({.text = t_.span(first, i), .name = t_.text(i - 1), .on = {}, .needs = {}});
            ++i;
        }
        return !tables_.empty();
    }

    bool read_conditions(std::size_t i, std::size_t end) {
        while (i < end) {
            const std::size_t first = i;
            bool between = false;
            while (i < end && (between || !t_.is(i, "AND"))) {
                if (t_.is(i, "OR")) return false;
                between = t_.is(i, "BETWEEN") || (between && !t_.is(i, "AND"));
                i = t_.sign(i, '(') ? t_.behind_parenthesis(i) : i + 1;
            }
            if (!read_condition(first, i)) return false;
            ++i;
        }
        return true;
    }

    bool read_condition(std::size_t first, std::size_t end) {
        std::string text;
        std::size_t outer = tables_.size(), from = first;
        std::vector<std::size_t> named;
        for (std::size_t i = first; i < end; ++i) {
            if (t_.identifier(i) && t_.sign(i + 1, '.')) {
                const std::size_t table = find_table(t_.text(i));
                if (table < tables_.size()) named.push_back(table);
            }
            if (!(t_.sign(i, '(') && t_.sign(i + 1, '+') && t_.sign(i + 2, ')'))) continue;
            if (named.empty() || (outer < tables_.size() && outer != named.back())) return false;
            outer = named.back();
            text.append(t_.span(from, i));
            from = i + 3;
            if (from < end) text += ' ';
        }
        text.append(t_.span(from, end));
        if (outer == tables_.size()) {
            rest_.append(rest_.empty() ? " WHERE " : " AND ").append(text);
            return !text.empty();
        }
        ListedTable& table = tables_[outer];
        table.outer = true;
        table.on.append(table.on.empty() ? "" : " AND ").append(text);
        for (const std::size_t n : named)
            if (n != outer) table.needs.push_back(n);
        return true;
    }

    bool place_outer(std::string& result) {
        const auto ready = [this](const ListedTable& table) {
            return !table.placed && std::all_of(table.needs.begin(), table.needs.end(),
                                                [this](std::size_t n) { return tables_[n].placed; });
        };
        for (;;) {
            const auto next = std::find_if(tables_.begin(), tables_.end(), ready);
            if (next == tables_.end()) break;
            result.append(" LEFT JOIN ").append(next->text).append(" ON ").append(next->on);
            next->placed = true;
        }
        return std::all_of(tables_.begin(), tables_.end(),
                           [](const ListedTable& table) { return table.placed; });
    }

    std::size_t find_table(std::string_view name) const {
        const auto same = [&](const ListedTable& table) { return equal_fold(table.name, name); };
        return static_cast<std::size_t>(std::find_if(tables_.begin(), tables_.end(), same) - tables_.begin());
    }

    const SqlTokens& t_;
    std::vector<ListedTable> tables_;
    std::string rest_;
};

bool outer_marks_to_left_join(std::string& sql) {
    const SqlTokens t(sql);
    const std::size_t from = find_word(t, 0, {"FROM"});
    const std::size_t where = find_clause_end(t, from);
    if (!t.valid() || !t.is(where, "WHERE")) return false;
    std::size_t end = find_clause_end(t, where + 1);
    if (end == t.size() && t.sign(end - 1, ';')) --end;
    const std::optional<std::string> text = OuterMarks(t).rewrite(from, where, end);
    if (!text) return false;
    sql = replaced(sql, t[from].begin, t[end - 1].end, *text);
    return true;
}

struct Rule {
    unsigned engines;
    std::string_view mark;  // stands somewhere in every text that the rule applies to
    bool (*apply)(std::string& sql);
};

constexpr std::array rules{
    Rule{.engines = engine_sqlite, .mark = "TOP", .apply = top_to_limit},
    Rule{.engines = engine_sqlite, .mark = "RIGHT", .apply = right_joins_to_left},
    Rule{.engines = engine_sqlite, .mark = "(+)", .apply = outer_marks_to_left_join},
};

char upper(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

bool holds(std::string_view sql, std::string_view mark) {
    return std::search(sql.begin(), sql.end(), mark.begin(), mark.end(),
                       [](char a, char b) { return upper(a) == b; }) != sql.end();
}

}  // namespace

std::string_view adapt(std::string_view sql, Engine engine, std::string& storage) {
    // every rule is about reading; the long texts that write are not even looked through
    const std::size_t start = std::min(sql.find_first_not_of(" \t\r\n"), sql.size());
    if (!equal_fold(sql.substr(start, 6), "SELECT")) return sql;
    bool changed = false;
    for (const Rule& rule : rules) {
        if (!(rule.engines & engine) || !holds(changed ? std::string_view(storage) : sql, rule.mark))
            continue;
        if (!changed) storage = sql;
        changed = rule.apply(storage) || changed;
    }
    return changed ? std::string_view(storage) : sql;
}

}  // namespace kalvane::ado

// Records the statements of the program, lets one of them fail, and plays back what ran.
#pragma once
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "support/seat.h"

namespace kalvane::test {

struct Recorded {
    std::string connection, text;  // "main", "config", or "history" for rows of the run history
};

// The program's statements from here to the end of the scope; the n-th (from 0, rows of the run history not
// counted) fails when asked.
class Recorder {
  public:
    explicit Recorder(int fail_at = -1) {
        ado::hook.before = [this, fail_at](const ado::Connection& c, std::string_view text) {
            if (c.name != "main" && c.name != "config") return;
            const bool history = text.find("プログラム稼動履歴") != std::string_view::npos;
            if (!history && positions++ == fail_at) {
                failed = text;
                throw ado::Error(7, "倒れました");
            }
            statements.push_back({history ? "history" : c.name, std::string(text)});
        };
    }
    ~Recorder() { ado::hook = {}; }
    Recorder(const Recorder&) = delete;
    Recorder& operator=(const Recorder&) = delete;

    std::vector<Recorded> statements;  // those that ran, history rows among them
    std::string failed;                // the one that did not
    int positions = 0;
};

// A statement of a sequence: its connection and how it begins.
using Expected = std::vector<std::pair<const char*, std::string>>;

inline Expected operator+(Expected a, const Expected& b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

inline void expect_sequence(const std::vector<Recorded>& ran, const Expected& expected) {
    for (std::size_t i = 0; i < std::max(ran.size(), expected.size()); ++i) {
        SCOPED_TRACE("statement " + std::to_string(i));
        ASSERT_LT(i, ran.size()) << "missing: " << expected[i].second;
        ASSERT_LT(i, expected.size()) << "too many: " << ran[i].text;
        EXPECT_EQ(ran[i].connection, expected[i].first);
        EXPECT_EQ(ran[i].text.substr(0, expected[i].second.size()), expected[i].second);
    }
}

// The run history rows in order, each cut to its first characters.
inline std::string history_rows(const Installation& at, int behind = 0) {
    return at.config("SELECT RTRIM(SUBSTR(摘要, 1, 23)) FROM プログラム稼動履歴 WHERE rowid > " +
                     std::to_string(behind) + " ORDER BY rowid");
}
inline int history_count(const Installation& at) {
    return std::stoi(at.config("SELECT COALESCE(MAX(rowid), 0) FROM プログラム稼動履歴"));
}

// Everything that documents leave behind.
inline std::string document_rows(const Installation& at) {
    std::string all;
    for (const char* sql :
         {"SELECT * FROM T営業請求 ORDER BY 事業所コード, 番号基準日付, 営業請求No",
          "SELECT * FROM T営業請求明細 ORDER BY 事業所コード, 番号基準日付, 営業請求No, 営業請求固有行No",
          "SELECT * FROM R営業請求 ORDER BY 番号基準日付, 営業請求履歴No, 赤黒区分, 営業請求No",
          "SELECT * FROM R営業請求明細 ORDER BY 番号基準日付, 営業請求履歴No, 赤黒区分, 営業請求No, "
          "営業請求固有行No",
          "SELECT * FROM 未集計情報 ORDER BY rowid", "SELECT * FROM A番号情報 ORDER BY 番号ID",
          "SELECT * FROM A期日別番号情報 ORDER BY 番号ID, 期日", "SELECT * FROM T閲覧 ORDER BY 閲覧No"})
        all += at.main(sql) + "\n\n";
    return all;
}

// With a statement failing at each position of an action in turn: the rest of the sequence runs as it would,
// what was let through stands in the database and nothing else does, and the failure stands in the run
// history. `prepare` brings the seat to the point where `act` begins; it writes nothing but the browse log.
template <class Prepare, class Act>
void fail_at_each_position(const Installation& at, Prepare prepare, Act act) {
    std::vector<Recorded> whole;
    int positions = 0;
    for (int n = -1; n < positions; ++n) {  // first whole, to count the positions
        SCOPED_TRACE("position " + std::to_string(n));
        at.restore();
        std::vector<Recorded> before, ran;
        std::string failed;
        {
            Seat seat(at);
            {
                Recorder recorder;
                prepare(seat);
                before = recorder.statements;
            }
            Recorder recorder(n);
            act(seat);
            ran = recorder.statements;
            failed = recorder.failed;
            if (n < 0) positions = recorder.positions;
            EXPECT_FALSE(process_ended());
            EXPECT_FALSE(failed_in_dispatch());
        }
        EXPECT_EQ(at.config("SELECT COUNT(*) FROM プログラム稼動履歴 WHERE 摘要 LIKE 'エラー %倒れました'"),
                  n < 0 ? "0" : "1");
        const std::string left = document_rows(at);
        at.restore();
        for (const auto& list : {before, ran})
            for (const Recorded& r : list) {
                if (r.connection != "main" || r.text.starts_with("SELECT")) continue;
                try {
                    at.main(r.text);
                } catch (const ado::Error&) {
                    // a row that an earlier failure left in the way
                }
            }
        EXPECT_EQ(left, document_rows(at));

        std::erase_if(ran, [](const Recorded& r) { return r.connection == "history"; });
        if (n < 0) {
            whole = ran;
            continue;
        }
        // another road may follow from what was not read, or from a number that was not taken
        if (!failed.starts_with("INSERT") && !failed.starts_with("DELETE")) continue;
        ASSERT_EQ(ran.size() + 1, whole.size()) << failed;
        for (std::size_t i = 0; i < ran.size(); ++i)
            EXPECT_EQ(ran[i].text, whole[i < static_cast<std::size_t>(n) ? i : i + 1].text) << i;
    }
    EXPECT_GT(positions, 10);
}

}  // namespace kalvane::test

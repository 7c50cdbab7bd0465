// Two stations, each a process of its own, change and delete the same documents at the same time. No
// statement is tied to another, so what must hold is what holds statement by statement.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "support/sequences.h"
#include "support/small_company.h"

namespace kalvane {
namespace {

using namespace test;

constexpr int documents = 4, rounds = 25;

// What one process does: opens the documents in turn and changes, deletes or writes each anew. Returns what
// it did, to be told through its exit: 0, or the line where something was not as it should be.
int work(const Installation& at, int station) {
    Seat seat(at);
    Seat::answer = [](const std::string& text) { return text == "削除しますか?"; };
    EntryScreen& s = seat.screen();
    for (int round = 0; round < rounds; ++round) {
        const int number = (round + station * 2) % documents + 1;
        open_document(seat, std::to_string(number));
        if (実行環境.新規入力中) {  // gone, or caught without its lines
            click(s.btn_画面クリア);
            実行環境.入力変更あり = false;
            continue;
        }
        if (round % 8 == 7) {
            if (s.btn_削除.enabled) click(s.btn_削除);
        } else {
            seat.enter(s.タイトル, "station " + std::to_string(station) + " round " + std::to_string(round));
            seat.enter(s.請求数量[0], std::to_string(round + 1));
            press_focus(s.請求伝票備考A);
            register_document(seat);
        }
        if (!実行環境.新規入力中 || process_ended() || failed_in_dispatch()) return 91;
    }
    for (const std::string& box : Seat::boxes)
        if (box != "削除しますか?") return 92;
    return 0;
}

using 二端末 = SmallCompany;

TEST_F(二端末, 同じ請求を変更し削除する) {
    lay_documents(documents);
    const int mark = history_count(at);
    pid_t processes[2];
    for (int station = 0; station < 2; ++station) {
        processes[station] = fork();
        ASSERT_GE(processes[station], 0);
        if (processes[station] == 0) _exit(work(at, station));
    }
    for (pid_t p : processes) {
        int status = -1;
        ASSERT_EQ(waitpid(p, &status, 0), p);
        EXPECT_TRUE(WIFEXITED(status));
        EXPECT_EQ(WEXITSTATUS(status), 0);
    }

    EXPECT_EQ(at.main("SELECT * FROM pragma_integrity_check"), "ok");
    EXPECT_EQ(at.config("SELECT * FROM pragma_integrity_check"), "ok");
    const auto history = [&](const std::string& like) {
        return std::stoi(at.config("SELECT COUNT(*) FROM プログラム稼動履歴 WHERE rowid > " +
                                   std::to_string(mark) + " AND 摘要 LIKE '" + like + "'"));
    };
    const auto count = [&](const std::string& sql) {
        return std::stoi(at.main("SELECT COUNT(*) FROM " + sql));
    };
    EXPECT_EQ(history("終了"), 2);
    // nothing failed but inserts that met a row of the other's
    EXPECT_EQ(history("エラー %"), history("エラー INSERT INTO %UNIQUE%"));

    // Every action left its queue rows, whatever else it met: a red one, and a black one unless it deleted.
    const int red = count("未集計情報 WHERE 赤黒区分 = '0'"),
              deleted = count("未集計情報 WHERE 登録情報区分 = '2'");
    EXPECT_EQ(count("未集計情報 WHERE 赤黒区分 = '1'"), documents + red - deleted);
    EXPECT_GT(red, deleted);
    EXPECT_GT(deleted, 0);
    EXPECT_EQ(history("出力終了 INSERT INTO [未集計情報%"), 2 * red - deleted);

    // A row without its black twin, or a red row of no black one, is told of in the run history.
    const std::string
        key = " AND r.番号基準日付 = t.番号基準日付 AND r.営業請求No = t.営業請求No AND ",
        header = " t WHERE # NOT EXISTS (SELECT * FROM R営業請求 r WHERE r.赤黒区分 = '1'" + key +
                 "r.タイトル = t.タイトル AND r.請求数量合計 = t.請求数量合計 AND r.登録日付 = t.登録日付)";
    const int lost_headers = history("エラー INSERT INTO [R営業請求]%"),
              lost_lines = history("エラー INSERT INTO [R営業請求明細]%");
    EXPECT_LE(count("T営業請求" + Replace(header, "#", "")), lost_headers);
    EXPECT_LE(count("R営業請求" + Replace(header, "#", "赤黒区分 = '0' AND")), lost_headers);
    EXPECT_LE(count("T営業請求明細 t WHERE NOT EXISTS (SELECT * FROM R営業請求明細 r WHERE r.赤黒区分 = '1'" +
                    key + "r.営業請求固有行No = t.営業請求固有行No AND r.請求数量 = t.請求数量)"),
              lost_lines);
    // No statement left half a row.
    EXPECT_EQ(count("T営業請求 WHERE ユーザID <> 'tanaka00001SEAT01' OR 得意先コード <> '000123'"), 0);
    EXPECT_EQ(count("T営業請求明細 WHERE 商品コード NOT IN ('P1', 'P2') OR 商品コード IS NULL"), 0);

    // What is left can be opened.
    Seat seat(at);
    for (int number = 1; number <= documents; ++number) {
        const std::string this_one = "営業請求No = '0000000" + std::to_string(number) + "'";
        const int lines =
            count("T営業請求 WHERE " + this_one) == 0 ? 0 : count("T営業請求明細 WHERE " + this_one);
        open_document(seat, std::to_string(number));
        EXPECT_EQ(実行環境.最終行 + 1, lines) << number;
    }
    EXPECT_TRUE(Seat::boxes.empty());
}

}  // namespace
}  // namespace kalvane

// A company small enough to work every figure out by hand, and rows for its documents. Its four decimals all
// differ, so that none can stand for another.
#pragma once
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "support/seat.h"

namespace kalvane::test {

inline void lay_masters(const Installation& at) {
    for (
        const char* sql :
        {R"(UPDATE Mユーザ SET 売上数量少数以下桁数 = '1', 売上単価少数以下桁数 = '2', 仕入数量少数以下桁数 = '3', )"
         R"(仕入単価少数以下桁数 = '4', 売上金額丸め方法 = '0', 仕入金額丸め方法 = '0', 更新実行区分 = '1', )"
         R"(伝票番号管理区分 = '0', 暗証番号有無 = '0', 決算月 = '3', 決算日 = '31')",
         "INSERT INTO M部門 (コード, 名称) VALUES ('010', '営業部')",
         "INSERT INTO Mセクション (コード, 名称) VALUES ('020', '第一課')",
         "UPDATE M担当者 SET 部門コード = '010', セクションコード = '020' WHERE コード = '00001'",
         R"(INSERT INTO M得意先 (コード, 名称A, 名称B, 御担当者名, 担当者コード, 消費税区分, 消費税算出区分, )"
         R"(消費税丸め方法, 消費税丸め桁位置, 消費税端数調整区分, 名称入力区分, 取引状況区分) VALUES )"
         R"(('000123', '株式会社 山田商店', '東京本店', '鈴木', '00001', '1', '2', '5', '0', '1', '0', '1'))",
         R"(INSERT INTO M商品 (コード, 名称A, 名称B, 単位, 売上課税区分, 売上消費税区分, 仕入課税区分, 仕入消費税区分, )"
         R"(税抜販売単価, 税込販売単価, 税抜仕入単価, 税込仕入単価, 仕入先コード, 取扱状況区分) VALUES )"
         R"(('P1', '鉛筆', 'HB', '本', '0', '0', '0', '0', 33, 36, 20, 22, '', '1'), )"
         R"(('P2', 'O''Brien Pad', NULL, '冊', '0', '2', '0', '0', 100, 110, 60, 66, '', '1'))"})
        at.main(sql);
}

// A new document of two lines, ready to register: 10 of P1 at 33 and 3 of P2 at 110 tax-in.
inline void type_two_lines(const Seat& seat) {
    EntryScreen& s = seat.screen();
    seat.enter(s.得意先コード, "123");
    seat.enter(s.タイトル, "It's 改装");
    seat.line(0, "P1", "10");
    seat.line(1, "P2", "3");
    press_focus(s.請求伝票備考A);
}
inline void register_document(const Seat& seat) {
    click(seat.screen().btn_登録);
}
inline void open_document(const Seat& seat, std::string_view number) {
    seat.enter(seat.screen().営業請求No, number);
}
// Opens the first document and makes the quantity of its first line 4.
inline void change_quantity(const Seat& seat) {
    open_document(seat, "1");
    seat.enter(seat.screen().請求数量[0], "4");
    press_focus(seat.screen().請求伝票備考A);
}
inline void say_yes() {
    Seat::answer = [](const std::string&) { return true; };
}

// A row of a table, "column=value, column=value"; columns that are not named are NULL.
inline void lay(const Installation& at, const std::string& table, std::string_view row) {
    std::string names, texts;
    while (!row.empty()) {
        const std::string_view pair = row.substr(0, row.find(", "));
        row.remove_prefix(std::min(pair.size() + 2, row.size()));
        const std::size_t mark = pair.find('=');
        names.append(names.empty() ? "[" : ",[").append(pair.substr(0, mark)) += "]";
        texts.append(texts.empty() ? "'" : ",'").append(pair.substr(mark + 1)) += "'";
    }
    at.main("INSERT INTO [" + table + "] (" + names + ") VALUES (" + texts + ")");
}

// The database of the company, and what documents left in it.
struct SmallCompany : testing::Test {
    SmallCompany() { lay_masters(at); }
    Installation at{setup::Content::empty};

    // Registers n documents of two lines each, in a run of its own, and keeps the databases so.
    void lay_documents(int n = 1) const {
        {
            Seat seat(at);
            for (int i = 0; i < n; ++i) {
                type_two_lines(seat);
                register_document(seat);
            }
        }
        at.keep();
    }
    void refer(const std::string& to, const std::string& from) const {
        at.main(
            "UPDATE T営業請求 SET 参照営業請求事業所コード = 事業所コード, 参照営業請求番号基準日付 = "
            "番号基準日付, 参照営業請求No = '" +
            to + "' WHERE 営業請求No = '" + from + "'");
    }
    std::string headers() const {
        return at.main(
            "SELECT 番号基準日付, 営業請求No, 営業請求日付, 請求数量合計 FROM T営業請求 ORDER BY 2");
    }
    std::string lines() const {
        return at.main(
            "SELECT 営業請求固有行No, 営業請求行No, 請求数量, 請求金額 FROM T営業請求明細 ORDER BY 2");
    }
    // In the order of their writing, as all below.
    std::string journal() const {
        return at.main(
            "SELECT 番号基準日付, 営業請求履歴No, 赤黒区分, 税抜請求金額合計 FROM R営業請求 ORDER BY rowid");
    }
    static constexpr const char* queue_rows =
        "SELECT 番号基準日付, 履歴No, 赤黒区分, 伝票No, 登録情報区分 FROM 未集計情報 ORDER BY rowid";
    std::string queue() const { return at.main(queue_rows); }
};

}  // namespace kalvane::test

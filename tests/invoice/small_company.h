// A company small enough to work every figure out by hand, and rows for its documents.
#pragma once
#include <algorithm>
#include <string>

#include "support/seat.h"

namespace kalvane::test {

inline void lay_masters(const Installation& at) {
    for (const char* sql :
         {"UPDATE Mユーザ SET 売上数量少数以下桁数 = '1', 売上単価少数以下桁数 = '2', 仕入数量少数以下桁数 = "
          "'1', 仕入単価少数以下桁数 = '2', 売上金額丸め方法 = '0', 仕入金額丸め方法 = '0', 更新実行区分 = "
          "'1', 伝票番号管理区分 = '0', 暗証番号有無 = '0', 決算月 = '3', 決算日 = '31'",
          "INSERT INTO M部門 (コード, 名称) VALUES ('010', '営業部')",
          "INSERT INTO Mセクション (コード, 名称) VALUES ('020', '第一課')",
          "UPDATE M担当者 SET 部門コード = '010', セクションコード = '020' WHERE コード = '00001'",
          "INSERT INTO M得意先 (コード, 名称A, 名称B, 御担当者名, 担当者コード, 消費税区分, 消費税算出区分, "
          "消費税丸め方法, 消費税丸め桁位置, 消費税端数調整区分, 名称入力区分, 取引状況区分) VALUES "
          "('000123', '株式会社 山田商店', '東京本店', '鈴木', '00001', '1', '2', '5', '0', '1', '0', '1')",
          "INSERT INTO M商品 (コード, 名称A, 名称B, 単位, 売上課税区分, 売上消費税区分, 仕入課税区分, "
          "仕入消費税区分, 税抜販売単価, 税込販売単価, 税抜仕入単価, 税込仕入単価, 仕入先コード, "
          "取扱状況区分) VALUES ('P1', '鉛筆', 'HB', '本', '0', '0', '0', '0', 33, 36, 20, 22, '', '1'), "
          "('P2', 'O''Brien Pad', NULL, '冊', '0', '2', '0', '0', 100, 110, 60, 66, '', '1')"})
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

// Registers n documents of two lines each, in a run of its own, and keeps the databases so.
inline void lay_documents(const Installation& at, int n = 1) {
    {
        Seat seat(at);
        for (int i = 0; i < n; ++i) {
            type_two_lines(seat);
            register_document(seat);
        }
    }
    at.keep();
}

inline void open_document(const Seat& seat, std::string_view number) {
    seat.enter(seat.screen().営業請求No, number);
}

// Empties a field and leaves it by Enter.
inline void empty_field(const Seat& seat, Control& c) {
    press_focus(c);
    press_key(seat.screen(), Key::Delete);
    press_key(seat.screen(), Key::Enter);
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

}  // namespace kalvane::test

// The table of the entry screen against the columns of the document, and states of the screen that the keys
// do not reach.
#include <gtest/gtest.h>

#include <algorithm>

#include "document/clearing.h"
#include "records/columns.h"
#include "screen/screen_display.h"
#include "support/members.h"
#include "support/seat.h"
#include "support/table.h"

namespace kalvane {
namespace {

// The column that a field of the screen is named after: without the prefix of a check box, and without what
// the list of names beside a code adds.
std::string_view column_name(const ScreenField& f) {
    std::string_view name = f.name;
    if (name.starts_with("chb_")) name.remove_prefix(4);
    constexpr std::string_view names = "名称";
    if (f.kind == ControlKind::combo) name.remove_suffix(names.size());
    return name;
}

std::string_view column_of(const ScreenField& f) {
    for (const HeaderColumn& c : header_columns)
        if (c.field.is(f.shows.key_text) || c.field.is(f.shows.head_text) || c.field.is(f.shows.head_digit) ||
            c.field.is(f.shows.head_money))
            return c.field.column;
    for (const LineColumn& c : line_columns)
        if (c.field.is(f.shows.line_text) || c.field.is(f.shows.line_digit) || c.field.is(f.shows.line_money))
            return c.field.column;
    return "";
}

TEST(画面表, StoredFieldsStandInTheColumnsUnderTheirName) {
    // parts of a column, names of the masters, marks and a copy
    constexpr std::string_view without_column[] = {
        "営業請求日付年", "営業請求日付月", "営業請求日付日",          "担当者名", "部門名", "セクション名",
        "chb_複写区分",   "仕入商品名",     "chb_KalvaneEnvelopePrint"};
    int stored = 0;
    for (const ScreenField& f : screen_fields()) {
        EXPECT_EQ(f.look_up != nullptr, f.store == Store::head_code || f.store == Store::line_code) << f.name;
        if ((f.store == Store::none && !f.shows.head_money) || std::ranges::count(without_column, f.name))
            continue;
        EXPECT_EQ(column_of(f), column_name(f)) << f.name;
        ++stored;
    }
    // 11 codes, 10 texts with the memo, 10 codes and lists of the head, 8 totals; 2 codes, 4 texts, 8
    // figures, the kind twice and its check in the lines
    EXPECT_EQ(stored, 11 + 10 + 10 + 8 + 2 + 4 + 8 + 3);
}

// --- states of the screen

struct 画面 : testing::Test {
    static const test::Installation& at() {
        static const test::Installation made;
        return made;
    }
    test::Seat seat{(at().restore(), at())};
    EntryScreen& s = seat.screen();

    void two_lines() const {
        seat.enter(s.得意先コード, "19");
        seat.line(0, "P0001", "10");
        seat.line(1, "P0002", "5");
    }
};

// Line 1 is empty here and line 0 marked. Last and current line, and whether the four buttons can be pressed.
TEST_F(画面, ボタンは行と印に従う) {
    two_lines();
    請求明細行[0].複写区分 = 1;
    明細初期化(1);
    for (const auto& r :
         test::table("-1|0|nnnn ; 0|0|yynn ; 0|1|ynyy ; 1|1|yyyy ; 996|1|yyyy ; 997|1|ynyy")) {
        実行環境.最終行 = to_i16(r[0]);
        実行環境.現在行 = to_i16(r[1]);
        ボタン状態更新(false);
        std::string enabled;
        for (const Control* c : {&s.btn_行クリア, &s.btn_行挿入, &s.btn_行複写, &s.btn_指定行複写})
            enabled += c->enabled ? "y" : "n";
        EXPECT_EQ(enabled, r[2]) << r[0] << r[1];
        EXPECT_EQ(s.btn_指定行クリア.enabled, r[0] != "-1");
        EXPECT_FALSE(s.btn_指定行コピー.enabled);  // a new document
    }
    // each of six things keeps a row from being empty; blanks do not
    実行環境.最終行 = 実行環境.現在行 = 1;
    for (const auto& r : test::table(R"(商品コード=x|full ; 商品名=x|full ; 請求単位=x|full ; 請求数量=-1|full
        請求単価=-1|full ; 請求金額=-1|full ; 仕入数量=1|)")) {
        明細初期化(1);
        請求明細行[1].商品名 = "  ";
        test::set(r[0], 1);
        ボタン状態更新(false);
        EXPECT_EQ(s.btn_行複写.enabled, r[1].empty()) << r[0];
    }
}

TEST_F(画面, 参照元は番号があるときだけ) {
    for (const char* number : {"営業見積No", "顧客注文No", "営業納品No", "参照営業請求No"})
        for (const char* text : {"00000012", "00000000", ""}) {
            test::set(std::string(number) + "=" + text);
            ボタン状態更新(false);
            EXPECT_EQ(s.btn_参照元No.enabled, std::string(text) == "00000012") << number << text;
        }
}

TEST_F(画面, 色は課税と税込に従う) {
    two_lines();
    const Colour untaxed = RGB(0, 128, 128), tax_in = RGB(128, 128, 255), black = window_text_colour;
    for (const int taxation : {0, 1, 2})
        for (const int kind : {1, 2}) {
            test::set("売上消費税区分=1 売上課税区分=" + std::to_string(taxation) + " 仕入消費税区分=" +
                      std::to_string(kind) + " 仕入課税区分=" + (taxation == 1 ? "0" : "1"));
            明細行表示(0, 0);
            EXPECT_EQ(s.請求金額[0].fore, taxation == 1 ? untaxed : black);
            EXPECT_EQ(s.仕入金額[0].fore, taxation == 1 ? black : untaxed);
            EXPECT_EQ(s.仕入消費税[0].fore, kind == 2 ? tax_in : black);
            EXPECT_EQ(s.請求消費税[0].fore, black);
        }
}

// A figure that leaves the currency's range: a box, the document as it was, and the operator goes on.
TEST_F(画面, 桁あふれは入力前に戻る) {
    two_lines();
    請求明細行[1].請求金額 = 通貨::whole(922'337'203'000'000);
    請求明細行[1].請求単価 = {};
    const 通貨 price = 請求明細行[0].請求単価;
    seat.enter(s.請求単価[0], "99999999.99");
    ASSERT_EQ(test::Seat::boxes.size(), 1u);
    EXPECT_EQ(請求明細行[0].請求単価, price);
    EXPECT_EQ(s.請求単価[0].value, price);
    EXPECT_EQ(s.active, &s.請求単価[0]);
    請求明細行[1].請求金額 = {};
    seat.enter(s.請求単価[0], "5");
    EXPECT_EQ(請求明細行[0].請求金額, 通貨::whole(50));
}

// The events of a row count only while it is the current one, and leaving twice changes once.
TEST_F(画面, 他の行の離脱は無視する) {
    two_lines();
    press_focus(s.請求数量[0]);
    type_text(s, "3");
    for (const bool elsewhere : {true, false}) {
        実行環境.現在画面行 = 実行環境.現在行 = elsewhere;
        s.請求数量[0].LostFocus(s.請求数量[0]);
        EXPECT_EQ(請求明細行[0].請求数量, 通貨::whole(elsewhere ? 10 : 3));
        EXPECT_EQ(請求明細行[1].請求数量, 通貨::whole(5));
    }
    実行環境.入力変更あり = false;
    s.請求数量[0].LostFocus(s.請求数量[0]);
    EXPECT_FALSE(実行環境.入力変更あり);
}

// Nothing reacts while a routine writes the controls or a sibling program is waited for.
TEST_F(画面, 処理中と連携待ち中は何もしない) {
    two_lines();
    for (bool RunContext::*flag : {&RunContext::処理中, &RunContext::連携待ち中}) {
        press_focus(s.タイトル);
        実行環境.*flag = true;
        type_text(s, "無視");
        press_focus(s.請求数量[1]);
        click(s.btn_画面クリア);
        click(s.btn_仕入先表示);
        choose(s.tab_詳細, 1);
        choose(s.tab_詳細, 0);
        EXPECT_EQ(請求ヘッダ.タイトル, "");
        EXPECT_EQ(請求ヘッダ.得意先コード, "000019");
        EXPECT_FALSE(実行環境.仕入先表示);
        EXPECT_EQ(実行環境.取得コントロール, &s.タイトル);
        実行環境.*flag = false;
        画面表示();
    }
    実行環境.連携待ち中 = true;
    EXPECT_FALSE(close_form(s));
    EXPECT_TRUE(test::Seat::boxes.empty());
    実行環境.連携待ち中 = false;
}

}  // namespace
}  // namespace kalvane

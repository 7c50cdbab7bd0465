// The table of the entry screen against the columns of the document, and states of the screen that the keys
// do not reach.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "invoice/clearing.h"
#include "invoice/columns.h"
#include "invoice/screen_display.h"
#include "setup/schema.h"
#include "support/seat.h"

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
        if ((f.key_text && c.key == f.key_text) || (f.head_text && c.text == f.head_text) ||
            (f.head_digit && c.digit == f.head_digit) || (f.head_money && c.money == f.head_money))
            return c.name;
    for (const LineColumn& c : line_columns)
        if ((f.line_text && c.text == f.line_text) || (f.line_digit && c.digit == f.line_digit) ||
            (f.line_money && c.money == f.line_money))
            return c.name;
    return "";
}

using Names = std::set<std::string_view>;
Names names_of(std::string_view text) {
    const auto words = setup::words(text);
    return {words.begin(), words.end()};
}

TEST(画面表, StoredFieldsStandInTheColumnsUnderTheirName) {
    // parts of a column, names of the masters, marks and a copy
    const Names without_column = names_of(
        "営業請求日付年 営業請求日付月 営業請求日付日 担当者名 部門名 セクション名 chb_複写区分 仕入商品名 "
        "chb_KalvaneEnvelopePrint");
    int stored = 0;
    for (const ScreenField& f : screen_fields()) {
        if ((f.store == Store::none && !f.head_money) || without_column.contains(f.name)) continue;
        EXPECT_EQ(column_of(f), column_name(f)) << f.name;
        ++stored;
    }
    // 11 codes, 10 texts with the memo, 10 codes and lists of the head, 8 totals; 2 codes, 4 texts, 8
    // figures, the kind twice and its check in the lines
    EXPECT_EQ(stored, 11 + 10 + 10 + 8 + 2 + 4 + 8 + 3);
}

// Columns that no key of the operator reaches directly: keys, settings of partners and products, shipped and
// sold figures, approvals and stamps.
constexpr const char* header_not_typed =
    "営業見積事業所コード 営業見積番号基準日付 顧客注文事業所コード 顧客注文番号基準日付 "
    "営業納品事業所コード "
    "営業納品番号基準日付 参照営業請求事業所コード 参照営業請求番号基準日付 営業請求日付 請求金額合計 "
    "仕入金額合計 "
    "得意先消費税丸め方法 得意先消費税丸め桁位置 得意先消費税端数調整区分 得意先名称入力区分 "
    "納品先名称入力区分 "
    "出荷完了区分 完了フラグ 伝票発行区分 承認日付 承認者コード 承認区分 登録日付 更新日付";
constexpr const char* line_not_typed =
    "営業請求固有行No 営業請求行No 売上課税区分 売上消費税区分 仕入課税区分 仕入消費税区分 商品売上課税区分 "
    "商品売上消費税区分 商品仕入課税区分 商品仕入消費税区分 商品税抜販売単価 商品税抜仕入単価 "
    "商品税込販売単価 "
    "商品税込仕入単価 商品名称入力区分 仕入先消費税区分 仕入先消費税算出区分 仕入先消費税丸め方法 "
    "仕入先消費税丸め桁位置 仕入先消費税端数調整区分 仕入先名称入力区分 出荷数量 税抜出荷金額 税込出荷金額 "
    "売上数量 "
    "税抜売上金額 税込売上金額 明細完了区分 明細完了日付 明細メモ 承認日付 承認者コード 承認区分 登録日付 "
    "更新日付";

TEST(画面表, ColumnsHaveAFieldOrAreNotTyped) {
    Names fields;
    for (const ScreenField& f : screen_fields()) fields.insert(column_of(f));
    const auto crossed = [&](const auto& columns, const Names& not_typed) {
        for (const auto& c : columns) {
            if (!c.text && !c.digit && !c.money) continue;  // keys, copies of the head, stamps
            EXPECT_NE(fields.contains(c.name), not_typed.contains(c.name)) << c.name;
        }
    };
    crossed(header_columns, names_of(header_not_typed));
    crossed(line_columns, names_of(line_not_typed));
}

TEST(画面表, NamesAreUniqueAndFoundAgain) {
    reset_run();
    std::set<std::string_view> names;
    for (const ScreenField& f : screen_fields()) {
        EXPECT_TRUE(names.insert(f.name).second) << f.name;
        EXPECT_NE(f.one == nullptr, f.rows == nullptr) << f.name;
        for (int row = f.rows ? 0 : -1; row < (f.rows ? screen_rows : 0); ++row) {
            const Control* c = find_control(frmKalvaneInvoiceEntry, f.name, row);
            ASSERT_NE(c, nullptr) << f.name << row;
            EXPECT_EQ(field_of(*c), &f);
        }
    }
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

TEST_F(画面, ボタンは行と印に従う) {
    two_lines();
    struct Row {
        int last, current;
        bool clear, insert, repeat, copy_to;
    };
    // line 1 is empty here and line 0 marked
    請求明細行[0].複写区分 = 1;
    明細初期化(1);
    for (const Row& row : {Row{-1, 0, false, false, false, false}, Row{0, 0, true, true, false, false},
                           Row{0, 1, true, false, true, true}, Row{1, 1, true, true, true, true},
                           Row{996, 1, true, true, true, true}, Row{997, 1, true, false, true, true}}) {
        実行環境.最終行 = static_cast<std::int16_t>(row.last);
        実行環境.現在行 = static_cast<std::int16_t>(row.current);
        ボタン状態更新(false);
        EXPECT_EQ(s.btn_行クリア.enabled, row.clear) << row.last << row.current;
        EXPECT_EQ(s.btn_行挿入.enabled, row.insert) << row.last << row.current;
        EXPECT_EQ(s.btn_行複写.enabled, row.repeat) << row.last << row.current;
        EXPECT_EQ(s.btn_指定行複写.enabled, row.copy_to) << row.last << row.current;
        EXPECT_EQ(s.btn_指定行クリア.enabled, row.last >= 0) << row.last;
        EXPECT_FALSE(s.btn_指定行コピー.enabled);  // a new document
    }
    // each of six things keeps a row from being empty; blanks do not
    実行環境.最終行 = 実行環境.現在行 = 1;
    LineRecord& l = 請求明細行[1];
    const auto empty = [&] {
        ボタン状態更新(false);
        return s.btn_行複写.enabled;
    };
    for (auto text : {&LineRecord::商品コード, &LineRecord::商品名, &LineRecord::請求単位}) {
        l.*text = "x";
        EXPECT_FALSE(empty());
        l.*text = "  ";
        EXPECT_TRUE(empty());
    }
    for (auto figure : {&LineRecord::請求数量, &LineRecord::請求単価, &LineRecord::請求金額}) {
        l.*figure = 通貨::from_units(-1);
        EXPECT_FALSE(empty());
        l.*figure = {};
    }
    l.仕入数量 = 通貨::whole(1);
    EXPECT_TRUE(empty());
}

TEST_F(画面, 参照元は番号があるときだけ) {
    for (auto number : {&HeaderRecord::営業見積No, &HeaderRecord::顧客注文No, &HeaderRecord::営業納品No,
                        &HeaderRecord::参照営業請求No}) {
        for (const auto& [text, enabled] :
             {std::pair{"00000012", true}, std::pair{"00000000", false}, std::pair{"", false}}) {
            請求ヘッダ.*number = text;
            ボタン状態更新(false);
            EXPECT_EQ(s.btn_参照元No.enabled, enabled) << text;
        }
    }
}

TEST_F(画面, 色は課税と税込に従う) {
    two_lines();
    LineRecord& l = 請求明細行[0];
    const Colour untaxed = RGB(0, 128, 128), tax_in = RGB(128, 128, 255);
    for (const int taxation : {0, 1, 2})
        for (const int kind : {1, 2}) {
            l.売上課税区分 = static_cast<std::int16_t>(taxation);
            l.仕入消費税区分 = static_cast<std::int16_t>(kind);
            l.仕入課税区分 = l.売上消費税区分 = static_cast<std::int16_t>(taxation == 1 ? 0 : 1);
            明細行表示(0, 0);
            EXPECT_EQ(s.請求金額[0].fore, taxation == 1 ? untaxed : window_text_colour);
            EXPECT_EQ(s.仕入金額[0].fore, taxation == 1 ? window_text_colour : untaxed);
            EXPECT_EQ(s.仕入消費税[0].fore, kind == 2 ? tax_in : window_text_colour);
            EXPECT_EQ(s.請求消費税[0].fore, window_text_colour);
        }
}

// A figure that leaves the currency's range: a box, and the document as it was.
TEST_F(画面, 桁あふれは入力前に戻る) {
    two_lines();
    請求明細行[1].請求金額 = 通貨::whole(922'337'203'000'000);
    請求明細行[1].請求単価 = {};
    const 通貨 price = 請求明細行[0].請求単価;
    press_focus(s.請求単価[0]);
    type_text(s, "99999999.99");
    press_key(s, Key::Enter);
    ASSERT_EQ(test::Seat::boxes.size(), 1u);
    EXPECT_EQ(請求明細行[0].請求単価, price);
    EXPECT_EQ(s.請求単価[0].value, price);
    EXPECT_EQ(s.active, &s.請求単価[0]);
    EXPECT_FALSE(process_ended());
    // the operator goes on with another figure
    請求明細行[1].請求金額 = {};
    type_text(s, "5");
    press_key(s, Key::Enter);
    EXPECT_EQ(請求明細行[0].請求金額, 通貨::whole(50));
}

// The events of a row count only while it is the current one, and leaving twice changes once.
TEST_F(画面, 他の行の離脱は無視する) {
    two_lines();
    press_focus(s.請求数量[0]);
    type_text(s, "3");
    実行環境.現在画面行 = 1;
    s.請求数量[0].LostFocus(s.請求数量[0]);
    EXPECT_EQ(請求明細行[0].請求数量, 通貨::whole(10));
    EXPECT_EQ(請求明細行[1].請求数量, 通貨::whole(5));
    実行環境.現在画面行 = 0;
    実行環境.現在行 = 0;
    s.請求数量[0].LostFocus(s.請求数量[0]);
    EXPECT_EQ(請求明細行[0].請求数量, 通貨::whole(3));
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

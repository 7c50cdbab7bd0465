// What the fields of the entry screen take, and states of the screen that the keys do not reach.
#include <gtest/gtest.h>

#include <map>
#include <set>
#include <sstream>

#include "base/format.h"
#include "document/clearing.h"
#include "screen/screen_display.h"
#include "support/members.h"
#include "support/seat.h"
#include "support/table.h"

namespace kalvane {
namespace {

// What each field takes, and its bytes; a code its limits, a figure its digits before the point and behind
// it, in a company whose four decimals are 1 to 4.
const auto inputs = test::table(R"(
    digits|営業請求日付年 4 営業請求日付月 2 営業請求日付日 2 営業請求No 8 営業見積No 8 顧客注文No 8 営業納品No 8 \
      参照営業請求No 8 得意先御担当者コード 5 担当者コード 5 部門コード 3 セクションコード 3
    code|得意先コード 8 納品先コード 8 商品コード 16 仕入先コード 8
    japanese|得意先名称A 32 得意先名称B 32 御担当者名 40 納品先名称A 32 納品先名称B 32 タイトル 60 支払条件 60 商品名 60 \
      請求単位 4 仕入先名称A 40 仕入単位 4 請求伝票備考A 60 請求伝票備考B 60 営業請求メモ 0
    none|担当者名 40 部門名 40 セクション名 40 仕入商品名 60
    number|得意先消費税算出区分 0-2 得意先消費税区分 1-2 消費税表示区分 0-1 合計表示区分 0-1 売上完了区分 0-1 行区分 0-5 \
      請求数量 6.1 請求単価 8.2 請求金額 10.0 請求消費税 10.0 仕入数量 6.3 仕入単価 8.4 仕入金額 10.0 仕入消費税 10.0
    total|請求数量合計 1 税抜請求金額合計 0 請求消費税合計 0 税込請求金額合計 0 仕入数量合計 3 税抜仕入金額合計 0 \
      仕入消費税合計 0 税込仕入金額合計 0)");

std::string taken(const Control& c, const std::string& kind) {
    if (kind == "total") return std::to_string(c.decimals);
    if (kind != "number") return std::to_string(c.max_length);
    const std::string most = plain_number(Fix(c.largest.value())),
                      least = plain_number(Fix(c.smallest.value()));
    if (most.size() == 1) return least + "-" + most;
    EXPECT_EQ("-" + most, least) << c.name;
    return std::to_string(most.size()) + "." + std::to_string(c.decimals);
}

TEST(画面表, 入力の形) {
    const std::map<std::string, InputMode> modes{
        {"digits", InputMode::digits},     {"code", InputMode::code}, {"number", InputMode::number},
        {"japanese", InputMode::japanese}, {"none", InputMode::none}, {"total", InputMode::none}};
    const test::Installation at(setup::Content::empty);
    at.main(
        "UPDATE Mユーザ SET 売上数量少数以下桁数 = '1', 売上単価少数以下桁数 = '2', 仕入数量少数以下桁数 = "
        "'3', 仕入単価少数以下桁数 = '4'");
    const test::Seat seat(at);
    std::set<std::string> fields, seen;
    for (const Control* c : seat.screen().controls)
        if (c->kind == ControlKind::xField || c->kind == ControlKind::xText || c->kind == ControlKind::xNum)
            fields.insert(c->name);
    for (const auto& r : inputs) {
        std::istringstream words(r[1]);
        for (std::string name, expected; words >> name >> expected; seen.insert(name))
            for (const Control* c : seat.screen().controls) {
                if (c->name != name) continue;
                EXPECT_EQ(c->mode, modes.at(r[0])) << name;
                EXPECT_EQ(taken(*c, r[0]), expected) << name << c->row;
            }
    }
    EXPECT_EQ(fields, seen);
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

// A gap is shown in its page of ten; the last page ends with the bar's range, so that every row shows a line.
// Lines of the document, index of the gap, index at the top.
TEST_F(画面, 未入力の行の頁) {
    two_lines();
    for (const auto& r : test::table("999|985|980 ; 999|995|988 ; 999|998|989 ; 992|991|983")) {
        const int gap = to_i16(r[1]), top = to_i16(r[2]);
        実行環境.最終行 = static_cast<std::int16_t>(to_i16(r[0]) - 1);
        for (int i = 0; i < line_capacity; ++i) 請求明細行[i].行区分 = i != gap;
        press_focus(s.タイトル);
        dispatch([] { 登録要求(); });
        EXPECT_EQ(実行環境.先頭行, top) << r[1];
        EXPECT_EQ(実行環境.現在行, gap);
        EXPECT_EQ(s.active, &s.行区分[static_cast<std::size_t>(gap - top)]);
        EXPECT_TRUE(s.scl_行.number == top && s.scl_行.scroll_max >= top);
        EXPECT_EQ(s.Lab_行No[9].caption, std::to_string(top + 10));
    }
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

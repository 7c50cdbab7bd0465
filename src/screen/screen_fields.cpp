// The table of the entry screen's controls, in the tab order.
#include <algorithm>

#include "document/calculation.h"
#include "document/loading.h"
#include "document/lookups.h"
#include "screen/screen_model.h"

namespace kalvane {
namespace {

constexpr TabPlace stop(int index) {
    return {index, true};
}
constexpr TabPlace no_stop(int index) {  // entered by a click, or while the document says so
    return {index, false};
}

constexpr Flow head(int order) {
    return {Area::head, order};
}
constexpr Flow lines(int order) {
    return {Area::lines, order};
}
constexpr Flow tail{Area::tail, 1};

constexpr Input digits(int length, const char* mask = "") {
    return {.mode = InputMode::digits, .max_length = length, .mask = mask};
}
constexpr Input code(int length, const char* mask = "") {
    return {.mode = InputMode::code, .max_length = length, .mask = mask};
}
constexpr Input japanese(int length) {
    return {.mode = InputMode::japanese, .max_length = length};
}
constexpr Input name(int length) {
    return {.mode = InputMode::japanese, .max_length = length, .limit_notice = true};
}
constexpr Input display(int length) {
    return {.mode = InputMode::none, .max_length = length};
}
constexpr Input digit{.mode = InputMode::number, .max_length = 1};
constexpr Input number{.mode = InputMode::number};

// --- where Tab stops in a row
bool ordinary(const LineRecord& l) {
    return l.行区分 == 1;
}
bool ordinary_or_total(const LineRecord& l) {
    return l.行区分 >= 1;
}
bool unit_is_typed(const LineRecord& l) {
    return ordinary(l) && (l.商品コード.empty() || l.商品名称入力区分 != 0);
}
bool sale_amount_is_typed(const LineRecord& l) {
    return ordinary(l) && (l.請求数量.is_zero() || l.請求単価.is_zero());
}
bool purchase_amount_is_typed(const LineRecord& l) {
    return ordinary(l) && (l.仕入数量.is_zero() || l.仕入単価.is_zero());
}

void purchase_quantity_follows(int i) {
    請求明細行[i].仕入数量 = 請求明細行[i].請求数量;
}

using S = EntryScreen;
using enum ControlKind;

// A control under its name; with the member of the head or of the line that has its name too.
#define CONTROL(c) .name = #c, .control = &S::c
#define HEAD(c) CONTROL(c), .shows = &HeaderRecord::c
#define LINE(c) CONTROL(c), .shows = &LineRecord::c

// A row begins with what makes the control; what it stores and what follows stands below.
// clang-format off
constexpr auto fields = std::to_array<ScreenField>({
    // --- date and numbers
    {HEAD(営業請求日付年), .tab = stop(1), .flow = head(1), .input = digits(4, "0000"),
     .store = Store::date_part, .panel = &S::itm_ttl_営業請求日付},
    {HEAD(営業請求日付月), .tab = stop(2), .flow = head(2), .input = digits(2, "00"),
     .store = Store::date_part},
    {HEAD(営業請求日付日), .tab = stop(3), .flow = head(3), .input = digits(2, "00"),
     .store = Store::date_part},
    {CONTROL(営業請求No), .shows = &RunContext::営業請求No, .tab = stop(4), .flow = head(4),
     .input = digits(8, "00000000"), .store = Store::head_code, .look_up = 営業請求No変更, .loads = true,
     .list = {ListWindow::wnd営業請求No一覧, &S::営業見積No, &S::btn_営業請求No}},
    {HEAD(営業見積No), .tab = stop(5), .flow = head(5), .input = digits(8, "00000000"),
     .store = Store::head_code, .look_up = 営業見積No変更,
     .list = {ListWindow::wnd営業見積No一覧, &S::顧客注文No, &S::btn_営業見積No}},
    {HEAD(顧客注文No), .tab = stop(6), .flow = head(5), .input = digits(8, "00000000"),
     .store = Store::head_code, .look_up = 顧客注文No変更,
     .list = {ListWindow::wnd顧客注文No一覧, &S::営業納品No, &S::btn_顧客注文No}},
    {HEAD(営業納品No), .tab = stop(7), .flow = head(5), .input = digits(8, "00000000"),
     .store = Store::head_code, .look_up = 営業納品No変更,
     .list = {ListWindow::wnd営業納品No一覧, &S::参照営業請求No, &S::btn_営業納品No}},
    {HEAD(参照営業請求No), .tab = stop(8), .flow = head(5), .input = digits(8, "00000000"),
     .store = Store::head_code, .look_up = 参照営業請求No変更,
     .list = {ListWindow::wnd営業請求No一覧, &S::得意先コード, &S::btn_参照営業請求No}},
    // --- customer
    {HEAD(得意先コード), .tab = stop(9), .flow = head(5), .input = code(8, "000000"),
     .store = Store::head_code, .look_up = 得意先コード変更,
     .list = {ListWindow::wnd得意先一覧, &S::得意先名称A, &S::btn_得意先コード}},
    {HEAD(得意先名称A), .tab = stop(10), .flow = head(6), .input = name(32), .store = Store::head_text,
     .step_over = {&S::得意先コード, &S::御担当者名, &HeaderRecord::得意先名称入力区分},
     .list = {ListWindow::wnd請求得意先名一覧, &S::得意先名称B}},
    {HEAD(得意先名称B), .tab = stop(11), .flow = head(6), .input = name(32), .store = Store::head_text,
     .step_over = {&S::得意先コード, &S::御担当者名, &HeaderRecord::得意先名称入力区分}},
    {HEAD(得意先御担当者コード), .tab = no_stop(12), .flow = head(6), .input = digits(5, "00000"),
     .store = Store::head_code, .look_up = 得意先御担当者コード変更,
     .list = {ListWindow::wnd得意先御担当者一覧, &S::御担当者名, &S::btn_得意先御担当者コード}},
    {HEAD(御担当者名), .tab = stop(13), .flow = head(6), .input = name(40), .store = Store::head_text},
    // --- own staff
    {HEAD(担当者コード), .tab = stop(14), .flow = head(6), .input = digits(5, "00000"),
     .store = Store::head_code, .look_up = 担当者コード変更,
     .list = {ListWindow::wnd担当者一覧, &S::担当者名, &S::btn_担当者コード}},
    {HEAD(担当者名), .tab = stop(15), .flow = head(7), .input = display(40),
     .step_over = {&S::担当者コード, &S::納品先コード}},
    {HEAD(部門コード), .tab = stop(16), .flow = head(7), .input = digits(3, "000"),
     .store = Store::head_code, .look_up = 部門コード変更,
     .list = {ListWindow::wnd部門一覧, &S::部門名, &S::btn_部門コード}},
    {HEAD(部門名), .tab = stop(17), .flow = head(8), .input = display(40),
     .step_over = {&S::部門コード, &S::セクションコード}},
    {HEAD(セクションコード), .tab = stop(18), .flow = head(8), .input = digits(3, "000"),
     .store = Store::head_code, .look_up = セクションコード変更,
     .list = {ListWindow::wndセクション一覧, &S::セクション名, &S::btn_セクションコード}},
    {HEAD(セクション名), .tab = stop(19), .flow = head(9), .input = display(40),
     .step_over = {&S::セクションコード, &S::納品先コード}},
    // --- delivery
    {HEAD(納品先コード), .tab = stop(20), .flow = head(9), .input = code(8, "000000"),
     .store = Store::head_code, .look_up = 納品先コード変更,
     .list = {ListWindow::wnd納品先一覧, &S::納品先名称A, &S::btn_納品先コード}},
    {HEAD(納品先名称A), .tab = stop(21), .flow = head(9), .input = name(32), .store = Store::head_text,
     .step_over = {&S::納品先コード, &S::タイトル, &HeaderRecord::納品先名称入力区分},
     .list = {ListWindow::wnd請求納品先名一覧, &S::納品先名称B}},
    {HEAD(納品先名称B), .tab = stop(22), .flow = head(9), .input = name(32), .store = Store::head_text,
     .step_over = {&S::納品先コード, &S::タイトル, &HeaderRecord::納品先名称入力区分}},
    // --- tax and totals
    {HEAD(得意先消費税算出区分), .kind = xNum, .tab = stop(23), .flow = head(9), .input = digit,
     .store = Store::head_digit, .combo = &S::得意先消費税算出区分名称,
     .panel = &S::itm_ttl_得意先消費税算出区分},
    {CONTROL(得意先消費税算出区分名称), .shows = &HeaderRecord::得意先消費税算出区分, .kind = combo,
     .tab = no_stop(24), .flow = head(9), .store = Store::head_digit},
    {HEAD(得意先消費税区分), .kind = xNum, .tab = stop(25), .flow = head(9), .input = digit,
     .store = Store::head_digit, .combo = &S::得意先消費税区分名称, .base = 1,
     .panel = &S::itm_ttl_得意先消費税区分},
    {CONTROL(得意先消費税区分名称), .shows = &HeaderRecord::得意先消費税区分, .kind = combo,
     .tab = no_stop(26), .flow = head(9), .store = Store::head_digit, .base = 1},
    {HEAD(消費税表示区分), .kind = xNum, .tab = stop(27), .flow = head(9), .input = digit,
     .store = Store::head_digit, .combo = &S::消費税表示区分名称, .panel = &S::itm_ttl_消費税表示区分},
    {CONTROL(消費税表示区分名称), .shows = &HeaderRecord::消費税表示区分, .kind = combo,
     .tab = no_stop(28), .flow = head(9), .store = Store::head_digit},
    {HEAD(合計表示区分), .kind = xNum, .tab = stop(29), .flow = head(9), .input = digit,
     .store = Store::head_digit, .combo = &S::合計表示区分名称, .panel = &S::itm_ttl_合計表示区分},
    {CONTROL(合計表示区分名称), .shows = &HeaderRecord::合計表示区分, .kind = combo, .tab = no_stop(30),
     .flow = head(9), .store = Store::head_digit},
    // --- subject and terms
    {HEAD(タイトル), .tab = stop(31), .flow = head(9), .input = name(60), .store = Store::head_text,
     .list = {ListWindow::wnd営業請求タイトル一覧, &S::支払条件}, .panel = &S::itm_ttl_タイトル},
    {HEAD(支払条件), .tab = stop(32), .flow = head(9), .input = name(60), .store = Store::head_text,
     .list = {ListWindow::wnd営業請求条件一覧, &S::売上完了区分}, .panel = &S::itm_ttl_支払条件},
    {HEAD(売上完了区分), .kind = xNum, .tab = stop(33), .flow = head(9), .input = digit,
     .store = Store::head_digit, .combo = &S::売上完了区分名称, .panel = &S::itm_ttl_売上完了区分},
    {CONTROL(売上完了区分名称), .shows = &HeaderRecord::売上完了区分, .kind = combo, .tab = stop(34),
     .flow = head(9), .store = Store::head_digit},
    {CONTROL(chb_KalvaneEnvelopePrint), .shows = &HeaderRecord::KalvaneEnvelopePrint, .kind = check,
     .caption = "封筒印刷", .tab = no_stop(35), .store = Store::head_check},
    {CONTROL(ヘッド終了), .kind = SSCommand, .tab = stop(39)},
    // --- captions and list buttons of the head
    {CONTROL(itm_ttl_営業請求日付), .kind = SSPanel, .caption = "請求日付"},
    {CONTROL(btn_営業請求No), .kind = SSCommand, .caption = "請求No"},
    {CONTROL(btn_営業見積No), .kind = SSCommand, .caption = "見積No"},
    {CONTROL(btn_顧客注文No), .kind = SSCommand, .caption = "注文No"},
    {CONTROL(btn_営業納品No), .kind = SSCommand, .caption = "納品No"},
    {CONTROL(btn_参照営業請求No), .kind = SSCommand, .caption = "参照請求No"},
    {CONTROL(btn_得意先コード), .kind = SSCommand, .caption = "得意先"},
    {CONTROL(bak_得意先), .kind = SSPanel},
    {CONTROL(btn_得意先御担当者コード), .kind = SSCommand, .caption = "御担当者"},
    {CONTROL(bak_得意先御担当者), .kind = SSPanel},
    {CONTROL(btn_担当者コード), .kind = SSCommand, .caption = "担当者"},
    {CONTROL(btn_部門コード), .kind = SSCommand, .caption = "部門"},
    {CONTROL(btn_セクションコード), .kind = SSCommand, .caption = "セクション"},
    {CONTROL(btn_納品先コード), .kind = SSCommand, .caption = "納品先"},
    {CONTROL(bak_納品先), .kind = SSPanel},
    {CONTROL(itm_ttl_得意先消費税算出区分), .kind = SSPanel, .caption = "消費税算出"},
    {CONTROL(itm_ttl_得意先消費税区分), .kind = SSPanel, .caption = "税込税抜"},
    {CONTROL(itm_ttl_消費税表示区分), .kind = SSPanel, .caption = "消費税表示"},
    {CONTROL(itm_ttl_合計表示区分), .kind = SSPanel, .caption = "合計表示"},
    {CONTROL(itm_ttl_タイトル), .kind = SSPanel, .caption = "案件名"},
    {CONTROL(itm_ttl_支払条件), .kind = SSPanel, .caption = "支払条件"},
    {CONTROL(itm_ttl_売上完了区分), .kind = SSPanel, .caption = "売上完了"},
    // --- line tools
    {CONTROL(btn_行クリア), .kind = SSCommand, .caption = "行ｸﾘｱ", .function_key = 6},
    {CONTROL(btn_行挿入), .kind = SSCommand, .caption = "行挿入", .function_key = 5},
    {CONTROL(btn_行複写), .kind = SSCommand, .caption = "前行複写"},
    {CONTROL(btn_指定行複写), .kind = SSCommand, .caption = "指定行複写"},
    {CONTROL(btn_指定行コピー), .kind = SSCommand, .caption = "ｺﾋﾟｰ"},
    {CONTROL(btn_指定行ペースト), .kind = SSCommand, .caption = "ﾍﾟｰｽﾄ"},
    {CONTROL(btn_指定行クリア), .kind = SSCommand, .caption = "ｸﾘｱ"},
    {CONTROL(btn_指定行連番), .kind = SSCommand, .caption = "連番"},
    {CONTROL(btn_連番タイプ), .kind = SSCommand, .caption = "1."},
    {CONTROL(btn_仕入先表示), .kind = SSCommand, .caption = "仕入先表示"},
    {CONTROL(scl_行), .kind = scroll},
    // --- the pages
    {CONTROL(tab_詳細), .kind = SSTab, .tab = no_stop(90)},
    {CONTROL(itm_ttl_行No), .kind = SSPanel, .caption = "行", .page = 0},
    // --- sale lines
    {LINE(行区分), .kind = xNum, .tab = no_stop(100), .page = 0, .flow = lines(1), .input = digit,
     .store = Store::line_kind},
    {CONTROL(行区分名称), .shows = &LineRecord::行区分, .kind = combo, .tab = no_stop(101), .page = 0,
     .flow = lines(1), .store = Store::line_kind},
    {CONTROL(Lab_行No), .kind = label, .page = 0},
    {CONTROL(bak_dtla), .kind = SSPanel, .page = 0},
    {CONTROL(chb_複写区分), .shows = &LineRecord::複写区分, .kind = check, .tab = no_stop(103), .page = 0,
     .flow = lines(2), .store = Store::line_check},
    {LINE(商品コード), .tab = no_stop(104), .page = 0, .flow = lines(2), .input = code(16),
     .store = Store::line_code, .look_up = 商品コード変更, .row_stop = ordinary,
     .list = {ListWindow::wnd商品一覧, &S::商品名, &S::btn_商品コード}},
    {CONTROL(btn_商品コード), .kind = SSCommand, .caption = "…", .page = 0},
    {CONTROL(bak_商品), .kind = SSPanel, .page = 0},
    {LINE(商品名), .tab = no_stop(105), .page = 0, .flow = lines(2), .input = name(60),
     .store = Store::line_text, .row_stop = ordinary_or_total,
     .list = {ListWindow::wnd請求商品名一覧, &S::請求数量}},
    {CONTROL(btn_品名), .kind = SSCommand, .caption = "…", .page = 0},
    {LINE(請求数量), .kind = xNum, .tab = no_stop(106), .page = 0, .flow = lines(2), .input = number,
     .store = Store::line_figure, .figure = Figure::quantity_sale,
     .steps = {purchase_quantity_follows, 請求金額計算, 請求消費税計算, 仕入金額計算, 仕入消費税計算},
     .row_stop = ordinary},
    {LINE(請求単位), .tab = no_stop(107), .page = 0, .flow = lines(2), .input = japanese(4),
     .store = Store::line_text, .row_stop = unit_is_typed},
    {LINE(請求単価), .kind = xNum, .tab = no_stop(108), .page = 0, .flow = lines(2), .input = number,
     .store = Store::line_figure, .figure = Figure::price_sale,
     .steps = {請求単価入力, 請求金額計算, 請求消費税計算}, .row_stop = ordinary},
    {LINE(請求金額), .kind = xNum, .tab = no_stop(109), .page = 0, .flow = lines(2), .input = number,
     .store = Store::line_figure, .figure = Figure::amount, .steps = {請求消費税計算},
     .row_stop = sale_amount_is_typed},
    {LINE(請求消費税), .kind = xNum, .tab = no_stop(110), .page = 0, .flow = lines(2), .input = number,
     .store = Store::line_figure, .figure = Figure::amount},
    {CONTROL(chb_計区分), .shows = &LineRecord::計区分, .kind = check, .tab = no_stop(111), .page = 0,
     .flow = lines(2), .store = Store::line_check},
    {CONTROL(頁1終了), .kind = SSCommand, .tab = stop(112), .page = 0},
    // --- purchase lines
    {CONTROL(itm_ttl_仕入商品), .kind = SSPanel, .caption = "商品名", .page = 1},
    {CONTROL(itm_ttl_仕入先), .kind = SSPanel, .caption = "仕入先", .page = 1},
    {CONTROL(仕入商品名), .shows = &LineRecord::商品名, .tab = no_stop(400), .page = 1, .flow = lines(2),
     .input = display(60)},
    {LINE(仕入先コード), .tab = no_stop(401), .page = 1, .flow = lines(2), .input = code(8, "000000"),
     .store = Store::line_code, .look_up = 仕入先コード変更, .row_stop = ordinary,
     .list = {ListWindow::wnd仕入先一覧, &S::仕入先名称A, &S::btn_仕入先コード}},
    {CONTROL(btn_仕入先コード), .kind = SSCommand, .caption = "…", .page = 1},
    {CONTROL(bak_仕入先), .kind = SSPanel, .page = 1},
    {LINE(仕入先名称A), .tab = no_stop(402), .page = 1, .flow = lines(2), .input = name(40),
     .store = Store::line_text, .row_stop = ordinary,
     .list = {ListWindow::wnd請求仕入先名一覧, &S::仕入数量}},
    {LINE(仕入数量), .kind = xNum, .tab = no_stop(403), .page = 1, .flow = lines(2), .input = number,
     .store = Store::line_figure, .figure = Figure::quantity_purchase,
     .steps = {仕入金額計算, 仕入消費税計算}, .row_stop = ordinary},
    {LINE(仕入単位), .tab = no_stop(404), .page = 1, .flow = lines(2), .input = japanese(4),
     .store = Store::line_text, .row_stop = ordinary},
    {LINE(仕入単価), .kind = xNum, .tab = no_stop(405), .page = 1, .flow = lines(2), .input = number,
     .store = Store::line_figure, .figure = Figure::price_purchase,
     .steps = {仕入単価入力, 仕入金額計算, 仕入消費税計算}, .row_stop = ordinary},
    {LINE(仕入金額), .kind = xNum, .tab = no_stop(406), .page = 1, .flow = lines(2), .input = number,
     .store = Store::line_figure, .figure = Figure::amount, .steps = {仕入消費税計算},
     .row_stop = purchase_amount_is_typed},
    {LINE(仕入消費税), .kind = xNum, .tab = no_stop(407), .page = 1, .flow = lines(2), .input = number,
     .store = Store::line_figure, .figure = Figure::amount},
    {CONTROL(頁2終了), .kind = SSCommand, .tab = stop(408), .page = 1},
    // --- memo and attachments
    {HEAD(営業請求メモ), .kind = xText, .tab = stop(700), .page = 2, .flow = tail, .input = japanese(0),
     .store = Store::head_text},
    {CONTROL(List付属書類), .kind = ListView, .tab = stop(710), .page = 3},
    {CONTROL(btn_付属書類追加), .kind = SSCommand, .caption = "付属書類追加", .page = 3},
    {CONTROL(btn_フォルダ), .kind = SSCommand, .caption = "ﾌｫﾙﾀﾞ追加", .page = 3},
    {CONTROL(btn_付属書類削除), .kind = SSCommand, .caption = "付属書類削除", .page = 3},
    // --- tail
    {CONTROL(itm_ttl_請求伝票備考), .kind = SSPanel, .caption = "請求伝票備考"},
    {HEAD(請求伝票備考A), .tab = stop(800), .flow = tail, .input = name(60), .store = Store::head_text,
     .panel = &S::itm_ttl_請求伝票備考},
    {HEAD(請求伝票備考B), .tab = stop(801), .flow = tail, .input = name(60), .store = Store::head_text},
    {CONTROL(itm_ttl_請求数量合計), .kind = SSPanel, .caption = "請求数量"},
    {CONTROL(itm_ttl_税抜請求金額合計), .kind = SSPanel, .caption = "税抜金額"},
    {CONTROL(itm_ttl_請求消費税合計), .kind = SSPanel, .caption = "消費税"},
    {CONTROL(itm_ttl_税込請求金額合計), .kind = SSPanel, .caption = "税込合計"},
    {CONTROL(itm_ttl_仕入数量合計), .kind = SSPanel, .caption = "仕入数量"},
    {CONTROL(itm_ttl_税抜仕入金額合計), .kind = SSPanel, .caption = "税抜仕入"},
    {CONTROL(itm_ttl_仕入消費税合計), .kind = SSPanel, .caption = "消費税"},
    {CONTROL(itm_ttl_税込仕入金額合計), .kind = SSPanel, .caption = "税込合計"},
    {HEAD(請求数量合計), .kind = xNum, .tab = no_stop(810), .flow = tail, .figure = Figure::quantity_sale},
    {HEAD(税抜請求金額合計), .kind = xNum, .tab = no_stop(811), .flow = tail, .figure = Figure::amount},
    {HEAD(請求消費税合計), .kind = xNum, .tab = no_stop(812), .flow = tail, .figure = Figure::amount},
    {HEAD(税込請求金額合計), .kind = xNum, .tab = no_stop(813), .flow = tail, .figure = Figure::amount},
    {HEAD(仕入数量合計), .kind = xNum, .tab = no_stop(814), .flow = tail,
     .figure = Figure::quantity_purchase},
    {HEAD(税抜仕入金額合計), .kind = xNum, .tab = no_stop(815), .flow = tail, .figure = Figure::amount},
    {HEAD(仕入消費税合計), .kind = xNum, .tab = no_stop(816), .flow = tail, .figure = Figure::amount},
    {HEAD(税込仕入金額合計), .kind = xNum, .tab = no_stop(817), .flow = tail, .figure = Figure::amount},
    {CONTROL(テイル終了), .kind = SSCommand, .tab = stop(899)},
    // --- frame
    {CONTROL(btn_登録), .kind = SSCommand, .caption = "登録", .function_key = 12},
    {CONTROL(btn_削除), .kind = SSCommand, .caption = "削除", .function_key = 10},
    {CONTROL(btn_印刷), .kind = SSCommand, .caption = "印刷", .function_key = 7},
    {CONTROL(btn_プレビュ), .kind = SSCommand, .caption = "プレビュ", .function_key = 8},
    {CONTROL(btn_帳票イメージ出力), .kind = SSCommand, .caption = "PDF出力", .function_key = 9},
    {CONTROL(btn_前No), .kind = SSCommand, .caption = "前No", .function_key = 2},
    {CONTROL(btn_次No), .kind = SSCommand, .caption = "次No", .function_key = 3},
    {CONTROL(btn_画面クリア), .kind = SSCommand, .caption = "画面ｸﾘｱ", .function_key = 4},
    {CONTROL(btn_参照元No), .kind = SSCommand, .caption = "参照元", .function_key = 1},
    {CONTROL(btn_終了), .kind = SSCommand, .caption = "終了", .function_key = 11},
    {CONTROL(prg_ttl), .kind = SSPanel},
    {CONTROL(お知らせ), .kind = SSPanel},
    {CONTROL(manualpanel), .kind = SSPanel, .caption = "マニュアル"},
});
// clang-format on

#undef CONTROL
#undef HEAD
#undef LINE

// --- what the compiler sees to
constexpr const ScreenField* row_of(ControlRef control) {
    const auto found = std::ranges::find(fields, control, &ScreenField::control);
    return found == fields.end() ? nullptr : &*found;
}

constexpr bool tab_indices_rise() {
    int last = 0;
    for (const ScreenField& f : fields) {
        if (f.tab.index == 0) continue;
        if (f.tab.index <= last) return false;
        last = f.tab.index;
    }
    return true;
}
static_assert(tab_indices_rise());

constexpr bool each_control_has_one_row() {
    std::size_t controls = 0;
    for (const ScreenField& f : fields) {
        if (row_of(f.control) != &f) return false;
        controls += f.control.one ? 1 : screen_rows;
    }
    return sizeof(EntryScreen) == sizeof(Form) + controls * sizeof(Control);
}
static_assert(each_control_has_one_row());

constexpr bool shows_what_it_stores(const ScreenField& f) {
    const Shown& m = f.shows;
    switch (f.store) {
        case Store::none:
            return true;
        case Store::head_code:
            return m.head_text || m.key_text;
        case Store::date_part:
        case Store::head_text:
            return m.head_text;
        case Store::head_digit:
            return m.head_digit && (f.kind == combo || f.combo);
        case Store::head_check:
            return m.head_digit;
        case Store::line_code:
        case Store::line_text:
            return m.line_text;
        case Store::line_figure:
            return m.line_money;
        case Store::line_kind:
        case Store::line_check:
            return m.line_digit;
    }
    return false;
}
static_assert(std::ranges::all_of(fields, shows_what_it_stores));

constexpr bool is_kind(ControlRef control, ControlKind kind) {
    const ScreenField* f = row_of(control);
    return f && f->kind == kind;
}
constexpr bool is_connected(const ScreenField& f) {
    const bool lists = f.list.window != ListWindow::none;
    return lists == static_cast<bool>(f.list.next) && (lists || !f.list.button) &&
           (!f.list.button || is_kind(f.list.button, SSCommand)) && (!f.panel || is_kind(f.panel, SSPanel)) &&
           (!f.combo || is_kind(f.combo, combo));
}
static_assert(std::ranges::all_of(fields, is_connected));

}  // namespace

std::span<const ScreenField> screen_fields() {
    return fields;
}

const ScreenField* field_of(const Control& c) {
    const auto found =
        std::ranges::find_if(fields, [&](const ScreenField& f) { return f.control.at(c.row) == &c; });
    return found == fields.end() ? nullptr : &*found;
}

}  // namespace kalvane

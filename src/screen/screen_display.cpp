// Draws head, lines, totals and button states.
#include "screen/screen_display.h"

#include <algorithm>
#include <iterator>

#include "base/text.h"
#include "data/file_helpers.h"
#include "data/linkage.h"
#include "document/clearing.h"
#include "document/reference.h"
#include "screen/required.h"
#include "screen/screen_model.h"

namespace kalvane {
namespace {

constexpr Colour untaxed_colour = RGB(0, 128, 128), tax_in_colour = RGB(128, 128, 255),
                 grey_area = RGB(224, 224, 224), pale_yellow_area = RGB(255, 255, 192);

const char* numbering_caption(int style) {
    constexpr std::array<const char*, 3> captions{"1.", "１．", "Ⅰ．"};
    return style >= 0 && style < 3 ? captions[static_cast<std::size_t>(style)] : captions[0];
}

// Line numbers change colour where a printed page begins: 34 lines, then 47 each, in three colours.
Colour line_number_colour(int line) {
    constexpr int first_page = 34, further_page = 47, last_band_end = 974;
    if (line < first_page || line >= last_band_end) return button_text_colour;
    switch ((line - first_page) / further_page % 3) {
        case 0:
            return RGB(192, 64, 0);
        case 1:
            return RGB(0, 192, 0);
        default:
            return button_text_colour;
    }
}

void show_head_field(const ScreenField& f) {
    Control& c = screen().*f.control.one;
    if (f.shows.head_text) set_text(c, 請求ヘッダ.*f.shows.head_text);
    if (f.shows.key_text) set_text(c, 実行環境.*f.shows.key_text);
    if (f.step_over.unless) set_tab_stop(c, 請求ヘッダ.*f.step_over.unless != 0);
    if (!f.shows.head_digit) return;
    int code = 請求ヘッダ.*f.shows.head_digit;
    if (f.kind == ControlKind::check) return set_number(c, code);
    // the document keeps a higher unit, the list ends at 2
    if (f.shows.head_digit == &HeaderRecord::得意先消費税算出区分 && code > 2) code = 2;
    if (f.kind == ControlKind::combo)
        set_list_index(c, code - f.base);
    else
        set_value(c, 通貨::whole(code));
}

void show_line_field(const ScreenField& f, Control& c, const LineRecord& l) {
    if (f.shows.line_text) set_text(c, l.*f.shows.line_text);
    if (f.shows.line_money) set_value(c, l.*f.shows.line_money);
    if (f.row_stop) set_tab_stop(c, f.row_stop(l));
    if (!f.shows.line_digit) return;
    const int digit = l.*f.shows.line_digit;
    if (f.kind == ControlKind::combo)
        set_list_index(c, digit);
    else if (f.kind == ControlKind::check)
        set_number(c, digit);
    else
        set_value(c, 通貨::whole(digit));
}

Colour amount_colour(int taxation) {
    return taxation == 1 ? untaxed_colour : window_text_colour;
}
Colour tax_colour(int tax_kind) {
    return tax_kind == 2 ? tax_in_colour : window_text_colour;
}

bool some_line_marked() {
    for (int i = 0; i <= 実行環境.最終行; ++i)
        if (請求明細行[i].複写区分 == 1) return true;
    return false;
}

bool current_line_empty() {
    if (実行環境.現在行 < 0 || 実行環境.現在行 >= line_capacity) return false;
    return sale_empty(請求明細行[実行環境.現在行]);
}

bool names_a_source(const std::string& number) {
    return !number.empty() && number != "00000000";
}

void enable(bool on, std::initializer_list<Control EntryScreen::*> controls) {
    for (Control EntryScreen::*c : controls) set_enabled(screen().*c, on);
}

bool clipboard_has_lines() {
    ClipboardSource source;
    return クリップボード検索(プログラムID, 請求番号ID, source);
}

}  // namespace

void 画面表示() {
    ヘッド画面表示();
    明細画面表示();
    テイル画面表示();
    ++screen().revision;
}

void ヘッド画面表示() {
    const ProcessingGuard guard;
    EntryScreen& s = screen();
    for (const ScreenField& f : screen_fields())
        if (f.control.one && f.flow.area != Area::tail) show_head_field(f);
    set_caption(s.btn_連番タイプ, numbering_caption(実行環境.連番タイプ));
    enable(!実行環境.新規入力中, {&EntryScreen::売上完了区分, &EntryScreen::売上完了区分名称});
    set_visible(s.itm_ttl_仕入商品, !実行環境.仕入先表示);
    set_visible(s.itm_ttl_仕入先, 実行環境.仕入先表示);
    set_visible(s.btn_帳票イメージ出力, ファイル存在確認(実行環境.帳票フォルダ + "\\repfrmdb.accdb"));
}

void 明細画面表示() {
    for (int row = 0; row < screen_rows; ++row)
        if (const int line = 実行環境.先頭行 + row; line < line_capacity) 明細行表示(line, row);
}

void 明細行表示(int line, int row) {
    const ProcessingGuard guard;
    EntryScreen& s = screen();
    const LineRecord& l = 請求明細行[line];
    const auto r = static_cast<std::size_t>(row);
    set_caption(s.Lab_行No[r], std::to_string(line + 1));
    set_fore(s.Lab_行No[r], line_number_colour(line));
    for (const ScreenField& f : screen_fields())
        if (f.control.rows) show_line_field(f, *f.control.at(row), l);
    set_visible(s.仕入商品名[r], !実行環境.仕入先表示);
    for (RowControls EntryScreen::*c :
         {&EntryScreen::btn_仕入先コード, &EntryScreen::仕入先コード, &EntryScreen::仕入先名称A})
        set_visible((s.*c)[r], 実行環境.仕入先表示);
    set_enabled(s.chb_計区分[r], l.行区分 == 1);
    if (請求ヘッダ.消費税表示区分 == 0) {
        set_value(s.請求消費税[r], {});
        set_value(s.仕入消費税[r], {});
    }
    set_fore(s.請求金額[r], amount_colour(l.売上課税区分));
    set_fore(s.請求消費税[r], tax_colour(l.売上消費税区分));
    set_fore(s.仕入金額[r], amount_colour(l.仕入課税区分));
    set_fore(s.仕入消費税[r], tax_colour(l.仕入消費税区分));
    const int unit = 請求ヘッダ.得意先消費税算出区分;
    set_input_area(s.請求消費税[r], unit == 2 ? grey_area : unit == 3 ? pale_yellow_area : window_colour);
}

void テイル画面表示() {
    const ProcessingGuard guard;
    for (const ScreenField& f : screen_fields()) {
        if (f.flow.area != Area::tail) continue;
        Control& c = screen().*f.control.one;
        if (f.shows.head_text) set_text(c, 請求ヘッダ.*f.shows.head_text);
        const auto money = f.shows.head_money;
        if (!money) continue;
        const bool is_tax = money == &HeaderRecord::請求消費税合計 || money == &HeaderRecord::仕入消費税合計;
        const bool shown = 請求ヘッダ.合計表示区分 != 0 && (!is_tax || 請求ヘッダ.消費税表示区分 != 0);
        set_value(c, shown ? 請求ヘッダ.*money : 通貨());
    }
}

void ボタン状態更新(bool query) {
    EntryScreen& s = screen();
    const int last = 実行環境.最終行, current = 実行環境.現在行;
    const bool is_new = 実行環境.新規入力中, marked = some_line_marked();
    const Gap gap = 必須項目確認();
    set_enabled(s.btn_行クリア, last >= 0);
    set_enabled(s.btn_行挿入, last >= 0 && last <= 996 && current <= last);
    set_enabled(s.btn_行複写, last >= 0 && current > 0 && current_line_empty());
    set_enabled(s.btn_指定行複写, marked && last >= 0 && current > 0);
    set_enabled(s.btn_指定行コピー, !is_new && marked);
    set_enabled(s.btn_指定行クリア, marked);
    enable(!blank(s.得意先コード.text),
           {&EntryScreen::btn_得意先御担当者コード, &EntryScreen::btn_納品先コード,
            &EntryScreen::btn_担当者コード, &EntryScreen::tab_詳細});
    enable(!blank(s.担当者コード.text), {&EntryScreen::btn_部門コード, &EntryScreen::btn_セクションコード});
    enable(is_new && last == -1,
           {&EntryScreen::btn_営業見積No, &EntryScreen::営業見積No, &EntryScreen::btn_顧客注文No,
            &EntryScreen::顧客注文No, &EntryScreen::btn_参照営業請求No, &EntryScreen::参照営業請求No});
    set_enabled(s.btn_参照元No,
                names_a_source(請求ヘッダ.営業見積No) || names_a_source(請求ヘッダ.顧客注文No) ||
                    names_a_source(請求ヘッダ.営業納品No) || names_a_source(請求ヘッダ.参照営業請求No));
    set_enabled(s.btn_登録, gap.area == Area::none && last >= 0 && 実行環境.入力変更あり);
    enable(!is_new, {&EntryScreen::btn_印刷, &EntryScreen::btn_プレビュ, &EntryScreen::btn_帳票イメージ出力});
    if (!query) return;
    set_enabled(s.btn_削除, !is_new && 削除可否());
    // the clipboard test costs a query, so it comes last
    set_enabled(s.btn_指定行ペースト, gap.area != Area::head && current >= 0 && clipboard_has_lines());
}

void 画面部品初期化() {
    EntryScreen& s = screen();
    set_enabled(s.scl_行, false);
    set_number(s.scl_行, 0);
    set_enabled(s.tab_詳細, false);
    {
        const ProcessingGuard guard;  // the page goes back without moving the focus
        set_number(s.tab_詳細, 0);
    }
    set_caption(s.お知らせ, "");
}

void お知らせ表示(const char* text) {
    set_caption(screen().お知らせ, text);
}
void 案内表示() {
    set_caption(screen().お知らせ, 実行環境.案内メッセージ);
}

}  // namespace kalvane

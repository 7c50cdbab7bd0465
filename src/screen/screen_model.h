// The entry screen's controls and the one table that makes them: what a field shows and stores, its place in
// the tab order and in the focus flow, what may be typed, its look-up, its list and its caption.
//
// How to add a field: add its control to EntryScreen, a row to screen_fields.cpp where it stands in the tab
// order, and, when it is stored, its column (records/columns.h); the displays and events follow the row.
#pragma once
#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "platform/screen/form.h"
#include "records/document.h"
#include "records/run_context.h"

namespace kalvane {

inline constexpr int screen_rows = 10;
using RowControls = std::array<Control, screen_rows>;

struct EntryScreen : Form {
    // head
    Control 営業請求日付年, 営業請求日付月, 営業請求日付日, 営業請求No, 営業見積No, 顧客注文No, 営業納品No,
        参照営業請求No;
    Control 得意先コード, 得意先名称A, 得意先名称B, 得意先御担当者コード, 御担当者名, 担当者コード, 担当者名,
        部門コード, 部門名, セクションコード, セクション名, 納品先コード, 納品先名称A, 納品先名称B;
    Control 得意先消費税算出区分, 得意先消費税算出区分名称, 得意先消費税区分, 得意先消費税区分名称,
        消費税表示区分, 消費税表示区分名称, 合計表示区分, 合計表示区分名称, タイトル, 支払条件, 売上完了区分,
        売上完了区分名称, chb_KalvaneEnvelopePrint;
    Control itm_ttl_営業請求日付, btn_営業請求No, btn_営業見積No, btn_顧客注文No, btn_営業納品No,
        btn_参照営業請求No, btn_得意先コード, bak_得意先, btn_得意先御担当者コード, bak_得意先御担当者,
        btn_担当者コード, btn_部門コード, btn_セクションコード, btn_納品先コード, bak_納品先,
        itm_ttl_得意先消費税算出区分, itm_ttl_得意先消費税区分, itm_ttl_消費税表示区分, itm_ttl_合計表示区分,
        itm_ttl_タイトル, itm_ttl_支払条件, itm_ttl_売上完了区分;
    Control ヘッド終了;
    // line tools
    Control btn_行クリア, btn_行挿入, btn_行複写, btn_指定行複写, btn_指定行コピー, btn_指定行ペースト,
        btn_指定行クリア, btn_指定行連番, btn_連番タイプ, btn_仕入先表示, scl_行;
    Control tab_詳細;
    // page 0
    Control itm_ttl_行No;
    RowControls 行区分, 行区分名称, Lab_行No, bak_dtla, chb_複写区分, 商品コード, btn_商品コード, bak_商品,
        商品名, btn_品名, 請求数量, 請求単位, 請求単価, 請求金額, 請求消費税, chb_計区分, 頁1終了;
    // page 1
    Control itm_ttl_仕入商品, itm_ttl_仕入先;
    RowControls 仕入商品名, 仕入先コード, btn_仕入先コード, bak_仕入先, 仕入先名称A, 仕入数量, 仕入単位,
        仕入単価, 仕入金額, 仕入消費税, 頁2終了;
    // pages 2 and 3
    Control 営業請求メモ, List付属書類, btn_付属書類追加, btn_フォルダ, btn_付属書類削除;
    // tail
    Control itm_ttl_請求伝票備考, 請求伝票備考A, 請求伝票備考B;
    Control itm_ttl_請求数量合計, itm_ttl_税抜請求金額合計, itm_ttl_請求消費税合計, itm_ttl_税込請求金額合計,
        itm_ttl_仕入数量合計, itm_ttl_税抜仕入金額合計, itm_ttl_仕入消費税合計, itm_ttl_税込仕入金額合計;
    Control 請求数量合計, 税抜請求金額合計, 請求消費税合計, 税込請求金額合計, 仕入数量合計, 税抜仕入金額合計,
        仕入消費税合計, 税込仕入金額合計;
    Control テイル終了;
    // frame
    Control btn_登録, btn_削除, btn_印刷, btn_プレビュ, btn_帳票イメージ出力, btn_前No, btn_次No,
        btn_画面クリア, btn_参照元No, btn_終了;
    Control prg_ttl, お知らせ, manualpanel;
};
inline EntryScreen frmKalvaneInvoiceEntry;
inline EntryScreen& screen() {
    return frmKalvaneInvoiceEntry;
}

// Areas of the focus flow.
enum class Area : std::int8_t { none = 0, head = 1, lines = 2, tail = 3 };

// What a field shows and stores.
enum class Store : std::int8_t {
    none,
    date_part,    // a part of 営業請求日付
    head_code,    // a code or number of the head: looked up when it is left
    head_text,    // free text of the head or the tail
    head_digit,   // a 区分 with its combo
    line_code,    // a code of the line: looked up when it is left
    line_text,    // free text of the line
    line_figure,  // quantity, price, amount or tax of the line
    line_kind,    // 行区分 with its combo
    line_check,   // check box of the line
    head_check,   // chb_KalvaneEnvelopePrint
};

// Decimals and integer digits of a figure.
enum class Figure : std::int8_t {
    none,
    quantity_sale,
    price_sale,
    quantity_purchase,
    price_purchase,
    amount
};

// The list windows that a field of the screen opens.
enum class ListWindow : std::int8_t {
    none,
    wnd営業請求No一覧,
    wnd営業見積No一覧,
    wnd顧客注文No一覧,
    wnd営業納品No一覧,
    wnd得意先一覧,
    wnd得意先御担当者一覧,
    wnd担当者一覧,
    wnd部門一覧,
    wndセクション一覧,
    wnd納品先一覧,
    wnd仕入先一覧,
    wnd商品一覧,
    wnd営業請求タイトル一覧,
    wnd営業請求条件一覧,
    wnd請求得意先名一覧,
    wnd請求納品先名一覧,
    wnd請求商品名一覧,
    wnd請求仕入先名一覧,
};

// A control of the screen: one that stands alone, or the ten of the rows.
struct ControlRef {
    Control EntryScreen::*one = nullptr;
    RowControls EntryScreen::*rows = nullptr;

    constexpr ControlRef() = default;
    constexpr ControlRef(Control EntryScreen::*control) : one(control) {}
    constexpr ControlRef(RowControls EntryScreen::*controls) : rows(controls) {}
    friend constexpr bool operator==(const ControlRef&, const ControlRef&) = default;
    constexpr explicit operator bool() const { return one || rows; }

    // The control of that row, or the one alone whatever the row. nullptr when there is none.
    Control* at(int row) const {
        if (one) return &(screen().*one);
        if (!rows || row < 0 || row >= screen_rows) return nullptr;
        return &(screen().*rows)[static_cast<std::size_t>(row)];
    }
    std::span<Control> all() const {
        if (one) return {&(screen().*one), 1};
        return rows ? std::span<Control>(screen().*rows) : std::span<Control>();
    }
};

// The member of the document that a field shows: none, or one of these.
struct Shown {
    std::string HeaderRecord::*head_text = nullptr;
    std::int16_t HeaderRecord::*head_digit = nullptr;
    通貨 HeaderRecord::*head_money = nullptr;
    std::string RunContext::*key_text = nullptr;
    std::string LineRecord::*line_text = nullptr;
    std::int16_t LineRecord::*line_digit = nullptr;
    通貨 LineRecord::*line_money = nullptr;

    constexpr Shown() = default;
    constexpr Shown(std::string HeaderRecord::*member) : head_text(member) {}
    constexpr Shown(std::int16_t HeaderRecord::*member) : head_digit(member) {}
    constexpr Shown(通貨 HeaderRecord::*member) : head_money(member) {}
    constexpr Shown(std::string RunContext::*member) : key_text(member) {}
    constexpr Shown(std::string LineRecord::*member) : line_text(member) {}
    constexpr Shown(std::int16_t LineRecord::*member) : line_digit(member) {}
    constexpr Shown(通貨 LineRecord::*member) : line_money(member) {}
};

struct TabPlace {
    int index = 0;  // of row 0; the next rows follow at row_step
    bool stop = false;
};
struct Flow {
    Area area = Area::none;
    int order = 0;
};
struct Input {
    InputMode mode = InputMode::none;
    int max_length = 0;
    const char* mask = "";
    bool limit_notice = false;  // says while typing how far the text is too long
};
// A field that the focus steps over: coming from `before` it goes on to `after`, else back to `before`.
struct StepOver {
    Control EntryScreen::*before = nullptr;
    Control EntryScreen::*after = nullptr;
    std::int16_t HeaderRecord::*unless = nullptr;  // entered as others are while this is not 0
};
// The list that a field opens, where the focus goes after a pick, and the button that opens it too.
struct ListLink {
    ListWindow window = ListWindow::none;
    ControlRef next = {};
    ControlRef button = {};
};

struct ScreenField {
    std::string_view name;
    ControlRef control = {};
    Shown shows = {};
    ControlKind kind = ControlKind::xField;
    const char* caption = "";
    int function_key = 0;
    TabPlace tab = {};
    int page = -1;
    Flow flow = {};
    Input input = {};
    Store store = Store::none;
    Figure figure = Figure::none;
    Control EntryScreen::*combo = nullptr;          // names of a head 区分
    int base = 0;                                   // code of the combo's first entry
    bool (*look_up)(const std::string&) = nullptr;  // decides on the text of a code that was left
    bool loads = false;                             // … and reads the document of that number
    std::array<void (*)(int), 5> steps = {};        // what follows a changed figure of line i, in order
    bool (*row_stop)(const LineRecord&) = nullptr;  // whether Tab stops in a row of that line; else never
    StepOver step_over = {};
    ListLink list = {};
    Control EntryScreen::*panel = nullptr;  // caption whose click asks for the field
};

inline constexpr int row_step = 20;

// All rows in the tab order, and the row of a control (nullptr for one that is not the screen's).
std::span<const ScreenField> screen_fields();
const ScreenField* field_of(const Control& c);

// Makes the controls; again for a fresh run. Events are set by the floors above.
void build_entry_screen();
// Reads the code tables into the combos, sets limits and decimals. A table that cannot be read leaves its
// list empty and limits that no number satisfies.
void 画面コード表読込();

// Guard of a routine that writes controls: the field handlers ignore the events that the writes raise.
class ProcessingGuard {
  public:
    ProcessingGuard() : former_(実行環境.処理中) { 実行環境.処理中 = true; }
    ~ProcessingGuard() { 実行環境.処理中 = former_; }
    ProcessingGuard(const ProcessingGuard&) = delete;
    ProcessingGuard& operator=(const ProcessingGuard&) = delete;

  private:
    bool former_;
};

}  // namespace kalvane

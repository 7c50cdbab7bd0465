// How to add a control: a row with its rectangle where the form's others stand. How to add a form: a table
// of its places and a row in `layouts`.
#include "window/layout.h"

namespace kalvane {
namespace {

// --- the entry screen
constexpr int row1 = 34, row2 = 61, row3 = 88, row4 = 115, row5 = 142, strip = 170, body = 196, lines = 224;
constexpr int tail1 = 614, tail2 = 641, notice = 668, foot = 696;
constexpr int fh = 24;  // height of a field
constexpr int lh = 30;  // of a field of a line

constexpr Place entry_places[] = {
    {.control = "prg_ttl", .at = {8, 4, 1350, 26}, .role = Role::title},
    // date and numbers
    {.control = "itm_ttl_営業請求日付", .at = {8, row1, 74, fh}},
    {.control = "営業請求日付年", .at = {84, row1, 42, fh}, .caption = "itm_ttl_営業請求日付", .unit = "年"},
    {.control = "営業請求日付月", .at = {144, row1, 28, fh}, .caption = "itm_ttl_営業請求日付", .unit = "月"},
    {.control = "営業請求日付日", .at = {190, row1, 28, fh}, .caption = "itm_ttl_営業請求日付", .unit = "日"},
    {.control = "btn_営業請求No", .at = {246, row1, 64, fh}},
    {.control = "営業請求No", .at = {312, row1, 78, fh}, .caption = "btn_営業請求No"},
    {.control = "btn_営業見積No", .at = {410, row1, 64, fh}},
    {.control = "営業見積No", .at = {476, row1, 78, fh}, .caption = "btn_営業見積No"},
    {.control = "btn_顧客注文No", .at = {566, row1, 64, fh}},
    {.control = "顧客注文No", .at = {632, row1, 78, fh}, .caption = "btn_顧客注文No"},
    {.control = "btn_営業納品No", .at = {722, row1, 64, fh}},
    {.control = "営業納品No", .at = {788, row1, 78, fh}, .caption = "btn_営業納品No"},
    {.control = "btn_参照営業請求No", .at = {878, row1, 88, fh}},
    {.control = "参照営業請求No", .at = {968, row1, 78, fh}, .caption = "btn_参照営業請求No"},
    {.control = "btn_参照元No", .at = {1058, row1, 108, fh}},
    {.control = "chb_KalvaneEnvelopePrint", .at = {1254, row1, 104, fh}},
    // customer
    {.control = "btn_得意先コード", .at = {8, row2, 74, fh}},
    {.control = "得意先コード", .at = {84, row2, 76, fh}, .caption = "btn_得意先コード"},
    {.control = "bak_得意先", .at = {162, row2, 22, fh}, .caption = "btn_得意先コード"},
    {.control = "得意先名称A", .at = {186, row2, 250, fh}, .caption = "btn_得意先コード"},
    {.control = "得意先名称B", .at = {438, row2, 250, fh}, .caption = "btn_得意先コード"},
    {.control = "btn_得意先御担当者コード", .at = {704, row2, 82, fh}},
    {.control = "得意先御担当者コード", .at = {788, row2, 58, fh}, .caption = "btn_得意先御担当者コード"},
    {.control = "bak_得意先御担当者", .at = {848, row2, 22, fh}, .caption = "btn_得意先御担当者コード"},
    {.control = "御担当者名", .at = {872, row2, 486, fh}, .caption = "btn_得意先御担当者コード"},
    // own staff
    {.control = "btn_担当者コード", .at = {8, row3, 74, fh}},
    {.control = "担当者コード", .at = {84, row3, 58, fh}, .caption = "btn_担当者コード"},
    {.control = "担当者名", .at = {144, row3, 292, fh}, .caption = "btn_担当者コード"},
    {.control = "btn_部門コード", .at = {446, row3, 60, fh}},
    {.control = "部門コード", .at = {508, row3, 40, fh}, .caption = "btn_部門コード"},
    {.control = "部門名", .at = {550, row3, 292, fh}, .caption = "btn_部門コード"},
    {.control = "btn_セクションコード", .at = {852, row3, 84, fh}},
    {.control = "セクションコード", .at = {938, row3, 40, fh}, .caption = "btn_セクションコード"},
    {.control = "セクション名", .at = {980, row3, 378, fh}, .caption = "btn_セクションコード"},
    // delivery and tax
    {.control = "btn_納品先コード", .at = {8, row4, 74, fh}},
    {.control = "納品先コード", .at = {84, row4, 76, fh}, .caption = "btn_納品先コード"},
    {.control = "bak_納品先", .at = {162, row4, 22, fh}, .caption = "btn_納品先コード"},
    {.control = "納品先名称A", .at = {186, row4, 250, fh}, .caption = "btn_納品先コード"},
    {.control = "納品先名称B", .at = {438, row4, 250, fh}, .caption = "btn_納品先コード"},
    {.control = "itm_ttl_得意先消費税算出区分", .at = {704, row4, 82, fh}},
    {.control = "得意先消費税算出区分", .at = {788, row4, 24, fh}, .caption = "itm_ttl_得意先消費税算出区分"},
    {.control = "得意先消費税算出区分名称",
     .at = {814, row4, 118, fh},
     .caption = "itm_ttl_得意先消費税算出区分"},
    {.control = "itm_ttl_得意先消費税区分", .at = {944, row4, 82, fh}},
    {.control = "得意先消費税区分", .at = {1028, row4, 24, fh}, .caption = "itm_ttl_得意先消費税区分"},
    {.control = "得意先消費税区分名称", .at = {1054, row4, 88, fh}, .caption = "itm_ttl_得意先消費税区分"},
    {.control = "itm_ttl_消費税表示区分", .at = {1154, row4, 82, fh}},
    {.control = "消費税表示区分", .at = {1238, row4, 24, fh}, .caption = "itm_ttl_消費税表示区分"},
    {.control = "消費税表示区分名称", .at = {1264, row4, 94, fh}, .caption = "itm_ttl_消費税表示区分"},
    // subject and terms
    {.control = "itm_ttl_タイトル", .at = {8, row5, 74, fh}},
    {.control = "タイトル", .at = {84, row5, 402, fh}, .caption = "itm_ttl_タイトル"},
    {.control = "itm_ttl_支払条件", .at = {490, row5, 66, fh}},
    {.control = "支払条件", .at = {558, row5, 378, fh}, .caption = "itm_ttl_支払条件"},
    {.control = "itm_ttl_合計表示区分", .at = {944, row5, 82, fh}},
    {.control = "合計表示区分", .at = {1028, row5, 24, fh}, .caption = "itm_ttl_合計表示区分"},
    {.control = "合計表示区分名称", .at = {1054, row5, 88, fh}, .caption = "itm_ttl_合計表示区分"},
    {.control = "itm_ttl_売上完了区分", .at = {1154, row5, 82, fh}},
    {.control = "売上完了区分", .at = {1238, row5, 24, fh}, .caption = "itm_ttl_売上完了区分"},
    {.control = "売上完了区分名称", .at = {1264, row5, 94, fh}, .caption = "itm_ttl_売上完了区分"},
    {.control = "ヘッド終了", .role = Role::hidden},
    // pages and line tools
    {.control = "tab_詳細", .at = {8, strip, 440, 27}},
    {.control = "btn_行クリア", .at = {520, strip, 96, fh}},
    {.control = "btn_行挿入", .at = {618, strip, 96, fh}},
    {.control = "btn_行複写", .at = {716, strip, 80, fh}},
    {.control = "btn_指定行複写", .at = {810, strip, 92, fh}},
    {.control = "btn_指定行コピー", .at = {904, strip, 60, fh}},
    {.control = "btn_指定行ペースト", .at = {966, strip, 66, fh}},
    {.control = "btn_指定行クリア", .at = {1034, strip, 56, fh}},
    {.control = "btn_指定行連番", .at = {1092, strip, 56, fh}},
    {.control = "btn_連番タイプ", .at = {1150, strip, 44, fh}},
    {.control = "btn_仕入先表示", .at = {1258, strip, 100, fh}},
    {.control = "scl_行", .at = {1340, lines, 16, 376}, .caption = "itm_ttl_行No", .role = Role::with_rows},
    // sale lines
    {.control = "itm_ttl_行No", .at = {14, 200, 34, 20}, .role = Role::with_rows},
    {.control = "Lab_行No", .at = {14, lines, 34, lh}, .caption = "itm_ttl_行No", .role = Role::row_number},
    {.control = "bak_dtla", .at = {50, lines, 18, lh}},
    {.control = "行区分", .at = {70, lines, 24, lh}, .heading = 126, .heading_lead = 20},
    {.control = "行区分名称", .at = {96, lines, 80, lh}},
    {.control = "chb_複写区分", .at = {178, lines, 56, lh}, .heading = 56},
    {.control = "商品コード", .at = {236, lines, 130, lh}, .heading = 178},
    {.control = "btn_商品コード", .at = {368, lines, 24, lh}},
    {.control = "bak_商品", .at = {394, lines, 20, lh}},
    {.control = "商品名", .at = {416, lines, 382, lh}, .heading = 408},
    {.control = "btn_品名", .at = {800, lines, 24, lh}},
    {.control = "請求数量", .at = {826, lines, 92, lh}, .heading = 92},
    {.control = "請求単位", .at = {920, lines, 58, lh}, .heading = 58},
    {.control = "請求単価", .at = {980, lines, 108, lh}, .heading = 108},
    {.control = "請求金額", .at = {1090, lines, 104, lh}, .heading = 104},
    {.control = "請求消費税", .at = {1196, lines, 94, lh}, .heading = 94},
    {.control = "chb_計区分", .at = {1292, lines, 44, lh}, .heading = 44},
    {.control = "頁1終了", .role = Role::hidden},
    // purchase lines
    {.control = "itm_ttl_仕入商品", .at = {52, 200, 482, 20}, .face = 1},
    {.control = "itm_ttl_仕入先", .at = {52, 200, 482, 20}, .face = 2},
    {.control = "仕入商品名", .at = {52, lines, 460, lh}, .caption = "itm_ttl_仕入商品", .face = 1},
    {.control = "仕入先コード", .at = {52, lines, 76, lh}, .caption = "itm_ttl_仕入先", .face = 2},
    {.control = "btn_仕入先コード", .at = {130, lines, 24, lh}, .caption = "itm_ttl_仕入先", .face = 2},
    {.control = "仕入先名称A", .at = {156, lines, 356, lh}, .caption = "itm_ttl_仕入先", .face = 2},
    {.control = "bak_仕入先", .at = {514, lines, 20, lh}},
    {.control = "仕入数量", .at = {536, lines, 150, lh}, .heading = 150},
    {.control = "仕入単位", .at = {688, lines, 80, lh}, .heading = 80},
    {.control = "仕入単価", .at = {770, lines, 180, lh}, .heading = 180},
    {.control = "仕入金額", .at = {952, lines, 200, lh}, .heading = 200},
    {.control = "仕入消費税", .at = {1154, lines, 182, lh}, .heading = 182},
    {.control = "頁2終了", .role = Role::hidden},
    // memo and attachments
    {.control = "営業請求メモ", .at = {16, 206, 1334, 396}},
    {.control = "List付属書類", .at = {16, 206, 1178, 396}},
    {.control = "btn_付属書類追加", .at = {1206, 206, 144, 30}},
    {.control = "btn_フォルダ", .at = {1206, 242, 144, 30}},
    {.control = "btn_付属書類削除", .at = {1206, 278, 144, 30}},
    // tail
    {.control = "itm_ttl_請求伝票備考", .at = {8, tail1, 92, 51}},
    {.control = "請求伝票備考A", .at = {102, tail1, 412, fh}, .caption = "itm_ttl_請求伝票備考"},
    {.control = "請求伝票備考B", .at = {102, tail2, 412, fh}, .caption = "itm_ttl_請求伝票備考"},
    {.control = "itm_ttl_請求数量合計", .at = {526, tail1, 72, fh}},
    {.control = "請求数量合計", .at = {600, tail1, 130, fh}, .caption = "itm_ttl_請求数量合計"},
    {.control = "itm_ttl_税抜請求金額合計", .at = {736, tail1, 72, fh}},
    {.control = "税抜請求金額合計", .at = {810, tail1, 130, fh}, .caption = "itm_ttl_税抜請求金額合計"},
    {.control = "itm_ttl_請求消費税合計", .at = {946, tail1, 72, fh}},
    {.control = "請求消費税合計", .at = {1020, tail1, 126, fh}, .caption = "itm_ttl_請求消費税合計"},
    {.control = "itm_ttl_税込請求金額合計", .at = {1152, tail1, 72, fh}},
    {.control = "税込請求金額合計", .at = {1226, tail1, 132, fh}, .caption = "itm_ttl_税込請求金額合計"},
    {.control = "itm_ttl_仕入数量合計", .at = {526, tail2, 72, fh}},
    {.control = "仕入数量合計", .at = {600, tail2, 130, fh}, .caption = "itm_ttl_仕入数量合計"},
    {.control = "itm_ttl_税抜仕入金額合計", .at = {736, tail2, 72, fh}},
    {.control = "税抜仕入金額合計", .at = {810, tail2, 130, fh}, .caption = "itm_ttl_税抜仕入金額合計"},
    {.control = "itm_ttl_仕入消費税合計", .at = {946, tail2, 72, fh}},
    {.control = "仕入消費税合計", .at = {1020, tail2, 126, fh}, .caption = "itm_ttl_仕入消費税合計"},
    {.control = "itm_ttl_税込仕入金額合計", .at = {1152, tail2, 72, fh}},
    {.control = "税込仕入金額合計", .at = {1226, tail2, 132, fh}, .caption = "itm_ttl_税込仕入金額合計"},
    {.control = "テイル終了", .role = Role::hidden},
    // frame
    {.control = "お知らせ", .at = {8, notice, 1350, fh}, .role = Role::notice},
    {.control = "btn_前No", .at = {8, foot, 120, 30}},
    {.control = "btn_次No", .at = {132, foot, 120, 30}},
    {.control = "btn_画面クリア", .at = {256, foot, 124, 30}},
    {.control = "btn_印刷", .at = {412, foot, 120, 30}},
    {.control = "btn_プレビュ", .at = {536, foot, 124, 30}},
    {.control = "btn_帳票イメージ出力", .at = {664, foot, 124, 30}},
    {.control = "btn_削除", .at = {820, foot, 124, 30}},
    {.control = "manualpanel", .at = {948, foot, 108, 30}},
    {.control = "btn_登録", .at = {1088, foot, 150, 30}, .role = Role::accent},
    {.control = "btn_終了", .at = {1242, foot, 116, 30}},
};

constexpr Place sign_on_places[] = {
    {.control = "itm_ttl_担当者コード", .at = {24, 24, 110, 28}},
    {.control = "担当者コード", .at = {138, 24, 90, 28}, .caption = "itm_ttl_担当者コード"},
    {.control = "itm_ttl_担当者名", .at = {24, 58, 110, 28}},
    {.control = "担当者名", .at = {138, 58, 258, 28}, .caption = "itm_ttl_担当者名"},
    {.control = "itm_ttl_暗証番号", .at = {24, 92, 110, 28}},
    {.control = "暗証番号", .at = {138, 92, 258, 28}, .caption = "itm_ttl_暗証番号"},
    {.control = "btn_OK", .at = {138, 144, 126, 32}, .role = Role::accent},
    {.control = "btn_キャンセル", .at = {270, 144, 126, 32}},
};

constexpr Place save_places[] = {
    {.control = "lab_inpmsg", .at = {24, 22, 452, 72}, .role = Role::message, .folds = true},
    {.control = "lab_msg", .at = {24, 100, 452, 34}, .role = Role::message},
    {.control = "btn_登録", .at = {24, 152, 146, 34}, .role = Role::accent},
    {.control = "btn_登録印刷", .at = {177, 152, 146, 34}},
    {.control = "btn_いいえ", .at = {330, 152, 146, 34}},
};

constexpr Place wait_places[] = {
    {.control = "lab_msg", .at = {24, 24, 312, 36}, .role = Role::message},
};

constexpr Layout layouts[] = {
    {.form = "frmKalvaneInvoiceEntry",
     .width = design_width,
     .height = design_height,
     .places = entry_places,
     .row_step = 38,
     .row = {10, lines - 4, 1328, 38},
     .heading = {12, 200, 1326, 20},
     .frame = {8, body, 1350, 414}},
    {.form = "msg暗証番号確認", .width = 420, .height = 196, .places = sign_on_places},
    {.form = "msg印刷確認", .width = 500, .height = 206, .places = save_places},
    {.form = "msgお待ち", .width = 360, .height = 84, .places = wait_places},
};

}  // namespace

const Layout* layout_of(std::string_view form) {
    for (const Layout& l : layouts)
        if (l.form == form) return &l;
    return nullptr;
}

const Place* place_of(const Layout& layout, std::string_view control) {
    for (const Place& p : layout.places)
        if (p.control == control) return &p;
    return nullptr;
}

}  // namespace kalvane

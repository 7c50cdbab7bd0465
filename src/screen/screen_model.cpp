// The table of the entry screen's fields, and the making of its controls.
#include "screen/screen_model.h"

#include "document/lookups.h"

namespace kalvane {
namespace {

// clang-format off
constexpr ScreenField fields[] = {
    {.name = "営業請求日付年", .one = &EntryScreen::営業請求日付年, .tab_index = 1, .tab_stop = true, .area = Area::head, .order = 1, .max_length = 4, .mode = InputMode::digits, .store = Store::date_part, .head_text = &HeaderRecord::営業請求日付年},
    {.name = "営業請求日付月", .one = &EntryScreen::営業請求日付月, .tab_index = 2, .tab_stop = true, .area = Area::head, .order = 2, .max_length = 2, .mode = InputMode::digits, .store = Store::date_part, .head_text = &HeaderRecord::営業請求日付月},
    {.name = "営業請求日付日", .one = &EntryScreen::営業請求日付日, .tab_index = 3, .tab_stop = true, .area = Area::head, .order = 3, .max_length = 2, .mode = InputMode::digits, .store = Store::date_part, .head_text = &HeaderRecord::営業請求日付日},
    {.name = "営業請求No", .one = &EntryScreen::営業請求No, .tab_index = 4, .tab_stop = true, .area = Area::head, .order = 4, .max_length = 8, .mask = "00000000", .mode = InputMode::digits, .store = Store::head_code, .key_text = &RunContext::営業請求No},
    {.name = "営業見積No", .one = &EntryScreen::営業見積No, .tab_index = 5, .tab_stop = true, .area = Area::head, .order = 5, .max_length = 8, .mask = "00000000", .mode = InputMode::digits, .store = Store::head_code, .head_text = &HeaderRecord::営業見積No},
    {.name = "顧客注文No", .one = &EntryScreen::顧客注文No, .tab_index = 6, .tab_stop = true, .area = Area::head, .order = 5, .max_length = 8, .mask = "00000000", .mode = InputMode::digits, .store = Store::head_code, .head_text = &HeaderRecord::顧客注文No},
    {.name = "営業納品No", .one = &EntryScreen::営業納品No, .tab_index = 7, .tab_stop = true, .area = Area::head, .order = 5, .max_length = 8, .mask = "00000000", .mode = InputMode::digits, .store = Store::head_code, .head_text = &HeaderRecord::営業納品No},
    {.name = "参照営業請求No", .one = &EntryScreen::参照営業請求No, .tab_index = 8, .tab_stop = true, .area = Area::head, .order = 5, .max_length = 8, .mask = "00000000", .mode = InputMode::digits, .store = Store::head_code, .head_text = &HeaderRecord::参照営業請求No},
    {.name = "得意先コード", .one = &EntryScreen::得意先コード, .tab_index = 9, .tab_stop = true, .area = Area::head, .order = 5, .max_length = 8, .mask = "000000", .mode = InputMode::code, .store = Store::head_code, .head_text = &HeaderRecord::得意先コード},
    {.name = "得意先名称A", .one = &EntryScreen::得意先名称A, .tab_index = 10, .tab_stop = true, .area = Area::head, .order = 6, .max_length = 32, .mode = InputMode::japanese, .store = Store::head_text, .head_text = &HeaderRecord::得意先名称A, .limit_notice = true},
    {.name = "得意先名称B", .one = &EntryScreen::得意先名称B, .tab_index = 11, .tab_stop = true, .area = Area::head, .order = 6, .max_length = 32, .mode = InputMode::japanese, .store = Store::head_text, .head_text = &HeaderRecord::得意先名称B, .limit_notice = true},
    {.name = "得意先御担当者コード", .one = &EntryScreen::得意先御担当者コード, .tab_index = 12, .area = Area::head, .order = 6, .max_length = 5, .mask = "00000", .mode = InputMode::digits, .store = Store::head_code, .head_text = &HeaderRecord::得意先御担当者コード},
    {.name = "御担当者名", .one = &EntryScreen::御担当者名, .tab_index = 13, .tab_stop = true, .area = Area::head, .order = 6, .max_length = 40, .mode = InputMode::japanese, .store = Store::head_text, .head_text = &HeaderRecord::御担当者名, .limit_notice = true},
    {.name = "担当者コード", .one = &EntryScreen::担当者コード, .tab_index = 14, .tab_stop = true, .area = Area::head, .order = 6, .max_length = 5, .mask = "00000", .mode = InputMode::digits, .store = Store::head_code, .head_text = &HeaderRecord::担当者コード},
    {.name = "担当者名", .one = &EntryScreen::担当者名, .tab_index = 15, .tab_stop = true, .area = Area::head, .order = 7, .max_length = 40, .head_text = &HeaderRecord::担当者名},
    {.name = "部門コード", .one = &EntryScreen::部門コード, .tab_index = 16, .tab_stop = true, .area = Area::head, .order = 7, .max_length = 3, .mask = "000", .mode = InputMode::digits, .store = Store::head_code, .head_text = &HeaderRecord::部門コード},
    {.name = "部門名", .one = &EntryScreen::部門名, .tab_index = 17, .tab_stop = true, .area = Area::head, .order = 8, .max_length = 40, .head_text = &HeaderRecord::部門名},
    {.name = "セクションコード", .one = &EntryScreen::セクションコード, .tab_index = 18, .tab_stop = true, .area = Area::head, .order = 8, .max_length = 3, .mask = "000", .mode = InputMode::digits, .store = Store::head_code, .head_text = &HeaderRecord::セクションコード},
    {.name = "セクション名", .one = &EntryScreen::セクション名, .tab_index = 19, .tab_stop = true, .area = Area::head, .order = 9, .max_length = 40, .head_text = &HeaderRecord::セクション名},
    {.name = "納品先コード", .one = &EntryScreen::納品先コード, .tab_index = 20, .tab_stop = true, .area = Area::head, .order = 9, .max_length = 8, .mask = "000000", .mode = InputMode::code, .store = Store::head_code, .head_text = &HeaderRecord::納品先コード},
    {.name = "納品先名称A", .one = &EntryScreen::納品先名称A, .tab_index = 21, .tab_stop = true, .area = Area::head, .order = 9, .max_length = 32, .mode = InputMode::japanese, .store = Store::head_text, .head_text = &HeaderRecord::納品先名称A, .limit_notice = true},
    {.name = "納品先名称B", .one = &EntryScreen::納品先名称B, .tab_index = 22, .tab_stop = true, .area = Area::head, .order = 9, .max_length = 32, .mode = InputMode::japanese, .store = Store::head_text, .head_text = &HeaderRecord::納品先名称B, .limit_notice = true},
    {.name = "得意先消費税算出区分", .one = &EntryScreen::得意先消費税算出区分, .kind = ControlKind::xNum, .tab_index = 23, .tab_stop = true, .area = Area::head, .order = 9, .max_length = 1, .mode = InputMode::number, .store = Store::head_digit, .figure = Figure::code, .head_digit = &HeaderRecord::得意先消費税算出区分, .combo = &EntryScreen::得意先消費税算出区分名称},
    {.name = "得意先消費税算出区分名称", .one = &EntryScreen::得意先消費税算出区分名称, .kind = ControlKind::combo, .tab_index = 24, .area = Area::head, .order = 9, .store = Store::head_digit, .head_digit = &HeaderRecord::得意先消費税算出区分},
    {.name = "得意先消費税区分", .one = &EntryScreen::得意先消費税区分, .kind = ControlKind::xNum, .tab_index = 25, .tab_stop = true, .area = Area::head, .order = 9, .max_length = 1, .mode = InputMode::number, .store = Store::head_digit, .figure = Figure::code, .head_digit = &HeaderRecord::得意先消費税区分, .combo = &EntryScreen::得意先消費税区分名称, .base = 1},
    {.name = "得意先消費税区分名称", .one = &EntryScreen::得意先消費税区分名称, .kind = ControlKind::combo, .tab_index = 26, .area = Area::head, .order = 9, .store = Store::head_digit, .head_digit = &HeaderRecord::得意先消費税区分, .base = 1},
    {.name = "消費税表示区分", .one = &EntryScreen::消費税表示区分, .kind = ControlKind::xNum, .tab_index = 27, .tab_stop = true, .area = Area::head, .order = 9, .max_length = 1, .mode = InputMode::number, .store = Store::head_digit, .figure = Figure::code, .head_digit = &HeaderRecord::消費税表示区分, .combo = &EntryScreen::消費税表示区分名称},
    {.name = "消費税表示区分名称", .one = &EntryScreen::消費税表示区分名称, .kind = ControlKind::combo, .tab_index = 28, .area = Area::head, .order = 9, .store = Store::head_digit, .head_digit = &HeaderRecord::消費税表示区分},
    {.name = "合計表示区分", .one = &EntryScreen::合計表示区分, .kind = ControlKind::xNum, .tab_index = 29, .tab_stop = true, .area = Area::head, .order = 9, .max_length = 1, .mode = InputMode::number, .store = Store::head_digit, .figure = Figure::code, .head_digit = &HeaderRecord::合計表示区分, .combo = &EntryScreen::合計表示区分名称},
    {.name = "合計表示区分名称", .one = &EntryScreen::合計表示区分名称, .kind = ControlKind::combo, .tab_index = 30, .area = Area::head, .order = 9, .store = Store::head_digit, .head_digit = &HeaderRecord::合計表示区分},
    {.name = "タイトル", .one = &EntryScreen::タイトル, .tab_index = 31, .tab_stop = true, .area = Area::head, .order = 9, .max_length = 60, .mode = InputMode::japanese, .store = Store::head_text, .head_text = &HeaderRecord::タイトル, .limit_notice = true},
    {.name = "支払条件", .one = &EntryScreen::支払条件, .tab_index = 32, .tab_stop = true, .area = Area::head, .order = 9, .max_length = 60, .mode = InputMode::japanese, .store = Store::head_text, .head_text = &HeaderRecord::支払条件, .limit_notice = true},
    {.name = "売上完了区分", .one = &EntryScreen::売上完了区分, .kind = ControlKind::xNum, .tab_index = 33, .tab_stop = true, .area = Area::head, .order = 9, .max_length = 1, .mode = InputMode::number, .store = Store::head_digit, .figure = Figure::code, .head_digit = &HeaderRecord::売上完了区分, .combo = &EntryScreen::売上完了区分名称},
    {.name = "売上完了区分名称", .one = &EntryScreen::売上完了区分名称, .kind = ControlKind::combo, .tab_index = 34, .tab_stop = true, .area = Area::head, .order = 9, .store = Store::head_digit, .head_digit = &HeaderRecord::売上完了区分},
    {.name = "chb_KalvaneEnvelopePrint", .one = &EntryScreen::chb_KalvaneEnvelopePrint, .kind = ControlKind::check, .tab_index = 35, .store = Store::head_check, .caption = "封筒印刷", .head_digit = &HeaderRecord::KalvaneEnvelopePrint},
    {.name = "ヘッド終了", .one = &EntryScreen::ヘッド終了, .kind = ControlKind::SSCommand, .tab_index = 39, .tab_stop = true},
    {.name = "itm_ttl_営業請求日付", .one = &EntryScreen::itm_ttl_営業請求日付, .kind = ControlKind::SSPanel, .caption = "請求日付"},
    {.name = "btn_営業請求No", .one = &EntryScreen::btn_営業請求No, .kind = ControlKind::SSCommand, .caption = "請求No"},
    {.name = "btn_営業見積No", .one = &EntryScreen::btn_営業見積No, .kind = ControlKind::SSCommand, .caption = "見積No"},
    {.name = "btn_顧客注文No", .one = &EntryScreen::btn_顧客注文No, .kind = ControlKind::SSCommand, .caption = "注文No"},
    {.name = "btn_営業納品No", .one = &EntryScreen::btn_営業納品No, .kind = ControlKind::SSCommand, .caption = "納品No"},
    {.name = "btn_参照営業請求No", .one = &EntryScreen::btn_参照営業請求No, .kind = ControlKind::SSCommand, .caption = "参照請求No"},
    {.name = "btn_得意先コード", .one = &EntryScreen::btn_得意先コード, .kind = ControlKind::SSCommand, .caption = "得意先"},
    {.name = "bak_得意先", .one = &EntryScreen::bak_得意先, .kind = ControlKind::SSPanel},
    {.name = "btn_得意先御担当者コード", .one = &EntryScreen::btn_得意先御担当者コード, .kind = ControlKind::SSCommand, .caption = "御担当者"},
    {.name = "bak_得意先御担当者", .one = &EntryScreen::bak_得意先御担当者, .kind = ControlKind::SSPanel},
    {.name = "btn_担当者コード", .one = &EntryScreen::btn_担当者コード, .kind = ControlKind::SSCommand, .caption = "担当者"},
    {.name = "btn_部門コード", .one = &EntryScreen::btn_部門コード, .kind = ControlKind::SSCommand, .caption = "部門"},
    {.name = "btn_セクションコード", .one = &EntryScreen::btn_セクションコード, .kind = ControlKind::SSCommand, .caption = "セクション"},
    {.name = "btn_納品先コード", .one = &EntryScreen::btn_納品先コード, .kind = ControlKind::SSCommand, .caption = "納品先"},
    {.name = "bak_納品先", .one = &EntryScreen::bak_納品先, .kind = ControlKind::SSPanel},
    {.name = "itm_ttl_得意先消費税算出区分", .one = &EntryScreen::itm_ttl_得意先消費税算出区分, .kind = ControlKind::SSPanel, .caption = "消費税算出"},
    {.name = "itm_ttl_得意先消費税区分", .one = &EntryScreen::itm_ttl_得意先消費税区分, .kind = ControlKind::SSPanel, .caption = "税込税抜"},
    {.name = "itm_ttl_消費税表示区分", .one = &EntryScreen::itm_ttl_消費税表示区分, .kind = ControlKind::SSPanel, .caption = "消費税表示"},
    {.name = "itm_ttl_合計表示区分", .one = &EntryScreen::itm_ttl_合計表示区分, .kind = ControlKind::SSPanel, .caption = "合計表示"},
    {.name = "itm_ttl_タイトル", .one = &EntryScreen::itm_ttl_タイトル, .kind = ControlKind::SSPanel, .caption = "案件名"},
    {.name = "itm_ttl_支払条件", .one = &EntryScreen::itm_ttl_支払条件, .kind = ControlKind::SSPanel, .caption = "支払条件"},
    {.name = "itm_ttl_売上完了区分", .one = &EntryScreen::itm_ttl_売上完了区分, .kind = ControlKind::SSPanel, .caption = "売上完了"},
    {.name = "btn_行クリア", .one = &EntryScreen::btn_行クリア, .kind = ControlKind::SSCommand, .caption = "行ｸﾘｱ", .function_key = 6},
    {.name = "btn_行挿入", .one = &EntryScreen::btn_行挿入, .kind = ControlKind::SSCommand, .caption = "行挿入", .function_key = 5},
    {.name = "btn_行複写", .one = &EntryScreen::btn_行複写, .kind = ControlKind::SSCommand, .caption = "前行複写"},
    {.name = "btn_指定行複写", .one = &EntryScreen::btn_指定行複写, .kind = ControlKind::SSCommand, .caption = "指定行複写"},
    {.name = "btn_指定行コピー", .one = &EntryScreen::btn_指定行コピー, .kind = ControlKind::SSCommand, .caption = "ｺﾋﾟｰ"},
    {.name = "btn_指定行ペースト", .one = &EntryScreen::btn_指定行ペースト, .kind = ControlKind::SSCommand, .caption = "ﾍﾟｰｽﾄ"},
    {.name = "btn_指定行クリア", .one = &EntryScreen::btn_指定行クリア, .kind = ControlKind::SSCommand, .caption = "ｸﾘｱ"},
    {.name = "btn_指定行連番", .one = &EntryScreen::btn_指定行連番, .kind = ControlKind::SSCommand, .caption = "連番"},
    {.name = "btn_連番タイプ", .one = &EntryScreen::btn_連番タイプ, .kind = ControlKind::SSCommand, .caption = "1."},
    {.name = "btn_仕入先表示", .one = &EntryScreen::btn_仕入先表示, .kind = ControlKind::SSCommand, .caption = "仕入先表示"},
    {.name = "scl_行", .one = &EntryScreen::scl_行, .kind = ControlKind::scroll},
    {.name = "tab_詳細", .one = &EntryScreen::tab_詳細, .kind = ControlKind::SSTab, .tab_index = 90},
    {.name = "itm_ttl_行No", .one = &EntryScreen::itm_ttl_行No, .kind = ControlKind::SSPanel, .page = 0, .caption = "行"},
    {.name = "行区分", .rows = &EntryScreen::行区分, .kind = ControlKind::xNum, .tab_index = 100, .page = 0, .area = Area::lines, .order = 1, .max_length = 1, .mode = InputMode::number, .store = Store::line_kind, .figure = Figure::code, .line_digit = &LineRecord::行区分},
    {.name = "行区分名称", .rows = &EntryScreen::行区分名称, .kind = ControlKind::combo, .tab_index = 101, .page = 0, .area = Area::lines, .order = 1, .store = Store::line_kind, .line_digit = &LineRecord::行区分},
    {.name = "Lab_行No", .rows = &EntryScreen::Lab_行No, .kind = ControlKind::label, .page = 0},
    {.name = "bak_dtla", .rows = &EntryScreen::bak_dtla, .kind = ControlKind::SSPanel, .page = 0},
    {.name = "chb_複写区分", .rows = &EntryScreen::chb_複写区分, .kind = ControlKind::check, .tab_index = 103, .page = 0, .area = Area::lines, .order = 2, .store = Store::line_check, .line_digit = &LineRecord::複写区分},
    {.name = "商品コード", .rows = &EntryScreen::商品コード, .tab_index = 104, .page = 0, .area = Area::lines, .order = 2, .max_length = 16, .mode = InputMode::code, .store = Store::line_code, .line_text = &LineRecord::商品コード},
    {.name = "btn_商品コード", .rows = &EntryScreen::btn_商品コード, .kind = ControlKind::SSCommand, .page = 0, .caption = "…"},
    {.name = "bak_商品", .rows = &EntryScreen::bak_商品, .kind = ControlKind::SSPanel, .page = 0},
    {.name = "商品名", .rows = &EntryScreen::商品名, .tab_index = 105, .page = 0, .area = Area::lines, .order = 2, .max_length = 60, .mode = InputMode::japanese, .store = Store::line_text, .line_text = &LineRecord::商品名, .limit_notice = true},
    {.name = "btn_品名", .rows = &EntryScreen::btn_品名, .kind = ControlKind::SSCommand, .page = 0, .caption = "…"},
    {.name = "請求数量", .rows = &EntryScreen::請求数量, .kind = ControlKind::xNum, .tab_index = 106, .page = 0, .area = Area::lines, .order = 2, .mode = InputMode::number, .store = Store::line_figure, .figure = Figure::quantity_sale, .line_money = &LineRecord::請求数量},
    {.name = "請求単位", .rows = &EntryScreen::請求単位, .tab_index = 107, .page = 0, .area = Area::lines, .order = 2, .max_length = 4, .mode = InputMode::japanese, .store = Store::line_text, .line_text = &LineRecord::請求単位},
    {.name = "請求単価", .rows = &EntryScreen::請求単価, .kind = ControlKind::xNum, .tab_index = 108, .page = 0, .area = Area::lines, .order = 2, .mode = InputMode::number, .store = Store::line_figure, .figure = Figure::price_sale, .line_money = &LineRecord::請求単価},
    {.name = "請求金額", .rows = &EntryScreen::請求金額, .kind = ControlKind::xNum, .tab_index = 109, .page = 0, .area = Area::lines, .order = 2, .mode = InputMode::number, .store = Store::line_figure, .figure = Figure::amount, .line_money = &LineRecord::請求金額},
    {.name = "請求消費税", .rows = &EntryScreen::請求消費税, .kind = ControlKind::xNum, .tab_index = 110, .page = 0, .area = Area::lines, .order = 2, .mode = InputMode::number, .store = Store::line_figure, .figure = Figure::amount, .line_money = &LineRecord::請求消費税},
    {.name = "chb_計区分", .rows = &EntryScreen::chb_計区分, .kind = ControlKind::check, .tab_index = 111, .page = 0, .area = Area::lines, .order = 2, .store = Store::line_check, .line_digit = &LineRecord::計区分},
    {.name = "頁1終了", .rows = &EntryScreen::頁1終了, .kind = ControlKind::SSCommand, .tab_index = 112, .tab_stop = true, .page = 0},
    {.name = "itm_ttl_仕入商品", .one = &EntryScreen::itm_ttl_仕入商品, .kind = ControlKind::SSPanel, .page = 1, .caption = "商品名"},
    {.name = "itm_ttl_仕入先", .one = &EntryScreen::itm_ttl_仕入先, .kind = ControlKind::SSPanel, .page = 1, .caption = "仕入先"},
    {.name = "仕入商品名", .rows = &EntryScreen::仕入商品名, .tab_index = 400, .page = 1, .area = Area::lines, .order = 2, .max_length = 60, .line_text = &LineRecord::商品名},
    {.name = "仕入先コード", .rows = &EntryScreen::仕入先コード, .tab_index = 401, .page = 1, .area = Area::lines, .order = 2, .max_length = 8, .mask = "000000", .mode = InputMode::code, .store = Store::line_code, .line_text = &LineRecord::仕入先コード},
    {.name = "btn_仕入先コード", .rows = &EntryScreen::btn_仕入先コード, .kind = ControlKind::SSCommand, .page = 1, .caption = "…"},
    {.name = "bak_仕入先", .rows = &EntryScreen::bak_仕入先, .kind = ControlKind::SSPanel, .page = 1},
    {.name = "仕入先名称A", .rows = &EntryScreen::仕入先名称A, .tab_index = 402, .page = 1, .area = Area::lines, .order = 2, .max_length = 40, .mode = InputMode::japanese, .store = Store::line_text, .line_text = &LineRecord::仕入先名称A, .limit_notice = true},
    {.name = "仕入数量", .rows = &EntryScreen::仕入数量, .kind = ControlKind::xNum, .tab_index = 403, .page = 1, .area = Area::lines, .order = 2, .mode = InputMode::number, .store = Store::line_figure, .figure = Figure::quantity_purchase, .line_money = &LineRecord::仕入数量},
    {.name = "仕入単位", .rows = &EntryScreen::仕入単位, .tab_index = 404, .page = 1, .area = Area::lines, .order = 2, .max_length = 4, .mode = InputMode::japanese, .store = Store::line_text, .line_text = &LineRecord::仕入単位},
    {.name = "仕入単価", .rows = &EntryScreen::仕入単価, .kind = ControlKind::xNum, .tab_index = 405, .page = 1, .area = Area::lines, .order = 2, .mode = InputMode::number, .store = Store::line_figure, .figure = Figure::price_purchase, .line_money = &LineRecord::仕入単価},
    {.name = "仕入金額", .rows = &EntryScreen::仕入金額, .kind = ControlKind::xNum, .tab_index = 406, .page = 1, .area = Area::lines, .order = 2, .mode = InputMode::number, .store = Store::line_figure, .figure = Figure::amount, .line_money = &LineRecord::仕入金額},
    {.name = "仕入消費税", .rows = &EntryScreen::仕入消費税, .kind = ControlKind::xNum, .tab_index = 407, .page = 1, .area = Area::lines, .order = 2, .mode = InputMode::number, .store = Store::line_figure, .figure = Figure::amount, .line_money = &LineRecord::仕入消費税},
    {.name = "頁2終了", .rows = &EntryScreen::頁2終了, .kind = ControlKind::SSCommand, .tab_index = 408, .tab_stop = true, .page = 1},
    {.name = "営業請求メモ", .one = &EntryScreen::営業請求メモ, .kind = ControlKind::xText, .tab_index = 700, .tab_stop = true, .page = 2, .area = Area::tail, .order = 1, .mode = InputMode::japanese, .store = Store::head_text, .head_text = &HeaderRecord::営業請求メモ},
    {.name = "List付属書類", .one = &EntryScreen::List付属書類, .kind = ControlKind::ListView, .tab_index = 710, .tab_stop = true, .page = 3},
    {.name = "btn_付属書類追加", .one = &EntryScreen::btn_付属書類追加, .kind = ControlKind::SSCommand, .page = 3, .caption = "付属書類追加"},
    {.name = "btn_フォルダ", .one = &EntryScreen::btn_フォルダ, .kind = ControlKind::SSCommand, .page = 3, .caption = "ﾌｫﾙﾀﾞ追加"},
    {.name = "btn_付属書類削除", .one = &EntryScreen::btn_付属書類削除, .kind = ControlKind::SSCommand, .page = 3, .caption = "付属書類削除"},
    {.name = "itm_ttl_請求伝票備考", .one = &EntryScreen::itm_ttl_請求伝票備考, .kind = ControlKind::SSPanel, .caption = "請求伝票備考"},
    {.name = "請求伝票備考A", .one = &EntryScreen::請求伝票備考A, .tab_index = 800, .tab_stop = true, .area = Area::tail, .order = 1, .max_length = 60, .mode = InputMode::japanese, .store = Store::head_text, .head_text = &HeaderRecord::請求伝票備考A, .limit_notice = true},
    {.name = "請求伝票備考B", .one = &EntryScreen::請求伝票備考B, .tab_index = 801, .tab_stop = true, .area = Area::tail, .order = 1, .max_length = 60, .mode = InputMode::japanese, .store = Store::head_text, .head_text = &HeaderRecord::請求伝票備考B, .limit_notice = true},
    {.name = "itm_ttl_請求数量合計", .one = &EntryScreen::itm_ttl_請求数量合計, .kind = ControlKind::SSPanel, .caption = "請求数量"},
    {.name = "itm_ttl_税抜請求金額合計", .one = &EntryScreen::itm_ttl_税抜請求金額合計, .kind = ControlKind::SSPanel, .caption = "税抜金額"},
    {.name = "itm_ttl_請求消費税合計", .one = &EntryScreen::itm_ttl_請求消費税合計, .kind = ControlKind::SSPanel, .caption = "消費税"},
    {.name = "itm_ttl_税込請求金額合計", .one = &EntryScreen::itm_ttl_税込請求金額合計, .kind = ControlKind::SSPanel, .caption = "税込合計"},
    {.name = "itm_ttl_仕入数量合計", .one = &EntryScreen::itm_ttl_仕入数量合計, .kind = ControlKind::SSPanel, .caption = "仕入数量"},
    {.name = "itm_ttl_税抜仕入金額合計", .one = &EntryScreen::itm_ttl_税抜仕入金額合計, .kind = ControlKind::SSPanel, .caption = "税抜仕入"},
    {.name = "itm_ttl_仕入消費税合計", .one = &EntryScreen::itm_ttl_仕入消費税合計, .kind = ControlKind::SSPanel, .caption = "消費税"},
    {.name = "itm_ttl_税込仕入金額合計", .one = &EntryScreen::itm_ttl_税込仕入金額合計, .kind = ControlKind::SSPanel, .caption = "税込合計"},
    {.name = "請求数量合計", .one = &EntryScreen::請求数量合計, .kind = ControlKind::xNum, .tab_index = 810, .area = Area::tail, .order = 1, .figure = Figure::quantity_sale, .head_money = &HeaderRecord::請求数量合計},
    {.name = "税抜請求金額合計", .one = &EntryScreen::税抜請求金額合計, .kind = ControlKind::xNum, .tab_index = 811, .area = Area::tail, .order = 1, .figure = Figure::amount, .head_money = &HeaderRecord::税抜請求金額合計},
    {.name = "請求消費税合計", .one = &EntryScreen::請求消費税合計, .kind = ControlKind::xNum, .tab_index = 812, .area = Area::tail, .order = 1, .figure = Figure::amount, .head_money = &HeaderRecord::請求消費税合計},
    {.name = "税込請求金額合計", .one = &EntryScreen::税込請求金額合計, .kind = ControlKind::xNum, .tab_index = 813, .area = Area::tail, .order = 1, .figure = Figure::amount, .head_money = &HeaderRecord::税込請求金額合計},
    {.name = "仕入数量合計", .one = &EntryScreen::仕入数量合計, .kind = ControlKind::xNum, .tab_index = 814, .area = Area::tail, .order = 1, .figure = Figure::quantity_purchase, .head_money = &HeaderRecord::仕入数量合計},
    {.name = "税抜仕入金額合計", .one = &EntryScreen::税抜仕入金額合計, .kind = ControlKind::xNum, .tab_index = 815, .area = Area::tail, .order = 1, .figure = Figure::amount, .head_money = &HeaderRecord::税抜仕入金額合計},
    {.name = "仕入消費税合計", .one = &EntryScreen::仕入消費税合計, .kind = ControlKind::xNum, .tab_index = 816, .area = Area::tail, .order = 1, .figure = Figure::amount, .head_money = &HeaderRecord::仕入消費税合計},
    {.name = "税込仕入金額合計", .one = &EntryScreen::税込仕入金額合計, .kind = ControlKind::xNum, .tab_index = 817, .area = Area::tail, .order = 1, .figure = Figure::amount, .head_money = &HeaderRecord::税込仕入金額合計},
    {.name = "テイル終了", .one = &EntryScreen::テイル終了, .kind = ControlKind::SSCommand, .tab_index = 899, .tab_stop = true},
    {.name = "btn_登録", .one = &EntryScreen::btn_登録, .kind = ControlKind::SSCommand, .caption = "登録", .function_key = 12},
    {.name = "btn_削除", .one = &EntryScreen::btn_削除, .kind = ControlKind::SSCommand, .caption = "削除", .function_key = 10},
    {.name = "btn_印刷", .one = &EntryScreen::btn_印刷, .kind = ControlKind::SSCommand, .caption = "印刷", .function_key = 7},
    {.name = "btn_プレビュ", .one = &EntryScreen::btn_プレビュ, .kind = ControlKind::SSCommand, .caption = "プレビュ", .function_key = 8},
    {.name = "btn_帳票イメージ出力", .one = &EntryScreen::btn_帳票イメージ出力, .kind = ControlKind::SSCommand, .caption = "PDF出力", .function_key = 9},
    {.name = "btn_前No", .one = &EntryScreen::btn_前No, .kind = ControlKind::SSCommand, .caption = "前No", .function_key = 2},
    {.name = "btn_次No", .one = &EntryScreen::btn_次No, .kind = ControlKind::SSCommand, .caption = "次No", .function_key = 3},
    {.name = "btn_画面クリア", .one = &EntryScreen::btn_画面クリア, .kind = ControlKind::SSCommand, .caption = "画面ｸﾘｱ", .function_key = 4},
    {.name = "btn_参照元No", .one = &EntryScreen::btn_参照元No, .kind = ControlKind::SSCommand, .caption = "参照元", .function_key = 1},
    {.name = "btn_終了", .one = &EntryScreen::btn_終了, .kind = ControlKind::SSCommand, .caption = "終了", .function_key = 11},
    {.name = "prg_ttl", .one = &EntryScreen::prg_ttl, .kind = ControlKind::SSPanel},
    {.name = "お知らせ", .one = &EntryScreen::お知らせ, .kind = ControlKind::SSPanel},
    {.name = "manualpanel", .one = &EntryScreen::manualpanel, .kind = ControlKind::SSPanel, .caption = "マニュアル"},
};
// clang-format on

constexpr bool tab_indices_unique() {
    for (const ScreenField& a : fields)
        for (const ScreenField& b : fields)
            if (&a != &b && a.tab_index != 0 && a.tab_index == b.tab_index) return false;
    return true;
}
static_assert(tab_indices_unique());

void make(EntryScreen& s, Control& c, const ScreenField& f, int row) {
    c = Control{};
    add_control(s, c, f.kind, f.name, row);
    c.page = f.page;
    c.mode = f.mode;
    c.max_length = f.max_length;
    c.tab_stop = f.tab_stop;
    c.tab_index = f.tab_index + (f.tab_index > 0 && row > 0 ? row * row_step : 0);
    c.read_only = f.mode == InputMode::none;
    c.caption = f.caption;
    c.function_key = f.function_key;
}

// The code tables behind the lists, in the order in which they are read.
struct CodeTable {
    const char* statement;
    Control EntryScreen::*number = nullptr;
    Control EntryScreen::*combo = nullptr;
    RowControls EntryScreen::*row_number = nullptr;
    RowControls EntryScreen::*row_combo = nullptr;
    int smallest = 0;
};
constexpr CodeTable code_tables[] = {
    {.statement = "SELECT * FROM K消費税算出区分 WHERE 区分 <= '2' ORDER BY 区分",
     .number = &EntryScreen::得意先消費税算出区分,
     .combo = &EntryScreen::得意先消費税算出区分名称},
    {.statement = "SELECT * FROM K消費税区分 ORDER BY 区分",
     .number = &EntryScreen::得意先消費税区分,
     .combo = &EntryScreen::得意先消費税区分名称,
     .smallest = 1},
    {.statement = "SELECT * FROM K請求消費税表示区分 ORDER BY 区分",
     .number = &EntryScreen::消費税表示区分,
     .combo = &EntryScreen::消費税表示区分名称},
    {.statement = "SELECT * FROM K請求合計表示区分 ORDER BY 区分",
     .number = &EntryScreen::合計表示区分,
     .combo = &EntryScreen::合計表示区分名称},
    {.statement = "SELECT * FROM K請求行区分 ORDER BY 区分",
     .row_number = &EntryScreen::行区分,
     .row_combo = &EntryScreen::行区分名称},
};

void fill(Control& number, Control& combo, const std::vector<std::string>& names, int smallest) {
    set_entries(combo, names);
    const int rows = static_cast<int>(names.size());
    set_limits(number, 通貨::whole(smallest), 通貨::whole(smallest + rows - 1));
}

// Integer digits that keep quantity times price inside the currency's range.
struct Digits {
    int integers;
    int decimals;
};
Digits digits_of(Figure f) {
    switch (f) {
        case Figure::quantity_sale:
            return {6, 実行環境.売上数量少数以下桁数};
        case Figure::price_sale:
            return {8, 実行環境.売上単価少数以下桁数};
        case Figure::quantity_purchase:
            return {6, 実行環境.仕入数量少数以下桁数};
        case Figure::price_purchase:
            return {8, 実行環境.仕入単価少数以下桁数};
        case Figure::amount:
            return {10, 0};
        case Figure::code:
        case Figure::none:
            break;
    }
    return {1, 0};
}

void set_digits(Control& c, Figure f) {
    const Digits d = digits_of(f);
    c.decimals = d.decimals < 0 || d.decimals > 4 ? 0 : d.decimals;
    std::int64_t units = 10000;
    for (int i = 0; i < d.integers; ++i) units *= 10;
    set_limits(c, 通貨::from_units(1 - units), 通貨::from_units(units - 1));
}

}  // namespace

FieldTable screen_fields() {
    return {std::begin(fields), std::end(fields)};
}

const ScreenField* field_of(const Control& c) {
    for (const ScreenField& f : fields) {
        if (f.one && &(frmKalvaneInvoiceEntry.*f.one) == &c) return &f;
        if (f.rows && c.row >= 0 && c.row < screen_rows &&
            &(frmKalvaneInvoiceEntry.*f.rows)[static_cast<std::size_t>(c.row)] == &c)
            return &f;
    }
    return nullptr;
}

void build_entry_screen() {
    EntryScreen& s = frmKalvaneInvoiceEntry;
    static_cast<Form&>(s) = Form{};
    s.name = "frmKalvaneInvoiceEntry";
    for (const ScreenField& f : fields) {
        if (f.one) make(s, s.*f.one, f, -1);
        if (f.rows)
            for (int row = 0; row < screen_rows; ++row)
                make(s, (s.*f.rows)[static_cast<std::size_t>(row)], f, row);
    }
    s.tab_strip = &s.tab_詳細;
    s.tab_詳細.entries = {"売上明細", "仕入明細", "メモ", "付属書類"};
    s.notice = &s.お知らせ;
    s.scl_行.large_change = 10;
    s.List付属書類.columns = {{"書類名", 5000, false}, {"サイズ", 1500, true}, {"更新日付", 1500, false}};
    set_entries(s.売上完了区分名称, {"未", "済"});
    set_limits(s.売上完了区分, 通貨::whole(0), 通貨::whole(1));
}

void 画面コード表読込() {
    EntryScreen& s = frmKalvaneInvoiceEntry;
    for (const CodeTable& t : code_tables) {
        const std::vector<std::string> names = code_table_names(t.statement);
        if (t.number) fill(s.*t.number, s.*t.combo, names, t.smallest);
        if (t.row_number)
            for (std::size_t row = 0; row < screen_rows; ++row)
                fill((s.*t.row_number)[row], (s.*t.row_combo)[row], names, t.smallest);
    }
    for (const ScreenField& f : fields) {
        if (f.figure == Figure::none || f.figure == Figure::code) continue;
        if (f.one) set_digits(s.*f.one, f.figure);
        if (f.rows)
            for (Control& c : s.*f.rows) set_digits(c, f.figure);
    }
}

}  // namespace kalvane

// The installation that is measured on, and the recording of statements.
#include "desk.h"

#include <fcntl.h>
#include <unistd.h>

#include <filesystem>
#include <stdexcept>
#include <vector>

#include "child.h"
#include "data/query.h"
#include "document/calculation.h"
#include "document/lookups.h"
#include "entry/entry.h"
#include "events/save_dialogue.h"
#include "platform/os/clock.h"
#include "platform/os/paths.h"
#include "platform/os/process.h"
#include "platform/screen/host.h"
#include "screen/screen_display.h"
#include "screen/screen_model.h"
#include "screen/scrolling.h"

namespace kalvane::bench {
namespace {

namespace fs = std::filesystem;

std::vector<std::string> product_codes() {
    std::vector<std::string> codes;
    ado::Recordset rs;
    if (主DB読込(rs, "SELECT コード FROM M商品 ORDER BY コード"))
        for (; !rs.Eof(); rs.MoveNext()) codes.push_back(rs.at(0).text());
    rs.Close();
    // not all of them are still sold
    std::erase_if(codes, [](const std::string& code) { return !商品存在確認(code); });
    if (codes.empty()) throw std::runtime_error("the installation has no products");
    return codes;
}

void fill_line(int i, const std::string& product) {
    LineRecord& line = 請求明細行[i];
    line.商品コード = product;
    if (商品存在確認(product)) 商品読込(i);
    line.請求数量 = line.仕入数量 = 通貨::whole(1 + i % 40);
    明細税区分設定(i);
    請求単価設定(i);
    仕入単価設定(i);
    請求金額計算(i);
    仕入金額計算(i);
}

}  // namespace

Installation::Installation(const std::string& folder) : root_(folder + "/root"), kept_(folder + "/kept") {
    fs::remove_all(folder);
    fs::create_directories(kept_);
    const Ended setup = run_child({program_beside("KalvaneSetup"), "create", root_, "--demo"});
    if (setup.status != 0) throw std::runtime_error("KalvaneSetup failed: " + setup.said);
    keep();
}

void Installation::keep() const {
    for (std::string_view name : files)
        fs::copy_file(file(name), kept_ + "/" + fs::path(name).filename().string(),
                      fs::copy_options::overwrite_existing);
}

void Installation::refresh() const {
    for (std::string_view name : files) {
        const std::string live = file(name);
        for (const char* tail : {"-wal", "-shm"}) fs::remove(live + tail);
        fs::remove(live);
        fs::copy_file(kept_ + "/" + fs::path(name).filename().string(), live);
        settle_on_disk(live);
    }
}

void settle_on_disk(const std::string& file) {
    const int handle = open(file.c_str(), O_RDONLY | O_CLOEXEC);
    if (handle < 0 || fsync(handle) != 0) throw std::runtime_error("cannot write " + file);
    close(handle);
}

QuantityEntry::QuantityEntry(int n)
    : row(n % screen_rows), line(first_line + row), quantity(1 + (n / screen_rows + 7 * n) % 90) {}

bool QuantityEntry::arrived() const {
    return 請求明細行[line].仕入数量 == 通貨::whole(quantity) && !failed_in_dispatch();
}

Desk::Desk(const std::string& root, const ScreenHost& screen) {
    reset_run();
    host = screen;
    host.message_box = [](const std::string& text, Buttons, bool) -> bool {
        throw std::runtime_error("unexpected box: " + text);
    };
    host.run_modal = [](Form& form) {
        if (&form == &msg印刷確認) click(msg印刷確認.btn_登録);
    };
    os::freeze_clock(desk_clock);
    os::set_user_name("tanaka");
    os::set_computer_name("SEAT01");
    os::set_previous_instance(false);
    os::set_executable_path(root + "/prgbin/KalvaneInvoiceEntry");
    os::set_command_line("");
    起動処理();
    if (process_ended()) throw std::runtime_error("the program does not start");
}

Desk::~Desk() {
    if (!process_ended()) 強制終了();
    host = {};
    os::release_clock();
    reset_run();
}

void Desk::fill_document() const {
    EntryScreen& screen = frmKalvaneInvoiceEntry;
    press_focus(screen.得意先コード);
    type_text(screen, "3");
    press_key(screen, Key::Enter);
    const std::vector<std::string> codes = product_codes();
    dispatch([&] {
        for (int i = 0; i < document_lines; ++i)
            fill_line(i, codes[static_cast<std::size_t>(i) % codes.size()]);
        実行環境.最終行 = document_lines - 1;
        実行環境.入力変更あり = true;
        全行税再計算();
        画面表示();
        スクロール設定();
        ボタン状態更新();
    });
    if (failed_in_dispatch()) throw std::runtime_error("the document could not be filled");
}

void Desk::type_number(const std::string& number) const {
    press_focus(frmKalvaneInvoiceEntry.営業請求No);
    type_text(frmKalvaneInvoiceEntry, number);
}

Took Desk::open_document(const Stored& document) const {
    type_number(document.number);
    const Took took = time_of([] { press_key(frmKalvaneInvoiceEntry, Key::Enter); });
    if (failed_in_dispatch() || 実行環境.新規入力中 || 実行環境.営業請求No != document.number ||
        実行環境.最終行 != document_lines - 1 || 請求ヘッダ.請求金額合計 != document.amount)
        throw std::runtime_error("the document did not come: " + document.number);
    return took;
}

void Desk::change_document() const {
    EntryScreen& screen = frmKalvaneInvoiceEntry;
    const std::pair<Control*, const char*> entries[] = {{&screen.請求数量[0], "7"},
                                                        {&screen.請求伝票備考A, "数量訂正"}};
    for (const auto& [field, text] : entries) {
        press_focus(*field);
        type_text(screen, text);
        press_key(screen, Key::Enter);
    }
    if (!実行環境.入力変更あり || 請求明細行[0].請求数量 != 通貨::whole(7))
        throw std::runtime_error("the document was not changed");
}

void Desk::press_register() const {
    click(frmKalvaneInvoiceEntry.btn_登録);
}

Stored store_document(const Installation& at) {
    const Desk desk(at.root());
    desk.fill_document();
    Stored stored;
    stored.amount = 請求ヘッダ.請求金額合計;
    desk.press_register();
    ado::Recordset rs;
    if (主DB読込(rs, "SELECT MAX(営業請求No) FROM T営業請求")) stored.number = rs.at(0).text();
    rs.Close();
    return stored;
}

}  // namespace kalvane::bench

#include "desk.h"

#include <fcntl.h>
#include <unistd.h>

#include <filesystem>
#include <stdexcept>
#include <vector>

#include "child.h"
#include "data/query.h"
#include "invoice/calculation.h"
#include "invoice/lookups.h"
#include "invoice/save_dialogue.h"
#include "invoice/screen_display.h"
#include "invoice/screen_model.h"
#include "invoice/scrolling.h"
#include "platform/os/clock.h"
#include "platform/os/paths.h"
#include "platform/os/process.h"
#include "platform/screen/host.h"
#include "startup/entry.h"

namespace kalvane::bench {
namespace {

namespace fs = std::filesystem;

// What is still to be written to the disk would be paid for inside the measurement.
void settle_on_disk(const std::string& file) {
    const int handle = open(file.c_str(), O_RDONLY | O_CLOEXEC);
    if (handle < 0 || fsync(handle) != 0) throw std::runtime_error("cannot write " + file);
    close(handle);
}

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
    const Child setup = run_child({program_beside("KalvaneSetup"), "create", root_, "--demo"}, "");
    if (setup.status != 0) throw std::runtime_error("KalvaneSetup failed: " + root_);
    for (std::string_view name : files)
        fs::copy_file(file(name), kept_ + "/" + fs::path(name).filename().string());
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

Desk::Desk(const Installation& at) {
    reset_run();
    host = {};
    host.message_box = [](const std::string& text, Buttons, bool) -> bool {
        throw std::runtime_error("unexpected box: " + text);
    };
    host.run_modal = [](Form& form) {
        if (&form == &msg印刷確認) click(msg印刷確認.btn_登録);
    };
    os::freeze_clock({{2024, 4, 10}, 9, 30, 0});
    os::set_user_name("tanaka");
    os::set_computer_name("SEAT01");
    os::set_previous_instance(false);
    os::set_executable_path(at.root() + "/prgbin/KalvaneInvoiceEntry");
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

void Desk::press_register() const {
    click(frmKalvaneInvoiceEntry.btn_登録);
}

}  // namespace kalvane::bench

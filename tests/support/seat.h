// A seat at the program inside a test: an installation in a folder of its own, and an operator whose answers
// are functions. The clock stands at 2024-04-10 09:30:00.
#pragma once
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "entry/entry.h"
#include "events/save_dialogue.h"
#include "platform/os/clock.h"
#include "platform/os/paths.h"
#include "platform/os/process.h"
#include "platform/screen/host.h"
#include "screen/screen_model.h"
#include "setup/install.h"
#include "support/temp_folder.h"

namespace kalvane::test {

// Rows of a reading statement, values joined by "|", rows by "\n"; NULL as "NULL".
inline std::string rows_of(ado::Connection& c, const std::string& sql) {
    ado::Recordset rs;
    std::string out;
    for (rs.Open(sql, c); !rs.Eof(); rs.MoveNext()) {
        if (!out.empty()) out += '\n';
        for (std::size_t i = 0; i < rs.columns().size(); ++i) {
            const ado::Value& v = rs.at(static_cast<int>(i));
            out += (i ? "|" : "") + (v.is_null() ? "NULL" : v.text());
        }
    }
    return out;
}

class Installation {
  public:
    explicit Installation(setup::Content content = setup::Content::demo) {
        setup::create_installation({.root = folder.native("root"), .programs = "", .content = content});
        keep();
    }
    std::string root() const { return folder.native("root"); }
    // Another station: runs statements, or reads, on the business or the configuration database.
    std::string main(const std::string& sql) const { return at(setup::main_file, "other", sql); }
    std::string config(const std::string& sql) const { return at(setup::config_file, "other", sql); }
    // Keeps the databases as they are, and puts the kept ones back.
    void keep() const {
        std::filesystem::create_directories(folder.native("kept"));
        for (std::string_view file : files) copy(live(file), kept(file));
    }
    void restore() const {
        for (std::string_view file : files) {
            for (const char* tail : {"-wal", "-shm"}) std::filesystem::remove(live(file) + tail);
            copy(kept(file), live(file));
        }
    }

  private:
    static constexpr std::string_view files[] = {setup::main_file, setup::config_file};
    std::string live(std::string_view file) const { return root() + "/" + std::string(file); }
    std::string kept(std::string_view file) const {
        return folder.native("kept/" + std::filesystem::path(file).filename().string());
    }
    static void copy(const std::string& from, const std::string& to) {
        std::filesystem::copy_file(from, to, std::filesystem::copy_options::overwrite_existing);
    }
    std::string at(std::string_view file, const char* name, const std::string& sql) const {
        ado::Connection c;
        c.name = name;
        setup::open_database(c, root(), file, ado::Access::owner);
        std::string out;
        if (sql.starts_with("SELECT") || sql.starts_with("EXPLAIN"))
            out = rows_of(c, sql);
        else
            c.Execute(sql);
        c.Close();
        return out;
    }
    TempFolder folder;
};

struct SeatSettings {
    std::string command_line = {};
    std::string program = "/prgbin/KalvaneInvoiceEntry";  // below the root
    std::string user = "tanaka";
    bool previous_instance = false;
    bool ends_at_a_box = false;  // somebody ends the process while a box stands
};

// One run of the program on an installation, from 起動処理 to the end of the scope.
class Seat {
  public:
    inline static std::vector<std::string> boxes;                  // texts of the message boxes, in order
    inline static std::function<bool(const std::string&)> answer;  // of the yes-no boxes; no without it
    inline static std::function<void(Form&)> modal;                // acts in a modal form

    explicit Seat(const Installation& at, const std::string& command_line = "")
        : Seat(at.root(), {.command_line = command_line}) {}
    Seat(const std::string& root, const SeatSettings& settings) {
        reset_run();
        boxes.clear();
        answer = nullptr;
        modal = [](Form& f) {
            if (&f == &msg印刷確認) click(msg印刷確認.btn_登録);
        };
        host = {};
        ends_at_a_box = settings.ends_at_a_box;
        host.message_box = [](const std::string& text, Buttons buttons, bool) {
            boxes.push_back(text);
            if (ends_at_a_box) 強制終了();
            return buttons == Buttons::ok || (answer && answer(text));
        };
        host.run_modal = [](Form& f) {
            if (modal) modal(f);
        };
        os::freeze_clock({{2024, 4, 10}, 9, 30, 0});
        os::set_user_name(settings.user);
        os::set_computer_name("SEAT01");
        os::set_previous_instance(settings.previous_instance);
        os::set_executable_path(root + settings.program);
        os::set_command_line(settings.command_line);
        起動処理();
    }
    ~Seat() {
        if (!process_ended()) 強制終了();
        ado::hook = {};
        host = {};
        os::release_clock();
        reset_run();
    }
    Seat(const Seat&) = delete;
    Seat& operator=(const Seat&) = delete;

    EntryScreen& screen() const { return frmKalvaneInvoiceEntry; }
    // Types over the content of a field and leaves it by Enter.
    void enter(Control& c, std::string_view text) const {
        press_focus(c);
        if (screen().active == &c) {
            type_text(screen(), text);
            press_key(screen(), Key::Enter);
        }
    }
    // A line of a product and a quantity, in the screen row.
    void line(std::size_t row, std::string_view product, std::string_view quantity) const {
        enter(screen().商品コード[row], product);
        enter(screen().請求数量[row], quantity);
    }

  private:
    inline static bool ends_at_a_box = false;
};

}  // namespace kalvane::test

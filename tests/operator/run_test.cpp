// The interpreter over a small program of its own: a screen of a few fields, a box, a list window.
#include <gtest/gtest.h>

#include <sstream>

#include "base/failure.h"
#include "operator/operator.h"
#include "platform/os/clock.h"
#include "platform/os/files.h"
#include "platform/os/process.h"
#include "platform/screen/form.h"
#include "platform/screen/host.h"
#include "support/table.h"

namespace kalvane {
namespace {

struct Toy {
    Form main, list, msg;
    Control code, name, amount, kind, done, note, save, row0, row1, page, bar, line_label;
    Control rows, pick;
    Control yes;
    int finished = 0;
    std::string trace;
    bool waiting = false;
};
Toy* toy = nullptr;

void entry() {
    Toy& t = *toy;
    add_control(t.main, t.code, ControlKind::xField, "得意先コード").mode = InputMode::code;
    add_control(t.main, t.name, ControlKind::xField, "名称");
    add_control(t.main, t.amount, ControlKind::xNum, "金額").mode = InputMode::number;
    add_control(t.main, t.kind, ControlKind::combo, "区分");
    add_control(t.main, t.done, ControlKind::check, "完了");
    add_control(t.main, t.note, ControlKind::label, "お知らせ");
    add_control(t.main, t.save, ControlKind::SSCommand, "btn_登録");
    add_control(t.main, t.row0, ControlKind::xField, "商品コード", 0);
    add_control(t.main, t.row1, ControlKind::xField, "商品コード", 1);
    add_control(t.main, t.page, ControlKind::SSTab, "tab_詳細");
    add_control(t.main, t.bar, ControlKind::scroll, "scl_行");
    int index = 0;
    for (Control* c : t.main.controls) c->tab_index = ++index;
    add_control(t.main, t.line_label, ControlKind::label, "Lab_行", 0).caption = "1";
    t.amount.decimals = 2;
    t.save.caption = "登録";
    t.save.tab_stop = false;
    t.main.tab_strip = &t.page;
    t.row1.page = 1;
    set_entries(t.kind, {"通常", "赤伝"});
    set_scroll_range(t.bar, 0, 5);
    t.main.name = "frmKalvaneInvoiceEntry";
    t.main.Wheel = [](Form&, int delta) { toy->trace += "wheel" + std::to_string(delta) + " "; };
    t.main.QueryUnload = [](Form&, bool& cancel) { cancel = !ask("終了しますか？", false); };
    t.main.Unload = [](Form&) { end_process(); };

    add_control(t.list, t.rows, ControlKind::ListView, "List得意先");
    add_control(t.list, t.pick, ControlKind::SSCommand, "btn_戻る");
    t.list.name = "wnd得意先一覧";
    set_list(t.rows, {{"コード", 900, false}, {"名称", 2000, false}},
             {{"C1", "000001", {"  山田 "}}, {"C2", "000002", {"鈴木"}}});
    t.rows.KeyDown = [](Control& c, int code) {
        if (code != key_enter || c.selected < 0) return;
        set_text(toy->code, c.items[static_cast<std::size_t>(c.selected)].text);
        unload_form(toy->list);
    };
    t.pick.Click = [](Control&) { unload_form(toy->list); };

    add_control(t.msg, t.yes, ControlKind::SSCommand, "btn_はい").Click = [](Control&) {
        unload_form(toy->msg);
    };
    t.msg.name = "msg印刷確認";

    t.code.KeyDown = [](Control&, int code) {
        if (code == key_ctrl) show_modal(toy->list);
    };
    t.save.Click = [](Control&) {
        if (toy->code.text == "BAD") throw RunFailure("壊れた\r値");
        set_caption(toy->note, ask("登録しますか？", true) ? "登録しました。" : "中止しました。");
    };
    t.done.Click = [](Control&) { show_modal(toy->msg); };
    t.row0.DropDown = [](Control&) {
        const auto path = host.pick_file("C:\\", {{"すべて", "*.*"}});
        set_text(toy->row0, path.value_or("cancelled"));
    };
    t.name.KeyDown = [](Control& c, int code) {
        if (code != key_ctrl) return;
        os::Shell("C:\\prgbin\\" + c.text + ".exe 000 20240401  1", os::WindowMode::normal);
    };
    t.name.DropDown = [](Control&) {  // a wait for another program
        toy->waiting = true;
        while (toy->waiting && !process_ended()) {
            sleep_and_wait(500);
            pump(Pump::all);
        }
        toy->trace += "waited ";
    };
    t.note.Click = [](Control&) { toy->waiting = false; };
    show_form(t.main);
}

void sign_on_entry() {
    if (!ask("続けますか？", true)) return end_process();
    entry();
}

void failing_entry() {
    throw RunFailure("no start");
}

struct Operated : testing::Test {
    Toy t;
    OperatedProgram program{.reset = nullptr, .entry = entry, .finish = [] { ++toy->finished; }};
    std::string out, err;

    Operated() { toy = &t; }
    ~Operated() override { reset_screen(); }

    int run(const std::string& text, const std::string& command_line = "") {
        ScriptRun run;
        run.text = text;
        run.file = "s";
        run.program_path = "/nowhere/prgbin/KalvaneInvoiceEntry";
        run.command_line = command_line;
        run.program = &program;
        std::ostringstream printed, complaints;
        const int status = run_script(run, printed, complaints);
        out = printed.str();
        err = complaints.str();
        return status;
    }
};

TEST_F(Operated, FailedExpectationsArePrintedAndTheScriptGoesOn) {
    EXPECT_EQ(run("expect 名称 x\nprint between\nexpect focus 名称\nexpect box a\\n\nexpect ended\n"
                  "expect launched P \"a\"\nexpect window box"),
              expectation_failed);
    EXPECT_EQ(out,
              "s:1: expected 名称 x, found \n"
              "between\n"
              "s:3: expected focus 名称, found focus 得意先コード\n"
              "s:4: expected box a\\\\n, found box none\n"
              "s:5: expected the program ended, found it running\n"
              "s:6: expected launched P \"a\", found launched none\n"
              "s:7: expected window box, found window frmKalvaneInvoiceEntry\n");
    EXPECT_EQ(err, "");
}

TEST_F(Operated, AWrongLineEndsAtOnce) {
    for (const auto& row :
         test::table(R"(press x ; click a b ; click ; click 得意先 ; focus 商品コード[9] ; focus 商品コード
        focus 商品コード[x] ; focus お知らせ ; focus 商品コード[1] ; answer OK ; cancel ; key Return
        expect 名称.Colour x ; expect 名称.Max 1 ; choose 区分 2 ; select 名称 0 ; wheel two
        today 20240230 ; exec other x ; screenshot a.png)")) {
        t = {};
        EXPECT_EQ(run("expect window frmKalvaneInvoiceEntry\n" + row[0] + "\nprint reached"), script_wrong)
            << row[0];
        EXPECT_EQ(out, "") << row[0];
        EXPECT_EQ(err.find("s:2: "), 0u) << row[0] << err;
    }
}

TEST_F(Operated, ABoxTakesItsAnswerAlone) {
    EXPECT_EQ(run("click btn_登録\nanswer OK"), script_wrong);
    EXPECT_EQ(err, "s:2: the box has no button OK: 登録しますか？\n");
    EXPECT_EQ(t.note.caption, "中止しました。");  // what the end of the process answers
    t = {};
    EXPECT_EQ(run("click btn_登録\ntype x"), script_wrong);
    t = {};
    EXPECT_EQ(run("click btn_登録\nexpect box 登録しますか？\nexpect 名称 \"\""), program_failed);
    EXPECT_EQ(out, "");
    EXPECT_EQ(t.finished, 1);
}

TEST_F(Operated, AFailureOfAnEventIsABox) {
    EXPECT_EQ(run("type BAD\nclick btn_登録\nexpect box \"壊れた\\n値\"\nanswer OK\nexpect box none\ntype A"),
              script_held)
        << out << err;
    EXPECT_EQ(t.code.text, "BAD");  // the focus is on the button
}

TEST_F(Operated, AListWindowIsMetByTheFollowingLines) {
    EXPECT_EQ(run(R"(key Ctrl
expect window wnd得意先一覧
expect rows List得意先 2
expect cell List得意先 0 1 山田
expect selected List得意先 -1
select List得意先 1
expect selected List得意先 1
expect 名称 ""
key Enter
expect window frmKalvaneInvoiceEntry
expect 得意先コード 000002
)"),
              script_held)
        << out << err;
    t = {};
    EXPECT_EQ(run("key Ctrl\nclick 名称"), script_wrong);  // below the list
    t = {};
    EXPECT_EQ(run("key Ctrl\nexpect rows List得意先 2"), script_held);  // a list asks nothing
    t = {};
    EXPECT_EQ(run("click 完了\nexpect window msg印刷確認"), program_failed);
    t = {};
    EXPECT_EQ(run("click 完了\nclick btn_はい\nexpect 完了 1"), script_held);
}

TEST_F(Operated, TheProgramEndsByItself) {
    EXPECT_EQ(run("close\nexpect box 終了しますか？\nanswer いいえ\nexpect window frmKalvaneInvoiceEntry\n"
                  "close\nanswer はい\nexpect ended\nexpect box none"),
              script_held)
        << out << err;
    t = {};
    EXPECT_EQ(run("close\nanswer はい\ntype x"), script_wrong);
    EXPECT_EQ(err, "s:3: the program has ended\n");
    t = {};
    EXPECT_EQ(run("click btn_登録\nterminate\nexpect ended\nexpect box none"), script_held) << out << err;
}

TEST_F(Operated, StartIsWhereTheScriptSaysOrBeforeItsFirstAction) {
    EXPECT_EQ(run("today 20240401 093000\nprint a"), script_held);
    EXPECT_EQ(t.finished, 0);  // never started
    EXPECT_EQ(run("print a\ntype x"), script_held);
    EXPECT_EQ(t.finished, 1);
    t = {};
    EXPECT_EQ(run("type x\nstart"), script_wrong);  // the script says itself where it starts
    t = {};
    EXPECT_EQ(run("start\ntype x"), script_held);
    t = {};
    EXPECT_EQ(run("start\nstart"), script_wrong);
}

TEST_F(Operated, TheEntryMayAsk) {
    program.entry = sign_on_entry;
    EXPECT_EQ(run("answer はい\nexpect window frmKalvaneInvoiceEntry"), script_held) << out << err;
    t = {};
    EXPECT_EQ(run("expect box 続けますか？\nanswer いいえ\nexpect ended"), script_held) << out << err;
    t = {};
    EXPECT_EQ(run("start"), program_failed);
}

TEST_F(Operated, AFailingEntryIsAFailureOfTheProgram) {
    program.entry = failing_entry;
    EXPECT_EQ(run("start\nprint reached"), program_failed);
    EXPECT_EQ(out, "");
    EXPECT_EQ(err, "the program failed: no start\n");
}

TEST_F(Operated, AWaitTakesOneLineATurn) {
    EXPECT_EQ(run("today 20240401\nfocus 名称\ndropdown\nprint one\nclick 得意先コード\nclick "
                  "お知らせ\nprint after"),
              script_held)
        << out << err;
    EXPECT_EQ(t.trace, "waited ");
    EXPECT_EQ(out, "one\nafter\n");
    t = {};
    EXPECT_EQ(run("today 20240401\nfocus 名称\ndropdown\nprint one"), program_failed);
}

TEST_F(Operated, TheClockStandsUntilItIsMoved) {
    program.entry = [] {
        entry();
        toy->done.Click = [](Control&) {
            sleep_and_wait(1500);
            set_text(toy->name, time_text(os::now()));
        };
    };
    EXPECT_EQ(run("today 20240229 235958\nclick 完了\nexpect 名称 23:59:59\nadvance 3\nclick 完了\n"
                  "expect 名称 00:00:04"),
              script_held)
        << out << err;
    EXPECT_FALSE(os::clock_frozen());
}

TEST_F(Operated, LaunchesAreRecorded) {
    EXPECT_EQ(run(R"(expect launched none
focus 名称
type KalvaneProductRegister
key Ctrl
expect launched KalvaneProductRegister "000 20240401  1"
type KalvaneCustomerRegister
key Ctrl
expect launched KalvaneCustomerRegister "000 20240401  1"
expect launched[1] KalvaneProductRegister "000 20240401  1"
missing KalvaneCustomerRegister.exe
key Ctrl
expect box "ファイルが見つかりません。"
answer OK
expect launched[2] KalvaneCustomerRegister "000 20240401  1"
)"),
              expectation_failed);
    EXPECT_EQ(out,
              "s:14: expected launched KalvaneCustomerRegister \"000 20240401  1\", found launched none\n");
}

TEST_F(Operated, DialogsArePickedOrCancelled) {
    EXPECT_EQ(run("focus 商品コード[0]\ndropdown\nexpect window dialog\nanswer pick \"C:\\\\a b.txt\"\n"
                  "expect 商品コード[0] \"C:\\\\a b.txt\"\ndropdown\ncancel\nexpect 商品コード[0] cancelled"),
              script_held)
        << out << err;
    t = {};
    EXPECT_EQ(run("focus 商品コード[0]\ndropdown\nanswer OK"), script_wrong);
}

TEST_F(Operated, TheSettingsReachTheProgram) {
    program.entry = [] {
        entry();
        set_text(toy->name,
                 os::command_line() + "/" + (os::previous_instance("p", "i") ? "second" : "first"));
    };
    EXPECT_EQ(run("expect 名称 \" 000  2 /first\"", " 000  2 "), script_held) << out;
    t = {};
    EXPECT_EQ(run("previous-instance yes\nexpect 名称 /second"), script_held) << out;
}

TEST_F(Operated, ShowPrintsTheWindowOnTop) {
    EXPECT_EQ(
        run("type A1\nchoose 区分 0\nexpect 区分.ListIndex 0\nfocus 名称\npaste \"a\\\\b\"\nshow\nclick btn_登録\nshow\nanswer はい\n"
            "focus 得意先コード\nkey Ctrl\nselect List得意先 0\nshow\nclick btn_戻る"),
        script_held)
        << out << err;
    EXPECT_EQ(out, R"(window frmKalvaneInvoiceEntry 
得意先コード=A1
*名称=a\\b
金額=0
区分=通常
完了=0
btn_登録=登録
商品コード[0]=
tab_詳細=0
scl_行=0
Lab_行[0]=1
box 登録しますか？
window wnd得意先一覧 
*List得意先=2 rows
    コード | 名称
  > 000001 | 山田
    000002 | 鈴木
)");
}

}  // namespace
}  // namespace kalvane

// The interpreter over a small program of its own: a screen of a few fields, a box, a list window.
#include <gtest/gtest.h>

#include <map>
#include <sstream>

#include "base/failure.h"
#include "base/text.h"
#include "operator/operator.h"
#include "platform/os/clock.h"
#include "platform/os/process.h"
#include "platform/screen/form.h"
#include "platform/screen/host.h"
#include "support/table.h"

namespace kalvane {
namespace {

struct Toy {
    Form main, list, msg;
    Control code, name, kind, done, note, save, row0, row1, page, bar, line_label, rows, pick, yes;
    int finished = 0;
    bool waiting = false;
};
Toy* toy = nullptr;

void entry() {
    Toy& t = *toy;
    add_control(t.main, t.code, ControlKind::xField, "得意先コード").mode = InputMode::code;
    add_control(t.main, t.name, ControlKind::xField, "名称");
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
    t.save.caption = "登録";
    t.save.tab_stop = false;
    t.main.tab_strip = &t.page;
    t.row1.page = 1;
    set_entries(t.kind, {"通常", "赤伝"});
    set_scroll_range(t.bar, 0, 5);
    t.main.name = "frmKalvaneInvoiceEntry";
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
    };
    t.note.Click = [](Control&) { toy->waiting = false; };
    show_form(t.main);
}

void sign_on_entry() {
    if (!ask("続けますか？", true)) return end_process();
    entry();
}

struct Operated : testing::Test {
    Toy t;
    OperatedProgram program{.reset = nullptr, .entry = entry, .finish = [] { ++toy->finished; }};
    std::string out, err;

    Operated() { toy = &t; }
    ~Operated() override { reset_screen(); }

    // The lines of the script are parted by " / " or line ends.
    int run(const std::string& text, const std::string& command_line = "") {
        t = {};
        ScriptRun run;
        run.text = Replace(text, " / ", "\n");
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
    EXPECT_EQ(run("expect 名称 x / print between / expect focus 名称 / expect box a\\n / expect ended / "
                  "expect launched P \"a\" / expect window box"),
              expectation_failed);
    EXPECT_EQ(out, R"(s:1: expected 名称 x, found 
between
s:3: expected focus 名称, found focus 得意先コード
s:4: expected box a\\n, found box none
s:5: expected the program ended, found it running
s:6: expected launched P "a", found launched none
s:7: expected window box, found window frmKalvaneInvoiceEntry
)");
    EXPECT_EQ(err, "");
}

TEST_F(Operated, AWrongLineEndsAtOnce) {
    for (const auto& row :
         test::table(R"(press x ; click a b ; click ; click 得意先 ; focus 商品コード[9] ; focus 商品コード
        focus 商品コード[x] ; focus お知らせ ; focus 商品コード[1] ; answer OK ; cancel ; key Return
        expect 名称.Colour x ; expect 名称.Max 1 ; choose 区分 2 ; select 名称 0 ; wheel two
        today 20240230 ; exec other x ; screenshot a.png)")) {
        EXPECT_EQ(run("expect window frmKalvaneInvoiceEntry / " + row[0] + " / print reached"), script_wrong)
            << row[0];
        EXPECT_EQ(out, "") << row[0];
        EXPECT_EQ(err.find("s:2: "), 0u) << row[0] << err;
    }
}

// How a script ends, the script, and its message. Boxes take their answer alone, a failure of an event is a
// box, a list window or a modal box is met by the lines that follow and asks nothing, the program ends by
// itself.
TEST_F(Operated, EndsWithItsStatus) {
    const std::map<std::string, int> statuses{
        {"held", script_held}, {"wrong", script_wrong}, {"failed", program_failed}};
    for (const auto& r : test::table(R"(
        wrong|click btn_登録 / answer OK|s:2: the box has no button OK: 登録しますか？
        wrong|click btn_登録 / type x|s:2:
        failed|click btn_登録 / expect box 登録しますか？ / expect 名称 ""|
        held|type BAD / click btn_登録 / expect box "壊れた\n値" / answer OK / expect box none / type A / \
          expect 得意先コード A / expect 得意先コード.MaxLength 0|
        held|key Ctrl / expect window wnd得意先一覧 / expect rows List得意先 2 / expect cell List得意先 0 1 山田 / \
          expect selected List得意先 -1 / select List得意先 1 / expect selected List得意先 1 / expect 名称 "" / \
          key Enter / expect window frmKalvaneInvoiceEntry / expect 得意先コード 000002|
        wrong|key Ctrl / click 名称|s:2: ; held|key Ctrl / expect rows List得意先 2|
        failed|click 完了 / expect window msg印刷確認| ; held|click 完了 / click btn_はい / expect 完了 1|
        held|close / expect box 終了しますか？ / answer いいえ / expect window frmKalvaneInvoiceEntry / close / \
          answer はい / expect ended / expect box none|
        wrong|close / answer はい / type x|s:3: the program has ended
        held|click btn_登録 / terminate / expect ended / expect box none|
        held|start / type x| ; wrong|start / start|s:2:
        failed|today 20240401 / focus 名称 / dropdown / print one|
        held|focus 商品コード[0] / dropdown / expect window dialog / answer pick "C:\\a b.txt" / \
          expect 商品コード[0] "C:\\a b.txt" / dropdown / cancel / expect 商品コード[0] cancelled|
        wrong|focus 商品コード[0] / dropdown / answer OK|s:3:)")) {
        EXPECT_EQ(run(r[1]), statuses.at(r[0])) << r[1] << out << err;
        EXPECT_TRUE(err.starts_with(r[2])) << r[1] << err;
        EXPECT_TRUE(t.finished == 1 && !os::clock_frozen()) << r[1];
    }
}

TEST_F(Operated, AScriptWithoutActionsStartsNothing) {
    EXPECT_EQ(run("today 20240401 093000 / print a"), script_held);
    EXPECT_EQ(t.finished, 0);
    EXPECT_EQ(run("type x / start"), script_wrong);  // it says itself where it starts
    EXPECT_EQ(t.finished, 0);
    EXPECT_EQ(run("click btn_登録"), program_failed);
    EXPECT_EQ(t.note.caption, "中止しました。");  // what the end of the process answers
}

TEST_F(Operated, TheEntryMayAskOrFail) {
    program.entry = sign_on_entry;
    EXPECT_EQ(run("answer はい / expect window frmKalvaneInvoiceEntry"), script_held) << out << err;
    EXPECT_EQ(run("expect box 続けますか？ / answer いいえ / expect ended"), script_held) << out << err;
    EXPECT_EQ(run("start"), program_failed);
    program.entry = [] { throw RunFailure("no start"); };
    EXPECT_EQ(run("start / print reached"), program_failed);
    EXPECT_EQ(out + err, "the program failed: no start\n");
}

TEST_F(Operated, AWaitTakesOneLineATurn) {
    EXPECT_EQ(
        run("today 20240401 / focus 名称 / dropdown / print one / click 得意先コード / click お知らせ / "
            "print after"),
        script_held)
        << out << err;
    EXPECT_EQ(out, "one\nafter\n");
}

TEST_F(Operated, LaunchesAreRecorded) {
    EXPECT_EQ(run(R"(expect launched none / focus 名称 / type KalvaneProductRegister / key Ctrl
expect launched KalvaneProductRegister "000 20240401  1"
type KalvaneCustomerRegister / key Ctrl
expect launched KalvaneCustomerRegister "000 20240401  1"
expect launched[1] KalvaneProductRegister "000 20240401  1"
missing KalvaneCustomerRegister.exe / key Ctrl / expect box "ファイルが見つかりません。" / answer OK
expect launched[2] KalvaneCustomerRegister "000 20240401  1")"),
              expectation_failed);
    EXPECT_EQ(out,
              "s:14: expected launched KalvaneCustomerRegister \"000 20240401  1\", found launched none\n");
}

TEST_F(Operated, ShowPrintsTheWindowOnTop) {
    EXPECT_EQ(run(R"(type A1 / choose 区分 0 / expect 区分.ListIndex 0 / focus 名称 / paste "a\\b" / show
click btn_登録 / show / answer はい
focus 得意先コード / key Ctrl / select List得意先 0 / show / click btn_戻る)"),
              script_held)
        << out << err;
    EXPECT_EQ(out, R"(window frmKalvaneInvoiceEntry 
得意先コード=A1
*名称=a\\b
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

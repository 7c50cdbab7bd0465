#include <gtest/gtest.h>

#include "ado_support.h"
#include "base/failure.h"
#include "platform/os/files.h"
#include "platform/screen/form.h"
#include "platform/screen/host.h"

namespace kalvane {
namespace {

int record = 0, kept = 0;  // the record of an upper floor, and its copy
std::vector<std::string> boxes;

struct Dispatch : testing::Test {
    Form form, box;
    Control field, button;

    Dispatch() {
        reset_screen();
        host = {};
        boxes.clear();
        record = kept = 0;
        event_copies = {.keep = [] { kept = record; }, .restore = [] { record = kept; }};
        host.message_box = [](const std::string& text, Buttons, bool yes) {
            boxes.push_back(text);
            return yes;
        };
        add_control(form, field, ControlKind::xField, "field");
        add_control(box, button, ControlKind::SSCommand, "button");
    }
    ~Dispatch() override {
        reset_screen();
        host = {};
    }
};

TEST_F(Dispatch, AFailurePutsTheRecordsBackAndShowsItsText) {
    const std::function<void()> failures[] = {[] { throw RunFailure(overflow_text); },
                                              [] { throw ado::Error(-1, "no such table: T"); },
                                              [] { throw os::FileError(53, "missing"); }};
    for (const auto& fail : failures) {
        record = 1;
        dispatch([&] {
            record = 2;
            fail();
        });
        EXPECT_EQ(record, 1);
    }
    EXPECT_EQ(boxes, (std::vector<std::string>{overflow_text, "no such table: T", "missing"}));
    EXPECT_TRUE(failed_in_dispatch());
    dispatch([] { record = 3; });
    EXPECT_EQ(record, 3);
    EXPECT_EQ(boxes.size(), 3u);
    event_copies.restore = [] { throw RunFailure("redraw"); };
    dispatch([] { throw RunFailure("first"); });
    EXPECT_EQ(boxes.back(), "first");
}

TEST_F(Dispatch, AFailureInsideALoopLeavesTheRestoringToTheOutermost) {
    record = 1;
    dispatch([] {
        record = 2;
        dispatch([] {
            record = 3;
            throw RunFailure("inner");
        });
        EXPECT_EQ(record, 3);
        record = 4;
    });
    EXPECT_EQ(record, 4);
    EXPECT_EQ(boxes, std::vector<std::string>{"inner"});
}

TEST_F(Dispatch, NothingIsPutBackOnceAStatementHasWritten) {
    {
        test::Database db({"CREATE TABLE T (a TEXT)"});
        ado::Connection& connection = db.program;
        record = 1;
        dispatch([&] {
            record = 2;
            ado::Recordset rows;
            rows.Open("SELECT * FROM T", connection);
            throw RunFailure("after a read");
        });
        EXPECT_EQ(record, 1);
        dispatch([&] {
            record = 2;
            connection.Execute("INSERT INTO T VALUES ('1')");
            throw RunFailure("after a write");
        });
        EXPECT_EQ(record, 2);
    }
    EXPECT_EQ(boxes.size(), 2u);
}

TEST_F(Dispatch, NothingRunsAfterTheEnd) {
    show_form(form);
    end_process();
    dispatch([] { record = 9; });
    message_box("text");
    EXPECT_FALSE(ask("text", true));
    show_form(form);
    EXPECT_EQ(record, 0);
    EXPECT_TRUE(boxes.empty());
    EXPECT_TRUE(open_forms.empty());
    reset_screen();
    dispatch([] { record = 9; });
    EXPECT_EQ(record, 9);
}

// --- the life of forms

int loads = 0, unloads = 0;
bool refuse = false;

struct Forms : Dispatch {
    Forms() {
        loads = unloads = 0;
        refuse = false;
        form.Load = [](Form&) { ++loads; };
        form.QueryUnload = [](Form&, bool& cancel) { cancel = refuse; };
        form.Unload = [](Form&) { ++unloads; };
    }
};

TEST_F(Forms, LoadOncePerCreation) {
    show_form(form);
    hide_form(form);
    EXPECT_EQ(top_form(), nullptr);
    show_form(form);
    EXPECT_EQ(loads, 1);
    refuse = true;
    EXPECT_FALSE(close_form(form));
    EXPECT_EQ(top_form(), &form);
    refuse = false;
    EXPECT_TRUE(close_form(form));
    EXPECT_EQ(unloads, 1);
    show_form(form);
    EXPECT_EQ(loads, 2);
}

TEST_F(Forms, ALoadThatFailsLeavesNoForm) {
    form.Load = [](Form& f) {
        set_focus(*f.controls.front());
        throw RunFailure("load");
    };
    dispatch([&] { show_form(form); });
    EXPECT_FALSE(form.loaded);
    EXPECT_EQ(form.active, nullptr);
    EXPECT_EQ(boxes, std::vector<std::string>{"load"});
}

TEST_F(Forms, AModalFormEndsWithItsClosing) {
    host.run_modal = [](Form& f) {
        EXPECT_TRUE(f.modal);
        EXPECT_EQ(top_form(), &f);
        EXPECT_EQ(f.active, f.controls.front());
        click(*f.controls.front());
        EXPECT_FALSE(f.visible);
    };
    button.Click = [](Control& c) { unload_form(*c.form); };
    show_form(form);
    show_modal(box);
    EXPECT_EQ(top_form(), &form);
    EXPECT_FALSE(box.modal);
    host.run_modal = [](Form&) {};  // a host that gives up
    show_modal(box);
    EXPECT_FALSE(box.visible);
    EXPECT_TRUE(box.loaded);
}

TEST_F(Forms, TheEndClosesAllWithoutAsking) {
    refuse = true;
    show_form(form);
    load_form(box);  // loaded and never shown
    box.Unload = [](Form&) { unloads += 10; };
    end_process();
    EXPECT_EQ(unloads, 11);
    EXPECT_FALSE(form.loaded);
    EXPECT_FALSE(box.loaded);
    EXPECT_TRUE(process_ended());
}

TEST_F(Forms, TheNoticeIsThatOfTheFormOnTop) {
    Control notice;
    add_control(form, notice, ControlKind::label, "お知らせ");
    form.notice = &notice;
    set_notice_of_active_form("a");
    EXPECT_EQ(notice.caption, "");
    show_form(form);
    set_notice_of_active_form("b");
    show_form(box);
    set_notice_of_active_form("c");
    EXPECT_EQ(notice.caption, "b");
}

}  // namespace
}  // namespace kalvane

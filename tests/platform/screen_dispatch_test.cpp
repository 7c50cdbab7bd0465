// Events, their failures, and the end of the process.
#include "ado_support.h"
#include "base/failure.h"
#include "platform/os/files.h"
#include "platform/screen/form.h"
#include "platform/screen/host.h"

namespace kalvane {
namespace {

using Texts = std::vector<std::string>;

int record = 0, kept = 0;  // the record of an upper floor, and its copy
Texts boxes;

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
    // Dispatches a change of the record to 2 and the work behind it; the record then, which was 1.
    static int record_after(const std::function<void()>& work) {
        record = 1;
        dispatch([&] {
            record = 2;
            work();
        });
        return record;
    }
};

TEST_F(Dispatch, AFailurePutsTheRecordsBackAndShowsItsText) {
    EXPECT_EQ(record_after([] { throw RunFailure(overflow_text); }), 1);
    EXPECT_EQ(record_after([] { throw ado::Error(-1, "no such table: T"); }), 1);
    EXPECT_EQ(record_after([] { throw os::FileError(53, "missing"); }), 1);
    EXPECT_TRUE(failed_in_dispatch());
    EXPECT_EQ(record_after([] {}), 2);
    event_copies.restore = [] { throw RunFailure("redraw"); };
    dispatch([] { throw RunFailure("first"); });
    EXPECT_EQ(boxes, (Texts{overflow_text, "no such table: T", "missing", "first"}));
}

TEST_F(Dispatch, AFailureInsideALoopLeavesTheRestoringToTheOutermost) {
    EXPECT_EQ(record_after([] {
                  dispatch([] {
                      record = 3;
                      throw RunFailure("inner");
                  });
                  EXPECT_EQ(record, 3);
                  record = 4;
              }),
              4);
    EXPECT_EQ(boxes, Texts{"inner"});
}

TEST_F(Dispatch, NothingIsPutBackOnceAStatementHasWritten) {
    test::Database db({"CREATE TABLE T (a TEXT)"});
    EXPECT_EQ(record_after([&] {
                  test::rows_of(db.program, "SELECT * FROM T");
                  throw RunFailure("after a read");
              }),
              1);
    EXPECT_EQ(record_after([&] {
                  db.program.Execute("INSERT INTO T VALUES ('1')");
                  throw RunFailure("after a write");
              }),
              2);
    EXPECT_EQ(boxes.size(), 2u);
    // what is noted elsewhere, as the failure itself may be, is no obstacle
    db.program.name = "config";
    EXPECT_EQ(record_after([&] {
                  db.program.Execute("INSERT INTO T VALUES ('2')");
                  throw RunFailure("after a note");
              }),
              1);
}

// The operator stands where he stood: field, content marked or not, page; nothing is entered or left for it.
TEST_F(Dispatch, AFailurePutsTheFocusBack) {
    Control other, strip;
    add_control(form, other, ControlKind::xField, "other").page = 1;
    form.tab_strip = &add_control(form, strip, ControlKind::SSTab, "strip");
    show_form(form);
    ASSERT_EQ(form.active, &field);
    form.left = true;
    other.GotFocus = [](Control&) { throw RunFailure("on entering"); };
    field.GotFocus = field.LostFocus = [](Control&) { ++record; };
    for (const bool marked : {true, false}) {
        field.select_all = marked;
        EXPECT_EQ(record_after([&] {
                      set_number(strip, 1);
                      set_focus(other);
                  }),
                  1);
        EXPECT_TRUE(form.active == &field && form.left && field.select_all == marked && strip.number == 0);
    }
}

TEST_F(Dispatch, NothingRunsAfterTheEnd) {
    show_form(form);
    end_process();
    EXPECT_EQ(record_after([] {}), 1);
    message_box("text");
    EXPECT_FALSE(ask("text", true));
    show_form(form);
    EXPECT_TRUE(boxes.empty() && open_forms.empty());
    reset_screen();
    EXPECT_EQ(record_after([] {}), 2);
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
    refuse = true;
    EXPECT_FALSE(close_form(form));
    EXPECT_EQ(top_form(), &form);
    EXPECT_EQ(loads, 1);
    refuse = false;
    EXPECT_TRUE(close_form(form));
    show_form(form);
    EXPECT_EQ(loads * 10 + unloads, 21);
}

TEST_F(Forms, ALoadThatFailsLeavesNoForm) {
    form.Load = [](Form& f) {
        set_focus(*f.controls.front());
        throw RunFailure("load");
    };
    dispatch([&] { show_form(form); });
    EXPECT_TRUE(!form.loaded && !form.active);
    EXPECT_EQ(boxes, Texts{"load"});
}

TEST_F(Forms, TheEndClosesAllWithoutAsking) {
    refuse = true;
    show_form(form);
    load_form(box);  // loaded and never shown
    box.Unload = [](Form&) { unloads += 10; };
    end_process();
    EXPECT_EQ(unloads, 11);
    EXPECT_TRUE(!form.loaded && !box.loaded && process_ended());
}

}  // namespace
}  // namespace kalvane

// What a person's hands may do that a script does not: composing, pasting, editing in the middle, clicking
// where nothing is to be clicked; and hands that do anything at all.
#include <gtest/gtest.h>

#include <QApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPointer>
#include <QWheelEvent>
#include <random>

#include "invoice/screen_model.h"
#include "window/box_view.h"
#include "window/look.h"
#include "window/qt_host.h"
#include "window/seat.h"

namespace kalvane {
namespace {

// A program at its first field, the window's own host in front of it.
struct AtTheWindow : testing::Test {
    const Hands& hands = test::real_hands();
    EntryScreen& s = frmKalvaneInvoiceEntry;

    AtTheWindow() {
        test::demonstration().restore();
        reset_run();
        host = window_host();
        os::freeze_clock({{2024, 4, 10}, 9, 30, 0});
        os::set_user_name("tanaka");
        os::set_computer_name("SEAT01");
        os::set_previous_instance(false);
        os::set_executable_path(test::demonstration().root() + "/prgbin/KalvaneInvoiceEntry");
        os::set_command_line("");
        起動処理();
        hands.settle();
    }
    ~AtTheWindow() override {
        end_process();
        if (実行環境.主接続中 || 実行環境.設定接続中) 強制終了();
        sync_windows();
        window_state.turn = nullptr;
        host = {};
        os::release_clock();
        reset_run();
    }
    FormView& view() { return *view_of(s); }
    QLineEdit& edit(Control& c) { return *static_cast<QLineEdit*>(view().widget_of(c)); }
    static void key(QWidget* to, int key, const QString& text = {}) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
        QCoreApplication::sendEvent(to, &event);
    }
    static void compose(QWidget* to, const QString& shown, const QString& committed) {
        QInputMethodEvent event(shown, {});
        event.setCommitString(committed);
        QCoreApplication::sendEvent(to, &event);
    }
    void fill_head() {
        press_focus(s.得意先コード);
        hands.settle();
        hands.type_text(s, "3");
        hands.press_key(s, Key::Enter);
    }
};

TEST_F(AtTheWindow, TheFocusOfThePlatformFollowsTheModel) {
    EXPECT_EQ(s.active, &s.営業請求日付年);
    EXPECT_EQ(view().focusWidget(), &edit(s.営業請求日付年));
    EXPECT_TRUE(edit(s.営業請求日付年).hasSelectedText());
    key(&edit(s.営業請求日付年), Qt::Key_Return);
    EXPECT_EQ(view().focusWidget(), &edit(s.営業請求日付月));
    EXPECT_FALSE(edit(s.営業請求日付年).hasSelectedText());
    // a platform that moved the focus by itself is put right by the next event
    edit(s.営業請求No).setFocus();
    key(&edit(s.営業請求No), Qt::Key_5, "5");
    EXPECT_EQ(s.営業請求No.text, edit(s.営業請求No).text().toStdString());
    EXPECT_EQ(view().focusWidget(), &edit(s.営業請求日付月));
}

TEST_F(AtTheWindow, RefusedKeysLeaveNoTrace) {
    QLineEdit& year = edit(s.営業請求日付年);
    ASSERT_TRUE(s.営業請求日付年.select_all);
    ASSERT_TRUE(year.hasSelectedText());
    key(&year, Qt::Key_A, "a");
    EXPECT_EQ(s.営業請求日付年.text, "2024");
    EXPECT_EQ(year.text(), "2024");
    EXPECT_TRUE(year.hasSelectedText());
    for (const char* digit : {"1", "9", "9", "8", "7"}) key(&year, Qt::Key_1, digit);
    EXPECT_EQ(s.営業請求日付年.text, "1998");
    EXPECT_EQ(year.text(), "1998");
    // in the middle: native editing, the model's filter
    year.setCursorPosition(2);
    key(&year, Qt::Key_Backspace);
    EXPECT_EQ(s.営業請求日付年.text, "198");
    EXPECT_EQ(year.cursorPosition(), 1);
    key(&year, Qt::Key_Minus, "-");
    EXPECT_EQ(year.text(), "198");
    key(&year, Qt::Key_0, "0");
    EXPECT_EQ(s.営業請求日付年.text, "1098");
}

TEST_F(AtTheWindow, EnterInACompositionOnlyCommitsIt) {
    fill_head();
    press_focus(s.タイトル);
    hands.settle();
    QLineEdit& title = edit(s.タイトル);
    EXPECT_TRUE(title.testAttribute(Qt::WA_InputMethodEnabled));
    EXPECT_FALSE(edit(s.得意先コード).testAttribute(Qt::WA_InputMethodEnabled));
    compose(&title, "けん", {});
    EXPECT_EQ(s.タイトル.text, "");
    key(&title, Qt::Key_Return, "\r");
    key(&title, Qt::Key_Down);
    EXPECT_EQ(s.active, &s.タイトル);
    compose(&title, {}, "件");
    EXPECT_EQ(s.タイトル.text, "件");
    EXPECT_EQ(s.active, &s.タイトル);
    key(&title, Qt::Key_Return, "\r");
    EXPECT_EQ(s.active, &s.支払条件);
}

TEST_F(AtTheWindow, ANumberIsEditedWithItsSeparators) {
    fill_head();
    press_focus(s.商品コード[0]);
    hands.settle();
    hands.type_text(s, "P0001");
    hands.press_key(s, Key::Enter);
    press_focus(s.請求単価[0]);
    hands.settle();
    hands.type_text(s, "1234.5");
    hands.press_key(s, Key::ShiftTab);
    QLineEdit& price = edit(s.請求単価[0]);
    EXPECT_EQ(price.text(), "1,234.50");
    press_focus(s.請求単価[0]);
    hands.settle();
    price.setCursorPosition(1);
    key(&price, Qt::Key_9, "9");
    EXPECT_EQ(price.text(), "19234.50");
    EXPECT_EQ(price.cursorPosition(), 2);
    EXPECT_EQ(s.請求単価[0].value, 通貨::from_units(192345000));
}

TEST_F(AtTheWindow, ABoxTakesAllInput) {
    fill_head();
    static AtTheWindow* here;
    static int turns;
    here = this;
    turns = 0;
    hands.set_turn([] {
        ASSERT_EQ(window_state.boxes.size(), 1u);
        BoxView& box = *window_state.boxes.back();
        const std::string before = here->s.営業請求日付年.text;
        switch (++turns) {
            case 1:  // the default is no; the window below takes neither keys nor clicks
                EXPECT_EQ(box.focusWidget(), box.button(false));
                key(&here->edit(here->s.営業請求日付年), Qt::Key_5, "5");
                here->hands.click(here->s.btn_終了);
                here->view().close();
                box.close();
                EXPECT_EQ(here->s.営業請求日付年.text, before);
                EXPECT_FALSE(box.answered());
                break;
            default:
                key(box.focusWidget(), Qt::Key_Return);
        }
    });
    hands.click(s.btn_終了);
    EXPECT_EQ(turns, 2);
    EXPECT_FALSE(process_ended());
    EXPECT_TRUE(window_state.boxes.empty());
    EXPECT_TRUE(s.visible);
}

TEST_F(AtTheWindow, ADisabledFormAndAHiddenPageTakeNothing) {
    set_form_enabled(s, false);
    hands.settle();
    const Control* active = s.active;
    key(&edit(s.営業請求日付年), Qt::Key_Return);
    EXPECT_EQ(s.active, active);
    set_form_enabled(s, true);
    key(&edit(s.営業請求日付年), Qt::Key_Return);
    EXPECT_NE(s.active, active);
}

TEST(Look, TextReadsWellOnEveryGround) {
    struct Pair {
        QColor ink, ground;
    };
    const QColor white(Qt::white);
    for (const Pair& p : {Pair{look::ink, look::page},
                          {look::ink, look::panel},
                          {look::ink, look::notice},
                          {look::quiet, look::dull},
                          {look::quiet, look::panel},
                          {look::link_ink, look::link},
                          {look::link_ink, look::hover},
                          {look::link_ink, look::pressed},
                          {white, look::bar},
                          {white, look::focus},
                          {look::ink, look::band}})
        EXPECT_GE(look::contrast(p.ink, p.ground), 4.5)
            << p.ink.name().toStdString() << " on " << p.ground.name().toStdString();
    // frames and the focus need 3
    EXPECT_GE(look::contrast(look::focus, look::page), 3.0);
    EXPECT_GE(look::contrast(look::focus, look::band), 3.0);
    for (Colour c : {RGB(0, 128, 128), RGB(128, 128, 255), RGB(192, 64, 0), RGB(0, 192, 0)})
        for (const QColor& ground : {look::field, look::panel, QColor(224, 224, 224), QColor(255, 255, 192)})
            EXPECT_GE(look::contrast(look::readable(look::colour_of(c, look::ink), ground), ground), 4.5);
    EXPECT_NEAR(look::contrast(Qt::black, Qt::white), 21.0, 0.01);
    EXPECT_NEAR(look::contrast(QColor(0x76, 0x76, 0x76), Qt::white), 4.54, 0.01);
}

// --- hands that do anything at all

class AnyHands {
  public:
    explicit AnyHands(unsigned seed) : random(seed) {}
    void act() {
        QWidget* top = window_on_top();
        if (!top) return;
        QWidget* to = top->focusWidget() ? top->focusWidget() : top;
        if (pick(3) == 0) to = any_child(*top);
        switch (pick(8)) {
            case 0:
                return mouse(*any_child(*top));
            case 1:
                return wheel(*to);
            case 2:
                return compose(*to);
            default:
                return key(*to);
        }
    }

  private:
    std::mt19937 random;
    int pick(int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); }
    QWidget* any_child(QWidget& top) {
        const auto children = top.findChildren<QWidget*>();
        return children.isEmpty() ? &top : children[pick(static_cast<int>(children.size()))];
    }
    void key(QWidget& to) {
        static constexpr int codes[] = {Qt::Key_Return,  Qt::Key_Return,    Qt::Key_Tab,    Qt::Key_Backtab,
                                        Qt::Key_Up,      Qt::Key_Down,      Qt::Key_Escape, Qt::Key_Space,
                                        Qt::Key_Delete,  Qt::Key_Backspace, Qt::Key_Left,   Qt::Key_Home,
                                        Qt::Key_Control, Qt::Key_PageDown,  Qt::Key_F2,     Qt::Key_F4,
                                        Qt::Key_F5,      Qt::Key_F6,        Qt::Key_F9,     Qt::Key_F12};
        static const QString texts[] = {"1", "3", "P", "0", "山", "-", ".", "｡", "9"};
        const bool typed = pick(2) == 0;
        const int code = typed ? 0 : codes[pick(static_cast<int>(std::size(codes)))];
        QKeyEvent press(QEvent::KeyPress, code, Qt::NoModifier, typed ? texts[pick(9)] : QString());
        QCoreApplication::sendEvent(&to, &press);
    }
    void mouse(QWidget& to) {
        const QPointer<QWidget> target = &to;
        const QPoint at(pick(std::max(1, to.width())), pick(std::max(1, to.height())));
        for (const QEvent::Type type : {pick(6) == 0 ? QEvent::MouseButtonDblClick : QEvent::MouseButtonPress,
                                        QEvent::MouseButtonRelease}) {
            if (!target) return;
            QMouseEvent event(type, at, target->mapToGlobal(at), Qt::LeftButton,
                              type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton,
                              Qt::NoModifier);
            QCoreApplication::sendEvent(target, &event);
        }
    }
    void wheel(QWidget& to) {
        QWheelEvent event(QPointF(1, 1), to.mapToGlobal(QPointF(1, 1)), {}, {0, pick(5) * 60 - 120},
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&to, &event);
    }
    void compose(QWidget& to) {
        QInputMethodEvent event(pick(2) ? QString("かな") : QString(), {});
        if (pick(2)) event.setCommitString("漢字");
        QCoreApplication::sendEvent(&to, &event);
    }
};
AnyHands* any_hands = nullptr;
int acts_left = 0;

// Where an editor differs from its model, or the focus from the model's.
std::string difference() {
    for (Form* form : open_forms) {
        FormView* view = view_of(*form);
        if (!view) return form->name + " has no window";
        for (Control* c : form->controls)
            if (Mirror* m = view->mirror_of(*c); m && takes_text(*c) && !m->composing &&
                                                 c->kind != ControlKind::xText &&
                                                 widget_text(*m) != model_text(*c))
                return c->name + " shows " + widget_text(*m) + ", holds " + model_text(*c);
    }
    return "";
}

class AnyInput : public AtTheWindow, public testing::WithParamInterface<unsigned> {};

TEST_P(AnyInput, LeavesWindowAndModelsInStep) {
    constexpr int acts = 500;
    AnyHands some(GetParam());
    any_hands = &some;
    acts_left = acts;
    fill_head();
    os::launcher = [](const os::Launch&) {};
    hands.set_turn([] {
        // loops that open in loops are left again, each by its own keys
        if (acts_left-- > 0)
            any_hands->act();
        else if (!window_state.boxes.empty())
            window_state.boxes.back()->answer(true);
        else
            end_process();
    });
    while (acts_left > 0 && !process_ended()) {
        wait_turn();
        ASSERT_EQ(difference(), "");
    }
    os::launcher = nullptr;
    EXPECT_FALSE(failed_in_dispatch());
}

INSTANTIATE_TEST_SUITE_P(Seeds, AnyInput, testing::Values(1u, 2u, 3u, 4u, 5u, 6u));

}  // namespace
}  // namespace kalvane

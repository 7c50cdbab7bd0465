// What a person's hands may do that a script does not: composing, pasting, editing in the middle, dropping,
// clicking where nothing is to be clicked; and what a program that reads the screen aloud finds.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QWheelEvent>
#include <tuple>

#include "data/wait_box.h"
#include "events/save_dialogue.h"
#include "window/at_the_window.h"
#include "window/box_view.h"
#include "window/look.h"

namespace kalvane {
namespace {

using test::AtTheWindow;

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

// 15 twips a pixel: a notice of 1350 x 24 at 668, with a frame of 90 and 420.
TEST_F(AtTheWindow, TheScreenIsAsLargeAsItsNoticeSays) {
    EXPECT_EQ(s.width, 20340);
    EXPECT_EQ(s.height, 10800);
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
    // nor does a key or a paste in a full field push a character out
    key(&year, Qt::Key_5, "5");
    EXPECT_EQ(year.text(), "1098");
    EXPECT_EQ(year.cursorPosition(), 2);
    year.setSelection(1, 2);
    year.insert("7x65");
    EXPECT_EQ(s.営業請求日付年.text, "1768");
    EXPECT_EQ(year.text(), "1768");
}

// Whatever is put over a selection, the window keeps of it what the models do; nothing leaves the selection.
TEST_F(AtTheWindow, WhatIsRefusedLeavesTheSelection) {
    fill_head();
    enter(s.商品コード[0]);
    hands.type_text(s, "P0001");
    hands.press_key(s, Key::Enter);
    struct Case {
        Control& c;
        const char *before, *pasted, *after;
    };
    const Case cases[] = {{s.営業請求日付月, "04", "2024", "20"}, {s.行区分[0], "1", "", "1"},
                          {s.仕入単価[0], "21.00", "a", "21.00"}, {s.請求単価[0], "500", "7x0,0", "700"},
                          {s.タイトル, "件", "\t", "件"},         {s.営業請求日付年, "2024", "あ", "2024"}};
    for (const Case& at : cases) {
        SCOPED_TRACE(at.c.name + " <- " + at.pasted);
        if (at.c.page >= 0) choose(s.tab_詳細, at.c.page);
        enter(at.c);
        hands.type_text(s, at.before);
        edit(at.c).selectAll();
        QGuiApplication::clipboard()->setText(at.pasted);
        QKeyEvent paste(QEvent::KeyPress, Qt::Key_V, Qt::ControlModifier);
        QCoreApplication::sendEvent(&edit(at.c), &paste);
        EXPECT_EQ(edit(at.c).text(), QString(at.after));
        EXPECT_EQ(edit(at.c).hasSelectedText(), QString(at.before) == QString(at.after));
    }
    // a part of the content is replaced alike
    enter(s.営業請求日付年);
    edit(s.営業請求日付年).setSelection(2, 2);
    key(&edit(s.営業請求日付年), Qt::Key_X, "x");
    EXPECT_EQ(edit(s.営業請求日付年).selectedText(), "24");
    key(&edit(s.営業請求日付年), Qt::Key_3, "3");
    EXPECT_EQ(s.営業請求日付年.text, "203");
}

// In fields of codes, digits and numbers no input method is wanted; what comes all the same is taken as keys.
TEST_F(AtTheWindow, ACommitIsFilteredAsKeysAre) {
    fill_head();
    for (Control* c : {&s.営業請求日付年, &s.得意先コード, &s.請求単価[0]})
        EXPECT_FALSE(edit(*c).inputMethodQuery(Qt::ImEnabled).toBool()) << c->name;
    enter(s.営業請求日付年);
    QLineEdit& year = edit(s.営業請求日付年);
    for (const auto& [composed, committed, left] : {std::tuple("２０", "", "2024"),
                                                    {"か", "か", "2024"},
                                                    {"", "あ", "2024"},
                                                    {"２０", "２０２３", "2023"}}) {
        year.selectAll();
        if (*composed) compose(&year, composed, {});
        EXPECT_EQ(s.営業請求日付年.text, "2024") << composed;
        compose(&year, {}, committed);
        EXPECT_EQ(s.営業請求日付年.text, left) << composed << committed;
        EXPECT_EQ(year.text(), left) << composed << committed;
    }
    // the same once more, after a click elsewhere, is what the input method had in hand
    enter(s.タイトル);
    compose(&edit(s.タイトル), "けん", {});
    press(&edit(s.支払条件));
    compose(&edit(s.支払条件), {}, "けん");
    EXPECT_EQ(s.タイトル.text + "|" + s.支払条件.text, "けん|");
}

TEST_F(AtTheWindow, CtrlActsWhenItIsLetGoAlone) {
    QLineEdit& customer = edit(s.得意先コード);
    enter(s.得意先コード);
    const auto send = [&](QEvent::Type type, int code, Qt::KeyboardModifiers with) {
        QKeyEvent event(type, code, with);
        QCoreApplication::sendEvent(&customer, &event);
    };
    hands.type_text(s, "3");
    customer.selectAll();
    send(QEvent::KeyPress, Qt::Key_Control, Qt::NoModifier);
    send(QEvent::KeyPress, Qt::Key_C, Qt::ControlModifier);
    send(QEvent::KeyRelease, Qt::Key_C, Qt::ControlModifier);
    send(QEvent::KeyRelease, Qt::Key_Control, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "3");
    send(QEvent::KeyPress, Qt::Key_Control, Qt::NoModifier);
    EXPECT_EQ(実行環境.一覧戻り先, nullptr);
    send(QEvent::KeyRelease, Qt::Key_Control, Qt::ControlModifier);
    EXPECT_EQ(実行環境.一覧戻り先, &s.得意先コード);
}

TEST_F(AtTheWindow, TheWheelGoesByItsSign) {
    fill_head();
    set_enabled(s.scl_行, true);
    set_scroll_range(s.scl_行, 0, 9);
    const auto turn = [&](int delta) {
        QWheelEvent event(QPointF(1, 1), view().mapToGlobal(QPointF(1, 1)), {}, {0, delta}, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&view(), &event);
    };
    for (const auto& [delta, position] : {std::pair{-360, 2}, {-50, 2}, {-50, 2}, {-50, 4}, {120, 2}}) {
        turn(delta);
        EXPECT_EQ(s.scl_行.number, position) << delta;
    }
}

TEST_F(AtTheWindow, ADropIsAPaste) {
    fill_head();
    enter(s.タイトル);
    drop(&edit(s.得意先コード), "x1 9y");
    EXPECT_EQ(s.active, &s.得意先コード);
    EXPECT_EQ(s.得意先コード.text, "x19y");
    EXPECT_EQ(edit(s.得意先コード).text(), "x19y");
    drop(&edit(s.担当者名), "何か");
    EXPECT_EQ(edit(s.担当者名).text().toStdString(), s.担当者名.text);
}

TEST_F(AtTheWindow, EnterInACompositionOnlyCommitsIt) {
    fill_head();
    enter(s.タイトル);
    QLineEdit& title = edit(s.タイトル);
    EXPECT_TRUE(title.inputMethodQuery(Qt::ImEnabled).toBool());
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
    // a click elsewhere takes what is being composed along
    compose(&edit(s.支払条件), "げつまつ", {});
    press(&edit(s.タイトル));
    EXPECT_EQ(s.active, &s.タイトル);
    EXPECT_EQ(s.支払条件.text, "げつまつ");
    // and so does a turn of the wheel, which brings other lines under the field, and a drop elsewhere
    press_focus(s.商品名[0]);
    hands.settle();
    compose(&edit(s.商品名[0]), "けん", {});
    hands.turn_wheel(s, -1);
    EXPECT_EQ(請求明細行[0].商品名, "けん");
    press_focus(s.タイトル);
    hands.settle();
    compose(&edit(s.タイトル), "はる", {});
    drop(&edit(s.支払条件), "末日");
    EXPECT_EQ(s.タイトル.text, "はる");
}

// The cursor that the operator has set stands when the window comes back; a fresh entry selects again.
TEST_F(AtTheWindow, ComingBackKeepsTheCursor) {
    fill_head();
    enter(s.支払条件);
    QLineEdit& terms = edit(s.支払条件);
    hands.type_text(s, "末締め");
    enter(s.タイトル);
    enter(s.支払条件);
    ASSERT_EQ(terms.selectedText(), "末締め");
    key(&terms, Qt::Key_End);
    for (const QEvent::Type change : {QEvent::FocusOut, QEvent::FocusIn}) {
        QFocusEvent event(change, Qt::ActiveWindowFocusReason);
        QCoreApplication::sendEvent(&terms, &event);
    }
    EXPECT_EQ(terms.selectedText(), "");
    enter(s.タイトル);
    enter(s.支払条件);
    EXPECT_EQ(terms.selectedText(), "末締め");
}

TEST_F(AtTheWindow, AProgramThatReadsAloudFindsNamesRolesAndRows) {
    const auto found = [](QWidget* w) { return QAccessible::queryAccessibleInterface(w); };
    const auto name = [&](QWidget* w) { return found(w)->text(QAccessible::Name).toStdString(); };
    fill_head();
    set_caption(s.Lab_行No[2], "13");
    set_caption(s.お知らせ, "該当情報がありません。");
    set_list(s.List付属書類, {{"書類名", 3000, false}, {"サイズ", 900, true}},
             {{"1", "契約書", {"12"}}, {"2", "図面", {"9"}}});
    hands.settle();
    QWidget* row = view().widget_of(s.商品コード[2])->parentWidget();
    EXPECT_EQ(found(row)->role(), QAccessible::Row);
    EXPECT_EQ(name(row), "行 13");
    EXPECT_EQ(name(view().widget_of(s.商品コード[2])), "商品コード 13");
    EXPECT_EQ(found(view().widget_of(s.商品コード[2]))->role(), QAccessible::EditableText);
    EXPECT_EQ(name(view().widget_of(s.消費税表示区分名称)), "消費税表示");
    EXPECT_EQ(found(view().widget_of(s.消費税表示区分名称))->text(QAccessible::Value), "表示する");
    EXPECT_EQ(found(row)->indexOfChild(found(view().widget_of(s.商品名[2]))) >= 0, true);
    EXPECT_EQ(name(view().widget_of(s.お知らせ)), "該当情報がありません。");
    EXPECT_EQ(found(&view())->role(), QAccessible::Window);
    EXPECT_EQ(name(&view()), s.caption);
    choose(s.tab_詳細, 3);
    hands.settle();
    QAccessibleInterface* list = found(view().widget_of(s.List付属書類));
    EXPECT_EQ(list->role(), QAccessible::Table);
    ASSERT_NE(list->tableInterface(), nullptr);
    EXPECT_EQ(list->tableInterface()->rowCount(), 2);
    EXPECT_EQ(list->tableInterface()->cellAt(1, 0)->text(QAccessible::Name), "図面");
    // every control that is seen says what it is and does
    for (Control* c : s.controls) {
        QWidget* w = view().widget_of(*c);
        if (!w || w->isHidden()) continue;
        EXPECT_NE(name(w), "") << c->name;
        const QAccessible::Role role = found(w)->role();
        EXPECT_TRUE(role != QAccessible::Client && role != QAccessible::NoRole) << c->name;
        const bool pressed =
            c->Click && (c->kind == ControlKind::SSPanel || c->kind == ControlKind::SSCommand);
        EXPECT_EQ(role == QAccessible::Button, pressed || c->kind == ControlKind::SSCommand) << c->name;
    }
}

TEST_F(AtTheWindow, WhatBelongsToTheRowsIsSeenWithThem) {
    fill_head();
    for (const int page : {0, 1, 2, 3, 0}) {
        choose(s.tab_詳細, page);
        hands.settle();
        for (Control* c : {&s.scl_行, &s.itm_ttl_行No, &s.Lab_行No[0], &s.Lab_行No[9]})
            EXPECT_EQ(view().widget_of(*c)->isVisible(), page < 2) << c->name << " on page " << page;
    }
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
                key(box.focusWidget(), Qt::Key_Escape);
                EXPECT_EQ(here->s.営業請求日付年.text, before);
                EXPECT_FALSE(box.answered());
                break;
            default:
                // the key that is still held down is no answer
                QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", true);
                QCoreApplication::sendEvent(box.focusWidget(), &held);
                EXPECT_FALSE(box.answered());
                key(box.focusWidget(), Qt::Key_Return);
        }
    });
    hands.click(s.btn_終了);
    EXPECT_EQ(turns, 2);
    EXPECT_FALSE(process_ended());
    EXPECT_TRUE(window_state.boxes.empty());
    EXPECT_TRUE(s.visible);
}

TEST_F(AtTheWindow, KeysStayWithTheScreenWhileItWaits) {
    EXPECT_EQ(QApplication::activeWindow(), &view());
    {
        const お待ち wait;
        ASSERT_TRUE(view_of(msgお待ち)->isVisible());
        EXPECT_TRUE(view_of(msgお待ち)->testAttribute(Qt::WA_ShowWithoutActivating));
        EXPECT_TRUE(view_of(msgお待ち)->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    }
    hands.set_turn([] { window_state.boxes.back()->answer(true); });
    message_box("済");
    hands.settle();
    EXPECT_EQ(QApplication::activeWindow(), &view());
    EXPECT_EQ(QApplication::focusWidget(), &edit(s.営業請求日付年));
}

TEST_F(AtTheWindow, TheQuestionIsAsHighAsWhatItSays) {
    static std::vector<int> heights;
    heights.clear();
    hands.set_turn([] {
        FormView& question = *view_of(msg印刷確認);
        EXPECT_EQ(question.size(), question.design());
        heights.push_back(question.height());
        click(msg印刷確認.btn_いいえ);
    });
    std::int16_t result = 0;
    for (const char* message : {"他の請求に参照済です。", "", "合計計算消費税は"})
        登録確認表示("t", message, result);
    ASSERT_EQ(heights.size(), 3u);
    EXPECT_LT(heights[1], heights[0]);
    EXPECT_EQ(heights[2], heights[0]);
}

TEST(Look, TextReadsWellOnEveryGround) {
    const std::pair<QColor, QColor> pairs[] = {
        {look::ink, look::page},      {look::ink, look::panel},      {look::ink, look::notice},
        {look::ink, look::band},      {look::quiet, look::dull},     {look::quiet, look::panel},
        {look::link_ink, look::link}, {look::link_ink, look::hover}, {look::link_ink, look::pressed},
        {Qt::white, look::bar},       {Qt::white, look::focus}};
    for (const auto& [ink, ground] : pairs)
        EXPECT_GE(look::contrast(ink, ground), 4.5)
            << ink.name().toStdString() << " on " << ground.name().toStdString();
    // frames and the focus need 3
    EXPECT_GE(look::contrast(look::focus, look::page), 3.0);
    EXPECT_GE(look::contrast(look::focus, look::band), 3.0);
    for (Colour c : {RGB(0, 128, 128), RGB(128, 128, 255), RGB(192, 64, 0), RGB(0, 192, 0)})
        for (const QColor& ground : {look::field, look::panel, QColor(224, 224, 224), QColor(255, 255, 192)})
            EXPECT_GE(look::contrast(look::readable(look::colour_of(c, look::ink), ground), ground), 4.5);
    EXPECT_NEAR(look::contrast(Qt::black, Qt::white), 21.0, 0.01);
    EXPECT_NEAR(look::contrast(QColor(0x76, 0x76, 0x76), Qt::white), 4.54, 0.01);
}

}  // namespace
}  // namespace kalvane

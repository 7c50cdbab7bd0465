// Hands that do anything at all, to any window at any moment. KALVANE_RANDOM_SECONDS lets each seed play that
// long; without it, for a number of acts that is the same every time.
#include <unistd.h>

#include <QClipboard>
#include <QContextMenuEvent>
#include <QWheelEvent>
#include <chrono>
#include <cstdlib>
#include <random>

#include "base/failure.h"
#include "events/save_dialogue.h"
#include "window/at_the_window.h"
#include "window/box_view.h"

namespace kalvane {
namespace {

class AnyHands {
  public:
    explicit AnyHands(unsigned seed) : random(seed) {}
    int pick(int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); }
    void act() {
        QWidget* top = QApplication::activePopupWidget();
        if (!top || pick(4) == 0) top = window_on_top();
        if (pick(20) == 0 && !open_forms.empty()) top = view_of(*open_forms.front());
        if (!top) return;
        if (top_form() == &msg印刷確認 && pick(8) == 0) return decide();
        QWidget* to = top->focusWidget() ? top->focusWidget() : top;
        if (pick(5) == 0) to = any_child(*top);
        const int kind = pick(100);
        if (kind < 36) return key(*to);
        if (kind < 60) return word(*top);
        if (kind < 82) return mouse(*any_child(*top));
        if (kind < 87) return wheel(*to);
        if (kind < 91) return compose(*to);
        if (kind < 94) return test::AtTheWindow::drop(any_child(*top), text());
        if (kind < 96) return shape(*top);
        if (kind < 97) return context_menu(*to);
        if (kind < 99) return decide();
        if (pick(4) == 0) top->close();
    }

  private:
    std::mt19937 random;
    template <class List>
    const auto& one_of(const List& list) {
        return list[static_cast<std::size_t>(pick(static_cast<int>(std::size(list))))];
    }
    QWidget* any_child(QWidget& top) {
        const auto children = top.findChildren<QWidget*>();
        return children.isEmpty() ? &top : children[pick(static_cast<int>(children.size()))];
    }
    QString text() {
        static const char* const words[] = {"3",  "19",  "P0001", "P0043", "12",   "00008", "2",       "60",
                                            "山", "ｱｶﾞ", "-",     "1.5",   "全角", "'",     "99999999"};
        return pick(3) ? QString(one_of(words)) : QString(QChar(0x20 + pick(0x5f)));
    }
    static void send(const QPointer<QWidget>& to, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
                     const QString& text = {}, bool repeats = false) {
        for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, key, modifiers, text, repeats);
            if (to) QCoreApplication::sendEvent(to, &event);
        }
    }
    void key(QWidget& to) {
        static constexpr int often[] = {Qt::Key_Return,    Qt::Key_Return, Qt::Key_Return, Qt::Key_Tab,
                                        Qt::Key_Backtab,   Qt::Key_Up,     Qt::Key_Down,   Qt::Key_Delete,
                                        Qt::Key_Backspace, Qt::Key_Left,   Qt::Key_Home};
        static constexpr int seldom[] = {Qt::Key_Escape, Qt::Key_Space,    Qt::Key_Control,
                                         Qt::Key_PageUp, Qt::Key_Right,    Qt::Key_Insert,
                                         Qt::Key_End,    Qt::Key_PageDown, Qt::Key_Enter};
        static constexpr int with_ctrl[] = {Qt::Key_A, Qt::Key_C, Qt::Key_X, Qt::Key_Z, Qt::Key_V};
        const bool repeats = pick(8) == 0;
        switch (pick(8)) {
            case 0:
                return send(&to, Qt::Key_F1 + pick(12));
            case 1:
                QGuiApplication::clipboard()->setText(text() + QStringLiteral("\n") + text());
                return send(&to, one_of(with_ctrl), Qt::ControlModifier);
            case 2:
                return send(&to, one_of(seldom), pick(4) ? Qt::NoModifier : Qt::ShiftModifier, {}, repeats);
            case 3:
                return pick(4) ? send(&to, Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "))
                               : send(&to, Qt::Key_Down, Qt::AltModifier);
            default:
                return send(&to, one_of(often), Qt::NoModifier, {}, repeats);
        }
    }
    // Registers or deletes, where the form lets him.
    void decide() {
        const Hands& hands = test::real_hands();
        Form* form = top_form();
        if (!form) return;
        if (form == &msg印刷確認)
            hands.click(pick(4) ? msg印刷確認.btn_登録 : msg印刷確認.btn_登録印刷);
        else
            hands.press_key(*form, pick(4) ? Key::F12 : Key::F10);
    }
    // Typed where the focus is, mostly with the Enter that ends it.
    void word(QWidget& top) {
        const QPointer<QWidget> window = &top;
        const auto type = [&window](int code, const QString& text) {
            if (!window) return;
            QWidget* focus = window->focusWidget();
            send(focus ? focus : window.data(), code, Qt::NoModifier, text);
        };
        for (const QChar& ch : text()) type(0, ch);
        if (pick(4)) type(Qt::Key_Return, {});
    }
    void mouse(QWidget& to) {
        const QPointer<QWidget> target = &to;
        const QPoint at(pick(std::max(1, to.width())), pick(std::max(1, to.height())));
        const Qt::MouseButton button = pick(10) ? Qt::LeftButton : Qt::MiddleButton;
        for (const QEvent::Type type :
             {pick(6) ? QEvent::MouseButtonPress : QEvent::MouseButtonDblClick, QEvent::MouseButtonRelease}) {
            if (!target) return;
            const Qt::MouseButtons held = type == QEvent::MouseButtonRelease ? Qt::NoButton : button;
            QMouseEvent event(type, at, target->mapToGlobal(at), button, held, Qt::NoModifier);
            QCoreApplication::sendEvent(target, &event);
        }
    }
    void wheel(QWidget& to) {
        QWheelEvent event(QPointF(1, 1), to.mapToGlobal(QPointF(1, 1)), {}, {0, pick(5) * 60 - 120},
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&to, &event);
    }
    void compose(QWidget& to) {
        test::AtTheWindow::compose(&to, pick(2) ? QStringLiteral("かな") : QString(),
                                   pick(2) ? text() : QString());
    }
    void shape(QWidget& top) {
        QWidget& window = *top.window();
        if (window.windowType() == Qt::Popup) return;
        switch (pick(4)) {
            case 0:
                return window.showMinimized();
            case 1:
                return window.showNormal();
            default:
                return window.resize(300 + pick(2400), 200 + pick(1400));
        }
    }
    static void context_menu(QWidget& to) {
        QContextMenuEvent event(QContextMenuEvent::Mouse, {1, 1}, to.mapToGlobal(QPoint(1, 1)));
        QCoreApplication::sendEvent(&to, &event);
    }
};

// One seed's play. Boxes and modal forms are loops inside an act, so the acts have one door.
struct Play {
    using Clock = std::chrono::steady_clock;
    AnyHands hands;
    int acts = 0, most_acts = 500, programs = 0;
    Clock::time_point end = Clock::time_point::max();
    std::string failure;  // text of the box of a failure

    explicit Play(unsigned seed) : hands(seed) {
        if (const char* seconds = std::getenv("KALVANE_RANDOM_SECONDS")) {
            end = Clock::now() + std::chrono::seconds(std::atoi(seconds));
            most_acts = 1 << 30;
        }
    }
    bool over() const { return acts >= most_acts || Clock::now() >= end; }
    void turn() {
        constexpr unsigned hang = 120;  // seconds that no event takes
        alarm(hang);
        ++acts;
        if (failed_in_dispatch()) {
            // a date behind the last year or an amount beyond its range fails by design, in a box
            const QString box = window_state.boxes.empty() ? "" : window_state.boxes.back()->accessibleName();
            if (box != bad_date_text && box != overflow_text) failure = box.toStdString() + " failed";
            return end_process();
        }
        if (!over()) return hands.act();
        // loops that opened in loops are left again, each by its own end
        if (!window_state.boxes.empty())
            window_state.boxes.back()->answer(true);
        else
            end_process();
    }
};
Play* play = nullptr;

// Where an editor differs from its model.
std::string difference() {
    for (Form* form : open_forms) {
        FormView* view = view_of(*form);
        if (!view) return form->name + " has no window";
        for (Control* c : form->controls)
            if (Mirror* m = view->mirror_of(*c);
                m && takes_text(*c) && m->composing.isEmpty() && widget_text(*m) != model_text(*c))
                return c->name + " shows " + widget_text(*m) + ", holds " + model_text(*c);
    }
    return "";
}

// Each statement counts the documents that break its rule.
struct Rule {
    const char* name;
    const char* broken;
};
#define KEY "事業所コード,番号基準日付,営業請求No"
#define OF_HEADER \
    "(l.事業所コード,l.番号基準日付,l.営業請求No) = (h.事業所コード,h.番号基準日付,h.営業請求No)"
#define BLACK_LESS_RED "CASE 赤黒区分 WHEN '1' THEN 1 ELSE -1 END n FROM "
constexpr Rule rules[] = {
    {"a document has lines, numbered without a gap",
     "SELECT COUNT(*) FROM T営業請求 h WHERE (SELECT COUNT(*) > 0 AND COUNT(*) = MAX(CAST(営業請求行No AS "
     "INTEGER)) "
     "FROM T営業請求明細 l WHERE " OF_HEADER ") = 0"},
    {"a line has a document",
     "SELECT COUNT(*) FROM T営業請求明細 l WHERE NOT EXISTS (SELECT 1 FROM T営業請求 h WHERE " OF_HEADER ")"},
    {"totals are those of the lines that count",
     "SELECT COUNT(*) FROM T営業請求 h WHERE (SELECT "
     "ABS(COALESCE(SUM(請求金額), 0) - h.請求金額合計) + ABS(COALESCE(SUM(請求数量), 0) - h.請求数量合計) "
     "FROM T営業請求明細 l "
     "WHERE 行区分 = '1' AND 計区分 = '1' AND " OF_HEADER ") > 0.0001"},
    {"black less red headers make the document",
     "SELECT COUNT(*) FROM (SELECT 1 FROM (SELECT " KEY "," BLACK_LESS_RED "R営業請求 UNION ALL SELECT " KEY
     ",-1 FROM T営業請求) GROUP BY " KEY " HAVING SUM(n) <> 0)"},
    {"black less red lines make its lines",
     "SELECT COUNT(*) FROM (SELECT 1 FROM (SELECT " KEY ",営業請求固有行No," BLACK_LESS_RED
     "R営業請求明細 UNION ALL SELECT " KEY ",営業請求固有行No,-1 FROM T営業請求明細) GROUP BY " KEY
     ",営業請求固有行No HAVING SUM(n) <> 0)"},
    {"each history row is queued once",
     "SELECT COUNT(*) FROM (SELECT 1 FROM (SELECT " KEY
     ",営業請求履歴No h,赤黒区分 r,1 n FROM R営業請求 UNION ALL "
     "SELECT 事業所コード,番号基準日付,伝票No,履歴No,赤黒区分,-1 FROM 未集計情報) GROUP BY " KEY
     ",h,r HAVING SUM(n) <> 0)"},
};

class AnyInput : public test::AtTheWindow, public testing::WithParamInterface<unsigned> {
  protected:
    void type_into(Control& c, const char* text) {
        enter(c);
        hands.type_text(s, text);
        hands.press_key(s, Key::Enter);
    }
    // A document to begin with, so that there is something to change, register and delete.
    void begin(int kind) {
        if (kind == 0) return;
        if (kind == 1) return type_into(s.営業請求No, "60");
        fill_head();
        type_into(s.商品コード[0], "P0043");
        if (kind == 2) type_into(s.商品コード[1], "P0001");
    }
};

TEST_P(AnyInput, LeavesWindowModelsAndRowsInStep) {
    const test::Installation& at = test::demonstration();
    Play some(GetParam());
    play = &some;
    os::launcher = [](const os::Launch&) {};
    finish();
    while (!some.over()) {
        ++some.programs;
        // now and then the operator has to sign on
        const bool asks = some.programs % 3 == 0;
        at.main(std::string("UPDATE Mユーザ SET 暗証番号有無 = '") + (asks ? "1'" : "0'"));
        if (asks) at.config("UPDATE 動作環境定義 SET 起動担当者コード = ''");
        hands.set_turn([] { play->turn(); });
        start();
        if (!process_ended()) begin(some.hands.pick(4));
        while (!some.over() && !process_ended()) {
            wait_turn();
            ASSERT_EQ(difference(), "");
        }
        EXPECT_EQ(some.failure, "");
        finish();
    }
    alarm(0);
    os::launcher = nullptr;
    for (const Rule& rule : rules) EXPECT_EQ(at.main(rule.broken), "0") << rule.name;
}

INSTANTIATE_TEST_SUITE_P(Seeds, AnyInput, testing::Values(1u, 2u, 3u, 4u, 5u, 6u));

}  // namespace
}  // namespace kalvane

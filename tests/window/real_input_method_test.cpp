// The operator composes Japanese by a real input method on a real display; tests/window/input_method starts
// both. What is waited for is a state, never a time.
#include <QElapsedTimer>
#include <cstdlib>

#include "window/at_the_window.h"

namespace kalvane {
namespace {

class RealInputMethod : public test::AtTheWindow {
  protected:
    void SetUp() override {
        if (!std::getenv("KALVANE_INPUT_METHOD")) GTEST_SKIP() << "played by tests/window/input_method";
        fill_head();
        activate();
        // until the method has loaded its dictionary, letters go past it
        real_click(s.タイトル);
        const QString& composing = view().mirror_of(s.タイトル)->composing;
        const auto arrived = [&] { return !composing.isEmpty() || !s.タイトル.text.empty(); };
        for (int i = 0; i < 60 && composing.isEmpty(); ++i) {
            if (!s.タイトル.text.empty()) hands.press_key(s, Key::Delete);
            type("n");
            ASSERT_TRUE(wait_for(arrived));
        }
        hand("key Escape");
        ASSERT_TRUE(wait_for([&] { return composing.isEmpty(); }));
        hands.press_key(s, Key::Delete);
        real_click(s.支払条件);
    }
    template <class State>
    static bool wait_for(State state, int milliseconds = 8000) {
        QElapsedTimer passed;
        passed.start();
        while (!state() && passed.elapsed() < milliseconds) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
            sync_windows();
        }
        return state();
    }
    static void hand(const std::string& act) { ASSERT_EQ(std::system(("xdotool " + act).c_str()), 0); }
    static void type(const std::string& letters) { hand("type --delay 40 " + letters); }
    void activate() {
        ASSERT_TRUE(wait_for([&] {
            if (!view().isActiveWindow()) hand("windowactivate " + std::to_string(view().winId()));
            return view().isActiveWindow();
        }));
    }
    void real_click(Control& c) {
        QWidget* to = view().widget_of(c);
        const QPoint at = to->mapToGlobal(to->rect().center());
        hand("mousemove " + std::to_string(at.x()) + " " + std::to_string(at.y()) + " click 1");
        ASSERT_TRUE(wait_for([&] { return s.active == &c && QApplication::focusWidget() == to; })) << c.name;
    }
    bool composes(Control& c, const char* text) {
        return wait_for([&] { return view().mirror_of(c)->composing == QString(text); });
    }
    bool holds(Control& c, const char* text) {
        return wait_for([&] { return c.text == text && view().mirror_of(c)->composing.isEmpty(); });
    }
};

TEST_F(RealInputMethod, ServesJapaneseFieldsAloneAndCommitsOnce) {
    real_click(s.タイトル);
    type("kaisha");
    ASSERT_TRUE(composes(s.タイトル, "かいしゃ")) << s.タイトル.text;
    hand("key Return");
    EXPECT_TRUE(holds(s.タイトル, "かいしゃ")) << s.タイトル.text;
    EXPECT_EQ(s.active, &s.タイトル);
    real_click(s.営業請求日付年);
    type("2023");
    hand("key Return");
    EXPECT_TRUE(wait_for([&] { return s.active == &s.営業請求日付月; }));
    EXPECT_EQ(s.営業請求日付年.text, "2023");
    real_click(s.商品コード[0]);
    type("P0001");
    hand("key Return");
    EXPECT_TRUE(wait_for([&] { return s.請求単価[0].value != 通貨(); })) << s.商品コード[0].text;
    real_click(s.請求単価[0]);
    type("700");
    hand("key Return");
    EXPECT_TRUE(wait_for([&] { return s.active != &s.請求単価[0]; }));
    EXPECT_EQ(s.請求単価[0].value, 通貨::from_units(7000000));

    // a click elsewhere commits once, and nothing of it comes into the next field
    real_click(s.タイトル);
    type("kaisha");
    ASSERT_TRUE(composes(s.タイトル, "かいしゃ"));
    real_click(s.支払条件);
    EXPECT_EQ(s.タイトル.text, "かいしゃ");
    type("a");
    ASSERT_TRUE(composes(s.支払条件, "あ"));
    hand("key Return");
    EXPECT_TRUE(holds(s.支払条件, "あ")) << s.支払条件.text;
    EXPECT_EQ(s.タイトル.text, "かいしゃ");

    // another window keeps what was composed
    real_click(s.タイトル);
    type("kaisha");
    ASSERT_TRUE(composes(s.タイトル, "かいしゃ"));
    QWidget other;
    other.show();
    other.activateWindow();
    EXPECT_TRUE(wait_for([&] { return other.isActiveWindow(); }));
    activate();
    hand("key Return");
    EXPECT_TRUE(holds(s.タイトル, "かいしゃ")) << s.タイトル.text;
}

}  // namespace
}  // namespace kalvane

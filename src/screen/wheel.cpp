// Notches into lines.
#include "screen/wheel.h"

#include <algorithm>

namespace kalvane {
namespace {

// What the wheel drives; one form at a time.
struct Wheel {
    Form* form = nullptr;
    Control* bar = nullptr;
    int step = 0;
    void (*former)(Form&, int) = nullptr;
};
Wheel wheel;

void turned(Form& form, int delta) {
    if (wheel.bar && wheel.bar->enabled) {
        const int wanted = wheel.bar->number + (delta < 0 ? wheel.step : -wheel.step);
        const auto [low, high] = std::minmax(wheel.bar->scroll_min, wheel.bar->scroll_max);
        set_number(*wheel.bar, std::clamp(wanted, low, high));
    }
    if (wheel.former) wheel.former(form, delta);
}

}  // namespace

bool マウスホイール開始(Form& form, Control& bar, int step) {
    wheel = {&form, &bar, step, form.Wheel};
    form.Wheel = turned;
    return true;
}

bool マウスホイール終了() {
    if (wheel.form) wheel.form->Wheel = wheel.former;
    wheel = {};
    return true;
}

}  // namespace kalvane

// Showing and closing msgお待ち.
#include "data/wait_box.h"

#include "platform/screen/host.h"

namespace kalvane {
namespace {

constexpr Part parts[] = {{.control = &msgお待ち.lab_msg,
                           .name = "lab_msg",
                           .kind = ControlKind::label,
                           .caption = "しばらくお待ちください。"}};

}  // namespace

void お待ち表示() {
    // it may be standing already
    if (msgお待ち.controls.empty())
        build_form(msgお待ち, "msgお待ち", parts, [](Form& form) { form.on_top = true; });
    show_form(msgお待ち);
    pump(Pump::paint);
}

void お待ち終了() {
    unload_form(msgお待ち);
}

}  // namespace kalvane

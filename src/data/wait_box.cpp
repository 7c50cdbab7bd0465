// Showing and closing msgお待ち.
#include "data/wait_box.h"

#include "platform/screen/host.h"

namespace kalvane {

void お待ち表示() {
    if (msgお待ち.controls.empty()) {
        msgお待ち.name = "msgお待ち";
        msgお待ち.Load = [](Form& form) { form.on_top = true; };
        add_control(msgお待ち, msgお待ち.lab_msg, ControlKind::label, "lab_msg");
        set_caption(msgお待ち.lab_msg, "しばらくお待ちください。");
    }
    show_form(msgお待ち);
    pump(Pump::paint);
}

void お待ち終了() {
    unload_form(msgお待ち);
}

}  // namespace kalvane

// One operator event: copies, failure box, forced logs.
#include <cstdint>
#include <exception>
#include <new>
#include <vector>

#include "platform/ado/ado.h"
#include "platform/os/process.h"
#include "platform/screen/form.h"
#include "platform/screen/host.h"
#include "platform/screen/state.h"

namespace kalvane {
namespace {

struct DepthGuard {
    DepthGuard() { ++screen_state.depth; }
    ~DepthGuard() { --screen_state.depth; }
    DepthGuard(const DepthGuard&) = delete;
    DepthGuard& operator=(const DepthGuard&) = delete;
};

// Where the operator stood when the event began: the active control and the page of each loaded form.
struct Stand {
    Form* form;
    Control* active;
    bool left, select_all;
    int page;
};
std::vector<Stand> where_the_operator_stands() {
    std::vector<Stand> stands;
    for (Form* f : screen_state.loaded_forms)
        stands.push_back({f, f->active, f->left, f->active && f->active->select_all,
                          f->tab_strip ? f->tab_strip->number : 0});
    return stands;
}

// Without leaves and enters: as if the event had not been.
void stand_there_again(const Stand& at) {
    Form& form = *at.form;
    if (!form.loaded || form.active == nullptr) return;
    if (form.tab_strip && form.tab_strip->number != at.page) {
        form.tab_strip->number = at.page;
        ++form.tab_strip->revision;
    }
    if (!at.active || !can_take_focus(*at.active)) return;
    if (form.active != at.active) {
        form.active->typed.reset();
        form.active->select_all = false;
        ++form.active->revision;
        form.active = at.active;
        form.active->select_all = at.select_all;
        ++form.active->revision;
        ++form.focus_moves;
    }
    form.left = at.left;
}

void put_back(const std::vector<Stand>& stands) {
    try {
        if (event_copies.restore) event_copies.restore();
    } catch (const std::exception&) {
        // the drawing of what was kept failed too; the box tells of the first failure
    }
    for (const Stand& s : stands) stand_there_again(s);
}

}  // namespace

void dispatch(const std::function<void()>& event) {
    if (process_ended()) return;
    const bool outermost = screen_state.depth == 0;
    {
        const DepthGuard guard;
        const std::uint64_t written = ado::write_count();
        std::vector<Stand> stands;
        const auto failed = [&](const char* text) {
            screen_state.failed = true;
            if (outermost && ado::write_count() == written) put_back(stands);
            message_box(text);
        };
        try {
            if (outermost) {
                stands = where_the_operator_stands();
                if (event_copies.keep) event_copies.keep();
            }
            event();
        } catch (const std::bad_alloc&) {
            failed("メモリが不足しています。");
        } catch (const std::exception& failure) {
            failed(failure.what());
        }
    }
    if (outermost) ado::force_logs();
}

void force_logs_now() {
    ado::force_logs();
}

bool failed_in_dispatch() {
    return screen_state.failed;
}

void message_box(const std::string& text) {
    if (process_ended() || !host.message_box) return;
    force_logs_now();
    host.message_box(text, Buttons::ok, true);
}

bool ask(const std::string& text, bool default_yes) {
    if (process_ended() || !host.message_box) return false;
    force_logs_now();
    return host.message_box(text, Buttons::yes_no, default_yes) && !process_ended();
}

void pump(Pump what) {
    if (what == Pump::all) force_logs_now();
    if (host.pump) host.pump(what);
}

void sleep_and_wait(int milliseconds) {
    if (host.sleep)
        host.sleep(milliseconds);
    else
        os::sleep_ms(milliseconds);
}

}  // namespace kalvane

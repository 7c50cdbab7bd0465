// One operator event: copies, failure box, forced logs.
#include <cstdint>
#include <exception>
#include <new>

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

void restore_copies() {
    if (!event_copies.restore) return;
    try {
        event_copies.restore();
    } catch (const std::exception&) {
        // the drawing of what was kept failed too; the box below tells of the first failure
    }
}

void event_failed(const char* text, bool may_restore) {
    screen_state.failed = true;
    if (may_restore) restore_copies();
    message_box(text);
}

}  // namespace

void dispatch(const std::function<void()>& event) {
    if (process_ended()) return;
    const bool outermost = screen_state.depth == 0;
    {
        const DepthGuard guard;
        const std::uint64_t written = ado::write_count();
        const auto may_restore = [&] { return outermost && ado::write_count() == written; };
        try {
            if (outermost && event_copies.keep) event_copies.keep();
            event();
        } catch (const std::bad_alloc&) {
            event_failed("メモリが不足しています。", may_restore());
        } catch (const std::exception& failure) {
            event_failed(failure.what(), may_restore());
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

// Signals into a readable handle.
#include "platform/os/termination.h"

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <cerrno>
#include <initializer_list>

namespace kalvane::os {
namespace {

int wake_handle = -1;

void wake(int) {
    const int before = errno;
    const char byte = 1;
    if (write(wake_handle, &byte, 1) < 0) errno = before;  // full: it has been told already
    errno = before;
}

}  // namespace

int catch_termination() {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0) return -1;
    wake_handle = ends[1];
    struct sigaction action {};
    action.sa_handler = wake;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    for (const int signal : {SIGTERM, SIGHUP, SIGINT}) sigaction(signal, &action, nullptr);
    return ends[0];
}

}  // namespace kalvane::os

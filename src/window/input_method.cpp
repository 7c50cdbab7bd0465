// Turns the input method on over the session's message bus: the platform has no call for it. ibus lets no one
// but the owner of a field do so; there the setting of the conversion has to say that it begins switched on.
#include "window/input_method.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QTimer>

namespace kalvane {
namespace {

// An input method that has just been started, or has not yet heard of the field, is asked again.
constexpr int most_tries = 50, pause = 100;  // milliseconds

struct Asked {
    unsigned stay = 0;  // counts the fields that were entered: answers for an earlier one come too late
    int tries = 0;
};
Asked asked;

QDBusMessage fcitx_call(const char* method) {
    QDBusMessage call =
        QDBusMessage::createMethodCall(QStringLiteral("org.fcitx.Fcitx5"), QStringLiteral("/controller"),
                                       QStringLiteral("org.fcitx.Fcitx.Controller1"), QLatin1String(method));
    call.setAutoStartService(false);
    return call;
}

void ask() {
    // a session without a bus gets none started for this
    if (qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS")) return;
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) return;
    bus.send(fcitx_call("Activate"));
    auto* answer = new QDBusPendingCallWatcher(bus.asyncCall(fcitx_call("State")), qApp);
    QObject::connect(answer, &QDBusPendingCallWatcher::finished, answer, [answer, stay = asked.stay] {
        constexpr int active = 2;
        const QDBusPendingReply<int> state = *answer;
        answer->deleteLater();
        if (stay != asked.stay || state.isError() || state.value() == active || ++asked.tries == most_tries)
            return;
        QTimer::singleShot(pause, qApp, [stay] {
            if (stay == asked.stay) ask();
        });
    });
}

}  // namespace

void turn_input_method(bool on) {
    ++asked.stay;
    asked.tries = 0;
    if (on) ask();
}

}  // namespace kalvane

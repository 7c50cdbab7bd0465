// The window system: its start with the checks that let the program be used at all, and its end.
#include <QApplication>
#include <QFontDatabase>
#include <QLibraryInfo>
#include <QProxyStyle>
#include <QScreen>
#include <QStyleFactory>
#include <QTranslator>
#include <algorithm>
#include <cstdlib>
#include <iostream>

#include "platform/os/process.h"
#include "window/accessible.h"
#include "window/hands.h"
#include "window/look.h"
#include "window/windows.h"

namespace kalvane {
namespace {

constexpr const char* no_display =
    "画面を開けません。ディスプレイ（DISPLAY または WAYLAND_DISPLAY）か、Qt の offscreen "
    "プラグインが必要です。\n"
    "The window cannot be opened: a display, or Qt's offscreen plugin (QT_QPA_PLATFORM=offscreen), is "
    "needed.";
constexpr const char* no_font =
    "日本語フォントがありません。fonts-noto-cjk または fonts-ipaexfont をインストールしてください。\n"
    "No Japanese font is installed: install fonts-noto-cjk or fonts-ipaexfont.";

// Air around the texts of lists, scroll bars that grow with the letters, and no menu of the platform that
// runs a loop of its own.
struct Style : QProxyStyle {
    Style() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override {
        if (metric == PM_HeaderMargin) return 6;
        if (metric == PM_FocusFrameHMargin) return 8;
        if (metric == PM_ScrollBarExtent && widget)
            return std::max(14, widget->font().pixelSize() * 16 / design_font);
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* more) const override {
        return hint == SH_ScrollBar_ContextMenu ? 0 : QProxyStyle::styleHint(hint, option, widget, more);
    }
};

// The platform gives up by ending the process. It does so before anything of the program was opened.
void starting_message(QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type != QtFatalMsg) return;
    std::cerr << no_display << "\n" << look::utf8(text) << std::endl;
    std::_Exit(EXIT_FAILURE);
}

QString japanese_family() {
    const QStringList families = QFontDatabase::families(QFontDatabase::Japanese);
    for (const char* wanted : {"Noto Sans CJK JP", "Noto Sans JP", "IPAexGothic"})
        if (families.contains(QLatin1String(wanted))) return QLatin1String(wanted);
    return families.isEmpty() ? QString() : families.front();
}

void set_look(const QString& family) {
    QApplication::setStyle(new Style);
    QFont font(family);
    font.setPixelSize(design_font);
    QApplication::setFont(font);
    QPalette palette(look::panel, look::page);
    palette.setColor(QPalette::WindowText, look::ink);
    palette.setColor(QPalette::Text, look::ink);
    palette.setColor(QPalette::ButtonText, look::ink);
    palette.setColor(QPalette::Base, look::field);
    palette.setColor(QPalette::AlternateBase, look::page);
    palette.setColor(QPalette::Highlight, look::focus);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::PlaceholderText, look::quiet);
    QApplication::setPalette(palette);
}

// The platform's own words: menus of the fields, file dialogs.
void speak_japanese() {
    auto* words = new QTranslator(window_state.application.get());
    if (words->load(QStringLiteral("qtbase_ja"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(words);
}

}  // namespace

bool start_window_system(int& argc, char** argv, WindowSize size) {
    const auto before = qInstallMessageHandler(starting_message);
    window_state.application = std::make_unique<QApplication>(argc, argv);
    qInstallMessageHandler(before);
    QApplication::setQuitOnLastWindowClosed(false);
    const QString family = japanese_family();
    if (family.isEmpty()) {
        std::cerr << no_font << std::endl;
        stop_window_system();
        return false;
    }
    set_look(family);
    speak_japanese();
    install_accessibility();
    window_state.size = QSize(size.width, size.height);
    if (const QScreen* screen = QGuiApplication::primaryScreen())
        os::set_screen_size({screen->size().width(), screen->size().height()});
    return true;
}

void stop_window_system() {
    // a window goes before the one that it stands on
    for (auto& [form, view] : window_state.views)
        if (view->parentWidget()) view->setParent(nullptr);
    window_state.views.clear();
    window_state.application.reset();
}

}  // namespace kalvane

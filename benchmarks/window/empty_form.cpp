// KalvaneEmptyForm [TIMES]: what the window system takes by itself. Shows an empty form over the screen, with
// the style and the font of the program, and says so; it stays until it is terminated. With TIMES it paints
// the whole form that often instead, prints the seconds of each, and ends.
#include <QApplication>
#include <QFontDatabase>
#include <QPainter>
#include <QStyleFactory>
#include <QWidget>
#include <chrono>
#include <cstdio>
#include <cstdlib>

namespace {

class Form : public QWidget {
  public:
    int painted = 0;

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter(this).fillRect(rect(), Qt::white);
        ++painted;
    }
};

}  // namespace

int main(int argc, char** argv) {
    int one = 1;
    QApplication application(one, argv);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    const QStringList families = QFontDatabase::families(QFontDatabase::Japanese);
    const QString wanted = QStringLiteral("Noto Sans CJK JP");
    QFont font(families.contains(wanted) ? wanted : families.value(0));
    font.setPixelSize(13);
    QApplication::setFont(font);
    Form form;
    form.showMaximized();
    while (form.painted == 0) QCoreApplication::processEvents();
    if (argc < 2) {
        std::puts("shown");
        std::fflush(stdout);
        return QApplication::exec();
    }
    for (int times = std::atoi(argv[1]); times > 0; --times) {
        const auto start = std::chrono::steady_clock::now();
        form.repaint();
        std::printf("%.9f\n",
                    std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
    }
    return EXIT_SUCCESS;
}

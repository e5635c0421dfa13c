// render_icon PICTURE.svg SIZE OUTPUT.png: draws an icon for those parts of the desktop that take no SVG.
#include <QCoreApplication>
#include <QImage>
#include <QImageReader>
#include <QSize>
#include <cstdio>

int main(int argc, char** argv) {
    // Pictures need neither windows nor a display.
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const int size = arguments.size() == 4 ? arguments[2].toInt() : 0;
    if (size <= 0) {
        std::fputs("usage: render_icon PICTURE.svg SIZE OUTPUT.png\n", stderr);
        return 2;
    }
    QImageReader reader(arguments[1]);
    reader.setScaledSize(QSize(size, size));
    const QImage picture = reader.read();
    if (picture.isNull()) {
        std::fprintf(stderr, "%s: %s. Is the plugin of Qt for SVG images installed?\n", qPrintable(arguments[1]),
                     qPrintable(reader.errorString()));
        return 1;
    }
    return picture.save(arguments[3]) ? 0 : 1;
}

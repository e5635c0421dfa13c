// The bare program that the benchmarks hold TessaView against: a tab widget and one engine view a page, all pages
// loaded at once, the last one in front. Its arguments are the addresses. Downloads go to the current folder. With
// "--windows WIDTHxHEIGHT" before them each page has a window of its own, whose page area is of that size.
#include <QApplication>
#include <QDir>
#include <QTabWidget>
#include <QWebEngineDownloadRequest>
#include <QWebEngineProfile>
#include <QWebEngineView>
#include <memory>
#include <vector>

namespace {

int ShowWindows() {
    const QStringList size = QApplication::arguments().at(2).split(u'x');
    std::vector<std::unique_ptr<QWebEngineView>> windows;
    for (const QString& address : QApplication::arguments().mid(3)) {
        windows.push_back(std::make_unique<QWebEngineView>());
        QWebEngineView& view = *windows.back();
        view.resize(size.value(0).toInt(), size.value(1).toInt());
        view.load(QUrl(address));
        view.show();
    }
    return QApplication::exec();
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QTabWidget tabs;
    tabs.setWindowTitle(QStringLiteral("bench_reference"));
    tabs.resize(1024, 768);
    QObject::connect(QWebEngineProfile::defaultProfile(), &QWebEngineProfile::downloadRequested, &tabs,
                     [](QWebEngineDownloadRequest* request) {
                         request->setDownloadDirectory(QDir::currentPath());
                         request->accept();
                     });
    if (argc > 2 && QString::fromLocal8Bit(argv[1]) == QStringLiteral("--windows")) return ShowWindows();
    const QStringList addresses = QApplication::arguments().mid(1);
    for (const QString& address : addresses) {
        auto* view = new QWebEngineView(&tabs);
        tabs.addTab(view, address);
        QObject::connect(view, &QWebEngineView::titleChanged, &tabs,
                         [&tabs, view](const QString& title) { tabs.setTabText(tabs.indexOf(view), title); });
        view->load(QUrl(address));
    }
    tabs.setCurrentIndex(tabs.count() - 1);
    tabs.show();
    return QApplication::exec();
}

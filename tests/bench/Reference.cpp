// The bare program that the benchmarks hold TessaView against: a tab widget and one engine view a page, all pages
// loaded at once, the last one in front. Its arguments are the addresses. Downloads go to the current folder. With
// "--windows WIDTHxHEIGHT" before them each page has a window of its own, whose page area is of that size. With
// "--profile FOLDER" before them cookies and what else pages store are kept there, as a browser does; else in memory.
#include <QApplication>
#include <QDir>
#include <QTabWidget>
#include <QWebEngineDownloadRequest>
#include <QWebEnginePage>
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
    if (argc > 2 && QString::fromLocal8Bit(argv[1]) == QStringLiteral("--windows")) return ShowWindows();
    QStringList addresses = QApplication::arguments().mid(1);
    QWebEngineProfile* profile = QWebEngineProfile::defaultProfile();
    std::unique_ptr<QWebEngineProfile> kept;
    if (addresses.size() > 1 && addresses[0] == QStringLiteral("--profile")) {
        kept = std::make_unique<QWebEngineProfile>(QStringLiteral("kept"));
        kept->setPersistentStoragePath(addresses[1] + QStringLiteral("/stored"));
        kept->setCachePath(addresses[1] + QStringLiteral("/cache"));
        profile = kept.get();
        addresses.remove(0, 2);
    }
    QObject::connect(profile, &QWebEngineProfile::downloadRequested, &tabs, [](QWebEngineDownloadRequest* request) {
        request->setDownloadDirectory(QDir::currentPath());
        request->accept();
    });
    for (const QString& address : addresses) {
        auto* view = new QWebEngineView(&tabs);
        if (kept) view->setPage(new QWebEnginePage(profile, view));
        tabs.addTab(view, address);
        QObject::connect(view, &QWebEngineView::titleChanged, &tabs,
                         [&tabs, view](const QString& title) { tabs.setTabText(tabs.indexOf(view), title); });
        view->load(QUrl(address));
    }
    tabs.setCurrentIndex(tabs.count() - 1);
    tabs.show();
    const int result = QApplication::exec();
    // A profile has to outlive its pages.
    qDeleteAll(tabs.findChildren<QWebEngineView*>());
    return result;
}

// The bare program that the benchmarks hold TessaView against: a tab widget and one engine view a page, all pages
// loaded at once, the last one in front. Its arguments are the addresses. Downloads go to the current folder.
#include <QApplication>
#include <QDir>
#include <QTabWidget>
#include <QWebEngineDownloadRequest>
#include <QWebEngineProfile>
#include <QWebEngineView>

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

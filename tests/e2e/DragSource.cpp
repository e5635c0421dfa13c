// Something to drag from another program: a window that offers the files named on its command line. Without any it
// offers addresses that never come.

#include <QApplication>
#include <QDrag>
#include <QLabel>
#include <QMimeData>
#include <QUrl>

namespace {

class Source final : public QLabel {
public:
    explicit Source(QList<QUrl> urls) : QLabel(QStringLiteral("Drag me")), m_urls(std::move(urls)) {
        setWindowTitle(text());
        setAlignment(Qt::AlignCenter);
    }

protected:
    void mouseMoveEvent(QMouseEvent*) override {
        auto* drag = new QDrag(this);
        auto* data = new QMimeData;
        if (m_urls.isEmpty())
            data->setData(QStringLiteral("text/uri-list"), {});
        else
            data->setUrls(m_urls);
        drag->setMimeData(data);
        drag->exec(Qt::CopyAction);
    }

private:
    QList<QUrl> m_urls;
};

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QList<QUrl> urls;
    for (const QString& each : QApplication::arguments().mid(1)) urls << QUrl::fromLocalFile(each);
    Source source(urls);
    source.setGeometry(0, 0, 90, 40);
    source.setWindowFlag(Qt::BypassWindowManagerHint);
    source.show();
    return QApplication::exec();
}

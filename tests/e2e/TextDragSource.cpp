// Another program to drag from: a small window whose button-sized area drags what the command line says.
//   text_drag_source KIND TEXT      KIND is text, link or file; text of the form "N*x" is N times x
#include <QApplication>
#include <QDrag>
#include <QMimeData>
#include <QMouseEvent>
#include <QUrl>
#include <QWidget>

namespace {

QString Expanded(const QString& text) {
    const qsizetype star = text.indexOf(u'*');
    bool counted = false;
    const int count = text.left(star).toInt(&counted);
    return star > 0 && counted ? text.mid(star + 1).repeated(count) : text;
}

/// Remembers whether somebody asked for what is in it.
class Data final : public QMimeData {
public:
    explicit Data(bool& isFetched) : m_isFetched(isFetched) {}

protected:
    QVariant retrieveData(const QString& type, QMetaType preferred) const override {
        m_isFetched = true;
        return QMimeData::retrieveData(type, preferred);
    }

private:
    bool& m_isFetched;
};

class Source final : public QWidget {
public:
    Source(QString kind, QString text) : m_kind(std::move(kind)), m_text(std::move(text)) {
        setWindowTitle(QStringLiteral("Drag Source"));
        setWindowFlags(Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
        resize(100, 30);
    }

protected:
    void mousePressEvent(QMouseEvent*) override {
        auto* data = new Data(m_isFetched);
        if (m_kind == u"text") data->setText(m_text);
        if (m_kind == u"link") data->setUrls({QUrl(m_text)});
        if (m_kind == u"file") data->setUrls({QUrl::fromLocalFile(m_text)});
        auto* drag = new QDrag(this);
        drag->setMimeData(data);
        // The title tells whether what is below would take it, that the drag has ended, and how.
        connect(drag, &QDrag::actionChanged, this, [this](Qt::DropAction action) {
            setWindowTitle(action == Qt::IgnoreAction ? QStringLiteral("Drag Source")
                                                      : QStringLiteral("Drag Source accepted"));
        });
        if (drag->exec(Qt::CopyAction | Qt::LinkAction | Qt::MoveAction, Qt::CopyAction) == Qt::IgnoreAction)
            return setWindowTitle(QStringLiteral("Drag Source refused"));
        // Only what is asked for from now on is asked for because it was dropped.
        m_isFetched = false;
        // Once the other program is done with what it took, the drag is deleted. On a busy machine the X server at
        // times knows no owner of what is dragged. Then the other program has got nothing.
        connect(drag, &QObject::destroyed, this, [this] {
            setWindowTitle(m_isFetched ? QStringLiteral("Drag Source taken") : QStringLiteral("Drag Source lost"));
        });
    }

private:
    QString m_kind, m_text;
    bool m_isFetched = false;
};

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const QStringList words = QApplication::arguments();
    if (words.size() != 3) return 2;
    Source source(words[1], Expanded(words[2]));
    source.show();
    return QApplication::exec();
}

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

class Source final : public QWidget {
public:
    Source(QString kind, QString text) : m_kind(std::move(kind)), m_text(std::move(text)) {
        setWindowTitle(QStringLiteral("Drag Source"));
        setWindowFlag(Qt::WindowStaysOnTopHint);
        resize(120, 60);
    }

protected:
    void mousePressEvent(QMouseEvent*) override {
        auto* data = new QMimeData;
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
        const bool taken =
            drag->exec(Qt::CopyAction | Qt::LinkAction | Qt::MoveAction, Qt::CopyAction) != Qt::IgnoreAction;
        setWindowTitle(taken ? QStringLiteral("Drag Source taken") : QStringLiteral("Drag Source refused"));
    }

private:
    QString m_kind, m_text;
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

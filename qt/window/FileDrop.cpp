#include "qt/window/FileDrop.h"

#include "base/Percent.h"
#include "qt/base/Strings.h"

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <QWidget>
#include <QWindow>
#include <utility>

namespace tessa::qt {

namespace {

void Refuse(QObject& window, QDropEvent& drag) {
    drag.ignore();
    if (drag.type() != QEvent::Drop) return;
    // Whoever was told of the drag waits for its end.
    QDragLeaveEvent leave;
    QCoreApplication::sendEvent(&window, &leave);
}

// The path by its bytes, which need not be text.
Text LocalPathOf(const QUrl& url) {
    if (!url.isLocalFile() || !url.host().isEmpty()) return FromQt(url.toLocalFile());
    return PathFromBytes(PercentDecoded(url.path(QUrl::FullyEncoded).toStdString()));
}

} // namespace

FileDrop::FileDrop(QWidget& window, std::function<bool(TextView path)> takes)
    : m_window(window), m_takes(std::move(takes)) {
    qApp->installEventFilter(this);
}

std::vector<Text> FileDrop::FilesOf(const QList<QUrl>& urls) const {
    std::vector<Text> files;
    for (const QUrl& url : urls) {
        Text path = LocalPathOf(url);
        if (path.empty() || !m_takes(path)) return {};
        files.push_back(std::move(path));
    }
    return files;
}

// The desktop's events come to the window as a whole first, then to what lies under the pointer.
bool FileDrop::eventFilter(QObject* watched, QEvent* event) {
    const auto type = event->type();
    if (type != QEvent::DragEnter && type != QEvent::DragMove && type != QEvent::Drop) return false;
    if (watched != m_window.windowHandle() || QApplication::activeModalWidget()) return false;
    auto* drag = static_cast<QDropEvent*>(event);
    const QMimeData& data = *drag->mimeData();
    // Asked for once: each time the other program is asked anew, and may answer nothing.
    const QList<QUrl> urls = data.urls();
    const bool lost = urls.isEmpty() && data.hasUrls();
    const std::vector<Text> now = FilesOf(urls);
    // What was dragged over the window is what is dropped, though it may be gone by then.
    if (!now.empty() || type == QEvent::DragEnter) m_dragged = now;
    if (m_dragged.empty()) {
        if (lost) Refuse(*watched, *drag);
        return lost;
    }
    const std::vector<Text> files = m_dragged;
    drag->setDropAction(Qt::CopyAction);
    drag->accept();
    if (type != QEvent::Drop) return true;
    // Later, because whoever dropped them waits for this event to be done.
    QMetaObject::invokeMethod(
        this, [this, files] { Dropped(files); }, Qt::QueuedConnection);
    return true;
}

} // namespace tessa::qt

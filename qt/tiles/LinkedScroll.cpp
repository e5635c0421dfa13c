#include "qt/tiles/LinkedScroll.h"

#include <QCoreApplication>
#include <QEvent>
#include <QWebEnginePage>
#include <QWebEngineScript>
#include <algorithm>
#include <chrono>
#include <utility>

namespace tessa::qt {

namespace {

// A frame of the screen: more often nobody sees.
constexpr std::chrono::milliseconds kSoon{16};

bool IsScrolling(const QEvent& event) {
    switch (event.type()) {
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::MouseButtonPress:
    case QEvent::TouchBegin:
        return true;
    default:
        return false;
    }
}

// Which part of what can be scrolled is above, or left of, what is seen.
double PartOf(double position, double whole, double seen) {
    return whole > seen ? std::clamp(position / (whole - seen), 0.0, 1.0) : 0;
}

QString ScrollTo(double across, double down) {
    return QStringLiteral("(function () { const all = document.scrollingElement; if (all) all.scrollTo({behavior: "
                          "'instant', left: %1 * (all.scrollWidth - all.clientWidth), top: %2 * (all.scrollHeight - "
                          "all.clientHeight)}); })()")
        .arg(across, 0, 'f', 6)
        .arg(down, 0, 'f', 6);
}

} // namespace

LinkedScroll::LinkedScroll() {
    m_soon.setSingleShot(true);
    m_soon.setInterval(kSoon);
    m_soon.callOnTimeout(this, [this] { Follow(); });
}

void LinkedScroll::Link(const std::vector<QWebEngineView*>& views) {
    const bool same =
        std::ranges::equal(views, m_views, [](const QWebEngineView* one, const auto& other) { return one == other; });
    if (same) return;
    for (const auto& each : std::exchange(m_connections, {})) disconnect(each);
    QCoreApplication::instance()->removeEventFilter(this);
    m_soon.stop();
    m_views.assign(views.begin(), views.end());
    m_leader = nullptr;
    if (views.size() < 2) return;
    QCoreApplication::instance()->installEventFilter(this);
    for (QWebEngineView* each : views) {
        m_connections.push_back(connect(each->page(), &QWebEnginePage::scrollPositionChanged, this, [this, each] {
            if (each == m_leader && !m_soon.isActive()) m_soon.start();
        }));
    }
}

bool LinkedScroll::eventFilter(QObject* watched, QEvent* event) {
    if (!IsScrolling(*event) || !watched->isWidgetType()) return false;
    const auto* widget = static_cast<const QWidget*>(watched);
    for (const auto& each : m_views) {
        if (each && (each == widget || each->isAncestorOf(widget))) m_leader = each;
    }
    return false;
}

void LinkedScroll::Follow() {
    if (!m_leader || !m_leader->page()) return;
    const QWebEnginePage& page = *m_leader->page();
    const QPointF at = page.scrollPosition();
    const QSizeF all = page.contentsSize();
    const QString script =
        ScrollTo(PartOf(at.x(), all.width(), m_leader->width()), PartOf(at.y(), all.height(), m_leader->height()));
    for (const auto& each : m_views) {
        if (each && each != m_leader && each->page())
            each->page()->runJavaScript(script, QWebEngineScript::ApplicationWorld);
    }
}

} // namespace tessa::qt

#include "qt/bar/customize/BandPanels.h"

#include "qt/base/Strings.h"

#include <QKeyEvent>
#include <QScreen>
#include <algorithm>

namespace tessa::qt {

BandPanels::~BandPanels() { Close(); }

void BandPanels::Open(Band& menu, const QRect& under) {
    if (Root() == &menu) return;
    Close();
    Show(menu, under.bottomLeft() + QPoint(0, 1));
}

Band* BandPanels::Root() const { return m_open.empty() || !m_open[0] ? nullptr : m_open[0]->Shown(); }

void BandPanels::OpenBeside(std::size_t level, Band& menu, const QRect& entry) {
    if (level + 1 < m_open.size() && m_open[level + 1] && m_open[level + 1]->Shown() == &menu) return;
    CloseFrom(level + 1);
    Show(menu, entry.topRight() + QPoint(1, 0));
}

void BandPanels::Show(Band& menu, QPoint at) {
    const std::vector<Band*> arranged = m_custom.Bands();
    if (std::ranges::find(arranged, &menu) == arranged.end()) return;
    auto* list = new BandList(m_custom, &m_window);
    list->setWindowFlags(Qt::Tool | Qt::FramelessWindowHint);
    list->setAttribute(Qt::WA_ShowWithoutActivating);
    list->setObjectName(ToQt(menu.Name()));
    list->setWindowTitle(ToQt(m_custom.TitleOf(menu)));
    list->setAccessibleName(list->windowTitle());
    list->ShowBand(menu);
    list->MenuWanted.ConnectForLife(
        [this, level = m_open.size()](Band& sub, const QRect& entry) { OpenBeside(level, sub, entry); });
    list->installEventFilter(this);
    list->resize(list->sizeHint());
    const QRect screen = m_window.screen()->availableGeometry();
    at.setX(std::clamp(at.x(), screen.left(), std::max(screen.left(), screen.right() - list->width())));
    at.setY(std::clamp(at.y(), screen.top(), std::max(screen.top(), screen.bottom() - list->height())));
    list->move(at);
    m_open.emplace_back(list);
    list->show();
}

void BandPanels::CloseFrom(std::size_t level) {
    while (m_open.size() > level) {
        if (BandList* list = m_open.back()) {
            list->hide();
            // It may be the one from which the user drags.
            list->deleteLater();
        }
        m_open.pop_back();
    }
}

void BandPanels::Close() { CloseFrom(0); }

bool BandPanels::CloseLast() {
    if (!Root()) return false;
    CloseFrom(m_open.size() - 1);
    return true;
}

void BandPanels::Refresh() {
    for (const auto& list : m_open) {
        if (!list) continue;
        list->Refresh();
        list->resize(list->sizeHint());
    }
}

bool BandPanels::Hold(const QWidget& widget) const {
    return std::ranges::any_of(m_open, [&](const auto& list) { return list && list == widget.window(); });
}

bool BandPanels::eventFilter(QObject* watched, QEvent* event) {
    const bool escape = event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
    if (escape) CloseLast();
    return escape || QObject::eventFilter(watched, event);
}

} // namespace tessa::qt

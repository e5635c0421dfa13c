#include "qt/bar/ToolBarLook.h"

#include <QCoreApplication>
#include <QEvent>
#include <QToolBar>

namespace tessa::qt {

namespace {

int PixelsOf(IconSize size) {
    switch (size) {
    case IconSize::Small:
        return 16;
    case IconSize::Medium:
        return 22;
    case IconSize::Large:
        return 32;
    }
    return 22;
}

Qt::ToolButtonStyle StyleOf(ToolText text) {
    switch (text) {
    case ToolText::IconsOnly:
        return Qt::ToolButtonIconOnly;
    case ToolText::BesideIcons:
        return Qt::ToolButtonTextBesideIcon;
    case ToolText::UnderIcons:
        return Qt::ToolButtonTextUnderIcon;
    case ToolText::TextOnly:
        return Qt::ToolButtonTextOnly;
    }
    return Qt::ToolButtonIconOnly;
}

bool IsOnToolBar(QObject* object) {
    for (QObject* each = object; each; each = each->parent()) {
        if (qobject_cast<QToolBar*>(each)) return true;
    }
    return false;
}

} // namespace

ToolBarLook::ToolBarLook(CommandBar& bar, QMainWindow& window) : m_bar(bar), m_window(window) {
    m_connections += m_bar.Look.Attach([this](const BarLook& look) { Show(look); });
    QCoreApplication::instance()->installEventFilter(this);
}

// The window hands it on to its toolbars, those of later too.
void ToolBarLook::Show(const BarLook& look) {
    const int size = PixelsOf(look.Icons);
    m_window.setIconSize({size, size});
    m_window.setToolButtonStyle(StyleOf(look.Text));
}

bool ToolBarLook::eventFilter(QObject* watched, QEvent* event) {
    return event->type() == QEvent::ToolTip && !m_bar.Look().ToolTips && IsOnToolBar(watched);
}

} // namespace tessa::qt

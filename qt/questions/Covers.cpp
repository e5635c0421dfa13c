#include "qt/questions/Covers.h"

#include <QApplication>

namespace tessa::qt {

Covers::~Covers() {
    for (const auto& cover : m_covers) {
        if (!cover) continue;
        cover->hide();
        cover->deleteLater();
    }
}

void Covers::Add(QWidget* cover) {
    cover->hide();
    cover->setParent(m_pageArea);
    cover->setGeometry(m_page);
    const bool first = m_covers.empty();
    m_covers.emplace_back(cover);
    if (m_shown) Show(*cover);
    if (first) Changed();
}

void Covers::Remove(QWidget* cover) {
    if (std::erase_if(m_covers, [cover](const auto& each) { return each == cover; }) == 0) return;
    const bool hadFocus = cover->isAncestorOf(QApplication::focusWidget());
    cover->hide();
    cover->deleteLater();
    if (hadFocus && !TakeFocus()) FocusPage();
    if (m_covers.empty()) Changed();
}

void Covers::SetShown(bool shown) {
    m_shown = shown;
    for (const auto& cover : m_covers) {
        if (!cover) continue;
        if (shown)
            Show(*cover);
        else
            cover->hide();
    }
}

void Covers::Lay(const QRect& page) {
    m_page = page;
    for (const auto& cover : m_covers) {
        if (cover) cover->setGeometry(page);
    }
}

bool Covers::TakeFocus() {
    if (m_covers.empty() || !m_covers.back()) return false;
    QWidget& top = *m_covers.back();
    // What the user is typing into keeps the keyboard.
    if (!top.isAncestorOf(QApplication::focusWidget())) top.setFocus(Qt::OtherFocusReason);
    return true;
}

void Covers::Show(QWidget& cover) const {
    cover.setGeometry(m_page);
    cover.show();
    cover.raise();
    // A cover takes the keyboard from its own page, from nothing else.
    if (!m_inFront) return;
    const QWidget* focus = QApplication::focusWidget();
    if (!focus || focus == m_pageArea || m_pageArea->isAncestorOf(focus)) cover.setFocus(Qt::OtherFocusReason);
}

} // namespace tessa::qt

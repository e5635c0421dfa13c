#include "pages/PageNavigation.h"

#include <utility>

namespace tessa {

void PageNavigation::Ask() {
    m_wish = Wish::Waiting;
    if (m_shown == Shown::Overdue) m_shown = Shown::Nothing;
}

void PageNavigation::PutOff() {
    if (Waits()) m_wish = Wish::PutOff;
}

bool PageNavigation::Look() {
    if (m_wish != Wish::PutOff) return false;
    m_wish = Wish::Waiting;
    return true;
}

void PageNavigation::Begin() {
    m_wish = Wish::None;
    m_opened = false;
}

bool PageNavigation::GiveUp() { return std::exchange(m_wish, Wish::None) != Wish::None; }

void PageNavigation::Open() {
    m_wish = Wish::None;
    m_opened = true;
}

void PageNavigation::FinishLoad() {
    if (m_load == Load::Loading)
        m_load = Load::Finished;
    else if (m_load == Load::Told)
        m_load = Load::Quiet;
}

void PageNavigation::EndLeaving(bool shows) {
    m_leaves = false;
    if (shows) m_shown = Shown::Document;
}

bool PageNavigation::TellEnd() {
    if (m_load == Load::Quiet || m_load == Load::Told) return false;
    m_load = m_load == Load::Loading ? Load::Told : Load::Quiet;
    return true;
}

void PageNavigation::ShowDocument() {
    m_shown = Shown::Document;
    // Of a document that only moves it is still known.
    if (std::exchange(m_leaves, false)) m_kind = Kind::Unknown;
}

bool PageNavigation::Know(Kind kind) { return std::exchange(m_kind, kind) != kind; }

void PageNavigation::BeLate() {
    if (m_shown == Shown::Nothing) m_shown = Shown::Overdue;
}

} // namespace tessa

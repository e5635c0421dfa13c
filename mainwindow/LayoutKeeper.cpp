#include "mainwindow/LayoutKeeper.h"

#include "common/CommandBarLayout.h"

void LayoutKeeper::Tell(TextView message) const {
    if (Say) Say(message);
}

void LayoutKeeper::Load() {
    const auto bytes = m_file.Read();
    m_unread = !bytes;
    if (bytes) CommandBarLayout::Load(m_actBar, *bytes);
    m_loaded = CommandBarLayout::Save(m_actBar);
    if (m_unread) Tell(u"The layout of the toolbars could not be read.");
}

void LayoutKeeper::Save() {
    const std::string bytes = CommandBarLayout::Save(m_actBar);
    if (m_unread && bytes == m_loaded) return;
    const Outcome written = m_file.Write(bytes);
    if (written == Outcome::Failed) Tell(u"The layout of the toolbars could not be saved.");
    ResumeNext(written);
}

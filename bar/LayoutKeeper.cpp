#include "bar/LayoutKeeper.h"

#include "bar/CommandBarLayout.h"

namespace tessa {

LayoutKeeper::LayoutKeeper(CommandBar& actBar, LayoutFile& file) : m_actBar(actBar), m_file(file) {
    m_trouble.Say.ConnectForLife([this](TextView message) { Tell(message); });
    m_trouble.TryAgain.ConnectForLife([this] { TryAgain(); });
}

void LayoutKeeper::Tell(TextView message) const { Say(message); }

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
    m_trouble.Note(m_file.Write(bytes));
}

void LayoutKeeper::SaveAgain() {
    if (m_trouble.Pending()) Save();
}

} // namespace tessa

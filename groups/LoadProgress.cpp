#include "groups/LoadProgress.h"

namespace tessa {

void LoadProgress::Begin() {
    if (m_loading.empty()) m_all = 0;
}

void LoadProgress::Add(std::int32_t index) {
    if (m_loading.insert(index).second) ++m_all;
    Show();
}

void LoadProgress::Done(std::int32_t index) {
    if (m_loading.erase(index) > 0) Show();
}

void LoadProgress::Stop() {
    if (Counts()) m_sbStatus.SimpleText = u"Stopped: " + Count();
    m_loading.clear();
    m_sbStatus.StopAll.Visible = m_held > 0;
}

void LoadProgress::Hold() {
    ++m_held;
    m_sbStatus.StopAll.Visible = true;
}

void LoadProgress::Release() {
    --m_held;
    m_sbStatus.StopAll.Visible = Counts() || m_held > 0;
}

Text LoadProgress::Count() const {
    return Decimal(static_cast<std::int64_t>(m_all - m_loading.size())) + u" of " +
           Decimal(static_cast<std::int64_t>(m_all)) + u" pages loaded";
}

void LoadProgress::Show() {
    m_sbStatus.StopAll.Visible = Counts() || m_held > 0;
    if (m_all >= kMany) m_sbStatus.SimpleText = Count();
}

} // namespace tessa

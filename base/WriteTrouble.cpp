#include "base/WriteTrouble.h"

#include <utility>

namespace tessa {

void WriteTrouble::Note(Outcome written, const std::source_location& where) {
    ResumeNext(written, where);
    const bool before = std::exchange(m_pending, written == Outcome::Failed);
    if (!m_pending) return;
    if (!before) Say(m_complaint);
    TryAgain();
}

} // namespace tessa

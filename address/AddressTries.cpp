#include "address/AddressTries.h"

#include <utility>

namespace tessa {

void AddressTries::Begin(Text address, Text second) {
    m_first = std::move(address);
    m_second = std::move(second);
    m_hidesErrors = m_hidesErrors || !m_second.empty();
}

void AddressTries::DropUnlessFor(TextView address) {
    if (address != m_first) Drop();
}

bool AddressTries::IsFirst(TextView address, bool unconnected) const {
    return unconnected && !m_second.empty() && address == m_first;
}

void AddressTries::NoteSuccess() {
    Drop();
    m_hidesErrors = false;
}

std::optional<Text> AddressTries::AfterFailure(const Failure& failure) {
    const bool first = IsFirst(failure.Address, failure.Unconnected);
    const bool unseen = m_hidesErrors && !failure.Shown && !failure.Awaits;
    Text next = first ? m_second : failure.Full;
    Drop();
    m_hidesErrors = first;
    if (!first && !unseen) return std::nullopt;
    return next;
}

} // namespace tessa

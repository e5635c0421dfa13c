#pragma once
#include "base/Text.h"

#include <optional>

namespace tessa {

/// An address that was typed without its scheme is tried twice: securely, and without encryption when no host answers
/// that. How the first try fails is not shown: the page before stays until the second one has ended. A host that was
/// reached gets no second try.
class AddressTries {
public:
    /// How a load has failed.
    struct Failure {
        Text Address;             ///< as it is shown
        Text Full;                ///< as it is loaded
        bool Unconnected = false; ///< no host has answered
        bool Shown = false;       ///< the engine shows an error
        bool Awaits = false;      ///< the page is about to show something else
    };

    /// A navigation to `address` begins, as it is shown. `second` is where to go when that does not connect; empty for
    /// nowhere.
    void Begin(Text address, Text second);
    /// There is no second try any more; one for another address than `address` at least.
    void Drop() { m_second.clear(); }
    void DropUnlessFor(TextView address);
    /// Whether the engine is to show how a load fails.
    [[nodiscard]] bool ShowsErrors() const { return m_second.empty(); }
    /// Whether that failure is the first of two tries.
    [[nodiscard]] bool IsFirst(TextView address, bool unconnected) const;
    void NoteSuccess();
    /// What is to be loaded now: the second try, or the same once more for its error to be shown. The engine may not
    /// have heard in time that it is to show errors again. There is no second try any more.
    [[nodiscard]] std::optional<Text> AfterFailure(const Failure& failure);

private:
    Text m_first, m_second;
    bool m_hidesErrors = false; ///< the engine may not show how a load fails
};

} // namespace tessa

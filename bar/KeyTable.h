#pragma once
#include "bar/KeyStroke.h"
#include "base/Signal.h"

#include <map>
#include <vector>

namespace tessa {

/// Which combinations click which tools: those of the design, and what the user has chosen instead for single tools.
/// No combination clicks two tools. What the user has chosen goes before the design, also that of a later version.
class KeyTable {
public:
    /// Everything is as designed. The names outlive it.
    void Design(std::vector<Shortcut> designed);

    /// All combinations; those of one tool in their order.
    [[nodiscard]] const std::vector<Shortcut>& All() const { return m_all; }
    [[nodiscard]] const Shortcut* Find(KeyStroke key) const;
    [[nodiscard]] std::vector<KeyStroke> Of(TextView tool) const;
    [[nodiscard]] std::vector<KeyStroke> DesignedFor(TextView tool) const;

    /// Gives a tool these combinations and no others, which may be none. What was chosen for another tool stays there,
    /// and one that is named twice counts once. The tool's designed ones are no choice.
    void Choose(TextView tool, const std::vector<KeyStroke>& keys);
    /// The tool goes back to what it was designed with, except for what was chosen for another tool.
    void Reset(TextView tool);
    void ResetAll();

    /// Whether the user has chosen a tool's combinations, and whether this one is among those of any tool.
    [[nodiscard]] bool IsChosen(TextView tool) const { return m_chosen.contains(tool); }
    [[nodiscard]] bool IsChosen(KeyStroke key) const;
    [[nodiscard]] bool AnyChosen() const { return !m_chosen.empty(); }

    /// Something has changed.
    Signal<void()> Changed;

private:
    void Compose();

    std::vector<Shortcut> m_designed;
    std::map<Text, std::vector<KeyStroke>, std::less<>> m_chosen;
    std::vector<Shortcut> m_all; ///< made of both
};

} // namespace tessa

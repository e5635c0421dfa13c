#pragma once
#include "commands/Customization.h"

#include <vector>

namespace tessa {

/// A command as the list of keys shows it.
struct KeyRow {
    std::shared_ptr<Tool> Item;
    Text Title, Category;
    Text Keys;            ///< all of them, with commas between
    bool Changed = false; ///< otherwise than designed
};

/// What a combination would mean for a tool.
struct KeyVerdict {
    bool Accepted = false; ///< may be assigned
    Text Words;            ///< whom it would be taken from, or why it may not be assigned; for the user
};

/// How the user gives commands other keys: what the dialog's page shows, and what its buttons do. Everything is done on
/// the bar at once.
class KeyChoices {
public:
    /// It outlives it.
    explicit KeyChoices(const Customization& custom) : m_custom(custom) {}

    /// The commands that a key can click, by categories. With words to search for, those whose title, category and keys
    /// contain all of them, capital letters or not.
    [[nodiscard]] std::vector<KeyRow> Rows(TextView search) const;
    /// The combinations that the user can take away from a tool, and those that stay.
    [[nodiscard]] std::vector<KeyStroke> KeysOf(const Tool& tool) const;
    [[nodiscard]] std::vector<KeyStroke> FixedKeysOf(const Tool& tool) const;
    /// Whether a tool has other combinations than it was designed with, and whether any has.
    [[nodiscard]] bool IsChanged(const Tool& tool) const;
    [[nodiscard]] bool AnyChanged() const;

    [[nodiscard]] KeyVerdict Judge(const Tool& tool, KeyStroke key) const;
    /// Gives a tool a combination, which menus then show, and takes it from whoever has it. Does nothing when it is not
    /// accepted.
    void Assign(const Tool& tool, KeyStroke key);
    void Remove(const Tool& tool, KeyStroke key);
    /// Gives a tool its designed combinations again, also those that were chosen for others since. Answers what was
    /// taken from whom, as a sentence for the user, empty when nothing was.
    Text Reset(const Tool& tool);
    void ResetAll();

private:
    [[nodiscard]] Text Allowed(const Tool& tool, KeyStroke key) const;
    [[nodiscard]] Text OwnerOf(const Tool& tool, KeyStroke key) const;
    [[nodiscard]] Text TitleOf(TextView tool) const;
    [[nodiscard]] const Tool* FindAccessKey(KeyStroke key) const;
    void TakeFrom(TextView tool, KeyStroke key);

    const Customization& m_custom;
};

} // namespace tessa

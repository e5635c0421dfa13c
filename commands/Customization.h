#pragma once
#include "bar/CommandBar.h"
#include "base/Signal.h"

namespace tessa {

/// A tool that the user drags: an entry of a band, or a command from the list, without a band.
struct DraggedTool {
    std::shared_ptr<Tool> Item;
    Band* From = nullptr;
    std::size_t Index = 0; ///< of the entry
};

/// How the user arranges the command bar: what the customisation dialog shows, and what its buttons and a drag do.
/// Everything is done on the bar at once.
class Customization {
public:
    /// The bar outlives it.
    explicit Customization(CommandBar& bar) : m_bar(bar) {}

    /// The menu bar and the toolbars, in the order in which they came into being.
    [[nodiscard]] std::vector<Band*> Toolbars() const;
    /// Not the menu bar: it is the way back to all that is hidden.
    [[nodiscard]] static bool MayHide(const Band& band) { return band.Kind() == BandKind::Toolbar; }
    void Show(Band& band, bool visible);
    /// Why a toolbar cannot be called so; nothing when it can. `renamed` keeps its name or gets that one.
    [[nodiscard]] Text Refusal(TextView caption, const Band* renamed = nullptr) const;
    /// Makes an empty toolbar in a row of its own. Nothing when the name is refused or there are 99 already.
    Band* New(TextView caption);
    /// Renames or deletes a toolbar that the user has made; any other stays as it is.
    void Rename(Band& band, TextView caption);
    void Delete(Band& band);
    /// Gives a band of the design its designed tools and place; others stay as they are.
    void Reset(Band& band);
    /// Everything as designed: toolbars of the user's are gone, widths, looks and keys too.
    void ResetAll();

    /// What the tools were designed for, in the order of the master list.
    [[nodiscard]] std::vector<Text> Categories() const;
    [[nodiscard]] std::vector<std::shared_ptr<Tool>> Commands(TextView category) const;
    /// A command as a list shows it, without the access key.
    [[nodiscard]] static Text TitleOf(const Tool& tool);

    /// The bands that can be arranged. Not among them are the menus that are built while the program runs.
    [[nodiscard]] std::vector<Band*> Bands() const;
    /// A band as a list shows it: "Toolbar: Go".
    [[nodiscard]] Text TitleOf(const Band& band) const;
    [[nodiscard]] bool Accepts(const Band& band, const Tool& tool) const;

    /// Lists a tool before the entry at `place` (from 0), or moves it there when the band lists it already. A box
    /// leaves the toolbar on which it stands. Does nothing when the band does not accept it.
    void Add(Band& band, std::size_t place, const std::shared_ptr<Tool>& tool);
    /// Moves an entry before the entry at `place` of a band, which may be the same one.
    void Move(Band& from, std::size_t index, Band& to, std::size_t place);
    /// A separator before the entry goes over to the one behind it.
    void Remove(Band& band, std::size_t index);
    void MoveUp(Band& band, std::size_t index);
    void MoveDown(Band& band, std::size_t index);
    /// Sets a separator before the entry, or takes it away.
    void ToggleGroup(Band& band, std::size_t index);

    /// Whether a tool may be dropped on a band, and what that does. Also what it does to drop one on no band.
    [[nodiscard]] bool Accepts(const Band& band, const DraggedTool& dragged) const;
    void Drop(const DraggedTool& dragged, Band& band, std::size_t place);
    void DropOff(const DraggedTool& dragged);

    void SetLook(const BarLook& look);
    [[nodiscard]] const BarLook& Look() const { return m_bar.Look(); }

    [[nodiscard]] CommandBar& Bar() const { return m_bar; }

    /// Something was arranged.
    Signal<void()> Changed;

private:
    [[nodiscard]] static bool MayArrange(const Band& band);
    static void TakeOut(Band& band, std::size_t index);
    void Reorder(Band& band, std::size_t index, std::size_t place);
    void TakeBoxOff(const Tool& tool, const Band& keeping);
    void ResetQuietly(Band& band);
    void Tell() const;

    CommandBar& m_bar;
};

} // namespace tessa

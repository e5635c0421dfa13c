#pragma once
#include "bar/BarLook.h"
#include "bar/KeyStroke.h"
#include "bar/KeyTable.h"
#include "bar/Tool.h"
#include "base/Signal.h"

#include <functional>
#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

namespace tessa {

/// What a band is: the menu bar, a toolbar, a menu of a tool, or a menu at the pointer.
enum class BandKind { MenuBar, Toolbar, Menu, Popup };

enum class DockSide { Top, Bottom, Left, Right, Floating };

/// Where a toolbar stands: its side, its row, counted from the window's edge, and its place in that row. A floating one
/// has a position on the screen in logical pixels instead.
struct Docking {
    DockSide Side = DockSide::Top;
    std::int32_t Row = 0;
    std::int32_t Place = 0;
    Pixels Left, Top;
    bool operator==(const Docking&) const = default;
};

/// Whether an entry begins a group, with a separator before it.
enum class BeginGroup : bool { No = false, Yes = true };

/// A tool as one band lists it. Tools of the bar's master list are shared by all bands that list them.
struct BandEntry {
    std::shared_ptr<Tool> Item;
    BeginGroup Group = BeginGroup::No;
};

/// A menu, toolbar or pop-up: an ordered list of tools. Owned by the bar.
class Band {
public:
    Band(Text name, Text caption, BandKind kind, BandSource source = MadeFrom::Design{})
        : Caption(std::move(caption)), m_name(std::move(name)), m_kind(kind), m_source(std::move(source)) {}
    Band(const Band&) = delete;
    Band& operator=(const Band&) = delete;

    [[nodiscard]] const Text& Name() const { return m_name; }
    [[nodiscard]] BandKind Kind() const { return m_kind; }
    [[nodiscard]] const std::vector<BandEntry>& Entries() const { return m_entries; }

    /// What it is made from, when that is of this kind.
    template<typename Kind>
    [[nodiscard]] const Kind* From() const {
        return std::get_if<Kind>(&m_source);
    }
    /// A toolbar that the user has made.
    [[nodiscard]] bool IsUserMade() const { return From<MadeFrom::User>(); }
    /// Whether it was made while the program runs: it is not arranged or kept.
    [[nodiscard]] bool IsRunTime() const { return !From<MadeFrom::Design>() && !IsUserMade(); }

    /// Makes a tool for this band alone and lists it last.
    Tool* Add(ToolSource source, std::int32_t id, Text name, BeginGroup group = BeginGroup::No);
    /// Lists a tool last. Nothing for no tool.
    void Append(std::shared_ptr<Tool> tool, BeginGroup group = BeginGroup::No);
    /// Lists a tool before the entry at `index` (from 0), at the end when there is none.
    void Insert(std::size_t index, std::shared_ptr<Tool> tool, BeginGroup group = BeginGroup::No);
    void RemoveAt(std::size_t index);
    /// Replaces all entries.
    void SetEntries(std::vector<BandEntry> entries);
    void SetGroup(std::size_t index, BeginGroup group);
    void Clear();
    /// The first tool of that name in this band.
    [[nodiscard]] Tool* Find(TextView name) const;

    Property<Text> Caption;
    /// Whether a toolbar is shown.
    Property<bool> Visible{true};
    Property<Docking> Dock;

    /// Attaches the view: called once a change until `Clean()`; runs at once to show the present entries.
    [[nodiscard]] Connection Attach(Signal<void()>::Listener mirror);
    /// The view has taken over the entries; the next change is reported again.
    void Clean() { m_marked = false; }

private:
    void Mark();

    Text m_name;
    BandKind m_kind;
    BandSource m_source;
    std::vector<BandEntry> m_entries;
    Signal<void()> m_mirror;
    bool m_marked = false;
};

enum class KeyUsed : bool { No = false, Yes = true };

/// Where a key moves the focus: into the menu bar, or to the next or previous part of the window.
enum class BarStep { MenuBar, Next, Previous };

/// The main window's one command bar: tools, and the bands that list them. Every click on a tool, wherever it is
/// shown, reaches `Click`. Its view mirrors it and decides nothing.
class CommandBar {
public:
    /// Adds a tool to the master list; a name in use is a mistake of ours.
    template<typename T>
    T* Add(std::unique_ptr<T> tool) {
        T* added = tool.get();
        Keep(std::move(tool));
        return added;
    }
    /// The master list, in its order.
    [[nodiscard]] const std::vector<std::shared_ptr<Tool>>& Tools() const { return m_tools; }
    /// A tool of the master list, to be listed by a band.
    [[nodiscard]] std::shared_ptr<Tool> Share(TextView name) const;
    /// Keeps a tool that one band has by design, beside the master list, whose names it may repeat. It stays even
    /// while no band lists it.
    std::shared_ptr<Tool> AddOwn(Text band, std::unique_ptr<Tool> tool);
    struct OwnTool {
        Text Band;
        std::shared_ptr<Tool> Item;
    };
    [[nodiscard]] const std::vector<OwnTool>& OwnTools() const { return m_ownTools; }
    [[nodiscard]] std::shared_ptr<Tool> ShareOwn(TextView band, TextView name) const;
    /// A tool of the master list, else the first tool of that name that any band has of its own.
    [[nodiscard]] Tool* Find(TextView name) const;
    /// Enables or disables a tool; does nothing when there is none of that name.
    void Enable(TextView tool, bool enabled);
    [[nodiscard]] ComboTool* FindCombo(TextView name) const;

    /// A band name in use adds nothing and returns nothing.
    Band* AddBand(Text name, Text caption, BandKind kind, BandSource source = MadeFrom::Design{});
    [[nodiscard]] const std::vector<std::unique_ptr<Band>>& Bands() const { return m_bands; }
    [[nodiscard]] Band* FindBand(TextView name) const;
    /// Removes a band, its own tools with it; does nothing when there is none.
    void RemoveBand(TextView name);
    /// Leaves only the bands that were designed or that the user has made.
    void RemoveRunTimeBands();

    /// Shows a band as a menu at the pointer. Its view does it; without one nothing happens.
    void Popup(TextView band);
    /// Gives the keyboard to a box on a band.
    void FocusTool(TextView band, TextView tool);
    /// Gives the keyboard to a box, on whatever toolbar it stands.
    void FocusBox(const Tool& box);
    /// Has the view lay the toolbars out anew, now.
    void RecalcLayout();

    /// Clicks the tool that has the combination, or moves the focus to a box. A tool that does nothing else opens its
    /// menu. A disabled tool does not use the key. F10 and F6 lead the keyboard about the window.
    KeyUsed KeyDown(KeyStroke key);
    /// The bar uses a key's way up when it has used its way down, whatever else is held by then. Alt that goes up and
    /// was pressed alone (`Keys::kAltAlone`) leads to the menu bar.
    KeyUsed KeyUp(KeyStroke key);
    /// A view tells which box's text the user is changing, or none. Escape is then for that box, not for a command.
    void SetEdited(const ComboTool* box);
    [[nodiscard]] const ComboTool* Edited() const { return m_edited; }
    /// A view tells that the user types into a box of the window, of the bar or another.
    void NoteTyped() { ++m_typed; }
    /// How often that was told; who keeps the number knows later whether the user has typed since.
    [[nodiscard]] std::size_t Typed() const { return m_typed; }
    /// The combinations of the design; the user may choose others in `Combinations`.
    void SetShortcuts(std::vector<Shortcut> shortcuts) { Combinations.Design(std::move(shortcuts)); }
    [[nodiscard]] const std::vector<Shortcut>& Shortcuts() const { return Combinations.All(); }
    /// Where a key leads the keyboard while no tool has it.
    [[nodiscard]] static std::optional<BarStep> StepOf(KeyStroke key);

    /// A view tells of a band that is about to be shown, before it is drawn.
    void OpenBand(Band& band) const;
    /// What a user's click does; a disabled tool does nothing.
    void UserClick(Tool& tool) const;
    /// What the user's key does in a box; one that is not used is the box's own.
    KeyUsed UserKey(ComboTool& box, KeyStroke key) const;

    /// How the toolbars look.
    Property<BarLook> Look;
    /// Which combinations click which tools.
    KeyTable Combinations;

    Signal<void(Tool&)> Click;
    Signal<void(Band&)> BandOpen;
    /// The pointer is over a tool, or over none any more.
    Signal<void(const Tool*)> MouseOver;
    /// A key in a box, before the box acts on it. Who uses it says so.
    Signal<void(ComboTool&, KeyStroke, KeyUsed&)> ComboKeyDown;
    /// The user has changed a box's text by typing; its value and selection are up to date.
    Signal<void(ComboTool&)> TextChange;
    /// The user has chosen an item of a box's list, which the box shows.
    Signal<void(ComboTool&)> SelChange;

    // What only a view can do.
    Signal<void()> BandsChanged; ///< a toolbar came or went
    Signal<void(Band&)> PopupWanted;
    Signal<void(Band&, Tool&)> FocusWanted;
    Signal<void(Tool&)> MenuWanted; ///< of a tool that drops one down
    Signal<void(BarStep)> StepWanted;
    Signal<void()> LayoutWanted;

private:
    void Keep(std::shared_ptr<Tool> tool);
    [[nodiscard]] Tool* ToolFor(KeyStroke key) const;
    [[nodiscard]] KeyUsed StepBy(KeyStroke key) const;
    void RunByKey(Tool& tool);
    void TellOf(BandKind kind) const;

    std::vector<std::shared_ptr<Tool>> m_tools;
    std::unordered_map<Text, std::shared_ptr<Tool>> m_byName;
    std::vector<OwnTool> m_ownTools;
    std::vector<std::unique_ptr<Band>> m_bands;
    std::unordered_map<Text, Band*> m_bandsByName;
    std::vector<std::int32_t> m_usedDown; ///< codes of keys that are down and were used
    const ComboTool* m_edited = nullptr;
    std::size_t m_typed = 0;
};

} // namespace tessa

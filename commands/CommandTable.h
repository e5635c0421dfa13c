#pragma once
#include "bar/CommandBar.h"
#include "bar/ToolName.h"
#include "commands/CommandContext.h"

#include <array>
#include <optional>
#include <span>
#include <type_traits>
#include <variant>

namespace tessa {

using WindowEffect = void (*)(CommandContext&);
using ToolEffect = void (*)(CommandContext&, const Tool&);
/// Does nothing without a current view.
using ViewEffect = void (*)(CommandContext&, BrowserView&);

/// What a row says behind its texts, in any order, besides an effect and the kind of its tool.
namespace CommandTraits {

/// A combination that clicks the tool. Menus show the first.
struct Key {
    std::int32_t code;
    std::int32_t shift = 0;
};
/// One that the window, or whatever has the keyboard, answers without the bar. Menus show it all the same.
struct KeyOfOthers {
    std::int32_t code;
    std::int32_t shift = 0;
};
/// The menu that drops down from the tool.
struct Opens {
    BandName band;
};
/// The tool stands beside the master list, for that band alone.
struct OnlyOn {
    BandName band;
};
/// The effect is that of the name's family, which the dispatcher knows.
struct ByFamily {};
/// The number of the tool; those of the rows behind it count on from there.
struct CountsFrom {
    std::int32_t id;
};
/// Whether the design has a visible tool, a hidden one, or none because it is made later.
enum class OnBar { Shown, Hidden, MadeLater };

} // namespace CommandTraits

/// What a click does, when it is a row's own.
using Effect = std::variant<std::monostate, CommandTraits::ByFamily, WindowEffect, ToolEffect, ViewEffect>;

/// All about a tool of the design and its command. The texts are caption, designed menu, help, and a name of the icon
/// theme; empty for none. The help of a Shop or Find link is its keyword.
struct Command {
    template<typename... Traits>
    constexpr Command(ToolName name, TextView text, TextView menu, TextView help, TextView picture, Traits... traits)
        : tool(name), caption(text), category(menu), description(help), icon(picture), effect(EffectIn(traits...)) {
        (Take(traits), ...);
    }

    /// Whether a click on a tool of that name runs this row.
    [[nodiscard]] constexpr bool Runs() const {
        return !std::holds_alternative<std::monostate>(effect) &&
               !std::holds_alternative<CommandTraits::ByFamily>(effect);
    }
    [[nodiscard]] constexpr std::span<const KeyStroke> Keys() const { return std::span(keys).first(keyCount); }

    ToolName tool;
    TextView caption, category, description, icon;
    Effect effect;
    std::array<KeyStroke, 2> keys{};
    std::size_t keyCount = 0;
    std::optional<KeyStroke> keyOfOthers;
    std::optional<BandName> subBand, onlyOn;
    ToolKind kind = ToolKind::Button;
    CommandTraits::OnBar onBar = CommandTraits::OnBar::Shown;
    std::optional<std::int32_t> countsFrom;

private:
    constexpr void Take(CommandTraits::Key key) { keys.at(keyCount++) = {key.code, key.shift}; }
    constexpr void Take(CommandTraits::KeyOfOthers key) { keyOfOthers = KeyStroke{key.code, key.shift}; }
    constexpr void Take(CommandTraits::Opens menu) { subBand = menu.band; }
    constexpr void Take(CommandTraits::OnlyOn place) { onlyOn = place.band; }
    constexpr void Take(ToolKind what) { kind = what; }
    constexpr void Take(CommandTraits::OnBar place) { onBar = place; }
    constexpr void Take(CommandTraits::CountsFrom number) { countsFrom = number.id; }
    constexpr void Take(const Effect&) {} // taken when the row is made

    static constexpr Effect EffectIn() { return {}; }
    template<typename First, typename... Others>
    static constexpr Effect EffectIn(First first, Others... others) {
        if constexpr (std::is_constructible_v<Effect, First>)
            return first;
        else
            return EffectIn(others...);
    }
};

/// The rows in the order of the master list.
[[nodiscard]] std::span<const Command> CommandTable();
/// The Shop and the Find links among them.
[[nodiscard]] std::span<const Command> ShopLinks();
[[nodiscard]] std::span<const Command> FindLinks();
/// The combinations of keys that the bar answers, and those that it does not.
[[nodiscard]] std::span<const Shortcut> DesignedShortcuts();
[[nodiscard]] std::span<const Shortcut> ShortcutsOfOthers();

} // namespace tessa

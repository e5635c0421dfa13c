#pragma once
#include "bar/BarLook.h"
#include "bar/CommandBar.h"

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tessa {

/// The words of a layout file.
namespace LayoutWords {

template<typename T>
struct Word {
    T value;
    std::string_view word;
};

inline constexpr std::array kKinds{Word<BandKind>{BandKind::MenuBar, "MenuBar"},
                                   Word<BandKind>{BandKind::Toolbar, "Toolbar"}, Word<BandKind>{BandKind::Menu, "Menu"},
                                   Word<BandKind>{BandKind::Popup, "Popup"}};
inline constexpr std::array kSides{Word<DockSide>{DockSide::Top, "Top"}, Word<DockSide>{DockSide::Bottom, "Bottom"},
                                   Word<DockSide>{DockSide::Left, "Left"}, Word<DockSide>{DockSide::Right, "Right"},
                                   Word<DockSide>{DockSide::Floating, "Floating"}};
inline constexpr std::array kIconSizes{Word<IconSize>{IconSize::Small, "Small"},
                                       Word<IconSize>{IconSize::Medium, "Medium"},
                                       Word<IconSize>{IconSize::Large, "Large"}};
inline constexpr std::array kTexts{
    Word<ToolText>{ToolText::IconsOnly, "IconsOnly"}, Word<ToolText>{ToolText::BesideIcons, "BesideIcons"},
    Word<ToolText>{ToolText::UnderIcons, "UnderIcons"}, Word<ToolText>{ToolText::TextOnly, "TextOnly"}};
inline constexpr std::array kTruths{Word<bool>{false, "0"}, Word<bool>{true, "1"}};

template<typename T, std::size_t size>
std::string WordOf(const std::array<Word<T>, size>& words, T value) {
    for (const auto& each : words) {
        if (each.value == value) return std::string(each.word);
    }
    return {};
}

template<typename T, std::size_t size>
std::optional<T> ValueOf(const std::array<Word<T>, size>& words, std::string_view word) {
    for (const auto& each : words) {
        if (each.word == word) return each.value;
    }
    return std::nullopt;
}

/// What stands between blanks.
[[nodiscard]] std::vector<std::string_view> Split(std::string_view text);

/// A whole number between two bounds, both inclusive.
[[nodiscard]] std::optional<std::int32_t> NumberIn(std::string_view word, std::int32_t least, std::int32_t most);

/// Side, row, place, left and top.
[[nodiscard]] std::string DockWords(const Docking& dock);
[[nodiscard]] std::optional<Docking> DockOf(std::string_view words);

/// A list that ends in a full stop, so that one that was cut off is known as such.
[[nodiscard]] std::string ListWords(std::span<const std::string> items);
[[nodiscard]] std::optional<std::vector<std::string>> ListOf(std::string_view words);

} // namespace LayoutWords

} // namespace tessa

#include "commands/CommandTable.h"

#include "commands/rows/CollectionRows.h"
#include "commands/rows/LinkRows.h"
#include "commands/rows/MenuRows.h"
#include "commands/rows/MoreRows.h"
#include "commands/rows/PageMenuRows.h"
#include "commands/rows/TabRows.h"
#include "commands/rows/TopicRows.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <functional>
#include <numeric>
#include <span>
#include <utility>

namespace tessa {

namespace {

using CommandTraits::ByFamily;

/// The rows by topic, in the order of the master list.
constexpr std::array kTopics{
    std::span<const Command>(CommandRows::kMenuRows),     std::span<const Command>(CommandRows::kTopicRows),
    std::span<const Command>(CommandRows::kLinkRows),     std::span<const Command>(CommandRows::kMoreRows),
    std::span<const Command>(CommandRows::kPageMenuRows), std::span<const Command>(CommandRows::kCollectionRows),
    std::span<const Command>(CommandRows::kTabRows),
};
constexpr std::size_t kRowCount = std::transform_reduce(kTopics.begin(), kTopics.end(), std::size_t{0}, std::plus(),
                                                        [](const auto& topic) { return topic.size(); });

constexpr const Command& RowAt(std::size_t number) {
    for (const auto& topic : kTopics) {
        if (number < topic.size()) return topic[number];
        number -= topic.size();
    }
    std::abort(); // which does not compile
}
template<std::size_t... number>
constexpr std::array<Command, sizeof...(number)> Joined(std::index_sequence<number...>) {
    return {{RowAt(number)...}};
}
constexpr auto kCommands = Joined(std::make_index_sequence<kRowCount>());

/// How many rows of that kind each name of the design has, in the order of the names.
constexpr auto CountRows(bool (*isOfThatKind)(const Command&)) {
    std::array<int, DesignedNames::kTools.size()> rows{};
    for (const Command& row : kCommands) {
        const auto name = std::ranges::find(DesignedNames::kTools, TextView(row.tool));
        if (isOfThatKind(row)) ++rows.at(static_cast<std::size_t>(name - DesignedNames::kTools.begin()));
    }
    return rows;
}
static_assert(std::ranges::min(CountRows([](const Command&) { return true; })) == 1, "a tool of the design has no row");
static_assert(std::ranges::max(CountRows([](const Command& row) { return !row.onlyOn; })) == 1,
              "two rows are about the same tool of the master list");
static_assert(std::ranges::max(CountRows([](const Command& row) { return row.onlyOn.has_value(); })) == 1,
              "two rows are about the same tool of one band");
static_assert(std::ranges::max(CountRows([](const Command& row) { return row.Runs(); })) == 1,
              "a name has two effects");

constexpr bool IsOfAFamily(TextView name) {
    return name.starts_with(DesignedNames::kShopLinks) || name.starts_with(DesignedNames::kFindLinks) ||
           name.starts_with(DesignedNames::kResizeCommands);
}
static_assert(std::ranges::all_of(kCommands,
                                  [](const Command& row) {
                                      return IsOfAFamily(row.tool) == std::holds_alternative<ByFamily>(row.effect);
                                  }),
              "a family's effect is that of all its names, and of no other");

constexpr std::span<const Command> Family(TextView begins) {
    const auto isOf = [&](const Command& row) { return TextView(row.tool).starts_with(begins); };
    const auto first = std::ranges::find_if(kCommands, isOf);
    return {first, std::find_if_not(first, kCommands.end(), isOf)};
}
constexpr bool StandsTogether(TextView family) {
    const auto isOf = [&](TextView name) { return name.starts_with(family); };
    return std::ssize(Family(family)) == std::ranges::count_if(DesignedNames::kTools, isOf);
}
static_assert(StandsTogether(DesignedNames::kShopLinks) && StandsTogether(DesignedNames::kFindLinks));

constexpr std::span<const KeyStroke> KeysOfOthers(const Command& row) {
    return row.keyOfOthers ? std::span(&*row.keyOfOthers, 1) : std::span<const KeyStroke>();
}
constexpr std::span<const KeyStroke> KeysOfTheBar(const Command& row) { return row.Keys(); }

/// The keys that all rows have by one of the functions above.
template<auto keysOf>
constexpr auto AllKeys() {
    constexpr std::size_t count = std::transform_reduce(kCommands.begin(), kCommands.end(), std::size_t{0}, std::plus(),
                                                        [](const Command& row) { return keysOf(row).size(); });
    std::array<Shortcut, count> all{};
    std::size_t at = 0;
    for (const Command& row : kCommands) {
        for (const KeyStroke& key : keysOf(row)) all.at(at++) = {row.tool, key};
    }
    return all;
}
constexpr auto kShortcuts = AllKeys<KeysOfTheBar>();
constexpr auto kShortcutsOfOthers = AllKeys<KeysOfOthers>();

} // namespace

std::span<const Command> CommandTable() { return kCommands; }

std::span<const Command> ShopLinks() { return Family(DesignedNames::kShopLinks); }

std::span<const Command> FindLinks() { return Family(DesignedNames::kFindLinks); }

std::span<const Shortcut> DesignedShortcuts() { return kShortcuts; }

std::span<const Shortcut> ShortcutsOfOthers() { return kShortcutsOfOthers; }

} // namespace tessa

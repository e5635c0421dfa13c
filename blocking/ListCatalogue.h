#pragma once
#include "base/Text.h"

#include <span>
#include <string_view>
#include <vector>

namespace tessa {

/// A list that many people use, and whose makers keep it up to date.
struct KnownList {
    TextView Name;      ///< under which it is kept in the settings, too
    TextView Does;      ///< what it does, in a sentence
    TextView Languages; ///< of the pages that it is for, as "de" or "es pt"; empty for all
    TextView Address;
};

/// The lists that can be chosen by name.
namespace ListCatalogue {

/// In the order to be shown: those for all languages first.
[[nodiscard]] std::span<const KnownList> All();
/// Nothing for any other text.
[[nodiscard]] const KnownList* Find(TextView name);
/// The names of those that are chosen by design, for somebody who reads these languages, as "de-AT".
[[nodiscard]] std::vector<Text> ByDesign(const std::vector<Text>& languages);

/// Where the list comes from that the settings have so: the address of a known one, or the text itself.
[[nodiscard]] Text SourceOf(TextView chosen);
/// Whether that is fetched, by https alone.
[[nodiscard]] bool IsFetched(TextView source);
/// Whether the text can be a list of the user's own: an address by https, or the full path of a file.
[[nodiscard]] bool CanBeList(TextView text);

} // namespace ListCatalogue

} // namespace tessa

#pragma once
#include "base/Text.h"

#include <variant>

namespace tessa {

/// What the tools and the bands of the bar are made from.
namespace MadeFrom {

/// The design of the bar.
struct Design {};
/// The user, who has made a toolbar.
struct User {};
/// A shortcut of the Favorites folder; its address as a click goes to it.
struct FavoriteLink {
    Text address;
};
/// A folder below the Favorites folder: the entry that opens its menu, and that menu.
struct FavoriteFolder {
    Text path;
};
/// A TessaGroup's file.
struct Group {
    Text path;
};
/// What lies under the pointer in a page, for the menu of that page.
struct Page {};

} // namespace MadeFrom

using ToolSource =
    std::variant<MadeFrom::Design, MadeFrom::FavoriteLink, MadeFrom::FavoriteFolder, MadeFrom::Group, MadeFrom::Page>;
using BandSource = std::variant<MadeFrom::Design, MadeFrom::User, MadeFrom::FavoriteFolder, MadeFrom::Page>;

} // namespace tessa

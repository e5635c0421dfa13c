#pragma once
#include "base/Property.h"
#include "base/Text.h"

#include <vector>

namespace tessa {

/// A control of a form of whose items exactly one is chosen.
struct Choice {
    Choice(Text caption, std::vector<Text> items) : Caption(std::move(caption)), Items(std::move(items)) {}
    Text Caption;
    std::vector<Text> Items;
    Property<std::size_t> Index{0}; ///< counted from 0
    Property<bool> Enabled{true};
};

} // namespace tessa

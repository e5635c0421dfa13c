#pragma once
#include "settings/HistorySettings.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace tessa {

/// What the user wants to have remembered.
struct HistoryOptions {
    bool Nothing = false; ///< no page at all
    bool Texts = true;    ///< what pages say, too
    std::int32_t Days = 90;
    std::int32_t Megabytes = 500;
    std::vector<Text> SitesLeftOut{}; ///< hosts, in small letters

    bool operator==(const HistoryOptions&) const = default;
};

/// A page, as far as it matters to whether it is remembered.
struct PageToKeep {
    Text Address;
    bool Private = false;
    bool AsksPassword = false;
};

enum class Kept {
    Nothing,
    Address, ///< address and title alone
    All
};

/// What is remembered of the pages that were visited.
namespace HistoryRules {

[[nodiscard]] HistoryOptions OptionsOf(const HistoryValues& values);

[[nodiscard]] Kept WhatIsKept(const PageToKeep& page, const HistoryOptions& options);

/// The address by which a page is remembered: without a user's name and password, and without the place in the page.
/// Nothing for what is no page of the web, and for one that is too long.
[[nodiscard]] std::optional<Text> KeptAddress(TextView address);
/// The host that a page is remembered under, in small letters, without "www.".
[[nodiscard]] Text SiteOf(TextView address);

/// The hosts in what the user has typed, apart by blanks, commas or lines; addresses are taken for their hosts.
[[nodiscard]] std::vector<Text> SitesIn(TextView typed);
[[nodiscard]] Text AsTyped(const std::vector<Text>& sites);
/// Whether that site, or one above it, is among them.
[[nodiscard]] bool IsLeftOut(TextView site, const std::vector<Text>& sites);

} // namespace HistoryRules

} // namespace tessa

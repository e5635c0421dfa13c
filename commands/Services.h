#pragma once
#include "base/Text.h"

#include <optional>
#include <string>
#include <string_view>

namespace tessa {

/// The real services behind the product's own hosts. In a template "%s" stands for the words or the name of the link,
/// percent-encoded. An empty template means the service by design.
struct ServiceTemplates {
    Text search;
    Text shop;
    Text find;
};

namespace Services {

/// Where a request for one of the product's hosts goes instead; nothing for any other address. `url` is a whole
/// address as it is sent, percent-encoded.
[[nodiscard]] std::optional<std::string> TargetOf(std::string_view url, const ServiceTemplates& templates);

} // namespace Services

} // namespace tessa

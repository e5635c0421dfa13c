#include "commands/Services.h"

#include "address/Endpoints.h"
#include "base/Captions.h"
#include "base/Percent.h"
#include "commands/CommandTable.h"

#include <algorithm>
#include <array>

namespace tessa {

namespace {

constexpr std::string_view kSearchByDesign = "https://duckduckgo.com/?q=%s";
constexpr std::string_view kShopByDesign = "https://duckduckgo.com/?q=buy+%s";

struct FindTarget {
    std::string_view keyword;
    std::string_view address;
};

constexpr std::array kFindByDesign{
    FindTarget{"websites", "https://duckduckgo.com/"},
    FindTarget{"newsgroups", "https://groups.google.com/"},
    FindTarget{"people", "https://duckduckgo.com/?q=find+people"},
    FindTarget{"business", "https://www.openstreetmap.org/"},
    FindTarget{"maps", "https://www.openstreetmap.org/directions"},
    FindTarget{"weather", "https://wttr.in/"},
    FindTarget{"reference", "https://www.wikipedia.org/"},
    FindTarget{"stockquotes", "https://finance.yahoo.com/"},
};

std::string Filled(std::string_view pattern, std::string_view words) {
    std::string all(pattern);
    if (const auto place = all.find("%s"); place != std::string::npos) all.replace(place, 2, words);
    return all;
}

std::string Filled(const Text& chosen, std::string_view byDesign, std::string_view words) {
    return Filled(chosen.empty() ? byDesign : std::string_view(ToUtf8(chosen)), words);
}

/// What a Shop or Find link of that keyword is called, without its access key.
std::string LinkNameOf(std::span<const Command> links, std::string_view keyword) {
    const auto link =
        std::ranges::find(links, FromBytes(keyword), [](const Command& row) { return Text(row.description); });
    return PercentEncoded(link == links.end() ? keyword : std::string_view(ToUtf8(WithoutAccessKey(link->caption))));
}

std::string FindService(const Text& chosen, std::string_view keyword) {
    if (!chosen.empty()) return Filled(chosen, {}, LinkNameOf(FindLinks(), keyword));
    const auto* target = std::ranges::find(kFindByDesign, keyword, &FindTarget::keyword);
    return target == kFindByDesign.end() ? Filled(kSearchByDesign, keyword) : std::string(target->address);
}

/// The service's start page: its address up to the path.
std::string StartOf(std::string_view address) {
    const auto host = address.find("://");
    const auto path = host == std::string_view::npos ? host : address.find('/', host + 3);
    return std::string(path == std::string_view::npos ? address : address.substr(0, path + 1));
}

/// What follows `name` in the query; nothing when it is not there.
std::optional<std::string_view> Query(std::string_view url, std::string_view name) {
    const auto place = url.find(name);
    if (place == std::string_view::npos) return std::nullopt;
    return url.substr(place + name.size());
}

} // namespace

namespace Services {

std::optional<std::string> TargetOf(std::string_view url, const ServiceTemplates& templates) {
    const auto scheme = url.find("://");
    if (scheme == std::string_view::npos) return std::nullopt;
    const std::string_view rest = url.substr(scheme + 3);
    const std::string_view host = rest.substr(0, rest.find_first_of("/?#"));
    if (host == ToUtf8(Endpoints::kSearchHost)) {
        if (const auto words = Query(rest, "?Keywords=")) return Filled(templates.search, kSearchByDesign, *words);
        return StartOf(Filled(templates.search, kSearchByDesign, {}));
    }
    const auto keyword = Query(rest, "?id=");
    if (host == ToUtf8(Endpoints::kAdHost))
        return Filled(templates.shop, kShopByDesign, LinkNameOf(ShopLinks(), keyword.value_or(std::string_view())));
    if (host == ToUtf8(Endpoints::kFindHost)) return FindService(templates.find, keyword.value_or(std::string_view()));
    return std::nullopt;
}

} // namespace Services

} // namespace tessa

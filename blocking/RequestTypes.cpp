#include "blocking/RequestTypes.h"

#include <array>
#include <utility>

namespace tessa {

namespace {

using NamedType = std::pair<std::string_view, RequestType>;

constexpr std::array kOptionTypes{
    NamedType{"script", RequestType::Script},         NamedType{"image", RequestType::Image},
    NamedType{"stylesheet", RequestType::Stylesheet}, NamedType{"css", RequestType::Stylesheet},
    NamedType{"subdocument", RequestType::Frame},     NamedType{"frame", RequestType::Frame},
    NamedType{"xmlhttprequest", RequestType::Xhr},    NamedType{"xhr", RequestType::Xhr},
    NamedType{"media", RequestType::Media},           NamedType{"font", RequestType::Font},
    NamedType{"object", RequestType::Object},         NamedType{"object-subrequest", RequestType::Object},
    NamedType{"websocket", RequestType::WebSocket},   NamedType{"ping", RequestType::Ping},
    NamedType{"beacon", RequestType::Ping},           NamedType{"other", RequestType::Other},
    NamedType{"popup", RequestType::Popup},           NamedType{"document", RequestType::Document},
    NamedType{"doc", RequestType::Document},          NamedType{"elemhide", RequestType::ElementHide},
    NamedType{"ehide", RequestType::ElementHide},     NamedType{"generichide", RequestType::GenericHide},
    NamedType{"ghide", RequestType::GenericHide},     NamedType{"specifichide", RequestType::SpecificHide},
    NamedType{"shide", RequestType::SpecificHide},    NamedType{"genericblock", RequestType::GenericBlock},
};

constexpr std::array kRecordedTypes{
    NamedType{"sub_frame", RequestType::Frame},    NamedType{"main_frame", RequestType::Document},
    NamedType{"font_resource", RequestType::Font}, NamedType{"fetch", RequestType::Xhr},
    NamedType{"imageset", RequestType::Image},     NamedType{"object_subrequest", RequestType::Object},
};

template<typename Table>
std::optional<RequestType> FindType(const Table& table, std::string_view word) {
    for (const auto& [name, type] : table)
        if (name == word) return type;
    return std::nullopt;
}

} // namespace

std::optional<RequestType> RequestTypeOf(std::string_view option) { return FindType(kOptionTypes, option); }

RequestType RecordedTypeOf(std::string_view word) {
    if (const auto type = FindType(kRecordedTypes, word)) return *type;
    return RequestTypeOf(word).value_or(RequestType::Unknown);
}

} // namespace tessa

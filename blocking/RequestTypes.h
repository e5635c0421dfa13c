#pragma once
#include <cstdint>
#include <optional>
#include <string_view>

namespace tessa {

/// What a request is for, or what a rule speaks of. Several make a set, see `RequestTypes`.
enum class RequestType : std::uint32_t {
    Document = 1U << 0U, ///< a page itself: never blocked, but exceptions for pages name it
    Frame = 1U << 1U,
    Stylesheet = 1U << 2U,
    Script = 1U << 3U,
    Image = 1U << 4U,
    Font = 1U << 5U,
    Object = 1U << 6U,
    Media = 1U << 7U,
    Xhr = 1U << 8U,
    Ping = 1U << 9U,
    WebSocket = 1U << 10U,
    Other = 1U << 11U,
    Popup = 1U << 12U,        ///< a window that a page opens
    ElementHide = 1U << 13U,  ///< this and what follows: what a page is excepted from
    GenericHide = 1U << 14U,  ///< hiding rules that name no site
    SpecificHide = 1U << 15U, ///< hiding rules that name a site
    GenericBlock = 1U << 16U, ///< network rules that name no site
    Unknown = 1U << 17U, ///< a part of a page of which nobody knows what it is; only rules for all parts are for it
};

/// A set of request types.
using RequestTypes = std::uint32_t;

[[nodiscard]] constexpr RequestTypes SetOf(RequestType type) { return static_cast<RequestTypes>(type); }

/// What is part of a page.
inline constexpr RequestTypes kPartTypes =
    SetOf(RequestType::Frame) | SetOf(RequestType::Stylesheet) | SetOf(RequestType::Script) |
    SetOf(RequestType::Image) | SetOf(RequestType::Font) | SetOf(RequestType::Object) | SetOf(RequestType::Media) |
    SetOf(RequestType::Xhr) | SetOf(RequestType::Ping) | SetOf(RequestType::WebSocket) | SetOf(RequestType::Other);

/// What a rule without a type is about.
inline constexpr RequestTypes kAnyPart = kPartTypes | SetOf(RequestType::Unknown);

/// What is looked up once a page, with the page's own address.
inline constexpr RequestTypes kPageTypes = SetOf(RequestType::Document) | SetOf(RequestType::ElementHide) |
                                           SetOf(RequestType::GenericHide) | SetOf(RequestType::SpecificHide) |
                                           SetOf(RequestType::GenericBlock);

/// The type that an option of a rule names; nothing for any other word.
[[nodiscard]] std::optional<RequestType> RequestTypeOf(std::string_view option);

/// The type that a record of requests names, in the words of rules or of browsers' extensions. `Unknown` for any other.
[[nodiscard]] RequestType RecordedTypeOf(std::string_view word);

} // namespace tessa

#include "address/TypedAddress.h"

#include "address/Endpoints.h"
#include "address/MailAddress.h"
#include "base/Address.h"
#include "base/Percent.h"

#include <algorithm>
#include <optional>

namespace tessa {

namespace {

constexpr TextView kScriptStart = u"javascript:";
constexpr TextView kBehindHost = u"/?#";
constexpr TextView kBlanks = u" \t\n\v\f\r";
constexpr char16_t kByteOrderMark = 0xFEFF;

bool IsLetter(char16_t unit) { return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z'); }

bool IsOfScheme(char16_t unit) {
    return IsLetter(unit) || (unit >= u'0' && unit <= u'9') || unit == u'+' || unit == u'.' || unit == u'-';
}

// It says how a text is stored, and is no part of it.
TextView WithoutByteOrderMark(TextView text) {
    if (text.starts_with(kByteOrderMark)) text.remove_prefix(1);
    return text;
}

bool HoldsHalf(TextView text) {
    for (std::size_t at = 0; at < text.size(); ++at)
        if (IsUnpaired(text, at)) return true;
    return false;
}

// "localhost:8080" reads like a scheme; a port behind the colon says that it is a host.
bool HasScheme(TextView text) {
    const std::size_t colon = text.find(u':');
    if (colon == TextView::npos || colon == 0 || !IsLetter(text.front())) return false;
    return std::ranges::all_of(text.substr(0, colon), IsOfScheme) && !Address::BeginsWithPort(text.substr(colon + 1));
}

/// How many units at the beginning are an address of numbers in brackets; 0 for none.
std::size_t SizeOfNumbers(TextView text) {
    if (!text.starts_with(u'[')) return 0;
    const std::size_t end = text.find_first_not_of(u"0123456789abcdefABCDEF:.", 1);
    return end != TextView::npos && end > 1 && text[end] == u']' ? end + 1 : 0;
}

/// How many units at the beginning are a name: words with a dot between and one behind. 0 for none.
std::size_t SizeOfName(TextView text) {
    const TextView name = text.substr(0, text.find_first_of(u" \t\n\v\f\r/?#:@"));
    return name.starts_with(u'.') || name.find(u"..") != TextView::npos ? 0 : name.size();
}

bool MayFollowHost(TextView rest) {
    if (rest.starts_with(u':')) {
        if (!Address::BeginsWithPort(rest.substr(1))) return false;
        rest.remove_prefix(std::min(rest.find_first_of(kBehindHost), rest.size()));
    }
    if (rest.empty()) return true;
    return kBehindHost.find(rest.front()) != TextView::npos && rest.find_first_of(kBlanks) == TextView::npos;
}

/// Whether the first units are a host, and not just a word.
bool IsHost(TextView text, std::size_t size) {
    const TextView name = text.substr(0, size), rest = text.substr(size);
    if (name.empty() || !MayFollowHost(rest)) return false;
    return name.find(u'.') != TextView::npos || name.starts_with(u'[') || name == u"localhost" ||
           rest.starts_with(u':');
}

bool LooksLikeHost(TextView text) { return IsHost(text, SizeOfNumbers(text)) || IsHost(text, SizeOfName(text)); }

// The product appends words to these addresses as they are; whatever they contain must arrive at the service.
std::optional<Text> WithWords(TextView text) {
    for (const TextView endpoint : {Endpoints::kSearch, Endpoints::kShop, Endpoints::kFind})
        if (text.starts_with(endpoint)) return Text(endpoint) + PercentEncodedText(text.substr(endpoint.size()));
    return std::nullopt;
}

/// An address, with or without its scheme; nothing for any other text.
std::optional<TypedAddress> AsAddress(TextView text, AddressCheck isAddress) {
    if (HoldsHalf(text)) return std::nullopt;
    if (HasScheme(text)) {
        if (!isAddress(text)) return std::nullopt;
        return TypedAddress{TypedKind::Address, Text(text)};
    }
    if (!LooksLikeHost(text)) return std::nullopt;
    const Text secure = Text(u"https://").append(text);
    if (!isAddress(secure)) return std::nullopt;
    return TypedAddress{TypedKind::Host, secure, Text(u"http://").append(text)};
}

} // namespace

TypedAddress MeaningOf(TextView typed, AddressCheck isAddress) {
    // As who looks whether an address may open reads it.
    const TextView text = WithoutByteOrderMark(Address::Trimmed(typed));
    if (text.empty() || Address::CaseFolded(text.substr(0, kScriptStart.size())) == kScriptStart)
        return {TypedKind::Nothing, Text(Address::kBlank)};
    if (const auto words = WithWords(WithoutByteOrderMark(typed))) return {TypedKind::Words, *words};
    if (MailAddress::IsMail(text)) return {TypedKind::Mail, MailAddress::Encoded(text)};
    // From which folder another path was meant, nobody knows here.
    if (text.starts_with(u'/')) return {TypedKind::Path, Text(text)};
    if (auto address = AsAddress(text, isAddress)) return *std::move(address);
    return {TypedKind::Words, Text(Endpoints::kSearch) + PercentEncodedText(text)};
}

} // namespace tessa

#include "base/Address.h"

#include "base/OwnAddresses.h"

#include <algorithm>
#include <array>

namespace tessa {

namespace {

constexpr std::array kHostSchemes{TextView(u"http"), TextView(u"https"), TextView(u"ftp"), TextView(u"ws"),
                                  TextView(u"wss")};
constexpr TextView kSourcePrefix = u"view-source:";
constexpr TextView kWorldWideWeb = u"www.";
constexpr TextView kSchemeEnd = u"://";
constexpr TextView kEndsHost = u"/?#";

bool IsBlank(char16_t unit) {
    return unit <= 0x20 || (unit >= 0x7F && unit <= 0xA0) || unit == 0x1680 || (unit >= 0x2000 && unit <= 0x200A) ||
           unit == 0x2028 || unit == 0x2029 || unit == 0x202F || unit == 0x205F || unit == 0x3000;
}

bool BeginsLike(TextView text, TextView beginning) {
    return text.size() >= beginning.size() &&
           std::ranges::equal(text.substr(0, beginning.size()), beginning, {}, SmallLetter);
}

bool NamesPage(TextView fragment) { return fragment.starts_with(u"#!") || fragment.starts_with(u"#/"); }

/// User, host and port of a web address, as a part of the text given.
TextView AuthorityIn(TextView address) {
    TextView rest = Address::Trimmed(address);
    while (BeginsLike(rest, kSourcePrefix)) rest.remove_prefix(kSourcePrefix.size());
    const std::size_t colon = rest.find(u':');
    const bool leadsToHost = colon != TextView::npos && std::ranges::any_of(kHostSchemes, [&](TextView scheme) {
                                 return scheme.size() == colon && BeginsLike(rest, scheme);
                             });
    if (!leadsToHost) return {};
    const std::size_t first = rest.find_first_not_of(u"/\\", colon + 1);
    if (first == TextView::npos) return {};
    rest.remove_prefix(first);
    return rest.substr(0, rest.find_first_of(u"/\\?#"));
}

} // namespace

namespace Address {

TextView Trimmed(TextView text) { return TrimmedOf(text, IsBlank); }

bool ComesBack(TextView address) { return !address.starts_with(OwnAddresses::kPreviews); }

Text CaseFolded(TextView text) {
    Text folded = InSmallLetters(text);
    std::ranges::replace(folded, char16_t{0x017F}, u's');
    std::ranges::replace(folded, char16_t{0x212A}, u'k');
    return folded;
}

Text SchemeOf(TextView address) {
    const std::size_t colon = address.find(u':');
    return colon == TextView::npos ? Text() : InSmallLetters(address.substr(0, colon));
}

bool BeginsWithPort(TextView text) {
    const TextView digits = text.substr(0, text.find_first_of(u"/?#"));
    return !digits.empty() && digits.size() <= 5 &&
           std::ranges::all_of(digits, [](char16_t unit) { return unit >= u'0' && unit <= u'9'; });
}

TextView HostIn(TextView address) {
    TextView host = AuthorityIn(address);
    if (const std::size_t user = host.rfind(u'@'); user != TextView::npos) host.remove_prefix(user + 1);
    // The colons of a numbered address stand between brackets.
    const std::size_t behind = host.starts_with(u'[') ? host.find(u']') : 0;
    const std::size_t port = behind == TextView::npos ? TextView::npos : host.find(u':', behind);
    return host.substr(0, port);
}

Text WithoutUser(TextView address) {
    const TextView authority = AuthorityIn(address);
    const std::size_t user = authority.rfind(u'@');
    if (user == TextView::npos) return Text(address);
    const auto start = static_cast<std::size_t>(authority.data() - address.data());
    return Text(address.substr(0, start)).append(address.substr(start + user + 1));
}

Text PageOf(TextView address) {
    const std::size_t fragmentAt = std::min(address.find(u'#'), address.size());
    const TextView fragment = address.substr(fragmentAt);
    TextView rest = address.substr(0, fragmentAt);
    const std::size_t queryAt = std::min(rest.find(u'?'), rest.size());
    const TextView query = rest.substr(queryAt);
    rest = rest.substr(0, queryAt);
    Text page;
    if (const std::size_t scheme = rest.find(kSchemeEnd); scheme != TextView::npos) {
        const std::size_t hostAt = scheme + kSchemeEnd.size();
        const std::size_t hostEnd = std::min(rest.find_first_of(kEndsHost, hostAt), rest.size());
        Text host = InSmallLetters(rest.substr(hostAt, hostEnd - hostAt));
        if (host.starts_with(kWorldWideWeb)) host.erase(0, kWorldWideWeb.size());
        page = InSmallLetters(rest.substr(0, hostAt)) + host;
        rest.remove_prefix(hostEnd);
    }
    if (rest.ends_with(u'/')) rest.remove_suffix(1);
    page.append(rest).append(query);
    return NamesPage(fragment) ? page.append(fragment) : page;
}

} // namespace Address

} // namespace tessa

#include "address/MailAddress.h"

#include "address/Endpoints.h"
#include "base/Address.h"
#include "base/Percent.h"

#include <algorithm>
#include <array>
#include <optional>

namespace tessa {

namespace {

constexpr TextView kMailScheme = u"mailto:";
constexpr TextView kLinkStart = u"mailto:?subject=";
constexpr TextView kBodyStart = u"&body=";
constexpr std::array kFieldsOfPages{TextView(u"subject"), TextView(u"body"), TextView(u"to"), TextView(u"cc"),
                                    TextView(u"bcc")};

// One line of a mail's head must not become two.
Text EncodedLine(TextView text) {
    Text line(text);
    std::ranges::replace_if(
        line, [](char16_t unit) { return unit < 0x20 || (unit >= 0x7F && unit < 0xA0); }, u' ');
    return PercentEncodedText(line);
}

// A link sent by mail: a title and, in brackets, the address, which is the body once more. Title and address may hold
// what parts the two as well.
std::optional<Text> LinkMail(TextView address) {
    if (!address.starts_with(kLinkStart)) return std::nullopt;
    const TextView rest = address.substr(kLinkStart.size());
    for (std::size_t at = rest.find(kBodyStart); at != TextView::npos; at = rest.find(kBodyStart, at + 1)) {
        const TextView subject = rest.substr(0, at), body = rest.substr(at + kBodyStart.size());
        if (!subject.ends_with(Text(u" (").append(body) + u')')) continue;
        return Text(kLinkStart) + EncodedLine(subject) + Text(kBodyStart) + PercentEncodedText(body);
    }
    return std::nullopt;
}

std::optional<Text> MakersMail(TextView address) {
    const Text start = Text(kMailScheme).append(Endpoints::kSupportMailbox) + u"?subject=";
    if (!address.starts_with(start)) return std::nullopt;
    return start + EncodedLine(address.substr(start.size()));
}

bool IsHexDigit(char16_t unit) {
    return (unit >= u'0' && unit <= u'9') || (unit >= u'a' && unit <= u'f') || (unit >= u'A' && unit <= u'F');
}

bool IsEscape(TextView text, std::size_t at) {
    return at + 2 < text.size() && IsHexDigit(text[at + 1]) && IsHexDigit(text[at + 2]);
}

bool MayFillIn(TextView field) {
    const Text encoded(field.substr(0, field.find(u'=')));
    const auto name = FromUtf8(PercentDecoded(ToUtf8(encoded)));
    return name && std::ranges::find(kFieldsOfPages, Address::CaseFolded(*name)) != kFieldsOfPages.end();
}

} // namespace

namespace MailAddress {

bool IsMail(TextView address) { return InSmallLetters(address.substr(0, kMailScheme.size())) == kMailScheme; }

Text Encoded(TextView address) {
    if (auto link = LinkMail(address)) return *std::move(link);
    if (auto mail = MakersMail(address)) return *std::move(mail);
    Text mended;
    for (std::size_t at = 0; at < address.size(); ++at) {
        const char16_t unit = address[at];
        mended += unit;
        if (unit == u'%' && !IsEscape(address, at)) mended += u"25";
        // A mail has no place to scroll to.
        if (unit == u'#') mended.replace(mended.size() - 1, 1, u"%23");
    }
    return mended;
}

Text FieldsFromPage(TextView fields) {
    Text kept;
    while (!fields.empty()) {
        const TextView field = fields.substr(0, fields.find(u'&'));
        fields.remove_prefix(std::min(field.size() + 1, fields.size()));
        if (!MayFillIn(field)) continue;
        if (!kept.empty()) kept += u'&';
        kept += field;
    }
    return kept;
}

} // namespace MailAddress

} // namespace tessa

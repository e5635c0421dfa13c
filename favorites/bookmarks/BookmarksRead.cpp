#include "favorites/bookmarks/BookmarksRead.h"

#include "base/LinkTrust.h"

#include <cstring>
#include <libxml/HTMLparser.h>
#include <memory>
#include <utility>

namespace tessa {

namespace {

constexpr std::size_t kDeepestRead = 64;

/// What is known while the file is read from its beginning to its end. A heading names the list that follows it.
struct Reading {
    BookmarkFolder all;
    std::vector<BookmarkFolder*> open{&all}; ///< the list that is open and those around it
    Text heading;
    Text address;
    std::string text; ///< what stands in the heading or link that is open
    bool collecting = false;
};

Text OneSpaced(const std::string& bytes) {
    Text text;
    for (const char16_t unit : FromBytes(bytes)) {
        const bool blank = unit <= 0x20;
        if (!blank || (!text.empty() && text.back() != u' ')) text += blank ? u' ' : unit;
    }
    if (text.ends_with(u' ')) text.pop_back();
    return text;
}

bool HasName(const xmlChar* name, const char* tag) {
    return std::strcmp(reinterpret_cast<const char*>(name), tag) == 0;
}

Text Attribute(const xmlChar** attributes, const char* name) {
    for (; attributes && attributes[0]; attributes += 2) {
        if (HasName(attributes[0], name) && attributes[1])
            return FromBytes(reinterpret_cast<const char*>(attributes[1]));
    }
    return {};
}

void OpenList(Reading& reading) {
    BookmarkFolder* above = reading.open.back();
    const bool own = !reading.heading.empty() && reading.open.size() < kDeepestRead;
    if (own) above->Folders.push_back({std::exchange(reading.heading, {}), {}, {}});
    reading.open.push_back(own ? &above->Folders.back() : above);
}

void Start(void* data, const xmlChar* name, const xmlChar** attributes) {
    auto& reading = *static_cast<Reading*>(data);
    if (HasName(name, "dl")) OpenList(reading);
    if (!HasName(name, "a") && !HasName(name, "h3")) return;
    reading.collecting = true;
    reading.text.clear();
    reading.address = HasName(name, "a") ? Attribute(attributes, "href") : Text();
}

// A line end in an address would begin a new line in the files that keep addresses.
void AddLink(Reading& reading) {
    std::erase_if(reading.address, [](char16_t unit) { return unit < 0x20; });
    const bool wanted = !reading.address.empty() && !reading.address.starts_with(u"place:") &&
                        TrustOf(reading.address, LinkSource::Favorite) != LinkTrust::Never;
    if (wanted) reading.open.back()->Links.push_back({OneSpaced(reading.text), reading.address});
    reading.address.clear();
}

void End(void* data, const xmlChar* name) {
    auto& reading = *static_cast<Reading*>(data);
    if (HasName(name, "dl") && reading.open.size() > 1) reading.open.pop_back();
    if (HasName(name, "h3")) reading.heading = OneSpaced(reading.text);
    if (HasName(name, "a")) AddLink(reading);
    if (HasName(name, "a") || HasName(name, "h3")) reading.collecting = false;
}

void Characters(void* data, const xmlChar* text, int length) {
    auto& reading = *static_cast<Reading*>(data);
    if (reading.collecting) reading.text.append(reinterpret_cast<const char*>(text), static_cast<std::size_t>(length));
}

} // namespace

BookmarkFolder Bookmarks::Read(std::string_view html) {
    Reading reading;
    const std::string utf8 = ToUtf8(FromBytes(html.substr(0, kMostBytes)));
    const std::unique_ptr<htmlParserCtxt, decltype(&htmlFreeParserCtxt)> parser(htmlNewParserCtxt(),
                                                                                &htmlFreeParserCtxt);
    if (!parser) return {};
    xmlSAXHandler handler{};
    handler.startElement = Start;
    handler.endElement = End;
    handler.characters = Characters;
    handler.cdataBlock = Characters;
    *parser->sax = handler;
    parser->userData = &reading;
    constexpr int kOptions = HTML_PARSE_RECOVER | HTML_PARSE_NOERROR | HTML_PARSE_NOWARNING | HTML_PARSE_NONET;
    xmlFreeDoc(
        htmlCtxtReadMemory(parser.get(), utf8.data(), static_cast<int>(utf8.size()), nullptr, "UTF-8", kOptions));
    return std::move(reading.all);
}

} // namespace tessa

#include "blocking/EmptyResources.h"

#include <array>
#include <utility>

namespace tessa {

namespace {

using NamedResource = std::pair<std::string_view, EmptyResource>;

constexpr std::array kResourceNames{
    NamedResource{"noopjs", EmptyResource::Script},
    NamedResource{"noop.js", EmptyResource::Script},
    NamedResource{"blank-js", EmptyResource::Script},
    NamedResource{"empty.js", EmptyResource::Script},
    NamedResource{"noop-0.1s.js", EmptyResource::Script},
    NamedResource{"nooptext", EmptyResource::Text},
    NamedResource{"noop.txt", EmptyResource::Text},
    NamedResource{"blank-text", EmptyResource::Text},
    NamedResource{"empty", EmptyResource::Text},
    NamedResource{"none", EmptyResource::None},
    NamedResource{"noopcss", EmptyResource::Style},
    NamedResource{"noop.css", EmptyResource::Style},
    NamedResource{"blank-css", EmptyResource::Style},
    NamedResource{"noopframe", EmptyResource::Page},
    NamedResource{"noop.html", EmptyResource::Page},
    NamedResource{"blank-html", EmptyResource::Page},
    NamedResource{"1x1.gif", EmptyResource::Picture},
    NamedResource{"1x1-transparent.gif", EmptyResource::Picture},
    NamedResource{"1x1-transparent-gif", EmptyResource::Picture},
    NamedResource{"2x2.png", EmptyResource::Picture},
    NamedResource{"2x2-transparent.png", EmptyResource::Picture},
    NamedResource{"2x2-transparent-png", EmptyResource::Picture},
    NamedResource{"3x2.png", EmptyResource::Picture},
    NamedResource{"3x2-transparent.png", EmptyResource::Picture},
    NamedResource{"3x2-transparent-png", EmptyResource::Picture},
    NamedResource{"32x32.png", EmptyResource::Picture},
    NamedResource{"32x32-transparent.png", EmptyResource::Picture},
    NamedResource{"32x32-transparent-png", EmptyResource::Picture},
    NamedResource{"noop.json", EmptyResource::Json},
    NamedResource{"noopvast-2.0", EmptyResource::Xml},
    NamedResource{"noopvast-3.0", EmptyResource::Xml},
    NamedResource{"noopvast-4.0", EmptyResource::Xml},
    NamedResource{"noopvmap-1.0", EmptyResource::Xml},
    NamedResource{"noop-vmap1.0.xml", EmptyResource::Xml},
};

// One transparent point.
constexpr std::string_view
    kPicture("GIF89a\x01\0\x01\0\x80\0\0\0\0\0\0\0\0!\xF9\x04\x01\0\0\0\0,\0\0\0\0\x01\0\x01\0\0\x02\x02"
             "D\x01\0;",
             43);

} // namespace

EmptyResource EmptyResourceOf(std::string_view name) {
    for (const auto& [known, resource] : kResourceNames)
        if (known == name) return resource;
    return EmptyResource::None;
}

std::string_view MediaTypeOf(EmptyResource resource) {
    switch (resource) {
    case EmptyResource::Script:
        return "application/javascript";
    case EmptyResource::Style:
        return "text/css";
    case EmptyResource::Page:
        return "text/html";
    case EmptyResource::Picture:
        return "image/gif";
    case EmptyResource::Json:
        return "application/json";
    case EmptyResource::Xml:
        return "text/xml";
    case EmptyResource::None:
    case EmptyResource::Text:
        break;
    }
    return "text/plain";
}

std::string_view BytesOf(EmptyResource resource) {
    switch (resource) {
    case EmptyResource::Script:
        return "(function() {})();\n";
    case EmptyResource::Page:
        return "<!DOCTYPE html>\n";
    case EmptyResource::Picture:
        return kPicture;
    case EmptyResource::Json:
        return "{}\n";
    case EmptyResource::Xml:
        return "<VAST version=\"2.0\"></VAST>\n";
    case EmptyResource::None:
    case EmptyResource::Text:
    case EmptyResource::Style:
        break;
    }
    return {};
}

} // namespace tessa

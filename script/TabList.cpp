#include "script/TabList.h"

#include "base/PlainText.h"
#include "base/Text.h"

namespace tessa {

namespace {

constexpr char32_t kFirstPlain = 0x20;

std::string HexUnit(char16_t unit) {
    std::string escaped = "\\u0000";
    for (std::size_t at = 5; at >= 2; --at, unit = static_cast<char16_t>(unit >> 4))
        escaped[at] = "0123456789abcdef"[unit & 15];
    return escaped;
}

std::string JsonUnit(char16_t unit) {
    if (unit == u'"' || unit == u'\\') return {'\\', static_cast<char>(unit)};
    if (unit == u'\n') return "\\n";
    if (unit == u'\t') return "\\t";
    return HexUnit(unit);
}

std::string WordsInJson(const std::string& words) {
    std::string list = "[";
    for (std::size_t begin = 0; begin < words.size();) {
        const std::size_t end = std::min(words.find(' ', begin), words.size());
        list += (list.size() > 1 ? ", " : "") + TabList::JsonText(words.substr(begin, end - begin));
        begin = end + 1;
    }
    return list + "]";
}

} // namespace

namespace TabList {

std::string JsonText(const std::string& text) {
    std::string json = "\"";
    const Text units = FromUtf8(text).value_or(FromBytes(text));
    std::size_t plainFrom = 0;
    const auto takePlain = [&](std::size_t until) {
        json += ToUtf8(TextView(units).substr(plainFrom, until - plainFrom));
        plainFrom = until + 1;
    };
    for (std::size_t at = 0; at < units.size(); ++at) {
        const char16_t unit = units[at];
        if (unit >= kFirstPlain && unit != u'"' && unit != u'\\' && unit != 0x7F) continue;
        takePlain(at);
        json += JsonUnit(unit);
    }
    takePlain(units.size());
    return json + "\"";
}

std::string Lines(std::span<const ScriptTab> tabs) {
    std::string lines;
    for (const ScriptTab& tab : tabs) {
        lines += std::to_string(tab.number);
        for (const std::string* field : {&tab.state, &tab.title, &tab.address, &tab.group})
            lines += '\t' + WithoutControls(*field);
        lines += '\n';
    }
    return lines;
}

std::string CheckLines(std::span<const ScriptTab> lines) {
    std::string all;
    for (const ScriptTab& line : lines)
        all += WithoutControls(line.state) + '\t' + WithoutControls(line.address) + '\t' + WithoutControls(line.group) +
               '\n';
    return all;
}

std::string CheckJson(std::span<const ScriptTab> lines) {
    std::string json = "[";
    for (const ScriptTab& line : lines) {
        json += json.size() > 1 ? ",\n " : "";
        json += "{\"address\": " + JsonText(line.address) + ", \"health\": " + JsonText(line.state) +
                ", \"status\": " + std::to_string(line.number) + ", \"moved\": " + JsonText(line.group) +
                ", \"words\": " + JsonText(line.title) + "}";
    }
    return json + "]\n";
}

std::string Json(std::span<const ScriptTab> tabs) {
    std::string json = "[";
    for (const ScriptTab& tab : tabs) {
        json += json.size() > 1 ? ",\n " : "";
        json += "{\"number\": " + std::to_string(tab.number) + ", \"title\": " + JsonText(tab.title) +
                ", \"address\": " + JsonText(tab.address) + ", \"group\": " + JsonText(tab.group) +
                ", \"state\": " + WordsInJson(tab.state) + "}";
    }
    return json + "]\n";
}

} // namespace TabList

} // namespace tessa

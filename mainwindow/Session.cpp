#include "mainwindow/Session.h"

#include "common/Address.h"

#include <algorithm>

namespace {

constexpr std::string_view kHeader = "TessaView session 1";
constexpr std::string_view kTime = "time=", kEnded = "ended=", kSettled = "settled=", kSelected = "selected=";
constexpr std::string_view kPage = "page=";

std::string OneLineBytes(TextView text) {
    std::string bytes = ToUtf8(text);
    std::ranges::replace_if(
        bytes, [](char each) { return static_cast<unsigned char>(each) < ' '; }, ' ');
    return bytes;
}

std::int64_t Number(std::string_view digits) {
    std::int64_t number = 0;
    for (const char digit : digits) {
        if (digit < '0' || digit > '9' || number > INT64_MAX / 100) break;
        number = number * 10 + (digit - '0');
    }
    return number;
}

SessionPage PageOf(std::string_view line) {
    const auto tab = line.find('\t');
    if (tab == std::string_view::npos) return {FromBytes(line), {}};
    return {FromBytes(line.substr(0, tab)), FromBytes(line.substr(tab + 1))};
}

void Read(Session& session, std::string_view line) {
    const auto value = [&](std::string_view name) -> std::optional<std::string_view> {
        if (!line.starts_with(name)) return std::nullopt;
        return line.substr(name.size());
    };
    if (const auto time = value(kTime)) session.Time = Number(*time);
    if (const auto ended = value(kEnded)) session.Ended = *ended == "1";
    if (const auto settled = value(kSettled)) session.Settled = *settled == "1";
    if (const auto selected = value(kSelected)) session.Selected = static_cast<std::size_t>(Number(*selected));
    if (const auto page = value(kPage)) session.Pages.push_back(PageOf(*page));
}

} // namespace

std::string SessionBytes(const Session& session) {
    std::string bytes(kHeader);
    const auto add = [&](std::string_view name, const std::string& value) {
        bytes += '\n';
        bytes += name;
        bytes += value;
    };
    add(kTime, std::to_string(session.Time));
    add(kEnded, session.Ended ? "1" : "0");
    add(kSettled, session.Settled ? "1" : "0");
    add(kSelected, std::to_string(session.Selected));
    for (const SessionPage& page : session.Pages)
        add(kPage, OneLineBytes(page.Address) + '\t' + OneLineBytes(page.Title));
    return bytes + '\n';
}

std::optional<Session> SessionFromBytes(std::string_view bytes) {
    Session session;
    bool first = true;
    for (auto end = bytes.find('\n'); end != std::string_view::npos; end = bytes.find('\n')) {
        const std::string_view line = bytes.substr(0, end);
        if (first && line != kHeader) return std::nullopt;
        if (!first) Read(session, line);
        first = false;
        bytes.remove_prefix(end + 1);
    }
    if (first) return std::nullopt;
    if (session.Selected > session.Pages.size()) session.Selected = 0;
    return session;
}

bool IsWorthKeeping(TextView address) {
    return !address.empty() && address != Address::kBlank && !address.starts_with(u"tessaview:");
}

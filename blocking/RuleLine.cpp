#include "blocking/RuleLine.h"

#include "blocking/NetworkRuleReader.h"
#include "blocking/RuleText.h"
#include "blocking/libraries/SiteDomain.h"

#include <algorithm>
#include <array>

namespace tessa {

using namespace ruletext;

namespace {

constexpr std::size_t kLongestLine = std::size_t{64} << 10;

constexpr std::array<std::string_view, 10> kOwnNames{
    "localhost",    "localhost.localdomain", "local",        "broadcasthost",  "ip6-localhost",
    "ip6-loopback", "ip6-localnet",          "ip6-allnodes", "ip6-allrouters", "0.0.0.0"};

bool IsComment(std::string_view line) {
    if (line.starts_with('!')) return true;
    if (line.starts_with('[')) return line.ends_with(']') && line.find('=') == std::string_view::npos;
    // In hosts files; a hiding rule goes on behind its signs.
    if (!line.starts_with('#')) return false;
    const std::size_t end = line.find_first_not_of('#');
    return end == std::string_view::npos || end > 3 || (line[end] == ' ' || line[end] == '\t') ||
           (end == 1 && FindHidingSign(line).At == std::string_view::npos);
}

// The number that hosts files send hosts to; nothing else begins a line of rules and ends in a blank.
bool TakeHostsNumber(std::string_view& line) {
    const std::size_t end = line.find_first_of(" \t");
    const std::string_view number = line.substr(0, end);
    const bool isNumber = number == "0.0.0.0" || number == "127.0.0.1" || number == "0" || number == "::" ||
                          number == "::1" || number == "255.255.255.255" || number.starts_with("fe80::") ||
                          number.starts_with("ff0");
    if (end == std::string_view::npos || !isNumber) return false;
    line.remove_prefix(end);
    return true;
}

RuleLine HostsLine(std::string_view names) {
    RuleLine read;
    names = names.substr(0, names.find('#'));
    bool any = false;
    for (names = Trimmed(names); !names.empty(); names = Trimmed(names)) {
        const std::size_t end = std::min(names.find_first_of(" \t"), names.size());
        const std::string host = DomainOf(names.substr(0, end));
        names.remove_prefix(end);
        any = true;
        const bool own = std::ranges::count(kOwnNames, host) > 0;
        if (!host.empty() && !own && !host.ends_with('*') && !IsNumericHost(host)) read.Hosts.push_back(host);
        if (host.empty() || (IsNumericHost(host) && !own)) read.Trouble = RuleTrouble::BadHost;
    }
    if (!any) read.Trouble = RuleTrouble::BadHost;
    if (!read.Hosts.empty())
        read.Kind = LineKind::Hosts, read.Trouble = RuleTrouble::None;
    else if (read.Trouble != RuleTrouble::None)
        read.Kind = LineKind::Unknown;
    return read;
}

template<typename Read>
void Settle(RuleLine& line, LineKind kind, const Read& read) {
    line.Kind = read.Trouble == RuleTrouble::None ? kind : LineKind::Unknown;
    line.Trouble = read.Trouble;
}

} // namespace

RuleLine ReadRuleLine(std::string_view line) {
    RuleLine read;
    line = Trimmed(line);
    if (line.empty() || IsComment(line)) return read;
    if (line.size() > kLongestLine) return read.Kind = LineKind::Unknown, read.Trouble = RuleTrouble::TooLong, read;
    if (std::string_view names = line; TakeHostsNumber(names)) return HostsLine(names);
    if (const HidingSign sign = FindHidingSign(line); sign.At != std::string_view::npos) {
        HidingRuleRead hiding = ReadHidingRule(line, sign);
        Settle(read, LineKind::Hiding, hiding);
        read.Hiding = std::move(hiding.Rule);
        return read;
    }
    NetworkRuleRead network = ReadNetworkRule(line);
    Settle(read, LineKind::Network, network);
    read.Network = std::move(network.Rule);
    return read;
}

std::string_view UncutLines(std::string_view list) {
    const std::size_t end = list.rfind('\n');
    return end == std::string_view::npos ? list : list.substr(0, end + 1);
}

ListLines::ListLines(std::string_view bytes) : m_rest(bytes) {
    if (m_rest.starts_with("\xEF\xBB\xBF")) m_rest.remove_prefix(3);
}

bool ListLines::Next(std::string_view& line) {
    if (m_rest.empty()) return false;
    line = Trimmed(TakePart(m_rest, '\n'));
    if (line.starts_with("!#")) FollowCondition(line);
    return true;
}

void ListLines::FollowCondition(std::string_view line) {
    if (line.starts_with("!#if")) {
        ++m_depth;
        if (m_leftOut == 0) m_leftOut = m_depth;
    } else if (line.starts_with("!#else") && m_depth > 0) {
        m_leftOut = m_leftOut == m_depth ? 0 : m_leftOut == 0 ? m_depth : m_leftOut;
    } else if (line.starts_with("!#endif") && m_depth > 0) {
        if (m_leftOut == m_depth) m_leftOut = 0;
        --m_depth;
    }
}

} // namespace tessa

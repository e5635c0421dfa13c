#include "blocking/RuleCompiler.h"

#include "blocking/RuleImage.h"

namespace tessa {

namespace {

// Whether it is text at all: a picture or a program has zeros in its first bytes.
bool IsBinary(std::string_view bytes) { return bytes.substr(0, 4096).find('\0') != std::string_view::npos; }

} // namespace

std::size_t ListReport::UnknownLines() const {
    std::size_t all = 0;
    for (const auto& [trouble, count] : Unknown) all += count;
    return all;
}

ListReport RuleCompiler::AddList(std::string_view bytes) {
    ListReport report;
    if (!IsBinary(bytes)) {
        ListLines lines(bytes.size() < kMostListBytes ? bytes : UncutLines(bytes.substr(0, kMostListBytes)));
        for (std::string_view line; lines.Next(line);) {
            RuleLine read = ReadRuleLine(line);
            if (read.Kind == LineKind::Nothing) continue;
            if (lines.IsLeftOut()) read.Trouble = RuleTrouble::LeftOut, read.Kind = LineKind::Unknown;
            const RuleTrouble trouble = read.Kind == LineKind::Unknown ? read.Trouble : Add(read, line);
            if (trouble != RuleTrouble::None)
                ++report.Unknown[trouble];
            else if (read.Kind == LineKind::Hiding)
                ++report.Hiding;
            else
                report.Network += read.Kind == LineKind::Hosts ? read.Hosts.size() : 1;
        }
    }
    ++m_list;
    m_lists.push_back({report.Network + report.Hiding, report.UnknownLines()});
    return report;
}

RuleTrouble RuleCompiler::Add(const RuleLine& read, std::string_view line) {
    if (m_network.Count() + m_hiding.Count() >= kMostRules) return RuleTrouble::TooSlow;
    if (read.Kind == LineKind::Hiding) return m_hiding.Add(read.Hiding), RuleTrouble::None;
    if (read.Kind == LineKind::Network) return m_network.Add(read.Network, line, m_list);
    for (const std::string& host : read.Hosts) (void)m_network.Add(RuleForHost(host), line, m_list);
    return RuleTrouble::None;
}

std::string RuleCompiler::Image(std::uint64_t fingerprint) {
    RuleImageWriter writer;
    m_network.WriteTo(writer);
    m_hiding.WriteTo(writer);
    writer.Set(ImagePart::Lists, std::span<const PackedList>(m_lists));
    writer.Set(ImagePart::Strings, std::span<const char>(m_strings));
    return writer.Bytes(fingerprint);
}

} // namespace tessa

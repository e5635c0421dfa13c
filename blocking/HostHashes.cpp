#include "blocking/HostHashes.h"

#include <algorithm>

namespace tessa {

namespace {

constexpr std::uint64_t kDomainStart = 0xCBF29CE484222325U, kAnySuffixStart = 0x9AE16A3B2F90404FU;
constexpr std::uint64_t kHashStep = 0x100000001B3U;

// From the end, so that all domains of a host are hashed in one go.
std::uint64_t Backwards(std::string_view text, std::uint64_t hash) {
    for (auto each = text.rbegin(); each != text.rend(); ++each)
        hash = (hash ^ static_cast<unsigned char>(*each)) * kHashStep;
    return hash;
}

} // namespace

std::uint64_t HashOfDomain(std::string_view domain) {
    if (domain.ends_with(".*")) return Backwards(domain.substr(0, domain.size() - 2), kAnySuffixStart);
    return Backwards(domain, kDomainStart);
}

HostHashes::HostHashes(std::string_view host, std::string_view site) {
    if (host.ends_with('.')) host.remove_suffix(1);
    Add(host, kDomainStart);
    // What stands before the public suffix.
    const std::size_t dot = site.find('.');
    if (dot == std::string_view::npos || site.size() > host.size()) return;
    Add(host.substr(0, host.size() - site.size() + dot), kAnySuffixStart);
}

void HostHashes::Add(std::string_view host, std::uint64_t start) {
    const std::size_t before = m_count;
    std::uint64_t hash = start;
    for (std::size_t at = host.size(); at > 0 && m_count < kMost; --at) {
        hash = (hash ^ static_cast<unsigned char>(host[at - 1])) * kHashStep;
        if (at == 1 || host[at - 2] == '.') m_all[m_count++] = hash;
    }
    std::reverse(m_all.begin() + static_cast<std::ptrdiff_t>(before),
                 m_all.begin() + static_cast<std::ptrdiff_t>(m_count));
}

} // namespace tessa

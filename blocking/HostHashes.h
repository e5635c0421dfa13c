#pragma once
#include <array>
#include <cstdint>
#include <string_view>

namespace tessa {

/// The name of a domain as rules have it; "example.*" stands for it under each public suffix.
[[nodiscard]] std::uint64_t HashOfDomain(std::string_view domain);

/// The names of a host and of all domains that it belongs to, the narrowest first. Allocates no memory.
class HostHashes {
public:
    HostHashes() = default;
    /// The host is in small letters; `site` is its `SiteDomainOf`.
    HostHashes(std::string_view host, std::string_view site);

    [[nodiscard]] const std::uint64_t* begin() const { return m_all.data(); }
    [[nodiscard]] const std::uint64_t* end() const { return m_all.data() + m_count; }

private:
    void Add(std::string_view host, std::uint64_t start);

    static constexpr std::size_t kMost = 32; ///< a host with more labels has none that anybody names
    std::array<std::uint64_t, kMost> m_all{};
    std::size_t m_count = 0;
};

} // namespace tessa

#include "blocking/RuleImage.h"

#include <cstring>

namespace tessa {

namespace {

// Changes with whatever an image holds, or what its arrays mean.
constexpr std::uint32_t kImageVersion = 4;
constexpr std::array<char, 8> kImageName{'T', 'V', 'b', 'l', 'o', 'c', 'k', '\n'};
constexpr std::uint32_t kByteOrder = 0x01020304;
constexpr std::uint64_t kImageAlign = 8;

std::uint64_t Aligned(std::uint64_t size) { return (size + kImageAlign - 1) / kImageAlign * kImageAlign; }

} // namespace

struct RuleImage::Head {
    std::array<char, 8> Name = kImageName;
    std::uint32_t Version = kImageVersion;
    std::uint32_t ByteOrder = kByteOrder;
    std::uint64_t Fingerprint = 0;
    std::uint64_t Checksum = 0; ///< of the parts' places and of all behind the head
    std::array<Range, kImageParts> Parts{};
};

std::uint64_t FingerprintOf(std::string_view bytes, std::uint64_t start) {
    constexpr std::uint64_t kStep = 0x9E3779B97F4A7C15U;
    std::uint64_t hash = start ^ (bytes.size() * kStep);
    const auto mix = [&hash](std::uint64_t word) {
        hash = (hash ^ word) * 0xD6E8FEB86659FD93U;
        hash ^= hash >> 32U;
    };
    while (bytes.size() >= sizeof(std::uint64_t)) {
        std::uint64_t word = 0;
        std::memcpy(&word, bytes.data(), sizeof word);
        mix(word);
        bytes.remove_prefix(sizeof word);
    }
    for (const char each : bytes) mix(static_cast<unsigned char>(each) + kStep);
    return hash;
}

namespace {

template<typename Places>
std::uint64_t ChecksumOf(const Places& places, std::string_view rest) {
    const std::string_view bytes(reinterpret_cast<const char*>(places.data()), sizeof places);
    return FingerprintOf(rest, FingerprintOf(bytes));
}

} // namespace

std::optional<RuleImage> RuleImage::Read(std::string bytes, std::uint64_t fingerprint) {
    Head head;
    if (bytes.size() < sizeof head) return std::nullopt;
    std::memcpy(&head, bytes.data(), sizeof head);
    if (head.Name != kImageName || head.Version != kImageVersion || head.ByteOrder != kByteOrder) return std::nullopt;
    if (head.Fingerprint != fingerprint) return std::nullopt;
    if (head.Checksum != ChecksumOf(head.Parts, std::string_view(bytes).substr(sizeof head))) return std::nullopt;
    for (const auto& [begin, size] : head.Parts)
        if (begin > bytes.size() || size > bytes.size() - begin || begin % kImageAlign != 0) return std::nullopt;
    RuleImage image;
    image.m_parts = head.Parts;
    image.m_bytes = std::make_shared<const std::string>(std::move(bytes));
    return image;
}

std::string RuleImageWriter::Bytes(std::uint64_t fingerprint) {
    RuleImage::Head head;
    head.Fingerprint = fingerprint;
    std::string bytes(sizeof head, '\0');
    for (std::size_t part = 0; part < kImageParts; ++part) {
        head.Parts.at(part) = {bytes.size(), m_parts.at(part).size()};
        bytes += m_parts.at(part);
        bytes.resize(Aligned(bytes.size()));
        m_parts.at(part) = {};
    }
    head.Checksum = ChecksumOf(head.Parts, std::string_view(bytes).substr(sizeof head));
    std::memcpy(bytes.data(), &head, sizeof head);
    return bytes;
}

} // namespace tessa

#pragma once
// Compiled rules are one run of bytes: a head, then arrays that name each other by numbers. So they are used as they
// lie in a file. Numbers stand as this processor has them; the head says so, and what another one has written is made
// anew.

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace tessa {

/// The arrays of an image, in their order.
enum class ImagePart : std::uint32_t {
    Strings,
    Rules,
    Fours, ///< of each rule, see `AddressFours`
    Words, ///< names of domains, see `PackedRule::Domains`
    ImportantSlots,
    ImportantLists,
    BlockingSlots,
    BlockingLists,
    ExceptionSlots,
    ExceptionLists,
    PageSlots,
    PageLists,
    RedirectSlots,
    RedirectLists,
    Selectors,
    SiteHiding,
    KeySlots,
    KeyLists,
    KeyParts,  ///< keys that are parts of attributes, see `KeyOfSelector`
    KeyStarts, ///< hashes of how keys begin, see `StartOfKey`
    AlwaysHidden,
    Lists, ///< a `PackedList` for each list
    Count,
};
inline constexpr std::size_t kImageParts = static_cast<std::size_t>(ImagePart::Count);

/// What an index of rules is for; its two arrays follow each other.
enum class RuleIndex : std::uint32_t { Important, Blocking, Exceptions, Pages, Redirects, Count };

/// A part of the strings.
struct PackedText {
    std::uint32_t Begin = 0, Length = 0;
};

/// Bits of `PackedRule::Flags`.
enum PackedFlag : std::uint32_t {
    kExceptionFlag = 1U << 0U,
    kAtStartFlag = 1U << 1U,
    kAtHostFlag = 1U << 2U,
    kAtEndFlag = 1U << 3U,
    kExpressionFlag = 1U << 4U,
    kMatchCaseFlag = 1U << 5U,
    kHostAloneFlag = 1U << 6U,
    kFirstPartyFlag = 1U << 7U,
    kThirdPartyFlag = 1U << 8U,
    kSomeSitesFlag = 1U << 9U, ///< names sites that it is for
    kResourceShift = 16U,      ///< behind it stands the `EmptyResource`
};

/// A network rule in an image.
struct PackedRule {
    std::uint32_t Flags = 0;
    std::uint32_t Types = 0;
    PackedText Pattern;
    PackedText Line;
    std::uint32_t Domains = 0; ///< place in `Words`, see `WriteDomains`; 0 for none
    std::uint32_t Targets = 0; ///< the same for hosts of requests
    std::uint32_t List = 0;    ///< which of the lists it stands in
};

/// What was made of a list.
struct PackedList {
    std::uint64_t Rules = 0, Unknown = 0;
};

/// What a hiding rule does on pages of a domain.
enum class SiteHidingKind : std::uint32_t { Hide, Not, NotGeneric, Show };
struct SiteHiding {
    std::uint64_t Domain = 0;
    std::uint32_t RuleAndKind = 0; ///< the kind in the last two bits
    std::uint32_t Selector = 0;
};

/// Reads an image. It keeps the bytes alive that it was made of. What an image names beyond its end is empty.
class RuleImage {
public:
    /// One without rules.
    RuleImage() = default;

    /// Nothing for bytes that are no image of this version and processor, or damaged. `fingerprint` says what it was
    /// made of, see `RuleImageWriter`.
    [[nodiscard]] static std::optional<RuleImage> Read(std::string bytes, std::uint64_t fingerprint);

    template<typename T>
    [[nodiscard]] std::span<const T> Part(ImagePart part) const {
        const auto [begin, size] = m_parts[static_cast<std::size_t>(part)];
        return {reinterpret_cast<const T*>(m_bytes->data() + begin), static_cast<std::size_t>(size / sizeof(T))};
    }
    [[nodiscard]] std::string_view TextAt(PackedText text) const {
        const auto all = Part<char>(ImagePart::Strings);
        if (text.Begin > all.size() || text.Length > all.size() - text.Begin) return {};
        return {all.data() + text.Begin, text.Length};
    }
    [[nodiscard]] std::size_t Size() const { return m_bytes->size(); }

private:
    struct Range {
        std::uint64_t Begin = 0, Size = 0;
    };
    friend class RuleImageWriter;
    struct Head;

    std::shared_ptr<const std::string> m_bytes = std::make_shared<const std::string>();
    std::array<Range, kImageParts> m_parts{};
};

/// Puts an image together.
class RuleImageWriter {
public:
    template<typename T>
    void Set(ImagePart part, std::span<const T> values) {
        m_parts.at(static_cast<std::size_t>(part))
            .assign(reinterpret_cast<const char*>(values.data()), values.size_bytes());
    }
    /// The image. `fingerprint` is a number that differs when what it was made of does.
    [[nodiscard]] std::string Bytes(std::uint64_t fingerprint);

private:
    std::array<std::string, kImageParts> m_parts;
};

/// A number that differs when the bytes do, made quickly.
[[nodiscard]] std::uint64_t FingerprintOf(std::string_view bytes, std::uint64_t start = 0);

} // namespace tessa

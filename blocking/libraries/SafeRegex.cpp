#include "blocking/libraries/SafeRegex.h"

#include <re2/re2.h>

namespace tessa {

namespace {

// What one expression may take, in bytes. Those of lists need some thousand.
constexpr std::int64_t kMostRegexMemory = 512 << 10;

re2::RE2::Options RegexOptions(SafeRegex::Letters letters) {
    re2::RE2::Options options;
    options.set_log_errors(false);
    options.set_case_sensitive(letters == SafeRegex::Letters::AsTheyStand);
    options.set_encoding(re2::RE2::Options::EncodingLatin1); // addresses are bytes
    options.set_never_capture(true);
    options.set_max_mem(kMostRegexMemory);
    return options;
}

} // namespace

struct SafeRegex::Compiled {
    Compiled(std::string_view expression, Letters letters)
        : regex(re2::StringPiece(expression.data(), expression.size()), RegexOptions(letters)) {}
    re2::RE2 regex;
};

SafeRegex::SafeRegex(std::string_view expression, Letters letters)
    : m_compiled(std::make_unique<Compiled>(expression, letters)) {}
SafeRegex::SafeRegex(SafeRegex&&) noexcept = default;
SafeRegex& SafeRegex::operator=(SafeRegex&&) noexcept = default;
SafeRegex::~SafeRegex() = default;

bool SafeRegex::IsValid() const { return m_compiled->regex.ok(); }

bool SafeRegex::Finds(std::string_view text) const {
    const re2::RE2& regex = m_compiled->regex;
    return regex.ok() && re2::RE2::PartialMatch(re2::StringPiece(text.data(), text.size()), regex);
}

} // namespace tessa

#pragma once
#include "base/Text.h"

namespace tessa {

/// What a text is that the user typed, or a page named.
enum class TypedKind {
    Nothing, ///< or a script, which is no address
    Words,   ///< to search for, or behind the address of a service
    Mail,
    Path,    ///< of this computer, from the root
    Address, ///< with its scheme
    Host     ///< without one
};

/// What a typed text leads to.
struct TypedAddress {
    TypedKind Kind = TypedKind::Nothing;
    /// An address; of a path, the path.
    Text Target;
    /// Where to go when `Target` cannot be connected to; empty when nowhere.
    Text Fallback{};
};

/// Whether that can be read as an address; what stands in it is the engine's business.
using AddressCheck = bool (*)(TextView address);

/// A full address, a host without a scheme, a local path, or words for the search partner. A host is tried with https,
/// then with http when that cannot connect. Nothing leads to about:blank. Scripts are no address: they lead to
/// about:blank too. What `isAddress` refuses is words.
[[nodiscard]] TypedAddress MeaningOf(TextView typed, AddressCheck isAddress);

} // namespace tessa

#pragma once
#include "base/Text.h"

namespace tessa {

/// Who answers for addresses of a scheme, and with what.
enum class SchemeKind {
    Web,
    Computer,  ///< files of this computer
    Mail,      ///< for another program, which the program knows how to ask
    Own,       ///< the program's own pages
    Document,  ///< the address is the page
    OfPage,    ///< of the engine, for what belongs to a page that is open
    About,     ///< the blank page, and the engine's inside
    Source,    ///< of the engine, which shows what another address leads to
    Script,    ///< what the engine would run
    OldScript, ///< what only engines of old ran
    Engine,    ///< the engine's inside
    Inner,     ///< with these the engine and the program speak to each other
    Other      ///< for other programs
};

/// `scheme` is what stands before the colon, in small letters.
[[nodiscard]] SchemeKind KindOfScheme(TextView scheme);

} // namespace tessa

#pragma once
#include "base/Text.h"

namespace tessa {

/// Why a line of a list does nothing.
enum class RuleTrouble {
    None,
    UnknownOption,     ///< an option that nobody here knows
    NeedsAnswers,      ///< would change what servers answer, or the address that is asked for
    BadExpression,     ///< a regular expression that is none, or needs more than reading once
    TooLong,           ///< no sane rule is
    MatchesEverything, ///< would stop, or let through, each request of each page, or hide all
    TooSlow,           ///< one of too many that each request would be held against
    BadDomain,         ///< an option or a hiding rule for what is no domain
    BadHost,           ///< a line of a hosts file without a host
    UnknownHiding,     ///< a hiding rule that needs more than a style sheet
    BadSelector,       ///< what is to be hidden is not said in the language of style sheets
    LeftOut,           ///< stands under a condition of another program
};

/// The same as a sentence for who wrote the rule; empty without trouble.
[[nodiscard]] TextView WordsOf(RuleTrouble trouble);

} // namespace tessa

#include "blocking/RuleTrouble.h"

namespace tessa {

TextView WordsOf(RuleTrouble trouble) {
    switch (trouble) {
    case RuleTrouble::None:
        break;
    case RuleTrouble::UnknownOption:
        return u"An option behind the $ is not known.";
    case RuleTrouble::NeedsAnswers:
        return u"TessaView cannot change answers of servers or addresses.";
    case RuleTrouble::BadExpression:
        return u"The regular expression cannot be used.";
    case RuleTrouble::TooLong:
        return u"The rule is too long.";
    case RuleTrouble::MatchesEverything:
        return u"The rule is about everything on every page.";
    case RuleTrouble::TooSlow:
        return u"There are too many rules of this kind.";
    case RuleTrouble::BadDomain:
        return u"What should be a domain is none.";
    case RuleTrouble::BadHost:
        return u"There is no host behind the number.";
    case RuleTrouble::UnknownHiding:
        return u"TessaView hides only what a style sheet can select.";
    case RuleTrouble::BadSelector:
        return u"The selector is not valid.";
    case RuleTrouble::LeftOut:
        return u"The rule is meant for another program.";
    }
    return {};
}

} // namespace tessa

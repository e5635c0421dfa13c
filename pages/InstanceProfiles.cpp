#include "pages/InstanceProfiles.h"

#include <string>

namespace tessa {

namespace {
Text ProfileNumber(int number) { return FromBytes(std::to_string(number)); }
} // namespace

int InstanceProfiles::Lowest(const std::function<Claim(int number)>& claim) {
    for (int number = 1; number <= kMost; ++number) {
        const Claim outcome = claim(number);
        if (outcome == Claim::Held) return number;
        // Further profiles lie beside it: there would be one without the first's cookies, and nobody would know why.
        if (outcome == Claim::Impossible) break;
    }
    return 0;
}

Text InstanceProfiles::Suffix(int number) { return number == 1 ? Text() : u"-" + ProfileNumber(number); }

InstanceProfiles::Words InstanceProfiles::WordsFor(int number) {
    if (number == 1) return {};
    if (number == 0)
        return {u"Nothing kept", u"Cookies, logins and what pages store are forgotten when this window closes.",
                u"The folder for cookies cannot be used. This window forgets cookies and logins when it closes."};
    const Text sign = u"Profile " + ProfileNumber(number);
    return {sign,
            u"This window keeps cookies, logins and what pages store in a profile of its own, apart from the other "
            u"windows of TessaView.",
            u"Another TessaView is open. This window has cookies and logins of its own: " + sign + u"."};
}

} // namespace tessa

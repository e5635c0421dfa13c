#include "startpage/OwnAccess.h"

#include "base/Address.h"
#include "base/OwnAddresses.h"

namespace tessa {

namespace OwnAccess {

Step StepFor(const OwnNavigation& navigation) {
    const NavigationCause cause = navigation.Cause;
    const bool followed = cause == NavigationCause::Link || cause == NavigationCause::Form;
    // Their links are their own.
    const bool atHome = navigation.MainFrame && navigation.FromOwnPage && followed;
    if (!navigation.ToOwnPage) return atHome ? Step::Follow : Step::Refuse;
    const bool byUser =
        cause == NavigationCause::Typed || cause == NavigationCause::History || cause == NavigationCause::Reload;
    return atHome || (navigation.MainFrame && byUser) ? Step::Go : Step::Refuse;
}

bool MayFetch(TextView asker) { return asker.empty() || Address::SchemeOf(asker) == OwnAddresses::kScheme; }

} // namespace OwnAccess

} // namespace tessa

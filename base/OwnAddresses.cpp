#include "base/OwnAddresses.h"

namespace tessa {

namespace OwnAddresses {

Page PageAt(TextView path) {
    if (path == PathOf(kStart)) return Page::Start;
    if (path == PathOf(kHelp)) return Page::Help;
    if (path == PathOf(kHistory)) return Page::History;
    if (path == PathOf(kPrivate)) return Page::Private;
    return path.starts_with(PathOf(kPreviews)) ? Page::Preview : Page::None;
}

} // namespace OwnAddresses

} // namespace tessa

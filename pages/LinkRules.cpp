#include "pages/LinkRules.h"

#include "base/Address.h"

namespace tessa {

bool MayOpenFromPage(TextView page, TextView address) {
    const Text scheme = Address::SchemeOf(address);
    if (scheme == u"http" || scheme == u"https") return true;
    return scheme == u"file" && Address::SchemeOf(page) == u"file";
}

bool MaySave(TextView address) {
    const Text scheme = Address::SchemeOf(address);
    return scheme == u"http" || scheme == u"https" || scheme == u"data" || scheme == u"blob";
}

} // namespace tessa

#include "pages/LoadWords.h"

#include "base/PlainText.h"

namespace tessa {

namespace {

constexpr std::size_t kHostInStatusBar = 60;
/// Units of an address that anybody reads.
constexpr std::size_t kMostOfLink = 1000;

Text AnswerWords(const Text& from, std::int32_t status) {
    const Text number = u" (" + Decimal(status) + u").";
    if (status == 404 || status == 410) return from + u" has no such page" + number;
    if (status == 401 || status == 403) return from + u" does not show this page to you" + number;
    if (status >= 500) return from + u" could not deliver the page" + number;
    return from + u" refused to deliver the page" + number;
}

} // namespace

namespace LoadWords {

Text Link(TextView address) { return PlainLine(address, kMostOfLink); }

Text Ended(LoadEnd end, TextView host, std::int32_t status) {
    const Text from = host.empty() ? Text(u"The server") : PlainLine(host, kHostInStatusBar);
    switch (end) {
    case LoadEnd::Done:
        return u"Done";
    case LoadEnd::Stopped:
        return {};
    case LoadEnd::NoHost:
        return from + u" could not be found.";
    case LoadEnd::Refused:
        return from + u" did not take the connection.";
    case LoadEnd::TimedOut:
        return from + u" did not answer.";
    case LoadEnd::Offline:
        return u"This computer is not connected to a network.";
    case LoadEnd::Certificate:
        return from + u" could not prove who it is.";
    case LoadEnd::NoFile:
        return u"There is no such file.";
    case LoadEnd::Answered:
        return AnswerWords(from, status);
    case LoadEnd::Failed:
        return u"The page could not be loaded.";
    }
    return {};
}

} // namespace LoadWords

} // namespace tessa

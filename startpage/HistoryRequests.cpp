#include "startpage/HistoryPage.h"

#include "base/Percent.h"

#include <algorithm>
#include <array>
#include <map>

namespace tessa {

namespace {

struct RequestName {
    TextView name;
    HistoryRequest::Kind kind;
};

constexpr std::array kRequests{
    RequestName{u"find", HistoryRequest::Kind::Find},
    RequestName{u"open", HistoryRequest::Kind::Open},
    RequestName{u"keep", HistoryRequest::Kind::Keep},
    RequestName{u"delete", HistoryRequest::Kind::Delete},
    RequestName{u"delete-site", HistoryRequest::Kind::DeleteSite},
    RequestName{u"delete-day", HistoryRequest::Kind::DeleteDay},
};

constexpr std::size_t kMostIds = 1000, kLongestField = 10'000;

std::int64_t NumberIn(TextView text) {
    std::int64_t number = 0;
    for (const char16_t unit : text) {
        if (unit < u'0' || unit > u'9' || number > 100'000'000'000'000) return 0;
        number = number * 10 + (unit - u'0');
    }
    return number;
}

std::vector<std::int64_t> NumbersIn(TextView text) {
    std::vector<std::int64_t> numbers;
    while (!text.empty() && numbers.size() < kMostIds) {
        const std::size_t end = text.find(u',');
        if (const std::int64_t number = NumberIn(text.substr(0, end)); number > 0) numbers.push_back(number);
        text.remove_prefix(end == TextView::npos ? text.size() : end + 1);
    }
    return numbers;
}

using RequestFields = std::map<Text, Text, std::less<>>;

RequestFields FieldsIn(TextView text) {
    RequestFields fields;
    while (!text.empty()) {
        const std::size_t end = text.find(u'&');
        const TextView field = text.substr(0, end);
        const std::size_t equals = field.find(u'=');
        if (equals != TextView::npos) {
            const auto value = FromUtf8(PercentDecoded(ToUtf8(field.substr(equals + 1))));
            fields[Text(field.substr(0, equals))] = value ? Text(FirstUnits(*value, kLongestField)) : Text();
        }
        text.remove_prefix(end == TextView::npos ? text.size() : end + 1);
    }
    return fields;
}

} // namespace

namespace HistoryPage {

std::optional<HistoryRequest> RequestIn(TextView message) {
    const std::size_t end = message.find(u'?');
    if (end == TextView::npos) return std::nullopt;
    const auto found = std::ranges::find(kRequests, message.substr(0, end), &RequestName::name);
    if (found == kRequests.end()) return std::nullopt;
    RequestFields fields = FieldsIn(message.substr(end + 1));
    return HistoryRequest{.What = found->kind,
                          .Number = NumberIn(fields[u"n"]),
                          .Words = fields[u"words"],
                          .Site = fields[u"site"],
                          .Group = fields[u"group"],
                          .Below = NumberIn(fields[u"below"]),
                          .Ids = NumbersIn(fields[u"ids"]),
                          .From = NumberIn(fields[u"from"]),
                          .Until = NumberIn(fields[u"until"])};
}

HistoryQuery QueryOf(const HistoryRequest& request) {
    const auto pieces = SearchText::PiecesOf(request.Words);
    return {.Match = SearchText::QueryOf(pieces),
            .Site = request.Site,
            .Group = request.Group,
            .Below = request.Below,
            .Most = kEntries,
            .Passages = !pieces.empty()};
}

} // namespace HistoryPage

} // namespace tessa

#include "groups/GroupHealth.h"

#include "base/Percent.h"
#include "base/os/AtomicFile.h"
#include "base/os/Paths.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

namespace tessa {

namespace {

constexpr TextView kFile = u"file://";
constexpr TextView kArchive = u"https://web.archive.org/web/%s";
constexpr TextView kItsAddress = u"%s";
constexpr TextView kHostEnds = u"/?#\\";

bool IsRedirect(int status) { return status >= 300 && status < 400 && status != 304; }
bool IsForGood(int status) { return status == 301 || status == 308; }

Health HealthFor(int status) {
    if (status == 404 || status == 410) return Health::Gone;
    if (status == 401 || status == 403 || status == 407 || status == 429) return Health::Refused;
    return status >= 400 ? Health::Failed : Health::Fine;
}

Health HealthFor(ProbeAnswer::Trouble trouble) {
    switch (trouble) {
    case ProbeAnswer::Trouble::NoHost:
        return Health::Gone;
    case ProbeAnswer::Trouble::Refused:
        return Health::Refused;
    case ProbeAnswer::Trouble::Certificate:
        return Health::Certificate;
    case ProbeAnswer::Trouble::TimeOut:
        return Health::TimeOut;
    default:
        return Health::Failed;
    }
}

std::string FileIn(TextView address) {
    const std::string bytes = ToUtf8(address);
    if (!InSmallLetters(address).starts_with(kFile)) return IsAbsolute(bytes) ? bytes : std::string();
    const std::string path = bytes.substr(kFile.size());
    return PercentDecoded(path.substr(0, path.find_first_of("?#")));
}

struct HealthWords {
    Health health;
    TextView word, words;
};

constexpr std::array kHealthWords{
    HealthWords{Health::Fine, u"fine", u"Fine"},
    HealthWords{Health::Moved, u"moved", u"Moved for good"},
    HealthWords{Health::Gone, u"gone", u"Gone"},
    HealthWords{Health::Refused, u"refused", u"Refused"},
    HealthWords{Health::Certificate, u"certificate", u"Its certificate cannot be trusted"},
    HealthWords{Health::TimeOut, u"timeout", u"No answer in time"},
    HealthWords{Health::Failed, u"failed", u"Does not load"},
    HealthWords{Health::FileThere, u"file", u"A file that is there"},
    HealthWords{Health::FileGone, u"no-file", u"A file that is gone"},
    HealthWords{Health::NotChecked, u"unchecked", u"Not checked"},
};

const HealthWords& RowOf(Health health) { return *std::ranges::find(kHealthWords, health, &HealthWords::health); }

} // namespace

Text ArchivedAt(TextView service, TextView address) {
    Text archived(HostOfWeb(service).empty() ? kArchive : service);
    if (archived.find(kItsAddress) == Text::npos) archived += kItsAddress;
    const std::size_t place = archived.find(kItsAddress);
    // In a query it is a value, and what divides queries would end it.
    const bool isValue = archived.find(u'?') < place;
    return archived.replace(place, kItsAddress.size(), isValue ? PercentEncodedText(address) : Text(address));
}

Text HostOfWeb(TextView address) {
    const Text small = InSmallLetters(address);
    for (const TextView scheme : {u"http://", u"https://"}) {
        if (!small.starts_with(scheme)) continue;
        const Text host = small.substr(scheme.size(), small.find_first_of(kHostEnds, scheme.size()) - scheme.size());
        return host.substr(host.rfind(u'@') == Text::npos ? 0 : host.rfind(u'@') + 1);
    }
    return {};
}

HealthTrail::HealthTrail(Text address) : m_line{.address = std::move(address)} {
    const Text& asked = m_line.address;
    const bool hasScheme = asked.find(u':') != Text::npos;
    if (!HostOfWeb(asked).empty()) {
        m_next = asked;
    } else if (const std::string file = FileIn(asked); !file.empty()) {
        m_line.health = LeadsSomewhere(file) ? Health::FileThere : Health::FileGone;
    } else if (!hasScheme && asked.find(u'.') != Text::npos && asked.find(u' ') == Text::npos) {
        // As the engine takes a host without a scheme.
        m_next = u"http://" + asked;
    }
}

void HealthTrail::End(Health health) {
    m_line.health = health;
    m_next.clear();
}

void HealthTrail::Take(const ProbeAnswer& answer) {
    if (m_next.empty()) return;
    m_line.status = answer.status;
    if (answer.trouble != ProbeAnswer::Trouble::None) {
        m_line.moved.clear();
        return End(HealthFor(answer.trouble));
    }
    if (IsRedirect(answer.status) && !answer.location.empty()) return Follow(answer);
    const Health health = HealthFor(answer.status);
    if (health != Health::Fine) m_line.moved.clear();
    End(health == Health::Fine && !m_line.moved.empty() ? Health::Moved : health);
}

// What was moved for good leads on; behind a redirect for the moment the address before it stays the right one.
void HealthTrail::Follow(const ProbeAnswer& answer) {
    m_been.push_back(m_next);
    const bool again = std::ranges::find(m_been, answer.location) != m_been.end();
    if (again || m_been.size() > kMostRedirects) {
        m_line.moved.clear();
        return End(Health::Failed);
    }
    m_forGood = m_forGood && IsForGood(answer.status);
    if (HostOfWeb(answer.location).empty()) return End(Health::NotChecked);
    if (m_forGood) m_line.moved = answer.location;
    m_next = answer.location;
}

Text WordsOf(const HealthLine& line) {
    Text words(RowOf(line.health).words);
    if (line.health == Health::Moved) return words + u" to " + line.moved;
    if (line.status >= 400) words += u" (" + Decimal(line.status) + u")";
    return words;
}

Text WordOf(Health health) { return Text(RowOf(health).word); }

} // namespace tessa

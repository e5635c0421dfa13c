#include "qt/blocking/Blocker.h"

#include "base/ResumeNext.h"
#include "blocking/ListCatalogue.h"
#include "qt/base/Strings.h"

#include <QDeadlineTimer>
#include <QLocale>
#include <QPointer>
#include <QThread>
#include <QUrl>
#include <algorithm>
#include <chrono>
#include <string_view>
#include <utility>

namespace tessa::qt {

namespace {

// How long the first request waits for rules. From the cache they come sooner.
constexpr std::chrono::milliseconds kReadingPatience{300};
constexpr qsizetype kKnownPages = 64;

std::string_view BytesOf(const QByteArray& bytes) {
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

bool IsOfTheWeb(const QUrl& url) {
    const QString scheme = url.scheme();
    return scheme == u"https" || scheme == u"http" || scheme == u"wss" || scheme == u"ws";
}

} // namespace

/// A reading of lists, which goes on in a thread of its own.
struct Blocker::Reading {
    std::vector<ListSource> sources;
    std::string cacheFile;
    std::vector<Text> lists;
    CompiledLists compiled;
    std::unique_ptr<QThread> thread;
};

std::vector<Text> DesktopLanguages() {
    std::vector<Text> languages;
    for (const QString& each : QLocale::system().uiLanguages()) languages.push_back(FromQt(each));
    return languages;
}

Blocker::Blocker(SettingsStorageFactory& settings, const QString& folder)
    : m_settings(settings), m_shelf(PathToBytes(FromQt(folder))) {}

Blocker::~Blocker() {
    if (m_reading) m_reading->thread->wait();
}

std::vector<Text> Blocker::Lists() const {
    return m_values.listsChosen ? m_values.lists : ListCatalogue::ByDesign(DesktopLanguages());
}

void Blocker::Apply() {
    const BlockingValues before = m_values;
    m_values = BlockingSettings(m_settings).Get();
    if (!m_values.on) return Forget();
    if (!before.on || before.lists != m_values.lists || before.listsChosen != m_values.listsChosen)
        ReadLists();
    else if (before.offSites != m_values.offSites)
        Changed();
}

void Blocker::Forget() {
    ForgetPages();
    m_hiding.reset();
    m_rules.reset();
    m_readLists.clear();
    Changed();
}

void Blocker::ReadLists() {
    if (!m_values.on) return;
    m_readAgain = m_reading != nullptr;
    if (!m_reading) BeginReading();
}

void Blocker::BeginReading() {
    auto reading = std::make_shared<Reading>();
    m_reading = reading;
    reading->lists = Lists();
    reading->sources = m_shelf.SourcesOf(reading->lists);
    reading->cacheFile = m_shelf.CacheFile();
    reading->thread.reset(
        QThread::create([work = reading.get()] { work->compiled = CompileLists(work->sources, work->cacheFile); }));
    connect(reading->thread.get(), &QThread::finished, this, [this, reading] {
        if (m_reading == reading) EndReading();
    });
    reading->thread->start();
}

void Blocker::EndReading() {
    const std::shared_ptr<Reading> done = std::move(m_reading);
    done->thread->wait();
    if (!m_values.on) return;
    ForgetPages();
    m_rules = std::make_unique<RuleSet>(done->compiled.Image);
    m_hiding = std::make_unique<HidingRules>(done->compiled.Image);
    m_readLists = done->lists;
    if (std::exchange(m_readAgain, false)) BeginReading();
    Changed();
}

void Blocker::WaitAMoment() {
    if (m_rules || !m_reading) return;
    if (m_reading->thread->wait(QDeadlineTimer(kReadingPatience))) EndReading();
}

bool Blocker::IsOffOn(const QUrl& page) const {
    if (m_values.offSites.empty()) return false;
    return IsOffSite(m_values.offSites, FromQt(page.toString(QUrl::FullyEncoded)));
}

void Blocker::SwitchOn(const QUrl& page, bool on) {
    const Text address = FromQt(page.toString(QUrl::FullyEncoded));
    BlockingValues values = BlockingSettings(m_settings).Get();
    if (on)
        std::erase_if(values.offSites, [&](const Text& each) { return IsOffSite({each}, address); });
    else if (!IsOffSite(values.offSites, address))
        values.offSites.push_back(OffSiteOf(address));
    BlockingSettings(m_settings).Set(values);
    Apply();
}

bool Blocker::AddOwnRule(const QString& rule) {
    Text rules = m_shelf.OwnRules();
    if (!rules.empty() && !rules.ends_with(u'\n')) rules += u'\n';
    if (m_shelf.KeepOwnRules(rules + FromQt(rule) + u'\n') == Outcome::Failed) return false;
    ReadLists();
    return true;
}

// A page asks for many things one after the other.
std::shared_ptr<const RulePage> Blocker::PageOf(const QUrl& address) {
    for (const auto& [last, page] : m_lastPages)
        if (page && last == address) return page;
    const QString key = address.toString(QUrl::FullyEncoded | QUrl::RemoveFragment);
    auto known = m_pages.value(key);
    if (!known) {
        if (m_pages.size() >= kKnownPages) m_pages.clear();
        known = std::make_shared<const RulePage>(m_rules->PageOf(BytesOf(key.toUtf8())));
        m_pages.insert(key, known);
    }
    m_lastPages = {KnownPage(address, known), std::move(m_lastPages.front())};
    return known;
}

void Blocker::ForgetPages() {
    m_pages.clear();
    m_lastPages = {};
}

RuleVerdict Blocker::VerdictOn(const QUrl& address, const QUrl& asker, const QUrl& page, RequestType type) {
    if (!m_values.on || !IsOfTheWeb(address)) return {};
    WaitAMoment();
    const QUrl& by = IsOfTheWeb(asker) ? asker : page;
    if (!m_rules || !IsOfTheWeb(by) || IsOffOn(page)) return {};
    if (IsOfTheWeb(page) && PageOf(page)->Except.Everything) return {};
    return m_rules->VerdictOn(BytesOf(address.toEncoded()), *PageOf(by), type);
}

QString Blocker::ListName(std::uint32_t number) const {
    return number < m_readLists.size() ? ToQt(m_readLists[number]) : QStringLiteral("Your own rules");
}

std::optional<PackedList> Blocker::CountsOf(TextView chosen) const {
    const auto found = std::ranges::find(m_readLists, chosen);
    if (!m_rules || found == m_readLists.end()) return std::nullopt;
    const auto counts = m_rules->Image().Part<PackedList>(ImagePart::Lists);
    const auto at = static_cast<std::size_t>(found - m_readLists.begin());
    return at < counts.size() ? std::optional(counts[at]) : std::nullopt;
}

} // namespace tessa::qt

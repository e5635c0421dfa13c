#include "qt/blocking/ElementHiding.h"

#include "blocking/hiding/HidingFilter.h"
#include "qt/base/Resources.h"

#include <QBuffer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QUrlQuery>
#include <QUuid>
#include <QWebEnginePage>
#include <QWebEngineProfile>
#include <QWebEngineScript>
#include <QWebEngineScriptCollection>
#include <QWebEngineUrlRequestJob>
#include <QWebEngineUrlScheme>
#include <algorithm>
#include <array>

namespace tessa::qt {

namespace {

const QString kHidingName = QStringLiteral("hiding");

// As it may stand between quotes of a script.
QString Quoted(const std::string& text) {
    const QByteArray list = QJsonDocument(QJsonArray{QString::fromStdString(text)}).toJson(QJsonDocument::Compact);
    QString quoted = QString::fromUtf8(list.mid(2, list.size() - 4));
    return quoted.replace(u'\'', QStringLiteral("\\'"));
}

QString AsList(const std::vector<std::string_view>& texts) {
    QJsonArray list;
    for (const std::string_view each : texts)
        list.append(QString::fromUtf8(each.data(), static_cast<qsizetype>(each.size())));
    return QString::fromUtf8(QJsonDocument(list).toJson(QJsonDocument::Compact));
}

QString ItemIn(const QUrlQuery& asked, const char* name) {
    return asked.queryItemValue(QLatin1String(name), QUrl::FullyDecoded);
}

} // namespace

void ElementHiding::RegisterScheme() {
    QWebEngineUrlScheme scheme(Scheme());
    scheme.setSyntax(QWebEngineUrlScheme::Syntax::Path);
    scheme.setFlags(QWebEngineUrlScheme::SecureScheme | QWebEngineUrlScheme::CorsEnabled |
                    QWebEngineUrlScheme::ContentSecurityPolicyIgnored);
    QWebEngineUrlScheme::registerScheme(scheme);
}

ElementHiding::ElementHiding(Blocker& blocker)
    : m_blocker(blocker),
      m_word(QUuid::createUuid().toString(QUuid::Id128)),
      m_changed(blocker.Changed.Connect([this] { Install(); })) {}

QString ElementHiding::Script() const {
    const RuleSet* rules = m_blocker.Rules();
    const HidingRules* hiding = m_blocker.Hiding();
    if (!rules || !hiding) return {};
    std::vector<std::uint64_t> domains = hiding->Domains();
    const ExceptedPages excepted = rules->Excepted();
    domains.insert(domains.end(), excepted.Domains.begin(), excepted.Domains.end());
    for (const Text& each : m_blocker.Values().offSites) domains.push_back(HashOfDomain(ToUtf8(each)));
    const std::vector<TokenHash> keys = hiding->Keys();
    const std::span<const TokenHash> starts = hiding->KeyStarts();
    HidingFilter domainBits(domains.size()), keyBits(keys.size()), startBits(starts.size());
    for (const std::uint64_t each : domains) domainBits.Add(FilterHashOf(each));
    for (const TokenHash each : keys) keyBits.Add(each);
    for (const TokenHash each : starts) startBits.Add(each);
    QString script = Resources::ReadText(QStringLiteral("element-hiding.js"));
    script.replace(QStringLiteral("@word@"), m_word);
    script.replace(QStringLiteral("@domains@"), QString::fromStdString(domainBits.Letters()));
    script.replace(QStringLiteral("@keys@"), QString::fromStdString(keyBits.Letters()));
    script.replace(QStringLiteral("@starts@"), QString::fromStdString(startBits.Letters()));
    script.replace(QStringLiteral("@parts@"), AsList(hiding->Parts()));
    script.replace(QStringLiteral("@addresses@"), AsList({excepted.Parts.begin(), excepted.Parts.end()}));
    script.replace(QStringLiteral("@all@"), excepted.Any ? QStringLiteral("true") : QStringLiteral("false"));
    // Last, for what a list says may hold such signs.
    return script.replace(QStringLiteral("@always@"), Quoted(HidingSheet(hiding->Always({}))));
}

void ElementHiding::Install() {
    m_script = Script();
    std::erase_if(m_profiles, [](const auto& each) { return each.isNull(); });
    for (const auto& each : m_profiles) Put(*each);
}

void ElementHiding::Put(QWebEngineProfile& profile) const {
    for (const QWebEngineScript& before : profile.scripts()->find(kHidingName)) profile.scripts()->remove(before);
    if (m_script.isEmpty()) return;
    QWebEngineScript script;
    script.setName(kHidingName);
    script.setSourceCode(m_script);
    script.setInjectionPoint(QWebEngineScript::DocumentCreation);
    script.setWorldId(QWebEngineScript::ApplicationWorld);
    script.setRunsOnSubFrames(true);
    profile.scripts()->insert(script);
}

void ElementHiding::Follow(QWebEngineProfile& profile) {
    profile.installUrlSchemeHandler(Scheme(), this);
    m_profiles.emplace_back(&profile);
    Put(profile);
}

void ElementHiding::Pick(QWebEnginePage& page) const {
    page.runJavaScript(
        Resources::ReadText(QStringLiteral("element-picker.js")).replace(QStringLiteral("@word@"), m_word),
        QWebEngineScript::ApplicationWorld);
}

void ElementHiding::Preview(QWebEnginePage& page, const QString& selector, std::function<void(int)> counted) const {
    const QString script =
        QStringLiteral("window.tessaPicker ? tessaPicker.hide('%1') : 0").arg(Quoted(selector.toStdString()));
    page.runJavaScript(script, QWebEngineScript::ApplicationWorld,
                       [counted = std::move(counted)](const QVariant& count) { counted(count.toInt()); });
}

QJsonObject ElementHiding::SiteAnswer(const QUrlQuery& asked) const {
    const HidingRules* hiding = m_blocker.Hiding();
    const QUrl page(ItemIn(asked, "page")), top(QStringLiteral("https://") + ItemIn(asked, "top"));
    const QUrl site(QStringLiteral("https://") + ItemIn(asked, "host"));
    if (!hiding || m_blocker.IsOffOn(top)) return {};
    const auto own = m_blocker.PageOf(page.host().isEmpty() ? site : page);
    if (own->Except.Hiding) return {};
    const SiteHidden hidden = hiding->ForSite(m_blocker.PageOf(site)->Hosts);
    QJsonObject answer;
    if (!own->Except.SpecificHiding)
        answer[QStringLiteral("css")] = QString::fromStdString(HidingSheet(hidden.Selectors));
    answer[QStringLiteral("generic")] = !own->Except.GenericHiding;
    if (!own->Except.GenericHiding && !hidden.ShownAnyway.empty())
        answer[QStringLiteral("always")] = QString::fromStdString(HidingSheet(hiding->Always(hidden)));
    return answer;
}

// What an element asks for, the engine may call by another type.
QJsonObject ElementHiding::StoppedAnswer(const QUrlQuery& asked) const {
    constexpr std::array kTypes{RequestType::Image, RequestType::Frame, RequestType::Object, RequestType::Media};
    const QUrl page(ItemIn(asked, "page")), top(QStringLiteral("https://") + ItemIn(asked, "top"));
    const QUrl asker = page.host().isEmpty() ? QUrl(QStringLiteral("https://") + ItemIn(asked, "host")) : page;
    QJsonArray stopped;
    for (const QJsonValue& each : QJsonDocument::fromJson(ItemIn(asked, "items").toUtf8()).array()) {
        const QStringList kinds = each.toArray().at(0).toString().split(u' ');
        const QUrl address(each.toArray().at(1).toString());
        stopped.append(std::ranges::any_of(kinds, [&](const QString& kind) {
            const auto type = static_cast<std::size_t>(kind.toInt());
            return type < kTypes.size() && m_blocker.VerdictOn(address, asker, top, kTypes.at(type)).Blocked;
        }));
    }
    return {{QStringLiteral("stopped"), stopped}};
}

QJsonObject ElementHiding::KeysAnswer(const QUrlQuery& asked) const {
    const HidingRules* hiding = m_blocker.Hiding();
    if (!hiding) return {};
    const QUrl site(QStringLiteral("https://") + ItemIn(asked, "host"));
    std::vector<std::string> keys;
    for (const QJsonValue& each : QJsonDocument::fromJson(ItemIn(asked, "keys").toUtf8()).array())
        keys.push_back(each.toString().toStdString());
    const SiteHidden hidden = hiding->ForSite(m_blocker.PageOf(site)->Hosts);
    return {{QStringLiteral("css"), QString::fromStdString(HidingSheet(hiding->ForKeys(keys, hidden)))}};
}

void ElementHiding::requestStarted(QWebEngineUrlRequestJob* job) {
    const QUrl url = job->requestUrl();
    const QUrlQuery asked(url);
    if (ItemIn(asked, "word") != m_word) return job->fail(QWebEngineUrlRequestJob::RequestDenied);
    QJsonObject answer;
    if (url.path() == u"site") answer = SiteAnswer(asked);
    if (url.path() == u"keys") answer = KeysAnswer(asked);
    if (url.path() == u"stopped") answer = StoppedAnswer(asked);
    auto* body = new QBuffer(job);
    body->setData(QJsonDocument(answer).toJson(QJsonDocument::Compact));
    job->reply(QByteArrayLiteral("application/json"), body);
    if (url.path() == u"picked") Picked(ItemIn(asked, "selector"));
}

} // namespace tessa::qt

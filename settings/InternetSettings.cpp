#include "settings/InternetSettings.h"

#include <algorithm>
#include <array>

namespace tessa {

namespace {

template<typename Kind>
struct Word {
    Kind kind;
    TextView word;
};

constexpr std::array kCookies{
    Word<CookieRule>{CookieRule::All, u"all"},
    Word<CookieRule>{CookieRule::SameSite, u"site"},
    Word<CookieRule>{CookieRule::None, u"none"},
};

constexpr std::array kProxies{
    Word<ProxyKind>{ProxyKind::System, u"system"},
    Word<ProxyKind>{ProxyKind::Direct, u"direct"},
    Word<ProxyKind>{ProxyKind::Http, u"http"},
    Word<ProxyKind>{ProxyKind::Socks, u"socks"},
};

constexpr std::array kDrawings{
    Word<DrawingWish>{DrawingWish::ByItself, u"self"},
    Word<DrawingWish>{DrawingWish::Graphics, u"hardware"},
    Word<DrawingWish>{DrawingWish::Software, u"software"},
};

template<typename Words, typename Kind>
Kind KindOf(const Words& words, TextView word, Kind otherwise) {
    const auto found = std::ranges::find(words, word, [](const auto& each) { return each.word; });
    return found == words.end() ? otherwise : found->kind;
}

template<typename Words, typename Kind>
Text WordOf(const Words& words, Kind kind) {
    return Text(std::ranges::find(words, kind, [](const auto& each) { return each.kind; })->word);
}

constexpr std::int32_t kLastPort = 65535;

} // namespace

InternetSettings::InternetSettings(SettingsStorageFactory& factory)
    : m_storage(factory.Open()),
      HomePage(*m_storage, u"InternetHomePage"),
      JavaScript(*m_storage, u"InternetJavaScript", true),
      Cookies(*m_storage, u"InternetCookies"),
      DoNotTrack(*m_storage, u"InternetDoNotTrack", false),
      GlobalPrivacyControl(*m_storage, u"InternetGlobalPrivacyControl", false),
      Proxy(*m_storage, u"InternetProxy"),
      ProxyHost(*m_storage, u"InternetProxyHost"),
      ProxyPort(*m_storage, u"InternetProxyPort", 0),
      DownloadFolder(*m_storage, u"InternetDownloadFolder"),
      TabsSleep(*m_storage, u"InternetTabsSleep", false),
      SleepMinutes(*m_storage, u"InternetSleepMinutes", 0),
      Drawing(*m_storage, u"InternetDrawing"),
      StartGroup(*m_storage, u"InternetStartGroup"),
      Archive(*m_storage, u"InternetArchive"),
      DrawingKnown(*m_storage, u"InternetDrawingKnown") {}

InternetValues InternetSettings::Get() const {
    const InternetValues byDesign;
    const std::int32_t port = ProxyPort.Get();
    const std::int32_t minutes = SleepMinutes.Get();
    return {.homePage = HomePage.Get(),
            .javaScript = JavaScript.Get(),
            .cookies = KindOf(kCookies, Cookies.Get(), byDesign.cookies),
            .doNotTrack = DoNotTrack.Get(),
            .globalPrivacyControl = GlobalPrivacyControl.Get(),
            .proxy = KindOf(kProxies, Proxy.Get(), byDesign.proxy),
            .proxyHost = ProxyHost.Get(),
            .proxyPort = port >= 0 && port <= kLastPort ? port : 0,
            .downloadFolder = DownloadFolder.Get(),
            .tabsSleep = TabsSleep.Get(),
            .sleepMinutes =
                minutes > 0 && minutes <= InternetValues::kMostSleepMinutes ? minutes : byDesign.sleepMinutes,
            .drawing = KindOf(kDrawings, Drawing.Get(), byDesign.drawing),
            .startGroup = StartGroup.Get(),
            .archive = Archive.Get()};
}

void InternetSettings::Set(const InternetValues& values) {
    ResumeNext(HomePage.Set(values.homePage));
    ResumeNext(JavaScript.Set(values.javaScript));
    ResumeNext(Cookies.Set(WordOf(kCookies, values.cookies)));
    ResumeNext(DoNotTrack.Set(values.doNotTrack));
    ResumeNext(GlobalPrivacyControl.Set(values.globalPrivacyControl));
    ResumeNext(Proxy.Set(WordOf(kProxies, values.proxy)));
    ResumeNext(ProxyHost.Set(values.proxyHost));
    ResumeNext(ProxyPort.Set(values.proxyPort));
    ResumeNext(DownloadFolder.Set(values.downloadFolder));
    ResumeNext(TabsSleep.Set(values.tabsSleep));
    ResumeNext(SleepMinutes.Set(values.sleepMinutes));
    ResumeNext(Drawing.Set(WordOf(kDrawings, values.drawing)));
    ResumeNext(StartGroup.Set(values.startGroup));
    ResumeNext(Archive.Set(values.archive));
}

std::vector<Text> InternetSettings::Differences() const {
    return DifferencesOf(HomePage, JavaScript, Cookies, DoNotTrack, GlobalPrivacyControl, Proxy, ProxyHost, ProxyPort,
                         DownloadFolder, TabsSleep, SleepMinutes, Drawing, StartGroup, Archive);
}

} // namespace tessa

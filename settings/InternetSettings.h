#pragma once
#include "settings/SettingsStore.h"

namespace tessa {

/// Which cookies pages may keep and read.
enum class CookieRule { All, SameSite, None };

/// How the program reaches the network.
enum class ProxyKind { System, Direct, Http, Socks };

/// How pages are to be drawn: as this computer does it best, or always the same way.
enum class DrawingWish { ByItself, Graphics, Software };

/// The options of Internet Options that are not the product's own settings, as values.
struct InternetValues {
    Text homePage{}; ///< as the user types it; empty for the program's own
    bool javaScript = true;
    CookieRule cookies = CookieRule::SameSite; ///< third parties keep none by default
    bool doNotTrack = false;                   ///< send the header "DNT"
    bool globalPrivacyControl = false;         ///< send the header "Sec-GPC"
    ProxyKind proxy = ProxyKind::System;
    Text proxyHost{};
    std::int32_t proxyPort = 0;
    Text downloadFolder{};  ///< empty for the desktop's
    bool tabsSleep = false; ///< tabs that were not looked at for a while sleep; by design they keep living
    std::int32_t sleepMinutes = 30;
    DrawingWish drawing = DrawingWish::ByItself; ///< from the next start on
    Text startGroup{};                           ///< the name of the TessaGroup that a start opens; empty for none
    Text archive{}; ///< where older copies of pages are, "%s" for the address; empty for the one by design

    static constexpr std::int32_t kMostSleepMinutes = 1440;

    friend bool operator==(const InternetValues&, const InternetValues&) = default;
};

/// Where these are kept. Made for one use and released right after it.
class InternetSettings {
    std::unique_ptr<SettingsStorage> m_storage;

public:
    /// The factory must outlive this object.
    explicit InternetSettings(SettingsStorageFactory& factory);

    /// What cannot be understood counts as never written.
    [[nodiscard]] InternetValues Get() const;
    /// Each value on its own: one that cannot be written leaves the others alone.
    void Set(const InternetValues& values);

    Setting<Text> HomePage;
    Setting<bool> JavaScript;
    Setting<Text> Cookies; ///< "all", "site" or "none"
    Setting<bool> DoNotTrack;
    Setting<bool> GlobalPrivacyControl;
    Setting<Text> Proxy; ///< "system", "direct", "http" or "socks"
    Setting<Text> ProxyHost;
    Setting<std::int32_t> ProxyPort;
    Setting<Text> DownloadFolder;
    Setting<bool> TabsSleep;
    Setting<std::int32_t> SleepMinutes;
    Setting<Text> Drawing; ///< "self", "hardware" or "software"
    Setting<Text> StartGroup;
    Setting<Text> Archive;
    Setting<Text> DrawingKnown; ///< what was found out of this computer; no option

    /// The `Difference` of each that has one.
    [[nodiscard]] std::vector<Text> Differences() const;
};

} // namespace tessa

#pragma once
#include "base/Signal.h"
#include "platform/SettingsStorage.h"

#include <functional>
#include <optional>
#include <vector>

namespace tessa {

/// What a site asks for.
enum class SitePermission {
    Location,
    Camera,
    Microphone,
    CameraAndMicrophone,
    Notifications,
    Screen,
    ScreenAndSound,
    Pointer,
    Popups,
    Downloads,
    Clipboard,
    Fonts,
};

/// What the user has decided about one site for good.
struct SiteDecision {
    Text Site; ///< an origin, as in "https://a.example"
    SitePermission Permission{};
    bool Allowed = false;
    bool operator==(const SiteDecision&) const = default;
};

/// The decisions that outlive a run, kept among the settings. Each call reads or changes them anew. So all instances
/// know the same, and none undoes what another has decided.
class SitePermissions {
public:
    /// The storage outlives this object.
    explicit SitePermissions(SettingsStorageFactory& settings) : m_settings(settings) {}

    [[nodiscard]] std::vector<SiteDecision> All() const;
    /// Nothing when the user is to be asked.
    [[nodiscard]] std::optional<bool> Find(TextView site, SitePermission permission) const;
    /// A private page's decisions are not to come here.
    void Remember(const SiteDecision& decision);
    void Forget(TextView site, SitePermission permission);
    void ForgetAll();
    /// A decision was forgotten: what rests on it is to end.
    Signal<void(const SiteDecision&)> Forgotten;

    /// Whether an answer may hold for good. Which screen or window it is, and what it shows, is new every time. So it
    /// can be refused for good, but not allowed.
    [[nodiscard]] static bool CanLast(SitePermission permission, bool allowed);
    /// What is asked for, after "wants to".
    [[nodiscard]] static Text Wish(SitePermission permission);

private:
    void Change(const std::function<void(std::vector<SiteDecision>&)>& edit);

    SettingsStorageFactory& m_settings;
};

} // namespace tessa

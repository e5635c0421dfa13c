#include "pages/SitePermissions.h"

#include <algorithm>
#include <array>

namespace tessa {

namespace {

constexpr TextView kName = u"SitePermissions";
constexpr std::size_t kMost = 1000;

struct Row {
    SitePermission permission;
    TextView word; ///< in the settings
    TextView wish;
};

constexpr std::array kRows{
    Row{SitePermission::Location, u"location", u"know where you are"},
    Row{SitePermission::Camera, u"camera", u"use your camera"},
    Row{SitePermission::Microphone, u"microphone", u"use your microphone"},
    Row{SitePermission::CameraAndMicrophone, u"camera-and-microphone", u"use your camera and microphone"},
    Row{SitePermission::Notifications, u"notifications", u"show notifications on your desktop"},
    Row{SitePermission::Screen, u"screen", u"see your screen"},
    Row{SitePermission::ScreenAndSound, u"screen-and-sound", u"see your screen and hear its sound"},
    Row{SitePermission::Pointer, u"pointer", u"take over the mouse pointer"},
    Row{SitePermission::Popups, u"popups", u"open windows"},
    Row{SitePermission::Downloads, u"downloads", u"save several files"},
    Row{SitePermission::Clipboard, u"clipboard", u"read and change what you have copied"},
    Row{SitePermission::Fonts, u"fonts", u"see which fonts you have"},
};

const Row& RowOf(SitePermission permission) { return *std::ranges::find(kRows, permission, &Row::permission); }

// As in "allow location https://a.example".
Text Line(const SiteDecision& decision) {
    return Text(decision.Allowed ? u"allow " : u"block ") + Text(RowOf(decision.Permission).word) + u' ' +
           decision.Site;
}

std::optional<SiteDecision> DecisionFrom(TextView line) {
    const std::size_t first = line.find(u' ');
    const std::size_t second = first == TextView::npos ? first : line.find(u' ', first + 1);
    if (second == TextView::npos) return std::nullopt;
    const TextView verb = line.substr(0, first), site = line.substr(second + 1);
    const auto* row = std::ranges::find(kRows, line.substr(first + 1, second - first - 1), &Row::word);
    if ((verb != u"allow" && verb != u"block") || row == kRows.end() || site.empty()) return std::nullopt;
    return SiteDecision{Text(site), row->permission, verb == u"allow"};
}

auto Matching(TextView site, SitePermission permission) {
    return [=](const SiteDecision& each) { return each.Site == site && each.Permission == permission; };
}

std::vector<SiteDecision> DecisionsFrom(const std::vector<Text>& lines) {
    std::vector<SiteDecision> all;
    for (const Text& line : lines) {
        auto decision = DecisionFrom(line);
        if (decision && SitePermissions::CanLast(decision->Permission, decision->Allowed))
            all.push_back(std::move(*decision));
    }
    return all;
}

} // namespace

std::vector<SiteDecision> SitePermissions::All() const {
    return DecisionsFrom(m_settings.Open()->ReadList(kName).value_or(std::vector<Text>()));
}

std::optional<bool> SitePermissions::Find(TextView site, SitePermission permission) const {
    const auto all = All();
    const auto found = std::ranges::find_if(all, Matching(site, permission));
    return found == all.end() ? std::nullopt : std::optional(found->Allowed);
}

void SitePermissions::Remember(const SiteDecision& decision) {
    // An origin that is none - of a file, of a page in a box - stands for many pages.
    if (decision.Site.empty() || decision.Site == u"null") return;
    if (!CanLast(decision.Permission, decision.Allowed)) return;
    Change([decision](std::vector<SiteDecision>& all) {
        std::erase_if(all, Matching(decision.Site, decision.Permission));
        if (all.size() >= kMost) all.erase(all.begin());
        all.push_back(decision);
    });
}

void SitePermissions::Forget(TextView site, SitePermission permission) {
    const auto before = All();
    const auto found = std::ranges::find_if(before, Matching(site, permission));
    if (found == before.end()) return;
    const SiteDecision forgotten = *found;
    Change([forgotten](std::vector<SiteDecision>& all) {
        std::erase_if(all, Matching(forgotten.Site, forgotten.Permission));
    });
    Forgotten(forgotten);
}

void SitePermissions::ForgetAll() {
    const auto all = All();
    Change([](std::vector<SiteDecision>& decisions) { decisions.clear(); });
    for (const SiteDecision& each : all) Forgotten(each);
}

bool SitePermissions::CanLast(SitePermission permission, bool allowed) {
    const bool isScreen = permission == SitePermission::Screen || permission == SitePermission::ScreenAndSound;
    return !isScreen || !allowed;
}

Text SitePermissions::Wish(SitePermission permission) { return Text(RowOf(permission).wish); }

void SitePermissions::Change(const std::function<void(std::vector<SiteDecision>&)>& edit) {
    ResumeNext(m_settings.Open()->ChangeList(kName, [edit](const std::vector<Text>& before) {
        auto all = DecisionsFrom(before);
        edit(all);
        std::vector<Text> lines;
        for (const SiteDecision& each : all) lines.push_back(Line(each));
        return lines;
    }));
}

} // namespace tessa

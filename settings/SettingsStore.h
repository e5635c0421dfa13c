#pragma once
#include "base/Units.h"
#include "platform/SettingsStorage.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace tessa {

/// One named value of the store. Owned by its `SettingsStore`, which it must not outlive.
/// T is bool, std::int32_t, Twips, Text or std::vector<Text>.
template<typename T>
class Setting {
public:
    /// `name` must be a literal. `whenMissing` stands for a value that was never written or cannot be understood.
    Setting(SettingsStorage& storage, TextView name, T whenMissing = {})
        : m_storage(storage), m_name(name), m_whenMissing(std::move(whenMissing)) {}
    Setting(const Setting&) = delete;
    Setting& operator=(const Setting&) = delete;

    [[nodiscard]] T Get() const { return Find().value_or(m_whenMissing); }
    /// Whether there is a stored value that can be understood.
    [[nodiscard]] bool HasValue() const { return Find().has_value(); }
    /// Fails when the storage takes no value; the old one then stays. Twips are kept in 16 bits and saturate.
    [[nodiscard]] Outcome Set(const T& value);
    /// The name and the value, for a value other than the default. Of texts only that there is one, of lists only how
    /// long they are. Empty when it is the same.
    [[nodiscard]] Text Difference() const;

private:
    [[nodiscard]] std::optional<T> Find() const;

    SettingsStorage& m_storage;
    TextView m_name;
    T m_whenMissing;
};

// How each type is kept as text.
template<>
std::optional<bool> Setting<bool>::Find() const;
template<>
Outcome Setting<bool>::Set(const bool& value);
template<>
std::optional<std::int32_t> Setting<std::int32_t>::Find() const;
template<>
Outcome Setting<std::int32_t>::Set(const std::int32_t& value);
template<>
std::optional<Twips> Setting<Twips>::Find() const;
template<>
Outcome Setting<Twips>::Set(const Twips& value);
template<>
std::optional<Text> Setting<Text>::Find() const;
template<>
Outcome Setting<Text>::Set(const Text& value);
template<>
std::optional<std::vector<Text>> Setting<std::vector<Text>>::Find() const;
template<>
Outcome Setting<std::vector<Text>>::Set(const std::vector<Text>& value);

/// What a value says of itself to others.
[[nodiscard]] Text WithoutItsTexts(bool value);
[[nodiscard]] Text WithoutItsTexts(std::int32_t value);
[[nodiscard]] Text WithoutItsTexts(Twips value);
[[nodiscard]] Text WithoutItsTexts(const Text& value);
[[nodiscard]] Text WithoutItsTexts(const std::vector<Text>& value);

template<typename T>
Text Setting<T>::Difference() const {
    const T value = Get();
    return value == m_whenMissing ? Text() : Text(m_name) + u": " + WithoutItsTexts(value);
}

/// The `Difference` of those that have one.
template<typename... Settings>
[[nodiscard]] std::vector<Text> DifferencesOf(const Settings&... settings) {
    std::vector<Text> all{settings.Difference()...};
    std::erase(all, Text());
    return all;
}

/// All values that outlive a run. Made for one use and released right after it. Reading sees what any process of the
/// user wrote before this object was made. What is set here is on disk once this object is gone.
class SettingsStore {
    std::unique_ptr<SettingsStorage> m_storage;

public:
    /// Opens the storage. The factory must outlive this object.
    explicit SettingsStore(SettingsStorageFactory& factory);

    Setting<bool> AskDefaultBrowser;        ///< ask at start-up to make the program the default browser
    Setting<bool> RememberLastSites;        ///< open the addresses of the last run again
    Setting<bool> TGCloseOthersFirst;       ///< opening a TessaGroup closes the other tabs
    Setting<std::int32_t> TitleLengthLimit; ///< UTF-16 units of a title that a tab shows; below 1 no limit
    Setting<bool> OpenNewInFront;           ///< a new window of a page becomes the selected tab
    Setting<Twips> WindowWidth;
    Setting<Twips> WindowHeight;
    Setting<Twips> WindowTop;  ///< without a value the desktop places the window
    Setting<Twips> WindowLeft; ///< without a value the desktop places the window
    Setting<bool> WindowMaximized;
    Setting<Text> HandOffCommandLine; ///< what a second instance handed over last
    Setting<std::vector<Text>> LastSites;
    Setting<std::vector<Text>> SearchHistory;
    Setting<std::vector<Text>> AddressHistory;
    Setting<bool> TabsUp; ///< the tab strip is at the top
    Setting<bool> AllowMultipleInstances;
    Setting<bool> ShowStatusBar;
    Setting<std::vector<Text>> LastTiles; ///< which of the last sites lay side by side
    Setting<Text> LastGroups;             ///< which of them were in groups and pinned, as records
    Setting<bool> TileHeaders;            ///< pages that lie side by side have titles above them
    Setting<bool> TabPanel;               ///< the tabs are shown as a list at the side
    Setting<bool> TabPanelRight;          ///< that is the right one
    Setting<std::int32_t> TabPanelWidth;  ///< in pixels; 0 as long as nobody has changed it
    Setting<bool> TabStripHidden;         ///< the strip is hidden as long as that list is shown
    Setting<std::vector<Text>> LastNames; ///< what the user has called the last sites, empty for none

    Setting<bool> LoadImages;      ///< pages may load images
    Setting<bool> LoadAnimations;  ///< pages may show animated pictures moving
    Setting<bool> LoadVideos;      ///< pages may play videos
    Setting<bool> LoadSounds;      ///< pages may play sounds
    Setting<Text> MailClient;      ///< command line of the user's mail program; may hold %NAME% references
    Setting<Text> NewsClient;      ///< command line of the user's news program; may hold %NAME% references
    Setting<Text> EnvironmentText; ///< what a bug report calls the system; empty for what the system calls itself
    Setting<Text> SearchService;   ///< address of the search service, "%s" for the words; empty for the one by design
    Setting<Text> ShopService;     ///< what the Shop links lead to, "%s" for the link's name; empty as above
    Setting<Text> FindService;     ///< what the Find links lead to

    /// The `Difference` of each setting that has one.
    [[nodiscard]] std::vector<Text> Differences() const;
};

} // namespace tessa

#include "settings/SettingsStore.h"

namespace tessa {

template<>
std::optional<bool> Setting<bool>::Find() const {
    const auto text = m_storage.Read(m_name);
    if (text == u"true") return true;
    if (text == u"false") return false;
    return std::nullopt;
}

template<>
Outcome Setting<bool>::Set(const bool& value) {
    return m_storage.Write(m_name, value ? u"true" : u"false");
}

template<>
std::optional<std::int32_t> Setting<std::int32_t>::Find() const {
    const auto text = m_storage.Read(m_name);
    return text ? WholeNumber(*text) : std::nullopt;
}

template<>
Outcome Setting<std::int32_t>::Set(const std::int32_t& value) {
    return m_storage.Write(m_name, Decimal(value));
}

template<>
std::optional<Twips> Setting<Twips>::Find() const {
    const auto text = m_storage.Read(m_name);
    const auto number = text ? WholeNumber(*text) : std::nullopt;
    return number ? std::optional(Saturated16(Twips{*number})) : std::nullopt;
}

template<>
Outcome Setting<Twips>::Set(const Twips& value) {
    return m_storage.Write(m_name, Decimal(Saturated16(value).value));
}

template<>
std::optional<Text> Setting<Text>::Find() const {
    return m_storage.Read(m_name);
}

template<>
Outcome Setting<Text>::Set(const Text& value) {
    return m_storage.Write(m_name, value);
}

template<>
std::optional<std::vector<Text>> Setting<std::vector<Text>>::Find() const {
    return m_storage.ReadList(m_name);
}

template<>
Outcome Setting<std::vector<Text>>::Set(const std::vector<Text>& value) {
    return m_storage.WriteList(m_name, value);
}

SettingsStore::SettingsStore(SettingsStorageFactory& factory)
    : m_storage(factory.Open()),
      AskDefaultBrowser(*m_storage, u"AskDefaultBrowser", true),
      RememberLastSites(*m_storage, u"RememberLastSites", true),
      TGCloseOthersFirst(*m_storage, u"TGCloseOthersFirst", false),
      TitleLengthLimit(*m_storage, u"TitleLengthLimit", 20),
      OpenNewInFront(*m_storage, u"OpenNewInFront", true),
      WindowWidth(*m_storage, u"WindowWidth", Twips{15360}),
      WindowHeight(*m_storage, u"WindowHeight", Twips{11520}),
      WindowTop(*m_storage, u"WindowTop"),
      WindowLeft(*m_storage, u"WindowLeft"),
      WindowMaximized(*m_storage, u"WindowMaximized", false),
      HandOffCommandLine(*m_storage, u"HandOffCommandLine"),
      LastSites(*m_storage, u"LastSites"),
      SearchHistory(*m_storage, u"SearchHistory"),
      AddressHistory(*m_storage, u"AddressHistory"),
      TabsUp(*m_storage, u"TabsUp", true),
      AllowMultipleInstances(*m_storage, u"AllowMultipleInstances", false),
      ShowStatusBar(*m_storage, u"ShowStatusBar", true),
      LastTiles(*m_storage, u"LastTiles"),
      LastGroups(*m_storage, u"LastGroups"),
      TileHeaders(*m_storage, u"TileHeaders", true),
      TabPanel(*m_storage, u"TabPanel", false),
      TabPanelRight(*m_storage, u"TabPanelRight", false),
      TabPanelWidth(*m_storage, u"TabPanelWidth", 0),
      TabStripHidden(*m_storage, u"TabStripHidden", false),
      LastNames(*m_storage, u"LastNames"),
      LoadImages(*m_storage, u"LoadImages", true),
      LoadAnimations(*m_storage, u"LoadAnimations", true),
      LoadVideos(*m_storage, u"LoadVideos", true),
      LoadSounds(*m_storage, u"LoadSounds", true),
      MailClient(*m_storage, u"MailClient"),
      NewsClient(*m_storage, u"NewsClient"),
      EnvironmentText(*m_storage, u"EnvironmentText"),
      SearchService(*m_storage, u"SearchService"),
      ShopService(*m_storage, u"ShopService"),
      FindService(*m_storage, u"FindService") {}

Text WithoutItsTexts(bool value) { return value ? u"yes" : u"no"; }
Text WithoutItsTexts(std::int32_t value) { return Decimal(value); }
Text WithoutItsTexts(Twips value) { return Decimal(value.value); }
Text WithoutItsTexts(const Text& value) { return value.empty() ? u"empty" : u"set"; }
Text WithoutItsTexts(const std::vector<Text>& value) {
    return Decimal(static_cast<std::int64_t>(value.size())) + u" entries";
}

std::vector<Text> SettingsStore::Differences() const {
    return DifferencesOf(AskDefaultBrowser, RememberLastSites, TGCloseOthersFirst, TitleLengthLimit, OpenNewInFront,
                         WindowWidth, WindowHeight, WindowTop, WindowLeft, WindowMaximized, HandOffCommandLine,
                         LastSites, SearchHistory, AddressHistory, TabsUp, AllowMultipleInstances, ShowStatusBar,
                         LastTiles, LastGroups, TileHeaders, TabPanel, TabPanelRight, TabPanelWidth, TabStripHidden,
                         LastNames, LoadImages, LoadAnimations, LoadVideos, LoadSounds, MailClient, NewsClient,
                         EnvironmentText, SearchService, ShopService, FindService);
}

} // namespace tessa

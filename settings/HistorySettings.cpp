#include "settings/HistorySettings.h"

namespace tessa {

namespace {

std::int32_t Within(std::int32_t number, std::int32_t least, std::int32_t most, std::int32_t otherwise) {
    return number >= least && number <= most ? number : otherwise;
}

} // namespace

HistorySettings::HistorySettings(SettingsStorageFactory& factory)
    : m_storage(factory.Open()),
      Nothing(*m_storage, u"HistoryNothing", false),
      Texts(*m_storage, u"HistoryTexts", true),
      Days(*m_storage, u"HistoryDays", 0),
      Megabytes(*m_storage, u"HistoryMegabytes", 0),
      LeftOut(*m_storage, u"HistoryLeftOut") {}

HistoryValues HistorySettings::Get() const {
    const HistoryValues byDesign;
    return {.nothing = Nothing.Get(),
            .texts = Texts.Get(),
            .days = Within(Days.Get(), 1, HistoryValues::kMostDays, byDesign.days),
            .megabytes = Within(Megabytes.Get(), HistoryValues::kLeastMegabytes, HistoryValues::kMostMegabytes,
                                byDesign.megabytes),
            .leftOut = LeftOut.Get()};
}

void HistorySettings::Set(const HistoryValues& values) {
    ResumeNext(Nothing.Set(values.nothing));
    ResumeNext(Texts.Set(values.texts));
    ResumeNext(Days.Set(values.days));
    ResumeNext(Megabytes.Set(values.megabytes));
    ResumeNext(LeftOut.Set(values.leftOut));
}

std::vector<Text> HistorySettings::Differences() const {
    return DifferencesOf(Nothing, Texts, Days, Megabytes, LeftOut);
}

} // namespace tessa

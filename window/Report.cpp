#include "window/Report.h"

#include "settings/BlockingSettings.h"
#include "settings/HistorySettings.h"
#include "settings/InternetSettings.h"
#include "settings/SettingsStore.h"

namespace tessa {

namespace Report {

Text Words(const Facts& facts, SettingsStorageFactory& settings) {
    Text words = facts.Build + u"\nDrawing: " + facts.Drawing + u"\n\nSettings other than by design:\n";
    std::vector<Text> differences = SettingsStore(settings).Differences();
    for (const auto& part : {InternetSettings(settings).Differences(), HistorySettings(settings).Differences(),
                             BlockingSettings(settings).Differences()})
        differences.insert(differences.end(), part.begin(), part.end());
    for (const Text& each : differences) words += u"  " + each + u'\n';
    if (differences.empty()) words += u"  none\n";
    words += u"\nLog:\n";
    for (const std::string& line : facts.Log) words += u"  " + FromBytes(line) + u'\n';
    return words;
}

} // namespace Report

} // namespace tessa

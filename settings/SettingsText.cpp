#include "settings/SettingsText.h"

namespace tessa {

namespace {

constexpr TextView kGeneral = u"General";

} // namespace

std::string SettingsBytes(const SettingsValues& values) {
    return RecordBytes(std::vector{Record{.Name = Text(kGeneral), .Values = values}});
}

std::optional<SettingsValues> ParseSettings(std::string_view bytes) {
    SettingsValues values;
    for (Record& record : ParseRecords(bytes)) {
        if (!record.Whole || (!record.Name.empty() && record.Name != kGeneral)) return std::nullopt;
        for (auto& [name, value] : record.Values) values.insert_or_assign(name, std::move(value));
    }
    return values;
}

} // namespace tessa

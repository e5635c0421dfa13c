#pragma once
#include "groups/frmTessaGroup.h"

#include <QString>
#include <optional>

class QMenu;

namespace tessa::qt {

/// The menus in which the editor's user says how an entry opens, and their words.
namespace GroupPlanMenu {

[[nodiscard]] QString NameOf(PagePlan::Place place);
/// As `PageDocument::Zoom` counts; nothing for the usual one.
[[nodiscard]] QString NameOf(const std::optional<int>& size);

/// Each fills a menu for the entry at that place, from 0; the form outlives the menu.
void AddPlaces(QMenu& menu, frmTessaGroup& form, std::size_t place);
void AddSizes(QMenu& menu, frmTessaGroup& form, std::size_t place);
/// All that can be planned.
void AddAll(QMenu& menu, frmTessaGroup& form, std::size_t place);

} // namespace GroupPlanMenu

} // namespace tessa::qt

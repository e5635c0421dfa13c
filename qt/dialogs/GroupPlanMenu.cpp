#include "qt/dialogs/GroupPlanMenu.h"

#include <QMenu>
#include <array>
#include <utility>

namespace tessa::qt {

namespace {

constexpr std::array kPlaces{"As listed", "First", "Last"};
/// By the numbers that sizes have.
constexpr std::array kSizes{"Smallest", "Smaller", "Medium", "Large", "Largest"};

QAction* AddCheck(QMenu& menu, const QString& caption, bool checked) {
    auto* action = menu.addAction(caption);
    action->setCheckable(true);
    action->setChecked(checked);
    return action;
}

void AddChoice(QMenu& menu, const QString& caption, frmTessaGroup& form, std::size_t place, const PagePlan& plan) {
    const auto* action = AddCheck(menu, caption, form.PlanAt(place) == plan);
    QObject::connect(action, &QAction::triggered, &menu, [&form, place, plan] { form.SetPlan(place, plan); });
}

void AddFlag(QMenu& menu, const QString& caption, frmTessaGroup& form, std::size_t place, bool PagePlan::*flag) {
    const auto* action = AddCheck(menu, caption, form.PlanAt(place).*flag);
    QObject::connect(action, &QAction::triggered, &menu, [&form, place, flag](bool on) {
        PagePlan plan = form.PlanAt(place);
        plan.*flag = on;
        form.SetPlan(place, plan);
    });
}

} // namespace

namespace GroupPlanMenu {

QString NameOf(PagePlan::Place place) { return QString::fromLatin1(kPlaces.at(static_cast<std::size_t>(place))); }

QString NameOf(const std::optional<int>& size) {
    return size ? QString::fromLatin1(kSizes.at(static_cast<std::size_t>(*size))) : QStringLiteral("As usual");
}

void AddPlaces(QMenu& menu, frmTessaGroup& form, std::size_t place) {
    for (const auto& [caption, where] :
         {std::pair{"&As Listed", PagePlan::Place::AsListed}, std::pair{"&First", PagePlan::Place::First},
          std::pair{"&Last", PagePlan::Place::Last}}) {
        PagePlan plan = form.PlanAt(place);
        plan.place = where;
        AddChoice(menu, QString::fromLatin1(caption), form, place, plan);
    }
}

void AddSizes(QMenu& menu, frmTessaGroup& form, std::size_t place) {
    PagePlan plan = form.PlanAt(place);
    plan.textSize.reset();
    AddChoice(menu, NameOf(plan.textSize), form, place, plan);
    for (int size = static_cast<int>(kSizes.size()) - 1; size >= 0; --size) {
        plan.textSize = size;
        AddChoice(menu, NameOf(plan.textSize), form, place, plan);
    }
}

void AddAll(QMenu& menu, frmTessaGroup& form, std::size_t place) {
    AddPlaces(menu, form, place);
    menu.addSeparator();
    AddFlag(menu, QStringLiteral("Asl&eep"), form, place, &PagePlan::asleep);
    AddFlag(menu, QStringLiteral("&Muted"), form, place, &PagePlan::muted);
    AddSizes(*menu.addMenu(QStringLiteral("&Text Size")), form, place);
}

} // namespace GroupPlanMenu

} // namespace tessa::qt

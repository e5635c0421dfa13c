#include "qt/bar/ToolBarsMenu.h"

#include "bar/ToolName.h"
#include "base/Captions.h"
#include "qt/base/Strings.h"

#include <QAction>
#include <QMenu>

namespace tessa::qt {

namespace {

void AddBand(QMenu& menu, CommandBar& bar, const Band& band) {
    // A caption of a band has no access key.
    QAction* action = menu.addAction(ToQt(EscapedCaption(band.Caption())));
    action->setObjectName(ToQt(band.Name()));
    action->setCheckable(true);
    action->setChecked(band.Visible());
    QObject::connect(action, &QAction::triggered, &menu, [&bar, name = band.Name()](bool checked) {
        if (Band* shown = bar.FindBand(name)) shown->Visible = checked;
    });
}

void AddCustomize(QMenu& menu, CommandBar& bar) {
    const Tool* tool = bar.Find(u"mnuViewToolbars"_tool);
    if (!tool || !tool->Enabled()) return;
    menu.addSeparator();
    QAction* action = menu.addAction(QStringLiteral("&Customize..."));
    action->setObjectName(ToQt(u"mnuViewToolbars"_tool));
    QObject::connect(action, &QAction::triggered, &menu, [&bar] {
        if (Tool* clicked = bar.Find(u"mnuViewToolbars"_tool)) bar.UserClick(*clicked);
    });
}

} // namespace

namespace ToolBarsMenu {

QMenu* Show(CommandBar& bar, QWidget& window, const QPoint& at) {
    auto* menu = new QMenu(&window);
    menu->setObjectName(QStringLiteral("toolBarsMenu"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const auto& band : bar.Bands()) {
        if (band->Kind() == BandKind::Toolbar) AddBand(*menu, bar, *band);
    }
    AddCustomize(*menu, bar);
    menu->popup(at);
    return menu;
}

} // namespace ToolBarsMenu

} // namespace tessa::qt

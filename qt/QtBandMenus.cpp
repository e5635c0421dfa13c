#include "qt/QtBandMenus.h"

#include "qt/QtText.h"
#include "qt/QtToolActions.h"

#include <QAction>
#include <QCursor>
#include <QMenu>

QtBandMenus::~QtBandMenus() {
    for (const auto& [band, menu] : m_menus) delete menu;
}

QMenu* QtBandMenus::For(const Text& band) {
    QPointer<QMenu>& menu = m_menus[band];
    if (menu) return menu;
    menu = new QMenu(&m_window);
    menu->setObjectName(ToQt(band));
    menu->setToolTipsVisible(false);
    connect(menu, &QMenu::aboutToShow, this, [this, shown = menu.data(), band] { Fill(*shown, band); });
    connect(menu, &QMenu::aboutToHide, this, [this] {
        if (m_bar.MouseOver) m_bar.MouseOver(nullptr);
    });
    return menu;
}

void QtBandMenus::Fill(QMenu& menu, const Text& name) {
    Band* band = m_bar.FindBand(name);
    if (!band) return menu.clear();
    m_bar.OpenBand(*band);
    menu.clear();
    for (const BandEntry& entry : band->Entries()) {
        if (entry.Group == BeginGroup::Yes && !menu.isEmpty()) menu.addSeparator();
        QAction* action = m_actions.For(entry.Item);
        const Text& subBand = entry.Item->SubBand;
        if (!subBand.empty() && !action->menu()) action->setMenu(For(subBand));
        menu.addAction(action);
    }
    m_actions.Prune();
}

void QtBandMenus::Popup(Band& band) { For(band.Name())->popup(QCursor::pos()); }

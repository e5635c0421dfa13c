#pragma once
#include "base/Signal.h"
#include "qt/base/DockedPanel.h"
#include "qt/tabpanel/TabPanelView.h"

#include <QObject>
#include <QPointer>
#include <QTimer>

class QLineEdit;
class QMainWindow;

namespace tessa::qt {

/// The panel of the window that lists the tabs, at its left or its right. It costs nothing while it is closed.
class TabPanel final : public QObject {
    Q_OBJECT

public:
    /// All outlive it.
    TabPanel(frmTabPanel& form, const TabIcons& icons, QMainWindow& window);
    ~TabPanel() override;

    /// Icons, or which tabs sleep, have changed.
    void RefreshFaces();

    /// Gives the keyboard back to the page.
    Signal<void()> FocusPage;
    /// The menu of the panel is wanted.
    Signal<void()> PanelMenuRequested;
    // As those of `TabPanelView`.
    Signal<void(std::int32_t view)> MenuRequested;
    Signal<void(std::int32_t group)> GroupMenuRequested;
    Signal<void(const TabPanelView::Views&, QPoint at)> DraggedOut;
    Signal<void()> DraggedBack;
    Signal<void(const TabPanelView::Views&, QPoint at)> DroppedOut;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Open();
    void Close();
    [[nodiscard]] QWidget* Contents();
    [[nodiscard]] QWidget* FilterLine();
    void AddList(QWidget& contents);
    void OnChange(TabStripChange change);
    void Refresh();
    void Type(const QString& letters);
    void Leave();
    bool OnFilterKey(int key);

    frmTabPanel& m_form;
    const TabIcons& m_icons;
    QMainWindow& m_window;
    DockedPanel m_panel;
    QPointer<TabPanelView> m_list;
    QPointer<QLineEdit> m_filter;
    QTimer m_layoutTimer, m_facesTimer;
    Connection m_strip; ///< while it is open
    Connections m_connections;
};

} // namespace tessa::qt

#pragma once
#include "commands/Customization.h"
#include "qt/bar/customize/BandList.h"

#include <QObject>
#include <QPointer>
#include <vector>

namespace tessa::qt {

/// Menus while they are arranged: they stay open, and their entries are dragged about. Each opens out of the one
/// before.
class BandPanels final : public QObject {
    Q_OBJECT

public:
    /// Both outlive it.
    BandPanels(Customization& custom, QWidget& window) : m_custom(custom), m_window(window) {}
    ~BandPanels() override;

    /// Opens a menu under what it belongs to, in place of all others. One that is open already stays. A menu that is
    /// built at run time does not open.
    void Open(Band& menu, const QRect& under);
    void Close();
    /// Closes the menu that was opened last, as Escape does; answers whether there was one.
    bool CloseLast();
    /// The menu that is open and opens out of no other; nothing when there is none.
    [[nodiscard]] Band* Root() const;
    /// Shows the menus as they are now.
    void Refresh();
    [[nodiscard]] bool Hold(const QWidget& widget) const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Show(Band& menu, QPoint at);
    void OpenBeside(std::size_t level, Band& menu, const QRect& entry);
    void CloseFrom(std::size_t level);

    Customization& m_custom;
    QWidget& m_window;
    std::vector<QPointer<BandList>> m_open;
};

} // namespace tessa::qt

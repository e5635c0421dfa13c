#pragma once
#include "tiles/TilePlaces.h"

#include <QObject>
#include <QPointer>
#include <QWidget>

namespace tessa {
class TabStrip;
class Tiles;
} // namespace tessa

namespace tessa::qt {

/// Brings the pane to the front in which somebody clicks, or goes to by keys. While it follows, it sees all events of
/// the program.
class PaneFocus final : public QObject {
public:
    /// Pages are children of the area's parent, and lie over it. Both outlive it.
    PaneFocus(const QWidget& area, const TilePlaces& places);

    void Attach(const Tiles& tiles, TabStrip& strip);
    void Follow(bool on);
    /// Brings the pane of that number to the front; the keyboard stays where it is in it.
    void Select(std::int32_t index);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] std::int32_t PaneAround(const QWidget& widget, QPoint at) const;
    [[nodiscard]] bool IsOverPane(const QWidget& widget) const;
    void OnFocusIn(const QWidget& widget, Qt::FocusReason reason);
    void NoteKeys(const QEvent& event);
    void LookAtFocus();

    const QWidget& m_area;
    const TilePlaces& m_places; ///< in the area's parent
    const Tiles* m_tiles = nullptr;
    TabStrip* m_strip = nullptr;
    QPointer<QWidget> m_left;                        ///< what had the keyboard before
    Qt::FocusReason m_reason = Qt::OtherFocusReason; ///< why something else got it
    bool m_isTabbed = false;                         ///< the Tab key was pressed last
};

} // namespace tessa::qt

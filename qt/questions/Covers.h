#pragma once
#include "base/Signal.h"

#include <QPointer>
#include <QRect>
#include <QWidget>
#include <vector>

namespace tessa::qt {

/// What lies over the page of one tab: the page that explains a refused certificate, dialogs of the page. Covers are
/// seen only while their tab is; the rest of the program stays usable.
class Covers {
public:
    /// Covers become children of `pageArea`.
    explicit Covers(QWidget* pageArea) : m_pageArea(pageArea) {}
    Covers(const Covers&) = delete;
    Covers& operator=(const Covers&) = delete;
    ~Covers();

    /// Lays the cover over all others and takes it over. Its focus proxy gets the keyboard.
    void Add(QWidget* cover);
    /// Takes the cover off and deletes it, later. Nothing when it is not there.
    void Remove(QWidget* cover);
    [[nodiscard]] bool Empty() const { return m_covers.empty(); }
    /// The tab comes into sight, or leaves it.
    void SetShown(bool shown);
    [[nodiscard]] bool Shown() const { return m_shown; }
    /// Whether the tab may have the keyboard. One that is shown beside the front takes it from nobody.
    void SetInFront(bool inFront) { m_inFront = inFront; }
    void Lay(const QRect& page);
    /// Gives the keyboard to the topmost cover; false when there is none.
    bool TakeFocus();

    /// A first cover was added or the last one removed.
    Signal<void()> Changed;
    /// The page may have the keyboard again.
    Signal<void()> FocusPage;

private:
    void Show(QWidget& cover) const;

    QPointer<QWidget> m_pageArea;
    std::vector<QPointer<QWidget>> m_covers; ///< the topmost last
    QRect m_page;
    bool m_shown = false;
    bool m_inFront = true;
};

} // namespace tessa::qt

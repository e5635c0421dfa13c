#pragma once
#include "base/Signal.h"
#include "base/Text.h"

#include <QObject>
#include <QUrl>
#include <functional>
#include <vector>

class QWidget;

namespace tessa::qt {

/// Takes files that are dropped anywhere on a window before the page or the control under the pointer sees them.
/// Everything else that is dragged goes where it went, except announced addresses that do not come. The program that
/// they are dragged from may have ended, and the engine relies on them.
class FileDrop final : public QObject {
    Q_OBJECT

public:
    /// The window outlives it. Works as long as it lives. `takes` says whether a file, by its path, is one to take; all
    /// of those that are dragged together must be.
    FileDrop(QWidget& window, std::function<bool(TextView path)> takes);

    /// The paths of the files that were dropped.
    Signal<void(const std::vector<Text>& paths)> Dropped;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] std::vector<Text> FilesOf(const QList<QUrl>& urls) const;

    QWidget& m_window;
    std::function<bool(TextView path)> m_takes;
    std::vector<Text> m_dragged; ///< the files to take that are over the window
};

} // namespace tessa::qt

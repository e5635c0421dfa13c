#pragma once
#include <QPointer>
#include <QWidget>

namespace tessa::qt {

class QtEngineHost;
class QtNewWindows;
class QtOutside;
class QtPageFullScreen;
class QtPageOutput;
class QtProfiles;
class QtSchedule;
struct QtPageSignals;

/// What all views of the engine have in common. It outlives them.
struct QtViewServices {
    QPointer<QWidget> pageArea; ///< the parent of what views show
    QtEngineHost& host;
    QtProfiles& profiles;
    QtSchedule& schedule;
    QtNewWindows& newWindows;
    QtOutside& outside;
    QtPageOutput& output;
    QtPageFullScreen& fullScreen; ///< the page that fills the screen
    QtPageSignals& told;
};

} // namespace tessa::qt

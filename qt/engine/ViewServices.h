#pragma once
#include <QPointer>
#include <QWidget>

namespace tessa::qt {

class EngineHost;
class NewWindows;
class OutsidePrograms;
class PageFullScreen;
class PageOutput;
class Profiles;
class Schedule;
struct PageSignals;

/// What all views of the engine have in common. It outlives them.
struct ViewServices {
    QPointer<QWidget> pageArea; ///< the parent of what views show
    EngineHost& host;
    Profiles& profiles;
    Schedule& schedule;
    NewWindows& newWindows;
    OutsidePrograms& outside;
    PageOutput& output;
    PageFullScreen& fullScreen; ///< the page that fills the screen
    PageSignals& told;
};

} // namespace tessa::qt

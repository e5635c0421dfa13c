#pragma once
#include "base/Signal.h"
#include "base/Text.h"

#include <QPoint>
#include <cstdint>
#include <optional>

class QString;
class QUrl;

namespace tessa::qt {

class WebPage;

/// What pages tell the program, whichever view they are in.
struct PageSignals {
    /// The icon of a view's page has changed.
    Signal<void(std::int32_t index)> IconChanged;
    /// A page that is not private, or a frame of it, goes to an address.
    Signal<void(const QUrl&)> Visited;
    /// The user has followed a link of the home page that is for the program and not for the engine.
    Signal<void(const QUrl&)> StartLink;
    /// The page of the history in a view asks the program for something.
    Signal<void(std::int32_t index, const QString& message)> HistoryAsks;
    /// Somebody in front of a page wants to read on, at its end.
    Signal<void()> ReadToEnd;
    /// What pages may see and hear of their users has changed.
    Signal<void()> CapturesChanged;
    /// Says something in passing, in the status bar.
    Signal<void(const QString&)> Notice;
    /// A page's menu is asked for at a point of the screen: the pointer's, or that of the keyboard's place. Nothing
    /// when that is over.
    Signal<void(std::optional<QPoint>)> MenuPlace;
    /// For the menus of pages, see `WebPageTools`.
    Signal<void(WebPage&, const QUrl&, const Text& path)> SaveAddress;
    Signal<void(WebPage&)> ShowInspector;
};

} // namespace tessa::qt

#pragma once
#include "qt/engine/LoadOptions.h"

#include <QString>

class QWebEnginePage;
class QWebEngineProfile;

namespace tessa::qt {

/// The load switches in the pages of one profile: what is loaded from now on and what is there already. The engine
/// itself keeps images and sound back. A script of ours, in a world of its own, does the rest.
class LoadSwitches {
public:
    LoadSwitches();

    /// For pages that are made or loaded from now on.
    void Install(QWebEngineProfile& profile, const LoadOptions& options) const;
    /// For a page of that profile as it is, with its frames.
    void Tell(QWebEnginePage& page, const LoadOptions& options) const;

private:
    QString m_script; ///< with a place for the switches
};

} // namespace tessa::qt

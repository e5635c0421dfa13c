#pragma once
#include "common/Controls.h"
#include "common/Text.h"
#include "common/Units.h"

/// The status bar: a single text, shown or hidden, and a button while there is something to stop. `Height` is what its
/// view needs, reported by the view.
struct StatusBar {
    StatusBar() { StopAll.Visible = false; }

    Property<Text> SimpleText;
    /// How large the text of the page is, at the right end; empty when it has its usual size.
    Property<Text> Zoom;
    /// Which of the engine's profiles the window has, beside it; empty for the usual one. What its tip says.
    Property<Text> Profile;
    Text ProfileTip;
    Property<bool> Visible{true};
    Button StopAll{u"Stop all"};
    Pixels Height{24};
};

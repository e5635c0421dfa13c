#pragma once
#include "common/Property.h"
#include "common/Text.h"
#include "common/Units.h"

/// The status bar: a single text, shown or hidden. `Height` is what its view needs, reported by the view.
struct StatusBar {
    Property<Text> SimpleText;
    Property<bool> Visible{true};
    Pixels Height{24};
};

#pragma once
#include "common/Text.h"

#include <array>

/// A tool's unique name, the word of the command vocabulary, and its caption with "&" before the access key.
struct ToolCaption {
    TextView name;
    TextView caption;
};

inline constexpr std::array kToolCaptions{
    ToolCaption{u"mnuNewBlank", u"New &Blank"}, ToolCaption{u"mnuOpenGroup", u"&Open TessaGroup..."},
    ToolCaption{u"mnuClose", u"&Close"},        ToolCaption{u"mnuSettings", u"&Settings..."},
    ToolCaption{u"mnuExit", u"E&xit"},          ToolCaption{u"mnuGoBack", u"&Back"},
    ToolCaption{u"mnuGoForward", u"&Forward"},  ToolCaption{u"mnuStop", u"&Stop"},
    ToolCaption{u"mnuRefresh", u"&Refresh"},    ToolCaption{u"mnuViewStatusbar", u"S&tatus Bar"},
};

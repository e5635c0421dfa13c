#include "commands/BarGestures.h"

#include "bar/CommandBar.h"
#include "bar/ToolName.h"

namespace tessa {

namespace BarGestures {

void FullScreenChanged(CommandBar& bar, bool on) {
    if (auto* tool = bar.Find(u"xtrFullScreen"_tool)) tool->Checked = on;
}

void NewTab(CommandBar& bar) {
    if (auto* tool = bar.Find(u"mnuNewBlank"_tool)) bar.UserClick(*tool);
}

void TabPanelMenu(CommandBar& bar) { bar.Popup(u"bndTabPanel"_band); }

void NewTabMenu(CommandBar& bar) { bar.Popup(u"bndNewTab"_band); }

} // namespace BarGestures

} // namespace tessa

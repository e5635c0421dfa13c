#include "commands/frmResize.h"

#include "bar/ToolName.h"
#include "settings/Numeric.h"

#include <algorithm>

namespace tessa {

frmResize::frmResize(CommandBar& actBar)
    : cmdResize{Button{u"-100"}, Button{u"-25"}, Button{u"-10"}, Button{u"-1"},
                Button{u"+1"},   Button{u"+10"}, Button{u"+25"}, Button{u"+100"}},
      m_actBar(actBar) {
    for (std::size_t i = 0; i < cmdResize.size(); ++i)
        cmdResize[i].Click.ConnectForLife([this, i] { cmdResize_Click(i); });
    cmdClose.Click.ConnectForLife([this] { cmdClose_Click(); });
}

ComboTool* frmResize::Target() const {
    return m_actBar.FindCombo(m_mode == u"Search" ? u"cboSearch"_tool : u"cboAddress"_tool);
}

void frmResize::cmdResize_Click(std::size_t Index) {
    const auto step = RoundedNumber(cmdResize.at(Index).Caption());
    auto* box = Target();
    if (!box || !step) return;
    const std::int64_t width = std::int64_t{box->Width().value} + *step;
    box->Width = Pixels{static_cast<std::int32_t>(std::clamp<std::int64_t>(width, 0, INT32_MAX))};
    m_actBar.RecalcLayout();
}

void frmResize::cmdClose_Click() { Form.Visible = false; }

} // namespace tessa

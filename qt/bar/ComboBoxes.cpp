#include "qt/bar/ComboBoxes.h"

#include "qt/bar/ComboBox.h"

#include <algorithm>

namespace tessa::qt {

ComboBox* ComboBoxes::Make(const std::shared_ptr<Tool>& tool, QWidget* parent) {
    auto* combo = dynamic_cast<ComboTool*>(tool.get());
    if (!combo) return nullptr;
    auto* box = new ComboBox(m_bar, *combo, parent);
    Shown& shown = m_shown[combo->Name()];
    std::erase(shown.boxes, nullptr);
    shown.boxes.emplace_back(box);
    shown.tool = tool;
    Attach(*combo, shown);
    return box;
}

void ComboBoxes::Attach(ComboTool& tool, Shown& shown) {
    const auto each = [&shown](auto&& action) {
        for (const auto& box : std::vector(shown.boxes)) {
            if (box) action(*box);
        }
    };
    Connections& all = shown.connections;
    all.End();
    all += tool.Value.Attach([each](const Text&) { each([](ComboBox& box) { box.ShowValue(); }); });
    all += tool.Selection.Mirror.Connect(
        [each](const TextSelection&) { each([](ComboBox& box) { box.ShowSelection(); }); });
    all += tool.Width.Mirror.Connect([each](Pixels) { each([](ComboBox& box) { box.updateGeometry(); }); });
    all += tool.FillsRow.Mirror.Connect([each](bool) { each([](ComboBox& box) { box.updateGeometry(); }); });
    all += tool.Sign.Attach([each](const BoxSign&) { each([](ComboBox& box) { box.ShowSign(); }); });
    all += tool.Enabled.Attach([each](bool enabled) { each([&](ComboBox& box) { box.setEnabled(enabled); }); });
}

ComboBox* ComboBoxes::Find(TextView tool) const {
    const auto found = m_shown.find(Text(tool));
    if (found == m_shown.end()) return nullptr;
    ComboBox* first = nullptr;
    for (const auto& box : found->second.boxes) {
        if (box && box->isVisible()) return box;
        if (box && !first) first = box;
    }
    return first;
}

std::vector<ComboBox*> ComboBoxes::All() const {
    std::vector<ComboBox*> all;
    for (const auto& [name, shown] : m_shown)
        std::ranges::copy_if(shown.boxes, std::back_inserter(all), [](auto& b) { return !b.isNull(); });
    return all;
}

} // namespace tessa::qt

#include "common/CommandBar.h"

#include "common/ResumeNext.h"

Tool* CommandBar::Find(TextView name) const {
    const auto found = m_byName.find(Text(name));
    return found == m_byName.end() ? nullptr : found->second;
}

ComboTool* CommandBar::FindCombo(TextView name) const { return dynamic_cast<ComboTool*>(Find(name)); }

void CommandBar::Keep(std::unique_ptr<Tool> tool) {
    Must(m_byName.emplace(tool->Name(), tool.get()).second);
    m_tools.push_back(std::move(tool));
}

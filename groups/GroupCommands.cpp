#include "groups/GroupCommands.h"

#include "groups/TessaGroups.h"

void GroupCommands::OpenTessaGroup(TextView TessaGroup) {
    const CStrings addresses = TessaGroups::Load(TessaGroup);
    if (TGCloseOthersFirst) m_tabs.CloseOtherTabs();
    bool intoSelected = TGCloseOthersFirst;
    for (const auto& address : addresses) {
        auto* current = intoSelected ? m_tabs.CurrentView() : nullptr;
        auto* view = current ? current->Control.get() : nullptr;
        if (!intoSelected) view = m_tabs.GetNewBrowser(InFront::Yes);
        if (view) ResumeNext(view->Navigate(address.Key));
        intoSelected = false;
    }
}

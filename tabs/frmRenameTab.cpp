#include "tabs/frmRenameTab.h"

#include "base/Captions.h"

namespace tessa {

frmRenameTab::frmRenameTab(const Tab& tab) {
    txtName.Value = OneLine(tab.Shown());
    cmdOK.Click.ConnectForLife([this, caption = tab.Caption()] {
        Name = NameIn(txtName.Value(), caption);
        Form.Visible = false;
    });
    cmdCancel.Click.ConnectForLife([this] { Form.Visible = false; });
}

// A name that says what the page says would stay when the page says something else.
Text frmRenameTab::NameIn(TextView typed, TextView caption) {
    const Text line = OneLine(FirstUnits(typed, kLongest));
    const auto begin = line.find_first_not_of(u' ');
    if (begin == Text::npos) return {};
    Text name = line.substr(begin, line.find_last_not_of(u' ') + 1 - begin);
    return name == OneLine(caption) ? Text() : name;
}

} // namespace tessa

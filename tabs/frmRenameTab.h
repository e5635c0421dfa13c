#pragma once
#include "forms/Controls.h"
#include "forms/TabStrip.h"

#include <optional>

namespace tessa {

/// The question what a tab is to be called, as data. Made afresh for every show.
class frmRenameTab {
public:
    /// More of a name is cut off: nobody reads it.
    static constexpr std::size_t kLongest = 200;

    explicit frmRenameTab(const Tab& tab);
    frmRenameTab(const frmRenameTab&) = delete;
    frmRenameTab& operator=(const frmRenameTab&) = delete;

    FormState Form;
    Text Caption = u"Rename Tab";
    Label lblName{u"&Name (empty for the page's title):"};
    TextBox txtName;
    Button cmdOK{u"&Rename"};
    Button cmdCancel{u"Cancel"};
    /// What the tab is to be called from now on; empty for what its page says. Nothing when it stays as it is.
    std::optional<Text> Name;

    /// The name in what somebody has typed: one line without blanks around it, empty when it is the caption itself.
    [[nodiscard]] static Text NameIn(TextView typed, TextView caption);
};

} // namespace tessa

#pragma once
#include "bar/CommandBar.h"
#include "forms/Controls.h"

#include <array>

namespace tessa {

/// The dialog that changes the width of the address box or the search box, as data. Made afresh for every show; each
/// step comes into effect at once and stays.
class frmResize {
public:
    /// The bar must outlive the form.
    explicit frmResize(CommandBar& actBar);
    frmResize(const frmResize&) = delete;
    frmResize& operator=(const frmResize&) = delete;

    /// Which box the steps are for. Called before the form is shown.
    void ResizeAddress() { m_mode = u"Address"; }
    void ResizeSearch() { m_mode = u"Search"; }

    FormState Form;
    Text Caption = u"Resize";
    /// The family of its font; the desktop's usual font where that is missing.
    Text Font = u"Tahoma";
    /// The captions are the steps, in pixels.
    std::array<Button, 8> cmdResize;
    Button cmdClose{u"&Close"};

private:
    void cmdResize_Click(std::size_t Index);
    void cmdClose_Click();
    [[nodiscard]] ComboTool* Target() const;

    CommandBar& m_actBar;
    Text m_mode;
};

} // namespace tessa

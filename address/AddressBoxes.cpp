#include "address/AddressBoxes.h"

#include "address/CabCombo.h"
#include "address/Endpoints.h"
#include "bar/ToolName.h"
#include "base/Address.h"

namespace tessa {

namespace {

constexpr ToolName kAddressBox = u"cboAddress"_tool;
constexpr ToolName kSearchBox = u"cboSearch"_tool;

// Deliberate: only the presence of a dot is looked at. So an address that has its scheme gets the prefix as well.
Text Completed(const Text& text) {
    const bool hasDot = text.find(u'.') != Text::npos;
    return u"http://www." + text + (hasDot ? u"" : u".com");
}

} // namespace

AddressBoxes::AddressBoxes(TabSet& tabs, CommandBar& actBar) : m_tabs(tabs), m_actBar(actBar) {
    m_actBar.ComboKeyDown.ConnectForLife([this](ComboTool& box, KeyStroke key, KeyUsed& used) {
        if (used == KeyUsed::No) used = ComboKeyDown(box, key);
    });
    m_actBar.TextChange.ConnectForLife([this](ComboTool& box) { TextChange(box); });
    m_actBar.SelChange.ConnectForLife([this](ComboTool& box) { SelChange(box); });
}

void AddressBoxes::AddAddressEntry(TextView text) { AddEntry(text, m_actBar.FindCombo(kAddressBox), m_address); }

void AddressBoxes::AddSearchEntry(TextView text) { AddEntry(text, m_actBar.FindCombo(kSearchBox), m_search); }

void AddressBoxes::AddEntry(TextView text, ComboTool* box, Box& state) const {
    if (!state.EntryPending) return;
    // What is typed for a private tab is not kept.
    if (m_tabs.CurrentPrivacy() == Privacy::Ordinary)
        CabCombo::AddFindEntry(Address::WithoutUser(text), box, CabCombo::kHistoryLimit);
    state.EntryPending = false;
}

KeyUsed AddressBoxes::ComboKeyDown(ComboTool& box, KeyStroke key) {
    if (box.Name() == kAddressBox) return AddressKey(box, key);
    if (box.Name() == kSearchBox) return SearchKey(box, key);
    return KeyUsed::No;
}

KeyUsed AddressBoxes::AddressKey(ComboTool& box, KeyStroke key) {
    const bool ctrl = (key.Shift & Keys::kCtrl) != 0;
    if (ctrl) m_address.EntryPending = true;
    if (key.KeyCode == Keys::kEscape && key.Shift == 0) {
        RestoreAddress(box);
        return KeyUsed::Yes;
    }
    if (key.KeyCode != Keys::kEnter) return KeyUsed::No;
    m_address.EntryPending = true;
    if (ctrl) box.Value = Completed(box.Value());
    const Text address = box.Value();
    AddAddressEntry(address);
    GoTo(address);
    return KeyUsed::Yes;
}

KeyUsed AddressBoxes::SearchKey(ComboTool& box, KeyStroke key) {
    if (key.KeyCode != Keys::kEnter) return KeyUsed::No;
    m_search.EntryPending = true;
    const Text words = box.Value();
    AddSearchEntry(words);
    SearchFor(words);
    return KeyUsed::Yes;
}

void AddressBoxes::TextChange(ComboTool& box) {
    if (box.Name() == kAddressBox) CabCombo::AutoComplete(m_address.PrevText, box);
    if (box.Name() == kSearchBox) CabCombo::AutoComplete(m_search.PrevText, box);
}

void AddressBoxes::SelChange(ComboTool& box) {
    const Text text = box.Value();
    if (box.Name() == kAddressBox) GoTo(text);
    if (box.Name() == kSearchBox) SearchFor(text);
}

// A user who changes his mind sees the page's address again, ready to be typed over.
void AddressBoxes::RestoreAddress(ComboTool& box) {
    if (!m_tabs.CurrentView()) return;
    m_tabs.ShowAddress();
    box.Selection = TextSelection{0, box.Value().size()};
}

void AddressBoxes::GoTo(TextView address) {
    if (auto* view = m_tabs.CurrentView()) ResumeNext(view->Control->Navigate(address));
}

void AddressBoxes::SearchFor(TextView words) {
    const Text address = Text(Endpoints::kSearch) + Text(words);
    if (auto* view = m_tabs.GetNewBrowser(InFront::Yes, m_tabs.CurrentPrivacy())) ResumeNext(view->Navigate(address));
}

} // namespace tessa

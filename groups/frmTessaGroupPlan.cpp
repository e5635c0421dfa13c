#include "base/Captions.h"
#include "base/os/Paths.h"
#include "groups/TessaGroups.h"
#include "groups/frmGroupCheck.h"
#include "groups/frmGroupCompare.h"
#include "groups/frmTessaGroup.h"

#include <algorithm>
#include <iterator>

namespace tessa {

/// The group as it stands in the editor: what is mended there is written with OK.
class frmTessaGroup::EditedGroup final : public MendedGroup {
public:
    explicit EditedGroup(frmTessaGroup& form) : m_form(form) {}
    [[nodiscard]] const Text& File() const override { return m_form.m_fileName; }
    [[nodiscard]] std::vector<Text> Addresses() const override { return m_form.lstUrls.Rows(); }
    [[nodiscard]] TakeBack Change(const std::map<Text, Text>& changes) override {
        std::vector<Text> addresses;
        for (const Text& each : m_form.lstUrls.Rows()) {
            const auto change = changes.find(each);
            if (change == changes.end()) addresses.push_back(each);
            if (change == changes.end() || change->second.empty()) continue;
            m_form.m_plan.Copy(each, change->second);
            addresses.push_back(change->second);
        }
        // The editor leaves no group without addresses.
        if (addresses.empty()) return {};
        std::vector<Text> before = m_form.lstUrls.Rows(), opened = m_form.m_opened;
        m_form.ShowAddresses(addresses);
        for (Text& each : m_form.m_opened) {
            const auto change = changes.find(each);
            if (change != changes.end() && !change->second.empty()) each = change->second;
        }
        return [this, before = std::move(before), opened = std::move(opened)] {
            m_form.ShowAddresses(before);
            m_form.m_opened = opened;
            return Outcome::Done;
        };
    }

private:
    frmTessaGroup& m_form;
};

void frmTessaGroup::LoadPlan() {
    m_plan = GroupPlan::In(m_fileName);
    cboColour.Index = static_cast<std::size_t>(ColourNamed(m_plan.colour));
    chkBehind.Tick(m_plan.behind);
    chkCloseOthers.Tick(m_plan.closeOthers);
    chkKeepPanes.Tick(m_plan.keepsPanes);
    m_opened = m_plan.Ordered(lstUrls.Rows());
}

GroupPlan frmTessaGroup::Plan() const {
    GroupPlan plan = m_plan.Of(lstUrls.Rows());
    plan.colour = NameOfColour(static_cast<TabColour>(cboColour.Index()));
    plan.behind = chkBehind.Ticked();
    plan.closeOthers = chkCloseOthers.Ticked();
    plan.keepsPanes = chkKeepPanes.Ticked();
    if (!plan.keepsPanes) plan.panes.clear();
    plan.MovePanes(m_opened, plan.Ordered(lstUrls.Rows()));
    return plan;
}

PagePlan frmTessaGroup::PlanAt(std::size_t place) const {
    return place < lstUrls.ListCount() ? m_plan.For(lstUrls.Rows()[place]) : PagePlan();
}

void frmTessaGroup::SetPlan(std::size_t place, const PagePlan& plan) {
    if (place >= lstUrls.ListCount() || !lstUrls.Enabled()) return;
    const Text address = lstUrls.Rows()[place];
    m_plan.Set(address, plan);
    for (std::size_t i = 0; i < lstUrls.ListCount(); ++i) {
        if (lstUrls.Rows()[i] == address) lstUrls.Set(i, address);
    }
}

Text frmTessaGroup::TitleOf(TextView address) const { return m_outside.titleOf ? m_outside.titleOf(address) : Text(); }

void frmTessaGroup::ShowAddresses(const std::vector<Text>& addresses) {
    lstUrls.Show(addresses);
    if (lstUrls.ListIndex() == -1 && !addresses.empty()) lstUrls.ListIndex = 0;
}

void frmTessaGroup::cmdCheck_Click() {
    if (!cmdCheck.Enabled() || !m_outside.probe) return;
    frmGroupCheck form(*m_outside.probe, frmGroupCheck::Groups{std::make_shared<EditedGroup>(*this)});
    form.OpenArchive.ConnectForLife([this](const Text& address) { OpenArchive(address); });
    m_forms.Show(form);
}

void frmTessaGroup::cmdCompare_Click() {
    if (!cmdCompare.Enabled() || !m_outside.files) return;
    const Text path = m_outside.files->ShowOpen({.DialogTitle = u"Compare with TessaGroup",
                                                 .InitDir = m_outside.groupFolder,
                                                 .Filter = Text(TessaGroups::kFileFilter),
                                                 .MustExist = true});
    if (path.empty()) return;
    if (!TessaGroups::IsReadable(path)) return m_messages.Inform(u"The TessaGroup could not be read.");
    std::vector<Text> there;
    for (const auto& each : TessaGroups::Load(path)) there.push_back(each.Key);
    const auto separator = path.find_last_of(u"/\\");
    frmGroupCompare form(OneLine(path.substr(separator == Text::npos ? 0 : separator + 1)), lstUrls.Rows(), there);
    m_forms.Show(form);
    if (form.Merged == lstUrls.Rows()) return;
    // What comes from there opens as it does there.
    const GroupPlan plan = GroupPlan::In(path);
    for (const Text& each : form.Merged) {
        if (std::ranges::find(lstUrls.Rows(), each) == lstUrls.Rows().end() && m_plan.For(each) == PagePlan())
            m_plan.Set(each, plan.For(each));
    }
    ShowAddresses(form.Merged);
}

} // namespace tessa

#pragma once
#include "forms/Controls.h"
#include "settings/BlockingOutside.h"
#include "settings/BlockingSettings.h"

#include <functional>
#include <memory>
#include <vector>

namespace tessa {

/// A list that can be ticked, with what it does.
struct BlockingListLine {
    BlockingListLine(Text chosen, Text does, Text state);
    Text Chosen; ///< as the settings have it
    CheckBox chkList;
    Label lblDoes, lblState;
};

/// The page about content blocking as data. Nothing is written before `Keep`.
class frmBlocking {
public:
    /// Asks for a file; empty when the user changed his mind.
    using ChooseFile = std::function<Text()>;

    /// The factory and what is outside must outlive the form. Without the latter there are no lists yet.
    frmBlocking(SettingsStorageFactory& settings, BlockingOutside* outside, ChooseFile chooseFile);
    frmBlocking(const frmBlocking&) = delete;
    frmBlocking& operator=(const frmBlocking&) = delete;

    CheckBox chkOn{u"Block advertisements and trackers"};
    Label lblLists{u"Lists of what is blocked"};
    /// In the order to be shown; grows when the user adds one.
    std::vector<std::unique_ptr<BlockingListLine>> Lists;
    /// A line was added at the end; for the view.
    Signal<void(BlockingListLine&)> Added;
    Label lblOwnList{u"Another list (an address that begins with https, or a file)"};
    TextBox txtOwnList;
    Button cmdAddList{u"Add"};
    Button cmdAddFile{u"Add File..."};
    Label lblOwnListBad{u""};
    Button cmdUpdate{u"Update Now"};
    Label lblUpdated{u""};

    Label lblOwnRules{u"Rules of your own, one a line"};
    TextBox txtOwnRules; ///< lines end with "\n"
    Label lblOwnRulesBad{u""};
    /// Which of these lines cannot be understood, from 0; for the view.
    [[nodiscard]] const std::vector<std::size_t>& BadLines() const { return m_badLines; }

    Label lblOffSites{u"Sites on which nothing is blocked, one a line"};
    TextBox txtOffSites;

    /// Writes what was chosen.
    void Keep();

private:
    void Form_Load();
    void AddLine(const Text& chosen, bool ticked);
    void cmdAddList_Click();
    void cmdAddFile_Click();
    void cmdUpdate_Click();
    void txtOwnRules_Change();
    [[nodiscard]] std::vector<Text> Ticked() const;

    SettingsStorageFactory& m_settings;
    BlockingOutside m_nothing;
    BlockingOutside& m_outside;
    ChooseFile m_chooseFile;
    BlockingValues m_before;
    Text m_rulesBefore;
    std::vector<std::size_t> m_badLines;
    /// Ends with the form, which may not wait for what it has asked for.
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
};

} // namespace tessa

#include "commands/effects/PageMenuEntries.h"

#include "bar/ToolName.h"
#include "base/Captions.h"
#include "base/PlainText.h"
#include "pages/LinkRules.h"

#include <initializer_list>

namespace tessa {

namespace {

constexpr std::size_t kMostShownWords = 24;

/// The entries as they are gathered, in groups with a line between them.
class Entries {
public:
    explicit Entries(const CommandBar& bar) : m_bar(bar) {}

    void Group() { m_begins = true; }
    void Add(ToolName tool, bool fits = true) {
        if (fits) Add(m_bar.Share(tool));
    }
    void Add(std::shared_ptr<Tool> tool) {
        if (!tool) return;
        const bool begins = m_begins && !m_all.empty();
        m_all.push_back({std::move(tool), begins ? BeginGroup::Yes : BeginGroup::No});
        m_begins = false;
    }
    [[nodiscard]] std::vector<BandEntry> Take() { return std::move(m_all); }

private:
    const CommandBar& m_bar;
    std::vector<BandEntry> m_all;
    bool m_begins = false;
};

void AddWords(Entries& entries, const PageContext& page) {
    for (const Text& word : page.Suggestions)
        entries.Add(std::make_shared<Tool>(MadeFrom::Page{}, 0, Text(u"xtrReplaceWord"_tool),
                                           EscapedCaption(PlainLine(word, kMostShownWords))));
}

void AddLink(Entries& entries, const PageContext& page, TextView address) {
    if (page.LinkURL.empty()) return;
    const bool opens = MayOpenFromPage(address, page.LinkURL);
    entries.Group();
    entries.Add(u"xtrLinkOpen"_tool, opens);
    entries.Add(u"xtrLinkOpenOther"_tool, opens);
    entries.Add(u"xtrLinkOpenPrivate"_tool, opens);
    entries.Group();
    entries.Add(u"xtrLinkSave"_tool, MaySave(page.LinkURL));
    entries.Add(u"xtrLinkCopy"_tool);
    entries.Add(u"xtrLinkAddToTessaGroup"_tool, opens);
}

void AddImage(Entries& entries, const PageContext& page, TextView address) {
    if (page.Media != PageContext::Kind::Image) return;
    entries.Group();
    entries.Add(u"xtrImageOpen"_tool, MayOpenFromPage(address, page.MediaURL));
    entries.Add(u"xtrImageSave"_tool, MaySave(page.MediaURL));
    entries.Add(u"xtrImageCopy"_tool);
    entries.Add(u"xtrMediaCopyAddress"_tool, !page.MediaURL.empty());
}

void AddMedia(Entries& entries, const PageContext& page) {
    if (page.Media != PageContext::Kind::Audio && page.Media != PageContext::Kind::Video) return;
    entries.Group();
    entries.Add(u"xtrMediaPlay"_tool);
    entries.Add(u"xtrMediaMute"_tool);
    entries.Add(u"xtrMediaLoop"_tool);
    entries.Add(u"xtrMediaControls"_tool);
    entries.Group();
    entries.Add(u"xtrMediaSave"_tool, MaySave(page.MediaURL));
    entries.Add(u"xtrMediaCopyAddress"_tool, !page.MediaURL.empty());
}

void AddText(Entries& entries, const PageContext& page) {
    entries.Group();
    if (page.Editable) {
        entries.Add(u"xtrUndo"_tool, page.CanUndo);
        entries.Add(u"xtrRedo"_tool, page.CanRedo);
        entries.Group();
        entries.Add(u"mnuCut"_tool, page.CanCut);
    }
    const bool selected = !page.SelectedText.empty();
    entries.Add(u"mnuCopy"_tool, page.Editable ? page.CanCopy : selected);
    if (page.Editable) {
        entries.Add(u"mnuPaste"_tool, page.CanPaste);
        entries.Add(u"xtrPasteAsText"_tool, page.CanPaste);
        entries.Add(u"mnuSelectAll"_tool);
    }
    entries.Add(u"xtrSearchSelection"_tool, !PlainLine(page.SelectedText, kMostShownWords).empty());
    entries.Add(u"xtrOpenSelectedLinks"_tool, page.SelectsLinks && !page.Editable);
    entries.Add(u"xtrSaveSelectedLinks"_tool, page.SelectsLinks && !page.Editable);
}

void AddPage(Entries& entries) {
    for (const ToolName tool : {u"mnuGoBack"_tool, u"mnuGoForward"_tool, u"mnuRefresh"_tool, u"mnuStop"_tool})
        entries.Add(tool);
    entries.Group();
    for (const ToolName tool :
         {u"mnuAddToFavorites"_tool, u"mnuAddToTessaGroup"_tool, u"mnuSaveAs"_tool, u"mnuPrint"_tool})
        entries.Add(tool);
    entries.Group();
    entries.Add(u"mnuSelectAll"_tool);
    entries.Add(u"xtrShowWhatIsNew"_tool);
    entries.Add(u"mnuViewSource"_tool);
}

} // namespace

namespace PageMenuEntries {

std::vector<BandEntry> For(const CommandContext& context, const PageContext& page, TextView address) {
    Entries entries(context.actBar);
    AddWords(entries, page);
    AddLink(entries, page, address);
    AddImage(entries, page, address);
    AddMedia(entries, page);
    const bool text = page.Editable || !page.SelectedText.empty();
    if (text) AddText(entries, page);
    if (!text && page.LinkURL.empty() && page.Media == PageContext::Kind::None) AddPage(entries);
    entries.Group();
    entries.Add(u"xtrInspect"_tool);
    return entries.Take();
}

} // namespace PageMenuEntries

} // namespace tessa

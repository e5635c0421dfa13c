// How tabs close.
#include "base/Address.h"
#include "tabs/TabKeys.h"
#include "tabs/TabSet.h"

#include <utility>

namespace tessa {

namespace {

constexpr TextView kLastTabQuestion = u"Do you want to close the last browser tab and exit this application?";

} // namespace

void TabSet::CloseBrowserTab(std::int32_t Index) {
    // Its page is asked with the window, which may yet stay.
    if (m_pcPage.Count() == 1) return CloseUnasked(Index);
    WhenLeft(Index, [this, Index] { CloseUnasked(Index); });
}

void TabSet::WhenLeft(std::int32_t Index, std::function<void()> then) {
    Leaving.WhenLeft(Index, std::move(then));
    if (m_closingSeveral && Leaving.Asks(Index)) Awaiting(Index);
}

void TabSet::CloseUnasked(std::int32_t Index) {
    // Deliberate: the page is stopped before the question, and stays stopped when the answer is no.
    if (auto* view = m_browser.Find(Index)) ResumeNext(view->Control->Stop());
    if (m_pcPage.Count() != 1) {
        CloseOneOfSeveral(Index);
    } else if (m_messages.AskYesNoCancel(kLastTabQuestion) == Answer::Yes) {
        CloseWindow();
    }
}

void TabSet::CloseOneOfSeveral(std::int32_t Index) {
    Closing(Index);
    if (Index != 1) {
        m_browser.Unload(Index);
    } else if (auto* view = m_browser.Find(1)) {
        view->Control->SetVisible(false);
    }
    const auto* selected = m_pcPage.SelectedItem();
    const auto* closing = TabOfView(m_pcPage, Index);
    // Deliberate: two tabs with one caption count as the same tab.
    const bool background = selected && closing && selected->Caption() != closing->Caption();
    const Text keptKey = background ? selected->Key() : Text();
    m_pcPage.Remove(closing);
    if (background) m_pcPage.Select(m_pcPage.Find(keptKey));
    pcPage_Click();
    m_gone.push_back(Index);
    if (!m_closingSeveral) ForgetGone();
}

// Last: who waits for these pages may ask the user, or close the window.
void TabSet::ForgetGone() {
    for (const std::int32_t index : std::exchange(m_gone, {})) Leaving.Forget(index);
}

void TabSet::CloseSelectedTab() {
    if (const auto* selected = m_pcPage.SelectedItem()) CloseBrowserTab(selected->Tag);
}

void TabSet::CloseTabs(const std::vector<std::int32_t>& indexes) {
    AsOneCommand([&] {
        for (const std::int32_t index : indexes) CloseBrowserTab(index);
    });
}

std::int32_t TabSet::CloseOtherTabs() {
    const std::size_t first = m_pcPage.PinnedCount() + 1;
    const auto* left = m_pcPage.FindAt(first);
    const std::int32_t index = left ? left->Tag : 0;
    AsOneCommand([this, first] {
        for (std::size_t position = m_pcPage.Count(); position > first; --position) {
            if (const auto* tab = m_pcPage.FindAt(position)) CloseBrowserTab(tab->Tag);
        }
        if (const auto* leftmost = m_pcPage.FindAt(first)) BlankTab(leftmost->Tag);
    });
    return index;
}

void TabSet::AsOneCommand(const std::function<void()>& close) {
    m_closingSeveral = true;
    ClosingSeveral();
    close();
    ClosedSeveral();
    m_closingSeveral = false;
    ForgetGone();
}

void TabSet::BlankTab(std::int32_t Index) {
    WhenLeft(Index, [this, Index] {
        auto* view = OpenView(Index);
        if (!view) return;
        Blanking(Index);
        ResumeNext(view->Control->Navigate(Address::kBlank));
    });
}

} // namespace tessa

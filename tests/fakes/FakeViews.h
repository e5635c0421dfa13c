#pragma once
#include "platform/BrowserView.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace tessa {

class FakeViews;

/// A view that remembers what it was asked and raises events when the test says so.
class FakeView final : public BrowserView, public PageDocument, public PageTools, public PageLife, public PageReading {
public:
    FakeView(std::int16_t index, BrowserViewEvents& events, FakeViews& all);
    ~FakeView() override;

    Outcome Navigate(TextView address) override;
    Outcome Stop() override;
    Outcome Refresh() override;
    Outcome GoBack() override;
    Outcome GoForward() override;
    Outcome GoHome() override;
    Outcome ExecWB(BrowserCommand command) override;
    [[nodiscard]] Text LocationName() const override { return Answer(name); }
    [[nodiscard]] PageDocument* Document() override { return hasDocument ? this : nullptr; }
    Outcome Zoom(int level) override;
    [[nodiscard]] PageTools* Tools() override { return hasTools ? this : nullptr; }
    [[nodiscard]] PageLife* Life() override { return Answer(hasLife) ? this : nullptr; }
    [[nodiscard]] PageReading* Reading() override { return hasReading ? this : nullptr; }
    void ReadText(std::function<void(Text)> answer) override;
    void GlanceAtText(std::function<void(Text)> answer) override;
    void ShowPassages(const std::vector<Text>& passages, std::size_t first) override;
    void Tell(TextView message) override { messages.push_back(Text(message)); }
    [[nodiscard]] PageActivity Activity() const override { return activity; }
    [[nodiscard]] bool Asleep() const override { return asleep; }
    Outcome Sleep() override;
    [[nodiscard]] std::string Picture() const override {
        ++pictured;
        return picture;
    }
    [[nodiscard]] std::int64_t Process() const override { return asleep ? 0 : process; }
    [[nodiscard]] bool Ended() const override { return ended; }
    [[nodiscard]] bool ProcessPrints() const override { return prints; }
    Outcome EndProcess() override;
    [[nodiscard]] PageSecurity Security() const override { return security; }
    Outcome Run(PageAction action) override;
    Outcome ReplaceWord(TextView word) override;
    Outcome Save(TextView address, TextView path) override;
    void FindSelectedLinks(std::function<void(std::vector<Text>)> answer) override { answer(selectedLinks); }
    [[nodiscard]] int ZoomLevel() const override { return zoom; }
    [[nodiscard]] bool Busy() const override { return busy; }
    [[nodiscard]] PageProgress Progress() const override { return busy ? PageProgress::Loading : progress; }
    [[nodiscard]] Text LocationURL() const override { return Answer(location); }
    [[nodiscard]] bool Blank() const override { return location == u"about:blank" || location == u"tessaview:private"; }
    [[nodiscard]] bool MayHold() const override { return mayHold; }
    void AskToLeave(LeaveReason why, std::function<void(bool holds)> told) override;
    void AskUserToLeave(std::function<void(bool leaves)> answered) override;
    void LetUserStay() override;
    [[nodiscard]] std::string History() const override { return history; }
    Outcome Restore(const std::string& bytes, TextView address) override;
    Outcome RestoreLater(const std::string& bytes, TextView address) override;
    [[nodiscard]] bool Audible() const override { return audible; }
    [[nodiscard]] bool Muted() const override { return muted; }
    void SetMuted(bool value) override;
    void SetVisible(bool value) override { visible = value; }
    void SetTabStop(bool value) override { tabStop = value; }
    void Move(const Rect& value) override;
    void MoveLeft(Twips value) override;
    void BringToFront() override;
    void ShowBeside() override { shown = true; }
    void SetFocus() override;

    std::int16_t index;
    BrowserViewEvents& events;
    FakeViews& all;
    bool busy = false;
    PageProgress progress = PageProgress::Done; ///< while it is not busy
    bool visible = false;
    bool shown = false; ///< in front or beside that one
    bool tabStop = true;
    bool refuses = false;          ///< every call that can fail does
    std::function<void()> stopped; ///< what a page does when it is stopped
    bool mayHold = false;
    bool holds = false;                       ///< what the page says when it is asked
    bool slow = false;                        ///< it says so only when the test calls `told`
    std::function<void(bool)> told, answered; ///< by the page, by the user; nothing when nobody is asked
    bool hasDocument = true;
    bool hasTools = true;
    bool hasLife = true;
    bool hasReading = true;
    Text text;                                        ///< what the page says, behind its address
    std::vector<std::function<void(Text)>> readers{}; ///< who waits for it while the page is slow to say it
    bool readsSlowly = false;
    std::optional<Text> glance{};      ///< what it says at a glance, where that differs
    int reads = 0;                     ///< how often it was read
    int glances = 0;                   ///< how often it was glanced at
    std::vector<Text> shownPassages{}; ///< what is marked in it
    std::size_t firstPassage = 0;
    std::vector<Text> messages{}; ///< what a page of our own was told
    PageActivity activity;
    std::string picture;
    mutable int pictured = 0; ///< how often it was asked for that
    bool asleep = false;
    bool ended = false;
    bool prints = false;
    std::int64_t process = 0;
    PageSecurity security = PageSecurity::None;
    Privacy privacy = Privacy::Ordinary;
    std::vector<Text> selectedLinks;
    int zoom = 2;
    bool audible = false;
    bool muted = false;
    std::string history;
    Text location;
    Text name;
    Rect place;
    Twips left{0};
    std::vector<std::string> calls; ///< in order: "go about:blank", "stop", ...

private:
    template<typename Value>
    Value Answer(const Value& value) const;
};

/// Makes fake views and lets the test reach them by index.
class FakeViews final : public BrowserViewFactory {
public:
    std::unique_ptr<BrowserView> Create(std::int16_t Index, BrowserViewEvents& events, Privacy privacy) override;
    [[nodiscard]] bool PagesWait() const override { return waiting; }

    /// The living view of that index; fails the test when there is none.
    FakeView& At(int index);
    [[nodiscard]] bool Has(int index) const { return living.contains(index); }
    /// What view `index` was asked so far, separated by blanks; forgets it.
    std::string Calls(int index);
    /// The views that are shown, the one in front with a star: "1* 2".
    [[nodiscard]] std::string Shown() const;

    std::map<int, FakeView*> living;
    std::function<void(int index)> ended; ///< what is the case when a view goes
    int front = 0;                        ///< the view last brought to the front
    int focused = 0;                      ///< the view that last got the keyboard
    bool refuses = false;                 ///< no view is made any more
    bool waiting = false;                 ///< pages wait for their turn to load
    std::size_t asked = 0;                ///< how often any of them was asked what its page is, and how it lives
};

template<typename Value>
Value FakeView::Answer(const Value& value) const {
    ++all.asked;
    return value;
}

} // namespace tessa

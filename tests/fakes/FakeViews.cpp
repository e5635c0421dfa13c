#include "tests/fakes/FakeViews.h"

#include <cstdio>
#include <cstdlib>
#include <utility>

namespace tessa {

FakeView::FakeView(std::int16_t index, BrowserViewEvents& events, FakeViews& all)
    : index(index), events(events), all(all) {
    all.living[index] = this;
}

FakeView::~FakeView() {
    all.living.erase(index);
    if (all.ended) all.ended(index);
}

Outcome FakeView::Navigate(TextView address) {
    calls.push_back("go " + ToUtf8(address));
    if (refuses) return Outcome::Failed;
    location = address;
    return Outcome::Done;
}

Outcome FakeView::Restore(const std::string& bytes, TextView address) {
    calls.push_back("restore " + bytes);
    if (refuses) return Outcome::Failed;
    location = address;
    history = bytes;
    return Outcome::Done;
}

void FakeView::AskToLeave(LeaveReason why, std::function<void(bool holds)> hears) {
    calls.emplace_back(why == LeaveReason::ToClose ? "asked" : "sounded");
    if (slow) {
        told = std::move(hears);
    } else {
        hears(holds);
    }
}

void FakeView::AskUserToLeave(std::function<void(bool leaves)> hears) {
    calls.emplace_back("asks user");
    answered = std::move(hears);
}

void FakeView::LetUserStay() {
    if (const auto hears = std::exchange(answered, nullptr)) hears(false);
}

Outcome FakeView::RestoreLater(const std::string& bytes, TextView address) {
    const Outcome outcome = Restore(bytes, address);
    calls.back() += " later";
    return outcome;
}

void FakeView::SetMuted(bool value) {
    muted = value;
    events.SoundChange(index);
}

Outcome FakeView::Stop() {
    calls.emplace_back("stop");
    busy = false;
    if (stopped) stopped();
    return refuses ? Outcome::Failed : Outcome::Done;
}

Outcome FakeView::Refresh() {
    calls.emplace_back("refresh");
    busy = true;
    return refuses ? Outcome::Failed : Outcome::Done;
}

Outcome FakeView::GoBack() {
    calls.emplace_back("back");
    return refuses ? Outcome::Failed : Outcome::Done;
}

Outcome FakeView::GoForward() {
    calls.emplace_back("forward");
    return refuses ? Outcome::Failed : Outcome::Done;
}

Outcome FakeView::GoHome() {
    calls.emplace_back("home");
    location = u"home:";
    return refuses ? Outcome::Failed : Outcome::Done;
}

Outcome FakeView::ExecWB(BrowserCommand command) {
    calls.push_back("command " + std::to_string(static_cast<int>(command)));
    return refuses ? Outcome::Failed : Outcome::Done;
}

Outcome FakeView::Zoom(int level) {
    calls.push_back("zoom " + std::to_string(level));
    zoom = level;
    return Outcome::Done;
}

void FakeView::Move(const Rect& value) {
    place = value;
    left = ToTwips(value.left);
}

void FakeView::MoveLeft(Twips value) {
    left = value;
    shown = false;
}

void FakeView::BringToFront() {
    all.front = index;
    shown = true;
}

void FakeView::SetFocus() { all.focused = index; }

Outcome FakeView::Run(PageAction action) {
    calls.push_back("action " + std::to_string(static_cast<int>(action)));
    return refuses ? Outcome::Failed : Outcome::Done;
}

void FakeView::ReadText(std::function<void(Text)> answer) {
    ++reads;
    if (asleep) return;
    if (readsSlowly) return readers.push_back(std::move(answer));
    answer(u"u" + location + u"\n" + text);
}

void FakeView::GlanceAtText(std::function<void(Text)> answer) {
    ++glances;
    if (asleep) return;
    if (readsSlowly) return readers.push_back(std::move(answer));
    answer(u"u" + location + u"\n" + glance.value_or(text));
}

void FakeView::ShowPassages(const std::vector<Text>& passages, std::size_t first) {
    shownPassages = passages;
    firstPassage = first;
}

Outcome FakeView::Sleep() {
    calls.emplace_back("sleep");
    if (refuses) return Outcome::Failed;
    asleep = true;
    return Outcome::Done;
}

Outcome FakeView::EndProcess() {
    calls.emplace_back("end");
    if (refuses || process == 0) return Outcome::Failed;
    process = 0;
    ended = true;
    return Outcome::Done;
}

Outcome FakeView::ReplaceWord(TextView word) {
    calls.push_back("word " + ToUtf8(word));
    return refuses ? Outcome::Failed : Outcome::Done;
}

Outcome FakeView::Save(TextView address, TextView path) {
    calls.push_back("save " + ToUtf8(address) + " in " + ToUtf8(path));
    return refuses ? Outcome::Failed : Outcome::Done;
}

std::unique_ptr<BrowserView> FakeViews::Create(std::int16_t Index, BrowserViewEvents& events, Privacy privacy) {
    if (refuses) return nullptr;
    auto view = std::make_unique<FakeView>(Index, events, *this);
    view->privacy = privacy;
    return view;
}

FakeView& FakeViews::At(int index) {
    const auto found = living.find(index);
    if (found == living.end()) {
        std::fprintf(stderr, "no view %d\n", index);
        std::abort();
    }
    return *found->second;
}

std::string FakeViews::Calls(int index) {
    std::string all;
    for (const auto& call : std::exchange(At(index).calls, {})) all += (all.empty() ? "" : ", ") + call;
    return all;
}

std::string FakeViews::Shown() const {
    std::string all;
    for (const auto& [index, view] : living) {
        if (view->shown) all += (all.empty() ? "" : " ") + std::to_string(index) + (index == front ? "*" : "");
    }
    return all;
}

} // namespace tessa

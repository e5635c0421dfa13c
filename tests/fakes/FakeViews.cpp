#include "tests/fakes/FakeViews.h"

#include <cstdio>
#include <cstdlib>
#include <utility>

FakeView::FakeView(std::int16_t index, BrowserViewEvents& events, FakeViews& all)
    : index(index), events(events), all(all) {
    all.living[index] = this;
}

FakeView::~FakeView() { all.living.erase(index); }

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

void FakeView::MoveLeft(Twips value) { left = value; }

void FakeView::BringToFront() { all.front = index; }

void FakeView::SetFocus() { all.focused = index; }

std::unique_ptr<BrowserView> FakeViews::Create(std::int16_t Index, BrowserViewEvents& events) {
    return refuses ? nullptr : std::make_unique<FakeView>(Index, events, *this);
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

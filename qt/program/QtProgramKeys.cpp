// The keyboard: who sees a key first, and where it leads.
#include "qt/engine/QtBrowserView.h"
#include "qt/program/QtProgram.h"
#include "qt/program/QtProgramParts.h"
#include "qt/questions/QtPageQuestions.h"

void QtProgram::WireKeys() {
    auto& main = m->main;
    m->keys.Down = [this, &main](KeyStroke key) {
        const bool leaves = key == KeyStroke{Keys::kEscape, 0} && m->commandBar.Ring().HasKeyboard();
        return leaves ? KeyUsed::No : main.Form_KeyDown(key);
    };
    m->typing.OverPage.ConnectForLife([&main] { main.Form_Type(); });
    m->keys.Up = [&main](KeyStroke key) { return main.Form_KeyUp(key); };
    m->commandBar.Reveal.ConnectForLife([this] { m->window.RevealBars(); });
    m->window.SetPageFills([this] { return m->engine.FullScreen().On(); });
    auto& ring = m->commandBar.Ring();
    ring.Strip = &m->strip;
    ring.StatusBar = &m->statusBar;
    ring.PageBars = {&m->captures, &m->offer, &m->findBar};
    ring.FocusPage.ConnectForLife([&main] { main.FocusPage(); });
    ring.Question = [this]() -> std::optional<QtFocusRing::Asked> {
        const auto* front = m->engine.Front();
        QtQuestionBar* asks = front && front->Questions() ? front->Questions()->bar.data() : nullptr;
        if (!asks || !asks->isVisible()) return std::nullopt;
        return QtFocusRing::Asked{asks, [asks] { asks->TakeFocus(); }};
    };
}

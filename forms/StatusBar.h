#pragma once
#include "base/Text.h"
#include "base/Units.h"
#include "forms/Controls.h"

namespace tessa {

/// The status bar: a single text, shown or hidden, and buttons while there is something to do about it. `Height` is
/// what its view needs, reported by the view.
struct StatusBar {
    StatusBar() {
        for (Button* button : {&StopAll, &Undo, &Saving, &Blocked}) button->Visible = false;
        Notice.Change.ConnectForLife([this] {
            if (Notice().empty()) ForgetUndo();
        });
    }

    Property<Text> SimpleText;
    /// What the program itself has to say. No text of a page stands in its stead until somebody can have read it; the
    /// view empties it then.
    Property<Text> Notice;
    /// How large the text of the page is, at the right end; empty when it has its usual size.
    Property<Text> Zoom;
    /// Which of the engine's profiles the window has, beside it; empty for the usual one. What its tip says.
    Property<Text> Profile;
    Text ProfileTip;
    Property<bool> Visible{true};
    Button StopAll{u"Stop all"};
    /// Takes back what the notice tells of; there for as long as that.
    Button Undo{u"&Undo"};
    /// What is being saved and how far that is; a click shows the list of it.
    Button Saving{u""};
    /// How many requests of the page were stopped; a click shows which. There while blocking is on.
    Button Blocked{u""};
    Pixels Height{24};

    /// Something went wrong beside what the user does; for the view, which shows it until it can have been read.
    Signal<void(TextView words)> Complaint;

    /// Says something, and offers to take it back when `undo` can.
    void Say(TextView words, std::function<void()> undo = {}) {
        // Said twice it is said anew.
        Notice = Text();
        const bool canUndo = undo != nullptr;
        if (canUndo) m_undo = Undo.Click.Connect(std::move(undo));
        Notice = Text(words);
        Undo.Visible = canUndo && !words.empty();
    }
    /// Says nothing more of it. What could be taken back no longer can.
    void Withdraw() { Notice = Text(); }

private:
    // What it would bring back is not kept any longer.
    void ForgetUndo() {
        Undo.Visible = false;
        m_undo.End();
    }

    Connection m_undo;
};

} // namespace tessa

#pragma once
#include "base/ResumeNext.h"
#include "base/Text.h"
#include "base/Units.h"
#include "platform/PageLife.h"
#include "platform/PageReading.h"
#include "platform/PageTools.h"

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace tessa {

/// Standard commands of a page view, with their known numbers.
enum class BrowserCommand {
    SaveAs = 4,
    Print = 6,
    PrintPreview = 7,
    PageSetup = 8,
    Cut = 11,
    Copy = 12,
    Paste = 13,
    SelectAll = 17
};

/// The document of a page view.
class PageDocument {
public:
    virtual ~PageDocument() = default;
    /// The size of the text, from 0 (smallest) to 4 (largest); 2 is the usual one.
    virtual Outcome Zoom(int level) = 0;
    /// What the sizes are in percent.
    static constexpr std::array kPercents{60, 80, 100, 125, 150};
};

/// Whether what a page does is forgotten with its tab and the others like it.
enum class Privacy : bool { Ordinary = false, Private = true };

/// How far what a page shows can be trusted to come from where its address says.
enum class PageSecurity {
    None,      ///< a blank page, an error's, or one of which that is not known yet
    Awaited,   ///< no page has been shown yet, and one is to come
    Own,       ///< made by the program
    Local,     ///< a file of this computer
    Secure,    ///< a host whose certificate was accepted by the engine
    Exception, ///< a host whose certificate the user has accepted
    NotSecure, ///< anybody on the way could have written it
};

/// What a view waits for.
enum class PageProgress {
    Done,    ///< nothing: what is shown has come, or has failed
    Loading, ///< what is shown loads, or something else does, or is about to
    PutOff,  ///< that somebody looks; it loads then
};

/// Why a page is asked whether it may go.
enum class LeaveReason {
    ToClose, ///< it is to be closed; it may take its leave, as pages do
    ToKnow   ///< it may well stay, and is to notice nothing
};

/// One page view of the engine. Making one costs nothing: the engine's page comes at the next turn of the event loop.
/// Of several navigations asked for within one turn, only the last takes place.
/// Owned by the view array. Calls may raise events before they return.
class BrowserView {
public:
    virtual ~BrowserView() = default;

    /// Loads what the user types or a page names: an address, a host, a path, or words to search for.
    virtual Outcome Navigate(TextView address) = 0;
    virtual Outcome Stop() = 0;
    virtual Outcome Refresh() = 0;
    virtual Outcome GoBack() = 0;
    virtual Outcome GoForward() = 0;
    virtual Outcome GoHome() = 0;
    /// Runs a standard command with its default options; it may ask the user and end later.
    virtual Outcome ExecWB(BrowserCommand command) = 0;

    [[nodiscard]] virtual bool Busy() const = 0;
    [[nodiscard]] virtual PageProgress Progress() const = 0;
    /// The address of the page shown, whatever the view is about to load. Before its first page, the address that it is
    /// to load. Without a user's name and password.
    [[nodiscard]] virtual Text LocationURL() const = 0;

    /// Whether a blank page is shown with nothing in it, and nothing else is to come.
    [[nodiscard]] virtual bool Blank() const = 0;

    /// The title of the page shown.
    [[nodiscard]] virtual Text LocationName() const = 0;
    /// Nothing while the view has shown no page but a blank one. Belongs to the view.
    [[nodiscard]] virtual PageDocument* Document() = 0;
    /// The text size of the view's pages, blank ones too, from 0 to 4 like `PageDocument::Zoom`.
    [[nodiscard]] virtual int ZoomLevel() const = 0;
    /// Nothing while there is no page. Belongs to the view.
    [[nodiscard]] virtual PageTools* Tools() = 0;
    /// Nothing while there is no page. Belongs to the view.
    [[nodiscard]] virtual PageLife* Life() = 0;
    /// Nothing while there is no page. Belongs to the view.
    [[nodiscard]] virtual PageReading* Reading() = 0;
    /// Of the page shown.
    [[nodiscard]] virtual PageSecurity Security() const = 0;

    /// Whether the page may want to hold its user: somebody has done something in it since it came.
    [[nodiscard]] virtual bool MayHold() const = 0;
    /// Asks the page, which shows nothing. `told` hears once, at once or soon, whether the page wants to hold its user.
    /// It is not called any more when the view goes.
    virtual void AskToLeave(LeaveReason why, std::function<void(bool holds)> told) = 0;
    /// Asks the user over the page, which is in front. Once he leaves, the page holds him no more. `answered` hears it
    /// once, unless the view goes.
    virtual void AskUserToLeave(std::function<void(bool leaves)> answered) = 0;
    /// Takes both questions away: he stays. A page that has let go by then still tells that.
    virtual void LetUserStay() = 0;

    /// Where the page has been, as bytes that only `Restore` of a view understands; empty when there is nothing.
    [[nodiscard]] virtual std::string History() const = 0;
    /// Brings a page back with where it has been. Damaged bytes, or another release's, load the address alone.
    virtual Outcome Restore(const std::string& history, TextView address) = 0;
    /// The same as soon as somebody looks at the view.
    virtual Outcome RestoreLater(const std::string& history, TextView address) = 0;

    /// Whether the page can be heard at this moment, were it not muted.
    [[nodiscard]] virtual bool Audible() const = 0;
    [[nodiscard]] virtual bool Muted() const = 0;
    virtual void SetMuted(bool muted) = 0;

    virtual void SetVisible(bool visible) = 0;
    virtual void SetTabStop(bool tabStop) = 0;
    /// In the page area of the window. A view far to the left is parked: hidden from the engine, alive.
    virtual void Move(const Rect& place) = 0;
    virtual void MoveLeft(Twips left) = 0;
    virtual void BringToFront() = 0;
    /// Shows the view beside the one in front, until it is parked.
    virtual void ShowBeside() = 0;
    virtual void SetFocus() = 0;
};

/// Whether an event concerns the view's page or a frame inside it.
enum class PageLevel { Top, Frame };

/// The history command whose state changed.
enum class HistoryCommand { UpdateCommands = -1, NavigateForward = 1, NavigateBack = 2 };

/// Where a window that a page asks for is to come. It is as the user has set it, or the other way while the user holds
/// the key for that. It is in front when a command of the user's is about it.
enum class NewWindowPlace { AsSet, OtherWay, InFront };

/// Where the events of all views arrive, the view's index first.
class BrowserViewEvents {
public:
    virtual ~BrowserViewEvents() = default;

    virtual void StatusTextChange(std::int16_t Index, TextView Text) = 0;
    virtual void CommandStateChange(std::int16_t Index, HistoryCommand Command, bool Enable) = 0;
    virtual void DownloadBegin(std::int16_t Index) = 0;
    virtual void DownloadComplete(std::int16_t Index) = 0;
    virtual void TitleChange(std::int16_t Index, TextView Text) = 0;
    virtual void BeforeNavigate2(std::int16_t Index, PageLevel pDisp, TextView URL) = 0;
    /// A page asks for a new window: the view to show it in, or nothing.
    virtual BrowserView* NewWindow2(std::int16_t Index, NewWindowPlace Place) = 0;
    virtual void NavigateComplete2(std::int16_t Index, PageLevel pDisp, TextView URL) = 0;
    virtual void DocumentComplete(std::int16_t Index, PageLevel pDisp, TextView URL) = 0;
    /// The page shown has gone to an address by itself, and nothing of that has come for long. What is shown is to be
    /// called by its own address again. The navigation goes on.
    virtual void NavigationOverdue(std::int16_t Index) = 0;
    /// What is known of the security of the page shown has changed.
    virtual void SecurityChange(std::int16_t Index) = 0;
    /// A frame's navigation has ended without a document: it became a download, or there was nothing to show.
    virtual void NavigationDropped(std::int16_t Index) = 0;
    /// The page asks its user something, or no longer does.
    virtual void AttentionChange(std::int16_t Index, bool Asks) = 0;
    /// The user asks for the menu of what lies there in the page.
    virtual void ContextMenu(std::int16_t Index, const PageContext& Context) = 0;
    /// The page has closed its own window.
    virtual void WindowClosing(std::int16_t Index) = 0;
    /// The page has begun or ended to be heard, or was muted or not.
    virtual void SoundChange(std::int16_t Index) = 0;
};

/// Makes views. Owned by the program's entry.
class BrowserViewFactory {
public:
    virtual ~BrowserViewFactory() = default;
    /// `events` outlives the view. Nothing when no view can be made.
    virtual std::unique_ptr<BrowserView> Create(std::int16_t Index, BrowserViewEvents& events, Privacy privacy) = 0;
    /// Whether pages wait for their turn to load.
    [[nodiscard]] virtual bool PagesWait() const = 0;
};

} // namespace tessa

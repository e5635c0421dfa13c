#pragma once
#include "base/ResumeNext.h"
#include "base/Text.h"

#include <functional>
#include <vector>

namespace tessa {

/// What lies under the pointer, or has the keyboard, where a page's menu is asked for. All texts are the page's.
struct PageContext {
    enum class Kind { None, Image, Audio, Video };
    Text LinkURL;  ///< empty where there is no link
    Text MediaURL; ///< of the image, the sound or the film
    Kind Media = Kind::None;
    Text SelectedText;
    bool SelectsLinks = false; ///< there are links in it, or it is not known whether
    Text MisspelledWord;       ///< empty for none
    std::vector<Text> Suggestions;
    bool Editable = false;
    bool CanUndo = false, CanRedo = false, CanCut = false, CanCopy = false, CanPaste = false;
    bool MediaPaused = false, MediaMuted = false, MediaLoops = false, MediaHasControls = false;
};

/// What can be done with what the menu was asked for on.
enum class PageAction {
    Undo,
    Redo,
    PasteAsText,
    CopyImage,
    PlayOrPause,
    MuteOrNot,
    LoopOrNot,
    ShowControlsOrNot,
    Inspect,
};

/// The inside of a page, as far as its menu reaches. Belongs to its view.
class PageTools {
public:
    virtual ~PageTools() = default;
    virtual Outcome Run(PageAction action) = 0;
    /// Replaces the misspelled word under the pointer.
    virtual Outcome ReplaceWord(TextView word) = 0;
    /// Saves what lies at an address, with the page's rights, in that file; replaces what is there.
    virtual Outcome Save(TextView address, TextView path) = 0;
    /// Answers later, or never, with the addresses of the links that are selected, in their order.
    virtual void FindSelectedLinks(std::function<void(std::vector<Text>)> answer) = 0;
};

} // namespace tessa

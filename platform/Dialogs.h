#pragma once
#include "base/Text.h"

namespace tessa {

enum class Answer { Yes, No, Cancel };

/// A question with answers of its own.
struct OwnQuestion {
    Text Heading;
    Text Details; ///< lines below it; may be empty
    Text Keeps;   ///< the button that changes nothing, which is the first and answers Enter and Escape
    Text GoesOn;  ///< the other one
};

/// Questions and messages to the user. Owned by the program's entry. A dialog runs its own event loop: what was looked
/// up before may be gone when it returns.
class MessageBoxes {
public:
    virtual ~MessageBoxes() = default;
    /// A modal question with the buttons Yes, No and Cancel and the question icon, titled with the application's
    /// title. Closing the box answers Cancel.
    virtual Answer AskYesNoCancel(TextView question) = 0;
    /// A modal question, titled with the application's title: whether the user goes on. Closing the box does not.
    virtual bool AskOwn(const OwnQuestion& question) = 0;
    /// The same with Cancel as a third button, which Escape and closing the box answer. `Keeps` is No, `GoesOn` Yes.
    virtual Answer AskOwnOrCancel(const OwnQuestion& question) = 0;
    /// A modal message with the information icon and an OK button, titled with the application's title.
    virtual void Inform(TextView message) = 0;
};

/// One use of the common file dialog `cmDialog`.
struct FileDialogRequest {
    Text DialogTitle;
    Text InitDir; ///< empty for the one that the desktop has for documents, when saving
    Text Filter;  ///< pairs of description and patterns, separated by "|", patterns by ";"
    bool MustExist = false;
    Text FileName{}; ///< suggested, when saving
};

class FileDialogs {
public:
    virtual ~FileDialogs() = default;
    /// The chosen path; empty when the user cancelled.
    virtual Text ShowOpen(const FileDialogRequest& request) = 0;
    /// The path to save to; empty when the user cancelled. Does not ask whether to overwrite.
    virtual Text ShowSave(const FileDialogRequest& request) = 0;
    /// Asks for a folder, beginning at the one given; empty when the user cancelled.
    virtual Text ChooseFolder(TextView folder) = 0;
};

} // namespace tessa

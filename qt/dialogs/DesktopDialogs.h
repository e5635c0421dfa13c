#pragma once
#include "platform/Dialogs.h"

#include <QPointer>
#include <QStringList>
#include <QWidget>

namespace tessa::qt {

/// Message boxes on the desktop, over the window that is active.
class DesktopMessageBoxes final : public MessageBoxes {
public:
    Answer AskYesNoCancel(TextView question) override;
    bool AskOwn(const OwnQuestion& question) override;
    Answer AskOwnOrCancel(const OwnQuestion& question) override;
    void Inform(TextView message) override;
};

/// The desktop's file dialog.
class DesktopFileDialogs final : public FileDialogs {
public:
    Text ShowOpen(const FileDialogRequest& request) override;
    Text ShowSave(const FileDialogRequest& request) override;
    /// Asks for a folder, beginning at the one given; empty when none was chosen.
    Text ChooseFolder(TextView folder) override;
};

/// A filter as Qt wants it, a description and its patterns an entry. The dialog shows the description as it is. The
/// patterns stand behind it in brackets, which Qt takes away. "*.*" means all files; a description without patterns is
/// left out.
[[nodiscard]] QStringList NameFilters(TextView filter);

} // namespace tessa::qt

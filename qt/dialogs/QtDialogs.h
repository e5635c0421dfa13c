#pragma once
#include "platform/Dialogs.h"

#include <QPointer>
#include <QStringList>
#include <QWidget>

/// Message boxes on the desktop, over the window that is active.
class QtMessageBoxes final : public MessageBoxes {
public:
    Answer AskYesNoCancel(TextView question) override;
    bool AskOwn(const OwnQuestion& question) override;
    Answer AskOwnOrCancel(const OwnQuestion& question) override;
    void Inform(TextView message) override;
};

/// The desktop's file dialog.
class QtFileDialogs final : public FileDialogs {
public:
    Text ShowOpen(const FileDialogRequest& request) override;
    Text ShowSave(const FileDialogRequest& request) override;
    /// Asks for a folder, beginning at the one given; empty when none was chosen.
    Text ChooseFolder(TextView folder) override;
};

/// A filter as Qt wants it, an entry a pair of description and patterns: the description as it is, which is what the
/// dialog shows, and behind it the patterns in brackets, which Qt takes away before it shows the rest. "*.*" means all
/// files; a description without patterns is left out.
[[nodiscard]] QStringList QtNameFilters(TextView filter);

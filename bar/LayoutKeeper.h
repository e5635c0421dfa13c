#pragma once
#include "bar/CommandBar.h"
#include "base/Signal.h"
#include "base/WriteTrouble.h"
#include "platform/LayoutFile.h"

namespace tessa {

/// Keeps the command bar's layout in its file from one run to the next.
class LayoutKeeper {
public:
    /// Both outlive it.
    LayoutKeeper(CommandBar& actBar, LayoutFile& file);
    LayoutKeeper(const LayoutKeeper&) = delete;
    LayoutKeeper& operator=(const LayoutKeeper&) = delete;

    /// Arranges the bar, which is as designed, like the file says. One that is missing or cannot be read changes
    /// nothing.
    void Load();
    /// Writes the layout. A file that could not be read is replaced only when the user has arranged something since. So
    /// a passing trouble does not cost the layout in it.
    void Save();
    /// Writes it again when the last write failed.
    void SaveAgain();

    /// Tells the user what went wrong.
    Signal<void(TextView)> Say;
    /// Has `SaveAgain` called in a while.
    Signal<void()> TryAgain;

private:
    void Tell(TextView message) const;

    CommandBar& m_actBar;
    LayoutFile& m_file;
    WriteTrouble m_trouble{u"The layout of the toolbars could not be saved."};
    bool m_unread = false;
    std::string m_loaded; ///< the layout as it was after loading
};

} // namespace tessa

#include "qt/program/WindowAssembly.h"

#include "commands/BarGestures.h"
#include "commands/keys/WindowKeys.h"
#include "pages/InstanceProfiles.h"
#include "qt/base/Strings.h"
#include "qt/desktop/InstanceProfile.h"
#include "qt/engine/Engine.h"
#include "qt/strip/TabStripView.h"
#include "qt/window/MainWindowFrame.h"
#include "window/frmMain.h"

#include <QWebEngineProfile>

namespace tessa::qt {

WindowAssembly::WindowAssembly(frmMain& main, MainWindowFrame& window, TabStripView& strip)
    : statusBar(main.sbStatus), m_main(main), m_window(window), m_fileDrop(window, GroupCommands::IsGroupFile) {
    m_main.pcPage.RowHeight = strip.RowHeight();
    m_window.SetTabStrip(strip);
    m_window.SetStatusBar(statusBar);
    FollowWindow(strip);
    m_fileDrop.Dropped.ConnectForLife([this](const std::vector<Text>& files) { m_main.OpenTessaGroups(files); });
}

void WindowAssembly::FollowWindow(TabStripView& strip) {
    m_connections += m_window.Resized.Connect([this, &strip] {
        m_main.pcPage.RowHeight = strip.RowHeight();
        m_main.Form_Resize();
    });
    m_connections += m_window.Activated.Connect([this] { m_main.Form_Activate(); });
    m_connections +=
        m_window.FullScreenChanged.Connect([this](bool on) { BarGestures::FullScreenChanged(m_main.actBar, on); });
    m_window.Heed(*this);
    m_connections += m_window.QueryUnload.Connect([this] {
        if (m_main.Form_QueryUnload()) m_window.Unload();
    });
}

bool WindowAssembly::PageFills() const { return m_engine && m_engine->FullScreen().On(); }

QString WindowAssembly::Keys() const { return ToQt(ToolKeys::ShownWords(m_main.actBar, u"xtrFullScreen"_tool)); }

void WindowAssembly::FollowPages(Engine& engine, const InstanceProfile& ownProfile) {
    m_engine = &engine;
    m_connections += engine.Told().Notice.Connect([this](const QString& words) { statusBar.Notice(words); });
    m_connections += engine.Profiles().Made.Connect(
        [this, &ownProfile](QWebEngineProfile& made) { TellProfile(made.isOffTheRecord() ? 0 : ownProfile.Number()); });
}

void WindowAssembly::TellProfile(int number) {
    const auto words = InstanceProfiles::WordsFor(number);
    m_main.sbStatus.ProfileTip = words.Tip;
    m_main.sbStatus.Profile = words.Sign;
    if (words.Notice.empty()) return;
    number == 0 ? statusBar.Complain(ToQt(words.Notice)) : statusBar.Notice(ToQt(words.Notice));
}

} // namespace tessa::qt

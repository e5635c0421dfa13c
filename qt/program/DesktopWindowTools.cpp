#include "qt/program/DesktopWindowTools.h"

#include "qt/engine/Engine.h"
#include "qt/page/DevTools.h"
#include "qt/page/WebPage.h"
#include "qt/window/FindBar.h"

namespace tessa::qt {

void DesktopWindowTools::ShowFind(BrowserView&) { m_findBar.Open(); }

void DesktopWindowTools::ToggleDevTools() { m_devTools.Toggle(m_engine.FrontPage()); }

} // namespace tessa::qt

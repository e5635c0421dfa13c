#include "qt/program/QtWindowTools.h"

#include "qt/engine/QtEngine.h"
#include "qt/page/QtDevTools.h"
#include "qt/page/QtPage.h"
#include "qt/window/QtFindBar.h"

namespace tessa::qt {

void QtWindowTools::ShowFind(BrowserView&) { m_findBar.Open(); }

void QtWindowTools::ToggleDevTools() { m_devTools.Toggle(m_engine.FrontPage()); }

} // namespace tessa::qt

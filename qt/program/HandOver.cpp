#include "qt/program/HandOver.h"

#include "app/UnseenWindow.h"
#include "qt/base/ProgramLog.h"
#include "qt/base/Strings.h"
#include "qt/desktop/DesktopDefaultBrowser.h"
#include "qt/desktop/DiskLayoutFile.h"
#include "qt/desktop/DiskSettingsStorage.h"
#include "qt/desktop/Folders.h"
#include "qt/desktop/SocketInstanceChannel.h"
#include "window/frmDefBrowser.h"

namespace tessa::qt {

namespace HandOver {

bool TryWithoutWindow(TextView commandLine) {
    const Folders folders = Folders::Find(Folders::ProgramFile());
    const ProgramLog log(folders.state);
    DiskSettingsStorage settings(folders.settings, DiskSettingsStorage::Damaged::LeftAlone);
    DesktopDefaultBrowser browser;
    if (frmDefBrowser::MayAsk(settings, browser)) return false;
    InstanceSender instances(folders.state);
    DiskLayoutFile layout(folders.program);
    UnseenWindow window(settings, instances, layout, FromQt(folders.GroupFolder()));
    return Startup::HandsOver(window.Platform(), commandLine);
}

} // namespace HandOver

} // namespace tessa::qt

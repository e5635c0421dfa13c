#include "qt/program/QtHandOver.h"

#include "app/UnseenWindow.h"
#include "qt/base/QtLog.h"
#include "qt/base/QtText.h"
#include "qt/desktop/QtDefaultBrowser.h"
#include "qt/desktop/QtFolders.h"
#include "qt/desktop/QtInstanceChannel.h"
#include "qt/desktop/QtLayoutFile.h"
#include "qt/desktop/QtSettingsStorage.h"
#include "settings/SettingsStore.h"

namespace tessa::qt {

namespace {

bool MayAsk(SettingsStorageFactory& settings) {
    return SettingsStore(settings).AskDefaultBrowser.Get() && !QtDefaultBrowser::NothingToAsk();
}

} // namespace

namespace QtHandOver {

bool TryWithoutWindow(TextView commandLine) {
    const QtFolders folders = QtFolders::Find(QtFolders::ProgramFile());
    const QtLog log(folders.state);
    QtSettingsStorage settings(folders.settings, QtSettingsStorage::Damaged::LeftAlone);
    if (MayAsk(settings)) return false;
    QtInstanceSender instances(folders.state);
    QtLayoutFile layout(folders.program);
    UnseenWindow window(settings, instances, layout, FromQt(folders.GroupFolder()));
    return Startup::HandsOver(window.Platform(), commandLine);
}

} // namespace QtHandOver

} // namespace tessa::qt

#include "qt/QtHandOver.h"

#include "app/UnseenWindow.h"
#include "qt/QtDefaultBrowser.h"
#include "qt/QtFolders.h"
#include "qt/QtInstanceChannel.h"
#include "qt/QtLayoutFile.h"
#include "qt/QtLog.h"
#include "qt/QtSettingsStorage.h"
#include "qt/QtText.h"
#include "settings/SettingsStore.h"

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

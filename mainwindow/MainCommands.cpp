#include "mainwindow/MainCommands.h"

#include "commands/External.h"
#include "commands/frmResize.h"
#include "mainwindow/frmMain.h"

namespace {

void Resize(frmMain& main, void (frmResize::*mode)()) {
    frmResize form(main.actBar);
    (form.*mode)();
    if (main.Platform.showResize) main.Platform.showResize(form);
}

Text MailAddress(const frmMain& main, TextView tool, TextView title, TextView address) {
    const Text environment = External::EnvironmentText(main.Platform.settings, main.Platform.shell);
    return External::MailAddress(tool, {.title = title, .address = address, .environment = environment});
}

} // namespace

namespace MainCommands {

void Fill(CommandHost& host, frmMain& main) {
    host.ResizeAddress = [&main] { Resize(main, &frmResize::ResizeAddress); };
    host.ResizeSearch = [&main] { Resize(main, &frmResize::ResizeSearch); };
    host.LaunchMailClient = [&main] { External::LaunchMailClient(main.Platform.settings, main.Platform.shell); };
    host.LaunchNewsClient = [&main] { External::LaunchNewsClient(main.Platform.settings, main.Platform.shell); };
    host.MailAddress = [&main](TextView tool, TextView title, TextView address) {
        return MailAddress(main, tool, title, address);
    };
}

} // namespace MainCommands

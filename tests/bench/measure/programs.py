"""How the programs are started."""
import os

TITLES = {"TessaView": "^TessaView 3$", "bare": "^bench_reference$"}
SLEEP_MINUTES = 1  # the least that can be set


def reference_command(options, addresses, _home):
    return [options.reference, *addresses]


def program_command(options, addresses, home):
    with open(os.path.join(home, "settings.ini"), "w", encoding="ascii") as file:
        file.write("[General]\nAskDefaultBrowser=false\n")
    if len(addresses) == 1:
        return [options.program, addresses[0]]
    group = os.path.join(home, "bench.tvg")
    lines = ["[TessaGroup]"] + [f"url{i}={address}" for i, address in enumerate(addresses, 1)]
    with open(group, "w", encoding="ascii", newline="") as file:
        file.write("".join(line + "\r\n" for line in lines))
    return [options.program, group]


def restart_command(options, addresses, home):
    """A start that brings the sites of the session before back, the last of them in front."""
    sites = ", ".join(f'"{address}"' for address in addresses)
    with open(os.path.join(home, "settings.ini"), "w", encoding="ascii") as file:
        file.write(f"[General]\nAskDefaultBrowser=false\nRememberLastSites=true\nLastSites={sites}\n")
    return [options.program]


def download_command(options, addresses, home):
    """A start that saves where the bare program does: in the current folder."""
    with open(os.path.join(home, "settings.ini"), "w", encoding="ascii") as file:
        file.write(f"[General]\nAskDefaultBrowser=false\nInternetDownloadFolder={home}\n")
    return [options.program, *addresses]


def exit_command(options, server, home):
    """A start with many small pages whose addresses are of the usual length."""
    return program_command(options, [server.small_address(n) for n in range(1, options.exit + 1)], home)


def sleep_command(options, addresses, home):
    command = program_command(options, addresses, home)
    with open(os.path.join(home, "settings.ini"), "a", encoding="ascii") as file:
        file.write(f"InternetTabsSleep=true\nInternetSleepMinutes={SLEEP_MINUTES}\n")
    return command


def environment(display, home):
    result = {**os.environ, "DISPLAY": display.name, "QT_QPA_PLATFORM": "xcb", "TESSAVIEW_HOME": home}
    if os.geteuid() == 0:
        result["QTWEBENGINE_DISABLE_SANDBOX"] = "1"
    return result

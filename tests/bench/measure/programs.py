"""How TessaView and the bare program are started."""
import os

DRAWINGS = ("software", "hardware")
SLEEP_MINUTES = 1  # the least that can be set
# What would change how a program is drawn, or where it shows.
_LEFT_OUT = ("QT_QUICK_BACKEND", "QMLSCENE_DEVICE", "QT_OPENGL", "LIBGL_ALWAYS_SOFTWARE", "QTWEBENGINE_CHROMIUM_FLAGS",
             "TESSAVIEW_DRAWING", "WAYLAND_DISPLAY")


def clean_environment(display):
    """The caller's, without what would make one program differ from the other."""
    kept = {name: value for name, value in os.environ.items() if name not in _LEFT_OUT}
    return {**kept, "DISPLAY": display.name}


class QtProgram:
    """A program on Qt WebEngine, drawn with the graphics processor ("hardware") or without ("software")."""

    def __init__(self, path, drawing):
        self.path, self.drawing = path, drawing

    def environment(self, display, home):
        result = {**clean_environment(display), "QT_QPA_PLATFORM": "xcb", "TESSAVIEW_HOME": home}
        if os.geteuid() == 0:
            result["QTWEBENGINE_DISABLE_SANDBOX"] = "1"
        return result


class Bare(QtProgram):
    """The bare program: a tab widget and one engine view a page. With `keeps` its profile lies on the disk, as that of
    a browser does."""

    name = "bare"
    window = ["--name", "^bench_reference$"]

    def __init__(self, path, drawing, keeps=False):
        super().__init__(path, drawing)
        self._keeps = keeps

    def environment(self, display, home):
        result = super().environment(display, home)
        # By this the engine also goes without its graphics process, and the window is not made for OpenGL.
        if self.drawing == "software":
            result["QT_QUICK_BACKEND"] = "software"
        return result

    def open(self, addresses, home):
        """The command that opens all of them, the last one in front."""
        return [self.path, *(["--profile", home] if self._keeps else []), *addresses]

    restart = open
    download = open


class TessaView(QtProgram):
    """Its state lies in the folder that each of these commands is given."""

    name = "TessaView"
    window = ["--name", "^TessaView 3$"]

    def environment(self, display, home):
        return {**super().environment(display, home), "TESSAVIEW_DRAWING": self.drawing}

    @staticmethod
    def _settings(home, *lines):
        with open(os.path.join(home, "settings.ini"), "w", encoding="ascii") as file:
            file.write("".join(line + "\n" for line in ("[General]", "AskDefaultBrowser=false", *lines)))

    def open(self, addresses, home, *settings):
        """The command that opens all of them, the last one in front: several as a group."""
        self._settings(home, *settings)
        if len(addresses) == 1:
            return [self.path, addresses[0]]
        # Of a large group that lies elsewhere the program asks first.
        group = os.path.join(home, "TessaGroups", "bench.tvg")
        os.makedirs(os.path.dirname(group), exist_ok=True)
        lines = ["[TessaGroup]"] + [f"url{i}={address}" for i, address in enumerate(addresses, 1)]
        with open(group, "w", encoding="ascii", newline="") as file:
            file.write("".join(line + "\r\n" for line in lines))
        return [self.path, group]

    def again(self, address, _home):
        """A second start, which hands the address over."""
        return [self.path, address]

    def restart(self, addresses, home):
        """A start that brings the sites of the session before back, the last of them in front."""
        sites = ", ".join(f'"{address}"' for address in addresses)
        self._settings(home, "RememberLastSites=true", f"LastSites={sites}")
        return [self.path]

    def download(self, addresses, home):
        """A start that saves where the bare program does: in the current folder."""
        self._settings(home, f"InternetDownloadFolder={home}")
        return [self.path, *addresses]

    def sleep(self, addresses, home):
        """A start whose tabs sleep once they were not looked at for a while."""
        return self.open(addresses, home, "InternetTabsSleep=true", f"InternetSleepMinutes={SLEEP_MINUTES}")

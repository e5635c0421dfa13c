"""A stand-alone browser, where one is installed: how it is found and started.

Looked for on PATH, in this order: chromium, chromium-browser, google-chrome, google-chrome-stable, brave-browser,
microsoft-edge, vivaldi, firefox, firefox-esr. A path may be named instead; of a program with another name its
--version tells which family it is of.

Each start has a new profile and a home folder of its own inside the folder of the run, opens its pages at once, and
neither welcomes its user nor asks to be the default browser nor updates itself. Chromium is kept from every host but
this one, Firefox is told not to ask for anything. Pages are drawn as the browser chooses to.

    chromium  --user-data-dir=HOME/profile SWITCHES ADDRESS...        see Chromium.SWITCHES
    firefox   --profile HOME/profile --new-instance ADDRESS...        with HOME/profile/user.js, see Firefox.SETTINGS

The page in front of these browsers is the first they are given, which is therefore the last of the group."""
import os
import shutil
import subprocess
import tempfile

from measure.processes import NotMeasured
from measure.programs import clean_environment


class Browser:
    """What all of them have in common."""

    name = "browser"
    drawing = ""

    def __init__(self, path):
        self.path = path

    def environment(self, display, home):
        result = {**clean_environment(display), "HOME": home, "XDG_SESSION_TYPE": "x11", "GDK_BACKEND": "x11"}
        for kind in "config", "data", "cache", "state":
            result[f"XDG_{kind.upper()}_HOME"] = os.path.join(home, kind)
        return result

    @staticmethod
    def _profile(home):
        profile = os.path.join(home, "profile")
        os.makedirs(profile, exist_ok=True)
        return profile

    def version(self):
        """What it says of itself."""
        with tempfile.TemporaryDirectory(prefix="tessabench-") as home:
            environment = {**os.environ, "HOME": home}
            try:
                told = subprocess.run([self.path, "--version"], env=environment, stdin=subprocess.DEVNULL,
                                      capture_output=True, text=True, errors="replace", timeout=20, check=False).stdout
            except (OSError, subprocess.TimeoutExpired):
                told = ""
        lines = [line.strip() for line in told.splitlines() if line.strip()]
        return lines[0] if lines else f"{os.path.basename(self.path)} of an unknown version"


class Chromium(Browser):
    """Chromium and what is made from it."""

    NAMES = ("chromium", "chromium-browser", "google-chrome", "google-chrome-stable", "brave-browser", "microsoft-edge",
             "vivaldi")
    SWITCHES = (
        "--no-first-run", "--no-default-browser-check", "--disable-search-engine-choice-screen",
        # No traffic of its own.
        "--disable-background-networking", "--disable-component-update", "--disable-default-apps", "--disable-sync",
        "--disable-domain-reliability", "--disable-client-side-phishing-detection", "--disable-breakpad", "--no-pings",
        "--metrics-recording-only", "--host-resolver-rules=MAP * ~NOTFOUND , EXCLUDE 127.*",
        "--disable-features=MediaRouter,OptimizationHints,Translate",
        # Neither a key ring nor the session's own display.
        "--password-store=basic", "--ozone-platform=x11", "--window-position=0,0", "--window-size=1024,768",
    )
    window = ["--class", "[Cc]hrom|[Bb]rave|[Ee]dge|[Vv]ivaldi"]

    def again(self, address, home):
        """The command that opens an address, also by a second start, which hands it over."""
        # For root its sandbox does not work.
        sandbox = ["--no-sandbox"] if os.geteuid() == 0 else []
        return [self.path, f"--user-data-dir={self._profile(home)}", *self.SWITCHES, *sandbox, address]

    def open(self, addresses, home):
        return self.again(addresses[-1], home) + addresses[:-1]


class Firefox(Browser):
    """Firefox."""

    NAMES = ("firefox", "firefox-esr")
    SETTINGS = {
        # No pages of its own, no questions.
        "browser.startup.page": 0, "browser.startup.homepage_override.mstone": "ignore",
        "startup.homepage_welcome_url": "about:blank", "startup.homepage_welcome_url.additional": "",
        "browser.aboutwelcome.enabled": False, "browser.shell.checkDefaultBrowser": False,
        "browser.tabs.warnOnOpen": False, "browser.uitour.enabled": False, "termsofuse.bypassNotification": True,
        "datareporting.policy.dataSubmissionPolicyBypassNotification": True,
        "browser.sessionstore.resume_from_crash": False, "toolkit.startup.max_resumed_crashes": -1,
        # No updates.
        "app.update.auto": False, "app.update.enabled": False, "app.update.disabledForTesting": True,
        "extensions.update.enabled": False, "extensions.systemAddon.update.enabled": False,
        "browser.search.update": False, "media.gmp-manager.updateEnabled": False,
        # No traffic of its own.
        "app.normandy.enabled": False, "datareporting.healthreport.uploadEnabled": False,
        "datareporting.policy.dataSubmissionEnabled": False, "toolkit.telemetry.enabled": False,
        "toolkit.telemetry.server": "", "browser.safebrowsing.malware.enabled": False,
        "browser.safebrowsing.phishing.enabled": False, "browser.safebrowsing.downloads.enabled": False,
        "browser.newtabpage.enabled": False, "browser.newtabpage.activity-stream.feeds.topsites": False,
        "browser.newtabpage.activity-stream.feeds.section.topstories": False, "browser.region.network.url": "",
        "network.captive-portal-service.enabled": False, "network.connectivity-service.enabled": False,
        "services.settings.server": "http://127.0.0.1:9/", "dom.push.connection.enabled": False,
        "extensions.getAddons.cache.enabled": False, "network.prefetch-next": False,
    }
    window = ["--class", "[Ff]irefox|Navigator"]

    def environment(self, display, home):
        return {**super().environment(display, home), "MOZ_CRASHREPORTER_DISABLE": "1", "MOZ_ENABLE_WAYLAND": "0"}

    @staticmethod
    def _setting(name, value):
        words = {True: "true", False: "false"}[value] if isinstance(value, bool) else value
        return f'user_pref("{name}", "{words}");' if isinstance(value, str) else f'user_pref("{name}", {words});'

    def open(self, addresses, home):
        profile = self._profile(home)
        with open(os.path.join(profile, "user.js"), "w", encoding="ascii") as file:
            file.write("".join(self._setting(*each) + "\n" for each in self.SETTINGS.items()))
        return [self.path, "--profile", profile, "--new-instance", "--width", "1024", "--height", "768",
                addresses[-1], *addresses[:-1]]

    def again(self, address, home):
        """A second start, which hands the address over."""
        return [self.path, "--profile", self._profile(home), address]


FAMILIES = (Chromium, Firefox)


def of_path(path):
    """The browser that a program is."""
    found = shutil.which(path)
    if not found:
        raise NotMeasured(f"{path} cannot be started")
    for name in os.path.basename(found), os.path.basename(os.path.realpath(found)):
        for family in FAMILIES:
            if name in family.NAMES:
                return family(found)
    told = Browser(found).version().lower()
    for family, words in (Firefox, ("firefox", "librewolf")), (Chromium, ("chrom", "brave", "edge", "vivaldi")):
        if any(word in told for word in words):
            return family(found)
    raise NotMeasured(f"{path} is no browser that is known here")


def find(wish=None):
    """The browser to measure: the one that is wished for, else the first that is installed, if there is one."""
    if wish:
        return of_path(wish)
    for family in FAMILIES:
        for name in family.NAMES:
            if path := shutil.which(name):
                return family(path)
    return None

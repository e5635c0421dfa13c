"""The package that `cpack -G DEB` makes of the build folder, looked at without installing it."""

import configparser
import gzip
import os
import pathlib
import re
import struct
import subprocess
import tempfile
import unittest
import xml.etree.ElementTree

import package

BUILD = package.build_folder()
NEEDED = ("packaging_packages",)
SIZES = (16, 22, 24, 32, 48, 64, 128, 256, 512)
SHARED_MIME = "{http://www.freedesktop.org/standards/shared-mime-info}"


def png_size(file):
    head = file.read_bytes()[:24]
    assert head[:8] == b"\x89PNG\r\n\x1a\n", file
    return struct.unpack(">II", head[16:24])


class Package(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        package.install_tools(*NEEDED)
        cls._folder = tempfile.TemporaryDirectory()
        cls.folder = pathlib.Path(cls._folder.name)
        cls.file = package.make_package(BUILD, cls.folder)
        cls.root, cls.control = cls.folder / "root", cls.folder / "control"
        package.run("dpkg-deb", "-x", cls.file, cls.root)
        package.run("dpkg-deb", "-e", cls.file, cls.control)
        cls.share = cls.root / "usr/share"

    @classmethod
    def tearDownClass(cls):
        cls._folder.cleanup()

    def field(self, name):
        return package.run("dpkg-deb", "-f", self.file, name).strip()

    def test_debians_own_checker_finds_no_fault(self):
        answer = subprocess.run(
            ["lintian", "--fail-on", "error,warning", "--tag-display-limit", "0", self.file],
            capture_output=True, text=True, check=False
        )
        self.assertEqual(answer.returncode, 0, answer.stdout + answer.stderr)

    def test_it_depends_on_the_engine_and_on_what_its_icons_need(self):
        depends = self.field("Depends")
        for each in ("libqt6webenginecore6 ", "libqt6widgets6 ", "breeze-icon-theme", "libqt6sql6-sqlite", "qt6-svg-plugins | libqt6svg6"):
            self.assertIn(each, depends)
        self.assertIn("www-browser", self.field("Provides"))
        self.assertNotIn("dev", depends)

    def test_the_program_in_it_answers_without_a_display(self):
        program = self.root / "usr/bin/tessaview"
        nowhere = package.clean_environment()
        self.assertEqual(package.run(program, "--version", env=nowhere), "TessaView 3.02 Build 159\n")
        self.assertIn("Usage: tessaview", package.run(program, "--help", env=nowhere))

    def test_the_desktop_entry_is_valid_and_leads_to_what_is_there(self):
        file = self.share / "applications/tessaview.desktop"
        self.assertEqual(package.run("desktop-file-validate", file), "")
        entries = configparser.ConfigParser(interpolation=None)
        entries.optionxform = str
        entries.read(file, encoding="utf-8")
        entry = entries["Desktop Entry"]
        self.assertEqual(entry["Exec"], "tessaview %u")
        self.assertTrue((self.root / "usr/bin" / entry["TryExec"]).is_file())
        self.assertTrue((self.share / f"icons/hicolor/scalable/apps/{entry['Icon']}.svg").is_file())
        for kind in ("x-scheme-handler/http", "x-scheme-handler/https", "text/html", "application/xhtml+xml"):
            self.assertIn(kind, entry["MimeType"].split(";"))
        actions = {each: entries[f"Desktop Action {each}"]["Name"] for each in entry["Actions"].split(";") if each}
        self.assertEqual(list(actions.values()), ["New Tab", "Open TessaGroup"])

    def test_a_double_click_on_a_group_opens_it_as_one(self):
        file = self.share / "applications/tessaview-group.desktop"
        self.assertEqual(package.run("desktop-file-validate", file), "")
        entries = configparser.ConfigParser(interpolation=None)
        entries.optionxform = str
        entries.read(file, encoding="utf-8")
        entry = entries["Desktop Entry"]
        self.assertEqual(entry["Exec"], "tessaviewctl open-group %f")
        self.assertEqual((entry["NoDisplay"], entry["MimeType"]), ("true", "application/x-tessagroup;"))
        self.assertTrue((self.root / "usr/bin" / entry["TryExec"]).is_file())

    def test_the_small_program_answers_without_a_bus_and_completes(self):
        nowhere = package.clean_environment()
        program = self.root / "usr/bin/tessaviewctl"
        self.assertIn("Usage: tessaviewctl", package.run(program, "--help", env=nowhere))
        libraries = package.run("ldd", program, env=nowhere)
        self.assertNotIn("Qt", libraries)
        for file in ("bash-completion/completions/tessaviewctl", "zsh/vendor-completions/_tessaviewctl",
                     "fish/vendor_completions.d/tessaviewctl.fish", "man/man1/tessaviewctl.1.gz"):
            self.assertTrue((self.share / file).is_file(), file)
        completion = self.share / "bash-completion/completions/tessaviewctl"
        script = f"source {completion}; COMP_WORDS=(tessaviewctl open-); COMP_CWORD=1; _tessaviewctl; echo ${{COMPREPLY[*]}}"
        self.assertEqual(package.run("bash", "-c", script, env=nowhere), "open-group\n")

    def test_the_software_centres_accept_the_description(self):
        (file,) = (self.share / "metainfo").iterdir()
        package.run("appstreamcli", "validate", "--no-net", file)
        component = xml.etree.ElementTree.parse(file).getroot()
        self.assertEqual(component.findtext("launchable"), "tessaview.desktop")
        self.assertEqual(component.find("releases/release").get("version"), self.field("Version"))
        self.assertEqual(f"{component.findtext('id')}.metainfo.xml", file.name)

    def test_files_of_groups_are_known_by_name_and_by_content(self):
        mime = self.folder / "mime"
        (mime / "packages").mkdir(parents=True)
        (mime / "packages/tessaview.xml").write_bytes((self.share / "mime/packages/tessaview.xml").read_bytes())
        package.run("update-mime-database", mime)
        self.assertIn("50:application/x-tessagroup:*.tvg", (mime / "globs2").read_text().splitlines())
        self.assertIn("application/x-tessagroup text/plain", (mime / "subclasses").read_text().splitlines())
        self.assertIn(b"[TessaGroup]", (mime / "magic").read_bytes())
        kind = xml.etree.ElementTree.parse(mime / "application/x-tessagroup.xml").getroot()
        self.assertEqual(kind.find(f"{SHARED_MIME}icon").get("name"), "application-x-tessagroup")

    def test_both_icons_come_in_all_sizes(self):
        for kind, name in (("apps", "tessaview"), ("mimetypes", "application-x-tessagroup")):
            theme = self.share / "icons/hicolor"
            xml.etree.ElementTree.parse(theme / f"scalable/{kind}/{name}.svg")
            for size in SIZES:
                self.assertEqual(png_size(theme / f"{size}x{size}/{kind}/{name}.png"), (size, size))

    def test_the_manual_page_is_well_formed_and_says_what_help_says(self):
        file = self.share / "man/man1/tessaview.1.gz"
        page = subprocess.run(
            ["man", "--warnings", "-E", "UTF-8", "-Tutf8", "-l", file], capture_output=True, text=True, check=True,
            env=package.clean_environment(MANWIDTH="100", PAGER="cat")
        )
        self.assertEqual(page.stderr, "")
        # Bold letters are struck twice.
        text = re.sub(".\b", "", page.stdout)
        for word in ("--version", "--help", "GROUP.tvg", "TESSAVIEW_HOME", "QTWEBENGINE_DISABLE_SANDBOX"):
            self.assertIn(word, text)

    def test_licence_and_changes_are_there(self):
        licence = (self.share / "doc/tessaview/copyright").read_text(encoding="utf-8")
        self.assertIn("License: MIT", licence)
        self.assertIn((package.SOURCES / "LICENSE").read_text(encoding="utf-8").splitlines()[2].split("(c) ")[1], licence)
        with gzip.open(self.share / "doc/tessaview/changelog.gz", "rt", encoding="utf-8") as changes:
            self.assertTrue(changes.read().startswith(f"tessaview ({self.field('Version')}) "))

    def alternatives(self, script, *arguments):
        """What a maintainer script has update-alternatives do; one call a line."""
        tools = self.folder / "tools"
        tools.mkdir(exist_ok=True)
        log = tools / "log"
        log.write_text("")
        (tools / "update-alternatives").write_text(f'#!/bin/sh\necho "$@" >>"{log}"\n')
        os.chmod(tools / "update-alternatives", 0o755)
        package.run("sh", self.control / script, *arguments, env={"PATH": f"{tools}:{os.environ['PATH']}"})
        return log.read_text().splitlines()

    def test_it_is_an_alternative_for_the_webs_browser(self):
        (call,) = self.alternatives("postinst", "configure")
        self.assertTrue(call.startswith("--install /usr/bin/x-www-browser x-www-browser /usr/bin/tessaview "), call)
        self.assertIn("--slave /usr/share/man/man1/x-www-browser.1.gz", call)
        self.assertEqual(self.alternatives("postinst", "triggered"), [])
        self.assertEqual(self.alternatives("prerm", "remove"), ["--remove x-www-browser /usr/bin/tessaview"])
        self.assertEqual(self.alternatives("prerm", "upgrade", "4.0"), [])

    def test_installing_without_a_package_puts_the_same_files_in_place(self):
        prefix = self.folder / "prefix"
        package.run("cmake", "--install", BUILD, "--prefix", prefix)
        listed = [
            sorted(str(each.relative_to(folder)) for each in folder.rglob("*") if each.is_file())
            for folder in (prefix, self.root / "usr")
        ]
        self.assertEqual(*listed)
        self.assertIn("bin/tessaview", listed[0])


if __name__ == "__main__":
    unittest.main()

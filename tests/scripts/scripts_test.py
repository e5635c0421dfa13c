"""run.sh and test.sh on machines that are made up: copies of them run with stand-ins on PATH that write down how they
are called. Needs no network and no rights.

    python3 tests/scripts/scripts_test.py"""

import pathlib
import shutil
import subprocess
import tempfile
import unittest

SOURCES = pathlib.Path(__file__).resolve().parents[2]
TOOLS = ["bash", "cat", "cut", "dirname", "env", "find", "flock", "grep", "mkdir", "nproc", "readlink", "sed", "sh", "tr"]
BUILD_TOOLS = ["cmake", "ctest", "ninja", "c++", "clang-format"]

RECORD = '#!/bin/sh\necho "$(basename "$0") $*" >>"$CALLS"\n'
STAND_INS = {
    # As dpkg-query does: tells what it knows, and fails when it does not know all. "~name" is a package whose settings
    # alone are left.
    "dpkg-query": """#!/bin/sh
result=0
for each in "$@"; do
  case $each in -*) continue ;; esac
  if grep -qx -- "$each" "$INSTALLED"; then echo "installed:$each"
  elif grep -qx -- "~$each" "$INSTALLED"; then echo "config-files:$each"
  else echo "dpkg-query: no packages found matching $each" >&2; result=1; fi
done
exit $result
""",
    "apt-get": RECORD + """[ "$1" = install ] || exit 0
[ ! -e "$CALLS.apt-fails" ] || { echo "E: Unable to locate package" >&2; exit 100; }
for each in "$@"; do case $each in -*|install) ;; *) echo "$each" >>"$INSTALLED" ;; esac; done
for each in "$LATER"/*; do [ ! -e "$each" ] || mv "$each" "$BIN/"; done
""",
    "apt-cache": '#!/bin/sh\n[ "$2" = libqt6svg6 ]\n',
    "id": '#!/bin/sh\n[ ! -e "$CALLS.is-user" ] || { echo 1000; exit; }\necho 0\n',
    "sudo": RECORD + 'if [ "$1" = -n ]; then [ ! -e "$CALLS.sudo-asks" ]; exit; fi\nexec "$@"\n',
    "cmake": RECORD + """folder=
for each in "$@"; do
  [ "$before" != -B ] && [ "$before" != --build ] || folder=$each
  [ "$before" != -S ] || home=$each
  before=$each
done
if [ "$1" = --build ]; then
  mkdir -p "$folder/tests"
  printf '#!/bin/sh\\necho "tessaview $*" >>"$CALLS"\\necho "sandbox ${QTWEBENGINE_DISABLE_SANDBOX:-on}" >>"$CALLS"\\n' >"$folder/tessaview"
  printf '#!/bin/sh\\necho "  EveryInclude"\\n' >"$folder/tests/core_tests"
  chmod +x "$folder/tessaview" "$folder/tests/core_tests"
else
  echo "CMAKE_HOME_DIRECTORY:INTERNAL=$home" >"$folder/CMakeCache.txt"
  for each in "$@"; do case $each in -D*=*) echo "$each" | sed 's/-D\\(.*\\)=/\\1:BOOL=/' >>"$folder/CMakeCache.txt" ;; esac; done
  : >"$folder/build.ninja"
fi
""",
    "ctest": RECORD + 'for each in "$@"; do [ "$before" != --test-dir ] || folder=$each; before=$each; done\n'
             'mkdir -p "$folder/Testing/Temporary"; : >"$folder/Testing/Temporary/LastTest.log"\n',
    "clang-format": '#!/bin/sh\n[ "$1" != --version ] || echo "clang-format version 14.0.6"\n',
    "ninja": "#!/bin/sh\n",
    "c++": "#!/bin/sh\n",
}


class Machine:
    """A machine with the project on it and, when it is set up, nothing installed. The user is root."""

    def __init__(self, folder):
        self.folder = pathlib.Path(folder)
        self.project = self.folder / "project"
        self.bin, self.later = self.folder / "bin", self.folder / "later"
        self.calls_file, self.installed_file = self.folder / "calls", self.folder / "installed"
        for each in (self.project, self.bin, self.later):
            each.mkdir()
        self.calls_file.touch()
        self.installed_file.touch()
        for name in ("run.sh", "test.sh"):
            shutil.copy(SOURCES / name, self.project)
        shutil.copytree(SOURCES / "scripts", self.project / "scripts")
        (self.project / "Some.cpp").touch()
        for tool in [*TOOLS, "basename", "mv", "chmod"]:
            (self.bin / tool).symlink_to(shutil.which(tool))
        for name, text in STAND_INS.items():
            stand_in = (self.later if name in BUILD_TOOLS else self.bin) / name
            stand_in.write_text(text)
            stand_in.chmod(0o755)

    def set(self, state):
        """"apt-fails", "is-user" or "sudo-asks"."""
        pathlib.Path(f"{self.calls_file}.{state}").touch()

    def remove(self, command):
        (self.bin / command).unlink()

    def has(self, *packages):
        with self.installed_file.open("a", encoding="utf-8") as installed:
            installed.writelines(f"{each}\n" for each in packages)

    def has_build_tools(self):
        for each in self.later.iterdir():
            each.rename(self.bin / each.name)

    def run(self, script, *arguments):
        environment = {"PATH": str(self.bin), "DISPLAY": ":7", "CALLS": self.calls_file, "INSTALLED": self.installed_file,
                       "BIN": self.bin, "LATER": self.later, "LC_ALL": "C.UTF-8"}
        self.calls_file.write_text("")
        done = subprocess.run([self.project / script, *arguments], env=environment, stdin=subprocess.DEVNULL,
                              capture_output=True, text=True, timeout=60, check=False)
        self.code, self.said = done.returncode, done.stdout + done.stderr
        return self

    def calls(self, command):
        lines = self.calls_file.read_text().splitlines()
        return [line.partition(" ")[2] for line in lines if line.partition(" ")[0] == command]

    def packages(self, *lists):
        """What the named lists of scripts/packages.sh hold."""
        names = " ".join(f'"${{{name}[@]}}"' for name in lists)
        told = subprocess.run(["bash", "-c", f". '{SOURCES}/scripts/packages.sh'; printf '%s\\n' {names}"],
                              capture_output=True, text=True, check=True)
        return set(told.stdout.split())

    def installs(self):
        """The packages of each call of apt-get that installs."""
        return [{word for word in call.split()[1:] if not word.startswith("-")}
                for call in self.calls("apt-get") if call.startswith("install ")]


LISTS = {
    "run.sh": ["program_packages", "run_packages"],
    "test.sh": ["build_packages", "run_packages", "display_packages", "format_packages", "test_packages", "packaging_packages"],
}
# The scripts look for the plugin itself, which this machine may have.
SVG = set() if [*pathlib.Path("/usr/lib").glob("*/qt6/plugins/iconengines/libqsvgicon.so")] else {"libqt6svg6"}

# They turn it off for root, or look whether that was done.
MAY_NAME_THE_SANDBOX = {
    "scripts/sandbox.sh", "tests/app/CommandLineTest.cpp", "tests/bench/browsers_test.py",
    "tests/bench/measure/browsers.py", "tests/bench/measure/programs.py", "tests/e2e/commandline_test.py",
    "tests/e2e/desk.py", "tests/e2e/on-display.sh", "tests/e2e/sandbox_test.py", "tests/packaging/package_test.py",
    "tests/scripts/scripts_test.py",
}


class Scripts(unittest.TestCase):
    def new_machine(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        return Machine(folder.name)

    def each(self):
        """Both scripts, each on a machine of its own."""
        for script, lists in LISTS.items():
            machine = self.new_machine()
            yield script, machine, machine.packages(*lists)

    def went_through(self, script, machine):
        self.assertEqual(machine.code, 0, machine.said)
        if script == "run.sh":
            self.assertEqual(machine.calls("tessaview"), ["examples/notes.tvg"])
        else:
            self.assertEqual(len(machine.calls("ctest")), 2, machine.said)

    def stopped(self, machine):
        self.assertNotEqual(machine.code, 0)
        self.assertEqual(machine.calls("cmake"), [])

    @staticmethod
    def arguments(script):
        return ["examples/notes.tvg"] if script == "run.sh" else []

    def test_everything_is_installed_on_a_fresh_machine(self):
        for script, machine, needed in self.each():
            machine.run(script, *self.arguments(script))
            self.assertEqual(machine.installs(), [needed | SVG])
            self.went_through(script, machine)

    def test_what_is_there_is_not_asked_for(self):
        for script, machine, needed in self.each():
            machine.has("g++", "cmake", "~ninja-build", "fonts-dejavu-core")
            machine.run(script, *self.arguments(script))
            self.assertEqual(machine.installs(), [needed - {"g++", "cmake", "fonts-dejavu-core"} | SVG])
            self.went_through(script, machine)

    def test_nothing_is_installed_when_all_is_there(self):
        for script, machine, needed in self.each():
            machine.has(*needed, *SVG)
            machine.has_build_tools()
            machine.run(script, *self.arguments(script))
            self.assertEqual(machine.calls("apt-get"), [])
            self.went_through(script, machine)

    def test_a_failure_of_apt_get_ends_it(self):
        for script, machine, _ in self.each():
            machine.set("apt-fails")
            machine.run(script)
            self.stopped(machine)
            self.assertIn("The packages could not be installed", machine.said)

    def test_without_rights_it_says_what_an_administrator_has_to_do(self):
        for script, machine, _ in self.each():
            machine.set("is-user")
            machine.remove("sudo")
            machine.run(script)
            self.stopped(machine)
            self.assertEqual(machine.calls("apt-get"), [])
            self.assertRegex(machine.said, "apt-get install --no-install-recommends .*qt6-webengine-dev")

    def test_nobody_is_asked_for_a_password_without_a_terminal(self):
        for script, machine, _ in self.each():
            machine.set("is-user")
            machine.set("sudo-asks")
            machine.run(script)
            self.stopped(machine)
            self.assertEqual(machine.calls("sudo"), ["-n true"])

    def test_an_ordinary_user_installs_by_sudo(self):
        for script, machine, needed in self.each():
            machine.set("is-user")
            machine.run(script, *self.arguments(script))
            self.assertEqual(len([call for call in machine.calls("sudo") if "apt-get install" in call]), 1)
            self.assertEqual(machine.installs(), [needed | SVG])
            self.went_through(script, machine)

    def test_elsewhere_than_on_debian_it_says_what_is_needed(self):
        for script, machine, needed in self.each():
            machine.remove("dpkg-query")
            machine.run(script)
            self.stopped(machine)
            self.assertIn("not a Debian system", machine.said)
            self.assertIn("The command cmake is missing.", machine.said)
            for package in needed:
                self.assertIn(package, machine.said)

    def test_elsewhere_it_goes_on_with_what_is_there(self):
        for script, machine, _ in self.each():
            machine.remove("dpkg-query")
            machine.has_build_tools()
            machine.run(script, *self.arguments(script))
            self.assertEqual(machine.calls("apt-get"), [])
            self.went_through(script, machine)

    def test_the_program_alone_is_built_until_the_tests_are_wanted(self):
        machine = self.new_machine().run("run.sh")
        self.assertIn("-DTESSAVIEW_TESTS=OFF", machine.calls("cmake")[0])
        machine.run("run.sh")
        self.assertEqual([call.split()[0] for call in machine.calls("cmake")], ["--build"])
        machine.run("test.sh")
        self.assertIn("-DTESSAVIEW_TESTS=ON", machine.calls("cmake")[0])
        machine.run("run.sh")
        self.assertEqual([call.split()[0] for call in machine.calls("cmake")], ["--build"])

    def test_run_says_what_it_does(self):
        machine = self.new_machine().run("run.sh")
        steps = [line for line in machine.said.splitlines() if line.startswith("== ")]
        self.assertEqual([step[:9] for step in steps], ["== 1 of 3", "== 2 of 3", "== 3 of 3"])

    def test_only_root_goes_without_the_engines_sandbox(self):
        self.assertEqual(self.new_machine().run("run.sh").calls("sandbox"), ["1"])
        machine = self.new_machine()
        machine.set("is-user")
        self.assertEqual(machine.run("run.sh").calls("sandbox"), ["on"])

    def test_nothing_else_turns_the_sandbox_off(self):
        words = ("DISABLE_SANDBOX", "--no" + "-sandbox")
        files = [file for folder in ("scripts", "tests") for file in (SOURCES / folder).rglob("*")
                 if file.suffix in (".cpp", ".h", ".py", ".sh", ".txt")] + [SOURCES / "run.sh", SOURCES / "test.sh"]
        self.assertGreater(len(files), 100)
        named = {str(file.relative_to(SOURCES)) for file in files
                 if any(word in file.read_text(encoding="utf-8", errors="replace") for word in words)}
        self.assertEqual(named, MAY_NAME_THE_SANDBOX)


if __name__ == "__main__":
    unittest.main()

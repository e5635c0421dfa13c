"""run.sh and test.sh on machines that are made up: copies of them run with stand-ins on PATH that write down how they
are called. Needs no network and no rights.

    python3 tests/scripts/scripts_test.py"""

import os
import pathlib
import shutil
import subprocess
import tempfile
import time
import unittest

SOURCES = pathlib.Path(__file__).resolve().parents[2]
TOOLS = ["bash", "cat", "cut", "dirname", "env", "find", "flock", "grep", "mkdir", "nice", "nproc", "readlink", "sed", "setsid",
         "sh", "sleep", "tr"]
BUILD_TOOLS = ["cmake", "ctest", "ninja", "c++", "clang-format"]

# wait_for FILE: a failure when nobody makes it.
WAIT_FOR = """wait_for() {
  turns=0
  until [ -e "$1" ]; do
    turns=$((turns + 1))
    [ $turns -lt 3000 ] || { echo "$1 never came"; exit 100; }
    sleep 0.01
  done
}
"""
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
    # With "with-the-core" Qt comes no sooner than the core is begun; with "with-qt" the core is no sooner through. With
    # "with-the-program" what it runs with comes no sooner than the program is begun.
    "apt-get": RECORD + WAIT_FOR + """[ "$1" = install ] || exit 0
[ ! -e "$CALLS.apt-fails" ] || { echo "E: Unable to locate package" >&2; exit 100; }
case $* in *qt6-base-dev*)
  : >"$CALLS.qt-began"
  [ ! -e "$CALLS.with-the-core" ] || wait_for "$CALLS.core-began"
  [ ! -e "$CALLS.qt-fails" ] || { echo "E: Unable to fetch some archives" >&2; exit 100; }
  [ ! -e "$CALLS.user-ends" ] || { kill -s TERM "$PPID"; exit 0; } ;;
*qt6-wayland*)
  [ ! -e "$CALLS.with-the-program" ] || wait_for "$CALLS.program-began"
  [ ! -e "$CALLS.rest-fails" ] || { echo "E: Unable to fetch some archives" >&2; exit 100; } ;;
esac
for each in "$@"; do case $each in -*|install) ;; *) echo "$each" >>"$INSTALLED" ;; esac; done
for each in "$LATER"/*; do [ ! -e "$each" ] || mv "$each" "$BIN/"; done
""",
    "apt-cache": '#!/bin/sh\n[ "$2" = libqt6svg6 ]\n',
    "id": '#!/bin/sh\n[ ! -e "$CALLS.is-user" ] || { echo 1000; exit; }\necho 0\n',
    "sudo": RECORD + 'if [ "$1" = -n ]; then [ ! -e "$CALLS.sudo-asks" ]; exit; fi\nexec "$@"\n',
    "cmake": RECORD + WAIT_FOR + """folder=
for each in "$@"; do
  [ "$before" != -B ] && [ "$before" != --build ] || folder=$each
  [ "$before" != -S ] || home=$each
  before=$each
done
if [ "$1" = --build ] && [ "${folder%-sanitize}" != "$folder" ]; then
  [ ! -e "$CALLS.sanitizers-fail" ] || { echo "Core.cpp:2: error: no such thing"; exit 1; }
fi
if [ "$1" = --build ] && [ "$4" = tessaview ]; then
  if [ -e "$CALLS.program-fails" ]; then echo "Main.cpp:1: error: no such thing"; : >"$CALLS.program-began"; exit 1; fi
  if [ -e "$CALLS.program-lasts" ]; then sh -c 'echo $$ >"$CALLS.compiler"; : >"$CALLS.program-began"; sleep 300; :'; fi
  : >"$CALLS.program-began"
fi
if [ "$1" = --build ] && [ "$4" = tessa_core ]; then
  echo "[ 50% 1/2] Compiling Core.cpp"
  [ ! -e "$CALLS.core-fails" ] || { echo "Core.cpp:1: error: no such thing"; echo "stopped"; : >"$CALLS.core-began"; exit 1; }
  if [ -e "$CALLS.core-lasts" ]; then sh -c 'echo $$ >"$CALLS.compiler"; : >"$CALLS.core-began"; sleep 300; :'; fi
  : >"$CALLS.core-began"
  [ ! -e "$CALLS.with-qt" ] || wait_for "$CALLS.qt-began"
  if [ -e "$CALLS.core-is-last" ]; then wait_for "$CALLS.shown"; echo "[100% 2/2] Linking"; fi
elif [ "$1" = --build ]; then
  mkdir -p "$folder/tests"
  printf '#!/bin/sh\\necho "tessaview $*" >>"$CALLS"\\necho "sandbox ${QTWEBENGINE_DISABLE_SANDBOX:-on}" >>"$CALLS"\\n' >"$folder/tessaview"
  printf '#!/bin/sh\\necho "  EveryInclude"\\n' >"$folder/tests/house_tests"
  chmod +x "$folder/tessaview" "$folder/tests/house_tests"
else
  cache=$folder/CMakeCache.txt
  case $* in *--fresh*) echo "CMAKE_HOME_DIRECTORY:INTERNAL=$home" >"$cache" ;; esac
  for each in "$@"; do case $each in -D*=*)
    name=${each%%=*} name=${name#-D}
    { grep -v "^$name:" "$cache"; echo "$name:BOOL=${each#*=}"; } >"$cache.new"; mv "$cache.new" "$cache" ;;
  esac; done
  : >"$folder/build.ninja"
fi
""",
    "ctest": RECORD + 'for each in "$@"; do [ "$before" != --test-dir ] || folder=$each; before=$each; done\n'
             'mkdir -p "$folder/Testing/Temporary"; : >"$folder/Testing/Temporary/LastTest.log"\n',
    "clang-format": '#!/bin/sh\n[ "$1" != --version ] || echo "clang-format version 14.0.6"\n',
    "tail": f'#!/bin/sh\n: >"$CALLS.shown"\nexec {shutil.which("tail")} "$@"\n',
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

    def state(self, name):
        return pathlib.Path(f"{self.calls_file}.{name}")

    def set(self, *states):
        """"apt-fails", "is-user" and the others that the stand-ins ask for."""
        for each in states:
            self.state(each).touch()

    def unset(self, *states):
        for each in states:
            self.state(each).unlink()

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

    def builds(self):
        """What cmake was asked for, in turn: "Qt" or "core" for making the build files, and the targets."""
        told = []
        for call in self.calls("cmake"):
            words = call.split()
            if words[0] == "--build":
                told.append(words[3])
            else:
                told.append("core" if "-DTESSAVIEW_QT=OFF" in words else "Qt" if "-DTESSAVIEW_QT=ON" in words else "?")
        return told

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

    def in_turn(self, machine, wanted):
        """The calls of apt-get by which the scripts install: the compilers first, then Qt."""
        compilers, program = machine.packages("compiler_packages"), machine.packages("program_packages")
        return [wanted & compilers, wanted & program - compilers, wanted - program]

    def stopped(self, machine):
        self.assertNotEqual(machine.code, 0)
        self.assertEqual(machine.calls("cmake"), [])

    @staticmethod
    def arguments(script):
        return ["examples/notes.tvg"] if script == "run.sh" else []

    def test_everything_is_installed_on_a_fresh_machine(self):
        for script, machine, needed in self.each():
            machine.run(script, *self.arguments(script))
            self.assertEqual(machine.installs(), self.in_turn(machine, needed | SVG))
            self.went_through(script, machine)

    def test_what_is_there_is_not_asked_for(self):
        for script, machine, needed in self.each():
            machine.has("g++", "cmake", "~ninja-build", "fonts-dejavu-core")
            machine.run(script, *self.arguments(script))
            self.assertEqual(machine.installs(),
                             self.in_turn(machine, needed - {"g++", "cmake", "fonts-dejavu-core"} | SVG))
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
            self.assertEqual([call for call in machine.calls("apt-get") if not any(call in each for each in machine.calls("sudo"))], [])
            self.assertEqual(machine.installs(), self.in_turn(machine, needed | SVG))
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

    def fresh_machine(self, *states):
        machine = self.new_machine()
        machine.set(*states)
        return machine.run("run.sh", "examples/notes.tvg")

    def compiler_ended(self, machine):
        """A process that is ended is gone a moment later."""
        process = int(machine.state("compiler").read_text())
        end = time.monotonic() + 30
        while time.monotonic() < end:
            try:
                os.kill(process, 0)
                status = pathlib.Path(f"/proc/{process}/stat").read_text()
            except (ProcessLookupError, FileNotFoundError):
                return
            if status.rpartition(")")[2].split()[0] == "Z":
                return
            time.sleep(0.01)
        os.kill(process, 9)
        self.fail("the core is still compiled\n" + machine.said)

    def test_the_core_is_compiled_while_the_other_packages_come(self):
        machine = self.fresh_machine("with-the-core", "with-qt")
        self.went_through("run.sh", machine)
        self.assertEqual(machine.builds(), ["core", "tessa_core", "Qt", "tessaview", "tessaview"])

    def test_the_program_is_compiled_while_the_packages_come_that_it_runs_with(self):
        machine = self.fresh_machine("with-the-program")
        self.went_through("run.sh", machine)
        self.assertEqual(machine.builds(), ["core", "tessa_core", "Qt", "tessaview", "tessaview"])

    def test_a_failure_of_apt_get_ends_the_program_too(self):
        machine = self.fresh_machine("with-the-program", "program-lasts", "rest-fails")
        self.assertNotEqual(machine.code, 0)
        self.assertIn("The packages could not be installed", machine.said)
        self.compiler_ended(machine)
        self.assertEqual(machine.builds(), ["core", "tessa_core", "Qt", "tessaview"])

    def test_a_failure_of_the_program_is_told_in_full_when_the_packages_are_there(self):
        machine = self.fresh_machine("with-the-program", "program-fails")
        self.assertNotEqual(machine.code, 0)
        self.assertEqual(len(machine.installs()), 3)
        self.assertRegex(machine.said, "(?s)Main.cpp:1: error: no such thing.*The program could not be built; why stands above.")
        self.assertEqual(machine.calls("tessaview"), [])

    def test_with_qt_there_the_program_alone_is_compiled_meanwhile(self):
        machine = self.new_machine()
        machine.has(*machine.packages("program_packages"))
        machine.has_build_tools()
        machine.set("with-the-program")
        machine.run("run.sh", "examples/notes.tvg")
        self.went_through("run.sh", machine)
        self.assertEqual(machine.builds(), ["Qt", "tessaview", "tessaview"])
        self.assertIn("-DTESSAVIEW_TESTS=OFF", machine.calls("cmake")[0])

    def test_the_core_alone_asks_for_no_tests(self):
        for call in self.fresh_machine().calls("cmake")[:1]:
            self.assertIn("-DTESSAVIEW_TESTS=OFF", call)
            self.assertIn("-DTESSAVIEW_BENCH=OFF", call)

    def test_a_failure_of_apt_get_ends_the_core_too(self):
        machine = self.fresh_machine("with-the-core", "core-lasts", "qt-fails")
        self.assertNotEqual(machine.code, 0)
        self.assertIn("E: Unable to fetch some archives", machine.said)
        self.assertTrue(machine.said.rstrip().endswith("The packages could not be installed; what apt-get says of it stands above."),
                        machine.said)
        self.compiler_ended(machine)
        self.assertEqual(machine.builds(), ["core", "tessa_core"])

    def test_a_failure_of_apt_get_before_the_core_began_ends_it_too(self):
        machine = self.fresh_machine("qt-fails")
        self.assertNotEqual(machine.code, 0)
        self.assertIn("The packages could not be installed", machine.said)
        self.assertNotIn("tessaview", machine.builds())

    def test_who_ends_run_ends_the_core_too(self):
        machine = self.fresh_machine("with-the-core", "core-lasts", "user-ends")
        self.assertNotEqual(machine.code, 0)
        self.compiler_ended(machine)
        self.assertEqual(machine.builds(), ["core", "tessa_core"])

    def test_a_failure_of_the_core_is_told_in_full_when_the_packages_are_there(self):
        machine = self.fresh_machine("with-the-core", "core-fails")
        self.assertNotEqual(machine.code, 0)
        self.assertEqual(len(machine.installs()), 3)
        self.assertRegex(machine.said, "(?s)Core.cpp:1: error: no such thing.*The core could not be built; why stands above.")
        self.assertEqual(machine.calls("tessaview"), [])

    def test_run_shows_how_far_the_core_is_when_the_packages_are_there_first(self):
        machine = self.fresh_machine("core-is-last")
        self.went_through("run.sh", machine)
        self.assertRegex(machine.said, r"(?s)Now the core is compiled to its end.*\[100% 2/2\] Linking.*== 2 of 3")

    def test_what_an_ended_run_left_is_built_on(self):
        for script in LISTS:
            machine = self.fresh_machine("with-the-core", "qt-fails")
            machine.unset("qt-fails", "with-the-core")
            machine.run(script, *self.arguments(script))
            self.went_through(script, machine)
            self.assertEqual(machine.installs()[0] & machine.packages("compiler_packages"), set())
            self.assertEqual(machine.builds()[:2], ["tessa_core", "Qt"])

    def test_a_failure_with_sanitizers_alone_is_told_in_full(self):
        machine = self.new_machine()
        machine.set("sanitizers-fail")
        machine.run("test.sh")
        self.assertNotEqual(machine.code, 0)
        self.assertRegex(machine.said, "Core.cpp:2: error: no such thing")
        self.assertRegex(machine.said, r"FAILED +\d+ s +Build with sanitizers")
        self.assertRegex(machine.said, r"ok +\d+ s +Tests: Qt, engine, end-to-end")
        self.assertEqual(len(machine.calls("ctest")), 1, machine.said)

    def test_a_failure_of_apt_get_ends_what_the_tests_need_too(self):
        machine = self.new_machine()
        machine.set("with-the-core", "core-lasts", "qt-fails")
        machine.run("test.sh")
        self.assertNotEqual(machine.code, 0)
        self.assertRegex(machine.said, r"FAILED +- +Everything else")
        self.compiler_ended(machine)
        self.assertEqual(machine.calls("ctest"), [])

    def test_a_program_that_was_built_before_is_not_built_in_two_parts(self):
        machine = self.fresh_machine()
        installed = machine.installed_file.read_text().splitlines()
        machine.installed_file.write_text("".join(f"{each}\n" for each in installed if each not in ("ccache", "qt6-wayland")))
        machine.run("run.sh", "examples/notes.tvg")
        self.assertEqual(machine.installs(), [{"ccache", "qt6-wayland"}])
        self.assertEqual(machine.builds(), ["tessaview"])
        self.went_through("run.sh", machine)

    def test_without_other_packages_to_wait_for_all_is_built_at_once(self):
        machine = self.new_machine()
        machine.has(*machine.packages(*LISTS["run.sh"]) - {"g++"}, *SVG)
        machine.run("run.sh", "examples/notes.tvg")
        self.assertEqual(machine.installs(), [{"g++"}])
        self.assertEqual(machine.builds(), ["Qt", "tessaview"])
        self.went_through("run.sh", machine)

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

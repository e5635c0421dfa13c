"""What the tests of the package share: the tools, and the package itself."""

import os
import pathlib
import shutil
import subprocess
import sys

SOURCES = pathlib.Path(__file__).resolve().parents[2]


def run(*command, **options):
    """Runs a command to its end and answers what it wrote; what it says when it fails is shown."""
    ended = subprocess.run(
        [str(word) for word in command], stdin=subprocess.DEVNULL, capture_output=True, text=True, check=False, **options
    )
    if ended.returncode != 0:
        raise AssertionError(f"{' '.join(map(str, command))}: {ended.returncode}\n{ended.stdout}{ended.stderr}")
    return ended.stdout


def install_tools(*lists):
    """Installs what is missing of the lists of packages that scripts/packages.sh names."""
    packages = " ".join(f'"${{{each}[@]}}"' for each in lists)
    subprocess.run(
        ["bash", "-euc", f'. "$0/scripts/packages.sh"; install_missing {packages}', str(SOURCES)], check=True
    )


def build_folder():
    """The build folder: the first argument of the test."""
    if len(sys.argv) < 2:
        sys.exit(f"usage: {sys.argv[0]} BUILD_FOLDER")
    return pathlib.Path(sys.argv.pop(1)).resolve()


def make_package(build, folder):
    """Has the Debian package made in that folder; its file."""
    run("cpack", "-G", "DEB", "-B", folder, cwd=build)
    (package,) = pathlib.Path(folder).glob("*.deb")
    # What lies beside it is as large as the program.
    shutil.rmtree(pathlib.Path(folder) / "_CPack_Packages", ignore_errors=True)
    return package


def clean_environment(**changes):
    """An environment in which nothing of the caller's desktop is left."""
    return {"PATH": os.environ["PATH"], "LC_ALL": "C.UTF-8", **changes}

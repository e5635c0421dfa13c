"""What everything was measured on, in words."""
import glob
import os
import platform
import re
import subprocess
import time


def usual_drawing():
    """How TessaView draws here by itself, as far as can be told without asking OpenGL."""
    processors = [*glob.glob("/dev/dri/renderD*"), *glob.glob("/dev/nvidia[0-9]*"), *glob.glob("/dev/dxg")]
    return "hardware" if processors else "software"


def _first(path, pattern):
    try:
        with open(path, encoding="utf-8", errors="replace") as file:
            found = re.search(pattern, file.read(), re.MULTILINE)
    except OSError:
        return ""
    return found.group(1).strip() if found else ""


def engine_version(program):
    """The version of Qt WebEngine that a program runs on."""
    try:
        libraries = subprocess.run(["ldd", program], capture_output=True, text=True, check=False).stdout
    except OSError:
        libraries = ""
    found = re.search(r"=> (\S*libQt6WebEngineCore\S*)", libraries)
    version = re.search(r"\.so\.(\d+\.\d+\.\d+)$", os.path.realpath(found.group(1))) if found else None
    return "Qt WebEngine " + (version.group(1) if version else "of an unknown version")


def described(options, browser):
    """Machine, drawing, engine, browser and date."""
    memory = int(_first("/proc/meminfo", r"^MemTotal: +(\d+)") or 0) / 1024 / 1024
    model = _first("/proc/cpuinfo", r"^model name\s*: (.*)$") or platform.machine()
    system = _first("/etc/os-release", r'^PRETTY_NAME="?([^"\n]*)') or platform.system()
    day = time.strftime("%d %B %Y").lstrip("0")
    return (f"{day}: {os.cpu_count()} processors ({model}), {memory:.0f} GB of memory, {system}, "
            f"drawn by {' and '.join(options.drawing)}, {engine_version(options.program)}, "
            f"{browser.version() if browser else 'no stand-alone browser'}; medians of {options.runs}")

"""Measures the structure of the checkout: what a change of it should make better. See measure.sh.

The name of a tool or band counts as bare text when nothing checks it. `u"mnuStop"_tool` and `u"bndGo"_band` do not
count, as the compiler refuses a name that is not in the table of names."""

import collections
import os
import re
import subprocess
import sys
import tempfile
import time

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
TABLE_OF_NAMES = "bar/DesignedNames.h"  # where the names of tools and bands are spelled
MOST_LINES = 25
INCLUDE = re.compile(r'^#include "([^"]+)"', re.M)
SLOT = re.compile(r"^\s+(?:mutable )?std::function<.*>\s+([A-Za-z]\w*)(?:\s*=.*|\{.*)?;", re.M)
# Of Qt's texts, those that begin with "cbo" name widgets.
TOOL_NAME = re.compile(
    r'(?:u"(?:cbo|mnu?|tb|shp|fnd|xtr|bnd)|(?:QStringLiteral|QLatin1String)\("(?:mnu?|tb|shp|fnd|xtr|bnd))'
    r'[A-Z]\w*"(?!_tool|_band)'
)
NO_BODY = re.compile(r"=\s*\{$|^\s*constexpr |\(\{")
# What is handed to a call counts with the function that makes the call.
LAMBDA = re.compile(r"(?<!operator)\[[^\[\]]*\]\s*(?:\([^()]*\)\s*)?(?:mutable\s*)?(?:->[^{]*)?\{$")
NO_FUNCTION = re.compile(
    r"\s*(?:template<.*> )?(?:namespace|class|struct|enum|union|extern|using|typedef|if|for|while|switch|else|do|try|case|default)\b"
)


def sources(root):
    """Path and text of each C++ file. Build folders hold what tools have made, hidden ones are not part of the house."""
    for folder, inside, names in os.walk(root):
        inside[:] = sorted(each for each in inside if not each.startswith((".", "build")))
        for name in sorted(names):
            if name.endswith((".cpp", ".h")):
                path = os.path.join(folder, name)
                with open(path, encoding="utf-8") as file:
                    yield os.path.relpath(path, root).replace(os.sep, "/"), file.read()


def module_of(path):
    """A header and the source of its name are one module."""
    return os.path.splitext(path)[0]


def reached_from(start, arrows):
    reached, open_ends = set(), [start]
    while open_ends:
        for each in arrows.get(open_ends.pop(), ()):
            if each not in reached:
                reached.add(each)
                open_ends.append(each)
    return reached


def circles(product):
    """Sets of modules that include each other, directly or through others."""
    arrows = collections.defaultdict(set)
    for path, text in product.items():
        arrows[module_of(path)] |= {module_of(each) for each in INCLUDE.findall(text)} - {module_of(path)}
    reached = {module: reached_from(module, arrows) for module in list(arrows)}
    return {
        frozenset(other for other in others if module in reached.get(other, ()))
        for module, others in reached.items()
        if module in others
    }


def head_of(lines, last):
    """The line on which what opens with that last line begins: the head of a function may go over several lines."""
    first = last
    while first > 0 and (before := lines[first - 1].strip()) and not before.startswith(("//", "#")):
        if before[-1] in ";{}:":
            break
        first -= 1
    return first


def functions(text):
    """Lines of the body of each function. The layout is clang-format's: a body ends where its head begins."""
    lines = text.split("\n")
    for opening, line in enumerate(lines):
        if not line.rstrip().endswith("{"):
            continue
        head = head_of(lines, opening)
        words = " ".join(lines[head : opening + 1])
        indent = len(lines[head]) - len(lines[head].lstrip())
        if indent > 4 or "(" not in words or NO_FUNCTION.match(words) or NO_BODY.search(words) or LAMBDA.search(words):
            continue
        for last in range(opening + 1, len(lines)):
            if lines[last].startswith(" " * indent + "}"):
                yield last - opening - 1
                break


def lines_of(files):
    return sum(text.count("\n") for text in files.values())


def structure(root):
    all_files = dict(sources(root))
    tests = {path: text for path, text in all_files.items() if path.startswith("tests/")}
    product = {path: text for path, text in all_files.items() if path not in tests}
    qt = {path: text for path, text in product.items() if path.startswith("qt/")}
    rooms = collections.Counter(os.path.dirname(module) for module in {module_of(path) for path in product})
    fullest, modules = rooms.most_common(1)[0]
    slots = [
        name for path, text in product.items() if path.endswith(".h") for name in SLOT.findall(text)
        if not name.startswith("m_")
    ]
    names = sum(len(TOOL_NAME.findall(text)) for path, text in product.items() if path != TABLE_OF_NAMES)
    bodies = [(length, path) for path, text in product.items() for length in functions(text)]
    length, where = max(bodies)
    longest = max(product, key=lambda path: product[path].count("\n"))
    core_lines = lines_of(product) - lines_of(qt)
    yield "modules of the fullest room", f"{modules} ({fullest})"
    yield "rooms", len(rooms)
    yield "circles of modules", f"{len(found := circles(product))} ({sum(map(len, found))} modules)"
    yield "public std::function members", len(slots)
    yield "tool names as bare text outside their table", names
    yield 'uses of "desk.main." in tests', sum(text.count("desk.main.") for text in tests.values())
    yield f"functions over {MOST_LINES} lines", sum(1 for each, _ in bodies if each > MOST_LINES)
    yield "lines of the longest function", f"{length} ({where})"
    yield "lines of the longest file", f"{product[longest].count(chr(10))} ({longest})"
    yield "lines of the core", core_lines
    yield "lines of Qt's side", lines_of(qt)
    yield "lines of C++ tests per line", f"{lines_of(tests) / lines_of(product):.2f}"


def building(root):
    """Seconds to build the program from nothing, and after a change of one widget; without a compiler's cache."""
    widget = next(path for path, _ in sources(root) if path.endswith("/TabLook.cpp"))
    environment = dict(os.environ, CCACHE_DISABLE="1")
    with tempfile.TemporaryDirectory() as folder:

        def build():
            start = time.monotonic()
            subprocess.run(["cmake", "--build", folder, "--target", "tessaview"], check=True, env=environment,
                           stdout=subprocess.DEVNULL)
            return time.monotonic() - start

        command = ["cmake", "-S", root, "-B", folder, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Release",
                   "-DTESSAVIEW_TESTS=OFF", "-DTESSAVIEW_BENCH=OFF"]
        subprocess.run(command, check=True, env=environment, stdout=subprocess.DEVNULL)
        yield "seconds of a build from nothing", f"{build():.0f}"
        os.utime(os.path.join(root, widget))
        yield "seconds of a build after touching one widget", f"{build():.0f}"


def main(arguments):
    folders = [each for each in arguments if not each.startswith("-")]
    root = folders[0] if folders else ROOT
    for what, value in structure(root):
        print(f"{what:<48}{value}")
    if "--build" in arguments:
        for what, value in building(root):
            print(f"{what:<48}{value}")


if __name__ == "__main__":
    main(sys.argv[1:])

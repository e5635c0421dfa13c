"""Has the compiler check each source and each header by itself. See alone.sh.

A header that is the first include of a source has nothing before it there, so the source stands for both. Any other one
is compiled as the only include of an empty source, as the sources next to it are compiled."""

import concurrent.futures
import json
import os
import re
import shlex
import subprocess
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
MADE = re.compile(r'^#include "(\w+\.moc)"', re.M)
INCLUDE = re.compile(r'^#\s*include\s+(?:"([^"]+)"|<[^>]+>)', re.M)


def first_include(text):
    """The header of ours that a source includes before all others; None when that is one of the system."""
    found = INCLUDE.search(text)
    return found.group(1) if found else None


def headers_to_check(headers, sources):
    """Those headers that no source has in front. `sources` are paths and texts; all paths count from the root."""
    in_front = {first_include(text) for text in sources.values()}
    return sorted(set(headers) - in_front)


def checking(command, made):
    """The words of a compiler's command that makes no object, without its source; `made` holds what tools make."""
    words = shlex.split(command)
    while not os.path.basename(words[0]).startswith(("c++", "g++", "clang")):
        words = words[1:]  # a compiler's cache, and what runs it
    out = words.index("-o")
    words = words[:out] + words[out + 2 :]
    return words[: words.index("-c")] + ["-I" + made, "-fsyntax-only"]


def nearest(path, sources):
    """The source that shares most folders with a header."""
    return max(sorted(sources), key=lambda source: len(os.path.commonpath([path, source])))


def tasks(entries, headers, texts, made):
    """For each file what is to be run, and what is to be read there."""
    commands = {path: checking(command, made) for path, command in entries.items()}
    for path, words in commands.items():
        yield path, words + [os.path.join(ROOT, path)], ""
    for header in headers_to_check(headers, texts):
        yield header, commands[nearest(header, commands)] + ["-x", "c++", "-"], f'#include "{header}"\n'


def run(folder, task):
    path, words, text = task
    done = subprocess.run(words, input=text, cwd=folder, capture_output=True, text=True, check=False)
    return path, done.returncode, done.stderr


def stand_in_for(made, folder):
    """Empty files for what moc makes of sources, which is not ours; the folder of them."""
    inside = os.path.join(folder, "made")
    os.makedirs(inside, exist_ok=True)
    for name in made:
        open(os.path.join(inside, name), "w", encoding="utf-8").close()
    return inside


def entries_of(folder):
    """The command of each source of the checkout, by its path from the root. What tools have made is left out."""
    with open(os.path.join(folder, "compile_commands.json"), encoding="utf-8") as file:
        commands = {os.path.relpath(each["file"], ROOT): each["command"] for each in json.load(file)}
    return {path: command for path, command in commands.items() if not path.startswith(("build", ".."))}


def headers_beside(entries):
    """All headers of the checkout that sources which are compiled may include."""
    listed = subprocess.run(["git", "-C", ROOT, "ls-files", "*.h"], capture_output=True, text=True, check=True)
    rooms = {path.split("/")[0] for path in entries}
    return [path for path in listed.stdout.split() if path.split("/")[0] in rooms and "/windows/" not in path]


def main(folder, under):
    entries = entries_of(folder)
    texts = {}
    for path in entries:
        with open(os.path.join(ROOT, path), encoding="utf-8") as file:
            texts[path] = file.read()
    made = stand_in_for({name for text in texts.values() for name in MADE.findall(text)}, folder)
    wanted = tuple(each.rstrip("/") + "/" for each in under)
    todo = list(tasks(entries, headers_beside(entries), texts, made))
    todo = [each for each in todo if not wanted or each[0].startswith(wanted)]
    failed = []
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as threads:
        for number, (path, code, words) in enumerate(threads.map(lambda task: run(folder, task), todo), 1):
            if code != 0:
                failed.append(path)
            if words:
                print(f"== {path}\n{words}", flush=True)
            if number % 50 == 0:
                print(f"{number} of {len(todo)}", flush=True)
    for path in failed:
        print(f"Does not stand alone: {path}")
    print(f"{len(todo) - len(failed)} of {len(todo)} files stand alone.")
    return 1 if failed or not todo else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1], sys.argv[2:]))

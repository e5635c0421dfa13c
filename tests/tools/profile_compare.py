#!/usr/bin/python3
"""Holds the tool `profile` against the real profile functions of the other platform, call by call.

    profile_compare.py FOLDER [PREFIX...]

FOLDER holds profile.exe and profile_real.exe; PREFIX is the command that runs them, as in "wine". The calls are those
of tests/data/profile-vectors.txt. Each side has files of its own; compared are every answer, and the bytes of each
file at the end. A difference that docs/other-platform.md does not explain fails, and so does an explanation that
nothing needs."""

import pathlib
import re
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
VECTORS = ROOT / "tests/data/profile-vectors.txt"
EXPLAINED = ROOT / "docs/other-platform.md"
FORMS = ("A", "W")


class Case:
    def __init__(self, name):
        self.name = name
        self.before = None
        self.calls = []


def bytes_of(field):
    return None if field == "-" else b"" if field == "." else bytes.fromhex(field)


def read_cases(lines):
    cases = []
    for line in lines:
        word, *fields = line.split()
        if word == "case":
            cases.append(Case(fields[0]))
        elif word == "file":
            cases[-1].before = bytes_of(fields[0])
        elif word == "get":
            cases[-1].calls.append(["get", *fields[:4]])
        elif word == "write":
            cases[-1].calls.append(["write", *fields[:3]])
    return cases


def file_of(folder, number):
    return folder / f"{number:04}.ini"


def other_name(path):
    """The path as the other platform names it."""
    return "Z:" + str(path).replace("/", "\\")


def answers(folder, cases, command):
    """What each call of each case answered, and the bytes of its file at the end."""
    folder.mkdir()
    script = []
    for number, case in enumerate(cases):
        path = file_of(folder, number)
        if case.before is not None:
            path.write_bytes(case.before)
        script += [" ".join([call[0], other_name(path), *call[1:]]) for call in case.calls]
    (folder / "script").write_text("\n".join(script) + "\n")
    done = subprocess.run([*command, other_name(folder / "script")], stdout=subprocess.PIPE, check=True, timeout=300)
    lines = done.stdout.decode("ascii").replace("\r", "").splitlines()
    if len(lines) != len(script):
        sys.exit(f"{command[-1]}: {len(lines)} answers to {len(script)} calls")
    found, at = [], 0
    for number, case in enumerate(cases):
        path = file_of(folder, number)
        after = path.read_bytes().hex() if path.exists() else "-"
        found.append((lines[at : at + len(case.calls)], after))
        at += len(case.calls)
    return found


def differences(cases, ours, real):
    """Of each case that differs, its name and what differs, in words."""
    for case, (our_answers, our_file), (real_answers, real_file) in zip(cases, ours, real):
        words = []
        for call, one, other in zip(case.calls, our_answers, real_answers):
            if one != other:
                words.append(f"  {' '.join(call)[:200]}\n    ours {one[:200]}\n    real {other[:200]}")
        if our_file != real_file:
            words.append(f"  file at the end\n    ours {our_file[:400]}\n    real {real_file[:400]}")
        if words:
            yield case.name, "\n".join(words)


def explanations(document):
    """The rows of the table of differences: forms, and a pattern that names the cases."""
    rows = re.findall(r"^\| ([AW, ]+) \| ((?:`[^`]+`(?:, )?)+) \|", document, re.MULTILINE)
    return [(form, name) for forms, names in rows for form in FORMS if form in forms
            for name in re.findall(r"`([^`]+)`", names)]


def main():
    folder, prefix = pathlib.Path(sys.argv[1]).resolve(), sys.argv[2:]
    cases = read_cases(VECTORS.read_text().splitlines())
    explained = explanations(EXPLAINED.read_text())
    seen, unexplained, calls = set(), [], 0
    with tempfile.TemporaryDirectory() as temporary:
        place = pathlib.Path(temporary)
        for form in FORMS:
            ours = answers(place / f"ours{form}", cases, [*prefix, str(folder / "profile.exe")])
            real = answers(place / f"real{form}", cases, [*prefix, str(folder / "profile_real.exe"), form])
            calls += sum(len(case.calls) for case in cases)
            for name, words in differences(cases, ours, real):
                seen.add((form, name))
                if (form, name) not in explained:
                    unexplained.append(f"{form} {name}\n{words}")
    stale = [f"{form} {name}" for form, name in explained if (form, name) not in seen]
    print(f"{calls} calls, {len(cases)} cases in {len(FORMS)} forms: {len(seen)} cases differ, "
          f"{len(seen) - len(unexplained)} as explained")
    if unexplained:
        print("Not explained in docs/other-platform.md:\n" + "\n".join(unexplained))
    if stale:
        print("Explained, but the same: " + ", ".join(stale))
    return 1 if unexplained or stale else 0


if __name__ == "__main__":
    sys.exit(main())

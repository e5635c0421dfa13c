"""Files that are the program's alone: records of named fields, as base/Records.h describes them."""

import re

ESCAPES = {"n": "\n", "r": "\r", "t": "\t"}


def text_of(value):
    """The text that stands behind a field's "="."""
    return re.sub(r"\\(x[0-9A-F]{4}|.)",
                  lambda found: chr(int(found[1][1:], 16)) if len(found[1]) > 1 else ESCAPES.get(found[1], found[1]),
                  value)


def records_of(file):
    """The names of a file's records and their fields, in order. What is not whole is an error."""
    records = []
    with open(file, encoding="utf-8", newline="\n") as opened:
        lines = opened.read().split("\n")
    if lines.pop():
        raise ValueError(f"{file} breaks off: {lines[-1:]}")
    for line in lines:
        if line.startswith("[") and line.endswith("]"):
            records.append((line[1:-1], {}))
            continue
        name, equals, value = line.partition("=")
        if not equals or not records:
            raise ValueError(f"{file} is damaged: {line!r}")
        records[-1][1][name] = text_of(value)
    return records

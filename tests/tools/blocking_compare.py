"""Holds our verdicts on recorded requests against recorded ones, and pairs of filters and requests that must match.
   blocking_compare.py TESTS_FOLDER DATA_FOLDER
Without the data it says so in a line that begins with SKIPPED."""

import gzip
import json
import os
import subprocess
import sys
import tempfile

LEAST_SAME = 0.997


def unpacked(file, folder):
    name = os.path.join(folder, os.path.basename(file)[: -len(".gz")])
    with gzip.open(file) as packed, open(name, "wb") as plain:
        plain.write(packed.read())
    return name


def verdicts(tool, lists, requests):
    done = subprocess.run([tool, *lists], input=requests.encode(), capture_output=True, check=True, timeout=300)
    return done.stdout.decode().split()


def recorded(tool, data, folder):
    lists = [unpacked(os.path.join(data, name + ".txt.gz"), folder) for name in ("easylist", "easyprivacy")]
    with gzip.open(os.path.join(data, "requests.tsv.gz"), "rt", encoding="utf-8", newline="\n") as file:
        rows = [line.rstrip("\n").split("\t") for line in file][1:]
    own = verdicts(tool, lists, "".join("\t".join(row[1:4]) + "\n" for row in rows))
    same = sum(row[0] == verdict for row, verdict in zip(rows, own))
    print(f"{same} of {len(rows)} recorded verdicts are the same")
    return len(own) == len(rows) and same >= LEAST_SAME * len(rows)


def pairs(tool, data, folder):
    """Each filter of each request, as a list of its own; an exception as what it is an exception from."""
    with gzip.open(os.path.join(data, "filters.json.gz"), "rt", encoding="utf-8") as file:
        requests = json.load(file)
    wrong, count = [], 0
    by_filter = {}
    for each in requests:
        for rule in each["filters"]:
            by_filter.setdefault(rule.removeprefix("@@"), []).append(each)
    name = os.path.join(folder, "one.txt")
    for rule, these in by_filter.items():
        with open(name, "w", encoding="utf-8") as file:
            file.write(rule + "\n")
        lines = "".join(f"{each['type']}\t{each['sourceUrl']}\t{each['url']}\n" for each in these)
        for each, verdict in zip(these, verdicts(tool, [name], lines)):
            count += 1
            if verdict != "1":
                wrong.append((rule, each))
    print(f"{count - len(wrong)} of {count} pairs match")
    for rule, each in wrong[:10]:
        print("does not match:", rule, each)
    return not wrong


def main():
    tests, data = sys.argv[1:]
    if not os.path.isdir(data):
        print(f"SKIPPED: blocking_compare, no recorded requests in {data}")
        return 0
    tool = os.path.join(tests, "blocking")
    with tempfile.TemporaryDirectory() as folder:
        good = [recorded(tool, data, folder), pairs(tool, data, folder)]
    return 0 if all(good) else 1


if __name__ == "__main__":
    sys.exit(main())

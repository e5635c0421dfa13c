"""What scripts/alone.py compiles, and how, on sources that are made up.

    python3 tests/scripts/alone_test.py"""

import pathlib
import sys
import unittest

sys.dont_write_bytecode = True
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "scripts"))

import alone


class Alone(unittest.TestCase):
    def test_a_header_in_front_of_a_source_is_checked_by_that(self):
        sources = {
            "a/A.cpp": '// Why.\n#include "a/A.h"\n\n#include "a/B.h"\n',
            "a/C.cpp": '#include <map>\n#include "a/C.h"\n',
        }
        self.assertEqual(alone.headers_to_check(["a/C.h", "a/B.h", "a/A.h"], sources), ["a/B.h", "a/C.h"])

    def test_no_object_is_made(self):
        command = "cmake -E env A=1 /usr/bin/ccache /usr/bin/c++ -DX=1 -I/a -std=c++20 -o A.cpp.o -c /a/A.cpp"
        words = ["/usr/bin/c++", "-DX=1", "-I/a", "-std=c++20", "-I/made", "-fsyntax-only"]
        self.assertEqual(alone.checking(command, "/made"), words)

    def test_a_header_is_compiled_as_its_neighbours_are(self):
        sources = ["a/A.cpp", "qt/bar/Bar.cpp", "qt/base/Text.cpp", "tests/Desk.cpp"]
        headers = {
            "qt/base/Bind.h": "qt/base/Text.cpp",
            "tests/fakes/Fake.h": "tests/Desk.cpp",
            "platform/View.h": "a/A.cpp",
        }
        for header, source in headers.items():
            self.assertEqual(alone.nearest(header, sources), source)

    def test_an_empty_source_includes_the_header(self):
        entries = {"a/A.cpp": "c++ -I/a -o A.o -c /a/A.cpp"}
        todo = list(alone.tasks(entries, ["a/A.h", "a/B.h"], {"a/A.cpp": '#include "a/A.h"\n'}, "/made"))
        self.assertEqual([path for path, _, _ in todo], ["a/A.cpp", "a/B.h"])
        words = ["c++", "-I/a", "-I/made", "-fsyntax-only", "-x", "c++", "-"]
        self.assertEqual(todo[1][1:], (words, '#include "a/B.h"\n'))


if __name__ == "__main__":
    unittest.main()

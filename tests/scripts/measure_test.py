"""What scripts/measure.py counts, on sources that are made up.

    python3 tests/scripts/measure_test.py"""

import pathlib
import sys
import unittest

sys.dont_write_bytecode = True
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "scripts"))

import measure

TWO_LINES = """    First();
    Second();
"""


class Measures(unittest.TestCase):
    def test_a_function_is_as_long_as_its_body(self):
        heads = {
            "void Free() {\n": "}\n",
            "Form::Form(int a,\n           int b)\n    : m_a(a), m_b(b) {\n": "}\n",
            "int& Row::operator[](int place) {\n": "}\n",
            "class Form {\npublic:\n    void Inside() {\n": "    }\n};\n",
        }
        for head, end in heads.items():
            with self.subTest(head):
                self.assertEqual(list(measure.functions(head + TWO_LINES + end)), [2])

    def test_a_table_a_class_and_a_call_are_none(self):
        for head in ("constexpr std::array kRows{\n", "class Form final : public QWidget {\n",
                     "template<typename... T>\nclass Signal<void(T...)> {\n", "    Ask({.Done = [] {\n",
                     "    Print(\n        [this, told](const Bytes& bytes) {\n", "    return any(all, [&](int a) -> bool {\n",
                     "    switch (type) {\n", "    for (int each : all) {\n"):
            with self.subTest(head):
                self.assertEqual(list(measure.functions(head + TWO_LINES + "};\n")), [])

    def test_modules_that_include_each_other_are_a_circle(self):
        product = {"a/A.h": '#include "a/B.h"\n', "a/B.cpp": '#include "a/C.h"\n', "a/C.h": ""}
        self.assertEqual(measure.circles(product), set())
        product["a/C.h"] = '#include "a/A.h"\n'
        self.assertEqual(measure.circles(product), {frozenset({"a/A", "a/B", "a/C"})})

    def test_a_member_that_may_be_empty_is_a_slot(self):
        lines = "    std::function<void(int)> Clicked;\n    std::function<bool()> Asks = [] { return true; };\n"
        self.assertEqual(measure.SLOT.findall(lines + "    void Take(std::function<void()> done);\n"), ["Clicked", "Asks"])

    def test_only_a_name_that_the_compiler_checks_is_no_bare_text(self):
        bare = """bar.Find(u"mnuStop"); bar.FindBand(u"bndGo"); {u"tbNew", u"cboSearch", u"xtrMore", u"shpCars", u"fndMaps"}
            setObjectName(QStringLiteral("mnuViewToolbars")); u"mnFontLarge"; u"mnuMisspelled";"""
        self.assertEqual(len(measure.TOOL_NAME.findall(bare)), 10)
        checked = 'bar.Find(u"mnuStop"_tool); bar.FindBand(u"bndGo"_band); u"menu"; u"tbd"; u"shp"; u"a mnuStop";'
        self.assertEqual(measure.TOOL_NAME.findall(checked), [])

    def test_the_checkout_is_measured(self):
        told = dict(measure.structure(str(measure.ROOT)))
        self.assertGreater(told["rooms"], 20)
        self.assertGreater(told["lines of the core"], 10_000)
        self.assertEqual(told["tool names as bare text outside their table"], 0)


if __name__ == "__main__":
    unittest.main()

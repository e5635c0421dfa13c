# Tests: DocumentPrinter, PageOutput
"""Pages go to the printer as the PDF that the engine makes of them, with what was chosen in the dialog."""

import os
import subprocess
import threading
import unittest

import desk
import print_server
import pyatspi

PROGRAM = desk.program_file()
TAKEN = "The printer has taken the page."
REFUSED = "The printer did not take the page. Nothing was printed."
SHEETS = "".join(f"<p style='break-after: page'>Sheet {number} of the harbour book</p>" for number in range(1, 6))
HELD = "const held = new XMLHttpRequest(); held.open('GET', '/held', false); held.send();"
BODIES = {
    "/book": f"<title>Book</title>{SHEETS}",
    "/stuck": f"<title>Stuck</title>{SHEETS}<script>addEventListener('beforeprint', () => {{ {HELD} }});</script>",
    "/next": "<title>Next</title><p>Next",
}


class BookServer(desk.PageServer):
    """A page of five sheets at /book, one at /stuck that waits for the server as soon as it is printed, a PDF at /pdf."""

    def __init__(self):
        self.goes_on = threading.Event()
        self.asked = threading.Event()
        super().__init__()

    def __exit__(self, *error):
        self.goes_on.set()
        super().__exit__(*error)

    def answer(self, request):
        if request.path == "/held":
            self.asked.set()
            self.goes_on.wait()
        if request.path == "/paper.pdf":
            return request.send(one_sheet(), "application/pdf")
        body = BODIES.get(request.path)
        request.send(("<!doctype html>" + body).encode() if body else b"", status=200 if body else 404)


def one_sheet():
    """A PDF document of one empty sheet."""
    parts = [b"<</Type/Catalog/Pages 2 0 R>>", b"<</Type/Pages/Kids[3 0 R]/Count 1>>",
             b"<</Type/Page/Parent 2 0 R/MediaBox[0 0 595 842]>>"]
    text, places = b"%PDF-1.4\n", []
    for number, part in enumerate(parts, 1):
        places.append(len(text))
        text += b"%d 0 obj%sendobj\n" % (number, part)
    table = b"".join(b"%010d 00000 n \n" % place for place in places)
    return text + b"xref\n0 4\n0000000000 65535 f \n" + table + b"trailer<</Size 4/Root 1 0 R>>\nstartxref\n%d\n%%%%EOF" % len(text)


# What the dialog always chooses.
USUAL = {"fit-to-page", "job-priority=50", "job-sheets=none,none", "media=A4", "number-up-layout=lrtb", "number-up=1"}


def options(arguments):
    """What `lp` was told with "-o", but for what it always is."""
    given = [value for flag, value in zip(arguments, arguments[1:]) if flag == "-o"]
    return sorted(each for each in given if each not in USUAL)


def set_value(node, value):
    node.queryValue().currentValue = value
    desk.wait_until(lambda: node.queryValue().currentValue == value, what=lambda: str(node.queryValue().currentValue))


class PrintPaper(unittest.TestCase):
    def setUp(self):
        self.home = desk.state_folder()

    def start(self, pages, name):
        return desk.Program(PROGRAM, pages.address(name), home=self.home)

    def open_dialog(self, program):
        program.keys("ctrl+p")
        program.find("dialog", "Print")
        program.find("combo box", print_server.NAME)
        desk.wait_until(lambda: desk.xdotool("getactivewindow", "getwindowname") == "Print")

    def print(self, program, printer):
        """Prints as the dialog suggests."""
        before = printer.calls()
        self.open_dialog(program)
        desk.xdotool("key", "Return")
        desk.wait_until(lambda: printer.calls() == before + 1, what="lp was not called")

    def accept(self, program):
        """Presses the button of the dialog. The toolbar has one of that name, too."""
        nodes = desk.walk(program.find("dialog", "Print"))
        desk.press_node(next(each for each in nodes if each.name == "Print" and desk.role_of(each) == "push button"))

    def wait_status(self, program, words):
        desk.wait_until(lambda: program.status() == words, what=program.status)

    def paper(self, printer):
        desk.wait_until(lambda: os.path.exists(printer.paper()), what="nothing came to the printer")
        return subprocess.run(["pdftotext", "-layout", printer.paper(), "-"], capture_output=True, text=True, check=True).stdout

    def expect_book(self, printer):
        sheets = self.paper(printer).split("\f")[:5]
        for number, sheet in enumerate(sheets, 1):
            self.assertIn(f"Sheet {number} of the harbour book", sheet)

    def test_a_page_comes_to_the_printer_with_its_words(self):
        with print_server.PrintServer(self.home) as printer, BookServer() as pages, self.start(pages, "book") as program:
            program.wait_strip(["[Book]"])
            self.print(program, printer)
            self.wait_status(program, TAKEN)
            self.expect_book(printer)
            arguments = printer.arguments()
            self.assertEqual(arguments[:6], ["-d", print_server.NAME, "-t", "Book", "-n", "1"])
            self.assertEqual(options(arguments), ["collate=true", "sides=one-sided"])
            desk.wait_until(lambda: not os.path.exists(arguments[-1]), what="what was printed is left behind")

    def choose(self, program, role, name):
        """Chooses a radio button or ticks a box, or clears it."""
        node = program.find(role, name)
        before = node.getState().contains(pyatspi.STATE_CHECKED)
        desk.press_node(node)
        desk.wait_until(lambda: node.getState().contains(pyatspi.STATE_CHECKED) != before, what=f"{name} does not change")

    def open_options(self, program):
        self.open_dialog(program)
        program.press("push button", "Options >>")
        program.press("page tab", "Options")
        self.choose(program, "radio button", "Long side binding")
        program.press("page tab", "Copies")
        set_value(program.find("spin button", "Copies:"), 3)
        self.choose(program, "check box", "Collate")

    def test_what_was_chosen_in_the_dialog_comes_to_the_printer(self):
        with print_server.PrintServer(self.home) as printer, BookServer() as pages, self.start(pages, "book") as program:
            program.wait_strip(["[Book]"])
            self.open_options(program)
            self.choose(program, "check box", "Reverse")
            self.choose(program, "radio button", "Pages")
            box = program.find("text", "Print range")
            box.queryEditableText().setTextContents("1,3-4")
            desk.wait_until(lambda: desk.text_of(box) == "1,3-4", what=lambda: desk.text_of(box))
            self.accept(program)
            self.wait_status(program, TAKEN)
            arguments = printer.arguments()
            self.assertEqual(arguments[4:6], ["-n", "3"])
            self.assertEqual(options(arguments), [
                "collate=false", "outputorder=reverse", "page-ranges=1,3-4", "sides=two-sided-long-edge"])
            self.expect_book(printer)

    def test_every_other_page_of_a_range_is_one_of_those_numbers(self):
        with print_server.PrintServer(self.home) as printer, BookServer() as pages, self.start(pages, "book") as program:
            program.wait_strip(["[Book]"])
            self.open_options(program)
            self.choose(program, "radio button", "Pages from")
            spins = [each for each in desk.walk(program.find("dialog", "Print")) if each.name == "Print range"
                     and desk.role_of(each) == "spin button"]
            for spin, value in zip(reversed(spins), (5, 2)):
                set_value(spin, value)
            chosen = program.find("combo box", "All Pages")
            program.wait_menu(lambda: desk.click(chosen))
            desk.xdotool("key", "o", "Return")
            program.find("combo box", "Odd Pages")
            self.accept(program)
            self.wait_status(program, TAKEN)
            self.assertEqual(options(printer.arguments()), [
                "collate=false", "page-ranges=2-5", "page-set=odd", "sides=two-sided-long-edge"])

    def test_a_printer_that_takes_nothing_is_told_of_and_the_page_stays(self):
        with print_server.PrintServer(self.home) as printer, BookServer() as pages, self.start(pages, "book") as program:
            program.wait_strip(["[Book]"])
            printer.refuse()
            self.print(program, printer)
            program.answer(REFUSED, "OK")
            self.assertFalse(os.path.exists(printer.arguments()[-1]))
            program.wait_strip(["[Book]"])
            printer.refuse(False)
            self.print(program, printer)
            self.wait_status(program, TAKEN)
            self.expect_book(printer)

    def test_a_document_goes_there_as_it_is(self):
        with print_server.PrintServer(self.home) as printer, BookServer() as pages, self.start(pages, "paper.pdf") as program:
            program.wait_strip(["[paper.pdf]"])
            self.print(program, printer)
            self.wait_status(program, "The printer has taken the document.")
            with open(printer.paper(), "rb") as paper:
                self.assertEqual(paper.read(), one_sheet())

    def test_where_the_program_that_prints_is_not_there_that_is_told(self):
        with print_server.PrintServer(self.home, installed=False), BookServer() as pages:
            with self.start(pages, "paper.pdf") as program:
                program.wait_strip(["[paper.pdf]"])
                self.open_dialog(program)
                desk.xdotool("key", "Return")
                program.answer("The printer did not take the document. Nothing was printed.", "OK")

    def test_a_page_whose_tab_closes_while_it_is_printed_is_printed(self):
        with print_server.PrintServer(self.home) as printer, BookServer() as pages, self.start(pages, "stuck") as program:
            program.wait_strip(["[Stuck]"])
            self.open_dialog(program)
            desk.xdotool("key", "Return")
            self.assertTrue(pages.asked.wait(desk.PATIENCE))
            program.keys("ctrl+t")
            desk.wait_until(lambda: len(program.strip()) == 2, what=lambda: str(program.strip()))
            program.keys("ctrl+Tab")
            desk.wait_until(lambda: program.strip()[0] == "[Stuck]", what=lambda: str(program.strip()))
            program.keys("ctrl+w")
            desk.wait_until(lambda: len(program.strip()) == 1, what=lambda: str(program.strip()))
            self.assertEqual(printer.calls(), 0)
            pages.goes_on.set()
            self.expect_book(printer)
            self.wait_status(program, TAKEN)

    def test_a_page_that_is_left_while_it_is_printed_is_printed_as_it_was(self):
        with print_server.PrintServer(self.home) as printer, BookServer() as pages, self.start(pages, "stuck") as program:
            program.wait_strip(["[Stuck]"])
            self.open_dialog(program)
            desk.xdotool("key", "Return")
            self.assertTrue(pages.asked.wait(desk.PATIENCE))
            program.enter(pages.address("next"), "alt+d")
            program.wait_strip(["[Next]"])
            # The page that came has the keyboard.
            desk.wait_until(lambda: desk.focused_box(program) is None)
            self.assertEqual(printer.calls(), 0)
            pages.goes_on.set()
            self.expect_book(printer)
            program.keys("alt+Left")
            program.wait_strip(["[Stuck]"])

    def test_what_the_printer_is_taking_comes_out_though_the_program_ends(self):
        with print_server.PrintServer(self.home) as printer, BookServer() as pages, self.start(pages, "book") as program:
            program.wait_strip(["[Book]"])
            printer.hold()
            self.print(program, printer)
            program.process.terminate()
            self.assertEqual(program.wait_end(), 0)
            printer.hold(False)
            self.expect_book(printer)


if __name__ == "__main__":
    desk.main()

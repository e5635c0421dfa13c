"""The sign in the address box that says where a page is from."""

import os
import unittest

import desk

PROGRAM = desk.program_file()
LOCAL, OWN = "From this computer", "A page of TessaView itself"


class AddressSign(unittest.TestCase):
    def setUp(self):
        self.home = desk.state_folder()

    def check_sign(self, program, meaning):
        def signs():
            boxes = [node for node in desk.walk(program.application()) if desk.role_of(node) == "text"]
            return [box.description for box in boxes if box.name == "Address"]

        desk.wait_until(lambda: signs() == [meaning], what=lambda: f"the box says {signs()}, not {meaning}")

    def test_a_typed_address_has_its_sign_in_the_tab_where_it_was_typed(self):
        file = os.path.join(self.home, "file.html")
        with open(file, "w", encoding="utf-8") as page:
            page.write("<title>File</title>words")
        with desk.PageServer() as pages:
            with desk.Program(PROGRAM, "about:blank", home=self.home) as program:
                program.wait_strip(["[about:blank]"])
                for address, caption, meaning in (
                    (pages.address("Garden"), "Garden", LOCAL),
                    ("tessaview:start", "TessaView", OWN),
                    (file, "File", LOCAL),
                ):
                    program.enter(address)
                    program.wait_strip([f"[{caption}]"])
                    self.check_sign(program, meaning)


if __name__ == "__main__":
    desk.main()

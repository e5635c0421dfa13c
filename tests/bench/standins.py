"""For tests: programs that do as little as a test needs."""
import pathlib
import tempfile
import unittest


class Folder(unittest.TestCase):
    """With a folder of its own that ends with the test."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def program(self, name, script):
        """A stand-in: a shell script."""
        path = self.folder / name
        path.write_text("#!/bin/sh\n" + script)
        path.chmod(0o755)
        return str(path)

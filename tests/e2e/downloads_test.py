# Tests: DownloadAssembly
"""Downloads from outside: the question at the end, the list that survives a restart, fetching again. And private tabs,
of which nothing is left."""

import http.server
import os
import re
import signal
import threading
import unittest

import desk

PROGRAM = desk.program_file()
BODY = b"0123456789" * 1000
# How fast it comes may be said or not, as time goes.
RUNNING = "5 kB of 10 kB(, .*)?"


class FileServer:
    """One file, whose second half comes when the test says so."""

    def __init__(self):
        self.whole = threading.Event()
        server = self

        class Handler(http.server.BaseHTTPRequestHandler):
            def do_GET(self):
                self.send_response(200)
                self.send_header("Content-Type", "application/octet-stream")
                self.send_header("Content-Disposition", 'attachment; filename="report.bin"')
                self.send_header("Content-Length", str(len(BODY)))
                self.end_headers()
                self.wfile.write(BODY[: len(BODY) // 2])
                self.wfile.flush()
                server.whole.wait()
                try:
                    self.wfile.write(BODY[len(BODY) // 2 :])
                except OSError:
                    pass  # the program has hung up meanwhile

            def log_message(self, *words):
                pass

        self._server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Handler)
        self._server.daemon_threads = True
        threading.Thread(target=self._server.serve_forever, daemon=True).start()
        self.address = f"http://127.0.0.1:{self._server.server_address[1]}/get"

    def close(self):
        self.whole.set()
        self._server.shutdown()
        self._server.server_close()


class Downloads(unittest.TestCase):
    def setUp(self):
        self.home = desk.state_folder()
        self.folder = os.path.join(self.home, "saved here")
        with open(os.path.join(os.environ["XDG_CONFIG_HOME"], "user-dirs.dirs"), "w", encoding="utf-8") as folders:
            folders.write(f'XDG_DOWNLOAD_DIR="{self.folder}"\n')

    def wait_line(self, program, words):
        """Waits until the panel has one line, which says these words, given as a pattern."""

        def lines():
            return [node.name for node in desk.walk(program.find("list", "Downloads")) if node.getRoleName() == "list item"]

        desk.wait_until(
            lambda: len(lines()) == 1 and re.fullmatch(f"report\\.bin, {words}", lines()[0]),
            what=lambda: f"the panel shows {lines()}, not {words!r}",
        )

    def test_a_download_is_asked_about_and_outlives_the_run(self):
        server = FileServer()
        self.addCleanup(server.close)
        with desk.Program(PROGRAM, server.address, home=self.home) as program:
            program.window()
            program.keys("ctrl+j")
            self.wait_line(program, RUNNING)
            question = "A download is still running"
            program.keys("ctrl+q")
            program.answer(question, "Go On Downloading")
            self.wait_line(program, RUNNING)
            program.keys("ctrl+q")
            program.answer(question, "Stop and Exit")
            self.assertEqual(program.wait_end(), 0)
        self.assertEqual(os.listdir(self.folder), [], "what was not finished is removed")
        server.whole.set()
        with desk.Program(PROGRAM, "about:blank", home=self.home) as program:
            program.window()
            program.keys("ctrl+j")
            self.wait_line(program, r"It was not finished\. 5 kB of 10 kB")
            program.press("push button", "Again")
            self.wait_line(program, "Done, 10 kB, Today, .*, in .*")
            with open(os.path.join(self.folder, "report.bin"), "rb") as saved:
                self.assertEqual(saved.read(), BODY)

    def test_nothing_of_a_private_tab_is_left(self):
        with desk.PageServer() as pages, desk.Program(PROGRAM, pages.address("Open"), home=self.home) as program:
            program.wait_strip(["[Open]"])
            program.keys("ctrl+shift+n")
            desk.wait_until(lambda: len(program.tabs()) == 2, what="no second tab")
            program.enter(pages.address("Whispered"))
            program.wait_strip(["Open", "[Whispered]"])
            program.process.send_signal(signal.SIGTERM)
            self.assertEqual(program.wait_end(), 0)
        for folder, _, files in os.walk(self.home):
            for name in files:
                with open(os.path.join(folder, name), "rb") as file:
                    self.assertNotIn(b"Whispered", file.read(), os.path.join(folder, name))


if __name__ == "__main__":
    desk.main()

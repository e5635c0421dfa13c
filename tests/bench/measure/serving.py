"""Pages that a benchmark makes up itself, and the program that loads them."""
import contextlib
import http.server
import os
import random
import subprocess
import threading
import time

WORDS = [f"word{number}" for number in range(3000)]


def paragraphs(page, count):
    """So many paragraphs of 50 words. A page of that name always has the same."""
    chance = random.Random(page)
    return "".join(f"<p>{' '.join(chance.choices(WORDS, k=50))}</p>" for _ in range(count))


class MadePages:
    """Serves what `answer` says until the process ends. Each address 127.x.x.x of this computer is a host of its own."""

    def __init__(self, protocol="HTTP/1.0"):
        pages = self

        class Handler(http.server.BaseHTTPRequestHandler):
            protocol_version = protocol

            def do_GET(self):
                self.send(*pages.answer(self.path))

            def do_POST(self):
                pages.posted(self.path, self.rfile.read(int(self.headers["Content-Length"])))
                self.send("text/html", b"")

            def send(self, kind, body):
                self.send_response(200)
                self.send_header("Content-Type", kind)
                self.send_header("Content-Length", str(len(body)))
                self.send_header("Cache-Control", "no-store")
                self.end_headers()
                self.wfile.write(body)

            def log_message(self, *words):
                pass

        # A hundred pages connect at once, and what waits in vain for that would try again a second later.
        http.server.ThreadingHTTPServer.request_queue_size = 1000
        server = http.server.ThreadingHTTPServer(("0.0.0.0", 0), Handler)
        # A program that ends leaves connections open.
        server.handle_error = lambda *_: None
        self.port = server.server_port
        threading.Thread(target=server.serve_forever, daemon=True).start()

    def answer(self, path):
        """The kind and the bytes of what lies at a path."""
        raise NotImplementedError

    def posted(self, path, body):
        """A page tells something."""

    def address(self, path, host=1):
        return f"http://127.0.0.{host}:{self.port}{path}"


def write_group(path, addresses, plan=""):
    """A TessaGroup of these addresses, with the lines that say how it opens."""
    lines = "".join(f"url{number}={address}\n" for number, address in enumerate(addresses, 1))
    with open(path, "w", encoding="utf-8") as file:
        file.write(f"[TessaGroup]\n{lines}" + (f"[TessaView]\n{plan}\n" if plan else ""))


def wait_for(done, seconds, complaint):
    """Until it is done; ends the benchmark when it never is, with what `complaint` says."""
    deadline = time.monotonic() + seconds
    while not done():
        if time.monotonic() > deadline:
            raise SystemExit(complaint())
        time.sleep(0.01)


def usual_environment():
    """The caller's, but nothing looks at the program from outside, as tests do. What that costs, screen readers alone
    ask for."""
    return {name: value for name, value in os.environ.items() if name != "QT_LINUX_ACCESSIBILITY_ALWAYS_ON"}


@contextlib.contextmanager
def started(program, argument, home):
    """The program with a state folder of its own, for as long as the block lasts."""
    environment = {**usual_environment(), "TESSAVIEW_HOME": home}
    process = subprocess.Popen([program, argument], env=environment, stderr=subprocess.DEVNULL)
    try:
        yield process
    finally:
        process.terminate()
        process.wait()

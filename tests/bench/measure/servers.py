"""What the pages and files come from."""
import http.server
import subprocess
import tempfile
import threading
import time
import urllib.request


class PageServer:
    """The server of the pages, for as long as the block lasts."""

    def __init__(self, path, hosts, delay):
        self._command = [path, "--hosts", str(hosts), "--delay", str(delay)]

    def __enter__(self):
        self._process = subprocess.Popen(self._command, stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
        answer = self._process.stdout.readline().split()
        if not answer:
            raise RuntimeError("the page server does not start")
        self.port = int(answer[1])
        return self

    def __exit__(self, *_):
        self._process.stdin.close()
        self._process.wait()

    def address(self, number):
        return f"http://127.0.1.{number}:{self.port}/page/{number}"

    def small_address(self, number):
        """A page of two letters at an address of the usual length, which counts as loaded once it was asked for."""
        return f"http://127.0.1.1:{self.port}/done?n={number}&in=a-section&of=some-paper&from=the-front-page"

    def control(self, path, patience=10):
        with urllib.request.urlopen(f"http://127.0.1.1:{self.port}/control/{path}", timeout=patience) as answer:
            return answer.read().decode()

    def done(self, pages, seconds):
        """Waits until so many pages are loaded or the time is up; how many are."""
        return int(self.control(f"wait?n={pages}&ms={int(seconds * 1000)}", seconds + 10))

    def events(self):
        """(seconds of the monotonic clock, path) of every request since the last reset."""
        lines = [line.split(" ", 2) for line in self.control("log").splitlines()]
        return [(int(microseconds) / 1e6, path) for microseconds, _, path in lines]


class FileServer:
    """A file of so many MB, as fast as it can be sent, for as long as the block lasts."""

    def __init__(self, megabytes):
        self.size = megabytes * 1000 * 1000
        self.asked = None  # when it was asked for last, in seconds of the monotonic clock

    def __enter__(self):
        server = self

        class Handler(http.server.BaseHTTPRequestHandler):
            def do_GET(self):
                server.asked = time.monotonic()
                self.send_response(200)
                self.send_header("Content-Type", "application/octet-stream")
                self.send_header("Content-Disposition", 'attachment; filename="big.bin"')
                self.send_header("Content-Length", str(server.size))
                self.end_headers()
                with tempfile.TemporaryFile() as file:
                    file.truncate(server.size)
                    try:
                        self.connection.sendfile(file)
                    except OSError:
                        pass  # the program was ended

            def log_message(self, *words):
                pass

        self._server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Handler)
        self._server.daemon_threads = True
        threading.Thread(target=self._server.serve_forever, daemon=True).start()
        self.address = f"http://127.0.0.1:{self._server.server_address[1]}/big"
        return self

    def __exit__(self, *_):
        self._server.shutdown()
        self._server.server_close()

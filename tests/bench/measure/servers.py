"""What the pages and files come from."""
import http.server
import resource
import select
import subprocess
import tempfile
import threading
import time
import urllib.request

from measure.processes import END_PATIENCE_SECONDS, NotMeasured

MOST_HOSTS = 250  # that one server listens on


def allow_many_sockets():
    """A thousand pages ask at the same time."""
    most = resource.getrlimit(resource.RLIMIT_NOFILE)[1]
    resource.setrlimit(resource.RLIMIT_NOFILE, (most, most))


class PageServer:
    """The server of the pages, whose answers come so many milliseconds late, for as long as the block lasts."""

    def __init__(self, path, pages, delay):
        self.hosts = min(max(pages, 1), MOST_HOSTS)
        self._command = [path, "--hosts", str(self.hosts), "--delay", str(delay)]

    def __enter__(self):
        try:
            self._process = subprocess.Popen(self._command, stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True,
                                             preexec_fn=allow_many_sockets)
        except OSError as error:
            raise NotMeasured(f"the page server does not start: {error}") from error
        ready = select.select([self._process.stdout], [], [], END_PATIENCE_SECONDS)[0]
        answer = self._process.stdout.readline().split() if ready else []
        if len(answer) != 2 or not answer[1].isdigit():
            self._process.kill()
            self.__exit__()
            raise NotMeasured("the page server does not start")
        self.port = int(answer[1])
        return self

    def __exit__(self, *_):
        self._process.stdin.close()
        self._process.stdout.close()
        self._process.wait()

    def _host(self, number):
        return f"http://127.0.1.{(number - 1) % self.hosts + 1}:{self.port}"

    def address(self, number, animated=False):
        """A page of a host of its own, as far as there are hosts."""
        return f"{self._host(number)}/{'animated' if animated else 'page'}/{number}"

    def addresses(self, count, animated=False):
        return [self.address(number, animated) for number in range(1, count + 1)]

    def small_address(self, number):
        """A page of two letters at an address of the usual length, which counts as loaded once it was asked for."""
        return f"{self._host(1)}/done?n={number}&in=a-section&of=some-paper&from=the-front-page"

    def control(self, path, patience=10):
        try:
            with urllib.request.urlopen(f"{self._host(1)}/control/{path}", timeout=patience) as answer:
                return answer.read().decode()
        except OSError as error:
            raise NotMeasured(f"the page server does not answer: {error}") from error

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

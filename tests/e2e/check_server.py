"""A server whose answers are all that an address of a group can meet."""

import http.server
import threading

ANSWERS = {
    "/fine": (200, None), "/moved": (301, "/fine"), "/for-now": (302, "/fine"), "/gone": (410, None),
    "/forbidden": (403, None), "/broken": (500, None), "/loop": (301, "/loop"), "/moved-to-gone": (308, "/gone"),
    "/held": (200, None), "/story": (200, None),
}
STORY = b"<!doctype html><title>Story</title><p>The quick brown fox jumps over the lazy dog.</p>"


class Server:
    """Use it in a `with`. `cookies` are those that came, though each answer sets one. "/held" says by `held` that it was
    asked for, and answers with `release`."""

    def __enter__(self):
        self.cookies = set()
        self.held, self.release = threading.Event(), threading.Event()
        outer = self

        class Handler(http.server.BaseHTTPRequestHandler):
            def do_GET(self):
                if "Cookie" in self.headers:
                    outer.cookies.add(self.headers["Cookie"])
                if self.path == "/held":
                    outer.held.set()
                    outer.release.wait(60)
                status, location = ANSWERS.get(self.path, (404, None))
                self.send_response(status)
                self.send_header("Set-Cookie", "seen=1")
                if location:
                    self.send_header("Location", location)
                body = STORY if self.path == "/story" else b""
                self.send_header("Content-Type", "text/html; charset=utf-8")
                self.send_header("Content-Length", str(len(body)))
                self.end_headers()
                self.wfile.write(body)

            def log_message(self, *arguments):
                pass

        self._server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Handler)
        threading.Thread(target=self._server.serve_forever, daemon=True).start()
        return self

    def __exit__(self, *error):
        self.release.set()
        self._server.shutdown()
        self._server.server_close()

    def address(self, path):
        return f"http://127.0.0.1:{self._server.server_address[1]}{path}"

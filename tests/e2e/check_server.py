"""A server whose answers are all that an address of a group can meet."""

import base64
import random
import struct
import threading
import zlib

import desk

ANSWERS = {
    "/fine": (200, None), "/moved": (301, "/fine"), "/for-now": (302, "/fine"), "/gone": (410, None),
    "/forbidden": (403, None), "/broken": (500, None), "/loop": (301, "/loop"), "/moved-to-gone": (308, "/gone"),
    "/held": (200, None), "/story": (200, None), "/big": (200, None),
    "/noise": (200, None), "/noises": (200, None), "/noise.png": (200, None),
    "/pictured": (200, None), "/picture.png": (200, None), "/style.css": (200, None),
    "/asks": (200, None), "/file": (200, None), "/login": (401, None),
    "/teal": (200, None), "/plain": (200, None), "/hangs": (200, None),
}
MORE = {
    "/login": ("WWW-Authenticate", 'Basic realm="somebody"'), "/file": ("Content-Disposition", "attachment; filename=f.bin"),
}
# Nothing makes it smaller.
BIG = b"<!doctype html><title>Big</title><p>" + random.Random(1).randbytes(150_000).hex().encode()
ASKS = b"<!doctype html><title>Asks</title><script>alert('Is somebody there?')</script>"
STORY = b"<!doctype html><title>Story</title><p>The quick brown fox jumps over the lazy dog.</p>"
# It says that it is printed, and never comes to an end.
HANGS = b"""<!doctype html><title>Hangs</title><script>addEventListener('beforeprint', () => {
const tells = new XMLHttpRequest(); tells.open('GET', '/printed', false); tells.send(); for (;;); });</script>"""
PICTURED = b"<!doctype html><title>Pictured</title><link rel=stylesheet href=/style.css><img src=/picture.png>"
# A picture of one point.
PICTURE = base64.b64decode(
    "iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAYAAAAfFcSJAAAADUlEQVR42mNk+M9QDwADhgGAWjR9awAAAABJRU5ErkJggg==")


def noise():
    """A picture that nothing makes smaller: nearly four megabytes."""
    width, height = 1250, 1000
    dice = random.Random(2)
    lines = zlib.compress(b"".join(b"\0" + dice.randbytes(3 * width) for _ in range(height)), 1)
    parts = ((b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0)), (b"IDAT", lines), (b"IEND", b""))
    chunks = (struct.pack(">I", len(data)) + name + data + struct.pack(">I", zlib.crc32(name + data)) for name, data in parts)
    return b"\x89PNG\r\n\x1a\n" + b"".join(chunks)


NOISE = b"<!doctype html><title>Noise</title><img src=/noise.png>"
NOISES = b"<!doctype html><title>Noises</title><img src=/noise.png?1><img src=/noise.png?2>"
TYPES = {"/picture.png": "image/png", "/noise.png": "image/png", "/style.css": "text/css"}
BODIES = {
    "/pictured": PICTURED, "/picture.png": PICTURE, "/style.css": b"body { color: teal }", "/story": STORY, "/asks": ASKS,
    "/file": STORY, "/big": BIG, "/noise": NOISE, "/noises": NOISES, "/teal": b"<!doctype html><title>Teal</title><style>html { background: teal }</style>",
    "/plain": b"<!doctype html><title>Plain</title>", "/hangs": HANGS,
}


class Server(desk.PageServer):
    """Use it in a `with`. `cookies` are those that came, though each answer sets one. "/held" says by `held` that it was
    asked for, and answers with `release`; "/printed" says so by `printed`."""

    def __init__(self):
        self.cookies = set()
        self.held, self.release, self.printed = threading.Event(), threading.Event(), threading.Event()
        super().__init__()

    def __exit__(self, *error):
        self.release.set()
        super().__exit__(*error)

    def address(self, path):
        return super().address(path.removeprefix("/"))

    def answer(self, request):
        if "Cookie" in request.headers:
            self.cookies.add(request.headers["Cookie"])
        if request.path == "/held":
            self.held.set()
            self.release.wait(60)
        if request.path == "/printed":
            self.printed.set()
        path = request.path.split("?")[0]
        status, location = ANSWERS.get(path, (404, None))
        headers = [("Set-Cookie", "seen=1")]
        if location:
            headers.append(("Location", location))
        if request.path in MORE:
            headers.append(MORE[request.path])
        body = noise() if path == "/noise.png" else BODIES.get(path, b"")
        request.send(body, TYPES.get(path, desk.HTML), status, headers)

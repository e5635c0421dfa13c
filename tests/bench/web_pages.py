"""Pages that are like those of the web, as far as blocking is concerned, for blocking.py.

The hundred pages ask for as many things of each kind as people's pages do. The shares are those of 15,000 recorded
requests to which two usual lists were held: 9,754 went through, 5,246 were stopped. Recorders do not say how large
answers are, or when they come. So scripts have 30 kB of functions that run, styles and frames 5 kB, data 1 kB, pictures
15 kB, and stopped ones are of one point; each answer comes after 50 ms. Stopped scripts are asked for without waiting for
them, as advertisers' own instructions say; stopped pictures stand in the page, which costs blocking most.
"""

import random
import struct
import zlib

PAGES, LOADS, UNITS = 100, 6, 25
SCRIPTS, PICTURES, STORIES = 10, 20, 40
STOPPED, FREE = 3, 7
ANSWER_AFTER = 0.05
# In a hundred requests; what is rarer counts as data.
STOPPED_KINDS = {"picture": 41, "script": 35, "data": 19, "frame": 5}
FREE_KINDS = {"picture": 50, "script": 24, "data": 12, "style": 7, "frame": 7}
RULE = "/banner/ad-\n"

# Goes on to the next load of the same page when this one is done; its work runs before, and what watches the page, too.
NEXT = """
function done() {
  const next = Number(new URLSearchParams(location.search).get('n')) + 1;
  fetch('/done?' + performance.now()).then(() => { if (next < LOADS) location = location.pathname + '?n=' + next; });
}
""".replace("LOADS", str(LOADS))

WORK = """<!doctype html><title>work</title><body><script>NEXT
const box = document.createElement('div');
let units = 0;
document.body.append(box);
function unit() {
  box.innerHTML = '';
  for (let n = 0; n < 400; ++n) {
    const item = document.createElement('p');
    item.className = 'item c' + (n % 100) + ' row-' + (n % 40);
    item.id = 'i' + n;
    item.textContent = 'Words of item ' + n;
    box.append(item);
    if (n % 50 === 0) item.getBoundingClientRect();
  }
  for (const each of box.children) each.classList.toggle('odd');
  box.getBoundingClientRect();
  setTimeout(++units < UNITS ? unit : done, 0);
}
unit();
</script>""".replace("NEXT", NEXT).replace("UNITS", str(UNITS))

# What the scripts of a page do: they read data, sort and join it, make parts of the page, look where these are.
SCRIPT = """(() => {
  const data = Array.from({ length: 2500 }, (_, n) => ({ id: n, name: 'Entry ' + (n * 7919 % 2500), tags: ['a' + n % 9, 'b' + n % 5] }));
  const byTag = new Map();
  for (const each of JSON.parse(JSON.stringify(data)))
    for (const tag of each.tags) byTag.set(tag, (byTag.get(tag) || []).concat(each.name.replace(/[aeiou]/g, '').toLowerCase()).slice(-50));
  data.sort((one, other) => one.name.localeCompare(other.name));
  const box = document.createElement('aside');
  box.className = 'side side-NUMBER';
  for (const each of data.slice(0, 15)) {
    const row = document.createElement('div');
    row.className = 'row r' + each.id % 7;
    row.innerHTML = '<span class="name">' + each.name + '</span><span class="tag">' + byTag.get(each.tags[0]).length + '</span>';
    row.addEventListener('click', () => row.classList.toggle('open'));
    box.append(row);
  }
  document.body.append(box);
  for (const each of document.querySelectorAll('.story'))
    if (each.getBoundingClientRect().top < 600) each.classList.add('near-NUMBER');
})();
"""
NAMES = "garden river light morning water paper road window winter letter bread music evening story glass harbour".split()


def words(count, start):
    return " ".join(NAMES[(start * 7 + n * 5) % len(NAMES)] for n in range(count))


def story(n):
    links = " ".join(
        f'<a class="link l{i}" href="https://www.site{(n * 7 + i) % 40}.example/{NAMES[i]}/{n}-{i}">{words(2, n + i)}</a>' for i in range(6)
    )
    texts = "".join(
        f'<p class="text t{i}">{words(40, n + i)} <em>{words(2, i)}</em> <span class="note n{i}">{words(3, n)}</span> {words(30, i)}</p>'
        for i in range(4)
    )
    entries = "".join(f'<li class="entry e{i % 3}"><span class="key">{i}</span> <b>{words(2, n * i)}</b></li>' for i in range(6))
    picture = f'<img class="picture" src="/picture-{n}.gif" width="40" height="30">' if n < PICTURES else ""
    return (
        f'<article id="story-{n}" class="story card card-{n}"><header class="head part-{n % 30}"><h3 class="title">{words(6, n)}</h3>'
        f'<div class="meta"><span class="by">{words(2, n)}</span><time>12:{n:02d}</time></div></header>'
        f'<div class="body">{picture}{texts}<ul class="list list-{n}">{entries}</ul></div><footer class="links">{links}</footer></article>'
    )


def reading():
    style = "".join(f".part-{n % 30} > span:hover, .card-{n} h3, .list-{n} li:first-child {{ margin: {n % 7}px }}\n" for n in range(300))
    scripts = "".join(f'<script src="/script-{n}.js"></script>' for n in range(SCRIPTS))
    return (
        f"<!doctype html><title>reading</title><style>{style}</style><body><main>{''.join(story(n) for n in range(STORIES))}</main>"
        f"{scripts}<script>{NEXT}addEventListener('load', () => requestAnimationFrame(() => requestAnimationFrame(() => "
        "setTimeout(done, 100))))</script>"
    )


def kinds(shares, count):
    """So many kinds of things, in these shares, spread evenly."""
    given, order = dict.fromkeys(shares, 0), []
    for number in range(1, count + 1):
        kind = max(shares, key=lambda each: shares[each] * number / 100 - given[each])
        given[kind] += 1
        order.append(kind)
    return order


def picture_of_noise():
    chance, side = random.Random(1), 70
    rows = b"".join(b"\0" + chance.randbytes(side * 3) for _ in range(side))

    def chunk(name, body):
        return struct.pack(">I", len(body)) + name + body + struct.pack(">I", zlib.crc32(name + body))

    head = struct.pack(">IIBBBBB", side, side, 8, 2, 0, 0, 0)
    return b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", head) + chunk(b"IDAT", zlib.compress(rows)) + chunk(b"IEND", b"")


def functions():
    each = (
        "function part%d(text) {\n  const all = text.split(' ').map((word) => word.length + %d);\n"
        "  return all.reduce((a, b) => a + b, 0);\n}\npart%d('%s');\n"
    )
    return "(() => {\n" + "".join(each % (n, n, n, words(6, n)) for n in range(160)) + "})();\n"


POINT = bytes.fromhex("47494638396101000100800000 00ff00 000000 2c00000000010001000002024401003b".replace(" ", ""))
PARTS = {
    "picture": ("image/png", picture_of_noise()),
    "point": ("image/gif", POINT),
    "script": ("text/javascript", functions().encode()),
    "style": ("text/css", "".join(f".part-{n} .text {{ margin: {n}px; color: #123 }}\n" for n in range(130)).encode()),
    "frame": ("text/html", f"<!doctype html><p>{words(700, 1)}".encode()),
    "data": ("application/json", b'{"words": "' + words(140, 2).encode() + b'"}'),
}
ASKED_BY = {
    "picture": "<img src='{}' width=60 height=40>",
    "script": "<script src='{}'></script>",
    "style": "<link rel=stylesheet href='{}'>",
    "frame": "<iframe src='{}' width=200 height=100></iframe>",
    "data": "<script>fetch('{}', {{ mode: 'no-cors' }})</script>",
}


class HundredPages:
    """Pages that ask for ten things each, three of which rules stop. What is stopped lies on hosts of its own."""

    def __init__(self, port):
        self.port = port
        self.stopped, self.free = kinds(STOPPED_KINDS, PAGES * STOPPED), kinds(FREE_KINDS, PAGES * FREE)

    def address(self, number):
        return f"http://127.0.1.{number + 1}:{self.port}/page{number}"

    def text(self, number):
        asked = []
        for n, kind in enumerate(self.free[number * FREE : (number + 1) * FREE]):
            asked.append(ASKED_BY[kind].format(f"/{kind}/{number}-{n}"))
        for n, kind in enumerate(self.stopped[number * STOPPED : (number + 1) * STOPPED]):
            path = f"/banner/ad-{'point' if kind == 'picture' else kind}/{number}-{n}"
            address = f"http://127.0.2.{(number * STOPPED + n) % 250 + 1}:{self.port}{path}"
            asked.insert(n * 3 + 1, ASKED_BY[kind].replace("<script src", "<script async src").format(address))
        parts = "".join(f"<p>{words(40, n)}</p>{each}" for n, each in enumerate(asked))
        return (
            f"<!doctype html><title>{number}</title>{parts}"
            "<script>addEventListener('load', () => setTimeout(() => fetch('/loaded'), 0))</script>"
        )

    @staticmethod
    def part(path):
        """The type and the bytes of a thing that pages ask for."""
        return PARTS[path.removeprefix("/banner/ad-").lstrip("/").partition("/")[0]]

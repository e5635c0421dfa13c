"""What TessaView may need at most."""
import dataclasses

SLOW_ANSWERS = 100  # milliseconds from which on a page waits for its server above all


@dataclasses.dataclass(frozen=True)
class Case:
    """What is measured under which circumstances."""

    kind: str  # "start", "hand-over", "pages", "restart", "download", "exit" or "sleep"
    count: int = 0  # of pages
    animated: bool = False
    drawing: str = "software"
    usual: bool = True  # whether TessaView would draw that way here by itself
    delay: int = 20  # milliseconds until each answer


@dataclasses.dataclass(frozen=True)
class Target:
    """At most so much of what another needs, or, where `of` is "itself", so much."""

    kind: str
    count: int  # 0 for any
    key: str
    of: str  # "bare", "browser", "itself" or another value of TessaView's own
    most: float


TARGETS = (
    Target("start", 0, "window", "itself", 0.25),
    Target("start", 0, "window", "bare", 1.25),
    Target("hand-over", 0, "ended", "itself", 0.10),
    Target("hand-over", 0, "asked", "itself", 0.15),
    Target("pages", 1, "all", "bare", 1.00),
    Target("pages", 1, "all", "browser", 0.55),
    Target("pages", 1, "cpu", "bare", 0.90),
    Target("pages", 1, "cpu", "browser", 0.40),
    Target("pages", 20, "front", "bare", 0.35),
    Target("pages", 20, "front", "browser", 0.20),
    Target("pages", 20, "all", "bare", 1.00),
    Target("pages", 20, "all", "browser", 0.80),
    Target("pages", 20, "memory", "browser", 0.65),
    Target("pages", 100, "front", "bare", 0.15),
    Target("pages", 100, "front", "browser", 0.05),
    Target("pages", 100, "all", "bare", 0.80),
    Target("pages", 100, "all", "browser", 0.60),
    Target("pages", 100, "memory", "browser", 0.80),
    Target("pages", 0, "memory", "bare", 1.10),
    Target("restart", 100, "front", "bare", 0.15),
    Target("restart", 100, "all", "bare", 0.80),
    Target("restart", 0, "memory", "bare", 1.10),
    Target("download", 0, "file", "bare", 1.10),
    Target("download", 0, "peak", "bare", 1.10),
    Target("download", 0, "grown", "itself", 50),  # MB, however large the file is
    Target("exit", 0, "saved", "itself", 0.10),
    Target("sleep", 0, "asleep", "awake", 0.25),
    Target("sleep", 0, "wake", "anew", 1.00),
)


def holds(target, case):
    """Whether a target is meant for a case."""
    if target.kind != case.kind or target.count not in (0, case.count):
        return False
    if target.key == "cpu" and not case.animated:
        return False
    # A browser draws in its own way, and what it takes alone depends on the machine: held against the way of this one.
    if not case.usual and target.of in ("browser", "itself"):
        return False
    # Then the time is that of the answers, of which each page needs as many, wherever it is loaded.
    slow = case.delay >= SLOW_ANSWERS and target.key in ("front", "all")
    return not slow or (target.of, target.key, target.count) == ("browser", "all", 100)


def targets_of(case, key):
    """The targets of one value."""
    return [target for target in TARGETS if target.key == key and holds(target, case)]


@dataclasses.dataclass(frozen=True)
class Verdict:
    """Whether a target is met; `met` is nothing when it was not measured."""

    target: Target
    met: bool | None

    def __str__(self):
        word = {True: "met", False: "MISSED", None: "not measured"}[self.met]
        of = "" if self.target.of == "itself" else f" of {self.target.of}"
        return f"<= {self.target.most:.2f}{of} {word}"


def base_of(target, values):
    """What a target is a part of; nothing when that was not measured."""
    if target.of == "itself":
        return 1
    if target.of in ("bare", "browser"):
        return values.get(target.of, {}).get(target.key)
    return values.get("TessaView", {}).get(target.of)


def verdict(target, values):
    """`values`: the medians by contestant and key."""
    own, base = values.get("TessaView", {}).get(target.key), base_of(target, values)
    return Verdict(target, own / base <= target.most if own is not None and base else None)

"""The one table of medians and ratios, as text and in Markdown."""
import dataclasses
import statistics

from measure.starting import IDLE_SECONDS
from measure.targets import Case, targets_of, verdict

CONTESTANTS = ("TessaView", "bare", "browser")
# In the order of the table; {seconds} are those that an animated page is watched.
VALUES = {
    "window": "window shown, s", "ended": "second start ended, s", "asked": "its page asked for, s",
    "first": "first request, s", "front": "front page loaded, s", "all": "all loaded, s",
    "settled": "nothing left to do, s", "memory": "memory, MB (PSS)", "idle": f"idle CPU, s in {IDLE_SECONDS} s",
    "cpu": "CPU, s in {seconds:g} s", "own": "  of the program itself", "renderers": "  of the renderers",
    "others": "  of other processes", "file": "file saved, s", "peak": "peak memory, MB (PSS)",
    "grown": "grown meanwhile, MB", "saved": "everything saved, s", "gone": "ended, s", "awake": "awake, MB (PSS)",
    "asleep": "asleep, MB (PSS)", "wake": "loaded by waking, s", "anew": "loaded anew, s",
}
# Said on the way, but no news in a summary.
NOT_IN_MARKDOWN = ("first", "idle", "own", "renderers", "others")
MEGABYTES = ("memory", "peak", "grown", "awake", "asleep")
PROCESSOR_SECONDS = ("idle", "cpu", "own", "renderers", "others")  # the kernel counts hundredths


@dataclasses.dataclass
class Section:
    """What was measured in one case: medians by contestant and value."""

    title: str
    case: Case
    values: dict

    def rows(self):
        """(value, medians in the order of the contestants, verdicts) of all that was measured or has a target."""
        for key in VALUES:
            targets = targets_of(self.case, key)
            medians = [self.values.get(name, {}).get(key) for name in CONTESTANTS]
            if targets or any(each is not None for each in medians):
                yield key, medians, [verdict(target, self.values) for target in targets]

    def verdicts(self):
        return [each for _, _, verdicts in self.rows() for each in verdicts]


def medians(runs):
    """Of each value that was measured, over the runs that measured it."""
    keys = [key for key in VALUES if any(key in run for run in runs)]
    return {key: statistics.median(run[key] for run in runs if key in run) for key in keys}


def label(key, seconds):
    return VALUES[key].format(seconds=seconds)


def number(key, value):
    """As many digits as mean something."""
    if value is None:
        return "-"
    if key in MEGABYTES:
        return f"{value:.0f}"
    return f"{value:.2f}" if value >= 1 or key in PROCESSOR_SECONDS else f"{value:.3f}"


def cells(key, values):
    """The three medians, and what TessaView needs of what the others need: so exactly that a verdict can be seen."""
    ours, *others = values
    ratios = [f"{ours / other:.3f}" if ours is not None and other else "-" for other in others]
    return [number(key, value) for value in values] + ratios


def as_text(sections, seconds):
    """The table for a terminal."""
    lines = [f"{'':28}" + "".join(f"{head:>11}" for head in (*CONTESTANTS, "of bare", "of browser")) + "   targets"]
    for section in sections:
        lines += ["", section.title]
        for key, values, verdicts in section.rows():
            row = f"  {label(key, seconds):26}" + "".join(f"{cell:>11}" for cell in cells(key, values))
            lines.append((row + "   " + ", ".join(map(str, verdicts))).rstrip())
    return "\n".join(lines)


def as_markdown(sections, seconds, machine, command):
    """The table for a document, with the machine it was measured on and how to measure anew."""
    lines = [f"Measured on {machine}.", "", "| | TessaView | bare program | browser | of bare | of browser |",
             "|---|--:|--:|--:|--:|--:|"]
    for section in sections:
        rows = [(key, values) for key, values, _ in section.rows() if key not in NOT_IN_MARKDOWN]
        lines += [f"| **{section.title}** | | | | | |"] if rows else []
        lines += [f"| {label(key, seconds)} | {' | '.join(cells(key, values))} |" for key, values in rows]
    return "\n".join([*lines, "", "To measure anew:", "", f"    {command}", ""])

"""All that is measured, one comparison after the other."""
from measure import saving, sleeping, starting
from measure.processes import NotMeasured
from measure.table import VALUES, Section, medians
from measure.targets import Case

MOST_FAILURES = 2  # of one contestant in one comparison: it fails again, and that takes its time


class Bench:
    """The contestants on one display, and what went wrong with them, in words."""

    def __init__(self, options, contestants, display, problems):
        self.options, self.contestants, self.display, self.problems = options, contestants, display, problems

    def _in_turn(self, contestants):
        """Whom to start next; the order changes each time, so that none always comes after the same other one."""
        for run in range(1, self.options.runs + 1):
            for contestant in contestants if run % 2 == 0 else reversed(contestants):
                yield run, contestant

    def _one_run(self, title, contestant, measured):
        result, problem = {}, ""
        try:
            measured(contestant, result)
        except NotMeasured as error:
            problem = str(error)
            self.problems.append(f"{title}, {who(contestant)}: {problem}")
        shown = "  ".join(f"{key} {result[key]:.3f}" for key in VALUES if key in result)
        again = f"  {result['again']} pages asked for more than once" if result.get("again") else ""
        return result, f"{shown}{again}  {problem}".rstrip()

    def compare(self, title, contestants, measured):
        """Measures all in turn; gives the medians of each."""
        results = {contestant: [] for contestant in contestants}
        failures = {contestant: 0 for contestant in contestants}
        for run, contestant in self._in_turn(contestants):
            if failures[contestant] >= MOST_FAILURES:
                continue
            before = len(self.problems)
            result, shown = self._one_run(title, contestant, measured)
            results[contestant].append(result)
            failures[contestant] += len(self.problems) - before
            print(f"  {title}, run {run}, {who(contestant)}: {shown}", flush=True)
        return {contestant: medians(runs) for contestant, runs in results.items()}

    def sections(self, title, case, contestants, measured):
        """The comparison as a section for each way of drawing. `case` has the circumstances that are the same."""
        found = self.compare(title, contestants, measured)
        drawings = dict.fromkeys(each.drawing for each in contestants if each.drawing)
        for drawing in drawings:
            values = {each.name: found[each] for each in contestants if each.drawing in (drawing, "")}
            yield Section(f"{title}, drawn by {drawing}",
                          Case(**case, drawing=drawing, usual=drawing == self.options.usual_drawing), values)

    def with_pages(self, server, delay):
        """So many pages, still or animated, whose answers come so late."""
        for pages in self.options.pages:
            for animated in self.options.animated:
                title = (f"{pages} {'animated' if animated else 'still'} page{'s' if pages > 1 else ''}, "
                         f"answers after {delay} ms")
                case = {"kind": "pages", "count": pages, "animated": animated, "delay": delay}
                yield from self.sections(
                    title, case, self.contestants,
                    lambda contestant, result, n=pages, a=animated: starting.measure_pages(
                        contestant, result, n, a, self.options, server, self.display))

    def _named(self, *names):
        """Those of that name, in the way of drawing that comes first."""
        return [each for each in self.contestants if each.name in names and each.drawing == self.options.drawing[0]]

    def others(self, server):
        """All but pages."""
        options, display = self.options, self.display
        able = [each for each in self.contestants if hasattr(each, "again")]
        yield "start", "start", self.contestants, lambda each, result: starting.measure_window(
            each, result, options, server, display)
        if options.hand_over:
            yield "hand-over", "second start with an address", able, lambda each, result: starting.measure_hand_over(
                each, result, options, server, display)
        if options.restart:
            yield "restart", f"restart with {options.restart} sites", self._named("TessaView", "bare"), (
                lambda each, result: starting.measure_restart(each, result, options, server, display))
        if options.download:
            yield "download", f"download of {options.download} MB", self._named("TessaView", "bare"), (
                lambda each, result: saving.measure_download(each, result, options, display))
        if options.exit:
            yield "exit", f"end with {options.exit} tabs", self._named("TessaView"), (
                lambda each, result: saving.measure_exit(each, result, options, server, display))
        if options.asleep:
            yield "sleep", f"{options.asleep} tabs asleep", self._named("TessaView"), (
                lambda each, result: sleeping.measure_sleep(each, result, options, server, display))

    def with_everything_else(self, server, delay):
        """What does not depend on the pages."""
        for kind, title, contestants, measured in self.others(server):
            count = self.options.restart if kind == "restart" else 0
            yield from self.sections(title, {"kind": kind, "count": count, "delay": delay}, contestants, measured)


def who(contestant):
    """How it is called on the way."""
    return f"{contestant.name} ({contestant.drawing})" if contestant.drawing else contestant.name


def check_contestants(contestants, options, server, display, problems):
    """Those that load a page. Without a browser the others are measured, but not without one of them."""
    working = []
    for contestant in contestants:
        try:
            starting.check_starts(contestant, options, server, display)
            working.append(contestant)
        except NotMeasured as problem:
            words = f"{who(contestant)}: {problem}"
            if contestant.name != "browser":
                raise NotMeasured(words) from problem
            problems.append(words)
    return working

"""How soon a start shows its window and its pages, what these need, and how soon a second start is gone. What is
measured goes into the result that a function is given, so that it is kept when something goes wrong later."""
import time

from measure.processes import END_PATIENCE_SECONDS, NotMeasured
from measure.running import Running, times, wait_end

QUIET_SECONDS = 3
IDLE_SECONDS = 5


def measure_window(contestant, result, options, server, display):
    """Seconds from the start to the main window on the screen."""
    server.control("reset")
    with Running(contestant, display, lambda home: contestant.open([server.address(1)], home)) as running:
        result["window"] = running.wait_window(options.timeout)


def check_starts(contestant, options, server, display):
    """Loads a page without measuring anything, which also brings the program from the disk into memory."""
    server.control("reset")
    with Running(contestant, display, lambda home: contestant.open([server.address(1)], home)) as running:
        running.wait_loaded(server, 1, options.timeout)


def measure_loading(contestant, result, pages, command_for, options, server, display, animated=False):
    """How soon so many pages are loaded, and what memory and processor time they need then. `command_for` gives the
    command for the folder of the run."""
    server.control("reset")
    with Running(contestant, display, command_for) as running:
        try:
            running.wait_loaded(server, pages, options.timeout)
        finally:
            result.update(times(server, running.start, pages))
        if not animated and (settled := running.wait_settled(QUIET_SECONDS)):
            result["settled"] = settled
        time.sleep(QUIET_SECONDS)
        running.check_runs()
        result["memory"] = running.tree.memory_megabytes()
        spent = running.tree.cpu_by_kind(options.seconds if animated else IDLE_SECONDS)
        result["cpu" if animated else "idle"] = sum(spent.values())
        result.update(spent if animated else {})


def measure_pages(contestant, result, pages, animated, options, server, display):
    """A start with so many pages."""
    addresses = server.addresses(pages, animated)
    measure_loading(contestant, result, pages, lambda home: contestant.open(addresses, home), options, server, display,
                    animated)


def measure_restart(contestant, result, options, server, display):
    """A start that brings so many sites back."""
    addresses = server.addresses(options.restart)
    measure_loading(contestant, result, options.restart, lambda home: contestant.restart(addresses, home), options,
                    server, display)


def measure_hand_over(contestant, result, options, server, display):
    """Seconds from a second start, while one page is loaded in the first, to its end and to the request of its page."""
    server.control("reset")
    with Running(contestant, display, lambda home: contestant.open([server.address(1)], home)) as running:
        running.wait_loaded(server, 1, options.timeout)
        time.sleep(QUIET_SECONDS)
        running.check_runs()
        server.control("reset")
        start = time.monotonic()
        second = running.run(contestant.again(server.address(2), running.home))
        wait_end(second, END_PATIENCE_SECONDS, "the second start")
        result["ended"] = time.monotonic() - start
        running.wait_loaded(server, 1, END_PATIENCE_SECONDS)
        asked = [moment - start for moment, path in server.events() if path == "/page/2"]
        if not asked:
            raise NotMeasured("another page than that of the second start was asked for")
        result["asked"] = asked[0]

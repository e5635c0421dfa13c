"""A group of many pages opens although memory is short: the pages that have loaded sleep, wake when they are selected, and
the session keeps all of them in their order. What the kernel would say stands in a folder of files."""

import glob
import os
import unittest

import desk
from records import records_of

PROGRAM = desk.program_file()
COUNT = 60
HOSTS = 4


def say_free(folder, megabytes):
    """Has the kernel say that so much of 4 GB is free."""
    os.makedirs(f"{folder}/proc", exist_ok=True)
    with open(f"{folder}/proc/new", "w", encoding="ascii") as file:
        file.write(f"MemTotal: 4194304 kB\nMemAvailable: {megabytes * 1024} kB\n")
    # Never half written.
    os.replace(f"{folder}/proc/new", f"{folder}/proc/meminfo")


def renderers(program):
    """How many processes of pages the program has, by the command lines of its children's children too."""
    parents, pages = {}, []
    for stat in glob.glob("/proc/[0-9]*/stat"):
        try:
            with open(stat, encoding="latin-1") as file:
                parents[int(stat.split("/")[2])] = int(file.read().rpartition(")")[2].split()[1])
            with open(os.path.dirname(stat) + "/cmdline", "rb") as file:
                if b"--type=renderer" in file.read():
                    pages.append(int(stat.split("/")[2]))
        except OSError:
            continue  # it has ended meanwhile

    def descends(process):
        while process in parents and process != program.process.pid:
            process = parents[process]
        return process == program.process.pid

    return sum(descends(each) for each in pages)


def kept_pages(home):
    """The addresses of the session that runs, in its order."""
    pages = []
    for file in glob.glob(f"{home}/**/sessions/*.session", recursive=True):
        pages += [fields["Address"] for name, fields in records_of(file) if name == "Page"]
    return pages


class Memory(unittest.TestCase):
    def setUp(self):
        self.kernel = desk.state_folder()
        os.environ["TESSAVIEW_MEMORY"] = self.kernel
        self.addCleanup(os.environ.pop, "TESSAVIEW_MEMORY")

    def test_most_pages_of_a_group_sleep_and_none_is_lost(self):
        say_free(self.kernel, 400)
        home = desk.state_folder()
        group = os.path.join(home, "big.tvg")
        with desk.PageServer(hosts=HOSTS, stored=False) as pages:
            titles = [f"P{number}" for number in range(COUNT)]
            addresses = [pages.address(title, host=1 + i % HOSTS) for i, title in enumerate(titles)]
            desk.write_group(group, addresses)
            with desk.Program(PROGRAM, group, home=home) as program:
                strip = ["about:blank", *titles[:-1], f"[{titles[-1]}]"]
                desk.wait_until(lambda: program.strip() == strip, 120, lambda: f"captions are {program.strip()}")
                # Of the page in front, and one that the engine keeps for the next.
                desk.wait_until(lambda: renderers(program) <= 2, 120, lambda: f"{renderers(program)} processes")
                desk.wait_until(lambda: kept_pages(home) == addresses, what=lambda: f"kept are {kept_pages(home)}")
                # With room again, the one that is selected comes to life: it is loaded once more.
                say_free(self.kernel, 3000)
                asked = lambda: pages.requested().count(f"127.0.0.{1 + 6 % HOSTS}/P6")
                before = asked()
                desk.press_node(program.tabs()[7])
                desk.wait_until(lambda: asked() > before, what="the page that was selected does not wake")
                strip = ["about:blank", *titles]
                strip[7] = "[P6]"
                program.wait_strip(strip)
                program.kill()
            with desk.Program(PROGRAM, home=home) as program:
                program.press("push button", "Reopen")
                desk.wait_until(
                    lambda: [name.strip("[]") for name in program.strip()][-COUNT:] == titles,
                    120,
                    lambda: f"captions are {program.strip()}",
                )

    def test_the_status_bar_says_so_once(self):
        say_free(self.kernel, 3000)
        with desk.PageServer() as pages:
            home = desk.state_folder()
            group = os.path.join(home, "small.tvg")
            desk.write_group(group, [pages.address("A"), pages.address("B"), pages.address("C")])
            with desk.Program(PROGRAM, group, home=home) as program:
                program.wait_strip(["about:blank", "A", "B", "[C]"])
                say_free(self.kernel, 400)
                desk.wait_until(
                    lambda: (program.status() or "").startswith("Memory is short."),
                    what=lambda: f"the status bar says {program.status()!r}",
                )


if __name__ == "__main__":
    desk.main()

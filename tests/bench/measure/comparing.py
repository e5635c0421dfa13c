"""All that is measured, one comparison after the other."""
from measure.loading import measure, measure_window
from measure.programs import download_command, program_command, reference_command, restart_command
from measure.saving import measure_download, report_exit
from measure.sleeping import report_sleep
from measure.verdicts import VALUES, medians, print_table


def in_turn(runs, pair):
    """The kinds of program to run one after the other; the order changes each time, so that neither always comes after
    the other."""
    for run in range(1, runs + 1):
        for name, command_for in pair if run % 2 == 0 else reversed(pair):
            yield run, name, command_for


def compare(title, pages, options, measured, command_for_ours=program_command):
    """Measures both in turn and prints the result; gives the verdicts and what went wrong."""
    results = {"TessaView": [], "bare": []}
    problems = []
    for run, name, command_for in in_turn(options.runs, [("TessaView", command_for_ours), ("bare", reference_command)]):
        result, problem = measured(name, command_for)
        results[name].append(result)
        shown = "  ".join(f"{key} {result[key]:.2f}" for key in VALUES if key in result)
        again = f"  {result['again']} pages asked for more than once" if result.get("again") else ""
        print(f"  {title}, run {run}, {name:9}: {shown}{again}  {problem}".rstrip(), flush=True)
        if problem:
            problems.append(f"{title}, {name}: {problem}")
    return print_table(title, pages, medians(results["TessaView"]), medians(results["bare"])), problems


def comparisons(options, server, display):
    """All that is asked for, one comparison after the other."""
    yield compare("start", 0, options,
                  lambda name, command_for: measure_window(name, command_for, options, server, display))
    for pages in options.pages:
        title = f"{pages} page{'s' if pages > 1 else ''}"
        yield compare(title, pages, options,
                      lambda _, command_for, n=pages: measure(command_for, options, n, server, display))
    if options.restart:
        yield compare(f"restart with {options.restart} sites", options.restart, options,
                      lambda _, command_for: measure(command_for, options, options.restart, server, display),
                      restart_command)
    if options.download:
        yield compare(f"download of {options.download} MB", 0, options,
                      lambda _, command_for: measure_download(command_for, options, display), download_command)
    if options.exit:
        yield report_exit(options, server, display)
    if options.asleep:
        yield report_sleep(options, server, display)

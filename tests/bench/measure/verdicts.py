"""Medians, ratios and whether they are good enough."""
import statistics

# What TessaView may need at most, as a part of what the bare program needs: (pages, value) -> ratio.
TARGETS = {(1, "front"): 1.10, (1, "all"): 1.10, (20, "front"): 0.35, (20, "all"): 0.80, (100, "front"): 0.15,
           (100, "all"): 0.80}
MEMORY_TARGET = 1.10
WINDOW_TARGET = 1.25
DOWNLOAD_TARGET = 1.10
GROWTH_TARGET = 50  # MB that a download may take at most, however large it is
VALUES = {"window": "window shown, s", "first": "first request, s", "front": "front page loaded, s", "all": "all loaded, s",
          "memory": "memory, MB (PSS)", "idle": "idle CPU, s in 5 s", "saved": "file saved, s", "peak": "peak memory, MB (PSS)",
          "grown": "grown meanwhile, MB"}


def medians(runs):
    return {key: statistics.median(run[key] for run in runs) for key in VALUES if all(key in run for run in runs)}


def verdict(pages, key, ratio, ours):
    if key == "grown" and ours is not None:
        return f"<= {GROWTH_TARGET} MB  {'met' if ours <= GROWTH_TARGET else 'MISSED'}"
    target = {"memory": MEMORY_TARGET, "window": WINDOW_TARGET, "saved": DOWNLOAD_TARGET, "peak": MEMORY_TARGET}.get(key, TARGETS.get((pages, key)))
    if target is None:
        return ""
    if ratio is None:
        return f"<= {target:.2f}  not measured"
    return f"<= {target:.2f}  {'met' if ratio <= target else 'MISSED'}"


def print_table(title, pages, program, reference):
    """Gives the verdicts."""
    print(f"\n{title}")
    print(f"  {'':22}{'TessaView':>10}{'bare':>10}{'ratio':>8}   target")
    verdicts = []
    for key, label in VALUES.items():
        if key not in program and key not in reference:
            continue
        ours, bare = program.get(key), reference.get(key)
        ratio = ours / bare if ours is not None and bare else None
        cells = [f"{value:.2f}" if value is not None else "-" for value in (ours, bare, ratio)]
        verdicts.append(verdict(pages, key, ratio, ours))
        print(f"  {label:22}{cells[0]:>10}{cells[1]:>10}{cells[2]:>8}   {verdicts[-1]}".rstrip())
    return verdicts


def report_ratio(label, runs, value, of, target):
    """Prints how one median compares with another; gives the verdict."""
    pairs = [(run[value], run[of]) for run in runs if value in run and of in run]
    if not pairs:
        print(f"  {label:34}         -            <= {target:.2f}  not measured")
        return "  not measured"
    ours, base = (statistics.median(pair[i] for pair in pairs) for i in (0, 1))
    word = "met" if ours / base <= target else "MISSED"
    print(f"  {label:34}{ours:10.2f}{base:10.2f}{ours / base:8.2f}   <= {target:.2f}  {word}")
    return f"  {word}"

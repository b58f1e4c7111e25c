"""What a look-up from Python costs beside a dictionary of the program's own.

    PYTHONPATH=build/python python3 benchmarks/python_lookups.py build/catalogues

Both sides take another section each time, in a shuffled order. The dictionary holds what a program
would keep: the area by name, in the letter case of the catalogue.
"""

import random
import statistics
import sys
import time

import sectiondb

BATCHES = 41


def nanoseconds(work, names):
    """What one call takes, of a batch of all names."""
    begin = time.perf_counter_ns()
    for name in names:
        work(name)
    return (time.perf_counter_ns() - begin) / len(names)


def compare(ours, peer, names):
    """Medians of both sides, and of the ratio of neighbouring batches."""
    pairs = [(nanoseconds(ours, names), nanoseconds(peer, names)) for _ in range(BATCHES)]
    left, right = zip(*pairs)
    ratio = statistics.median(one / other for one, other in pairs)
    return statistics.median(left), statistics.median(right), ratio


def main(folder):
    catalogue = sectiondb.open("American", folder=folder)
    families = [family for family in catalogue.families if family.has_column("AX")]
    names = [section.name for family in families for section in family if section.AX]
    random.Random(1).shuffle(names)
    areas = {name: catalogue[name].AX.figure for name in names}
    rows = {name: {"AX": area} for name, area in areas.items()}
    print("median of a look-up from Python            ours    peer   ratio")
    for what, ours, peer in (
        ("a section; a dictionary", catalogue.__getitem__, rows.__getitem__),
        ("its area; a dictionary in one", lambda name: catalogue[name].AX.figure,
         lambda name: rows[name]["AX"]),
    ):
        left, right, ratio = compare(ours, peer, names)
        print(f"{what:36} {left:8.0f} ns {right:5.0f} ns {ratio:7.1f}")


if __name__ == "__main__":
    main(*sys.argv[1:])

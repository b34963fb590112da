"""Compares the figures of two builds that ran in turn: before-1.json beside after-1.json, and so on, in a folder.

Called by compare-benchmarks.sh. A figure has two ratios of after to before: the median of those of the runs, and that
of the best runs. Something else that the machine does spoils either now and then, but hardly both, so the smaller one
counts. With --instructions, the figures are thousands of instructions.
"""

import argparse
import json
import pathlib
import statistics
import sys

ALLOWED = 1.03
TRIGGER = "desc: Trigger: Client Request: "


def figures_of(file):
    """Microseconds by what is measured."""
    rows = json.loads(file.read_text(encoding="utf-8"))
    return {f"{row['what']}: {row['ours']}": row["ourMedian"] for row in rows}


def counts_of(folder):
    """Thousands of instructions by what is measured, from what Callgrind wrote for each."""
    counts = {}
    for file in sorted(folder.glob("all.*"), key=lambda file: int(file.suffix[1:])):
        name = ""
        with file.open(encoding="utf-8", errors="replace") as lines:
            for line in lines:
                if line.startswith(TRIGGER):
                    name = line[len(TRIGGER):].strip()
                elif name and line.startswith("totals: ") and int(line.split()[1]) > 0:
                    counts[name] = int(line.split()[1]) / 1000
    return counts


def ratio_of(after, before):
    """What is too short to be measured is as fast as anything."""
    return after / before if before > 0 else 1.0


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--check", action="store_true")
    parser.add_argument("--instructions", action="store_true")
    parser.add_argument("folder", type=pathlib.Path)
    arguments = parser.parse_args()
    count = len(list(arguments.folder.glob("before-*.json")))
    read, suffix = (counts_of, ".json.counts") if arguments.instructions else (figures_of, ".json")
    before, after = ([read(arguments.folder / f"{side}-{run}{suffix}") for run in range(1, count + 1)]
                     for side in ("before", "after"))
    slower = 0
    print(f"{'what':56} {'before':>12} {'after':>12} {'ratio':>6} {'best':>6}")
    for name in after[0]:
        if name not in before[0]:
            print(f"{name:56} {'new':>12} {statistics.median(run[name] for run in after):12.2f}")
            continue
        old, new = ([run[name] for run in side] for side in (before, after))
        ratio = statistics.median(ratio_of(b, a) for a, b in zip(old, new))
        best = ratio_of(min(new), min(old))
        is_slower = min(ratio, best) > ALLOWED
        slower += is_slower
        print(f"{name:56} {statistics.median(old):12.2f} {statistics.median(new):12.2f} {ratio:6.3f} {best:6.3f}"
              + ("  SLOWER" if is_slower else ""))
    print(f"{slower} figures are slower by more than {ALLOWED - 1:.0%}, in {count} runs of each.")
    return 1 if arguments.check and slower else 0


sys.exit(main())

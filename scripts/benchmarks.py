"""Makes tables of what lumqt-benchmarks measured. Called by run-benchmarks.sh.

  benchmarks.py merge FILE FOLDER      adds the instructions that Callgrind counted, whose files are in a folder, and
                                       names those after what they count: one for each figure
  benchmarks.py table FILE             prints times and ratios; exits with 1 when a promised ratio is missed
  benchmarks.py docs FILE PAGE LIBRARY writes them as a page of the documentation; LIBRARY is its version
  benchmarks.py compare BEFORE AFTER   prints what changed in instructions; exits with 1 when something became slower
  benchmarks.py slower BEFORE AFTER    prints the titles of what became slower
  benchmarks.py lower FILE AGAIN       takes those counts of another run that are lower
  benchmarks.py libraries FILE...      says in which libraries the instructions of files of Callgrind were executed
"""

import collections
import datetime
import json
import os
import pathlib
import platform
import re
import statistics
import sys

CHANGED = 1.02  # what counts as slower or faster
TRIGGER = "desc: Trigger: Client Request: "


def load(file):
    return json.loads(pathlib.Path(file).read_text(encoding="utf-8"))


def print_columns(lines, left):
    """Prints rows of texts; the columns whose numbers are in `left` begin at the left."""
    widths = [max(map(len, column)) for column in zip(*lines, strict=True)]
    for line in lines:
        cells = (text.ljust(width) if i in left else text.rjust(width)
                 for i, (text, width) in enumerate(zip(line, widths)))
        print("  ".join(cells).rstrip())


# Reading


def count_of(file):
    """What a file of Callgrind counted: its name, and how many instructions."""
    name, total = "", 0
    with file.open(encoding="utf-8", errors="replace") as lines:
        for line in lines:
            if line.startswith(TRIGGER):
                name = line[len(TRIGGER):].strip()
            elif line.startswith("totals: "):
                total = int(line.split()[1])
    return name, total


def merge(target, folder):
    measured, counts = load(target), collections.defaultdict(list)
    for file in sorted(pathlib.Path(folder).glob("all*")):
        name, total = count_of(file)
        if name and total:
            counts[name].append(total)
            file.rename(file.with_name(re.sub(r"[^\w.]+", "-", name).strip("-") + ".callgrind"))
    for row in measured["rows"]:
        for side, prefix in (("ours", "our"), ("beside", "beside")):
            name, pieces = f"{row['what']}: {row[side]}", row[prefix + "Pieces"]
            if pieces and name not in counts:
                print(f"error: {name} was not counted", file=sys.stderr)
                return 1
            if pieces:
                row[prefix + "Instructions"] = statistics.median(counts[name]) / pieces
    pathlib.Path(target).write_text(json.dumps(measured, indent=1), encoding="utf-8")
    return 0


def instructions_ratio(row):
    """None where one of both is not counted."""
    ours, beside = row.get("ourInstructions"), row.get("besideInstructions")
    return ours / beside if ours and beside else None


def promise(row):
    """The limit and what it is one of, and whether it is kept: of instructions, where those are counted."""
    ratio = instructions_ratio(row)
    if not row["limit"]:
        return "", True
    kept = (row["ratio"] if ratio is None else ratio) <= row["limit"]
    return f"{row['limit']:g} {'time' if ratio is None else 'instr.'}", kept


# Tables


def texts_of(row):
    ratio = instructions_ratio(row)
    return [row["what"], row["ours"], f"{row['ourMedian']:.2f}", row["beside"], f"{row['besideMedian']:.2f}",
            row["unit"], f"{row['ratio']:.2f}", "-" if ratio is None else f"{ratio:.3f}", promise(row)[0] or "-"]


def table(file):
    measured = load(file)
    lines = [["what", "ours", "median", "beside", "median", "", "time", "instr.", "limit", ""]]
    missed = 0
    for row in measured["rows"]:
        kept = promise(row)[1]
        missed += not kept
        lines.append(texts_of(row) + ["" if kept else "MISSED"])
    print_columns(lines, {0, 1, 3, 5, 9})
    print(f"Medians of {measured['rounds']} rounds; ratios of ours to what is beside it, in time and in instructions.\n"
          f"A limit is one of instructions where they are counted. {missed} limits are missed.")
    return 1 if missed else 0


PAGE = """# Speed {{#benchmarks}}

What the library costs beside plain Qt, as `scripts/run-benchmarks.sh --docs` measured it with LumQtLib {library} and
Qt {qt}, compiled by {compiler}, on {machine},
on {date}.
`benchmarks/README.md` tells what the figures are.

A ratio is ours to what is beside it: below 1, ours is faster. Instructions are those outside the kernel. They are the
same on a busy machine as on an idle one and are what a limit is one of, where they are counted; times are what this
machine happened to need. A limit is the highest ratio that is promised.

The application's font is of the face and size of the buttons' here. With another one the style's size hint needs a
layout of the text by itself: making and showing a button costs a quarter more then.

| what | ours | beside | time | instructions | limit |
|---|---|---|--:|--:|--:|
{rows}
"""


def machine():
    """What was measured on, without a name that somebody gave it."""
    text = pathlib.Path("/proc/cpuinfo").read_text(encoding="utf-8")
    processor = re.search(r"^model name\s*:\s*(.+)$", text, re.MULTILINE)
    name = processor.group(1).strip() if processor else platform.machine()
    system = platform.freedesktop_os_release().get("PRETTY_NAME", platform.system())
    return f"{name} ({os.cpu_count()} processors), {system}"


def docs(file, page, library):
    measured = load(file)
    rows = []
    for row in measured["rows"]:
        ratio = instructions_ratio(row)
        limit, kept = promise(row)
        cells = [row["what"], row["ours"], row["beside"], f"{row['ratio']:.2f}",
                 "-" if ratio is None else f"{ratio:.2f}", limit + ("" if kept else " (missed)")]
        rows.append("| " + " | ".join(cells) + " |")
    text = PAGE.format(library=library, qt=measured["qt"], compiler=measured["compiler"], machine=machine(),
                       date=f"{datetime.date.today():%d %B %Y}".lstrip("0"), rows="\n".join(rows))
    pathlib.Path(page).write_text(text, encoding="utf-8")


def ratios(before_file, after_file):
    """Goes through what both have counted: the row before, or None if it is new, the row after, and their ratio."""
    before, after = ({(row["what"], row["ours"]): row for row in load(file)["rows"] if row.get("ourInstructions")}
                     for file in (before_file, after_file))
    for key, new in after.items():
        old = before.get(key)
        yield old, new, new["ourInstructions"] / old["ourInstructions"] if old else 1.0


def slower(before_file, after_file):
    for title in {new["what"]: "" for _, new, ratio in ratios(before_file, after_file) if ratio > CHANGED}:
        print(title)


def lower(target, again):
    counts = {(row["what"], row["ours"]): row["ourInstructions"] for row in load(again)["rows"]}
    measured = load(target)
    for row in measured["rows"]:
        count = counts.get((row["what"], row["ours"]))
        if count:
            row["ourInstructions"] = min(count, row["ourInstructions"])
    pathlib.Path(target).write_text(json.dumps(measured, indent=1), encoding="utf-8")


def compare(before_file, after_file):
    lines = [["what", "before", "after", "instr.", "time", ""]]
    changes = collections.Counter()
    for old, new, ratio in ratios(before_file, after_file):
        change = "new" if not old else "SLOWER" if ratio > CHANGED else "faster" if ratio < 1 / CHANGED else "same"
        changes[change] += 1
        if change != "same":
            lines.append([f"{new['what']}: {new['ours']}", f"{old['ourInstructions']:.0f}" if old else "-",
                          f"{new['ourInstructions']:.0f}", f"{ratio:.3f}" if old else "-",
                          f"{new['ourMedian'] / old['ourMedian']:.2f}" if old else "-", change])
    print_columns(lines, {0, 5})
    print(f"Instructions a piece: of {changes.total()} figures {changes['SLOWER']} are slower and {changes['faster']} "
          f"faster by more than {CHANGED - 1:.0%}, and {changes['new']} new. Times are a hint.")
    return 1 if changes["SLOWER"] else 0


def costs_of(file):
    """What the functions of each library cost by themselves, as a file of Callgrind says."""
    costs, names, library, is_call = collections.Counter(), {}, "", False
    with open(file, encoding="utf-8", errors="replace") as lines:
        for line in lines:
            key, _, value = line.strip().partition("=")
            if key in ("ob", "cob"):
                number, _, path = value.partition(" ")
                if path:  # stands where it is named first
                    names[number] = path.rsplit("/", 1)[-1].split(".so")[0]
                if key == "ob":
                    library = names[number]
            elif key == "calls":
                is_call = True
            elif library and line[0] in "0123456789+-*":
                if not is_call:  # what was called costs that, and says so elsewhere
                    costs[library] += int(line.split()[1])
                is_call = False
    return costs


def libraries(*files):
    sums = [costs_of(file) for file in files]
    lines = [["library", *(pathlib.Path(file).stem for file in files)]]
    for name, _ in sum(sums, collections.Counter()).most_common():
        lines.append([name, *(f"{costs[name] / 1e6:.2f}" for costs in sums)])
    lines.append(["all", *(f"{costs.total() / 1e6:.2f}" for costs in sums)])
    print_columns(lines, {0})
    print("Millions of instructions.")


COMMANDS = {"merge": merge, "table": table, "docs": docs, "compare": compare, "slower": slower, "lower": lower,
            "libraries": libraries}

if __name__ == "__main__":
    sys.exit(COMMANDS[sys.argv[1]](*sys.argv[2:]))

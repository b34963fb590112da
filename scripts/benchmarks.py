"""Makes tables of what lumqt-benchmarks measured. Called by run-benchmarks.sh.

  benchmarks.py merge FILE FOLDER      adds the instructions that Callgrind counted, whose files are in a folder, and
                                       names those after what is measured
  benchmarks.py table FILE             prints times and ratios; exits with 1 when a promised ratio is missed
  benchmarks.py docs FILE PAGE         writes them as a page of the documentation
  benchmarks.py compare BEFORE AFTER   prints what changed in instructions; exits with 1 when something became slower
  benchmarks.py libraries FILE...      says in which libraries the instructions of files of Callgrind were executed
"""

import collections
import datetime
import json
import pathlib
import platform
import re
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
    measured, counts = load(target), {}
    for file in sorted(pathlib.Path(folder).glob("all*")):
        name, total = count_of(file)
        if name and total:
            counts[name] = total
            file.rename(file.with_name(re.sub(r"[^\w.]+", "-", name).strip("-") + ".callgrind"))
    for row in measured["rows"]:
        for side, prefix in (("ours", "our"), ("beside", "beside")):
            name, pieces = f"{row['what']}: {row[side]}", row[prefix + "Pieces"]
            if pieces and name not in counts:
                print(f"error: {name} was not counted", file=sys.stderr)
                return 1
            if pieces:
                row[prefix + "Instructions"] = counts[name] / pieces
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
    print(f"Medians of {measured['rounds']} rounds; ratios of ours to what is beside it, in time and in instructions; a "
          f"limit is one of\ninstructions where they are counted. {missed} limits are missed.")
    return 1 if missed else 0


def compare(before_file, after_file):
    before, after = ({f"{row['what']}: {row['ours']}": row for row in load(file)["rows"]}
                     for file in (before_file, after_file))
    lines = [["what", "before", "after", "instr.", "time", ""]]
    changes = collections.Counter()
    for name, new in after.items():
        old = before.get(name)
        if not new.get("ourInstructions"):
            continue
        count = f"{new['ourInstructions']:.0f}"
        if not old or not old.get("ourInstructions"):
            lines.append([name, "new", count, "", "", ""])
            continue
        ratio = new["ourInstructions"] / old["ourInstructions"]
        change = "SLOWER" if ratio > CHANGED else "faster" if ratio < 1 / CHANGED else ""
        changes[change] += 1
        if change:
            lines.append([name, f"{old['ourInstructions']:.0f}", count, f"{ratio:.3f}",
                          f"{new['ourMedian'] / old['ourMedian']:.2f}", change])
    print_columns(lines, {0, 5})
    print(f"Instructions a piece; of {changes.total()} figures {changes['SLOWER']} are slower and {changes['faster']} "
          f"faster by more than {CHANGED - 1:.0%}. Times are a hint.")
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


COMMANDS = {"merge": merge, "table": table, "compare": compare, "libraries": libraries}

if __name__ == "__main__":
    sys.exit(COMMANDS[sys.argv[1]](*sys.argv[2:]))

"""Changes one token of one line in src/ at a time, and tells which changes no test noticed.

Called by mutate.sh, which installs the tools. A change that does not compile is replaced by another one. A change that
makes a test hang counts as noticed. The tests of the folder and those that see every class run first, the others when
these notice nothing. What measures all pages of the gallery at several scales is left out: without optimisation it
takes minutes. Changes that alter nothing a caller or a user could see stand in mutate-equivalent.txt, each with its
reason; they are not drawn.

Every run leaves build/mutate/changes.json. --again FILE judges the changes of such a file once more, so that two states
of the tests can be compared, also when src/ or the list of known changes is another by now.
"""

import argparse
import collections
import json
import os
import pathlib
import queue
import random
import re
import resource
import shutil
import subprocess
import sys
import threading

ROOT = pathlib.Path(__file__).resolve().parent.parent
WORK = ROOT / "build" / "mutate"
EQUIVALENT = ROOT / "scripts" / "mutate-equivalent.txt"
# What every folder builds on is seen through all of their tests.
FOLDERS_OF_ALL = {"foundation", "platform"}
TEST_SECONDS = 120  # of one test program
TEST_MEMORY = 8 << 30  # bytes: a change that makes a loop endless may fill the machine
SLOW = "^(monkey|tst_package|tst_gallery|tst_stylesheets)$"
SIDE_BY_SIDE = 3  # test programs of one copy; most of their time is waiting

Change = collections.namedtuple("Change", "file line kind old new")

SWAPS = {
    "comparison": [(" == ", " != "), (" != ", " == "), (" < ", " <= "), (" > ", " >= "), (" <= ", " < "), (" >= ", " > ")],
    "sign": [(" + ", " - "), (" - ", " + "), (" += ", " -= "), (" -= ", " += "), ("++", "--"), ("--", "++")],
    "condition": [(" && ", " || "), (" || ", " && ")],
    "constant": [("true", "false"), ("false", "true")],
}
NUMBER = re.compile(r"(?<![\w.])(\d+)(\.\d+)?(?![\w.])")
IF = re.compile(r"^(\s*(?:\} else )?(?:if|while) )\((.+)\)( \{)?$")
CALL = re.compile(r"^(\s+)(emit )?(?!return\b|delete\b|throw\b|case\b|if\b|for\b|while\b|switch\b)"
                  r"[A-Za-z_][\w:]*(?:\(\))?(?:(?:\.|->)\w+(?:\(\))?)*\(.*\);$")
ARGUMENTS = re.compile(r"\b(\w+)\(([^(),]+), ([^(),]+)\)")
# Whose two arguments mean the same, and what is no call.
SYMMETRIC = {"qMin", "qMax", "min", "max", "if", "for", "while", "switch"}
# Lines whose change the compiler refuses or nobody can see.
NO_CODE = re.compile(r"^\s*(#|//|\*|static_assert|Q_|template\b|using\b|namespace\b|friend\b|public:|private:|protected:)")


def masked(line):
    """The line with its strings, characters and comments blanked out, in the same columns."""
    blank = lambda match: match.group(0)[0] + " " * (len(match.group(0)) - 2) + match.group(0)[-1]
    line = re.sub(r'"(?:\\.|[^"\\])*"', lambda m: '"' + "\0" * (len(m.group(0)) - 2) + '"', line)
    line = re.sub(r"'(?:\\.|[^'\\])'", blank, line)
    return re.sub(r"//.*", lambda m: "\0" * len(m.group(0)), line)


def changes_of_line(file, number, line):
    """All changes of one line."""
    mask = masked(line)
    if NO_CODE.match(mask) or not mask.strip("\0 "):
        return

    def change(kind, start, end, text):
        return Change(file, number, kind, line, line[:start] + text + line[end:])

    for kind, pairs in SWAPS.items():
        for old, new in pairs:
            for match in re.finditer(re.escape(old) if old[0] in " +-" else rf"\b{old}\b", mask):
                yield change(kind, match.start(), match.end(), new)
    for match in NUMBER.finditer(mask):
        more = str(int(match.group(1)) + 1) + (match.group(2) or "")
        yield change("constant", match.start(), match.end(), more)
    code = mask.rstrip("\0 ")
    condition = IF.match(code)
    if condition:
        start, end = condition.span(2)
        yield change("condition", start, end, "!(" + line[start:end] + ")")
    call = CALL.match(code)
    if call:
        yield change("removed call", call.end(1), len(code), ";")
    for match in ARGUMENTS.finditer(mask):
        first, second = (line[match.start(i):match.end(i)] for i in (2, 3))
        if first != second and match.group(1) not in SYMMETRIC:
            yield change("swapped argument", match.start(2), match.end(3), second + ", " + first)


def all_lines(files):
    """Per line that can be changed, its changes."""
    known = equivalents()
    result = []
    for file in files:
        text = (ROOT / file).read_text(encoding="utf-8").split("\n")
        seen = collections.Counter()
        for number, line in enumerate(text, 1):
            seen[line.strip()] += 1
            names = file, f"{file}#{seen[line.strip()]}"
            changes = [change for change in changes_of_line(file, number, line)
                       if not any((name, line.strip(), change.new.strip()) in known for name in names)]
            if changes:
                result.append(changes)
    return result


def equivalents():
    """The changes that are known to alter nothing: FILE | OLD | NEW | REASON, a line each.

    FILE stands for each such line in it, FILE#2 for the second one alone.
    """
    known = set()
    if EQUIVALENT.exists():
        for line in EQUIVALENT.read_text(encoding="utf-8").splitlines():
            parts = line.split(" | ")
            if line and not line.startswith("#") and len(parts) == 4:
                known.add(tuple(part.strip() for part in parts[:3]))
    return known


def sources():
    """Everything in src/ that a native build compiles."""
    listed = subprocess.run(["git", "ls-files", "src/*.cpp", "src/*.h"], cwd=ROOT, text=True, check=True,
                            stdout=subprocess.PIPE).stdout.split()
    return [file for file in listed if not file.startswith("src/platform/windows/")]


def limit_memory():
    resource.setrlimit(resource.RLIMIT_AS, (TEST_MEMORY, TEST_MEMORY))


class Workshop:
    """A copy of the tree with a build of its own."""

    def __init__(self, number):
        self.first = number == 1
        self.folder = WORK / str(number)
        self.source = self.folder / "source"
        self.build = self.folder / "build"
        self.log = self.folder / "log.txt"

    def run(self, *command):
        # Relative to the copy, so that the compiler cache serves all copies.
        environment = dict(os.environ, CCACHE_BASEDIR=str(self.folder))
        with open(self.log, "a", encoding="utf-8") as log:
            return subprocess.run([str(part) for part in command], cwd=self.folder, stdout=log, env=environment,
                                  stderr=subprocess.STDOUT, check=False, preexec_fn=limit_memory).returncode == 0

    def prepare(self):
        self.folder.mkdir(parents=True, exist_ok=True)
        self.log.write_text("")
        tracked = subprocess.run(["git", "ls-files", "-z"], cwd=ROOT, check=True, stdout=subprocess.PIPE).stdout
        wanted = [pathlib.Path(os.fsdecode(name)) for name in tracked.split(b"\0") if name]
        for file in wanted:
            if (ROOT / file).is_file():
                copy_if_different(ROOT / file, self.source / file)
        for file in list(self.source.rglob("*")):
            if file.is_file() and not (ROOT / file.relative_to(self.source)).is_file():
                file.unlink()  # left over from an earlier run
        # Programs are not linked anew when only the library changed.
        return self.run("cmake", "-S", self.source, "-B", self.build, "-G", "Ninja", "-Wno-dev", "-DCMAKE_BUILD_TYPE=None",
                        "-DCMAKE_CXX_FLAGS=-O0", "-DCMAKE_SHARED_LINKER_FLAGS=-Wl,--no-undefined",
                        "-DCMAKE_LINK_DEPENDS_NO_SHARED=ON", "-DLUMQT_BUILD_EXAMPLES=OFF",
                        "-DLUMQT_BUILD_BENCHMARKS=OFF", "-DLUMQT_WARNINGS_AS_ERRORS=OFF",
                        "-DCMAKE_CXX_COMPILER_LAUNCHER=ccache") and self.compile("all", os.cpu_count() or 1)

    def compile(self, target, jobs=1):
        return self.run("cmake", "--build", self.build, "--target", target, "-j", jobs)

    def test(self, folder):
        """Whether the tests of a folder pass, and then all others."""
        if folder in FOLDERS_OF_ALL:
            return self.passes()
        near = f"^in-({folder}|gallery)$"
        return self.passes("-L", near) and self.passes("-LE", near)

    def passes(self, *which):
        """One that fails has to fail again alone: a busy machine notices nothing."""
        return self.ctest("--stop-on-failure", *which) or (self.ctest("--rerun-failed") and self.ctest(*which))

    def ctest(self, *options):
        return self.run(ROOT / "scripts" / "with-display.sh", "ctest", "--test-dir", self.build, "-j", SIDE_BY_SIDE,
                        "--timeout", TEST_SECONDS, "--output-on-failure", "-E", SLOW, *options)

    def judge(self, change):
        """What becomes of a change: "noticed", "not noticed", or "" when it does not compile."""
        file = self.source / change.file
        whole = file.read_text(encoding="utf-8")
        lines = whole.split("\n")
        lines[change.line - 1] = change.new
        file.write_text("\n".join(lines), encoding="utf-8")
        try:
            if not self.compile("all" if change.file.endswith(".h") else "LumQtLib"):
                return ""
            self.compile("lumqt_resources")  # a test that died may have left them changed
            return "not noticed" if self.test(change.file.split("/")[1]) else "noticed"
        finally:
            file.write_text(whole, encoding="utf-8")


def copy_if_different(source, target):
    if target.is_file() and target.read_bytes() == source.read_bytes():
        return
    target.parent.mkdir(parents=True, exist_ok=True)
    shutil.copyfile(source, target)  # with the time of now: what was built of the older one is built again
    shutil.copymode(source, target)


def told(change):
    return f"{change.file}:{change.line} ({change.kind})\n      - {change.old.strip()}\n      + {change.new.strip()}"


def drawn(lines, seed):
    """A change of each line, in an order that the seed gives: the first ones are drawn evenly over all code."""
    drawer = random.Random(seed)
    drawer.shuffle(lines)
    return [drawer.choice(changes) for changes in lines]


def drawn_before(name):
    """The changes of an earlier run, where the lines are now."""
    result = []
    for file, line, kind, old, new in json.loads(pathlib.Path(name).read_text(encoding="utf-8")):
        text = (ROOT / file).read_text(encoding="utf-8").split("\n") if (ROOT / file).is_file() else []
        places = [number for number, now in enumerate(text, 1) if now == old]
        if places:
            result.append(Change(file, min(places, key=lambda place: abs(place - line)), kind, old, new))
        else:
            print(f"The line is gone: {file}:{line} {old.strip()}")
    return result


class Survey:
    """Hands out changes and gathers what became of them."""

    def __init__(self, changes, count):
        self.waiting = queue.Queue()
        for change in changes:
            self.waiting.put(change)
        self.count = min(count, len(changes))
        self.open = 0  # handed out or judged; one that does not compile is handed back
        self.judged = []
        self.lock = threading.Lock()

    def take(self):
        with self.lock:
            if self.open >= self.count or self.waiting.empty():
                return None
            self.open += 1
            return self.waiting.get()

    def give_back(self, change, outcome):
        with self.lock:
            if not outcome:
                self.open -= 1
                return
            self.judged.append((change, outcome))
            print(f"[{len(self.judged)}/{self.count}] {outcome:12} {change.file}:{change.line} ({change.kind})", flush=True)

    def report(self):
        missed = sorted(change for change, outcome in self.judged if outcome == "not noticed")
        share = 100.0 * (len(self.judged) - len(missed)) / max(1, len(self.judged))
        lines = [f"{len(self.judged)} changes, {len(self.judged) - len(missed)} noticed ({share:.0f} per cent)."]
        if missed:
            lines.append("Not noticed:")
            lines += ["  " + told(change) for change in missed]
        text = "\n".join(lines)
        (WORK / "report.txt").write_text(text + "\n", encoding="utf-8")
        (WORK / "changes.json").write_text(json.dumps(sorted(change for change, _ in self.judged), indent=1), encoding="utf-8")
        print(text)
        print(f"{len(equivalents())} changes are known to alter nothing (scripts/mutate-equivalent.txt).")


def work(workshop, survey, failures, building):
    # One after another: what the first compiles the others take from the cache.
    with building:
        print(f"==> Building copy {workshop.folder.name}", flush=True)
        prepared = workshop.prepare()
        if prepared and workshop.first:
            print("==> Running the tests without a change", flush=True)
            prepared = workshop.test("platform")
    if not prepared:
        failures.append(f"the tests fail without a change: {workshop.log}")
        return
    while True:
        change = survey.take()
        if change is None:
            return
        survey.give_back(change, workshop.judge(change))


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n", maxsplit=1)[0])
    parser.add_argument("--count", type=int, default=50, help="changes to try (50)")
    parser.add_argument("--seed", type=int, default=1, help="which changes are drawn (1)")
    parser.add_argument("--jobs", type=int, default=os.cpu_count() or 1, help="copies that work side by side")
    parser.add_argument("--again", metavar="FILE", help="the changes of an earlier run (build/mutate/changes.json)")
    parser.add_argument("files", nargs="*", help="only these files of src/")
    arguments = parser.parse_args()
    files = [str(pathlib.Path(name).resolve().relative_to(ROOT)) for name in arguments.files] or sources()
    changes = drawn_before(arguments.again) if arguments.again else drawn(all_lines(files), arguments.seed)
    survey = Survey(changes, len(changes) if arguments.again else arguments.count)
    WORK.mkdir(parents=True, exist_ok=True)
    failures, building = [], threading.Lock()
    threads = [threading.Thread(target=work, args=(Workshop(number), survey, failures, building))
               for number in range(1, min(arguments.jobs, survey.count) + 1)]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    survey.report()
    if failures or not survey.judged:
        sys.exit("error: " + "; ".join(failures or ["nothing to change in these files"]))


if __name__ == "__main__":
    main()

#!/usr/bin/env python3
"""Reads what `ctest --verbose` prints.

--follow: copies standard input, shortened to what a person wants to see: a line per test function that did not pass,
the total of each test program, everything of a program that failed. Exits with 1 when a test failed or none ran.
--total FILE: prints the sum over all programs as "N passed, N failed, N skipped".
"""
import collections
import re
import sys

TOTALS = re.compile(r'Totals: (\d+) passed, (\d+) failed, (\d+) skipped')
OUTCOME = re.compile(r'^\s*\d+/\d+ Test\s+#(\d+): (\S+) \.*\s*(Passed|\*\*\*\S+.*?)\s+([\d.]+) sec')
# Programs run side by side, and their lines come mixed, each with the number of its program.
OUTPUT = re.compile(r'^(\d+): (.*)')
FAILURES = re.compile(r'Sanitizer|runtime error|^FAIL!|^QFATAL|^XPASS')


def programs(stream):
    """Per program that ended: its name, whether it passed, its seconds, its totals and its lines."""
    pending = collections.defaultdict(list)
    for line in stream:
        output = OUTPUT.match(line)
        if output:
            pending[output.group(1)].append(output.group(2).rstrip())
        outcome = OUTCOME.match(line)
        if outcome:
            lines = pending.pop(outcome.group(1), [])
            totals = [tuple(map(int, match.groups())) for match in map(TOTALS.search, lines) if match]
            # A program that ends well and tells no total ran no test.
            good = outcome.group(3) == 'Passed' and bool(totals)
            yield outcome.group(2), good, outcome.group(4), totals, lines


def follow(stream):
    failed, ran = False, 0
    for name, good, seconds, totals, lines in programs(stream):
        ran += 1
        failed = failed or not good
        counts = ', '.join('%d passed, %d failed, %d skipped' % counts for counts in totals) or '-'
        print('%-6s %-24s %6s s  %s' % ('ok' if good else 'FAILED', name, seconds, counts))
        for text in lines:
            if text.startswith('SKIP') or (not good and (FAILURES.search(text) or not text.startswith('PASS'))):
                print('         ' + text)
        sys.stdout.flush()
    if failed or not ran:
        print('A test failed.' if ran else 'No test ran.')
        sys.exit(1)


def total(name):
    passed = failed = skipped = 0
    with open(name, errors='replace') as stream:
        for _, good, _, totals, _ in programs(stream):
            told = sum(counts[1] for counts in totals)
            passed += sum(counts[0] for counts in totals)
            skipped += sum(counts[2] for counts in totals)
            # A program that fails without a failed test function crashed, hung or was caught by a sanitizer; one that
            # tells no total ran no test.
            failed += told if good else max(told, 1)
    print('%d passed, %d failed, %d skipped' % (passed, failed, skipped))
    sys.exit(1 if failed or not passed else 0)


sys.stdin.reconfigure(errors='replace')
sys.stdout.reconfigure(errors='replace')
if sys.argv[1] == '--follow':
    follow(sys.stdin)
else:
    total(sys.argv[2])

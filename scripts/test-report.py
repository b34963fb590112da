#!/usr/bin/env python3
"""Reads what `ctest --verbose` prints.

--follow: copies standard input, shortened to what a person wants to see: a line per test function that did not pass,
the total of each test program, everything of a program that failed. Exits with 1 when a test failed or none ran.
--total FILE: prints the sum over all programs as "N passed, N failed, N skipped".
"""
import re
import sys

TOTALS = re.compile(r'Totals: (\d+) passed, (\d+) failed, (\d+) skipped')
OUTCOME = re.compile(r'^\s*\d+/\d+ Test\s+#\d+: (\S+) \.*\s*(Passed|\*\*\*\S+.*?)\s+([\d.]+) sec')
FAILURES = re.compile(r'Sanitizer|runtime error|^FAIL!|^QFATAL|^XPASS')


def text_of(line):
    return re.sub(r'^\d+: ', '', line.rstrip('\n'))


def follow(stream):
    pending, failed, ran = [], False, 0
    for line in stream:
        pending.append(line)
        outcome = OUTCOME.match(line)
        if not outcome:
            continue
        ran += 1
        totals = [match for match in map(TOTALS.search, pending) if match]
        # A program that ends well and tells no total ran no test.
        good = outcome.group(2) == 'Passed' and bool(totals)
        failed = failed or not good
        counts = ', '.join('%s passed, %s failed, %s skipped' % match.groups() for match in totals) or '-'
        print('%-6s %-24s %6s s  %s' % ('ok' if good else 'FAILED', outcome.group(1), outcome.group(3), counts))
        for text in map(text_of, pending):
            if text.startswith('SKIP') or (not good and (FAILURES.search(text) or not text.startswith('PASS'))):
                print('         ' + text)
        pending = []
        sys.stdout.flush()
    if failed or not ran:
        print('A test failed.' if ran else 'No test ran.')
        sys.exit(1)


def total(name):
    passed = failed = skipped = told = 0
    counted = False
    for line in open(name, errors='replace'):
        match = TOTALS.search(line)
        if match:
            told, counted = told + int(match.group(2)), True
            passed, skipped = passed + int(match.group(1)), skipped + int(match.group(3))
        outcome = OUTCOME.match(line)
        if outcome:
            # A program that fails without a failed test function crashed, hung or was caught by a sanitizer; one that
            # tells no total ran no test.
            good = outcome.group(2) == 'Passed' and counted
            failed += told if good else max(told, 1)
            told, counted = 0, False
    print('%d passed, %d failed, %d skipped' % (passed, failed, skipped))
    sys.exit(1 if failed or not passed else 0)


sys.stdin.reconfigure(errors='replace')
sys.stdout.reconfigure(errors='replace')
if sys.argv[1] == '--follow':
    follow(sys.stdin)
else:
    total(sys.argv[2])

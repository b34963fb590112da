#!/usr/bin/env python3
"""Prints a file for Doxygen.

An example: what stands between two markers of a snippet begins at the left margin.

A header: without the declarations that only say "override". What such a function does is told where it was declared
first, often in Qt. One with a comment of its own stays; "since" alone is none. The number of lines does not change, so
that warnings point at the right one.
"""
import re
import sys
import textwrap

BARE_OVERRIDE = re.compile(r"\)\s*(const\s*)?override(\s*=\s*default)?\s*;")
SNIPPET = re.compile(r"^ *//! (\[\w+\])\n.*?^ *//! \1\n", re.M | re.S)


def without_bare_overrides(text):
    lines = text.split("\n")
    start = 0  # of the declaration that is being read, its comment included
    comment, declaration = "", ""
    for number, line in enumerate(lines):
        if line.lstrip().startswith("///"):
            comment += re.sub(r"///|\\since\s+[\d.]+|\s+", "", line)
            continue
        code = line.split("//")[0].rstrip()
        declaration += code + " "
        if code.strip() and not code.lstrip().startswith("#") and not code.endswith((";", "{", "}", ":")):
            continue
        if BARE_OVERRIDE.search(declaration) and not comment:
            lines[start : number + 1] = [""] * (number + 1 - start)
        start, comment, declaration = number + 1, "", ""
    return "\n".join(lines)


def at_the_margin(text):
    return SNIPPET.sub(lambda found: textwrap.dedent(found.group()), text)


if __name__ == "__main__":
    for_doxygen = without_bare_overrides if sys.argv[1].endswith(".h") else at_the_margin
    with open(sys.argv[1], encoding="utf-8") as source:
        sys.stdout.write(for_doxygen(source.read()))

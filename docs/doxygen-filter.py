#!/usr/bin/env python3
"""Prints a header for Doxygen, without the declarations that only say "override".

What such a function does is told where it was declared first, often in Qt. One with a comment of its own stays; "since"
alone is none. The number of lines does not change, so that warnings point at the right one.
"""
import re
import sys

BARE_OVERRIDE = re.compile(r"\)\s*(const\s*)?override(\s*=\s*default)?\s*;")


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


if __name__ == "__main__":
    with open(sys.argv[1], encoding="utf-8") as source:
        sys.stdout.write(without_bare_overrides(source.read()))

"""Measures that every picture of a theme stands out from the grounds that grounds.txt says it lies on."""

import fnmatch
import pathlib
import sys

from themes import BLUE, TEAL, WHITE

TABLE = pathlib.Path(__file__).resolve().parent / "grounds.txt"
OWN = "own"


def rows():
    """Pairs of a pattern and the purposes of the grounds."""
    lines = TABLE.read_text(encoding="utf-8").splitlines()
    parts = [line.split(":", 1) for line in lines if line and not line.startswith("#")]
    return [(pattern.strip(), purposes.split()) for pattern, purposes in parts]


def grounds_of(file, table):
    for pattern, purposes in table:
        if fnmatch.fnmatchcase(file, pattern):
            return purposes
    sys.exit(f"{TABLE.name} says of no ground that {file} lies on it")


def channels(color):
    return [int(color[i:i + 2], 16) / 255 for i in (1, 3, 5)]


def over(color, opacity, ground):
    """An opaque colour: the one given, laid over a ground."""
    mixed = [a * opacity + b * (1 - opacity) for a, b in zip(channels(color), channels(ground))]
    return "#" + "".join(f"{round(c * 255):02x}" for c in mixed)


def luminance(color):
    linear = [c / 12.92 if c <= 0.04045 else ((c + 0.055) / 1.055) ** 2.4 for c in channels(color)]
    return 0.2126 * linear[0] + 0.7152 * linear[1] + 0.0722 * linear[2]


def ratio(a, b):
    darker, lighter = sorted((luminance(a), luminance(b)))
    return (lighter + 0.05) / (darker + 0.05)


def pairs_of(look, ground):
    """What must stand out from what, ink first, when a look lies on a ground (empty: it brings its own)."""
    swapped = dict(look.swaps)
    if BLUE in swapped:  # the mark: two ends of a tile, and what stands on it
        ends = (swapped[BLUE], swapped[TEAL])
        return [(end, ground) for end in ends] + [(look.ink, end) for end in ends]
    if not ground:  # a disc with an ink of its own
        return [(look.ink, swapped[WHITE])]
    behind = over(look.tile, look.tile_opacity, ground) if look.tile else ground
    pairs = [(over(look.ink, look.opacity, behind), behind)]
    if WHITE in swapped:
        pairs.append((swapped[WHITE], look.ink))
    return pairs


def check(name, theme, pictures):
    """Ends the program with the pairs that stand out too little from each other."""
    table = rows()
    # What was drawn for a dark title bar is the same in light and dark, with a disabled glyph that is paler than asked.
    pictures = [p for p in pictures if theme["ratio"] > 3 or not fnmatch.fnmatchcase(p.file, "Common/*_disable.*")]
    wanted = [(picture.file, pair)
              for picture in pictures for purpose in grounds_of(picture.file, table)
              for pair in pairs_of(picture.look, theme["colors"].get(purpose, ""))]
    wanted += [("loading/", (ink, theme["colors"][purpose]))
               for ink in theme["arc"] for purpose in grounds_of("loading/", table)]
    tile, frame = theme["waiting"]
    wanted += [("waiting.gif", (ink, tile)) for ink in (*theme["arc"], frame)]
    short = [f"{name}/{file}: {ink} on {ground} {ratio(ink, ground):.2f}:1"
             for file, (ink, ground) in wanted if ratio(ink, ground) < theme["ratio"]]
    if short:
        sys.exit("\n".join([f"Less than {theme['ratio']}:1", *short]))

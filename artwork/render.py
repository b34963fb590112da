"""Renders the pictures of the library from the drawings in glyphs/.

A drawing is one glyph on a grid of 24 units, in "currentColor". The tables say which files are made of it: themes.py
the colours of each theme, pictures() below the glyph, the canvas and the look. No state is drawn twice: a theme's
folder holds only the files that differ from those for light grounds.

Called by render.sh, which installs the tools. Usage: render.py FOLDER
"""

import concurrent.futures
import math
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
from dataclasses import dataclass

import grounds
from themes import THEMES, Look, themed

GLYPHS = pathlib.Path(__file__).resolve().parent / "glyphs"
GRID = 24
STROKE = 2
FRACTIONS = (1.25, 1.5, 1.75)  # scalings that files of their own are made for
CORNER = 4  # of the tile behind a caption glyph

# Canvas sizes in pixels (width, height) at 100 per cent.
STRIP_BUTTON = (28, 28)
BAR_BUTTON = (32, 32)
FIELD_ICON = (16, 16)
LEAD_ICON = (20, 20)  # in a tool button of its own size that pads it by two pixels
MESSAGE_ICON = (48, 48)
LOADING = (20, 20)
WAITING = (64, 64)


@dataclass(frozen=True)
class Picture:
    """One file of res/: a glyph whose grid is placed at `at` (pixels, None: centred), `scale` pixels a unit."""

    file: str
    glyph: str
    size: tuple
    look: Look
    at: tuple = None
    scale: int = 1


def states(pattern, glyph, size, looks, **placement):
    """One picture for each state; "{}" in the file name stands for the state."""
    return [Picture(pattern.format(state), glyph, size, look, **placement) for state, look in looks.items()]


def pictures(theme):
    table = []
    strip, bar = theme["strip"], theme["bar"]
    # Strips as light as the window; maximise and restore are shown on the dark title bar too.
    for name, glyph in (("list", "list"), ("minimize", "minimize"), ("maximize", "maximize")):
        table += states(name + "_{}.png", glyph, STRIP_BUTTON, strip)
    table += states("maximize_restore_{}.png", "restore", STRIP_BUTTON, strip)
    table += states("close_{}.png", "close", STRIP_BUTTON, {**strip, **theme["close"]})
    table.append(Picture("line.png", "separator", (9, 28), theme["line"], at=(-8, 2)))
    table.append(Picture("title_logo.png", "logo", (24, 24), theme["logo"]))

    # The dark title bar.
    table += states("Common/minimize_{}.png", "minimize", BAR_BUTTON, bar)
    table += states("Common/ico_more_{}.svg", "more", BAR_BUTTON, bar)
    table += states("Common/ico_onlinesupport_{}.svg", "support", BAR_BUTTON, bar)
    table += states("Common/gift_{}.svg", "gift", BAR_BUTTON, theme["gift"])
    for state, look in {**bar, **theme["close"]}.items():
        spelled = "noemal" if state == "normal" else state  # the name the title bar asks for
        table.append(Picture(f"Common/ico_guanbi_{spelled}.svg", "close", BAR_BUTTON, look))
    # A round button draws its picture half its height in from the left: the arrow lies left on the canvas, so that
    # it comes to rest in the middle of a capsule of 48 x 32.
    table += states("Common/back_{}.png", "back", (48, 32), theme["back"], at=(-4, 4))

    # Message boxes.
    for name, glyph in (("info", "info"), ("quest", "question"), ("alert", "alert"), ("wrong", "error")):
        table.append(Picture(f"icon_{name}.png", glyph, MESSAGE_ICON, theme["message"][name], scale=2))

    # Fields and lists.
    field = theme["field"]
    for name, glyph in (("icon_user", "user"), ("icon_lock", "lock")):
        table.append(Picture(name + ".png", glyph, LEAD_ICON, field["normal"]))
    for name, glyph in (("search_icon", "search"), ("icon_arrowdown", "chevron-down"), ("icon_arrowup", "chevron-up")):
        table.append(Picture(name + ".png", glyph, FIELD_ICON, field["normal"]))
    table += states("icon_delete_{}.png", "clear", FIELD_ICON, theme["clear"])
    for direction, glyph in (("prev", "page-left"), ("next", "page-right")):
        # On the highlight colour of a calendar's bar, whatever it is: the disc brings its own ground.
        table.append(Picture(f"calendar_{direction}.png", glyph, FIELD_ICON, theme["page"]))
    # An image button with a border draws its picture five pixels in from the left: the glyph lies left on the canvas.
    for state, look in field.items():
        suffix = "" if state == "normal" else "_" + state
        table.append(Picture(f"icon_log_calendar{suffix}.png", "calendar", (24, 20), look, at=(-4, -2)))
    for state, look in theme["delete"].items():
        suffix = "" if state == "normal" else "_" + state
        table.append(Picture(f"delete{suffix}.png", "cross", (20, 20), look, at=(-7, -2)))
    table.append(Picture("add.png", "plus", (20, 20), field["normal"], at=(-7, -2)))

    # The two halves of the mark, which a waiter draws apart.
    table.append(Picture("log_l.png", "logo", (12, 24), theme["logo"], at=(0, 0)))
    table.append(Picture("log_r.png", "logo", (12, 24), theme["logo"], at=(-12, 0)))
    return table


def drawing(glyph, look):
    """The inside of a glyph's file in the colours of a look."""
    text = (GLYPHS / (glyph + ".svg")).read_text(encoding="utf-8")
    inside = re.search(r"<svg[^>]*>\n(.*)</svg>", text, re.S).group(1)
    for color, instead in look.swaps:
        inside = inside.replace(color, instead)
    return inside.replace("currentColor", look.ink)


def number(value):
    return f"{value:.3f}".rstrip("0").rstrip(".")


def document(size, body):
    """An SVG of a size in pixels: presentation attributes only, as the Tiny profile wants them."""
    w, h = size
    return (
        f'<svg xmlns="http://www.w3.org/2000/svg" version="1.2" baseProfile="tiny"'
        f' width="{w}" height="{h}" viewBox="0 0 {w} {h}">\n{body}</svg>\n'
    )


def compose(picture):
    w, h = picture.size
    look = picture.look
    body = ""
    if look.tile:
        opacity = "" if look.tile_opacity == 1 else f' fill-opacity="{number(look.tile_opacity)}"'
        body += f'  <rect width="{w}" height="{h}" rx="{CORNER}" fill="{look.tile}"{opacity}/>\n'
    span = GRID * picture.scale
    x, y = picture.at or ((w - span) // 2, (h - span) // 2)
    transform = f"translate({x} {y})" + (f" scale({picture.scale})" if picture.scale != 1 else "")
    opacity = "" if look.opacity == 1 else f' opacity="{number(look.opacity)}"'
    body += f'  <g transform="{transform}"{opacity}>\n{drawing(picture.glyph, look)}  </g>\n'
    return document(picture.size, body)


# Glyphs with straight strokes, or so small that a picture scaled down from 200 per cent is dim.
FITTED = ("list separator minimize maximize restore close back cross plus calendar logo search chevron-down chevron-up"
          " page-left page-right").split()


def attribute(element, name, otherwise=""):
    found = re.search(rf'\b{name}="([^"]*)"', element)
    return found.group(1) if found else otherwise


def fitted(element, place, zoom):
    """One shape of a glyph in device pixels: its strokes and edges cover whole ones.

    Everything is laid out from the glyph's middle, so that what lies on both sides of it stays even.
    """
    stroked = attribute(element, "fill", "none") == "none"
    width = round(STROKE * zoom) if stroked else 0
    middle = [round((start + GRID / 2) * zoom - width / 2) + width / 2 for start in place]

    def at(axis, units):
        return middle[axis] + round((float(units) - GRID / 2) * zoom)

    def length(units):
        return number(float(units) * zoom)

    def command(match):
        letter, values = match.group(1), [float(v) for v in re.findall(r"-?[\d.]+", match.group(2))]
        if letter == "A":  # radii, rotation and two flags stand before the end
            return f"A{length(values[0])} {length(values[1])} {values[2]:g} {values[3]:g} {values[4]:g}" + "".join(
                f" {number(at(axis, v))}" for axis, v in enumerate(values[5:]))
        first = 1 if letter == "V" else 0
        return letter + " ".join(number(at((first + i) % 2, v)) for i, v in enumerate(values))

    values = {}
    tag = re.match(r"\s*<(\w+)", element).group(1)
    if tag == "path":
        values["d"] = re.sub(r"([MLHVCAZ])([-\d. ]*)", command, attribute(element, "d"))
    elif tag == "circle":
        values = {"cx": number(at(0, attribute(element, "cx"))), "cy": number(at(1, attribute(element, "cy"))),
                  "r": length(attribute(element, "r"))}
    elif tag == "rect":
        for axis, (start, size) in enumerate((("x", "width"), ("y", "height"))):
            low = float(attribute(element, start))
            values[start] = number(at(axis, low))
            span = at(axis, low + float(attribute(element, size))) - at(axis, low)
            values[size] = number(max(1, span))
        values["rx"] = length(attribute(element, "rx", "0"))
    elif tag == "linearGradient":
        values = {name: number(at(axis, attribute(element, name))) for axis, name in enumerate(("x1", "y1"))}
        values.update({name: number(at(axis, attribute(element, name))) for axis, name in enumerate(("x2", "y2"))})
    if "stroke-width" in element:
        values["stroke-width"] = number(width)
    for name, value in values.items():
        element = re.sub(rf'\b(?<!-){name}="[^"]*"', f'{name}="{value}"', element)
    return element


def compose_fitted(picture, zoom):
    """The drawing of a picture in the device pixels of a scaling between 100 and 200 per cent."""
    w, h = (int(side * zoom + 0.5) for side in picture.size)
    look = picture.look
    body = ""
    if look.tile:
        opacity = "" if look.tile_opacity == 1 else f' fill-opacity="{number(look.tile_opacity)}"'
        body += f'  <rect width="{w}" height="{h}" rx="{number(CORNER * zoom)}" fill="{look.tile}"{opacity}/>\n'
    place = picture.at or [(side - GRID) // 2 for side in picture.size]
    opacity = "" if look.opacity == 1 else f' opacity="{number(look.opacity)}"'
    # In the files a group's stroke width is that of its shapes.
    shapes = [fitted(line, place, zoom) if re.match(r"\s*<(path|rect|circle|linearGradient|g) ", line) else line
              for line in drawing(picture.glyph, look).splitlines()]
    body += f"  <g{opacity}>\n" + "\n".join(shapes) + "\n  </g>\n"
    return document((w, h), body)


def point(centre, radius, degrees):
    """A point on a circle; 0 degrees is at the top, clockwise."""
    a = math.radians(degrees)
    return number(centre + radius * math.sin(a)), number(centre - radius * math.cos(a))


def spinner(theme, centre, radius, stroke, head, span):
    """A pale ring and on it an arc of `span` degrees that ends at `head`, from the second accent to the first."""
    tail_ink, head_ink = theme["arc"]
    ring = theme["ring"]
    x0, y0 = point(centre, radius, head - span)
    x1, y1 = point(centre, radius, head)
    large = 1 if span > 180 else 0
    return f"""  <defs>
    <linearGradient id="arc" gradientUnits="userSpaceOnUse" x1="{x0}" y1="{y0}" x2="{x1}" y2="{y1}">
      <stop offset="0" stop-color="{tail_ink}"/>
      <stop offset="1" stop-color="{head_ink}"/>
    </linearGradient>
  </defs>
  <g fill="none" stroke-width="{stroke}" stroke-linecap="round">
    <circle cx="{centre}" cy="{centre}" r="{radius}" stroke="{ring.ink}" stroke-opacity="{number(ring.opacity)}"/>
    <path d="M{x0} {y0}A{radius} {radius} 0 {large} 1 {x1} {y1}" stroke="url(#arc)"/>
  </g>
"""


def breathing_span(frame, frames):
    """The arc grows and shrinks once in the cycle, from a quarter to two thirds of the ring."""
    return 165 - 75 * math.cos(2 * math.pi * frame / frames)


def loading_frame(theme, frame):
    """24 frames at 80 ms hold two turns, so that a turn takes about a second."""
    w, h = LOADING
    return document(LOADING, spinner(theme, w // 2, w // 2 - 2, STROKE, frame * 30, breathing_span(frame, 24)))


def waiting_frame(theme, frame, frames):
    """The spinner on a tile: a GIF has no half transparent pixels, so the ground comes with it."""
    w, h = WAITING
    fill, frame_ink = theme["waiting"]
    body = f'  <rect x="0.5" y="0.5" width="{w - 1}" height="{h - 1}" rx="8" fill="{fill}" stroke="{frame_ink}"/>\n'
    arc = spinner(theme, w // 2, 16, 2 * STROKE, frame * 720 / frames, breathing_span(frame, frames))
    return document(WAITING, body + arc)


def rasterize(svg, target, zoom):
    target.parent.mkdir(parents=True, exist_ok=True)
    subprocess.run(["rsvg-convert", f"--zoom={zoom}", "-f", "png", "-o", str(target)], input=svg.encode(), check=True)


def write_png(svg, target):
    """The picture at 100 per cent, and beside it the one at 200; those between are write_fitted()'s."""
    rasterize(svg, target, 1)
    rasterize(svg, target.with_name(target.stem + "@2x.png"), 2)


def write_fitted(picture, target):
    """Beside the picture those of the scalings between, in which a stroke of two pixels is two and a half wide, say."""
    for zoom in FRACTIONS:
        rasterize(compose_fitted(picture, zoom), target.with_name(f"{target.stem}@{zoom:g}x.png"), 1)


def write_waiting(theme, target, zoom, frames=48):
    with tempfile.TemporaryDirectory() as folder:
        names = []
        for frame in range(frames):
            name = pathlib.Path(folder) / f"{frame:02}.png"
            rasterize(waiting_frame(theme, frame, frames), name, zoom)
            names.append(str(name))
        # One palette for all frames and no dithering: the tile stays clean and the file small.
        command = ["convert", "-delay", "4", "-dispose", "none", *names, "-channel", "A", "-threshold", "50%", "+channel"]
        command += ["+dither", "-colors", "63", "+map", "-layers", "optimize", "-strip", "-loop", "0", str(target)]
        subprocess.run(command, check=True)


def write_picture(picture, target):
    if target.suffix == ".svg":
        target.parent.mkdir(parents=True, exist_ok=True)
        target.write_text(compose(picture), encoding="utf-8", newline="\n")
        return
    write_png(compose(picture), target)
    if picture.glyph in FITTED:
        write_fitted(picture, target)


def write_theme(name, out):
    """All pictures of the light theme, of another those that differ from them."""
    theme = themed(name)
    table = pictures(theme)
    grounds.check(name, theme, table)
    light = {picture.file: picture for picture in pictures(themed(""))} if name else {}
    for picture in table:
        if picture != light.get(picture.file):
            write_picture(picture, out / picture.file)
    for frame in range(24):
        write_png(loading_frame(theme, frame), out / "loading" / f"loading{frame:02}.png")
    write_waiting(theme, out / "waiting.gif", 1)
    write_waiting(theme, out / "waiting@2x.gif", 2)


COLOR_TYPE = 25  # its place in a PNG file
WITH_ALPHA = (4, 6)


def pack(folder):
    """The same pixels in two thirds of the bytes: the library carries these files.

    Without tables of colours, which would save little more: Qt 6 crashes when it scales a picture that has one.
    """
    def pack_file(file):
        packed = file.with_suffix(".packed")
        subprocess.run(["zopflipng", "-y", str(file), str(packed)], check=True, stdout=subprocess.DEVNULL)
        if packed.read_bytes()[COLOR_TYPE] in WITH_ALPHA:
            packed.replace(file)
        else:
            packed.unlink()

    with concurrent.futures.ThreadPoolExecutor() as pool:
        list(pool.map(pack_file, folder.rglob("*.png")))


def main():
    if len(sys.argv) != 2:
        sys.exit("usage: render.py FOLDER")
    out = pathlib.Path(sys.argv[1])
    for name in THEMES:
        if name:  # what a theme does not draw any more must not stay in its folder
            shutil.rmtree(out / name, ignore_errors=True)
        write_theme(name, out / name)
    pack(out)


if __name__ == "__main__":
    main()

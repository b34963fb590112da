#!/usr/bin/env python3
"""Gives the documentation its pictures of classes: class-pictures.py HEADERS PICTURES REASONS TARGET

PICTURES holds one PNG per class, named after it. Each class's page gets its picture, and one page shows all of them;
both are written into the folder TARGET as Doxygen sources. Fails if a picture names no class, or if a widget has
neither a picture nor a line "CLASS reason" in the file REASONS.
"""
import re
import sys
from pathlib import Path

CLASS = re.compile(r"^class (?:\w+_EXPORT )?(\w+)(?: final)?(?: : ([^{;]*))?\s*\{", re.MULTILINE)
NO_WIDGETS = {"QAction", "QEventLoop", "QObject", "QProxyStyle", "QThread", "QTimer"}


def read_classes(headers):
    """Names the bases of every class: {name: [base, ...]}."""
    classes = {}
    for header in sorted(headers.glob("*.h")):
        for name, bases in CLASS.findall(header.read_text(encoding="utf-8")):
            classes[name] = re.findall(r"public (\w+)", bases)
    return classes


def is_widget(name, classes):
    if name in classes:
        return any(is_widget(base, classes) for base in classes[name])
    return name.startswith("Q") and name not in NO_WIDGETS


def read_reasons(file):
    reasons = {}
    for line in file.read_text(encoding="utf-8").splitlines():
        if line and not line.startswith("#"):
            name, _, reason = line.partition(" ")
            reasons[name] = reason.strip()
    return reasons


def mistakes(classes, pictures, reasons):
    found = [f"{name}.png shows no class" for name in pictures if name not in classes]
    found += [f"the list of reasons names no class by {name}" for name in reasons if name not in classes]
    found += [f"{name} is listed without a reason" for name in reasons if not reasons[name]]
    found += [f"{name} has a picture: take it off the list of reasons" for name in reasons if name in pictures]
    found += [
        f"{name} has neither a picture nor a reason to have none"
        for name in classes
        if is_widget(name, classes) and name not in pictures and name not in reasons
    ]
    return found


def class_source(name):
    return f"/** \\class {name}\n\\image html {name}.png\n*/\n"


def page_source(pictures):
    def html(text):
        return f"\\htmlonly {text} \\endhtmlonly\n\n"

    tiles = "".join(
        html(f'<div class="lq-tile"><a href="class{name}.html"><img src="{name}.png" alt=""/></a>')
        + f"\\ref {name}\n\n\\copybrief {name}\n\n"
        + html("</div>")
        for name in pictures
    )
    return (
        "/** \\page pictures Classes in pictures\n\nA part of the gallery for each class."
        "\n\n" + html('<div class="lq-grid">') + tiles + html("</div>") + "*/\n"
    )


def main():
    headers, folder, reasons_file, target = map(Path, sys.argv[1:])
    classes = read_classes(headers)
    pictures = sorted((picture.stem for picture in folder.glob("*.png")), key=str.lower)
    found = mistakes(classes, pictures, read_reasons(reasons_file))
    for mistake in found:
        print(f"error: {mistake}", file=sys.stderr)
    if found:
        return 1
    for name in pictures:
        (target / f"{name}.dox").write_text(class_source(name), encoding="utf-8")
    (target / "pictures.dox").write_text(page_source(pictures), encoding="utf-8")
    print(f"{len(pictures)} classes have pictures")
    return 0


if __name__ == "__main__":
    sys.exit(main())

#!/usr/bin/env python3
"""Gives the documentation the table of colours by purpose: theme-table.py HEADER TABLE TARGET

TABLE is what the gallery writes: a line of column titles, then one for each purpose with its colours in the themes,
with tabs between. What a purpose is for stands in HEADER, that of CBPTheme. The page is written into the folder TARGET
as a Doxygen source. Fails if the two do not have the same purposes in the same order.
"""
import html
import re
import sys
from pathlib import Path

GROUP = re.compile(r"^ {8}// (.+)")
PURPOSE = re.compile(r"^ {8}(\w+),? +///< (.+)")


def read_purposes(header):
    """Names the groups of purposes: [(title, [(name, text), ...]), ...]."""
    body = header.read_text(encoding="utf-8").split("enum class Purpose {")[1].split("};")[0]
    groups = []
    inside = False  # a comment of several lines has its title in the first
    for line in body.splitlines():
        group, purpose = GROUP.match(line), PURPOSE.match(line)
        if group and not inside:
            groups.append((re.split(r"[;:.]", group.group(1))[0], []))
        if purpose:
            groups[-1][1].append(purpose.groups())
        inside = bool(group)
    return groups


def cell(color):
    # #aarrggbb is #rrggbbaa in a style sheet.
    css = "#" + color[3:] + color[1:3] if len(color) == 9 else color
    return f'<td><span class="lq-swatch" style="background:{css}"></span><code>{color}</code></td>'


def row(name, text, colors):
    return f"<tr><td><code>{name}</code></td><td>{html.escape(text)}</td>{''.join(map(cell, colors))}</tr>"


def table(groups, themes, colors):
    heads = "".join(f"<th>{theme}</th>" for theme in ["purpose", "what it is for", *themes])
    lines = [f'<table class="markdownTable lq-themes"><thead><tr>{heads}</tr></thead><tbody>']
    for title, purposes in groups:
        lines.append(f'<tr><th colspan="{2 + len(themes)}">{html.escape(title)}</th></tr>')
        lines += [row(name, text, colors[name]) for name, text in purposes]
    return "\n".join(lines + ["</tbody></table>"])


def main():
    header, file, target = map(Path, sys.argv[1:])
    titles, *rows = (line.split("\t") for line in file.read_text(encoding="utf-8").splitlines())
    colors = {name: values for name, *values in rows}
    groups = read_purposes(header)
    named = [name for _, purposes in groups for name, _ in purposes]
    if named != list(colors):
        differing = sorted(set(named) ^ set(colors)) or ["their order"]
        print(f"error: {header} and {file} differ in {', '.join(differing)}", file=sys.stderr)
        return 1
    page = (
        "/** \\page theme-colors Colours by purpose\n\nWhat CBPTheme::Purpose names, in the themes of the library. The "
        "chapter \\ref guide-themes tells how to use them.\n\n"
        f"\\htmlonly\n{table(groups, titles[1:], colors)}\n\\endhtmlonly\n*/\n"
    )
    (target / "themes.dox").write_text(page, encoding="utf-8")
    print(f"{len(colors)} purposes have colours")
    return 0


if __name__ == "__main__":
    sys.exit(main())

"""The colours of the pictures, a dictionary for each theme.

A new theme is one dictionary more in THEMES: the looks it names replace those for light grounds, the others stay.
"colors" are those of the library's own painting that pictures lie on; grounds.py measures against them.
"""

from dataclasses import dataclass

# The two accents of the library, and the darker shade of the first that still reads on a pale one.
BLUE = "#49a7f5"
TEAL = "#4baeb2"
DEEP_BLUE = "#2f86d6"
WHITE = "#ffffff"
BLACK = "#000000"
DARK_BAR = "#222a3e"

# A mid tone: 3.7:1 on white and 3.8:1 on the dark title bar, for buttons that are shown on both.
CAPTION_INK = "#76869b"
FIELD_INK = "#5c6672"  # icons inside white fields
AMBER = "#e3951f"
RED = "#e04848"
DARK_RED = "#b93535"


@dataclass(frozen=True)
class Look:
    """How a glyph looks in one state: its ink and the tile behind it (none when tile is empty)."""

    ink: str
    tile: str = ""
    tile_opacity: float = 1
    opacity: float = 1
    swaps: tuple = ()  # pairs: a colour that the drawing names, and the one that is put there


def captions(normal, hover, disable, press=Look(WHITE, DEEP_BLUE)):
    """The four states of a caption button: the bare glyph, a tinted tile, a solid tile, a pale glyph."""
    return {"normal": Look(normal), "hover": hover, "press": press, "disable": disable}


def bare(normal, hover, press, **disable):
    """The states of a button without tiles."""
    return {state: Look(ink) for state, ink in dict(normal=normal, hover=hover, press=press, **disable).items()}


def discs(ink_on_them, **inks):
    """Filled glyphs, whose inner strokes are white in the drawings."""
    return {name: Look(ink, swaps=((WHITE, ink_on_them),)) for name, ink in inks.items()}


def mark(start, end, ink):
    """The logo: a tile that runs from one colour to another, and what stands on it."""
    return Look(ink, swaps=((WHITE, ink), (BLUE, start), (TEAL, end)))


LIGHT = {
    "colors": {
        "ground": WHITE, "field": WHITE, "raised": WHITE, "hovered": "#edf3fe", "pressed": "#bbd9f8",
        "titleBar": DARK_BAR,
    },
    "ratio": 0,  # nothing is asked of it: its look is older than the rule
    "strip": captions(CAPTION_INK, Look(DEEP_BLUE, BLUE, 0.12), Look(CAPTION_INK, opacity=0.4)),
    # The title bar is always dark, and Qt applies the opacity of a group to each of its shapes, which shows where
    # they overlap: here the pale glyph is an opaque colour.
    "bar": captions(CAPTION_INK, Look(BLUE, BLUE, 0.12), Look("#465166")),
    "close": {"hover": Look(WHITE, RED), "press": Look(WHITE, DARK_RED)},
    # The back button paints its own capsule, so its pictures have no tile.
    "back": bare(CAPTION_INK, BLUE, WHITE, disable="#465166"),
    "gift": {"normal": Look(TEAL), "hover": Look("#7fd0d3", TEAL, 0.2)},
    "field": {**bare(FIELD_INK, DEEP_BLUE, "#1c5f9f"), "disable": Look(FIELD_INK, opacity=0.4)},
    "delete": bare(FIELD_INK, RED, DARK_RED),
    "clear": discs(WHITE, normal="#7a8794", hover=RED, press=DARK_RED),
    "message": discs(WHITE, info=BLUE, quest=TEAL, alert=AMBER, wrong=RED),
    # On the highlight colour of a calendar's bar, whatever it is: the disc brings its own ground.
    "page": Look(DARK_BAR, swaps=((WHITE, WHITE),)),
    "line": Look("#c8ced6"),
    "logo": mark(BLUE, TEAL, WHITE),
    "arc": (TEAL, DEEP_BLUE),  # of the spinner, from tail to head
    "ring": Look(DEEP_BLUE, opacity=0.2),
    "waiting": (WHITE, "#d5dbe2"),  # tile and frame
}

# Where a light glyph gets darker when pressed, one of these gets lighter: away from the ground.
DARK_INK = "#0d1420"  # on the accents
DARK_NORMAL = "#aab4c3"
DARK_DISABLED = "#6f7c90"  # dim, for pale would stand out: 3.4:1 on the title bar, the normal ink 6.8:1
DARK = {
    "colors": {
        "ground": "#1c212c", "field": "#151922", "raised": "#262d3b", "hovered": "#2f3848", "pressed": "#1f3550",
        "titleBar": DARK_BAR,
    },
    "ratio": 3,
    # "bar" and "back" were drawn for a dark title bar from the beginning, and stay.
    "strip": captions(DARK_NORMAL, Look(BLUE, BLUE, 0.12), Look(DARK_DISABLED)),
    "field": bare(DARK_NORMAL, "#4da3f0", "#9acbf8", disable=DARK_DISABLED),
    "delete": bare(DARK_NORMAL, "#ff7b7b", "#ffb3b3"),
    "clear": discs(DARK_INK, normal="#8f9bad", hover="#ff7b7b", press="#ffb3b3"),
    "message": discs(DARK_INK, info="#4da3f0", quest="#54c2c6", alert="#ffb454", wrong="#ff7b7b"),
    "page": Look("#e8ecf3", swaps=((WHITE, "#1c212c"),)),
    "line": Look("#7d8a9e"),
    "logo": mark(DEEP_BLUE, "#2f8a8e", WHITE),
    "arc": ("#54c2c6", "#4da3f0"),
    "ring": Look("#4da3f0", opacity=0.3),
    "waiting": ("#262d3b", "#7d8a9e"),
}

CYAN = "#1aebff"
GREEN = "#3ff23f"
PALE_RED = "#ff9b9b"
GREY = "#8f8f8f"
CONTRAST_CAPTIONS = captions(WHITE, Look(CYAN, "#2b2b2b"), Look(GREY), Look(BLACK, CYAN))
CONTRAST = {
    "colors": {
        "ground": BLACK, "field": BLACK, "raised": BLACK, "hovered": "#2b2b2b", "pressed": "#003a44",
        "titleBar": BLACK,
    },
    "ratio": 4.5,
    "strip": CONTRAST_CAPTIONS,
    "bar": CONTRAST_CAPTIONS,
    "close": {"hover": Look(BLACK, PALE_RED), "press": Look(BLACK, "#ff5c5c")},
    "back": bare(WHITE, CYAN, WHITE, disable=GREY),
    "gift": {"normal": Look(GREEN), "hover": Look(GREEN, "#2b2b2b")},
    "field": bare(WHITE, CYAN, "#a6f7ff", disable=GREY),
    "delete": bare(WHITE, PALE_RED, "#ffd0d0"),
    "clear": discs(BLACK, normal=WHITE, hover=PALE_RED, press="#ffd0d0"),
    "message": discs(BLACK, info=CYAN, quest=GREEN, alert="#ffff00", wrong=PALE_RED),
    "page": Look(WHITE, swaps=((WHITE, BLACK),)),
    "line": Look(WHITE),
    "logo": mark(CYAN, GREEN, BLACK),
    "arc": (GREEN, CYAN),
    "ring": Look(CYAN, opacity=0.35),
    "waiting": (BLACK, WHITE),
}

THEMES = {"": LIGHT, "dark": DARK, "contrast": CONTRAST}  # by the name of their folder


def themed(name):
    return {**LIGHT, **THEMES[name]}

# SPDX-License-Identifier: GPL-3.0-or-later
"""How well a skin's texts stand out from their grounds: pairs of its colours, and its colours on its rendered pictures.

The ratio is that of relative luminances, 1 to 21. A place says in its master what is written on it, such as
data-text="caption". The captions of keys that cannot be pressed are left out.
"""
import subprocess
from functools import cache

from skin import HERE, luminance

RIM = 3  # The edge of a key or frame, which no text comes near.
# What must be told from what, for the program too: render writes it into palette.h, signs first, since one of them is a
# ground. They are no text: each with the least that ours are held to.
SIGNS = [
    ("selection", "listBackground", 1.5), ("thumbFace", "wellBackground", 1.5), ("focusRing", "listBackground", 3),
    ("focusRing", "graphite", 3), ("accentLight", "listBackground", 3),
]
# The first ground of a text is the one that it has without a picture.
TEXTS = [
    ("caption", "graphite"), ("caption", "face"), ("captionDim", "graphite"), ("warmWhite", "graphiteDark"),
    ("listText", "wellBackground"), ("listText", "listBackground"), ("selectionText", "selection"),
    ("displayText", "displayBackground"), ("displayDim", "displayBackground"), ("accentText", "accent"),
]
DRAWN = [("caption", "faceLight")]  # On the pictures alone.
# The size of drawn lettering and how wide a letter is about, with the space after it.
LETTERING = {"title": (11, 10), "brand": (17, 10), "legend": (10, 8)}

cached_luminance = cache(luminance)


def ratio(text, ground):
    """The contrast of two luminances."""
    return (max(text, ground) + 0.05) / (min(text, ground) + 0.05)


def of_colours(skin):
    """[(ratio, least, what)] for the pairs of a skin's colours."""
    pairs = SIGNS + [(*pair, skin.contrast) for pair in TEXTS + DRAWN]
    return [(ratio(luminance(skin.colours[colour]), luminance(skin.colours[ground])), least, f"{colour} on {ground}")
            for colour, ground, least in pairs]


class Picture:
    """The pixels of a picture."""

    def __init__(self, path, convert):
        size = subprocess.run([convert, str(path), "-format", "%w", "info:"], check=True, capture_output=True)
        self.width = int(size.stdout)
        self.pixels = subprocess.run([convert, str(path), "-depth", "8", "rgb:-"], check=True,
                                     capture_output=True).stdout

    def contrast(self, colour, place):
        """How a text stands out from a place: from its mean, or from its worst tenth where that is less."""
        x, y, width, height = place
        grounds = []
        for row in range(y, y + height):
            line = self.pixels[(row * self.width + x) * 3:(row * self.width + x + width) * 3]
            grounds += [cached_luminance(tuple(line[at:at + 3])) for at in range(0, len(line), 3)]
        text = luminance(colour)
        ratios = sorted(ratio(text, ground) for ground in grounds)
        return min(ratio(text, sum(grounds) / len(grounds)), ratios[len(ratios) // 10])


def of_places(skin, window, places, picture):
    """The same for what the program writes on the places of a window: places is [(name, colour's name, place)]."""
    found = []
    for name, text, (x, y, width, height) in places:
        inside = x + RIM, y + RIM, width - 2 * RIM, height - 2 * RIM
        found.append((picture.contrast(skin.colours[text], inside), skin.contrast, f"{text} on {window} {name}"))
    return found


def lettering(root):
    """The lettering that a master draws itself, as places: [(text, colour's name, place)]."""
    found = []
    for text in root.iter("{http://www.w3.org/2000/svg}text"):
        look, _, colour = text.get("class", "").partition(" ")
        if look not in LETTERING or not text.text:
            continue  # Drawn by a skin for itself.
        size, step = LETTERING[look]
        width = len(text.text) * step
        before = width if text.get("text-anchor") == "end" else 0
        left, top = int(text.get("x")) - before - RIM, int(text.get("y")) - size - RIM
        found.append((f'"{text.text}"', colour, (left, top, width + 2 * RIM, size + 2 + 2 * RIM)))
    return found


def report(skin, measured):
    """Prints the worst of them, and all that are too low; tells whether there is none."""
    low = [entry for entry in measured if entry[0] < entry[1]]
    for found, least, what in low:
        print(f"{skin.name}: {what} has a contrast of {found:.2f}, less than {least:g}")
    found, least, what = min(measured, key=lambda entry: entry[0] / entry[1])
    print(f"{skin.name:12} {what:40} {found:6.2f} of {least:g}")
    return not low

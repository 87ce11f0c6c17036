# SPDX-License-Identifier: GPL-3.0-or-later
"""Draws, for docs/skins.md, where on each picture of a window its texts and controls lie."""
import re
import shutil
import subprocess
import xml.etree.ElementTree as ElementTree
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
SKIN = ROOT / "skins" / "graphite"
WINDOWS = ["Splash", "Mp3Frm", "Playlist", "SongSearch", "TagEdit", "FormatMp3", "ToolBar", "frmOptions", "About"]
ON_TOP = ["frmNoMPEG", "labNoMPEG"]  # Are shown in place of others and would hide their names.
WINDOW = re.compile(r'SkinWindow\(u"(\w+)"_s')
PURPOSE = re.compile(r'\{\s*u"(\w+)"_s,\s*u"([^"]+)"_s,\s*(?:\w+::)+\w+\s*\}')
SIZE, LETTER, LINE = 7, 0.55, 7.5  # Of the letters, how wide they are for that, and how high a line is.


def purposes():
    """Of each window's controls, what they are in a word or two."""
    found = {}
    for source in (ROOT / "src").rglob("*.cpp"):
        text = source.read_text()
        if window := WINDOW.search(text):
            found[window[1]] = dict(PURPOSE.findall(text))
    return found


def places(window):
    """Tuples: the picture that a place lies on, its names, the colour of its text, its rectangle."""
    root = ElementTree.parse(ROOT / "skins" / "masters" / f"{window}.svg").getroot()
    group = next(part for part in root.iter() if part.get("id") == "places")
    found = {}
    for part in group:
        rectangle = tuple(int(part.get(key)) for key in ("x", "y", "width", "height"))
        if part.get("id") not in ON_TOP:
            names, text = found.setdefault((part.get("data-picture", window), rectangle), ([], part.get("data-text")))
            names.append(part.get("id"))
    size = int(root.get("width")), int(root.get("height"))
    return size, [(picture, names, text, rectangle) for (picture, rectangle), (names, text) in found.items()]


def lettering(name, text, purpose, rectangle):
    """Its name and the colour of its text in the middle of a place, and what it is where there is room for that."""
    x, y, width, height = rectangle
    whole = f"{name}: {purpose}"
    shown = [whole if purpose and len(whole) * LETTER * SIZE < width else name, *([text] if text else [])]
    size = min(SIZE, min((width - 2) / (len(line) * LETTER) for line in shown))
    top = y + height / 2 - len(shown) * LINE / 2
    return [f'<text x="{x + width / 2}" y="{top + LINE * (row + 0.78):.1f}" font-size="{size:.1f}">{line}</text>'
            for row, line in enumerate(shown)]


def drawing(picture, size, entries):
    """The picture at twice its size, dim, under its places with their names, texts' colours and purposes."""
    width, height = size
    body = []
    for names, text, purpose, rectangle in entries:
        x, y, w, h = rectangle
        kind = "text" if text else "frame" if names[0].startswith("frm") else "own"
        body.append(f'<rect class="{kind}" x="{x + 0.5}" y="{y + 0.5}" width="{w - 1}" height="{h - 1}"/>')
        if kind == "frame":
            body.append(f'<text x="{x + w - 40}" y="{y + 7}" font-size="7">{", ".join(names)}</text>')
        else:
            body += lettering(", ".join(names), text, purpose, rectangle)
    return f"""<svg xmlns="http://www.w3.org/2000/svg" width="{2 * width}" height="{2 * height}" viewBox="0 0 {width} {height}">
<style>rect {{ stroke-width: 1 }} .text {{ stroke: #ffb454; fill: #000; fill-opacity: 0.55 }}
.own {{ stroke: #6fc3ff; fill: #000; fill-opacity: 0.55 }} .frame {{ stroke: #888; fill: none; stroke-dasharray: 3 }}
text {{ fill: #fff; font-family: "Liberation Sans"; text-anchor: middle }}</style>
<rect width="100%" height="100%" fill="#000"/>
<image href="{picture}@2x.jpg" width="{width}" height="{height}" opacity="0.6"/>
{chr(10).join(body)}
</svg>"""


def draw(folder):
    """Draws them into a folder and says their names."""
    known = purposes()
    drawn = []
    for window in WINDOWS:
        size, found = places(window)
        for picture in sorted({entry[0] for entry in found}):
            left, top, *cut = next((entry[3] for entry in found if picture in entry[1]), (0, 0, *size))
            entries = [(names, text, known.get(window, {}).get(names[0]), (x - left, y - top, w, h))
                       for on, names, text, (x, y, w, h) in found if on == picture]
            shutil.copy(SKIN / f"{picture}@2x.jpg", folder)
            name = f"places-{picture}"
            (folder / f"{name}.svg").write_text(drawing(picture, cut, entries))
            subprocess.run(["rsvg-convert", "-o", folder / f"{name}.png", folder / f"{name}.svg"], check=True)
            drawn.append(name)
    return drawn

# SPDX-License-Identifier: GPL-3.0-or-later
"""What a skin's folder says: its skin.ini, the skins it is based on, its colours and the shades between them."""
import configparser
import re
import sys
from pathlib import Path

HERE = Path(__file__).resolve().parent
MASTERS = HERE / "masters"
FIRST = "graphite"  # Its colours are built into the player, its icon is the desktop's.
TRAY_SIZES = [16, 22, 32, 48]  # Of a skin's icon.
COLOUR = re.compile("#(?:[0-9a-fA-F]{6}|[0-9a-fA-F]{8})")

# Shades that the masters and sheets take beside the named colours: how far from the first to the second colour.
SHADES = {
    "accent-lit": ("accent", "accentLight", 0.5),  # An accent key, from its top ...
    "accent-shaded": ("accent", "accentDark", 0.35),  # ... to its bottom.
    "accent-cap-lit": ("accent", "accentLight", 0.7),  # The same of a round one.
    "accent-cap-shaded": ("accent", "accentDark", 0.6),
    "accent-cap-deep": ("accentDark", "#000000", 0.19),  # A round one held down.
    "accent-cap-low": ("accentDark", "accent", 0.23),
    "cap-hover": ("faceLight", "#ffffff", 0.135),  # A round key under the pointer.
    "disc-lit": ("thumbFace", "thumbLight", 0.39),  # The reel, from the lamp to the shade.
    "disc-middle": ("thumbShade", "thumbFace", 0.22),
    "disc-dark": ("thumbShade", "ink", 0.4),
    "steel": ("thumbFace", "thumbLight", 0.42),  # A plate of brushed metal.
    "steel-lit": ("thumbFace", "thumbLight", 0.72),
    "tape-light": ("displayDim", "accentDark", 0.25),  # On the way to tape-brown.
    "tape-brown": ("tape-light", "ink", 0.33),
}


class Skin:
    """A folder with a skin.ini, and the folders that it is based on."""

    def __init__(self, folder):
        self.folder = Path(folder).resolve()
        self.name = self.folder.name
        self.chain = chain(self.folder)  # From the first skin to this one.
        self.colours = {}
        for part in self.chain:
            section = read_ini(part)["Colours"]
            for colour, value in section.items():
                if not COLOUR.fullmatch(value):
                    sys.exit(f"{part}/skin.ini: {colour}={value} is no colour such as #af0000")
                if part != HERE / FIRST and colour not in self.colours:
                    sys.exit(f"{part}/skin.ini: there is no colour named {colour}")
            self.colours |= dict(section)
        self.contrast = self.least_contrast()

    def least_contrast(self):
        """The least that a text must stand out from its ground: what the skin says, or the nearest it is based on."""
        said = [read_ini(part)["Skin"].get("Contrast") for part in reversed(self.chain)]
        value = next((entry for entry in said if entry), "4.5")
        if not re.fullmatch(r"\d+(\.\d+)?", value):
            sys.exit(f"{self.folder}/skin.ini: Contrast={value} is no number such as 4.5")
        return float(value)

    def shade(self, name):
        """A colour by its name, or the shade of that name, as #rrggbb."""
        if name == "light":  # What the lamp throws on edges: lettering is dark in a light skin.
            return max(self.colours["warmWhite"], self.colours["thumbLight"], key=luminance)
        if name not in SHADES:
            return self.colours.get(name, name)
        start, end, part = SHADES[name]
        pairs = zip(channels(self.shade(start)), channels(self.shade(end)))
        return "#" + "".join(f"{round(a + (b - a) * part):02x}" for a, b in pairs)

    def palette(self):
        """All colours and shades by their names."""
        return {name: self.shade(name) for name in [*self.colours, "light", *SHADES]}


def read_ini(folder):
    """The skin.ini of a folder; names keep their case."""
    ini = configparser.ConfigParser(comment_prefixes=(";",), interpolation=None)
    ini.optionxform = str
    ini.read_dict({"Skin": {}, "Colours": {}})
    try:
        ini.read(folder / "skin.ini", encoding="utf-8-sig")  # With a mark or without.
    except configparser.Error as error:
        sys.exit(f"{folder}/skin.ini: {error.message}")
    except UnicodeDecodeError:
        sys.exit(f"{folder}/skin.ini is not in UTF-8: save it as that")
    return ini


def chain(folder):
    """The skins that a folder is based on, then itself. One that names none is based on the first skin."""
    found = [folder]
    while found[0] != HERE / FIRST:
        base = read_ini(found[0])["Skin"].get("BasedOn", FIRST)
        if "/" in base or base.startswith("."):
            sys.exit(f"{found[0]}/skin.ini: BasedOn={base} is no name of a folder")
        places = [place / base for place in (found[0].parent, HERE) if (place / base / "skin.ini").is_file()]
        if not places:
            sys.exit(f"{found[0]}/skin.ini: there is no skin {base} to be based on")
        if places[0] in found:
            sys.exit(f"{found[0]}/skin.ini: {base} is based on this skin in turn")
        found.insert(0, places[0])
    return found


def shipped():
    """The skins in this folder."""
    return [Skin(path.parent) for path in sorted(HERE.glob("*/skin.ini"))]


def find(word):
    """A skin by its name here, or by the path of its folder."""
    here = HERE / word
    folder = here if "/" not in word and (here / "skin.ini").is_file() else Path(word)
    if not (folder / "skin.ini").is_file():
        sys.exit(f"There is no skin {word}: {folder}/skin.ini is missing.")
    return Skin(folder)


def channels(colour):
    return [int(colour[at:at + 2], 16) for at in (1, 3, 5)]


def luminance(colour):
    """Relative luminance, 0 to 1, of #rrggbb or of three channels."""
    parts = [n / 255 for n in (channels(colour) if isinstance(colour, str) else colour)]
    red, green, blue = (n / 12.92 if n <= 0.04045 else ((n + 0.055) / 1.055) ** 2.4 for n in parts)
    return 0.2126 * red + 0.7152 * green + 0.0722 * blue

"""The demo songs: seven small tunes written for this player, as notes.

A line of notes reads "E5*1.5 D5 -*2 C4+E4+G4": name, length in beats (kept until the next "*"), "-" for a rest,
"+" for chords. Bars are divided by "|", which is there for the eye alone.
"""

from dataclasses import dataclass, field

import synth


@dataclass
class Part:
    """One instrument's events (beat, beats, notes), its place in stereo and its share of the effects."""
    voice: object
    events: list
    gain: float
    pan: float = 0.0
    send: float = 0.2
    loose: float = 0.008  # Seconds a player may be late.


@dataclass
class Song:
    """A tune with everything needed to make its file; `lame` holds the encoder's options."""
    file: str
    lame: str
    bpm: float
    seconds: float
    parts: list
    tag: dict = field(default_factory=dict)
    swing: float = 0.5  # Where in the beat the second eighth falls.
    echo: tuple = (0.3, 0.0)
    room: float = 0.5
    unicode_tag: dict = field(default_factory=dict)  # Title, artist and album of a Unicode tag in front.


def notes(text, times=1):
    """The events of a line of notes, `times` times in a row."""
    events, beat, length = [], 0.0, 1.0
    for token in text.replace("|", " ").split() * times:
        name, _, given = token.partition("*")
        length = float(given) if given else length
        if name != "-":
            events.append((beat, length, name.split("+")))
        beat += length
    return events


def broken(chords, order, step, hold=1.5, bar=4):
    """Plays each bar's chord ("C3+E3+G3 | ...") as single notes in the given order, a new one every `step` beats."""
    events = []
    for number, chord in enumerate(chords.split("|")):
        tones = chord.strip().split("+")
        for i in range(int(bar / step)):
            index = order[i % len(order)]
            if index != ".":
                events.append((number * bar + i * step, step * hold, [tones[int(index) % len(tones)]]))
    return events


def rhythm(pattern, bars, start=0):
    """Drum strokes: "x" strikes, "." rests, four steps a beat; repeated for a number of bars from bar `start` on."""
    width = len(pattern) / 4
    return [((start + bar) * width + i / 4, 0.25, []) for bar in range(bars) for i, c in enumerate(pattern) if c == "x"]


def comped(chords, pattern, hold):
    """Strikes each bar's whole chord in a rhythm."""
    return [(bar * 4 + beat, hold, chord.strip().split("+"))
            for bar, chord in enumerate(chords.split("|")) for beat, _, _ in rhythm(pattern, 1)]


def later(events, beats):
    """The same events some beats later."""
    return [(beat + beats, length, names) for beat, length, names in events]


def low_tide_waltz():
    melody = notes("""F#5*2 A5*1 | E5*2 A4*1 | D5*1.5 E5*.5 F#5*1 | B4*3 | A4*1 D5 F#5 | G5*1.5 F#5*.5 D5*1
        | E5*1.5 F#5*.5 G5*1 | E5*3 | F#5*2 A5*1 | C#6*1.5 B5*.5 A5*1 | B5*2 F#5*1 | A5*3
        | B5*1 A5 G5 | F#5*1.5 G5*.5 A5*1 | G5*1 F#5*.5 E5 C#5*1 | D5*3""")
    chords = """D3+A3+D4+F#4 | C#3+A3+C#4+E4 | B2+F#3+B3+D4 | G2+G3+B3+D4 | D3+A3+D4+F#4 | G2+G3+B3+D4 | E3+G3+B3+E4
        | A2+A3+C#4+E4 | D3+A3+D4+F#4 | C#3+A3+C#4+E4 | B2+F#3+B3+D4 | F#2+F#3+A3+C#4 | G2+G3+B3+D4 | F#2+A3+D4+F#4
        | A2+G3+C#4+E4 | D3+A3+D4+F#4"""
    return Song("Paper Harbour - Low Tide Waltz.mp3", "-V 7", 112, 28.5, [
        Part(synth.flute, melody, 0.36, 0.15, 0.45), Part(synth.guitar, broken(chords, "012321", 0.5, 4, 3), 0.65, -0.3),
        Part(synth.bass, broken(chords, "0", 3, 0.9, 3), 0.45), Part("shaker", rhythm("....x...x...", 14, 2), 0.15, 0.5)],
        dict(title="Low Tide Waltz", artist="Paper Harbour", album="Small Boats", year="2003", genre=80,
             comment="Flute and guitar"))


def after_the_rain():
    melody = notes("""A4*1.5 C5*.5 E5*1.5 D5*.5 | B4*.5 D5 F5*1 E5*2 | -*.5 G4 B4 D5 E5*1 D5 | C#5*2.5 -*.5 Bb4 A4
        | A4*1.5 C5*.5 F5*1.5 E5*.5 | D5*1 E5*.5 F5 A5*2 | G5*1.5 E5*.5 B4*2 | -*.5 C#5 E5 G5 Bb5*1 A5
        | A5*1.5 G5*.5 E5*1 C5 | Ab5*1.5 G5*.5 F5*1 D5 | G5*1 D5 E5 G5 | F5*1 D5*.5 C5 B4*1 D5 | E5*4""")
    chords = """F3+A3+C4+E4 | F3+A3+B3+E4 | E3+G3+B3+D4 | G3+Bb3+C#4+E4 | F3+A3+C4+E4 | F3+A3+B3+E4 | D3+G3+B3+E4
        | G3+Bb3+C#4+E4 | E3+A3+C4+E4 | F3+Ab3+C4+D4 | D3+G3+B3+E4 | F3+A3+D4"""
    low = notes("""D2*1.5 A2*.5 A2*1.5 D2*.5 | G2*1.5 D2*.5 D2*1.5 G2*.5 | C2*1.5 G2*.5 G2*1.5 C2*.5
        | A2*1.5 E2*.5 E2*1.5 A2*.5 | D2*1.5 A2*.5 A2*1.5 D2*.5 | G2*1.5 D2*.5 D2*1.5 G2*.5 | E2*1.5 B2*.5 B2*1.5 E2*.5
        | A2*1.5 E2*.5 E2*1.5 A2*.5 | F2*1.5 C3*.5 C3*1.5 F2*.5 | F2*1.5 C3*.5 C3*1.5 F2*.5 | E2*1.5 B2*.5 A2*1.5 E2*.5
        | D2*1.5 A2*.5 G2*1.5 G2*.5 | C2*4""")
    return Song("Zoë Lindqvist - Café après la pluie.mp3", "-b 112", 126, 27, [
        Part(synth.vibraphone, melody, 0.55, 0.2, 0.4), Part(synth.bass, low, 0.38, 0, 0.05),
        Part(synth.guitar, comped(chords, "x.....x...x.....", 0.9) + notes("-*48 E3+G3+A3+D4*4"), 0.3, -0.35, loose=0.014),
        Part("rim", rhythm("x.....x.....x...", 6) + rhythm("....x...x.......", 6), 0.2, 0.4),
        Part("shaker", rhythm("x.x.x.x.x.x.x.x.", 12), 0.15, -0.5)],
        dict(title="Café après la pluie", artist="Zoë Lindqvist", album="Fenêtre ouverte", year="2002", genre=8,
             comment="Après-midi, rue mouillée"))


def winter_evening():
    melody = """E5*1 A5 C6*1.5 B5*.5 | A5*2 F5*1 G5*.5 A5 | G5*1.5 E5*.5 C5*1 E5 | D5*3 E5*.5 G5
        | A5*1 E5*.5 A5 C6*1 E6 | D6*1.5 C6*.5 A5*1 F5 | E5*.5 G#5 B5 D6 C6*1 B5 | A5*4"""
    chords = notes("A2+E3+A3+C4*4 | F2+C3+A3+C4 | C3+G3+C4+E4 | G2+D3+G3+B3 | A2+E3+A3+C4 | D3+A3+D4+F4 | E2+B2+G#3+D4 | A2+E3+A3+C4")
    under = broken("""A4+E4+C4 | A4+F4+C4 | G4+E4+C4 | G4+D4+B3 | A4+E4+C4 | A4+F4+D4 | G#4+E4+D4 | A4+E4+C4""", "2101", 0.5)
    return Song("Катя Морозова - Зимний вечер.mp3", "-b 96", 84, 26, [
        Part(synth.music_box, notes(melody), 0.5, 0.1, 0.7), Part(synth.pad, chords, 0.075, 0, 0.4),
        Part(synth.music_box, under, 0.2, -0.5, 0.5)],
        dict(title="Zimnij vecher", artist="Katya Morozova", album="Muzykalnaya shkatulka", year="1999", genre=32,
             comment=""), echo=(60 / 84 * 0.75, 0.3), room=0.8,
        unicode_tag=dict(TIT2="Зимний вечер", TPE1="Катя Морозова", TALB="Музыкальная шкатулка"))


def last_stop_moonlight():
    melody = notes("""C#5*1.5 B4*.5 A4*1 F#4 | A4*1.5 B4*.5 D5*2 | C#5*1.5 D5*.5 E5*1 C#5 | B4*3 -*.5 B4
        | C#5*1.5 E5*.5 F#5*2 | A5*1.5 G#5*.5 F#5*1 E5 | E5*1 C#5*.5 E5 A5*2 | G#5*2 F#5*1 E5 | F#5*4""")
    chords = "F#3+A3+C#4+F#4 | D3+A3+D4+F#4 | E3+A3+C#4+E4 | E3+G#3+B3+E4"
    low = notes("F#1*.5 F#1 F#2 F#1 F#1 F#1 F#2 F#1 D2 D2 D3 D2 D2 D2 D3 D2 A1 A1 A2 A1 A1 A1 A2 A1 E2 E2 E3 E2 E2 E2 E3 G#2", 3)
    strings = notes(chords.replace(" |", "*4 |") + "*4", 3) + notes("-*48 F#3+A3+C#4+F#4*4")
    arpeggio = broken(" | ".join([chords] * 3), "0123213203213231", 0.25)
    return Song("The Night Trams - Last Stop Moonlight.mp3", "-V 7", 106, 31, [
        Part(synth.synth_lead, later(melody, 16), 0.36, 0, 0.5), Part(synth.synth_pluck, arpeggio, 0.17, 0.45, 0.5, 0),
        Part(synth.bass, low + [(48, 4, ["F#1"])], 0.36, 0, 0, 0), Part(synth.pad, strings, 0.08, -0.2, 0.4, 0),
        Part("kick", rhythm("x.......x.x.....", 8, 4) + rhythm("x", 1, 192), 0.75, 0, 0, 0),
        Part("snare", rhythm("....x.......x...", 8, 4), 0.55, 0.05, 0.5, 0),
        Part("hat", rhythm("..x...x...x...x.", 10, 2), 0.2, -0.4, 0.1, 0)],
        dict(title="Last Stop Moonlight", artist="The Night Trams", album="Overhead Lines", year="2004", genre=147,
             comment="Headphones, please"), echo=(60 / 106 * 0.75, 0.35))


def ten_second_sunrise():
    chords = "C3+G3+C4+D4+E4+G4 | F3+C4+E4+F4+A4+C5 | G3+D4+F4+G4+B4+D5"
    bells = notes("-*2 G5*.5 C6 D6 E6 | C6*1.5 A5*.5 G5*1 A5 | B5*.5 D6 G6 A6 G6*1 D6 | E6*4")
    return Song("Clockwork Orchard - Ten Second Sunrise.mp3", "-b 128", 116, 10, [
        Part(synth.marimba, broken(chords, "0231425314253142", 0.25) + notes("-*12 C3+G3+C4+E4*2"), 0.42, -0.25),
        Part(synth.music_box, bells, 0.36, 0.35, 0.6),
        Part(synth.bass, notes("C2*4 F2 G2 C2"), 0.3), Part(synth.pad, notes("C4+G4*4 C4+A4 D4+B4 E4+G4"), 0.1, 0, 0.5)],
        dict(title="Ten Second Sunrise", artist="Clockwork Orchard", album="Garden Machines", year="2001", genre=10,
             comment="Made for short tests"), echo=(60 / 116 * 0.75, 0.25), room=0.7)


def salt_and_lemons():
    melody = notes("""-*1 C5*.5 D5 F5*1 Ab5*.5 F5 | Ab5*1 F5*.5 D5*1.5 -*1 | -*1 C5*.5 D5 F5*1 A5*.5 F5 | Eb5*1.5 C5*.5 -*2
        | -*.5 D5 F5 Ab5 Bb5*1 Ab5*.5 F5 | Ab5*1 F5*.5 D5 B4*1 D5 | C5*1.5 D5*.5 F5*1 A5 | C6*1 A5*.5 F#5 Eb5*1 D5
        | -*.5 Bb5 A5 G5 F5*1 D5 | E5*.5 G5 Bb5 D6 C6*1 Bb5*.5 G5 | A5*1 F5*.5 C5 Eb5 D5 C5*1
        | Bb4*.5 D5 F5 A5 G5 E5 C5*1 | F5*.5 Ab5 F5*3""")
    walk = notes("""F2 A2 C3 D3 | Bb2 D3 F3 D3 | F3 Eb3 D3 C3 | F2 A2 C3 A2 | Bb2 D3 F3 Ab3 | B2 D3 F3 D3 | C3 A2 F2 A2
        | D3 C3 A2 F#2 | G2 Bb2 D3 F3 | E3 C3 Bb2 G2 | F2 A2 D3 F#2 | G2 Bb2 C3 E3 | F2*4""")
    seventh = "Eb3+A3+D4"
    chords = f"""{seventh} | D3+Ab3+C4 | {seventh} | {seventh} | D3+Ab3+C4 | D3+Ab3+B3 | {seventh} | C3+F#3+C4
        | F3+Bb3+D4 | E3+Bb3+D4 | {seventh} | F3+Bb3+D4"""
    return Song("Old Pier Trio - Salt & Lemons.mp3", "-V 7", 138, 24.5, [
        Part(synth.electric_piano, melody, 0.42, 0.2, 0.3),
        Part(synth.electric_piano, comped(chords, "x.....x.........", 0.4) + notes("-*48 Eb3+A3+D4*3"), 0.16, -0.3),
        Part(synth.guitar, walk, 0.62, -0.05, 0.1), Part(synth.bass, walk, 0.15, -0.05, 0),
        Part("ride", rhythm("x...x.x.x...x.x.", 12) + rhythm("x", 1, 192), 0.45, 0.4),
        Part("brush", rhythm("....x.......x...", 12), 0.26, -0.4), Part("kick", rhythm("x.......x.......", 12), 0.3)],
        dict(title="Salt & Lemons", artist="Old Pier Trio", album="Live at the Kiosk", year="2000", genre=0,
             comment="Twelve bars, one round"), swing=0.64)


def twelve_tin_robots():
    melody = notes("""C5*.5 E5 G5 C6*1 B5*.5 G5 E5 | D5 G5 B5 D6*1 C6*.5 B5 G5 | C6 B5 A5 E5*1 A5*.5 C6 B5
        | A5*1 F5*.5 A5 C6*1 A5 | G5*.5 E5 G5 C6*1 D6*.5 E6*1 | D6*.5 B5 G#5 B5 E6*1 D6 | C6*.5 E6 C6 A5*1 E5*.5 A5 C6
        | D6 C6 A5 F5*1 A5*.5 C6*1 | B5*.5 D6 B5 G5 F5 D5 E5 D5 | C5 G5 C6*3""")
    chords = """C4+E4+G4 | B3+D4+G4 | C4+E4+A4 | C4+F4+A4 | C4+E4+G4 | B3+E4+G#4 | C4+E4+A4 | C4+F4+A4 | B3+D4+G4 | C4+E4+G4"""
    low = broken("C2+C3 | G2+G3 | A2+A3 | F2+F3 | C2+C3 | E2+E3 | A2+A3 | F2+F3 | G2+G3", "00101001", 0.5, 0.8)
    return Song("Twelve Tin Robots.mp3", "-b 96 -m m", 150, 17.5, [
        Part(synth.chip_lead, melody, 0.3, 0, 0.25, 0), Part(synth.chip_square, broken(chords, "012", 0.25), 0.15, 0, 0, 0),
        Part(synth.chip_triangle, low + notes("-*36 C2*2"), 0.3, 0, 0, 0), Part("kick", rhythm("x.......x.x.....", 9), 0.4, 0, 0, 0),
        Part("snare", rhythm("....x.......x..x", 9), 0.32, 0, 0.1, 0), Part("hat", rhythm("x.x.x.x.x.x.x.x.", 9), 0.1, 0, 0, 0)],
        echo=(60 / 150 * 0.75, 0.25), room=0.3)


ALL = (low_tide_waltz, after_the_rain, winter_evening, last_stop_moonlight, ten_second_sunrise, salt_and_lemons,
       twelve_tin_robots)

"""The instruments of the demo songs: every voice and drum returns one note as a list of floats around -1..1.

Mixing, effects and the songs themselves live in mixer.py and songs.py.
"""

import math
import random
from functools import lru_cache

RATE = 44100
TABLE_SIZE = 4096
SEMITONES = {"C": 0, "D": 2, "E": 4, "F": 5, "G": 7, "A": 9, "B": 11}


def frequency(name):
    """Hertz of a note name such as "F#4" or "Bb3"."""
    semitone = SEMITONES[name[0]] + name.count("#") - name.count("b")
    return 440.0 * 2 ** ((semitone + 12 * (int(name[-1]) + 1) - 69) / 12)


def faded(samples, attack, release):
    """Rounds both ends of a note in place, so that it neither clicks nor stops dead."""
    rise, fall = int(attack * RATE), min(int(release * RATE), len(samples))
    for i in range(min(rise, len(samples))):
        samples[i] *= i / rise
    for i in range(fall):
        samples[-1 - i] *= (i / fall) ** 2
    return samples


def decaying(samples, t60):
    """Lets a note die away by 60 dB in `t60` seconds, in place."""
    level, factor = 1.0, 0.001 ** (1 / (t60 * RATE))
    for i, sample in enumerate(samples):
        samples[i] = sample * level
        level *= factor
    return samples


def ringing(freq, seconds, partials):
    """A struck bar or bell: (ratio, gain, t60) for each partial, each one a two-pole resonator."""
    out = [0.0] * int(seconds * RATE)
    for ratio, gain, t60 in partials:
        if freq * ratio > RATE * 0.45:
            continue
        radius = 0.001 ** (1 / (t60 * RATE))
        angle = 2 * math.pi * freq * ratio / RATE
        a, b = 2 * radius * math.cos(angle), -radius * radius
        before, now = -gain * math.sin(angle) / radius, 0.0
        for i in range(len(out)):
            out[i] += now
            before, now = now, a * now + b * before
    return out


@lru_cache(maxsize=None)
def wave_table(freq, shape, cutoff):
    """One period without harmonics beyond hearing; `cutoff` is a gentle low pass in hertz."""
    weights = []
    for k in range(1, int(min(60, 16000 / freq)) + 1):
        weight = {"saw": 1 / k, "square": k % 2 / k, "pulse": math.sin(math.pi * k / 4) / k * 1.4,
                  "triangle": k % 2 * (-1) ** (k // 2) / (k * k)}[shape]
        weights.append((k, weight / (1 + (k * freq / cutoff) ** 2)))
    step = 2 * math.pi / TABLE_SIZE
    sine = [math.sin(i * step) for i in range(TABLE_SIZE)]
    return [sum(w * sine[i * k % TABLE_SIZE] for k, w in weights) for i in range(TABLE_SIZE)]


def oscillate(table, freq, seconds, vibrato=0.0, start=0.0):
    """Runs through a wave table; the vibrato (a share of the pitch) comes in after a moment."""
    out, phase, step = [], start * TABLE_SIZE, freq * TABLE_SIZE / RATE
    if not vibrato:
        return [table[int(phase + i * step) % TABLE_SIZE] for i in range(int(seconds * RATE))]
    for i in range(int(seconds * RATE)):
        depth = vibrato * min(1.0, max(0.0, i / RATE - 0.15) * 4)
        phase += step * (1 + depth * math.sin(i * 2 * math.pi * 5.2 / RATE))
        out.append(table[int(phase) % TABLE_SIZE])
    return out


@lru_cache(maxsize=None)
def guitar(freq, seconds):
    """A plucked nylon string: noise in a tuned delay line that darkens as it turns."""
    rng = random.Random(int(freq * 100))
    period = RATE / freq - 0.5
    size = int(period - 0.1)
    line = [rng.uniform(-1, 1) for _ in range(size)]
    for _ in range(3):  # The flesh of the finger takes the top away.
        level = line[-1]
        for i in range(size):
            level += 0.22 * (line[i] - level)
            line[i] = level
    mean = sum(line) / size
    power = math.sqrt(sum((sample - mean) ** 2 for sample in line) / size)
    line = [0.3 * (sample - mean) / power for sample in line]
    fraction = period - size
    tuning = (1 - fraction) / (1 + fraction)
    loss = 0.5 * 0.001 ** (1 / (freq * 3.5))
    out, last, x, y = [], 0.0, 0.0, 0.0
    for i in range(int((seconds + 0.25) * RATE)):
        now = line[i % size]
        smooth = loss * (now + last)
        y, x, last = tuning * (smooth - y) + x, smooth, now
        line[i % size] = y
        out.append(now)
    return faded(out, 0.001, 0.2)


@lru_cache(maxsize=None)
def electric_piano(freq, seconds):
    """Two-operator FM with a soft bite that fades, and a short tine on top."""
    w = 2 * math.pi * freq / RATE
    index, fade, out = 1.3, 0.001 ** (1 / (2.2 * RATE)), []
    for i in range(int((seconds + 0.15) * RATE)):
        out.append(math.sin(w * i + index * math.sin(w * i)) * 0.8)
        index *= fade
    tine = ringing(freq, min(0.3, seconds), [(7, 0.1, 0.25)])
    for i, sample in enumerate(tine):
        out[i] += sample
    return faded(decaying(out, 4.0), 0.004, 0.14)


@lru_cache(maxsize=None)
def vibraphone(freq, seconds):
    """A struck bar with a slow tremolo."""
    out = ringing(freq, seconds + 0.5, [(1, 0.8, 3.0), (4, 0.16, 0.8), (10, 0.05, 0.2)])
    return faded([s * (0.85 + 0.15 * math.cos(i * 30 / RATE)) for i, s in enumerate(out)], 0.002, 0.45)


@lru_cache(maxsize=None)
def music_box(freq, seconds):
    """A small steel comb: bright, short and slightly out of tune above."""
    partials = [(1, 0.7, 1.8), (2.003, 0.18, 1.0), (3.01, 0.12, 0.6), (5.43, 0.08, 0.25)]
    return faded(ringing(freq, seconds + 0.9, partials), 0.001, 0.5)


@lru_cache(maxsize=None)
def marimba(freq, seconds):
    """A wooden bar: a warm ground tone and a quick knock."""
    return faded(ringing(freq, seconds + 0.4, [(1, 0.9, 0.9), (3.93, 0.25, 0.2), (9.2, 0.1, 0.06)]), 0.001, 0.2)


@lru_cache(maxsize=None)
def flute(freq, seconds):
    """A wooden flute: few harmonics, a late vibrato, a little breath."""
    rng = random.Random(int(freq))
    out = oscillate(wave_table(freq, "triangle", 1400.0), freq, seconds + 0.12, vibrato=0.004)
    air = 0.0
    for i, sample in enumerate(out):
        air += 0.25 * (rng.uniform(-1, 1) - air)
        out[i] = sample + 0.03 * air
    return faded(out, 0.06, 0.14)


@lru_cache(maxsize=None)
def bass(freq, seconds):
    """A round finger bass."""
    out = oscillate(wave_table(freq, "saw", 260.0), freq, seconds + 0.06)
    return faded(decaying(out, 2.5), 0.006, 0.08)


@lru_cache(maxsize=None)
def pad(freq, seconds):
    """Three slightly detuned strings with slow ends."""
    table = wave_table(freq, "saw", 900.0)
    voices = [oscillate(table, freq * d, seconds + 0.5, start=s) for d, s in ((1, 0), (1.004, 0.3), (0.9965, 0.7))]
    return faded([(a + b + c) / 2.4 for a, b, c in zip(*voices)], 0.35, 0.7)


@lru_cache(maxsize=None)
def synth_pluck(freq, seconds):
    """A saw whose filter snaps shut."""
    bright = oscillate(wave_table(freq, "saw", 5000.0), freq, seconds + 0.2)
    dark = oscillate(wave_table(freq, "saw", 600.0), freq, seconds + 0.2)
    snap = decaying([1.0] * len(dark), 0.35)
    return faded(decaying([d + (b - d) * s for b, d, s in zip(bright, dark, snap)], 0.9), 0.002, 0.1)


@lru_cache(maxsize=None)
def synth_lead(freq, seconds):
    """Two soft saws that sing."""
    table = wave_table(freq, "saw", 1800.0)
    pair = (oscillate(table, freq * d, seconds + 0.1, vibrato=0.005) for d in (1.002, 0.998))
    return faded([(a + b) / 2 for a, b in zip(*pair)], 0.02, 0.12)


@lru_cache(maxsize=None)
def chip_lead(freq, seconds):
    """A quarter pulse, as little game machines had."""
    return faded(decaying(oscillate(wave_table(freq, "pulse", 5000.0), freq, seconds, vibrato=0.006), 2.0), 0.003, 0.03)


@lru_cache(maxsize=None)
def chip_square(freq, seconds):
    """A short square blip for broken chords."""
    return faded(decaying(oscillate(wave_table(freq, "square", 3500.0), freq, seconds), 0.5), 0.002, 0.02)


@lru_cache(maxsize=None)
def chip_triangle(freq, seconds):
    """The bass of the same machine."""
    return faded(oscillate(wave_table(freq, "triangle", 4000.0), freq, seconds), 0.003, 0.02)


def noise(seed, seconds, t60, colour):
    """Decaying noise; `colour` 1 keeps the top only, 0 keeps everything."""
    rng, last, out = random.Random(seed), 0.0, []
    for _ in range(int(seconds * RATE)):
        now = rng.uniform(-1, 1)
        out.append(now - colour * last)
        last = now
    return faded(decaying(out, t60), 0.001, seconds / 3)


@lru_cache(maxsize=None)
def drum(name):
    """One stroke of "kick", "snare", "hat", "ride", "shaker", "brush" or "rim"."""
    if name == "kick":
        out, phase = [], 0.0
        for i in range(int(0.3 * RATE)):
            phase += 2 * math.pi * (46 + 110 * math.exp(-i / RATE * 32)) / RATE
            out.append(math.sin(phase))
        return faded(decaying(out, 0.45), 0.002, 0.1)
    if name == "rim":
        return faded(ringing(820, 0.1, [(1, 0.6, 0.07), (2.1, 0.4, 0.05)]), 0.001, 0.03)
    if name == "snare":
        body = ringing(190, 0.25, [(1, 0.6, 0.18), (1.7, 0.3, 0.12)])
        return [0.35 * n + b for n, b in zip(noise(3, 0.25, 0.28, 0.4), body)]
    if name == "brush":
        return faded(noise(4, 0.22, 0.5, 0.2), 0.05, 0.12)
    if name == "ride":
        metal = ringing(3140, 0.5, [(1, 0.1, 0.7), (1.47, 0.1, 0.6), (2.09, 0.08, 0.5), (2.71, 0.06, 0.4)])
        return [0.15 * n + m for n, m in zip(noise(5, 0.5, 0.4, 0.95), metal)]
    return faded(noise(6, 0.09, 0.09, 0.95), 0.0 if name == "hat" else 0.02, 0.03)

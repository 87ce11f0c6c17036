"""The mixing desk of the demo songs: places notes in stereo, adds echo and reverb, brings all songs to one loudness."""

import math
import random

import synth

RATE = synth.RATE
COMBS = ((1557, 1617, 1491, 1422), (1580, 1640, 1514, 1445))
ALLPASSES = ((556, 341), (579, 364))
LOUDNESS = 10 ** (-17 / 20)  # RMS all songs share
KNEE, ROOM = 0.55, 0.30  # Above the knee peaks bend; they end at 0.85, so the encoder cannot overshoot into clipping.


class Mixer:
    """Collects notes for `seconds` of stereo sound; the seed makes the small human errors repeatable."""

    def __init__(self, seconds, seed):
        self.length = int(seconds * RATE)
        self.dry = [[0.0] * self.length for _ in "LR"]
        self.wet = [[0.0] * self.length for _ in "LR"]
        self.rng = random.Random(seed)

    def add(self, samples, seconds, part):
        """Adds one note at a time, within the part's gain, pan (-1..1), send (0..1) and looseness."""
        start = int((0.03 + seconds + self.rng.uniform(0, part.loose)) * RATE)
        gain = part.gain * (1 + self.rng.uniform(-8, 8) * part.loose)
        samples = samples[:max(0, self.length - start)]
        end, angle = start + len(samples), (part.pan + 1) * math.pi / 4
        for side, share in enumerate((math.cos(angle), math.sin(angle))):
            for bus, level in ((self.dry, gain * share), (self.wet, gain * share * part.send)):
                if level > 0:
                    bus[side][start:end] = [a + level * b for a, b in zip(bus[side][start:end], samples)]

    def echo(self, seconds, feedback):
        """Repeats what was sent to the effects, from side to side."""
        left, right = self.wet
        gap = int(seconds * RATE)
        for i in range(gap, self.length):
            left[i], right[i] = left[i] + feedback * right[i - gap], right[i] + feedback * left[i - gap]

    def master(self, room):
        """The finished song: reverb of strength `room` added, loudness set, peaks rounded, end faded; 16-bit pairs."""
        sides = []
        for side in (0, 1):
            tail = reverb(self.wet[side], COMBS[side], ALLPASSES[side])
            wet = zip(self.dry[side], self.wet[side], tail)
            sides.append([d + 0.3 * w + room * t for d, w, t in wet])
        # The silence of the fading end must not make a short song louder, so the last seconds do not count.
        loud = sides[0][:-2 * RATE] + sides[1][:-2 * RATE]
        gain = LOUDNESS / math.sqrt(sum(s * s for s in loud) / len(loud))
        sides = [synth.faded([rounded(gain * s) for s in side], 0.0, 1.2) for side in sides]
        return [int(32767 * s) for pair in zip(*sides) for s in pair]


def rounded(sample):
    """Leaves quiet samples alone and bends loud ones softly."""
    size = abs(sample)
    return sample if size < KNEE else math.copysign(KNEE + ROOM * math.tanh((size - KNEE) / ROOM), sample)


def reverb(source, combs, allpasses):
    """A small wooden hall: parallel combs that darken, then two all-passes; worked in blocks of one delay."""
    total = [0.0] * len(source)
    for delay in combs:
        out, last = [], [0.0] * delay
        for start in range(0, len(source), delay):
            darker = zip(source[start:start + delay], last, last[1:] + last[:1])
            last = [s + 0.4 * (a + b) for s, a, b in darker]
            out += last
            last += [0.0] * (delay - len(last))
        total = [a + 0.12 * b for a, b in zip(total, out)]
    for delay in allpasses:
        out, inputs, outputs = [], [0.0] * delay, [0.0] * delay
        for start in range(0, len(total), delay):
            block = total[start:start + delay]
            outputs = [-0.5 * x + old + 0.5 * y for x, old, y in zip(block, inputs, outputs)]
            inputs = block
            out += outputs
        total = out
    return total

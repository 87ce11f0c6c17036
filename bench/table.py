# SPDX-License-Identifier: GPL-3.0-or-later
"""The figures and their budgets, side by side."""

from player import COUNTS

# Figure, what it is, digits, what this player may use.
WHOLE_PROGRAM = (
    ("start_ms", "start with a song, ms to the window", 0, 50),
    ("start_cpu_ms", "start with a song, ms of CPU by then", 0, 50),
    ("sound_ms", "start with a song, ms to the sound", 0, 63),
    ("bare_start_ms", "start without, ms to the window", 0, None),
    ("bare_start_cpu_ms", "start without, ms of CPU by then", 0, None),
    ("idle_cpu", "idle, % CPU", 1, 0.0),
    ("idle_wakeups", "idle, wake-ups a second", 1, 1),
    ("idle_mb", "idle, MB resident", 0, 45),
    ("playing_cpu", "playing, % CPU", 2, 0.33),
    ("playing_wakeups", "playing, wake-ups a second", 0, 15),
    ("playing_mb", "playing, MB resident", 0, 48),
)

# The same for each of the big folders: figure, what it is, digits, what this player may use with so many songs.
MANY_SONGS = (
    ("folder_s", "folder of {}, s more at work", 2, (0.1, 0.3, 1.5)),
    ("folder_cpu_s", "folder of {}, s of CPU more", 2, (0.1, 0.3, 1.2)),
    ("folder_mb", "folder of {}, MB more", 0, (5, 15, 120)),
    ("key_ms", "key among {}, ms of CPU", 1, (16, 16, 16)),
    ("key_slowest_ms", "key among {}, the slowest", 1, (16, 16, 16)),
)


def all_rows():
    yield from WHOLE_PROGRAM
    for key, what, digits, budgets in MANY_SONGS:
        for count, budget in zip(COUNTS, budgets):
            yield f"{key}_{count}", what.format(f"{count:,}"), digits, budget


def cell(value, digits):
    return "–" if value is None else f"{value:,.{digits}f}"


def row(what, ours, budget, others, kept=True):
    return f"{what:<38}{ours:>12}{budget:>8}{''.join(f'{text:>16}' for text in others)}{'' if kept else '  MISSED'}"


def whole_program_rows(columns):
    """A row a figure, and whether its budget is kept. Columns: a name, figures by name. This player's first."""
    names = [name for name, _ in columns]
    yield row("", names[0], "budget", names[1:]), True
    for key, what, digits, budget in all_rows():
        ours, *others = (figures.get(key) for _, figures in columns)
        kept = budget is None or ours is not None and round(ours, digits) <= budget
        allowed = "–" if budget is None else f"{budget:g}"
        yield row(what, cell(ours, digits), allowed, [cell(value, digits) for value in others], kept), kept


def rule_rows(benchmarks):
    for what, figure, budget, kept in benchmarks:
        yield f"{what:<20} {figure:<45} {budget:<10} {'' if kept else 'MISSED'}".rstrip(), kept

# SPDX-License-Identifier: GPL-3.0-or-later
"""The figures and their budgets, side by side."""

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
    ("folder_s", "folder of 100,000, s more at work", 2, 0.3),
    ("folder_mb", "folder of 100,000, MB more", 0, 30),
    ("key_ms", "search key, ms of CPU", 1, 16),
    ("key_slowest_ms", "search key, ms of CPU, the slowest", 1, 16),
)


def cell(value, digits):
    return "–" if value is None else f"{value:,.{digits}f}"


def row(what, ours, budget, others, kept=True):
    return f"{what:<38}{ours:>12}{budget:>8}{''.join(f'{text:>16}' for text in others)}{'' if kept else '  MISSED'}"


def whole_program_rows(columns):
    """A row a figure, and whether its budget is kept. Columns: a name, figures by name. This player's first."""
    names = [name for name, _ in columns]
    yield row("", names[0], "budget", names[1:]), True
    for key, what, digits, budget in WHOLE_PROGRAM:
        ours, *others = (figures.get(key) for _, figures in columns)
        kept = budget is None or ours is not None and round(ours, digits) <= budget
        allowed = "–" if budget is None else f"{budget:g}"
        yield row(what, cell(ours, digits), allowed, [cell(value, digits) for value in others], kept), kept


def rule_rows(benchmarks):
    for what, figure, budget, kept in benchmarks:
        yield f"{what:<20} {figure:<45} {budget:<10} {'' if kept else 'MISSED'}".rstrip(), kept

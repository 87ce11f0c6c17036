# SPDX-License-Identifier: GPL-3.0-or-later
"""The benchmarks of single rules, run on Google Benchmark: rows of what, figure, budget, and whether it is kept."""

import json
import subprocess
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
BUILT = ROOT / "build" / "bench" / "bench"

# What, program, its benchmarks, CPU milliseconds allowed.
RULES = (
    ("search and list", "bench_song_match", "keystroke", 16),
    ("picture to region", "bench_window_shape", "disc", 5),
)


def entries(program, *options):
    """The single rounds of a program's benchmarks."""
    command = [ROOT / "scripts" / "with-own-home", BUILT / program, "--benchmark_format=json", *options]
    output = subprocess.run(command, check=True, stdout=subprocess.PIPE).stdout
    return [entry for entry in json.loads(output)["benchmarks"] if entry["run_type"] == "iteration"]


def best_rates(program):
    """Items a CPU second of each benchmark of a program: the best of its rounds."""
    rates = {}
    for entry in entries(program):
        name = entry["run_name"].split("/")[0]
        rates[name] = max(entry["items_per_second"], rates.get(name, 0))
    return rates


def readers():
    rates = best_rates("bench_mp3info")
    library = rates["TagLibrary"]
    yield "tag library", f"{library:,.0f} files a CPU second", "", True
    for name, benchmark, factor in (("QuickMp3Header", "QuickReader", 2), ("Mp3Info", "Component", 1.5)):
        ratio = rates[benchmark] / library
        yield name, f"{rates[benchmark]:,.0f} files a CPU second, x {ratio:.2f}", f"x {factor}", ratio >= factor


def slowest_ms(program, benchmark):
    """CPU milliseconds of one round, the slowest of the benchmarks that fit the name."""
    scale = {"ns": 1e6, "us": 1e3, "ms": 1}
    rounds = entries(program, f"--benchmark_filter={benchmark}", "--benchmark_min_time=0.2")
    return max(entry["cpu_time"] / scale[entry["time_unit"]] for entry in rounds)


def benchmarks():
    yield from readers()
    for name, program, benchmark, budget in RULES:
        taken = slowest_ms(program, benchmark)
        yield name, f"{taken:.1f} ms CPU", f"{budget}", taken < budget

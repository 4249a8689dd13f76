"""What the benchmark programs say of single functions."""

import json
import os
import statistics
import subprocess
from collections import defaultdict
from pathlib import Path
from typing import Optional

from rows import Row

_OPTIONS = ("--benchmark_repetitions=9", "--benchmark_min_time=0.1")

# Program, its run, how the table names it, the limit in the run's own unit. A pad's number is the
# choice after which the view writes all titles anew; the display mode's choice changes them all.
_LIMITS: list[tuple[str, str, str, Optional[float]]] = [
    ("functions", "encodeFourScenesAndParseThemBack", "encode four scenes, parse them back", 20),
    ("window", "chooseAPadsNumber/alone", "choose a pad's number, 45 titles rewritten", 0.3),
    ("window", "chooseWhatThePictureShows/alone", "choose what is shown, 45 new titles", 0.3),
    ("window", "chooseAPadsNumber/andDraw", "choose a pad's number, and draw it", None),
    ("window", "chooseWhatThePictureShows/andDraw", "choose what is shown, and draw it", None),
]


def runs(
    program: Path, *arguments: str, environment: Optional[dict[str, str]] = None
) -> list[dict]:
    """Every single run of a benchmark program; an error of one is an error of all."""
    command = [str(program), "--benchmark_format=json", *arguments]
    done = subprocess.run(
        command, env=environment or dict(os.environ), stdout=subprocess.PIPE,
        stderr=subprocess.DEVNULL, check=True, text=True,
    )
    found = [r for r in json.loads(done.stdout)["benchmarks"] if r["run_type"] == "iteration"]
    errors = [f"{r['name']}: {r['error_message']}" for r in found if r.get("error_occurred")]
    if errors:
        raise RuntimeError("; ".join(errors))
    return found


def by_name(found: list[dict]) -> dict[str, list[dict]]:
    groups: dict[str, list[dict]] = defaultdict(list)
    for run in found:
        groups[run["run_name"].split("/iterations:")[0]].append(run)
    return groups


def measure(programs: Path) -> list[Row]:
    """The median of several repeats, in processor time, which other work on the machine hardly
    lengthens."""
    measured = {}
    for program in ("functions", "window"):
        groups = by_name(runs(programs / f"speed-{program}", *_OPTIONS))
        for name, repeats in groups.items():
            time = statistics.median(run["cpu_time"] for run in repeats)
            measured[program, name] = (time, repeats[0]["time_unit"])
    rows = []
    for program, name, what, limit in _LIMITS:
        time, unit = measured[program, name]
        rows.append(Row(what, time, limit, unit))
    return rows

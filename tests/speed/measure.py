"""Measures the programs of a build: measure.py BUILD [PART...]

Prints a table of what was measured against its limit, and exits 1 when a limit is missed. The parts
are functions, transfers, show, start, burst and growth; without any, all. The table stays in
BUILD/speed/table.txt.
"""

import os
import platform
import re
import sys
from pathlib import Path
from typing import Callable

import functions
import growth
import programs
from rows import Row, missed, table

_PARTS: dict[str, Callable[[Path], list[Row]]] = {
    "functions": functions.measure,
    "transfers": programs.measure_transfers,
    "show": programs.measure_show,
    "start": programs.measure_start,
    "burst": programs.measure_burst,
    "growth": growth.measure,
}


def machine() -> str:
    information = Path("/proc/cpuinfo").read_text(encoding="utf-8")
    model = re.search(r"model name\s*: (.*)", information)
    name = model.group(1) if model else platform.machine()
    return f"{os.cpu_count()} x {name}, Linux {platform.release()}"


def load() -> str:
    return "load in the last minute, before and after: {:.2f}".format(os.getloadavg()[0])


def main(build: str, *parts: str) -> int:
    unknown = set(parts) - set(_PARTS)
    if unknown:
        print(f"no such part: {', '.join(sorted(unknown))}", file=sys.stderr)
        return 2
    folder = Path(build).resolve()
    heading = f"{machine()}\n{load()}"
    rows: list[Row] = []
    for part in parts or _PARTS:
        print(f"measuring {part} ...", file=sys.stderr)
        rows += _PARTS[part](folder / "bin")
    told = f"{heading}, {os.getloadavg()[0]:.2f}\n\n{table(rows)}"
    (folder / "speed").mkdir(exist_ok=True)
    (folder / "speed/table.txt").write_text(told + "\n", encoding="utf-8")
    print(told)
    count = len(missed(rows))
    print(f"{count} limits missed" if count else "every limit kept")
    return 1 if count else 0


if __name__ == "__main__":
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    sys.exit(main(*sys.argv[1:]))

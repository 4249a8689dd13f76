"""How the time of each reader grows with the size of what it reads.

growth.py PROGRAM judges it by few sizes and wide limits, for a machine that is busy and a build
that is not optimised; exit 1 when a limit is missed.
"""

import copy
import math
import os
import plistlib
import subprocess
import sys
import tempfile
from dataclasses import dataclass
from pathlib import Path

from functions import by_name, runs
from rows import Row, missed, table

ROOT = Path(__file__).resolve().parents[2]

# The run of the program, and its name in the table.
READERS = {
    "readList/xml": "property lists, XML",
    "readList/binary": "property lists, binary",
    "readBank": "JSON banks",
    "compare": "differences",
}
_JUDGED_FROM = 60  # scenes; below it the caches hold everything


@dataclass(frozen=True)
class Point:
    scenes: int
    bytes: float
    milliseconds: float


Curve = list[Point]


def write_lists(folder: Path, sizes: list[int]) -> None:
    """Arrays of so many default scenes, in both forms that a property list has."""
    scene = plistlib.loads((ROOT / "resources/default.plist").read_bytes())
    for size in sizes:
        scenes = [copy.deepcopy(scene) for _ in range(size)]
        for form, name in ((plistlib.FMT_XML, "xml"), (plistlib.FMT_BINARY, "binary")):
            (folder / f"{size}.{name}.plist").write_bytes(plistlib.dumps(scenes, fmt=form))


def list_sizes(program: Path) -> list[int]:
    command = [str(program), "--benchmark_list_tests"]
    names = subprocess.run(command, capture_output=True, text=True, check=True).stdout.split()
    return sorted({int(name.split("/")[-1]) for name in names if name.startswith("readList/")})


def judged(curve: Curve) -> Curve:
    return [point for point in curve if point.scenes >= _JUDGED_FROM]


def slope(curve: Curve) -> float:
    """Of the line through the points on logarithmic axes: 1 is linear, 2 quadratic."""
    points = [(math.log(p.bytes), math.log(p.milliseconds)) for p in judged(curve)]
    mean_x = sum(x for x, _ in points) / len(points)
    mean_y = sum(y for _, y in points) / len(points)
    rise = sum((x - mean_x) * (y - mean_y) for x, y in points)
    return rise / sum((x - mean_x) ** 2 for x, _ in points)


def stretch(curve: Curve) -> float:
    """How much more a byte of the largest costs than one of the middle of the judged sizes."""
    costs = [point.milliseconds / point.bytes for point in judged(curve)]
    return costs[-1] / costs[len(costs) // 2]


def curves(program: Path, repeats: int, most: int) -> dict[str, Curve]:
    """The least of several repeats of each size, in processor time."""
    found: dict[str, Curve] = {name: [] for name in READERS}
    with tempfile.TemporaryDirectory() as folder:
        write_lists(Path(folder), [size for size in list_sizes(program) if size <= most])
        environment = {**os.environ, "SCENEWRIGHT_SPEED_LISTS": folder}
        names = "|".join(str(size) for size in range(1, most + 1))
        arguments = [
            f"--benchmark_repetitions={repeats}",
            "--benchmark_min_time=0.02",
            "--benchmark_enable_random_interleaving=true",
            f"--benchmark_filter=/({names})$",
        ]
        for name, group in by_name(runs(program, *arguments, environment=environment)).items():
            reader, scenes = name.rsplit("/", 1)
            least = min(run["cpu_time"] for run in group)
            found[reader].append(Point(int(scenes), group[0]["bytes"], least))
    return {name: sorted(curve, key=lambda p: p.scenes) for name, curve in found.items()}


def rows_of(found: dict[str, Curve], most_slope: float, most_stretch: float) -> list[Row]:
    rows = []
    for name, curve in found.items():
        largest = curve[-1]
        what = READERS[name]
        rows.append(Row(f"{what}: {largest.scenes} scenes", largest.milliseconds, None, "ms"))
        rows.append(Row(f"{what}: growth, 1 is linear", slope(curve), most_slope))
        rows.append(Row(f"{what}: a byte, largest to middle", stretch(curve), most_stretch))
    return rows


def measure(programs: Path) -> list[Row]:
    found = curves(programs / "speed-growth", repeats=5, most=1000)
    return rows_of(found, most_slope=1.1, most_stretch=1.5)


def main(program: str) -> int:
    rows = rows_of(curves(Path(program), repeats=3, most=250), most_slope=1.3, most_stretch=2)
    print(table(rows), end="")
    return 1 if missed(rows) else 0


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    sys.exit(main(sys.argv[1]))

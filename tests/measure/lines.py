"""Builds the preset `coverage`, runs the core and editor cases, and tells which lines of model/,
protocol/, usb/ and editor/ no case came to. Each of them needs a reason in coverage-reasons.txt.

The exit code is 1 when a folder has less than 97 per cent of its lines covered, when a line that is
not covered has no reason, or when a reason has no such line any more.
"""

import argparse
import functools
import json
import os
import re
import subprocess
from collections import Counter, defaultdict
from collections.abc import Iterable, Iterator
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

import reasons
from copy_of_tree import treat_signals_as_usual

ROOT = Path(__file__).resolve().parent.parent.parent
REASONS = Path(__file__).resolve().parent / "coverage-reasons.txt"
BUILD = ROOT / "build" / "coverage"
FOLDERS = ("model", "protocol", "usb", "editor")
LEAST_SHARE = 0.97

# Brackets alone are no line of code. What gcc puts there is the way out of an exception.
_BRACKETS = re.compile(r"[\s(){}\[\];,]*")

# Of each file, from the root, how often each line ran; of all translation units together.
Counts = dict[str, Counter[int]]


def measure(root: Path, build: Path) -> None:
    """Builds, forgets what earlier runs counted, and runs the cases."""
    subprocess.run([root / "packaging" / "build-preset", "coverage"], check=True)
    for counted in build.rglob("*.gcda"):
        counted.unlink()
    processors = str(len(os.sched_getaffinity(0)))
    command = ["ctest", "--test-dir", str(build), "--parallel", processors]
    subprocess.run([*command, "--output-on-failure", "-L", "^(core|editor)$"], check=True)


def gcov(notes: Path) -> dict:
    """What gcov says of one translation unit."""
    command = ["gcov", "--json-format", "--stdout", str(notes)]
    done = subprocess.run(command, capture_output=True, check=True, cwd=notes.parent)
    return json.loads(done.stdout)


def add(counts: Counts, unit: dict, root: Path) -> None:
    for file in unit["files"]:
        path = Path(os.path.normpath(Path(unit["current_working_directory"], file["file"])))
        if path.is_relative_to(root) and path.relative_to(root).parts[0] in FOLDERS:
            text = _text(path)
            counted = counts[path.relative_to(root).as_posix()]
            for line in file["lines"]:
                if not _BRACKETS.fullmatch(text[line["line_number"] - 1]):
                    counted[line["line_number"]] += line["count"]


@functools.lru_cache(maxsize=None)
def _text(path: Path) -> list[str]:
    return path.read_text(encoding="utf-8").splitlines()


def gather(root: Path, build: Path) -> Counts:
    counts: Counts = defaultdict(Counter)
    notes = sorted(build.rglob("*.gcno"))
    with ThreadPoolExecutor(len(os.sched_getaffinity(0))) as pool:
        for unit in pool.map(gcov, notes):
            add(counts, unit, root)
    return counts


def uncovered(counts: Counts) -> dict[str, list[int]]:
    found = {path: sorted(n for n in lines if lines[n] == 0) for path, lines in counts.items()}
    return {path: lines for path, lines in sorted(found.items()) if lines}


def share_of(counts: Counts, folder: str) -> tuple[int, int]:
    """(lines, those of them that were covered) of a folder with all below it."""
    lines = [n for path in counts if path.startswith(f"{folder}/") for n in counts[path].values()]
    return len(lines), sum(count > 0 for count in lines)


def table(counts: Counts) -> Iterator[str]:
    yield f"{'':10}   lines covered   share"
    for folder in FOLDERS:
        lines, covered = share_of(counts, folder)
        yield f"{folder:10} {lines:7} {covered:7} {covered / max(lines, 1):7.1%}"


def excused(path: str, lines: list[str], listed: Iterable[reasons.Entry]) -> set[int]:
    """The numbers, from 1, of the lines of a file that a listed reason speaks of."""
    found = (reasons.spans(lines, entry.before) for entry in listed if entry.path == path)
    return {row + 1 for places in found for place in places for row in place}


def faults(counts: Counts, listed: list[reasons.Entry], root: Path) -> Iterator[str]:
    for folder in FOLDERS:
        lines, covered = share_of(counts, folder)
        if covered < LEAST_SHARE * lines or not lines:
            yield f"{folder}: less than {LEAST_SHARE:.0%} of its {lines} lines are covered"
    missed = uncovered(counts)
    for path, numbers in missed.items():
        text = (root / path).read_text(encoding="utf-8").splitlines()
        known = excused(path, text, listed)
        for number in numbers:
            if number not in known:
                yield f"{path}:{number}: not covered, no reason: {text[number - 1].strip()}"
    yield from outdated(missed, listed, root)


def outdated(
    missed: dict[str, list[int]], listed: list[reasons.Entry], root: Path
) -> Iterator[str]:
    """The reasons that speak of no line that is not covered."""
    for entry in listed:
        file = root / entry.path
        text = file.read_text(encoding="utf-8").splitlines() if file.is_file() else []
        if not excused(entry.path, text, [entry]) & set(missed.get(entry.path, [])):
            yield f"{entry.path}: a reason is listed, but it is covered or gone: {entry.before[0]}"


def main() -> int:
    parser = argparse.ArgumentParser(prog="tests/coverage", description=__doc__)
    parser.add_argument("--again", action="store_true", help="count what the last run left behind")
    given = parser.parse_args()
    treat_signals_as_usual()
    if not given.again:
        measure(ROOT, BUILD)
    counts = gather(ROOT, BUILD)
    for path, numbers in uncovered(counts).items():
        text = (ROOT / path).read_text(encoding="utf-8").splitlines()
        for number in numbers:
            print(f"{path}:{number}: {text[number - 1].strip()}")
    found = list(faults(counts, reasons.load(REASONS), ROOT))
    print("\n".join(["", *table(counts), *found]))
    return 1 if found else 0

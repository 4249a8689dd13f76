"""Builds the preset `coverage`, runs the core and editor cases, and tells which lines of model/,
protocol/, usb/ and editor/ no case came to, as gcovr counts them over all translation units. Each
needs a reason in coverage-reasons.txt.

The exit code is 1 when a folder has less than 97 per cent of its lines covered, when a line that is
not covered has no reason, or when a reason has no such line any more.
"""

import argparse
import json
import os
import subprocess
from collections.abc import Iterator
from pathlib import Path

import reasons
from copy_of_tree import treat_signals_as_usual

ROOT = Path(__file__).resolve().parent.parent.parent
REASONS = Path(__file__).resolve().parent / "coverage-reasons.txt"
BUILD = ROOT / "build" / "coverage"
FOLDERS = ("model", "protocol", "usb", "editor")
LEAST_SHARE = 0.97

# Brackets alone are no line of code: what gcc puts there is the way out of an exception.
_BRACKETS = r"[\s(){}\[\];,]*$"

# Of each file, from the root, how often each line ran.
Counts = dict[str, dict[int, int]]


def measure() -> None:
    """Builds, forgets what earlier runs counted, and runs the cases."""
    subprocess.run([ROOT / "packaging" / "build-preset", "coverage"], check=True)
    for counted in BUILD.rglob("*.gcda"):
        counted.unlink()
    processors = str(len(os.sched_getaffinity(0)))
    command = ["ctest", "--test-dir", str(BUILD), "--parallel", processors]
    # A case that lets a program write no file keeps its counts from it too, which is not for its user.
    told = os.environ | {"GCOV_ERROR_FILE": str(BUILD / "uncounted")}
    labels = ["--output-on-failure", "-L", "^(core|editor)$"]
    subprocess.run([*command, *labels], check=True, env=told)


def gather(root: Path, build: Path) -> Counts:
    command = ["gcovr", "--root", str(root), "--exclude-lines-by-pattern", _BRACKETS, "--json", "-"]
    command += ["-j", str(len(os.sched_getaffinity(0))), "--object-directory", str(build)]
    for folder in FOLDERS:
        command += ["--filter", f"{root}/{folder}/"]
    told = subprocess.run([*command, str(build)], check=True, capture_output=True, text=True).stdout
    return {
        file["file"]: {
            line["line_number"]: line["count"]
            for line in file["lines"]
            if not line.get("gcovr/noncode") and not line.get("gcovr/excluded")
        }
        for file in json.loads(told)["files"]
    }


def table(counts: Counts) -> Iterator[tuple[str, int, int]]:
    """(folder, its lines with those of the folders below it, how many of them were covered)"""
    for folder in FOLDERS:
        lines = [n for path in counts if path.startswith(f"{folder}/") for n in counts[path].values()]
        yield folder, len(lines), sum(count > 0 for count in lines)


def faults(counts: Counts, listed: list[reasons.Entry], root: Path) -> Iterator[str]:
    for folder, lines, covered in table(counts):
        if covered < LEAST_SHARE * lines or not lines:
            yield f"{folder}: less than {LEAST_SHARE:.0%} of its {lines} lines are covered"
    used = set()
    for path in sorted(counts):
        text = (root / path).read_text(encoding="utf-8").splitlines()
        known = {
            row + 1: entry
            for entry in listed
            if entry.path == path
            for place in reasons.spans(text, entry.before)
            for row in place
        }
        for number in sorted(n for n, count in counts[path].items() if count == 0):
            used.add(known.get(number))
            if number not in known:
                yield f"{path}:{number}: not covered, no reason: {text[number - 1].strip()}"
    for entry in listed:
        if entry not in used:
            yield f"{entry.path}: a reason is listed, but it is covered or gone: {entry.before[0]}"


def main() -> int:
    parser = argparse.ArgumentParser(prog="tests/coverage", description=__doc__)
    parser.add_argument("--again", action="store_true", help="count what the last run left behind")
    given = parser.parse_args()
    treat_signals_as_usual()
    if not given.again:
        measure()
    counts = gather(ROOT, BUILD)
    found = list(faults(counts, reasons.load(REASONS), ROOT))
    told = "\n".join(
        [
            f"{folder:10} {lines:7} lines, {covered:7} covered, {covered / max(lines, 1):7.1%}"
            for folder, lines, covered in table(counts)
        ]
        + found
    )
    (BUILD / "table.txt").write_text(told + "\n", encoding="utf-8")
    print(told)
    return 1 if found else 0

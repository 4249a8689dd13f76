"""Plants mutants one at a time, runs the suites that cover them, and tells how many were caught.

What came out is kept in build/mutate/results.jsonl, so that a run that was cut off goes on where it
was. A result holds for the source file as it was then; a changed file is tried again.
"""

import argparse
import hashlib
import json
import re
import signal
import sys
import time
from collections import Counter
from collections.abc import Iterator
from dataclasses import asdict, dataclass
from pathlib import Path

import mutants
import reasons
from copy_of_tree import CopyOfTree, Ended, own_tests, treat_signals_as_usual
from mutants import Mutant

ROOT = Path(__file__).resolve().parent.parent.parent
REASONS = Path(__file__).resolve().parent / "mutation-reasons.txt"

LEAST_MUTANTS = 200
LEAST_SHARE = 0.95

# The test programs that cover a group, nearest first: only a mutant that one lets through costs the
# time of the next.
SUITES = {
    "model": ["model", "editor", "protocol", "bank", "app"],
    "protocol": ["protocol"],
    "usb": ["usb", "libusb", "shutdown", "protocol"],
    "editor": ["editor"],
    "editor/qt": ["editor-qt", "editor-qt-files"],
}

# What the compiler says of a mutant that a check of ours at compile time refuses. Any other refusal
# tells that the mutant was no C++, and it does not count.
_REFUSED = re.compile(r"static assertion failed|constant expression|consteval|array subscript value")
_FAILED = re.compile(r"^\[  FAILED  \] ([\w/]+\.[\w/]+)", re.MULTILINE)

CAUGHT = ("test", "time-out", "compiler")


@dataclass
class Result:
    path: str
    line: int
    kind: str
    before: list[str]
    after: list[str]
    copy: int
    digest: str  # of the source file
    outcome: str  # one of CAUGHT, or "survived", or "broken": no C++
    by: str = ""
    seconds: float = 0

    def key(self) -> tuple[object, ...]:
        return self.path, tuple(self.before), tuple(self.after), self.copy

    def group(self) -> str:
        return mutants.group_of(self.path)


class Campaign:
    def __init__(self, copy: CopyOfTree, kept: Path):
        self.copy = copy
        self.kept = kept
        self.results: dict[tuple[object, ...], Result] = {}
        self.limits: dict[str, float] = {}
        if kept.is_file():
            for line in kept.read_text(encoding="utf-8").splitlines():
                result = Result(**json.loads(line))
                self.results[result.key()] = result

    def known(self, mutant: Mutant) -> Result | None:
        result = self.results.get((mutant.path, mutant.before, mutant.after, mutant.copy))
        return result if result and result.digest == digest(self.copy.tree / mutant.path) else None

    def keep(self, result: Result) -> None:
        self.results[result.key()] = result
        with open(self.kept, "a", encoding="utf-8") as file:
            file.write(json.dumps(asdict(result), ensure_ascii=False) + "\n")

    def forget_survivors(self) -> None:
        self.results = {k: r for k, r in self.results.items() if r.outcome != "survived"}
        lines = [json.dumps(asdict(r), ensure_ascii=False) + "\n" for r in self.results.values()]
        self.kept.write_text("".join(lines), encoding="utf-8")

    def limit(self, suite: str) -> float:
        """The seconds that a suite may take: many times what it takes with no mutant about. A suite
        that does not pass then could not tell a mutant."""
        if suite not in self.limits:
            made = self.copy.make(suite)
            if made.code != 0:
                raise SystemExit(f"{suite} does not build without a mutant:\n{made.output[-3000:]}")
            start = time.monotonic()
            # Twice, as a mutant is: on a busy machine, a test may fail for want of time.
            if self.copy.test(suite, "*", 600).code != 0:
                ended = self.copy.test(suite, "*", 600)
                if ended.code != 0:
                    raise SystemExit(f"{suite} fails without a mutant:\n{ended.output[-3000:]}")
            self.limits[suite] = 20 + 6 * (time.monotonic() - start)
        return self.limits[suite]

    def runs(self, path: str) -> Iterator[tuple[str, str]]:
        """(test program, filter): the file's own tests first, then the suites of its group."""
        suites = [f"{name}-tests" for name in SUITES[mutants.group_of(path)]]
        own = own_tests(self.copy.tree, path)
        if own and own[0] in suites:
            yield own
            suites.sort(key=lambda suite: suite != own[0])
        for suite in suites:
            yield suite, "*"

    def verdict(self, path: str) -> tuple[str, str]:
        """(outcome, by what) for the copy as it is now."""
        made = ""
        for suite, cases in self.runs(path):
            limit = self.limits[suite]
            if suite != made:
                build = self.copy.make(suite)
                if build.code != 0:
                    return ("compiler", first_error(build)) if refused(build) else ("broken", "")
                made = suite
            ended = self.copy.test(suite, cases, limit)
            if ended.code is None:
                return "time-out", suite
            failed = _FAILED.search(ended.output)
            # Once may be chance: on a busy machine, a test may fail for want of time.
            again = failed.group(1) if failed else cases
            if ended.code != 0 and self.copy.test(suite, again, limit).code != 0:
                return "test", f"{suite} {failed.group(1) if failed else 'crashed'}"
        return "survived", ""

    def attempt(self, mutant: Mutant) -> Result:
        file = self.copy.tree / mutant.path
        text = file.read_text(encoding="utf-8")
        for suite, _ in self.runs(mutant.path):
            self.limit(suite)
        start = time.monotonic()
        try:
            file.write_text(mutants.planted(text, mutant), encoding="utf-8")
            outcome, by = self.verdict(mutant.path)
        finally:
            file.write_text(text, encoding="utf-8")
        fields = {**asdict(mutant), "before": list(mutant.before), "after": list(mutant.after)}
        seconds = round(time.monotonic() - start, 1)
        return Result(**fields, digest=digest(file), outcome=outcome, by=by, seconds=seconds)

    def take(self, waiting: list[Mutant], wanted: int) -> Iterator[Result]:
        """Goes through mutants in their order until `wanted` of them count. Those that wait are
        tried file by file, since each change of file is a compilation more."""
        done: list[Result] = []
        while waiting and len(done) < wanted:
            batch = waiting[: wanted - len(done)]
            waiting = waiting[len(batch) :]
            for mutant in sorted(batch, key=lambda one: one.path):
                result = self.known(mutant)
                if result is None:
                    result = self.attempt(mutant)
                    self.keep(result)
                    print(told(result), flush=True)
                if result.outcome != "broken":
                    done.append(result)
        return iter(done)


def digest(file: Path) -> str:
    return hashlib.sha256(file.read_bytes()).hexdigest()[:16]


def refused(build: Ended) -> bool:
    return _REFUSED.search(build.output) is not None


def first_error(build: Ended) -> str:
    return next((line for line in build.output.splitlines() if "error: " in line), "")[-160:]


def told(result: Result) -> str:
    """A result as a person reads it."""
    head = f"{result.outcome:9} {result.path}:{result.line} ({result.kind}) {result.by}".rstrip()
    before = [f"    - {line.strip()}" for line in result.before]
    after = [f"    + {line.strip()}" for line in result.after]
    return "\n".join([head, *before, *after] if result.outcome == "survived" else [head])


def table(results: list[Result]) -> list[str]:
    outcomes = ["test", "time-out", "compiler", "survived"]
    lines = [f"{'':10} mutants" + "".join(f"{name:>10}" for name in outcomes) + "    caught"]
    for group in [*mutants.GROUPS, "all"]:
        found = [r.outcome for r in results if group in (r.group(), "all")]
        if found:
            counts = Counter(found)
            share = sum(counts[name] for name in CAUGHT) / len(found)
            cells = "".join(f"{counts[name]:10}" for name in outcomes)
            lines.append(f"{group:10} {len(found):7}{cells}{share:10.1%}")
    return lines


def without_reason(survivors: list[Result], listed: list[reasons.Entry]) -> list[Result]:
    known = {(entry.path, entry.before, entry.after) for entry in listed}
    return [
        result
        for result in survivors
        if (
            result.path,
            tuple(line.strip() for line in result.before),
            tuple(line.strip() for line in result.after),
        )
        not in known
    ]


def faults(results: list[Result], listed: list[reasons.Entry], root: Path) -> Iterator[str]:
    """What keeps the whole from being good."""
    survivors = [result for result in results if result.outcome == "survived"]
    if len(results) < LEAST_MUTANTS:
        yield f"only {len(results)} mutants were tried; {LEAST_MUTANTS} are the least"
    if len(survivors) > (1 - LEAST_SHARE) * len(results):
        yield f"fewer than {LEAST_SHARE:.0%} of the mutants were caught"
    for result in without_reason(survivors, listed):
        yield f"survived, and no reason is listed:\n{told(result)}"
    for entry in reasons.outdated(listed, root):
        yield f"{entry.path} no longer holds a line with a listed reason: {entry.before[0]}"


def arguments() -> argparse.Namespace:
    parser = argparse.ArgumentParser(prog="tests/mutate", description=__doc__)
    parser.add_argument("--seed", type=int, default=1, help="of the choice (%(default)s)")
    parser.add_argument("--count", type=int, default=210, help="of mutants (%(default)s)")
    parser.add_argument("--group", choices=mutants.GROUPS, help="only this one")
    parser.add_argument("--retry", action="store_true", help="try the survivors again")
    parser.add_argument("--list", action="store_true", help="print what is chosen, try nothing")
    parser.add_argument("--keep", action="store_true", help="keep the copy and its build")
    return parser.parse_args()


def print_choice(seed: int, shares: dict[str, int]) -> None:
    chosen = mutants.order(ROOT, seed)
    for group, share in shares.items():
        for mutant in chosen[group][:share]:
            print(told(Result(**asdict(mutant), digest="", outcome="survived")))


def main() -> int:
    # Ended from outside, it puts the source file back and ends what it started.
    treat_signals_as_usual()
    signal.signal(signal.SIGTERM, lambda number, _: sys.exit(128 + number))
    given = arguments()
    shares = mutants.shares(given.count)
    groups = [given.group] if given.group else list(mutants.GROUPS)
    if given.list:
        print_choice(given.seed, {group: shares[group] for group in groups})
        return 0
    place = ROOT / "build" / "mutate"
    copy = CopyOfTree(ROOT, place)
    place.mkdir(parents=True, exist_ok=True)
    campaign = Campaign(copy, place / "results.jsonl")
    if given.retry:
        campaign.forget_survivors()
    copy.refresh()
    copy.configure()
    # From here on all is about the copy: the sources may change meanwhile.
    chosen = mutants.order(copy.tree, given.seed)
    results: list[Result] = []
    for group in groups:
        results += campaign.take(chosen[group], shares[group])
    if not given.keep:
        copy.remove()
    found = list(faults(results, reasons.load(REASONS), ROOT))
    told = "\n".join([f"seed {given.seed}", *table(results), *found])
    (place / "table.txt").write_text(told + "\n", encoding="utf-8")
    print(f"\n{told}")
    return 1 if found else 0

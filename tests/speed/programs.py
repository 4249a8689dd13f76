"""How long whole programs take, each as its users start it."""

import ctypes
import os
import re
import statistics
import subprocess
import tempfile
import time
from contextlib import contextmanager
from dataclasses import dataclass
from pathlib import Path
from typing import Iterator

from rows import Row

_TRANSFERS = 7  # runs of each transfer, of which the quickest counts
_SHOWS = 40
_STARTS = 25
_PACKET = 0.001  # seconds that each packet must take
_PAUSES = 1000
_PR_SET_TIMERSLACK = 29  # of the kernel's prctl

Command = list[str]


@dataclass(frozen=True)
class Taken:
    wall: float  # seconds
    processor: float  # seconds, of the program and the kernel for it


def start(command: Command, environment: dict[str, str]) -> Taken:
    """Runs a program to its end, its output thrown away; a failure ends the measuring."""
    actions = [
        (os.POSIX_SPAWN_OPEN, 1, os.devnull, os.O_WRONLY, 0),
        (os.POSIX_SPAWN_OPEN, 2, os.devnull, os.O_WRONLY, 0),
    ]
    begin = time.perf_counter()
    process = os.posix_spawn(command[0], command, environment, file_actions=actions)
    _, status, usage = os.wait4(process, 0)
    wall = time.perf_counter() - begin
    if status != 0:
        raise RuntimeError(f"{' '.join(command)}: ended with {os.waitstatus_to_exitcode(status)}")
    return Taken(wall, usage.ru_utime + usage.ru_stime)


def quiet(folder: Path) -> dict[str, str]:
    """An environment without the user's own settings and language."""
    names = ("PATH", "DISPLAY", "LD_LIBRARY_PATH")
    kept = {name: os.environ[name] for name in names if name in os.environ}
    return {**kept, "HOME": str(folder), "LC_ALL": "C.UTF-8"}


class Transfers:
    """Reads and sends on the virtual controller."""

    def __init__(self, cli: Path, folder: Path) -> None:
        self.cli = str(cli)
        self.folder = folder
        self.environment = quiet(folder)
        self.bank = str(folder / "some.bank")
        self.streams = ["--console", str(folder / "console"), "--log", str(folder / "log")]

    def run(self, verb: str, options: Command) -> Taken:
        return start([self.cli, "--virtual", *options, verb, self.bank], self.environment)

    def packets(self, verb: str) -> int:
        self.run(verb, self.streams)
        console = (self.folder / "console").read_text(encoding="utf-8", errors="replace")
        return len(re.findall(r"Wrote 4 bytes to bulk endpoint", console))

    def rows(self, verb: str) -> list[Row]:
        floor = self.packets(verb) * _PACKET
        off = [self.run(verb, []) for _ in range(_TRANSFERS)]
        written = [self.run(verb, self.streams) for _ in range(_TRANSFERS)]
        share = statistics.median(taken.processor / taken.wall for taken in off)
        ratio, slower = (min(taken.wall for taken in runs) / floor for runs in (off, written))
        return [
            Row(f"{verb}, streams off: time to packets times 1 ms", ratio, 1.06),
            Row(f"{verb}, both streams to files: the same", slower, 1.10),
            Row(f"{verb}, streams off: share of a processor", share, 0.10),
        ]


def _bare_pauses() -> float:
    """What the machine makes of pauses alone: the time that many take to the time they ask for."""
    system = ctypes.CDLL(None)
    system.prctl(_PR_SET_TIMERSLACK, 1)
    taken = []
    for _ in range(_TRANSFERS):
        begin = time.perf_counter()
        for _ in range(_PAUSES):
            time.sleep(_PACKET)
        taken.append(time.perf_counter() - begin)
    system.prctl(_PR_SET_TIMERSLACK, 0)  # the usual one again, which programs started here inherit
    return min(taken) / (_PAUSES * _PACKET)


def measure_transfers(binaries: Path) -> list[Row]:
    with tempfile.TemporaryDirectory() as folder:
        transfers = Transfers(binaries / "scenewright-cli", Path(folder))
        pauses = Row("pauses of 1 ms and nothing else: time to 1 ms each", _bare_pauses(), None)
        return [pauses, *transfers.rows("read"), *transfers.rows("send")]


def _own_files(program: Path) -> list[Path]:
    """The program, its resources, and the libraries that it loads."""
    loaded = subprocess.run(["ldd", str(program)], capture_output=True, text=True, check=True)
    libraries = [Path(name) for name in re.findall(r"=> (/\S+)", loaded.stdout)]
    resources = program.parent.parent / "share/scenewright"
    return [program, *libraries, *resources.glob("*.plist")]


def _forget(files: list[Path]) -> None:
    """Takes files out of memory, as far as no other program holds them there."""
    for file in files:
        descriptor = os.open(file, os.O_RDONLY)
        os.posix_fadvise(descriptor, 0, 0, os.POSIX_FADV_DONTNEED)
        os.close(descriptor)


def measure_show(binaries: Path) -> list[Row]:
    """Each a new process. Once with its files in memory, once with them taken out before."""
    cli = binaries / "scenewright-cli"
    rows = []
    with tempfile.TemporaryDirectory() as folder:
        environment = quiet(Path(folder))
        for name in ("some.bank", "some.json"):
            bank = str(Path(folder) / name)
            start([str(cli), "default", bank], environment)
            command = [str(cli), "show", bank]
            files = [*_own_files(cli), Path(bank)]
            warm, cold = [], []
            for _ in range(_SHOWS):
                warm.append(start(command, environment).wall * 1e3)
                _forget(files)
                cold.append(start(command, environment).wall * 1e3)
            form = "image" if name.endswith(".bank") else "JSON"
            for times, how in ((warm, "files in memory"), (cold, "files from the disk")):
                what = f"show a bank ({form}), a new process, {how}"
                rows.append(Row(what, statistics.median(times), 15, "ms"))
    return rows


@contextmanager
def display() -> Iterator[str]:
    """A display of its own, which the programs under test find."""
    size = ["-screen", "0", "1280x800x24"]
    command = ["Xvfb", "-displayfd", "1", *size, "-noreset", "-nolisten", "tcp"]
    with subprocess.Popen(
        command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True
    ) as server:
        assert server.stdout is not None
        name = f":{server.stdout.readline().strip()}"
        try:
            yield name
        finally:
            server.terminate()


@dataclass(frozen=True)
class Start:
    milliseconds: float
    peak: float  # MiB
    processor: float  # milliseconds


def _first_paint(watcher: Path, program: Command, environment: dict[str, str]) -> Start:
    command = [str(watcher), *program]
    done = subprocess.run(command, env=environment, capture_output=True, text=True, check=False)
    if done.returncode != 0:
        raise RuntimeError(f"{' '.join(command)}: {done.stderr}")
    milliseconds, peak, processor = done.stdout.split()
    return Start(float(milliseconds), float(peak) / 1024, float(processor))


def _median(starts: list[Start]) -> Start:
    fields = ("milliseconds", "peak", "processor")
    return Start(*(statistics.median(getattr(one, name) for one in starts) for name in fields))


def measure_start(binaries: Path) -> list[Row]:
    """The editor against a window with one word, in turn, on one display; medians."""
    programs = {
        "one word": [str(binaries / "speed-one-word-window")],
        "editor": [str(binaries / "scenewright"), "--virtual"],
    }
    starts: dict[str, list[Start]] = {name: [] for name in programs}
    with tempfile.TemporaryDirectory() as folder, display() as name:
        environment = {**quiet(Path(folder)), "DISPLAY": name}
        for _ in range(_STARTS):
            for which, program in programs.items():
                taken = _first_paint(binaries / "speed-first-paint", program, environment)
                starts[which].append(taken)
    word, editor = (_median(starts[name]) for name in programs)
    return [
        Row("a window with one word: start to first paint", word.milliseconds, None, "ms"),
        Row("the editor: start to first paint", editor.milliseconds, None, "ms"),
        Row("the editor to it, time", editor.milliseconds / word.milliseconds, None),
        Row("the editor to it, processor time", editor.processor / word.processor, 3),
        Row("the editor above it, memory", editor.peak - word.peak, 15, "MiB"),
    ]


def measure_burst(binaries: Path) -> list[Row]:
    """3,000 messages a second for ten seconds in the editor's monitor, on a display of its own."""
    with tempfile.TemporaryDirectory() as folder, display() as name:
        environment = {**quiet(Path(folder)), "DISPLAY": name}
        command = [str(binaries / "speed-monitor-burst")]
        done = subprocess.run(command, env=environment, capture_output=True, text=True, check=True)
    longest, work, lost, share = (float(word) for word in done.stdout.split())
    burst = "30,000 messages in ten seconds"
    return [
        Row(f"{burst}: the longest that they block the window", longest, 50, "ms"),
        Row(f"{burst}: the same, processor time", work, 50, "ms"),
        Row(f"{burst}: not shown by the monitor", lost, 0),
        Row(f"{burst}: share of a processor", share, None),
    ]

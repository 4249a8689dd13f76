"""Runs a program of which one system call fails, or at one of which it is killed.

A preloaded object (SweepPreload.cpp) holds one thread back until strace is attached to it alone, so
that neither the dynamic loader's calls nor another thread's are counted.
"""

import os
import re
import signal
import socket
import struct
import subprocess
import sys
import time
from collections import Counter
from dataclasses import dataclass, field
from pathlib import Path

from sweep_place import Places
from sweep_subjects import make_files

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tests/support"))

from preload import loadable  # noqa: E402  pylint: disable=wrong-import-position

PATIENCE = 60  # seconds, after which a program counts as hung

# Each call, and the errors that it fails with.
ERRORS = {
    "openat": ("EMFILE", "EACCES", "EIO", "EOPNOTSUPP"),
    "read": ("EIO", "EINTR"),
    "pread64": ("EIO",),
    "write": ("ENOSPC", "EIO", "EINTR"),
    "pwrite64": ("ENOSPC",),
    "rename": ("EIO", "ENOSPC"),
    "renameat": ("EIO",),
    "renameat2": ("EIO",),
    "linkat": ("EIO", "EEXIST"),
    "fsync": ("EIO", "ENOSPC"),
    "close": ("EIO", "EINTR"),
    "newfstatat": ("EIO", "EACCES"),
    "fchmod": ("EPERM",),
    "fchown": ("EPERM",),
    "ftruncate": ("EIO",),
    "flock": ("ENOLCK",),
    "mkdir": ("ENOSPC", "EACCES"),
    "unlink": ("EIO",),
    "getdents64": ("EIO",),
    "clone3": ("EAGAIN",),
    "poll": ("EINTR", "ENOMEM"),
    "signalfd4": ("EMFILE",),
    "ioctl": ("EIO",),
    "mmap": ("ENOMEM",),
}
# The calls that change a file or settle it on the disk, and those between them.
FILE_CALLS = (
    *("openat", "write", "pwrite64", "rename", "renameat", "renameat2", "linkat", "fsync"),
    *("close", "fchmod", "fchown", "ftruncate", "flock", "mkdir", "unlink", "newfstatat"),
)
# What is not tried, by the reason why it cannot be right or wrong.
EVENTS = "calls on event descriptors, whose numbers are in memory: the kernel has no such errors"
left_out = Counter()
EVENT_DESCRIPTOR = "<anon_inode:[eventfd]>"
# Some calls have another name, or none, on some processors.
TRACED = ",".join(f"?{call}" for call in ERRORS)


def preload_of(programs):
    """Released programs have no test's object beside them: then that of the build with tests."""
    own = programs / "libsweep-preload.so"
    return loadable(own if own.exists() else ROOT / "build/dev/bin" / own.name)


@dataclass
class Ended:
    """What became of a run."""

    code: int = 0  # negative: the signal that ended it
    out: bytes = b""
    err: str = ""
    is_hung: bool = False
    is_struck: bool = True
    trace: list = field(default_factory=list)


def attach(thread, trace, options):
    """strace, once it holds the thread. Nothing when the thread is gone."""
    tracer = subprocess.Popen(
        ["strace", "-qq", "-y", "-o", trace, *options, "-p", str(thread)],
        stdin=subprocess.DEVNULL,
        stderr=subprocess.DEVNULL,
    )
    while tracer.poll() is None:
        try:
            with open(f"/proc/{thread}/status", encoding="ascii") as status:
                if "TracerPid:\t0\n" not in status.read():
                    return tracer
        except FileNotFoundError:
            break
        time.sleep(0.001)
    tracer.kill()
    tracer.wait()
    return None


class Gate:
    """The end of the socket over which a held thread tells its number and is let go."""

    def __init__(self):
        self.ours, self.theirs = socket.socketpair()

    def variables(self, thread):
        return {"SWEEP_GATE": f"{self.theirs.fileno()}:{thread}", "SWEEP_NO_PAUSES": "1"}

    def start(self, place, command, environment, **streams):
        """The program, which has the other end."""
        process = subprocess.Popen(
            command, cwd=place.files, env=environment, pass_fds=[self.theirs.fileno()], **streams
        )
        self.theirs.close()
        return process

    def held(self):
        """The thread that waits; none when the program ended before there was one."""
        self.ours.settimeout(PATIENCE)
        try:
            return struct.unpack("i", self.ours.recv(4))[0]
        except (struct.error, TimeoutError):
            return None

    def trace(self, place, options):
        """strace at the thread that waits, which goes on then."""
        held = self.held()
        place.stream("trace").write_text("")
        if not held:
            return None
        tracer = attach(held, place.stream("trace"), options)
        self.ours.send(b"x")
        return tracer

    def close(self):
        self.ours.close()


class Sweep(Places):
    """Fails calls of some subjects, {name: what they are}; a kind of them is a class of its own."""

    not_tried = ("kills", "allocations")  # of the kinds of failures

    def __init__(self, programs, folder, options, subjects):
        super().__init__(folder)
        if options.only in self.not_tried:
            subjects = {}
        self.programs = programs
        self.preload = preload_of(programs)
        self.workers = len(os.sched_getaffinity(0))
        chosen = options.subjects or subjects
        self.subjects = {name: subjects[name] for name in subjects if name in chosen}
        self.undisturbed = {}
        self.is_used = bool(self.subjects) and not options.list
        if self.is_used:
            folder.mkdir(exist_ok=True)
            make_files(self.template, programs)

    def close(self):
        pass


def gated(place, preload, command, thread, options, **more):
    """Runs the command with strace at one thread of it; `options` are strace's."""
    gate = Gate()
    environment = place.environment(LD_PRELOAD=preload, **gate.variables(thread), **more)
    with place.streams() as streams:
        process = gate.start(place, command, environment, **streams)
    tracer = gate.trace(place, options)
    ended = wait(process)
    if tracer:
        tracer.wait()
    gate.close()
    return read_back(place, ended)


def wait(process, limit=PATIENCE):
    try:
        return Ended(process.wait(limit))
    except subprocess.TimeoutExpired:
        process.kill()
        process.wait()
        return Ended(-signal.SIGKILL, is_hung=True)


def read_back(place, ended):
    ended.out = place.stream("out").read_bytes()
    ended.err = place.stream("err").read_text(errors="replace")
    trace = place.stream("trace")
    ended.trace = trace.read_text(errors="replace").splitlines() if trace.exists() else []
    ended.is_struck = is_struck(ended.trace) or ended.code < 0
    return ended


def is_struck(trace):
    """Whether a call failed that can. On a busy machine the calls may come in another order than when
    they were counted, and the failure meet that of an event descriptor."""
    return any("(INJECTED)" in line and EVENT_DESCRIPTOR not in line for line in trace)


def plain(command, place, **more):
    """The command as a user runs it, but for the variables in `more`."""
    with place.streams() as streams:
        ended = wait(
            subprocess.Popen(command, cwd=place.files, env=place.environment(**more), **streams)
        )
    place.stream("trace").unlink(missing_ok=True)
    return read_back(place, ended)


def by_number(trace, main):
    """The calls of each thread, {name: [line]}; first those of the thread `main`, then those of the
    others as they were made."""
    threads = {thread: {} for thread in (main, *threads_made(trace))}
    for line in trace:
        call = re.match(r"(\d+) +(\w+)\(", line)
        if call and int(call[1]) in threads:
            threads[int(call[1])].setdefault(call[2], []).append(line)
    return list(threads.values())


def jobs_of(make, subject, thread, calls, writes):
    """What could fail of these calls; and be killed, where files are written."""
    found = []
    for call, lines in calls.items():
        for error in (*ERRORS.get(call, ()), *(["kill"] if writes and call in FILE_CALLS else [])):
            for number, line in enumerate(lines, 1):
                if EVENT_DESCRIPTOR in line:
                    left_out[EVENTS] += 1
                else:
                    found.append(make(subject, thread, call, error, number))
    return found


def strike(job):
    """strace's options for the job."""
    how = "signal=KILL" if job.error == "kill" else f"error={job.error}"
    return [
        *("-e", f"trace={job.call}"),
        *("-e", f"inject={job.call}:{how}:when={job.number}"),
    ]


def threads_made(trace):
    """The threads in the order in which they were made."""
    made = []
    for line in trace:
        ended = re.match(r"\d+ +(?:<\.\.\. clone3 resumed>|clone3\().*= (\d+)$", line)
        if ended:
            made.append(int(ended[1]))
    return made


class Server:
    """Copies of one program, made before its main(), of which one allocation each fails."""

    def __init__(self, place, preload, command):
        self.place = place
        self.ours, theirs = socket.socketpair()
        self.process = subprocess.Popen(
            command,
            cwd=place.files,
            env=place.environment(
                LD_PRELOAD=preload,
                SWEEP_NO_PAUSES="1",
                SWEEP_SERVE=f"{theirs.fileno()}:{place.folder}",
                SWEEP_COUNT=str(place.made / "count"),
                SWEEP_CALLER=str(place.made / "caller"),
            ),
            stdin=subprocess.DEVNULL,
            pass_fds=[theirs.fileno()],
        )
        theirs.close()

    def run(self, number):
        self.ours.settimeout(PATIENCE)
        self.ours.send(struct.pack("Q", number))
        copy = struct.unpack("i", self.ours.recv(4))[0]
        is_hung = False
        try:
            status = self.ours.recv(4)
        except TimeoutError:
            is_hung = True
            subprocess.run(["kill", "-KILL", str(copy)], check=False)
            status = self.ours.recv(4)
        status = struct.unpack("i", status)[0]
        code = status >> 8 if status & 0x7F == 0 else -(status & 0x7F)
        self.place.stream("trace").unlink(missing_ok=True)
        ended = read_back(self.place, Ended(code, is_hung=is_hung))
        ended.is_struck = True
        return ended

    def allocations(self):
        """How many the last copy made."""
        return int((self.place.made / "count").read_text())

    def caller(self):
        """The object whose allocation failed last."""
        return Path((self.place.made / "caller").read_text()).name

    def close(self):
        self.ours.close()
        self.process.wait()

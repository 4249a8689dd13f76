"""Standard streams and limits in which each command is run."""

import os
import pty
import resource
from contextlib import contextmanager

NOBODY = 65534


def lost_terminal():
    """A terminal whose other side is gone."""
    master, terminal = pty.openpty()
    os.close(master)
    return terminal


def unread_pipe():
    reader, writer = os.pipe()
    os.close(reader)
    return writer


def full():
    return os.open("/dev/full", os.O_RDWR)


# By name: which descriptors, and what opens what stands there; nothing closes it.
STREAMS = {
    f"{name}-{kind}": ((descriptor,), make)
    for descriptor, name in enumerate(("input", "output", "errors"))
    for kind, make in (
        ("closed", None),
        ("full", full),
        ("unread", unread_pipe),
        ("terminal-gone", lost_terminal),
    )
    if not (descriptor == 0 and kind == "unread")
}
STREAMS |= {
    "all-closed": ((0, 1, 2), None),
    "all-full": ((0, 1, 2), full),
    "all-terminal-gone": ((0, 1, 2), lost_terminal),
}

MIB = 1 << 20
LIMITS = {
    **{f"files-{number}": (resource.RLIMIT_NOFILE, number) for number in (3, 4, 5, 6, 7, 8, 12)},
    **{f"size-{number}": (resource.RLIMIT_FSIZE, number) for number in (0, 1, 500, 2000)},
    **{f"memory-{number}": (resource.RLIMIT_AS, number * MIB) for number in (8, 16, 24, 32, 64)},
    **{f"processes-{number}": (resource.RLIMIT_NPROC, number) for number in (0, 1, 2)},
}


@contextmanager
def streams(name, usual):
    """Descriptors for 0, 1 and 2; None where there is none."""
    which, make = STREAMS[name] if name in STREAMS else ((), None)
    made = {descriptor: make() for descriptor in which if make}
    try:
        yield [
            made.get(place) if place in which else usual[place] for place in range(3)
        ], which if not make else ()
    finally:
        for descriptor in made.values():
            os.close(descriptor)


def prepare(closed, limit, user):
    """What the child does before it becomes the program."""

    def inside():
        if user is not None:
            os.setgroups([])
            os.setgid(user)
            os.setuid(user)
        for descriptor in closed:
            os.close(descriptor)
        if limit:
            resource.setrlimit(limit[0], (limit[1], limit[1]))

    return inside

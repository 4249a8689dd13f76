"""What may lie at a file argument, and which arguments of a command are files."""

import os
import shutil
import socket
from pathlib import Path

import sweep_place

TOO_LONG = 64 << 20


def replaced(path):
    path.unlink(missing_ok=True)
    return path


def socket_at(path):
    made = socket.socket(socket.AF_UNIX)
    folder = Path.cwd()
    os.chdir(path.parent)  # the name of a socket may not be long
    made.bind(path.name)
    os.chdir(folder)
    made.close()


def hard_link(path):
    if not path.exists():
        path.write_bytes(b"x")
    os.link(path, path.with_name("twin"))


def too_long(path):
    with open(replaced(path), "wb") as file:
        file.write(b" ")
        file.truncate(TOO_LONG)


def mode(path, bits, folder_bits=0o755):
    if path.exists():
        path.chmod(bits)
    path.parent.chmod(folder_bits)


# By name: what makes it, and whether the user is nobody, whom modes concern.
KINDS = {
    "missing": (lambda path: path.unlink(missing_ok=True), False),
    "missing-folder": (None, False),
    "folder": (lambda path: replaced(path).mkdir(), False),
    "fifo": (lambda path: os.mkfifo(replaced(path)), False),
    "socket": (lambda path: socket_at(replaced(path)), False),
    "loop": (lambda path: replaced(path).symlink_to(path.name), False),
    "dangling": (lambda path: replaced(path).symlink_to("nowhere"), False),
    "link-to-null": (lambda path: replaced(path).symlink_to("/dev/null"), False),
    "link-to-full": (lambda path: replaced(path).symlink_to("/dev/full"), False),
    "hard-linked": (hard_link, False),
    "empty": (lambda path: path.write_bytes(b""), False),
    "too-long": (too_long, False),
    "unreadable": (lambda path: mode(path, 0o000), True),
    "read-only": (lambda path: mode(path, 0o444), True),
    "read-only-folder": (lambda path: mode(path, 0o644, 0o555), True),
    "sticky-folder": (lambda path: mode(path, 0o644, 0o1777), True),
}


def file_arguments(subject):
    """The places of a command's arguments that name a file, with the file."""
    for place, word in enumerate(subject.arguments):
        name = word.removeprefix("--virtual=")
        if Path(name).suffix in (".bank", ".json") or name == "link":
            yield place, name


def give_to(user, place, but):
    """All of the place to the user, except the folder and file that another one owns."""
    for path in [place.folder, *place.folder.rglob("*")]:
        if path not in but and not path.is_symlink():
            shutil.chown(path, user, user)


def content(path):
    """The bytes at a path, if a file is there."""
    try:
        return path.read_bytes() if path.is_file() else None
    except OSError:
        return None


def clean(place):
    """Whatever lay there gives way."""
    if place.files.exists():
        place.files.chmod(0o755)
        sweep_place.empty(place.files)
    for path in [place.folder, *place.folder.rglob("*")]:
        shutil.chown(path, os.getuid(), os.getgid())

"""Debian's stock kernel for the guest: fetched as a package, unpacked, never installed.

Everything stays in one cache folder; a second run finds it there and asks no network.
"""

import os
import re
import shutil
import subprocess
from pathlib import Path

METAPACKAGE = "linux-image-amd64"
MODULES = ("virtio_pci", "9pnet_virtio", "9p", "vhci_hcd", "snd_usb_audio", "snd_seq",
           "snd_seq_midi")
BUSYBOX = Path("/bin/busybox")
ADMIN_PATH = os.environ.get("PATH", "") + ":/usr/sbin:/sbin"


class Trouble(Exception):
    """One sentence that says why the guest cannot run."""


def run(command, **options):
    """Runs a program and gives its output; a failure is Trouble that carries what it said."""
    environment = {**os.environ, "PATH": ADMIN_PATH, "LC_ALL": "C.UTF-8"}
    try:
        result = subprocess.run(command, env=environment, text=True, check=False,
                                stdout=subprocess.PIPE, stderr=subprocess.PIPE, **options)
    except FileNotFoundError as error:
        raise Trouble(f"{command[0]} is not installed.") from error
    if result.returncode != 0:
        raise Trouble(f"{' '.join(map(str, command))} failed: {result.stderr.strip()}")
    return result.stdout


def image_package():
    """The kernel package that the metapackage stands for, such as linux-image-6.1.0-9-amd64."""
    found = re.search(r"Depends: (linux-image-\S+)", run(["apt-cache", "depends", METAPACKAGE]))
    if not found:
        raise Trouble(f"The package lists have no {METAPACKAGE}; run apt-get update.")
    return found.group(1)


def fetch(folder):
    """Downloads and unpacks the kernel package into `folder`, whole or not at all."""
    partial = folder.with_name(folder.name + ".partial")
    shutil.rmtree(partial, ignore_errors=True)
    partial.mkdir(parents=True)
    package = image_package()
    try:
        run(["apt-get", "download", package], cwd=partial)
    except Trouble:  # lists older than the archive
        run(["apt-get", "update"])
        package = image_package()
        run(["apt-get", "download", package], cwd=partial)
    (archive,) = partial.glob("*.deb")
    run(["dpkg", "-x", str(archive), str(partial / "root")])
    archive.unlink()
    partial.rename(folder)


def unpacked(cache):
    """The folder of the unpacked kernel package, and the kernel's version."""
    folder = cache / "kernel"
    if not folder.exists():
        fetch(folder)
    images = list((folder / "root" / "boot").glob("vmlinuz-*"))
    if len(images) != 1:
        raise Trouble(f"{folder} holds no kernel; remove that folder and try again.")
    return folder / "root", images[0].name.removeprefix("vmlinuz-")


def module_files(root, version):
    """The files of MODULES and of what they need, in the order in which they load."""
    run(["depmod", "-b", str(root), version])
    files = []
    for module in MODULES:
        listing = run(["modprobe", "-d", str(root), "-S", version, "--show-depends", module])
        for line in listing.splitlines():
            if line.startswith("insmod "):
                path = Path(line.removeprefix("insmod ").strip())
                if path not in files:
                    files.append(path)
    return files


def entry(number, name, mode, data):
    """One file of a cpio archive in the `newc` form."""
    name_bytes = name.encode() + b"\0"
    fields = (number, mode, 0, 0, 1, 0, len(data), 0, 0, 0, 0, len(name_bytes), 0)
    record = b"070701" + b"".join(b"%08x" % field for field in fields) + name_bytes
    record += b"\0" * (-len(record) % 4)
    return record + data + b"\0" * (-len(data) % 4)


def archive(files):
    """A cpio archive of (name, mode, bytes), folders made as they are named."""
    records = [entry(number, *item) for number, item in enumerate(files, 1)]
    return b"".join(records) + entry(0, "TRAILER!!!", 0, b"")


def initramfs(modules, init, settings):
    """The first root of the guest: busybox, the modules in their order, what to start."""
    if not BUSYBOX.exists():
        raise Trouble(f"{BUSYBOX} is missing; install busybox-static.")
    files = [(name, 0o040755, b"") for name in ("bin", "modules", "host", "proc", "sys", "dev")]
    files.append(("bin/busybox", 0o100755, BUSYBOX.read_bytes()))
    files.append(("init", 0o100755, init.read_bytes()))
    files.append(("settings", 0o100644, settings.encode()))
    for number, module in enumerate(modules):
        files.append((f"modules/{number:02}-{module.name}", 0o100644, module.read_bytes()))
    return archive(files)

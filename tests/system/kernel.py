"""Debian's stock kernel for the guest: fetched as a package, unpacked, never installed.

Everything stays in one cache folder; a second run finds it there and asks no network.
"""

import os
import re
import shutil
import subprocess
import tempfile
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
    # Newer packages say where the modules are by the name that the folder has since /usr was merged,
    # and rely on a link that belongs to another package.
    if not (folder / "root" / "lib").exists():
        (folder / "root" / "lib").symlink_to("usr/lib")
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


def initramfs(modules, init, settings):
    """The first root of the guest: busybox, the modules in their order, what to start."""
    if not BUSYBOX.exists():
        raise Trouble(f"{BUSYBOX} is missing; install busybox-static.")
    with tempfile.TemporaryDirectory() as folder:
        root = Path(folder)
        for name in ("bin", "modules", "host", "proc", "sys", "dev"):
            (root / name).mkdir()
        shutil.copy(BUSYBOX, root / "bin")
        shutil.copy(init, root / "init")
        (root / "settings").write_text(settings)
        for number, module in enumerate(modules):
            shutil.copy(module, root / "modules" / f"{number:02}-{module.name}")
        names = sorted(str(path.relative_to(root)) for path in root.rglob("*"))
        command = [BUSYBOX, "cpio", "-o", "-H", "newc", "-R", "0:0"]
        return subprocess.run(command, cwd=root, input="\n".join(names).encode(), check=True,
                              stdout=subprocess.PIPE, stderr=subprocess.DEVNULL).stdout

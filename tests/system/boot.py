"""Boots the guest once, lets it run its cases, and keeps what each one said in a results file.

    boot.py SOURCE BUILD CACHE RESULTS [LIST]

LIST is one of guest.py's, `whole` unless it is given.

The results file has one JSON object a line: {"case", "ok", "seconds", "log", "notes"}. It is the only
output that counts: a case without a line has failed, whatever the reason. A boot that ran any case
has succeeded, even if it was ended before the last one. While working on a case,
SCENEWRIGHT_GUEST_CASES in the environment names those to run. SCENEWRIGHT_SOAK is the number of
rounds of the soak and the seed that it draws them from.
"""

import os
import random
import shlex
import subprocess
import sys
import time
from pathlib import Path

import guest
import kernel

CASES = "SCENEWRIGHT_GUEST_CASES"  # names with blanks between; empty for all
SOAK = "SCENEWRIGHT_SOAK"
PLAIN_ROUNDS = 20
LIMIT_SECONDS = 1740  # less than ctest allows a case
ROUND_SECONDS = 30  # at most, of the soak's, beyond the plain number
MEMORY_MIB = 1024
# The processor's own counter is measured while the kernel starts: on a busy machine so badly that the
# guest's clock ran twenty times too fast, and every limit with it. This one has a fixed rate.
CLOCK = "clocksource=acpi_pm tsc=unstable no_timer_check"


def soak():
    """The number of rounds, and the seed: a new one unless it is given."""
    rounds, seed, *_ = [*os.environ.get(SOAK, "").split(), "", ""]
    return int(rounds or PLAIN_ROUNDS), int(seed or random.randrange(1_000_000))


def settings(source, build, names, rounds, seed):
    """What the guest's init reads: shell assignments."""
    values = {"SOURCE": source, "BUILD": build, "PYTHON": "/usr/bin/python3",
              "CASES": os.environ.get(CASES) or " ".join(names), "SOAK": f"{rounds} {seed}"}
    return "".join(f"{name}={shlex.quote(str(value))}\n" for name, value in values.items())


def quoted(path):
    """A path inside a QEMU option list, where a comma is doubled."""
    return str(path).replace(",", ",,")


def command(image, initrd, console, results):
    """The QEMU command line; the guest's two serial ports are the console and the results."""
    return ["qemu-system-x86_64", "-nodefaults", "-no-user-config", "-display", "none",
            "-no-reboot", "-accel", "tcg,thread=multi", "-cpu", "max", "-smp", "1",
            "-m", str(MEMORY_MIB), "-kernel", str(image), "-initrd", str(initrd),
            "-append", f"console=ttyS0 panic=-1 quiet mitigations=off {CLOCK}",
            "-chardev", f"file,id=console,path={quoted(console)}", "-serial", "chardev:console",
            "-chardev", f"file,id=results,path={quoted(results)}", "-serial", "chardev:results",
            "-virtfs",
            "local,path=/,mount_tag=host,security_model=none,readonly=on,multidevs=remap"]


def boot(arguments, limit):
    """Runs QEMU until the guest powers itself off, or `limit` seconds have passed."""
    try:
        machine = subprocess.Popen(arguments, stdin=subprocess.DEVNULL)
    except FileNotFoundError:
        raise kernel.Trouble(f"{arguments[0]} is not installed.") from None
    try:
        machine.wait(limit)
    except subprocess.TimeoutExpired:
        raise kernel.Trouble(f"The guest did not end within {limit} s.") from None
    finally:
        machine.kill()
        machine.wait()
    if machine.returncode != 0:
        raise kernel.Trouble(f"QEMU ended with {machine.returncode}.")


def tail(file):
    """The end of a text file, nothing of one that is missing."""
    return file.read_text(errors="replace")[-20000:] if file.exists() else ""


def main(source, build, cache, results, names):
    folder = Path(results).parent
    folder.mkdir(parents=True, exist_ok=True)
    console, initrd = folder / "console.log", folder / "initramfs"
    for old in (console, Path(results)):
        old.unlink(missing_ok=True)
    root, version = kernel.unpacked(Path(cache))
    modules = kernel.module_files(root, version)
    init = Path(__file__).with_name("init")
    rounds, seed = soak()
    given = settings(source, build, names, rounds, seed)
    initrd.write_bytes(kernel.initramfs(modules, init, given))
    image = root / "boot" / f"vmlinuz-{version}"
    begin = time.monotonic()
    try:
        boot(command(image, initrd, console, Path(results)),
             LIMIT_SECONDS + ROUND_SECONDS * max(0, rounds - PLAIN_ROUNDS))
    except kernel.Trouble as trouble:
        print(tail(console), trouble, sep="\n")
    count = Path(results).read_bytes().count(b"\n") if Path(results).exists() else 0
    print(f"{count} cases in {time.monotonic() - begin:.0f} s; console in {console}")
    if count == 0:
        raise kernel.Trouble(f"{tail(console)}\nNo case ran.")


if __name__ == "__main__":
    try:
        main(*map(os.path.abspath, sys.argv[1:5]), guest.names_of(*sys.argv[5:]))
    except kernel.Trouble as trouble:
        sys.exit(str(trouble))

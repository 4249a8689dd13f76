"""Device > Keyboards > Allow, in the window of a user who may not open the keyboard, with the system's
own polkit. What the window says is read as a screen reader reads it."""

import contextlib
import os
import shutil
import subprocess
import sys
from pathlib import Path

from cases_editor import EDITOR, Window
from cases_trouble import NOBODY, check_untouched, grants_seat, install_for_everybody
from rig import PATIENCE, check_equal, wait_for
from sweep_editor import ScreenReader

POLKIT = "org.freedesktop.PolicyKit1"
RULES = Path("/etc/udev/rules.d/70-scenewright.rules")
AGENT = Path(__file__).with_name("polkit_agent.py")
REFUSED = "The rules were not installed: polkit did not allow it, or cannot ask for a password here."
DISMISSED = "The rules were not installed: the question for a password was closed."
INSTALLED = "The rules are installed."


def start_polkit(rig):
    """The system's bus and polkit, which the guest has not; and a folder for rules that can be written."""
    subprocess.run(["mount", "-t", "tmpfs", "tmpfs", RULES.parent], check=True)
    Path("/run/dbus").mkdir(exist_ok=True)
    rig.start("dbus-daemon", "--system", "--nofork", "--nopidfile")
    wait_for("the system's bus", Path("/run/dbus/system_bus_socket").exists)
    rig.start(polkit_daemon(), stdout=subprocess.DEVNULL)
    wait_for("polkit", lambda: rig.run("gdbus", "wait", "--system", "--timeout", "10", POLKIT)[0] == 0)


def polkit_daemon():
    places = ("/usr/libexec/polkitd", "/usr/lib/polkit-1/polkitd")
    return next(place for place in places if Path(place).exists())


@contextlib.contextmanager
def agent(window, answer):
    """Who answers polkit's questions about the window's doings."""
    command = [sys.executable, AGENT, str(window.program.pid), answer]
    with subprocess.Popen(command, stdout=subprocess.PIPE, text=True) as program:
        check_equal(program.stdout.readline(), "ready\n", "agent")
        try:
            yield
        finally:
            program.kill()


class Reader(ScreenReader):
    """All that the second window says, to the user whose session it is: to nobody else the bus talks."""

    def __init__(self, address):
        os.seteuid(NOBODY["user"])
        try:
            super().__init__(address)
        finally:
            os.seteuid(0)

    def texts(self):
        with contextlib.suppress(self.error, IndexError):  # a window that comes or goes
            application = self.children("org.a11y.atspi.Registry", self.ROOT)[0]
            return list(self.texts_in(*self.children(*application)[1]))
        return []

    def texts_in(self, name, path):
        yield self.name(name, path)
        for part in self.children(name, path):
            yield from self.texts_in(*part)


def check_says(reader, part):
    wait_for(f"{part!r} in the window", lambda: any(part in text for text in reader.texts()))


def case_user_without_permission_is_allowed_through_polkit(rig):
    start_polkit(rig)
    keyboard = rig.plug()
    install_for_everybody(rig)
    program = shutil.copy2(EDITOR, rig.file("bin"))
    bus = rig.start("dbus-daemon", "--session", "--nofork", "--print-address",
                    stdout=subprocess.PIPE, env={**os.environ, "XDG_RUNTIME_DIR": str(rig.folder)},
                    **NOBODY)
    address = bus.stdout.readline().strip()
    window = Window(rig, program=program, account=NOBODY, DBUS_SESSION_BUS_ADDRESS=address,
                    QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")
    reader = Reader(address)
    for keys in ("alt+d", "k"):  # of the menu Device, Keyboards
        window.key(keys)
    check_says(reader, "You have no permission")
    window.key("alt+a")
    check_says(reader, REFUSED)
    with agent(window, "dismiss"):
        window.key("alt+a")
        check_says(reader, DISMISSED)
    assert not RULES.exists(), "rules were installed that nobody allowed"
    with agent(window, "confirm"):
        window.key("alt+a")
        check_says(reader, INSTALLED)
    assert grants_seat(RULES.read_text(), keyboard), RULES.read_text()
    check_equal((RULES.stat().st_uid, RULES.stat().st_mode & 0o777), (0, 0o644), "owner and mode")
    window.program.terminate()
    window.program.wait(PATIENCE)
    reader.close()
    check_untouched(keyboard)

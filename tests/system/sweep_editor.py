"""The sweep of the editor: it reads, sends and saves by keys, on displays of its own.

A call fails after the window has come: strace takes hold of one thread just before the keys. What the
editor says is read as a screen reader reads it, over the accessibility bus.
"""

import os
import subprocess
import threading
import time
from dataclasses import dataclass

import sweep_judge
import sweep_run
import sweep_state
from sweep_commands import Job

PART = 12
PATIENCE = 20  # seconds for what comes in one when nothing fails
SILENCE = 3  # seconds without a word, after which nothing more is expected
MOST = 40  # failures of one call of one thread; the toolkit makes thousands
KEPT = 20  # earlier scenes
ALERTS = ("alert", "alert message", "notification")  # what the toolkit's versions call it
SHOWING = 25  # the bit of a state, as the accessibility bus numbers them
TITLE = "Virtual controller"


@dataclass
class Action:
    keys: list
    log: str  # the line that tells the end, where there is one
    file: str = ""  # that it makes anew or changes
    sends: str = ""  # the file that holds what the window sends


ACTIONS = {
    "editor-read": Action([("key", "ctrl+r")], "Read Scene Data Finish"),
    # The scenes that a new window has are sent over others only if the user says so.
    "editor-send": Action(
        [("key", "ctrl+Return"), ("window", "Send Scenes"), ("key", "alt+s")],
        "\nFinish\n",
        "held.bank",
        "real.bank",
    ),
    "editor-save": Action(
        [("key", "ctrl+s"), ("window", "Save Bank"), ("type", "{files}/saved.bank"), ("key", "Return")],
        "",
        "saved.bank",
    ),
}


class Display:
    """A display with a window manager and a session bus of its own."""

    def __init__(self, folder):
        self.processes = []
        folder.mkdir()
        server = self.start(
            ["Xvfb", "-displayfd", "1", "-screen", "0", "1280x800x24", "-nolisten", "tcp"]
        )
        self.variables = {"DISPLAY": f":{server.stdout.readline().strip()}"}
        bus = self.start(["dbus-daemon", "--session", "--nofork", "--print-address"])
        self.bus = bus.stdout.readline().strip()
        self.variables |= {
            "DBUS_SESSION_BUS_ADDRESS": self.bus,
            "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1",
        }
        self.start(["openbox"])
        self.screen_reader = ScreenReader(self.bus)

    def start(self, command):
        process = subprocess.Popen(
            command,
            env={**os.environ, **getattr(self, "variables", {})},
            stdin=subprocess.DEVNULL,
            stdout=subprocess.PIPE,
            stderr=subprocess.DEVNULL,
            text=True,
        )
        self.processes.append(process)
        return process

    def do(self, *words):
        done = subprocess.run(
            ["xdotool", *map(str, words)],
            env={**os.environ, **self.variables},
            capture_output=True,
            text=True,
            timeout=PATIENCE,
            check=False,
        )
        return done.stdout

    def close(self):
        self.screen_reader.close()
        for process in reversed(self.processes):
            process.terminate()
            process.wait()


class ScreenReader:
    ACCESSIBLE = "org.a11y.atspi.Accessible"
    ROOT = "/org/a11y/atspi/accessible/root"

    def __init__(self, bus, limit=5000):  # milliseconds for an answer
        from gi.repository import Gio, GLib  # only the editor's sweep needs them

        self.limit = limit
        self.text = lambda *words: GLib.Variant(f"({'s' * len(words)})", words)
        self.error = GLib.Error
        flags = Gio.DBusConnectionFlags
        self.connect = lambda address: Gio.DBusConnection.new_for_address_sync(
            address, flags.AUTHENTICATION_CLIENT | flags.MESSAGE_BUS_CONNECTION, None, None
        )
        self.session = self.connect(bus)
        found = self.call(self.session, "org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus.GetAddress")
        self.bus = self.connect(found[0])

    def call(self, bus, name, path, member, words=None):
        interface, _, method = member.rpartition(".")
        return bus.call_sync(name, path, interface, method, words, None, 0, self.limit, None).unpack()

    def children(self, name, path):
        return self.call(self.bus, name, path, f"{self.ACCESSIBLE}.GetChildren")[0]

    def name(self, name, path):
        words = self.text(self.ACCESSIBLE, "Name")
        return self.call(self.bus, name, path, "org.freedesktop.DBus.Properties.Get", words)[0]

    def shows(self, name, path):
        states = self.call(self.bus, name, path, f"{self.ACCESSIBLE}.GetState")[0]
        return bool(states[0] >> SHOWING & 1)

    def notice(self):
        """The text of the notice that a window shows; of a second window, what it is called."""
        try:
            for application in self.children("org.a11y.atspi.Registry", self.ROOT):
                for number, window in enumerate(self.children(*application)):
                    if number and self.shows(*window):
                        return self.name(*window) or "a window without a name"
                    if text := self.notice_in(*window):
                        return text
        except self.error:  # a window that goes
            pass
        return ""

    def role(self, name, path):
        return self.call(self.bus, name, path, f"{self.ACCESSIBLE}.GetRoleName")[0]

    def notice_in(self, name, path, depth=3):
        """An alert among the parts of a window, which stand in an area that can be scrolled."""
        for part in self.children(name, path):
            if self.role(*part) in ALERTS:
                return self.name(*part) if self.shows(*part) else ""
            if depth and (text := self.notice_in(*part, depth - 1)):
                return text
        return ""

    def close(self):
        for bus in (self.bus, self.session):
            if not bus.is_closed():
                bus.close_sync(None)


def make_earlier(home, image):
    """As many earlier scenes as are kept, each with a name of its own in its first scene."""
    folder = home / ".local/state/scenewright/backups"
    folder.mkdir(parents=True)
    for number in range(KEPT):
        bank = bytes([ord("A") + number]) + image[1:]
        (folder / f"scenes-20260101T0000{number:02}.000Z.bank").write_bytes(bank)


DISPLAY = "waiting for the display: the toolkit ends the program, which has no window any more"


def is_display(job, line):
    if job.call == "poll" and job.error == "ENOMEM" and "<socket:[" in line:
        sweep_run.left_out[DISPLAY] += 1
        return True
    return False


class Sweep(sweep_run.Sweep):
    def __init__(self, programs, folder, options):
        super().__init__(programs, folder / "editor", options, ACTIONS)
        self.program = str(programs / "scenewright")
        self.home = self.folder / "home"
        self.displays = []
        if self.is_used:
            image = (self.template / "b.bank").read_bytes()
            (self.template / "held.bank").write_bytes(image)
            make_earlier(self.home, image)

    def begin_worker(self, number):
        self.local.display = Display(self.folder / f"display{number}")
        self.displays.append(self.local.display)

    def jobs(self):
        found = []
        for name in self.subjects:
            place = self.place()
            place.prepare()
            before = place.contents()
            ended, end, notice = self.session(name, 0, ["-f", "-e", sweep_run.TRACED])
            after = place.contents()
            if ended.code != 0 or end != "done":
                raise RuntimeError(f"{name}: {ended.code} {end} {ended.err}")
            sends = self.sent(self.subjects[name], before)
            self.undisturbed[name] = sweep_judge.Undisturbed(0, notice, before, after, sends)
            if found_there := self.state_faults(self.undisturbed[name], after, None):
                raise RuntimeError(f"{name}: {found_there}")
            for thread, calls in enumerate(sweep_run.by_number(ended.trace, ended.process)):
                for call, lines in calls.items():
                    jobs = sweep_run.jobs_of(Job, name, thread, {call: lines}, before != after)
                    jobs = [job for job in jobs if not is_display(job, lines[job.number - 1])]
                    found += jobs[:: max(1, len(jobs) // MOST)]
        return found

    @staticmethod
    def sent(action, before):
        """What the entry of its send names."""
        if not action.sends:
            return None
        sent, held = (before[f"files/{name}"][2] for name in (action.sends, action.file))
        return sweep_state.Sent(sent, held)

    def session(self, name, thread, options):
        """The editor opens, its tracer takes hold of a thread, the keys come. How it ended, what
        was seen of that, and the notice at the end."""
        place, display, action = self.place(), self.local.display, self.subjects[name]
        log, armed = place.made / "log", place.made / "armed"
        log.write_text("")
        armed.unlink(missing_ok=True)
        gate = sweep_run.Gate()
        variables = {**display.variables, "SWEEP_ARMED": str(armed), "LD_PRELOAD": self.preload}
        variables |= gate.variables(thread or 9999)
        command = [self.program, "--virtual=held.bank", "--log", str(log)]
        with place.streams() as streams:
            process = gate.start(place, command, place.environment(**variables), **streams)
        self.await_window(process)
        armed.touch()
        place.stream("trace").write_text("")
        tracers = []
        if thread:
            hold = threading.Thread(
                target=lambda: tracers.append(gate.trace(place, options)), daemon=True
            )
            hold.start()
        else:
            tracers.append(sweep_run.attach(process.pid, place.stream("trace"), options))
        patience = SILENCE if thread else PATIENCE  # what does not fail comes, however late
        self.press(process, action, patience)
        end = self.await_end(process, action, patience)
        notice = "" if end == "ended" else self.local.display.screen_reader.notice()
        ended = self.quit(process)
        ended.process = process.pid
        gate.close()
        for tracer in filter(None, tracers):
            tracer.wait()
        return sweep_run.read_back(place, ended), end, notice

    def await_window(self, process, title=TITLE, patience=PATIENCE):
        limit = time.monotonic() + patience
        while process.poll() is None and time.monotonic() < limit:
            found = self.local.display.do("search", "--onlyvisible", "--name", title).split()
            if found:
                self.local.display.do("windowactivate", "--sync", found[0])
                return
            time.sleep(0.02)

    def press(self, process, action, patience):
        for kind, what in action.keys:
            if kind == "window":
                self.await_window(process, what, patience)
            else:
                self.local.display.do(kind, what.format(files=self.local.place.files))

    def await_end(self, process, action, patience):
        """done, ended or silent."""
        place = self.local.place
        log = place.made / "log"
        limit = time.monotonic() + patience
        while process.poll() is None and time.monotonic() < limit:
            if action.log and action.log in log.read_text():
                time.sleep(0.2)  # a notice comes with the end
                break
            if action.file and not action.log and (place.files / action.file).exists():
                break
            time.sleep(0.02)
        if process.poll() is not None:
            return "ended"
        return "done" if time.monotonic() < limit else "silent"

    @staticmethod
    def quit(process):
        """It still lives, unless it has ended by itself; then its user's session ends."""
        if process.poll() is not None:
            return sweep_run.Ended(process.returncode)
        process.terminate()
        ended = sweep_run.wait(process, PATIENCE)
        return ended if ended.is_hung else sweep_run.Ended(0)

    def run(self, job):
        """A busy machine may swallow a key: what is wrong is wrong twice."""
        return self.run_once(job) and self.run_once(job)

    def run_once(self, job):
        place = self.place()
        place.prepare()
        undisturbed = self.undisturbed[job.subject]
        ended, end, notice = self.session(job.subject, job.thread, sweep_run.strike(job))
        now = place.contents()
        if job.error == "kill":
            files = [self.banks(each) for each in (undisturbed.before, undisturbed.after)]
            known = sweep_judge.Undisturbed(0, b"", *files)
            found = sweep_judge.faults_when_killed(known, self.banks(now))
            return found + self.state_faults(undisturbed, now, undisturbed.sends)
        if not ended.is_struck:
            return []
        if notice == undisturbed.out:
            notice = ""  # of success, which tells no failure
        found = self.faults(undisturbed, ended, end if not notice else f"says {notice!r}", now)
        is_done = end == "done" and not found and self.banks(now) == self.banks(undisturbed.after)
        return found + self.state_faults(undisturbed, now, None if is_done else undisturbed.sends)

    @staticmethod
    def banks(contents):
        """The user's files: what the toolkit keeps of its own is no matter."""
        return {name: what for name, what in contents.items() if name.startswith("files/")}

    @staticmethod
    def state_faults(undisturbed, now, sends):
        """`sends` is what may not have ended."""
        return [
            *sweep_judge.earlier_faults(undisturbed.before, undisturbed.after, now),
            *sweep_state.faults(now),
            *sweep_state.entry_faults(sweep_state.parted(now)[0], sends),
        ]

    def faults(self, undisturbed, ended, end, now):
        if ended.is_hung:
            return ["hangs"]
        if ended.code < 0:
            return [f"is ended by signal {-ended.code}"]
        now, before, after = map(self.banks, (now, undisturbed.before, undisturbed.after))
        if end == "done" and now == after:
            return []
        said = sweep_judge.sentences(ended.err)
        found = []
        if not end.startswith("says") and not said:
            found.append(f"shows no notice ({end})")
        if now not in (before, after):
            found.append(f"leaves {sweep_judge.changes(now, before)}")
        return found

    def close(self):
        for display in self.displays:
            display.close()

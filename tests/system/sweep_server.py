"""The sweep of scenewright-virtual: a host sends it a bank, and it is asked to end."""

import re
import sys
import time
from collections import defaultdict
from pathlib import Path

import sweep_judge
import sweep_run
from sweep_commands import Job
from sweep_subjects import ORDERS

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "virtual/usbip"))

import usbip_client as usbip  # noqa: E402  pylint: disable=wrong-import-position

PART = 60
PROGRAM = "scenewright-virtual"
SUBJECTS = {
    "server": ["--bank", "held.bank"],
    "server-new": ["--bank", "new.bank", "--trace", "trace"],
    "server-played": ["--bank", "held.bank", "--orders"],
}
MOST = 60  # failures of one call of one thread by one error; packets are all alike


class Sweep(sweep_run.Sweep):
    def __init__(self, programs, folder, options):
        super().__init__(programs, folder / "server", options, SUBJECTS)
        self.program = str(programs / PROGRAM)
        if self.is_used:
            self.image = (self.template / "a.bank").read_bytes()

    def jobs(self):
        found = []
        for name in self.subjects:
            place = self.place()
            place.prepare()
            before = place.contents()
            ended, lost = self.session(name, 0, ["-f", "-e", sweep_run.TRACED])
            after = place.contents()
            if ended.code != 0 or lost or before == after:
                raise RuntimeError(f"{name}: {ended.code} {lost} {ended.err}")
            self.undisturbed[name] = sweep_judge.Undisturbed(
                0, sweep_judge.sentences(ended.err), before, after
            )
            found.append(Job(name, 0, "order", "none", 1))
            main = int(ended.trace[0].split()[0])
            for thread, calls in enumerate(sweep_run.by_number(ended.trace, main)):
                by_call = defaultdict(list)
                for job in sweep_run.jobs_of(Job, name, thread, calls, True):
                    by_call[job.call, job.error].append(job)
                for each in by_call.values():
                    found += each[:: -(-len(each) // MOST)]
        return found

    def session(self, name, thread, options):
        """A host sends a bank; then the server is to end. How it ended, and whether the host had
        to give up."""
        place = self.place()
        port = usbip.free_port()
        gate = sweep_run.Gate()
        environment = place.environment(LD_PRELOAD=self.preload, **gate.variables(thread))
        orders = ORDERS if "--orders" in self.subjects[name] else ""
        place.stream("in").write_text(orders)
        command = [self.program, "--listen", f"127.0.0.1:{port}", *self.subjects[name]]
        with place.streams() as streams:
            process = gate.start(place, command, environment, **streams)
        tracer = gate.trace(place, options)
        lost = self.send(port, process)
        process.terminate()
        ended = sweep_run.wait(process)
        if tracer:
            tracer.wait()
        gate.close()
        return sweep_run.read_back(place, ended), lost

    def send(self, port, process):
        """Whether the host had to give up, and why."""
        limit = time.monotonic() + sweep_run.PATIENCE
        host = None
        while not host:
            try:
                host = usbip.attached(port)
            except OSError as error:
                if process.poll() is not None or time.monotonic() > limit:
                    return str(error)
                time.sleep(0.005)
        with host:
            try:
                host.send_bank(self.image)
            except OSError as error:
                return str(error)
        return ""

    def run(self, job):
        place = self.place()
        place.prepare()
        undisturbed = self.undisturbed[job.subject]
        if job.call == "order":
            ended, _ = self.session(job.subject, 0, ["-f", "-e", sweep_run.TRACED])
            return sweep_judge.unsettled(
                [line for line in ended.trace if "files/trace>" not in line], str(place.files)
            )
        ended, lost = self.session(job.subject, job.thread, sweep_run.strike(job))
        now = place.contents()
        if job.error == "kill":
            return self.after_kill(job, undisturbed, now, place)
        if not ended.is_struck:
            return []
        return self.faults(undisturbed, ended, lost, now)

    @staticmethod
    def files(contents):
        """Without the trace, of which there may be less."""
        return {name: what for name, what in contents.items() if name != "files/trace"}

    @staticmethod
    def without_port(line):
        return re.sub(r":\d+$", "", line)

    def faults(self, undisturbed, ended, lost, now):
        if ended.is_hung:
            return ["does not end"]
        if ended.code < 0 and ended.code != -15:
            return [f"is ended by signal {-ended.code}"]
        said = sweep_judge.sentences(ended.err)
        found = list(sweep_judge.sentence_faults(PROGRAM, said))
        usual = set(map(self.without_port, undisturbed.out))
        told = [line for line in said if self.without_port(line) not in usual]
        now, before, after = (
            self.files(each) for each in (now, undisturbed.before, undisturbed.after)
        )
        if ended.code == 0 and not lost and now == after:
            return found
        if not told:
            found.append(f"says nothing, exits {ended.code}; the host: {lost or 'done'}")
        if now not in (before, after):
            found.append(f"leaves {sweep_judge.changes(now, before)}")
        return found

    def after_kill(self, job, undisturbed, now, place):
        found = sweep_judge.faults_when_killed(undisturbed, self.files(now))
        ended, lost = self.session(job.subject, 0, ["-e", "trace=none"])
        subject = sweep_judge.Subject(job.subject, [], PROGRAM, may_stay=("trace",))
        if lost:
            found.append(f"afterwards: {lost}")
        return found + sweep_judge.faults_afterwards(subject, undisturbed, ended, place.contents())

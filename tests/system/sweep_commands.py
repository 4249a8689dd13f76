"""The sweep of the command line."""

import signal
from dataclasses import dataclass, replace

import sweep_judge
import sweep_run
from sweep_subjects import SUBJECTS

PART = 400  # of the system calls, and as many of the allocations
NO_FAILURE = 2**63
TRIES = 3  # of the undisturbed run
LIBASOUND = "an allocation of libasound's, which goes on with what it has not got"
WHOLE = ("halves", "order")  # of a whole run


@dataclass(frozen=True)
class Job:
    """One failure: of the nth such call of a thread, or of the nth allocation."""

    subject: str
    thread: int  # from 0, in the order of their making
    call: str  # or "allocation", or "halves" for reads and writes that all take half
    error: str  # or "kill"
    number: int

    @property
    def name(self):
        return f"{self.subject}/{self.thread}/{self.call}/{self.error}/{self.number}"


class Sweep(sweep_run.Sweep):
    not_tried = ()

    def __init__(self, programs, folder, options):
        super().__init__(programs, folder, options, {each.name: each for each in SUBJECTS})
        self.workers *= 2
        self.only = options.only

    def begin_worker(self, number):
        self.local.server = None

    def given(self, place, subject):
        source = self.template / subject.given
        place.stream("in").write_bytes(source.read_bytes() if subject.given else b"")

    def jobs(self):
        found = []
        for subject in self.subjects.values():
            calls = self.calls_of(subject)
            if self.only in (None, "calls"):
                found += calls
            if self.only == "kills":
                found += [job for job in calls if job.error == "kill" or job.call in WHOLE]
            if self.only in (None, "allocations"):
                found += self.allocations_of(subject)
        return found

    def calls_of(self, subject):
        """The undisturbed run, remembered, and what could fail in it."""
        place = self.place()
        # On a busy machine a short program may end before its tracer has begun.
        for _ in range(TRIES):
            place.prepare()
            self.given(place, subject)
            before = place.contents()
            ended = sweep_run.gated(
                place, self.preload, subject.command(self.programs), 0, ["-f", "-e", sweep_run.TRACED]
            )
            after = place.contents()
            if ended.trace:
                break
        self.undisturbed[subject.name] = sweep_judge.Undisturbed(
            ended.code, ended.out, before, after, subject.sent(before)
        )
        if ended.code < 0 or ended.code == 2:
            raise RuntimeError(f"{subject.name}: {ended.code} {ended.err}")
        main = int(ended.trace[0].split()[0])
        jobs = [Job(subject.name, 0, "halves", "none", 1), Job(subject.name, 0, "order", "none", 1)]
        for thread, calls in enumerate(sweep_run.by_number(ended.trace, main)):
            jobs += sweep_run.jobs_of(Job, subject.name, thread, calls, before != after)
        return jobs

    def allocations_of(self, subject):
        server = self.server(subject)
        self.place().prepare()
        server.run(NO_FAILURE)
        count = server.allocations()
        return [
            Job(subject.name, 0, "allocation", "none", number) for number in range(1, count + 1)
        ]

    def server(self, subject):
        """The worker's own server of this subject's copies."""
        place = self.place()
        if self.local.server and self.local.server[0] == subject.name:
            return self.local.server[1]
        if self.local.server:
            self.local.server[1].close()
        self.given(place, subject)
        server = sweep_run.Server(place, self.preload, subject.command(self.programs))
        self.local.server = (subject.name, server)
        return server

    def run(self, job):
        subject = self.subjects[job.subject]
        undisturbed = self.undisturbed[job.subject]
        place = self.place()
        place.prepare()
        self.given(place, subject)
        if job.call == "allocation":
            ended = self.server(subject).run(job.number)
            if ended.code == -signal.SIGSEGV and "libasound" in self.server(subject).caller():
                sweep_run.left_out[LIBASOUND] += 1
                return []
            found = sweep_judge.faults(subject, undisturbed, ended, place.contents())
            return [f"(in {self.server(subject).caller()}) {fault}" for fault in found]
        elif job.call == "halves":
            ended = sweep_run.plain(
                subject.command(self.programs),
                place,
                LD_PRELOAD=self.preload,
                SWEEP_HALVES="1",
                SWEEP_NO_PAUSES="1",
            )
        elif job.call == "order":
            return self.order(subject, place)
        else:
            ended = sweep_run.gated(
                place,
                self.preload,
                subject.command(self.programs),
                job.thread,
                sweep_run.strike(job),
            )
        if not ended.is_struck and job.call not in WHOLE:
            return []
        if job.error == "kill":
            return self.after_kill(subject, undisturbed, ended, place)
        if any("close(1<" in line and "(INJECTED)" in line for line in ended.trace):
            # Standard output comes last: that it is not closed is told, and the files are written.
            undisturbed = replace(undisturbed, before=undisturbed.after)
        found = sweep_judge.faults(subject, undisturbed, ended, place.contents())
        if job.call == "halves" and ended.code != undisturbed.code:
            found.append(f"exits {ended.code} where reads and writes take half")
        if sweep_judge.is_unsafe(ended.trace, str(place.files)) and ended.code == undisturbed.code:
            found.append("keeps quiet about bytes that are not on the disk")
        return found

    def after_kill(self, subject, undisturbed, ended, place):
        now = place.contents()
        found = [] if ended.code == -9 else [f"exits {ended.code} when killed"]
        found += sweep_judge.faults_when_killed(undisturbed, now)
        again = sweep_run.plain(
            subject.command(self.programs), place, LD_PRELOAD=self.preload, SWEEP_NO_PAUSES="1"
        )
        return found + sweep_judge.faults_afterwards(subject, undisturbed, again, place.contents())

    def order(self, subject, place):
        ended = sweep_run.gated(
            place, self.preload, subject.command(self.programs), 0, ["-f", "-e", sweep_run.TRACED]
        )
        return sweep_judge.unsettled(ended.trace, str(place.files), str(place.home))

"""The sweep's own judgement: what it lets pass, and what it must not."""

import signal
import unittest

import sweep_run
from sweep_judge import (
    Subject,
    Undisturbed,
    earlier_faults,
    faults,
    faults_afterwards,
    faults_when_killed,
    is_unsafe,
    unsettled,
)

OLD, NEW, HALF = (("file", 0o644, text) for text in (b"old", b"new", b"ne"))
BEFORE = {"files/a": OLD, "files": ("folder", 0o755)}
AFTER = BEFORE | {"files/a": NEW}
LITTER = "files/.scenewright-7-0"
SUBJECT = Subject("set", [])
SENDS = Subject("send", [], may_stay=("a",))
DONE = Undisturbed(0, b"said", BEFORE, AFTER)
SENTENCE = "scenewright-cli: Cannot write a: No space left on device.\n"
CHANGED = "scene1.pad3.CR: 1 -> 9\n"

# How many faults, the subject, the exit code, the output, the errors, what lies there.
FAILURES = [
    (0, SUBJECT, 0, b"said", "", AFTER),
    (0, SUBJECT, 2, b"", SENTENCE, BEFORE),
    (0, SUBJECT, 2, b"", "\r\x1b[KSending: 3 %\r\x1b[K" + SENTENCE, BEFORE),
    (0, SENDS, 1, b"", SENTENCE, AFTER),  # what the controller took stays
    (0, SUBJECT, 0, b"said", CHANGED, AFTER),
    (0, SENDS, 1, b"", CHANGED + SENTENCE, AFTER),
    (1, SUBJECT, 2, b"", CHANGED + SENTENCE, BEFORE),  # a change that was not made
    (1, SUBJECT, 0, b"said", "", BEFORE),  # success without the work
    (1, SUBJECT, 0, b"sa", "", AFTER),
    (1, SUBJECT, -signal.SIGABRT, b"", "", BEFORE),
    (1, SUBJECT, 2, b"", "", BEFORE),  # not one sentence
    (1, SUBJECT, 2, b"", SENTENCE * 2, BEFORE),
    (1, SUBJECT, 2, b"", "Cannot write a.\n", BEFORE),
    (1, SUBJECT, 2, b"", "scenewright-cli: std::bad_alloc\n", BEFORE),
    (1, SUBJECT, 127, b"", SENTENCE, BEFORE),
    (1, SUBJECT, 2, b"", SENTENCE, AFTER),  # something is changed
    (1, SUBJECT, 2, b"", SENTENCE, BEFORE | {"files/a": ("file", 0o600, b"old")}),
    (1, SUBJECT, 2, b"", SENTENCE, BEFORE | {LITTER: OLD}),
    (1, SENDS, 1, b"", SENTENCE, BEFORE | {"files/a": HALF}),
]
KILLED = [
    (0, BEFORE),
    (0, AFTER | {LITTER: NEW}),
    (1, BEFORE | {"files/a": HALF}),
    (1, BEFORE | {LITTER: NEW, LITTER + "1": NEW}),
    (1, BEFORE | {"files/b": NEW}),
    (2, {}),
]
AFTERWARDS = [(0, 0, AFTER), (1, 0, AFTER | {LITTER: NEW}), (1, 0, BEFORE), (1, 2, AFTER)]
KEPT = [
    *((0, right) for right in (("1", "2"), ("1", "2", "3"), ("2", "3"))),
    *((1, wrong) for wrong in ((), ("2",), ("1", "3"), ("1", "2", "4"), ("3",))),
]


class Sweep(unittest.TestCase):
    def test_a_failure(self):
        for count, subject, code, out, errors, now in FAILURES:
            found = faults(subject, DONE, sweep_run.Ended(code, out, errors), now)
            self.assertEqual(len(found), count, (code, out, errors, found))
        self.assertEqual(len(faults(SUBJECT, DONE, sweep_run.Ended(-9, is_hung=True), BEFORE)), 1)

    def test_a_kill_and_the_next_run(self):
        for count, now in KILLED:
            self.assertEqual(len(faults_when_killed(DONE, now)), count, now)
        for count, code, now in AFTERWARDS:
            found = faults_afterwards(SUBJECT, DONE, sweep_run.Ended(code), now)
            self.assertEqual(len(found), count, now)

    def test_no_earlier_scenes_are_lost_unless_the_new_ones_are_kept(self):
        def kept(banks):
            return {f"home/backups/scenes-{bank}": ("file", 0o644, bank.encode()) for bank in banks}

        for count, banks in KEPT:
            self.assertEqual(len(earlier_faults(kept("12"), kept("23"), kept(banks))), count, banks)

    def test_bytes_come_before_the_name_and_the_name_before_the_end(self):
        write, flush = '7 write(3</f/.t>, "new", 3) = 3', "7 fsync(3</f/.t>) = 0"
        rename, settle = '7 rename("./.t", "a") = 0', "7 fsync(5</f>) = 0"
        self.assertEqual(unsettled([write, flush, rename, settle], "/f"), [])
        for wrong in ([write, rename, settle], [write, flush, rename],
                      [write, rename, flush, settle]):
            self.assertEqual(len(unsettled(wrong, "/f")), 1, wrong)
        failed = " = -1 EIO (Input/output error) (INJECTED)"
        self.assertTrue(is_unsafe(["fsync(3</f/#12>(deleted))" + failed], "/f"))
        self.assertFalse(is_unsafe(["fsync(3</f>)" + failed, flush], "/f"))

    def test_threads_are_told_apart_and_event_descriptors_left_alone(self):
        trace = [
            "7 recvfrom(3, 1) = 1",
            "7 clone3({flags=CLONE_VM}, 88) = 9",
            "9 openat(AT_FDCWD, 1) = 3",
            "7 write(4<anon_inode:[eventfd]>, 1) = 8",
            "9 openat(AT_FDCWD, 1 <unfinished ...>",
            "7 write(2</f>, 1) = 8",
        ]
        first, second = sweep_run.by_number(trace, 7)
        jobs = sweep_run.jobs_of(lambda *job: job, "s", 0, {"write": first["write"]}, False)
        self.assertEqual({job[4] for job in jobs}, {2})
        self.assertEqual(len(second["openat"]), 2)


if __name__ == "__main__":
    unittest.main()

"""The sweep's own judgement: what it must not let pass. The programs are scripts here."""

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

OLD, NEW = ("file", 0o644, b"old"), ("file", 0o644, b"new")
BEFORE = {"files/a": OLD, "files": ("folder", 0o755)}
AFTER = BEFORE | {"files/a": NEW}
LITTER = "files/.scenewright-7-0"
SUBJECT = Subject("set", [])
DONE = Undisturbed(0, b"said", BEFORE, AFTER)
SENTENCE = "scenewright-cli: Cannot write a: No space left on device.\n"


def ended(code=0, out=b"said", err="", **more):
    return sweep_run.Ended(code, out, err, **more)


class Failure(unittest.TestCase):
    def check(self, count, run, now, subject=SUBJECT):
        found = faults(subject, DONE, run, now)
        self.assertEqual(len(found), count, found)

    def test_done_or_told_with_everything_as_it_was_is_right(self):
        self.check(0, ended(), AFTER)
        self.check(0, ended(2, b"", SENTENCE), BEFORE)
        self.check(0, ended(2, b"", "\r\x1b[KSending: 3 %\r\x1b[K" + SENTENCE), BEFORE)

    def test_success_without_the_work(self):
        self.check(1, ended(), BEFORE)
        self.check(1, ended(out=b""), AFTER)
        self.check(1, ended(out=b"sa"), AFTER)

    def test_a_signal_and_a_hang(self):
        self.check(1, ended(-signal.SIGABRT), BEFORE)
        self.check(1, ended(-signal.SIGKILL, is_hung=True), BEFORE)

    def test_a_failure_without_one_sentence(self):
        self.check(1, ended(2, b"", ""), BEFORE)
        self.check(1, ended(2, b"", SENTENCE * 2), BEFORE)
        self.check(1, ended(2, b"", "Cannot write a.\n"), BEFORE)
        self.check(1, ended(2, b"", "scenewright-cli: std::bad_alloc\n"), BEFORE)
        self.check(1, ended(127, b"", SENTENCE), BEFORE)

    def test_a_failure_that_leaves_something_changed(self):
        self.check(1, ended(2, b"", SENTENCE), AFTER)
        self.check(1, ended(2, b"", SENTENCE), BEFORE | {"files/a": ("file", 0o644, b"n")})
        self.check(1, ended(2, b"", SENTENCE), BEFORE | {"files/a": ("file", 0o600, b"old")})
        self.check(1, ended(2, b"", SENTENCE), BEFORE | {LITTER: OLD})

    def test_what_may_stay_stays_whole(self):
        subject = Subject("send", [], may_stay=("a",))
        self.check(0, ended(1, b"", SENTENCE), AFTER, subject)
        self.check(1, ended(1, b"", SENTENCE), BEFORE | {"files/a": ("file", 0o644, b"n")}, subject)


class Kill(unittest.TestCase):
    def test_each_file_is_the_old_or_the_new_one(self):
        self.assertEqual(faults_when_killed(DONE, BEFORE), [])
        self.assertEqual(faults_when_killed(DONE, AFTER | {LITTER: NEW}), [])
        half = BEFORE | {"files/a": ("file", 0o644, b"ne")}
        self.assertEqual(len(faults_when_killed(DONE, half)), 1)
        self.assertEqual(len(faults_when_killed(DONE, {})), 2)
        twice = BEFORE | {LITTER: NEW, LITTER + "1": NEW}
        self.assertEqual(len(faults_when_killed(DONE, twice)), 1)
        self.assertEqual(len(faults_when_killed(DONE, BEFORE | {"files/b": NEW})), 1)

    def test_the_next_run_does_the_work_and_sweeps(self):
        def afterwards(run, now):
            return len(faults_afterwards(SUBJECT, DONE, run, now))

        self.assertEqual(afterwards(ended(), AFTER), 0)
        self.assertEqual(afterwards(ended(), AFTER | {LITTER: NEW}), 1)
        self.assertEqual(afterwards(ended(), BEFORE), 1)
        self.assertEqual(afterwards(ended(2), AFTER), 1)


class BackupStore(unittest.TestCase):
    @staticmethod
    def kept(*banks):
        return {f"home/backups/scenes-{bank}": ("file", 0o644, bank.encode()) for bank in banks}

    def test_none_is_lost_unless_the_new_ones_are_kept(self):
        before, after = self.kept("1", "2"), self.kept("2", "3")
        for right in (("1", "2"), ("1", "2", "3"), ("2", "3")):
            self.assertEqual(earlier_faults(before, after, self.kept(*right)), [])
        for wrong in ((), ("2",), ("1", "3"), ("1", "2", "4"), ("3",)):
            self.assertEqual(len(earlier_faults(before, after, self.kept(*wrong))), 1, wrong)


class Order(unittest.TestCase):
    WRITE = '7 write(3</f/.t>, "new", 3) = 3'
    FLUSH = "7 fsync(3</f/.t>) = 0"
    RENAME = '7 rename("./.t", "a") = 0'
    SETTLE = "7 fsync(5</f>) = 0"

    def test_bytes_come_before_the_name_and_the_name_before_the_end(self):
        right = [self.WRITE, self.FLUSH, self.RENAME, self.SETTLE]
        self.assertEqual(unsettled(right, "/f"), [])
        for missing in (self.FLUSH, self.SETTLE):
            without = [line for line in right if line != missing]
            self.assertEqual(len(unsettled(without, "/f")), 1, without)
        late = [self.WRITE, self.RENAME, self.FLUSH, self.SETTLE]
        self.assertEqual(len(unsettled(late, "/f")), 1)


    def test_a_file_that_is_not_flushed_is_unsafe_and_a_folder_is_not(self):
        failed = " = -1 EIO (Input/output error) (INJECTED)"
        self.assertTrue(is_unsafe(["fsync(3</f/#12>(deleted))" + failed], "/f"))
        self.assertFalse(is_unsafe(["fsync(3</f>)" + failed], "/f"))
        self.assertFalse(is_unsafe([self.FLUSH], "/f"))


class Counting(unittest.TestCase):
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

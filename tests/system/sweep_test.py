"""The sweep's own judgement: what it lets pass, and what it must not."""

import json
import signal
import unittest

import sweep_run
import sweep_state
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
SENT = sweep_state.Sent(b"sent", b"held")
NOTED = Undisturbed(0, b"said", BEFORE, AFTER, SENT)
SENDS_FOLDER = f"{sweep_state.FOLDER}/sends"
ENTRY = f"{SENDS_FOLDER}/send-17-4.json"
WHOLE = {
    "format": "scenewright-send",
    "version": 1,
    "begun": "17",
    "keyboard": "Keys",
    "sent": b"sent".hex(),
    "before": b"held".hex(),
    "subject": "a.bank",
    "scenes": "2",
}
TEXT = json.dumps(WHOLE).encode()


def private(content):
    return ("file", 0o600, content)


# How many faults, what a send that did not end has left, and what the program says.
ENTRIES = [
    (0, {}, SENTENCE),
    (0, {ENTRY: private(TEXT)}, SENTENCE),
    (1, {ENTRY: private(TEXT), f"{SENDS_FOLDER}/send-17-5.json": private(TEXT)}, SENTENCE),
    (1, {ENTRY: private(TEXT[:-9])}, SENTENCE),
    (1, {ENTRY: private(b"")}, SENTENCE),
    (1, {ENTRY: private(b"[]")}, SENTENCE),
    (1, {ENTRY: ("file", 0o644, TEXT)}, SENTENCE),
    *(
        (1, {ENTRY: private(json.dumps(WHOLE | {key: value}).encode())}, SENTENCE)
        for key, value in (
            *(("sent", "00"), ("before", b"sent".hex()), ("begun", "18"), ("version", 2)),
            *(("format", "x"), ("keyboard", None), ("more", ""), ("scenes", "5")),
        )
    ),
    *(
        (1, {ENTRY: private(json.dumps({k: v for k, v in WHOLE.items() if k != key}).encode())}, "")
        for key in WHOLE
    ),
    (1, {ENTRY: private(TEXT)}, f"The keyboard could not be reached: {sweep_state.NOTHING}"),
    (1, {}, f"1 of 9 transfers failed: the keyboard {sweep_state.HALF}"),
]
KEPT_IMAGE = b'{"format": "scenewright-earlier", "image": "%s"}'
IMAGE = ("0" * 2 * sweep_state.BANK).encode()
EDIT = sweep_state.EDITED + bytes(sweep_state.BANK)
# How many faults, what lies where in the state folder.
STATE = [
    (0, "sends", ("folder", 0o755)),
    (0, "backups/scenes-later-0", private(KEPT_IMAGE % IMAGE)),
    (0, "backups/scenes-1Z.bank", private(bytes(sweep_state.BANK))),
    (0, "unsent/1.lock", private(b"")),
    (0, "unsent/1.scenes", private(EDIT + b"a.bank\0Keys\0")),
    (0, "sends/.scenewright-7-0", private(b"h")),
    (1, "sends", private(b"")),
    (1, "sends/send-17.json", private(TEXT)),
    (1, "backups/scenes-later-0", private(KEPT_IMAGE % b"00")),
    (1, "backups/scenes-1Z.bank", private(b"")),
    (1, "unsent/1.lock", private(b"x")),
    (1, "unsent/1.scenes", private(EDIT + b"a.bank\0Keys")),
    (1, "unsent/1.scenes", private(EDIT[:-1])),
    (1, "other", private(b"")),
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

    def test_the_entry_of_a_send_is_whole_and_is_that_of_a_send(self):
        for count, entries, said in ENTRIES:
            found = sweep_state.entry_faults(entries, SENT, [said])
            self.assertEqual(len(found), count, (entries, said, found))
            if not count:
                self.assertEqual(faults_when_killed(NOTED, BEFORE | entries), [])
        left = BEFORE | {ENTRY: private(TEXT)}
        self.assertEqual(len(faults_when_killed(DONE, left)), 2)  # of who sends nothing
        self.assertEqual(len(faults_when_killed(NOTED, BEFORE | {ENTRY: private(TEXT[:-9])})), 1)
        for count, code, errors in ((0, 1, SENTENCE), (2, 0, "")):
            found = faults(SENDS, NOTED, sweep_run.Ended(code, b"said", errors), left)
            self.assertEqual(len(found), count, found)

    def test_what_lies_in_the_state_folder_is_whole(self):
        for count, name, what in STATE:
            found = sweep_state.faults({f"{sweep_state.FOLDER}/{name}": what})
            self.assertEqual(len(found), count, (name, what))

    def test_new_earlier_scenes_are_called_by_their_order(self):
        start = f"{sweep_state.FOLDER}/backups/scenes-2026010"
        kept = {"1T000000.000Z.bank": 0, "3T000000.000Z.json": 2, "2T000000.000Z.json": 1}
        named = sweep_state.without_times({start + name: at for name, at in kept.items()})
        self.assertEqual(sorted(named, key=named.get), sorted(named))
        self.assertEqual([name[-5:] for name in sorted(named)], [".bank", "ter-0", "ter-1"])

    def test_no_earlier_scenes_are_lost_unless_the_new_ones_are_kept(self):
        def kept(banks):
            return {f"home/backups/scenes-{bank}": ("file", 0o644, bank.encode()) for bank in banks}

        for count, banks in KEPT:
            self.assertEqual(len(earlier_faults(kept("12"), kept("23"), kept(banks))), count, banks)

    def test_scenes_of_a_new_window_may_be_kept_and_no_others(self):
        for count, name in ((0, b"SCENE1"), (1, b"SCENE2")):
            text = b'{"image": "' + name.hex().encode() + b'00", "reason": "read"}'
            old = {"home/backups/scenes-1": ("file", 0o644, b"1")}
            new = {"home/backups/scenes-2": ("file", 0o644, text)}
            self.assertEqual(len(earlier_faults(old, old, old | new)), count, name)

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
        failed = "> = -1 EIO (Input/output error) (INJECTED)"
        self.assertTrue(sweep_run.is_struck([*trace, "7 read(4</f" + failed]))
        self.assertFalse(sweep_run.is_struck([*trace, "7 read(4<anon_inode:[eventfd]" + failed]))
        self.assertEqual(len(second["openat"]), 2)


if __name__ == "__main__":
    unittest.main()

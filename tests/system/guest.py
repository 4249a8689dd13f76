"""Runs the cases inside the guest and reports each on the second serial port, a line a case.

    guest.py --list whole|smoke   names the cases, or those of every plain run, on any machine
    guest.py [NAMES]              runs all of them, or those named with blanks between, in the guest
"""

import json
import signal
import sys
import time
import traceback

import cases_allow
import cases_devices
import cases_editor
import cases_midi
import cases_play
import cases_port
import cases_resume
import cases_signals
import cases_soak
import cases_transfer
import cases_trouble
import cases_window_midi
from rig import Rig

MODULES = (cases_transfer, cases_signals, cases_trouble, cases_devices, cases_port, cases_play,
           cases_midi, cases_window_midi, cases_resume, cases_editor, cases_allow, cases_soak)
PREFIX = "case_"
SMOKE = [
    "read_equals_the_bank",
    "send_equals_the_bank",
    "midi_port_plays_after_a_read",
    "sigint_in_a_read",
    "sigterm_in_a_send",
    "sigint_in_a_read_that_waits_for_ever",
    "unplugged_at_byte_500_of_a_read",
    "killed_amid_a_send",
    "unplugged_amid_a_send",
    "devices_are_told_with_where_they_are",
    "two_keyboards_in_one_evening",
    "played_controls_are_heard_and_monitored",
    "connections_are_back_after_a_read_and_a_send",
    "tried_controls_are_compared",
    "editor_reads_changes_a_pad_and_sends",
]
REPORTS = "/dev/ttyS1"
LIMIT_SECONDS = 1200 + 30 * cases_soak.ROUNDS


def all_cases():
    """The cases by their names, in the order of the modules."""
    return {name.removeprefix(PREFIX): case for module in MODULES
            for name, case in vars(module).items() if name.startswith(PREFIX)}


def names_of(list_name="whole"):
    """The cases of the list of that name."""
    cases = list(all_cases())
    if list_name == "whole":
        return cases
    missing = set(SMOKE) - set(cases)
    if list_name != "smoke" or missing:
        raise SystemExit(f"There is no list {list_name}, or no case {missing}.")
    return SMOKE


def on_alarm(_signal, _frame):
    raise TimeoutError(f"the case took more than {LIMIT_SECONDS} s")


def failure_of(step):
    """What went wrong in it, or nothing; whatever it is, it is this case's failure."""
    try:
        step()
        return ""
    except Exception:
        return traceback.format_exc()


def outcome_of(case):
    """Runs one case and empties the bus; what went wrong, or nothing, and what it noted."""
    signal.alarm(LIMIT_SECONDS)
    rig = Rig()
    trouble = failure_of(lambda: case(rig))
    if trouble:
        trouble += rig.traces()
    trouble += failure_of(rig.close)
    signal.alarm(0)
    return trouble, rig.notes


def main(names):
    signal.signal(signal.SIGALRM, on_alarm)
    cases = all_cases()
    with open(REPORTS, "w", encoding="utf-8", buffering=1) as reports:
        for name in names or cases:
            begin = time.monotonic()
            trouble, notes = outcome_of(cases[name])
            seconds = round(time.monotonic() - begin, 1)
            print(name, "failed" if trouble else "passed", f"in {seconds} s")
            print(json.dumps({"case": name, "ok": not trouble, "seconds": seconds,
                              "log": trouble, "notes": notes}), file=reports)


if __name__ == "__main__":
    if sys.argv[1:2] == ["--list"]:
        print("\n".join(names_of(sys.argv[2])))
    else:
        main(sys.argv[1].split() if len(sys.argv) > 1 else [])

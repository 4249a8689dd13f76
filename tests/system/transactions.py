"""A process that makes one transaction after the other, as it is told."""

import subprocess

from rig import PATIENCE, TRANSACTIONS, check_equal


class Transactions:
    def __init__(self, rig):
        self.program = rig.start(TRANSACTIONS, bufsize=1, stdin=subprocess.PIPE,
                                 stdout=subprocess.PIPE)
        self.rig = rig

    def attempt(self, verb, file):
        """Makes one transaction; gives what was told of its failure, nothing when it went well."""
        return self._ask(f"{verb} {file}")

    def release(self):
        """Gives up the interface, which a read leaves open for the next transaction."""
        check_equal(self._ask("release"), "", "release")

    def _ask(self, line):
        print(line, file=self.program.stdin)
        answer = self.program.stdout.readline().strip()
        if answer == "done":
            return ""
        told = answer.removeprefix("failed ")
        assert told and told != answer, f"{line!r}: the process said {answer!r}"
        return told

    def read(self, bank):
        out = self.rig.file("out.bank")
        check_equal(self.attempt("read", out), "", "read")
        assert out.read_bytes() == bank, "what was read is not the controller's bank"

    def send(self, bank):
        source = self.rig.file("in.bank")
        source.write_bytes(bank)
        check_equal(self.attempt("send", source), "", "send")

    def end(self):
        self.program.stdin.close()
        check_equal(self.program.wait(PATIENCE), 0, "exit code")

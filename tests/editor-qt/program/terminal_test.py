"""terminal_test.py EDITOR FOLDER: what the editor says first on the terminal that starts it."""

import os
import pty
import subprocess
import sys
import unittest

EDITOR, FOLDER = sys.argv[1:3]
TOLD = b"--console FILE and --log FILE write it elsewhere"


class Terminal(unittest.TestCase):
    def said(self, *options: str) -> bytes:
        """The first line on the terminal."""
        environment = {**os.environ, "QT_QPA_PLATFORM": "offscreen", "HOME": FOLDER}
        master, slave = pty.openpty()
        with subprocess.Popen(
            [EDITOR, "--virtual", *options], env=environment, stdout=slave, stderr=slave
        ) as editor:
            os.close(slave)
            said = b""
            while b"\n" not in said:
                said += os.read(master, 4096)
            editor.kill()
        os.close(master)
        return said

    def test_a_terminal_is_told_how_to_be_rid_of_the_traffic(self):
        self.assertIn(TOLD, self.said())

    def test_one_that_gets_one_stream_alone_is_told_too(self):
        self.assertIn(TOLD, self.said("--log", os.devnull))


class NoTerminal(unittest.TestCase):
    def test_a_pipe_is_told_nothing(self):
        environment = {**os.environ, "QT_QPA_PLATFORM": "offscreen", "HOME": FOLDER}
        with subprocess.Popen(
            [EDITOR, "--virtual"],
            env=environment,
            stdout=subprocess.PIPE,
            stderr=subprocess.STDOUT,
        ) as editor:
            line = editor.stdout.readline()
            editor.kill()
        self.assertNotIn(TOLD, line)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])

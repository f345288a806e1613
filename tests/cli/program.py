"""What the tests of the program start from: a folder of their own, in which it runs."""

import os
import pathlib
import pty
import re
import subprocess
import sys
import tempfile
import termios
import time
import unittest

PROGRAM = os.path.abspath(sys.argv[1])


class ProgramTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name).resolve()
        self.environment = {**os.environ, "XDG_DATA_HOME": str(self.folder / "data"),
                            "XDG_CONFIG_HOME": str(self.folder / "config"), "LC_ALL": "C.UTF-8"}

    def write(self, name, data=b"text"):
        """Makes a file in the test's folder, which is where the program runs."""
        path = os.path.join(os.fsencode(self.folder), name if isinstance(name, bytes)
                            else name.encode())
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "wb") as file:
            file.write(data)

    def run_program(self, *arguments, documents="W", **options):
        """Returns (exit code, standard output, standard error), the latter two as bytes."""
        place = ["--documents", documents] if documents else []
        options = {"stdout": subprocess.PIPE, "stderr": subprocess.PIPE, "cwd": self.folder,
                   "env": self.environment, "stdin": subprocess.DEVNULL, "timeout": 120, **options}
        done = subprocess.run([PROGRAM, *place, *arguments], check=False, **options)
        return done.returncode, done.stdout, done.stderr

    def wait_for_work(self, process, size):
        """Returns when a program has read or written so many bytes."""
        deadline = time.monotonic() + 60
        moved = 0
        while moved < size:
            self.assertLess(time.monotonic(), deadline)
            self.assertIsNone(process.poll())
            counts = pathlib.Path(f"/proc/{process.pid}/io").read_text()
            moved = max(map(int, re.findall(r"[rw]char: (\d+)", counts)))

    def run_on_terminal(self, *arguments, asked=None, answer=b""):
        """Returns (exit code, what the terminal was sent) with both streams on it.

        Once what was sent ends with `asked`, the answer is typed, or is sent if it is a signal.
        However it ends, what is typed is shown again.
        """
        ours, theirs = pty.openpty()
        process = subprocess.Popen([PROGRAM, "--documents", "W", *arguments], cwd=self.folder,
                                   env=self.environment, stdin=theirs, stdout=theirs, stderr=theirs)
        os.close(theirs)
        sent = b""
        try:
            while block := os.read(ours, 4096):
                sent += block
                if asked and sent.endswith(asked):
                    # What is typed before the echo is off is dropped.
                    while termios.tcgetattr(ours)[3] & termios.ECHO:
                        time.sleep(0.01)
                    if isinstance(answer, bytes):
                        os.write(ours, answer)
                    else:
                        process.send_signal(answer)
                    asked = None
        except OSError:
            pass  # The other side is closed.
        self.assertTrue(termios.tcgetattr(ours)[3] & termios.ECHO, sent)
        os.close(ours)
        return process.wait(timeout=120), sent

#!/usr/bin/env python3
"""Lets every call to the system of an extraction and a compression fail once, and ends the program
at every one. Whatever happens: what stands is whole or absent, and the next run is right.

    faults_test.py PROGRAM FAULTY_CALLS [--thorough] [unittest arguments]

With --thorough each fault is tried on older kernels as well, and no call is left out.
"""

import concurrent.futures
import errno
import os
import pathlib
import random
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
import zipfile

PROGRAM, FAULTY_CALLS = (os.path.abspath(path) for path in sys.argv[1:3])
THOROUGH = "--thorough" in sys.argv
# Where it can be had, a disk that costs nothing.
MEMORY = "/dev/shm" if os.access("/dev/shm", os.W_OK) else None
DEADLINE = 10  # seconds; a run takes some hundredths
ERRORS = [errno.EIO, errno.ENOSPC, errno.EDQUOT, errno.EMFILE, errno.EINTR, errno.EAGAIN, "short"]
# Must not show, whatever call they hit.
HARMLESS = [errno.EINTR, "short"]
LACKS = ["", "openat2 tmpfile", "openat2 tmpfile renameat2"]
OLD = {"old": b"of the archive before"}


def prose(size, seed):
    words = random.Random(seed).choices([b"one", b"two", b"three", b"four", b"five"], k=size // 4)
    return b" ".join(words)[:size]


# A few that are unpacked at once, some that stream, and a giant that is written from behind.
FILES = {"small": b"text", "empty": b"", "in/a folder/noise": random.Random(1).randbytes(5000),
         "in/large": prose(700_000, 2), "in/larger": random.Random(3).randbytes(1_500_000)}
GIANT = {"giant": bytes(17 << 20), "beside": b"text"}


def write_archive(path, files):
    path.parent.mkdir(parents=True, exist_ok=True)
    with zipfile.ZipFile(path, "w", zipfile.ZIP_DEFLATED, compresslevel=1) as archive:
        for name, content in files.items():
            archive.writestr(name, content)


def damage(path, name):
    """Changes a byte of an entry's data, near its end."""
    with zipfile.ZipFile(path) as archive:
        entry = archive.getinfo(name)
    with open(path, "r+b") as file:
        file.seek(entry.header_offset + 30 + len(name) + entry.compress_size - 2)
        byte = file.read(1)
        file.seek(-1, os.SEEK_CUR)
        file.write(bytes([byte[0] ^ 1]))


def content_of_archive(path):
    with zipfile.ZipFile(path) as archive:
        return {name: archive.read(name) for name in archive.namelist()}


def tree(folder):
    return {str(path.relative_to(folder)): path.read_bytes()
            for path in folder.rglob("*") if path.is_file()}


class Run:
    """Runs of the program in a folder of its own, the first with one fault in it."""

    def __init__(self, fault, at, lacks):
        self.fault, self.at, self.lacks = fault, at, lacks
        self.code, self.message, self.paths = None, "", []

    def __enter__(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(dir=MEMORY))
        self.work = self.folder / "work"
        return self

    def __exit__(self, *_):
        shutil.rmtree(self.folder)

    def start(self, *arguments, fault=None, **settings):
        environment = {"PATH": os.environ["PATH"], "LC_ALL": "C.UTF-8", "HOME": str(self.folder)}
        if fault:
            environment |= {"LD_PRELOAD": FAULTY_CALLS, "FAULTY_AT": str(self.at),
                            "FAULTY_WITH": str(fault), "FAULTY_LACKS": self.lacks,
                            "FAULTY_ROOT": str(self.work),
                            "FAULTY_MARK": str(self.folder / "mark")}
        environment |= settings
        arguments = [argument.format(work=self.work) for argument in arguments]
        done = subprocess.run([PROGRAM, "--quiet", "--documents", str(self.work), *arguments],
                              cwd=self.folder, env=environment, capture_output=True, check=False,
                              stdin=subprocess.DEVNULL, timeout=DEADLINE)
        self.code, self.message = done.returncode, os.fsdecode(done.stderr)
        self.paths = [pathlib.Path(os.fsdecode(line)) for line in done.stdout.splitlines()]

    def hit(self):
        """The name of the call that was hit; nothing if there were fewer."""
        mark = self.folder / "mark"
        return mark.exists() and mark.read_text() or None


class FaultTest(unittest.TestCase):
    def sweep(self, job, faults, stride=1):
        """Runs a job with each fault at each call, or each seventh, until none is left to be hit."""
        hits, self.wrong = 0, []
        with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
            for fault in faults:
                for lacks in LACKS if THOROUGH or fault in (errno.EIO, "kill") else LACKS[:1]:
                    # The first thread is the pool's, which cannot do without.
                    at, found = 2 if fault == errno.EAGAIN else 1, True
                    while found:
                        batch = range(at, at + 16 * stride, 1 if THOROUGH else stride)
                        at = batch.stop
                        told = list(pool.map(lambda n: self.run_once(job, fault, n, lacks), batch))
                        hits += sum(hit is not None for hit in told)
                        found = told[-1]
        print(f"{self.id()}: {hits} faults", file=sys.stderr)
        self.assertFalse(self.wrong, "\n".join(self.wrong))

    def run_once(self, job, fault, at, lacks):
        with Run(fault, at, lacks) as run:
            try:
                job.prepare(run)
                run.start(*job.arguments, fault=fault)
                self.judge(run, job)
                job.judge(self, run)
                run.start(*job.arguments)
                self.assertEqual(run.code, job.code, "the next run")
                job.judge(self, run)
                return run.hit()
            except Exception as problem:
                self.wrong.append(f"{fault} in call {at} ({run.hit()}), without '{lacks}': "
                                  f"{problem} {run.message}")
                return run.hit()

    def judge(self, run, job):
        if run.fault == "kill" and run.hit():
            self.assertEqual(run.code, -9)
            return
        self.assertIn(run.code, (job.code, job.code if run.fault in HARMLESS else 1))
        if run.code:
            self.assertRegex(run.message, r"\Apellumar: [^\n]+\n\Z")

    def test_extraction(self):
        self.sweep(Extraction(self, FILES), ERRORS)

    def test_extraction_of_a_giant(self):
        self.sweep(Extraction(self, GIANT), [errno.EIO, errno.ENOSPC, "short"], stride=7)

    def test_extraction_of_what_is_damaged(self):
        self.sweep(Extraction(self, FILES, damaged=["in/large", "small"]), [errno.EIO])

    def test_extraction_over_what_stands_there(self):
        self.sweep(Overwriting(self, FILES), [errno.EIO, errno.ENOSPC, errno.EMFILE, "kill"])

    def test_compression(self):
        self.sweep(Compression(self, FILES), [e for e in ERRORS if e != errno.EAGAIN])

    def test_room_that_may_be_there(self):
        """Megabytes that shrink fit into less where the file system compresses."""
        job = Extraction(self, GIANT)
        for kind, code in [("0x9123683E", 0), ("0xEF53", 1), ("0x01021994", 1)]:
            with Run(None, 0, "") as run:
                run.start(*job.arguments, LD_PRELOAD=FAULTY_CALLS, FAULTY_DISK=kind)
                self.assertEqual(run.code, code, f"{kind} {run.message}")
                self.assertEqual("larger unpacked than the free space" in run.message, code == 1)

    def test_killed_at_any_call(self):
        self.sweep(Extraction(self, FILES), ["kill"])
        self.sweep(Compression(self, FILES), ["kill"])


class Extraction:
    def __init__(self, test, files, damaged=()):
        folder = test.enterContext(tempfile.TemporaryDirectory(dir=MEMORY))
        archive = pathlib.Path(folder, "a.zip")
        write_archive(archive, files)
        self.files, self.arguments, self.code = files, ["unzip", str(archive)], 0
        for name in damaged:
            damage(archive, name)
            self.code = 1
        self.damaged = damaged

    def prepare(self, run):
        pass

    def judge(self, test, run):
        """Whole or absent; what the program prints is all there."""
        extractions = run.work / "outputs/zipOutputs"
        for folder in extractions.glob("*"):
            if folder.suffix == ".part":
                test.assertEqual(run.fault, "kill", "only a killed program leaves it")
                continue
            found = tree(folder)
            for name, content in found.items():
                if run.hit() == "unlinkat" and re.search("zip-[0-9a-f]{16}[.]part$", name):
                    continue  # has no name of the archive's
                test.assertTrue(content == self.files[name], f"{name} is not whole")
                test.assertNotIn(name, self.damaged)
        if run.code == 0:
            test.assertTrue(tree(run.paths[0].parent) == self.files, "not all is there")


class Overwriting:
    """Extraction of an archive over files of the same names and a link."""

    def __init__(self, test, files):
        self.files, self.code = files, 0
        self.archive = pathlib.Path(test.enterContext(tempfile.TemporaryDirectory(dir=MEMORY)),
                                    "a.zip")
        write_archive(self.archive, files)
        self.arguments = ["extract", str(self.archive), "--to", "{work}/out", "--overwrite"]

    def prepare(self, run):
        for name in self.files:
            path = run.work / "out" / name
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_bytes(b"old")

    def judge(self, test, run):
        """Under every name the old file or the new one."""
        found = tree(run.work / "out")
        for name, content in self.files.items():
            test.assertTrue(found.pop(name, None) in (b"old", content)[run.code == 0:], name)
        for name in found:
            test.assertTrue(run.hit() == "unlinkat" or run.fault == "kill", name)
            test.assertRegex(name, "zip-[0-9a-f]{16}[.]part$")


class Compression:
    def __init__(self, test, files):
        self.files, self.code = {pathlib.Path(name).name: data for name, data in files.items()}, 0
        folder = pathlib.Path(test.enterContext(tempfile.TemporaryDirectory(dir=MEMORY)))
        for name, content in self.files.items():
            (folder / name).write_bytes(content)
        self.arguments = ["zip", "title", *(str(folder / name) for name in self.files)]

    def prepare(self, run):
        write_archive(run.work / "outputs/title.zip", OLD)

    def judge(self, test, run):
        """The old archive or the new one is there, and nothing else."""
        archive = run.work / "outputs/title.zip"
        if run.code == 1 and re.search("title[.]zip: cannot be (opened|read)", run.message):
            # Without a new one the earlier must not pass for it.
            test.assertFalse(archive.exists())
            return
        left = set(os.listdir(archive.parent)) - {"title.zip", "zipOutputs", "tempImages"}
        if run.fault != "kill":
            test.assertEqual(left, set())
        elif left:
            test.assertRegex(left.pop(), "[.]part$")
        found = content_of_archive(archive)
        if run.code == 0:
            test.assertTrue(found == self.files, "not all is there")
        else:
            # One file that fails does not keep the others out.
            test.assertTrue(found == OLD or found.items() <= self.files.items(),
                            "neither the old archive nor the new one")


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], *(a for a in sys.argv[3:] if a != "--thorough")])

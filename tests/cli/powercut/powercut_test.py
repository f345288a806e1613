#!/usr/bin/env python3
"""Cuts the power: plays back what the program wrote, and looks at every disk that a cut could leave.

    powercut_test.py PROGRAM DISK_JOURNAL [--thorough] [unittest arguments]

A run writes a journal of the calls that change a disk. After each of them the power may fail, and of
what was not flushed by then anything may be missing. With --thorough more of these disks are tried,
and the program is started again on each.
"""

import os
import pathlib
import random
import shutil
import subprocess
import sys
import tempfile
import unittest
import zipfile

PROGRAM, DISK_JOURNAL = (os.path.abspath(path) for path in sys.argv[1:3])
THOROUGH = "--thorough" in sys.argv
MEMORY = "/dev/shm" if os.access("/dev/shm", os.W_OK) else None
DEADLINE = 20  # seconds; a run takes some hundredths
SECTOR = 512
CHANCES = 40 if THOROUGH else 3  # disks drawn by lot for each cut
RESTARTS = 1 if THOROUGH else 101  # on each how manieth disk the program is started again


class Folder:
    def __init__(self):
        self.entries = {}


class File:
    def __init__(self, content=b""):
        self.content = content
        self.changes = []  # (when, offset, data), or (when, size, None) for a new size

    def after(self, end, durable, keeps):
        """The content when what was changed before `durable` is there, of later changes up to `end`
        what `keeps` leaves of each."""
        content = bytearray(self.content)
        for when, number, data in self.changes:
            if when >= end:
                break
            if when >= durable:
                data, kept = keeps(data)
                if not kept:
                    continue
            if data is None:
                content[number:] = bytes(max(0, number - len(content)))
                continue
            content.extend(bytes(max(0, number - len(content))))
            content[number:number + len(data)] = data
        return bytes(content)


def all_lost(data):
    return data, False


def all_kept(data):
    return data, True


def only_size(data):
    """What file systems show that know the new size but have not written the data."""
    return data and bytes(len(data)), True


class Lot:
    """Some changes are there, some are not, some up to a sector in their midst."""

    def __init__(self, seed):
        self.random = random.Random(seed)

    def __call__(self, data):
        if data and self.random.random() < 0.3:
            return data[:self.random.randrange(len(data)) // SECTOR * SECTOR], True
        return data, self.random.random() < 0.5


class Journal:
    """What happened to a folder: changes of names and of contents, and what was flushed when."""

    def __init__(self, root):
        """Of the folder as it stands; read() follows when the program has ended."""
        self.root = root
        self.top, self.inodes = self.snapshot(root), {}
        self.names = []   # (when, [(folder, name, what stands there from then on)])
        self.flushed = []  # (when, folder or file; None for all)
        self.count = 0

    def snapshot(self, path):
        folder = Folder()
        for entry in path.iterdir() if path.exists() else []:
            folder.entries[entry.name] = (self.snapshot(entry) if entry.is_dir()
                                          else File(entry.read_bytes()))
        return folder

    def read(self, journal):
        now = Tree(self.top)
        with open(journal, "rb") as file:
            while header := file.readline():
                call, inode, number, length = header.split()
                self.count += 1
                self.take(now, call.decode(), int(inode), int(number), file.read(int(length)))

    def take(self, now, call, inode, number, text):
        when = self.count - 1
        if call in ("write", "truncate"):
            if inode in self.inodes:
                self.inodes[inode].changes.append((when, number, text if call == "write" else None))
            return
        if call == "syncfs":
            self.flushed.append((when, None))
            return
        paths = [self.below(path) for path in text.decode().split("\0")] if text else []
        if call == "sync":
            found = self.inodes.get(inode) or (paths[0] is not None and now.find(paths[0]))
            if found:
                self.flushed.append((when, found))
            return
        if call == "make" and (not paths or paths[0] is None or now.find(paths[0]) is None):
            self.inodes[inode] = File()
        if not paths or None in paths or (call == "make" and now.find(paths[0])):
            return
        new = {"make": lambda: self.inodes[inode], "link": lambda: self.inodes[inode],
               "mkdir": Folder, "remove": lambda: None,
               "rename": lambda: now.find(paths[0])}[call]()
        changed = [(*now.place(paths[-1]), new)]
        if call == "rename":
            changed.append((*now.place(paths[0]), None))
        now.change(changed)
        self.names.append((when, changed))

    def below(self, path):
        path = pathlib.Path(os.path.normpath(path))
        return path.relative_to(self.root) if path.is_relative_to(self.root) else None

    def disks(self, cut, lots):
        """What may be found if the power fails before the call of that number."""
        known = {}
        for when, what in self.flushed:
            if when < cut:
                known[what] = when
        everything = known.get(None, -1)

        def durable(file):
            return max(everything, known.get(file, -1))

        made = [(when, changed) for when, changed in self.names if when < cut]
        strict = [[(folder, name, new)] for when, changed in made for folder, name, new in changed
                  if when < durable(folder)]
        committed = sum(when < max(known.values(), default=-1) for when, _ in made)
        ordered = [changed for _, changed in made]
        yield Tree(self.top, strict).contents(cut, durable, all_lost)
        yield Tree(self.top, ordered[:committed]).contents(cut, durable, all_lost)
        for keeps in (all_lost, only_size, all_kept):
            yield Tree(self.top, ordered).contents(cut, durable, keeps)
        for lot in range(lots):
            keeps = Lot(f"{cut} {lot}")
            upto = keeps.random.randint(committed, len(ordered))
            yield Tree(self.top, ordered[:upto]).contents(cut, durable, keeps)


class Tree:
    """Which names stand where; changes of names are made to it and not to what it began with."""

    def __init__(self, top, changes=()):
        self.top, self.entries = top, {}
        for changed in changes:
            self.change(changed)

    def of(self, folder):
        return self.entries.setdefault(folder, dict(folder.entries))

    def change(self, changed):
        for folder, name, new in changed:
            if new is None:
                self.of(folder).pop(name, None)
            else:
                self.of(folder)[name] = new

    def find(self, path):
        found = self.top
        for part in path.parts:
            found = self.of(found).get(part) if isinstance(found, Folder) else None
        return found

    def place(self, path):
        return self.find(path.parent), path.name

    def contents(self, cut, durable, keeps, folder=None, prefix=""):
        """All files by their paths with what is in them; folders with None."""
        found = {}
        for name, what in self.of(folder or self.top).items():
            if isinstance(what, Folder):
                found[prefix + name] = None
                found |= self.contents(cut, durable, keeps, what, f"{prefix}{name}/")
            else:
                found[prefix + name] = what.after(cut, durable(what), keeps)
        return found


def prose(size, seed):
    words = random.Random(seed).choices([b"one", b"two", b"three", b"four", b"five"], k=size // 4)
    return b" ".join(words)[:size]


FILES = {f"{n}": random.Random(n).randbytes(n * 9) for n in range(200)} | {
    "large": prose(700_000, 2), "noise": random.Random(3).randbytes(9_000_000)}


class PowerCutTest(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory(dir=MEMORY)))
        self.disk = self.folder / "disk"
        self.work = self.disk / "work"
        self.disk.mkdir()
        self.sources = self.folder / "sources"
        self.sources.mkdir()
        for name, content in FILES.items():
            (self.sources / name).write_bytes(content)
        self.archive = self.folder / "a.zip"
        with zipfile.ZipFile(self.archive, "w", zipfile.ZIP_DEFLATED, compresslevel=1) as archive:
            for name, content in FILES.items():
                archive.writestr(f"{len(content) % 3}/{name}", content)

    def start(self, *arguments, **settings):
        environment = {"PATH": os.environ["PATH"], "LC_ALL": "C.UTF-8", "HOME": str(self.folder)}
        done = subprocess.run([PROGRAM, "--quiet", "--documents", str(self.work), *arguments],
                              cwd=self.folder, env=environment | settings, capture_output=True,
                              check=False, stdin=subprocess.DEVNULL, timeout=DEADLINE)
        self.assertEqual((done.returncode, done.stderr), (0, b""))

    def cut_everywhere(self, arguments, judge):
        """Runs the program once, and judge(disk, whether it had ended, the disk at the end) over
        each disk that a cut may leave; then the program's next run on some of them."""
        journal = Journal(self.disk)
        self.start(*arguments, LD_PRELOAD=DISK_JOURNAL, DISK_JOURNAL=str(self.folder / "journal"))
        journal.read(self.folder / "journal")
        *_, final = journal.disks(journal.count, 0)
        self.assertEqual(final, self.found(), "the journal does not tell what happened")
        tried = 0
        for cut in range(journal.count + 1):
            for disk in journal.disks(cut, CHANCES):
                tried += 1
                with self.subTest(cut=cut, disk=tried):
                    judge(disk, cut == journal.count, final)
                    if tried % RESTARTS == 0:
                        self.leave(disk)
                        self.start(*arguments)
                        judge(self.found(), True, final)
        print(f"{self.id()}: {tried} disks after {journal.count + 1} cuts", file=sys.stderr)

    def found(self):
        return {str(path.relative_to(self.disk)): path.read_bytes() if path.is_file() else None
                for path in self.disk.rglob("*")}

    def leave(self, disk):
        shutil.rmtree(self.disk)
        self.disk.mkdir()
        for name, content in sorted(disk.items()):
            if content is None:
                (self.disk / name).mkdir()
            else:
                (self.disk / name).write_bytes(content)

    def judge_archive(self, name, old):
        def judge(disk, ended, final):
            archive = disk.get(name)
            self.assertTrue(archive in ((final[name],) if ended else (old, final[name])),
                            "neither the old archive nor the new one")
            for other in disk.keys() - final.keys():
                self.assertRegex(other, "zip-[0-9a-f]{16}[.]part$")
        return judge

    def test_create(self):
        self.work.mkdir()
        arguments = ["create", "--reproducible", "--force", str(self.work / "new.zip"), str(self.sources)]
        self.cut_everywhere(arguments, self.judge_archive("work/new.zip", None))

    def test_zip_over_an_earlier_archive(self):
        (self.work / "outputs").mkdir(parents=True)
        (self.work / "outputs/title.zip").write_bytes(b"old")
        arguments = ["zip", "title", *(str(self.sources / name) for name in FILES)]
        self.cut_everywhere(arguments, self.judge_archive("work/outputs/title.zip", b"old"))

    def test_first_zip(self):
        arguments = ["zip", "title", *(str(self.sources / name) for name in FILES)]
        self.cut_everywhere(arguments, self.judge_archive("work/outputs/title.zip", None))

    def test_extraction_that_is_flushed(self):
        self.work.mkdir()
        arguments = ["extract", str(self.archive), "--to", str(self.work / "out"), "--sync",
                     "--overwrite"]

        def judge(disk, ended, final):
            if ended:
                self.assertEqual(disk.keys() & final.keys(), final.keys())
                self.assertTrue(all(disk[name] == final[name] for name in final), "not all is whole")
            for name in disk.keys() - final.keys():
                self.assertRegex(name, "zip-[0-9a-f]{16}[.]part$")
        self.cut_everywhere(arguments, judge)


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], *(a for a in sys.argv[3:] if a != "--thorough")])

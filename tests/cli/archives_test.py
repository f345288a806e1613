#!/usr/bin/env python3
"""Runs the commands for archives anywhere, beside other tools, as somebody in a shell would.

    archives_test.py PROGRAM SOURCES [unittest arguments]
"""

import datetime
import errno
import json
import os
import pathlib
import pty
import re
import signal
import stat
import struct
import subprocess
import sys
import termios
import time
import unittest
import warnings
import zipfile
import zoneinfo

from program import PROGRAM, ProgramTest

DAY = 86400


class ArchivesTest(ProgramTest):
    def run_program(self, *arguments, **options):
        return super().run_program(*arguments, documents=None, **options)

    def succeed(self, *arguments, **options):
        """Returns standard output of a run that has nothing to complain of."""
        code, out, err = self.run_program(*arguments, **options)
        self.assertEqual((code, err), (0, b""), arguments)
        return out

    def fail_with(self, pattern, *arguments, code=1, lines=1, **options):
        """A run that returns `code` and says why in so many lines; returns standard output."""
        actual, out, err = self.run_program(*arguments, **options)
        self.assertEqual(actual, code, err)
        self.assertRegex(err, pattern)
        self.assertEqual(err.count(b"\n"), lines if code == 1 else err.count(b"\n"), err)
        return out

    def other(self, *command):
        """Runs another tool in the test's folder."""
        return subprocess.run(command, cwd=self.folder, env=self.environment, check=True,
                              stdin=subprocess.DEVNULL, stdout=subprocess.PIPE).stdout

    def tree(self, root="tree"):
        """A folder with all kinds of things in it."""
        self.write(f"{root}/one.txt", b"one\n")
        self.write(f"{root}/sub/two.o", b"2" * 3000000)
        self.write(f"{root}/sub/deep/run.sh", b"#!/bin/sh\n")
        self.write(f"{root}/[odd] -näme", b"odd")
        os.chmod(self.folder / root / "sub/deep/run.sh", 0o750)
        os.mkdir(self.folder / root / "empty")
        os.symlink("../one.txt", self.folder / root / "sub/link")
        os.symlink("sub", self.folder / root / "folderlink")
        os.symlink("nowhere", self.folder / root / "dangling")

    def snapshot(self, root):
        """What stands below a folder: path to permissions and contents."""
        found = {}
        for folder, folders, files in os.walk(self.folder / root):
            for name in folders + files:
                path = os.path.join(folder, name)
                status = os.lstat(path)
                what = (os.readlink(path) if stat.S_ISLNK(status.st_mode) else
                        None if stat.S_ISDIR(status.st_mode) else
                        pathlib.Path(path).read_bytes())
                key = os.path.relpath(path, self.folder / root)
                found[key] = (stat.filemode(status.st_mode), what)
        return found


class CreateTest(ArchivesTest):
    def test_takes_folders_whole_and_other_tools_agree(self):
        self.tree()
        self.succeed("create", "a.zip", "tree")
        wanted = self.snapshot("tree")
        for name, command in (("unzip", ["unzip", "-q", "a.zip", "-d", "by-unzip"]),
                              ("bsdtar", ["bsdtar", "-xf", "a.zip", "-C", "by-bsdtar"])):
            os.makedirs(self.folder / f"by-{name}", exist_ok=True)
            self.other(*command)
            self.assertEqual(self.snapshot(f"by-{name}/tree"), wanted)
        self.other("7zz", "t", "a.zip")
        with zipfile.ZipFile(self.folder / "a.zip") as archive:
            self.assertIsNone(archive.testzip())
            self.assertIn("tree/empty/", archive.namelist())
        self.succeed("extract", "a.zip", "--to", "by-us")
        self.assertEqual(self.snapshot("by-us/tree"), wanted)

    def test_names_lead_nowhere_else(self):
        self.tree()
        self.succeed("create", "../a.zip", "../tree/./sub/", "../tree/one.txt", "../tree/sub",
                     str(self.folder / "tree/sub/two.o"), cwd=self.folder / "tree")
        names = self.succeed("list", "--names", "a.zip").decode().split()
        self.assertEqual(names[:5], ["tree/sub/", "tree/sub/deep/", "tree/sub/deep/run.sh",
                                     "tree/sub/link", "tree/sub/two.o"])
        self.assertEqual(names[5:], ["tree/one.txt", str(self.folder)[1:] + "/tree/sub/two.o"])
        self.write("other/tree/one.txt")
        self.fail_with(rb"would have the name of ", "create", "b.zip", "tree/one.txt",
                       "../tree/one.txt", cwd=self.folder / "other")

    def test_leaves_out_what_it_is_told_to_and_itself(self):
        self.tree()
        self.succeed("create", "tree/a.zip", "tree", "--exclude", "*.o", "--exclude=[[]*",
                     "--exclude", "tree/*/deep/")
        names = set(self.succeed("list", "--names", "tree/a.zip").decode().split())
        self.assertEqual(names, {"tree/", "tree/dangling", "tree/empty/", "tree/folderlink",
                                 "tree/one.txt", "tree/sub/", "tree/sub/link"})
        os.mkfifo(self.folder / "tree/pipe")
        code, _, err = self.run_program("create", "--force", "a.zip", ".", cwd=self.folder / "tree")
        self.assertEqual(code, 0)
        self.assertRegex(err, rb"^pellumar: warning: \./a\.zip: is the archive itself.*\n"
                              rb"pellumar: warning: \./pipe: is no file, .*\n$")
        self.assertNotIn(b"a.zip", self.succeed("list", "--names", "tree/a.zip"))

    def test_replaces_only_when_told_to(self):
        self.write("a.zip", b"precious")
        self.write("one")
        self.fail_with(rb"^pellumar: a\.zip: exists already; --force", "create", "a.zip", "one")
        self.fail_with(rb"missing: No such file", "create", "--force", "a.zip", "one", "missing")
        self.assertEqual((self.folder / "a.zip").read_bytes(), b"precious")
        self.succeed("create", "-f", "a.zip", "one")
        self.assertTrue(zipfile.is_zipfile(self.folder / "a.zip"))
        os.mkdir(self.folder / "folder")
        self.fail_with(rb"is no file", "create", "-f", "folder", "one")

    def test_what_cannot_be_read_is_told_and_the_rest_goes_in(self):
        self.write("one")
        self.write("two")
        # Nothing is there at its beginning, whoever reads.
        self.fail_with(rb"^pellumar: a\.zip: source cannot be read: proc/self/mem", "create",
                       "a.zip", "one", "/proc/self/mem", "two")
        self.assertEqual(self.succeed("list", "--names", "a.zip"), b"one\ntwo\n")

    def test_what_cannot_be_looked_at_is_told_and_the_rest_goes_in(self):
        # The file's own path is longer than the system takes one.
        here = os.getcwd()
        os.makedirs(self.folder / "deep")
        os.chdir(self.folder / "deep")
        try:
            name = "d" * 250
            for _ in range(16):
                os.mkdir(name)
                os.chdir(name)
            pathlib.Path("e" * 250).touch()
        finally:
            os.chdir(here)
        self.fail_with(rb"e: File name too long$", "create", "a.zip", "deep")
        self.assertEqual(self.succeed("list", "--names", "a.zip").count(b"\n"), 17)

    def test_is_the_same_to_the_byte_wherever_it_is_made(self):
        for name, zone, day in (("A", "Asia/Tokyo", 100), ("B", "America/Lima", 200)):
            os.mkdir(self.folder / name)
            self.tree(f"{name}/tree")
            if name == "B":  # Another order in the folder, and another umask.
                os.rename(self.folder / "B/tree/one.txt", self.folder / "B/tree/x")
                self.write("B/tree/zzz")
                os.rename(self.folder / "B/tree/x", self.folder / "B/tree/one.txt")
                os.unlink(self.folder / "B/tree/zzz")
                os.chmod(self.folder / "B/tree/one.txt", 0o600)
            for folder, _, files in os.walk(self.folder / name):
                for file in files:
                    os.utime(os.path.join(folder, file), (day * DAY, day * DAY),
                             follow_symlinks=False)
            self.environment["TZ"] = zone
            self.succeed("create", "--reproducible", "../a.zip" if name == "A" else "../b.zip",
                         "tree", cwd=self.folder / name)
        self.assertEqual((self.folder / "a.zip").read_bytes(),
                         (self.folder / "b.zip").read_bytes())
        self.other("unzip", "-tq", "a.zip")

    def test_warns_of_links_that_extract_refuses(self):
        self.tree()
        os.symlink("../../../etc", self.folder / "tree/sub/out")
        os.symlink("sub/out/passwd", self.folder / "tree/through")
        os.mkdir(self.folder / "tree/sub/bare")
        os.symlink("sub/bare/../../one.txt", self.folder / "tree/inside")
        code, _, err = self.run_program("create", "a.zip", "tree")
        self.assertEqual((code, re.findall(rb"warning: (\S+): a link that leads out", err)),
                         (0, [b"tree/sub/out"]))
        self.fail_with(rb"link that leaves .*: tree/sub/out", "extract", "a.zip", "--to", "x")

    def test_levels(self):
        text = b"".join(b"%d squared is %d\n" % (n, n * n) for n in range(40000))
        self.write("text", text)
        sizes = {}
        for level in ("store", "1", "9"):
            self.succeed("create", f"{level}.zip", "text", "--level", level)
            with zipfile.ZipFile(self.folder / f"{level}.zip") as archive:
                self.assertEqual(archive.read("text"), text)
                sizes[level] = archive.getinfo("text").compress_size
                method = archive.getinfo("text").compress_type
                self.assertEqual(method == zipfile.ZIP_STORED, level == "store")
        self.assertEqual(sizes["store"], len(text))
        self.assertLess(sizes["9"], sizes["1"])

    def test_takes_a_list_and_goes_through_pipes(self):
        self.tree()
        self.write("two\nlines")
        listed = b"tree/one.txt\0two\nlines\0tree/sub\0"
        for list_bytes, names in ((listed, [b"tree/one.txt", b"two\nlines", b"tree/sub/"]),
                                  (b"tree/one.txt\n\ntree/sub/link",
                                   [b"tree/one.txt", b"tree/sub/link"])):
            made = self.succeed("create", "--from-list", "-", "--", "-", input=list_bytes,
                                stdin=None)
            self.write("piped.zip", made)
            self.assertEqual(self.succeed("list", "-0", "piped.zip").split(b"\0")[:-1], names)
        self.write("big.zip", self.succeed("create", "-", "tree"))
        self.other("unzip", "-tq", "big.zip")
        self.other("7zz", "t", "big.zip")
        with open(self.folder / "big.zip", "rb") as file:
            self.succeed("extract", "-", "--to", "out", stdin=file)
        self.assertEqual(self.snapshot("out/tree"), self.snapshot("tree"))
        self.fail_with(rb"^pellumar: standard input: is no file", "list", "-", input=b"", stdin=None)
        with open("/dev/full", "wb") as full:
            self.fail_with(rb"^pellumar: standard output: .*No space left on device", "create", "-",
                           "tree", stdout=full)


class ExtractTest(ArchivesTest):
    def setUp(self):
        super().setUp()
        self.tree()
        self.other("zip", "-qry", "a.zip", "tree")

    def test_some_of_it(self):
        self.succeed("extract", "a.zip", "tree/sub/", "*.txt", "--strip", "1", "--to", "new/folder",
                     "--sync")
        self.assertEqual(set(self.snapshot("new/folder")),
                         {"one.txt", "sub", "sub/two.o", "sub/link", "sub/deep",
                          "sub/deep/run.sh"})
        self.fail_with(rb"^pellumar: a\.zip: not in the archive: tree/thr\\x1bee\n", "extract",
                       "a.zip", "tree/thr\x1bee", "--to", "none")
        self.assertFalse((self.folder / "none").exists())

    def test_what_is_there_already(self):
        def contents(name):
            return (self.folder / "out" / name).read_bytes()
        for option, first, second in ((None, b"mine", None), ("--skip", b"mine", None),
                                      ("--rename", b"mine", b"one\n"),
                                      ("--overwrite", b"one\n", None)):
            self.write("out/tree/one.txt", b"mine")
            if option:
                self.succeed("extract", "a.zip", "--to", "out", "tree/one.txt", option)
            else:
                self.fail_with(rb"already.*--overwrite", "extract", "a.zip", "--to", "out",
                               "tree/one.txt")
            self.assertEqual(contents("tree/one.txt"), first, option)
            self.assertEqual((self.folder / "out/tree/one (2).txt").exists(), bool(second))
            if second:
                self.assertEqual(contents("tree/one (2).txt"), second)
                os.unlink(self.folder / "out/tree/one (2).txt")

    def test_passwords(self):
        self.write("right", b"geheim\n")
        self.write("wrong", b"falsch\n")
        self.other("7zz", "a", "-tzip", "-mem=AES256", "-pgeheim", "e.zip",
                   "tree/one.txt", "tree/sub/two.o")
        wanted = self.snapshot("tree")
        self.succeed("extract", "e.zip", "--password-file", "right", "--to", "out")
        self.assertEqual(self.snapshot("out/tree")["sub/two.o"], wanted["sub/two.o"])
        self.assertEqual(self.succeed("cat", "e.zip", "tree/one.txt", "--password-file", "right"),
                         b"one\n")
        self.succeed("test", "e.zip", "--password-file", "right")
        self.succeed("list", "e.zip")
        for command in (["extract", "e.zip", "--to", "x"], ["cat", "e.zip", "tree/one.txt"],
                        ["test", "e.zip"]):
            self.assertEqual(self.fail_with(rb"password", *command), b"")
            self.assertEqual(self.fail_with(rb"wrong password", *command, "--password-file",
                                            "wrong"), b"")
        self.assertFalse((self.folder / "x/tree/one.txt").exists())
        code, sent = self.run_on_terminal("cat", "e.zip", "tree/one.txt", answer=b"geheim\n",
                                          asked=b"Password of e.zip: ")
        self.assertEqual((code, sent.splitlines()[-1]), (0, b"one"))
        code, sent = self.run_on_terminal("cat", "e.zip", "tree/one.txt", answer=b"\x03",
                                          asked=b"Password of e.zip: ")
        self.assertEqual(code, 130)
        # A password is tried on what it is for.
        self.other("7zz", "a", "-tzip", "-mem=AES256", "-pfalsch", "e.zip", "tree/[odd] -näme")
        other = "tree/[odd] -näme"
        self.assertEqual(self.succeed("cat", "e.zip", other, "--password-file", "wrong"), b"odd")
        self.succeed("extract", "e.zip", other, "--password-file", "wrong", "--to", "y")
        self.fail_with(rb"wrong password", "cat", "e.zip", other, "--password-file", "right")

    def test_encrypts(self):
        self.write("right", b"geheim\n")
        self.write("none", b"\n")
        self.succeed("create", "e.zip", "tree", "--password-file", "right")
        self.other("7zz", "x", "-pgeheim", "-oby-7zz", "e.zip", "tree/sub/two.o")
        self.assertEqual(self.snapshot("by-7zz/tree")["sub/two.o"],
                         self.snapshot("tree")["sub/two.o"])
        self.assertNotIn(b"one\n", (self.folder / "e.zip").read_bytes())
        self.fail_with(rb"holds no password", "create", "f.zip", "tree", "--password-file", "none")
        self.assertEqual(self.run_program("cat", "-", "a", "--password-file", "-")[0], 2)

    def test_says_that_the_ciphers_are_missing_before_it_asks(self):
        self.write("right", b"geheim\n")
        self.succeed("create", "e.zip", "tree", "--password-file", "right")
        for number in range(6, 12):
            self.write(f"broken/libnettle.so.{number}", b"")
        self.environment["LD_LIBRARY_PATH"] = str(self.folder / "broken")
        for lines, command in ((1, ["test", "e.zip"]), (2, ["unzip", "e.zip"]),
                               (1, ["create", "f.zip", "tree", "--password-file", "right"])):
            self.fail_with(rb"encryption support .* is not installed", *command, lines=lines)
        code, sent = self.run_on_terminal("cat", "e.zip", "tree/one.txt")
        self.assertEqual((code, b"Password" in sent), (1, False))
        self.assertFalse((self.folder / "f.zip").exists())

    def test_control_z_gives_the_terminal_back(self):
        self.write("right", b"geheim\n")
        self.succeed("create", "e.zip", "tree/one.txt", "--password-file", "right")
        shell, terminal = pty.fork()
        if shell == 0:
            os.chdir(self.folder)
            os.execvpe("bash", ["bash", "--norc", "--noediting", "-i"],
                       {**self.environment, "PS1": "ready> "})
        sent = b""
        for wanted, silent, typed in ((b"ready> ", None, f"{PROGRAM} test e.zip\n".encode()),
                                      (b"Password of e.zip: ", True, b"ge\x1a"),
                                      (b"ready> ", False, b"fg\n"),
                                      (b"Password of e.zip: ", True, b"geheim\n"),
                                      (b"ready> ", False, b"exit\n")):
            while not sent.endswith(wanted):
                sent += os.read(terminal, 4096)
            deadline = time.monotonic() + 30
            while silent is not None and time.monotonic() < deadline and \
                    bool(termios.tcgetattr(terminal)[3] & termios.ECHO) == silent:
                time.sleep(0.01)
            os.write(terminal, typed)
            sent += b"|"
        os.waitpid(shell, 0)
        os.close(terminal)
        self.assertIn(b"Stopped", sent)
        self.assertIn(b"e.zip: all right", sent)


class LookTest(ArchivesTest):
    def test_lists_what_python_reads(self):
        self.tree()
        self.environment["TZ"] = "UTC"
        self.other("bsdtar", "-a", "-cf", "a.zip", "tree")
        document = json.loads(self.succeed("list", "--json", "a.zip"))
        entries = {entry["path"]: entry for entry in document["entries"]}
        with zipfile.ZipFile(self.folder / "a.zip") as archive:
            self.assertEqual(set(entries), {name.rstrip("/") for name in archive.namelist()})
            for info in archive.infolist():
                entry = entries[info.filename.rstrip("/")]
                self.assertEqual((entry["size"], int(entry["crc32"], 16), entry["method"]),
                                 (info.file_size, info.CRC, info.compress_type))
        self.assertEqual(entries["tree/sub/link"]["target"], "../one.txt")
        self.assertEqual(entries["tree/sub/deep/run.sh"]["mode"], "0750")
        self.assertIn("tree/[odd] -näme", entries)
        os.utime(self.folder / "tree/one.txt", (1000000000, 1000000000))
        self.other("zip", "-qr", "b.zip", "tree/one.txt")
        table = self.succeed("list", "b.zip").decode().splitlines()
        self.assertEqual(table[1].split(),
                         ["-rw-r--r--", "4", "4", "2001-09-09", "01:46", "tree/one.txt"])
        self.assertEqual(table[2], "1 entry, 4 bytes, 4 packed")

    def test_lists_local_times_of_many_days(self):
        # The days around each change of the clocks, an hour and a minute apart, back and forth.
        moments = [day * DAY + step * 3660 for day in range(14000, 16000, 3) for step in range(24)]
        moments += moments[::-7]
        with zipfile.ZipFile(self.folder / "t.zip", "w") as archive:
            for number, moment in enumerate(moments):
                entry = zipfile.ZipInfo(str(number))
                entry.extra = struct.pack("<HHBI", 0x5455, 5, 1, moment)
                archive.writestr(entry, b"")
        for zone in ("UTC", "Europe/Berlin", "America/Sao_Paulo", "Australia/Lord_Howe",
                     "Pacific/Apia", "Atlantic/Azores"):
            self.environment["TZ"] = zone
            clock = zoneinfo.ZoneInfo(zone)
            lines = self.succeed("list", "t.zip").decode().splitlines()[1:-1]
            self.assertEqual([line.split()[3:] for line in lines],
                             [[*f"{datetime.datetime.fromtimestamp(moment, clock):%Y-%m-%d %H:%M}"
                               .split(), str(number)] for number, moment in enumerate(moments)])

    def test_lists_what_is_not_extracted(self):
        with zipfile.ZipFile(self.folder / "a.zip", "w") as archive:
            archive.writestr("../../up", "1")
            archive.writestr("good\u009b31m", "2")
        for options, wanted in (([], b"!"), (["--names"], b"../../up\n"), (["--json"], b'"fault":')):
            code, out, err = self.run_program("list", "a.zip", *options)
            self.assertEqual((code, err.count(b"\n")), (0, 1))
            self.assertIn(wanted, out)
            self.assertIn(b"unsafe name", err)
        self.fail_with(rb"unsafe name", "extract", "a.zip", "--to", "out")
        self.assertFalse((self.folder / "out").exists())
        _, sent = self.run_on_terminal("list", "--names", "a.zip")
        self.assertIn(b"good\\xc2\\x9b31m\r\n", sent)

    def test_cat_gives_the_bytes(self):
        self.write("one", os.urandom(700000))
        self.write("two", b"2")
        self.other("7zz", "a", "-tzip", "-mm=BZip2", "a.zip", "one", "two")
        one = (self.folder / "one").read_bytes()
        self.assertEqual(self.succeed("cat", "a.zip", "two", "one", "two"), b"2" + one + b"2")
        with open("/dev/full", "wb") as full:
            self.fail_with(rb"^pellumar: standard output: No space left on device\n$", "cat",
                           "a.zip", "two", stdout=full)

    def test_tells_every_fault(self):
        for name in ("one", "two", "three"):
            self.write(name, name.encode() * 10)
        self.other("zip", "-q0", "a.zip", "one", "two", "three")
        data = bytearray((self.folder / "a.zip").read_bytes())
        for name in (b"oneone", b"threethree"):
            data[data.index(name)] ^= 1
        self.write("bad.zip", bytes(data))
        code, out, err = self.run_program("test", "a.zip", "bad.zip")
        self.assertEqual((code, out), (1, b""))
        self.assertRegex(err, rb"^pellumar: bad\.zip: wrong checksum: one .*\n"
                              rb"pellumar: bad\.zip: wrong checksum: three .*\n"
                              rb"pellumar: bad\.zip: .*pellumar salvage.*\n$")
        with warnings.catch_warnings(), zipfile.ZipFile(self.folder / "twice.zip", "w") as archive:
            warnings.simplefilter("ignore")
            archive.writestr("one", "1")
            archive.writestr("one", "2")
        code, _, err = self.run_program("test", "twice.zip")
        self.assertEqual(code, 0)
        self.assertRegex(err, rb"^pellumar: twice\.zip: warning: earlier entry .*: one ")
        self.succeed("test", "a.zip")


class SalvageTest(ArchivesTest):
    def test_gets_what_is_whole_and_tells_what_is_lost(self):
        for name in ("one", "two", "three"):
            self.write(f"tree/{name}", os.urandom(5000))
        self.other("zip", "-qr", "a.zip", "tree/one", "tree/two", "tree/three")
        data = bytearray((self.folder / "a.zip").read_bytes())
        self.write("cut.zip", bytes(data[:12000]))
        data[data.index(b"tree/two") + 100] ^= 1
        self.write("bad.zip", bytes(data))
        for name, lost, kept in (("cut.zip", rb"tree/three", ["one", "two"]),
                                 ("bad.zip", rb"tree/two", ["one", "three"])):
            to = name.split(".")[0]
            code, out, err = self.run_program("salvage", name, "--to", f"new/{to}")
            self.assertEqual((code, out), (1, b""))
            self.assertRegex(err, rb"^pellumar: " + name.encode() + rb": lost: .*: " + lost)
            for file in kept:
                self.assertEqual((self.folder / "new" / to / "tree" / file).read_bytes(),
                                 (self.folder / "tree" / file).read_bytes())
            self.assertEqual(len(os.listdir(self.folder / "new" / to / "tree")), 2)
        self.assertIn(b"lost its directory",
                      self.run_program("salvage", "cut.zip", "--to", "again")[2])
        self.succeed("salvage", "a.zip", "--to", "whole")
        self.fail_with(rb"bad\.zip: wrong checksum: .*pellumar salvage", "extract", "bad.zip",
                       "--to", "x")
        with open(self.folder / "bad.zip", "rb") as file:
            self.fail_with(rb"^pellumar: standard input: lost: .*: tree/two", "salvage", "-",
                           "--to", "piped", stdin=file)
        self.fail_with(rb"not an archive", "salvage", "tree/one", "--to", "none/at/all")
        self.assertFalse((self.folder / "none").exists())

    def test_asks_for_the_password_and_names_what_is_missing(self):
        self.write("first", b"1" * 100)
        self.write("second", os.urandom(250000))
        self.write("right", b"geheim\n")
        self.succeed("create", "e.zip", "first", "second", "--password-file", "right")
        self.fail_with(rb"password", "salvage", "e.zip", "--to", "none", lines=3)
        with open(self.folder / "right", "rb") as file:
            self.succeed("salvage", "e.zip", "--to", "by-file", "--password-file", "-", stdin=file)
        code, _ = self.run_on_terminal("salvage", "e.zip", "--to", "asked", answer=b"geheim\n",
                                       asked=b"Password of e.zip: ")
        self.assertEqual(code, 0)
        for folder in ("by-file", "asked"):
            self.assertEqual((self.folder / folder / "first").read_bytes(), b"1" * 100)
        for pack, gone, whole in ((("zip", "-qs64k", "v.zip", "second", "first"), "v.z02", "v.zip"),
                                  (("7zz", "a", "-tzip", "-v99k", "w.zip", "first", "second"),
                                   "w.zip.003", "w.zip.002")):
            self.other(*pack)
            self.succeed("salvage", whole, "--to", "all-of-" + whole)
            os.unlink(self.folder / gone)
            self.fail_with(rb"missing: " + gone.encode(), "salvage", whole, "--to",
                           whole + "-part", lines=3)
            self.assertTrue((self.folder / (whole + "-part") / "first").exists())
        with zipfile.ZipFile(self.folder / "u.zip", "w") as archive:
            archive.writestr("../up", "1")
        self.fail_with(rb"unsafe name: \.\./up", "salvage", "u.zip", "--to", "none")


class InterruptionTest(ArchivesTest):
    def test_nothing_half_is_left(self):
        self.write("big/one")
        os.truncate(self.folder / "big/one", 1 << 36)
        for command, words in ((["create", "a.zip", "big"], b"no archive was made"),
                               (["--documents", "W", "zip", "T", "big/one"],
                                b"nothing of it stays")):
            ours, theirs = pty.openpty()
            process = subprocess.Popen([PROGRAM, *command], cwd=self.folder, env=self.environment,
                                       stdin=theirs, stdout=theirs, stderr=theirs,
                                       start_new_session=True)
            os.close(theirs)
            sent = b""
            asked = False
            try:
                while block := os.read(ours, 4096):
                    sent += block
                    if not asked and re.search(rb"% .* of 69 GB .*/s .* left .*one", sent):
                        process.send_signal(signal.SIGINT)
                        asked = True
            except OSError as error:
                self.assertEqual(error.errno, errno.EIO)
            os.close(ours)
            self.assertEqual(process.wait(timeout=60), 130, sent)
            self.assertTrue(sent.endswith(b"pellumar: interrupted; " + words + b"\r\n"), sent)
        self.assertEqual(sorted(os.listdir(self.folder)), ["W", "big"])
        self.assertEqual(os.listdir(self.folder / "W/outputs/zipOutputs"), [])
        self.assertFalse((self.folder / "W/outputs/T.zip").exists())



if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], *sys.argv[3:]])

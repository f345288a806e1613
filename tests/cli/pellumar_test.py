#!/usr/bin/env python3
"""Runs the program as a shell would.

    pellumar_test.py PROGRAM SOURCES [unittest arguments]
"""

import os
import pathlib
import re
import shutil
import signal
import subprocess
import sys
import unittest
import zipfile

from program import PROGRAM, ProgramTest

PACKAGING = pathlib.Path(sys.argv[2]).resolve() / "packaging"


class ZipTest(ProgramTest):
    def test_prints_the_archive_and_tells_the_steps_beside(self):
        self.write("one")
        self.write("in/two", b"2" * 100000)
        os.mkdir(self.folder / "dir")
        code, out, err = self.run_program("zip", "My title", "one", "in/two", "dir/", ".")
        path = self.folder / "W/outputs/My title.zip"
        self.assertEqual((code, out), (0, os.fsencode(path) + b"\n"))
        lines = err.splitlines()
        self.assertEqual([line.split(b";")[0] for line in lines[:2]],
                         [b"pellumar: warning: dir/: only its name goes in, not what is in it",
                          b"pellumar: warning: .: only its name goes in, not what is in it"])
        self.assertEqual((lines[2], lines[-1]), (b"Compressing 4 items", b"FINISHED"))
        with zipfile.ZipFile(path) as archive:
            self.assertIsNone(archive.testzip())
            self.assertEqual(archive.namelist(), ["one", "two", "dir/", self.folder.name + "/"])
        self.assertEqual(self.run_program("zip", "T", "one", "-q")[2], b"")
        self.assertTrue(path.exists(), "the workspace is never emptied")

    def test_takes_any_name(self):
        names = [b"[a,b]", b"-dash", b"--", b"-q", b"unzip", b"new\nline", b"odd\xff\xfe", b"a b%41",
                 b"--documents=X"]
        for name in names:
            self.write(name, name)
        code, out, _ = self.run_program("-q", "zip", "--", "[-x]", *names)
        self.assertEqual(code, 0)
        with zipfile.ZipFile(out.rstrip(b"\n").decode()) as archive:
            self.assertEqual([archive.read(entry) for entry in archive.infolist()], names)
        names.remove(b"odd\xff\xfe")
        self.assertEqual(self.run_program("-q", "zip", "--", "-T", *names)[0], 0)
        code, out, _ = self.run_program("-q", "-0", "unzip", "W/outputs/-T.zip")
        self.assertEqual(code, 0)
        paths = out.split(b"\0")[:-1]
        self.assertEqual(sorted(map(os.path.basename, paths)), sorted(names))
        for path in paths:
            self.assertEqual(pathlib.Path(os.fsdecode(path)).read_bytes(), os.path.basename(path))

    def test_says_in_one_line_why_it_failed(self):
        self.write("one")
        os.mkfifo(self.folder / "pipe")
        code, out, err = self.run_program("-q", "zip", "T", "missing\x1b[2J\n", "one", "pipe")
        self.assertEqual((code, out), (1, b""))
        self.assertRegex(err, rb"^pellumar: /.*/T\.zip: source cannot be read: missing\\x1b\[2J\\x0a: "
                              rb".*No such file or directory \(and 1 more\)\n$")
        self.write("file")
        code, out, err = self.run_program("-q", "zip", "T", "one", documents="file")
        self.assertEqual((code, out), (1, b""))
        self.assertRegex(err, rb"^pellumar: /.*/T\.zip: cannot be opened.*\n$")

    def test_does_not_replace_an_archive_by_itself(self):
        self.write("one")
        _, out, _ = self.run_program("zip", "T", "one")
        before = pathlib.Path(out.decode().strip()).read_bytes()
        code, _, err = self.run_program("-q", "zip", "T", "one", "W/outputs/T.zip")
        self.assertEqual((code, err.count(b"\n")), (1, 1))
        self.assertEqual(pathlib.Path(out.decode().strip()).read_bytes(), before)
        self.write("W/outputs/F.zip/precious")
        code, _, err = self.run_program("-q", "zip", "F", "W/outputs/F.zip/precious")
        self.assertEqual((code, err.count(b"\n")), (1, 1))
        self.assertTrue((self.folder / "W/outputs/F.zip/precious").exists())

    def test_warns_of_names_that_are_there_twice(self):
        for name in ("one", "in/one", "two"):
            self.write(name)
        code, out, err = self.run_program("zip", "T", "one", "two", "in/one",
                                          documents="./in/../W")
        self.assertEqual((code, err.count(b"warning: one: is there twice")), (0, 1))
        self.assertTrue(err.endswith(b"Finished: 3\nFINISHED\n"), err)
        self.assertEqual(out, os.fsencode(self.folder / "W/outputs/T.zip") + b"\n")
        self.assertEqual(self.run_program("-q", "zip", "T", "one", "in/one")[2], b"")
        self.write("folder/one/inside")
        code, _, err = self.run_program("-q", "zip", "F", "one", "folder/one")
        self.assertEqual((code, err.count(b"as a file and as a folder")), (1, 1))


class UnzipTest(ProgramTest):
    def archive(self, names, prefix=b""):
        with zipfile.ZipFile(self.folder / "a.zip", "w", zipfile.ZIP_DEFLATED) as archive:
            for name in names:
                archive.writestr(name, "data of " + name)
        self.write("a.zip", prefix + (self.folder / "a.zip").read_bytes())

    def test_prints_the_top_level_in_the_default_workspace(self):
        self.archive(["folder/a", "folder/b", ".hidden", "top"])
        code, out, err = self.run_program("unzip", "a.zip", documents=None)
        self.assertEqual((code, err), (0, b""))
        paths = sorted(map(pathlib.Path, out.decode().splitlines()), key=lambda path: path.name)
        self.assertEqual([path.name for path in paths], ["folder", "top"])
        self.assertEqual((paths[0] / "a").read_text(), "data of folder/a")
        self.assertEqual(paths[0].parents[1],
                         self.folder / "data/pellumar-zip/Terminal/outputs/zipOutputs")

    def test_says_in_one_line_why_it_failed(self):
        self.archive(["first", "second"])
        data = bytearray((self.folder / "a.zip").read_bytes())
        data[data.index(b"second") + len("second") + 3] ^= 0xFF
        self.write("a.zip", bytes(data))
        code, out, err = self.run_program("-q", "unzip", "a.zip")
        self.assertEqual((code, out), (1, b""))
        self.assertRegex(err, rb"^pellumar: /.*/a\.zip: .*: second \(at offset \d+\)\n$")
        code, out, err = self.run_program("unzip", "missing.zip")
        self.assertEqual((code, out, err.splitlines()[0]), (1, b"", b"FAILED!"))
        self.assertEqual(err.count(b"pellumar:"), 1)
        os.mkfifo(self.folder / "pipe")
        for name, what in ((".", b"is a folder"), ("pipe", b"is no file")):
            code, _, err = self.run_program("unzip", name)
            self.assertEqual((code, err.count(b"\n")), (1, 1))
            self.assertIn(what, err)

    def test_warns_of_oddities(self):
        self.archive(["x"], prefix=b"a stub of a program")
        code, _, err = self.run_program("unzip", "a.zip")
        self.assertEqual(code, 0)
        self.assertRegex(err, rb"^pellumar: /.*/a\.zip: warning: bytes before the archive.*\n$")
        self.assertEqual(self.run_program("-q", "unzip", "a.zip")[2], b"")

    def test_opens_what_is_protected_with_a_password(self):
        self.write("secret", b"what nobody knows")
        self.write("right", b"geheim\nsecond line\n")
        self.write("wrong", b"falsch")
        subprocess.run(["7zz", "a", "-tzip", "-mem=AES256", "-pgeheim", "a.zip", "secret"],
                       cwd=self.folder, check=True, stdout=subprocess.DEVNULL)
        code, out, err = self.run_program("-q", "unzip", "--password-file", "right", "a.zip")
        self.assertEqual((code, err), (0, b""))
        self.assertEqual(pathlib.Path(out.decode().strip()).read_bytes(), b"what nobody knows")
        for arguments in ([], ["--password-file", "wrong"]):
            code, out, err = self.run_program("-q", "unzip", "a.zip", *arguments)
            self.assertEqual((code, out, err.count(b"\n")), (1, b"", 1))
            self.assertIn(b"password", err)
        code, _, err = self.run_program("-q", "unzip", "a.zip", "--password-file", "missing")
        self.assertEqual((code, err), (1, b"pellumar: missing: No such file or directory\n"))
        self.write("long", b"x" * 4097)
        code, _, err = self.run_program("-q", "unzip", "a.zip", "--password-file", "long")
        self.assertEqual((code, err.count(b"longer than 4,096 bytes")), (1, 1), err)
        for answer, expected in ((b"geheim\n", 0), (b"falsch\n", 1), (b"geh\x03", 130)):
            code, sent = self.run_on_terminal("-q", "unzip", "a.zip", answer=answer,
                                              asked=b"Password of a.zip: ")
            self.assertEqual(code, expected, sent)
            self.assertNotIn(answer.strip(), sent)
        for command in (["unzip", "a.zip"], ["test", "a.zip"], ["salvage", "a.zip", "--to", "x"]):
            code, sent = self.run_on_terminal("-q", *command, answer=signal.SIGTERM,
                                              asked=b"Password of a.zip: ")
            self.assertEqual(code, 143, sent)

    def test_shows_progress_on_a_terminal(self):
        self.write("noise", os.urandom(2 << 20).hex().encode())
        subprocess.run(["7zz", "a", "-tzip", "-mm=PPMd", "slow.zip", "noise"], cwd=self.folder,
                       check=True, stdout=subprocess.DEVNULL)
        code, sent = self.run_on_terminal("unzip", "slow.zip")
        self.assertEqual(code, 0)
        self.assertRegex(sent, rb"\d+ %  [\d.]+ .B of 4\.2 MB  .*/s  .* left  noise")
        self.assertRegex(sent, rb"\r\x1b\[K/.*/noise\r\n$")
        self.assertNotIn(b"FAILED", sent)

    # It used to leave what was finished, in a folder that nobody would look for.
    def test_leaves_nothing_when_it_is_interrupted(self):
        self.write("small")
        for name, size in (("gigabyte", 1 << 30), ("endless", 1 << 36)):
            self.write(name)
            os.truncate(self.folder / name, size)
        self.assertEqual(self.run_program("-q", "zip", "A", "small", "gigabyte")[0], 0)
        archive = self.folder / "W/outputs/A.zip"
        before = archive.read_bytes()
        for command in (["unzip", archive], ["zip", "A", "endless"]):
            for number in (signal.SIGINT, signal.SIGTERM):
                process = subprocess.Popen([PROGRAM, "--documents", "W", "-q", *command],
                                           cwd=self.folder, env=self.environment,
                                           stderr=subprocess.PIPE)
                self.wait_for_work(process, 50 << 20)
                process.send_signal(number)
                _, err = process.communicate(timeout=60)
                self.assertEqual((process.returncode, err),
                                 (128 + number, b"pellumar: interrupted; nothing of it stays\n"))
                left = {str(path.relative_to(self.folder / "W")) for path in
                        (self.folder / "W").rglob("*")}
                self.assertEqual(left, {"downloads", "outputs", "outputs/A.zip",
                                        "outputs/tempImages", "outputs/zipOutputs"})
        self.assertEqual(archive.read_bytes(), before)

    def test_names_cannot_command_the_terminal(self):
        self.archive(["evil\x1b]0;title\x07\u009b31m"])
        code, sent = self.run_on_terminal("unzip", "a.zip")
        self.assertEqual(code, 0)
        self.assertTrue(sent.endswith(b"/evil\\x1b]0;title\\x07\\xc2\\x9b31m\r\n"), sent)


class StreamsAndUsageTest(ProgramTest):
    def test_output_that_cannot_be_written_is_a_failure(self):
        self.write("one")
        with open("/dev/full", "wb") as full:
            code, _, err = self.run_program("-q", "zip", "T", "one", stdout=full)
            self.assertEqual((code, err),
                             (1, b"pellumar: standard output: No space left on device\n"))
            self.assertEqual(self.run_program("--help", stdout=full)[0], 1)

    def test_closed_streams_do_not_end_up_in_the_archive(self):
        self.write("one")
        shell = f"'{PROGRAM}' --documents W zip T one <&- >&- 2>&-"
        done = subprocess.run(["sh", "-c", shell], cwd=self.folder, env=self.environment,
                              check=False)
        self.assertEqual(done.returncode, 1)
        with zipfile.ZipFile(self.folder / "W/outputs/T.zip") as archive:
            self.assertIsNone(archive.testzip())

    def test_wrong_usage_is_told_from_failure(self):
        self.write("one")
        for arguments in ([], ["zip"], ["zip", "T"], ["zip", "../b", "one"], ["zip", "T", ""],
                          ["unzip"], ["unzip", "a", "b"], ["unzip", "-x", "a"], ["draw", "a"]):
            code, out, err = self.run_program(*arguments)
            self.assertEqual((code, out), (2, b""), arguments)
            self.assertTrue(err.startswith(b"pellumar: "), err)
        self.assertFalse((self.folder / "W").exists())
        for arguments, reason in (([], b"a command is missing"),
                                  (["draw", "a"], b"unknown command: draw;"),
                                  (["--list"], b"unknown option: --list\n"),
                                  (["zip", "--list", "T", "one"], b".*--list\n")):
            self.assertRegex(self.run_program(*arguments)[2], b"^pellumar: " + reason)
        for arguments in (["--help"], ["-h"], ["zip", "--help"], ["--version"]):
            code, out, err = self.run_program(*arguments)
            self.assertEqual((code, err), (0, b""), arguments)
            self.assertIn(b"pellumar", out)
        self.assertIn(b"--documents", self.run_program("zip", "--help")[1])

    def test_speaks_up_without_a_home_and_keeps_quiet_about_locales(self):
        self.write("one")
        for name in ("HOME", "XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME"):
            self.environment.pop(name, None)
        self.environment["LC_ALL"] = "C"
        code, _, err = self.run_program("zip", "T", "one", documents=None)
        self.assertEqual((code, err.count(b"\n")), (1, 1))
        self.assertRegex(err, b"^pellumar: There is no home folder .*--documents")
        self.assertEqual(self.run_program("-q", "zip", "T", "one")[2], b"")

    def test_loads_no_more_than_it_needs(self):
        loaded = subprocess.run(["ldd", PROGRAM], check=True, stdout=subprocess.PIPE).stdout
        self.assertEqual(set(re.findall(rb"libQt6\w+", loaded)), {b"libQt6Core"})


class PackagingTest(ProgramTest):
    BASH = PACKAGING / "completion/pellumar.bash"
    ZSH = PACKAGING / "completion/_pellumar"
    FISH = PACKAGING / "completion/pellumar.fish"
    MAN = PACKAGING / "man/pellumar.1"

    def test_scripts_and_man_page_parse(self):
        for command in (["bash", "-n", self.BASH], ["zsh", "-n", self.ZSH],
                        ["fish", "-n", self.FISH],
                        ["groff", "-man", "-Tutf8", "-ww", "-z", self.MAN]):
            if shutil.which(command[0]):
                done = subprocess.run(command, check=False, stdout=subprocess.PIPE,
                                      stderr=subprocess.STDOUT)
                self.assertEqual((done.returncode, done.stdout), (0, b""), command)

    def test_every_command_and_option_is_documented_and_completed(self):
        help_text = self.run_program("--help", documents=None)[1].decode()
        commands = re.findall(r"^  (\w+) ", help_text.split("Subcommands:")[1], re.MULTILINE)
        self.assertIn("create", commands)
        words = set(commands)
        for command in commands:
            text = self.run_program(command, "--help", documents=None)[1].decode()
            words |= set(re.findall(r"^  (?:-\w,)?(--[\w-]+)", text, re.MULTILINE))
        self.assertLess({"--documents", "--null", "--strip", "--reproducible"}, words)
        for file in (self.BASH, self.ZSH, self.FISH, self.MAN):
            text = file.read_text().replace("\\-", "-").replace("-l ", "--")
            for word in words:
                self.assertRegex(text, rf"(?<![\w-]){word}\b", file)

    def test_bash_completes(self):
        for name in ("B.ZIP", "c.txt"):
            self.write(name)
        with zipfile.ZipFile(self.folder / "a.zip", "w") as archive:
            archive.writestr("folder/one", "1")
        os.mkdir(self.folder / "dir")
        for words, expected in (
                (["z"], {"zip"}),
                (["--documents", ""], {"dir"}),
                (["--documents", "dir", ""], {"create", "extract", "list", "cat", "test",
                                              "salvage", "zip",
                                              "unzip"}),
                (["zip", "--n"], {"--null"}),
                (["zip", ""], set()),
                (["zip", "T", "c"], {"c.txt"}),
                (["unzip", "--pa"], {"--password-file"}),
                (["unzip", "--password-file", "c"], {"c.txt"}),
                (["unzip", "--password-file", "c.txt", ""], {"a.zip", "B.ZIP", "dir"}),
                (["unzip", ""], {"a.zip", "B.ZIP", "dir"}),
                (["extract", "--st"], {"--strip"}),
                (["extract", "a.zip", "--to", ""], {"dir"}),
                (["extract", "a.zip", "f"], {"folder/one"}),
                (["create", "new", "c"], {"c.txt"}),
                (["create", "--level", "st"], {"store"}),
                (["test", "a.zip", ""], {"a.zip", "B.ZIP", "dir"})):
            script = (f"compopt() {{ :; }}; . '{self.BASH}'; COMP_WORDS=('{PROGRAM}' \"$@\"); "
                      "COMP_CWORD=$#; _pellumar; printf '%s\\n' \"${COMPREPLY[@]}\"")
            done = subprocess.run(["bash", "-c", script, "bash", *words], cwd=self.folder,
                                  check=True, stdout=subprocess.PIPE)
            self.assertEqual(set(done.stdout.decode().split()), expected, words)


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], *sys.argv[3:]])

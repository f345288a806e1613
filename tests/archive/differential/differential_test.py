#!/usr/bin/env python3
"""Unpacks damaged and deceiving archives with this program and with Info-ZIP, 7-Zip, bsdtar and
Python. Where two of them take an archive without a complaint and find the same in it, this program
finds that too, or refuses for a reason that is accounted for.

    differential_test.py DECEITS PROGRAM STRIDE

Of so many archives one is tried.
"""

import collections
import concurrent.futures
import os
import pathlib
import re
import resource
import shutil
import subprocess
import sys
import tempfile
import zipfile

DECEITS, PROGRAM, STRIDE = sys.argv[1:4]
MEMORY = "/dev/shm" if os.access("/dev/shm", os.W_OK) else None

# None of these archives holds as much; some claim it, and are believed by some.
LARGEST = 16 << 20

# Why an archive is refused that two others take; docs/security.md says more.
ACCOUNTED = ["headers disagree", "damaged central directory", "overlaps another entry",
             "declared sizes are not true", "unsafe name", "symbolic link that leaves",
             "volume of the archive is missing", "both a file and a folder", "name too long", "unsupported compression method",
             "encrypted, needs", "spans several disks", "larger unpacked than", "truncated"]


def tree(folder):
    found = {}
    for path in folder.rglob("*"):
        name = os.fsencode(path.relative_to(folder))
        if path.is_symlink():
            found[name] = b"-> " + os.fsencode(os.readlink(path))
        elif path.is_file():
            size = path.stat().st_size
            found[name] = path.read_bytes() if size <= LARGEST else b"%d bytes" % size
    return found


def command(*arguments):
    def unpack(archive, folder):
        done = subprocess.run([*arguments, archive], cwd=folder, stdin=subprocess.DEVNULL,
                              capture_output=True, check=False, timeout=60)
        return done.returncode == 0 and not done.stderr
    return unpack


def python(archive, folder):
    try:
        with zipfile.ZipFile(archive) as opened:
            opened.extractall(folder)
    except Exception:  # whatever it is, it is a complaint
        return False
    return True


def ours(archive, folder):
    """The complaint, or nothing."""
    done = subprocess.run([PROGRAM, "--quiet", "--documents", folder, "unzip", archive],
                          stdin=subprocess.DEVNULL, capture_output=True, check=False, timeout=60)
    return os.fsdecode(done.stderr).partition(".zip: ")[2].strip() if done.returncode else None


PEERS = {"unzip": command("unzip", "-qq", "-o"), "bsdtar": command("bsdtar", "-xf"),
         "python": python}
for seven in ("7zz", "7z"):
    if shutil.which(seven):
        PEERS["7-Zip"] = command(seven, "x", "-y", "-bso0", "-bsp0")
        break


def spelled(name):
    try:
        return name.decode()
    except UnicodeDecodeError:
        return name


def judge(archive):
    """What came of it: a word to count, and a complaint if it is not right."""
    found = collections.Counter()
    trees = {}
    with tempfile.TemporaryDirectory(dir=MEMORY, ignore_cleanup_errors=True) as scratch:
        for name, unpack in PEERS.items():
            folder = pathlib.Path(scratch, name)
            folder.mkdir()
            try:
                key = tuple(sorted(tree(folder).items())) if unpack(archive, folder) else None
            except OSError:
                key = None  # paths that nobody can name
            if key is not None:
                found[key] += 1
                trees.setdefault(key, []).append(name)
        folder = pathlib.Path(scratch, "ours")
        complaint = ours(archive, folder)
        extractions = list(folder.glob("outputs/zipOutputs/*"))
        mine = tuple(sorted(tree(extractions[0]).items())) if extractions else ()
    agreed = [key for key, count in found.items() if count > 1]
    if not agreed:
        return ("nobody agrees, " + ("refused" if complaint else "taken")), None
    if complaint is None:
        # Others leave a name's oddities in, or a link out; what they have in common counts.
        if any(isinstance(spelled(name), bytes) for key in agreed for name, _ in key):
            return "names without UTF-8, of which we make letters", None
        return "agrees", None if mine in agreed else f"{trees[agreed[0]]} find otherwise"
    for words in ACCOUNTED:
        if words in complaint:
            return f"refused: {words}", None
    return "refused", f"{trees[agreed[0]]} take it: {complaint}"


sys.setrecursionlimit(20000)  # folders of folders, which are to be removed


def main():
    resource.setrlimit(resource.RLIMIT_FSIZE, (2 * LARGEST, 2 * LARGEST))
    with tempfile.TemporaryDirectory(dir=MEMORY) as folder:
        what = subprocess.run([DECEITS, folder, STRIDE], capture_output=True, check=True)
        names = what.stdout.decode(errors="replace").splitlines()
        archives = sorted(pathlib.Path(folder).glob("*.zip"), key=lambda path: int(path.stem))
        with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
            verdicts = list(pool.map(judge, archives))
        wrong = [f"{archive.name}: {complaint}" for archive, (_, complaint)
                 in zip(archives, verdicts) if complaint]
        for word, count in collections.Counter(word for word, _ in verdicts).most_common():
            print(f"{count:6} {word}")
        print("\n".join(wrong[:40]))
        if len(names) == len(archives):
            for line in wrong[:40]:
                print(re.sub(r"^(\d+).zip", lambda m: names[int(m[1])], line))
        return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())

"""Finds out who reads and who writes which method, and holds the table of docs/archive-handling.md
against it: every cell is tried with the program itself.

    peers_test.py TABLE PELLUMAR
"""

import os
import pathlib
import re
import shutil
import struct
import subprocess
import sys
import tempfile
import zipfile
import zlib

PASSWORD = "geheim"
CONTENT = b"some text that shrinks, that shrinks, that shrinks\n" * 100
SKIPPED = 77

SEVEN_ZIP = ["7zz", "a", "-tzip", "-bd"]
ENCRYPTIONS = {"traditional encryption": ("ZipCrypto", "zipcrypt", "traditional"),
               "AES-128": ("AES128", "aes128", "aes128"),
               "AES-192": ("AES192", "aes192", "aes192"),
               "AES-256": ("AES256", "aes256", "aes256")}
# The methods of each row, and what 7-Zip, bsdtar and zip would call them.
METHODS = {"0 stored": ([0], "Copy", "store", "store"),
           "1 Shrink": ([1], "Shrink", "shrink", "shrink"),
           "2 to 5 Reduce": ([2, 3, 4, 5], "Reduce", "reduce", "reduce"),
           "6 Implode": ([6], "Implode", "implode", "implode"),
           "8 Deflate": ([8], "Deflate", "deflate", "deflate"),
           "9 Deflate64": ([9], "Deflate64", "deflate64", "deflate64"),
           "12 bzip2": ([12], "BZip2", "bzip2", "bzip2"),
           "14 LZMA": ([14], "LZMA", "lzma", "lzma"),
           "20 Zstandard (old number)": ([20], "ZSTD", "zstd", "zstd"),
           "93 Zstandard": ([93], "ZSTD", "zstd", "zstd"),
           "95 XZ": ([95], "XZ", "xz", "xz"),
           "98 PPMd": ([98], "PPMd", "ppmd", "ppmd")}
PEERS = ["ours", "Info-ZIP", "7-Zip", "bsdtar", "Python"]


def run(command, folder):
    return subprocess.run([str(part) for part in command], cwd=folder, stdin=subprocess.DEVNULL,
                          capture_output=True, check=False).returncode == 0


def in_bits(values):
    """(value, width) each, the lowest bits first."""
    number = position = 0
    for value, width in values:
        number |= value << position
        position += width
    return number.to_bytes((position + 7) // 8, "little")


def by_hand(method):
    """The content as a method has it that no program here writes: a plain form of it."""
    literals = [(byte, 8) for byte in CONTENT]
    if method == 1:  # codes of single bytes
        return in_bits((byte, 9) for byte in CONTENT)
    if method in (2, 3, 4, 5):  # no byte has followers
        return in_bits([(0, 6)] * 256 + literals)
    if method == 6:  # two codes of 64 symbols with 6 bits each, which are not used
        code = [(3, 8)] + [(0xF5, 8)] * 4
        return in_bits(code * 2 + [bit for literal in literals for bit in ((1, 1), literal)])
    return subprocess.run(["zstd", "-qc"], input=CONTENT, stdout=subprocess.PIPE,
                          check=True).stdout


def write_zip(path, method, data):
    common = struct.pack("<HHHHHIIIHH", 20, 0, method, 0, 0x21, zlib.crc32(CONTENT), len(data),
                         len(CONTENT), 4, 0)
    local = b"PK\3\4" + common + b"text" + data
    central = b"PK\1\2\x14\0" + common + bytes(14) + b"text"
    end = b"PK\5\6" + struct.pack("<HHHHIIH", 0, 0, 1, 1, len(central), len(local), 0)
    path.write_bytes(local + central + end)


def samples(row, folder):
    """An archive of each method of a row."""
    path = folder / (re.sub(r"\W", "", row) + ".zip")
    if row in ENCRYPTIONS:
        command = [*SEVEN_ZIP, "-mem=" + ENCRYPTIONS[row][0], "-p" + PASSWORD]
    else:
        command = [*SEVEN_ZIP, "-mm=" + METHODS[row][1]]
        if any(method in (1, 2, 6, 20, 93) for method in METHODS[row][0]):
            paths = []
            for method in METHODS[row][0]:
                paths.append(path.with_suffix(f".{method}.zip"))
                write_zip(paths[-1], method, by_hand(method))
            return paths
    assert run([*command, path, "text"], folder) and row_of(path) == row, row
    return [path]


def row_of(archive):
    """The row that an archive's only entry belongs to."""
    with zipfile.ZipFile(archive) as opened:
        entry = opened.infolist()[0]
    extra = entry.extra
    while len(extra) >= 4:
        size = int.from_bytes(extra[2:4], "little")
        if extra[:2] == b"\x01\x99":
            return "AES-" + str(64 * (extra[8] + 1))
        extra = extra[4 + size:]
    if entry.flag_bits & 1:
        return "traditional encryption"
    return next(row for row, (numbers, *_) in METHODS.items() if entry.compress_type in numbers)


def reads(peer, archive, folder, program):
    target = pathlib.Path(tempfile.mkdtemp(dir=folder))
    run({"ours": [program, "extract", archive, "--password-file", folder / "password"],
         "Info-ZIP": ["unzip", "-qP", PASSWORD, archive],
         "7-Zip": ["7zz", "x", "-bd", "-p" + PASSWORD, archive],
         "bsdtar": ["bsdtar", "--passphrase", PASSWORD, "-xf", archive],
         "Python": [sys.executable, "-c",
                    "import sys, zipfile; zipfile.ZipFile(sys.argv[1]).extractall(pwd=b'%s')"
                    % PASSWORD, archive]}[peer], target)
    text = target / "text"
    return text.exists() and text.read_bytes() == CONTENT


def wish(peer, row, folder, program):
    """The command that asks a program for a method, to which archive and file are added; nothing
    where it has no word to ask by."""
    if row in ENCRYPTIONS:
        seven_zip, bsdtar, ours = ENCRYPTIONS[row]
        return {"ours": [program, "create", "--password-file", folder / "password",
                         "--encryption", ours],
                "Info-ZIP": row == "traditional encryption" and ["zip", "-qP", PASSWORD],
                "7-Zip": [*SEVEN_ZIP, "-mem=" + seven_zip, "-p" + PASSWORD],
                "bsdtar": ["bsdtar", "--format", "zip", "--passphrase", PASSWORD, "--options",
                           "zip:encryption=" + bsdtar, "-cf"]}.get(peer)
    numbers, seven_zip, bsdtar, info_zip = METHODS[row]
    return {"ours": {"0 stored": [program, "create", "--level", "store"],
                     "8 Deflate": [program, "create"]}.get(row),
            "Info-ZIP": ["zip", "-qZ", info_zip],
            "7-Zip": [*SEVEN_ZIP, "-mm=" + seven_zip],
            "bsdtar": ["bsdtar", "--format", "zip", "--options", "zip:compression=" + bsdtar,
                       "-cf"],
            "Python": [sys.executable, "-c",
                       "import sys, zipfile; "
                       f"zipfile.ZipFile(sys.argv[1], 'w', {numbers[0]}).write(sys.argv[2])"]}[peer]


def writes(peer, row, folder, program):
    command = wish(peer, row, folder, program)
    target = pathlib.Path(tempfile.mkdtemp(dir=folder)) / "made.zip"
    return bool(command) and run([*command, target, "text"], folder) and row_of(target) == row


def line_of(row, folder, program):
    cells = []
    for peer in PEERS:
        does = [reads(peer, sample, folder, program) for sample in samples(row, folder)]
        assert all(does) or not any(does), (row, peer)
        words = ["reads"] * does[0] + ["writes"] * writes(peer, row, folder, program)
        cells.append(", ".join(words) or "no")
    return f"| {row} | " + " | ".join(cells) + " |"


def main():
    table, program = sys.argv[1], os.path.abspath(sys.argv[2])
    missing = [name for name in ("zip", "unzip", "7zz", "bsdtar", "zstd") if not shutil.which(name)]
    if missing:
        print("not here: " + ", ".join(missing))
        return SKIPPED
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        (folder / "text").write_bytes(CONTENT)
        (folder / "password").write_text(PASSWORD + "\n")
        found = ["| method | " + " | ".join(PEERS) + " |", "|---" * (len(PEERS) + 1) + "|",
                 *(line_of(row, folder, program) for row in (*METHODS, *ENCRYPTIONS))]
    if "\n".join(["", *found, ""]) in pathlib.Path(table).read_text():
        print("the table is right")
        return 0
    print("the table should be\n\n" + "\n".join(found))
    return 1


if __name__ == "__main__":
    sys.exit(main())

"""Holds the table of docs/archive-handling.md, who reads and who writes which method, against what
the programs do: each cell is tried.

    peers_test.py TABLE PELLUMAR

Methods that only our own encoders make are tried by the test LegacyMethods.
"""

import pathlib
import re
import subprocess
import sys
import tempfile
import zipfile

PASSWORD = "geheim"
CONTENT = b"some text that shrinks, that shrinks, that shrinks\n" * 400

# The row, and how 7-Zip or Python make an archive of it.
SEVEN_ZIP = ["7zz", "a", "-tzip", "-bd"]
MAKERS = {
    "0 stored": [*SEVEN_ZIP, "-mm=Copy"],
    "8 Deflate": [*SEVEN_ZIP, "-mm=Deflate"],
    "9 Deflate64": [*SEVEN_ZIP, "-mm=Deflate64"],
    "12 bzip2": [*SEVEN_ZIP, "-mm=BZip2"],
    "14 LZMA": [*SEVEN_ZIP, "-mm=LZMA"],
    "95 XZ": [*SEVEN_ZIP, "-mm=XZ"],
    "98 PPMd": [*SEVEN_ZIP, "-mm=PPMd"],
    "traditional encryption": [*SEVEN_ZIP, "-mem=ZipCrypto", "-p" + PASSWORD],
    "AES-128": [*SEVEN_ZIP, "-mem=AES128", "-p" + PASSWORD],
    "AES-192": [*SEVEN_ZIP, "-mem=AES192", "-p" + PASSWORD],
    "AES-256": [*SEVEN_ZIP, "-mem=AES256", "-p" + PASSWORD],
}

# How each program that can be asked for a method is asked to write it.
BSDTAR = ["bsdtar", "--format", "zip", "--passphrase", PASSWORD]
WRITERS = {
    ("zip", "0 stored"): ["zip", "-q0"],
    ("zip", "8 Deflate"): ["zip", "-q"],
    ("zip", "12 bzip2"): ["zip", "-qZ", "bzip2"],
    ("zip", "traditional encryption"): ["zip", "-qP", PASSWORD],
    ("bsdtar", "0 stored"): [*BSDTAR, "--options", "zip:compression=store", "-cf"],
    ("bsdtar", "8 Deflate"): [*BSDTAR, "-cf"],
    ("bsdtar", "traditional encryption"):
        [*BSDTAR, "--options", "zip:encryption=zipcrypt", "-cf"],
    ("bsdtar", "AES-128"): [*BSDTAR, "--options", "zip:encryption=aes128", "-cf"],
    ("bsdtar", "AES-192"): [*BSDTAR, "--options", "zip:encryption=aes192", "-cf"],
    ("bsdtar", "AES-256"): [*BSDTAR, "--options", "zip:encryption=aes256", "-cf"],
    **{("7-Zip", row): maker for row, maker in MAKERS.items()},
}
PYTHON_METHODS = {"0 stored": zipfile.ZIP_STORED, "8 Deflate": zipfile.ZIP_DEFLATED,
                  "12 bzip2": zipfile.ZIP_BZIP2, "14 LZMA": zipfile.ZIP_LZMA}


def run(command, folder):
    return subprocess.run(command, cwd=folder, stdin=subprocess.DEVNULL, capture_output=True,
                          check=False).returncode == 0


def kind_of(archive):
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
    return next((row for row in MAKERS if row.split()[0] == str(entry.compress_type)), None)


def reads(peer, archive, folder, program):
    target = pathlib.Path(tempfile.mkdtemp(dir=folder))
    secret = target.parent / "password"
    secret.write_text(PASSWORD + "\n")
    commands = {
        "unzip": ["unzip", "-qP", PASSWORD, archive],
        "7-Zip": ["7zz", "x", "-bd", "-p" + PASSWORD, archive],
        "bsdtar": ["bsdtar", "--passphrase", PASSWORD, "-xf", archive],
        "Python": [sys.executable, "-c",
                   "import sys, zipfile; zipfile.ZipFile(sys.argv[1]).extractall(pwd=b'%s')"
                   % PASSWORD, archive],
        "ours": [program, "--documents", target, "unzip", "--password-file", secret, archive],
    }
    run([str(part) for part in commands[peer]], target)
    return any(file.read_bytes() == CONTENT for file in target.rglob("text"))


def writes(peer, row, folder):
    target = pathlib.Path(tempfile.mkdtemp(dir=folder)) / "made.zip"
    if peer == "Python":
        if row not in PYTHON_METHODS:
            return False
        with zipfile.ZipFile(target, "w", PYTHON_METHODS[row]) as made:
            made.write(folder / "text", "text")
    elif (peer, row) not in WRITERS or not run(
            [*WRITERS[peer, row], str(target), "text"], folder):
        return False
    return kind_of(target) == row


def table_of(path):
    """The cells as {row: {peer: "reads, writes"}}."""
    rows = {}
    lines = iter(pathlib.Path(path).read_text().splitlines())
    for line in lines:
        if line.startswith("| method |"):
            peers = [cell.strip() for cell in line.strip("|").split("|")][1:]
            next(lines)
            for row in lines:
                if not row.startswith("|"):
                    return rows
                cells = [cell.strip() for cell in row.strip("|").split("|")]
                rows[cells[0]] = dict(zip(peers, cells[1:]))
    raise SystemExit("there is no table")


def main():
    table, program = sys.argv[1:]
    wrong = []
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        (folder / "text").write_bytes(CONTENT)
        rows = table_of(table)
        for row in set(MAKERS) - set(rows):
            wrong.append(f"{row}: not in the table")
        for row, maker in MAKERS.items():
            archive = folder / (re.sub(r"\W", "", row) + ".zip")
            if not run([*maker, str(archive), "text"], folder):
                continue  # nobody here makes it
            for peer, cell in rows.get(row, {}).items():
                found = reads("unzip" if peer == "Info-ZIP" else peer, archive, folder, program)
                if found != ("reads" in cell):
                    wrong.append(f"{row}, {peer}: the table says '{cell}', it "
                                 f"{'reads' if found else 'does not read'} it")
        for row in MAKERS:
            for peer, cell in rows.get(row, {}).items():
                if peer != "ours":
                    found = writes("zip" if peer == "Info-ZIP" else peer, row, folder)
                    if found != ("writes" in cell):
                        wrong.append(f"{row}, {peer}: the table says '{cell}', it "
                                     f"{'writes' if found else 'does not write'} it")
    print("\n".join(wrong) or "the table is right")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())

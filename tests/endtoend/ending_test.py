#!/usr/bin/env python3
"""The application ends in the middle of its work, and starts again."""

import bz2
import os
import stat
import struct
import time
import zlib

import road

PARTS = 100
PART_BYTES = 4 << 20
METHOD = 12
VERSION = 46
THUMBNAILER = """[Thumbnailer Entry]
Exec={program} %i %o
MimeType=video/mp4;
"""


def make_slow_archive(path):
    """One whose extraction takes long: of parts that all hold the same, which is slow to decode."""
    data = os.urandom(PART_BYTES).translate(bytes(each & 3 for each in range(256)))
    packed = bz2.compress(data)
    facts = struct.pack("<HHHHIII", 0, METHOD, 0, 0x21, zlib.crc32(data), len(packed), len(data))
    directory = b""
    with open(path, "wb") as archive:
        for part in range(PARTS):
            name = f"part{part}".encode()
            place = archive.tell()
            archive.write(b"PK\3\4" + struct.pack("<H", VERSION) + facts
                          + struct.pack("<HH", len(name), 0) + name + packed)
            directory += (b"PK\1\2" + struct.pack("<HH", VERSION, VERSION) + facts
                          + struct.pack("<HHHHHII", len(name), 0, 0, 0, 0, 0, place) + name)
        place = archive.tell()
        archive.write(directory + b"PK\5\6" + struct.pack("<HHHHIIH", 0, 0, PARTS, PARTS,
                                                          len(directory), place, 0))


class EndingTest(road.RoadTest):
    def written(self):
        """How many bytes of the archive's parts are on the disk."""
        return sum(each.stat().st_size for each in self.home.rglob("zipOutputs/*/part*"))

    def test_while_an_archive_is_being_extracted(self):
        archive = self.home / "slow.zip"
        make_slow_archive(archive)
        self.desktop.end(self.start_at_home())
        application = self.desktop.start(archive)
        self.confirm(application)
        road.until(self.written, lambda: f"the first part\n{application.outline()}")
        self.desktop.end(application)
        # It did not work on to the end.
        self.assertLess(self.written(), PARTS * PART_BYTES)
        self.desktop.start().find("push button", "Unzip")
        self.assertEqual(self.written(), 0)

    def test_while_a_thumbnail_is_being_made(self):
        started = self.home / "started"
        program = self.home / "slow-thumbnailer"
        program.write_text(f"#!/bin/sh\necho $$ > {started}\nexec sleep 1000\n")
        program.chmod(program.stat().st_mode | stat.S_IXUSR)
        entries = self.home / ".local/share/thumbnailers"
        entries.mkdir(parents=True)
        (entries / "slow.thumbnailer").write_text(THUMBNAILER.format(program=program))
        archive = self.make_archive("film.zip", {"film.mp4": b"film"})
        self.desktop.end(self.start_at_home())
        application = self.desktop.start(archive)
        self.confirm(application)
        thumbnailer = int(road.until(lambda: started.is_file() and started.read_text(),
                                     lambda: f"the thumbnailer\n{application.outline()}"))
        before = time.monotonic()
        self.desktop.end(application)
        # Less than thumbnailers are given.
        self.assertLess(time.monotonic() - before, 5)
        road.until(lambda: not is_running(thumbnailer), "the thumbnailer's end")
        self.desktop.start().find("push button", "Unzip")


def is_running(pid):
    try:
        with open(f"/proc/{pid}/stat", encoding="ascii", errors="replace") as facts:
            return facts.read().rpartition(")")[2].split()[0] != "Z"
    except FileNotFoundError:
        return False


if __name__ == "__main__":
    road.main()

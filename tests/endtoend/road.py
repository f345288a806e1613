"""What all end-to-end tests stand on: a desktop for each, and the steps that roads share."""

import struct
import sys
import unittest
import zipfile
import zlib

from desktop import Desktop
from waiting import PATIENCE, until

# Every run: PROGRAM SERVICE [unittest arguments].
PROGRAM, SERVICE = sys.argv[1:3]


def picture(width, height):
    """A PNG file, all of one colour."""
    def chunk(kind, data):
        return (struct.pack(">I", len(data)) + kind + data
                + struct.pack(">I", zlib.crc32(kind + data)))

    row = b"\0" + b"\xff\x80\x20" * width
    header = struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0)
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header)
            + chunk(b"IDAT", zlib.compress(row * height)) + chunk(b"IEND", b""))


class RoadTest(unittest.TestCase):
    def setUp(self):
        self.desktop = Desktop(PROGRAM, SERVICE)
        self.addCleanup(self.desktop.close)
        self.addCleanup(self.check_log)
        self.home = self.desktop.home

    def check_log(self):
        """Neither the layouts nor a sanitizer have complained of anything on the way."""
        text = self.desktop.log_text()
        complaints = [line for line in text.splitlines() if "qrc:" in line or "Sanitizer" in line]
        self.assertEqual(complaints, [], text)

    def make_archive(self, name, files):
        """Makes an archive of {name: bytes} in the home folder and returns its path."""
        path = self.home / name
        with zipfile.ZipFile(path, "w", zipfile.ZIP_DEFLATED) as archive:
            for each, data in files.items():
                archive.writestr(each, data)
        return path

    def start_at_home(self):
        """The application at its home screen, after the onboarding of a first start."""
        application = self.desktop.start()
        application.press("push button", "OK")
        application.find("push button", "Unzip")
        return application

    def zip_one(self, application, name, title):
        """From the home screen: makes an archive of one of the user's documents."""
        application.press("push button", "Zip")
        application.press("push button", "Files")
        application.press("push button", "Documents")
        application.click("check box", name)
        application.press("push button", "Add")
        field = application.find("text", "Filename")
        until(lambda: "focused" in field.states, "the keyboard in the field")
        application.type(title)
        application.press("push button", "Save")

    def confirm(self, application):
        """Answers the question about an archive that was handed over. It waits for that first: a
        button of the home screen is called the same."""
        application.find("dialog")
        application.press("push button", "Unzip")

    def make_files(self, files):
        """Makes files of {name: bytes} in the user's documents."""
        for name, data in files.items():
            (self.home / "Documents" / name).write_bytes(data)

    def save_shared(self, application, place="Downloads"):
        """From an open share sheet: saves to a place of the picker and waits for the end."""
        application.press("push button", "Save to…")
        application.press("push button", place)
        application.find("label", place)
        application.press("push button", "Save here")
        application.wait_until_gone("dialog")

    def until_file(self, path):
        """The bytes of a file that will be there."""
        until(path.is_file, f"{path}\n{self.desktop.log_text()}")
        return path.read_bytes()


def main():
    unittest.main(argv=[sys.argv[0], *sys.argv[3:]], verbosity=2)

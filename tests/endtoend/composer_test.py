#!/usr/bin/env python3
"""An archive made of what the user picks, under a title that is typed."""

import subprocess

import road

FILES = {"Angebot für Köln.txt": b"kept as it is\n" * 500, "empty.dat": b"",
         "notes.md": bytes(range(256)) * 40}


class ComposerTest(road.RoadTest):
    def check_with_info_zip(self, archive, files):
        """Another archiver finds the archive whole, and in it the files with their bytes."""
        subprocess.run(["unzip", "-tqq", archive], check=True)
        names = subprocess.run(["unzip", "-Z1", archive], check=True, stdout=subprocess.PIPE).stdout
        self.assertEqual(sorted(names.decode().splitlines()), sorted(files))
        folder = self.home / "unpacked"
        subprocess.run(["unzip", "-qq", archive, "-d", folder], check=True)
        for name, data in files.items():
            self.assertEqual((folder / name).read_bytes(), data, name)

    def test_three_files(self):
        self.make_files(FILES | {"not wanted.txt": b"stays"})
        application = self.start_at_home()
        application.click("push button", "Zip")
        application.press("push button", "Files")
        application.press("push button", "Documents")
        for name in FILES:
            application.click("check box", name)
        application.press("push button", "Add (3)")
        field = application.find("text", "Filename")
        application.type("Two words 7")
        road.until(lambda: field.text == "Two words 7", lambda: f"the title, is {field.text!r}")
        application.press("push button", "Save")
        self.save_shared(application)
        archive = self.home / "Downloads" / "Two words 7.zip"
        self.until_file(archive)
        self.check_with_info_zip(archive, FILES)


if __name__ == "__main__":
    road.main()

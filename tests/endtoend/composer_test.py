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

    def save_under(self, title, application):
        """Answers the question for the title, saves what is shared, and returns where it is."""
        field = application.find("text", "Filename")
        road.until(lambda: "focused" in field.states, "the keyboard in the field")
        application.type(title)
        road.until(lambda: field.text == title, lambda: f"the title, is {field.text!r}")
        application.press("push button", "Save")
        self.save_shared(application)
        archive = self.home / "Downloads" / f"{title}.zip"
        self.until_file(archive)
        return archive

    def test_three_files(self):
        self.make_files(FILES | {"not wanted.txt": b"stays"})
        application = self.start_at_home()
        application.click("push button", "Zip")
        application.press("push button", "Files")
        application.press("push button", "Documents")
        for name in FILES:
            application.click("check box", name)
        application.press("push button", "Add (3)")
        self.check_with_info_zip(self.save_under("Two words 7", application), FILES)

    def test_photos_and_a_video(self):
        photos = {"Pictures/Camera/two.png": road.picture(40, 30),
                  "Pictures/é 1.png": road.picture(300, 500), "Videos/clip.mp4": b"no real video"}
        for name, data in photos.items():
            (self.home / name).parent.mkdir(parents=True, exist_ok=True)
            (self.home / name).write_bytes(data)
        (self.home / "Pictures" / "not wanted.png").write_bytes(road.picture(9, 9))
        application = self.start_at_home()
        application.click("push button", "Zip")
        application.click("push button", "Photos and videos")
        names = {name.rsplit("/", 1)[-1]: data for name, data in photos.items()}
        for name in names:
            application.click("check box", name)
        application.find("heading", "3 of 100")
        application.press("push button", "Add")
        self.check_with_info_zip(self.save_under("Trip", application), names)


if __name__ == "__main__":
    road.main()

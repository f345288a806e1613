#!/usr/bin/env python3
"""What the application keeps is damaged, locked or gone; it is started twice; it is closed at work."""

import os
import shutil

import road
from ending_test import PART_BYTES, PARTS, make_slow_archive

QUESTION = "Do you want to unzip "
# Takes seconds to compress, and nothing to make.
LONG = 3 << 30
NOT_ALLOWED = "You are not allowed to write into the folder of this application."


class TroubleTest(road.RoadTest):
    def setUp(self):
        super().setUp()
        self.config = self.home / ".config/pellumar-zip"
        self.data = self.home / ".local/share"
        self.preferences = self.config / "pellumar-zip.conf"

    def unzip(self, application):
        """Hands an archive over and waits for what comes out of it."""
        self.desktop.hand_over(self.make_archive("trip.zip", {"letter.txt": b"Dear"}))
        self.confirm(application)
        application.find("push button", "Share letter.txt")

    def go_on(self, application):
        """To the home screen, over the onboarding if that comes; whether it came."""
        found = road.until(lambda: application.controls("push button", "OK")
                           or application.controls("push button", "Unzip"), application.outline)
        is_onboarding = found[0].name == "OK"
        if is_onboarding:
            found[0].perform("Press")
            application.find("push button", "Unzip")
        return is_onboarding

    def test_damaged_preferences(self):
        self.desktop.end(self.start_at_home())
        good = self.preferences.read_bytes()
        self.assertIn(b"ONBOARDING_KEY=true", good)

        def restart(text):
            self.preferences.write_bytes(text)
            application = self.desktop.start()
            is_onboarding = self.go_on(application)
            self.desktop.end(application)
            return is_onboarding

        self.assertTrue(restart(os.urandom(8192)), "garbage tells of no start before")
        self.assertTrue(restart(good[:good.index(b"=")]), "cut off in the midst of a line")
        # What could be read or chosen since stands in a file that is sound again.
        self.assertFalse(restart(self.preferences.read_bytes()))
        # All else that is kept is damaged as well.
        kept = [each for folder in (self.config, self.data) for each in folder.rglob("*")
                if each.is_file()]
        self.assertGreater(len(kept), 1)
        for each in kept:
            each.write_bytes(os.urandom(8192))
        application = self.desktop.start()
        self.assertTrue(self.go_on(application))
        self.unzip(application)
        self.desktop.end(application)

        for make in (lambda: self.preferences.mkdir(),
                     lambda: (self.preferences.write_bytes(good), self.preferences.chmod(0))):
            self.preferences.unlink()
            make()
            application = self.desktop.start()
            self.go_on(application)
            self.unzip(application)
            self.desktop.end(application)
            if self.preferences.is_dir():
                self.preferences.rmdir()
                self.preferences.touch()
            else:
                self.preferences.chmod(0o600)
                self.assertEqual(self.preferences.read_bytes(), good)

    def test_no_data_folder(self):
        self.make_files({"note.txt": b"note"})
        self.data.mkdir(parents=True)
        self.data.chmod(0o500)
        application = self.start_at_home()
        self.desktop.hand_over(self.make_archive("trip.zip", {"letter.txt": b"Dear"}))
        self.confirm(application)
        application.find("label", lambda text: text.startswith(NOT_ALLOWED))
        application.press("push button", "OK")
        # An archive that cannot be made was offered for sharing, and nobody was told why there is
        # none.
        self.zip_one(application, "note.txt", "Trip")
        application.find("alert message", lambda text: text.startswith(NOT_ALLOWED))
        self.assertEqual(list(self.data.iterdir()), [])
        self.desktop.end(application)
        self.data.chmod(0o700)
        application = self.desktop.start()
        self.unzip(application)
        self.desktop.end(application)

        # It goes while the application runs. Nothing of an archive made then was there to share.
        application = self.desktop.start()
        application.find("push button", "Unzip")
        shutil.rmtree(self.data)
        self.zip_one(application, "note.txt", "Trip")
        self.save_shared(application)
        self.assertTrue(self.until_file(self.home / "Downloads" / "Trip.zip").startswith(b"PK"))
        self.desktop.end(application)
        application = self.desktop.start()
        application.find("push button", "Unzip")
        shutil.rmtree(self.data)
        self.unzip(application)

    def test_two_at_the_same_instant(self):
        self.desktop.end(self.start_at_home())
        for turn in range(5):
            names = [f"{turn}-{each}.zip" for each in range(2)]
            archives = [self.make_archive(name, {"a.txt": name.encode()}) for name in names]
            both = [self.desktop.launch(archive) for archive in archives]
            application = self.desktop.application()
            asked = []
            for _ in both:
                asked += road.until(
                    lambda: [each.name for each in application.controls("label")
                             if each.name.startswith(QUESTION) and each.name not in asked],
                    application.outline)
                application.press("push button", "Cancel")
                application.wait_until_gone("label", asked[-1])
            self.assertEqual(sorted(asked), [f"{QUESTION}{name}?" for name in names])
            other, = (each for each in both if each.pid != application.pid)
            self.assertEqual(other.wait(timeout=road.PATIENCE), 0)
            self.desktop.end(application)

    def test_the_window_is_closed_at_work(self):
        archive = self.home / "slow.zip"
        make_slow_archive(archive)
        with open(self.home / "Documents" / "long.bin", "wb") as file:
            file.truncate(LONG)
        parts = self.data / "pellumar-zip"

        def written():
            return sum(each.stat().st_size for each in parts.rglob("part*") if each.is_file())

        self.desktop.end(self.start_at_home())
        application = self.desktop.start(archive)
        self.confirm(application)
        road.until(written, lambda: f"the first part\n{application.outline()}")
        self.close_window(application)
        self.assertLess(written(), PARTS * PART_BYTES, "it worked on to the end")

        application = self.desktop.start()
        application.find("push button", "Unzip")
        self.assertEqual(written(), 0)
        self.zip_one(application, "long.bin", "Trip")
        application.find("progress bar", "Compressing files")
        self.close_window(application)
        left = [each for each in parts.rglob("*.zip")]
        self.assertEqual(left, [], "an archive that is not whole has its name")
        application = self.desktop.start()
        self.unzip(application)
        self.assertEqual([each.name for each in parts.rglob("*") if "Trip" in each.name], [])

    def close_window(self, application):
        """With the keys for it; returns when the process has gone, which ended well."""
        process = next(each for each in self.desktop.processes if each.pid == application.pid)
        application.key("ctrl+q")
        self.assertEqual(process.wait(timeout=road.PATIENCE), 0)


if __name__ == "__main__":
    road.main()

#!/usr/bin/env python3
"""An archive that another program hands over: asked about, extracted, and a file of it saved."""

import os

import road

NAME = "Ferien in Zürich 2026.zip"


class HandOverTest(road.RoadTest):
    def make_holiday(self, name, photo):
        """An archive with a letter and a photo of this name. Returns its path and the photo."""
        data = os.urandom(300000)
        letter = "Schön hier!\n".encode() * 2000
        return self.make_archive(name, {"Grüße aus den Bergen.txt": letter, photo: data}), data

    def take_through(self, application, archive, photo, data):
        """Confirms in the popup, shares the photo to Downloads, and compares the bytes."""
        application.find("label", f"Do you want to unzip {archive.name}?")
        application.click("push button", "Unzip")
        application.find("label", photo)
        application.find("label", "Grüße aus den Bergen.txt")
        application.press("push button", f"Share {photo}")
        self.save_shared(application)
        self.assertEqual(self.until_file(self.home / "Downloads" / photo), data)
        application.find("heading", "Unzipped Files")

    def counted_launches(self):
        """How many launches the rule about the rating has counted."""
        lines = (self.home / ".config/pellumar-zip/pellumar-zip.conf").read_text().splitlines()
        counts = [line.split("=")[1] for line in lines if line.startswith("RELEVANT_ACTION_COUNT")]
        return int(counts[0]) if counts else 0

    def test_to_the_running_application(self):
        archive, data = self.make_holiday(NAME, "photo.bin")
        running = self.start_at_home()
        application = self.desktop.hand_over(archive)
        self.assertEqual(application.pid, running.pid)
        self.take_through(application, archive, "photo.bin", data)

    def test_the_bus_starts_the_application(self):
        archive, data = self.make_holiday(NAME, "photo.bin")
        self.desktop.end(self.start_at_home())
        application = self.desktop.hand_over(archive)
        application.find("dialog")
        # Started for an archive, it asks for nothing else.
        self.assertEqual(self.counted_launches(), 1)
        self.take_through(application, archive, "photo.bin", data)
        application.click("push button", "Back")
        application.find("push button", "Zip")
        archive, data = self.make_holiday("noch eins, für später.zip", "später.bin")
        self.desktop.hand_over(archive)
        self.take_through(application, archive, "später.bin", data)

    def test_on_the_command_line_and_from_a_second_start(self):
        archive, data = self.make_holiday(NAME, "photo.bin")
        self.desktop.end(self.start_at_home())
        application = self.desktop.start(archive)
        application.find("dialog")
        self.assertEqual(self.counted_launches(), 1)
        self.take_through(application, archive, "photo.bin", data)
        # The list of the first is still open.
        archive, data = self.make_holiday("zweites ä.zip", "second.bin")
        self.assertEqual(self.desktop.run(archive.name), 0)
        self.take_through(application, archive, "second.bin", data)

    def test_a_name_that_is_no_text(self):
        self.desktop.end(self.start_at_home())
        archive, _ = self.make_holiday("latin.zip", "photo.bin")
        other = os.fsencode(self.home) + b"/caf\xe9.zip"
        os.rename(archive, other)
        application = self.desktop.start(other)
        application.find("label", lambda name: name.startswith("Do you want to unzip caf"))
        application.press("push button", "Unzip")
        application.find("push button", "Share photo.bin")

    def test_waits_for_the_end_of_the_onboarding(self):
        archive, data = self.make_holiday(NAME, "photo.bin")
        application = self.desktop.hand_over(archive)
        application.press("push button", "OK")
        self.take_through(application, archive, "photo.bin", data)


if __name__ == "__main__":
    road.main()

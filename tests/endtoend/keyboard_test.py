#!/usr/bin/env python3
"""The whole road without a pointer: Tab, Enter and Escape."""

import os

import road


class KeyboardTest(road.RoadTest):
    def use(self, application, role, name):
        """Goes to a control with Tab and presses Enter."""
        application.tab_to(role, name)
        application.key("Return")

    def wait_for_keyboard(self, application, role, name):
        def is_there():
            here = application.focused()
            return here and (here.role, here.name) == (role, name)

        road.until(is_there, lambda: f"the keyboard on {role} {name!r} in\n{application.outline()}")

    def test_from_the_onboarding_to_a_saved_file(self):
        photo = os.urandom(5000)
        self.make_archive("Documents/trip.zip", {"photo.bin": photo, "b.txt": b"b"})
        self.make_files({"no archive.txt": b"text"})
        application = self.desktop.start()
        self.wait_for_keyboard(application, "push button", "OK")
        application.key("Return")
        self.wait_for_keyboard(application, "push button", "Unzip")
        application.key("Return")
        application.find("dialog", "Choose an archive")
        self.use(application, "push button", "Documents")
        application.find("push button", "trip.zip")
        self.assertFalse(application.controls(name="no archive.txt"))
        self.use(application, "push button", "trip.zip")
        application.find("heading", "Unzipped Files")
        self.use(application, "push button", "Share photo.bin")
        self.wait_for_keyboard(application, "push button", "Save to…")
        application.key("Return")
        self.use(application, "push button", "Downloads")
        application.find("label", "Downloads")
        self.use(application, "push button", "Save here")
        application.wait_until_gone("dialog")
        self.assertEqual(self.until_file(self.home / "Downloads" / "photo.bin"), photo)
        self.wait_for_keyboard(application, "push button", "Share photo.bin")

    def test_escape_goes_back_one_step_at_a_time(self):
        archive = self.make_archive("trip.zip", {"photo.bin": b"photo"})
        self.start_at_home()
        application = self.desktop.hand_over(archive)
        # A button of the home screen is called the same.
        application.find("dialog")
        self.wait_for_keyboard(application, "push button", "Unzip")
        application.key("Return")
        self.use(application, "push button", "Share photo.bin")
        self.wait_for_keyboard(application, "push button", "Save to…")
        application.key("Return")
        application.find("dialog", "Save to")
        application.key("Escape")
        self.wait_for_keyboard(application, "push button", "Save to…")
        application.key("Escape")
        self.wait_for_keyboard(application, "push button", "Share photo.bin")
        # Nothing was kept: that is asked about, and Escape does not answer.
        application.key("Escape")
        self.wait_for_keyboard(application, "push button", "Keep…")
        application.key("Escape")
        self.use(application, "push button", "Leave")
        self.wait_for_keyboard(application, "push button", "Unzip")
        # From the first screen there is no way back, and the application stays.
        application.key("Escape")
        self.use(application, "push button", "Zip")
        self.wait_for_keyboard(application, "push button", "Files")
        application.key("alt+Left")
        self.wait_for_keyboard(application, "push button", "Zip")

    def test_a_popup_keeps_the_keyboard(self):
        archive = self.make_archive("trip.zip", {"photo.bin": b"photo"})
        self.start_at_home()
        application = self.desktop.hand_over(archive)
        application.tab_to("push button", "Cancel")
        application.key("Tab")
        self.wait_for_keyboard(application, "push button", "Unzip")
        application.key("Escape")
        application.wait_until_gone("dialog")
        self.wait_for_keyboard(application, "push button", "Unzip")


if __name__ == "__main__":
    road.main()

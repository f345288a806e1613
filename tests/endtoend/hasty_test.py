#!/usr/bin/env python3
"""A hasty hand: every button double-clicked, every key pressed twice. All is done once."""

import road

QUESTION = "Do you want to unzip "


class HastyTest(road.RoadTest):
    def setUp(self):
        super().setUp()
        self.make_files({"letter.txt": b"kept as it is\n" * 500})

    def names_in(self, folder):
        path = self.home / folder
        return sorted(each.name for each in path.iterdir()) if path.exists() else []

    def extracted(self):
        return self.names_in(".local/share/pellumar-zip/Documents/outputs/zipOutputs")

    def take_the_roads(self, application, use):
        """Makes an archive, saves it, has it handed over, extracts it and saves what was in it;
        `use` uses a control twice."""
        use("push button", "OK")
        application.find("push button", "Unzip")
        self.assertFalse(application.controls("dialog"))
        use("page tab", "Settings")
        application.find("heading", "Settings")
        use("page tab", "Zip/Unzip")
        use("push button", "Zip")
        application.find("heading", "Zip Files")
        use("push button", "Back")
        use("push button", "Zip")
        self.make_archive_hastily(application, use)
        self.save_hastily(application, use, ["Trip.zip"])
        use("push button", "Back")
        application.find("push button", "Zip")
        self.unzip_hastily(application, use, self.home / "Downloads" / "Trip.zip")

    def make_archive_hastily(self, application, use):
        use("push button", "Files")
        use("push button", "Documents")
        application.click("check box", "letter.txt")
        use("push button", "Add")
        field = application.find("text", "Filename")
        road.until(lambda: "focused" in field.states, "the keyboard in the field")
        application.type("Trip")
        use("push button", "Save")

    def save_hastily(self, application, use, then):
        use("push button", "Save to…")
        use("push button", "Downloads")
        application.find("label", "Downloads")
        use("push button", "Save here")
        application.wait_until_gone("dialog")
        road.until(lambda: self.names_in("Downloads") == then,
                   lambda: f"{then} alone, not {self.names_in('Downloads')}")

    def unzip_hastily(self, application, use, archive):
        self.desktop.hand_over(archive)
        use("push button", "Cancel")
        application.wait_until_gone("dialog")
        application.find("push button", "Zip")
        self.assertEqual(self.extracted(), [])
        self.desktop.hand_over(archive)
        application.find("label", f"{QUESTION}{archive.name}?")
        use("push button", "Unzip")
        application.find("heading", "Unzipped Files")
        self.assertEqual(len(self.extracted()), 1)
        # Nothing was kept: that is asked about once, and the second press does not answer.
        use("push button", "Back")
        use("push button", "Keep…")
        use("push button", "Cancel")
        use("push button", "Share letter.txt")
        self.save_hastily(application, use, ["Trip.zip", "letter.txt"])
        # One step leads home: there was one list.
        use("push button", "Back")
        application.find("push button", "Zip")

    def test_every_button_double_clicked(self):
        application = self.desktop.start()
        self.take_the_roads(application, lambda *what: application.click(*what, times=2))

    def test_every_key_pressed_twice(self):
        application = self.desktop.start()

        def use(*what):
            application.tab_to(*what)
            application.key("Return", times=2)

        self.take_the_roads(application, use)


if __name__ == "__main__":
    road.main()

#!/usr/bin/env python3
"""What a screen reader finds on each screen: everything has a name, every control its action."""

import subprocess

import road
from waiting import until

# What is used, and the actions by which screen readers do so.
ACTIONS = {"push button": {"Press"}, "check box": {"Press", "Toggle"}, "page tab": {"Press"},
           "text": {"SetFocus"}}
PASSIVE = {"alert message", "dialog", "frame", "heading", "label", "list", "page tab list", "panel",
           "progress bar"}


class TreeTest(road.RoadTest):
    def check(self, application, screen, *wanted):
        """Judges all that is on the screen, once each of `wanted` (role, name) is."""
        for role, name in wanted:
            application.find(role, name)
        faults = []
        for each in application.controls():
            if each == application.root:
                continue
            role = each.role
            missing = ACTIONS.get(role, set()) - set(each.actions)
            if not each.name.strip():
                faults.append(f"{role} without a name")
            if missing:
                faults.append(f"{each.describe()} without the action {missing}")
            if role not in ACTIONS and role not in PASSIVE:
                faults.append(f"{each.describe()}: what is done with a {role}?")
        self.assertFalse(faults, f"{screen}:\n{application.outline()}")

    def test_every_screen(self):
        archive = self.make_archive("trip.zip", {"photo.bin": b"photo", "b.txt": b"b"})
        self.make_files({"one.txt": b"1", "two.txt": b"2"})
        (self.home / "Pictures").mkdir()
        (self.home / "Pictures/a.png").write_bytes(road.picture(8, 8))
        application = self.desktop.start()
        self.check(application, "onboarding", ("push button", "OK"))
        application.press("push button", "OK")
        self.check(application, "home", ("push button", "Unzip"), ("page tab", "Settings"))
        application.press("page tab", "Settings")
        self.check(application, "settings", ("heading", "Settings"), ("check box", None))
        application.press("page tab", "Zip/Unzip")
        application.press("push button", "Zip")
        self.check(application, "composer", ("push button", "Files"), ("push button", "Back"))
        application.press("push button", "Files")
        application.press("push button", "Documents")
        self.check(application, "picker", ("check box", "one.txt"), ("push button", "Add"))
        application.press("check box", "one.txt")
        application.press("push button", "Add")
        self.check(application, "title", ("text", "Filename"), ("push button", "Save"))
        application.press("push button", "Cancel")
        application.press("push button", "Photos and videos")
        self.check(application, "photos", ("check box", "a.png"), ("push button", "All"))
        application.press("push button", "Cancel")
        application.press("push button", "Back")
        application.find("push button", "Unzip")
        self.desktop.hand_over(archive)
        self.check(application, "popup", ("dialog", None), ("push button", "Cancel"))
        application.press("push button", "Unzip")
        self.check(application, "results", ("push button", "Share b.txt"), ("label", "photo.bin"))
        application.press("push button", "Share All")
        self.check(application, "share sheet", ("dialog", "Share"), ("push button", "Save to…"))
        application.press("push button", "Close")
        self.check(application, "results", ("push button", "Share All"))

    def test_a_password_is_not_told(self):
        """Neither asked for nor unasked: nothing on the bus of the tree has it."""
        (self.home / "a.txt").write_text("a")
        subprocess.run(["7zz", "a", "-tzip", "-pgeheim", "locked.zip", "a.txt"], cwd=self.home,
                       check=True, stdout=subprocess.DEVNULL)
        self.start_at_home()
        application = self.desktop.hand_over(self.home / "locked.zip")
        self.confirm(application)
        self.check(application, "password", ("text", "Password"),
                   ("push button", "Show the password"))
        heard = self.desktop.listen_to_the_tree()
        application.click("text")
        application.type("gehe")
        application.press("push button", "Show the password")
        application.type("im")
        told = [each for field in application.controls("text")
                for each in (field.name, field.description, *field.interfaces)]
        application.press("push button", "Open")
        application.find("push button", "Share a.txt")
        until(lambda: "Share a.txt" in heard.read_text(), "what was asked last to be heard")
        self.assertNotIn("gehe", heard.read_text() + "".join(told))
        self.assertNotIn("org.a11y.atspi.Text", told)

    def test_what_a_popup_covers_is_not_found(self):
        archive = self.make_archive("trip.zip", {"photo.bin": b"photo"})
        self.start_at_home()
        application = self.desktop.hand_over(archive)
        application.find("push button", "Cancel")
        names = [each.name for each in application.controls("push button")]
        self.assertEqual(names, ["Unzip", "Cancel"])


if __name__ == "__main__":
    road.main()

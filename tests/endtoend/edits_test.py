#!/usr/bin/env python3
"""What was handed to another application and changed there is kept, and said at the next start."""

import os
import signal

import road


class EditsTest(road.RoadTest):
    def copy_out(self, archive, name):
        """Extracts a handed-over archive, copies one of its files, and returns the path that the
        clipboard's reader is given."""
        application = self.desktop.hand_over(archive)
        self.confirm(application)
        application.press("push button", f"Share {name}")
        application.press("push button", "Copy")
        application.find("alert message", "Copied")
        shared = self.home / ".local/share/pellumar-zip/Shared"
        application.wait_until_gone("dialog")
        # So that nothing of the results is left.
        application.click("push button", "Back")
        application.find("push button", "Zip")
        return application, next(shared.rglob(name))

    def test_edited_and_renamed_over_before_a_kill(self):
        archive = self.make_archive("trip.zip", {"letter.txt": b"Dear", "other.txt": b"stays"})
        self.start_at_home()
        application, handed_out = self.copy_out(archive, "letter.txt")
        edited = handed_out.with_name("letter.txt.new")
        edited.write_bytes(b"Dear friends")
        edited.rename(handed_out)
        os.kill(application.pid, signal.SIGKILL)
        road.until(lambda: not os.path.exists(f"/proc/{application.pid}/exe"), "the end")
        application = self.desktop.start()
        application.find("alert message", "You changed letter.txt in another application. "
                                          "It is kept in Documents/Pellumar Zip.")
        kept = self.home / "Documents" / "Pellumar Zip"
        self.assertEqual({each.name: each.read_bytes() for each in kept.iterdir()},
                         {"letter.txt": b"Dear friends"})
        application.click("push button", "Close")
        application.wait_until_gone("alert message")
        application.click("push button", "Zip")
        application.find("push button", "Files")


if __name__ == "__main__":
    road.main()

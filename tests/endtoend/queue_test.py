#!/usr/bin/env python3
"""A hundred archives, handed over at the wrong moments: each is asked about once, in its turn, and
never over or under what somebody else has to say."""

import os

import road

QUESTION = "Do you want to unzip "
NEXT = "when this is done"
# Takes seconds to compress, and nothing to make.
LONG = 3 << 30


class QueueTest(road.RoadTest):
    def setUp(self):
        super().setUp()
        self.waiting = [self.make_archive(f"{i}.zip", {"a.txt": os.urandom(100)})
                        for i in range(100)]
        # Handed over and not yet asked about.
        self.owed = []
        # The last question, which may still be leaving.
        self.last = None

    def hand_over(self, count, at_once=False):
        paths, self.waiting = self.waiting[:count], self.waiting[count:]
        for each in [paths] if at_once else [[path] for path in paths]:
            application = self.desktop.hand_over(*each)
        self.owed += [path.name for path in paths]
        return application

    def asked(self, application):
        # Other labels may go while they are read.
        return road.until(lambda: [[each.name for each in application.controls(
            "label", lambda name: name.startswith(QUESTION))]], "all labels at once")[0]

    def hand_over_during(self, application, count, role, name):
        """During something that such a control tells of: the archives wait, and that is said."""
        application.find(role, name)
        self.hand_over(count)
        application.find("label", lambda text: text.endswith(NEXT))
        self.assertEqual(self.asked(application), [])
        self.assertTrue(application.controls(role, name), f"{role} {name}")

    def decline_all(self, application):
        """Declines one question for each archive, in the order in which they were handed over."""
        def next_question():
            controls = application.controls()
            asked = [each.name for each in controls
                     if each.role == "label" and each.name.startswith(QUESTION)]
            cancel = [each for each in controls if each.name == "Cancel"]
            return asked and cancel and asked[0] != self.last and (asked, cancel[0])

        for name in self.owed:
            asked, cancel = road.until(
                next_question, lambda: f"a question after {self.last} in\n{application.outline()}")
            self.assertEqual(asked, [f"{QUESTION}{name}?"])
            self.last = asked[0]
            cancel.perform("Press")
        application.wait_until_gone("label", self.last)
        self.owed = []

    def compress(self, application):
        with open(self.home / "Documents" / "long.bin", "wb") as file:
            file.write(os.urandom(50 << 20))
            file.truncate(LONG)
        self.zip_one(application, "long.bin", "Trip")

    def test_a_hundred_during_jobs_pickers_sheets_and_saving(self):
        # The bus starts the application, and the onboarding comes first.
        application = self.hand_over(20, at_once=True)
        application.press("push button", "OK")
        self.decline_all(application)

        application.press("push button", "Unzip")
        self.hand_over_during(application, 15, "dialog", "Choose an archive")
        application.press("push button", "Cancel")
        self.decline_all(application)

        self.compress(application)
        self.hand_over_during(application, 15, "progress bar", "Compressing files")
        # Beside other work on the machine it may take minutes.
        road.until(lambda: not application.controls("progress bar", "Compressing files"),
                   lambda: f"the archive's end in\n{application.outline()}", patience=200)
        self.hand_over_during(application, 10, "push button", "Save to…")
        application.press("push button", "Save to…")
        application.press("push button", "Downloads")
        application.find("label", "Downloads")
        self.hand_over_during(application, 10, "push button", "Save here")
        application.press("push button", "Save here")
        self.hand_over(1)
        # It has an end of its own before anything is asked.
        self.decline_all(application)
        saved = self.home / "Downloads" / "Trip.zip"
        self.assertGreater(saved.stat().st_size, 50 << 20)

        # The others wait for the list of what the first brings.
        first = self.make_archive("first.zip", {f"{i}.txt": b"x" for i in range(2000)})
        self.desktop.hand_over(first)
        self.last = application.find("label", f"{QUESTION}first.zip?").name
        self.hand_over(14, at_once=True)
        application.press("push button", "Unzip")
        self.decline_all(application)
        application.find("heading", "Unzipped Files")
        application.press("push button", "Save all to…")
        self.hand_over_during(application, 10, "push button", "Save here")
        application.press("push button", "Save here")
        self.hand_over(5)
        self.decline_all(application)
        self.assertEqual(self.waiting, [])

        # All of it was kept: nothing else is asked, and there was one list.
        application.click("push button", "Back")
        application.find("heading", "Zip Files")
        application.click("push button", "Back")
        application.find("push button", "Zip")
        self.assertEqual(self.asked(application), [])


if __name__ == "__main__":
    road.main()

#!/usr/bin/env python3
"""What is set in the settings stays as it was set."""

import road

SWITCH = ("check box", "Send usage data")


class SettingsTest(road.RoadTest):
    def is_on(self, application):
        application.press("page tab", "Settings")
        return "checked" in application.find(*SWITCH).states

    def test_usage_data_switched_off_stays_off(self):
        application = self.start_at_home()
        self.assertTrue(self.is_on(application))
        application.click(*SWITCH)
        road.until(lambda: "checked" not in application.find(*SWITCH).states, "the switch to go off")
        application.press("page tab", "Zip/Unzip")
        application.wait_until_gone(*SWITCH)
        self.assertFalse(self.is_on(application))
        self.desktop.end(application)

        application = self.desktop.start()
        self.assertFalse(self.is_on(application))
        application.find(*SWITCH).perform("Toggle")
        road.until(lambda: "checked" in application.find(*SWITCH).states, "the switch to go on")


if __name__ == "__main__":
    road.main()

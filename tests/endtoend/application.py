"""The running application: what is on its screen, and a person's hands on it."""

import time

from waiting import Gone, until

APP_ID = "org.pellumar.Zip"
DOUBLE_CLICK_MS = 90
# Longer than two presses of a key, or at a place, may be apart that count as one.
APART_SECONDS = 0.5


class Application:
    """Finds controls by role and name, and uses them. What is disabled or hidden, such as all that
    a popup covers, is not there for it."""

    def __init__(self, desktop, root, pid):
        self.desktop = desktop
        self.root = root
        self.pid = pid
        self.free_from = 0.0

    def is_shown(self):
        """Whether its window is on the screen and has the keyboard."""
        try:
            return any("active" in window.states for window in self.root.children)
        except Gone:
            return False

    def controls(self, role=None, name=None):
        """All usable controls with this role, and this name or one that the function `name` is
        true for, in the tree's order."""
        found = []
        for each in self.root.walk():
            try:
                if ((role is None or each.role == role) and _fits(name, each.name)
                        and each.is_usable):
                    found.append(each)
            except Gone:
                continue
        return found

    def find(self, role, name=None):
        """The first such control, as soon as there is one."""
        return until(lambda: self.controls(role, name),
                     lambda: f"a {role} {name!r} in\n{self.outline()}")[0]

    def wait_until_gone(self, role, name=None):
        until(lambda: not self.controls(role, name),
              lambda: f"the end of a {role} {name!r} in\n{self.outline()}")

    def press(self, role, name=None):
        """Uses a control through its accessibility action."""
        def probe():
            found = self.controls(role, name)
            if found:
                found[0].perform("Press")
            return found

        until(probe, lambda: f"a {role} {name!r} to press in\n{self.outline()}")

    def click(self, role, name=None, times=1):
        """Clicks on the middle of a control, once it stands still and its screen has come, which
        has the keyboard then; more than once as fast as a hand does."""
        seen = []

        def probe():
            if not self._focused_at_rest():
                return False
            seen.extend(each.extents for each in self.controls(role, name)[:1])
            last = seen[-4:]
            return len(last) == 4 and len(set(last)) == 1 and last[0]

        x, y, width, height = until(
            probe, lambda: f"a {role} {name!r} to stand still, was at {seen}, in\n{self.outline()}")
        self._act_apart("mousemove", x + width // 2, y + height // 2,
                        "click", "--repeat", times, "--delay", DOUBLE_CLICK_MS, 1)

    def key(self, *keys, times=1):
        """Presses keys, one after the other; by xdotool's names."""
        self._act_apart("key", "--repeat", times, "--repeat-delay", DOUBLE_CLICK_MS, *keys)

    def _act_apart(self, *act):
        """What xdotool does so is never the second press of what was pressed before."""
        until(lambda: time.monotonic() > self.free_from, "the time of a double press to pass")
        self.desktop.xdotool(*act)
        self.free_from = time.monotonic() + APART_SECONDS

    def type(self, text):
        """Types a text into what has the keyboard."""
        self.desktop.xdotool("type", "--delay", 30, text)

    def focused(self):
        """The control that has the keyboard, the innermost of those that say so; none if there is
        none."""
        found = None
        for each in self.root.walk():
            try:
                if "focused" in each.states:
                    found = each
            except Gone:
                continue
        return found

    def _focused_at_rest(self):
        """The same, but none while its screen comes or goes, as what is pressed then is lost."""
        here = self.focused()
        return here if here and here.is_usable else None

    def tab_to(self, role, name=None, most=40):
        """Presses Tab until such a control has the keyboard, as one does without a pointer."""
        self.find(role, name)
        for _ in range(most):
            here = until(self._focused_at_rest, lambda: f"a screen at rest\n{self.outline()}")
            if here.role == role and _fits(name, here.name):
                return here
            self.desktop.xdotool("key", "Tab")
            until(lambda: self.focused() not in (None, here), "the keyboard to move on")
        raise AssertionError(f"Tab does not lead to {role} {name!r} in\n{self.outline()}")

    def outline(self):
        return f"{self.root.outline()}\n{self.desktop.log_text()}"


def _fits(wanted, name):
    if wanted is None:
        return True
    return wanted(name) if callable(wanted) else wanted == name

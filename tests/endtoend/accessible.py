"""An application's accessibility tree, asked over the bus as a screen reader asks.

Nothing is cached: every question goes to the application, and one that no longer has the object
raises Gone.
"""

import collections

from gi.repository import Gio, GLib

from waiting import Gone

ROOT = "/org/a11y/atspi/accessible/root"
REGISTRY = "org.a11y.atspi.Registry"
ACCESSIBLE = "org.a11y.atspi.Accessible"
ACTION = "org.a11y.atspi.Action"
COMPONENT = "org.a11y.atspi.Component"
TEXT = "org.a11y.atspi.Text"
PROPERTIES = "org.freedesktop.DBus.Properties"
ANSWER_MS = 30000

# Bits of the state set, by the names of AtspiStateType.
STATES = {1: "active", 4: "checked", 7: "editable", 8: "enabled", 11: "focusable", 12: "focused",
          22: "selectable", 23: "selected", 24: "sensitive", 25: "showing", 30: "visible",
          41: "checkable"}

Extents = collections.namedtuple("Extents", "x y width height")


class Accessible:
    """One object of an application."""

    def __init__(self, bus, owner, path):
        self.bus = bus
        self.owner = owner
        self.path = path

    def __eq__(self, other):
        return (isinstance(other, Accessible)
                and (self.owner, self.path) == (other.owner, other.path))

    def __hash__(self):
        return hash((self.owner, self.path))

    def call(self, interface, method, signature="()", *arguments):
        """The first value of the answer."""
        try:
            return self.bus.call_sync(self.owner, self.path, interface, method,
                                      GLib.Variant(signature, arguments), None,
                                      Gio.DBusCallFlags.NONE, ANSWER_MS, None).unpack()[0]
        except GLib.Error as error:
            raise Gone(f"{self.owner}{self.path}: {error.message}") from error

    def ask(self, interface, name):
        return self.call(PROPERTIES, "Get", "(ss)", interface, name)

    @property
    def name(self):
        return self.ask(ACCESSIBLE, "Name")

    @property
    def description(self):
        return self.ask(ACCESSIBLE, "Description")

    @property
    def role(self):
        return self.call(ACCESSIBLE, "GetRoleName")

    @property
    def states(self):
        words = self.call(ACCESSIBLE, "GetState")
        bits = words[0] | words[1] << 32
        return {name for bit, name in STATES.items() if bits >> bit & 1}

    @property
    def interfaces(self):
        return self.call(ACCESSIBLE, "GetInterfaces")

    @property
    def children(self):
        return [Accessible(self.bus, *each) for each in self.call(ACCESSIBLE, "GetChildren")]

    @property
    def actions(self):
        """The names of what can be done with it, in their order."""
        if ACTION not in self.interfaces:
            return []
        return [name for name, _, _ in self.call(ACTION, "GetActions")]

    @property
    def text(self):
        return self.call(TEXT, "GetText", "(ii)", 0, -1)

    @property
    def extents(self):
        """On the screen."""
        return Extents(*self.call(COMPONENT, "GetExtents", "(u)", 0))

    @property
    def is_usable(self):
        return {"showing", "enabled"} <= self.states

    def perform(self, action):
        """Does what the action of this name does; a control without it is a fault."""
        actions = self.actions
        if action not in actions:
            raise AssertionError(f"{self.describe()} has no action {action!r}, but {actions}")
        self.call(ACTION, "DoAction", "(i)", actions.index(action))

    def walk(self):
        """This object and all below it, each before what it holds; gone ones are passed over."""
        yield self
        try:
            children = self.children
        except Gone:
            return
        for child in children:
            yield from child.walk()

    def describe(self):
        return f"{self.role} {self.name!r}"

    def outline(self, depth=0):
        """The tree as text, for messages."""
        try:
            line = f"{'  ' * depth}{self.describe()} {' '.join(sorted(self.states))}\n"
            return line + "".join(child.outline(depth + 1) for child in self.children)
        except Gone:
            return ""


def applications(bus):
    """The roots of all applications that have a tree."""
    return Accessible(bus, REGISTRY, ROOT).children

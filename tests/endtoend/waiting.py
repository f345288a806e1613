"""Waiting for what an application does in its own time."""

import time

PATIENCE = 60.0
PAUSE = 0.02


class Gone(Exception):
    """What was looked at is there no more; another may have come in its place."""


class Overdue(AssertionError):
    """What was waited for has not come."""


def until(probe, what, patience=PATIENCE):
    """Returns the first true value of `probe`, asked again and again; Overdue if none comes.

    A probe whose object goes is asked once more like one that finds nothing. `what` says what is
    waited for: a text, or a function that makes one when it is needed.
    """
    deadline = time.monotonic() + patience
    while True:
        try:
            if found := probe():
                return found
        except Gone:
            pass
        if time.monotonic() > deadline:
            text = what() if callable(what) else what
            raise Overdue(f"waited {patience:.0f} s for {text}")
        time.sleep(PAUSE)

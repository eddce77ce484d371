"""Waits for facts. No test waits for time to pass, and none measures time."""

import time

# Only a hang lasts this long. A fact that comes early costs none of it.
PATIENCE_SECONDS = 180
POLL_SECONDS = 0.02
# A picture rests if this many looks in a row see the same. If it never rests, the last look counts.
LOOKS_AT_REST = 8
MOST_LOOKS = 50


class NotSeen(AssertionError):
    """Something that should have happened did not."""


def wait_for(fact, what, evidence=lambda: ""):
    """Waits for the fact, and returns its first true value. If none comes, `evidence` explains the
    failure."""
    deadline = time.monotonic() + PATIENCE_SECONDS
    while not (value := fact()):
        if time.monotonic() > deadline:
            raise NotSeen(f"it did not come: {what}{evidence()}")
        time.sleep(POLL_SECONDS)
    return value


def wait_for_rest(look, part=lambda seen: seen):
    """Returns the result of `look` once `part` of it no longer changes."""
    seen = look()
    rested = 0
    for _ in range(MOST_LOOKS):
        time.sleep(POLL_SECONDS)
        latest = look()
        rested = rested + 1 if part(latest) == part(seen) else 0
        seen = latest
        if rested == LOOKS_AT_REST:
            break
    return seen

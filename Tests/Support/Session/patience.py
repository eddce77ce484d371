"""Waiting for facts. No test waits for a time to pass, or measures one."""

import time

# Only a hang lasts so long. A fact that comes early costs nothing of it.
PATIENCE_SECONDS = 180
POLL_SECONDS = 0.02
# A picture rests once it was the same at so many looks in a row. One that never rests is taken as
# it is after the larger number.
LOOKS_AT_REST = 8
MOST_LOOKS = 50


class NotSeen(AssertionError):
    """Something that should have happened did not."""


def wait_for(fact, what, evidence=lambda: ""):
    """Returns the fact's first true value. When none comes, `evidence` says what there is."""
    deadline = time.monotonic() + PATIENCE_SECONDS
    while not (value := fact()):
        if time.monotonic() > deadline:
            raise NotSeen(f"it did not come: {what}{evidence()}")
        time.sleep(POLL_SECONDS)
    return value


def wait_for_rest(look, part=lambda seen: seen):
    """Returns what `look` sees once that part of it rests."""
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

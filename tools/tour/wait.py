"""Waiting for what another program does."""

import time

PATIENCE = 60.0  # seconds; far beyond what one step takes on the slowest and busiest machine
FIRST_LOOK = 0.002  # seconds until the second look, then twice as long each time
LOOK_EVERY = 0.02  # seconds, in the end


def wait_for(what, condition, limit=PATIENCE):
    """Returns what condition() gives as soon as that is true.

    Raises TimeoutError, which names what was waited for, after limit seconds.
    """
    end = time.monotonic() + limit
    pause = FIRST_LOOK
    while True:
        found = condition()
        if found:
            return found
        if time.monotonic() > end:
            raise TimeoutError(f"no {what} within {limit:g} s")
        time.sleep(pause)
        pause = min(2 * pause, LOOK_EVERY)

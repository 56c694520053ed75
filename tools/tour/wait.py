"""Waiting for what another program does."""

import time

PATIENCE = 15.0  # seconds; far beyond what the slowest build needs for one step
LOOK_EVERY = 0.02  # seconds


def wait_for(what, condition, limit=PATIENCE):
    """Returns what condition() gives as soon as that is true.

    Raises TimeoutError, which names what was waited for, after limit seconds.
    """
    end = time.monotonic() + limit
    while True:
        found = condition()
        if found:
            return found
        if time.monotonic() > end:
            raise TimeoutError(f"no {what} within {limit:g} s")
        time.sleep(LOOK_EVERY)

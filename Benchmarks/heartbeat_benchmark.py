"""Measures how long a turn of the main loop takes while every service is asked, and while none is.

usage: heartbeat_benchmark.py BUILD
"""

import pathlib
import statistics
import sys
import time

from heartbeat import CALLS, Heartbeat
from world import World

BEATS = 200
LONG_SECONDS = 120


def milliseconds_of_beats(heart):
    times = []
    for _ in range(BEATS):
        begun = time.monotonic()
        heart.beat()
        times.append((time.monotonic() - begun) * 1000)
    return times


def main(build):
    with World() as world, Heartbeat(world, build.resolve() / "tests/quorvel_heartbeat") as heart:
        heart.beat()
        idle = milliseconds_of_beats(heart)
        for part in (world.location, world.places, world.weather, world.wifi):
            part.slow(LONG_SECONDS)
        heart.ask_all()
        asking = milliseconds_of_beats(heart)
        world.recover()
        heart.wait_for_end(CALLS)
    print(f"{'':<28} {'asking':>8} {'idle':>8}")
    for what, figure in (("a beat, median", statistics.median), ("a beat, worst", max)):
        print(f"{what:<28} {figure(asking):>8.1f} {figure(idle):>8.1f} ms")


if __name__ == "__main__":
    main(pathlib.Path(sys.argv[1]))

#!/usr/bin/env python3
"""Puffino's costs under Wine, measured, not tested (./puffino bench-wine):

1. What a frame costs: frame_cost_benchmark.exe composes, with the
   program's own drawing, the dirty rectangle of a typical tick and the
   whole window, at 1920x1080 and 3840x2160 (it prints its own figures).
2. Start-up to the first painted frame, with Wine warm (the prefix booted,
   its wineserver running, Puffino started once before): from the moment
   Puffino.exe is launched until the X server shows every window painted,
   read pixel by pixel. For comparison, the time Wine takes to start and end
   a program that does nothing at all.

   bench_wine.py [runs]   (default 7 timed start-ups)"""

import statistics
import sys
import time
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "tests" / "harness"))
from wine_session import TOOLS, TWO_MONITORS, WM_CLOSE, WineSession  # noqa: E402

FRAME_COST = TOOLS / "frame_cost_benchmark.exe"
BLACK = (0, 0, 0)  # the bare X screen, before any window shows
# Inside each window, near its top-left corner: the landscape's sky.
WINDOW_CORNERS = [(10, 5), (1930, 5)]


def frame_cost():
    with WineSession("bench-frame-cost", heads=("3840x2160+0+0",)) as session:
        code, out, err = session.run(FRAME_COST, timeout=1800)
    print(out, end="")
    if code != 0:
        raise SystemExit(f"frame_cost_benchmark.exe failed ({code}): {err}")


def summary(times):
    times = [1000 * t for t in times]
    return (f"median {statistics.median(times):6.0f} ms  (min {min(times):4.0f}, max {max(times):4.0f}, "
            f"{len(times)} runs)")


def start_once(session, grabber):
    """Launches Puffino; returns the seconds until the home window showed
    its first frame and until every window had, then ends it."""
    started = time.monotonic()
    process = session.launch()
    home = None
    while True:
        shown = [grabber.pixel(x, y) != BLACK for x, y in WINDOW_CORNERS]
        if shown[0] and home is None:
            home = time.monotonic() - started
        if all(shown):
            every = time.monotonic() - started
            break
        if time.monotonic() - started > 30:
            raise SystemExit("Puffino did not paint within 30 s")
        time.sleep(0.001)
    session.post(session.windows()[0], WM_CLOSE)
    session.wait_exit(process)
    while any(grabber.pixel(x, y) != BLACK for x, y in WINDOW_CORNERS):
        time.sleep(0.01)
    return home, every


def start_up(runs):
    with WineSession("bench-start-up", heads=TWO_MONITORS) as session:
        grabber = session.grabber
        start_once(session, grabber)  # Wine and the file cache warm up
        homes, everies, idles = [], [], []
        for _ in range(runs):
            home, every = start_once(session, grabber)
            homes.append(home)
            everies.append(every)
            started = time.monotonic()
            session.run(TOOLS / "probe.exe")  # prints its usage and ends
            idles.append(time.monotonic() - started)
    print("Start-up under Wine, two monitors, Wine warm:")
    print(f"  first frame on the home window  {summary(homes)}")
    print(f"  first frame on every window     {summary(everies)}")
    print(f"  Wine starting and ending a program that does nothing: {summary(idles)}")


def main():
    runs = int(sys.argv[1]) if len(sys.argv) > 1 else 7
    frame_cost()
    start_up(runs)


if __name__ == "__main__":
    main()

#!/usr/bin/env python3
"""Puffino on a machine without a display: runs it for a few seconds on
Xvfb with two monitors (1920x1080 primary, 1280x1024 to its right), holds
the penguin down so that it blows bubbles, saves screenshots and prints
their paths. tools/screenshots.py makes the README's pictures from them."""

import sys
import time
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "tests" / "harness"))
from wine_session import BUILD, TWO_MONITORS, WM_CLOSE, WinePuffino  # noqa: E402

# The middle of the penguin on the 1920x1080 home monitor: it stands above
# the finish button in the bottom-right corner.
ON_PENGUIN = (1742, 820)


def play_demo(out):
    """Plays the demo; returns Puffino's exit code and the screenshots by
    name: "playing" after a few seconds of rising bubbles, "blowing" while
    the penguin is held down."""
    with WinePuffino("demo", TWO_MONITORS, artifacts=out) as session:
        session.start(learn=False)
        process, windows = session.process, session.started
        shots = {}
        time.sleep(3)  # a demo, not a test: let the bubbles rise
        shots["playing"] = session.screenshot("puffino-playing")
        session.xdotool("mousemove", *ON_PENGUIN, "mousedown", 1)
        time.sleep(1.5)
        shots["blowing"] = session.screenshot("puffino-blowing")
        session.xdotool("mouseup", 1)
        session.post(windows[0], WM_CLOSE)
        return session.wait_exit(process), shots


def main():
    code, shots = play_demo(BUILD / "demo")
    print(f"Puffino ran on two monitors and ended with exit code {code}. Screenshots:")
    for shot in shots.values():
        print(f"  {shot}")
    return code


if __name__ == "__main__":
    sys.exit(main())

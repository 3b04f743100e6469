#!/usr/bin/env python3
"""Puffino on a machine without a display: runs it for a few seconds on a
headless X server with two monitors (1920x1080 primary, 1280x1024 to its
right), holds the penguin down so that it blows bubbles, saves screenshots
and prints their paths. The Linux edition on a dummy-driver Xorg (demo.py
native, the default) or Puffino.exe under Wine in Xvfb (demo.py wine).
tools/screenshots.py makes the README's pictures from the native demo."""

import sys
import time
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "tests" / "harness"))
from native_session import NativeSession  # noqa: E402
from wine_session import BUILD, TWO_MONITORS, WM_CLOSE, WinePuffino  # noqa: E402

# The middle of the penguin on the 1920x1080 home monitor: it stands above
# the finish button in the bottom-right corner.
ON_PENGUIN = (1742, 820)


def play(session, process, end):
    """The demo's play; the screenshots by name: "playing" after a few
    seconds of rising bubbles, "blowing" while the penguin is held down."""
    shots = {}
    time.sleep(3)  # a demo, not a test: let the bubbles rise
    shots["playing"] = session.screenshot("puffino-playing")
    session.xdotool("mousemove", *ON_PENGUIN, "mousedown", 1)
    time.sleep(1.5)
    shots["blowing"] = session.screenshot("puffino-blowing")
    session.xdotool("mouseup", 1)
    end()
    return session.wait_exit(process), shots


def play_demo(out, edition="native"):
    """Plays the demo; returns Puffino's exit code and the screenshots."""
    if edition == "wine":
        with WinePuffino("demo", TWO_MONITORS, artifacts=out) as session:
            session.start(learn=False)
            return play(session, session.process, lambda: session.post(session.started[0], WM_CLOSE))
    with NativeSession("demo", TWO_MONITORS, artifacts=out) as session:
        process = session.launch()
        deadline = time.monotonic() + 30
        while len(session.windows()) < len(TWO_MONITORS) and time.monotonic() < deadline:
            time.sleep(0.05)
        time.sleep(0.5)  # their first frames
        return play(session, process, lambda: session.xdotool("key", "alt+F4"))


def main():
    edition = sys.argv[1] if len(sys.argv) > 1 else "native"
    code, shots = play_demo(BUILD / "demo", edition)
    print(f"Puffino ({edition}) ran on two monitors and ended with exit code {code}. Screenshots:")
    for shot in shots.values():
        print(f"  {shot}")
    return code


if __name__ == "__main__":
    sys.exit(main())

#!/usr/bin/env python3
"""Puffino on a machine without a display: runs it for a few seconds on
Xvfb with two monitors (1920x1080 primary, 1280x1024 to its right), saves
screenshots and prints their paths."""

import sys
import time
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "tests" / "harness"))
from wine_session import BUILD, TWO_MONITORS, WineSession  # noqa: E402

WM_CLOSE = 0x10


def main():
    out = BUILD / "demo"
    with WineSession("demo", heads=TWO_MONITORS, artifacts=out) as session:
        process, windows = session.start_puffino(len(TWO_MONITORS))
        shots = []
        for second in (1, 3):
            time.sleep(1 if second == 1 else 2)  # a demo, not a test: let it play
            shots.append(session.screenshot(f"puffino-{second}s").png)
        session.post(windows[0]["hwnd"], WM_CLOSE)
        code = session.wait_exit(process)
    print(f"Puffino ran on two monitors and ended with exit code {code}. Screenshots:")
    for shot in shots:
        print(f"  {shot}")
    return code


if __name__ == "__main__":
    sys.exit(main())

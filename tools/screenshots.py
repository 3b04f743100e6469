#!/usr/bin/env python3
"""The README's screenshots, made by the demo (tools/demo.py):

  screenshots.py [FOLDER]    (default: docs/screenshots in the repository)

two-monitors.png  both monitors a few seconds into play, at half size;
home-monitor.png  the home monitor while the penguin is held down, at half
                  size.
Ends non-zero, leaving the old pictures, when they cannot be made: the demo
failed, Puffino did not end with exit code 0, or a picture is not the size
the monitors give."""

import subprocess
import sys
from pathlib import Path

from demo import play_demo

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "tests" / "harness"))
from screen import CONVERT  # noqa: E402
from world import BUILD, REPO  # noqa: E402

# (name, demo shot, crop in X screen coordinates or None, size on the page)
PICTURES = [
    ("two-monitors.png", "playing", None, (1600, 540)),
    ("home-monitor.png", "blowing", (0, 0, 1920, 1080), (960, 540)),
]


def picture_size(png):
    out = subprocess.run([CONVERT, str(png), "-format", "%w %h", "info:"], check=True,
                         capture_output=True, text=True).stdout.split()
    return int(out[0]), int(out[1])


def main():
    folder = Path(sys.argv[1]) if len(sys.argv) > 1 else REPO / "docs" / "screenshots"
    code, shots = play_demo(BUILD / "demo")
    if code != 0:
        print(f"screenshots: Puffino ended with exit code {code}", file=sys.stderr)
        return 1
    folder.mkdir(parents=True, exist_ok=True)
    for name, shot, crop, (width, height) in PICTURES:
        made = folder / (name + ".part")
        command = [CONVERT, str(shots[shot])]
        if crop:
            left, top, right, bottom = crop
            command += ["-crop", f"{right - left}x{bottom - top}+{left}+{top}", "+repage"]
        # No time stamps in the file: a picture changes only when what it
        # shows changes.
        command += ["-resize", f"{width}x{height}!", "-strip", "-define", "png:exclude-chunks=date,time",
                    f"png:{made}"]
        subprocess.run(command, check=True)
        if picture_size(made) != (width, height):
            print(f"screenshots: {name} came out {picture_size(made)}", file=sys.stderr)
            return 1
        made.replace(folder / name)
        print(folder / name)
    return 0


if __name__ == "__main__":
    sys.exit(main())

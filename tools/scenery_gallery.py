#!/usr/bin/env python3
"""Paints all five landscapes at 1920x1080 and at 1280x1024 into PNG files
in build/scenery-gallery/ (a window shows one theme at random, so this is
the way to look at every theme). Run after ./puffino build."""

import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "tests" / "harness"))
from wine_session import BUILD, WINDOWS_BUILD, WineSession, windows_path  # noqa: E402


def main():
    out = BUILD / "scenery-gallery"
    out.mkdir(parents=True, exist_ok=True)
    with WineSession("scenery-gallery", heads=["1024x768+0+0"], artifacts=out) as session:
        code, _, err = session.run(WINDOWS_BUILD / "tests" / "scenery_gallery.exe", windows_path(out))
    if code != 0:
        sys.stderr.write(err)
        return code
    for png in sorted(out.glob("*.png")):
        print(png)
    return 0


if __name__ == "__main__":
    sys.exit(main())

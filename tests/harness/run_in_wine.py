#!/usr/bin/env python3
"""Runs one Windows test program inside a fresh Wine session and exits with
its exit code.

  run_in_wine.py [--heads WxH+X+Y,...] [--dpi N] [--install-font FILE]...
                 [--replace-font NAME=FONT]... [--label NAME] PROGRAM [ARGS...]

--heads lists the monitors in X screen coordinates, primary first;
--install-font puts a font file into the Windows font folder;
--replace-font makes the family NAME stand for the installed FONT."""

import argparse
import sys

from wine_session import TWO_MONITORS, WineSession


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--heads", default=",".join(TWO_MONITORS))
    parser.add_argument("--dpi", type=int)
    parser.add_argument("--install-font", action="append", default=[])
    parser.add_argument("--replace-font", action="append", default=[])
    parser.add_argument("--label", default="wine-test")
    parser.add_argument("program")
    parser.add_argument("args", nargs=argparse.REMAINDER)
    options = parser.parse_args()
    replacements = dict(r.split("=", 1) for r in options.replace_font)
    with WineSession(options.label, heads=options.heads.split(","), dpi=options.dpi,
                     font_replacements=replacements, fonts=options.install_font) as session:
        code, out, err = session.run(options.program, *options.args, timeout=600)
    sys.stdout.write(out)
    sys.stderr.write(err)
    return code


if __name__ == "__main__":
    sys.exit(main())

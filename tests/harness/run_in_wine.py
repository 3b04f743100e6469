#!/usr/bin/env python3
"""Runs one Windows test program in a fresh Wine session; exits with its code.
--heads: the monitors (WxH+X+Y,...) in X screen coordinates, primary first;
--install-font FILE goes into the Windows font folder; --replace-font
NAME=FONT makes the family NAME stand for the installed FONT."""

import argparse
import sys

from wine_session import TWO_MONITORS, WineSession

parser = argparse.ArgumentParser()
parser.add_argument("--heads", default=",".join(TWO_MONITORS))
parser.add_argument("--dpi", type=int)
parser.add_argument("--install-font", action="append", default=[])
parser.add_argument("--replace-font", action="append", default=[])
parser.add_argument("--label", default="wine-test")
parser.add_argument("program")
parser.add_argument("args", nargs=argparse.REMAINDER)
options = parser.parse_args()
with WineSession(options.label, options.heads.split(","), options.dpi, fonts=options.install_font,
                 font_replacements=dict(r.split("=", 1) for r in options.replace_font)) as session:
    code, out, err = session.run(options.program, *options.args, timeout=600)
sys.stdout.write(out)
sys.stderr.write(err)
sys.exit(code)

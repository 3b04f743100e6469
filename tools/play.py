#!/usr/bin/env python3
"""Puffino on this machine's display: the Linux edition (play.py native),
or Puffino.exe under Wine in a private prefix kept in the build tree
(play.py wine). Play ends with the finish button or Alt+F4."""

import os
import subprocess
import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "tests" / "harness"))
from wine_session import BUILD, PUFFINO_EXE, wine_environment  # noqa: E402


def play_wine():
    prefix = BUILD / "wine" / "play"
    env = wine_environment(prefix, os.environ["DISPLAY"])
    if not (prefix / "system.reg").exists():
        print(f"preparing a Wine prefix in {prefix} ...")
        subprocess.run(["wineboot", "-i"], env=env, check=True,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    return subprocess.run(["wine", str(PUFFINO_EXE)], env=env, stderr=subprocess.DEVNULL).returncode


def main():
    edition = sys.argv[1] if len(sys.argv) > 1 else "native"
    code = play_wine() if edition == "wine" else subprocess.run([str(BUILD / "puffino")]).returncode
    print(f"Puffino ended with exit code {code}")
    return code


if __name__ == "__main__":
    sys.exit(main())

#!/usr/bin/env python3
"""Puffino on this machine's display, under Wine, in a private prefix kept in
the build tree. Play ends with the finish button or Alt+F4."""

import os
import subprocess
import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "tests" / "harness"))
from wine_session import BUILD, PUFFINO_EXE, wine_environment  # noqa: E402


def main():
    prefix = BUILD / "wine" / "play"
    env = wine_environment(prefix, os.environ["DISPLAY"])
    if not (prefix / "system.reg").exists():
        print(f"preparing a Wine prefix in {prefix} ...")
        subprocess.run(["wineboot", "-i"], env=env, check=True,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    code = subprocess.run(["wine", str(PUFFINO_EXE)], env=env, stderr=subprocess.DEVNULL).returncode
    print(f"Puffino ended with exit code {code}")
    return code


if __name__ == "__main__":
    sys.exit(main())

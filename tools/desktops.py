#!/usr/bin/env python3
"""The desktop matrix (./puffino desktops): the Linux edition's desktop
scenarios played under every desktop of the registry, one after another, and
the table of desktop x scenario. Names as arguments play only those desktops;
--json FILE keeps the results. Ends non-zero when a cell fails."""

import argparse
import json
import sys
import time
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[1]
sys.path[:0] = [str(ROOT / "tests" / "harness"), str(ROOT / "tests" / "e2e")]
import desktops  # noqa: E402

try:  # the Wayland compositors, where their module is present
    import wayland_desktops  # noqa: E402,F401
except ImportError:
    pass
import test_desktops  # noqa: E402


class Cells(unittest.TestResult):
    """Each test's outcome and its failure's first line."""

    def __init__(self):
        super().__init__()
        self.cells = {}

    def addSuccess(self, test):
        self.cells[test._testMethodName] = ("pass", "")

    def addFailure(self, test, error):
        self.cells[test._testMethodName] = ("FAIL", str(error[1]).splitlines()[0][:160])

    def addError(self, test, error):
        if test.__class__.__name__ == "_ErrorHolder":  # the desktop did not start
            self.cells["*"] = ("FAIL", f"{error[0].__name__}: {str(error[1]).splitlines()[0][:160]}")
        else:
            self.cells[test._testMethodName] = ("FAIL", f"{error[0].__name__}: {error[1]}".splitlines()[0][:160])


def play(name):
    case = test_desktops.desktop_case(name)
    result, started = Cells(), time.monotonic()
    unittest.defaultTestLoader.loadTestsFromTestCase(case).run(result)
    print(f"{name}: {time.monotonic() - started:.0f} s", flush=True)
    return result.cells, time.monotonic() - started


def table(results):
    columns = list(next(iter(results.values()))[0].keys() - {"*"}) if results else []
    columns = [c for c in test_desktops.desktop_case(next(iter(results))).__dict__ if c in columns]
    heads = [c[len("test_"):].replace("_", " ") for c in columns]
    lines = ["| desktop | " + " | ".join(heads) + " | seconds |", "|---" * (len(heads) + 2) + "|"]
    for name, (cells, seconds) in results.items():
        row = [cells.get(c, cells.get("*", ("—", "")))[0] for c in columns]
        lines.append(f"| {name} | " + " | ".join(row) + f" | {seconds:.0f} |")
    notes = [f"- {name}, {column.replace('test_', '')}: {why}" for name, (cells, _) in results.items()
             for column, (outcome, why) in cells.items() if outcome == "FAIL"]
    return "\n".join(lines + ([""] + notes if notes else []))


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("names", nargs="*", help=f"desktops (default: all of {', '.join(desktops.DESKTOPS)})")
    parser.add_argument("--json")
    arguments = parser.parse_args()
    results = {name: play(name) for name in arguments.names or desktops.DESKTOPS}
    print(table(results))
    if arguments.json:
        Path(arguments.json).write_text(json.dumps(results, indent=1))
    return 1 if any(o == "FAIL" for cells, _ in results.values() for o, _ in cells.values()) else 0


if __name__ == "__main__":
    sys.exit(main())

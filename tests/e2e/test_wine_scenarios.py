"""The scenario tables played by Puffino.exe under Wine: a session per monitor layout, a test per scenario."""

import re
import unittest

import scenarios
from wine_session import TWO_MONITORS, WinePuffino


def played(name, table, heads, dpi=None):
    """A test case class with one session for all of the table's scenarios."""
    def setUpClass(cls):
        cls.session = WinePuffino(cls.__name__, heads, dpi).__enter__()
        cls.addClassCleanup(cls.session.__exit__, None, None, None)

    def test(name, steps):
        return lambda self: self.session.run_scenario(re.sub(r"\W+", "-", name), steps)
    methods = {"test_" + re.sub(r"\W+", "_", name): test(name, steps) for name, steps in table.items()}
    return type(name, (unittest.TestCase,), {"setUpClass": classmethod(setUpClass), **methods})


TwoMonitors = played("TwoMonitors", scenarios.TWO_MONITORS, TWO_MONITORS)
LeftOfPrimaryAt144Dpi = played("LeftOfPrimaryAt144Dpi", scenarios.LEFT_OF_PRIMARY_AT_144_DPI,
                               ("1920x1080+1920+0", "1920x1080+0+0"), dpi=144)

if __name__ == "__main__":
    unittest.main()

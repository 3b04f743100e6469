"""The scenario tables played by Puffino.exe under Wine: a session per monitor layout, a test per scenario."""

import unittest

import scenarios
from wine_session import TWO_MONITORS, WinePuffino

TwoMonitors = scenarios.played("TwoMonitors", {**scenarios.TWO_MONITORS, **scenarios.WINDOWS_TWO_MONITORS},
                               lambda label: WinePuffino(label, TWO_MONITORS))
LeftOfPrimaryAt144Dpi = scenarios.played(
    "LeftOfPrimaryAt144Dpi", scenarios.LEFT_OF_PRIMARY_AT_144_DPI,
    lambda label: WinePuffino(label, ("1920x1080+1920+0", "1920x1080+0+0"), dpi=144))

if __name__ == "__main__":
    unittest.main()

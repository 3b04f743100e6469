"""The scenario tables played by the Linux edition on a dummy Xorg with two monitors, a test per scenario."""

import unittest

import scenarios
from native_session import TWO_MONITORS, NativePuffino

NativeTwoMonitors = scenarios.played("NativeTwoMonitors", {**scenarios.TWO_MONITORS, **scenarios.LINUX_TWO_MONITORS},
                                     lambda label: NativePuffino(label, TWO_MONITORS))

if __name__ == "__main__":
    unittest.main()

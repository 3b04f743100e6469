"""The Linux edition with SDL's Wayland driver under a headless sway with two outputs, a test per scenario."""

import unittest

import scenarios
from wayland_session import WaylandPuffino

Sway = scenarios.played("Sway", scenarios.WAYLAND, WaylandPuffino)

if __name__ == "__main__":
    unittest.main()

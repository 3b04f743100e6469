"""The Wayland compositors of the desktop matrix (tools/desktops.py), added to
its registry: sway's headless backend with SDL's Wayland driver, played
with the Wayland scenario table under the X desktops' column names."""

import scenarios
from desktops import Desktop, register
from wayland_session import WaylandPuffino

sway = register(Desktop("sway (Wayland)", [], ("sway", "wayvnc", "grim")))
sway.session, sway.scenarios = WaylandPuffino, scenarios.WAYLAND

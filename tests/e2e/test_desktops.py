"""The desktop scenarios played by the Linux edition under each real desktop
of the registry (tests/harness/desktops.py): a test case class per desktop,
named after it (xfwm4+xfce4-panel: Xfwm4Xfce4Panel), a test per scenario."""

import re
import unittest

import scenarios
from desktops import DESKTOPS, DesktopPuffino


def class_name(desktop):
    return "".join(part.capitalize() for part in re.split(r"[^A-Za-z0-9]+", desktop))


def desktop_case(name):
    entry = DESKTOPS[name]
    session = getattr(entry, "session", None) or (lambda label: DesktopPuffino(label, name))
    return scenarios.played(class_name(name), getattr(entry, "scenarios", None) or scenarios.DESKTOP, session)


for _name in DESKTOPS:
    globals()[class_name(_name)] = desktop_case(_name)

if __name__ == "__main__":
    unittest.main()

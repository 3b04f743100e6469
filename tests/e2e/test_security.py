"""The child stays in and nothing leaks out, with the real Puffino.exe under
Wine: every shortcut a toddler's hands find on a keyboard, pressed through
the real keyboard guard, leaves every Puffino window in place and topmost,
and only Alt+F4 ends play; a run writes nothing outside Puffino's own
application-data folder and opens no network connection."""

import os
import subprocess
import unittest
from pathlib import Path

from scene_session import SceneSession
from test_settings import SettingsSession
from wine_session import PUFFINO_EXE

WS_EX_TOPMOST = 0x8
VK_F4, VK_F12 = 0x73, 0x7B
# (keys for xdotool, the key's virtual code, whether the guard lets it
# through to the hooks and windows behind it)
SHORTCUTS = [
    ("super", 0x5B, False),
    ("super+d", 0x5B, False),
    ("super+l", 0x5B, False),
    # The Windows key never reaches the key state once swallowed, so under
    # Wine the Tab after it passes as a plain Tab: harmless, the system has
    # seen no Windows key.
    ("super+Tab", 0x5B, False),
    ("Menu", 0x5D, False),
    ("ctrl+shift+Escape", 0x1B, False),
    ("ctrl+shift+q", 0x51, False),
    ("ctrl+shift+n", 0x4E, False),
    ("ctrl+Escape", 0x1B, False),
    ("alt+Tab", 0x09, False),
    ("alt+shift+Tab", 0x09, False),
    ("alt+Escape", 0x1B, False),
    ("alt+space", 0x20, False),
    ("alt+Return", 0x0D, False),
    ("alt+F1", 0x70, False),
    ("alt+x", 0x58, False),
    ("alt+7", 0x37, False),
    # Wine's Print Screen comes flagged extended: the guard passes it on.
    ("Print", 0x2C, True),
    ("alt+Print", 0x2C, True),
    ("ctrl+w", 0x57, True),
    ("F1", 0x70, True),
    ("Escape", 0x1B, True),
    ("q", 0x51, True),
]
NETWORK_TABLES = ("/proc/net/tcp", "/proc/net/tcp6", "/proc/net/udp", "/proc/net/udp6")


class ShortcutsAToddlerHits(SettingsSession):

    def test_every_shortcut_leaves_play_in_place_and_only_alt_f4_ends_it(self):
        seen = self.watch_keys()
        process, windows = self.session.start_puffino(2)
        self.session.xdotool("mousemove", 400, 300)  # X focus follows the pointer onto Puffino
        for keys, code, passes in SHORTCUTS:
            with self.subTest(keys):
                before = len(seen())
                self.session.xdotool("key", keys)
                # F12 passes the guard: once the watcher has it, every event
                # of the shortcut before it has been decided.
                self.session.xdotool("key", "F12")
                self.session.wait_for(lambda: ("down", VK_F12) in seen()[before:], "the marker key")
                self.assertEqual(("down", code) in seen()[before:], passes)
                self.assertIsNone(process.poll(), "still playing")
                now = self.session.windows()
                self.assertEqual(sorted(w["hwnd"] for w in now), sorted(w["hwnd"] for w in windows))
                self.assertTrue(all(w["visible"] and w["exstyle"] & WS_EX_TOPMOST for w in now), now)

        self.session.xdotool("key", "alt+F4")
        self.assertEqual(self.session.wait_exit(process), 0)
        self.assertEqual(self.session.windows(), [])
        self.assertNotIn(("down", VK_F4), seen(), "Alt+F4 never reaches the system")


def files_under(folder):
    """Every file under the folder with its size and modification time."""
    found = {}
    for root, _, names in os.walk(folder):
        for name in names:
            path = Path(root) / name
            if not path.is_symlink():
                status = path.stat()
                found[path] = (status.st_size, status.st_mtime_ns)
    return found


def network_sockets(pid):
    """The process's open internet sockets (TCP or UDP, IPv4 or IPv6); the
    Unix sockets that tie a Wine process to its wineserver are none."""
    inodes = set()
    for fd in Path(f"/proc/{pid}/fd").iterdir():
        try:
            target = os.readlink(fd)
        except OSError:
            continue
        if target.startswith("socket:["):
            inodes.add(target[8:-1])
    internet = set()
    for table in NETWORK_TABLES:
        if os.path.exists(table):
            for line in Path(table).read_text().splitlines()[1:]:
                internet.add(line.split()[9])
    return inodes & internet


class LeavesNoTrace(unittest.TestCase):

    def test_a_run_writes_only_its_own_folder_and_opens_no_connection(self):
        scene = SceneSession(type(self).__name__, self.addCleanup)
        prefix, own = scene.session.prefix, scene.app_data()
        # Wine keeps its registry in these files and rewrites them itself.
        wine_own = {prefix / name for name in ("system.reg", "user.reg", "userdef.reg", ".update-timestamp")}
        before = files_under(prefix)
        scene.start()
        scene.pop_a_bubble()  # the best score is written
        self.assertEqual(network_sockets(scene.process.pid), set())
        self.assertEqual(scene.close(), 0)
        after = files_under(prefix)

        changed = {p for p in before.keys() | after.keys() if before.get(p) != after.get(p)}
        self.assertIn(own / "high_score.txt", changed)
        outside = sorted(str(p.relative_to(prefix)) for p in changed - wine_own if own not in p.parents)
        self.assertEqual(outside, [])

    def test_the_program_links_no_network_library(self):
        imports = subprocess.run(["x86_64-w64-mingw32-objdump", "-p", str(PUFFINO_EXE)], check=True,
                                 capture_output=True, text=True).stdout.lower()
        dlls = {line.split(":", 1)[1].strip() for line in imports.splitlines() if "dll name:" in line}
        self.assertIn("user32.dll", dlls)
        self.assertFalse(dlls & {"ws2_32.dll", "wsock32.dll", "wininet.dll", "winhttp.dll", "urlmon.dll",
                                 "iphlpapi.dll", "dnsapi.dll"}, dlls)


if __name__ == "__main__":
    unittest.main()

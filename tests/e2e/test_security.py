"""The child stays in and nothing leaks out, with the real Puffino.exe under
Wine: every shortcut a toddler's hands find on a keyboard, pressed through
the real keyboard guard, leaves every Puffino window in place and topmost,
and only Alt+F4 ends play, while the volume clamp works on a device that
will not be lowered; a hand-edited settings file can switch the guard off.
A key watcher started before Puffino sits behind the guard in the hook
chain and shows which key events got past it. A first run writes its
default settings and best score and nothing outside its own
application-data folder, and opens no network connection."""

import os
import stat
import unittest
from pathlib import Path

from play_session import DEFAULT_CONFIG, NULL_AUDIO, VK_F4, PlaySession, config_bytes
from scene_session import SceneSession
from wine_session import WS_EX_TOPMOST

VK_TAB, VK_ESCAPE, VK_F12, VK_A = 0x09, 0x1B, 0x7B, 0x41
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


class KeyboardGuard(PlaySession):

    def test_every_shortcut_leaves_play_in_place_the_volume_clamped_and_only_alt_f4_ends_it(self):
        # A ceiling on a playback device Wine reads (full) but refuses to
        # lower: the clamp tries at start-up and on every topmost tick.
        self.write_config(config_bytes("[Puffino]", "VolumeClampPercent=35"))
        seen = self.watch_keys()
        windows = self.start(env=NULL_AUDIO)
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
                self.assertIsNone(self.process.poll(), "still playing")
                now = self.session.windows()
                self.assertEqual(sorted(w["hwnd"] for w in now), sorted(w["hwnd"] for w in windows))
                self.assertTrue(all(w["visible"] and w["exstyle"] & WS_EX_TOPMOST for w in now), now)

        self.assertTrue({("up", VK_TAB), ("up", VK_ESCAPE)} <= set(seen()), "releases pass")

        home = self.home(windows)
        # The topmost tick may put the flag back between the probe's two
        # calls on a busy machine: one of a few tries shows it taken away.
        self.assertTrue(any(not self.session.probe("notopmost", home["hwnd"])["exstyle"] & WS_EX_TOPMOST
                            for _ in range(5)), "the probe takes the window out of the topmost band")
        self.session.wait_for(lambda: all(w["exstyle"] & WS_EX_TOPMOST for w in self.session.windows()),
                              "the topmost tick, which ends with the clamp")
        self.assertIsNone(self.process.poll(), "still playing after the clamp")

        self.type_keys("alt+F4")
        self.assert_ended()
        self.assertNotIn(("down", VK_F4), seen(), "Alt+F4 never reaches the system")

    def test_a_read_only_hand_edited_config_is_obeyed_and_left_unchanged(self):
        edited = config_bytes("[Puffino]", "; no keyboard guard for this PC", "BlockSystemShortcuts=0",
                              "[UI]", "Language=en")
        self.write_config(edited, mode=0o444)
        path = self.session.app_data() / "config.ini"
        before = os.stat(path)
        seen = self.watch_keys()
        self.start()
        # No guard: Alt+Tab gets through to the hook behind Puffino's place.
        self.type_keys("alt+Tab", "a")
        self.session.wait_for(lambda: ("down", VK_A) in seen(), "the typed letter")
        self.assertIn(("down", VK_TAB), seen())
        # Alt+F4 then closes the focused window the ordinary way, and play ends.
        self.type_keys("alt+F4")
        self.assert_ended()
        self.assertIn(("down", VK_F4), seen())
        after = os.stat(path)
        self.assertEqual((path.read_bytes(), after.st_mtime_ns), (edited, before.st_mtime_ns))
        self.assertEqual(stat.S_IMODE(after.st_mode), 0o444)


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

    def test_a_first_run_writes_its_settings_and_best_score_only_and_opens_no_connection(self):
        scene = SceneSession(type(self).__name__, self.addCleanup)
        prefix, own = scene.session.prefix, scene.session.app_data()
        self.assertFalse(own.parent.parent.exists(), "a profile that has never seen Puffino")
        # Wine keeps its registry in these files and rewrites them itself.
        wine_own = {prefix / name for name in ("system.reg", "user.reg", "userdef.reg", ".update-timestamp")}
        before = files_under(prefix)
        scene.start()
        self.assertEqual((own / "config.ini").read_bytes(), DEFAULT_CONFIG)
        self.assertFalse((own / "high_score.txt").exists(), "no best score before the first pop")
        scene.pop_a_bubble()
        self.assertEqual(network_sockets(scene.process.pid), set())
        self.assertEqual(scene.close(), 0)
        # One point, or five for a gold bubble; a pop heard late on a busy
        # machine may have been followed by another.
        saved = (own / "high_score.txt").read_bytes()
        self.assertRegex(saved, rb"^[1-9][0-9]?\r\n$")
        self.assertLessEqual(int(saved), 10)

        after = files_under(prefix)
        changed = {p for p in before.keys() | after.keys() if before.get(p) != after.get(p)}
        outside = sorted(str(p.relative_to(prefix)) for p in changed - wine_own if own not in p.parents)
        self.assertEqual(outside, [])
        self.assertEqual(sorted(p.name for p in own.iterdir()), ["config.ini", "high_score.txt"])


if __name__ == "__main__":
    unittest.main()

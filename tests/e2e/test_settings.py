"""The real Puffino.exe under Wine and its settings: the default config.ini
written on a first start, a read-only hand-edited one obeyed and left alone,
and a guarded run with a volume ceiling. A key watcher started before
Puffino sits behind its keyboard guard in the hook chain and shows which key
events got past it."""

import os
import stat
import subprocess
import unittest

from wine_session import REPO, WINDOWS_BUILD, WineSession

WM_CLOSE = 0x10
WS_EX_TOPMOST = 0x8
VK_TAB, VK_ESCAPE, VK_F4, VK_A = 0x09, 0x1B, 0x73, 0x41
KEY_WATCH_EXE = WINDOWS_BUILD / "tests" / "key_watch.exe"
# ALSA's null sink as the default device: Wine then has a playback device.
NULL_AUDIO = {"ALSA_CONFIG_PATH": "/usr/share/alsa/alsa.conf:" + str(REPO / "tests/harness/null_audio.conf")}

# The file a first start writes, as a parent would find it in Notepad.
DEFAULT_CONFIG = b"\xff\xfe" + "".join(line + "\r\n" for line in [
    "[Puffino]",
    "; Puffino optional settings. Encoding: UTF-16 LE with BOM.",
    r"; Path: %AppData%\Roaming\morvenda\Tonkari\Puffino\config.ini",
    "",
    "SoundEnabled=1",
    "VolumeClampPercent=0",
    "BlockSystemShortcuts=1",
    "",
    "[UI]",
    "Language=",
]).encode("utf-16-le")


def config_bytes(*lines):
    return b"\xff\xfe" + "".join(line + "\r\n" for line in lines).encode("utf-16-le")


class SettingsSession(unittest.TestCase):
    """A fresh session (a clean prefix) for every test: each starts from a
    profile that has never seen Puffino."""

    def setUp(self):
        self.session = WineSession(f"{type(self).__name__}-{self._testMethodName}").__enter__()
        self.addCleanup(self.session.__exit__, None, None, None)

    def roaming(self):
        return self.session.user_folder() / "AppData" / "Roaming"

    def app_data(self):
        return self.roaming() / "morvenda" / "Tonkari" / "Puffino"

    def write_config(self, data, mode=0o644):
        folder = self.app_data()
        folder.mkdir(parents=True, exist_ok=True)
        (folder / "config.ini").write_bytes(data)
        os.chmod(folder / "config.ini", mode)

    def close(self, process, window):
        self.session.post(window["hwnd"], WM_CLOSE)
        self.assertEqual(self.session.wait_exit(process), 0)
        self.assertEqual(self.session.windows(), [])

    def watch_keys(self):
        """Starts the key watcher before Puffino, so that its hook sits
        behind the guard; returns a function that reads what it saw as
        (event, virtual key) pairs."""
        log = self.session.root / "keys.log"
        out = open(log, "wb")
        self.addCleanup(out.close)
        process = subprocess.Popen(["wine", str(KEY_WATCH_EXE)], env=self.session.program_env(),
                                   stdout=out, stderr=subprocess.DEVNULL)
        self.session.processes.append(process)

        def seen():
            lines = log.read_text().split()
            return list(zip(lines[1::2], map(int, lines[2::2]))) if lines[:1] == ["ready"] else None
        self.session.wait_for(lambda: seen() is not None, "the key watcher's hook")
        return seen

    def type_keys(self, *keys):
        self.session.xdotool("mousemove", 400, 300)  # X focus follows the pointer onto Puffino
        for key in keys:
            self.session.xdotool("key", key)


class FirstStart(SettingsSession):

    def test_writes_the_default_config_byte_for_byte(self):
        self.assertTrue(self.roaming().is_dir(), "the prefix's roaming application data")
        self.assertFalse((self.roaming() / "morvenda").exists())
        process, windows = self.session.start_puffino(2)
        self.assertEqual((self.app_data() / "config.ini").read_bytes(), DEFAULT_CONFIG)
        self.close(process, windows[0])
        self.assertEqual(sorted(p.name for p in self.app_data().iterdir()), ["config.ini"],
                         "no best score before the first pop")


class HandEditedConfig(SettingsSession):

    def test_read_only_file_is_obeyed_and_left_unchanged(self):
        edited = config_bytes("[Puffino]", "; no keyboard guard for this PC", "BlockSystemShortcuts=0",
                              "[UI]", "Language=en")
        self.write_config(edited, mode=0o444)
        before = os.stat(self.app_data() / "config.ini")
        seen = self.watch_keys()
        process, windows = self.session.start_puffino(2)

        # No guard: Alt+Tab gets through to the hook behind Puffino's place.
        self.type_keys("alt+Tab", "a")
        self.session.wait_for(lambda: ("down", VK_A) in seen(), "the typed letter")
        self.assertIn(("down", VK_TAB), seen())
        # Alt+F4 then closes the focused window the ordinary way, and play ends.
        self.type_keys("alt+F4")
        self.assertEqual(self.session.wait_exit(process), 0)
        self.assertEqual(self.session.windows(), [])
        self.assertIn(("down", VK_F4), seen())

        after = os.stat(self.app_data() / "config.ini")
        self.assertEqual((self.app_data() / "config.ini").read_bytes(), edited)
        self.assertEqual(after.st_mtime_ns, before.st_mtime_ns)
        self.assertEqual(stat.S_IMODE(after.st_mode), 0o444)


class GuardedRun(SettingsSession):

    def test_shortcuts_swallowed_volume_clamped_alt_f4_ends_play(self):
        # A ceiling on a playback device Wine reads (full) but refuses to
        # lower: the clamp tries at start-up and on every topmost tick.
        self.write_config(config_bytes("[Puffino]", "VolumeClampPercent=35"))
        seen = self.watch_keys()
        process, windows = self.session.start_puffino(2, env=NULL_AUDIO)
        self.type_keys("alt+Tab", "ctrl+shift+Escape", "ctrl+Escape", "a")
        self.session.wait_for(lambda: ("down", VK_A) in seen(), "the typed letter")
        self.assertFalse({("down", VK_TAB), ("down", VK_ESCAPE)} & set(seen()))
        self.assertTrue({("up", VK_TAB), ("up", VK_ESCAPE)} <= set(seen()), "releases pass")
        after = self.session.windows()
        self.assertEqual(sorted((w["hwnd"], w["rect"], w["visible"]) for w in after),
                         sorted((w["hwnd"], w["rect"], True) for w in windows))

        home = next(w for w in windows if w["foreground"])
        self.assertFalse(self.session.probe("notopmost", home["hwnd"])["exstyle"] & WS_EX_TOPMOST)
        self.session.wait_for(lambda: all(w["exstyle"] & WS_EX_TOPMOST for w in self.session.windows()),
                              "the topmost tick, which ends with the clamp")
        self.assertIsNone(process.poll(), "still playing after the clamp")

        # Alt+F4 is reported to the home window and never reaches the system.
        self.type_keys("alt+F4")
        self.assertEqual(self.session.wait_exit(process), 0)
        self.assertEqual(self.session.windows(), [])
        self.assertNotIn(("down", VK_F4), seen())


if __name__ == "__main__":
    unittest.main()

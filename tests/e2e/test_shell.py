"""The real Puffino.exe under Wine: its windows on every monitor, the home
window, single instance, exit codes, and what the screen shows."""

import subprocess
import unittest

from wine_session import PUFFINO_EXE, TWO_MONITORS, WineSession

WS_EX_TOPMOST = 0x8
WS_EX_TOOLWINDOW = 0x80
WS_POPUP = 0x80000000
WS_VISIBLE = 0x10000000
WS_CAPTION = 0xC00000
WS_THICKFRAME = 0x40000
WM_CLOSE = 0x10
WM_GUARDED_KEY = 0x8001
VK_F4 = 0x73
PALE_BLUE = (0xC8, 0xE4, 0xFA)  # the scenery's clear colour, hidden by every landscape
BLACK = (0, 0, 0)


class SessionTest(unittest.TestCase):
    heads = TWO_MONITORS

    @classmethod
    def setUpClass(cls):
        cls.session = WineSession(cls.__name__, heads=cls.heads).__enter__()

    @classmethod
    def tearDownClass(cls):
        cls.session.__exit__(None, None, None)

    def by_left(self, windows):
        return {w["rect"][0]: w for w in windows}

    def home(self, windows):
        """The window brought to the front at start-up, which may come a
        moment after the windows are shown."""
        def foreground():
            homes = [w for w in self.session.windows() if w["foreground"]]
            return homes if len(homes) == 1 else None
        home = self.session.wait_for(foreground, "one foreground Puffino window")[0]
        return next(w for w in windows if w["hwnd"] == home["hwnd"])

    def landscape_shot(self, name, monitors):
        """A screenshot checked to show a landscape on every monitor (X
        rectangles): nowhere the pale blue clear colour or black, a blue sky
        at the top and something else (sea or grass) at the bottom. The
        theme of each window is random, so only what every theme shares is
        checked."""
        shot = self.session.screenshot(name)
        for left, top, right, bottom in monitors:
            for x in range(left + 3, right, 41):
                for y in range(top + 3, bottom, 41):
                    self.assertNotIn(shot.pixel(x, y), (PALE_BLUE, BLACK), (x, y))
            sky, ground = shot.pixel(left + 10, top + 5), shot.pixel(left + 10, bottom - 5)
            self.assertEqual(max(range(3), key=sky.__getitem__), 2, f"sky at {left},{top}: {sky}")
            self.assertGreater(max(abs(a - b) for a, b in zip(sky, ground)), 40,
                               f"sky {sky} and ground {ground} at {left}")
        return shot

    def close(self, process, window):
        self.session.post(window["hwnd"], WM_CLOSE)
        self.assertEqual(self.session.wait_exit(process), 0)
        self.assertEqual(self.session.windows(), [])


class TwoMonitors(SessionTest):
    """1920x1080 primary with 1280x1024 to its right."""

    def test_one_topmost_tool_window_covers_each_monitor(self):
        process, windows = self.session.start_puffino(2)
        by_left = self.by_left(windows)
        self.assertEqual(by_left[0]["rect"], [0, 0, 1920, 1080])
        self.assertEqual(by_left[1920]["rect"], [1920, 0, 3200, 1024])
        for window in windows:
            self.assertEqual(window["title"], "Puffino")
            self.assertEqual(window["exstyle"] & (WS_EX_TOPMOST | WS_EX_TOOLWINDOW),
                             WS_EX_TOPMOST | WS_EX_TOOLWINDOW)
            self.assertEqual(window["style"] & (WS_POPUP | WS_VISIBLE), WS_POPUP | WS_VISIBLE)
            self.assertEqual(window["style"] & (WS_CAPTION | WS_THICKFRAME), 0)
        self.assertIs(self.home(windows), by_left[0])

        shot = self.landscape_shot("two-monitors", [(0, 0, 1920, 1080), (1920, 0, 3200, 1024)])
        self.assertEqual(shot.pixel(2500, 1050), BLACK, "below the smaller monitor: no window")
        # WM_CLOSE on the secondary window ends play as on the home window.
        self.close(process, by_left[1920])

    def test_second_launch_exits_at_once_and_adds_no_window(self):
        process, windows = self.session.start_puffino(2)
        code, _, _ = self.session.run(PUFFINO_EXE, timeout=30)
        self.assertEqual(code, 0)
        again = self.session.windows()
        self.assertEqual(sorted(w["hwnd"] for w in again), sorted(w["hwnd"] for w in windows))
        self.close(process, windows[0])

    def test_launch_value_makes_the_second_monitor_home(self):
        process, windows = self.session.start_puffino(
            2, env={"TONKARI_LAUNCH_MONITOR": "1920,0,3200,1024"})
        self.assertEqual(self.home(windows)["rect"][0], 1920)
        self.close(process, windows[0])

    def test_launch_value_naming_no_monitor_exits_with_1(self):
        code, _, _ = self.session.run(PUFFINO_EXE, env={"TONKARI_LAUNCH_MONITOR": "5000,0,6000,1000"},
                                      timeout=30)
        self.assertEqual(code, 1)
        self.assertEqual(self.session.windows(), [])

    def test_guarded_alt_f4_ends_play_with_0(self):
        process, windows = self.session.start_puffino(2)
        self.session.post(self.home(windows)["hwnd"], WM_GUARDED_KEY, VK_F4)
        self.assertEqual(self.session.wait_exit(process), 0)
        self.assertEqual(self.session.windows(), [])

    def test_alt_f4_typed_on_the_keyboard_ends_play_with_0(self):
        process, windows = self.session.start_puffino(2)
        self.session.xdotool("mousemove", 400, 300)  # keys go where the pointer is
        self.session.xdotool("key", "alt+F4")
        self.assertEqual(self.session.wait_exit(process), 0)
        self.assertEqual(self.session.windows(), [])


class LeftOfPrimary(SessionTest):
    """A second 1920x1080 monitor left of the primary: the virtual screen
    starts at x = -1920."""
    heads = ("1920x1080+1920+0", "1920x1080+0+0")

    def test_windows_and_home_left_of_the_origin(self):
        process, windows = self.session.start_puffino(2)
        by_left = self.by_left(windows)
        self.assertEqual(by_left[-1920]["rect"], [-1920, 0, 0, 1080])
        self.assertEqual(by_left[0]["rect"], [0, 0, 1920, 1080])
        self.assertIs(self.home(windows), by_left[0])
        # In X coordinates the left monitor starts at 0, the primary at 1920.
        self.landscape_shot("left-of-primary", [(0, 0, 1920, 1080), (1920, 0, 3840, 1080)])
        self.close(process, by_left[-1920])


class ShippedExecutable(unittest.TestCase):
    """Puffino.exe runs from a folder on a bare Windows PC: it imports no
    DLL beyond the system's."""

    SYSTEM_DLLS = {"kernel32.dll", "msvcrt.dll", "user32.dll", "gdi32.dll", "gdiplus.dll",
                   "ole32.dll", "shell32.dll", "winmm.dll", "advapi32.dll"}

    def test_imports_only_system_dlls(self):
        dump = subprocess.run(["x86_64-w64-mingw32-objdump", "-p", str(PUFFINO_EXE)], check=True,
                              stdout=subprocess.PIPE, text=True).stdout
        imported = {line.split(":", 1)[1].strip().lower()
                    for line in dump.splitlines() if "DLL Name:" in line}
        self.assertTrue(imported)
        self.assertLessEqual(imported, self.SYSTEM_DLLS)


if __name__ == "__main__":
    unittest.main()

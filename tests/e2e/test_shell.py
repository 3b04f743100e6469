"""The real Puffino.exe under Wine: its windows on every monitor, the home
window, single instance, the launch value, exit codes, what the screen shows,
and the long press on the penguin as a child makes it with the mouse, heard
through a captured sound device."""

import array
import time
import unittest

from play_session import PlaySession
from scene_sight import SceneSight
from wine_session import PUFFINO_EXE, WS_EX_TOPMOST

WS_EX_TOOLWINDOW = 0x80
WS_POPUP = 0x80000000
WS_VISIBLE = 0x10000000
WS_CAPTION = 0xC00000
WS_THICKFRAME = 0x40000
# The penguin on a 1920x1080 home monitor stands in x 1637..1847, y 714..954.
# Pressed high up: the first ambient bubbles need seconds to rise this far,
# and the blown ones start above it.
ON_PENGUIN = (1742, 730)
CHIRP_SAMPLES = 1984  # 0.09 s at 22050 Hz


class ShellTest(PlaySession):

    def foreground(self, windows):
        """The window brought to the front at start-up, which may come a
        moment after the windows are shown."""
        def foreground():
            homes = [w for w in self.session.windows() if w["foreground"]]
            return homes if len(homes) == 1 else None
        home = self.session.wait_for(foreground, "one foreground Puffino window")[0]
        return next(w for w in windows if w["hwnd"] == home["hwnd"])


class TwoMonitors(ShellTest):
    """1920x1080 primary with 1280x1024 to its right."""
    session_options = {"sound_capture": True}

    def test_one_topmost_tool_window_covers_each_monitor_and_a_second_launch_adds_none(self):
        windows = self.start()
        by_left = {w["rect"][0]: w for w in windows}
        self.assertEqual(by_left[0]["rect"], [0, 0, 1920, 1080])
        self.assertEqual(by_left[1920]["rect"], [1920, 0, 3200, 1024])
        for window in windows:
            self.assertEqual(window["title"], "Puffino")
            self.assertEqual(window["exstyle"] & (WS_EX_TOPMOST | WS_EX_TOOLWINDOW),
                             WS_EX_TOPMOST | WS_EX_TOOLWINDOW)
            self.assertEqual(window["style"] & (WS_POPUP | WS_VISIBLE), WS_POPUP | WS_VISIBLE)
            self.assertEqual(window["style"] & (WS_CAPTION | WS_THICKFRAME), 0)
        self.assertIs(self.foreground(windows), by_left[0])
        shot = self.session.screenshot("two-monitors")  # their landscapes: the scene's tests
        self.assertEqual(shot.pixel(2500, 1050), (0, 0, 0), "below the smaller monitor: no window")

        code, _, _ = self.session.run(PUFFINO_EXE, timeout=30)
        self.assertEqual(code, 0, "a second launch exits at once")
        self.assertEqual(sorted(w["hwnd"] for w in self.session.windows()), sorted(w["hwnd"] for w in windows))
        # WM_CLOSE on the secondary window ends play as on the home window.
        self.end(by_left[1920])

    def test_launch_value_makes_the_second_monitor_home_with_its_finish_button(self):
        windows = self.start(env={"TONKARI_LAUNCH_MONITOR": "1920,0,3200,1024"})
        self.assertEqual(self.foreground(windows)["rect"][0], 1920)
        # Its finish button is at client (952..1252, 912..996), that is
        # x 2872..3172 on the screen.
        self.session.xdotool("mousemove", 3000, 950, "click", 1)
        self.assert_ended()

    def test_launch_value_naming_no_monitor_exits_with_1(self):
        code, _, _ = self.session.run(PUFFINO_EXE, env={"TONKARI_LAUNCH_MONITOR": "5000,0,6000,1000"},
                                      timeout=30)
        self.assertEqual(code, 1)
        self.assertEqual(self.session.windows(), [])

    def test_a_tap_is_silent_and_a_one_second_hold_plays_the_chirp(self):
        heard = len(self.session.sound_streams())
        windows = self.start()
        chirps = lambda: [s for s in self.session.sound_streams()[heard:] if s["rate"] == 22050]  # noqa: E731
        self.session.xdotool("mousemove", *ON_PENGUIN)
        self.session.xdotool("mousedown", 1, "sleep", 0.1, "mouseup", 1)
        # A chirp for the tap would come 300 ms after it went down.
        self.session.xdotool("sleep", 0.6)
        self.assertEqual(chirps(), [], "a 100 ms tap blows nothing")

        self.session.xdotool("mousedown", 1)
        pressed = time.monotonic()
        self.session.wait_for(chirps, "the blow chirp")
        time.sleep(max(0.0, 1.0 - (time.monotonic() - pressed)))  # a one-second hold
        self.session.xdotool("mouseup", 1)

        self.assertEqual(len(chirps()), 1, "the chirp plays once, as the blowing starts")
        self.assertEqual([s for s in self.session.sound_streams()[heard:] if s["rate"] == 44100], [],
                         "no pop: both presses met the penguin, not a bubble")
        chirp = chirps()[0]
        self.assertEqual((chirp["channels"], chirp["format"]), (1, "S16_LE"))
        stat = self.session.sound_stat(chirp)
        # Wine's sound driver hands over whole 10 ms periods, and on a busy
        # machine a few more: the stream may end in silence after the chirp.
        samples = array.array("h", chirp["path"].read_bytes())
        self.assertGreaterEqual(len(samples), CHIRP_SAMPLES)
        self.assertEqual(max(map(abs, samples[CHIRP_SAMPLES:]), default=0), 0, "silence after the chirp")
        self.assertAlmostEqual(stat["max"], 0.12, delta=0.005)  # the chirp's envelope peak
        self.assertTrue(1200 <= stat["frequency"] <= 2600, stat)  # rising 1200 -> 2600 Hz
        self.end(self.home(windows))


class LeftOfPrimary(ShellTest):
    """A second 1920x1080 monitor left of the primary: the virtual screen
    starts at x = -1920."""
    heads = ("1920x1080+1920+0", "1920x1080+0+0")

    def test_windows_and_home_left_of_the_origin(self):
        windows = self.start()
        by_left = {w["rect"][0]: w for w in windows}
        self.assertEqual(by_left[-1920]["rect"], [-1920, 0, 0, 1080])
        self.assertEqual(by_left[0]["rect"], [0, 0, 1920, 1080])
        self.assertIs(self.foreground(windows), by_left[0])
        # In X coordinates the left monitor starts at 0, the primary at 1920.
        sight = SceneSight(self.session, [(0, 0, 1920, 1080), (1920, 0, 3840, 1080)])
        self.addCleanup(sight.close)
        self.session.screenshot("left-of-primary")
        sight.learn_landscapes(sight.grab()[1])  # fails unless both show one
        self.end(by_left[-1920])


if __name__ == "__main__":
    unittest.main()

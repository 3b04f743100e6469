"""The play field in the real Puffino.exe: the long press on the penguin as
a child makes it with the mouse, heard through a captured sound device, and
the finish button."""

import array
import time
import unittest

from wine_session import TWO_MONITORS, WineSession

# With no pose pictures the penguin on a 1920x1080 home monitor is a 240 x 240
# square, x 1622..1862 less 6 % each side, y 714..954. Pressed high up: the
# first ambient bubbles need seconds to rise this far, and the blown ones
# start above it.
ON_PENGUIN = (1742, 730)
CHIRP_SAMPLES = 1984  # 0.09 s at 22050 Hz
WM_CLOSE = 0x10


class PenguinAndButtons(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.session = WineSession(cls.__name__, heads=TWO_MONITORS, sound_capture=True).__enter__()

    @classmethod
    def tearDownClass(cls):
        cls.session.__exit__(None, None, None)

    def start(self, env=None):
        process, windows = self.session.start_puffino(2, env=env)

        def close_if_running():
            self.session.xdotool("mouseup", 1)  # a failed hold leaves no button down
            if process.poll() is None:
                self.session.post(windows[0]["hwnd"], WM_CLOSE)
                self.session.wait_exit(process)
        self.addCleanup(close_if_running)
        return process, windows

    def chirps(self):
        return [s for s in self.session.sound_streams() if s["rate"] == 22050]

    def test_a_tap_is_silent_and_a_one_second_hold_plays_the_chirp(self):
        process, windows = self.start()
        self.session.xdotool("mousemove", *ON_PENGUIN)
        self.session.xdotool("mousedown", 1, "sleep", 0.1, "mouseup", 1)
        # A chirp for the tap would come 300 ms after it went down.
        self.session.xdotool("sleep", 0.6)
        self.assertEqual(self.chirps(), [], "a 100 ms tap blows nothing")

        self.session.xdotool("mousedown", 1)
        pressed = time.monotonic()
        self.session.wait_for(self.chirps, "the blow chirp")
        time.sleep(max(0.0, 1.0 - (time.monotonic() - pressed)))  # a one-second hold
        self.session.xdotool("mouseup", 1)

        chirps = self.chirps()
        self.assertEqual(len(chirps), 1, "the chirp plays once, as the blowing starts")
        self.assertEqual([s for s in self.session.sound_streams() if s["rate"] == 44100], [],
                         "no pop: both presses met the penguin, not a bubble")
        self.assertEqual((chirps[0]["channels"], chirps[0]["format"]), (1, "S16_LE"))
        stat = self.session.sound_stat(chirps[0])
        # Wine's sound driver hands over whole 10 ms periods, and on a busy
        # machine a few more: the stream may end in silence after the chirp.
        samples = array.array("h", chirps[0]["path"].read_bytes())
        self.assertGreaterEqual(len(samples), CHIRP_SAMPLES)
        self.assertEqual(max(map(abs, samples[CHIRP_SAMPLES:]), default=0), 0, "silence after the chirp")
        self.assertAlmostEqual(stat["max"], 0.12, delta=0.005)  # the chirp's envelope peak
        self.assertTrue(1200 <= stat["frequency"] <= 2600, stat)  # rising 1200 -> 2600 Hz
        self.session.post(windows[0]["hwnd"], WM_CLOSE)
        self.assertEqual(self.session.wait_exit(process), 0)

    def test_the_finish_button_on_the_home_monitor_ends_play(self):
        # Home on the right-hand 1280x1024 monitor: its finish button is at
        # client (952..1252, 912..996), that is x 2872..3172 on the screen.
        process, _ = self.start(env={"TONKARI_LAUNCH_MONITOR": "1920,0,3200,1024"})
        self.session.xdotool("mousemove", 3000, 950, "click", 1)
        self.assertEqual(self.session.wait_exit(process), 0)
        self.assertEqual(self.session.windows(), [])


if __name__ == "__main__":
    unittest.main()

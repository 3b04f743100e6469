"""Faults the real Puffino.exe lives through under Wine: display and DPI
changes in the middle of play, the best-score file taken away while a child
plays, an application-data folder it cannot use, no sound device, no fonts,
no pose pictures, font files deleted under it, and the end of play reached
twice at once. After each, play goes on (or ends) as a parent expects, and
nothing the program promises to keep is lost. What happened is read off the
screen by the program's own colours on the 1920x1080 home monitor."""

import shutil
import subprocess
import time
import unittest

import numpy

from play_session import (DEFAULT_CONFIG, VK_F4, WM_DISPLAYCHANGE, WM_GUARDED_KEY, PlaySession,
                          config_bytes, hold_down, unwritable)
from scene_session import OTHER, SceneSession
from scene_sight import Grabber, save_png
from wine_session import PROBE_EXE, PUFFINO_EXE, WINDOWS_BUILD, WS_EX_TOPMOST

DISPLAY_CHANGE = (WM_DISPLAYCHANGE, 32, 1920 | 1080 << 16)  # bits per pixel, size

# The home monitor at 96 dpi: the penguin stands above the finish button,
# its hint balloon to its left.
PENGUIN = (1600, 700, 1890, 960)
ON_PENGUIN = (1742, 800)
HINT = (1250, 766, 1620, 874)
FINISH = (1592, 968, 1892, 1052)
# The program's colours as Wine draws them (without anti-aliasing).
PENGUIN_BLUE = (61, 90, 143)
HINT_WHITE = (255, 255, 255)
FINISH_FACE = (232, 188, 192)
LABEL_TEXT = (60, 60, 72)


def count(frame, box, colour, tolerance=8):
    """How many pixels of the X rectangle show that colour."""
    left, top, right, bottom = box
    part = frame[top:bottom, left:right].astype(numpy.int16)
    return int((numpy.abs(part - colour).max(axis=2) <= tolerance).sum())


def beak_x(frame, penguin=PENGUIN):
    """Where the penguin's orange beak is, across: in the middle of its face
    while it stands, turned towards its mouth point while it blows. None
    when no beak shows."""
    left, top, right, bottom = penguin
    head = frame[top:top + (bottom - top) * 3 // 5, left:right].astype(numpy.int16)  # above the feet
    orange = (head[..., 0] > 230) & (head[..., 1] > 140) & (head[..., 1] < 190) & (head[..., 2] < 80)
    xs = numpy.nonzero(orange)[1]
    return left + xs.mean() if len(xs) > 40 else None


def standing(frame, middle=(PENGUIN[0] + PENGUIN[2]) // 2 - 3):
    x = beak_x(frame)
    return x is not None and abs(x - middle) < 12


def blowing(frame, middle=(PENGUIN[0] + PENGUIN[2]) // 2 - 3):
    x = beak_x(frame)
    return x is not None and x > middle + 20


def hint_shows(frame):
    return count(frame, HINT, HINT_WHITE, 0) > 10000


def label_text(frame):
    """The finish button's label, in pixels of its text colour."""
    return count(frame, FINISH, LABEL_TEXT)


class PlayGoesOn(PlaySession):
    """One Wine session with its sound captured; every test starts its own
    Puffino and leaves it ended."""
    session_options = {"sound_capture": True}

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.grabber = Grabber(cls.session.xvfb.display, cls.session.width, cls.session.height)
        cls.addClassCleanup(cls.grabber.close)

    def start(self, exe=PUFFINO_EXE, env=None):
        self.chirps_before = len(self.chirps())
        return super().start(exe, env)

    def grab(self, name=None):
        """The X screen now; with a name, also kept as a PNG to look at."""
        frame = self.grabber.grab()[1]
        if name:
            self.keep(frame, name)
        return frame

    def keep(self, frame, name):
        save_png(frame, self.session.artifacts / f"{self._testMethodName}-{name}.png")

    def grab_when(self, condition):
        """A grab as a one-item list when it meets the condition, for
        wait_for; None otherwise."""
        frame = self.grab()
        return [frame] if condition(frame) else None

    def chirps(self):
        return [s for s in self.session.sound_streams() if s["rate"] == 22050]

    def new_chirps(self):
        return self.chirps()[self.chirps_before:]

    def hold_penguin(self, done):
        """Holds the penguin down until done() is true (a press that meets a
        rising bubble pops it, and the child presses again)."""
        return hold_down(self.session, ON_PENGUIN, done,
                         lambda: len(self.session.sound_streams()) - len(self.chirps()))

    def rebuilt(self, old):
        """The windows of a rebuild: as many as before, none of the old
        handles, all painted; None until then."""
        found = self.session.windows()
        if (len(found) == len(old) and all(w["visible"] for w in found)
                and not {w["hwnd"] for w in found} & {w["hwnd"] for w in old} and self.session.painted(found)):
            return found
        return None

    def moving(self, box):
        """Whether anything moves in the X rectangle: two grabs apart by a
        few frame ticks differ there."""
        left, top, right, bottom = box
        first = self.grab()[top:bottom, left:right]
        time.sleep(0.2)
        return bool((first != self.grab()[top:bottom, left:right]).any(axis=2).sum() > 50)

    def copy_program(self, name, parts):
        """Puffino.exe in a folder of its own in the prefix, with only the
        named parts beside it ("Fonts", "assets")."""
        folder = self.session.prefix / "drive_c" / "Toys" / name
        folder.mkdir(parents=True)
        shutil.copy(PUFFINO_EXE, folder)
        for part in parts:
            shutil.copytree(WINDOWS_BUILD / part, folder / part)
        return folder

    def test_display_change_cancels_a_press_and_a_hold_and_play_goes_on(self):
        windows = self.start()
        # The display change arrives while the press on the penguin is being
        # handled, long before the 300 ms after which a press blows.
        log = self.session.root / "waiter.log"
        with open(log, "wb") as out:
            waiter = subprocess.Popen(["wine", str(PROBE_EXE), "post-on-capture", str(self.home(windows)["hwnd"]),
                                       *map(str, DISPLAY_CHANGE)],
                                      env=self.session.program_env(), stdout=out, stderr=subprocess.DEVNULL)
        self.session.processes.append(waiter)
        self.session.wait_for(lambda: log.read_text().startswith("waiting"), "the probe waiting for the press")
        _, pressed = self.hold_penguin(lambda: waiter.poll() is not None)
        self.assertEqual(waiter.returncode, 0, "the change posted during the press")
        windows = self.session.wait_for(lambda: self.rebuilt(windows), "the rebuilt windows")
        # Held on well past the blowing point: the rebuild cancelled the
        # press, so the penguin stands and shows its hint again.
        time.sleep(max(0.0, pressed + 1.0 - time.monotonic()))
        frame = self.grab("held-through-the-change")
        self.assertTrue(standing(frame), beak_x(frame))
        self.assertTrue(hint_shows(frame))
        self.assertEqual(self.new_chirps(), [], "no blowing began")
        self.session.xdotool("mouseup", 1)

        # A hold that blows, and the display changes under it.
        self.hold_penguin(self.new_chirps)
        self.session.wait_for(lambda: blowing(self.grab()), "the penguin blowing")
        self.grab("blowing")
        self.session.post(self.home(windows)["hwnd"], *DISPLAY_CHANGE)
        windows = self.session.wait_for(lambda: self.rebuilt(windows), "the rebuilt windows")
        frame = self.session.wait_for(lambda: self.grab_when(standing),
                                      "the penguin standing again, the button still held")[0]
        self.keep(frame, "stopped-blowing")
        self.assertFalse(hint_shows(frame), "after a hold that blew, the hint is gone for good")
        self.session.xdotool("mouseup", 1)
        self.assertEqual(len(self.new_chirps()), 1)

        # The frame timer runs on the new home window: bubbles rise on the
        # other monitor's new window.
        self.session.wait_for(lambda: self.moving(OTHER), "bubbles moving after the rebuild")
        self.end(self.home(windows))

    def test_dpi_change_of_the_home_window_lays_it_out_anew(self):
        windows = self.start()
        home = self.home(windows)
        # Windows suggests a smaller rectangle: the home window shrinks to it
        # and the buttons and the penguin move into its new corner.
        self.session.probe("dpichanged", home["hwnd"], 96, 0, 0, 1600, 900)
        self.session.wait_for(lambda: [w["rect"] for w in self.session.windows() if w["hwnd"] == home["hwnd"]]
                              == [[0, 0, 1600, 900]], "the home window at its new size")
        finish = (1272, 788, 1572, 872)  # 28 px from the new corner
        frame = self.session.wait_for(lambda: self.grab_when(lambda f: count(f, finish, FINISH_FACE) > 20000),
                                      "the finish button in the new corner")[0]
        self.keep(frame, "after-the-change")
        self.assertEqual(count(frame, (1600, 0, 1920, 1080), (0, 0, 0), 0), 320 * 1080,
                         "nothing of the home window left beyond its new edges")
        self.assertAlmostEqual(beak_x(frame, (1280, 500, 1570, 780)), 1419, delta=12)
        self.assertEqual([w["rect"] for w in self.session.windows() if w["hwnd"] != home["hwnd"]],
                         [[1920, 0, 3200, 1024]], "the other window untouched")
        # The press goes where the button is now drawn.
        self.session.xdotool("mousemove", 1422, 830, "click", 1)
        self.assert_ended()

    def test_without_fonts_or_with_missing_or_damaged_pose_pictures_play_runs_on(self):
        """Puffino copied into a folder without some of what ships beside it,
        or beside pose pictures that do not decode, an empty file and a
        folder with a picture's name: passed over without a message."""
        def damage(art):
            (art / "idle.png").write_bytes(b"\x89PNG\r\n\x1a\n" + b"cut short")
            (art / "yatta.png").write_bytes(b"")
            (art / "bubble.png").unlink()
            (art / "bubble.png").mkdir()
        cases = [
            # what is missing, what ships, label text shown, penguin shown
            ("no Fonts folder", ["assets"], False, True),
            ("no pose pictures", ["Fonts"], True, False),
            ("damaged pose pictures", ["Fonts", "assets"], True, None),
        ]
        for name, parts, text, penguin in cases:
            with self.subTest(name):
                folder = self.copy_program(name.replace(" ", "-"), parts)
                if penguin is None:
                    damage(folder / "assets" / "penguin")
                windows = self.start(exe=folder / "Puffino.exe")
                frame = self.grab(name.replace(" ", "-"))
                self.assertGreater(count(frame, FINISH, FINISH_FACE), 20000, "the finish button")
                self.assertEqual(label_text(frame) > 200, text, label_text(frame))
                if penguin is not None:
                    self.assertEqual(count(frame, PENGUIN, PENGUIN_BLUE) > 3000, penguin)
                # The penguin's place still answers a hold, drawn or not.
                self.hold_penguin(self.new_chirps)
                self.session.xdotool("mouseup", 1)
                self.end(self.home(windows))

    def test_font_files_deleted_while_playing_change_nothing(self):
        folder = self.copy_program("fonts-deleted", ["Fonts", "assets"])
        windows = self.start(exe=folder / "Puffino.exe")
        self.assertGreater(label_text(self.grab()), 200)
        shutil.rmtree(folder / "Fonts")
        # A display change redraws every label from scratch.
        self.session.post(self.home(windows)["hwnd"], *DISPLAY_CHANGE)
        windows = self.session.wait_for(lambda: self.rebuilt(windows), "the rebuilt windows")
        frame = self.session.wait_for(lambda: self.grab_when(lambda f: count(f, FINISH, FINISH_FACE) > 20000),
                                      "the finish button drawn again")[0]
        self.keep(frame, "redrawn")
        self.assertGreater(label_text(frame), 200, "the faces stay loaded")
        self.end(self.home(windows))

    def test_no_sound_device_silent_play_with_a_volume_ceiling(self):
        """No sound device in two ways Wine has: every audio driver switched
        off (the device enumerator cannot even be made), and a driver that
        finds no playback device (the enumerator has no default endpoint).
        Sounds go nowhere, and the volume clamp gives up at a different step
        each time."""
        self.write_config(config_bytes("[Puffino]", "VolumeClampPercent=35"))
        self.addCleanup((self.session.app_data() / "config.ini").unlink)
        heard = len(self.session.sound_streams())
        cases = {
            "drivers switched off":
                {"WINEDLLOVERRIDES": self.session.env["WINEDLLOVERRIDES"] + ";winealsa.drv,winepulse.drv,wineoss.drv=d"},
            "no playback device": {"ALSA_CONFIG_PATH": "/usr/share/alsa/alsa.conf"},  # without the capture
        }
        for name, env in cases.items():
            with self.subTest(name):
                windows = self.start(env=env)
                self.session.xdotool("mousemove", *ON_PENGUIN, "mousedown", 1)
                self.session.wait_for(lambda: blowing(self.grab()), "the penguin blowing")
                self.session.xdotool("mouseup", 1)
                self.assertEqual(len(self.session.sound_streams()), heard, "nothing reached any sound device")
                # The topmost tick ends with the clamp: it runs and finds nothing.
                self.session.probe("notopmost", self.home(windows)["hwnd"])
                self.session.wait_for(lambda: all(w["exstyle"] & WS_EX_TOPMOST for w in self.session.windows()),
                                      "the topmost tick")
                self.assertIsNone(self.process.poll())
                self.end(self.home(windows))


class BestScoreAndAppData(unittest.TestCase):
    """The best-score file and its folder made unusable before or during
    play. Bubbles are popped as a child would (SceneSession)."""

    @classmethod
    def setUpClass(cls):
        cls.scene = SceneSession(cls.__name__, cls.addClassCleanup)
        cls.folder = cls.scene.session.app_data()
        cls.roaming = cls.folder.parents[2]

    def pop(self):
        self.assertIsNone(self.scene.process.poll(), "Puffino still playing")
        self.scene.pop_a_bubble(anywhere=True)

    def test_best_score_file_taken_away_while_playing_then_the_end_twice_at_once(self):
        best = self.folder / "high_score.txt"
        self.scene.start()
        self.pop()
        first = best.read_bytes()  # 1, or 5 for a gold bubble
        self.assertRegex(first, rb"^[1-9][0-9]*\r\n$")

        # Read-only: the pop that raises the best cannot write, and the old
        # file stays as it was.
        written = best.stat().st_mtime_ns
        writable_again = unwritable(best)
        self.addCleanup(writable_again)
        self.pop()
        self.assertEqual((best.read_bytes(), best.stat().st_mtime_ns), (first, written))
        writable_again()

        # A folder in its place: nothing is written over it.
        best.unlink()
        best.mkdir()
        self.pop()
        self.assertTrue(best.is_dir())

        # Deleted: the next pop that raises the best writes it anew.
        best.rmdir()
        self.pop()
        saved = best.read_bytes()
        self.assertRegex(saved, rb"^[1-9][0-9]*\r\n$")
        self.assertGreaterEqual(int(saved), int(first) + 3, "every pop counted, in memory, all along")

        # The finish button and Alt+F4 in the same moment: play ends once,
        # with exit code 0, and the file stays as the last pop left it.
        written = best.stat().st_mtime_ns
        home = next(w for w in self.scene.windows if w["rect"][:2] == [0, 0])
        with self.scene.session.frozen(self.scene.process):
            self.scene.session.xdotool("mousemove", FINISH[0] + 150, FINISH[1] + 42, "click", 1)
            self.scene.session.post(home["hwnd"], WM_GUARDED_KEY, VK_F4)
            self.scene.session.post(home["hwnd"], WM_GUARDED_KEY, VK_F4)
        self.assertEqual(self.scene.session.wait_exit(self.scene.process), 0)
        self.assertEqual(self.scene.session.windows(), [])
        self.assertEqual((best.read_bytes(), best.stat().st_mtime_ns), (saved, written))

    def test_application_data_folder_missing_or_unwritable_at_start(self):
        for case in ("missing", "unwritable"):
            with self.subTest(case):
                shutil.rmtree(self.roaming / "morvenda", ignore_errors=True)
                if case == "missing":
                    shutil.rmtree(self.roaming)
                    restore = lambda: self.roaming.mkdir(exist_ok=True)
                else:
                    before = sorted(self.roaming.iterdir())
                    restore = unwritable(self.roaming)
                self.addCleanup(restore)
                try:
                    self.scene.start()
                    self.pop()  # the best score rises: a save is tried
                    self.assertEqual(self.scene.close(), 0)
                finally:
                    restore()
                if case == "missing":
                    # The whole chain is made, with the default settings
                    # file and the best score beside it.
                    self.assertEqual((self.folder / "config.ini").read_bytes(), DEFAULT_CONFIG)
                    self.assertRegex((self.folder / "high_score.txt").read_bytes(), rb"^[1-9][0-9]*\r\n$")
                else:
                    self.assertEqual(sorted(self.roaming.iterdir()), before, "nothing written")

if __name__ == "__main__":
    unittest.main()

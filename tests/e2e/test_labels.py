"""Every word on the home monitor of the real Puffino.exe, as a person sees
it at 96 and at 144 DPI: the finish button with its label, the sound button
and its symbol, the two score pills, the instruction pill and the hint
balloon; a praise word after ten points; the sound button's symbol flipping
when pressed. Wine here has no Japanese family installed, so ink in the
labels' own colours is the rounded face that Puffino brings in its Fonts
folder (without it the panels would show no text at all)."""

import unittest

import numpy

from scene_session import SceneSession
from wine_session import SYMBOL_FACE

HOME_SIZE = (1920, 1080)
# (name, box at 96 DPI on the 1920x1080 home monitor, the corner it keeps
# its distance to as it grows, text colour, least ink at 96 DPI). Boxes are
# X rectangles (left, top, right, bottom).
LABELS = [
    ("finish", (1592, 968, 1892, 1052), "bottom right", (60, 60, 72), 300),
    ("sound", (28, 968, 112, 1052), "bottom left", (60, 60, 72), 60),
    ("best pill", (1640, 20, 1900, 90), "top right", (180, 120, 40), 200),
    ("current pill", (1640, 92, 1900, 160), "top right", (90, 110, 150), 150),
    ("instruction", (20, 20, 760, 140), "top left", (70, 120, 180), 300),
    ("hint balloon", (1100, 740, 1640, 900), "bottom right", (45, 80, 150), 400),
]
INSTRUCTION = LABELS[4]
SOUND_SYMBOL = (40, 980, 100, 1040)
PRAISE_AREA = (560, 300, 1360, 600)  # around the middle of the home monitor


def scaled(box, corner, scale):
    """The box as it is at that scale: every distance to the monitor's
    corner grows with the scale."""
    width, height = HOME_SIZE
    left, top, right, bottom = (v * scale for v in box)
    if "right" in corner:
        left, right = width - (width - box[0]) * scale, width - (width - box[2]) * scale
    if "bottom" in corner:
        top, bottom = height - (height - box[1]) * scale, height - (height - box[3]) * scale
    return tuple(round(v) for v in (left, top, right, bottom))


def ink(frame, box, colour):
    left, top, right, bottom = box
    return int(numpy.all(frame[top:bottom, left:right] == colour, axis=2).sum())


def orange_praise(frame, sight):
    """Pixels of a praise word's orange (or the golden orange of a gold
    bubble's word, which may jump over ten points) in the praise area, where
    the landscape does not have them."""
    left, top, right, bottom = PRAISE_AREA
    part = frame[top:bottom, left:right].astype(int)
    orange = (part[..., 0] > 225) & (part[..., 1] > 80) & (part[..., 1] < 215) & (part[..., 2] < 110)
    return int((orange & sight.differing(frame, PRAISE_AREA)).sum())


class Labels(unittest.TestCase):
    """Japanese labels, with DejaVu Sans standing in for the symbol font
    Windows has (a Wine prefix has none)."""

    def start(self, learn=True, **options):
        self.scene = SceneSession(f"{type(self).__name__}-{self._testMethodName}", self.addCleanup,
                                  font_replacements=SYMBOL_FACE, **options)
        self.scene.session.app_data().mkdir(parents=True)
        (self.scene.session.app_data() / "config.ini").write_bytes(
            "\ufeff[UI]\r\nLanguage=ja\r\n".encode("utf-16-le"))
        self.scene.start(learn)
        self.sight = self.scene.sight

    def assert_every_label_inked(self, frame, scale):
        for name, box, corner, colour, least in LABELS:
            with self.subTest(name):
                self.assertGreater(ink(frame, scaled(box, corner, scale), colour), least * scale * scale)

    def test_at_144_dpi_every_label_is_written_half_again_as_large(self):
        self.start(learn=False, dpi=144)
        frame = self.sight.grab()[1]
        self.scene.save(frame[:1080, :1920], "labels-144dpi")
        self.assert_every_label_inked(frame, 1.5)
        self.assertEqual(self.scene.close(), 0)

    def test_labels_then_ten_points_bring_praise_and_the_sound_button_flips(self):
        self.start()
        frame = self.sight.grab()[1]
        self.scene.save(frame[:1080, :1920], "labels-96dpi")
        self.assert_every_label_inked(frame, 1.0)
        self.assertEqual(orange_praise(frame, self.sight), 0)

        watch = self.scene.watch(gone=lambda f: self.instruction_ink(f) == 0,
                                 praise=lambda f: orange_praise(f, self.sight) > 300)
        for _ in range(14):
            self.scene.pop_a_bubble()
            if self.scene.first_grab(lambda f: self.instruction_ink(f) == 0, seconds=1.0) is not None:
                break
        else:
            self.fail("fourteen pops did not reach ten points")
        # The pop that took the instruction away at ten points brought the
        # praise with it (in the same repaint or the next).
        reached = self.scene.session.wait_for(lambda: watch.moments("gone"), "the watch to see ten points")[0]
        self.scene.session.wait_for(lambda: [m for m in watch.moments("praise") if m >= reached - 0.3],
                                    "a praise word at ten points", timeout=5)
        watch.stop()
        self.scene.save(watch.frames["praise"][250:650, 500:1420], "praise")

        before = self.sight.grab()[1][980:1040, 40:100].copy()
        self.scene.session.xdotool("mousemove", 70, 1010, "click", 1)
        muted = self.scene.wait_for_frame(lambda f: (f[980:1040, 40:100] != before).any(),
                                          "the sound button's symbol flipped")
        self.scene.save(muted[960:1060, 20:120], "sound-off")
        self.assertGreater(ink(muted, SOUND_SYMBOL, (60, 60, 72)), 40, "the muted symbol is drawn")
        self.scene.session.xdotool("click", 1)
        self.scene.wait_for_frame(lambda f: (f[980:1040, 40:100] == before).all(), "the note symbol back")
        self.assertEqual(self.scene.close(), 0)

    def instruction_ink(self, frame):
        _, box, _, colour, _ = INSTRUCTION
        return ink(frame, box, colour)


if __name__ == "__main__":
    unittest.main()

"""The penguin on the home monitor of the real Puffino.exe, as a person sees
it: standing above the finish button, blowing a stream of bubbles from its
mouth while it is held down, and hopping when a pop beats the best score
read from the file (a number with words after it).
Everything is read from the screen at points of the drawn art (Wine's GDI+
does not anti-alias, so the art's colours come out exact)."""

import time
import unittest

import numpy

from play_session import hold_down
from scene_session import SceneSession

# At 96 DPI on the 1920x1080 home monitor the art (420x480) is drawn 240 px
# tall in the box (1637, 714)-(1847, 954), above the finish button
# (1592, 968)-(1892, 1052). At rest it bobs by up to 3 px.
FINISH = (1592, 968, 1892, 1052)
OUTLINE, BODY, BELLY = (28, 34, 48), (61, 90, 143), (255, 250, 240)
ORANGE, CHEEK, LAUGH = (255, 167, 51), (255, 164, 181), (232, 80, 91)
BELLY_POINT, BODY_POINT = (1742, 888), (1742, 764)
# Beside the beak: a pink cheek at rest, the pursed beak while blowing.
CHEEK_POINT = (1778, 836)
PURSED_BEAK = (1762, 815, 1810, 860)
MOUTH_POINT = (1742, 836)  # the beak, or the open laughing mouth while celebrating
ABOVE_HEAD = (1742, 705)  # landscape unless the penguin hops
# The band above the head: the head's curl reaches y 731 at the top of its
# bob, a hop lifts the whole penguin by up to 91 px.
HOP_BAND = (1640, 600, 1845, 706)
HOLD_POINT = (1742, 850)
# Above the penguin's head, where the blown stream rises; the penguin's own
# box stays out of every look (it changes with the pose).
ABOVE_PENGUIN = (1600, 400, 1920, 706)
PENGUIN_HIDDEN = ((0, 0, 1920, 200), (1100, 706, 1920, 1080), (0, 950, 130, 1080))


def colour(frame, point):
    x, y = point
    return tuple(int(c) for c in frame[y, x])


class Penguin(unittest.TestCase):
    """One session, one Puffino run for each test."""

    @classmethod
    def setUpClass(cls):
        cls.scene = SceneSession(cls.__name__, cls.addClassCleanup, PENGUIN_HIDDEN)

    def start(self):
        self.scene.start()
        self.sight, process = self.scene.sight, self.scene.process

        def end_if_running():
            self.scene.session.xdotool("mouseup", 1)  # a failed hold leaves no button down
            if process.poll() is None:
                self.scene.close()
        self.addCleanup(end_if_running)

    def standing(self, frame):
        """Whether the frame shows the penguin at rest: belly, body and cheek
        at their points, landscape above its head."""
        return (colour(frame, BELLY_POINT) == BELLY and colour(frame, BODY_POINT) == BODY
                and colour(frame, CHEEK_POINT) == CHEEK
                and colour(frame, ABOVE_HEAD) == colour(self.sight.landscape, ABOVE_HEAD))

    def test_a_one_second_hold_blows_bubbles_from_its_mouth(self):
        self.start()
        before = self.sight.differing(self.sight.grab()[1], ABOVE_PENGUIN).sum()
        def blowing_frame():
            frame = self.sight.grab()[1]
            return [frame] if self.pursed_beak(frame) > 15 else None
        (blowing,), pressed = hold_down(self.scene.session, HOLD_POINT, blowing_frame, self.scene.sounds_heard)
        self.assertGreater(time.monotonic() - pressed, 0.3, "a hold, not a tap, starts blowing")

        def stream(frame):
            # Bubbles leave the mouth (at 72 % of the art's width) upwards:
            # patches that come out of the penguin's box around that x.
            return [b for b in self.sight.blobs(frame, ABOVE_PENGUIN, join=2)
                    if b.bottom >= ABOVE_PENGUIN[3] - 2 and b.left < 1810 and b.right > 1770]
        frame = self.scene.wait_for_frame(
            lambda f: stream(f) and self.sight.differing(f, ABOVE_PENGUIN).sum() > before + 1500,
            "a stream of bubbles from the mouth", timeout=5)
        self.scene.save(blowing[500:1080, 1500:1920], "blowing-pose")
        self.scene.save(frame[350:1080, 1500:1920], "blowing-stream")
        self.scene.session.xdotool("mouseup", 1)
        self.scene.wait_for_frame(lambda f: self.pursed_beak(f) == 0, "the penguin at rest again", timeout=5)
        self.assertEqual(self.scene.close(), 0)

    def test_it_stands_above_the_finish_button_and_a_new_record_makes_it_hop_and_laugh(self):
        file = self.scene.session.app_data() / "high_score.txt"
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_bytes(b"  2 trailing words")
        self.start()
        frame = self.scene.wait_for_frame(self.standing, "the penguin at rest")
        self.scene.save(frame[650:1080, 1500:1920], "standing")
        outline = numpy.all(frame == OUTLINE, axis=2)
        rows, columns = numpy.nonzero(outline[600:1080, 1500:1920])
        left, right = 1500 + columns.min(), 1500 + columns.max()
        self.assertAlmostEqual((left + right) / 2, (FINISH[0] + FINISH[2]) / 2, delta=4)
        self.assertGreater(right - left, 150)  # a penguin, not a speck
        feet = numpy.nonzero(numpy.all(frame[850:1080, left:right + 1] == ORANGE, axis=2))[0]
        self.assertLess(850 + feet.max(), FINISH[1], "the feet stand above the button")

        watch = self.scene.watch(lifted=self.lifted, laughing=lambda f: colour(f, MOUTH_POINT) == LAUGH)
        for _ in range(4):
            unbeaten = time.monotonic()
            self.scene.pop_a_bubble()
            if file.read_bytes() != b"  2 trailing words":
                break
        else:
            self.fail("no pop raised the best of 2")
        self.assertGreaterEqual(int(file.read_bytes()), 3, "the best was read as 2")
        # No hop before the record, one after it (nine hops take two seconds
        # of frame ticks, which run late on a busy machine).
        self.assertFalse([m for m in watch.moments("lifted") if m < unbeaten], "a hop without a record")
        self.scene.session.wait_for(lambda: watch.moments("lifted"), "a hop after the record", timeout=6)
        self.scene.save(watch.frames["lifted"][550:1080, 1500:1920], "hop")
        # After the hops it stands still for a moment, laughing.
        self.scene.session.wait_for(lambda: watch.moments("laughing"), "the celebrating penguin laughing",
                                    timeout=10)
        watch.stop()
        self.assertEqual(self.scene.close(), 0)

    @staticmethod
    def pursed_beak(frame):
        """The beak's pixels right of the middle, where only the blowing
        picture has them (it wobbles, and blown bubbles pass over it)."""
        left, top, right, bottom = PURSED_BEAK
        return int(numpy.all(frame[top:bottom, left:right] == ORANGE, axis=2).sum())

    def lifted(self, frame):
        """Whether the penguin shows above its head: the whole penguin lifted
        off its feet. Its first hops fade from the standing picture into the
        celebrating one, so its colours show blended with the landscape:
        dark blue or near black where the landscape has neither."""
        left, top, right, bottom = HOP_BAND
        part = frame[top:bottom, left:right].astype(int)
        red, blue, total = part[..., 0], part[..., 2], part.sum(axis=2)
        penguin = ((blue - red > 40) & (total < 420)) | (total < 150)
        return (penguin & self.sight.differing(frame, HOP_BAND)).sum() > 50


if __name__ == "__main__":
    unittest.main()

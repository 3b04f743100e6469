"""What a person sees of the scene in the real Puffino.exe on two monitors:
a landscape on each, soap bubbles rising on both and nothing else moving, and
a click that bursts a bubble into a ring and droplets. Bubbles are found by their pixels: whatever differs from
the landscape each monitor ought to show."""

import time
import unittest

import numpy

from scene_session import HOME, HOME_LABELS, OTHER, SceneSession
from scene_sight import BUBBLE_SPAN

# The praise word in the middle of the home monitor (a gold bubble's pop
# brings one) is no bubble either.
LEFT_OUT = HOME_LABELS + ((600, 300, 1320, 600),)


def same_bubble_later(earlier, later, seconds):
    """Whether later can be earlier risen for that many seconds: the same
    size, higher up by no more than a normal bubble rises, a little aside."""
    dx, dy = later.centre[0] - earlier.centre[0], later.centre[1] - earlier.centre[1]
    return abs(later.width - earlier.width) <= 4 and -110 * seconds < dy < 0 and abs(dx) < 60 * seconds + 4


class TwoMonitors(unittest.TestCase):
    """One run of Puffino for every look."""

    @classmethod
    def setUpClass(cls):
        cls.scene = SceneSession(cls.__name__, cls.addClassCleanup, LEFT_OUT)
        cls.scene.start()
        cls.sight = cls.scene.sight

    @classmethod
    def tearDownClass(cls):
        assert cls.scene.close() == 0

    def bubbles_on(self, frame, monitor):
        return [b for b in self.sight.blobs(frame, monitor, join=3) if b.one_bubble()]

    def test_landscapes_with_bubbles_rising_on_both_monitors(self):
        def bubbles_on_both():
            taken, frame = self.sight.grab()
            return (taken, frame) if all(self.bubbles_on(frame, m) for m in (HOME, OTHER)) else None
        ta, a = self.scene.session.wait_for(bubbles_on_both, "a bubble on each monitor")
        time.sleep(0.8)
        tb, b = self.sight.grab()
        self.scene.save(a, "rising-1")
        self.scene.save(b, "rising-2")
        for monitor in (HOME, OTHER):
            later = self.bubbles_on(b, monitor)
            self.assertTrue(any(same_bubble_later(x, y, tb - ta) for x in self.bubbles_on(a, monitor) for y in later),
                            f"a bubble risen on the monitor at {monitor[0]}")

    def test_a_second_apart_only_the_bubbles_have_moved(self):
        time.sleep(5)  # bubbles all over the lower half, any trail a long one
        ta, a = self.sight.grab()
        time.sleep(max(0.0, 1.0 - (time.monotonic() - ta)))
        tb, b = self.sight.grab()
        self.scene.save(a, "second-1")
        self.scene.save(b, "second-2")
        allowed = numpy.zeros(a.shape[:2], bool)
        for frame in (a, b):
            # A repaint that failed to bring the landscape back would show
            # its clear colour in whole rectangles.
            self.assertLess(self.sight.pale_blue(frame), 20)
            for blob in self.sight.blobs(frame, join=3):
                allowed[max(blob.top - 4, 0):blob.bottom + 4, max(blob.left - 4, 0):blob.right + 4] = True
                if self.cut_off(blob):
                    continue
                # Bubbles, or a few overlapping: never the long streak a
                # bubble would leave behind it.
                self.assertTrue(blob.height <= 2.5 * blob.width + 8
                                and max(blob.width, blob.height) <= 3 * BUBBLE_SPAN[1], blob)
                # Every bubble rises: what stays put is something left behind.
                if frame is a:
                    box = numpy.s_[blob.top:blob.bottom, blob.left:blob.right]
                    self.assertFalse((a[box] == b[box]).all(), f"{blob} stayed put")
        moved = (a != b).any(axis=2) & self.sight.seen
        self.assertGreater(moved.sum(), 1000, "the bubbles moved")
        stray = moved & ~allowed
        self.assertEqual(stray.sum(), 0, "nothing but bubbles changed")

    def cut_off(self, blob):
        """Whether the blob meets an outer edge of the screen, the lower edge
        of either monitor or a part left out of the look, so that its shape
        is not all there (bubbles drift past the sides unhindered)."""
        return (blob.left <= 2 or blob.right >= OTHER[2] - 2 or blob.top <= 2 or blob.bottom >= HOME[3] - 2
                or (blob.right > OTHER[0] and blob.bottom >= OTHER[3] - 2)
                or any(blob.left < r + 2 and blob.right > l - 2 and blob.top < b + 2 and blob.bottom > t - 2
                       for l, t, r, b in LEFT_OUT))

    def test_a_click_on_a_bubble_bursts_it(self):
        point, bubble = self.scene.pop_a_bubble()
        burst = self.scene.session.wait_for(lambda: self.scene.burst_where(point, bubble),
                                            "the burst where the bubble was", timeout=15)
        x, y = point
        self.scene.save(burst[0][y - 150:y + 150, x - 150:x + 150], "burst")
        # The burst fades away and leaves the landscape as it was.
        self.scene.session.wait_for(lambda: not self.sight.differing(self.sight.grab()[1],
                                                                     (x - 60, y - 60, x + 60, y + 60)).any(),
                                    "the landscape back where the bubble burst", timeout=15)


if __name__ == "__main__":
    unittest.main()

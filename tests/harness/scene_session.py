"""Puffino as the end-to-end tests play it: two monitors (the home
monitor 1920x1080 with the penguin and the labels, a second one of
1280x1024 to its right), the landscapes learnt from the gallery, and a
child's click that pops a bubble on the second monitor."""

import math
import threading
import time

from scene_sight import Grabber, SceneSight, save_png
from wine_session import TWO_MONITORS, WM_CLOSE, WineSession

HOME = (0, 0, 1920, 1080)  # the primary monitor, where Puffino starts
OTHER = (1920, 0, 3200, 1024)
# The penguin, its hint, the buttons and the labels of the home monitor are
# no bubbles; every look leaves them out.
HOME_LABELS = ((0, 0, 1920, 200), (1000, 560, 1920, 1080), (0, 950, 130, 1080))


def distance(a, b):
    return math.dist(a.centre, b.centre)


class ScreenWatch:
    """Watches the screen the whole time, as a person would, while a test
    goes on with its clicks: every grab (on a connection of its own) is
    measured at once and kept as (moment, {name: measure(frame)}). Under a
    busy machine a pop may be heard late; what the screen showed meanwhile
    is still on record."""

    def __init__(self, session, measures):
        self.grabber = Grabber(session.xvfb.display, session.width, session.height)
        self.measures, self.records = measures, []
        self.frames = {}  # name -> the first frame where that measure was truthy
        self.running = True
        self.thread = threading.Thread(target=self._watch, daemon=True)
        self.thread.start()

    def _watch(self):
        while self.running:
            moment, frame = self.grabber.grab()
            values = {name: measure(frame) for name, measure in self.measures.items()}
            for name, value in values.items():
                if value and name not in self.frames:
                    self.frames[name] = frame
            self.records.append((moment, values))
            time.sleep(0.05)

    def stop(self):
        if self.running:
            self.running = False
            self.thread.join()
            self.grabber.close()

    def moments(self, name):
        """The moments of the grabs where the measure was truthy."""
        return [moment for moment, values in list(self.records) if values[name]]


class SceneSession:
    """Puffino on two monitors in a session of its own, with the landscapes
    it shows learnt from the gallery."""

    def __init__(self, label, cleanups, hidden=HOME_LABELS, **session_options):
        self.session = WineSession(label, heads=TWO_MONITORS, sound_capture=True,
                                   **session_options).__enter__()
        self.cleanups, self.hidden = cleanups, hidden
        cleanups(self.session.__exit__, None, None, None)

    def start(self, learn=True):
        """Starts Puffino; learn=False leaves the landscapes unknown (for a
        look at labels only, which may hide too much of a landscape to tell
        it)."""
        self.process, self.windows = self.session.start_puffino(2)
        self.sight = SceneSight(self.session, [HOME, OTHER], self.hidden)
        self.cleanups(self.sight.close)
        if learn:
            self.themes = self.sight.learn_landscapes(self.sight.grab()[1])

    def close(self):
        """Ends play as a parent would; the exit code."""
        self.session.post(self.windows[0]["hwnd"], WM_CLOSE)
        return self.session.wait_exit(self.process)

    def save(self, frame, name):
        save_png(frame, self.session.artifacts / f"{name}.png")

    def watch(self, **measures):
        """A ScreenWatch with these measures, stopped at cleanup."""
        watch = ScreenWatch(self.session, measures)
        self.cleanups(watch.stop)
        return watch

    def first_grab(self, condition, seconds):
        """The first grab within that many seconds that meets the condition
        (the screen shows what causes a change within a frame or two), or
        None."""
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            frame = self.sight.grab()[1]
            if condition(frame):
                return frame
        return None

    def wait_for_frame(self, condition, what, timeout=30):
        """The first grab that meets the condition; a failure after the
        timeout."""
        frame = self.first_grab(condition, timeout)
        if frame is None:
            raise AssertionError(f"timed out after {timeout} s waiting for {what}")
        return frame

    def sounds_heard(self):
        """How many sounds Puffino has played. A pop that brings a praise
        plays the cheer at once, which cuts its pop sound off before Wine
        opens a stream for it: either sound tells of the pop."""
        return len(self.session.sound_streams())

    # -- popping a bubble as a child would -----------------------------------

    def isolated_bubble(self, frame):
        """A whole bubble on the other monitor, away from its edges and from
        every other bubble (so that its burst is its own); small ones first,
        as their burst reaches well beyond where they were. None if none."""
        found = self.sight.blobs(frame, OTHER, join=3)
        for blob in sorted(found, key=lambda x: x.width):
            if not (blob.one_bubble() and blob.left > 1960 and blob.right < 3160 and blob.top > 150
                    and blob.bottom < 830):
                continue
            if all(other is blob or distance(other, blob) >= 150 for other in found):
                return blob
        return None

    def free_bubble(self, frame):
        """A whole bubble on either monitor that touches no other: as play
        goes on the screen fills with bubbles, and an isolated one gets rare.
        None if none."""
        found = [b for monitor in self.sight.monitors for b in self.sight.blobs(frame, monitor, join=3)]
        return next((b for b in found if b.one_bubble() and all(
            o is b or o.left > b.right + 8 or o.right < b.left - 8 or o.top > b.bottom + 8 or o.bottom < b.top - 8
            for o in found)), None)

    def pop_a_bubble(self, anywhere=False):
        """Clicks the middle of a bubble while Puffino stands still, so that
        the bubble cannot rise away from the aim, and waits for the pop
        sound; returns the click point and the bubble as it was clicked. The
        bubble is an isolated one, or anywhere a free one (a pop whose sound
        comes late on a busy machine is then given longer, so as not to be
        popped and counted again). Tries for up to a minute: after a few pops
        a monitor may take a while to show a bubble on its own again."""
        choose, patience = (self.free_bubble, 15) if anywhere else (self.isolated_bubble, 5)
        unheard = empty = 0
        end = time.monotonic() + 60
        while time.monotonic() < end:
            heard = self.sounds_heard()
            with self.session.frozen(self.process):
                _, frame = self.sight.grab()
                bubble = choose(frame)
                if bubble:
                    point = [round(c) for c in bubble.centre]
                    self.session.xdotool("mousemove", *point, "click", 1)
            if not bubble:
                empty += 1
                time.sleep(0.5)  # wait for bubbles to rise into view
                continue
            try:
                self.session.wait_for(lambda: self.sounds_heard() > heard, "a pop sound", timeout=patience)
            except AssertionError:
                unheard += 1
                continue
            return point, bubble
        raise AssertionError(f"no bubble could be popped: {unheard} clicks unheard, {empty} looks found none")

    def burst_where(self, point, bubble):
        """The grab showing the burst of the bubble popped at the point: three
        droplets or more flying apart around it, and no bubble of its size
        rising on above it."""
        x, y = point
        _, frame = self.sight.grab()
        droplets = [b for b in self.sight.blobs(frame, (x - 110, y - 140, x + 110, y + 110))
                    if b.width <= 16 and b.height <= 16]
        risen = [b for b in self.sight.blobs(frame, (x - 80, y - 220, x + 80, y + 60), 3)
                 if b.one_bubble() and abs(b.width - bubble.width) <= 4]
        return [frame] if len(droplets) >= 3 and not risen else None

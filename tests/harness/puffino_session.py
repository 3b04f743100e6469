"""Puffino played the way a person plays it, in words a scenario table
uses: start it with a profile, click, hold the penguin, press keys, change
the display, damage a file; then see windows, the screen, the files, the
sounds and the exit code. A scenario is a list of steps, each made by
`step.<what a person does or expects>(...)`; run_scenario plays them in
order and names the step that failed.

This class knows the X server (screen grabs, xdotool) and the profile's
files; a subclass knows how the program is started and asked about its
windows and sounds on its platform (WinePuffino for Puffino.exe)."""

import contextlib
import re
import shutil
import subprocess
import threading
import time

from screen import (FINISH, FINISH_FACE, HINT, HINT_WHITE, HOME, LABELS, MOUTH_POINT, LAUGHING_MOUTH, ON_PENGUIN, OTHER, PENGUIN,
                    PENGUIN_FEET, PENGUIN_OUTLINE, PRAISE_AREA, SOUND_SYMBOL, Grabber, Sight, count,
                    penguin_pose, save_png, scaled)

# The labels, the penguin with its hint and the buttons of the home monitor
# are no bubbles: every look at bubbles leaves them out.
# (box at 96 DPI, the corner it keeps its distance to as it grows)
HOME_HIDDEN = (((0, 0, 1920, 200), "top left"), ((1100, 706, 1920, 1080), "bottom right"),
               ((0, 950, 130, 1080), "bottom left"))
PLACES = {"finish": (1742, 1010), "sound button": (70, 1010), "penguin": ON_PENGUIN,
          "finish of the other monitor": (3000, 950)}
BEST_SCORE = rb"^[1-9][0-9]*\r\n$"
CHIRP_SAMPLES = 1984  # 0.09 s at 22050 Hz


class _Steps:
    """step.name(*args) -> (name, args, kwargs): one row of a scenario."""

    def __getattr__(self, name):
        return lambda *args, **kwargs: (name, args, kwargs)


step = _Steps()


class PuffinoSession:
    """One world (an X screen of these monitors, a user profile) in which
    scenarios start Puffino again and again. Subclasses provide: launch,
    run, windows, close_window, profile, sounds, keys_seen, and the
    platform's ways of changing the display and of making a copy of the
    program."""

    def __init__(self, artifacts):
        self.artifacts = artifacts
        self.process = self.grabber = self.watch = None
        self.remembered, self.undo = {}, []

    # -- the scenario runner ------------------------------------------------

    def run_scenario(self, name, steps):
        self.name = name
        try:
            for number, (what, args, kwargs) in enumerate(steps, 1):
                try:
                    getattr(self, what)(*args, **kwargs)
                except AssertionError as failure:
                    self.keep(self.grab(), "failed")
                    shown = ", ".join([*map(repr, args), *(f"{k}={v!r}" for k, v in kwargs.items())])
                    raise AssertionError(f"step {number}, {what}({shown}): {failure}") from None
        finally:
            self.tidy_up()

    def tidy_up(self):
        """Ends what a scenario left running and restores what it damaged."""
        self.xdotool("mouseup", 1)
        if self.watch:
            self.watch.stop()
            self.watch = None
        if self.process and self.process.poll() is None:
            self.close_window(self.windows()[0])
            self.exit_code()
        for undo in reversed(self.undo):
            undo()
        self.undo.clear()
        self.profile().parents[3].mkdir(exist_ok=True)
        shutil.rmtree(self.profile().parents[2], ignore_errors=True)

    # -- small tools ----------------------------------------------------------

    def wait_for(self, condition, what, timeout=30.0):
        """Polls condition() until it gives something true; the timeout only
        bounds a failure."""
        deadline = time.monotonic() + timeout
        while True:
            value = condition()
            if value:
                return value
            if time.monotonic() > deadline:
                raise AssertionError(f"timed out after {timeout} s waiting for {what}")
            time.sleep(0.05)

    def grab(self):
        return self.grabber.grab()[1]

    def keep(self, frame, name):
        save_png(frame, self.artifacts / f"{self.name}-{name}.png")

    def frame_where(self, condition, what, timeout=30):
        return self.wait_for(lambda: (lambda f: [f] if condition(f) else None)(self.grab()), what, timeout)[0]

    def xdotool(self, *args):
        subprocess.run(["xdotool", *map(str, args)], check=True, timeout=30, env=self.x_env)

    def point(self, place):
        return PLACES[place] if isinstance(place, str) else place

    def home(self):
        return next(w for w in self.windows() if w["foreground"])

    # -- starting and ending ---------------------------------------------------

    def start(self, launch_monitor=None, program=None, learn=True, **platform):
        """Starts Puffino and waits until every window shows a frame."""
        self.process = self.start_program(launch_monitor, program, **platform)
        count_ = len(self.screens)
        self.started = self.wait_for(lambda: self.painted(count_), "every Puffino window painted")
        self.sounds_before, self.sight = len(self.sounds()), None
        if learn:
            hidden = [self.on_home(scaled(box, corner, self.scale)) for box, corner in HOME_HIDDEN]
            self.sight = Sight((self.width, self.height), self.screens, hidden if launch_monitor is None else ())
            self.sight.learn(self.grab(), self.paintings)

    def on_home(self, box):
        """A box of the home monitor in X screen coordinates."""
        left, top = self.screens[0][:2]
        return box[0] + left, box[1] + top, box[2] + left, box[3] + top

    def heard(self, kind=None):
        """The sounds played since the start."""
        return [s for s in self.sounds()[self.sounds_before:] if kind in (None, s["kind"])]

    def painted(self, number):
        """The windows once that many are shown, each with more than black
        near its top-left corner."""
        found = self.windows()
        if len(found) != number or not all(w["visible"] for w in found):
            return None
        left, top = min(w["rect"][0] for w in found), min(w["rect"][1] for w in found)
        return found if all(self.grabber.pixel(w["rect"][0] - left + 10, w["rect"][1] - top + 5) != (0, 0, 0)
                            for w in found) else None

    def start_fails(self, code, launch_monitor=None):
        self.expect_equal(self.run_to_end(launch_monitor), code, "exit code")
        self.expect_no_windows()

    def launch_again(self, code=0):
        before = sorted(w["id"] for w in self.windows())
        self.expect_equal(self.run_to_end(), code, "the second launch's exit code")
        self.expect_equal(sorted(w["id"] for w in self.windows()), before, "windows after a second launch")

    def end_through(self, window):
        """Closes the window on that monitor as a parent's tool would."""
        self.close_window(next(w for w in self.windows() if w["rect"] == list(window)))
        self.expect_exit(0)

    def expect_exit(self, code):
        self.expect_equal(self.exit_code(), code, "exit code")
        self.expect_no_windows()

    def expect_no_windows(self):
        self.expect_equal(self.windows(), [], "windows")

    def expect_playing(self):
        """Still running, every window of the start in place, shown and topmost."""
        if self.process.poll() is not None:
            raise AssertionError(f"play ended with {self.process.returncode}")
        now = self.windows()
        self.expect_equal(sorted(w["id"] for w in now), sorted(w["id"] for w in self.started), "windows")
        if not all(w["visible"] and w["topmost"] for w in now):
            raise AssertionError(f"a window hidden or out of the topmost band: {now}")

    @staticmethod
    def expect_equal(got, wanted, what):
        if got != wanted:
            raise AssertionError(f"{what}: {got!r}, not {wanted!r}")

    # -- windows and the screen ------------------------------------------------

    def expect_windows(self, *rects, home):
        found = self.windows()
        self.expect_equal(sorted(w["rect"] for w in found), sorted(map(list, rects)), "window rectangles")
        for window in found:
            self.expect_equal((window["title"], window["plain"], window["topmost"]), ("Puffino", True, True),
                              "title, borderless tool window, topmost")
        self.wait_for(lambda: [w["rect"] for w in self.windows() if w["foreground"]] == [list(home)],
                      f"the home window {home} in front")

    def expect_landscapes(self):
        """A landscape on each monitor (learnt at the start), and nothing
        beside the monitors (black)."""
        frame = self.grab()
        self.keep(frame, "landscapes")
        for left, top, right, bottom in self.screens:
            if bottom < self.height:
                self.expect_equal(count(frame, (left, bottom, right, self.height), (0, 0, 0)),
                                  (right - left) * (self.height - bottom), "black beside the monitors")

    def expect_labels(self, scale=1.0):
        """Every label's text in its own colour at its place for that scale."""
        frame = self.grab()
        self.keep(frame, f"labels-{scale}")
        for name, box, corner, colour, least in LABELS:
            ink = count(frame, self.on_home(scaled(box, corner, scale)), colour)
            if ink <= least * scale * scale:
                raise AssertionError(f"{name}: {ink} pixels of its ink")

    def expect_program_shows(self, text, penguin):
        """The finish button with or without its label's text; the penguin
        from its pictures or not."""
        frame = self.frame_where(lambda f: count(f, FINISH, FINISH_FACE, 8) > 20000, "the finish button")
        self.keep(frame, f"shows-{text}-{penguin}")
        self.expect_equal(count(frame, FINISH, (60, 60, 72), 8) > 200, text, "the finish label's text")
        if penguin is not None:
            self.expect_equal(count(frame, PENGUIN, (61, 90, 143), 8) > 3000, penguin, "the penguin's pictures")

    def expect_penguin_above_finish(self):
        frame = self.frame_where(lambda f: penguin_pose(f) == "standing", "the penguin at rest")
        self.keep(frame, "standing")
        columns = (frame[600:1080, 1500:1920] == PENGUIN_OUTLINE).all(axis=2).nonzero()[1]
        left, right = 1500 + columns.min(), 1500 + columns.max()
        if abs((left + right) / 2 - (FINISH[0] + FINISH[2]) / 2) > 4 or right - left < 150:
            raise AssertionError(f"penguin outline across {left}..{right}")
        feet = (frame[850:1080, left:right + 1] == PENGUIN_FEET).all(axis=2).nonzero()[0]
        if 850 + feet.max() >= FINISH[1]:
            raise AssertionError("the feet reach into the finish button")

    # -- the penguin -----------------------------------------------------------------

    def tap_penguin(self):
        """A 100 ms tap high on the penguin blows nothing: no chirp (it would
        come 300 ms after the press). A tap that meets a rising bubble pops
        it, and the child taps again."""
        for _ in range(3):
            pops = self.pops()
            self.xdotool("mousemove", 1742, 730, "mousedown", 1, "sleep", 0.1, "mouseup", 1, "sleep", 0.6)
            self.expect_equal(self.heard("chirp"), [], "chirps after a tap")
            if self.pops() == pops:
                return
        raise AssertionError("three taps each met a bubble")

    def hold_penguin(self, until=None, pose="blowing"):
        """Presses the penguin and holds it until until() (or the pose) is
        true. A press meets the bubbles first, and bubbles rise through the
        penguin: one that meets a bubble pops it, and the child lets go and
        presses again. A press that neither gets there nor pops fails."""
        if until == "chirp":
            until = lambda: self.heard("chirp")  # noqa: E731
        until = until or (lambda: penguin_pose(self.grab()) == pose)
        for _ in range(3):
            before = self.pops()
            self.xdotool("mousemove", *ON_PENGUIN, "mousedown", 1)
            self.pressed = time.monotonic()
            try:
                return self.wait_for(until, f"the penguin {pose}", 6)
            except AssertionError:
                self.xdotool("mouseup", 1)
                if self.pops() <= before:
                    raise
        raise AssertionError("three presses on the penguin each met a bubble")

    def release(self):
        self.xdotool("mouseup", 1)

    def expect_penguin(self, pose, hint, chirps, held_for=0.0):
        """The penguin (held that long since the press) in that pose, its
        hint balloon shown or gone for good, and chirps heard so far."""
        time.sleep(max(0.0, self.pressed + held_for - time.monotonic()))
        frame = self.frame_where(lambda f: penguin_pose(f) == pose, f"the penguin {pose}", 10)
        self.keep(frame, f"penguin-{pose}")
        self.expect_equal(count(frame, HINT, HINT_WHITE) > 10000, hint, "the hint balloon shows")
        self.expect_equal(len(self.heard("chirp")), chirps, "chirps")

    def blow_for_a_second(self):
        """A one-second hold: the pursed beak after 300 ms, a stream rising
        from the mouth, one chirp as blowing starts; at rest after it."""
        chirps = len(self.heard("chirp"))
        self.hold_penguin()
        if time.monotonic() - self.pressed < 0.3:
            raise AssertionError("blowing began within 300 ms")
        above = (1600, 400, 1920, 706)
        before = self.sight.differing(self.grab(), above).sum()
        stream = self.frame_where(
            lambda f: self.sight.differing(f, above).sum() > before + 1500 and any(
                b.bottom >= above[3] - 2 and b.left < 1810 and b.right > 1770
                for b in self.sight.blobs(f, above, join=2)), "a stream from the mouth", 5)
        self.keep(stream, "stream")
        time.sleep(max(0.0, self.pressed + 1.0 - time.monotonic()))
        self.release()
        self.frame_where(lambda f: penguin_pose(f) == "standing", "the penguin at rest", 5)
        heard = self.heard("chirp")[chirps:]
        self.expect_equal(len(heard), 1, "chirps")
        self.expect_chirp(heard[0])

    # -- bubbles ---------------------------------------------------------------------

    @contextlib.contextmanager
    def held_still(self):
        """Nothing moves meanwhile; input waits and comes before the next tick."""
        yield  # a platform without a way to hold the program still aims at moving bubbles

    def pops(self):
        return len(self.heard("pop"))

    def pop_bubble(self, anywhere=False, burst=False):
        """Clicks the middle of a whole bubble while Puffino is held still and
        waits to hear the pop. The bubble is alone on the other monitor, or
        anywhere one that touches no other (as play goes on the screen fills
        and a lone one gets rare). A pop heard late on a busy machine is given
        time, so as not to be popped and counted again."""
        patience = 15 if anywhere else 5
        deadline = time.monotonic() + 60
        while time.monotonic() < deadline:
            heard = self.pops()
            with self.held_still():
                frame = self.grab()
                found = [b for m in (self.sight.monitors if anywhere else [OTHER])
                         for b in self.sight.blobs(frame, m, join=3)]
                bubble = next((b for b in sorted(found, key=lambda b: b.width) if b.one_bubble() and (
                    anywhere or (1960 < b.left and b.right < 3160 and 150 < b.top and b.bottom < 830))
                    and all(o is b or b.apart_from(o, 8 if anywhere else 60) for o in found)), None)
                if bubble:
                    point = [round(c) for c in bubble.centre]
                    self.xdotool("mousemove", *point, "click", 1)
            if not bubble:
                time.sleep(0.5)
                continue
            try:
                self.wait_for(lambda: self.pops() > heard, "a pop", patience)
            except AssertionError:
                continue
            if burst:
                self.expect_burst(point, bubble)
            return
        raise AssertionError("no bubble could be popped in a minute")

    def expect_burst(self, point, bubble):
        """Three droplets or more around where the bubble was, and no bubble
        of its size risen on above; then the landscape back there."""
        x, y = point

        def bursting(frame):
            droplets = [b for b in self.sight.blobs(frame, (x - 110, y - 140, x + 110, y + 110))
                        if b.width <= 16 and b.height <= 16]
            risen = [b for b in self.sight.bubbles(frame, (x - 80, y - 220, x + 80, y + 60))
                     if abs(b.width - bubble.width) <= 4]
            return len(droplets) >= 3 and not risen
        self.keep(self.frame_where(bursting, "the burst", 15)[y - 150:y + 150, x - 150:x + 150], "burst")
        self.frame_where(lambda f: not self.sight.differing(f, (x - 60, y - 60, x + 60, y + 60)).any(),
                         "the landscape back where the bubble burst", 15)

    def expect_moving(self, box):
        """Something moves in the box: grabs a few frame ticks apart differ."""
        def moved():
            first = self.grabber.grab(box)[1]
            time.sleep(0.2)
            return (first != self.grabber.grab(box)[1]).any(axis=2).sum() > 50
        self.wait_for(moved, f"movement in {box}")

    def expect_home_laid_out(self, rect):
        """The home window shrunk to rect: its finish button 28 px from the
        new corner, the penguin standing above it, nothing beyond its edges."""
        right, bottom = rect[2], rect[3]
        finish = (right - 328, bottom - 112, right - 28, bottom - 28)
        frame = self.frame_where(lambda f: count(f, finish, FINISH_FACE, 8) > 20000, "the finish button moved")
        self.keep(frame, "laid-out")
        penguin = (finish[0] + 8, finish[1] - 268, finish[2] - 2, finish[1] - 8)
        self.expect_equal(penguin_pose(frame, penguin), "standing", "the penguin above the button")
        self.expect_equal(count(frame, (right, 0, HOME[2], HOME[3]), (0, 0, 0)), (HOME[2] - right) * HOME[3],
                          "black beyond the window")

    def expect_only_bubbles_move(self):
        """A second apart, what changed is bubbles: none left a trail, none
        stayed put, and no repaint showed the bare clear colour."""
        time.sleep(3)  # bubbles across the lower half, any trail a long one
        ta, a = self.grabber.grab()
        time.sleep(1.0)
        b = self.grab()
        allowed = (a == b).all(axis=2)
        for blob in self.sight.blobs(a, join=3) + self.sight.blobs(b, join=3):
            allowed[max(blob.top - 4, 0):blob.bottom + 4, max(blob.left - 4, 0):blob.right + 4] = True
            if blob.height > 2.5 * blob.width + 8 and not self.cut_off(blob):
                raise AssertionError(f"a streak: {blob}")
        for frame in (a, b):
            if count(frame, (0, 0, self.width, self.height), (0xC8, 0xE4, 0xFA)) >= 20:
                raise AssertionError("the clear colour shows")
        stray = (~allowed & self.sight.seen).sum()
        if stray or (a != b).any(axis=2).sum() < 1000:
            raise AssertionError(f"{stray} pixels changed outside the bubbles, or nothing moved")

    def cut_off(self, blob):
        return any(blob.left < r + 2 and blob.right > l - 2 and blob.top < b + 2 and blob.bottom > t - 2
                   for l, t, r, b in HOME_HIDDEN) or blob.bottom >= OTHER[3] - 2 or blob.top <= 2

    def watch_screen(self, **measures):
        """From now on every grab is measured at once, on a thread of its
        own, as a person keeps looking while the child plays."""
        if self.watch:
            self.watch.stop()
        self.watch = Watch(self.x_display, self.width, self.height, measures)

    def pop_until_record(self):
        """Pops until the best score on disk changes: no hop before that
        moment, a hop after it, then the laughing penguin."""
        best = self.profile() / "high_score.txt"
        old = best.read_bytes()
        self.watch_screen(hopping=self.hopping, laughing=lambda f: tuple(f[MOUTH_POINT[1], MOUTH_POINT[0]])
                          == LAUGHING_MOUTH)
        for _ in range(4):
            unbeaten = time.monotonic()
            self.pop_bubble()
            if best.read_bytes() != old:
                break
        else:
            raise AssertionError("four pops made no record")
        if [m for m in self.watch.moments("hopping") if m < unbeaten]:
            raise AssertionError("a hop before the record")
        self.wait_for(lambda: self.watch.moments("hopping"), "a hop after the record", 6)
        self.keep(self.watch.frames["hopping"][550:1080, 1500:1920], "hop")
        self.wait_for(lambda: self.watch.moments("laughing"), "the penguin laughing", 10)

    def hopping(self, frame):
        """The penguin's dark colours above its head: lifted off its feet
        (its first hops fade in, blended with the landscape)."""
        band = (1640, 600, 1845, 706)
        part = frame[band[1]:band[3], band[0]:band[2]].astype(int)
        red, blue, total = part[..., 0], part[..., 2], part.sum(axis=2)
        penguin = ((blue - red > 40) & (total < 420)) | (total < 150)
        return (penguin & self.sight.differing(frame, band)).sum() > 50

    def pop_until_praise(self):
        """Pops until the instruction pill goes at ten points; the praise
        word shows in the same repaint or the next."""
        instruction = LABELS[4]
        gone = lambda f: count(f, instruction[1], instruction[3]) == 0  # noqa: E731
        self.watch_screen(gone=gone, praise=self.praise)
        for _ in range(14):
            self.pop_bubble()
            if self.watch.moments("gone"):
                break
        else:
            self.wait_for(lambda: self.watch.moments("gone"), "ten points", 2)
        reached = self.watch.moments("gone")[0]
        self.wait_for(lambda: [m for m in self.watch.moments("praise") if m >= reached - 0.3],
                      "a praise word at ten points", 5)
        self.keep(self.watch.frames["praise"][250:650, 500:1420], "praise")

    def praise(self, frame):
        """The praise word's orange in the middle, where the landscape has none."""
        left, top, right, bottom = PRAISE_AREA
        part = frame[top:bottom, left:right].astype(int)
        orange = (part[..., 0] > 225) & (part[..., 1] > 80) & (part[..., 1] < 215) & (part[..., 2] < 110)
        return (orange & self.sight.differing(frame, PRAISE_AREA)).sum() > 300

    def flip_sound_button(self):
        """The sound button's symbol changes at a press and comes back at the next."""
        left, top, right, bottom = SOUND_SYMBOL
        before = self.grab()[top:bottom, left:right]
        self.xdotool("mousemove", *PLACES["sound button"], "click", 1)
        muted = self.frame_where(lambda f: (f[top:bottom, left:right] != before).any(), "the symbol flipped")
        if count(muted, SOUND_SYMBOL, (60, 60, 72)) <= 40:
            raise AssertionError("no muted symbol")
        self.xdotool("click", 1)
        self.frame_where(lambda f: (f[top:bottom, left:right] == before).all(), "the note symbol back")

    # -- input -------------------------------------------------------------------------

    def click(self, place):
        self.xdotool("mousemove", *self.point(place), "click", 1)

    def press_keys(self, *keys):
        self.xdotool("mousemove", 400, 300)  # X focus follows the pointer onto Puffino
        for key in keys:
            self.xdotool("key", key)

    def press_shortcuts(self, table):
        """Each (keys, key checked, whether it gets past Puffino) in turn:
        play stays in place and topmost, and only the keys that pass reach
        the system behind it. A marker key (F12, which passes) closes each."""
        self.press_keys()
        for keys, key, passes in table:
            before = len(self.keys_seen())
            self.xdotool("key", keys, "key", "F12")
            self.wait_for(lambda: ("down", "F12") in self.keys_seen()[before:], f"the marker after {keys}")
            self.expect_equal(("down", key) in self.keys_seen()[before:], passes, f"{key} passed at {keys}")
            self.expect_playing()

    def expect_keys_seen(self, *events, unseen=()):
        seen = self.wait_for(lambda: (lambda s: [s] if set(events) <= set(s) else None)(self.keys_seen()),
                             f"{events} behind Puffino", 10)[0]
        for event in unseen:
            if event in seen:
                raise AssertionError(f"{event} got past Puffino")

    # -- files in the profile ----------------------------------------------------------

    def given_file(self, name, data, mode=0o644):
        path = self.profile() / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(data)
        path.chmod(mode)

    def expect_file(self, name, data):
        """The file's bytes, or a pattern (a compiled regular expression) they match."""
        got = (self.profile() / name).read_bytes()
        if not (data.match(got) if isinstance(data, re.Pattern) else got == data):
            raise AssertionError(f"{name}: {got!r}, not {data!r}")

    def expect_folder(self, name):
        if not (self.profile() / name).is_dir():
            raise AssertionError(f"{name} is no longer a folder")

    def expect_no_file(self, name):
        if (self.profile() / name).exists():
            raise AssertionError(f"{name} exists")

    def expect_profile_holds(self, *names):
        self.expect_equal(sorted(p.name for p in self.profile().iterdir()), sorted(names), "the profile's files")

    def remember_file(self, name):
        path = self.profile() / name
        self.remembered[name] = (path.read_bytes(), path.stat().st_mtime_ns, path.stat().st_mode)

    def expect_file_unchanged(self, name):
        path = self.profile() / name
        self.expect_equal((path.read_bytes(), path.stat().st_mtime_ns, path.stat().st_mode),
                          self.remembered[name], f"{name} as it was")

    def expect_best_raised(self, least):
        """The best score on disk is the remembered one plus at least that much."""
        old = int(self.remembered["high_score.txt"][0])
        self.expect_file("high_score.txt", re.compile(BEST_SCORE))
        if int((self.profile() / "high_score.txt").read_bytes()) < old + least:
            raise AssertionError(f"best score not raised by {least} from {old}")

    def damage(self, name, how):
        """Makes the profile's file (or, with name None, the user's roaming
        application-data folder) read-only, a folder or deleted."""
        path = self.profile() / name if name else self.profile().parents[3]
        if how == "deleted":
            shutil.rmtree(path) if path.is_dir() else path.unlink()
        elif how == "folder":
            path.unlink()
            path.mkdir()
        elif how == "read-only":
            self.undo.append(self.unwritable(path))
        elif how == "writable":
            self.undo.pop()()

    # -- sound ------------------------------------------------------------------------

    def expect_chirp(self, sound):
        """The blow chirp: 0.09 s rising 1200 -> 2600 Hz, envelope peak
        0.12, then only silence (the driver hands over whole periods)."""
        samples = sound["samples"]
        if len(samples) < CHIRP_SAMPLES or any(samples[CHIRP_SAMPLES:]):
            raise AssertionError(f"{len(samples)} samples, not a 1984-sample chirp in silence")
        peak = max(map(abs, samples)) / 32768
        if not 0.115 <= peak <= 0.125 or not 1200 <= sound["frequency"] <= 2600:
            raise AssertionError(f"peak {peak}, frequency {sound['frequency']}")

    def expect_silence(self):
        self.expect_equal(self.heard(), [], "sounds since the start")


class Watch:
    """Grabs the screen all the time on a connection of its own and keeps
    (moment, {name: measure(frame)}) of each grab, and the first frame where
    each measure was true: what the screen showed stays on record even when
    a pop is heard late."""

    def __init__(self, display, width, height, measures):
        self.grabber = Grabber(display, width, height)
        self.measures, self.records, self.frames = measures, [], {}
        self.running = True
        self.thread = threading.Thread(target=self._watch, daemon=True)
        self.thread.start()

    def _watch(self):
        while self.running:
            moment, frame = self.grabber.grab()
            values = {name: bool(measure(frame)) for name, measure in self.measures.items()}
            for name in values:
                if values[name]:
                    self.frames.setdefault(name, frame)
            self.records.append((moment, values))
            time.sleep(0.05)

    def moments(self, name):
        return [moment for moment, values in list(self.records) if values[name]]

    def stop(self):
        if self.running:
            self.running = False
            self.thread.join()
            self.grabber.close()

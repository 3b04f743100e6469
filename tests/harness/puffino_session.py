"""Puffino played as a person plays it, in the words of the scenario tables
(rows `step.<what is done or seen>(...)`). PuffinoSession knows the X screen
and the files; a platform's subclass (WinePuffino) starts the program and
answers for its windows, sounds and keys."""

import contextlib
import os
import re
import shutil
import signal
import subprocess
import time
from pathlib import Path

from screen import LABELS, LOOKS, ON_PENGUIN, OTHER, SOUND_SYMBOL, Sight, count, read_png, save_png, scaled

# What is no bubble on the home monitor, by its box at 96 DPI and the corner
# it keeps its distance to: the labels, the penguin with its hint, the buttons.
HOME_HIDDEN = (((0, 0, 1920, 200), "top left"), ((1100, 706, 1920, 1080), "bottom right"),
               ((0, 950, 130, 1080), "bottom left"))
PLACES = {"finish": (1742, 1010), "sound button": (70, 1010), "finish of the other monitor": (3000, 950)}


# step.name(*args, **kwargs) is the row (name, args, kwargs).
step = type("Steps", (), {"__getattr__": lambda self, name: lambda *args, **kwargs: (name, args, kwargs)})()


def check(condition, message):
    if not condition:
        raise AssertionError(message)


def same(got, wanted, what):
    check(got == wanted, f"{what}: {got!r}, not {wanted!r}")


class PuffinoSession:
    """A world (X screen, user profile) in which scenarios start Puffino again and again.
    A platform's subclass names Puffino's part of the disk (disk) and the
    files there that the system rewrites (written_by_the_system)."""

    written_by_the_system = ()
    ink_tolerance = 0  # how far a label's text pixels may stray from its colour

    def __init__(self):  # after the world's: its DPI is known
        self.process = self.sight = None
        self.remembered, self.undo, self.watched, self.first_seen = {}, [], {}, {}
        self.scale, self.galleries, self.programs = (self.dpi or 96) / 96, {}, {}

    def run_scenario(self, name, steps):  # a failure names its row
        self.name = name
        try:
            for number, (what, args, kwargs) in enumerate(steps, 1):
                try:
                    getattr(self, what)(*args, **kwargs)
                except AssertionError as failure:
                    self.keep(self.grab(), "failed")
                    raise AssertionError(f"step {number}, {what}{args}{kwargs or ''}: {failure}") from None
        finally:  # end what runs, undo the damage, forget the profile
            self.release()
            self.watched = {}
            if self.process and self.process.poll() is None:
                self.end_after_scenario()
            while self.undo:
                self.undo.pop()()
            self.profile().parents[3].mkdir(exist_ok=True)
            shutil.rmtree(self.profile().parents[2], ignore_errors=True)

    def end_after_scenario(self):  # as the parent's tool ends play
        self.close_window(self.windows()[0])
        self.exit_code()

    def wait_for(self, condition, what, timeout=30.0):  # the timeout only bounds a failure
        deadline = time.monotonic() + timeout
        while not (value := condition()):
            check(time.monotonic() < deadline, f"timed out after {timeout} s waiting for {what}")
            if self.watched:
                self.grab()  # a person keeps looking meanwhile
            time.sleep(0.05)
        return value

    def grab(self):
        """The X screen now, noting the moment of each watched look it shows:
        what the screen showed stays on record even when a pop is heard late."""
        moment, frame = self.grabber.grab()
        for look, moments in self.watched.items():
            if LOOKS[look](frame, self.sight):
                moments.append(moment)
                self.first_seen.setdefault(look, frame)
        return frame

    def watch(self, *looks):
        self.watched, self.first_seen = {look: [] for look in looks}, {}
        return self.watched.values()

    def frame_where(self, condition, what, timeout=30):
        return self.wait_for(lambda: (lambda f: [f] if condition(f) else None)(self.grab()), what, timeout)[0]

    def keep(self, frame, name):
        save_png(frame, self.artifacts / re.sub(r"[^\w.]+", "-", f"{self.name}-{name}.png"))

    def still_frame(self):
        """The screen once it has caught up with a Puffino held still: a
        compositing window manager shows its frames some frames late, more
        so on a busy machine, and a click aimed at a bubble seen there
        misses it."""
        frame = self.grab()
        deadline = time.monotonic() + 5
        while time.monotonic() < deadline and not (frame == (again := self.grab())).all():
            frame = again
        return frame

    def exit_code(self, process=None):
        return self.wait_exit(process or self.process)

    def paintings(self, width, height):  # theme -> landscape at that size, from the gallery, read once a session
        if not self.galleries:
            for path in self.painted_gallery().glob("*.png"):  # theme-WxH.png
                theme, size = path.stem.rsplit("-", 1)
                self.galleries.setdefault(size, {})[theme] = read_png(path, *map(int, size.split("x")))
        return self.galleries[f"{width}x{height}"]

    def home(self):
        return next(w for w in self.windows() if w["foreground"])

    def heard(self, kind=None):  # "chirp" or "pop", since the start
        return [s for s in self.sounds()[self.sounds_before:] if kind in (None, s["kind"])]

    def start(self, launch_monitor=None, program=None, learn=True, **platform):
        self.sounds_before, self.sight = len(self.sounds()), None
        self.process = self.start_program(launch_monitor, program, **platform)
        self.started = self.wait_for(lambda: self.painted(len(self.screens)), "every Puffino window painted")
        if learn:
            hidden = [self.on_home(scaled(box, corner, self.scale)) for box, corner in HOME_HIDDEN]
            self.sight = Sight((self.width, self.height), self.screens, () if launch_monitor else hidden)
            frame = self.grab()
            self.keep(frame, "start")
            self.sight.learn(frame, self.paintings)

    def painted(self, number):  # the windows, once that many show more than black near their corner
        found = self.windows()
        left = min((w["rect"][0] for w in found), default=0)
        return found if len(found) == number and all(
            w["visible"] and self.grabber.pixel(w["rect"][0] - left + 10, w["rect"][1] + 5) != (0, 0, 0)
            for w in found) else None

    def launch_and_expect(self, code, launch_monitor=None):  # at once, the windows left as they were
        before = sorted(w["id"] for w in self.windows())
        same(self.exit_code(self.start_program(launch_monitor)), code, "exit code")
        same(sorted(w["id"] for w in self.windows()), before, "windows after the launch")

    def end_through(self, window):  # as a parent's tool closes it
        self.close_window(next(w for w in self.windows() if w["rect"] == list(window)))
        self.expect_exit(0)

    def expect_exit(self, code):
        same(self.exit_code(), code, "exit code")
        same(self.windows(), [], "windows")

    def expect_playing(self, within=0):  # the start's windows in place, shown and topmost (within that long)
        self.wait_for(lambda: all(w["topmost"] for w in self.windows()), "every window topmost", within)
        check(self.process.poll() is None, f"play ended with {self.process.returncode}")
        now = self.windows()
        same(sorted(w["id"] for w in now), sorted(w["id"] for w in self.started), "windows")
        check(all(w["visible"] and w["topmost"] for w in now), f"hidden or not topmost: {now}")

    def expect_windows(self, *rects, home):
        found = self.windows()
        same(sorted(w["rect"] for w in found), sorted(map(list, rects)), "window rectangles")
        same({(w["title"], w["plain"], w["topmost"]) for w in found}, {("Puffino", True, True)}, "title, look")
        self.wait_for(lambda: [w["rect"] for w in self.windows() if w["foreground"]] == [list(home)],
                      f"the home window {home} in front")

    def on_home(self, box):  # in X screen coordinates
        left, top = self.screens[0][:2]
        return box[0] + left, box[1] + top, box[2] + left, box[3] + top

    def expect_labels(self, scale=1.0):  # every label's text at its place for that scale
        frame = self.grab()
        self.keep(frame, f"labels-{scale}")
        for name, box, corner, colour, least in LABELS:
            ink = count(frame, self.on_home(scaled(box, corner, scale)), colour, self.ink_tolerance)
            check(ink > least * scale * scale, f"{name}: {ink} pixels of its ink")

    def expect_screen(self, shows=(), hides=(), within=30):  # a frame with all those looks, none of the hidden
        frame = self.frame_where(lambda f: all(LOOKS[look](f, self.sight) for look in shows), shows, within)
        self.keep(frame, " ".join(shows)[:60])
        same([look for look in hides if LOOKS[look](frame, self.sight)], [], "looks that should not show")

    def expect_moving(self, box):  # grabs a few frame ticks apart differ
        def moved():
            first = self.grabber.grab(box)[1]
            time.sleep(0.2)
            return (first != self.grabber.grab(box)[1]).any(axis=2).sum() > 50
        self.wait_for(moved, f"movement in {box}")

    def expect_heard(self, number, kind=None):
        same(len(self.heard(kind)), number, f"{kind or 'sound'}s heard since the start")

    def tap_penguin(self):
        """A 100 ms tap high on the penguin blows nothing: no chirp (it would
        come 300 ms after the press). A tap that pops a bubble is made again."""
        for _ in range(3):
            pops = len(self.heard("pop"))
            self.xdotool("mousemove", 1742, 730, "mousedown", 1, "sleep", 0.1, "mouseup", 1, "sleep", 0.6)
            self.expect_heard(0, "chirp")
            if len(self.heard("pop")) == pops:
                return
        raise AssertionError("three taps each met a bubble")

    def hold_penguin(self, until="blowing", let_go=False):
        """Holds the penguin down until it blows (or a chirp is heard, or until()),
        letting go if asked. A press pops a bubble rising through the penguin:
        then the child presses again; one that neither gets there nor pops fails."""
        condition = {"chirp": lambda: self.heard("chirp"),
                     "blowing": lambda: LOOKS["the penguin blowing"](self.grab(), None)}.get(until, until)
        for _ in range(3):
            pops = len(self.heard("pop"))
            self.xdotool("mousemove", *ON_PENGUIN, "mousedown", 1)
            self.pressed = time.monotonic()
            try:
                self.wait_for(condition, f"the held penguin {until}", 6)
                return let_go and self.release()
            except AssertionError:
                self.release()
                if len(self.heard("pop")) == pops:
                    raise
        raise AssertionError("three presses on the penguin each met a bubble")

    def release(self, held_for=0.0):  # held that long since the press
        time.sleep(max(0.0, getattr(self, "pressed", 0) + held_for - time.monotonic()))
        self.xdotool("mouseup", 1)

    def blow_for_a_second(self):
        """A one-second hold: blowing not before 300 ms, a stream rising from
        the mouth (72 % across the picture), one chirp; at rest after it."""
        self.hold_penguin()
        check(time.monotonic() - self.pressed > 0.3, "blowing within 300 ms")
        above = (1600, 400, 1920, 706)
        before = self.sight.differing(self.grab(), above).sum()
        self.keep(self.frame_where(lambda f: self.sight.differing(f, above).sum() > before + 1500 and any(
            b.bottom >= above[3] - 2 and b.left < 1810 and b.right > 1770 for b in self.sight.blobs(f, above, 2)),
            "a stream from the mouth", 5), "stream")
        self.release(held_for=1.0)
        self.expect_screen(shows=["the penguin standing"], within=5)
        self.expect_heard(1, "chirp")
        # 0.09 s to an envelope peak of 0.12, then only silence.
        chirp = self.heard("chirp")[0]
        samples = self.samples(chirp)
        heard = len(samples) - next((i for i, s in enumerate(reversed(samples)) if s), len(samples))
        check(0.085 <= heard / chirp["rate"] <= 0.095, f"{heard} samples at {chirp['rate']} Hz")
        check(0.115 <= max(map(abs, samples)) / 32768 <= 0.125, "the chirp's peak")

    def pop_bubble(self, anywhere=False, burst=False):
        """Clicks the middle of a whole bubble while Puffino is held still and
        hears it pop: one alone on the other monitor, or anywhere one that
        touches no other (a lone one gets rare as play goes on). A pop heard
        late on a busy machine is given time, not popped and counted again."""
        deadline = time.monotonic() + 60
        while time.monotonic() < deadline:
            pops = len(self.heard("pop"))
            with self.held_still():
                bubble = self.lone_bubble(self.still_frame(), anywhere)
                if bubble:
                    point = [round(c) for c in bubble.centre]
                    self.xdotool("mousemove", *point, "click", 1)
            if not bubble:
                time.sleep(0.5)
                continue
            try:
                self.wait_for(lambda: len(self.heard("pop")) > pops, "a pop", 15 if anywhere else 5)
            except AssertionError:
                continue
            return self.expect_burst(point, bubble) if burst else None
        raise AssertionError("no bubble could be popped in a minute")

    def lone_bubble(self, frame, anywhere=False, away_from=(-1, -1)):
        """A whole bubble that touches no other (and does not cover that
        point), or None."""
        found = [b for m in (self.screens if anywhere else [OTHER]) for b in self.sight.blobs(frame, m, 3)]
        return next((b for b in sorted(found, key=lambda b: b.width) if b.one_bubble() and (
            anywhere or (1960 < b.left and b.right < 3160 and 150 < b.top and b.bottom < 830))
            and all(o is b or b.apart_from(o, 8 if anywhere else 60) for o in found) and not b.covers(*away_from)),
            None)

    def expect_burst(self, point, bubble):
        """Three droplets or more around where the bubble was, no bubble of
        its size risen on above; then the landscape back there."""
        x, y = point
        bursting = lambda f: len([b for b in self.sight.blobs(f, (x - 110, y - 140, x + 110, y + 110))  # noqa: E731
                                  if b.width <= 16 and b.height <= 16]) >= 3 and not [
            b for b in self.sight.blobs(f, (x - 80, y - 220, x + 80, y + 60), 3) if b.one_bubble()
            and abs(b.width - bubble.width) <= 4]
        self.keep(self.frame_where(bursting, "the burst", 15)[y - 150:y + 150, x - 150:x + 150], "burst")
        self.frame_where(lambda f: not self.sight.differing(f, (x - 60, y - 60, x + 60, y + 60)).any(),
                         "the landscape back where the bubble burst", 15)

    def pop_until_record(self):  # on disk: a hop after it, none before, then a laugh
        old = (best := self.profile() / "high_score.txt").read_bytes()
        hops, laughs = self.watch("the penguin hopping", "the penguin laughing")
        for _ in range(4):
            unbeaten = time.monotonic()
            self.pop_bubble()
            if best.read_bytes() != old:
                break
        check(best.read_bytes() != old, "four pops made no record")
        check(not [m for m in hops if m < unbeaten], "a hop before the record")
        self.wait_for(lambda: hops, "a hop after the record", 6)
        self.keep(self.first_seen["the penguin hopping"][550:1080, 1500:1920], "hop")
        self.wait_for(lambda: laughs, "the penguin laughing", 10)

    def pop_until_praise(self):  # ten points: the instruction gone, a praise word that repaint or the next
        gone, praised = self.watch("the instruction gone", "a praise word")
        for _ in range(14):
            if gone:
                break
            self.pop_bubble()
        reached = self.wait_for(lambda: gone, "ten points", 2)[0]
        self.wait_for(lambda: [m for m in praised if m >= reached - 0.3], "a praise word", 5)
        self.keep(self.first_seen["a praise word"][250:650, 500:1420], "praise")

    def flip_sound_button(self):  # and back at the next press
        left, top, right, bottom = SOUND_SYMBOL
        before = self.grab()[top:bottom, left:right]
        self.click("sound button")
        muted = self.frame_where(lambda f: (f[top:bottom, left:right] != before).any(), "the symbol flipped")
        check(count(muted, SOUND_SYMBOL, (60, 60, 72)) > 40, "no muted symbol")
        self.xdotool("click", 1)
        self.frame_where(lambda f: (f[top:bottom, left:right] == before).all(), "the note symbol back")

    def click(self, place):
        self.xdotool("mousemove", *PLACES.get(place, place), "click", 1)

    def type_keys(self, *keys):  # where the focus is, the pointer left where it is
        for key in keys:
            self.xdotool("key", key)

    def press_keys(self, *keys):
        self.xdotool("mousemove", 400, 300)  # X focus follows the pointer onto Puffino
        for key in keys:
            self.xdotool("key", key)

    def press_shortcuts(self, table):
        """Each of table[whether they get past Puffino]: play stays in place
        and topmost, only keys that pass reach the system behind it (the
        Windows key, else the last key). A marker key (F12, which passes)
        closes each."""
        self.press_keys()
        for passes, keys in ((passes, keys) for passes in table for keys in table[passes]):
            before, key = len(self.keys_seen()), "super" if keys.startswith("super") else keys.split("+")[-1]
            self.xdotool("key", keys, "key", "F12")
            self.wait_for(lambda: ("down", "F12") in self.keys_seen()[before:], f"the marker after {keys}")
            same(("down", key) in self.keys_seen()[before:], passes, f"{key} passed at {keys}")
            self.expect_playing()

    def expect_keys_seen(self, *events, unseen=()):
        seen = self.wait_for(lambda: (lambda s: [s] if set(events) <= set(s) else None)(self.keys_seen()),
                             f"{events} behind Puffino", 10)[0]
        check(not set(unseen) & set(seen), f"{unseen} got past Puffino")

    def given_file(self, name, data, mode=0o644):  # data "a folder": a folder by that name
        path = self.profile() / name
        path.parent.mkdir(parents=True, exist_ok=True)
        if data == "a folder":
            return path.mkdir()
        path.write_bytes(data)
        path.chmod(mode)

    def expect_file(self, name, data):
        """The file's bytes, or a compiled pattern they match; None: no such
        file; "a folder": a folder by that name; "unchanged": as remembered."""
        path = self.profile() / name
        if data in (None, "a folder"):
            same("a folder" if path.is_dir() else path.exists() or None, data, name)
        elif data == "unchanged":
            same(self.file_state(name), self.remembered[name], f"{name}'s bytes, time and mode")
        else:
            got = path.read_bytes()
            check(data.match(got) if isinstance(data, re.Pattern) else got == data, f"{name}: {got!r}, not {data!r}")

    def expect_profile_holds(self, *names):
        same(sorted(p.name for p in self.profile().iterdir()), sorted(names), "the profile's files")

    def remember_file(self, name):
        self.remembered[name] = self.file_state(name)

    def file_state(self, name):
        path = self.profile() / name
        return path.read_bytes(), path.stat().st_mtime_ns, path.stat().st_mode

    def expect_best_raised(self, least):  # above the remembered best
        old, new = int(self.remembered["high_score.txt"][0]), self.file_state("high_score.txt")[0]
        check(re.match(rb"^[1-9][0-9]*\r\n$", new) and int(new) >= old + least, f"best {new!r} after {old}")

    def damage(self, name, how):
        """Makes the profile's file (None: the user's roaming application-data
        folder) "read-only", "writable" again, "a folder" or "deleted"."""
        path = self.profile() / name if name else self.profile().parents[3]
        if how == "deleted":
            shutil.rmtree(path) if path.is_dir() else path.unlink()
        elif how == "a folder":
            path.unlink()
            path.mkdir()
        else:
            self.undo.append(self.unwritable(path)) if how == "read-only" else self.undo.pop()()

    def unwritable(self, path):
        """Read-only for the program (no write permission; root needs the
        entry immutable too); returns what undoes it."""
        mode, immutable = path.stat().st_mode & 0o7777, os.geteuid() == 0
        path.chmod(mode & ~0o222)
        subprocess.run(["chattr", "+i", str(path)], check=immutable)
        return lambda: (subprocess.run(["chattr", "-i", str(path)], check=immutable), path.chmod(mode))

    @contextlib.contextmanager
    def held_still(self):  # stopped: no tick moves anything; input sent meanwhile is handled before the next tick
        os.kill(self.process.pid, signal.SIGSTOP)
        try:
            yield
        finally:
            os.kill(self.process.pid, signal.SIGCONT)

    def remember_disk(self):
        self.remembered_disk = {p: (p.stat().st_size, p.stat().st_mtime_ns) for p in self.disk.rglob("*")
                                if p.is_file() and not p.is_symlink()}

    def expect_nothing_written_outside_the_profile(self):
        before = self.remembered_disk
        self.remember_disk()
        changed = {p for p in before.keys() | self.remembered_disk.keys() if before.get(p) !=
                   self.remembered_disk.get(p) and p.name not in self.written_by_the_system}
        same(sorted(str(p) for p in changed if self.profile() not in p.parents), [], "files written outside")

    def expect_no_network(self):  # Unix sockets (to the X server, the wineserver) are no internet sockets
        inodes = {os.readlink(fd)[8:-1] for fd in Path(f"/proc/{self.process.pid}/fd").iterdir()
                  if os.readlink(fd).startswith("socket:[")}
        internet = {line.split()[9] for table in ("tcp", "tcp6", "udp", "udp6") if Path(f"/proc/net/{table}").exists()
                    for line in Path(f"/proc/net/{table}").read_text().splitlines()[1:]}
        same(inodes & internet, set(), "internet sockets")

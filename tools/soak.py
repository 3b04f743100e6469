#!/usr/bin/env python3
"""Puffino left alone with a toddler: plays the real program on two monitors
at 144 DPI for a while, with clicks on whatever moves (the bubbles), holds on
the penguin, presses of the sound button and random keys through the
keyboard guard. The Linux edition on a headless Xorg (--edition native, the
default), or Puffino.exe under Wine in Xvfb (--edition wine).

  soak.py [--edition native|wine] [--minutes M] [--seed S] [--out FOLDER]

Every few seconds it samples Puffino's memory (under Wine: committed memory
and live GDI objects; natively: its private resident memory) and checks
that both windows are still there and topmost. It fails (exit code 1) on a
crash, an early exit, a window lost or out of the topmost band, growth of
memory or GDI objects beyond a small bound after the warm-up, an exit code
other than 0 when play ends, or no best score on disk afterwards. Natively
it also reads the program's own time from each frame tick to its pixels on
the screen (the PUFFINO_FRAME_TIMES file) and reports its median and 95th
percentile. The samples go to FOLDER/soak.json."""

import argparse
import json
import random
import sys
import time
from pathlib import Path

import numpy

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "tests" / "harness"))
from native_session import NativeSession  # noqa: E402
from wine_session import BUILD, TWO_MONITORS, WM_CLOSE, WinePuffino  # noqa: E402

DPI = 144
# The home monitor's controls at 144 DPI (X coordinates; the home monitor
# is the primary one at the screen's top-left).
FINISH = (1428, 912, 1878, 1038)  # never pressed: it ends play
SOUND_BUTTON = (105, 975)
PENGUIN = (1653, 740)
KEEP_OFF = [(1400, 880, 1910, 1070), (20, 890, 190, 1060), (1480, 520, 1830, 900)]
# What a toddler's hands find on a keyboard; Alt+F4 is the one way out and
# stays out of this list.
KEYS = ["super", "super+d", "super+l", "alt+Tab", "alt+Escape", "alt+space", "ctrl+Escape",
        "ctrl+shift+Escape", "alt+Return", "alt+F1", "Print", "F1", "F5", "F11", "Escape", "Return",
        "ctrl+w", "ctrl+q", "space", "BackSpace"]
SAMPLE_SECONDS = 5
# Growth allowed after the warm-up: a few objects for a praise or the
# celebration that happens to be on show, and a few MiB of heap churn.
GDI_SLACK = 12
MEMORY_SLACK = 24 << 20


class Toddler:
    """Random play, reproducible from its seed."""

    def __init__(self, session, seed):
        self.session, self.random = session, random.Random(seed)
        self.grabber = session.grabber
        self.keep_off = numpy.zeros((session.height, session.width), bool)
        for left, top, right, bottom in KEEP_OFF:
            self.keep_off[top:bottom, left:right] = True
        self.actions = {"clicks": 0, "holds": 0, "sound presses": 0, "keys": 0}

    def act(self):
        roll = self.random.random()
        if roll < 0.70:
            self.click_on_something_moving()
        elif roll < 0.80:
            self.hold_penguin()
        elif roll < 0.84:
            self.session.xdotool("mousemove", *SOUND_BUTTON, "click", 1)
            self.actions["sound presses"] += 1
        else:
            self.session.xdotool("key", self.random.choice(KEYS + [self.random_letters()]))
            self.actions["keys"] += 1
        time.sleep(self.random.uniform(0.02, 0.3))  # a toddler's pace, not a test's wait

    def random_letters(self):
        letter = self.random.choice("abcdefghijklmnopqrstuvwxyz")
        return self.random.choice([letter, "ctrl+shift+" + letter, "alt+" + letter])

    def click_on_something_moving(self):
        _, before = self.grabber.grab()
        time.sleep(0.05)
        _, after = self.grabber.grab()
        moving = (before != after).any(axis=2) & ~self.keep_off
        ys, xs = numpy.nonzero(moving)
        if len(xs):
            i = self.random.randrange(len(xs))
            point = (int(xs[i]), int(ys[i]))
        else:
            point = (self.random.randrange(0, 1400), self.random.randrange(0, 880))
        self.session.xdotool("mousemove", *point, "click", 1)
        self.actions["clicks"] += 1

    def hold_penguin(self):
        self.session.xdotool("mousemove", *PENGUIN, "mousedown", 1)
        time.sleep(self.random.uniform(0.1, 2.5))
        self.session.xdotool("mouseup", 1)
        self.actions["holds"] += 1


class WineEdition:
    """Puffino.exe under Wine; its probe counts memory and GDI objects."""

    def __init__(self, out):
        self.session = WinePuffino("soak", TWO_MONITORS, DPI, artifacts=out)

    def start(self):
        self.session.start(learn=False)
        self.process, self.pid = self.session.process, self.session.started[0]["pid"]

    def sample(self):
        return self.session.probe("resources", self.pid)

    def end(self):
        self.session.post(self.session.windows()[0], WM_CLOSE)

    def profile(self):
        return self.session.app_data()

    def frame_times(self):
        return []


class NativeEdition:
    """The Linux edition on a headless Xorg, timing its own frames."""

    def __init__(self, out):
        self.session = NativeSession("soak", TWO_MONITORS, DPI, artifacts=out)
        self.times = None

    def start(self):
        session = self.session
        self.times = session.root / "frame-times.txt"
        self.process = session.launch(env={"PUFFINO_FRAME_TIMES": str(self.times)})
        deadline = time.monotonic() + 30
        while len(session.windows()) < len(TWO_MONITORS):  # bounded: a start that fails is reported
            if time.monotonic() > deadline or self.process.poll() is not None:
                raise SystemExit("soak: Puffino did not show its windows")
            time.sleep(0.05)
        self.pid = self.process.pid

    def sample(self):
        return {"gdi": 0, "committed": self.session.memory(self.pid)}

    def end(self):
        self.session.xdotool("key", "alt+F4")

    def profile(self):
        return self.session.profile()

    def frame_times(self):  # microseconds, one a tick, after the warm-up's first 30 ticks
        return [int(line) for line in self.times.read_text().split()[30:]] if self.times.exists() else []


def check_windows(session, process):
    """None when Puffino runs with both windows topmost; else what is wrong."""
    if process.poll() is not None:
        return f"Puffino ended on its own with exit code {process.returncode}"
    windows = session.windows()
    if len(windows) != len(TWO_MONITORS):
        return f"{len(windows)} windows instead of {len(TWO_MONITORS)}"
    lost = [w["id"] for w in windows if not (w["topmost"] and w["visible"])]
    return f"windows {lost} hidden or out of the topmost band" if lost else None


def growth_problem(samples, warm_up):
    """None when nothing grew beyond the slack after the warm-up."""
    settled = [s for s in samples if s["seconds"] >= warm_up]
    if len(settled) < 2:
        return "too few samples after the warm-up"
    base = settled[0]
    for s in settled[1:]:
        if s["gdi"] > base["gdi"] + GDI_SLACK:
            return f"GDI objects grew from {base['gdi']} to {s['gdi']} at {s['seconds']:.0f} s"
        if s["committed"] > base["committed"] + MEMORY_SLACK:
            return f"memory grew from {base['committed']} to {s['committed']} bytes at {s['seconds']:.0f} s"
    return None


def percentile(values, share):
    return sorted(values)[min(len(values) - 1, int(len(values) * share))] if values else None


def soak(edition, minutes, seed, out):
    """Plays for that long; returns (problem or None, report)."""
    out.mkdir(parents=True, exist_ok=True)
    seconds = minutes * 60
    warm_up = min(60.0, seconds / 4)
    player = (NativeEdition if edition == "native" else WineEdition)(out)
    with player.session as session:
        player.start()
        process = player.process
        toddler = Toddler(session, seed)
        samples, problem = [], None
        start = time.monotonic()
        next_sample = start
        while problem is None and time.monotonic() - start < seconds:
            if time.monotonic() >= next_sample:
                problem = check_windows(session, process)
                if problem is None:
                    sample = player.sample()
                    sample["seconds"] = time.monotonic() - start
                    samples.append(sample)
                    next_sample += SAMPLE_SECONDS
                continue
            toddler.act()
        problem = problem or growth_problem(samples, warm_up)
        session.screenshot("soak-end")
        if problem is None:
            session.xdotool("mouseup", 1)
            player.end()
            code = session.wait_exit(process)
            if code != 0:
                problem = f"play ended with exit code {code}"
        best_file = player.profile() / "high_score.txt"
        best = best_file.read_bytes().decode("ascii", "replace").strip() if best_file.is_file() else None
        if problem is None and not (best and best.isdigit() and int(best) > 0):
            problem = f"no best score on disk after play: {best!r}"
        times = player.frame_times()
    frames = {"ticks": len(times), "median ms": (percentile(times, 0.5) or 0) / 1000,
              "95th percentile ms": (percentile(times, 0.95) or 0) / 1000} if times else None
    report = {"edition": edition, "minutes": minutes, "seed": seed, "actions": toddler.actions, "best score": best,
              "problem": problem, "frame times": frames, "samples": samples}
    (out / "soak.json").write_text(json.dumps(report, indent=1))
    return problem, report


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--edition", choices=("native", "wine"), default="native")
    parser.add_argument("--minutes", type=float, default=10)
    parser.add_argument("--seed", type=int, default=None)
    parser.add_argument("--out", type=Path, default=BUILD / "soak")
    args = parser.parse_args()
    seed = args.seed if args.seed is not None else random.randrange(1 << 30)
    problem, report = soak(args.edition, args.minutes, seed, args.out)
    samples = report["samples"]
    print(f"soak: {args.edition}, {args.minutes} min, seed {seed}, {report['actions']}, "
          f"best score {report['best score']}")
    if report["frame times"]:
        print(f"soak: tick to screen {report['frame times']}")
    if samples:
        print(f"soak: GDI objects {samples[0]['gdi']} -> {samples[-1]['gdi']} (max {max(s['gdi'] for s in samples)}),"
              f" committed MiB {samples[0]['committed'] / 2**20:.1f} -> {samples[-1]['committed'] / 2**20:.1f}"
              f" (max {max(s['committed'] for s in samples) / 2**20:.1f})")
    if problem:
        print(f"soak: FAILED: {problem}", file=sys.stderr)
        return 1
    print("soak: passed")
    return 0


if __name__ == "__main__":
    sys.exit(main())

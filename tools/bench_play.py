#!/usr/bin/env python3
"""What real play costs the machine (./puffino bench-play), measured, not
tested: the optimised Linux edition on the headless two-monitor Xorg, then
Puffino.exe under Wine in Xvfb, each for a fixed time in ordinary play (no
input) and crowded (the penguin held: its stream of bubbles at the cap). For
each, the CPU time of the program and of the X server (under Wine also of
the wineserver) per second of play, as a share of one core, from their
/proc/<pid>/stat. The machine's load average is printed beside it, for a
busy machine slows the figures down; a screenshot of each phase is kept.

  bench_play.py [--seconds S] [--edition native|wine|both] [--out FOLDER]
                [--linux-program PATH]  (another build of the Linux edition,
                                         to compare: an earlier one, say)"""

import argparse
import os
import shutil
import sys
import time
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "tests" / "harness"))
from native_session import BUILD, NativePuffino  # noqa: E402
from wine_session import WinePuffino  # noqa: E402

# The shipped build of the Linux edition (-O3, stripped); it plays from a
# folder of its own with the pose pictures and fonts of the build beside it.
SHIPPED = BUILD / "package" / "bin" / "puffino"
SETTLE = 3.0  # seconds after the windows show before measuring
CROWDING = 15.0  # seconds of blowing until the stream is at the cap
TICKS = os.sysconf("SC_CLK_TCK")


def cpu_seconds(pid):
    """utime + stime of the process (every thread of it) so far."""
    fields = Path(f"/proc/{pid}/stat").read_text().rsplit(")", 1)[1].split()
    return (int(fields[11]) + int(fields[12])) / TICKS


def shares(pids, seconds):
    """name -> per cent of one core each process used over that many seconds."""
    before, start = {name: cpu_seconds(pid) for name, pid in pids.items()}, time.monotonic()
    time.sleep(seconds)  # the measurement itself: play goes on meanwhile
    elapsed = time.monotonic() - start
    return {name: 100 * (cpu_seconds(pid) - before[name]) / elapsed for name, pid in pids.items()}


def wineserver_pid(prefix):
    """The wineserver of that prefix, found by its environment."""
    wanted = f"WINEPREFIX={prefix}".encode()
    for entry in Path("/proc").iterdir():
        try:
            if entry.name.isdigit() and (entry / "comm").read_text().startswith("wineserver") and \
                    wanted in (entry / "environ").read_bytes().split(b"\0"):
                return int(entry.name)
        except OSError:
            continue
    raise SystemExit("bench-play: no wineserver for the session's prefix")


def play(session, pids, seconds):
    """Both phases in a started session: {phase: {process: share}}."""
    session.xdotool("mousemove", 960, 40)  # the pointer in the sky, out of the way
    time.sleep(SETTLE)
    figures = {}
    for phase in ("ordinary", "crowded"):
        if phase == "crowded":
            session.hold_penguin()  # until it blows; a press that popped a bubble is made again
            time.sleep(CROWDING)
        figures[phase] = shares(pids, seconds)
        session.screenshot(phase)
    session.release()
    return figures


def native(seconds, out, program):
    folder = BUILD / "bench-play" / "program"
    folder.mkdir(parents=True, exist_ok=True)
    shutil.copy2(program, folder / "puffino")
    for name in ("assets", "Fonts"):
        if not (folder / name).exists():
            (folder / name).symlink_to(BUILD / name)
    with NativePuffino("bench-play-native", artifacts=out / "native") as session:
        session.programs["shipped"] = folder / "puffino"
        session.start(program="shipped", learn=False)
        pids = {"program": session.process.pid, "X server": session.processes[0].pid}
        figures = play(session, pids, seconds)
        session.xdotool("key", "alt+F4")
        session.wait_exit(session.process)
    return figures


def wine(seconds, out, _linux_program):
    with WinePuffino("bench-play-wine", artifacts=out / "wine") as session:
        session.start(learn=False)
        pids = {"program": session.process.pid, "X server": session.processes[0].pid,
                "wineserver": wineserver_pid(session.prefix)}
        figures = play(session, pids, seconds)
        session.end_after_scenario()
    return figures


def cell(figures):
    parts = ", ".join(f"{name} {share:.1f}" for name, share in figures.items())
    return f"{sum(figures.values()):5.1f} % ({parts})"


def load():
    return " ".join(Path("/proc/loadavg").read_text().split()[:3])


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--seconds", type=float, default=20, help="of each phase (default 20)")
    parser.add_argument("--edition", choices=("native", "wine", "both"), default="both")
    parser.add_argument("--linux-program", type=Path, default=SHIPPED)
    parser.add_argument("--out", type=Path, default=BUILD / "bench-play", help="where the screenshots go")
    args = parser.parse_args()
    editions = [("Linux edition", native), ("Puffino.exe under Wine", wine)]
    editions = [e for e in editions if args.edition == "both" or e[1].__name__ == args.edition]
    print(f"bench-play: {args.seconds:g} s a phase, two monitors 1920x1080 + 1280x1024 at 96 dpi; "
          f"load average {load()}")
    rows = []
    for name, run in editions:
        figures = run(args.seconds, args.out, args.linux_program)
        row = [cell(figures[phase]) for phase in ("ordinary", "crowded")]
        rows.append((name, row))
        print(f"{name}: ordinary {row[0]}; crowded {row[1]}", flush=True)
    print(f"\nCPU per second of play, share of one core; load average now {load()}")
    print(f"{'':24}{'ordinary play (no input)':44}crowded (penguin held)")
    for name, row in rows:
        print(f"{name:24}{row[0]:44}{row[1]}")
    print(f"screenshots: {args.out}/*/")
    return 0


if __name__ == "__main__":
    sys.exit(main())

"""What every private test world shares (World): a folder of its own in the
build, an X server on a display number the server picks, the monitors laid
out from their heads, and its end, with everything it started, as a context
manager. Each platform's session says how its world opens and closes."""

import os
import shutil
import subprocess
import tempfile
from pathlib import Path

REPO = Path(__file__).resolve().parents[2]
BUILD = Path(os.environ.get("PUFFINO_BUILD_DIR", REPO / "build"))
TWO_MONITORS = ("1920x1080+0+0", "1280x1024+1920+0")  # X screen places, the primary first


def start_x_server(server, *args):  # on a display number it picks: (process, display)
    read_end, write_end = os.pipe()
    process = subprocess.Popen([server, "-displayfd", str(write_end), *args], pass_fds=[write_end],
                               stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    os.close(write_end)
    with os.fdopen(read_end) as pipe:
        return process, ":" + pipe.readline().strip()


class World:
    """A world as a context manager: open_world() makes it; on exit
    close_world() and then its processes end (the first started, the X
    server, last) and its folder goes, all but the artifacts."""

    def __init__(self, label, heads=TWO_MONITORS, dpi=None, artifacts=None):
        self.label, self.heads, self.dpi = label, tuple(heads), dpi
        self.artifacts = Path(artifacts) if artifacts else BUILD / "test-artifacts" / label
        self.processes, self.root, self.grabber = [], None, None

    def __enter__(self):
        try:
            self.open_world()
        except BaseException:
            self.__exit__()
            raise
        return self

    def make_root(self, parent):
        """The world's private folder under parent, and its monitors from the heads."""
        parent.mkdir(parents=True, exist_ok=True)
        self.artifacts.mkdir(parents=True, exist_ok=True)
        self.root = Path(tempfile.mkdtemp(prefix=self.label + "-", dir=parent))
        self.screens = [(int(x), int(y), int(x) + int(w), int(y) + int(h))
                        for w, h, x, y in (head.replace("x", "+").split("+") for head in self.heads)]
        self.width, self.height = max(r[2] for r in self.screens), max(r[3] for r in self.screens)

    def close_world(self):  # what a platform ends before the processes
        pass

    def __exit__(self, *exc):
        if self.grabber:
            self.grabber.close()
        self.close_world()
        for process in reversed(self.processes):
            process.kill()
            process.wait()
        if self.root:
            shutil.rmtree(self.root, ignore_errors=True)

    def begin(self, command, env=None, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL):  # ended with the world
        process = subprocess.Popen([str(part) for part in command], env={**self.env, **(env or {})}, stdout=stdout,
                                   stderr=stderr)
        self.processes.append(process)
        return process

    def wait_exit(self, process, timeout=30):
        try:
            return process.wait(timeout=timeout)
        except subprocess.TimeoutExpired:
            raise AssertionError("Puffino did not end") from None

    def screenshot(self, name):
        self.grabber.save(path := self.artifacts / f"{name}.png")
        return path

    def xdotool(self, *args):
        subprocess.run(["xdotool", *map(str, args)], check=True, timeout=30, env=self.x_env)

"""A private world for the Linux edition (NativeSession): an Xorg with the
dummy driver showing monitors side by side (Xvfb cannot show SDL two
displays), a private home and runtime folder, and SDL's disk audio driver
writing what Puffino plays to a file."""

import ctypes
import os
import shutil
import subprocess
import tempfile
import time
from pathlib import Path

from screen import Grabber, save_png

REPO = Path(__file__).resolve().parents[2]
BUILD = Path(os.environ.get("PUFFINO_BUILD_DIR", REPO / "build"))
PUFFINO = BUILD / "puffino"
TWO_MONITORS = ("1920x1080+0+0", "1280x1024+1920+0")  # X screen places, the primary first
XORG_CONFIG = """Section "Device"
  Identifier "dummy"
  Driver "dummy"
  VideoRam 256000
EndSection
Section "Monitor"
  Identifier "monitor"
  HorizSync 5.0-1000.0
  VertRefresh 5.0-200.0
EndSection
Section "Screen"
  Identifier "screen"
  Device "dummy"
  Monitor "monitor"
  DefaultDepth 24
  SubSection "Display"
    Depth 24
    Virtual {width} {height}
  EndSubSection
EndSection
"""
IS_VIEWABLE = 2


class XWindow(ctypes.Structure):  # the start of XWindowAttributes
    _fields_ = [("x", ctypes.c_int), ("y", ctypes.c_int), ("width", ctypes.c_int), ("height", ctypes.c_int),
                ("border_width", ctypes.c_int), ("depth", ctypes.c_int), ("visual", ctypes.c_void_p),
                ("root", ctypes.c_ulong), ("class_", ctypes.c_int), ("bit_gravity", ctypes.c_int),
                ("win_gravity", ctypes.c_int), ("backing_store", ctypes.c_int), ("backing_planes", ctypes.c_ulong),
                ("backing_pixel", ctypes.c_ulong), ("save_under", ctypes.c_int), ("colormap", ctypes.c_ulong),
                ("map_installed", ctypes.c_int), ("map_state", ctypes.c_int), ("all_event_masks", ctypes.c_long),
                ("your_event_mask", ctypes.c_long), ("do_not_propagate_mask", ctypes.c_long),
                ("override_redirect", ctypes.c_int), ("screen", ctypes.c_void_p)]


def start_xorg(folder, width, height):  # (process, display) on a display number Xorg picks
    config = folder / "xorg.conf"
    config.write_text(XORG_CONFIG.format(width=width, height=height))
    read_end, write_end = os.pipe()
    process = subprocess.Popen(["Xorg", "-displayfd", str(write_end), "-config", str(config), "-noreset",
                                "-nolisten", "tcp", "-logfile", str(folder / "xorg.log"), "vt1", "-novtswitch",
                                "-sharevts"], pass_fds=[write_end], stdout=subprocess.DEVNULL,
                               stderr=subprocess.DEVNULL)
    os.close(write_end)
    with os.fdopen(read_end) as pipe:
        return process, ":" + pipe.readline().strip()


class NativeSession:
    """The world; Puffino starts in it with launch()."""

    def __init__(self, label, heads=TWO_MONITORS, dpi=None, artifacts=None):
        self.label, self.heads, self.dpi = label, tuple(heads), dpi
        self.artifacts = Path(artifacts) if artifacts else BUILD / "test-artifacts" / label
        self.processes, self.root, self.grabber, self.x11 = [], None, None, None

    def __enter__(self):
        try:
            self.open_world()
        except BaseException:
            self.__exit__()
            raise
        return self

    def open_world(self):
        (BUILD / "native").mkdir(parents=True, exist_ok=True)
        self.artifacts.mkdir(parents=True, exist_ok=True)
        self.root = Path(tempfile.mkdtemp(prefix=self.label + "-", dir=BUILD / "native"))
        self.screens = [(int(x), int(y), int(x) + int(w), int(y) + int(h))
                        for w, h, x, y in (head.replace("x", "+").split("+") for head in self.heads)]
        self.width, self.height = max(r[2] for r in self.screens), max(r[3] for r in self.screens)
        xorg, self.x_display = start_xorg(self.root, self.width, self.height)
        self.processes.append(xorg)  # the last to end
        self.x_env = {**os.environ, "DISPLAY": self.x_display}
        self.lay_out_monitors()
        if self.dpi:  # as a desktop publishes its scale
            subprocess.run(["xrdb", "-merge"], input=f"Xft.dpi: {self.dpi}\n", text=True, env=self.x_env,
                           check=True)
        self.home_folder = self.root / "home"
        (self.root / "run").mkdir(mode=0o700)
        self.sound_file = self.root / "sound.raw"
        self.env = {**self.x_env, "HOME": str(self.home_folder), "XDG_CONFIG_HOME": str(self.home_folder / ".config"),
                    "XDG_RUNTIME_DIR": str(self.root / "run"), "SDL_AUDIODRIVER": "disk",
                    "SDL_DISKAUDIOFILE": str(self.sound_file), "PULSE_SERVER": "unix:/nonexistent"}
        self.grabber = Grabber(self.x_display, self.width, self.height)
        self.open_window_list()

    def lay_out_monitors(self):
        """The first head on the dummy driver's first output, and so on. The
        first output has the driver's modes; the others get theirs added (a
        mode added twice is one SDL cannot place)."""
        arguments = ["--fb", f"{self.width}x{self.height}"]
        for number, (left, top, right, bottom) in enumerate(self.screens):
            mode = f"{right - left}x{bottom - top}"
            if number > 0:
                subprocess.run(["xrandr", "--addmode", f"DUMMY{number}", mode], env=self.x_env, check=True)
            arguments += ["--output", f"DUMMY{number}", "--mode", mode, "--pos", f"{left}x{top}"]
        subprocess.run(["xrandr", *arguments], env=self.x_env, check=True)
        # SDL reads the server's current configuration without probing it;
        # one probing query makes the new layout current.
        subprocess.run(["xrandr", "--query"], env=self.x_env, check=True, stdout=subprocess.DEVNULL)

    def __exit__(self, *exc):
        if self.grabber:
            self.grabber.close()
        if self.x11:
            self.x11.XCloseDisplay(self.x_connection)
        for process in reversed(self.processes):
            process.kill()
            process.wait()
        if self.root:
            shutil.rmtree(self.root, ignore_errors=True)

    def profile(self):
        return self.home_folder / ".config" / "morvenda" / "Tonkari" / "Puffino"

    def launch(self, program=PUFFINO, env=None):
        process = subprocess.Popen([str(program)], env={**self.env, **(env or {})}, stdout=subprocess.DEVNULL,
                                   stderr=subprocess.DEVNULL)
        self.processes.append(process)
        return process

    def xdotool(self, *args):
        subprocess.run(["xdotool", *map(str, args)], check=True, timeout=30, env=self.x_env)

    def wait_exit(self, process, timeout=30):
        try:
            return process.wait(timeout=timeout)
        except subprocess.TimeoutExpired:
            raise AssertionError("Puffino did not end") from None

    def screenshot(self, name):
        save_png(self.grabber.grab()[1], path := self.artifacts / f"{name}.png")
        return path

    def open_window_list(self):
        x11 = self.x11 = ctypes.CDLL("libX11.so.6")
        x11.XOpenDisplay.restype = x11.XDefaultRootWindow.restype = ctypes.c_void_p
        x11.XDefaultRootWindow.argtypes = x11.XCloseDisplay.argtypes = x11.XFree.argtypes = [ctypes.c_void_p]
        x11.XQueryTree.argtypes = [ctypes.c_void_p, ctypes.c_ulong] + [ctypes.c_void_p] * 4
        x11.XGetWindowAttributes.argtypes = [ctypes.c_void_p, ctypes.c_ulong, ctypes.c_void_p]
        x11.XFetchName.argtypes = [ctypes.c_void_p, ctypes.c_ulong, ctypes.c_void_p]
        x11.XGetInputFocus.argtypes = [ctypes.c_void_p, ctypes.c_void_p, ctypes.c_void_p]
        x11.XInternAtom.argtypes = [ctypes.c_void_p, ctypes.c_char_p, ctypes.c_int]
        x11.XInternAtom.restype = ctypes.c_ulong
        x11.XGetWindowProperty.argtypes = [ctypes.c_void_p, ctypes.c_ulong, ctypes.c_ulong, ctypes.c_long,
                                           ctypes.c_long, ctypes.c_int, ctypes.c_ulong] + [ctypes.c_void_p] * 5
        self.x_connection = x11.XOpenDisplay(self.x_display.encode())
        self.pid_atom = x11.XInternAtom(self.x_connection, b"_NET_WM_PID", 0)

    def property_cardinal(self, window, atom):
        kind, size, count, after, data = ctypes.c_ulong(), ctypes.c_int(), ctypes.c_ulong(), ctypes.c_ulong(), \
            ctypes.c_void_p()
        self.x11.XGetWindowProperty(self.x_connection, window, atom, 0, 1, 0, 0, ctypes.byref(kind),
                                    ctypes.byref(size), ctypes.byref(count), ctypes.byref(after), ctypes.byref(data))
        value = ctypes.c_ulong.from_address(data.value).value if data.value and count.value else None
        if data.value:
            self.x11.XFree(data)
        return value

    def windows(self):
        """Puffino's mapped windows, top of the stack first: rect, title,
        whether each is above every other client's window, which has the
        keyboard focus, and the pid that owns it."""
        x11, display = self.x11, self.x_connection
        root, parent, children, count = ctypes.c_ulong(), ctypes.c_ulong(), ctypes.c_void_p(), ctypes.c_uint()
        x11.XQueryTree(display, x11.XDefaultRootWindow(display), ctypes.byref(root), ctypes.byref(parent),
                       ctypes.byref(children), ctypes.byref(count))
        stack = list((ctypes.c_ulong * count.value).from_address(children.value)) if count.value else []
        if children.value:
            x11.XFree(children)
        focus, revert = ctypes.c_ulong(), ctypes.c_int()
        x11.XGetInputFocus(display, ctypes.byref(focus), ctypes.byref(revert))
        found, others_above = [], False
        for window in reversed(stack):  # XQueryTree lists the bottom first
            attributes, name = XWindow(), ctypes.c_char_p()
            if not x11.XGetWindowAttributes(display, window, ctypes.byref(attributes)) or \
                    attributes.map_state != IS_VIEWABLE:
                continue
            x11.XFetchName(display, window, ctypes.byref(name))
            title = name.value.decode() if name.value else None
            if name.value:
                x11.XFree(name)
            if title != "Puffino":
                others_above = True
                continue
            found.append({"id": window, "title": title, "visible": True, "topmost": not others_above,
                          "rect": [attributes.x, attributes.y, attributes.x + attributes.width,
                                   attributes.y + attributes.height],
                          "foreground": focus.value == window, "pid": self.property_cardinal(window, self.pid_atom),
                          "plain": attributes.border_width == 0})
        return found

    def memory(self, pid):  # the heap and other private memory, in bytes
        for line in Path(f"/proc/{pid}/status").read_text().splitlines():
            if line.startswith("RssAnon:"):
                return int(line.split()[1]) * 1024
        return 0

    def raise_other_window(self):
        """Another client's window over everything, as a program that pops up
        would put it; returns its process, which the caller ends."""
        window = subprocess.Popen(["xmessage", "-geometry", f"{self.width}x{self.height}+0+0", "over Puffino"],
                                  env=self.x_env, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.processes.append(window)
        deadline = time.monotonic() + 10
        while time.monotonic() < deadline and all(w["topmost"] for w in self.windows()):
            time.sleep(0.02)
        return window

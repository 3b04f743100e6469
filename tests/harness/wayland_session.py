"""A headless Wayland world for the Linux edition (WaylandPuffino): sway's
headless backend with the harness's two monitors as outputs, a bar along the
top of each, no Xwayland; build/puffino plays in it with SDL's Wayland driver.

sway refuses root: it runs as nobody, in a folder of its own. wayvnc gives
its seat a keyboard and a pointer for as long as the world lives (a seat
without a keyboard gives no window the keyboard focus, and so honours no
shortcut inhibition); keys go through wayvnc as an RFB client sends them,
the pointer through sway's own seat commands (wayvnc's pointer reaches one
output only), screenshots come from grim. The desktop's shortcuts are sway
bindings that write a line to a file when they fire."""

import ctypes
import json
import os
import re
import shutil
import socket
import struct
import subprocess
import tempfile
import time
from pathlib import Path

import numpy

from native_session import NativePuffino
from puffino_session import check
from world import BUILD, TWO_MONITORS

NOBODY = 65534
OUTPUTS = ("HEADLESS-1", "HEADLESS-2")  # the headless backend's names, in the order of TWO_MONITORS
BAR_HEIGHT = 23  # swaybar's height with sway's default font
# The desktop's shortcuts, as a desktop binds them, and what the file then
# says (the X harness's names for what its watcher sees). A lone modifier
# binds on its release, with itself held.
BINDINGS = {"Mod1+Tab": "Tab", "--release Mod4+Super_L": "super", "Control+Escape": "Escape"}
SWAY_CONFIG = """xwayland disable
default_border none
focus_follows_mouse no
{outputs}
{bindings}
seat * xcursor_theme empty 24
bar {{
  position top
  mode dock
}}
"""
MODIFIERS = {"alt": "Alt_L", "ctrl": "Control_L", "shift": "Shift_L", "super": "Super_L"}


def keysym(name):
    """The keysym of an xdotool key name, as libxkbcommon names them."""
    xkb = ctypes.CDLL("libxkbcommon.so.0")
    xkb.xkb_keysym_from_name.restype, xkb.xkb_keysym_from_name.argtypes = ctypes.c_uint32, [ctypes.c_char_p,
                                                                                            ctypes.c_int]
    value = xkb.xkb_keysym_from_name(MODIFIERS.get(name, name).encode(), 0)
    check(value, f"no key named {name}")
    return value


def write_empty_cursor(path):
    """An X cursor of one transparent pixel: the pointer stays out of the
    screenshots (headless outputs draw it into their pictures)."""
    image = struct.pack("<9I", 36, 0xFFFD0002, 24, 1, 1, 1, 0, 0, 0) + struct.pack("<I", 0)
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_bytes(b"Xcur" + struct.pack("<3I", 16, 0x10000, 1) + struct.pack("<3I", 0xFFFD0002, 24, 28) + image)


class Rfb:
    """The keyboard of an RFB client (protocol 3.8, no security) on a Unix
    socket."""

    def __init__(self, path):
        self.socket = socket.socket(socket.AF_UNIX)
        self.socket.settimeout(10)
        self.socket.connect(str(path))
        check(self.read(12).startswith(b"RFB 003."), "no RFB server")
        self.socket.sendall(b"RFB 003.008\n")
        check(1 in self.read(self.read(1)[0]), "the RFB server wants a password")
        self.socket.sendall(b"\x01")
        check(self.read(4) == b"\0\0\0\0", "the RFB server refused the connection")
        self.socket.sendall(b"\x01")  # shared
        self.read(20)  # the frame buffer's size and format
        self.read(struct.unpack(">I", self.read(4))[0])  # its name

    def read(self, size):
        data = b""
        while len(data) < size:
            part = self.socket.recv(size - len(data))
            check(part, "the RFB server went away")
            data += part
        return data

    def key(self, combination):  # "alt+F4": each key down in order, then up in reverse
        syms = [keysym(name) for name in combination.split("+")]
        self.socket.sendall(b"".join(struct.pack(">BBxxI", 4, 1, sym) for sym in syms) +
                            b"".join(struct.pack(">BBxxI", 4, 0, sym) for sym in reversed(syms)))

    def close(self):
        self.socket.close()


class Grim:
    """The Grabber's calls, answered by grim in layout coordinates."""

    def __init__(self, env, width, height):
        self.env, self.width, self.height = env, width, height

    def grab(self, box=None):
        left, top, right, bottom = box or (0, 0, self.width, self.height)
        ppm = subprocess.run(["grim", "-t", "ppm", "-g", f"{left},{top} {right - left}x{bottom - top}", "-"],
                             env=self.env, check=True, stdout=subprocess.PIPE, timeout=30).stdout
        taken = time.monotonic()
        # P6, width, height, 255, one whitespace each, then the pixels.
        header = ppm.split(maxsplit=4)
        width, height = int(header[1]), int(header[2])
        pixels = numpy.frombuffer(ppm[len(ppm) - width * height * 3:], numpy.uint8)
        return taken, pixels.reshape(height, width, 3).copy()

    def pixel(self, x, y):
        return tuple(int(c) for c in self.grab((x, y, x + 1, y + 1))[1][0, 0])

    def close(self):
        pass


class WaylandPuffino(NativePuffino):
    """build/puffino in sway, its sound captured by the disk driver."""

    def __init__(self, label, artifacts=None):
        super().__init__(label, TWO_MONITORS, None, artifacts)
        self.sway_folder, self.rfb = None, None

    def open_world(self):
        self.make_root(BUILD / "native")
        self.start_sway()
        self.wayland_env = {**{k: v for k, v in os.environ.items() if k != "DISPLAY"},
                            "WAYLAND_DISPLAY": str(self.sway_folder / "run" / "wayland-1"),
                            "SWAYSOCK": str(self.sway_socket), "XDG_RUNTIME_DIR": str(self.root / "run"),
                            **self.cursor_env()}
        self.env = {**self.puffino_env(self.wayland_env), "SDL_VIDEODRIVER": "wayland"}
        self.start_wayvnc()
        self.grabber = Grim(self.wayland_env, self.width, self.height)
        self.wait_for(lambda: self.grabber.pixel(960, BAR_HEIGHT // 2) != self.grabber.pixel(960, 540),
                      "sway's bar shown", 10)
        self.desktop_before = self.grabber.grab()[1]

    def painted(self, number):
        """The windows, once that many show something else than the desktop
        near their corner and sway has told each surface the output it shows
        on: before that, sway's pointer does not find it yet and a press there
        goes to the desktop."""
        found = self.windows()
        shown_on_outputs = len(set(re.findall(rb"wl_surface@(\d+)\.enter\(wl_output", self.protocol_log.read_bytes())))
        return found if len(found) == number and shown_on_outputs >= number and all(
            self.grabber.pixel(w["rect"][0] + 10, w["rect"][1] + 5) !=
            tuple(self.desktop_before[w["rect"][1] + 5, w["rect"][0] + 10]) for w in found) else None

    def start_sway(self):
        """sway as nobody, in a folder of nobody's that holds its sockets,
        its configuration and the file its bindings write to."""
        self.sway_folder = Path(tempfile.mkdtemp(prefix="puffino-sway-"))
        self.marks = self.sway_folder / "shortcuts"
        (self.sway_folder / "run").mkdir(mode=0o700)
        outputs = "\n".join(f"output {name} mode {right - left}x{bottom - top} position {left} {top}"
                            for name, (left, top, right, bottom) in zip(OUTPUTS, self.screens))
        bindings = "\n".join(f"bindsym {keys} exec echo down {seen} >> {self.marks}" for keys, seen in BINDINGS.items())
        (self.sway_folder / "config").write_text(SWAY_CONFIG.format(outputs=outputs, bindings=bindings))
        self.marks.touch()
        for name in ("left_ptr", "default"):
            write_empty_cursor(self.sway_folder / "icons" / "empty" / "cursors" / name)
        for path in [self.sway_folder, *self.sway_folder.rglob("*")]:
            os.chown(path, NOBODY, NOBODY)
        env = {"PATH": os.environ["PATH"], "HOME": str(self.sway_folder), **self.cursor_env(),
               "XDG_RUNTIME_DIR": str(self.sway_folder / "run"), "WLR_BACKENDS": "headless",
               "WLR_HEADLESS_OUTPUTS": str(len(self.screens)), "WLR_LIBINPUT_NO_DEVICES": "1",
               "WLR_RENDERER": "pixman"}
        with open(self.root / "sway.log", "wb") as log:
            self.processes.append(subprocess.Popen(
                ["setpriv", f"--reuid={NOBODY}", f"--regid={NOBODY}", "--clear-groups", "sway", "-c",
                 str(self.sway_folder / "config")], env=env, stdout=subprocess.DEVNULL, stderr=log))
        self.sway_socket = self.wait_for(lambda: next((self.sway_folder / "run").glob("sway-ipc.*.sock"), None),
                                         "sway's socket", 10)
        self.wait_for(lambda: self.outputs_placed(), "sway's outputs in place", 10)

    def cursor_env(self):  # the empty cursor as the theme
        return {"XCURSOR_PATH": str(self.sway_folder / "icons"), "XCURSOR_THEME": "empty"}

    def outputs_placed(self):
        outputs = json.loads(subprocess.run(["swaymsg", "-s", str(self.sway_socket), "-r", "-t", "get_outputs"],
                                            stdout=subprocess.PIPE, stderr=subprocess.DEVNULL).stdout or "[]")
        rects = sorted((o["rect"]["x"], o["rect"]["y"], o["rect"]["x"] + o["rect"]["width"],
                        o["rect"]["y"] + o["rect"]["height"]) for o in outputs if o.get("active"))
        return rects == sorted(self.screens)

    def start_wayvnc(self):  # the seat's keyboard and pointer
        address = self.root / "vnc"
        self.processes.insert(0, subprocess.Popen(["wayvnc", "-u", "-o", OUTPUTS[0], str(address)],
                                                  env=self.wayland_env, stdout=subprocess.DEVNULL,
                                                  stderr=subprocess.DEVNULL))
        self.wait_for(lambda: self.sway("-t", "get_seats")[0]["capabilities"] == 3 and address.exists(),
                      "wayvnc's keyboard and pointer", 10)
        self.rfb = Rfb(address)

    def __exit__(self, *exc):
        if self.rfb:
            self.rfb.close()
        super().__exit__(*exc)
        if self.sway_folder:
            shutil.rmtree(self.sway_folder, ignore_errors=True)

    def sway(self, *args):
        out = subprocess.run(["swaymsg", "-r", *map(str, args)], env=self.wayland_env, check=True,
                             stdout=subprocess.PIPE, timeout=30).stdout
        return json.loads(out) if out.strip() else None

    def bar(self):  # the bar on the home output, in layout coordinates
        left, top, right, _ = self.screens[0]
        return left, top, right, top + BAR_HEIGHT

    def windows(self):
        """Puffino's windows in sway's tree: each full screen (on top of its
        output's other windows) when sway says so; the focused one is in
        front."""
        found, stack = [], [self.sway("-t", "get_tree")]
        while stack:
            node = stack.pop()
            stack += node.get("nodes", []) + node.get("floating_nodes", [])
            if node.get("app_id") != "puffino" or not node.get("visible"):
                continue
            rect = node["rect"]
            full_screen = node.get("fullscreen_mode") == 1
            found.append({"id": node["id"], "title": node["name"], "visible": True, "topmost": full_screen,
                          "rect": [rect["x"], rect["y"], rect["x"] + rect["width"], rect["y"] + rect["height"]],
                          "foreground": node.get("focused", False), "pid": node.get("pid"),
                          "plain": full_screen or node.get("border") == "none"})
        return found

    def close_window(self, window):  # as the compositor asks a window to close
        self.sway(f"[con_id={window['id']}]", "kill")

    def xdotool(self, *args):
        """The xdotool commands the scenarios use, through sway's seat and
        the RFB keyboard: mousemove X Y, mousedown/mouseup/click BUTTON,
        sleep SECONDS, key KEYS."""
        words, buttons = [str(a) for a in args], {"mousedown": ["press"], "mouseup": ["release"],
                                                   "click": ["press", "release"]}
        while words:
            command = words.pop(0)
            if command == "mousemove":
                self.sway("seat", "-", "cursor", "set", words.pop(0), words.pop(0))
            elif command in buttons:
                button = words.pop(0)
                for action in buttons[command]:
                    self.sway("seat", "-", "cursor", action, f"button{button}")
            elif command == "sleep":
                time.sleep(float(words.pop(0)))
            elif command == "key":
                self.rfb.key(words.pop(0))
            else:
                raise AssertionError(f"no such input here: {command}")

    # -- the desktop's shortcuts, as the X harness's watcher reports them ---

    def watch_keys(self):  # the bindings are sway's from the start: what they wrote before is forgotten
        self.marks.write_text("")

    def keys_seen(self):
        return [tuple(line.split()) for line in self.marks.read_text().splitlines()]

    # -- steps of the Wayland scenarios --------------------------------------

    def launch(self, program=None, env=None):
        """Puffino with its Wayland requests written down (WAYLAND_DEBUG):
        what it asks of the compositor can be waited for."""
        self.protocol_log = self.root / f"wayland-{len(self.sound_files)}.log"
        with open(self.protocol_log, "wb") as log:
            return self.begin([program], {**(env or {}), "WAYLAND_DEBUG": "client"}, stderr=log)

    def inhibitions_asked(self):  # how often Puffino has asked to inhibit the shortcuts
        return self.protocol_log.read_bytes().count(b".inhibit_shortcuts(")

    def focus_by_click(self, monitor):
        """A click in the middle of a monitor: its window takes the focus and
        asks again for the desktop's shortcuts to be inhibited."""
        left, top, right, bottom = monitor
        asked = self.inhibitions_asked()
        self.xdotool("mousemove", (left + right) // 2, (top + bottom) // 2, "click", 1)
        self.wait_for(lambda: [w["rect"] for w in self.windows() if w["foreground"]] == [list(monitor)],
                      f"the window on {monitor} focused", 5)
        self.wait_for(lambda: self.inhibitions_asked() > asked, "the shortcuts' inhibition asked for", 5)

    def expect_above_panel(self):
        """None of the bar's pixels show where it stood."""
        left, top, right, bottom = self.bar()
        now = self.grabber.grab(self.bar())[1]
        same_pixels = (now == self.desktop_before[top:bottom, left:right]).all(axis=2).mean()
        check(same_pixels < 0.05, f"{same_pixels:.0%} of the bar still shows")

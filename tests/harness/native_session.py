"""A private world for the Linux edition (NativeSession): an Xorg with the
dummy driver showing monitors side by side (Xvfb cannot show SDL two
displays), a private home and runtime folder, and SDL's disk audio driver
writing what Puffino plays to a file; NativePuffino plays build/puffino in it."""

import ctypes
import os
import subprocess
from pathlib import Path

from linux_package import unpack_package
from puffino_session import PuffinoSession, check, same
from screen import Grabber
from world import BUILD, TWO_MONITORS, World, start_x_server

PUFFINO = BUILD / "puffino"
GALLERY = BUILD / "harness" / "scenery_gallery"
PAINTED = BUILD / "native" / "gallery"  # the test run's landscapes, painted by a CTest fixture
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
IS_VIEWABLE, GRAB_MODE_ASYNC, ALREADY_GRABBED, KEY_PRESS, KEY_RELEASE, CLIENT_MESSAGE = 2, 1, 1, 2, 3, 33
SHIFT, CONTROL, ALT = 1, 4, 8  # X modifier masks (Alt is Mod1)
# The desktop's shortcuts as a desktop binds them: passive grabs on the root
# window, (key, modifiers).
DESKTOP_SHORTCUTS = (("Tab", ALT), ("Super_L", 0), ("Escape", CONTROL))
SOUND_RATE = 44100  # the disk driver's S16LE mono, as the program asks for it
SILENCE = SOUND_RATE // 100  # 10 ms of zero samples part two sounds


class XWindow(ctypes.Structure):  # the start of XWindowAttributes
    _fields_ = [("x", ctypes.c_int), ("y", ctypes.c_int), ("width", ctypes.c_int), ("height", ctypes.c_int),
                ("border_width", ctypes.c_int), ("depth", ctypes.c_int), ("visual", ctypes.c_void_p),
                ("root", ctypes.c_ulong), ("class_", ctypes.c_int), ("bit_gravity", ctypes.c_int),
                ("win_gravity", ctypes.c_int), ("backing_store", ctypes.c_int), ("backing_planes", ctypes.c_ulong),
                ("backing_pixel", ctypes.c_ulong), ("save_under", ctypes.c_int), ("colormap", ctypes.c_ulong),
                ("map_installed", ctypes.c_int), ("map_state", ctypes.c_int), ("all_event_masks", ctypes.c_long),
                ("your_event_mask", ctypes.c_long), ("do_not_propagate_mask", ctypes.c_long),
                ("override_redirect", ctypes.c_int), ("screen", ctypes.c_void_p)]


class XEvent(ctypes.Structure):  # the start shared by key and client messages, padded to the union's size
    _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("send_event", ctypes.c_int),
                ("display", ctypes.c_void_p), ("window", ctypes.c_ulong), ("detail", ctypes.c_ulong * 19)]


def outline(attributes):  # a window's rectangle from its attributes
    return [attributes.x, attributes.y, attributes.x + attributes.width, attributes.y + attributes.height]


IGNORE_X_ERRORS = ctypes.CFUNCTYPE(ctypes.c_int, ctypes.c_void_p, ctypes.c_void_p)(lambda display, error: 0)


def xlib():
    """libX11 with the signatures the harness calls."""
    x11, display, window, pointer = ctypes.CDLL("libX11.so.6"), ctypes.c_void_p, ctypes.c_ulong, ctypes.c_void_p
    for name, result, arguments in (
            ("XOpenDisplay", display, [ctypes.c_char_p]), ("XDefaultRootWindow", window, [display]),
            ("XCloseDisplay", ctypes.c_int, [display]), ("XFree", ctypes.c_int, [pointer]),
            ("XSync", ctypes.c_int, [display, ctypes.c_int]),
            ("XQueryTree", ctypes.c_int, [display, window] + [pointer] * 4),
            ("XGetWindowAttributes", ctypes.c_int, [display, window, pointer]),
            ("XFetchName", ctypes.c_int, [display, window, pointer]),
            ("XGetInputFocus", ctypes.c_int, [display, pointer, pointer]),
            ("XInternAtom", ctypes.c_ulong, [display, ctypes.c_char_p, ctypes.c_int]),
            ("XGetWindowProperty", ctypes.c_int, [display, window, ctypes.c_ulong, ctypes.c_long, ctypes.c_long,
                                                  ctypes.c_int, ctypes.c_ulong] + [pointer] * 5),
            ("XGrabKeyboard", ctypes.c_int, [display, window, ctypes.c_int, ctypes.c_int, ctypes.c_int, window]),
            ("XUngrabKeyboard", ctypes.c_int, [display, window]),
            ("XStringToKeysym", ctypes.c_ulong, [ctypes.c_char_p]),
            ("XKeysymToKeycode", ctypes.c_ubyte, [display, ctypes.c_ulong]),
            ("XGrabKey", ctypes.c_int, [display, ctypes.c_int, ctypes.c_uint, window, ctypes.c_int, ctypes.c_int,
                                        ctypes.c_int]),
            ("XPending", ctypes.c_int, [display]), ("XNextEvent", ctypes.c_int, [display, pointer]),
            ("XSendEvent", ctypes.c_int, [display, window, ctypes.c_int, ctypes.c_long, pointer]),
            ("XCreateSimpleWindow", window, [display, window, ctypes.c_int, ctypes.c_int, ctypes.c_uint,
                                             ctypes.c_uint, ctypes.c_uint, ctypes.c_ulong, ctypes.c_ulong]),
            ("XMapRaised", ctypes.c_int, [display, window]), ("XDestroyWindow", ctypes.c_int, [display, window]),
            ("XSetErrorHandler", ctypes.c_void_p, [ctypes.c_void_p]),
            # a desktop's dock and pop-up windows
            ("XChangeProperty", ctypes.c_int, [display, window, ctypes.c_ulong, ctypes.c_ulong, ctypes.c_int,
                                               ctypes.c_int, pointer, ctypes.c_int]),
            ("XMapWindow", ctypes.c_int, [display, window]),
            ("XStoreName", ctypes.c_int, [display, window, ctypes.c_char_p]),
            ("XSetWMProtocols", ctypes.c_int, [display, window, pointer, ctypes.c_int]),
            ("XTranslateCoordinates", ctypes.c_int, [display, window, window, ctypes.c_int, ctypes.c_int,
                                                     pointer, pointer, pointer]),
            ("XSelectInput", ctypes.c_int, [display, window, ctypes.c_long])):
        getattr(x11, name).restype, getattr(x11, name).argtypes = result, arguments
    return x11


def start_xorg(folder, width, height):  # (process, display)
    config = folder / "xorg.conf"
    config.write_text(XORG_CONFIG.format(width=width, height=height))
    return start_x_server("Xorg", "-config", str(config), "-noreset", "-nolisten", "tcp", "-logfile",
                          str(folder / "xorg.log"), "vt1", "-novtswitch", "-sharevts")


class NativeSession(World):
    """The world; Puffino starts in it with launch()."""

    x11 = None

    def open_world(self):
        self.make_root(BUILD / "native")
        xorg, self.x_display = start_xorg(self.root, self.width, self.height)
        self.processes.append(xorg)  # the last to end
        self.x_env = {**os.environ, "DISPLAY": self.x_display}
        self.lay_out_monitors()
        if self.dpi:  # as a desktop publishes its scale
            subprocess.run(["xrdb", "-merge"], input=f"Xft.dpi: {self.dpi}\n", text=True, env=self.x_env,
                           check=True)
        # No session bus, and none started on demand (dbus-launch writes
        # into the home folder): a desktop gives its own.
        self.env = {**self.puffino_env(self.x_env), "DBUS_SESSION_BUS_ADDRESS": "unix:path=/nonexistent"}
        self.grabber = Grabber(self.x_display, self.width, self.height)
        self.x11 = xlib()
        # A window that goes between listing and asking (Puffino remaking
        # its windows) is an error Xlib would end the test run for.
        self.x11.XSetErrorHandler(IGNORE_X_ERRORS)
        self.x_connection = self.x11.XOpenDisplay(self.x_display.encode())
        self.x_root = self.x11.XDefaultRootWindow(self.x_connection)
        self.pid_atom = self.x11.XInternAtom(self.x_connection, b"_NET_WM_PID", 0)

    def puffino_env(self, base):
        """base with Puffino's private home and runtime folder, and SDL's disk
        driver writing its sound to a file. The font cache is the system's,
        not a file of Puffino's: kept out of the home folder whose files the
        scenarios account for."""
        self.home_folder, self.sound_file = self.root / "home", self.root / "sound.raw"
        (self.root / "run").mkdir(mode=0o700)
        return {**base, "HOME": str(self.home_folder), "XDG_CONFIG_HOME": str(self.home_folder / ".config"),
                "XDG_CACHE_HOME": str(self.root / "cache"), "XDG_RUNTIME_DIR": str(self.root / "run"),
                "SDL_AUDIODRIVER": "disk", "SDL_DISKAUDIOFILE": str(self.sound_file),
                "PULSE_SERVER": "unix:/nonexistent"}

    def lay_out_monitors(self):
        """The first head on the dummy driver's first output, and so on; the
        modes the driver lacks are added."""
        arguments = ["--fb", f"{self.width}x{self.height}"]
        for number, (left, top, right, bottom) in enumerate(self.screens):
            mode = f"{right - left}x{bottom - top}"
            subprocess.run(["xrandr", "--addmode", f"DUMMY{number}", mode], env=self.x_env,
                           stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
            arguments += ["--output", f"DUMMY{number}", "--mode", mode, "--pos", f"{left}x{top}"]
        subprocess.run(["xrandr", *arguments], env=self.x_env, check=True)
        # The server's answer to the quick query SDL makes stays the old
        # single display until a client asks it to look at its outputs.
        subprocess.run(["xrandr", "--query"], env=self.x_env, check=True, stdout=subprocess.DEVNULL)

    def close_world(self):
        if self.x11:
            self.x11.XCloseDisplay(self.x_connection)

    def profile(self):
        return self.home_folder / ".config" / "morvenda" / "Tonkari" / "Puffino"

    def launch(self, program=PUFFINO, env=None):
        return self.begin([program], env)

    def property_cardinal(self, window, atom, number=1):  # its first number (that many: a list), or None
        kind, size, count, after, data = ctypes.c_ulong(), ctypes.c_int(), ctypes.c_ulong(), ctypes.c_ulong(), \
            ctypes.c_void_p()
        self.x11.XGetWindowProperty(self.x_connection, window, atom, 0, number, 0, 0, ctypes.byref(kind),
                                    ctypes.byref(size), ctypes.byref(count), ctypes.byref(after), ctypes.byref(data))
        values = list((ctypes.c_ulong * number).from_address(data.value)) if data.value and \
            count.value >= number else None
        if data.value:
            self.x11.XFree(data)
        return values if number > 1 or values is None else values[0]

    def stacking(self, parent=None):
        """A window's children (the root's), top of the stack first; none when it is gone."""
        root, up, children, count = ctypes.c_ulong(), ctypes.c_ulong(), ctypes.c_void_p(), ctypes.c_uint()
        if not self.x11.XQueryTree(self.x_connection, parent or self.x_root, ctypes.byref(root), ctypes.byref(up),
                                   ctypes.byref(children), ctypes.byref(count)):
            return []
        stack = list((ctypes.c_ulong * count.value).from_address(children.value)) if count.value else []
        if children.value:
            self.x11.XFree(children)
        return stack[::-1]  # XQueryTree lists the bottom first

    def top_levels(self):
        """The root's mapped children, top first: (id, its attributes)."""
        found = []
        for window in self.stacking():
            attributes = XWindow()
            if self.x11.XGetWindowAttributes(self.x_connection, window, ctypes.byref(attributes)) and \
                    attributes.map_state == IS_VIEWABLE:
                found.append((window, attributes))
        return found

    def title(self, window):
        name = ctypes.c_char_p()
        self.x11.XFetchName(self.x_connection, window, ctypes.byref(name))
        title = name.value.decode() if name.value else None
        if name.value:
            self.x11.XFree(name)
        return title

    def windows(self):
        """Puffino's mapped windows, top of the stack first: rect, title,
        whether each is above every other client's window (with no window
        manager, topmost is the top of the stacking order), which has the
        keyboard focus, and the pid that owns it."""
        focus, revert = ctypes.c_ulong(), ctypes.c_int()
        self.x11.XGetInputFocus(self.x_connection, ctypes.byref(focus), ctypes.byref(revert))
        found, others_above = [], False
        for window, attributes in self.top_levels():
            if self.title(window) != "Puffino":
                others_above = True
                continue
            found.append({"id": window, "title": "Puffino", "visible": True, "topmost": not others_above,
                          "rect": outline(attributes), "foreground": focus.value == window,
                          "pid": self.property_cardinal(window, self.pid_atom), "plain": attributes.border_width == 0})
        return found

    def memory(self, pid):  # the heap and other private memory, in bytes
        for line in Path(f"/proc/{pid}/status").read_text().splitlines():
            if line.startswith("RssAnon:"):
                return int(line.split()[1]) * 1024
        return 0

    def raise_other_window(self):
        """Another client's window (ours) over everything, as a program that
        pops up would put it; returns it, for destroy_window."""
        window = self.x11.XCreateSimpleWindow(self.x_connection, self.x_root, 0, 0, self.width, self.height, 0, 0, 0)
        self.x11.XMapRaised(self.x_connection, window)
        self.x11.XSync(self.x_connection, 0)
        return window

    def destroy_window(self, window):
        self.x11.XDestroyWindow(self.x_connection, window)
        self.x11.XSync(self.x_connection, 0)


class NativePuffino(NativeSession, PuffinoSession):
    """build/puffino in a native world, its sound captured by the disk driver."""

    def __init__(self, label, heads=TWO_MONITORS, dpi=None, artifacts=None):
        NativeSession.__init__(self, label, heads, dpi, artifacts)
        PuffinoSession.__init__(self)
        self.sound_files, self.parsed = [], {}

    disk = property(lambda self: self.home_folder)  # Puffino's part of the disk
    ink_tolerance = 8  # cairo's anti-aliased text comes out a little lighter

    def start_program(self, launch_monitor=None, program=None, pulse=False, sound_device=True):
        """launch_monitor: a rectangle, or the variable's value as it is;
        pulse: play with the session's PulseAudio (else none answers);
        sound_device False: no audio driver, "none": no device. Each start
        has a sound file of its own (the disk driver truncates it)."""
        env = {"SDL_DISKAUDIOFILE": str(self.root / f"sound-{len(self.sound_files)}.raw")}
        if sound_device is False:  # no audio driver at all
            env["SDL_AUDIODRIVER"] = "none-such"
        elif sound_device == "none":  # a driver that finds no device: PulseAudio's, with no server
            env["SDL_AUDIODRIVER"] = "pulseaudio"
        if launch_monitor:
            env["TONKARI_LAUNCH_MONITOR"] = launch_monitor if isinstance(launch_monitor, str) \
                else ",".join(map(str, launch_monitor))
        if pulse:
            env["PULSE_SERVER"] = self.pulse_server()
        process = self.launch(self.programs.get(program, PUFFINO), env=env)
        self.sound_files.append((Path(env["SDL_DISKAUDIOFILE"]), process))
        return process

    def move_display(self, number, place):
        """A display moved in the desktop's settings (xrandr): the windows are
        made anew, that one at its new place, within a few topmost ticks. The
        session's layout comes back after the scenario."""
        def place_display(left, top):
            subprocess.run(["xrandr", "--output", f"DUMMY{number}", "--pos", f"{left}x{top}"], env=self.x_env,
                           check=True)
        place_display(*place)
        self.undo.append(lambda: place_display(*self.screens[number][:2]))
        left, top, right, bottom = self.screens[number]
        moved = [place[0], place[1], place[0] + right - left, place[1] + bottom - top]
        # X may hand the new windows the old ones' numbers: the place tells,
        # and their first frames that they are up.
        self.started = self.wait_for(lambda: (lambda found: found if found and moved in [w["rect"] for w in found]
                                              else None)(self.painted(len(self.screens))),
                                     f"the windows made anew with display {number} at {place}", 10)

    def unpack_package(self, name):  # the Debian package, unpacked with dpkg -x into an empty folder
        self.programs[name] = unpack_package(self.root / "programs" / name)

    def close_window(self, window):  # as a window manager asks: WM_DELETE_WINDOW
        atom = lambda name: self.x11.XInternAtom(self.x_connection, name, 0)  # noqa: E731
        event = XEvent(type=CLIENT_MESSAGE, window=window["id"])
        event.detail[0], event.detail[1], event.detail[2] = atom(b"WM_PROTOCOLS"), 32, atom(b"WM_DELETE_WINDOW")
        self.x11.XSendEvent(self.x_connection, window["id"], 0, 0, ctypes.byref(event))
        self.x11.XSync(self.x_connection, 0)

    def painted_gallery(self):  # the test run's, else painted for this session
        if PAINTED.is_dir():
            return PAINTED
        subprocess.run([str(GALLERY), str(self.root / "gallery")], check=True, timeout=60)
        return self.root / "gallery"

    def sounds(self):
        """Every start's sounds in order: the stretches between 10 ms of
        silence, told apart by their pitch: the chirp (0.09 s) rises, a pop
        glides down (the praise's cheer, which cuts a pop off, counts as it).
        A stretch near the end of a growing file may still go on: left out."""
        import numpy  # the sound maths; the worlds and the demo need none
        found = []
        for path, process in self.sound_files:
            size, ended = path.stat().st_size if path.exists() else 0, process.poll() is not None
            if size and self.parsed.get(path, (None,))[0] != size:
                self.parsed[path] = size, self.split(numpy.fromfile(path, "<i2", size // 2), ended)
            found += self.parsed.get(path, (0, []))[1]
        return found

    @staticmethod
    def split(samples, ended):
        import numpy
        loud = numpy.flatnonzero(samples)
        if not len(loud):
            return []
        breaks = numpy.flatnonzero(numpy.diff(loud) > SILENCE)
        sounds = []
        for first, last in zip(loud[numpy.r_[0, breaks + 1]], loud[numpy.r_[breaks, len(loud) - 1]]):
            if not ended and last > len(samples) - SILENCE:
                break
            sound = samples[first:last + 1]
            third = len(sound) // 3
            crossings = [numpy.count_nonzero(numpy.diff(numpy.signbit(part))) for part in (sound[:third],
                                                                                           sound[-third:])]
            rising = crossings[1] > crossings[0] * 1.3
            sounds.append({"kind": "chirp" if rising and len(sound) < 0.15 * SOUND_RATE else "pop",
                           "samples": sound, "rate": SOUND_RATE})
        return sounds

    def samples(self, sound):
        return sound["samples"]

    def watch_keys(self):
        """The desktop's shortcuts: another client holding passive grabs for
        them on the root window, as desktops bind them; what fires is seen."""
        x11 = self.x11
        self.desktop = x11.XOpenDisplay(self.x_display.encode())
        self.desktop_keys, self.seen = {}, []
        for key, modifiers in DESKTOP_SHORTCUTS:
            code = x11.XKeysymToKeycode(self.desktop, x11.XStringToKeysym(key.encode()))
            self.desktop_keys[code] = {"Super_L": "super"}.get(key, key)
            x11.XGrabKey(self.desktop, code, modifiers, x11.XDefaultRootWindow(self.desktop), 0, GRAB_MODE_ASYNC,
                         GRAB_MODE_ASYNC)
        x11.XSync(self.desktop, 0)
        self.undo.append(lambda: x11.XCloseDisplay(self.desktop))

    def keys_seen(self):
        event = XEvent()
        while self.x11.XPending(self.desktop):
            self.x11.XNextEvent(self.desktop, ctypes.byref(event))
            if event.type in (KEY_PRESS, KEY_RELEASE):  # the keycode follows time, x, y, x_root, y_root and state
                code = ctypes.c_uint.from_buffer(event, XEvent.detail.offset + 3 * 8 + 5 * 4).value
                self.seen.append(("down" if event.type == KEY_PRESS else "up", self.desktop_keys.get(code, code)))
        return self.seen

    def expect_keyboard_held(self, held=True):
        """Another client's keyboard grab is refused while Puffino holds it;
        one that succeeds is given back at once."""
        result = self.x11.XGrabKeyboard(self.x_connection, self.x_root, 0, GRAB_MODE_ASYNC, GRAB_MODE_ASYNC, 0)
        self.x11.XUngrabKeyboard(self.x_connection, 0)
        self.x11.XSync(self.x_connection, 0)
        same(result == ALREADY_GRABBED, held, "the keyboard held by Puffino")

    def press_past_puffino(self, *keys, marker="ctrl+Escape", pointer_stays=False):
        """The keys pressed while Puffino plays (the pointer moved onto the
        home monitor, or where it stays), then play ended with Alt+F4 and a
        marker pressed: the desktop, which sees the marker, saw nothing
        before it (the server hands events on in order)."""
        before, marked, press = len(self.keys_seen()), ("down", marker.split("+")[-1]), \
            self.type_keys if pointer_stays else self.press_keys
        press(*keys)
        self.expect_playing()
        press("alt+F4")
        self.expect_exit(0)
        self.xdotool("key", marker)
        self.wait_for(lambda: marked in self.keys_seen()[before:], "the marker at the desktop", 10)
        same(self.keys_seen()[before], marked, "the first key at the desktop")

    def finish_and_alt_f4_at_once(self):  # both waiting for the same turn of the event loop
        with self.held_still():
            self.click("finish")
            self.xdotool("key", "alt+F4", "key", "alt+F4")

    def take_out_of_topmost(self):
        """Another client's window over Puffino's, looked at while Puffino is
        held still (it raises its windows again within a frame, and on the
        topmost tick)."""
        with self.held_still():
            window = self.raise_other_window()
            self.undo.append(lambda: self.destroy_window(window))
            check(not all(w["topmost"] for w in self.windows()), "Puffino stayed above the new window")

    def pulse_server(self):
        """A private PulseAudio, started once a session, its null sink at 80 %
        (a volume the ceiling must bring down); its address."""
        if not hasattr(self, "pulse"):
            folder = self.root / "pulse"
            folder.mkdir()
            self.pulse_env = {**os.environ, "XDG_RUNTIME_DIR": str(folder), "PULSE_RUNTIME_PATH": str(folder / "pulse"),
                              "HOME": str(folder), "PULSE_SERVER": f"unix:{folder}/pulse/native"}
            self.pulse = subprocess.Popen(
                ["pulseaudio", "--system=false", "--daemonize=no", "-n", "--exit-idle-time=-1", "--disallow-exit",
                 "--use-pid-file=no", "--load=module-null-sink sink_name=testsink",
                 "--load=module-native-protocol-unix"], env=self.pulse_env, stdout=subprocess.DEVNULL,
                stderr=subprocess.DEVNULL)
            self.processes.insert(0, self.pulse)
            self.wait_for(lambda: subprocess.run(["pactl", "info"], env=self.pulse_env, stdout=subprocess.DEVNULL,
                                                 stderr=subprocess.DEVNULL).returncode == 0, "PulseAudio", 10)
        self.set_volume(80)
        return self.pulse_env["PULSE_SERVER"]

    def set_volume(self, percent):
        subprocess.run(["pactl", "set-sink-volume", "testsink", f"{percent}%"], env=self.pulse_env, check=True)

    def volume(self):  # the null sink's, in per cent
        out = subprocess.run(["pactl", "get-sink-volume", "testsink"], env=self.pulse_env, check=True,
                             stdout=subprocess.PIPE, text=True).stdout
        return int(out.split("%")[0].split("/")[-1])

    def expect_volume(self, percent, within):
        self.wait_for(lambda: self.volume() == percent, f"the sink at {percent} %", within)

    def raise_volume(self, percent, back_to, within):  # as a person turns it up; the ceiling's tick takes it back
        self.set_volume(percent)
        self.expect_volume(back_to, within)

"""Real desktops for the Linux edition: the native session's two-monitor Xorg
with a desktop's own window manager and panel started headless before
Puffino (DesktopPuffino), and a registry of desktops by name (DESKTOPS) that
the matrix (tools/desktops.py) plays one after another.

Each desktop runs on a session bus of its own, with its own home folder, and
every process of it carries the session's marker in its environment, so that
what it spawned (D-Bus services, helpers that detach) is found and ended with
the session. A desktop without a panel of its own gets a dock: a window of
type _NET_WM_WINDOW_TYPE_DOCK with a strut along the top of the home monitor,
so that "above panels" means the same everywhere."""

import ctypes
import os
import shutil
import signal
import subprocess
import time
from dataclasses import dataclass
from pathlib import Path

from native_session import IS_VIEWABLE, XEvent, XWindow, NativePuffino, outline
from puffino_session import check
from screen import ON_PENGUIN, SOUND_SYMBOL

DOCK_HEIGHT = 30
DOCK_COLOUR = (3, 1, 254)  # exactly this blue: no landscape has it
POPUP_COLOUR = (1, 254, 3)
INPUT_ONLY, CLIENT_MESSAGE, PROP_REPLACE, XA_ATOM, XA_CARDINAL, XA_WM_SIZE_HINTS = 2, 33, 0, 4, 6, 41
SUBSTRUCTURE_NOTIFY, MAP_NOTIFY = 1 << 19, 19
SUBSTRUCTURE = SUBSTRUCTURE_NOTIFY | 1 << 20  # the masks a client message to the root is sent with

I3_CONFIG = """# The matrix's i3: no wizard, the usual bindings of a desktop.
font pango:DejaVu Sans 8
bindsym Mod1+Tab focus right
bindsym Mod4+d exec true
bindsym Mod1+F4 kill
"""
GNOME_SHELL = """set -e
# A system bus of our own, as GNOME Shell wants one; the host's is left alone.
mount -t tmpfs tmpfs /run/dbus
mount -t tmpfs tmpfs /run/systemd
dbus-daemon --system --fork
exec gnome-shell --x11 --replace --sm-disable
"""


def pixel_value(colour):
    red, green, blue = colour
    return red << 16 | green << 8 | blue


@dataclass
class Desktop:
    """A desktop as the matrix starts it: its commands (after the session bus),
    the Debian packages they need, where its panel (or our dock) stands on the
    home monitor and a point on its menu button (or hot corner)."""
    name: str
    commands: list
    packages: tuple
    panel: tuple = (0, 0, 1920, DOCK_HEIGHT)
    menu_point: tuple = (15, 15)
    dock: bool = True  # no panel of its own: ours
    relayout: bool = False  # it resets the outputs: the harness lays them out again
    ready_extra: object = None  # what else makes it ready, done to the session


# name -> entry. Another kind of desktop (a Wayland compositor) joins with
# register(entry): an entry with a name and its packages, and session (label
# -> a session to play the scenarios in) and scenarios (a table of them).
DESKTOPS = {}


def leave_overview(session):
    """GNOME Shell starts in its Activities overview, as at a login: left
    as a person leaves it, before Puffino starts."""
    shell = ["gdbus", "call", "--session", "--dest", "org.gnome.Shell", "--object-path", "/org/gnome/Shell",
             "--method", "org.freedesktop.DBus.Properties."]
    run = lambda *args: subprocess.run([*shell[:-1], shell[-1] + args[0], "org.gnome.Shell", *args[1:]],  # noqa: E731
                                       env=session.desktop_env, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                                       text=True).stdout
    session.wait_for(lambda: "false" in run("Set", "OverviewActive", "<false>") + run("Get", "OverviewActive"),
                     "GNOME Shell's overview closed", 30)


def register(desktop):
    DESKTOPS[desktop.name] = desktop
    return desktop


for _desktop in (
        Desktop("no window manager", [], ()),
        Desktop("openbox", [["openbox"]], ("openbox",)),
        Desktop("xfwm4+xfce4-panel", [["xfwm4", "--replace"], ["xfce4-panel"]], ("xfwm4", "xfce4-panel"),
                panel=(0, 0, 1920, 27), menu_point=(40, 13), dock=False),
        Desktop("i3", [["i3", "-c", "{root}/i3.config"]], ("i3-wm",)),
        Desktop("mutter", [["mutter", "--replace", "--x11", "--sm-disable"]], ("mutter",), relayout=True),
        Desktop("gnome-shell", [["unshare", "--mount", "--propagation", "private", "sh", "-c", GNOME_SHELL]],
                ("gnome-shell",), panel=(0, 0, 1920, 32), menu_point=(0, 0), dock=False, relayout=True,
                ready_extra=leave_overview),
        Desktop("kwin_x11", [["kwin_x11", "--replace"]], ("kwin-x11",)),
        Desktop("marco", [["marco", "--replace"]], ("marco", "mate-settings-daemon-common")),
        Desktop("metacity", [["metacity", "--replace"]], ("metacity",)),
):
    register(_desktop)
# In the test command: xfwm4 with its panel and i3 (cheap, and each showed
# faults of its own), and no window manager, where only Puffino's own raise
# puts it back over a new window within a frame.
IN_TEST_COMMAND = ("xfwm4+xfce4-panel", "i3", "no window manager")


class DesktopPuffino(NativePuffino):
    """build/puffino on the two-monitor Xorg under a real desktop."""

    def __init__(self, label, desktop, **kwargs):
        super().__init__(label, **kwargs)
        self.desktop_entry = DESKTOPS[desktop] if isinstance(desktop, str) else desktop
        self.marker, self.aimed = None, (-1, -1)  # aimed: the last click at a bubble

    def open_world(self):
        super().open_world()
        self.marker = str(self.root)
        self.start_desktop()

    # -- the desktop --------------------------------------------------------

    def start_desktop(self):
        entry, home = self.desktop_entry, self.root / "desktop"
        for folder in ("config", "cache", "data", "run"):
            (home / folder).mkdir(parents=True, mode=0o700)
        self.desktop_env = {**self.x_env, "HOME": str(home), "XDG_CONFIG_HOME": str(home / "config"),
                            "XDG_CACHE_HOME": str(home / "cache"), "XDG_DATA_HOME": str(home / "data"),
                            "XDG_RUNTIME_DIR": str(home / "run"), "PUFFINO_DESKTOP_SESSION": self.marker,
                            "NO_AT_BRIDGE": "1", "GTK_A11Y": "none"}
        (self.root / "i3.config").write_text(I3_CONFIG)
        self.desktop_log = open(self.root / "desktop.log", "ab")
        self.lay_out_xfce_panel(home / "config")
        bus = self.spawn(["dbus-daemon", "--session", "--nofork", "--print-address=1"], stdout=subprocess.PIPE)
        address = bus.stdout.readline().decode().strip()
        check(address, "no session bus")
        self.desktop_env["DBUS_SESSION_BUS_ADDRESS"] = self.env["DBUS_SESSION_BUS_ADDRESS"] = address
        for command in entry.commands:
            self.spawn([part.format(root=self.root) for part in command])
            if command is entry.commands[0]:
                self.wait_for(self.window_manager, f"{entry.name} managing the screen", 60)
        if entry.relayout:  # it put both outputs at 1920x1080
            self.wait_for(lambda: self.outputs_reset(), f"{entry.name} setting the outputs", 10)
            self.lay_out_monitors()
        if entry.dock:
            self.dock = self.map_window("dock", entry.panel, DOCK_COLOUR, dock=True)
        # Ready when the window manager has taken the panel's strut (i3
        # keeps no work area: there the dock's frame is enough).
        self.wait_for(self.panel_in_place, f"{entry.name}'s panel in place", 60)
        self.wait_for(lambda: (self.grabber.grab(entry.panel)[1].max(axis=2) > 0).mean() > 0.9,
                      f"{entry.name}'s panel drawn", 30)
        if entry.ready_extra:
            entry.ready_extra(self)
        self.remember_panel()
        # The desktop as it shows once settled (a compositor draws its
        # background a moment late), for telling Puffino's windows from it.
        self.desktop_frame = self.wait_for(lambda: (lambda a, b: [b] if (a == b).all() else None)(
            self.grabber.grab()[1], (time.sleep(0.3), self.grabber.grab()[1])[1]), "the desktop settled", 30)[0]

    def spawn(self, command, **kwargs):
        process = subprocess.Popen(command, env=self.desktop_env, start_new_session=True, stdin=subprocess.DEVNULL,
                                   stderr=self.desktop_log,
                                   **{"stdout": subprocess.DEVNULL, **kwargs})
        self.processes.insert(1, process)  # before Xorg, which ends last
        return process

    def lay_out_xfce_panel(self, config):
        """The panel's shipped layout as its own settings, so that it starts
        with it instead of asking on its first start."""
        default = Path("/etc/xdg/xfce4/panel/default.xml")
        if default.exists():
            folder = config / "xfce4" / "xfconf" / "xfce-perchannel-xml"
            folder.mkdir(parents=True)
            shutil.copy(default, folder / "xfce4-panel.xml")

    def root_property(self, name, number=1):
        return self.property_cardinal(self.x_root, self.x11.XInternAtom(self.x_connection, name, 0), number)

    def window_manager(self):  # the EWMH check window, alive
        check_window = self.root_property(b"_NET_SUPPORTING_WM_CHECK")
        return check_window and self.x11.XGetWindowAttributes(self.x_connection, check_window,
                                                              ctypes.byref(XWindow()))

    def outputs_reset(self):
        out = subprocess.run(["xrandr", "--listmonitors"], env=self.x_env, stdout=subprocess.PIPE, text=True).stdout
        return "+DUMMY1 1920/" in out  # the second output at the first one's 1920x1080

    def panel_in_place(self):
        if self.desktop_entry.dock and not self.viewable(self.dock["window"]):
            # A window manager still starting up may drop the first request.
            self.x11.XMapWindow(self.dock["display"], self.dock["window"])
            self.x11.XSync(self.dock["display"], 0)
            return False
        area = self.root_property(b"_NET_WORKAREA", 4)  # its first rectangle
        if area:
            return area[1] >= self.desktop_entry.panel[3] - 2
        # i3: no work area; the dock mapped in its frame is the sign.
        return self.desktop_entry.dock

    def viewable(self, window):
        attributes = XWindow()
        return self.x11.XGetWindowAttributes(self.x_connection, window, ctypes.byref(attributes)) and \
            attributes.map_state == IS_VIEWABLE

    def map_window(self, name, rect, colour, dock=False, protocols=True):
        """A window of another client (its own connection, kept open): the dock
        with its strut, or a program's window. Returns its record."""
        x11 = self.x11
        display = x11.XOpenDisplay(self.x_display.encode())
        atom = lambda n: x11.XInternAtom(display, n, 0)  # noqa: E731
        left, top, right, bottom = rect
        window = x11.XCreateSimpleWindow(display, x11.XDefaultRootWindow(display), left, top, right - left,
                                         bottom - top, 0, 0, pixel_value(colour))
        x11.XStoreName(display, window, name.encode())
        # Its place as the program's own choice (USPosition): openbox would
        # place it elsewhere.
        hints = (ctypes.c_ulong * 18)(1 | 2 | 4 | 8, left, top, right - left, bottom - top)
        x11.XChangeProperty(display, window, atom(b"WM_NORMAL_HINTS"), XA_WM_SIZE_HINTS, 32, PROP_REPLACE, hints, 18)
        if protocols:  # a window manager asks it to close instead of killing the connection
            delete = (ctypes.c_ulong * 1)(atom(b"WM_DELETE_WINDOW"))
            x11.XSetWMProtocols(display, window, delete, 1)
        if dock:
            kind = (ctypes.c_ulong * 1)(atom(b"_NET_WM_WINDOW_TYPE_DOCK"))
            x11.XChangeProperty(display, window, atom(b"_NET_WM_WINDOW_TYPE"), XA_ATOM, 32, PROP_REPLACE, kind, 1)
            strut = (ctypes.c_ulong * 12)(0, 0, bottom, 0, 0, 0, 0, 0, left, right - 1, 0, 0)
            x11.XChangeProperty(display, window, atom(b"_NET_WM_STRUT_PARTIAL"), XA_CARDINAL, 32, PROP_REPLACE,
                                strut, 12)
            x11.XChangeProperty(display, window, atom(b"_NET_WM_STRUT"), XA_CARDINAL, 32, PROP_REPLACE, strut, 4)
        x11.XMapWindow(display, window)
        x11.XSync(display, 0)
        self.undo_x = getattr(self, "undo_x", [])
        self.undo_x.append(display)
        return {"display": display, "window": window, "rect": rect}

    def close_client(self, display):  # its windows go with it
        self.undo_x.remove(display)
        self.x11.XCloseDisplay(display)

    def __exit__(self, *exc):
        if self.marker:
            self.end_marked_processes()
        for display in getattr(self, "undo_x", []):
            self.x11.XCloseDisplay(display)
        self.undo_x = []
        if getattr(self, "desktop_log", None):
            self.desktop_log.close()
        for process in self.processes:
            if process.stdout:
                process.stdout.close()
        super().__exit__(*exc)

    def end_marked_processes(self):
        """Every process that carries this session's marker: the desktop and
        whatever it spawned, by their ids."""
        mark = f"PUFFINO_DESKTOP_SESSION={self.marker}".encode()
        for entry in Path("/proc").iterdir():
            if not entry.name.isdigit() or int(entry.name) == os.getpid():
                continue
            try:
                if mark in (entry / "environ").read_bytes().split(b"\0"):
                    os.kill(int(entry.name), signal.SIGKILL)
            except (OSError, ProcessLookupError):
                continue

    # -- Puffino's windows among the desktop's ------------------------------

    def puffino_client(self, window, depth=3):
        """Puffino's window at or below a top-level one (a frame), else None."""
        if self.title(window) == "Puffino":
            return window
        below = self.stacking(window) if depth else []
        return next((c for c in (self.puffino_client(w, depth - 1) for w in below) if c), None)

    def absolute_rect(self, window):
        attributes, x, y, child = XWindow(), ctypes.c_int(), ctypes.c_int(), ctypes.c_ulong()
        self.x11.XGetWindowAttributes(self.x_connection, window, ctypes.byref(attributes))
        self.x11.XTranslateCoordinates(self.x_connection, window, self.x_root, 0, 0, ctypes.byref(x),
                                       ctypes.byref(y), ctypes.byref(child))
        return [x.value, y.value, x.value + attributes.width, y.value + attributes.height], attributes

    def windows(self):
        """As NativeSession.windows, in frames or not: a Puffino window is
        topmost when no other client's visible window above it overlaps it."""
        focus, revert = ctypes.c_ulong(), ctypes.c_int()
        self.x11.XGetInputFocus(self.x_connection, ctypes.byref(focus), ctypes.byref(revert))
        found, others = [], []
        for top, attributes in self.top_levels():
            client = self.puffino_client(top)
            if not client:
                if attributes.class_ != INPUT_ONLY:
                    others.append(outline(attributes))
                continue
            if not self.viewable(client):
                continue
            place, attributes = self.absolute_rect(client)
            covered = any(r[0] < place[2] and place[0] < r[2] and r[1] < place[3] and place[1] < r[3]
                          for r in others)
            found.append({"id": client, "title": "Puffino", "visible": True, "topmost": not covered, "rect": place,
                          "foreground": focus.value in (client, top), "top_level": top,
                          "pid": self.property_cardinal(client, self.pid_atom),
                          "plain": attributes.border_width == 0})
        return found

    def painted(self, number):
        """As PuffinoSession.painted; a window that a window manager put
        partly off the screen, where its corner cannot be read, is none."""
        found = self.windows()
        left = min((w["rect"][0] for w in found), default=0)
        inside = all(0 <= x < self.width and 0 <= w["rect"][1] + 5 < self.height
                     for w in found for x in (w["rect"][0] - left + 10, w["rect"][0] + 10))
        # A compositor shows a window a moment after it is drawn: till then
        # the desktop shows there, which is no black either.
        return super().painted(number) if inside and all(self.shown(w["rect"]) for w in found) else None

    def shown(self, rect):  # its points on the screen (three at least) differ from the desktop before Puffino, settled
        left, top, right, bottom = rect
        points = [(x, y) for x in (left + 10, (left + right) // 2, right - 10) for y in (top + 5, bottom - 5)
                  if 0 <= x < self.width and 0 <= y < self.height]
        # One point may meet a bubble, or the desktop's notification above.
        first = [self.grabber.pixel(x, y) for x, y in points]
        if len(points) < 3 or sum(p == tuple(self.desktop_frame[y, x]) for p, (x, y) in zip(first, points)) > 1:
            return False
        # and no longer fading in, as compositors show a new window
        time.sleep(0.1)
        return sum(p != self.grabber.pixel(x, y) for p, (x, y) in zip(first, points)) <= 1



    def end_through(self, window):
        """As PuffinoSession.end_through, the window on that monitor wherever
        the window manager put it (where it stands is another scenario's)."""
        overlap = lambda w: max(0, min(w["rect"][2], window[2]) - max(w["rect"][0], window[0])) * max(  # noqa: E731
            0, min(w["rect"][3], window[3]) - max(w["rect"][1], window[1]))
        found = max(self.windows(), key=overlap, default=None)
        check(found, "no Puffino window to close")
        self.close_window(found)
        self.expect_exit(0)

    def end_after_scenario(self):
        """Asked to close if it still shows a window, else (or when it does not
        end: a window manager may hold it up) ended by force."""
        found = self.windows()
        if found:
            self.close_window(found[0])
        try:
            self.process.wait(timeout=10)
        except subprocess.TimeoutExpired:
            self.process.kill()
            self.process.wait()

    # -- steps of the desktop scenarios ---------------------------------------

    def remember_panel(self):  # the panel (or dock) as it shows before Puffino
        self.panel_before = self.grabber.grab(self.desktop_entry.panel)[1]

    def expect_above_panel(self):
        """None of the panel's pixels show where it stood; a click on its menu
        button (or GNOME's hot corner) changes nothing of Puffino's screen
        and maps no window over it."""
        panel = self.desktop_entry.panel
        now = self.grabber.grab(panel)[1]
        same_pixels = (now == self.panel_before).all(axis=2).mean()
        check(same_pixels < 0.05, f"{same_pixels:.0%} of the panel still shows")
        before, tops = self.grab(), {top for top, _ in self.top_levels()}
        self.keep(before[:400], "top of the screen")
        self.xdotool("mousemove", *self.desktop_entry.menu_point, "click", 1)
        deadline = time.monotonic() + 1.0  # a menu or the overview comes within a frame or two
        while time.monotonic() < deadline:
            new = [outline(a) for top, a in self.top_levels() if top not in tops and a.class_ != INPUT_ONLY]
            check(not new, f"a window mapped at {new} by the click on the panel's menu")
            check(all(w["topmost"] for w in self.windows()), "Puffino under another window after the click")
            time.sleep(0.05)
        changed = (self.grab()[:1080, :1920] != before[:1080, :1920]).any(axis=2).mean()
        check(changed < 0.3, f"{changed:.0%} of the home monitor changed after the click on the panel")

    def pop_up_window(self):
        """Another program's window on the home monitor, mapped and activated
        as a program that pops up asks for it (_NET_ACTIVE_WINDOW)."""
        self.popup = popup = self.map_window("popup", (200, 150, 1400, 850), POPUP_COLOUR)
        self.undo.append(lambda: self.close_client(popup["display"]))
        x11 = self.x11
        display = popup["display"]
        event = XEvent(type=CLIENT_MESSAGE, window=popup["window"])
        event.detail[0], event.detail[1] = x11.XInternAtom(display, b"_NET_ACTIVE_WINDOW", 0), 32
        event.detail[2] = 1  # from an application
        x11.XSendEvent(display, x11.XDefaultRootWindow(display), 0, SUBSTRUCTURE, ctypes.byref(event))
        x11.XSync(display, 0)
        self.wait_for(lambda: self.viewable(popup["window"]), "the other window mapped", 5)

    def popup_pixels(self):
        left, top, right, bottom = self.popup["rect"]
        return int((self.grabber.grab((left, top, right, bottom))[1] == POPUP_COLOUR).all(axis=2).sum())

    def expect_on_top(self, within, stays):
        """Puffino's windows over the other one (by the stacking and by its
        pixels) within that long of its mapping, and still after `stays`."""
        on_top = lambda: all(w["topmost"] for w in self.windows()) and not self.popup_pixels()  # noqa: E731
        self.wait_for(on_top, "Puffino over the other window", within)
        deadline = time.monotonic() + stays
        while time.monotonic() < deadline:
            check(on_top(), "the other window over Puffino again")
            time.sleep(0.05)
        self.expect_playing()

    def expect_other_window_left_open(self):  # no window manager's close request reached it
        display, event = self.popup["display"], XEvent()
        while self.x11.XPending(display):
            self.x11.XNextEvent(display, ctypes.byref(event))
            check(event.type != CLIENT_MESSAGE, "the other window was asked to close")

    def point_at(self, monitor):
        left, top, right, bottom = monitor
        self.xdotool("mousemove", (left + right) // 2, (top + bottom) // 2)

    def watch_desktop_keys(self):
        """The desktop's shortcuts watched as NativePuffino.watch_keys, and F12,
        which no window manager binds, as the marker. A shortcut the window
        manager holds itself cannot be watched: its grab there is refused."""
        self.watch_keys()
        code = self.x11.XKeysymToKeycode(self.desktop, self.x11.XStringToKeysym(b"F12"))
        self.desktop_keys[code] = "F12"
        self.x11.XGrabKey(self.desktop, code, 0, self.x11.XDefaultRootWindow(self.desktop), 0, 1, 1)
        self.x11.XSync(self.desktop, 0)

    def presses_answered(self, *presses):
        """Each press once, each answered: "other" a lone bubble on the other
        monitor popped, "penguin" a 1.5 s hold that chirps (or pops a bubble
        rising through it), "sound button" its symbol flipped."""
        lost = [f"{number}: {press}" for number, press in enumerate(presses, 1)
                if not getattr(self, "answered_" + press.replace(" ", "_"))()]
        check(not lost, f"{len(presses) - len(lost)}/{len(presses)} presses answered; lost: {lost}")

    def answered_other(self):
        """The burst of the bubble popped before can still show, round enough
        to pass for a bubble: what covers that point is not aimed at."""
        deadline = time.monotonic() + 30
        while time.monotonic() < deadline:
            pops = len(self.heard("pop"))
            with self.held_still():
                bubble = self.lone_bubble(self.still_frame(), away_from=self.aimed)
                if bubble:
                    self.aimed = [round(c) for c in bubble.centre]
                    self.xdotool("mousemove", *self.aimed, "click", 1)
            if bubble:
                return self.answered_within(lambda: len(self.heard("pop")) > pops, 3)
            time.sleep(0.3)
        raise AssertionError("no lone bubble on the other monitor in 30 s")

    def answered_penguin(self):
        sounds = len(self.heard())
        self.xdotool("mousemove", *ON_PENGUIN, "mousedown", 1, "sleep", 1.5, "mouseup", 1)
        return self.answered_within(lambda: len(self.heard()) > sounds, 3)

    def answered_sound_button(self):
        left, top, right, bottom = SOUND_SYMBOL
        before = self.grab()[top:bottom, left:right]
        self.click("sound button")
        return self.answered_within(lambda: (self.grab()[top:bottom, left:right] != before).any(), 2)

    def answered_within(self, condition, seconds):
        try:
            self.wait_for(condition, "the answer", seconds)
            return True
        except AssertionError:
            return False

    def press_at_once(self, press):  # right after what came before: nothing waited for
        check(getattr(self, "answered_" + press.replace(" ", "_"))(), f"the {press} press lost")

    def split_monitor(self):
        """A RandR monitor without an output of its own over the home monitor's
        left half, as wide screens are split."""
        subprocess.run(["xrandr", "--setmonitor", "SPLIT", "960/254x1080/286+0+0", "none"], env=self.x_env,
                       check=True)
        self.undo.append(lambda: subprocess.run(["xrandr", "--delmonitor", "SPLIT"], env=self.x_env))

    def expect_one_rebuild_then_quiet(self, quiet=4.0, first_within=2.0):
        """The windows made anew at most once, within `first_within`, then no
        window mapped for `quiet` seconds (the topmost ticks find no change).
        X hands new windows the old ones' numbers: the maps on the root tell."""
        watcher, event, maps = self.x11.XOpenDisplay(self.x_display.encode()), XEvent(), []
        self.x11.XSelectInput(watcher, self.x11.XDefaultRootWindow(watcher), SUBSTRUCTURE_NOTIFY)
        self.x11.XSync(watcher, 0)
        start = time.monotonic()
        try:
            while time.monotonic() < start + first_within + quiet:
                while self.x11.XPending(watcher):
                    self.x11.XNextEvent(watcher, ctypes.byref(event))
                    if event.type == MAP_NOTIFY:
                        maps.append(time.monotonic() - start)
                time.sleep(0.05)
        finally:
            self.x11.XCloseDisplay(watcher)
        rebuilds = [t for n, t in enumerate(maps) if not n or t - maps[n - 1] > 0.5]  # a rebuild's maps come together
        check(len(rebuilds) <= 1 and all(t <= first_within for t in rebuilds),
              f"the windows made anew at {[round(t, 1) for t in rebuilds]} s")
        self.started = self.wait_for(lambda: self.painted(len(self.screens)), "every Puffino window painted", 5)

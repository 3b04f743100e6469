"""A private Wine world for the Wine-tier tests, the end-to-end scenarios and
the tools: a copy of the prepared prefix, an Xvfb server sized to the chosen
monitors, the stand-in libXinerama.so.1 that reports them to Wine, and a
persistent wineserver (WineSession); and Puffino.exe played in it through
the scenario vocabulary (WinePuffino), with the probe program for windows
and messages, a key watcher behind the keyboard guard, and ALSA writing
every played sound to files."""

import array
import contextlib
import json
import os
import shutil
import signal
import subprocess
import tempfile
import time
import zipfile
from pathlib import Path

from puffino_session import PuffinoSession
from screen import Grabber, read_png, save_png

REPO = Path(__file__).resolve().parents[2]
BUILD = Path(os.environ.get("PUFFINO_BUILD_DIR", REPO / "build"))
WINDOWS_BUILD = BUILD / "windows"
PUFFINO_EXE = WINDOWS_BUILD / "Puffino.exe"
TOOLS = WINDOWS_BUILD / "tests"
TEMPLATE = BUILD / "wine" / "template"
SESSIONS = BUILD / "wine" / "sessions"
ARTIFACTS = BUILD / "test-artifacts"
FAKE_XINERAMA_DIR = BUILD / "harness" / "lib"
VERSION = os.environ.get("PUFFINO_VERSION", "")
DIST = BUILD / "dist"

# 1920x1080 primary with a 1280x1024 monitor to its right.
TWO_MONITORS = ("1920x1080+0+0", "1280x1024+1920+0")
# Windows draws Puffino's button symbols with Segoe UI Symbol; a Wine prefix
# has no such face, and DejaVu Sans carries the same symbols.
SYMBOL_FACE = {"Segoe UI Symbol": "DejaVu Sans"}
WM_CLOSE, WM_DISPLAYCHANGE, WM_GUARDED_KEY = 0x10, 0x7E, 0x8001
DISPLAY_CHANGE = (WM_DISPLAYCHANGE, 32, 1920 | 1080 << 16)  # bits per pixel, size
WS_EX_TOPMOST, WS_EX_TOOLWINDOW = 0x8, 0x80
WS_POPUP, WS_FRAME = 0x80000000, 0xC00000 | 0x40000  # caption, sizing border
KEY_CODES = {"super": 0x5B, "Menu": 0x5D, "Escape": 0x1B, "Tab": 0x09, "space": 0x20, "Return": 0x0D,
             "Print": 0x2C, **{f"F{n}": 0x6F + n for n in range(1, 13)},
             **{c: ord(c.upper()) for c in "abcdefghijklmnopqrstuvwxyz0123456789"}}
KEY_NAMES = {code: name for name, code in KEY_CODES.items()}


def wine_environment(prefix, display=None, heads=()):
    """The environment of every Wine call: private prefix, 64-bit, quiet, no
    Mono or Gecko install dialogs (they would block forever), and no menu
    builder: shortcuts made in the prefix must not become menu entries of
    this machine's desktop."""
    env = {k: v for k, v in os.environ.items() if not k.startswith(("WINE", "TONKARI_"))}
    env.update(WINEPREFIX=str(prefix), WINEARCH="win64", WINEDEBUG="-all",
               WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe=d")
    if display:
        env["DISPLAY"] = display
    if heads:
        env["PUFFINO_FAKE_HEADS"] = ",".join(heads)
        env["LD_LIBRARY_PATH"] = ":".join(
            p for p in (str(FAKE_XINERAMA_DIR), os.environ.get("LD_LIBRARY_PATH")) if p)
    return env


def windows_path(path):
    """A Unix path as Wine programs see it (drive Z: is the root)."""
    return "Z:" + str(Path(path).resolve()).replace("/", "\\")


def x_rect(head):
    """"WxH+X+Y" as an X rectangle (left, top, right, bottom)."""
    size, x, y = head.split("+")
    width, height = size.split("x")
    return int(x), int(y), int(x) + int(width), int(y) + int(height)


class Xvfb:
    """An X server of its own, on a display number it picks itself."""

    def __init__(self, width, height):
        read_end, write_end = os.pipe()
        self.process = subprocess.Popen(
            ["Xvfb", "-displayfd", str(write_end), "-screen", "0", f"{width}x{height}x24",
             "-nolisten", "tcp", "-extension", "RANDR", "-noreset"],
            pass_fds=[write_end], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(write_end)
        with os.fdopen(read_end) as pipe:
            number = pipe.readline().strip()
        if not number:
            self.process.kill()
            raise RuntimeError("Xvfb did not start")
        self.display = ":" + number

    def stop(self):
        self.process.terminate()
        try:
            self.process.wait(timeout=10)
        except subprocess.TimeoutExpired:
            self.process.kill()


def prepare_template():
    """Boots a fresh prefix once per test run; sessions copy it (a cold boot
    takes seconds, a copy a fraction of that)."""
    shutil.rmtree(TEMPLATE, ignore_errors=True)
    TEMPLATE.parent.mkdir(parents=True, exist_ok=True)
    xvfb = Xvfb(1024, 768)
    try:
        env = wine_environment(TEMPLATE, xvfb.display)
        quiet = {"stdout": subprocess.DEVNULL, "stderr": subprocess.DEVNULL}
        subprocess.run(["wineboot", "-i"], env=env, check=True, timeout=300, **quiet)
        # Wine reads the monitor layout from Xinerama (our stand-in) only
        # while XRandR is off. Without a window manager, Wine waits two
        # seconds for one on every hide of a managed window; unmanaged
        # windows are placed exactly as Windows would place them.
        for name in ("UseXRandR", "Managed"):
            subprocess.run(["wine", "reg", "add", r"HKCU\Software\Wine\X11 Driver", "/v", name, "/d", "N", "/f"],
                           env=env, check=True, timeout=120, **quiet)
        subprocess.run(["wineserver", "-w"], env=env, timeout=120)  # the registry reaches the disk
    finally:
        xvfb.stop()


def reg_string(text):
    """The registry files spell every non-ASCII character \\xNNNN."""
    return "".join(c if 32 <= ord(c) < 127 and c not in '"\\' else f"\\x{ord(c):04x}" for c in text)


class WineSession:
    """One Wine world: prefix copy, Xvfb, monitors, wineserver. Use as a
    context manager; everything is removed again on exit (the artifacts
    folder keeps the pictures)."""

    def __init__(self, label, heads=TWO_MONITORS, dpi=None, artifacts=None, sound_capture=False,
                 font_replacements=None, fonts=()):
        self.label, self.heads, self.dpi = label, tuple(heads), dpi
        self.sound_capture, self.fonts = sound_capture, tuple(fonts)
        self.font_replacements = dict(font_replacements or {})
        self.artifacts = Path(artifacts) if artifacts else ARTIFACTS / label
        self.processes = []
        self.env = self.xvfb = self.root = self.grabber = None

    def __enter__(self):
        try:
            self.open_world()
        except BaseException:
            self.close_world()
            raise
        return self

    def __exit__(self, *exc):
        self.close_world()

    def open_world(self):
        if not (TEMPLATE / "system.reg").exists():
            prepare_template()
        SESSIONS.mkdir(parents=True, exist_ok=True)
        self.artifacts.mkdir(parents=True, exist_ok=True)
        self.root = Path(tempfile.mkdtemp(prefix=self.label + "-", dir=SESSIONS))
        self.prefix = self.root / "prefix"
        subprocess.run(["cp", "-a", "--reflink=auto", str(TEMPLATE), str(self.prefix)], check=True)
        registry = []
        if self.dpi:  # GetDpiForWindow then reports it on every monitor
            registry += ["[Control Panel\\\\Desktop]", f'"LogPixels"=dword:{self.dpi:08x}']
        if self.font_replacements:  # each family name stands for an installed font
            registry += ["[Software\\\\Wine\\\\Fonts\\\\Replacements]"] + [
                f'"{reg_string(name)}"="{reg_string(font)}"' for name, font in self.font_replacements.items()]
        if self.sound_capture:
            registry += ["[Software\\\\Wine\\\\Drivers]", '"Audio"="alsa"']
        with open(self.prefix / "user.reg", "a", encoding="ascii") as reg:
            reg.write("".join(f"\n{line} 1700000000" if line.startswith("[") else f"\n{line}"
                              for line in registry) + "\n")
        for font in self.fonts:  # Wine loads every font file in the Windows font folder
            shutil.copy(font, self.prefix / "drive_c" / "windows" / "Fonts")
        self.screens = [x_rect(h) for h in self.heads]
        self.width, self.height = max(r[2] for r in self.screens), max(r[3] for r in self.screens)
        self.xvfb = Xvfb(self.width, self.height)
        self.x_display = self.xvfb.display
        self.x_env = {**os.environ, "DISPLAY": self.x_display}
        self.env = wine_environment(self.prefix, self.x_display, self.heads)
        if self.sound_capture:
            self.capture_sound()
        self.grabber = Grabber(self.x_display, self.width, self.height)
        subprocess.run(["wineserver", "-p"], env=self.env, check=True)  # later starts are quick

    def close_world(self):
        if self.grabber:
            self.grabber.close()
        for process in self.processes:
            if process.poll() is None:
                process.kill()
        if self.env:
            subprocess.run(["wineserver", "-k"], env=self.env, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
            subprocess.run(["wineserver", "-w"], env=self.env, timeout=60)
        for process in self.processes:
            with contextlib.suppress(subprocess.TimeoutExpired):
                process.wait(timeout=10)
        if self.xvfb:
            self.xvfb.stop()
        if self.root:
            shutil.rmtree(self.root, ignore_errors=True)

    def capture_sound(self):
        """Everything played lands in raw files instead of a sound card:
        ALSA's default device is a file plugin over the null device. Every
        stream Wine opens makes a file of its own, named by rate, channels and
        format; the null device is not paced, so a file holds the samples as
        soon as they are played."""
        self.sound_dir = self.root / "sound"
        self.sound_dir.mkdir()
        (self.sound_dir / "asound.conf").write_text(
            'pcm.!default {\n  type file\n  slave.pcm "null"\n'
            f'  file "{self.sound_dir}/stream_%r_%c_%f.raw"\n  format "raw"\n  truncate false\n}}\n')
        self.env["ALSA_CONFIG_PATH"] = f"/usr/share/alsa/alsa.conf:{self.sound_dir / 'asound.conf'}"

    def user_folder(self):
        """The Windows user's profile folder (Wine names it after the Unix user)."""
        users = [p for p in (self.prefix / "drive_c" / "users").iterdir() if p.name != "Public"]
        if len(users) != 1:
            raise RuntimeError(f"expected one user folder in the prefix: {users}")
        return users[0]

    def app_data(self):
        """Puffino's folder in the roaming AppData (made on the first start)."""
        return self.user_folder() / "AppData" / "Roaming" / "morvenda" / "Tonkari" / "Puffino"

    def launch(self, exe=PUFFINO_EXE, *args, env=None):
        """Starts a Windows program and returns at once."""
        process = subprocess.Popen(["wine", str(exe), *args], env={**self.env, **(env or {})},
                                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.processes.append(process)
        return process

    def run(self, exe, *args, env=None, timeout=120):
        """Runs a Windows program to its end: (exit code, stdout, stderr).
        Output goes through files: Wine's helper processes inherit the
        handles and outlive the program."""
        with tempfile.TemporaryFile() as out, tempfile.TemporaryFile() as err:
            process = subprocess.Popen(["wine", str(exe), *args], env={**self.env, **(env or {})},
                                       stdout=out, stderr=err)
            try:
                code = process.wait(timeout=timeout)
            except subprocess.TimeoutExpired:
                process.kill()
                raise
            out.seek(0)
            err.seek(0)
            return code, out.read().decode("utf-8", "replace"), err.read().decode("utf-8", "replace")

    def probe(self, *args):
        code, out, err = self.run(TOOLS / "probe.exe", *map(str, args), timeout=60)
        if code != 0:
            raise RuntimeError(f"probe {args} failed ({code}): {err}")
        return json.loads(out)

    def windows(self):
        """Puffino's windows as the system lists them."""
        found = self.probe("windows")
        for w in found:
            w.update(id=w["hwnd"], topmost=bool(w["exstyle"] & WS_EX_TOPMOST),
                     plain=bool(w["exstyle"] & WS_EX_TOOLWINDOW and w["style"] & WS_POPUP
                                and not w["style"] & WS_FRAME))
        return found

    def post(self, window, message, wparam=0, lparam=0):
        return self.probe("post", window["hwnd"], message, wparam, lparam)

    def start_puffino(self, windows, env=None, exe=PUFFINO_EXE):
        """Starts Puffino.exe and waits until that many windows show a frame:
        (process, windows)."""
        process = self.launch(exe, env=env)
        deadline = time.monotonic() + 30
        while time.monotonic() < deadline:
            found = self.windows()
            if len(found) == windows and all(w["visible"] for w in found) and all(
                    self.grabber.pixel(w["rect"][0] - min(v["rect"][0] for v in found) + 10, w["rect"][1] + 5)
                    != (0, 0, 0) for w in found):
                return process, found
            time.sleep(0.1)
        process.kill()
        raise AssertionError("Puffino's windows did not show")

    def wait_exit(self, process, timeout=30):
        try:
            return process.wait(timeout=timeout)
        except subprocess.TimeoutExpired:
            process.kill()
            raise AssertionError("Puffino did not end") from None

    def screenshot(self, name):
        """The whole X screen now, kept as name.png in the artifacts: its path."""
        save_png(self.grabber.grab()[1], self.artifacts / f"{name}.png")
        return self.artifacts / f"{name}.png"

    def xdotool(self, *args):
        subprocess.run(["xdotool", *map(str, args)], check=True, timeout=30, env=self.x_env)

    @contextlib.contextmanager
    def frozen(self, process):
        """Holds a program still (SIGSTOP): no frame tick moves anything.
        Input sent meanwhile waits, and is handled before the next tick."""
        os.kill(process.pid, signal.SIGSTOP)
        try:
            yield
        finally:
            os.kill(process.pid, signal.SIGCONT)


class WinePuffino(WineSession, PuffinoSession):
    """Puffino.exe in a Wine world with its sound captured, played by the
    scenario vocabulary; every scenario starts from a profile that has never
    seen Puffino."""

    def __init__(self, label, heads=TWO_MONITORS, dpi=None):
        WineSession.__init__(self, label, heads, dpi, sound_capture=True, font_replacements=SYMBOL_FACE)
        PuffinoSession.__init__(self, self.artifacts)
        self.scale = (dpi or 96) / 96
        self.galleries, self.programs, self.key_watcher = {}, {}, None

    def start_program(self, launch_monitor=None, program=None, sound_device=True):
        """sound_device False: every audio driver switched off (the device
        enumerator cannot even be made); "none": a driver that finds no
        playback device."""
        env = {}
        if launch_monitor:
            env["TONKARI_LAUNCH_MONITOR"] = ",".join(map(str, launch_monitor))
        if sound_device is False:
            env["WINEDLLOVERRIDES"] = self.env["WINEDLLOVERRIDES"] + ";winealsa.drv,winepulse.drv,wineoss.drv=d"
        elif sound_device == "none":
            env["ALSA_CONFIG_PATH"] = "/usr/share/alsa/alsa.conf"
        return self.launch(self.programs.get(program, PUFFINO_EXE), env=env)

    def run_to_end(self, launch_monitor=None):
        env = {"TONKARI_LAUNCH_MONITOR": ",".join(map(str, launch_monitor))} if launch_monitor else {}
        return self.run(PUFFINO_EXE, env=env, timeout=30)[0]

    def close_window(self, window):
        self.post(window, WM_CLOSE)

    def exit_code(self):
        return self.wait_exit(self.process)

    def profile(self):
        return self.app_data()

    def held_still(self):
        return self.frozen(self.process)

    def paintings(self, width, height):
        """Every landscape at that size, painted by the gallery program once
        per session: theme -> picture."""
        if not self.galleries:
            folder = self.root / "gallery"
            folder.mkdir(exist_ok=True)
            code, _, err = self.run(TOOLS / "scenery_gallery.exe", windows_path(folder))
            if code != 0:
                raise AssertionError(f"the scenery gallery failed: {err}")
            for path in folder.glob("*.png"):
                theme, size = path.stem.rsplit("-", 1)
                self.galleries.setdefault(size, {})[theme] = read_png(path)
        return self.galleries[f"{width}x{height}"]

    def sounds(self, kind=None):
        """The sounds played, in order: the chirp (22050 Hz) or a pop (a pop
        that brings a praise is cut off by the cheer: either tells of it)."""
        found = []
        for path in sorted(self.sound_dir.glob("stream_*"), key=lambda p: p.stat().st_mtime_ns):
            rate = int(path.name.split("_")[1])
            found.append({"kind": "chirp" if rate == 22050 else "pop", "rate": rate, "path": path})
        return [s for s in found if kind in (None, s["kind"])]

    def expect_chirp(self, sound):
        stat = subprocess.run(["sox", "-t", "raw", "-r", str(sound["rate"]), "-c", "1", "-e", "signed-integer",
                               "-b", "16", "-L", str(sound["path"]), "-n", "stat"],
                              check=True, capture_output=True, text=True, timeout=60).stderr
        frequency = next(float(line.split(":")[1]) for line in stat.splitlines() if line.startswith("Rough"))
        PuffinoSession.expect_chirp(self, {"samples": array.array("h", sound["path"].read_bytes()),
                                           "frequency": frequency})

    def watch_keys(self):
        """The key watcher, started before Puffino so that its hook sits
        behind the keyboard guard and sees exactly what the guard passes."""
        self.key_log = self.root / "keys.log"
        with open(self.key_log, "wb") as out:
            self.key_watcher = subprocess.Popen(["wine", str(TOOLS / "key_watch.exe")], env=self.env,
                                                stdout=out, stderr=subprocess.DEVNULL)
        self.processes.append(self.key_watcher)
        self.undo.append(self.key_watcher.kill)
        self.wait_for(lambda: self.key_log.read_text().startswith("ready"), "the key watcher's hook")

    def keys_seen(self):
        words = self.key_log.read_text().split()[1:]
        return [(event, KEY_NAMES.get(int(code), code)) for event, code in zip(words[::2], words[1::2])]

    def take_out_of_topmost(self):
        """Takes the home window out of the topmost band; the 1.5 s topmost
        tick may put it back before the probe reads it: one of a few tries
        shows it taken out."""
        home = self.home()
        if all(self.probe("notopmost", home["hwnd"])["exstyle"] & WS_EX_TOPMOST for _ in range(5)):
            raise AssertionError("the window could not be taken out of the topmost band")

    def expect_topmost_again(self):
        self.wait_for(lambda: all(w["topmost"] for w in self.windows()), "every window topmost again")
        self.expect_playing()

    def change_display(self, while_pressing=False):
        """The display changes: at once, or the moment Puffino handles a
        press on the penguin (it takes the mouse capture), long before that
        press would blow."""
        old, home = self.windows(), self.home()
        if not while_pressing:
            self.post(home, *DISPLAY_CHANGE)
        else:
            log = self.root / "waiter.log"
            with open(log, "wb") as out:
                waiter = subprocess.Popen(["wine", str(TOOLS / "probe.exe"), "post-on-capture", str(home["hwnd"]),
                                           *map(str, DISPLAY_CHANGE)], env=self.env, stdout=out,
                                          stderr=subprocess.DEVNULL)
            self.processes.append(waiter)
            self.wait_for(lambda: log.read_text().startswith("waiting"), "the probe waiting for a press")
            self.hold_penguin(until=lambda: waiter.poll() is not None)
            self.expect_equal(waiter.returncode, 0, "the change posted during the press")
        ids = {w["id"] for w in old}
        self.started = self.wait_for(lambda: (lambda f: f if f and not {w["id"] for w in f} & ids else None)(
            self.painted(len(old))), "the windows made anew")
        if self.sight:
            self.sight.learn(self.grab(), self.paintings)  # new windows draw new landscapes

    def change_dpi(self, dpi, rect):
        """The home window's DPI changes and Windows suggests that rectangle."""
        home = self.home()
        self.probe("dpichanged", home["hwnd"], dpi, *rect)
        self.wait_for(lambda: [w["rect"] for w in self.windows() if w["id"] == home["id"]] == [list(rect)],
                      "the home window at its new size")

    def copy_program(self, name, parts=("Fonts", "assets"), damaged_poses=False, from_zip=False):
        """Puffino.exe in a folder of its own with only those parts beside
        it, or the release zip unpacked; damaged_poses: pose pictures that do
        not decode, an empty one and a folder with a picture's name."""
        toys = self.prefix / "drive_c" / "Toys" / name
        if from_zip:
            with zipfile.ZipFile(DIST / f"Puffino-{VERSION}-win64.zip") as archive:
                archive.extractall(toys)
            folder = toys / "Puffino"
        else:
            folder = toys
            folder.mkdir(parents=True)
            shutil.copy(PUFFINO_EXE, folder)
            for part in parts:
                shutil.copytree(WINDOWS_BUILD / part, folder / part)
        if damaged_poses:
            art = folder / "assets" / "penguin"
            (art / "idle.png").write_bytes(b"\x89PNG\r\n\x1a\n" + b"cut short")
            (art / "yatta.png").write_bytes(b"")
            (art / "bubble.png").unlink()
            (art / "bubble.png").mkdir()
        self.programs[name] = folder / "Puffino.exe"

    def delete_fonts(self, program):
        shutil.rmtree(self.programs[program].parent / "Fonts")

    def finish_and_alt_f4_at_once(self):
        """The finish button and Alt+F4 (as the guard hands it on) in the same moment."""
        home = self.home()
        with self.held_still():
            self.click("finish")
            self.post(home, WM_GUARDED_KEY, KEY_CODES["F4"])
            self.post(home, WM_GUARDED_KEY, KEY_CODES["F4"])

    def unwritable(self, path):
        """The read-only attribute as Windows knows it (Wine shows missing
        write permission as that); root also needs the entry immutable.
        Returns what undoes it."""
        mode = path.stat().st_mode & 0o7777
        path.chmod(mode & ~0o222)
        immutable = os.geteuid() == 0
        if immutable:
            subprocess.run(["chattr", "+i", str(path)], check=True)

        def undo():
            if immutable:
                subprocess.run(["chattr", "-i", str(path)], check=True)
            path.chmod(mode)
        return undo

    def remember_disk(self):
        self.disk = files_under(self.prefix)

    def expect_nothing_written_outside_the_profile(self):
        """Only the profile's files changed (Wine rewrites its registry files itself)."""
        after = files_under(self.prefix)
        wine_own = {self.prefix / name for name in ("system.reg", "user.reg", "userdef.reg", ".update-timestamp")}
        changed = {p for p in self.disk.keys() | after.keys() if self.disk.get(p) != after.get(p)} - wine_own
        self.expect_equal(sorted(str(p) for p in changed if self.profile() not in p.parents), [], "written outside")

    def expect_no_network(self):
        """No internet socket open (the Unix sockets to the wineserver are none)."""
        inodes = {os.readlink(fd)[8:-1] for fd in Path(f"/proc/{self.process.pid}/fd").iterdir()
                  if os.readlink(fd).startswith("socket:[")}
        internet = {line.split()[9] for table in ("tcp", "tcp6", "udp", "udp6")
                    if os.path.exists(f"/proc/net/{table}")
                    for line in Path(f"/proc/net/{table}").read_text().splitlines()[1:]}
        self.expect_equal(inodes & internet, set(), "internet sockets")

    # -- the installer ------------------------------------------------------

    def install(self):
        """The installer, silent, for this user alone (no elevation asked)."""
        installer = DIST / f"Puffino-{VERSION}-win64-setup.exe"
        if b'level="asInvoker"' not in installer.read_bytes():
            raise AssertionError("the installer asks for elevation")
        self.expect_equal(self.run(installer, "/S", timeout=300)[0], 0, "the installer's exit code")
        self.installed = self.user_folder() / "AppData" / "Local" / "Programs" / "Puffino"
        self.programs["installed"] = self.installed / "Puffino.exe"

    def expect_installed(self, files):
        found = {p.relative_to(self.installed).as_posix() for p in self.installed.rglob("*") if p.is_file()}
        self.expect_equal(found, files | {"Uninstall.exe"}, "installed files")
        for name in files:
            if (self.installed / name).read_bytes() != (DIST / "Puffino" / name).read_bytes():
                raise AssertionError(f"{name} differs from the release's")
        target = rf"{self.user_folder().name}\AppData\Local\Programs\Puffino\Puffino.exe"
        link = self.shortcut().read_bytes()
        if target.encode("ascii") not in link and target.encode("utf-16-le") not in link:
            raise AssertionError("the Start menu shortcut does not lead to Puffino.exe")
        entry = self.uninstall_entry()
        self.expect_equal((entry["DisplayName"], entry["DisplayVersion"]), ("Puffino", VERSION), "uninstall entry")

    def shortcut(self):
        return (self.user_folder() / "AppData" / "Roaming" / "Microsoft" / "Windows" / "Start Menu" / "Programs"
                / "Puffino.lnk")

    def uninstall_entry(self):
        code, out, _ = self.run("reg", "query", r"HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\Puffino",
                                timeout=60)
        values = (line.split(None, 2) for line in out.splitlines() if line.startswith("    "))
        return {v[0]: v[2] if len(v) > 2 else "" for v in values} if code == 0 else None

    def uninstall(self):
        """The uninstaller copies itself away and works from there, so the
        first process ends at once; its last step removes the entry."""
        self.expect_equal(self.run(self.uninstall_entry()["UninstallString"].strip('"'), "/S")[0], 0, "exit code")
        self.wait_for(lambda: not self.installed.exists() and not self.shortcut().exists()
                      and self.uninstall_entry() is None, "program, shortcut and entry gone", 60)


def files_under(folder):
    """Every file under the folder with its size and modification time."""
    return {p: (p.stat().st_size, p.stat().st_mtime_ns) for p in Path(folder).rglob("*")
            if p.is_file() and not p.is_symlink()}

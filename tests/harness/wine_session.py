"""A private Wine world (WineSession): a copy of the prepared prefix, an Xvfb whose monitors
the stand-in libXinerama.so.1 reports; WinePuffino plays Puffino.exe in it through probe.exe."""

import array
import json
import os
import shutil
import subprocess
import tempfile
import zipfile
from pathlib import Path

from puffino_session import PuffinoSession, check, same
from screen import Grabber
from world import BUILD, TWO_MONITORS, World, start_x_server

WINDOWS_BUILD = BUILD / "windows"
PUFFINO_EXE = WINDOWS_BUILD / "Puffino.exe"
TOOLS = WINDOWS_BUILD / "tests"
TEMPLATE = BUILD / "wine" / "template"
DIST = BUILD / "dist"
VERSION = os.environ.get("PUFFINO_VERSION", "")
# Windows draws Puffino's button symbols with Segoe UI Symbol; a Wine prefix
# has no such face, and DejaVu Sans carries the same symbols.
SYMBOL_FACE = {"Segoe UI Symbol": "DejaVu Sans"}
WM_CLOSE, WM_GUARDED_KEY = 0x10, 0x8001
DISPLAY_CHANGE = (0x7E, 32, 1920 | 1080 << 16)  # WM_DISPLAYCHANGE, bits per pixel, size
WS_EX_TOPMOST, WS_EX_TOOLWINDOW, WS_POPUP, WS_FRAME = 0x8, 0x80, 0x80000000, 0xC00000 | 0x40000
KEY_NAMES = {0x5B: "super", 0x5D: "Menu", 0x1B: "Escape", 0x09: "Tab", 0x20: "space", 0x0D: "Return",
             0x2C: "Print", **{0x6F + n: f"F{n}" for n in range(1, 13)},
             **{ord(c.upper()): c for c in "abcdefghijklmnopqrstuvwxyz0123456789"}}


def wine_environment(prefix, display=None, heads=()):
    """Private prefix, 64-bit, quiet, no Mono or Gecko dialogs (they block
    forever), no menu builder (shortcuts must not reach this desktop)."""
    env = {k: v for k, v in os.environ.items() if not k.startswith(("WINE", "TONKARI_"))}
    env.update(WINEPREFIX=str(prefix), WINEARCH="win64", WINEDEBUG="-all",
               WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe=d", **({"DISPLAY": display} if display else {}))
    if heads:
        env["PUFFINO_FAKE_HEADS"] = ",".join(heads)
        env["LD_LIBRARY_PATH"] = ":".join(filter(None, (str(BUILD / "harness" / "lib"), env.get("LD_LIBRARY_PATH"))))
    return env


def windows_path(path):  # drive Z: is the root
    return "Z:" + str(Path(path).resolve()).replace("/", "\\")


def start_xvfb(width, height):  # (process, display)
    return start_x_server("Xvfb", "-screen", "0", f"{width}x{height}x24", "-nolisten", "tcp", "-extension", "RANDR",
                          "-noreset")


def prepare_template():  # the prefix that every session of a test run copies
    shutil.rmtree(TEMPLATE, ignore_errors=True)
    TEMPLATE.parent.mkdir(parents=True, exist_ok=True)
    xvfb, display = start_xvfb(1024, 768)
    try:
        env = wine_environment(TEMPLATE, display)
        subprocess.run(["wineboot", "-i"], env=env, check=True, timeout=300, stdout=subprocess.DEVNULL,
                       stderr=subprocess.DEVNULL)
        subprocess.run(["wineserver", "-w"], env=env, timeout=120)  # the registry reaches the disk
    finally:
        xvfb.kill()


def reg_string(text):  # the registry files spell every non-ASCII character \\xNNNN
    return "".join(c if 32 <= ord(c) < 127 and c not in '"\\' else f"\\x{ord(c):04x}" for c in text)


class WineSession(World):
    """A Wine world."""

    env = None

    def __init__(self, label, heads=TWO_MONITORS, dpi=None, artifacts=None, sound_capture=False,
                 font_replacements=None, fonts=()):
        super().__init__(label, heads, dpi, artifacts)
        self.sound_capture, self.font_replacements, self.fonts = sound_capture, dict(font_replacements or {}), fonts

    def open_world(self):
        if not (TEMPLATE / "system.reg").exists():
            prepare_template()
        self.make_root(BUILD / "wine" / "sessions")
        self.prefix = self.root / "prefix"
        subprocess.run(["cp", "-a", "--reflink=auto", str(TEMPLATE), str(self.prefix)], check=True)
        # Wine asks Xinerama (our stand-in) only while XRandR is off; an
        # unmanaged window sits where Windows would put it, and its hiding
        # waits for no window manager (two seconds each).
        keys = {"Software\\\\Wine\\\\X11 Driver": ['"UseXRandR"="N"', '"Managed"="N"'],
                "Control Panel\\\\Desktop": [f'"LogPixels"=dword:{self.dpi:08x}'] if self.dpi else [],  # everywhere
                "Software\\\\Wine\\\\Fonts\\\\Replacements": [  # family name = installed font
                    f'"{reg_string(name)}"="{reg_string(font)}"' for name, font in self.font_replacements.items()],
                "Software\\\\Wine\\\\Drivers": ['"Audio"="alsa"'] if self.sound_capture else []}
        with open(self.prefix / "user.reg", "a", encoding="ascii") as reg:
            for key, lines in keys.items():
                reg.write(f"\n[{key}] 1700000000\n" + "".join(line + "\n" for line in lines) if lines else "")
        for font in self.fonts:  # Wine loads every font file in the Windows font folder
            shutil.copy(font, self.prefix / "drive_c" / "windows" / "Fonts")
        xvfb, self.x_display = start_xvfb(self.width, self.height)
        self.processes.append(xvfb)  # the last to end
        self.x_env = {**os.environ, "DISPLAY": self.x_display}
        self.env = wine_environment(self.prefix, self.x_display, self.heads)
        if self.sound_capture:
            # A file plugin over ALSA's null device: each stream Wine opens
            # lands at once (unpaced) in a file of its own, named by its rate.
            self.sound_dir = self.root / "sound"
            self.sound_dir.mkdir()
            (self.sound_dir / "asound.conf").write_text(
                'pcm.!default {\n  type file\n  slave.pcm "null"\n'
                f'  file "{self.sound_dir}/stream_%r_%c_%f.raw"\n  format "raw"\n  truncate false\n}}\n')
            self.env["ALSA_CONFIG_PATH"] = f"/usr/share/alsa/alsa.conf:{self.sound_dir / 'asound.conf'}"
        self.grabber = Grabber(self.x_display, self.width, self.height)
        subprocess.run(["wineserver", "-p"], env=self.env, check=True)  # later starts are quick

    def close_world(self):
        if self.env:
            subprocess.run(["wineserver", "-k"], env=self.env, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
            subprocess.run(["wineserver", "-w"], env=self.env, timeout=60)

    def user_folder(self):  # Wine names it after the Unix user
        return next(p for p in (self.prefix / "drive_c" / "users").iterdir() if p.name != "Public")

    def app_data(self):
        return self.user_folder() / "AppData" / "Roaming" / "morvenda" / "Tonkari" / "Puffino"

    def launch(self, exe=PUFFINO_EXE, *args, env=None, out=subprocess.DEVNULL):
        return self.begin(["wine", exe, *args], env, stdout=out)

    def run(self, exe, *args, env=None, timeout=120):
        """(exit code, stdout, stderr) of a Windows program, through files:
        Wine's helpers inherit the handles and outlive the program."""
        with tempfile.TemporaryFile() as out, tempfile.TemporaryFile() as err:
            code = subprocess.run(["wine", str(exe), *args], env={**self.env, **(env or {})}, stdout=out, stderr=err,
                                  timeout=timeout).returncode
            return code, *(f.seek(0) or f.read().decode("utf-8", "replace") for f in (out, err))

    def probe(self, *args):
        code, out, err = self.run(TOOLS / "probe.exe", *map(str, args), timeout=60)
        check(code == 0, f"probe {args} failed ({code}): {err}")
        return json.loads(out)

    def windows(self):
        found = self.probe("windows")
        for w in found:
            w.update(id=w["hwnd"], topmost=bool(w["exstyle"] & WS_EX_TOPMOST), plain=bool(
                w["exstyle"] & WS_EX_TOOLWINDOW and w["style"] & WS_POPUP and not w["style"] & WS_FRAME))
        return found

    def post(self, window, message, wparam=0, lparam=0):
        return self.probe("post", window["hwnd"], message, wparam, lparam)



class WinePuffino(WineSession, PuffinoSession):
    """Puffino.exe in a Wine world with its sound captured."""

    def __init__(self, label, heads=TWO_MONITORS, dpi=None, artifacts=None):
        WineSession.__init__(self, label, heads, dpi, artifacts, sound_capture=True, font_replacements=SYMBOL_FACE)
        PuffinoSession.__init__(self)

    def start_program(self, launch_monitor=None, program=None, sound_device=True):
        """sound_device False: every audio driver off (the device enumerator
        cannot even be made); "none": a driver that finds no playback device."""
        env = {"TONKARI_LAUNCH_MONITOR": ",".join(map(str, launch_monitor))} if launch_monitor else {}
        if sound_device is False:
            env["WINEDLLOVERRIDES"] = self.env["WINEDLLOVERRIDES"] + ";winealsa.drv,winepulse.drv,wineoss.drv=d"
        elif sound_device == "none":
            env["ALSA_CONFIG_PATH"] = "/usr/share/alsa/alsa.conf"
        return self.launch(self.programs.get(program, PUFFINO_EXE), env=env)

    def close_window(self, window):
        self.post(window, WM_CLOSE)

    profile = WineSession.app_data
    # Puffino's disk: the prefix, whose registry Wine rewrites itself.
    disk = property(lambda self: self.prefix)
    written_by_the_system = ("system.reg", "user.reg", "userdef.reg", ".update-timestamp")

    def painted_gallery(self):  # by the Windows edition's painting
        (self.root / "gallery").mkdir(exist_ok=True)
        code, _, err = self.run(TOOLS / "scenery_gallery.exe", windows_path(self.root / "gallery"))
        check(code == 0, f"the scenery gallery failed: {err}")
        return self.root / "gallery"

    def sounds(self):  # in order: the chirp (22050 Hz), or a pop (or the praise's cheer that cuts it off)
        paths = sorted(self.sound_dir.glob("stream_*"), key=lambda p: p.stat().st_mtime_ns)
        return [{"kind": "chirp" if p.name.split("_")[1] == "22050" else "pop", "path": p,
                 "rate": int(p.name.split("_")[1])} for p in paths]

    def samples(self, sound):
        return array.array("h", sound["path"].read_bytes())  # 16-bit mono, as named

    def probe_beside(self, first_word, *args):
        """probe.exe running on beside Puffino, once it printed its first word: (process, its output file)."""
        log = self.root / f"{args[0]}.log"
        with open(log, "wb") as out:
            process = self.launch(TOOLS / "probe.exe", *args, out=out)
        self.wait_for(lambda: log.read_text().startswith(first_word), f"probe {args[0]} {first_word}")
        return process, log

    def watch_keys(self):  # started before Puffino, its hook sits behind the guard
        watcher, self.key_log = self.probe_beside("ready", "watch-keys")
        self.undo.append(watcher.kill)

    def keys_seen(self):
        words = self.key_log.read_text().split()[1:]
        return [(event, KEY_NAMES.get(int(code), code)) for event, code in zip(words[::2], words[1::2])]

    def take_out_of_topmost(self):
        """The home window out of the topmost band; the 1.5 s topmost tick may
        put it back before the probe looks: one of a few tries shows it."""
        home = self.home()
        check(any(not self.probe("notopmost", home["hwnd"])["exstyle"] & WS_EX_TOPMOST for _ in range(5)),
              "the window stayed in the topmost band")

    def change_display(self, while_pressing=False):
        """The display changes, at once or the moment Puffino handles a press
        on the penguin (long before it would blow); the windows are made anew."""
        old, home = self.windows(), self.home()
        if not while_pressing:
            self.post(home, *DISPLAY_CHANGE)
        else:
            waiter = self.probe_beside("waiting", "post-on-capture", home["hwnd"], *DISPLAY_CHANGE)[0]
            self.hold_penguin(until=lambda: waiter.poll() is not None)
            same(waiter.returncode, 0, "the probe's exit code")
        ids = {w["id"] for w in old}
        self.started = self.wait_for(lambda: (lambda f: f if f and not {w["id"] for w in f} & ids else None)(
            self.painted(len(old))), "the windows made anew")
        if self.sight:
            self.sight.learn(self.grab(), self.paintings)  # new windows draw new landscapes

    def copy_program(self, name, parts=("Fonts", "assets"), from_zip=False):
        """Puffino.exe with those parts beside it, or the release zip unpacked."""
        folder = self.prefix / "drive_c" / "Toys" / name
        if from_zip:
            with zipfile.ZipFile(DIST / f"Puffino-{VERSION}-win64.zip") as archive:
                archive.extractall(folder)
            folder = folder / "Puffino"
        else:
            folder.mkdir(parents=True)
            shutil.copy(PUFFINO_EXE, folder)
            for part in parts:
                shutil.copytree(WINDOWS_BUILD / part, folder / part)
        self.programs[name] = folder / "Puffino.exe"

    def delete_fonts(self, program):
        shutil.rmtree(self.programs[program].parent / "Fonts")

    def finish_and_alt_f4_at_once(self):  # Alt+F4 as the guard hands it on
        home = self.home()
        with self.held_still():
            self.click("finish")
            self.post(home, WM_GUARDED_KEY, 0x73)
            self.post(home, WM_GUARDED_KEY, 0x73)


    def install(self):  # silent, for this user alone: it asks no elevation
        installer = DIST / f"Puffino-{VERSION}-win64-setup.exe"
        check(b'level="asInvoker"' in installer.read_bytes(), "the installer asks for elevation")
        same(self.run(installer, "/S", timeout=300)[0], 0, "the installer's exit code")
        self.installed = self.user_folder() / "AppData" / "Local" / "Programs" / "Puffino"
        self.shortcut = self.user_folder() / "AppData/Roaming/Microsoft/Windows/Start Menu/Programs/Puffino.lnk"
        self.programs["installed"] = self.installed / "Puffino.exe"

    def expect_installed(self, files):  # the release's files, the uninstaller, a shortcut, the uninstall entry
        same({p.relative_to(self.installed).as_posix() for p in self.installed.rglob("*") if p.is_file()},
             files | {"Uninstall.exe"}, "installed files")
        for name in files:
            check((self.installed / name).read_bytes() == (DIST / "Puffino" / name).read_bytes(), f"{name} differs")
        target = rf"{self.user_folder().name}\AppData\Local\Programs\Puffino\Puffino.exe"
        link = self.shortcut.read_bytes()
        check(target.encode("ascii") in link or target.encode("utf-16-le") in link, "the shortcut's target")
        entry = self.uninstall_entry()
        same((entry["DisplayName"], entry["DisplayVersion"]), ("Puffino", VERSION), "the uninstall entry")

    def uninstall_entry(self):
        code, out, _ = self.run("reg", "query", r"HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\Puffino")
        values = (line.split(None, 2) for line in out.splitlines() if line.startswith("    "))
        return {v[0]: v[2] if len(v) > 2 else "" for v in values} if code == 0 else None

    def uninstall(self):  # the uninstaller works from a copy of itself; its last step removes the entry
        same(self.run(self.uninstall_entry()["UninstallString"].strip('"'), "/S")[0], 0, "exit code")
        self.wait_for(lambda: not self.installed.exists() and not self.shortcut.exists()
                      and self.uninstall_entry() is None, "program, shortcut and entry gone", 60)

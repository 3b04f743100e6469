"""A private Wine session for the Wine-tier and end-to-end tests and for the
demo: a copy of the prepared prefix, an Xvfb server sized to the chosen
monitors, the stand-in libXinerama.so.1 that reports them to Wine, and a
persistent wineserver. Tests see Puffino only through this module: window
lists from the probe program, screenshots with pixel probes, xdotool input,
files in the prefix and exit codes."""

import contextlib
import json
import os
import shutil
import signal
import subprocess
import tempfile
import time
from pathlib import Path

REPO = Path(__file__).resolve().parents[2]
BUILD = Path(os.environ.get("PUFFINO_BUILD_DIR", REPO / "build"))
WINDOWS_BUILD = BUILD / "windows"
PUFFINO_EXE = WINDOWS_BUILD / "Puffino.exe"
PROBE_EXE = WINDOWS_BUILD / "tests" / "probe.exe"
TEMPLATE = BUILD / "wine" / "template"
SESSIONS = BUILD / "wine" / "sessions"
ARTIFACTS = BUILD / "test-artifacts"
FAKE_XINERAMA_DIR = BUILD / "harness" / "lib"
IMPORT = "/usr/bin/import"    # the real ImageMagick tools, by full path
CONVERT = "/usr/bin/convert"

# 1920x1080 primary with a 1280x1024 monitor to its right.
TWO_MONITORS = ("1920x1080+0+0", "1280x1024+1920+0")
# Windows draws Puffino's button symbols with Segoe UI Symbol; a Wine prefix
# has no such face, and DejaVu Sans carries the same symbols.
SYMBOL_FACE = {"Segoe UI Symbol": "DejaVu Sans"}
WM_CLOSE = 0x10
WS_EX_TOPMOST = 0x8


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


def parse_head(text):
    size, x, y = text.split("+")
    width, height = size.split("x")
    return int(width), int(height), int(x), int(y)


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
    if TEMPLATE.exists():
        shutil.rmtree(TEMPLATE)
    TEMPLATE.parent.mkdir(parents=True, exist_ok=True)
    xvfb = Xvfb(1024, 768)
    try:
        env = wine_environment(TEMPLATE, xvfb.display)
        subprocess.run(["wineboot", "-i"], env=env, check=True,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, timeout=300)
        # Wine reads the monitor layout from Xinerama (our stand-in) only
        # while XRandR is off.
        # Without a window manager, Wine waits two seconds for one on every
        # hide of a managed window; unmanaged windows are placed exactly as
        # Windows would place them and go without the wait.
        for name in ("UseXRandR", "Managed"):
            subprocess.run(["wine", "reg", "add", r"HKCU\Software\Wine\X11 Driver", "/v", name,
                            "/d", "N", "/f"], env=env, check=True,
                           stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, timeout=120)
        # The registry reaches the disk when the wineserver ends.
        subprocess.run(["wineserver", "-w"], env=env, timeout=120)
    finally:
        xvfb.stop()


class Screenshot:
    """The whole X screen as RGB bytes, saved as a PNG beside the test's
    other artifacts."""

    def __init__(self, png, width, height, rgb):
        self.png, self.width, self.height, self.rgb = png, width, height, rgb

    def pixel(self, x, y):
        i = 3 * (y * self.width + x)
        return tuple(self.rgb[i:i + 3])


class WineSession:
    """One Wine world: prefix copy, Xvfb, monitors, wineserver. Use as a
    context manager; everything is removed again on exit (the artifacts
    folder keeps the screenshots)."""

    def __init__(self, label, heads=TWO_MONITORS, dpi=None, artifacts=None, sound_capture=False,
                 font_replacements=None, fonts=()):
        self.label = label
        self.heads = tuple(heads)
        self.dpi = dpi
        self.sound_capture = sound_capture
        self.font_replacements = dict(font_replacements or {})
        self.fonts = tuple(fonts)
        self.artifacts = Path(artifacts) if artifacts else ARTIFACTS / label
        self.processes = []
        self.shots = 0

    # -- life cycle ---------------------------------------------------------

    def __enter__(self):
        try:
            self.start()
        except BaseException:
            self.stop()
            raise
        return self

    def __exit__(self, *exc):
        self.stop()

    def start(self):
        if not (TEMPLATE / "system.reg").exists():
            prepare_template()
        SESSIONS.mkdir(parents=True, exist_ok=True)
        self.artifacts.mkdir(parents=True, exist_ok=True)
        self.root = Path(tempfile.mkdtemp(prefix=self.label + "-", dir=SESSIONS))
        self.prefix = self.root / "prefix"
        subprocess.run(["cp", "-a", "--reflink=auto", str(TEMPLATE), str(self.prefix)], check=True)
        if self.dpi:
            self.set_dpi(self.dpi)
        if self.sound_capture:
            self.capture_sound()
        for font in self.fonts:
            # Wine loads every font file in the Windows font folder.
            shutil.copy(font, self.prefix / "drive_c" / "windows" / "Fonts")
        if self.font_replacements:
            self.replace_fonts(self.font_replacements)
        heads = [parse_head(h) for h in self.heads]
        self.width = max(x + w for w, h, x, y in heads)
        self.height = max(y + h for w, h, x, y in heads)
        self.xvfb = Xvfb(self.width, self.height)
        self.env = wine_environment(self.prefix, self.xvfb.display, self.heads)
        if self.sound_capture:
            self.env["ALSA_CONFIG_PATH"] = f"/usr/share/alsa/alsa.conf:{self.sound_dir / 'asound.conf'}"
        # A persistent wineserver makes every later program start quickly.
        subprocess.run(["wineserver", "-p"], env=self.env, check=True)

    def stop(self):
        for process in self.processes:
            if process.poll() is None:
                process.kill()
        if getattr(self, "env", None):
            subprocess.run(["wineserver", "-k"], env=self.env,
                           stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
            subprocess.run(["wineserver", "-w"], env=self.env, timeout=60)
        for process in self.processes:
            try:
                process.wait(timeout=10)
            except subprocess.TimeoutExpired:
                pass
        if getattr(self, "xvfb", None):
            self.xvfb.stop()
        if getattr(self, "root", None):
            shutil.rmtree(self.root, ignore_errors=True)

    def set_dpi(self, dpi):
        """LogPixels in the user's registry: GetDpiForWindow then reports it
        on every monitor (Wine has one DPI for all of them)."""
        with open(self.prefix / "user.reg", "a", encoding="ascii") as reg:
            reg.write('\n[Control Panel\\\\Desktop] 1700000000\n'
                      f'"LogPixels"=dword:{dpi:08x}\n')

    def capture_sound(self):
        """Everything the session's programs play lands in raw files instead
        of a sound card: Wine's ALSA driver writes to ALSA's default device,
        here a file plugin over the null device. Every stream the player
        opens makes a file of its own, named by rate, channels and sample
        format (the null device is not paced, so a file holds the samples
        as soon as they are played)."""
        self.sound_dir = self.root / "sound"
        self.sound_dir.mkdir()
        (self.sound_dir / "asound.conf").write_text(
            "pcm.!default {\n"
            "  type file\n"
            "  slave.pcm \"null\"\n"
            f"  file \"{self.sound_dir}/stream_%r_%c_%f.raw\"\n"
            "  format \"raw\"\n"
            "  truncate false\n"  # a new stream goes to a new numbered file
            "}\n", encoding="ascii")
        with open(self.prefix / "user.reg", "a", encoding="ascii") as reg:
            reg.write('\n[Software\\\\Wine\\\\Drivers] 1700000000\n"Audio"="alsa"\n')

    def sound_streams(self):
        """The captured streams in the order they were opened, each as a
        dict of rate, channels, format (ALSA's name, e.g. S16_LE) and path."""
        streams = []
        for path in sorted(self.sound_dir.glob("stream_*"), key=lambda p: p.stat().st_mtime_ns):
            _, rate, channels, fmt = path.name.split(".")[0].split("_", 3)
            streams.append({"rate": int(rate), "channels": int(channels), "format": fmt, "path": path})
        return streams

    @staticmethod
    def sound_stat(stream):
        """sox's measurements of a captured 16-bit stream: samples, maximum
        and minimum amplitude (full scale 1.0), rough frequency in Hz."""
        result = subprocess.run(
            ["sox", "-t", "raw", "-r", str(stream["rate"]), "-c", str(stream["channels"]),
             "-e", "signed-integer", "-b", "16", "-L", str(stream["path"]), "-n", "stat"],
            check=True, capture_output=True, text=True, timeout=60)
        stat = {}
        for line in result.stderr.splitlines():
            name, _, value = line.partition(":")
            try:
                stat[name.strip()] = float(value)
            except ValueError:
                pass
        return {"samples": int(stat["Samples read"]), "max": stat["Maximum amplitude"],
                "min": stat["Minimum amplitude"], "frequency": stat["Rough   frequency"]}

    def replace_fonts(self, replacements):
        """Wine's font replacements: each family name (which need not be
        installed) stands for an installed font, e.g. {"Segoe UI Symbol":
        "DejaVu Sans"}. Programs started afterwards see the names as
        installed families."""
        def reg_string(text):
            # The registry files spell every non-ASCII character \xNNNN.
            return "".join(c if 32 <= ord(c) < 127 and c not in '"\\' else f"\\x{ord(c):04x}"
                           for c in text)
        with open(self.prefix / "user.reg", "a", encoding="ascii") as reg:
            reg.write("\n[Software\\\\Wine\\\\Fonts\\\\Replacements] 1700000000\n")
            for name, target in replacements.items():
                reg.write(f'"{reg_string(name)}"="{reg_string(target)}"\n')

    def user_folder(self):
        """The Windows user's profile folder in the prefix (Wine names the
        user after the Unix one); AppData/Roaming and AppData/Local are in
        it."""
        users = [p for p in (self.prefix / "drive_c" / "users").iterdir() if p.name != "Public"]
        if len(users) != 1:
            raise RuntimeError(f"expected one user folder in the prefix: {users}")
        return users[0]

    def app_data(self):
        """Puffino's folder in the Windows user's roaming AppData (made on
        the first start; a test may fill it before)."""
        return self.user_folder() / "AppData" / "Roaming" / "morvenda" / "Tonkari" / "Puffino"

    # -- programs ------------------------------------------------------------

    def program_env(self, env=None):
        merged = dict(self.env)
        merged.update(env or {})
        return merged

    def launch(self, exe=PUFFINO_EXE, *args, env=None):
        """Starts a Windows program and returns at once."""
        process = subprocess.Popen(["wine", str(exe), *args], env=self.program_env(env),
                                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.processes.append(process)
        return process

    def run(self, exe, *args, env=None, timeout=120):
        """Runs a Windows program to its end; returns (exit code, stdout,
        stderr). Output goes through files, not pipes: Wine's helper
        processes inherit the handles and outlive the program."""
        with tempfile.TemporaryFile() as out, tempfile.TemporaryFile() as err:
            process = subprocess.Popen(["wine", str(exe), *args], env=self.program_env(env),
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
        code, out, err = self.run(PROBE_EXE, *[str(a) for a in args], timeout=60)
        if code != 0:
            raise RuntimeError(f"probe {args} failed ({code}): {err}")
        return json.loads(out)

    def windows(self):
        return self.probe("windows")

    def post(self, hwnd, message, wparam=0, lparam=0):
        return self.probe("post", hwnd, message, wparam, lparam)

    def wait_for(self, condition, what, timeout=30.0):
        """Polls condition() until it returns something true; the deadline
        only bounds a failure."""
        deadline = time.monotonic() + timeout
        while True:
            value = condition()
            if value:
                return value
            if time.monotonic() > deadline:
                raise AssertionError(f"timed out waiting for {what}")
            time.sleep(0.1)

    def wait_for_windows(self, count, timeout=30.0):
        def shown():
            found = self.windows()
            return found if len(found) == count and all(w["visible"] for w in found) else None
        return self.wait_for(shown, f"{count} visible Puffino windows", timeout)

    def start_puffino(self, windows, env=None, exe=PUFFINO_EXE):
        """Starts Puffino.exe (the build's, or exe) and waits until its
        start-up is over: that many windows shown and each of them painted.
        The windows are visible from their creation on, but Puffino paints
        only once its message loop runs, after it has brought the home
        window to the foreground and installed the keyboard guard. Returns
        the process and the windows as the system lists them then."""
        process = self.launch(exe, env=env)
        try:
            shown = self.wait_for_windows(windows)
            self.wait_for(lambda: self.painted(shown), "every Puffino window painted")
            return process, self.windows()
        except AssertionError:
            process.kill()
            raise

    def painted(self, windows):
        """Whether every window shows something other than black near its
        top-left corner. Window rectangles are in virtual-screen
        coordinates; the X screen starts at the virtual screen's corner."""
        shot = self.screenshot("start-up")
        left = min(w["rect"][0] for w in windows)
        top = min(w["rect"][1] for w in windows)
        return all(shot.pixel(w["rect"][0] - left + 10, w["rect"][1] - top + 5) != (0, 0, 0)
                   for w in windows)

    @contextlib.contextmanager
    def frozen(self, process):
        """Holds a program still (SIGSTOP): no frame tick moves anything and
        the screen keeps its last painted frame. Input sent meanwhile waits
        in the X server; once the program goes on it handles that input
        before its next timer tick (timer messages come after input)."""
        os.kill(process.pid, signal.SIGSTOP)
        try:
            yield
        finally:
            os.kill(process.pid, signal.SIGCONT)

    def wait_exit(self, process, timeout=30):
        try:
            return process.wait(timeout=timeout)
        except subprocess.TimeoutExpired:
            process.kill()
            raise AssertionError("Puffino did not end") from None

    # -- what a person sees and does ------------------------------------------

    def screenshot(self, name=None):
        self.shots += 1
        png = self.artifacts / f"{name or 'shot-%02d' % self.shots}.png"
        subprocess.run([IMPORT, "-display", self.xvfb.display, "-window", "root", str(png)],
                       check=True, timeout=60)
        rgb = subprocess.run([CONVERT, str(png), "-depth", "8", "rgb:-"], check=True,
                             stdout=subprocess.PIPE, timeout=60).stdout
        return Screenshot(png, self.width, self.height, rgb)

    def xdotool(self, *args):
        subprocess.run(["xdotool", *[str(a) for a in args]], check=True, timeout=30,
                       env={**os.environ, "DISPLAY": self.xvfb.display})

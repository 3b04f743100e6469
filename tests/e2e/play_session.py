"""What the end-to-end tests share: Puffino's own messages, the settings a
parent writes, a key watcher behind the keyboard guard, and a test case that
keeps one Wine session for its class and ends every Puffino it starts."""

import os
import subprocess
import time
import unittest

from wine_session import PUFFINO_EXE, REPO, TWO_MONITORS, WINDOWS_BUILD, WM_CLOSE, WineSession

WM_DISPLAYCHANGE = 0x7E
WM_GUARDED_KEY = 0x8001
VK_F4 = 0x73
KEY_WATCH_EXE = WINDOWS_BUILD / "tests" / "key_watch.exe"
# ALSA's null sink as the default device: Wine then has a playback device.
NULL_AUDIO = {"ALSA_CONFIG_PATH": "/usr/share/alsa/alsa.conf:" + str(REPO / "tests/harness/null_audio.conf")}


def config_bytes(*lines):
    """A config.ini as Notepad saves it: UTF-16 LE with a byte-order mark."""
    return b"\xff\xfe" + "".join(line + "\r\n" for line in lines).encode("utf-16-le")


# The file a first start writes, as a parent would find it in Notepad.
DEFAULT_CONFIG = config_bytes(
    "[Puffino]", "; Puffino optional settings. Encoding: UTF-16 LE with BOM.",
    r"; Path: %AppData%\Roaming\morvenda\Tonkari\Puffino\config.ini", "",
    "SoundEnabled=1", "VolumeClampPercent=0", "BlockSystemShortcuts=1", "", "[UI]", "Language=")


class PlaySession(unittest.TestCase):
    """One Wine session for the class; every test starts its own Puffino
    and leaves it ended."""
    heads = TWO_MONITORS
    session_options = {}

    @classmethod
    def setUpClass(cls):
        cls.session = WineSession(cls.__name__, heads=cls.heads, **cls.session_options).__enter__()
        cls.addClassCleanup(cls.session.__exit__, None, None, None)

    def start(self, exe=PUFFINO_EXE, env=None):
        """Starts Puffino and waits for its painted windows; returns them."""
        self.process, windows = self.session.start_puffino(len(self.heads), env=env, exe=exe)
        process = self.process

        def end_if_running():
            self.session.xdotool("mouseup", 1)  # a failed hold leaves no button down
            if process.poll() is None:
                self.session.post(self.session.windows()[0]["hwnd"], WM_CLOSE)
                self.session.wait_exit(process)
        self.addCleanup(end_if_running)
        return windows

    def end(self, window):
        """Ends play as a parent would, through the window, and checks the
        exit code and that no window is left."""
        self.session.post(window["hwnd"], WM_CLOSE)
        self.assert_ended()

    def assert_ended(self):
        self.assertEqual(self.session.wait_exit(self.process), 0)
        self.assertEqual(self.session.windows(), [])

    @staticmethod
    def home(windows):
        """The window on the primary monitor, home unless a launch value
        chose another."""
        return next(w for w in windows if w["rect"][:2] == [0, 0])

    def write_config(self, data, mode=0o644):
        path = self.session.app_data() / "config.ini"
        path.parent.mkdir(parents=True, exist_ok=True)
        if path.exists():
            path.chmod(0o644)
        path.write_bytes(data)
        path.chmod(mode)

    def watch_keys(self):
        """Starts the key watcher before Puffino, so that its hook sits
        behind the guard; returns a function that reads what it saw as
        (event, virtual key) pairs."""
        log = self.session.root / f"keys-{self._testMethodName}.log"
        with open(log, "wb") as out:
            process = subprocess.Popen(["wine", str(KEY_WATCH_EXE)], env=self.session.program_env(),
                                       stdout=out, stderr=subprocess.DEVNULL)
        self.session.processes.append(process)
        self.addCleanup(process.kill)

        def seen():
            lines = log.read_text().split()
            return list(zip(lines[1::2], map(int, lines[2::2]))) if lines[:1] == ["ready"] else None
        self.session.wait_for(lambda: seen() is not None, "the key watcher's hook")
        return seen

    def type_keys(self, *keys):
        self.session.xdotool("mousemove", 400, 300)  # X focus follows the pointer onto Puffino
        for key in keys:
            self.session.xdotool("key", key)


def hold_down(session, point, done, pops, tries=3, patience=6.0):
    """Presses the mouse at the point and holds it until done() gives
    something true; returns that and the moment of the press that brought
    it. A press tries the bubbles before the penguin, and ambient bubbles
    rise through the penguin: a press that meets one pops it instead (pops()
    counts the pops heard), and the child lets go and presses again. A press
    that neither gets there nor pops is a failure."""
    for _ in range(tries):
        before = pops()
        session.xdotool("mousemove", *point, "mousedown", 1)
        pressed = time.monotonic()
        while time.monotonic() < pressed + patience:
            value = done()
            if value:
                return value, pressed
            time.sleep(0.05)
        session.xdotool("mouseup", 1)
        if pops() <= before:
            raise AssertionError(f"a press at {point} neither got there nor popped a bubble")
    raise AssertionError(f"{tries} presses at {point} each met a bubble")


def unwritable(path):
    """Gives the file or folder the read-only attribute as Windows knows it
    (Wine shows missing write permission as that). Permissions do not stop
    root, as whom these tests may run: then the entry is made immutable as
    well. Returns what undoes it (once, however often it is called)."""
    mode = path.stat().st_mode & 0o7777
    path.chmod(mode & ~0o222)
    immutable = os.geteuid() == 0
    if immutable:
        subprocess.run(["chattr", "+i", str(path)], check=True)
    undone = []

    def undo():
        if not undone:
            undone.append(True)
            if immutable:
                subprocess.run(["chattr", "-i", str(path)], check=True)
            path.chmod(mode)
    return undo

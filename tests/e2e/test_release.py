"""What a parent downloads, under Wine: the installer installs for the user
alone, Puffino starts from the installed folder, and the uninstaller takes
the program and its shortcut but leaves the player's files; the zip unpacks
into one folder that plays with its penguin and fonts; and the zip's bytes
depend only on the files in it."""

import os
import shutil
import subprocess
import sys
import tempfile
import unittest
import zipfile
from pathlib import Path

from wine_session import BUILD, CONVERT, REPO, WineSession

sys.path.insert(0, str(REPO / "release"))
from make_release import write_zip  # noqa: E402

VERSION = os.environ["PUFFINO_VERSION"]
DIST = BUILD / "dist"
ZIP = DIST / f"Puffino-{VERSION}-win64.zip"
INSTALLER = DIST / f"Puffino-{VERSION}-win64-setup.exe"
SHIPPED = {"Puffino.exe", "README.txt", "LICENSE.txt",
           "assets/penguin/idle.png", "assets/penguin/bubble.png",
           "assets/penguin/yatta.png", "assets/penguin/hurray.png",
           "Fonts/MPLUSRounded1c-Regular.ttf", "Fonts/MPLUSRounded1c-Black.ttf", "Fonts/OFL.txt"}
UNINSTALL_KEY = r"HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\Puffino"
ONE_MONITOR = ("1920x1080+0+0",)
WM_CLOSE = 0x10

# On a 1920x1080 home monitor at 96 dpi the finish button is 300 x 84, 28
# from the bottom-right corner: x 1592..1892, y 968..1052; its label box
# starts 58 into it and ends 12 short of its right edge. The penguin
# (240 tall) stands centred on the button, its feet 14 above it.
FINISH_LABEL_BOX = (1650, 968, 1880, 1052)
BUTTON_INK = (0x3C, 0x3C, 0x48)
FINISH_BODY = (0xE8, 0xBC, 0xC0)
PENGUIN_CENTRE_X, PENGUIN_FEET, PENGUIN_HEIGHT = 1742, 954, 240
PENGUIN_BOB = 3  # the standing penguin bobs up to 3 px up and down


def files_under(folder):
    return {p.relative_to(folder).as_posix() for p in Path(folder).rglob("*") if p.is_file()}


def near(a, b, tolerance):
    return all(abs(x - y) <= tolerance for x, y in zip(a, b))


class ReleaseTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.session = WineSession(cls.__name__, heads=ONE_MONITOR).__enter__()

    @classmethod
    def tearDownClass(cls):
        cls.session.__exit__(None, None, None)

    def players_folder(self):
        return self.session.user_folder() / "AppData" / "Roaming" / "morvenda" / "Tonkari" / "Puffino"

    def play_and_close(self, exe):
        process, windows = self.session.start_puffino(1, exe=exe)
        self.session.post(windows[0]["hwnd"], WM_CLOSE)
        self.assertEqual(self.session.wait_exit(process), 0)


class Installer(ReleaseTest):
    def uninstall_entry(self):
        """The values of Puffino's uninstall entry, or None without one."""
        code, out, _ = self.session.run("reg", "query", UNINSTALL_KEY, timeout=60)
        if code != 0:
            return None
        values = (line.split(None, 2) for line in out.splitlines() if line.startswith("    "))
        return {v[0]: v[2] if len(v) > 2 else "" for v in values}

    def test_installs_for_the_user_plays_and_uninstalls_leaving_the_players_files(self):
        # A parent without administrator rights meets no elevation prompt.
        self.assertIn(b'level="asInvoker"', INSTALLER.read_bytes())
        code, _, _ = self.session.run(INSTALLER, "/S", timeout=300)
        self.assertEqual(code, 0)

        folder = self.session.user_folder() / "AppData" / "Local" / "Programs" / "Puffino"
        self.assertEqual(files_under(folder), SHIPPED | {"Uninstall.exe"})
        for name in SHIPPED:
            self.assertEqual((folder / name).read_bytes(), (DIST / "Puffino" / name).read_bytes(), name)
        shortcut = (self.session.user_folder() / "AppData" / "Roaming" / "Microsoft" / "Windows"
                    / "Start Menu" / "Programs" / "Puffino.lnk")
        target = rf"{self.session.user_folder().name}\AppData\Local\Programs\Puffino\Puffino.exe"
        link = shortcut.read_bytes()
        self.assertTrue(target.encode("ascii") in link or target.encode("utf-16-le") in link, link)

        entry = self.uninstall_entry()
        self.assertEqual((entry["DisplayName"], entry["DisplayVersion"]), ("Puffino", VERSION))
        uninstaller = entry["UninstallString"].strip('"')
        self.assertTrue(uninstaller.endswith(r"\Programs\Puffino\Uninstall.exe"), uninstaller)

        self.play_and_close(folder / "Puffino.exe")
        players = self.players_folder()
        self.assertTrue((players / "config.ini").is_file(), "the run wrote its default settings")
        if not (players / "high_score.txt").exists():  # nothing was popped
            (players / "high_score.txt").write_bytes(b"12\r\n")
        kept = {p.name: p.read_bytes() for p in players.iterdir()}

        code, _, _ = self.session.run(uninstaller, "/S", timeout=120)
        self.assertEqual(code, 0)
        # The uninstaller copies itself to a temporary folder and works from
        # there, so that it can delete itself: the first process ends at once.
        # Its last step removes the uninstall entry.
        self.session.wait_for(lambda: not folder.exists() and not shortcut.exists()
                              and self.uninstall_entry() is None,
                              "install folder, shortcut and uninstall entry gone", timeout=60)
        self.assertEqual({p.name: p.read_bytes() for p in players.iterdir()}, kept)


class UnpackedZip(ReleaseTest):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.toys = cls.session.prefix / "drive_c" / "Toys"
        cls.toys.mkdir()
        with zipfile.ZipFile(ZIP) as archive:
            archive.extractall(cls.toys)
        cls.folder = cls.toys / "Puffino"

    def test_unpacks_into_one_folder_of_the_shipped_files_and_plays(self):
        self.assertEqual(files_under(self.toys), {"Puffino/" + name for name in SHIPPED})
        for name in ("README.txt", "LICENSE.txt", "Fonts/OFL.txt"):
            text = (self.folder / name).read_bytes()
            self.assertEqual(text.count(b"\n"), text.count(b"\r\n"), f"{name}: Windows line ends")
            self.assertTrue(text.isascii() or text.startswith(b"\xef\xbb\xbf"), f"{name}: marked UTF-8")
        self.assertIn(f"Puffino {VERSION}", (self.folder / "README.txt").read_text("utf-8"))
        self.play_and_close(self.folder / "Puffino.exe")

    def test_the_penguin_and_the_finish_label_show(self):
        process, windows = self.session.start_puffino(1, exe=self.folder / "Puffino.exe")
        shot = self.session.screenshot("unpacked-zip")
        self.session.post(windows[0]["hwnd"], WM_CLOSE)
        self.assertEqual(self.session.wait_exit(process), 0)

        left, top, right, bottom = FINISH_LABEL_BOX
        box = [shot.pixel(x, y) for x in range(left, right) for y in range(top, bottom)]
        self.assertGreater(sum(near(p, FINISH_BODY, 8) for p in box), 2000, "the finish button")
        self.assertGreater(sum(near(p, BUTTON_INK, 8) for p in box), 150,
                           "ink of the finish label: the shipped fonts were found")
        self.assertGreater(self.penguin_match(shot), 0.85, "the standing penguin from the shipped art")

    def penguin_match(self, shot):
        """The share of the standing picture's inner pixels that the screen
        shows in their own colour, at the best of the bob's offsets. Only
        pixels 6 px inside the opaque part count: the edges are softened
        when the art is prepared and blended when it is scaled."""
        picture = self.folder / "assets" / "penguin" / "idle.png"
        rgba = subprocess.run([CONVERT, str(picture), "-resize", f"x{PENGUIN_HEIGHT}", "-depth", "8",
                               "rgba:-"], check=True, capture_output=True).stdout
        height = PENGUIN_HEIGHT
        width = len(rgba) // (4 * height)

        def at(x, y):
            i = 4 * (y * width + x)
            return tuple(rgba[i:i + 4])
        inner = [(x, y) for x in range(6, width - 6, 5) for y in range(6, height - 6, 5)
                 if all(at(x + dx, y + dy)[3] == 255 for dx in (-6, 0, 6) for dy in (-6, 0, 6))]
        self.assertGreater(len(inner), 200, "opaque inside of the picture")
        left, top = PENGUIN_CENTRE_X - width // 2, PENGUIN_FEET - height
        best = 0.0
        # A pixel of slack either way for rounding in the scaled drawing.
        for bob in range(-PENGUIN_BOB - 1, PENGUIN_BOB + 2):
            for shift in (-2, -1, 0, 1, 2):
                hits = sum(near(shot.pixel(left + shift + x, top + bob + y), at(x, y)[:3], 24)
                           for x, y in inner)
                best = max(best, hits / len(inner))
        return best


class ReproducibleZip(unittest.TestCase):
    def test_the_shipped_exe_carries_no_build_time(self):
        exe = (DIST / "Puffino" / "Puffino.exe").read_bytes()
        header = int.from_bytes(exe[0x3C:0x40], "little")
        self.assertEqual(exe[header:header + 4], b"PE\0\0")
        self.assertEqual(int.from_bytes(exe[header + 8:header + 12], "little"), 0, "TimeDateStamp")

    def test_the_same_files_give_the_same_bytes(self):
        with tempfile.TemporaryDirectory() as temp:
            copy = Path(temp) / "Puffino"
            shutil.copytree(DIST / "Puffino", copy, copy_function=shutil.copyfile)
            for path in copy.rglob("*"):
                os.utime(path, (1893456000, 1893456000))  # another day: 2030-01-01
            write_zip(copy, Path(temp) / "again.zip")
            self.assertEqual((Path(temp) / "again.zip").read_bytes(), ZIP.read_bytes())


if __name__ == "__main__":
    unittest.main()

"""What a parent downloads, under Wine: the installer installs for the user
alone, Puffino starts from the installed folder, and the uninstaller takes
the program and its shortcut but leaves the player's files; the zip unpacks
into one folder that plays with its penguin and fonts; and the zip's bytes
depend only on the files in it; the shipped exe needs no DLL beyond the
system's (none of them a network library) and carries no build time."""

import os
import shutil
import subprocess
import sys
import tempfile
import unittest
import zipfile
from pathlib import Path

from play_session import PlaySession
from wine_session import BUILD, PUFFINO_EXE, REPO

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
SYSTEM_DLLS = {"kernel32.dll", "msvcrt.dll", "user32.dll", "gdi32.dll", "gdiplus.dll", "ole32.dll",
               "shell32.dll", "winmm.dll", "advapi32.dll"}

# On a 1920x1080 home monitor at 96 dpi the finish button is 300 x 84, 28
# from the bottom-right corner: x 1592..1892, y 968..1052; its label box
# starts 58 into it and ends 12 short of its right edge. The penguin
# stands above it; without its pictures a stand-in shows hardly any of the
# art's body blue (Wine's GDI+ does not anti-alias: the colour is exact).
FINISH_LABEL_BOX = (1650, 968, 1880, 1052)
BUTTON_INK = (0x3C, 0x3C, 0x48)
FINISH_BODY = (0xE8, 0xBC, 0xC0)
PENGUIN_BOX, PENGUIN_BLUE = (1600, 700, 1890, 960), (61, 90, 143)


def files_under(folder):
    return {p.relative_to(folder).as_posix() for p in Path(folder).rglob("*") if p.is_file()}


def near(a, b, tolerance):
    return all(abs(x - y) <= tolerance for x, y in zip(a, b))


class Release(PlaySession):
    heads = ("1920x1080+0+0",)

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

        self.end(self.start(folder / "Puffino.exe")[0])
        players = self.session.app_data()
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

    def test_the_zip_unpacks_into_one_folder_of_the_shipped_files_that_plays_with_its_art_and_fonts(self):
        toys = self.session.prefix / "drive_c" / "Toys"
        with zipfile.ZipFile(ZIP) as archive:
            archive.extractall(toys)
        folder = toys / "Puffino"
        self.assertEqual(files_under(toys), {"Puffino/" + name for name in SHIPPED})
        for name in ("README.txt", "LICENSE.txt", "Fonts/OFL.txt"):
            text = (folder / name).read_bytes()
            self.assertEqual(text.count(b"\n"), text.count(b"\r\n"), f"{name}: Windows line ends")
            self.assertTrue(text.isascii() or text.startswith(b"\xef\xbb\xbf"), f"{name}: marked UTF-8")
        self.assertIn(f"Puffino {VERSION}", (folder / "README.txt").read_text("utf-8"))

        windows = self.start(folder / "Puffino.exe")
        shot = self.session.screenshot("unpacked-zip")
        self.end(windows[0])
        left, top, right, bottom = FINISH_LABEL_BOX
        box = [shot.pixel(x, y) for x in range(left, right) for y in range(top, bottom)]
        self.assertGreater(sum(near(p, FINISH_BODY, 8) for p in box), 2000, "the finish button")
        self.assertGreater(sum(near(p, BUTTON_INK, 8) for p in box), 150,
                           "ink of the finish label: the shipped fonts were found")
        left, top, right, bottom = PENGUIN_BOX
        body = [shot.pixel(x, y) for x in range(left, right, 2) for y in range(top, bottom, 2)]
        self.assertGreater(sum(near(p, PENGUIN_BLUE, 8) for p in body), 750, "the standing penguin from the shipped art")


class ShippedFiles(unittest.TestCase):
    def test_the_exe_imports_only_system_dlls_and_carries_no_build_time(self):
        dump = subprocess.run(["x86_64-w64-mingw32-objdump", "-p", str(PUFFINO_EXE)], check=True,
                              stdout=subprocess.PIPE, text=True).stdout
        imported = {line.split(":", 1)[1].strip().lower() for line in dump.splitlines() if "DLL Name:" in line}
        self.assertIn("user32.dll", imported)
        self.assertLessEqual(imported, SYSTEM_DLLS)
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

"""What a parent downloads, as files: one folder in the zip, with Windows text
files; the zip's bytes depend only on the files in it; the exe needs no DLL
beyond the system's (no network library) and carries no build time."""

import os
import shutil
import subprocess
import sys
import tempfile
import unittest
import zipfile
from pathlib import Path

from scenarios import SHIPPED
from wine_session import DIST, VERSION
from world import REPO

sys.path.insert(0, str(REPO / "release"))
from make_release import write_zip  # noqa: E402

ZIP = DIST / f"Puffino-{VERSION}-win64.zip"
SYSTEM_DLLS = {"kernel32.dll", "msvcrt.dll", "user32.dll", "gdi32.dll", "gdiplus.dll", "ole32.dll",
               "shell32.dll", "winmm.dll", "advapi32.dll"}


class ShippedFiles(unittest.TestCase):
    def test_the_zip_holds_one_folder_of_the_shipped_files(self):
        with zipfile.ZipFile(ZIP) as archive:
            self.assertEqual({n for n in archive.namelist() if not n.endswith("/")},
                             {"Puffino/" + name for name in SHIPPED})
            for name in ("README.txt", "LICENSE.txt", "Fonts/OFL.txt"):
                text = archive.read("Puffino/" + name)
                self.assertEqual(text.count(b"\n"), text.count(b"\r\n"), f"{name}: Windows line ends")
                self.assertTrue(text.isascii() or text.startswith(b"\xef\xbb\xbf"), f"{name}: marked UTF-8")
            self.assertIn(f"Puffino {VERSION}", archive.read("Puffino/README.txt").decode("utf-8"))

    def test_the_exe_imports_only_system_dlls_and_carries_no_build_time(self):
        dump = subprocess.run(["x86_64-w64-mingw32-objdump", "-p", str(DIST / "Puffino" / "Puffino.exe")], check=True,
                              stdout=subprocess.PIPE, text=True, env={**os.environ, "TZ": "UTC"}).stdout
        imported = {line.split(":", 1)[1].strip().lower() for line in dump.splitlines() if "DLL Name:" in line}
        self.assertIn("user32.dll", imported)
        self.assertLessEqual(imported, SYSTEM_DLLS)
        self.assertIn("\nTime/Date\t\tThu Jan  1 00:00:00 1970\n", dump)  # a time stamp of 0

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

"""The Linux edition's Debian package: lintian finds no error in it, its menu
entry is valid, and unpacked it holds the program, stripped, with its files
where the program looks for them, the icon in each size and the licences."""

import struct
import subprocess
import tempfile
import unittest
from pathlib import Path

from linux_package import DEB, VERSION, unpack_package

POSES = ("idle", "bubble", "yatta", "hurray")
ICON_SIZES = (32, 64, 128, 256)
FILES = {"usr/games/puffino", "usr/share/applications/puffino.desktop", "usr/share/man/man6/puffino.6.gz",
         "usr/share/doc/puffino/copyright", "usr/share/doc/puffino/changelog.gz",
         "usr/share/puffino/Fonts/MPLUSRounded1c-Regular.ttf", "usr/share/puffino/Fonts/MPLUSRounded1c-Black.ttf",
         "usr/share/puffino/Fonts/OFL.txt", *(f"usr/share/puffino/assets/penguin/{pose}.png" for pose in POSES),
         *(f"usr/share/icons/hicolor/{n}x{n}/apps/puffino.png" for n in ICON_SIZES)}


def run(*command):
    return subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)


class DebianPackage(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.temp = tempfile.TemporaryDirectory()
        cls.root = Path(cls.temp.name)
        cls.program = unpack_package(cls.root)

    @classmethod
    def tearDownClass(cls):
        cls.temp.cleanup()

    def test_lintian_finds_no_error(self):
        report = run("lintian", str(DEB)).stdout
        self.assertEqual([line for line in report.splitlines() if line.startswith("E:")], [], report)

    def test_the_menu_entry_is_valid(self):
        result = run("desktop-file-validate", str(self.root / "usr/share/applications/puffino.desktop"))
        self.assertEqual((result.returncode, result.stdout), (0, ""))

    def test_the_package_says_what_it_is_and_needs(self):
        fields = run("dpkg-deb", "--field", str(DEB), "Package", "Version", "Architecture", "Section").stdout
        self.assertEqual(fields.split(), ["Package:", "puffino", "Version:", VERSION, "Architecture:", "amd64",
                                          "Section:", "games"])
        # Worked out from the program's libraries by dpkg-shlibdeps.
        self.assertRegex(run("dpkg-deb", "--field", str(DEB), "Depends").stdout, r"\blibc6 \(>= [0-9.]+\)")

    def test_the_files_stand_where_the_program_looks_for_them(self):
        self.assertEqual({str(p.relative_to(self.root)) for p in self.root.rglob("*") if not p.is_dir()}, FILES)
        self.assertNotIn(".symtab", run("readelf", "--section-headers", str(self.program)).stdout)  # stripped
        for n in ICON_SIZES:
            png = (self.root / f"usr/share/icons/hicolor/{n}x{n}/apps/puffino.png").read_bytes()
            self.assertEqual(struct.unpack(">II", png[16:24]), (n, n))
        # The fonts' licence is whole in the copyright file, beside the program's.
        copyright = (self.root / "usr/share/doc/puffino/copyright").read_text().splitlines()
        self.assertIn("License: Expat", copyright)
        licence = copyright[len(copyright) - copyright[::-1].index("License: OFL-1.1"):]  # the last paragraph
        ofl = (self.root / "usr/share/puffino/Fonts/OFL.txt").read_text().splitlines()
        self.assertEqual([line.strip() for line in licence if line.strip(" .")], [l.strip() for l in ofl if l.strip()])


if __name__ == "__main__":
    unittest.main()

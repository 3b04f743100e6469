"""Puffino.exe beside a damaged penguin art folder: pictures that do not
decode, an empty file and a folder with a picture's name are passed over
without a message, and play starts and ends as usual."""

import shutil
import unittest

from test_shell import WM_CLOSE, SessionTest
from wine_session import PUFFINO_EXE


class DamagedArt(SessionTest):
    def test_unreadable_pose_pictures_leave_play_untouched(self):
        folder = self.session.prefix / "drive_c" / "Toys"
        art = folder / "assets" / "penguin"
        art.mkdir(parents=True)
        shutil.copy(PUFFINO_EXE, folder / "Puffino.exe")
        (art / "idle.png").write_bytes(b"\x89PNG\r\n\x1a\n" + b"cut short")
        (art / "yatta.png").write_bytes(b"")
        (art / "bubble.png").mkdir()
        shutil.copy(PUFFINO_EXE.parent / "assets" / "penguin" / "hurray.png", art)

        process = self.session.launch(folder / "Puffino.exe")
        windows = self.session.wait_for_windows(2)
        self.session.post(windows[0]["hwnd"], WM_CLOSE)
        self.assertEqual(self.session.wait_exit(process), 0)


if __name__ == "__main__":
    unittest.main()

"""The Linux edition's Debian package as the build leaves it in dist/, and
unpacked as dpkg -x leaves it: the unpacked program finds its pictures and
fonts in the share folder beside its own, as the installed one does."""

import os
import subprocess
from pathlib import Path

from world import BUILD

VERSION = os.environ.get("PUFFINO_VERSION", "")
DEB = BUILD / "dist" / f"puffino_{VERSION}_amd64.deb"


def unpack_package(folder):
    """Unpacks the package into folder (new or empty) and returns the path of
    the program in it, folder/usr/games/puffino."""
    Path(folder).mkdir(parents=True, exist_ok=True)
    subprocess.run(["dpkg", "-x", str(DEB), str(folder)], check=True)
    return Path(folder) / "usr" / "games" / "puffino"

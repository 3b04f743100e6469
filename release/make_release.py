#!/usr/bin/env python3
"""Puts the release folder together and zips it: what a parent downloads.

  make_release.py --folder DIST/Puffino --zip DIST/Puffino-V-win64.zip SOURCE=NAME...

Each SOURCE file is copied to NAME inside the folder (NAME with forward
slashes, e.g. assets/penguin/idle.png); text files get Windows line ends, and
a UTF-8 byte-order mark when they are not plain ASCII, so that Notepad on any
Windows shows them right. The folder is emptied first, so
nothing of an earlier release stays behind.

The zip holds the folder under its own name, so unpacking it anywhere gives
one "Puffino" folder. It is reproducible: entries in sorted order, one fixed
time stamp, fixed attributes and compression, so the same files always give
the same bytes, whenever and wherever they were built or copied."""

import argparse
import shutil
import sys
import zipfile
from pathlib import Path

# Every entry carries this time: zip time stamps have no time zone, and the
# build's own file times would make two builds differ.
ENTRY_TIME = (2026, 1, 1, 0, 0, 0)
FILE_ATTRIBUTES = 0x20    # FILE_ATTRIBUTE_ARCHIVE, as Windows' own zips have
FOLDER_ATTRIBUTES = 0x10  # FILE_ATTRIBUTE_DIRECTORY
TEXT_SUFFIXES = {".txt"}
UTF8_BOM = b"\xef\xbb\xbf"


def windows_text(data):
    data = data.replace(b"\r\n", b"\n").replace(b"\n", b"\r\n")
    if not data.isascii() and not data.startswith(UTF8_BOM):
        data = UTF8_BOM + data  # older Notepads read UTF-8 without it as ANSI
    return data


def assemble(files, folder):
    """Copies (source, name) pairs into an emptied folder."""
    if folder.exists():
        shutil.rmtree(folder)
    for source, name in files:
        target = folder / name
        target.parent.mkdir(parents=True, exist_ok=True)
        data = Path(source).read_bytes()
        if target.suffix.lower() in TEXT_SUFFIXES:
            data = windows_text(data)
        target.write_bytes(data)


def entry(name, attributes):
    info = zipfile.ZipInfo(name, ENTRY_TIME)
    info.create_system = 0  # MS-DOS attributes, no Unix owner or mode bits
    info.external_attr = attributes
    return info


def write_zip(folder, zip_path):
    """Zips folder as <folder name>/... with fixed order, times and attributes."""
    folder = Path(folder)
    paths = sorted(folder.rglob("*"), key=lambda p: p.relative_to(folder).as_posix())
    temporary = Path(str(zip_path) + ".part")
    with zipfile.ZipFile(temporary, "w") as archive:
        archive.writestr(entry(folder.name + "/", FOLDER_ATTRIBUTES), b"")
        for path in paths:
            name = f"{folder.name}/{path.relative_to(folder).as_posix()}"
            if path.is_dir():
                archive.writestr(entry(name + "/", FOLDER_ATTRIBUTES), b"")
            else:
                archive.writestr(entry(name, FILE_ATTRIBUTES), path.read_bytes(),
                                 compress_type=zipfile.ZIP_DEFLATED, compresslevel=9)
    temporary.replace(zip_path)  # a failed run leaves no half-written zip


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--folder", required=True, type=Path)
    parser.add_argument("--zip", required=True, type=Path)
    parser.add_argument("files", nargs="+", metavar="SOURCE=NAME")
    options = parser.parse_args()
    files = [entry.rsplit("=", 1) for entry in options.files]
    assemble(files, options.folder)
    write_zip(options.folder, options.zip)
    return 0


if __name__ == "__main__":
    sys.exit(main())

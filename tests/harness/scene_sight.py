"""Seeing Puffino's scene the way a person does, for the end-to-end tests:
quick grabs of the X screen with the moment each was taken, the landscape
every monitor ought to show (painted by the scenery gallery tool in the same
session, one picture per theme, and matched against the screen), and the
bubbles and bursts as what differs from that landscape."""

import ctypes
import subprocess
import time
import weakref
from dataclasses import dataclass

import numpy

from wine_session import CONVERT, WINDOWS_BUILD, windows_path

THEMES = ("seaside", "mountains", "park", "garden", "flower-field")
# The gallery paints into a GDI+ bitmap, the program into a screen-compatible
# one: the same landscape comes out a level apart here and there.
LANDSCAPE_TOLERANCE = 2
PALE_BLUE = (0xC8, 0xE4, 0xFA)  # the scenery's clear colour, hidden by every landscape
# Bubbles at scale 1: radius 18 to 44, gold ones with their halo reach 1.38 r.
BUBBLE_SPAN = (30, 125)
CELL = 2  # blobs are found on a grid of 2 x 2 pixel cells
# The gallery's paintings of each session: size ("1920x1080") -> theme -> picture.
_GALLERIES = weakref.WeakKeyDictionary()


class _XImage(ctypes.Structure):
    _fields_ = [("width", ctypes.c_int), ("height", ctypes.c_int), ("xoffset", ctypes.c_int),
                ("format", ctypes.c_int), ("data", ctypes.POINTER(ctypes.c_ubyte)),
                ("byte_order", ctypes.c_int), ("bitmap_unit", ctypes.c_int),
                ("bitmap_bit_order", ctypes.c_int), ("bitmap_pad", ctypes.c_int),
                ("depth", ctypes.c_int), ("bytes_per_line", ctypes.c_int),
                ("bits_per_pixel", ctypes.c_int)]


class Grabber:
    """The whole X screen as an RGB array, read straight from the server
    (ImageMagick's import takes about a second here, too long to know where a
    moving bubble was). Xvfb at depth 24 hands out 32-bit BGRX pixels."""

    def __init__(self, display, width, height):
        self.x11 = ctypes.CDLL("libX11.so.6")
        self.x11.XOpenDisplay.restype = ctypes.c_void_p
        self.x11.XDefaultRootWindow.restype = ctypes.c_ulong
        self.x11.XDefaultRootWindow.argtypes = [ctypes.c_void_p]
        self.x11.XGetImage.restype = ctypes.POINTER(_XImage)
        self.x11.XGetImage.argtypes = [ctypes.c_void_p, ctypes.c_ulong, ctypes.c_int, ctypes.c_int,
                                       ctypes.c_uint, ctypes.c_uint, ctypes.c_ulong, ctypes.c_int]
        self.x11.XFree.argtypes = [ctypes.c_void_p]
        self.x11.XCloseDisplay.argtypes = [ctypes.c_void_p]
        self.display = self.x11.XOpenDisplay(display.encode())
        if not self.display:
            raise RuntimeError(f"cannot open X display {display}")
        self.root = self.x11.XDefaultRootWindow(self.display)
        self.width, self.height = width, height

    def grab(self):
        """(moment, array of height x width x 3): the moment is when the
        server handed over the pixels."""
        image = self.x11.XGetImage(self.display, self.root, 0, 0, self.width, self.height,
                                   0xFFFFFFFF, 2)  # AllPlanes, ZPixmap
        taken = time.monotonic()
        try:
            x = image.contents
            raw = ctypes.string_at(x.data, x.bytes_per_line * x.height)
            bgrx = numpy.frombuffer(raw, numpy.uint8).reshape(x.height, x.bytes_per_line // 4, 4)
            return taken, bgrx[:, :self.width, 2::-1].copy()
        finally:
            self.x11.XFree(image.contents.data)
            self.x11.XFree(image)

    def pixel(self, x, y):
        """One pixel as (red, green, blue), read at once (well under a
        millisecond): for timing when something appears on the screen."""
        image = self.x11.XGetImage(self.display, self.root, x, y, 1, 1, 0xFFFFFFFF, 2)
        try:
            blue, green, red = ctypes.string_at(image.contents.data, 3)
            return red, green, blue
        finally:
            self.x11.XFree(image.contents.data)
            self.x11.XFree(image)

    def close(self):
        self.x11.XCloseDisplay(self.display)


def read_png(path):
    rgb = subprocess.run([CONVERT, str(path), "-depth", "8", "rgb:-"], check=True,
                         stdout=subprocess.PIPE, timeout=60).stdout
    size = subprocess.run([CONVERT, str(path), "-format", "%w %h", "info:"], check=True,
                          capture_output=True, text=True, timeout=60).stdout.split()
    width, height = int(size[0]), int(size[1])
    return numpy.frombuffer(rgb, numpy.uint8).reshape(height, width, 3)


def save_png(frame, path):
    height, width, _ = frame.shape
    subprocess.run([CONVERT, "-size", f"{width}x{height}", "-depth", "8", "rgb:-", str(path)],
                   input=frame.tobytes(), check=True, timeout=60)


@dataclass
class Blob:
    """A patch of the screen that differs from the landscape, by its pixel
    box (left, top, right, bottom, right and bottom outside) and count."""
    left: int
    top: int
    right: int
    bottom: int
    pixels: int

    @property
    def width(self):
        return self.right - self.left

    @property
    def height(self):
        return self.bottom - self.top

    @property
    def centre(self):
        return ((self.left + self.right) / 2, (self.top + self.bottom) / 2)

    @property
    def fill(self):
        return self.pixels / (self.width * self.height)

    def one_bubble(self):
        """Whether it is the size and shape of a single whole bubble: a
        filled disc, its box square."""
        low, high = BUBBLE_SPAN
        return (low <= self.width <= high and abs(self.width - self.height) <= 4
                and 0.65 <= self.fill <= 0.85)


class SceneSight:
    """What Puffino shows, read against the landscapes it ought to show.
    monitors are X rectangles (left, top, right, bottom); hidden are X
    rectangles left out of every look (the home monitor's penguin and
    labels, which are not bubbles)."""

    def __init__(self, session, monitors, hidden=()):
        self.session, self.monitors = session, monitors
        self.grabber = Grabber(session.xvfb.display, session.width, session.height)
        self.seen = numpy.zeros((session.height, session.width), bool)
        for left, top, right, bottom in monitors:
            self.seen[top:bottom, left:right] = True
        for left, top, right, bottom in hidden:
            self.seen[top:bottom, left:right] = False
        self.landscape = None

    def close(self):
        self.grabber.close()

    def grab(self):
        return self.grabber.grab()

    def learn_landscapes(self, frame):
        """Takes, for each monitor, the theme whose painting by the gallery
        tool matches the screen best; returns the theme names. A monitor
        that matches none closely is a test failure. Learn again after
        Puffino rebuilt its windows: every rebuild draws new themes."""
        self.landscape = numpy.zeros_like(frame)
        names = []
        for left, top, right, bottom in self.monitors:
            shown = frame[top:bottom, left:right].astype(numpy.int16)
            paintings = self._gallery(right - left, bottom - top)
            best = max(THEMES, key=lambda theme: self._matching(shown, paintings[theme]))
            share = self._matching(shown, paintings[best]) / shown[..., 0].size
            if share < 0.9:
                raise AssertionError(f"monitor {left},{top} shows no landscape ({best}: {share:.2f})")
            self.landscape[top:bottom, left:right] = paintings[best]
            names.append(best)
        return names

    def _gallery(self, width, height):
        """Every theme at that size, as the gallery tool paints it: run once
        per session (it takes seconds) and kept with the session."""
        paintings = _GALLERIES.setdefault(self.session, {})
        if not paintings:
            folder = self.session.root / "gallery"
            folder.mkdir(exist_ok=True)
            code, _, err = self.session.run(WINDOWS_BUILD / "tests" / "scenery_gallery.exe",
                                            windows_path(folder))
            if code != 0:
                raise AssertionError(f"the scenery gallery failed: {err}")
            for path in folder.glob("*.png"):
                theme, size = path.stem.rsplit("-", 1)
                paintings.setdefault(size, {})[theme] = read_png(path)
        return paintings[f"{width}x{height}"]

    @staticmethod
    def _matching(shown, picture):
        return int((numpy.abs(shown - picture).max(axis=2) <= LANDSCAPE_TOLERANCE).sum())

    def differing(self, frame, box=None):
        """Where the frame is not the landscape, on the monitors and outside
        the hidden parts; box (an X rectangle) limits the look to it."""
        left, top, right, bottom = box or (0, 0, frame.shape[1], frame.shape[0])
        part = numpy.s_[max(top, 0):bottom, max(left, 0):right]
        distance = numpy.abs(frame[part].astype(numpy.int16) - self.landscape[part]).max(axis=2)
        return (distance > LANDSCAPE_TOLERANCE) & self.seen[part]

    def blobs(self, frame, box=None, join=0):
        """The patches of the frame (or of the box) that are not the
        landscape, eight-connected on a grid of 2 x 2 cells; join > 0 also
        joins patches up to that many cells apart (a gold bubble's halo and
        its disc). Boxes are in X coordinates."""
        left, top = (max(box[0], 0), max(box[1], 0)) if box else (0, 0)
        mask = self.differing(frame, box)
        height, width = mask.shape
        cells = mask[:height - height % CELL, :width - width % CELL]
        cells = cells.reshape(height // CELL, CELL, width // CELL, CELL).any(axis=(1, 3))
        grown = cells.copy()
        rows, columns = cells.shape
        for dy in range(-join, join + 1):
            for dx in range(-join, join + 1):
                grown[max(dy, 0):rows + min(dy, 0), max(dx, 0):columns + min(dx, 0)] |= \
                    cells[max(-dy, 0):rows + min(-dy, 0), max(-dx, 0):columns + min(-dx, 0)]
        labels = numpy.zeros(grown.shape, numpy.int32)
        found = []
        for start in zip(*numpy.nonzero(cells)):
            if labels[start]:
                continue
            label = len(found) + 1
            labels[start] = label
            stack, members = [start], []
            while stack:
                y, x = stack.pop()
                if cells[y, x]:
                    members.append((y, x))
                for ny in (y - 1, y, y + 1):
                    for nx in (x - 1, x, x + 1):
                        if 0 <= ny < rows and 0 <= nx < columns and grown[ny, nx] and not labels[ny, nx]:
                            labels[ny, nx] = label
                            stack.append((ny, nx))
            ys, xs = zip(*members)
            y0, x0 = min(ys) * CELL, min(xs) * CELL
            y1, x1 = (max(ys) + 1) * CELL, (max(xs) + 1) * CELL
            found.append(Blob(left + x0, top + y0, left + x1, top + y1, int(mask[y0:y1, x0:x1].sum())))
        return found

    @staticmethod
    def pale_blue(frame):
        return int((frame == PALE_BLUE).all(axis=2).sum())

"""Puffino's screen as a person sees it: quick grabs, the home monitor's
controls, what can be seen (LOOKS), bubbles as what is not the landscape."""

import ctypes
import subprocess
import time
from collections import namedtuple

try:
    import numpy  # the picture maths; grabbing and saving a screenshot need none (the demo runs without it)
except ModuleNotFoundError:
    numpy = None

CONVERT = "/usr/bin/convert"  # the real ImageMagick, by full path
OTHER = (1920, 0, 3200, 1024)  # a 1280x1024 monitor right of the 1920x1080 home one, in X screen coordinates
# The home monitor's controls at 96 DPI, (left, top, right, bottom) with
# right and bottom outside. The finish button is 300 x 84, 28 px from the
# bottom-right corner; the penguin (240 px tall) stands above it.
FINISH, PENGUIN, ON_PENGUIN = (1592, 968, 1892, 1052), (1600, 700, 1890, 960), (1742, 820)
SOUND_SYMBOL, PRAISE_AREA = (40, 980, 100, 1040), (560, 300, 1360, 600)
FINISH_FACE, LABEL_INK = (232, 188, 192), (60, 60, 72)  # as Wine's GDI+ draws them, not anti-aliased
# (name, box at 96 DPI, the corner it keeps its distance to as it grows,
# text colour, least ink at 96 DPI).
LABELS = [
    ("finish", FINISH, "bottom right", LABEL_INK, 300),
    ("sound", (28, 968, 112, 1052), "bottom left", LABEL_INK, 60),
    ("best pill", (1640, 20, 1900, 90), "top right", (180, 120, 40), 200),
    ("current pill", (1640, 92, 1900, 160), "top right", (90, 110, 150), 150),
    ("instruction", (20, 20, 760, 140), "top left", (70, 120, 180), 300),
    ("hint balloon", (1100, 740, 1640, 900), "bottom right", (45, 80, 150), 400),
]
BUBBLE_SPAN = (30, 125)  # radius 18 to 44 at scale 1, a gold one's halo 1.38 r
LANDSCAPE_TOLERANCE = 2  # the gallery's painting and the screen differ a level here and there
CELL = 2  # bubbles are found on a grid of 2 x 2 pixel cells


def count(frame, box, colour, tolerance=0):  # pixels of the box in that colour
    left, top, right, bottom = box
    part = frame[top:bottom, left:right].astype(numpy.int16)
    return int((numpy.abs(part - colour).max(axis=2) <= tolerance).sum())


def scaled(box, corner, scale, size=(1920, 1080)):  # each distance to the monitor's corner grown
    width, height = size
    left, top, right, bottom = (v * scale for v in box)
    if "right" in corner:
        left, right = width - (width - box[0]) * scale, width - (width - box[2]) * scale
    if "bottom" in corner:
        top, bottom = height - (height - box[1]) * scale, height - (height - box[3]) * scale
    return tuple(round(v) for v in (left, top, right, bottom))


def penguin_pose(frame, penguin=PENGUIN):
    """"standing" or "blowing" by where the orange beak is across: mid-face,
    or turned towards the mouth point; None without a beak."""
    left, top, right, bottom = penguin
    head = frame[top:top + (bottom - top) * 3 // 5, left:right].astype(numpy.int16)
    xs = numpy.nonzero((head[..., 0] > 230) & (head[..., 1] > 140) & (head[..., 1] < 190) & (head[..., 2] < 80))[1]
    x, middle = left + xs.mean() if len(xs) > 40 else -99, (left + right) // 2 - 3
    return "standing" if abs(x - middle) < 12 else "blowing" if x > middle + 20 else None


def coloured(frame, sight, box, test):  # pixels of the box that pass test(red, green, blue), no landscape
    part = frame[box[1]:box[3], box[0]:box[2]].astype(int)
    return int((test(part[..., 0], part[..., 1], part[..., 2]) & sight.differing(frame, box)).sum())


# What a person sees on the home monitor: name -> test(frame, sight).
LOOKS = {
    "the finish button": lambda f, s: count(f, FINISH, FINISH_FACE, 8) > 20000,
    "the finish label's text": lambda f, s: count(f, FINISH, LABEL_INK, 8) > 200,
    "the penguin's pictures": lambda f, s: count(f, PENGUIN, (61, 90, 143), 8) > 3000,
    "the penguin standing": lambda f, s: penguin_pose(f) == "standing",
    "the penguin blowing": lambda f, s: penguin_pose(f) == "blowing",
    "the hint balloon": lambda f, s: count(f, (1250, 766, 1620, 874), (255, 255, 255)) > 10000,
    "the instruction gone": lambda f, s: count(f, LABELS[4][1], LABELS[4][3]) == 0,
    "the penguin laughing": lambda f, s: tuple(f[836, 1742]) == (232, 80, 91),
    # Its dark colours above its head: lifted off its feet (the first hops
    # fade in, blended with the landscape).
    "the penguin hopping": lambda f, s: coloured(f, s, (1640, 600, 1845, 706), lambda r, g, b: (
        (b - r > 40) & (r + g + b < 420)) | (r + g + b < 150)) > 50,
    "a praise word": lambda f, s: coloured(f, s, PRAISE_AREA, lambda r, g, b: (r > 225) & (g > 80) & (g < 215)
                                           & (b < 110)) > 300,  # its orange, or a gold bubble's
}


class Grabber:
    """The X screen (or a box of it) as an RGB array, read straight from the
    server in milliseconds, so that a moving bubble is where the grab says.
    Xvfb at depth 24 hands out 32-bit BGRX pixels, rows without padding."""

    def __init__(self, display, width, height):
        x11 = self.x11 = ctypes.CDLL("libX11.so.6")
        x11.XOpenDisplay.restype = x11.XDefaultRootWindow.restype = x11.XGetImage.restype = ctypes.c_void_p
        x11.XDefaultRootWindow.argtypes = x11.XFree.argtypes = x11.XCloseDisplay.argtypes = [ctypes.c_void_p]
        x11.XGetImage.argtypes = [ctypes.c_void_p, ctypes.c_ulong, ctypes.c_int, ctypes.c_int,
                                  ctypes.c_uint, ctypes.c_uint, ctypes.c_ulong, ctypes.c_int]
        self.display = x11.XOpenDisplay(display.encode())
        if not self.display:
            raise RuntimeError(f"cannot open X display {display}")
        self.root = x11.XDefaultRootWindow(self.display)
        self.width, self.height = width, height

    def grab_bgrx(self, box=None):
        """(moment the server handed the pixels over, the box's BGRX bytes)."""
        left, top, right, bottom = box or (0, 0, self.width, self.height)
        image = self.x11.XGetImage(self.display, self.root, left, top, right - left, bottom - top,
                                   0xFFFFFFFF, 2)  # AllPlanes, ZPixmap
        taken, pixels = time.monotonic(), ctypes.c_void_p.from_address(image + 16).value  # after four ints
        try:
            return taken, ctypes.string_at(pixels, 4 * (right - left) * (bottom - top))
        finally:
            self.x11.XFree(pixels)
            self.x11.XFree(image)

    def grab(self, box=None):
        """(moment the server handed the pixels over, height x width x 3)."""
        left, top, right, bottom = box or (0, 0, self.width, self.height)
        taken, raw = self.grab_bgrx(box)
        return taken, numpy.frombuffer(raw, numpy.uint8).reshape(bottom - top, right - left, 4)[..., 2::-1].copy()

    def pixel(self, x, y):  # (red, green, blue)
        return tuple(self.grab_bgrx((x, y, x + 1, y + 1))[1][2::-1])

    def save(self, path):  # the whole screen as a PNG
        subprocess.run([CONVERT, "-size", f"{self.width}x{self.height}", "-depth", "8", "bgra:-", "-alpha", "off",
                        str(path)], input=self.grab_bgrx()[1], check=True, timeout=60)

    def close(self):
        self.x11.XCloseDisplay(self.display)


def read_png(path, width, height):
    rgb = subprocess.run([CONVERT, str(path), "-depth", "8", "rgb:-"], check=True, stdout=subprocess.PIPE).stdout
    return numpy.frombuffer(rgb, numpy.uint8).reshape(height, width, 3)


def save_png(frame, path):
    height, width, _ = frame.shape
    subprocess.run([CONVERT, "-size", f"{width}x{height}", "-depth", "8", "rgb:-", str(path)],
                   input=frame.tobytes(), check=True, timeout=60)


class Blob(namedtuple("Blob", "left top right bottom pixels")):  # a patch that is not the landscape
    width = property(lambda self: self.right - self.left)
    height = property(lambda self: self.bottom - self.top)
    centre = property(lambda self: ((self.left + self.right) / 2, (self.top + self.bottom) / 2))

    def one_bubble(self):  # a filled disc in a square
        return (BUBBLE_SPAN[0] <= self.width <= BUBBLE_SPAN[1] and abs(self.width - self.height) <= 4
                and 0.65 <= self.pixels / (self.width * self.height) <= 0.85)

    def covers(self, x, y):
        return self.left <= x < self.right and self.top <= y < self.bottom

    def apart_from(self, other, gap):
        return (other.left > self.right + gap or other.right < self.left - gap
                or other.top > self.bottom + gap or other.bottom < self.top - gap)


class Sight:
    """The scene read against the landscape each monitor (X rectangle) ought to
    show; hidden rectangles (the penguin, the labels: no bubbles) are left out."""

    def __init__(self, size, monitors, hidden=()):
        self.monitors, self.seen = monitors, numpy.zeros(size[::-1], bool)
        self.landscape = numpy.zeros((*size[::-1], 3), numpy.uint8)
        for (left, top, right, bottom), seen in [*((m, True) for m in monitors), *((h, False) for h in hidden)]:
            self.seen[top:bottom, left:right] = seen

    def learn(self, frame, paintings):
        """For each monitor the best match where it is seen of paintings(width,
        height) (theme -> picture); a monitor that matches none closely fails."""
        for left, top, right, bottom in self.monitors:
            shown = frame[top:bottom, left:right].astype(numpy.int16)
            seen = self.seen[top:bottom, left:right]
            matching = {theme: int(((numpy.abs(shown - p).max(axis=2) <= LANDSCAPE_TOLERANCE) & seen).sum())
                        for theme, p in paintings(right - left, bottom - top).items()}
            best = max(matching, key=matching.get)
            if matching[best] < 0.9 * seen.sum():
                raise AssertionError(f"monitor at {left},{top} shows no landscape")
            self.landscape[top:bottom, left:right] = paintings(right - left, bottom - top)[best]

    def differing(self, frame, box=None):  # where the frame (or the box of it) is not the landscape
        left, top, right, bottom = box or (0, 0, frame.shape[1], frame.shape[0])
        part = numpy.s_[max(top, 0):bottom, max(left, 0):right]
        distance = numpy.abs(frame[part].astype(numpy.int16) - self.landscape[part]).max(axis=2)
        return (distance > LANDSCAPE_TOLERANCE) & self.seen[part]

    def blobs(self, frame, box=None, join=0):
        """The patches that are not the landscape, eight-connected on a grid
        of cells; join > 0 also joins patches up to that many cells apart (a
        gold bubble's halo and its disc)."""
        left, top = (max(box[0], 0), max(box[1], 0)) if box else (0, 0)
        mask = self.differing(frame, box)
        height, width = mask.shape
        cells = mask[:height - height % CELL, :width - width % CELL]
        cells = cells.reshape(height // CELL, CELL, width // CELL, CELL).any(axis=(1, 3))
        rows, columns = cells.shape
        grown = cells.copy()
        for dy in range(-join, join + 1):
            for dx in range(-join, join + 1):
                grown[max(dy, 0):rows + min(dy, 0), max(dx, 0):columns + min(dx, 0)] |= \
                    cells[max(-dy, 0):rows + min(-dy, 0), max(-dx, 0):columns + min(-dx, 0)]
        found, taken = [], ~grown
        for start in zip(*numpy.nonzero(cells)):
            stack, members = [start] if not taken[start] else [], []
            taken[start] = True
            while stack:
                y, x = stack.pop()
                if cells[y, x]:
                    members.append((y, x))
                for ny in (y - 1, y, y + 1):
                    for nx in (x - 1, x, x + 1):
                        if 0 <= ny < rows and 0 <= nx < columns and not taken[ny, nx]:
                            taken[ny, nx] = True
                            stack.append((ny, nx))
            if not members:
                continue
            ys, xs = zip(*members)
            y0, x0, y1, x1 = min(ys) * CELL, min(xs) * CELL, (max(ys) + 1) * CELL, (max(xs) + 1) * CELL
            found.append(Blob(left + x0, top + y0, left + x1, top + y1, int(mask[y0:y1, x0:x1].sum())))
        return found

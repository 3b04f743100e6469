"""What a person does with Puffino and what they see: a table of steps per
scenario, grouped by the monitors they need, each from a fresh profile.
Both editions play TWO_MONITORS; WINDOWS_TWO_MONITORS and the left-of-primary
layout only Puffino.exe (display and DPI messages, the zip, the installer,
the low-level keyboard hook); LINUX_TWO_MONITORS only the Linux edition (the
X keyboard grab, PulseAudio)."""

import re
import unittest

from puffino_session import step

HOME = (0, 0, 1920, 1080)  # the primary monitor, where Puffino starts
OTHER = (1920, 0, 3200, 1024)  # 1280x1024 to its right
LEFT = (-1920, 0, 0, 1080)  # a 1920x1080 monitor left of the primary


def config_bytes(*lines):  # as Notepad saves it: UTF-16 LE with a byte-order mark
    return b"\xff\xfe" + "".join(line + "\r\n" for line in lines).encode("utf-16-le")


# The file a first start writes, as a parent finds it in Notepad.
DEFAULT_CONFIG = config_bytes(
    "[Puffino]", "; Puffino optional settings. Encoding: UTF-16 LE with BOM.",
    r"; Path: %AppData%\Roaming\morvenda\Tonkari\Puffino\config.ini", "",
    "SoundEnabled=1", "VolumeClampPercent=0", "BlockSystemShortcuts=1", "", "[UI]", "Language=")
JAPANESE = config_bytes("[UI]", "Language=ja")
VOLUME_CEILING = config_bytes("[Puffino]", "VolumeClampPercent=35")  # a device that will not be lowered
BEST = re.compile(rb"^[1-9][0-9]*\r\n$")
SHIPPED = {"Puffino.exe", "README.txt", "LICENSE.txt", "assets/penguin/idle.png", "assets/penguin/bubble.png",
           "assets/penguin/yatta.png", "assets/penguin/hurray.png", "Fonts/MPLUSRounded1c-Regular.ttf",
           "Fonts/MPLUSRounded1c-Black.ttf", "Fonts/OFL.txt"}

# What a toddler's hands find on a keyboard, by whether they get past
# Puffino (looked for behind it: the Windows key of a Windows-key shortcut,
# else the last key). The Windows key never reaches the key state once
# swallowed, so the Tab after it passes as a plain Tab. Print Screen, Escape
# and plain letters are harmless and pass.
SHORTCUTS = {False: "super super+d super+l super+Tab Menu ctrl+shift+Escape ctrl+shift+q ctrl+shift+n ctrl+Escape"
                    " alt+Tab alt+shift+Tab alt+Escape alt+space alt+Return alt+F1 alt+x alt+7".split(),
             True: "Print alt+Print ctrl+w F1 Escape q".split()}

EVERYTHING = ["the finish button", "the finish label's text", "the penguin's pictures"]
# Puffino copied without some of what ships beside it (pose pictures that do
# not decode are the Wine tests'): (the copy, what shows, what does not).
PROGRAM_COPIES = {
    "no Fonts folder": ({"parts": ["assets"]}, ["the penguin's pictures"], ["the finish label's text"]),
    "no pose pictures": ({"parts": ["Fonts"]}, ["the finish label's text"], ["the penguin's pictures"]),
}

TWO_MONITORS = {
    "a first run": [
        step.remember_disk(), step.start(),
        step.expect_windows(HOME, OTHER, home=HOME),
        step.tap_penguin(),
        step.expect_file("config.ini", DEFAULT_CONFIG), step.expect_file("high_score.txt", None),
        step.expect_screen(shows=[*EVERYTHING, "the penguin standing"]),  # above the button
        step.blow_for_a_second(),
        step.pop_bubble(burst=True), step.expect_file("high_score.txt", BEST),
        step.expect_no_network(),
        step.launch_and_expect(0),
        step.end_through(OTHER),
        step.expect_profile_holds("config.ini", "high_score.txt"),
        step.expect_nothing_written_outside_the_profile(),
    ],
    "a launch value makes the other monitor home": [
        step.start(launch_monitor=OTHER, learn=False), step.expect_windows(HOME, OTHER, home=OTHER),
        step.click("finish of the other monitor"), step.expect_exit(0),
    ],
    "a launch value naming no monitor": [step.launch_and_expect(1, launch_monitor=(5000, 0, 6000, 1000))],
    "a record, ten points and the sound button": [
        step.given_file("config.ini", JAPANESE), step.given_file("high_score.txt", b"  2 trailing words"),
        step.start(), step.expect_labels(),
        step.pop_until_record(), step.expect_file("high_score.txt", re.compile(rb"^([3-9]|[1-9][0-9]+)\r\n$")),
        step.pop_until_praise(),
        step.flip_sound_button(),
        step.end_through(HOME),
    ],
    **{name: [
        step.given_file("config.ini", VOLUME_CEILING), step.start(sound_device=device, learn=False),
        step.hold_penguin(let_go=True),
        step.take_out_of_topmost(), step.expect_playing(within=5),  # the ceiling finds no device
        step.expect_heard(0),
        step.end_through(HOME),
    ] for name, device in (("no sound driver", False), ("no playback device", "none"))},
    "the best-score file taken away while playing, then the end twice at once": [
        step.start(), step.pop_bubble(anywhere=True), step.expect_file("high_score.txt", BEST),
        step.damage("high_score.txt", "read-only"), step.remember_file("high_score.txt"),
        step.pop_bubble(anywhere=True), step.expect_file("high_score.txt", "unchanged"),
        step.damage("high_score.txt", "writable"), step.damage("high_score.txt", "a folder"),
        step.pop_bubble(anywhere=True), step.expect_file("high_score.txt", "a folder"),
        step.damage("high_score.txt", "deleted"),
        step.pop_bubble(anywhere=True), step.expect_best_raised(3),  # every pop counted, in memory
        step.remember_file("high_score.txt"),
        step.finish_and_alt_f4_at_once(), step.expect_exit(0), step.expect_file("high_score.txt", "unchanged"),
    ],
    **{name: [step.damage(None, how), step.start(), step.pop_bubble(anywhere=True), step.end_through(HOME),
              step.expect_file("config.ini", config), step.expect_file("high_score.txt", best)]
       for name, how, config, best in (("no application-data folder", "deleted", DEFAULT_CONFIG, BEST),
                                       ("an unwritable application-data folder", "read-only", None, None))},
}

WINDOWS_TWO_MONITORS = {
    "the keyboard guard": [
        step.given_file("config.ini", VOLUME_CEILING), step.watch_keys(), step.start(learn=False),
        step.press_shortcuts(SHORTCUTS), step.expect_keys_seen(("up", "Tab"), ("up", "Escape")),
        step.take_out_of_topmost(), step.expect_playing(within=5),  # a tick that ends with the ceiling
        step.press_keys("alt+F4"), step.expect_exit(0), step.expect_keys_seen(unseen=[("down", "F4")]),
    ],
    "a hand-edited read-only config without the guard": [
        step.given_file("config.ini", config_bytes("[Puffino]", "; no keyboard guard for this PC",
                                                   "BlockSystemShortcuts=0", "[UI]", "Language=en"), mode=0o444),
        step.remember_file("config.ini"), step.watch_keys(), step.start(learn=False),
        step.press_keys("alt+Tab", "a"), step.expect_keys_seen(("down", "Tab"), ("down", "a")),
        step.press_keys("alt+F4"), step.expect_exit(0), step.expect_keys_seen(("down", "F4")),
        step.expect_file("config.ini", "unchanged"),
    ],
    "display changes under a press and a hold": [
        step.start(),
        step.change_display(while_pressing=True),
        step.release(held_for=1.0),  # well past the 300 ms
        step.expect_screen(shows=["the penguin standing", "the hint balloon"]), step.expect_heard(0, "chirp"),
        step.hold_penguin(), step.change_display(),
        step.expect_screen(shows=["the penguin standing"], hides=["the hint balloon"]),  # gone for good
        step.expect_heard(1, "chirp"), step.release(),
        step.expect_moving(OTHER),
        step.end_through(HOME),
    ],
    "the unpacked zip, then its fonts deleted": [
        step.copy_program("zip", from_zip=True), step.start(program="zip", learn=False),
        step.expect_screen(shows=EVERYTHING), step.hold_penguin(let_go=True),
        step.delete_fonts("zip"), step.change_display(),  # every label drawn again
        step.expect_screen(shows=EVERYTHING),
        step.end_through(HOME),
    ],
    **{name: [
        step.copy_program(name, **copy), step.start(program=name, learn=False),
        step.expect_screen(shows=["the finish button", *shows], hides=hides),
        step.hold_penguin(until="chirp", let_go=True),  # the penguin's place answers, drawn or not
        step.end_through(HOME),
    ] for name, (copy, shows, hides) in PROGRAM_COPIES.items()},
    "install, play and uninstall": [
        step.install(), step.expect_installed(SHIPPED),
        step.start(program="installed", learn=False), step.end_through(HOME),
        step.expect_file("config.ini", DEFAULT_CONFIG), step.given_file("high_score.txt", b"12\r\n"),
        step.remember_file("config.ini"), step.remember_file("high_score.txt"),
        step.uninstall(),
        step.expect_file("config.ini", "unchanged"), step.expect_file("high_score.txt", "unchanged"),
    ],
}

# The desktop's shortcuts (Alt+Tab, Super, Ctrl+Esc) as the desktop binds
# them; what the X keyboard grab holds back, none of them fires.
DESKTOP_SHORTCUTS = ("alt+Tab", "super", "ctrl+Escape")

LINUX_TWO_MONITORS = {
    "the best score as the Windows edition writes it": [  # read, and only a higher one written
        step.given_file("high_score.txt", b"12\r\n"), step.start(), step.pop_bubble(),
        step.expect_file("high_score.txt", b"12\r\n"), step.end_through(HOME),
    ],
    "the keyboard grab": [
        step.given_file("config.ini", VOLUME_CEILING), step.watch_keys(), step.start(learn=False),
        step.expect_keyboard_held(),
        step.take_out_of_topmost(), step.expect_playing(within=5),  # a tick that ends with the ceiling
        step.press_past_puffino(*DESKTOP_SHORTCUTS),  # ended by Alt+F4
        step.expect_keyboard_held(False),
    ],
    "a config without the guard": [
        step.given_file("config.ini", config_bytes("[Puffino]", "BlockSystemShortcuts=0")), step.watch_keys(),
        step.start(learn=False), step.expect_keyboard_held(False),
        step.press_keys(*DESKTOP_SHORTCUTS),
        step.expect_keys_seen(("down", "Tab"), ("down", "super"), ("down", "Escape")),
        step.press_keys("alt+F4"), step.expect_exit(0),
    ],
    "the volume ceiling": [  # the sink starts at 80 %
        step.given_file("config.ini", VOLUME_CEILING), step.start(learn=False, pulse=True),
        step.expect_volume(35, within=5),
        step.raise_volume(90, back_to=35, within=1.75),  # the 1.5 s topmost tick, and the loop's latency
        step.end_through(HOME),
    ],
    "a display moved and moved back": [
        step.start(learn=False), step.move_display(1, (1920, 56)),
        step.expect_windows(HOME, (1920, 56, 3200, 1080), home=HOME), step.expect_moving((1920, 56, 3200, 1080)),
        step.move_display(1, (1920, 0)), step.expect_windows(HOME, OTHER, home=HOME), step.expect_moving(OTHER),
        step.end_through(HOME),
    ],
    "the Debian package unpacked with dpkg -x": [  # its pictures and fonts from its share folder
        step.unpack_package("package"), step.start(program="package", learn=False),
        step.expect_screen(shows=EVERYTHING), step.hold_penguin(let_go=True),
        step.end_through(HOME),
    ],
}

# The Linux edition with SDL's Wayland driver under sway (headless, a bar
# along the top of each output; tests/harness/wayland_session.py): each
# window full screen on its own output, the shortcut inhibition asked for
# whichever window has the focus. Named as the X desktops' scenarios they
# stand beside in the desktop matrix.
WAYLAND = {
    "covers its monitors above the panel": [
        step.start(), step.expect_windows(HOME, OTHER, home=HOME), step.expect_above_panel(),
        step.end_through(OTHER),
    ],
    "keys held with the pointer on either monitor": [
        step.watch_keys(), step.start(learn=False),
        step.focus_by_click(OTHER), step.type_keys(*DESKTOP_SHORTCUTS),
        step.focus_by_click(HOME), step.press_past_puffino(*DESKTOP_SHORTCUTS),  # ended by Alt+F4
    ],
    # A pop, the penguin held, the sound button twice; the other output's
    # press is the finish button's below.
    "five presses answered": [
        step.start(), step.pop_bubble(anywhere=True), step.blow_for_a_second(), step.flip_sound_button(),
        step.end_through(HOME),
    ],
    "the finish button ends play": [  # on the other output, as home there
        step.start(launch_monitor=OTHER, learn=False), step.click("finish of the other monitor"),
        step.expect_exit(0),
    ],
}


def played(name, table, session):
    """A test case class with one session (session(class name)) for all of
    the table's scenarios, a test per scenario."""
    def setUpClass(cls):
        cls.session = session(cls.__name__).__enter__()
        cls.addClassCleanup(cls.session.__exit__, None, None, None)

    def test(name, steps):
        return lambda self: self.session.run_scenario(re.sub(r"\W+", "-", name), steps)
    methods = {"test_" + re.sub(r"\W+", "_", name): test(name, steps) for name, steps in table.items()}
    return type(name, (unittest.TestCase,), {"setUpClass": classmethod(setUpClass), **methods})


# The virtual screen starting left of the origin, at 144 DPI.
LEFT_OF_PRIMARY_AT_144_DPI = {
    "windows and labels": [
        step.given_file("config.ini", JAPANESE), step.start(),
        step.expect_windows(LEFT, HOME, home=HOME),  # a landscape on each, learnt at the start
        step.expect_labels(scale=1.5),  # every distance to the corner half again as large
        step.end_through(LEFT),
    ],
}

# Played under each real desktop (tests/harness/desktops.py): its window
# manager and a panel along the top of the home monitor (its own, or a dock
# window with a strut). A scenario a column of the desktop matrix.
DESKTOP = {
    "covers its monitors above the panel": [
        step.start(learn=False), step.expect_windows(HOME, OTHER, home=HOME), step.expect_above_panel(),
        step.end_through(HOME),
    ],
    "the finish button ends play": [step.start(learn=False), step.click("finish"), step.expect_exit(0)],
    "on top within a frame of another window": [
        step.start(learn=False), step.pop_up_window(), step.expect_on_top(within=0.2, stays=2),
        step.end_through(HOME),
    ],
    "keys held with the pointer on either monitor": [
        step.watch_desktop_keys(), step.start(learn=False), step.pop_up_window(),
        step.point_at(OTHER), step.expect_keyboard_held(), step.point_at(HOME), step.expect_keyboard_held(),
        step.point_at(OTHER), step.press_past_puffino(*DESKTOP_SHORTCUTS, marker="F12", pointer_stays=True),
    ],
    "five presses answered": [
        step.start(), step.presses_answered("other", "other", "penguin", "other", "sound button"),
        step.end_through(HOME),
    ],
    "Alt+F4 after another window took the focus": [
        step.start(learn=False), step.pop_up_window(), step.press_keys("alt+F4"), step.expect_exit(0),
        step.expect_other_window_left_open(),
    ],
    "a press right after a rebuild": [
        step.start(learn=False), step.move_display(1, (1920, 56)), step.press_at_once("sound button"),
        step.end_through(HOME),
    ],
    "a split monitor makes one rebuild": [
        step.start(learn=False), step.split_monitor(), step.expect_one_rebuild_then_quiet(),
        step.end_through(HOME),
    ],
}

// How the Linux edition holds an X11 desktop. A window manager would keep
// ordinary windows inside the work area below its panels, move the focus
// wherever it likes and give its own shortcuts first go at the keys; SDL
// on top of that drops its keyboard grab whenever the pointer or the focus
// wanders. So on an X server Puffino's windows are override-redirect (no
// window manager places, frames or focuses them), and Puffino keeps a
// connection of its own to the server that
//  - holds the keyboard for the home window (owner events off: every key
//    comes to this connection, whichever window the pointer is over and
//    whatever the window manager does with the focus), read each loop turn
//    and put through the guard's rules;
//  - watches the root window's children, so that when another window maps
//    or restacks, Puffino's windows go back on top at the next loop turn
//    (within a frame) instead of at the next topmost tick.
// Off X11 (SDL's Wayland driver) every call here does nothing and the
// compositor's own means (SDL's keyboard grab) are all there is.
#include <SDL.h>
#include <SDL_syswm.h>
#include <X11/XKBlib.h>
#include <X11/Xlib.h>
#include <X11/extensions/Xrandr.h>
#include <X11/keysym.h>

#include <algorithm>
#include <tuple>
#include <vector>

#include "app/desktop_dpi.h"
#include "app/host_platform.h"
#include "app/keyboard_guard.h"
#include "app/shell_linux.h"
#include "play/display_records.h"
#include "play/window_handle_linux.h"

namespace {

// The connection of Puffino's own; null off X11 or when it would not open.
Display* g_connection = nullptr;
// Another client's window mapped or restacked since Puffino's were raised.
bool g_restackPending = false;
// The displays' layout at the last rebuild, as the X server reported it.
std::vector<Rect> g_layoutAtRebuild;

// The X11 window behind an SDL window; false for one of another driver.
bool XWindowOf(WindowHandle window, Display*& display, Window& xwindow) {
    if (!window) return false;
    SDL_SysWMinfo info;
    SDL_VERSION(&info.version);
    if (!SDL_GetWindowWMInfo(NativeWindow(window), &info) || info.subsystem != SDL_SYSWM_X11) return false;
    display = info.info.x11.display;
    xwindow = info.info.x11.window;
    return true;
}

Window XWindowOf(WindowHandle window) {
    Display* display = nullptr;
    Window xwindow = 0;
    return XWindowOf(window, display, xwindow) ? xwindow : 0;
}

bool IsDisplayWindow(Window xwindow) {
    return std::any_of(g_displayWindows.begin(), g_displayWindows.end(),
                       [xwindow](const DisplayWindow& window) { return XWindowOf(window.window) == xwindow; });
}

// The keys the guard's rules name, from the key's unshifted symbol; every
// other key is an ordinary one.
GuardKey KeyOf(KeySym symbol) {
    switch (symbol) {
    case XK_Tab: return GuardKey::kTab;
    case XK_Escape: return GuardKey::kEscape;
    case XK_Print: return GuardKey::kPrintScreen;
    case XK_Super_L: return GuardKey::kLeftWindows;
    case XK_Super_R: return GuardKey::kRightWindows;
    case XK_Menu: return GuardKey::kMenu;
    case XK_F1: return GuardKey::kF1;
    case XK_F4: return GuardKey::kF4;
    default: return GuardKey::kOther;
    }
}

// The modifiers as the server reports them held before this key: Alt is
// Mod1 and the Windows (Super) keys Mod4 on every common keyboard map.
GuardedKey ReadKey(const XKeyEvent& event) {
    GuardedKey key;
    key.press = event.type == KeyPress;
    key.key = KeyOf(XkbKeycodeToKeysym(event.display, static_cast<KeyCode>(event.keycode), 0, 0));
    key.altDown = (event.state & Mod1Mask) != 0;
    key.ctrlDown = (event.state & ControlMask) != 0;
    key.shiftDown = (event.state & ShiftMask) != 0;
    key.winDown = (event.state & Mod4Mask) != 0;
    return key;
}

// A child of the root window that is not Puffino's came up or moved in the
// stacking order (a reparenting window manager's frame, a pop-up, a panel).
void NoteStacking(const XEvent& event) {
    Window window = 0;
    switch (event.type) {
    case MapNotify: window = event.xmap.window; break;
    case ConfigureNotify: window = event.xconfigure.window; break;
    case CirculateNotify: window = event.xcirculate.window; break;
    default: return;
    }
    if (!IsDisplayWindow(window)) g_restackPending = true;
}

Rect CrtcRect(const XRRCrtcInfo& crtc) {
    return {crtc.x, crtc.y, crtc.x + static_cast<int32_t>(crtc.width), crtc.y + static_cast<int32_t>(crtc.height)};
}

// The lit outputs' places, as SDL lists its displays (one per output with a
// mode), without asking the server to probe them. Monitors that a desktop
// defines on top (RandR monitors without outputs of their own, used to
// split a wide screen) are not displays to SDL and are left out.
std::vector<Rect> CurrentLayout() {
    std::vector<Rect> layout;
    if (!g_connection) return layout;
    XRRScreenResources* resources = XRRGetScreenResourcesCurrent(g_connection, DefaultRootWindow(g_connection));
    if (!resources) return layout;
    for (int i = 0; i < resources->ncrtc; ++i) {
        XRRCrtcInfo* crtc = XRRGetCrtcInfo(g_connection, resources, resources->crtcs[i]);
        if (!crtc) continue;
        if (crtc->mode != None && crtc->noutput > 0) layout.push_back(CrtcRect(*crtc));
        XRRFreeCrtcInfo(crtc);
    }
    XRRFreeScreenResources(resources);
    const auto byPlace = [](const Rect& a, const Rect& b) {
        return std::tie(a.left, a.top, a.right, a.bottom) < std::tie(b.left, b.top, b.right, b.bottom);
    };
    std::sort(layout.begin(), layout.end(), byPlace);
    return layout;
}

}  // namespace

bool OpenX11Desktop() {
    if (g_connection) return true;
    if (!VideoDriverIs("x11")) return false;
    // The same server SDL talks to: DISPLAY, as SDL read it.
    g_connection = XOpenDisplay(nullptr);
    if (!g_connection) return false;
    XSelectInput(g_connection, DefaultRootWindow(g_connection), SubstructureNotifyMask);
    XFlush(g_connection);
    return true;
}

void CloseX11Desktop() {
    if (!g_connection) return;
    XCloseDisplay(g_connection);  // lets go of the keyboard as well
    g_connection = nullptr;
}

bool HoldX11Keyboard(WindowHandle home) {
    const Window xwindow = XWindowOf(home);
    if (!g_connection || !xwindow) return false;
    // Asked again every time: a grab the server refused (another client
    // held the keyboard for a moment, the window was not yet viewable) is
    // taken up as soon as it can be, and one already held costs a reply.
    return XGrabKeyboard(g_connection, xwindow, False, GrabModeAsync, GrabModeAsync, CurrentTime) == GrabSuccess;
}

bool X11DesktopOpen() { return g_connection != nullptr; }

void ReleaseX11Keyboard() {
    if (!g_connection) return;
    XUngrabKeyboard(g_connection, CurrentTime);
    XFlush(g_connection);
}

void PumpX11Desktop() {
    if (!g_connection) return;
    while (XPending(g_connection) > 0) {
        XEvent event;
        XNextEvent(g_connection, &event);
        if (event.type == KeyPress || event.type == KeyRelease) {
            HandleGuardedKey(ReadKey(event.xkey));
            if (!g_connection) return;  // the key ended play
        } else {
            NoteStacking(event);
        }
    }
}

bool OthersRestacked() { return g_restackPending; }

void RaiseWindows() {
    g_restackPending = false;
    for (const DisplayWindow& window : g_displayWindows) {
        Display* display = nullptr;
        Window xwindow = 0;
        if (XWindowOf(window.window, display, xwindow)) {
            // Override-redirect: the server restacks at once, no window
            // manager interprets the request (nor turns it into a focus
            // change).
            XRaiseWindow(display, xwindow);
            XFlush(display);
        }
        // A Wayland window cannot raise itself (asking only marks it
        // urgent): the compositor keeps a full-screen one on top.
    }
}

void FocusX11Window(WindowHandle window) {
    Display* display = nullptr;
    Window xwindow = 0;
    if (!XWindowOf(window, display, xwindow)) return;
    // No window manager focuses an override-redirect window; SDL's own focus
    // call would leave the desktop with no focus at all (no shortcut works)
    // once play ends: the focus reverts to the pointer's window instead.
    XSetInputFocus(display, xwindow, RevertToPointerRoot, CurrentTime);
    XFlush(display);
}

uint32_t X11DesktopDpi(WindowHandle window) {
    Display* display = nullptr;
    Window xwindow = 0;
    if (!XWindowOf(window, display, xwindow)) return 0;
    // The X resource Xft.dpi, as SDL's connection read it when it opened.
    const char* resources = XResourceManagerString(display);
    return resources ? DpiFromXResources(resources) : 0;
}

void RememberX11Layout() { g_layoutAtRebuild = CurrentLayout(); }

bool X11LayoutChanged() {
    // Against the layout the windows were made for, not against the
    // windows: whatever the server lists that SDL does not, it lists again
    // on every tick, and the windows would be remade on every tick.
    return g_connection && CurrentLayout() != g_layoutAtRebuild;
}

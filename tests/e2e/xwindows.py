"""What the window system itself says of a window, and what its user does to one by the window's frame or a task bar."""

import ctypes
import ctypes.util

WITHDRAWN, NORMAL, ICONIC = 0, 1, 3  # WM_STATE
VIEWABLE = 2                         # map state
CLIENT_MESSAGE = 33
REDIRECT_OR_NOTIFY = 1 << 20 | 1 << 19
REMOVE, ADD = 0, 1                   # _NET_WM_STATE
BY_PAGER = 2                         # who asks


class _Attributes(ctypes.Structure):
    _fields_ = [(name, ctypes.c_int) for name in ("x", "y", "width", "height", "border", "depth")] + [
        ("visual", ctypes.c_void_p), ("root", ctypes.c_ulong)] + [
        (name, ctypes.c_int) for name in ("class_", "bit_gravity", "win_gravity", "backing_store")] + [
        ("backing_planes", ctypes.c_ulong), ("backing_pixel", ctypes.c_ulong), ("save_under", ctypes.c_int),
        ("colormap", ctypes.c_ulong), ("map_installed", ctypes.c_int), ("map_state", ctypes.c_int),
        ("all_events", ctypes.c_long), ("your_events", ctypes.c_long), ("no_propagate", ctypes.c_long),
        ("override_redirect", ctypes.c_int), ("screen", ctypes.c_void_p)]


class _ClientMessage(ctypes.Structure):
    _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("send_event", ctypes.c_int),
                ("display", ctypes.c_void_p), ("window", ctypes.c_ulong), ("message", ctypes.c_ulong),
                ("format", ctypes.c_int), ("data", ctypes.c_long * 5), ("room", ctypes.c_long * 12)]


_ERROR_HANDLER = ctypes.CFUNCTYPE(ctypes.c_int, ctypes.c_void_p, ctypes.c_void_p)


class XWindows:
    """A connection of its own to the display. A window that has gone is hidden, and nothing can be done to it."""

    def __init__(self, display):
        self._x = ctypes.CDLL(ctypes.util.find_library("X11"))
        self._x.XOpenDisplay.restype = ctypes.c_void_p
        for name in ("XInternAtom", "XDefaultRootWindow"):
            getattr(self._x, name).restype = ctypes.c_ulong
        self._ignore = _ERROR_HANDLER(lambda *_: 0)
        self._x.XSetErrorHandler(self._ignore)
        self._display = ctypes.c_void_p(self._x.XOpenDisplay(display.encode()))
        self._root = self._x.XDefaultRootWindow(self._display)

    def _atom(self, name):
        return self._x.XInternAtom(self._display, name.encode(), 0)

    def is_viewable(self, window):
        about = _Attributes()
        known = self._x.XGetWindowAttributes(self._display, ctypes.c_ulong(int(window)), ctypes.byref(about))
        return bool(known) and about.map_state == VIEWABLE

    def state(self, window):
        """WITHDRAWN, NORMAL or ICONIC, as the window manager has set it."""
        kind, form, items, left, data = (ctypes.c_ulong(), ctypes.c_int(), ctypes.c_ulong(), ctypes.c_ulong(),
                                         ctypes.c_void_p())
        atom = ctypes.c_ulong(self._atom("WM_STATE"))
        failed = self._x.XGetWindowProperty(
            self._display, ctypes.c_ulong(int(window)), atom, ctypes.c_long(0), ctypes.c_long(1), 0, atom,
            ctypes.byref(kind), ctypes.byref(form), ctypes.byref(items), ctypes.byref(left), ctypes.byref(data))
        if failed or not items.value:
            return WITHDRAWN
        state = ctypes.cast(data, ctypes.POINTER(ctypes.c_long))[0]
        self._x.XFree(data)
        return state

    def is_shown(self, window):
        """Whether its user can see it."""
        return self.is_viewable(window) and self.state(window) == NORMAL

    def is_hidden(self, window):
        """Whether neither a window nor an icon of it is there."""
        return not self.is_viewable(window) and self.state(window) == WITHDRAWN

    def _tell(self, window, message, *numbers):
        event = _ClientMessage(CLIENT_MESSAGE, 0, 1, self._display, int(window), self._atom(message), 32,
                               (ctypes.c_long * 5)(*numbers))
        self._x.XSendEvent(self._display, ctypes.c_ulong(self._root), 0, ctypes.c_long(REDIRECT_OR_NOTIFY),
                           ctypes.byref(event))
        self._x.XSync(self._display, 0)

    def minimise(self, window):
        self._tell(window, "WM_CHANGE_STATE", ICONIC)

    def activate(self, window):
        """As by a click in a task bar."""
        self._tell(window, "_NET_ACTIVE_WINDOW", BY_PAGER)

    def maximise(self, window, on=True):
        self._tell(window, "_NET_WM_STATE", ADD if on else REMOVE, self._atom("_NET_WM_STATE_MAXIMIZED_VERT"),
                   self._atom("_NET_WM_STATE_MAXIMIZED_HORZ"), BY_PAGER)

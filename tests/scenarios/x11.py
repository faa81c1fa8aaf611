# SPDX-FileCopyrightText: 2026 the Quarrow team
# SPDX-License-Identifier: MIT
"""A connection to an X server: what its windows are, and input like that of a pointer and a keyboard.

In this process, by way of Xlib: a program started for each look and each click would take most of a scenario's time.
"""

import collections
import ctypes
import ctypes.util

Window = collections.namedtuple("Window", "identifier title x y width height")


class _ClientMessage(ctypes.Structure):
    _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("send_event", ctypes.c_int),
                ("display", ctypes.c_void_p), ("window", ctypes.c_ulong), ("message_type", ctypes.c_ulong),
                ("format", ctypes.c_int), ("data", ctypes.c_long * 5), ("pad", ctypes.c_long * 24)]


class _WindowAttributes(ctypes.Structure):
    _fields_ = [("x", ctypes.c_int), ("y", ctypes.c_int), ("width", ctypes.c_int), ("height", ctypes.c_int),
                ("border_width", ctypes.c_int), ("depth", ctypes.c_int), ("visual", ctypes.c_void_p),
                ("root", ctypes.c_ulong), ("window_class", ctypes.c_int), ("bit_gravity", ctypes.c_int),
                ("win_gravity", ctypes.c_int), ("backing_store", ctypes.c_int), ("backing_planes", ctypes.c_ulong),
                ("backing_pixel", ctypes.c_ulong), ("save_under", ctypes.c_int), ("colormap", ctypes.c_ulong),
                ("map_installed", ctypes.c_int), ("map_state", ctypes.c_int), ("all_event_masks", ctypes.c_long),
                ("your_event_mask", ctypes.c_long), ("do_not_propagate_mask", ctypes.c_long),
                ("override_redirect", ctypes.c_int), ("screen", ctypes.c_void_p)]


class _TextProperty(ctypes.Structure):
    _fields_ = [("value", ctypes.c_void_p), ("encoding", ctypes.c_ulong), ("format", ctypes.c_int),
                ("items", ctypes.c_ulong)]


def _library(name):
    return ctypes.CDLL(ctypes.util.find_library(name))


# A window may close between two requests about it; Xlib's own error handler would end the process.
_IGNORE_ERRORS = ctypes.CFUNCTYPE(ctypes.c_int, ctypes.c_void_p, ctypes.c_void_p)(lambda *_: 0)


class Connection:
    """Close it before the server ends: Xlib ends a process whose server is gone."""

    _CLIENT_MESSAGE = 33
    _IS_VIEWABLE = 2
    _REVERT_TO_PARENT = 2

    def __init__(self, name):
        self._x, self._test = _library("X11"), _library("Xtst")
        self._x.XOpenDisplay.restype = ctypes.c_void_p
        for function in (self._x.XInternAtom, self._x.XStringToKeysym, self._x.XDefaultRootWindow,
                         self._x.XCreateSimpleWindow, self._x.XGetSelectionOwner):
            function.restype = ctypes.c_ulong
        self._x.XSetErrorHandler(_IGNORE_ERRORS)
        self._display = ctypes.c_void_p(self._x.XOpenDisplay(name.encode()))
        assert self._display, "no X server at " + name
        self._root = ctypes.c_ulong(self._x.XDefaultRootWindow(self._display))

    def close(self):
        if self._display:
            self._x.XCloseDisplay(self._display)
            self._display = None

    def flush(self):
        """Returns once the server has handled every request."""
        self._x.XSync(self._display, 0)

    def write_resources(self, text):
        """What the desktop tells the programs that are started from now on."""
        text = text.encode()
        self._x.XChangeProperty(self._display, self._root, self._atom("RESOURCE_MANAGER"), self._atom("STRING"), 8, 0,
                                text, len(text))
        self.flush()

    # Looking

    def titled_windows(self):
        """All windows that have a title and can be seen, the largest last, where they are on the screen."""
        found = []
        for window in self._below(self._root):
            title, attributes = self._title(window), _WindowAttributes()
            if title and self._x.XGetWindowAttributes(self._display, window, ctypes.byref(attributes)) and \
                    attributes.map_state == self._IS_VIEWABLE:
                x, y, child = ctypes.c_int(), ctypes.c_int(), ctypes.c_ulong()
                self._x.XTranslateCoordinates(self._display, window, self._root, 0, 0, ctypes.byref(x),
                                              ctypes.byref(y), ctypes.byref(child))
                found.append(Window(window.value, title, x.value, y.value, attributes.width, attributes.height))
        return sorted(found, key=lambda window: window.width * window.height)

    def _below(self, window):
        """The windows inside a window, at every depth."""
        root, parent, count = ctypes.c_ulong(), ctypes.c_ulong(), ctypes.c_uint()
        children = ctypes.POINTER(ctypes.c_ulong)()
        if not self._x.XQueryTree(self._display, window, ctypes.byref(root), ctypes.byref(parent),
                                  ctypes.byref(children), ctypes.byref(count)):
            return
        inner = [ctypes.c_ulong(child) for child in children[:count.value]]
        if children:
            self._x.XFree(children)
        for child in inner:
            yield child
            yield from self._below(child)

    def _title(self, window):
        title = _TextProperty()
        if not self._x.XGetTextProperty(self._display, window, ctypes.byref(title), self._atom("_NET_WM_NAME")):
            return ""
        text = ctypes.string_at(title.value, title.items).decode(errors="replace")
        self._x.XFree(ctypes.c_void_p(title.value))
        return text

    # What a player and a window manager do. Sent with the next request for an answer, or by flush().

    def move(self, x, y):
        self._test.XTestFakeMotionEvent(self._display, -1, int(x), int(y), ctypes.c_ulong(0))

    def click(self, button=1):
        """1 is the left button; 4 and 5 turn the wheel up and down."""
        for down in (1, 0):
            self._test.XTestFakeButtonEvent(self._display, button, down, ctypes.c_ulong(0))

    def press(self, *names):
        """Presses keys one after another, by their X names, and lets go of them in the reverse order."""
        codes = [code for code in map(self._key_code, names) if code]
        for code in codes:
            self._test.XTestFakeKeyEvent(self._display, code, 1, ctypes.c_ulong(0))
        for code in reversed(codes):
            self._test.XTestFakeKeyEvent(self._display, code, 0, ctypes.c_ulong(0))

    def hold(self, name):
        """Presses a key and does not let go of it."""
        self._test.XTestFakeKeyEvent(self._display, self._key_code(name), 1, ctypes.c_ulong(0))

    def _key_code(self, name):
        symbol = self._x.XStringToKeysym(name.encode())
        return self._x.XKeysymToKeycode(self._display, ctypes.c_ulong(symbol)) & 0xFF

    def press_close_button(self, window):
        """What a window manager sends when its close button is clicked."""
        event = self._message(window, "WM_PROTOCOLS")
        event.data[0] = self._atom("WM_DELETE_WINDOW").value
        self._x.XSendEvent(self._display, ctypes.c_ulong(window), 0, ctypes.c_long(0), ctypes.byref(event))

    def place(self, window, x, y, width, height):
        self._x.XMoveResizeWindow(self._display, ctypes.c_ulong(window), x, y, width, height)

    def resize(self, window, width, height):
        self._x.XResizeWindow(self._display, ctypes.c_ulong(window), width, height)

    def focus(self, window):
        """Gives the keyboard to a window; 0 gives it to none."""
        self._x.XSetInputFocus(self._display, ctypes.c_ulong(window), self._REVERT_TO_PARENT, ctypes.c_ulong(0))

    def focused(self):
        """The window that has the keyboard."""
        window, revert_to = ctypes.c_ulong(), ctypes.c_int()
        self._x.XGetInputFocus(self._display, ctypes.byref(window), ctypes.byref(revert_to))
        return window.value

    def show_other_window(self):
        """Opens a small window in the corner, and gives it the keyboard. Returns it."""
        window = self._x.XCreateSimpleWindow(self._display, self._root, 0, 0, 40, 40, 0, ctypes.c_ulong(0),
                                             ctypes.c_ulong(0))
        self._x.XMapRaised(self._display, ctypes.c_ulong(window))
        self.flush()
        self.focus(window)
        return window

    def has_window_manager(self):
        return self._x.XGetSelectionOwner(self._display, self._atom("WM_S0")) != 0

    def minimise(self, window):
        self._x.XIconifyWindow(self._display, ctypes.c_ulong(window), 0)

    def activate(self, window):
        """What a task bar asks the window manager for: the window is shown, and gets the keyboard."""
        event = self._message(window, "_NET_ACTIVE_WINDOW")
        event.data[0] = 2  # from a pager
        redirect_and_notify = ctypes.c_long((1 << 20) | (1 << 19))
        self._x.XSendEvent(self._display, self._root, 0, redirect_and_notify, ctypes.byref(event))

    def _message(self, window, kind):
        event = _ClientMessage()
        event.type, event.format = self._CLIENT_MESSAGE, 32
        event.window = window
        event.message_type = self._atom(kind).value
        return event

    def _atom(self, name):
        return ctypes.c_ulong(self._x.XInternAtom(self._display, name.encode(), 0))

# SPDX-FileCopyrightText: 2026 the Quarrow team
# SPDX-License-Identifier: MIT
"""A connection to an X server for what xdotool cannot do, or not fast enough: the close button, thousands of inputs."""

import ctypes
import ctypes.util


class _ClientMessage(ctypes.Structure):
    _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("send_event", ctypes.c_int),
                ("display", ctypes.c_void_p), ("window", ctypes.c_ulong), ("message_type", ctypes.c_ulong),
                ("format", ctypes.c_int), ("data", ctypes.c_long * 5), ("pad", ctypes.c_long * 24)]


def _library(name):
    library = ctypes.CDLL(ctypes.util.find_library(name))
    return library


class Connection:
    """Use it in a with statement, and close it before the server ends."""

    _CLIENT_MESSAGE = 33

    def __init__(self, name):
        self._x, self._test = _library("X11"), _library("Xtst")
        self._x.XOpenDisplay.restype = ctypes.c_void_p
        self._x.XInternAtom.restype = ctypes.c_ulong
        self._x.XStringToKeysym.restype = ctypes.c_ulong
        self._x.XDefaultRootWindow.restype = ctypes.c_ulong
        # One window or another goes away between two looks; Xlib's own handler would end the process.
        self._handler = ctypes.CFUNCTYPE(ctypes.c_int, ctypes.c_void_p, ctypes.c_void_p)(lambda *_: 0)
        self._x.XSetErrorHandler(self._handler)
        self._display = ctypes.c_void_p(self._x.XOpenDisplay(name.encode()))
        assert self._display, "no X server at " + name

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self._x.XCloseDisplay(self._display)

    def press_close_button(self, window):
        """What a window manager sends when its close button is clicked."""
        event = _ClientMessage()
        event.type, event.format = self._CLIENT_MESSAGE, 32
        event.window = window
        event.message_type = self._atom("WM_PROTOCOLS")
        event.data[0] = self._atom("WM_DELETE_WINDOW")
        self._x.XSendEvent(self._display, ctypes.c_ulong(window), 0, ctypes.c_long(0), ctypes.byref(event))
        self.flush()

    def move(self, x, y):
        self._test.XTestFakeMotionEvent(self._display, -1, int(x), int(y), ctypes.c_ulong(0))

    def button(self, number, down):
        self._test.XTestFakeButtonEvent(self._display, number, int(down), ctypes.c_ulong(0))

    def key(self, name, down):
        symbol = self._x.XStringToKeysym(name.encode())
        code = self._x.XKeysymToKeycode(self._display, ctypes.c_ulong(symbol)) & 0xFF
        if code:
            self._test.XTestFakeKeyEvent(self._display, code, int(down), ctypes.c_ulong(0))

    def resize(self, window, width, height):
        self._x.XResizeWindow(self._display, ctypes.c_ulong(window), width, height)

    def focus(self, window):
        """Gives the keyboard to a window; 0 takes it from all."""
        self._x.XSetInputFocus(self._display, ctypes.c_ulong(window), 2, ctypes.c_ulong(0))

    def flush(self):
        """Returns once the server has taken everything."""
        self._x.XSync(self._display, 0)

    def _atom(self, name):
        return self._x.XInternAtom(self._display, name.encode(), 0)

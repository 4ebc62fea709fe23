#pragma once

// Xlib defines None, which gtest uses too: include this after gtest.
#include <X11/Xlib.h>

// A bare virtual display has no window manager, so the atoms that one creates are missing and
// JUCE's window code asks the server about atom 0. Creating them on a connection that stays open
// keeps them for the tests (the server forgets atoms when its last client leaves).
inline void createWindowManagerAtoms (Display* display)
{
    if (display == nullptr)
        return;
    for (const char* name : { "WM_CHANGE_STATE", "WM_DELETE_WINDOW", "WM_PROTOCOLS", "WM_STATE", "WM_TAKE_FOCUS",
                              "_KDE_NET_WM_WINDOW_TYPE_OVERRIDE", "_MOTIF_WM_HINTS", "_NET_FRAME_EXTENTS",
                              "_NET_WM_ACTION_CLOSE", "_NET_WM_ACTION_FULLSCREEN", "_NET_WM_ACTION_MINIMIZE",
                              "_NET_WM_ACTION_RESIZE", "_NET_WM_ALLOWED_ACTIONS", "_NET_WM_PING", "_NET_WM_STATE",
                              "_NET_WM_STATE_ABOVE", "_NET_WM_STATE_FULLSCREEN", "_NET_WM_STATE_HIDDEN",
                              "_NET_WM_STATE_SKIP_TASKBAR", "_NET_WM_WINDOW_TYPE", "_NET_WM_WINDOW_TYPE_COMBO",
                              "_NET_WM_WINDOW_TYPE_NORMAL", "_NET_WORKAREA" })
        XInternAtom (display, name, False);
}

#include "editor/controls/DeskerLookAndFeel.h"

#include <gtest/gtest.h>

#include <X11/Xlib.h>

// GUI tests run on a JUCE message thread with the editor's look, under a virtual display.
int main (int argc, char** argv)
{
    ::testing::InitGoogleTest (&argc, argv);

    // A bare virtual display has no window manager, so the atoms that one creates are missing and
    // JUCE's window code asks the server about atom 0. This connection creates them and holds them
    // for the life of the tests (the server forgets atoms when its last client leaves).
    Display* display = XOpenDisplay (nullptr);
    if (display != nullptr)
        for (const char* name : { "WM_CHANGE_STATE", "WM_DELETE_WINDOW", "WM_PROTOCOLS", "WM_STATE", "WM_TAKE_FOCUS",
                                  "_KDE_NET_WM_WINDOW_TYPE_OVERRIDE", "_MOTIF_WM_HINTS", "_NET_FRAME_EXTENTS",
                                  "_NET_WM_ACTION_CLOSE", "_NET_WM_ACTION_FULLSCREEN", "_NET_WM_ACTION_MINIMIZE",
                                  "_NET_WM_ACTION_RESIZE", "_NET_WM_ALLOWED_ACTIONS", "_NET_WM_PING", "_NET_WM_STATE",
                                  "_NET_WM_STATE_ABOVE", "_NET_WM_STATE_FULLSCREEN", "_NET_WM_STATE_HIDDEN",
                                  "_NET_WM_STATE_SKIP_TASKBAR", "_NET_WM_WINDOW_TYPE", "_NET_WM_WINDOW_TYPE_COMBO",
                                  "_NET_WM_WINDOW_TYPE_NORMAL", "_NET_WORKAREA" })
            XInternAtom (display, name, False);

    juce::ScopedJuceInitialiser_GUI juce;
    int result = 0;
    {
        DeskerLookAndFeelScope look;
        result = RUN_ALL_TESTS();
    }

    if (display != nullptr)
        XCloseDisplay (display);
    return result;
}

#include "editor/controls/DeskerLookAndFeel.h"

#include <gtest/gtest.h>

// Xlib defines None, which gtest also uses: after it.
#include "WindowManagerAtoms.h"

// GUI tests run on a JUCE message thread with the editor's look, under a virtual display.
int main (int argc, char** argv)
{
    ::testing::InitGoogleTest (&argc, argv);

    // The connection holds the window manager's atoms for the life of the tests.
    Display* display = XOpenDisplay (nullptr);
    createWindowManagerAtoms (display);

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

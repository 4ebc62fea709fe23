#include "editor/controls/DeskerLookAndFeel.h"

#include <gtest/gtest.h>

// GUI tests run on a JUCE message thread with the editor's look, under a virtual display.
int main (int argc, char** argv)
{
    ::testing::InitGoogleTest (&argc, argv);
    juce::ScopedJuceInitialiser_GUI juce;
    int result = 0;
    {
        DeskerLookAndFeelScope look;
        result = RUN_ALL_TESTS();
    }
    return result;
}

#include "sound/ParDes.h"

#include <gtest/gtest.h>

namespace
{
juce::String text (int code, int value) { return ParDes::SndParDes (code, value); }
} // namespace

TEST (ParDes, KnobPositionsBelowTwoShowNothing)
{
    EXPECT_EQ (text (47, 3), "");
    EXPECT_EQ (text (47, 0), "");
    EXPECT_EQ (text (48, 1), "");
    EXPECT_EQ (text (53, 1), "");
    EXPECT_EQ (text (48, 2), "LFO/PGM");
    EXPECT_EQ (text (48, 7), "PITCH");
    EXPECT_EQ (text (53, 7), "32o");
    EXPECT_EQ (text (53, 8), "");
}

TEST (ParDes, SwitchesAndReversedKeyboardControl)
{
    EXPECT_EQ (text (56, 0), "ON");
    EXPECT_EQ (text (58, 0), "OFF");
    EXPECT_EQ (text (58, 1), "ON");
    EXPECT_EQ (text (59, 1), "LO");
    EXPECT_EQ (text (65, 1), "HIGHPASSLOWPASS");
    EXPECT_EQ (text (107, 5), "ON");
    EXPECT_EQ (text (107, 0), "OFF");
}

TEST (ParDes, NumericRules)
{
    EXPECT_EQ (text (18, 128), "0");
    EXPECT_EQ (text (18, 127), "-1");
    EXPECT_EQ (text (18, 255), "127");
    EXPECT_EQ (text (99, 64), "Hi: 0");
    EXPECT_EQ (text (100, 0), "Lo: -64");
    EXPECT_EQ (text (16, 65535), "255");
    EXPECT_EQ (text (21, 0), "-128");
    EXPECT_EQ (text (21, 32767), "0"); // truncated toward zero
    EXPECT_EQ (text (17, 200), "200");
    EXPECT_EQ (text (222, 300), "300");
    EXPECT_EQ (text (1234, -5), "-5");
}

TEST (ParDes, ControllerNumbersAndNotes)
{
    EXPECT_EQ (text (83, 0), "OFF");
    EXPECT_EQ (text (83, 7), "Contr. 7");
    EXPECT_EQ (text (94, 255), "OFF");
    EXPECT_EQ (text (94, 0), "Contr. 0");
    EXPECT_EQ (text (777, 36), "C5");
    EXPECT_EQ (text (777, 0), "C2");
    EXPECT_EQ (text (777, 13), "C#3");
    EXPECT_EQ (text (777, -30), "");
}

TEST (ParDes, ListsHaveTheirLengthsAndQuirks)
{
    struct List { int code; int size; const char* first; const char* last; };
    const List lists[] = {
        { 0, 40, "Pitch Bend Wheel", "Head Phone Level" },
        { 3, 4, "OFF", "100%" },
        { 46, 4, "ENV GATE", "OFF/SYNC" },
        { 69, 8, "NOISE", "Touch Surface Y" },
        { 70, 8, "LFO Rate", "Noise Level" },
        { 80, 32, "LFO Rate", "Key Pitch" },
        { 92, 14, "No Switch", "ENV Gate Sw." },
        { 96, 7, "Env Gate Input", "Gate is OFF!" },
        { 98, 43, "Offset Value", "Head Phone Level" },
        { 102, 11, " OFF", "Pre. - Value" },
        { 111, 8, "1 Normal Glide", "8 Legato Glide toggling" },
    };

    for (const auto& list : lists)
    {
        SCOPED_TRACE (list.code);
        EXPECT_EQ (text (list.code, 0), list.first);
        EXPECT_EQ (text (list.code, list.size - 1), list.last);
        EXPECT_EQ (text (list.code, list.size), "");
        EXPECT_EQ (text (list.code, -1), "");
    }

    EXPECT_EQ (text (98, 31), "Filter KB Amount");
    EXPECT_EQ (text (98, 41), "Master Volume "); // the one entry with a trailing blank
    EXPECT_EQ (text (98, 11), text (80, 0));
}

#include "sound/ParDes.h"

#include <gtest/gtest.h>

TEST (ParDes, TextRulesAndQuirks)
{
    struct Case { int code, value; const char* text; };
    const Case cases[] = {
        // Knob positions below two show nothing; switches; the reversed keyboard control.
        { 47, 3, "" }, { 47, 0, "" }, { 48, 1, "" }, { 53, 1, "" }, { 48, 2, "LFO/PGM" }, { 48, 7, "PITCH" },
        { 53, 7, "32o" }, { 53, 8, "" }, { 56, 0, "ON" }, { 58, 0, "OFF" }, { 58, 1, "ON" }, { 59, 1, "LO" },
        { 65, 1, "HIGHPASSLOWPASS" }, { 107, 5, "ON" }, { 107, 0, "OFF" },
        // Numbers: signed around 128, halves, 16 bits truncated toward zero, plain.
        { 18, 128, "0" }, { 18, 127, "-1" }, { 18, 255, "127" }, { 99, 64, "Hi: 0" }, { 100, 0, "Lo: -64" },
        { 16, 65535, "255" }, { 21, 0, "-128" }, { 21, 32767, "0" }, { 17, 200, "200" }, { 222, 300, "300" },
        { 1234, -5, "-5" },
        // Controller numbers and notes.
        { 83, 0, "OFF" }, { 83, 7, "Contr. 7" }, { 94, 255, "OFF" }, { 94, 0, "Contr. 0" }, { 777, 36, "C5" },
        { 777, 0, "C2" }, { 777, 13, "C#3" }, { 777, -30, "" },
        // List entries worth naming: the one with a trailing blank.
        { 98, 31, "Filter KB Amount" }, { 98, 41, "Master Volume " }, { 98, 11, "LFO Rate" } };
    for (const auto& c : cases)
        EXPECT_EQ (ParDes::SndParDes (c.code, c.value), c.text) << c.code << " " << c.value;

    struct List { int code, size; const char *first, *last; };
    const List lists[] = {
        { 0, 40, "Pitch Bend Wheel", "Head Phone Level" }, { 3, 4, "OFF", "100%" }, { 46, 4, "ENV GATE", "OFF/SYNC" },
        { 69, 8, "NOISE", "Touch Surface Y" }, { 70, 8, "LFO Rate", "Noise Level" }, { 80, 32, "LFO Rate", "Key Pitch" },
        { 92, 14, "No Switch", "ENV Gate Sw." }, { 96, 7, "Env Gate Input", "Gate is OFF!" },
        { 98, 43, "Offset Value", "Head Phone Level" }, { 102, 11, " OFF", "Pre. - Value" },
        { 111, 8, "1 Normal Glide", "8 Legato Glide toggling" } };
    for (const auto& list : lists)
    {
        SCOPED_TRACE (list.code);
        EXPECT_EQ (ParDes::SndParDes (list.code, 0), list.first);
        EXPECT_EQ (ParDes::SndParDes (list.code, list.size - 1), list.last);
        EXPECT_EQ (ParDes::SndParDes (list.code, list.size) + ParDes::SndParDes (list.code, -1), "");
    }
}

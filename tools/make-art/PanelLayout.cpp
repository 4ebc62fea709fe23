#include "PanelLayout.h"

namespace
{
const PanelLayout::Control table[] = {
    { 17, "RATE", 3, 17, 255, { 49, 66, 66, 66 }, PanelLayout::Place::above },
    { 46, "SYNC", 9, 46, 3, { 52, 168, 60, 60 }, PanelLayout::Place::below },
    { 100, "FINE TUNE", 5, 17, 255, { 60, 274, 44, 55 }, PanelLayout::Place::above },
    { 18, "GLIDE RATE", 5, 17, 255, { 60, 366, 44, 55 }, PanelLayout::Place::above },

    { 47, "SOURCE", 9, 47, 5, { 150, 69, 60, 60 }, PanelLayout::Place::below },
    { 48, "DESTINATION", 9, 48, 5, { 150, 168, 60, 60 }, PanelLayout::Place::below },
    { 49, "SHAPING", 9, 49, 3, { 150, 266, 60, 60 }, PanelLayout::Place::below },
    { 50, "SOURCE", 9, 47, 5, { 247, 69, 60, 60 }, PanelLayout::Place::below },
    { 51, "DESTINATION", 9, 48, 5, { 247, 168, 60, 60 }, PanelLayout::Place::below },
    { 52, "SHAPING", 9, 49, 3, { 247, 266, 60, 60 }, PanelLayout::Place::below },
    { 19, "AMOUNT", 5, 17, 255, { 158, 366, 44, 55 }, PanelLayout::Place::above },
    { 20, "AMOUNT", 5, 17, 255, { 255, 366, 44, 55 }, PanelLayout::Place::above },

    { 21, "FREQUENCY", 3, 18, 255, { 433, 66, 66, 66 }, PanelLayout::Place::above },
    { 22, "FREQUENCY", 3, 18, 255, { 527, 66, 66, 66 }, PanelLayout::Place::above },
    { 53, "OCTAVE", 9, 53, 5, { 342, 168, 60, 60 }, PanelLayout::Place::below },
    { 54, "OCTAVE", 9, 53, 5, { 436, 168, 60, 60 }, PanelLayout::Place::below },
    { 55, "OCTAVE", 9, 53, 5, { 530, 168, 60, 60 }, PanelLayout::Place::below },
    { 23, "WAVEFORM", 5, 17, 255, { 350, 274, 44, 55 }, PanelLayout::Place::above },
    { 24, "WAVEFORM", 5, 17, 255, { 444, 274, 44, 55 }, PanelLayout::Place::above },
    { 25, "WAVEFORM", 5, 17, 255, { 538, 274, 44, 55 }, PanelLayout::Place::above },
    { 56, "1-2 SYNC", 112, 58, 1, { 361, 362, 40, 50 }, PanelLayout::Place::below },
    { 57, "3-1 FM", 112, 58, 1, { 419, 362, 40, 50 }, PanelLayout::Place::below },
    { 58, "3 KB CTRL", 112, 56, 1, { 491, 362, 40, 50 }, PanelLayout::Place::below },
    { 59, "3 FREQ", 112, 59, 1, { 549, 362, 40, 50 }, PanelLayout::Place::below },

    { 27, "EXT AUDIO", 5, 17, 255, { 949, 76, 44, 55 }, PanelLayout::Place::above },
    { 28, "OSC 1", 5, 17, 255, { 949, 152, 44, 55 }, PanelLayout::Place::above },
    { 29, "OSC 2", 5, 17, 255, { 949, 224, 44, 55 }, PanelLayout::Place::above },
    { 30, "OSC 3", 5, 17, 255, { 949, 297, 44, 55 }, PanelLayout::Place::above },
    { 31, "NOISE", 5, 17, 255, { 949, 370, 44, 55 }, PanelLayout::Place::above },
    { 60, "", 113, 58, 1, { 1014, 88, 50, 34 }, PanelLayout::Place::none },
    { 61, "", 113, 58, 1, { 1014, 164, 50, 34 }, PanelLayout::Place::none },
    { 62, "", 113, 58, 1, { 1014, 236, 50, 34 }, PanelLayout::Place::none },
    { 63, "", 113, 58, 1, { 1014, 309, 50, 34 }, PanelLayout::Place::none },
    { 64, "", 113, 58, 1, { 1014, 382, 50, 34 }, PanelLayout::Place::none },

    { 32, "CUTOFF", 3, 17, 255, { 1095, 65, 66, 66 }, PanelLayout::Place::above },
    { 26, "SPACING", 5, 18, 255, { 1106, 152, 44, 55 }, PanelLayout::Place::above },
    { 33, "RESONANCE", 5, 17, 255, { 1106, 224, 44, 55 }, PanelLayout::Place::above },
    { 35, "KB AMOUNT", 5, 17, 255, { 1106, 297, 44, 55 }, PanelLayout::Place::above },
    { 65, "MODE", 111, 65, 1, { 1102, 382, 50, 44 }, PanelLayout::Place::above },

    { 37, "ATTACK", 5, 17, 255, { 1204, 76, 44, 55 }, PanelLayout::Place::above },
    { 38, "DECAY", 5, 17, 255, { 1204, 152, 44, 55 }, PanelLayout::Place::above },
    { 39, "SUSTAIN", 5, 17, 255, { 1204, 224, 44, 55 }, PanelLayout::Place::above },
    { 40, "RELEASE", 5, 17, 255, { 1204, 297, 44, 55 }, PanelLayout::Place::above },
    { 34, "AMOUNT", 5, 18, 255, { 1204, 370, 44, 55 }, PanelLayout::Place::above },
    { 41, "ATTACK", 5, 17, 255, { 1300, 76, 44, 55 }, PanelLayout::Place::above },
    { 42, "DECAY", 5, 17, 255, { 1300, 152, 44, 55 }, PanelLayout::Place::above },
    { 43, "SUSTAIN", 5, 17, 255, { 1300, 224, 44, 55 }, PanelLayout::Place::above },
    { 44, "RELEASE", 5, 17, 255, { 1300, 297, 44, 55 }, PanelLayout::Place::above },
    { 66, "ENV GATE", 111, 66, 1, { 1286, 382, 70, 44 }, PanelLayout::Place::above },

    { 45, "VOLUME", 3, 17, 255, { 1389, 65, 66, 66 }, PanelLayout::Place::above },
    { 36, "PHONES", 5, 17, 255, { 1400, 224, 44, 55 }, PanelLayout::Place::above },
};
} // namespace

std::span<const PanelLayout::Control> PanelLayout::controls() { return table; }

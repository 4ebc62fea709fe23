#pragma once

#include <utility>

// Lowest and highest value of each parameter a program dump carries, by the ranges of the
// controls (and, for the fields with no control, by the width of their field).
inline std::pair<int, int> soundParameterRange (int i)
{
    if (i <= 15)
        return { 0, (i == 2 || i == 5 || i == 9 || i == 13) ? 1 : i % 4 == 3 ? 3 : 39 };
    if (i <= 45 || i == 104)
        return { 0, 65535 };
    if (i <= 55)
        return { 0, (i == 46 || i == 49 || i == 52) ? 3 : 5 };
    if (i > 150)
        return { 32, 126 }; // names: printable characters
    switch (i)
    {
        case 69: case 70: case 71: case 72: case 111: return { 0, 7 };
        case 73: case 102: case 103: return { 0, 10 };
        case 74: case 75: case 76: case 81: case 85: case 89: case 120: return { 0, 3 };
        case 80: case 84: case 88: case 150: return { 0, 31 };
        case 83: case 87: case 91: case 94: case 99: case 101: case 105: case 109: case 110: case 121: case 122:
            return { 0, 127 };
        case 92: return { 0, 13 };
        case 95: return { 2, 96 };
        case 96: case 97: return { 0, 6 };
        case 98: case 100: return { 0, 42 };
        case 123: return { 0, 15 };
        case 124: return { 0, 72 }; // a raw mask of bits 3 and 6: 0, 8, 64 or 72
        default: return { 0, 1 };  // switches and one-bit fields
    }
}

inline bool inSoundDump (int index)
{
    return index <= 114 || (index >= 120 && index <= 125) || (index >= 150 && index <= 174);
}

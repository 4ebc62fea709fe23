#include "sound/AutoBank.h"

namespace
{
// The hardware's writer adds each field into its bytes. Only the parts of a
// field that run on into a later byte are cut to seven bits; the last part is
// added as it stands, so a value wider than its field spills into the bits
// above it. In-range values never do.
inline void addField (int* bytes, int bit, int width, int value)
{
    auto byte = bit / 7;
    auto shift = bit % 7;
    const auto lastByte = (bit + width - 1) / 7;
    if (byte == lastByte)
    {
        bytes[byte] += value << shift;
        return;
    }
    bytes[byte] += (value << shift) & 127;
    auto consumed = 7 - shift;
    for (++byte; byte < lastByte; ++byte, consumed += 7)
        bytes[byte] += (value >> consumed) & 127;
    bytes[lastByte] += value >> consumed;
}

juce::MemoryBlock frame (const juce::MemoryBlock& packed, int size, int byte3, int byte4, int offset)
{
    juce::MemoryBlock mb ((size_t) size, true);
    auto* d = static_cast<unsigned char*> (mb.getData());
    d[0] = 0xF0;
    d[1] = 0x04;
    d[2] = 0x01;
    d[3] = (unsigned char) byte3;
    d[4] = (unsigned char) byte4;
    std::memcpy (d + offset, packed.getData(), (size_t) AutoBank::packedBytes);
    d[size - 1] = 0xF7;
    return mb;
}
} // namespace

juce::MemoryBlock AutoBank::Pack_Patch_Tolk (juce::Array<unsigned short>& parameters)
{
    // Missing elements read as 0.
    int p[numParameters];
    for (int i = 0; i < numParameters; ++i)
        p[i] = i < parameters.size() ? (int) parameters.getUnchecked (i) : 0;

    int b[packedBytes] = {};
    for (int f = 0; f < numPlainFields; ++f)
        addField (b, plainFields[f].bit, plainFields[f].width, p[plainFields[f].param]);

    for (int i = 0; i < nameLength; ++i)
        addField (b, firstNameBit + 8 * i, 8, p[nameParam + i]);
    b[109] += 16; // top bit of name character 12 is always set in a dump

    // Bytes 86 to 95: the switches, stored inverted, and the pole bits. These
    // formulas are the hardware's own (signed division and remainder) and are
    // kept exactly, including byte 95's read of the parameter that parameter
    // 75 points at.
    const auto pointed = juce::isPositiveAndBelow (p[75], numParameters) ? p[p[75]] : 0;
    b[86] = (((3 - p[46]) % 2) * 64) | (p[45] >> 10);
    b[87] = (3 - p[46]) / 2 - (p[48] * 16 + p[47] * 2) + 126;
    b[88] = (3 - p[49]) - p[50] * 4 + ((7 - p[51]) % 4) * 32 + 28;
    b[89] = (7 - p[51]) / 4 - (p[52] * 2 + p[53] * 8) + ((7 - p[54]) % 2) * 64 + 62;
    b[90] = (7 - p[54]) / 2 - (p[55] * 4 + p[56] * 32 + p[57] * 64) + 124;
    b[91] = 3 - (p[58] + p[59] * 2) - (p[60] * 8 + p[61] * 16 + p[62] * 32 + p[63] * 64) + (p[75] & 1) * 4 + 120;
    b[92] = (p[67] == 0 ? 16 : 0) + (p[68] == 0 ? 32 : 0) + p[124] - (p[64] + p[65] * 2) + 3 + ((1 - p[66]) % 2) * 4;
    b[93] = p[125] + p[69] * 2 + p[70] * 16;
    b[94] = p[71] + p[72] * 8 + 64;
    b[95] = ((pointed * 16 & 0xE0) + (p[74] & 1) * 16 + p[74] * 4) | 7;

    juce::MemoryBlock mb (packedBytes + 2, true);
    auto* d = static_cast<unsigned char*> (mb.getData());
    for (int i = 0; i < packedBytes; ++i)
        d[i] = (unsigned char) b[i];
    return mb;
}

juce::MemoryBlock AutoBank::Pack_Tolk_From_Bank (int program)
{
    auto words = getStoredProgram (program);
    return Pack_Patch_Tolk (words);
}

juce::MemoryBlock AutoBank::Export_Syx_Bank_Rom_MB (int program, int programNumber, int deviceId, int)
{
    auto mb = frame (Pack_Tolk_From_Bank (program), romFrameBytes, deviceId, 0x03, 6);
    static_cast<unsigned char*> (mb.getData())[5] = (unsigned char) programNumber;
    return mb;
}

juce::MemoryBlock AutoBank::Export_Syx_Bank_Buf_MB (int program, int)
{
    return frame (Pack_Tolk_From_Bank (program), patchFrameBytes, 0, 0x02, 5);
}

juce::MemoryBlock AutoBank::Export_Syx_Patch_Buf_MB (int deviceId)
{
    return frame (Pack_Patch_Tolk (patchData), patchFrameBytes, deviceId, 0x02, 5);
}

#include "sound/AutoBank.h"

namespace
{
// Takes a field back from the stream of seven-bit bytes; bit 7 of a byte is
// never part of a field.
inline int readField (const unsigned char* bytes, int bit, int width)
{
    int value = 0;
    int got = 0;
    auto byte = bit / 7;
    auto shift = bit % 7;
    while (got < width)
    {
        const auto take = juce::jmin (7 - shift, width - got);
        value |= ((bytes[byte] >> shift) & ((1 << take) - 1)) << got;
        got += take;
        ++byte;
        shift = 0;
    }
    return value;
}
} // namespace

void AutoBank::UnPack_Patch_Tolk (juce::Array<unsigned char>& packed, juce::Array<unsigned short>& parameters)
{
    // Bytes the array lacks read as 0; anything after byte 142 is ignored.
    unsigned char b[packedBytes];
    const auto available = juce::jmin (packed.size(), (int) packedBytes);
    for (int i = 0; i < packedBytes; ++i)
        b[i] = i < available ? packed.getUnchecked (i) : 0;

    parameters.resize (numParameters);
    auto* p = parameters.getRawDataPointer();

    for (int f = 0; f < numPlainFields; ++f)
        p[plainFields[f].param] = (unsigned short) readField (b, plainFields[f].bit, plainFields[f].width);

    for (int f = 0; f < numInvertedFields; ++f)
    {
        const auto& field = invertedFields[f];
        p[field.param] = (unsigned short) (~readField (b, field.bit, field.width) & ((1 << field.width) - 1));
    }

    // The reader's own forms for 73 to 75, 110 and 124, which the hardware
    // shares; they are not the writer's mirror image and must stay so.
    p[73] = (unsigned short) ((b[95] & 7) * 2 + (b[94] >> 6));
    p[74] = (unsigned short) (((b[95] >> 2) & 2) | ((b[95] >> 4) & 1));
    p[75] = (unsigned short) (((b[91] >> 2) & 1) + ((b[95] >> 4) & 2));
    p[110] = (unsigned short) ((b[141] >> 5) + ((b[142] * 2) & 126));
    p[124] = (unsigned short) (b[92] & 72);

    // The name: eight bits per character, sign-extended into the word.
    // Character 12 loses the bit the writer always sets; a character 24 with
    // its top bit set reads as a space.
    unsigned char name[nameLength];
    for (int i = 0; i < nameLength; ++i)
        name[i] = (unsigned char) readField (b, firstNameBit + 8 * i, 8);
    name[11] &= 127;
    if (name[23] >= 128)
        name[23] = 32;
    for (int i = 0; i < nameLength; ++i)
        p[nameParam + i] = (unsigned short) (short) (signed char) name[i];
}

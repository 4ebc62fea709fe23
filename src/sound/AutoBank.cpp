#include "sound/AutoBank.h"

#include "sound/TolkCorvaneBanks.h"

namespace
{
constexpr unsigned short at (int byte, int bit) { return (unsigned short) (byte * 7 + bit); }
}

const AutoBank::PackedField AutoBank::plainFields[] = {
    { 0, at (0, 0), 6 },    { 2, at (1, 0), 1 },    { 1, at (1, 1), 6 },    { 3, at (2, 0), 2 },
    { 4, at (2, 2), 6 },    { 5, at (3, 2), 1 },    { 6, at (3, 3), 6 },    { 7, at (4, 2), 2 },
    { 8, at (4, 4), 6 },    { 9, at (5, 4), 1 },    { 10, at (5, 5), 6 },   { 11, at (6, 4), 2 },
    { 12, at (6, 6), 6 },   { 13, at (7, 6), 1 },   { 14, at (8, 0), 6 },   { 15, at (8, 6), 2 },
    { 16, at (9, 1), 16 },  { 150, at (11, 3), 5 }, { 111, at (12, 1), 3 }, { 102, at (12, 4), 4 },
    { 103, at (13, 1), 4 }, { 104, at (13, 5), 16 }, { 105, at (16, 0), 7 }, { 106, at (17, 0), 1 },
    { 107, at (17, 1), 1 }, { 108, at (17, 2), 1 }, { 112, at (17, 3), 1 }, { 113, at (17, 4), 1 },
    { 120, at (17, 5), 2 }, { 121, at (18, 0), 7 }, { 122, at (19, 0), 7 }, { 123, at (20, 0), 4 },
    // 17 to 45: one run of 16-bit fields from stream bit 144
    { 17, 144, 16 },  { 18, 160, 16 },  { 19, 176, 16 },  { 20, 192, 16 },  { 21, 208, 16 },
    { 22, 224, 16 },  { 23, 240, 16 },  { 24, 256, 16 },  { 25, 272, 16 },  { 26, 288, 16 },
    { 27, 304, 16 },  { 28, 320, 16 },  { 29, 336, 16 },  { 30, 352, 16 },  { 31, 368, 16 },
    { 32, 384, 16 },  { 33, 400, 16 },  { 34, 416, 16 },  { 35, 432, 16 },  { 36, 448, 16 },
    { 37, 464, 16 },  { 38, 480, 16 },  { 39, 496, 16 },  { 40, 512, 16 },  { 41, 528, 16 },
    { 42, 544, 16 },  { 43, 560, 16 },  { 44, 576, 16 },  { 45, 592, 16 },
    { 125, at (93, 0), 1 }, { 69, at (93, 1), 3 }, { 70, at (93, 4), 3 }, { 71, at (94, 0), 3 },
    { 72, at (94, 3), 3 },
    { 76, at (123, 3), 2 }, { 77, at (124, 0), 1 }, { 78, at (124, 1), 1 }, { 79, at (124, 2), 1 },
    { 80, at (124, 4), 5 }, { 81, at (125, 2), 2 }, { 82, at (125, 4), 1 }, { 83, at (125, 5), 7 },
    { 84, at (126, 6), 5 }, { 85, at (127, 4), 2 }, { 86, at (127, 6), 1 }, { 87, at (128, 0), 7 },
    { 88, at (129, 1), 5 }, { 89, at (129, 6), 2 }, { 90, at (130, 1), 1 }, { 91, at (130, 2), 7 },
    { 92, at (131, 3), 4 }, { 93, at (132, 3), 1 }, { 94, at (132, 4), 7 }, { 114, at (133, 4), 1 },
    { 95, at (133, 5), 7 }, { 96, at (134, 6), 3 }, { 97, at (135, 2), 3 }, { 98, at (136, 0), 6 },
    { 99, at (137, 3), 7 }, { 109, at (138, 3), 7 }, { 100, at (139, 3), 6 }, { 101, at (140, 6), 7 },
    { 110, at (141, 6), 7 },
};
const int AutoBank::numPlainFields = (int) (sizeof (plainFields) / sizeof (plainFields[0]));

const AutoBank::PackedField AutoBank::invertedFields[] = {
    { 46, at (86, 6), 2 }, { 47, at (87, 1), 3 }, { 48, at (87, 4), 3 }, { 49, at (88, 0), 2 },
    { 50, at (88, 2), 3 }, { 51, at (88, 5), 3 }, { 52, at (89, 1), 2 }, { 53, at (89, 3), 3 },
    { 54, at (89, 6), 3 }, { 55, at (90, 2), 3 }, { 56, at (90, 5), 1 }, { 57, at (90, 6), 1 },
    { 58, at (91, 0), 1 }, { 59, at (91, 1), 1 }, { 60, at (91, 3), 1 }, { 61, at (91, 4), 1 },
    { 62, at (91, 5), 1 }, { 63, at (91, 6), 1 }, { 64, at (92, 0), 1 }, { 65, at (92, 1), 1 },
    { 66, at (92, 2), 1 }, { 67, at (92, 4), 1 }, { 68, at (92, 5), 1 },
};
const int AutoBank::numInvertedFields = (int) (sizeof (invertedFields) / sizeof (invertedFields[0]));

AutoBank::AutoBank (int number)
    : bankIndex (number),
      bankData (bankBytes, true)
{
    patchData.resize (numParameters);
}

AutoBank::~AutoBank() = default;

juce::String AutoBank::GetBankName (int bank)
{
    return "Program Bank " + juce::String::charToString ((juce::juce_wchar) (65 + bank));
}

juce::String AutoBank::Category (int category)
{
    static const char* const names[32] = {
        "- Not Assigned -", "Piano", "Organs", "Strings", "Clav", "Pads", "Soft Lead", "Bright Lead",
        "Res Lead", "Sync", "Brass", "Horn", "Instruments", "Evolution", "Motion", "Interval",
        "Synth", "Vox", "Bells", "Sequence", "Percussion", "Heritage", "Classic", "Generic",
        "Harmonics", "Ring", "Noise", "Soft Bass", "Bright Bass", "Res Bass", "Sub Bass", "Sound FX",
    };
    return juce::isPositiveAndBelow (category, 32) ? juce::String (names[category]) : juce::String();
}

int AutoBank::fromASC (juce::String character)
{
    // The first code from 20 to 159 whose one-character string equals the
    // argument; anything else is a space.
    if (character.length() == 1)
    {
        const auto code = (int) character[0];
        if (code >= 20 && code <= 159)
            return code;
    }
    return 32;
}

void AutoBank::copyStoredProgram (int program, juce::Array<unsigned short>& words) const
{
    words.resize (numParameters); // no allocation when it already holds a program
    const bool inRange = juce::isPositiveAndBelow (program, numPrograms);
    auto* src = static_cast<const unsigned char*> (bankData.getData()) + (inRange ? program * programBytes : 0);

    for (int i = 0; i < numParameters; ++i)
        words.setUnchecked (i, inRange ? (unsigned short) (src[2 * i] | (src[2 * i + 1] << 8)) : (unsigned short) 0);
}

juce::Array<unsigned short> AutoBank::getStoredProgram (int program) const
{
    juce::Array<unsigned short> words;
    copyStoredProgram (program, words);
    return words;
}

void AutoBank::setStoredProgram (int program, const juce::Array<unsigned short>& words)
{
    if (! juce::isPositiveAndBelow (program, numPrograms))
        return;
    auto* dst = static_cast<unsigned char*> (bankData.getData()) + program * programBytes;
    for (int i = 0; i < numParameters; ++i)
    {
        const auto w = words[i];
        dst[2 * i] = (unsigned char) (w & 0xFF);
        dst[2 * i + 1] = (unsigned char) (w >> 8);
    }
}

juce::String AutoBank::get_ProgramName (int program)
{
    const auto words = getStoredProgram (program);
    juce::String name;
    for (int i = 0; i < nameLength; ++i)
        name << juce::String::charToString ((juce::juce_wchar) (words.getUnchecked (nameParam + i) & 0xFF));
    return name;
}

juce::String AutoBank::PatchGetName()
{
    juce::String name;
    for (int i = 0; i < nameLength; ++i)
        name << juce::String::charToString ((juce::juce_wchar) patchData[nameParam + i]);
    return name;
}

void AutoBank::importRecord (int program, const unsigned char* record, size_t size)
{
    // The packed program starts at offset 5 of a 149-byte record, whether it
    // is a framed dump or an unframed factory record; the header is not read.
    if (size != (size_t) patchFrameBytes)
        return;
    juce::Array<unsigned char> packed (record + 5, patchFrameBytes - 5);
    juce::Array<unsigned short> words;
    UnPack_Patch_Tolk (packed, words);
    setStoredProgram (program, words);
}

void AutoBank::Import_Syx_MB (int program, juce::MemoryBlock dump)
{
    importRecord (program, static_cast<const unsigned char*> (dump.getData()), dump.getSize());
}

void AutoBank::Import_Syx_U8 (int program, juce::Array<unsigned char> dump)
{
    importRecord (program, dump.getRawDataPointer(), (size_t) dump.size());
}

void AutoBank::PatchImport_Syx (juce::Array<unsigned char> dump)
{
    if (dump.size() != patchFrameBytes)
        return;
    juce::Array<unsigned char> packed (dump.getRawDataPointer() + 5, patchFrameBytes - 5);
    UnPack_Patch_Tolk (packed, patchData);
}

void AutoBank::BankToPatch (int program)
{
    if (juce::isPositiveAndBelow (program, numPrograms))
        copyStoredProgram (program, patchData);
}

void AutoBank::Initialize_Bank()
{
    TolkCorvaneBanks factory;
    auto initial = factory.Initial_Program();
    juce::Array<unsigned short> words;
    UnPack_Patch_Tolk (initial, words);

    // In place: other threads may be reading the store while it is initialised.
    for (int p = 0; p < numPrograms; ++p)
        setStoredProgram (p, words);

    if (patchData.size() < numParameters)
        patchData.resize (numParameters);
    for (int i = 0; i < numParameters; ++i)
        patchData.setUnchecked (i, words.getUnchecked (i));
}

void AutoBank::PreloadFactoryData (int set, int bank)
{
    const char* data = nullptr;
    int size = 0;
    TolkCorvaneBanks factory;
    if (! factory.getSet (set, data, size))
        return;

    juce::MemoryBlock block (data, (size_t) size);
    // Bank b is the 128 records starting at record b: the stride is one
    // record, not one bank, which is how the factory menus address the sets.
    if (bank < 0 || size / patchFrameBytes <= bank)
        return;

    const auto* bytes = static_cast<const unsigned char*> (block.getData());
    for (int program = 0; program < numPrograms; ++program)
    {
        // Records that run past the set's end read their missing bytes as 0.
        unsigned char record[patchFrameBytes] = {};
        const auto start = (size_t) (bank + program) * patchFrameBytes;
        if (start < block.getSize())
            std::memcpy (record, bytes + start, juce::jmin ((size_t) patchFrameBytes, block.getSize() - start));
        Import_Syx_MB (program, juce::MemoryBlock (record, sizeof (record)));
    }
}

#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

// One bank of 128 programs plus the working program the editor shows.
// A program is its 200 parameter words; the store keeps them low byte first,
// 400 bytes per program. Dumps from and to the hardware go through the codec
// in AutoBankPack.cpp / AutoBankUnPack.cpp.
class AutoBank : public juce::Component
{
public:
    static constexpr int numPrograms = 128;
    static constexpr int numParameters = 200;
    static constexpr int programBytes = numParameters * 2;     // 400
    static constexpr int bankBytes = numPrograms * programBytes; // 51200
    static constexpr int packedBytes = 143;
    static constexpr int patchFrameBytes = 149;
    static constexpr int romFrameBytes = 154;

    explicit AutoBank (int number);
    ~AutoBank() override;

    static juce::String GetBankName (int bank);
    static juce::String Category (int category);
    static int fromASC (juce::String character);

    juce::String get_ProgramName (int program);
    juce::String PatchGetName();

    void Import_Syx_MB (int program, juce::MemoryBlock dump);
    void Import_Syx_U8 (int program, juce::Array<unsigned char> dump);
    void PatchImport_Syx (juce::Array<unsigned char> dump);
    void BankToPatch (int program);

    // Codec (AutoBankPack.cpp, AutoBankUnPack.cpp).
    static juce::MemoryBlock Pack_Patch_Tolk (juce::Array<unsigned short>& parameters);
    static void UnPack_Patch_Tolk (juce::Array<unsigned char>& packed, juce::Array<unsigned short>& parameters);
    juce::MemoryBlock Pack_Tolk_From_Bank (int program);
    juce::MemoryBlock Export_Syx_Bank_Rom_MB (int program, int programNumber, int deviceId, int);
    juce::MemoryBlock Export_Syx_Bank_Buf_MB (int program, int);
    juce::MemoryBlock Export_Syx_Patch_Buf_MB (int deviceId);

    // Factory data (TolkCorvaneBanks).
    void Initialize_Bank();
    void PreloadFactoryData (int set, int bank);

    // The 200 words of a stored program; a program outside 0..127 reads as zeros.
    juce::Array<unsigned short> getStoredProgram (int program) const;
    // The same into an existing array, without allocating when it already holds 200 words: the
    // audio thread recalls programs this way.
    void copyStoredProgram (int program, juce::Array<unsigned short>& words) const;
    // Writes 200 words into a stored program, missing words as 0; a program
    // outside 0..127 is ignored.
    void setStoredProgram (int program, const juce::Array<unsigned short>& words);

    const int bankIndex;
    juce::MemoryBlock bankData;            // the store, bankBytes long
    juce::Array<unsigned short> patchData; // the working program, 200 words

private:
    // A field of the packed program: parameter, first bit in the stream of
    // seven-bit bytes (byte * 7 + bit), width. Bytes 86 to 95 (switches,
    // poles) and the name have rules of their own and are not listed.
    struct PackedField
    {
        unsigned char param;
        unsigned short bit;
        unsigned char width;
    };
    static const PackedField plainFields[];
    static const int numPlainFields;
    // Switches stored as the complement of their bits.
    static const PackedField invertedFields[];
    static const int numInvertedFields;
    static constexpr int firstNameBit = 672;
    static constexpr int nameLength = 24;
    static constexpr int nameParam = 151;

    void importRecord (int program, const unsigned char* record, size_t size);

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (AutoBank)
};

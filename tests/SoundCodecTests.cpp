#include <gtest/gtest.h>

#include "SoundParameterRanges.h"
#include "sound/AutoBank.h"
#include "sound/TolkCorvaneBanks.h"

#include <map>
#include <random>

namespace
{
juce::Array<unsigned char> toArray (const juce::MemoryBlock& mb, int count)
{
    juce::Array<unsigned char> a;
    for (int i = 0; i < count; ++i)
        a.add (i < (int) mb.getSize() ? static_cast<const unsigned char*> (mb.getData())[i] : 0);
    return a;
}

juce::Array<unsigned short> zeros()
{
    juce::Array<unsigned short> a;
    a.resize (200);
    return a;
}

juce::Array<unsigned short> randomProgram (std::mt19937& rng)
{
    auto p = zeros();
    for (int i = 0; i < 200; ++i)
    {
        if (! inSoundDump (i) || i >= 151)
            continue;
        if (i == 124)
        {
            static const int masks[] = { 0, 8, 64, 72 };
            p.set (i, (unsigned short) masks[rng() % 4]);
            continue;
        }
        const auto [lo, hi] = soundParameterRange (i);
        p.set (i, (unsigned short) (lo + (int) (rng() % (unsigned) (hi - lo + 1))));
    }
    for (int i = 151; i <= 174; ++i)
        p.set (i, (unsigned short) (32 + rng() % 95)); // printable, below 128
    return p;
}
} // namespace

TEST (CodecPack, ZeroArrayPacksToTheHardwareConstants)
{
    auto p = zeros();
    auto mb = AutoBank::Pack_Patch_Tolk (p);
    ASSERT_EQ (mb.getSize(), 145u);
    auto b = toArray (mb, 143);
    for (int i = 0; i < 143; ++i)
    {
        int expected = 0;
        switch (i)
        {
            case 86: expected = 64; break;
            case 87: case 88: case 89: case 90: expected = 127; break;
            case 91: expected = 123; break;
            case 92: expected = 55; break;
            case 94: expected = 64; break;
            case 95: expected = 7; break;
            case 109: expected = 16; break;
            default: break;
        }
        EXPECT_EQ ((int) b[i], expected) << "byte " << i;
    }
}

TEST (CodecUnpack, ZeroBytesGiveAllOnesSwitches)
{
    juce::Array<unsigned char> packed;
    packed.resize (143);
    juce::Array<unsigned short> p;
    AutoBank::UnPack_Patch_Tolk (packed, p);
    ASSERT_EQ (p.size(), 200);
    for (int i = 0; i < 200; ++i)
    {
        int expected = 0;
        if (i == 46 || i == 49 || i == 52)
            expected = 3;
        else if (i == 47 || i == 48 || i == 50 || i == 51 || (i >= 53 && i <= 55))
            expected = 7;
        else if (i >= 56 && i <= 68)
            expected = 1;
        EXPECT_EQ ((int) p[i], expected) << "parameter " << i;
    }
}

TEST (CodecUnpack, ShortInputReadsMissingBytesAsZeroAndKeepsUnlistedElements)
{
    juce::Array<unsigned char> packed; // empty
    juce::Array<unsigned short> p;
    for (int i = 0; i < 200; ++i)
        p.add ((unsigned short) 999);
    AutoBank::UnPack_Patch_Tolk (packed, p);
    EXPECT_EQ (p[46], 3);
    EXPECT_EQ (p[0], 0);
    for (int i : { 115, 119, 126, 149, 175, 199 })
        EXPECT_EQ (p[i], 999) << i;
}

TEST (CodecUnpack, InitialProgramDecodesToItsTable)
{
    TolkCorvaneBanks banks;
    auto initial = banks.Initial_Program();
    ASSERT_EQ (initial.size(), 144);
    EXPECT_EQ (initial.getLast(), 0xF7);
    juce::Array<unsigned short> p;
    AutoBank::UnPack_Patch_Tolk (initial, p);

    std::map<int, int> expected = {
        { 0, 3 }, { 1, 38 }, { 4, 7 }, { 5, 1 }, { 6, 27 }, { 8, 1 }, { 10, 26 }, { 12, 5 }, { 14, 25 },
        { 17, 39680 }, { 18, 26624 }, { 19, 5632 }, { 21, 32768 }, { 22, 32768 },
        { 23, 45056 }, { 24, 45056 }, { 25, 45056 }, { 34, 49152 }, { 45, 49152 },
        { 35, 65520 }, { 39, 65520 }, { 43, 65520 }, { 40, 40960 }, { 44, 40960 },
        { 50, 5 }, { 51, 5 }, { 53, 2 }, { 54, 2 }, { 55, 2 }, { 61, 1 }, { 73, 4 }, { 74, 3 }, { 75, 3 },
        { 80, 17 }, { 81, 1 }, { 84, 18 }, { 85, 1 }, { 88, 19 }, { 89, 1 }, { 94, 127 }, { 95, 24 },
        { 99, 64 }, { 101, 64 }, { 109, 64 }, { 110, 65 }, { 102, 1 }, { 103, 8 }, { 105, 48 }, { 106, 1 },
        { 107, 1 }, { 114, 1 }, { 122, 63 }, { 123, 3 }, { 124, 8 },
    };
    for (int i = 26; i <= 32; ++i)
        expected[i] = 32768;
    expected[36] = 32768;
    const juce::String name ("Preset      Default PROG");
    for (int i = 0; i < 24; ++i)
        expected[151 + i] = (int) name[i];

    for (int i = 0; i < 200; ++i)
    {
        auto it = expected.find (i);
        EXPECT_EQ ((int) p[i], it != expected.end() ? it->second : 0) << "parameter " << i;
    }
}

TEST (CodecRoundTrip, RandomInRangeProgramsSurviveButForTheDocumentedFields)
{
    const unsigned seed = 20261123u;
    std::printf ("seed %u\n", seed);
    std::mt19937 rng (seed);
    for (int n = 0; n < 2000; ++n)
    {
        auto in = randomProgram (rng);
        auto packed = toArray (AutoBank::Pack_Patch_Tolk (in), 143);
        for (int i = 0; i < 143; ++i)
            ASSERT_EQ (packed[i] & 0x80, i == 95 ? packed[i] & 0x80 : 0) << "only byte 95 may carry bit 7";
        juce::Array<unsigned short> out;
        AutoBank::UnPack_Patch_Tolk (packed, out);
        for (int i = 0; i < 200; ++i)
        {
            if (! inSoundDump (i))
                continue;
            if (i == 73)
                EXPECT_EQ (out[i], 15);
            else if (i == 75)
                EXPECT_EQ ((int) out[i], (in[75] & 1) + (in[in[75]] & 2)) << "program " << n;
            else if (i == 110)
                EXPECT_EQ ((int) out[i], (in[110] & ~1) + 2 * (in[110] & 1) + (in[101] >> 6)) << "program " << n;
            else
                ASSERT_EQ (out[i], in[i]) << "parameter " << i << " program " << n;
        }
    }
}

TEST (CodecRoundTrip, HighNameCharactersFollowTheReaderRules)
{
    auto in = zeros();
    for (int i = 151; i <= 174; ++i)
        in.set (i, 65);
    in.set (151, 200); // sign-extended on reading
    in.set (162, 0xE9); // character 12: masked to seven bits
    in.set (174, 0xE9); // character 24: becomes a space
    auto packed = toArray (AutoBank::Pack_Patch_Tolk (in), 143);
    juce::Array<unsigned short> out;
    AutoBank::UnPack_Patch_Tolk (packed, out);
    EXPECT_EQ (out[151], 0xFFC8);
    EXPECT_EQ (out[162], 0x69);
    EXPECT_EQ (out[174], 32);
    EXPECT_EQ (out[152], 65);
}

TEST (CodecPack, Parameter75PointsAtTheParameterWhoseBitsFillByte95)
{
    auto p = zeros();
    p.set (0, 8);
    auto b = toArray (AutoBank::Pack_Patch_Tolk (p), 143);
    EXPECT_EQ (b[95] & 0x80, 0x80);
    EXPECT_EQ (b[95], 0x87);

    p.set (75, 2);
    p.set (2, 1); // parameter 2's bit 1 is 0: bits 5 to 7 stay clear
    b = toArray (AutoBank::Pack_Patch_Tolk (p), 143);
    EXPECT_EQ (b[95], 7);
    juce::Array<unsigned short> out;
    AutoBank::UnPack_Patch_Tolk (b, out);
    EXPECT_EQ (out[75], 0); // bit 1 comes from parameter 2, not from 75
}

TEST (CodecPack, OutOfRangeValuesSpillInsideTheirByte)
{
    auto p = zeros();
    p.set (0, 64 + 5); // six-bit field: bit 6 spills into the spare bit 0.6
    auto b = toArray (AutoBank::Pack_Patch_Tolk (p), 143);
    EXPECT_EQ (b[0], 69);
    juce::Array<unsigned short> out;
    AutoBank::UnPack_Patch_Tolk (b, out);
    EXPECT_EQ (out[0], 5);

    p = zeros();
    p.set (2, 2); // one-bit field at 1.0 spills into parameter 1
    b = toArray (AutoBank::Pack_Patch_Tolk (p), 143);
    AutoBank::UnPack_Patch_Tolk (b, out);
    EXPECT_EQ (out[1], 1);
    EXPECT_EQ (out[2], 0);
}

TEST (CodecFrames, ExportFramesCarryTheHeaderAndExactly143Bytes)
{
    AutoBank bank (3);
    bank.Initialize_Bank();
    auto packed = toArray (bank.Pack_Tolk_From_Bank (5), 143);

    auto rom = toArray (bank.Export_Syx_Bank_Rom_MB (5, 5, 0x11, 0), 154);
    ASSERT_EQ (bank.Export_Syx_Bank_Rom_MB (5, 5, 0x11, 0).getSize(), 154u);
    EXPECT_EQ (rom[0], 0xF0);
    EXPECT_EQ (rom[1], 0x04);
    EXPECT_EQ (rom[2], 0x01);
    EXPECT_EQ (rom[3], 0x11);
    EXPECT_EQ (rom[4], 0x03);
    EXPECT_EQ (rom[5], 5);
    for (int i = 0; i < 143; ++i)
        ASSERT_EQ (rom[6 + i], packed[i]);
    for (int i = 149; i < 153; ++i)
        EXPECT_EQ (rom[i], 0);
    EXPECT_EQ (rom[153], 0xF7);

    auto buf = toArray (bank.Export_Syx_Bank_Buf_MB (5, 99), 149);
    ASSERT_EQ (bank.Export_Syx_Bank_Buf_MB (5, 99).getSize(), 149u);
    EXPECT_EQ (buf[3], 0);
    EXPECT_EQ (buf[4], 0x02);
    for (int i = 0; i < 143; ++i)
        ASSERT_EQ (buf[5 + i], packed[i]);
    EXPECT_EQ (buf[148], 0xF7);

    auto patch = toArray (bank.Export_Syx_Patch_Buf_MB (7), 149);
    EXPECT_EQ (patch[3], 7);
    EXPECT_EQ (patch[148], 0xF7);
}

TEST (BankStore, ImportsRefuseAnyLengthButExactly149)
{
    AutoBank bank (0);
    bank.Initialize_Bank();
    const auto before = bank.bankData;
    const auto patchBefore = bank.patchData;
    for (int size : { 0, 143, 148, 150, 154 })
    {
        juce::MemoryBlock mb ((size_t) size, true);
        juce::Array<unsigned char> a;
        a.resize (size);
        bank.Import_Syx_MB (3, mb);
        bank.Import_Syx_U8 (3, a);
        bank.PatchImport_Syx (a);
        EXPECT_TRUE (bank.bankData == before) << size;
        EXPECT_TRUE (bank.patchData == patchBefore) << size;
    }
    // Exactly 149 is taken whatever its header holds.
    juce::MemoryBlock junk (149, true);
    bank.Import_Syx_MB (3, junk);
    EXPECT_FALSE (bank.bankData == before);
    EXPECT_EQ (bank.getStoredProgram (3)[46], 3);
}

TEST (BankStore, ImportZeroesElementsOutsideTheDumpButPatchImportKeepsThem)
{
    AutoBank bank (0);
    auto words = zeros();
    for (int i = 0; i < 200; ++i)
        words.set (i, 7);
    bank.setStoredProgram (9, words);
    bank.patchData = words;

    auto frame = toArray (bank.Export_Syx_Bank_Buf_MB (9, 0), 149);
    bank.Import_Syx_U8 (9, frame);
    bank.PatchImport_Syx (frame);
    const auto stored = bank.getStoredProgram (9);
    for (int i : { 115, 119, 126, 149, 175, 199 })
    {
        EXPECT_EQ (stored[i], 0) << i;
        EXPECT_EQ (bank.patchData[i], 7) << i;
    }
    EXPECT_EQ (stored[17], 7);
    EXPECT_EQ (bank.patchData[17], 7);
}

TEST (BankStore, StrayProgramNumbersAreIgnored)
{
    AutoBank bank (0);
    bank.Initialize_Bank();
    const auto before = bank.bankData;
    auto frame = toArray (bank.Export_Syx_Bank_Buf_MB (0, 0), 149);
    bank.Import_Syx_U8 (128, frame);
    bank.Import_Syx_U8 (-1, frame);
    bank.BankToPatch (500);
    EXPECT_TRUE (bank.bankData == before);
    EXPECT_EQ (bank.get_ProgramName (128), juce::String (juce::CharPointer_UTF8 ("")));
}

TEST (BankStore, NamesAndCategories)
{
    EXPECT_EQ (AutoBank::GetBankName (0), "Program Bank A");
    EXPECT_EQ (AutoBank::GetBankName (7), "Program Bank H");
    EXPECT_EQ (AutoBank::Category (0), "- Not Assigned -");
    EXPECT_EQ (AutoBank::Category (31), "Sound FX");
    EXPECT_EQ (AutoBank::Category (32), "");
    EXPECT_EQ (AutoBank::Category (-1), "");

    EXPECT_EQ (AutoBank::fromASC (juce::String::charToString ((juce::juce_wchar) 233)), 32);
    EXPECT_EQ (AutoBank::fromASC ("~"), 126);
    EXPECT_EQ (AutoBank::fromASC (""), 32);
    EXPECT_EQ (AutoBank::fromASC ("AB"), 32);
    EXPECT_EQ (AutoBank::fromASC (juce::String::charToString ((juce::juce_wchar) 19)), 32);
    EXPECT_EQ (AutoBank::fromASC (juce::String::charToString ((juce::juce_wchar) 20)), 20);
    EXPECT_EQ (AutoBank::fromASC (juce::String::charToString ((juce::juce_wchar) 159)), 159);

    AutoBank bank (0);
    bank.Initialize_Bank();
    EXPECT_EQ (bank.get_ProgramName (127), "Preset      Default PROG");
    EXPECT_EQ (bank.PatchGetName(), "Preset      Default PROG");
    bank.patchData.set (151, 0xFF80); // a sign-extended code is read whole by PatchGetName
    EXPECT_EQ ((int) bank.PatchGetName()[0], 0xFF80);
    bank.setStoredProgram (1, bank.patchData);
    EXPECT_EQ ((int) bank.get_ProgramName (1)[0], 0x80); // and by its low byte from the store
    bank.patchData.resize (160);
    EXPECT_EQ (bank.PatchGetName().length(), 9); // elements past the end count as 0
}

TEST (BankStore, InitializeAndBankToPatch)
{
    AutoBank bank (2);
    bank.patchData.clearQuick();
    bank.Initialize_Bank();
    EXPECT_EQ (bank.bankData.getSize(), 51200u);
    EXPECT_EQ (bank.patchData.size(), 200);
    for (int p = 0; p < 128; ++p)
        ASSERT_EQ (std::memcmp (bank.bankData.begin(), bank.bankData.begin() + 400 * p, 400), 0);

    auto words = bank.getStoredProgram (4);
    words.set (32, 1234);
    bank.setStoredProgram (4, words);
    bank.BankToPatch (4);
    EXPECT_EQ (bank.patchData[32], 1234);
}

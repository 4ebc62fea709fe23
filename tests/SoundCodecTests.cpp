#include <gtest/gtest.h>

#include "SoundParameterRanges.h"
#include "sound/AutoBank.h"
#include "sound/TolkCorvaneBanks.h"

#include <map>
#include <random>

namespace
{
using Words = juce::Array<unsigned short>;
using Bytes = juce::Array<unsigned char>;

Words filled (unsigned short value) { Words a; a.insertMultiple (0, value, 200); return a; }
Bytes bytesOf (const juce::MemoryBlock& mb, int count = 1 << 20) { return Bytes ((const unsigned char*) mb.getData(), juce::jmin (count, (int) mb.getSize())); }
Bytes pack (Words words, int count = 143) { return bytesOf (AutoBank::Pack_Patch_Tolk (words), count); }
Words unpack (Bytes packed, Words out = {}) { AutoBank::UnPack_Patch_Tolk (packed, out); return out; }
Bytes zeroes (int count) { Bytes a; a.insertMultiple (0, 0, count); return a; }

// Parameter 124 is a mask of bits 3 and 6.
Words randomProgram (std::mt19937& rng)
{
    auto p = filled (0);
    for (int i = 0; i < 200; ++i)
        if (const auto [lo, hi] = soundParameterRange (i); inSoundDump (i))
            p.set (i, (unsigned short) ((lo + (int) (rng() % (unsigned) (hi - lo + 1))) & (i == 124 ? 72 : 0xFFFF)));
    return p;
}
} // namespace

TEST (Codec, ZeroesPackAndUnpackToTheHardwareConstants)
{
    ASSERT_EQ (pack (filled (0), 200).size(), 145);
    const std::map<int, int> expected = { { 86, 64 }, { 87, 127 }, { 88, 127 }, { 89, 127 }, { 90, 127 },
                                          { 91, 123 }, { 92, 55 }, { 94, 64 }, { 95, 7 }, { 109, 16 } };
    const auto b = pack (filled (0));
    for (int i = 0; i < 143; ++i)
        EXPECT_EQ ((int) b[i], expected.count (i) ? expected.at (i) : 0) << "byte " << i;

    // 143 zero bytes give all-ones switches; a short input reads its missing bytes as zero and
    // leaves the elements outside the dump as they were.
    auto zeroValue = [] (int i) { return (i == 46 || i == 49 || i == 52) ? 3 : (i >= 47 && i <= 55) ? 7 : (i >= 56 && i <= 68) ? 1 : 0; };
    const auto p = unpack (zeroes (143)), q = unpack ({}, filled (999));
    ASSERT_EQ (p.size(), 200);
    for (int i = 0; i < 200; ++i)
    {
        EXPECT_EQ ((int) p[i], zeroValue (i)) << "parameter " << i;
        EXPECT_EQ ((int) q[i], inSoundDump (i) ? zeroValue (i) : 999) << "parameter " << i;
    }
}

TEST (Codec, InitialProgramDecodesToItsTable)
{
    TolkCorvaneBanks banks;
    const auto initial = banks.Initial_Program();
    ASSERT_EQ (initial.size(), 144);
    EXPECT_EQ (initial.getLast(), 0xF7);
    const auto p = unpack (initial);
    std::map<int, int> expected = {
        { 0, 3 }, { 1, 38 }, { 4, 7 }, { 5, 1 }, { 6, 27 }, { 8, 1 }, { 10, 26 }, { 12, 5 }, { 14, 25 }, { 17, 39680 }, { 18, 26624 },
        { 19, 5632 }, { 21, 32768 }, { 22, 32768 }, { 23, 45056 }, { 24, 45056 }, { 25, 45056 }, { 34, 49152 }, { 45, 49152 },
        { 35, 65520 }, { 39, 65520 }, { 43, 65520 }, { 40, 40960 }, { 44, 40960 }, { 50, 5 }, { 51, 5 }, { 53, 2 }, { 54, 2 },
        { 55, 2 }, { 61, 1 }, { 73, 4 }, { 74, 3 }, { 75, 3 }, { 80, 17 }, { 81, 1 }, { 84, 18 }, { 85, 1 }, { 88, 19 }, { 89, 1 },
        { 94, 127 }, { 95, 24 }, { 99, 64 }, { 101, 64 }, { 109, 64 }, { 110, 65 }, { 102, 1 }, { 103, 8 }, { 105, 48 }, { 106, 1 },
        { 107, 1 }, { 114, 1 }, { 122, 63 }, { 123, 3 }, { 124, 8 }, { 26, 32768 }, { 27, 32768 }, { 28, 32768 }, { 29, 32768 },
        { 30, 32768 }, { 31, 32768 }, { 32, 32768 }, { 36, 32768 },
    };
    const juce::String name ("Preset      Default PROG");
    for (int i = 0; i < 24; ++i)
        expected[151 + i] = (int) name[i];
    for (int i = 0; i < 200; ++i)
        EXPECT_EQ ((int) p[i], expected.count (i) ? expected.at (i) : 0) << "parameter " << i;
}

TEST (Codec, RandomInRangeProgramsSurviveButForTheDocumentedFields)
{
    const unsigned seed = 20261123u;
    std::printf ("seed %u\n", seed);
    std::mt19937 rng (seed);
    for (int n = 0; n < 2000; ++n)
    {
        const auto in = randomProgram (rng);
        const auto packed = pack (in);
        for (int i = 0; i < 143; ++i)
            ASSERT_TRUE (i == 95 || packed[i] < 0x80) << "only byte 95 may carry bit 7";
        const auto out = unpack (packed);
        for (int i = 0; i < 200; ++i)
        {
            if (i == 73)
                EXPECT_EQ (out[i], 15);
            else if (i == 75)
                EXPECT_EQ ((int) out[i], (in[75] & 1) + (in[in[75]] & 2)) << "program " << n;
            else if (i == 110)
                EXPECT_EQ ((int) out[i], (in[110] & ~1) + 2 * (in[110] & 1) + (in[101] >> 6)) << "program " << n;
            else
                ASSERT_TRUE (! inSoundDump (i) || out[i] == in[i]) << "parameter " << i << " = " << in[i] << " read back as " << out[i] << ", program " << n;
        }
    }
}

// Single odd values in a zero program: the bytes they pack to and the words they read back as.
TEST (Codec, OddValuesPackAndReadBackAsTheHardwareDoes)
{
    using Pairs = std::vector<std::pair<int, int>>;
    struct Case { const char* what; Pairs in, bytes, out; };
    const Case cases[] = {
        { "name sign-extended on reading", { { 151, 200 } }, {}, { { 151, 0xFFC8 } } },
        { "character 12 masked to seven bits", { { 162, 0xE9 } }, {}, { { 162, 0x69 } } },
        { "character 24 becomes a space", { { 174, 0xE9 } }, {}, { { 174, 32 }, { 173, 0 } } },
        { "parameter 75 points at parameter 0, whose bit 3 fills byte 95's bit 7", { { 0, 8 } }, { { 95, 0x87 } }, {} },
        { "bit 1 of 75 comes from parameter 2, not from 75", { { 75, 2 }, { 2, 1 } }, { { 95, 7 } }, { { 75, 0 } } },
        { "six-bit field spills into the spare bit 0.6", { { 0, 69 } }, { { 0, 69 } }, { { 0, 5 } } },
        { "one-bit field at 1.0 spills into parameter 1", { { 2, 2 } }, {}, { { 1, 1 }, { 2, 0 } } },
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE (c.what);
        auto p = filled (0);
        for (auto [i, v] : c.in)
            p.set (i, (unsigned short) v);
        const auto b = pack (p);
        for (auto [i, v] : c.bytes)
            EXPECT_EQ ((int) b[i], v) << "byte " << i;
        const auto out = unpack (b);
        for (auto [i, v] : c.out)
            EXPECT_EQ ((int) out[i], v) << "parameter " << i;
    }
}

// The stored-program dump carries its number and ends in four zero bytes; the buffer dumps don't.
TEST (Codec, ExportFramesCarryTheHeaderAndExactly143Bytes)
{
    AutoBank bank (3);
    bank.Initialize_Bank();
    const auto packed = bytesOf (bank.Pack_Tolk_From_Bank (5), 143);
    Bytes rom ({ 0xF0, 0x04, 0x01, 0x11, 0x03, 5 }), buf ({ 0xF0, 0x04, 0x01, 0x00, 0x02 });
    rom.addArray (packed);
    rom.addArray ({ 0, 0, 0, 0, 0xF7 });
    buf.addArray (packed);
    buf.add (0xF7);
    EXPECT_EQ (bytesOf (bank.Export_Syx_Bank_Rom_MB (5, 5, 0x11, 0)), rom);
    EXPECT_EQ (bytesOf (bank.Export_Syx_Bank_Buf_MB (5, 99)), buf);
    EXPECT_EQ (bytesOf (bank.Export_Syx_Patch_Buf_MB (7))[3], 7);
}

// Imports take exactly 149 bytes whatever their header holds, and nothing lands outside the store.
TEST (BankStore, ImportsRefuseOtherLengthsAndStrayNumbersAndZeroWhatTheDumpLacks)
{
    AutoBank bank (0);
    bank.Initialize_Bank();
    const auto before = bank.bankData;
    const auto patchBefore = bank.patchData;
    auto frame = bytesOf (bank.Export_Syx_Bank_Buf_MB (0, 0));
    for (int size : { 0, 143, 148, 150, 154 })
    {
        bank.Import_Syx_MB (3, juce::MemoryBlock ((size_t) size, true));
        bank.Import_Syx_U8 (3, zeroes (size));
        bank.PatchImport_Syx (zeroes (size));
    }
    bank.Import_Syx_U8 (128, frame);
    bank.Import_Syx_U8 (-1, frame);
    bank.BankToPatch (500);
    EXPECT_TRUE (bank.bankData == before && bank.patchData == patchBefore);
    EXPECT_EQ (bank.get_ProgramName (128), "");
    bank.Import_Syx_MB (3, juce::MemoryBlock (149, true));
    EXPECT_EQ (bank.getStoredProgram (3)[46], 3);

    // An import zeroes the elements outside the dump; the working program keeps them.
    bank.setStoredProgram (9, filled (7));
    bank.patchData = filled (7);
    frame = bytesOf (bank.Export_Syx_Bank_Buf_MB (9, 0));
    bank.Import_Syx_U8 (9, frame);
    bank.PatchImport_Syx (frame);
    for (int i : { 17, 115, 119, 126, 149, 175, 199 })
        EXPECT_TRUE (bank.getStoredProgram (9)[i] == (i == 17 ? 7 : 0) && bank.patchData[i] == 7) << i;
}

TEST (BankStore, NamesCategoriesAndFromASC)
{
    EXPECT_EQ (AutoBank::Category (31) + AutoBank::Category (32) + AutoBank::Category (-1), "Sound FX");
    auto chr = [] (int c) { return juce::String::charToString ((juce::juce_wchar) c); };
    const std::pair<juce::String, int> ascii[] = { { chr (233), 32 }, { "~", 126 }, { "", 32 }, { "AB", 32 },
                                                   { chr (19), 32 }, { chr (20), 20 }, { chr (159), 159 } };
    for (const auto& [text, code] : ascii)
        EXPECT_EQ (AutoBank::fromASC (text), code) << text;

    AutoBank bank (2);
    bank.Initialize_Bank();
    EXPECT_EQ (bank.get_ProgramName (127), "Preset      Default PROG");
    bank.patchData.set (151, 0xFF80); // a sign-extended code is read whole by PatchGetName
    EXPECT_EQ ((int) bank.PatchGetName()[0], 0xFF80);
    bank.patchData.set (32, 1234);
    bank.setStoredProgram (1, bank.patchData);
    EXPECT_EQ ((int) bank.get_ProgramName (1)[0], 0x80); // and by its low byte from the store
    bank.patchData.resize (160);
    EXPECT_EQ (bank.PatchGetName().length(), 9); // elements past the end count as 0
    bank.BankToPatch (1);
    EXPECT_TRUE (bank.patchData.size() == 200 && bank.patchData[32] == 1234);
}

#include <gtest/gtest.h>

#include "SoundParameterRanges.h"
#include "sound/AutoBank.h"
#include "sound/TolkCorvaneBanks.h"

#include <set>

namespace
{
const unsigned char* setData (int set, int& size)
{
    const char* data = nullptr;
    EXPECT_TRUE (TolkCorvaneBanks::getSet (set, data, size));
    return reinterpret_cast<const unsigned char*> (data);
}

juce::Array<unsigned short> unpackRecord (const unsigned char* record)
{
    juce::Array<unsigned char> packed (record + 5, 144);
    juce::Array<unsigned short> words;
    AutoBank::UnPack_Patch_Tolk (packed, words);
    return words;
}
} // namespace

// Sets 0 and 4 hold seven banks, the others one; set 4's last six banks are framed copies of the
// initial program. Every designed program is in range, with a category and a distinct two-line name.
TEST (FactorySets, SizesLayoutAndEveryProgramInRange)
{
    TolkCorvaneBanks banks;
    const auto initial = banks.Initial_Program();
    std::set<juce::String> names;
    for (int set = 0; set < 8; ++set)
    {
        SCOPED_TRACE (set);
        int size = 0;
        const auto* data = setData (set, size);
        const int records = (set == 0 || set == 4) ? 896 : 128;
        ASSERT_EQ (size, records == 896 ? 136576 : 22144);
        for (int r = 0; r < records; ++r)
        {
            const auto* rec = data + r * 149;
            const bool framed = set == 4 && r >= 128;
            const unsigned char frameHead[] = { 0xF0, 0x04, 0x01, 0x00, 0x02 }, recordHead[] = { 0x04, 0x01, 0x00, 0x03, (unsigned char) (r % 128) };
            ASSERT_EQ (std::memcmp (rec, framed ? frameHead : recordHead, 5), 0) << r;
            if (framed)
            {
                ASSERT_EQ (std::memcmp (rec + 5, initial.getRawDataPointer(), 144), 0) << r;
                continue;
            }
            const auto words = unpackRecord (rec);
            for (int i = 0; i <= 174; ++i)
            {
                auto [lo, hi] = soundParameterRange (i);
                if (i == 73)
                    hi = 15; // unused by the hardware: every dump written here reads back 15
                ASSERT_TRUE (! inSoundDump (i) || (words[i] >= lo && words[i] <= hi)) << "record " << r << " parameter " << i << " = " << words[i];
            }
            EXPECT_GE (words[150], 1) << "every factory program has a category";
            juce::String name;
            for (int c = 0; c < 24; ++c)
            {
                name << juce::String::charToString ((juce::juce_wchar) words[151 + c]);
                // The name table holds the first bank's names.
                ASSERT_TRUE (r >= 128 || data[records * 149 + r * 24 + c] == words[151 + c]) << r;
            }
            ASSERT_TRUE (name.substring (0, 12).trim().isNotEmpty() && name.substring (12).trim().isNotEmpty()) << name;
            EXPECT_TRUE (names.insert (name).second) << "duplicate name " << name;
        }
    }
    EXPECT_EQ (names.size(), 1792u);
}

TEST (FactorySets, PreloadStridesOneRecordPerBankAndTestsTheSetSize)
{
    AutoBank a (0), b (1);
    a.PreloadFactoryData (0, 0);
    b.PreloadFactoryData (0, 1);
    // Bank B of a set is bank A moved on by one record.
    for (int p = 0; p < 127; ++p)
        ASSERT_EQ (std::memcmp (a.bankData.begin() + 400 * (p + 1), b.bankData.begin() + 400 * p, 400), 0) << p;
    int size = 0;
    EXPECT_TRUE (b.getStoredProgram (127) == unpackRecord (setData (0, size) + 128 * 149));

    // Framed records read as the program they carry.
    AutoBank ridge (0), fresh (1);
    ridge.PreloadFactoryData (4, 128);
    fresh.Initialize_Bank();
    EXPECT_TRUE (ridge.bankData == fresh.bankData);

    // The size test counts whole records of the set.
    const auto* data = setData (1, size);
    ASSERT_EQ (size / 149, 148);
    AutoBank bank (0);
    bank.PreloadFactoryData (1, 20); // records 20 to 147, the last whole one
    EXPECT_TRUE (bank.getStoredProgram (127) == unpackRecord (data + 147 * 149));
    bank.PreloadFactoryData (1, 21); // reads into the name table and past the end as zeros
    EXPECT_TRUE (bank.getStoredProgram (0) == unpackRecord (data + 21 * 149) && bank.getStoredProgram (127)[46] == 3);

    for (auto [set, first] : { std::pair { 1, 148 }, { 1, 500 }, { 1, -1 }, { 8, 0 }, { -1, 0 } })
    {
        bank.Initialize_Bank();
        const auto before = bank.bankData;
        bank.PreloadFactoryData (set, first);
        EXPECT_TRUE (bank.bankData == before) << set << " " << first;
    }
}

#include <gtest/gtest.h>

#include "SoundParameterRanges.h"
#include "sound/AutoBank.h"
#include "sound/TolkCorvaneBanks.h"

#include <set>

namespace
{
struct SetInfo
{
    int set;
    int size;
    int records;
};
const SetInfo sets[] = {
    { 0, 136576, 896 }, { 1, 22144, 128 }, { 2, 22144, 128 }, { 3, 22144, 128 },
    { 4, 136576, 896 }, { 5, 22144, 128 }, { 6, 22144, 128 }, { 7, 22144, 128 },
};

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

TEST (FactorySets, SizesAndRecordLayout)
{
    TolkCorvaneBanks banks;
    EXPECT_EQ (banks.getWidth(), 600);
    EXPECT_EQ (banks.getHeight(), 400);
    EXPECT_EQ (TolkCorvaneBanks::CoreRefresh_tkrSize, 136576);
    EXPECT_EQ (TolkCorvaneBanks::RidgeSet_tkrSize, 136576);
    EXPECT_EQ (TolkCorvaneBanks::Ibis25_tkrSize, 22144);
    auto initial = banks.Initial_Program();

    for (const auto& info : sets)
    {
        SCOPED_TRACE (info.set);
        int size = 0;
        const auto* data = setData (info.set, size);
        ASSERT_EQ (size, info.size);
        ASSERT_EQ (info.records * 149 + 3072, size);
        for (int r = 0; r < info.records; ++r)
        {
            const auto* rec = data + r * 149;
            if (info.set == 4 && r >= 128)
            {
                const unsigned char head[] = { 0xF0, 0x04, 0x01, 0x00, 0x02 };
                ASSERT_EQ (std::memcmp (rec, head, 5), 0) << r;
                ASSERT_EQ (std::memcmp (rec + 5, initial.getRawDataPointer(), 144), 0) << r;
            }
            else
            {
                const unsigned char head[] = { 0x04, 0x01, 0x00, 0x03, (unsigned char) (r % 128) };
                ASSERT_EQ (std::memcmp (rec, head, 5), 0) << r;
            }
        }
        // The name table holds the first bank's names, space padded.
        for (int p = 0; p < 128; ++p)
        {
            const auto words = unpackRecord (data + p * 149);
            for (int c = 0; c < 24; ++c)
                ASSERT_EQ (data[info.records * 149 + p * 24 + c], words[151 + c]) << p;
        }
        EXPECT_EQ (TolkCorvaneBanks::getSetTitle (info.set).isEmpty(), false);
    }
    EXPECT_EQ (TolkCorvaneBanks::getSetTitle (0), "Core Refresh ");
    EXPECT_EQ (TolkCorvaneBanks::getSetTitle (4), "Ridge Set");
    const char* none = nullptr;
    int size = 0;
    EXPECT_FALSE (TolkCorvaneBanks::getSet (8, none, size));
    EXPECT_FALSE (TolkCorvaneBanks::getSet (-1, none, size));
}

TEST (FactorySets, EveryProgramIsInRangeAndDistinctlyNamed)
{
    std::set<juce::String> names;
    int designed = 0;
    for (const auto& info : sets)
    {
        int size = 0;
        const auto* data = setData (info.set, size);
        const auto count = info.set == 4 ? 128 : info.records;
        for (int r = 0; r < count; ++r)
        {
            const auto words = unpackRecord (data + r * 149);
            for (int i = 0; i < 200; ++i)
            {
                if (i > 125 && i != 150)
                    continue;
                auto [lo, hi] = soundParameterRange (i);
                if (i == 73)
                    hi = 15; // unused by the hardware: every dump written here reads back 15
                ASSERT_GE ((int) words[i], lo) << "set " << info.set << " record " << r << " parameter " << i;
                ASSERT_LE ((int) words[i], hi) << "set " << info.set << " record " << r << " parameter " << i;
            }
            EXPECT_GE (words[150], 1) << "every factory program has a category";
            juce::String name;
            for (int c = 0; c < 24; ++c)
            {
                ASSERT_GE (words[151 + c], 32);
                ASSERT_LT (words[151 + c], 127);
                name << juce::String::charToString ((juce::juce_wchar) words[151 + c]);
            }
            ASSERT_TRUE (name.substring (0, 12).trim().isNotEmpty()) << name;
            ASSERT_TRUE (name.substring (12).trim().isNotEmpty()) << name;
            EXPECT_TRUE (names.insert (name).second) << "duplicate name " << name;
            ++designed;
        }
    }
    EXPECT_EQ (designed, 1792);
    EXPECT_EQ (names.size(), 1792u);
}

TEST (FactorySets, PreloadStridesOneRecordPerBank)
{
    AutoBank a (0), b (1);
    a.PreloadFactoryData (0, 0);
    b.PreloadFactoryData (0, 1);
    // Bank B of a set is bank A moved on by one record.
    for (int p = 0; p < 127; ++p)
        ASSERT_EQ (std::memcmp (a.bankData.begin() + 400 * (p + 1), b.bankData.begin() + 400 * p, 400), 0) << p;

    int size = 0;
    const auto* data = setData (0, size);
    EXPECT_TRUE (b.getStoredProgram (127) == unpackRecord (data + 128 * 149));
}

TEST (FactorySets, PreloadSizeTestCountsWholeRecordsOfTheSet)
{
    int size = 0;
    const auto* data = setData (1, size);
    ASSERT_EQ (size / 149, 148);

    AutoBank bank (0);
    bank.Initialize_Bank();
    bank.PreloadFactoryData (1, 20); // records 20 to 147, the last whole one
    EXPECT_TRUE (bank.getStoredProgram (127) == unpackRecord (data + 147 * 149));

    bank.PreloadFactoryData (1, 21); // reads into the name table and past the end as zeros
    EXPECT_TRUE (bank.getStoredProgram (0) == unpackRecord (data + 21 * 149));
    EXPECT_EQ (bank.getStoredProgram (127)[46], 3);

    for (int refused : { 148, 500, -1 })
    {
        bank.Initialize_Bank();
        const auto before = bank.bankData;
        bank.PreloadFactoryData (1, refused);
        EXPECT_TRUE (bank.bankData == before) << refused;
    }
    const auto before = bank.bankData;
    bank.PreloadFactoryData (8, 0);
    bank.PreloadFactoryData (-1, 0);
    EXPECT_TRUE (bank.bankData == before);
}

TEST (FactorySets, FramedAndUnframedRecordsGiveTheSameProgram)
{
    AutoBank ridge (0), fresh (1);
    ridge.PreloadFactoryData (4, 128); // all framed copies of the initial program
    fresh.Initialize_Bank();
    EXPECT_TRUE (ridge.bankData == fresh.bankData);

    juce::MemoryBlock framed (149, true), unframed (149, true);
    TolkCorvaneBanks banks;
    auto initial = banks.Initial_Program();
    const unsigned char fHead[] = { 0xF0, 0x04, 0x01, 0x00, 0x02 };
    const unsigned char uHead[] = { 0x04, 0x01, 0x00, 0x03, 0x05 };
    framed.copyFrom (fHead, 0, 5);
    unframed.copyFrom (uHead, 0, 5);
    framed.copyFrom (initial.getRawDataPointer(), 5, 144);
    unframed.copyFrom (initial.getRawDataPointer(), 5, 143);
    ridge.Import_Syx_MB (0, framed);
    ridge.Import_Syx_MB (1, unframed);
    EXPECT_TRUE (ridge.getStoredProgram (0) == ridge.getStoredProgram (1));
    EXPECT_EQ (ridge.get_ProgramName (0), "Preset      Default PROG");
}

#include <gtest/gtest.h>

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

// Lowest and highest value of each parameter the dump carries, by the control ranges.
std::pair<int, int> rangeOf (int i)
{
    if (i <= 15)
    {
        const auto k = i % 4;
        if (i == 2 || i == 5 || i == 9 || i == 13)
            return { 0, 1 };
        return k == 3 ? std::pair { 0, 3 } : std::pair { 0, 39 };
    }
    if (i == 16 || i == 104 || (i >= 17 && i <= 45))
        return { 0, 65535 };
    if (i == 46 || i == 49 || i == 52)
        return { 0, 3 };
    if (i == 47 || i == 48 || i == 50 || i == 51 || (i >= 53 && i <= 55))
        return { 0, 5 };
    if (i >= 56 && i <= 68)
        return { 0, 1 };
    switch (i)
    {
        case 69: case 70: case 71: case 72: case 111: return { 0, 7 };
        case 73: return { 0, 15 }; // unused by the hardware: every dump written here reads back 15
        case 74: case 75: case 76: case 81: case 85: case 89: return { 0, 3 };
        case 80: case 84: case 88: return { 0, 31 };
        case 83: case 87: case 91: case 94: case 99: case 101: case 105: case 109: case 110: return { 0, 127 };
        case 92: return { 0, 13 };
        case 95: return { 2, 96 };
        case 96: case 97: return { 0, 6 };
        case 98: case 100: return { 0, 42 };
        case 102: case 103: return { 0, 10 };
        case 150: return { 0, 31 };
        case 120: return { 0, 3 };
        case 121: case 122: return { 0, 127 };
        case 123: return { 0, 15 };
        case 124: return { 0, 72 }; // a raw mask of bits 3 and 6
        default: return { 0, 1 };
    }
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
                const auto [lo, hi] = rangeOf (i);
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

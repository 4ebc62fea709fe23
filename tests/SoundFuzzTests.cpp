#include <gtest/gtest.h>

#include "ScratchFolder.h"
#include "device/MidiCntrState.h"
#include "sound/AutoBank.h"
#include "sound/FileMan.h"

#include <random>

// Random and mutated inputs through every reader of sound data. Run under the sanitizer build,
// any stray read or write ends the run; the checks here are the invariants that must hold for
// any input whatever.
namespace
{
using Bytes = std::vector<unsigned char>;

struct Mutator
{
    std::mt19937 rng;

    int below (int n) { return n <= 0 ? 0 : (int) (rng() % (unsigned) n); }

    Bytes random (int maxSize)
    {
        Bytes b ((size_t) below (maxSize + 1));
        for (auto& x : b)
            x = (unsigned char) rng();
        return b;
    }

    // Flips, overwrites with SysEx status bytes, inserts, deletes or truncates.
    Bytes mutate (Bytes b)
    {
        const int edits = 1 + below (8);
        for (int e = 0; e < edits; ++e)
        {
            const int at = below ((int) b.size() + 1);
            switch (below (6))
            {
                case 0: if (at < (int) b.size()) b[(size_t) at] ^= (unsigned char) (1 << below (8)); break;
                case 1: if (at < (int) b.size()) b[(size_t) at] = below (2) ? 0xF0 : 0xF7; break;
                case 2: b.insert (b.begin() + at, (unsigned char) rng()); break;
                case 3: if (at < (int) b.size()) b.erase (b.begin() + at); break;
                case 4: b.resize ((size_t) at); break;
                default: if (at < (int) b.size()) b[(size_t) at] = (unsigned char) rng(); break;
            }
        }
        return b;
    }
};

juce::Array<unsigned char> toArray (const Bytes& b) { return juce::Array<unsigned char> (b.data(), (int) b.size()); }

Bytes toBytes (const juce::MemoryBlock& mb)
{
    auto* p = static_cast<const unsigned char*> (mb.getData());
    return Bytes (p, p + mb.getSize());
}
} // namespace

TEST (SoundFuzz, RandomAndMutatedInputsThroughEveryReader)
{
    const unsigned seed = 0xC0FFEEu;
    std::printf ("seed %u\n", seed);
    Mutator m { std::mt19937 (seed) };
    int inputs = 0;

    AutoBank bank (0);
    bank.PreloadFactoryData (0, 0);
    const auto frame = toBytes (bank.Export_Syx_Bank_Buf_MB (3, 0));
    const auto bankFile = toBytes (FileMan::Bank_File_Data (bank));

    // Unpacker and imports: dumps of any length, any content.
    for (int i = 0; i < 60000; ++i, ++inputs)
    {
        auto b = (i % 2) ? m.random (300) : m.mutate (frame);
        auto a = toArray (b);
        juce::Array<unsigned short> words;
        AutoBank::UnPack_Patch_Tolk (a, words);
        ASSERT_EQ (words.size(), 200);
        for (int k = 46; k <= 68; ++k)
            ASSERT_LE (words[k], 7);
        bank.Import_Syx_U8 (m.below (130) - 1, a);
        bank.PatchImport_Syx (a);
        bank.Import_Syx_MB (m.below (130) - 1, juce::MemoryBlock (b.data(), b.size()));
        ASSERT_EQ (bank.bankData.getSize(), 51200u);
        ASSERT_EQ (bank.patchData.size(), 200);
        // Packing whatever came out reads only the 200 words.
        auto repacked = AutoBank::Pack_Patch_Tolk (words);
        ASSERT_EQ (repacked.getSize(), 145u);
    }

    // Program-file scan and bank-file load on mutated files.
    for (int i = 0; i < 25000; ++i, ++inputs)
    {
        auto b = (i % 10 == 0) ? m.mutate (bankFile) : ((i % 2) ? m.mutate (frame) : m.random (400));
        auto a = toArray (b);
        int start = 0;
        const auto length = FileMan::findFirstMessage (a, start);
        ASSERT_GE (length, 0);
        if (length > 0)
        {
            ASSERT_LE (start + length, a.size());
            ASSERT_EQ (a[start], 0xF0);
            ASSERT_EQ (a[start + length - 1], 0xF7);
        }
        const auto before = bank.bankData;
        const bool loaded = FileMan::Load_Bank_Data (a, bank);
        ASSERT_EQ (loaded, a.size() == 19072);
        if (! loaded)
        {
            ASSERT_TRUE (bank.bankData == before);
        }
    }

    // Settings text parser.
    const auto settings = MidiCntrState::ArrayToString ({ "3.0.2", "-1", "-1", "100", "0", "0", "0", "1", "", "333" });
    const Bytes settingsBytes (settings.toRawUTF8(), settings.toRawUTF8() + settings.getNumBytesAsUTF8());
    for (int i = 0; i < 30000; ++i, ++inputs)
    {
        auto b = (i % 3 == 0) ? m.random (80) : m.mutate (settingsBytes);
        for (auto& x : b)
            if (x == 0 || x >= 128) // text files: keep it ASCII so the string is the bytes
                x = (unsigned char) ('^' + (x & 1) * ('|' - '^'));
        const auto text = juce::String (juce::CharPointer_ASCII (reinterpret_cast<const char*> (b.data())), b.size());
        const auto slots = MidiCntrState::ParseIniText (text);
        for (auto& s : slots)
            ASSERT_FALSE (s.contains ("|^"));
        ASSERT_LE (slots.size(), text.length() / 2 + 1);
    }

    // The real files: settings and data files of mutated contents and sizes through start-up.
    ScratchFolder folder;
    for (int i = 0; i < 200; ++i, ++inputs)
    {
        auto text = m.mutate (settingsBytes);
        ASSERT_TRUE (folder.dir.getChildFile ("tkplugsts.dat").replaceWithData (text.data(), text.size()));
        const auto size = (i % 3 == 0) ? 358427 : 358427 + m.below (5) - 2;
        auto data = m.random (0);
        data.resize ((size_t) size);
        for (int k = 0; k < 200; ++k)
            data[(size_t) m.below (size)] = (unsigned char) m.rng();
        ASSERT_TRUE (folder.dir.getChildFile ("tkdeskerdata.dat").replaceWithData (data.data(), data.size()));
        MidiCntrState state;
        state.settingsFolder = folder.dir;
        state.InitializeMe();
        ASSERT_GE (state.iniStrings.size(), 92);
        ASSERT_GE (state.midiChannel.load(), 1);
        ASSERT_LE (state.midiChannel.load(), 16);
    }

    std::printf ("%d inputs\n", inputs);
    EXPECT_GE (inputs, 100000);
}

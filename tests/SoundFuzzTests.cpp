#include <gtest/gtest.h>

#include "ScratchFolder.h"
#include "device/MidiCntrState.h"
#include "sound/AutoBank.h"
#include "sound/FileMan.h"

#include <algorithm>
#include <random>

// Random and mutated inputs through every reader of sound data. Run under the sanitizer build,
// any stray read or write ends the run; the checks here are the invariants that must hold for
// any input whatever.
namespace
{
using Bytes = juce::Array<unsigned char>;

Bytes bytesOf (const juce::MemoryBlock& mb) { return Bytes ((const unsigned char*) mb.getData(), (int) mb.getSize()); }

struct Mutator
{
    std::mt19937 rng;

    int below (int n) { return n <= 0 ? 0 : (int) (rng() % (unsigned) n); }

    Bytes random (int maxSize) { Bytes b; for (int n = below (maxSize + 1); n > 0; --n) b.add ((unsigned char) rng()); return b; }

    // Flips, overwrites with SysEx status bytes, inserts, deletes or truncates.
    Bytes mutate (Bytes b)
    {
        for (int e = 1 + below (8); e > 0; --e)
        {
            const int at = below (b.size() + 1), kind = below (6);
            if (kind == 2)
                b.insert (at, (unsigned char) rng());
            else if (kind == 4)
                b.resize (at);
            else if (at < b.size())
                kind == 3 ? b.remove (at) : b.set (at, kind == 0 ? b[at] ^ (1 << below (8)) : kind == 1 ? (below (2) ? 0xF0 : 0xF7) : (unsigned char) rng());
        }
        return b;
    }
};
} // namespace

TEST (SoundFuzz, RandomAndMutatedInputsThroughEveryReader)
{
    const unsigned seed = 0xC0FFEEu;
    std::printf ("seed %u\n", seed);
    Mutator m { std::mt19937 (seed) };
    int inputs = 0;
    AutoBank bank (0);
    bank.PreloadFactoryData (0, 0);
    const auto frame = bytesOf (bank.Export_Syx_Bank_Buf_MB (3, 0));
    const auto bankFile = bytesOf (FileMan::Bank_File_Data (bank));

    // Unpacker and imports: dumps of any length, any content; packing what came out reads only the 200 words.
    for (int i = 0; i < 60000; ++i, ++inputs)
    {
        auto a = (i % 2) ? m.random (300) : m.mutate (frame);
        juce::Array<unsigned short> words;
        AutoBank::UnPack_Patch_Tolk (a, words);
        ASSERT_EQ (words.size(), 200);
        ASSERT_TRUE (std::all_of (words.begin() + 46, words.begin() + 69, [] (auto w) { return w <= 7; })) << "switches read at most three bits";
        bank.Import_Syx_U8 (m.below (130) - 1, a);
        bank.PatchImport_Syx (a);
        bank.Import_Syx_MB (m.below (130) - 1, juce::MemoryBlock (a.begin(), (size_t) a.size()));
        ASSERT_TRUE (bank.bankData.getSize() == 51200u && bank.patchData.size() == 200);
        ASSERT_EQ (AutoBank::Pack_Patch_Tolk (words).getSize(), 145u);
    }

    // Program-file scan and bank-file load on mutated files.
    for (int i = 0; i < 25000; ++i, ++inputs)
    {
        const auto a = (i % 10 == 0) ? m.mutate (bankFile) : ((i % 2) ? m.mutate (frame) : m.random (400));
        int start = 0;
        const auto length = FileMan::findFirstMessage (a, start);
        ASSERT_TRUE (length == 0 || (length > 0 && start + length <= a.size() && a[start] == 0xF0 && a[start + length - 1] == 0xF7));
        const auto before = bank.bankData;
        const bool loaded = FileMan::Load_Bank_Data (a, bank);
        ASSERT_TRUE (loaded == (a.size() == 19072) && (loaded || bank.bankData == before));
    }

    // Settings text parser, on ASCII text so that the string is the bytes.
    const auto settings = MidiCntrState::ArrayToString ({ "3.0.2", "-1", "-1", "100", "0", "0", "0", "1", "", "333" });
    const Bytes settingsBytes ((const unsigned char*) settings.toRawUTF8(), (int) settings.getNumBytesAsUTF8());
    for (int i = 0; i < 30000; ++i, ++inputs)
    {
        auto b = (i % 3 == 0) ? m.random (80) : m.mutate (settingsBytes);
        for (auto& x : b)
            if (x == 0 || x >= 128)
                x = (unsigned char) ((x & 1) ? '|' : '^');
        const auto text = juce::String (juce::CharPointer_ASCII ((const char*) b.begin()), (size_t) b.size());
        const auto slots = MidiCntrState::ParseIniText (text);
        ASSERT_TRUE (std::none_of (slots.begin(), slots.end(), [] (auto& slot) { return slot.contains ("|^"); }));
        ASSERT_LE (slots.size(), text.length() / 2 + 1);
    }

    // The real files: settings and data files of mutated contents and sizes through start-up.
    ScratchFolder folder;
    for (int i = 0; i < 200; ++i, ++inputs)
    {
        const auto text = m.mutate (settingsBytes);
        ASSERT_TRUE (folder.dir.getChildFile ("tkplugsts.dat").replaceWithData (text.begin(), (size_t) text.size()));
        const auto size = (i % 3 == 0) ? 358427 : 358427 + m.below (5) - 2;
        juce::MemoryBlock data ((size_t) size, true);
        for (int k = 0; k < 200; ++k)
            data[m.below (size)] = (char) m.rng();
        ASSERT_TRUE (folder.dir.getChildFile ("tkdeskerdata.dat").replaceWithData (data.getData(), data.getSize()));
        MidiCntrState state;
        state.settingsFolder = folder.dir;
        state.InitializeMe();
        ASSERT_TRUE (state.iniStrings.size() >= 92 && state.midiChannel.load() >= 1 && state.midiChannel.load() <= 16);
    }
    std::printf ("%d inputs\n", inputs);
    EXPECT_GE (inputs, 100000);
}

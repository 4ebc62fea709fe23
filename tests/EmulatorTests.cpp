#include "VirtualCorvane.h"
#include "sound/AutoBank.h"

#include <gtest/gtest.h>

namespace
{
struct Wire
{
    VirtualCorvane corvane { 1, 5 };
    std::vector<juce::MidiMessage> out;
    Wire()
    {
        corvane.setOutput ([this] (const juce::MidiMessage& m) { out.push_back (m); });
    }
    void send (std::initializer_list<int> bytes)
    {
        std::vector<juce::uint8> b (bytes.begin(), bytes.end());
        corvane.handleIncomingMidiMessage (nullptr, juce::MidiMessage (b.data(), (int) b.size()));
    }
};
} // namespace

TEST (VirtualCorvane, ItsProgramsComeThroughTheDumpFormatUnchanged)
{
    for (juce::int64 seed = 1; seed <= 20; ++seed)
        for (int p = 0; p < 128; p += 9)
        {
            auto words = VirtualCorvane::makeProgram ((int) seed % 7, p, seed);
            auto packed = AutoBank::Pack_Patch_Tolk (words);
            juce::Array<unsigned char> body (static_cast<const unsigned char*> (packed.getData()), 143);
            for (auto b : body)
                ASSERT_LT (b, 128) << "seed " << seed << " program " << p;
            juce::Array<unsigned short> back;
            back.insertMultiple (0, 0, 200);
            AutoBank::UnPack_Patch_Tolk (body, back);
            ASSERT_EQ (back, words) << "seed " << seed << " program " << p;
        }
}

TEST (VirtualCorvane, StoresDumpsAndRecallsByProgramChange)
{
    Wire w;
    const auto sound = VirtualCorvane::makeProgram (0, 0, 77);
    const auto frame = VirtualCorvane::programFrame (sound, 90);
    w.send ({ 0xB0, 32, 2 });
    w.corvane.handleIncomingMidiMessage (nullptr, juce::MidiMessage (frame.getData(), (int) frame.getSize()));
    EXPECT_EQ (w.corvane.getProgram (2, 90), sound);

    w.send ({ 0xC1, 90 }); // another channel: ignored
    EXPECT_NE (w.corvane.getEditBuffer(), sound);
    w.send ({ 0xC0, 90 });
    EXPECT_EQ (w.corvane.getEditBuffer(), sound);
    EXPECT_EQ (w.corvane.getProgramNumber(), 90);
}

TEST (VirtualCorvane, FaultsBendTheReplies)
{
    Wire w;
    const std::initializer_list<int> poll = { 0xF0, 0x04, 0x01, 0x00, 0x05, 0xF7 };

    w.corvane.setFaults ({ 2, false, false, 0 });
    w.send (poll);
    w.send (poll);
    EXPECT_TRUE (w.out.empty());
    w.send (poll);
    EXPECT_EQ (w.out.size(), 1u);

    w.corvane.setFaults ({ 0, true, false, 0 });
    w.send (poll);
    EXPECT_EQ (w.out.back().getRawDataSize(), 148);
    EXPECT_EQ (w.out.back().getRawData()[147], 0xF7);

    w.corvane.setFaults ({ 0, false, true, 0 });
    w.send (poll);
    EXPECT_EQ (w.out.size(), 2u);
    EXPECT_EQ (w.corvane.releaseLateReplies(), 1);
    EXPECT_EQ (w.out.size(), 3u);

    w.corvane.setFaults ({ 0, false, false, 40 });
    w.send (poll);
    const auto clean = VirtualCorvane::editBufferFrame (w.corvane.getEditBuffer());
    EXPECT_NE (juce::MemoryBlock (w.out.back().getRawData(), 149), clean);
    EXPECT_EQ (w.out.back().getRawData()[0], 0xF0);
}

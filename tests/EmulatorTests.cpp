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

TEST (VirtualCorvane, AnswersRequestsWithDumpsOfTheSelectedBank)
{
    Wire w;
    w.corvane.fillAllBanks (3);
    w.send ({ 0xB0, 0, 0 });
    w.send ({ 0xB0, 32, 4 });
    w.send ({ 0xF0, 0x04, 0x01, 0x00, 0x06, 0x11, 0xF7 });
    w.send ({ 0xF0, 0x04, 0x01, 0x00, 0x05, 0xF7 });
    ASSERT_EQ (w.out.size(), 2u);
    const auto expected = VirtualCorvane::programFrame (w.corvane.getProgram (4, 17), 17);
    EXPECT_EQ (w.out[0].getRawDataSize(), 154);
    EXPECT_EQ (juce::MemoryBlock (w.out[0].getRawData(), 154), expected);
    EXPECT_EQ (w.out[1].getRawDataSize(), 149);

    w.send ({ 0xB0, 32, 7 }); // no such bank
    EXPECT_EQ (w.corvane.getBank(), 4);
    w.send ({ 0xF0, 0x04, 0x01, 0x00, 0x06, 0xF7 }); // malformed request
    EXPECT_EQ (w.out.size(), 2u);
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

TEST (VirtualCorvane, LiveControllersChangeTheEditBuffer)
{
    Wire w;
    w.send ({ 0xB0, 19, 100 });
    w.send ({ 0xB0, 51, 64 });
    w.send ({ 0xB0, 68, 112 });
    w.send ({ 0xB0, 79, 0 });
    w.send ({ 0xB0, 86, 127 });
    w.send ({ 0xB0, 65, 127 });
    const auto e = w.corvane.getEditBuffer();
    EXPECT_EQ (e[32], 201 << 8);
    EXPECT_EQ (e[47], 5); // 7 steps: the knob stops at its last position
    EXPECT_EQ (e[58], 1);
    EXPECT_EQ (e[65], 1);
    EXPECT_EQ (e[68], 1);
}

TEST (VirtualCorvane, PanelKeysAndProgramButtonsGoOut)
{
    Wire w;
    w.corvane.movePanel (17, 255);
    w.corvane.movePanel (59, 1);
    w.corvane.playNote (60, 90);
    w.corvane.playNote (60, 0);
    w.corvane.selectProgram (3, 12);
    ASSERT_EQ (w.out.size(), 8u);
    EXPECT_EQ (w.out[0].getControllerValue(), 127);
    EXPECT_EQ (w.out[1].getControllerNumber(), 35);
    EXPECT_EQ (w.out[1].getControllerValue(), 64);
    EXPECT_EQ (w.out[2].getControllerNumber(), 80);
    EXPECT_EQ (w.out[2].getControllerValue(), 0);
    EXPECT_TRUE (w.out[3].isNoteOn());
    EXPECT_TRUE (w.out[4].isNoteOff());
    EXPECT_EQ (w.out[6].getControllerValue(), 3);
    EXPECT_EQ (w.out[7].getProgramChangeNumber(), 12);
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

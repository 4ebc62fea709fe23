#include "DeviceLinkFixture.h"

#include <gtest/gtest.h>

using Codes = std::vector<unsigned>;
using HostChanges = std::vector<std::pair<int, int>>;

namespace
{
juce::MidiMessage cc (int controller, int value, int channel = 1)
{
    return juce::MidiMessage::controllerEvent (channel, controller, value);
}

juce::MidiMessage raw (std::initializer_list<int> bytes)
{
    std::vector<juce::uint8> b;
    for (int x : bytes)
        b.push_back ((juce::uint8) x);
    return juce::MidiMessage (b.data(), (int) b.size());
}
} // namespace

TEST (MidiInput, NotesAndWheelsPostTheirCodesAndReachTheHost)
{
    LinkedState link;
    link.receive (juce::MidiMessage::noteOn (3, 60, (juce::uint8) 100));
    link.receive (juce::MidiMessage::noteOn (3, 60, (juce::uint8) 0)); // a note off, without velocity
    link.receive (juce::MidiMessage::noteOff (16, 61, (juce::uint8) 50));
    link.receive (juce::MidiMessage::pitchWheel (1, 8192));
    link.receive (cc (1, 77, 2));

    const Codes expected = { 0x240000 + (3u << 14) + (60 << 7) + 100, 0x200000 + (3u << 14) + 60,
                             0x200000 + (16u << 14) + 61, 0x380000 + (1u << 14) + 8192,
                             0x2C0000 + (2u << 14) + (1 << 7) + 77 };
    EXPECT_EQ (link.drainCodes(), expected);
    EXPECT_EQ (link.state.hostMidi.getNumEvents(), 3);
    EXPECT_EQ (link.drainHost(), (HostChanges { { 313, 8192 }, { 58, 77 } }));
}

TEST (MidiInput, ControllersBecomeParameterChanges)
{
    struct Case
    {
        std::vector<std::pair<int, int>> controllers;
        HostChanges expected;
    };
    const Case cases[] = {
        { { { 19, 100 }, { 51, 64 } }, { { 32, 201 } } },   // a pair: (MSB << 1) + (LSB >> 6)
        { { { 35, 64 } }, { { 0, 1 } } },                  // an LSB with no MSB before: parameter 0
        { { { 4, 127 }, { 36, 0 } }, { { 0, 254 } } },     // controller 4 stands for parameter 0
        { { { 3, 10 }, { 60, 64 } }, { { 17, 21 } } },     // any LSB completes the pending MSB
        { { { 77, 126 } }, { { 56, 0 } } },                // a switch reads 1 only at 127
        { { { 77, 127 } }, { { 56, 1 } } },
        { { { 79, 0 } }, { { 58, 1 } } },                  // inverted
        { { { 80, 127 } }, { { 59, 0 } } },
        { { { 68, 112 } }, { { 47, 7 } } },                // stepped
        { { { 67, 96 } }, { { 46, 3 } } },
        { { { 76, 80 } }, { { 55, 5 } } },
        { { { 65, 127 } }, { { 68, 1 } } },
        { { { 88, 127 } }, { { 67, 1 } } },
        { { { 2, 9 } }, { { 59, 9 } } },                   // unmapped: a plain host parameter
        { { { 64, 127 } }, { { 121, 127 } } },
    };
    for (const auto& c : cases)
    {
        LinkedState link;
        for (auto [controller, value] : c.controllers)
            link.receive (cc (controller, value));
        EXPECT_EQ (link.drainHost(), c.expected) << c.controllers.front().first;
        EXPECT_TRUE (link.drainCodes().empty());
    }
}

TEST (MidiInput, BankSelectThenProgramChangeLoadsFromThatBank)
{
    LinkedState link;
    const auto words = VirtualCorvane::makeProgram (4, 100, 3);
    link.state.banks[4]->setStoredProgram (100, words);

    link.receive (cc (32, 4));
    link.receive (juce::MidiMessage::programChange (1, 100));
    EXPECT_EQ (link.state.bankNumber, 4);
    EXPECT_EQ (link.state.programNumber, 100);
    for (int i = 0; i < 200; ++i)
        ASSERT_EQ (link.state.editBuffer->patchData[i], words[i]) << i;
    EXPECT_EQ (link.drainCodes(), Codes { 0x440000 });
    EXPECT_EQ (link.drainHost(), (HostChanges { { 89, 4 }, { 56, 100 }, { 89, 4 }, { 56, 100 } }));
    EXPECT_TRUE (link.sent().empty()); // nothing goes back to the device

    // A bank that does not exist: the program change is taken, nothing is loaded.
    link.receive (cc (32, 100));
    link.receive (juce::MidiMessage::programChange (1, 5));
    EXPECT_EQ (link.state.programNumber, 5);
    EXPECT_TRUE (link.drainCodes().empty());
}

TEST (MidiInput, SysexIsAssembledWholeOrInPieces)
{
    LinkedState link;
    link.receive (raw ({ 0xF0, 0x01, 0x02, 0xF7 })); // too short to look at: only the lamp
    EXPECT_EQ (link.drainCodes(), Codes { 0x500000 });

    // A dump in three pieces, with a program change caught in the middle.
    const auto frame = VirtualCorvane::editBufferFrame (VirtualCorvane::makeProgram (0, 0, 9));
    const auto* f = static_cast<const juce::uint8*> (frame.getData());
    link.receive (juce::MidiMessage (f, 60));
    EXPECT_EQ (link.state.sysexBuffer.size(), 60);
    link.receive (juce::MidiMessage (f + 60, 88));
    link.receive (juce::MidiMessage (f + 148, 1));
    EXPECT_TRUE (link.state.sysexBuffer.isEmpty());
    EXPECT_EQ (link.drainCodes(), (Codes { 0x500000, 0x440000, 0x480000 }));

    // Unfinished: it waits, joins what follows, and a new 0xF0 throws it away.
    link.receive (raw ({ 0xF0, 0x04, 0x01 }));
    link.receive (juce::MidiMessage::programChange (1, 3));
    EXPECT_EQ (link.state.sysexBuffer.size(), 5);
    link.receive (raw ({ 0xF0, 0x04, 0x01, 0x00, 0x09, 0xF7 }));
    EXPECT_TRUE (link.state.sysexBuffer.isEmpty());
    link.drainCodes();

    // Stray data with nothing pending is dropped.
    link.receive (raw ({ 0x12, 0x34, 0xF7 }));
    EXPECT_TRUE (link.drainCodes().empty());
}

TEST (MidiInput, PollReplyGoesOnLineAndDuringAScanSavesThePorts)
{
    LinkedState link;
    link.state.scanActive = true;
    link.state.scanInput = 3;
    link.state.scanOutput = 4;
    const auto words = VirtualCorvane::makeProgram (1, 1, 1);

    link.receive (VirtualCorvane::editBufferFrame (words));
    EXPECT_TRUE (link.state.deviceOnline);
    EXPECT_EQ (link.drainCodes(), (Codes { 0x500000, 0x440000, 0x480000 }));
    EXPECT_EQ (link.state.iniSlotInt (1), 3);
    EXPECT_EQ (link.state.iniSlotInt (2), 4);
    for (int i = 0; i < 200; ++i)
        if (carriedByDump (i))
        {
            ASSERT_EQ (link.state.editBuffer->patchData[i], words[i]) << i;
        }
}

TEST (MidiInput, AProgramPushedByTheDeviceLandsInTheSelectedBank)
{
    LinkedState link;
    const auto before = link.state.editBuffer->patchData;
    const auto words = VirtualCorvane::makeProgram (2, 77, 5);
    link.receive (cc (32, 2));
    link.receive (VirtualCorvane::programFrame (words, 77));

    EXPECT_EQ (link.state.programNumber, 77);
    EXPECT_EQ (link.state.banks[2]->getStoredProgram (77), words);
    EXPECT_EQ (link.state.editBuffer->patchData, before); // the 154-byte form does not reach it
    EXPECT_EQ (link.drainCodes(), (Codes { 0x500000, 0x600000, 0x440000 }));
}

TEST (MidiInput, DumpsNamingNoPlaceAreIgnored)
{
    LinkedState link;
    auto frame = VirtualCorvane::programFrame (VirtualCorvane::makeProgram (0, 0, 1), 0);
    static_cast<juce::uint8*> (frame.getData())[5] = 0x85; // program 133
    const auto bank0 = link.state.banks[0]->bankData;
    link.receive (frame);
    link.receive (cc (32, 9));
    link.receive (VirtualCorvane::programFrame (VirtualCorvane::makeProgram (0, 0, 1), 3));
    EXPECT_EQ (link.state.banks[0]->bankData, bank0);
    EXPECT_EQ (link.drainCodes(), (Codes { 0x500000, 0x500000 }));

    // Other lengths change nothing either.
    auto shortFrame = VirtualCorvane::programFrame (VirtualCorvane::makeProgram (0, 0, 1), 0);
    shortFrame.removeSection (10, 1);
    link.receive (cc (32, 0));
    link.receive (shortFrame);
    EXPECT_EQ (link.state.banks[0]->bankData, bank0);
}

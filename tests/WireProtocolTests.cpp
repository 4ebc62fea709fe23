#include "DeviceLinkFixture.h"

TEST (WireProtocol, PollIsTheEditBufferRequestAndGoesOffLine)
{
    LinkedState link;
    link.state.deviceOnline = true;
    link.state.getPOLL();
    EXPECT_TRUE (! link.state.deviceOnline && link.drainCodes() == Codes { 0x4C0000 });

    link.state.Dump_Request (5, 99, 0);
    link.state.Dump_Request (6, 17, 0);
    link.state.Dump_Request (9, 0, 0); // no caller asks for this: the bare header
    const Bytes expected = { { 0xF0, 0x04, 0x01, 0x00, 0x05, 0xF7 }, { 0xF0, 0x04, 0x01, 0x00, 0x05, 0xF7 },
                             { 0xF0, 0x04, 0x01, 0x00, 0x06, 17, 0xF7 }, { 0xF0, 0x04, 0x01 } };
    EXPECT_EQ (link.sent(), expected);
}

TEST (WireProtocol, NothingLeavesWithoutAnOutput)
{
    LinkedState link (false);
    ASSERT_FALSE (link.state.portControl->outputOpen);
    link.state.getPOLL();
    link.state.SEND_BNPR (1, 2, 3, true, false);
    EXPECT_FALSE (link.state.SEND_PARAM_CC (17, 100, 0));
    link.state.portControl->Send_PitchBend (1, 8192);
    link.state.portControl->sendBlockOfMessages (juce::MidiBuffer (juce::MidiMessage::noteOn (1, 60, (juce::uint8) 1)), 0.0, 44100.0);
    EXPECT_TRUE (link.sent().empty());
    EXPECT_EQ (link.drainCodes(), Codes { 0x4C0000 }); // the state still moves
}

TEST (WireProtocol, BankAndProgramSelection)
{
    LinkedState link;
    link.state.SEND_BNPR (16, 2, 5, true, true);
    link.state.SEND_BNPR (1, 3, 128, true, false); // no program change for 128
    link.state.SEND_BANKch (1, 6);
    EXPECT_EQ (link.sent(), (Bytes { { 0xBF, 0, 0 }, { 0xBF, 32, 2 }, { 0xCF, 5 }, { 0xB0, 0, 0 }, { 0xB0, 32, 3 },
                                     { 0xB0, 0, 0 }, { 0xB0, 32, 6 } }));
    EXPECT_EQ (link.drainHost(), (HostChanges { { 89, 2 }, { 56, 5 } }));
    EXPECT_EQ (link.state.bankNumber, 6);

    // Recall with selection is covered with the host's program change; a bank that no store holds,
    // or a program past the bank, changes nothing.
    link.state.PROGRAM_MESSAGE (8, 1, true, true);
    link.state.PROGRAM_MESSAGE (2, 128, true, true);
    EXPECT_TRUE (link.state.bankNumber == 6 && link.drainCodes().empty() && link.sent().empty());
}

TEST (WireProtocol, HostDisplaySendsTheEditBufferAndRefreshesTheTouchSurface)
{
    LinkedState link;
    auto words = VirtualCorvane::makeProgram (0, 5, 7);
    for (auto [word, value] : { std::pair { 83, 20 }, { 87, 21 }, { 91, 0 }, { 94, 127 } })
        words.set (word, (unsigned short) value);
    link.state.editBuffer->setStoredProgram (5, words);
    link.state.hostProgram = 5;

    link.state.SEND_HOST_DISPLAY();
    EXPECT_EQ ((std::vector<int> (link.state.tsCtrl.begin(), link.state.tsCtrl.end())), (std::vector<int> { 20, 21, 0, 127 }));
    const auto frame = VirtualCorvane::editBufferFrame (words);
    const auto* f = static_cast<const juce::uint8*> (frame.getData());
    EXPECT_EQ (link.sent(), (Bytes { std::vector<int> (f, f + frame.getSize()) }));
    EXPECT_EQ (link.drainCodes(), Codes { 0x440000 });
}

// A sound parameter's value, the controllers it leaves as, and whether they come back in as the same change.
TEST (WireProtocol, ControllerMapAndScalingBothWays)
{
    const std::tuple<int, int, Bytes, bool> cases[] = {
        { 17, 255, { { 0xB0, 3, 127 }, { 0xB0, 35, 64 } }, true },
        { 17, 254, { { 0xB0, 3, 127 }, { 0xB0, 35, 0 } }, true },
        { 36, 200, { { 0xB0, 0, 100 }, { 0xB0, 32, 0 } }, false }, // shares bank select, kept so
        { 45, 1, { { 0xB0, 7, 0 }, { 0xB0, 39, 64 } }, true },
        { 58, 1, { { 0xB0, 79, 0 } }, true },                       // inverted
        { 47, 7, { { 0xB0, 68, 112 } }, true },                     // stepped by 16
        { 46, 3, { { 0xB0, 67, 96 } }, true },                      // stepped by 32
        { 68, 1, { { 0xB0, 65, 127 } }, true },
        { 69, 100, {}, true },                                      // touch surface: the program's controllers,
        { 70, 100, {}, true },                                      // none below 1
        { 71, 100, { { 0xB0, 20, 100 } }, true },
    };
    for (const auto& [param, value, bytes, comesBack] : cases)
    {
        SCOPED_TRACE (param);
        LinkedState link;
        std::tie (link.state.tsCtrl[0], link.state.tsCtrl[1], link.state.tsCtrl[2]) = std::tuple { -1, 0, 20 };
        EXPECT_EQ (link.state.SEND_PARAM_CC (param, value, 0), ! bytes.empty());
        EXPECT_EQ (link.sent(), bytes);
        if (! comesBack)
            continue;
        for (auto& m : bytes)
            link.receive (juce::MidiMessage (m[0], m[1], m[2]));
        EXPECT_EQ (link.drainHost(), (bytes.empty() ? HostChanges() : HostChanges { { param, value } }));
    }
}

TEST (WireProtocol, DuplicatesAreDroppedOnlyAgainstTheLastMessage)
{
    LinkedState link;
    link.state.midiChannel = 16;
    EXPECT_TRUE (link.state.SEND_PARAM_CC (32, 200, 0));
    EXPECT_FALSE (link.state.SEND_PARAM_CC (32, 200, 0));
    EXPECT_TRUE (link.state.SEND_PARAM_CC (33, 10, 0));
    EXPECT_TRUE (link.state.SEND_PARAM_CC (32, 200, 0)); // another pair came between
    EXPECT_TRUE (link.state.SEND_PARAM_CC (61, 1, 0));
    EXPECT_FALSE (link.state.SEND_PARAM_CC (61, 1, 0));
    EXPECT_TRUE (link.state.SEND_PARAM_CC (61, 0, 0));
    const Bytes expected = { { 0xBF, 19, 100 }, { 0xBF, 51, 0 }, { 0xBF, 21, 5 }, { 0xBF, 53, 0 },
                             { 0xBF, 19, 100 }, { 0xBF, 51, 0 }, { 0xBF, 82, 127 }, { 0xBF, 82, 0 } };
    EXPECT_EQ (link.sent(), expected);
}

TEST (WireProtocol, LiveEditsLeaveWithTheCompensationDelay)
{
    LinkedState link;
    const double before = juce::Time::getMillisecondCounterHiRes();
    link.state.SEND_PARAM_CC (20, 10, 0);
    link.state.SEND_PARAM_CC (20, 11, 25);
    const auto log = link.backend.messagesTo (link.device.inputId);
    ASSERT_EQ (log.size(), 4u);
    EXPECT_EQ (log[0].message.getControllerNumber(), 8); // MSB first, both halves at one moment
    EXPECT_NEAR (log[0].timeMs, before, 5.0);
    EXPECT_NEAR (log[2].timeMs, before + 25.0, 5.0);
    EXPECT_TRUE (log[1].timeMs == log[0].timeMs && log[3].timeMs == log[2].timeMs);
}

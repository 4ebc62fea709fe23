// The plug-in's controller state against the virtual Corvane, over in-process MIDI.

#include "DeviceLinkFixture.h"

#include <gtest/gtest.h>

using Codes = std::vector<unsigned>;

namespace
{
constexpr juce::int64 seed = 20261123;

struct CorvaneLink : ::testing::Test
{
    LinkedState link;
    VirtualCorvane& corvane = link.device.corvane;

    void SetUp() override
    {
        std::cout << "seed " << seed << std::endl;
        corvane.fillAllBanks (seed);
        ASSERT_TRUE (link.state.portControl->inputOpen);
        ASSERT_TRUE (link.state.portControl->outputOpen);
    }

    void expectBankEqual (int bank)
    {
        for (int p = 0; p < 128; ++p)
            ASSERT_EQ (link.state.banks[bank]->getStoredProgram (p), corvane.getProgram (bank, p)) << "bank " << bank << " program " << p;
    }

    std::vector<juce::MemoryBlock> storesOf (std::initializer_list<int> banks)
    {
        std::vector<juce::MemoryBlock> out;
        for (int b : banks)
            out.push_back (link.state.banks[b]->bankData);
        return out;
    }

    int programRequestsSent()
    {
        int n = 0;
        for (auto& m : link.sent())
            n += m.size() == 7 && m[4] == 0x06 ? 1 : 0;
        return n;
    }
};
} // namespace

TEST_F (CorvaneLink, PollTurnsTheStateOnLine)
{
    link.state.getPOLL();
    EXPECT_EQ (link.drainCodes(), Codes { 0x4C0000 });
    EXPECT_FALSE (link.state.deviceOnline);

    link.backend.deliverPending();
    EXPECT_TRUE (link.state.deviceOnline);
    const auto codes = link.drainCodes();
    ASSERT_FALSE (codes.empty());
    EXPECT_EQ (codes.back(), 0x480000u);
}

TEST_F (CorvaneLink, EditBufferRequestFillsTheEditBuffer)
{
    const auto sound = VirtualCorvane::makeProgram (5, 5, seed + 1);
    corvane.setEditBuffer (sound);
    link.state.Dump_Request (5, 0, 0);
    link.backend.deliverPending();
    for (int i = 0; i < 200; ++i)
        if (carriedByDump (i))
        {
            ASSERT_EQ (link.state.editBuffer->patchData[i], sound[i]) << i;
        }
    EXPECT_EQ (link.drainCodes(), (Codes { 0x500000, 0x440000, 0x480000 }));
}

TEST_F (CorvaneLink, ReceivingOneBank)
{
    const auto others = storesOf ({ 0, 1, 3, 4, 5, 6, 7 });
    link.startBankReceive (2, 0);
    link.backend.deliverPending();

    expectBankEqual (2);
    EXPECT_EQ (storesOf ({ 0, 1, 3, 4, 5, 6, 7 }), others);
    EXPECT_EQ (corvane.getRequestsAnswered(), 128);

    const auto codes = link.drainCodes();
    ASSERT_GE (codes.size(), 2u);
    EXPECT_EQ (codes[codes.size() - 2], 0x640000u);
    EXPECT_EQ (codes.back(), 0x580000u);
    int progress = 0;
    for (auto c : codes)
        progress += (c & 0xFFFF0000u) == 0x5C0000u && ((c >> 8) & 0xFF) == 2 ? 1 : 0;
    EXPECT_EQ (progress, 128);
}

TEST_F (CorvaneLink, ReceivingAllBanksEndsAtBankSix)
{
    const auto factory = storesOf ({ 7 });
    link.startBankReceive (0, 50);
    link.backend.deliverPending();

    for (int b = 0; b < 7; ++b)
        expectBankEqual (b);
    EXPECT_EQ (storesOf ({ 7 }), factory);
    EXPECT_EQ (link.state.bankNumber, 6);
    EXPECT_EQ (corvane.getBank(), 6);
    EXPECT_EQ (corvane.getRequestsAnswered(), 7 * 128);
    EXPECT_EQ (link.drainCodes().back(), 0x580000u);
}

TEST_F (CorvaneLink, CancellingStopsTheRequests)
{
    corvane.setFaults ({ 0, false, true, 0 }); // replies wait, so that the cancel falls between
    link.startBankReceive (1, 0);
    link.backend.deliverPending();
    EXPECT_EQ (programRequestsSent(), 1);

    link.endBankReceive (0);
    link.sent();
    EXPECT_EQ (corvane.releaseLateReplies(), 1);
    link.backend.deliverPending();

    EXPECT_EQ (programRequestsSent(), 0);
    // The late dump still lands, as a program pushed by the device, in the bank
    // last selected on this side.
    EXPECT_EQ (link.state.banks[1]->getStoredProgram (0), corvane.getProgram (1, 0));
    EXPECT_FALSE (link.state.bankDumpActive);
}

TEST_F (CorvaneLink, ADroppedReplyStallsTheReceive)
{
    const auto before = storesOf ({ 0, 1, 2, 3, 4, 5, 6, 7 });
    link.startBankReceive (4, 0);
    link.backend.deliverPending (2 * 40 + 2); // select and 40 round trips; the 41st request waits
    corvane.setFaults ({ 1, false, false, 0 });
    link.backend.deliverPending();

    EXPECT_TRUE (link.state.transferBusy);
    for (int p = 0; p < 128; ++p)
        ASSERT_EQ (link.state.banks[4]->getStoredProgram (p) == corvane.getProgram (4, p), p < 40) << p;
    const auto after = storesOf ({ 0, 1, 2, 3, 5, 6, 7 });
    EXPECT_EQ (after, (std::vector<juce::MemoryBlock> { before[0], before[1], before[2], before[3], before[5], before[6], before[7] }));
    EXPECT_EQ (link.backend.deliverPending(), 0);
}

TEST_F (CorvaneLink, AWrongLengthReplyStallsTheReceive)
{
    const auto before = storesOf ({ 0, 1, 2, 3, 4, 5, 6, 7 });
    link.startBankReceive (3, 50);
    link.backend.deliverPending (2 * 10 + 2);
    corvane.setFaults ({ 0, true, false, 0 });
    link.backend.deliverPending();

    EXPECT_EQ (link.state.bankNumber, 3);
    for (int p = 0; p < 128; ++p)
        ASSERT_EQ (link.state.banks[3]->getStoredProgram (p) == corvane.getProgram (3, p), p < 10) << p;
    EXPECT_EQ (storesOf ({ 4, 5, 6 }), (std::vector<juce::MemoryBlock> { before[4], before[5], before[6] }));
}

TEST_F (CorvaneLink, AKnobOnTheInstrumentArrivesAsItsParameterChange)
{
    corvane.movePanel (32, 201);  // Filter Cutoff
    corvane.movePanel (58, 1);    // Osc 3 KB Ctrl, inverted on the wire
    corvane.movePanel (47, 5);    // Wheel Src, stepped
    link.backend.deliverPending();
    EXPECT_EQ (link.drainHost(), (std::vector<std::pair<int, int>> { { 32, 201 }, { 58, 1 }, { 47, 5 } }));
}

TEST_F (CorvaneLink, AProgramChangeOnTheInstrumentLoadsThatProgram)
{
    const auto words = VirtualCorvane::makeProgram (5, 33, seed + 2);
    link.state.banks[5]->setStoredProgram (33, words);
    corvane.selectProgram (5, 33);
    link.backend.deliverPending();

    EXPECT_EQ (link.state.bankNumber, 5);
    EXPECT_EQ (link.state.programNumber, 33);
    for (int i = 0; i < 200; ++i)
        ASSERT_EQ (link.state.editBuffer->patchData[i], words[i]) << i;
    EXPECT_EQ (link.drainCodes(), Codes { 0x440000 });
    EXPECT_TRUE (link.sent().empty());
}

TEST_F (CorvaneLink, LiveEditsReachTheInstrument)
{
    link.state.SEND_PARAM_CC (32, 77, 0);
    link.state.SEND_PARAM_CC (59, 1, 0);
    link.state.SEND_PARAM_CC (53, 4, 0);
    link.backend.deliverPending();
    const auto edit = corvane.getEditBuffer();
    EXPECT_EQ (edit[32], 77 << 8);
    EXPECT_EQ (edit[59], 1);
    EXPECT_EQ (edit[53], 4);
}

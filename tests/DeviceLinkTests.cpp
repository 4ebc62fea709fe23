// The plug-in's controller state against the virtual Corvane, over in-process MIDI.

#include "DeviceLinkFixture.h"

namespace
{
constexpr juce::int64 seed = 20261123;

struct CorvaneLink : ::testing::Test
{
    LinkedState link;
    VirtualCorvane& corvane = link.device.corvane;
    const std::vector<juce::MemoryBlock> before = stores();

    void SetUp() override
    {
        std::cout << "seed " << seed << std::endl;
        corvane.fillAllBanks (seed);
        ASSERT_TRUE (link.state.portControl->inputOpen && link.state.portControl->outputOpen);
    }

    std::vector<juce::MemoryBlock> stores()
    {
        std::vector<juce::MemoryBlock> out;
        for (auto* bank : link.state.banks)
            out.push_back (bank->bankData);
        return out;
    }

    // The first n programs of the bank equal the instrument's, the others not.
    void expectBank (int bank, int n = 128)
    {
        for (int p = 0; p < 128; ++p)
            ASSERT_EQ (link.state.banks[bank]->getStoredProgram (p) == corvane.getProgram (bank, p), p < n) << "bank " << bank << " program " << p;
    }

    void expectOthersUntouched (std::initializer_list<int> changed)
    {
        auto now = stores();
        for (int b : changed)
            now[(size_t) b] = before[(size_t) b];
        EXPECT_EQ (now, before);
    }

    // What the bank menu does to receive one bank (kind 0) or all (kind 50).
    void startBankReceive (int bank, int kind)
    {
        link.state.transferKind = kind;
        link.state.transferBusy = link.state.bankDumpActive = true;
        link.state.bankNumber = bank;
        link.state.SEND_BANKch (link.state.midiChannel, bank);
        link.state.Dump_Request (6, 0, 0);
    }

    // A receive whose replies fail after n programs stalls there, and touches no other bank.
    void expectStall (int bank, int kind, int n, VirtualCorvane::Faults faults)
    {
        startBankReceive (bank, kind);
        link.backend.deliverPending (2 + 2 * n); // bank select and n round trips; the next request waits
        corvane.setFaults (faults);
        link.backend.deliverPending();
        EXPECT_TRUE (link.state.transferBusy && link.state.bankNumber == bank);
        expectBank (bank, n);
        expectOthersUntouched ({ bank });
        EXPECT_EQ (link.backend.deliverPending(), 0);
    }

    long programRequestsSent()
    {
        const auto out = link.sent();
        return std::count_if (out.begin(), out.end(), [] (auto& m) { return m.size() == 7 && m[4] == 0x06; });
    }
};
} // namespace

// The poll is the edit-buffer request.
TEST_F (CorvaneLink, PollTurnsTheStateOnLineFillsTheEditBufferAndRecordsTheScannedPair)
{
    const auto sound = VirtualCorvane::makeProgram (5, 5, seed + 1);
    corvane.setEditBuffer (sound);
    link.state.scanActive = true; // during a scan the reply records the pair that found it
    const auto slotsBefore = juce::StringArray (link.state.iniStrings[1], link.state.iniStrings[2]);
    link.state.scanInput = 3;
    link.state.scanOutput = 4;
    link.state.getPOLL();
    EXPECT_EQ (link.drainCodes(), Codes { 0x4C0000 });
    EXPECT_FALSE (link.state.deviceOnline);
    link.backend.deliverPending();
    EXPECT_TRUE (link.state.deviceOnline);
    EXPECT_EQ (link.drainCodes(), (Codes { 0x500000, 0x440000, 0x480000 }));
    link.expectEditBuffer (sound, true);
    EXPECT_TRUE (link.state.scanReplyInput == 3 && link.state.scanReplyOutput == 4);
    // The settings are the message thread's: the scan's next tick stores the pair.
    EXPECT_EQ (juce::StringArray (link.state.iniStrings[1], link.state.iniStrings[2]), slotsBefore);
}

// One bank, then all banks, which end at bank 6; the factory bank stays.
TEST_F (CorvaneLink, ReceivingOneBankAndAllBanks)
{
    startBankReceive (2, 0);
    link.backend.deliverPending();
    expectBank (2);
    expectOthersUntouched ({ 2 });
    EXPECT_EQ (corvane.getRequestsAnswered(), 128);
    const auto codes = link.drainCodes();
    EXPECT_EQ (std::count_if (codes.begin(), codes.end(), [] (unsigned c) { return (c & 0xFFFF00u) >> 8 == 0x5C02u; }), 128);
    ASSERT_GE (codes.size(), 2u);
    EXPECT_EQ (Codes (codes.end() - 2, codes.end()), (Codes { 0x640000, 0x580000 }));

    startBankReceive (0, 50);
    link.backend.deliverPending();
    for (int b = 0; b < 7; ++b)
        expectBank (b);
    expectOthersUntouched ({ 0, 1, 2, 3, 4, 5, 6 });
    EXPECT_TRUE (link.state.bankNumber == 6 && corvane.getBank() == 6);
    EXPECT_EQ (corvane.getRequestsAnswered(), 8 * 128);
    EXPECT_EQ (link.drainCodes().back(), 0x580000u);
}

TEST_F (CorvaneLink, CancellingStopsTheRequests)
{
    corvane.setFaults ({ 0, false, true, 0 }); // replies wait, so that the cancel falls between
    startBankReceive (1, 0);
    link.backend.deliverPending();
    EXPECT_EQ (programRequestsSent(), 1);

    // What the progress bar does when cancelled.
    link.state.SEND_BNPR (link.state.midiChannel, 0, link.state.programNumber, true, false);
    link.state.transferBusy = link.state.bankDumpActive = false;
    link.state.transferKind = -1;
    link.sent();
    EXPECT_EQ (corvane.releaseLateReplies(), 1);
    link.backend.deliverPending();

    EXPECT_EQ (programRequestsSent(), 0);
    // The late dump still lands, as a program pushed by the device, in the bank last selected on this side.
    EXPECT_EQ (link.state.banks[1]->getStoredProgram (0), corvane.getProgram (1, 0));
}

// Faults: { replies dropped, wrong length, late, bytes garbled }.
TEST_F (CorvaneLink, ADroppedReplyStallsTheReceive) { expectStall (4, 0, 40, { 1, false, false, 0 }); }
TEST_F (CorvaneLink, AWrongLengthReplyStallsTheReceive) { expectStall (3, 50, 10, { 0, true, false, 0 }); }

TEST_F (CorvaneLink, AKnobOnTheInstrumentArrivesAsItsParameterChange)
{
    corvane.movePanel (32, 201); // Filter Cutoff, a pair
    corvane.movePanel (58, 1);   // Osc 3 KB Ctrl, inverted on the wire
    corvane.movePanel (47, 5);   // Wheel Src, stepped
    link.backend.deliverPending();
    EXPECT_EQ (link.drainHost(), (HostChanges { { 32, 201 }, { 58, 1 }, { 47, 5 } }));

    auto& ports = *link.state.portControl; // a closed input hears nothing more
    ports.closeDevice (true, ports.currentInput);
    EXPECT_FALSE (ports.inputOpen);
    corvane.movePanel (32, 7);
    link.backend.deliverPending();
    EXPECT_TRUE (link.drainHost().empty());
}

TEST_F (CorvaneLink, AProgramChangeOnTheInstrumentLoadsThatProgram)
{
    const auto words = VirtualCorvane::makeProgram (5, 33, seed + 2);
    link.state.banks[5]->setStoredProgram (33, words);
    corvane.selectProgram (5, 33);
    link.backend.deliverPending();

    EXPECT_EQ (link.state.bankNumber, 5);
    EXPECT_EQ (link.state.programNumber, 33);
    link.expectEditBuffer (words);
    EXPECT_EQ (link.drainCodes(), Codes { 0x440000 });
    EXPECT_EQ (link.drainHost(), (HostChanges { { 57, 0 }, { 89, 5 }, { 56, 33 }, { 89, 5 }, { 56, 33 } }));
    EXPECT_TRUE (link.sent().empty()); // nothing goes back to the instrument

    // A bank that does not exist: the program change is taken, nothing is loaded.
    link.receive (raw ({ 0xB0, 32, 100 }));
    link.receive (raw ({ 0xC0, 5 }));
    EXPECT_EQ (link.state.programNumber, 5);
    link.expectEditBuffer (words);
    EXPECT_TRUE (link.drainCodes().empty());
}

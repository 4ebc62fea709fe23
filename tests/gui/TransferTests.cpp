// Bank transfers as a user starts them: the "BANK" button, the bank window's "MIDI" menu, the progress
// box and its "CANCEL", against the virtual Corvane on in-process MIDI. The test delivers the MIDI
// itself, message by message where it watches the progress, so the instrument's pace is the test's.

#include "EditorHarness.h"
#include "device/MIDI_PORTS_Control.h"
#include "editor/ProgBar.h"
#include "librarian/BankComp.h"
#include "sound/AutoBank.h"

namespace
{
constexpr juce::int64 seed = 20261123;

using Bytes = std::vector<int>;

Bytes bytesOf (const juce::MemoryBlock& block)
{
    auto* data = static_cast<const unsigned char*> (block.getData());
    return { data, data + block.getSize() };
}

bool isDump (const Bytes& m) { return m.size() == 154 && m[0] == 0xF0; }

struct Transfer : ::testing::Test, EditorHarness
{
    Transfer()
    {
        std::cout << "[ seed ] " << seed << std::endl;
        device.corvane.fillAllBanks (seed);
        openReady();
        main().transferTickMs = 2;
        backend.deliverPending();
        sent();
    }

    std::vector<Bytes> storesNow()
    {
        std::vector<Bytes> stores;
        for (auto* bank : state().banks)
            stores.push_back (bytesOf (bank->bankData));
        return stores;
    }

    void openBanks()
    {
        auto& bar = *main().appBar;
        for (auto* b : bar.buttons)
            if (b->id == 99 && b != bar.lockButton)
                click (centreOf (*b));
        ASSERT_TRUE (pumpUntil ([this] { return main().bankPanelShown; }));
    }

    bool midiMenu (const juce::StringArray& path)
    {
        click (centreOf (main().bankPanel->midiButton));
        return chooseMenu (path);
    }

    bool transferring() { return main().progressBar != nullptr; }

    void cancel()
    {
        ASSERT_TRUE (transferring());
        click (centreOf (main().progressBar->cancelButton));
        ASSERT_TRUE (pumpUntil ([this] { return ! transferring(); }));
    }

    // The program the instrument holds at a place, as the plug-in stores it.
    Bytes deviceProgramAsStored (int bank, int program)
    {
        AutoBank scratch (0);
        scratch.setStoredProgram (0, device.corvane.getProgram (bank, program));
        return bytesOf (juce::MemoryBlock (scratch.bankData.getData(), AutoBank::programBytes));
    }

    // A stored program as the instrument keeps it once sent: what its dump can carry.
    Bytes throughWire (int bank, int program)
    {
        const auto frame = state().banks[(size_t) bank]->Export_Syx_Bank_Rom_MB (program, program, state().deviceId, 0);
        AutoBank scratch (0);
        scratch.Import_Syx_MB (0, juce::MemoryBlock (static_cast<const char*> (frame.getData()) + 1, AutoBank::patchFrameBytes));
        return bytesOf (juce::MemoryBlock (scratch.bankData.getData(), AutoBank::programBytes));
    }

    Bytes storedProgram (int bank, int program)
    {
        auto* data = static_cast<const char*> (state().banks[(size_t) bank]->bankData.getData());
        return bytesOf (juce::MemoryBlock (data + program * AutoBank::programBytes, AutoBank::programBytes));
    }

    // Delivers one message at a time until `done`, pumping the editor after each; the labels the
    // progress box showed, in order, without repeats.
    juce::StringArray deliverWatching (std::function<bool()> done, int limit = 20000)
    {
        juce::StringArray labels;
        for (int i = 0; i < limit && ! done(); ++i)
        {
            backend.deliverPending (1);
            pump (0);
            if (transferring() && main().progressBar->text.isNotEmpty() && (labels.isEmpty() || labels[labels.size() - 1] != main().progressBar->text))
                labels.add (main().progressBar->text);
        }
        return labels;
    }

    // Bank select of `bank` and program change of `program` on channel 1.
    static std::vector<Bytes> place (int bank, int program) { return { { 0xB0, 0, 0 }, { 0xB0, 32, bank }, { 0xC0, program } }; }
};

TEST_F (Transfer, ReceiveOneBankFollowsEveryProgramAndReturnsTheInstrument)
{
    state().programNumber = 9;
    const auto before = storesNow();
    openBanks();
    ASSERT_TRUE (midiMenu ({ "Receive Program Bank ", "Bank C" }));
    ASSERT_TRUE (transferring());
    EXPECT_EQ (state().bankNumber.load(), 2);

    const auto labels = deliverWatching ([this] { return ! transferring(); });
    juce::StringArray expected;
    for (int p = 1; p <= 127; ++p)
        expected.add ("C:" + juce::String (p));
    // The last program's label and the end come in one wake-up: the box goes with it.
    EXPECT_EQ (labels.joinIntoString (" "), expected.joinIntoString (" "));
    EXPECT_FALSE (transferring());
    EXPECT_EQ (state().transferKind.load(), -1);

    for (int p = 0; p < 128; ++p)
        ASSERT_EQ (storedProgram (2, p), deviceProgramAsStored (2, p)) << "program " << p;
    const auto after = storesNow();
    for (int b = 0; b < 8; ++b)
        EXPECT_TRUE (b == 2 || after[(size_t) b] == before[(size_t) b]) << "bank " << b;

    backend.deliverPending();
    const auto wire = sentBytes();
    ASSERT_GE (wire.size(), 3u);
    EXPECT_EQ (std::vector<Bytes> (wire.end() - 3, wire.end()), place (0, 9));
    EXPECT_EQ (device.corvane.getBank(), 0);
    EXPECT_EQ (device.corvane.getProgramNumber(), 9);
}

TEST_F (Transfer, ReceiveAllBanksFillsTheSevenAndLeavesH)
{
    const auto before = storesNow();
    openBanks();
    ASSERT_TRUE (midiMenu ({ "Receive All Banks" }));
    const auto labels = deliverWatching ([this] { return ! transferring(); }, 100000);
    EXPECT_EQ (labels[0], "A:1");
    EXPECT_TRUE (labels.contains ("G:127"));
    EXPECT_EQ (labels.size(), 7 * 128 - 1);

    for (int b = 0; b < 7; ++b)
        for (int p = 0; p < 128; ++p)
            ASSERT_EQ (storedProgram (b, p), deviceProgramAsStored (b, p)) << "bank " << b << " program " << p;
    EXPECT_EQ (storesNow()[7], before[7]);
}

TEST_F (Transfer, TransmitOneBankSendsBankSelectThenEveryProgramATickApart)
{
    main().transferTickMs = 15;
    state().programNumber = 4;
    openBanks();
    ASSERT_TRUE (midiMenu ({ "Transmit Program Bank ", "Bank D" }));
    ASSERT_TRUE (pumpUntil ([this] { return ! transferring(); }, 10000));

    const auto log = sent();
    std::vector<LinkedProcessor::Sent> dumps;
    for (auto& m : log)
        if (isDump (m.bytes))
            dumps.push_back (m);
    ASSERT_EQ (dumps.size(), 128u);
    EXPECT_EQ (log[0].bytes, (Bytes { 0xB0, 0, 0 }));
    EXPECT_EQ (log[1].bytes, (Bytes { 0xB0, 32, 3 }));
    for (int p = 0; p < 128; ++p)
    {
        EXPECT_EQ (dumps[(size_t) p].bytes, bytesOf (state().banks[3]->Export_Syx_Bank_Rom_MB (p, p, state().deviceId, 0))) << "program " << p;
    }
    // One a tick: a late tick makes the next one come sooner, so the pace shows over the whole run.
    EXPECT_GE (dumps.back().timeMs - dumps.front().timeMs, 127 * 15.0 - 15.0);
    std::vector<Bytes> tail;
    for (auto it = log.end() - 3; it != log.end(); ++it)
        tail.push_back (it->bytes);
    EXPECT_EQ (tail, place (0, 4));

    backend.deliverPending();
    for (int p = 0; p < 128; ++p)
        ASSERT_EQ (deviceProgramAsStored (3, p), throughWire (3, p)) << "program " << p;
    EXPECT_EQ (device.corvane.getBank(), 0);
}

TEST_F (Transfer, TransmitAllBanksSkipsProgramZeroOfEveryLaterBank)
{
    const auto untouched = device.corvane.getProgram (1, 0);
    openBanks();
    ASSERT_TRUE (midiMenu ({ "Transmit All Banks" }));
    ASSERT_TRUE (pumpUntil ([this] { backend.deliverPending(); return ! transferring(); }, 20000));

    int dumps = 0;
    std::vector<int> bankSelects;
    for (auto& m : sentBytes())
    {
        dumps += isDump (m) ? 1 : 0;
        if (m.size() == 3 && m[0] == 0xB0 && m[1] == 32)
            bankSelects.push_back (m[2]);
    }
    EXPECT_EQ (dumps, 128 + 6 * 127);
    EXPECT_EQ (bankSelects, (std::vector<int> { 0, 1, 2, 3, 4, 5, 6, 0 }));

    EXPECT_EQ (device.corvane.getProgram (1, 0), untouched);
    for (int b = 0; b < 7; ++b)
        for (int p = b == 0 ? 0 : 1; p < 128; ++p)
            ASSERT_EQ (deviceProgramAsStored (b, p), throughWire (b, p)) << "bank " << b << " program " << p;
}

TEST_F (Transfer, CancelStopsATransmissionAtOnceAndReturnsTheInstrument)
{
    main().transferTickMs = 10;
    state().programNumber = 7;
    openBanks();
    ASSERT_TRUE (midiMenu ({ "Transmit Program Bank ", "Bank B" }));
    ASSERT_TRUE (pumpUntil ([this] { return state().transferProgram >= 20; }));
    cancel();
    const auto wire = sentBytes();
    pump (200);
    EXPECT_TRUE (sentBytes().empty()) << "nothing after the cancel";

    int dumps = 0;
    for (auto& m : wire)
        dumps += isDump (m) ? 1 : 0;
    EXPECT_GE (dumps, 20);
    EXPECT_LT (dumps, 128);
    EXPECT_EQ (std::vector<Bytes> (wire.end() - 3, wire.end()), place (0, 7));
    EXPECT_FALSE (state().transferBusy.load());
    EXPECT_FALSE (state().transferTimerOn);
}

TEST_F (Transfer, TransmissionWithNoOutputRunsItsCourse)
{
    state().portControl->closeDevice (false, 0);
    openBanks();
    ASSERT_TRUE (midiMenu ({ "Transmit Program Bank ", "Bank A" }));
    ASSERT_TRUE (pumpUntil ([this] { return ! transferring(); }, 10000));
    EXPECT_EQ (state().transferKind.load(), -1);
    EXPECT_FALSE (state().transferTimerOn);
}

// Each fault starts after a few good programs; the user cancels the stalled receive, and replies that
// were held back arrive after it. Nothing lands outside the bank being received.
TEST_F (Transfer, FaultyRepliesLandOnlyInTheBankBeingReceived)
{
    struct Case
    {
        const char* name;
        VirtualCorvane::Faults faults;
    };
    const Case cases[] = {
        { "dropped", { 1, false, false, 0 } },
        { "late", { 0, false, true, 0 } },
        { "cut short", { 0, true, false, 0 } },
        { "garbled", { 0, false, false, 3 } },
    };

    openBanks();
    for (const auto& c : cases)
    {
        SCOPED_TRACE (c.name);
        const auto before = storesNow();
        ASSERT_TRUE (midiMenu ({ "Receive Program Bank ", "Bank E" }));
        deliverWatching ([this] { return transferring() && main().progressBar->value >= 10; }, 500);
        device.corvane.setFaults (c.faults);
        backend.deliverPending();
        pump();
        if (transferring())
            cancel();
        device.corvane.setFaults ({});
        device.corvane.releaseLateReplies();
        backend.deliverPending();
        pump();

        const auto after = storesNow();
        for (int b = 0; b < 8; ++b)
            EXPECT_TRUE (b == 4 || after[(size_t) b] == before[(size_t) b]) << "bank " << b;
        sent();
    }
}
} // namespace

namespace
{
// Bank receives on a MIDI thread, program recalls on the audio thread and by the host, while the
// message thread initialises banks and loads presets into them: every bank is written in place, so
// no reader ever sees freed memory (the sanitizer build checks this).
TEST_F (Transfer, LiveBanksStayValidWhileMenusRewriteThem)
{
    // The audio and host threads recall a few programs per round of the message thread: each recall
    // makes the editor redraw, and an unpaced flood would only measure that.
    std::atomic<bool> running { true };
    std::atomic<int> round { 0 };
    const auto paced = [&] (auto recall)
    {
        return [&, recall]
        {
            for (int seen = -1, i = 0; running;)
            {
                if (round == seen)
                {
                    std::this_thread::yield();
                    continue;
                }
                seen = round;
                for (int k = 0; k < 4; ++k)
                    recall (i++);
            }
        };
    };

    std::thread midi ([&] { while (running) backend.deliverPending (64); });
    juce::AudioBuffer<float> audioBuffer (2, 64);
    juce::MidiBuffer events;
    std::thread audio (paced ([&] (int i)
    {
        events.clear();
        events.addEvent (juce::MidiMessage::programChange (1, i % 128), 0);
        processor.processBlock (audioBuffer, events);
    }));
    std::thread host (paced ([&] (int i)
    {
        processor.setCurrentProgram (i % 128);
        juce::ignoreUnused (processor.getProgramName ((i * 7) % 128));
    }));

    // A fixed amount of work rather than a time: a slow machine takes longer, never does less.
    constexpr int rounds = 60;
    for (int i = 0; i < rounds; ++i, ++round)
    {
        if (! transferring())
            main().startTransfer (50, 0);
        state().banks[(size_t) (i % 8)]->Initialize_Bank();
        state().banks[(size_t) state().bankNumber.load()]->PreloadFactoryData (i % 7, i % 3);
        main().Set_Bank_PRG (i % 2, i % 8);
        // A few turns of the message loop: the MIDI thread keeps it busy, so it never runs dry.
        for (int turn = 0; turn < 8; ++turn)
            juce::dispatchNextMessageOnSystemQueue (true);
    }

    running = false;
    midi.join();
    audio.join();
    host.join();
    for (auto* bank : state().banks) // written in place: the stores never moved
        EXPECT_EQ (bank->bankData.getSize(), (size_t) AutoBank::bankBytes);
}
} // namespace

// Bank transfers as a user starts them: the "BANK" button, the bank window's "MIDI" menu, the progress
// box and its "CANCEL", against the virtual Corvane on in-process MIDI. The test delivers the MIDI
// itself, message by message where it watches the progress, so the instrument's pace is the test's.

#include "EditorHarness.h"
#include "device/MIDI_PORTS_Control.h"
#include "editor/ProgBar.h"
#include "librarian/BankComp.h"
#include "sound/AutoBank.h"

#include <numeric>

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
        toggleBanks();
        sent();
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

    // Program `program` of a bank's store.
    static Bytes programIn (const juce::MemoryBlock& block, int program = 0)
    {
        return bytesOf (juce::MemoryBlock (static_cast<const char*> (block.getData()) + program * AutoBank::programBytes, AutoBank::programBytes));
    }

    // The program the instrument holds at a place, as the plug-in stores it.
    Bytes deviceProgramAsStored (int bank, int program)
    {
        AutoBank scratch (0);
        scratch.setStoredProgram (0, device.corvane.getProgram (bank, program));
        return programIn (scratch.bankData);
    }

    // A stored program as the instrument keeps it once sent: what its dump can carry.
    Bytes throughWire (int bank, int program)
    {
        const auto frame = state().banks[(size_t) bank]->Export_Syx_Bank_Rom_MB (program, program, state().deviceId, 0);
        AutoBank scratch (0);
        scratch.Import_Syx_MB (0, juce::MemoryBlock (static_cast<const char*> (frame.getData()) + 1, AutoBank::patchFrameBytes));
        return programIn (scratch.bankData);
    }

    // Delivers one message at a time until `done`, pumping the editor after each; the labels the
    // progress box showed, in order, without repeats.
    juce::StringArray deliverWatching (std::function<bool()> done, int limit = 100000)
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

TEST_F (Transfer, ReceiveFollowsEveryProgramAndReturnsTheInstrument)
{
    const struct { juce::StringArray path; int first, count; } cases[] = { { { "Receive Program Bank ", "Bank C" }, 2, 1 },
                                                                            { { "Receive All Banks" }, 0, 7 } };
    for (const auto& c : cases)
    {
        SCOPED_TRACE (c.count);
        state().bankNumber = 0; // a transfer leaves the state on its bank
        state().programNumber = 9;
        const auto before = storesNow();
        ASSERT_TRUE (midiMenu (c.path));
        const auto labels = deliverWatching ([this] { return ! transferring(); });
        EXPECT_EQ (state().transferKind.load(), -1);

        // Every program's label in order; the last one's label and the end come in one wake-up.
        EXPECT_EQ (labels.size(), c.count * 128 - 1);
        for (int b = c.first, at = 0; b < c.first + c.count; ++b)
            for (int p = 1; p < 128 && at >= 0; ++p)
                EXPECT_GE (at = labels.indexOf (juce::String::charToString ((juce::juce_wchar) ('A' + b)) + ":" + juce::String (p), false, at), 0) << b << ":" << p;

        const auto after = storesNow();
        for (int b = 0; b < 8; ++b)
        {
            const bool received = b >= c.first && b < c.first + c.count;
            EXPECT_TRUE (received || after[(size_t) b] == before[(size_t) b]) << "bank " << b;
            for (int p = 0; p < 128 && received; ++p)
                ASSERT_EQ (programIn (state().banks[(size_t) b]->bankData, p), deviceProgramAsStored (b, p)) << "bank " << b << " program " << p;
        }

        backend.deliverPending();
        const auto wire = sentBytes();
        ASSERT_GE (wire.size(), 3u);
        EXPECT_EQ (std::vector<Bytes> (wire.end() - 3, wire.end()), place (0, 9));
        EXPECT_EQ (device.corvane.getBank(), 0);
        EXPECT_EQ (device.corvane.getProgramNumber(), 9);
    }
}

// Program 0 of the banks after the first is not sent.
TEST_F (Transfer, TransmitSendsBankSelectThenEveryProgramATickApartAndReturnsTheInstrument)
{
    const struct { juce::StringArray path; int first, count, tickMs; } cases[] = { { { "Transmit Program Bank ", "Bank D" }, 3, 1, 15 },
                                                                                   { { "Transmit All Banks" }, 0, 7, 2 } };
    for (const auto& c : cases)
    {
        SCOPED_TRACE (c.count);
        state().bankNumber = 0; // a transfer leaves the state on its bank
        main().transferTickMs = c.tickMs;
        state().programNumber = 4;
        const auto untouched = device.corvane.getProgram (c.first + 1, 0);
        ASSERT_TRUE (midiMenu (c.path));
        ASSERT_TRUE (pumpUntil ([this] { backend.deliverPending(); return ! transferring(); }, 20000));

        const auto log = sent();
        std::vector<LinkedProcessor::Sent> dumps;
        std::vector<int> bankSelects;
        for (auto& m : log)
        {
            if (isDump (m.bytes))
                dumps.push_back (m);
            else if (m.bytes.size() == 3 && m.bytes[0] == 0xB0 && m.bytes[1] == 32)
                bankSelects.push_back (m.bytes[2]);
        }
        ASSERT_EQ (dumps.size(), (size_t) (128 + (c.count - 1) * 127));
        EXPECT_EQ (log[0].bytes, (Bytes { 0xB0, 0, 0 }));
        std::vector<int> selects (c.count + 1, 0);
        std::iota (selects.begin(), selects.end() - 1, c.first);
        EXPECT_EQ (bankSelects, selects);
        for (size_t i = 0, b = (size_t) c.first; b < (size_t) (c.first + c.count); ++b)
            for (int p = b == (size_t) c.first ? 0 : 1; p < 128; ++p, ++i)
                ASSERT_EQ (dumps[i].bytes, bytesOf (state().banks[b]->Export_Syx_Bank_Rom_MB (p, p, state().deviceId, 0))) << "bank " << b << " program " << p;
        // One a tick: a late tick makes the next one come sooner, so the pace shows over the whole run.
        EXPECT_GE (dumps.back().timeMs - dumps.front().timeMs, (double) (dumps.size() - 2) * c.tickMs);
        std::vector<Bytes> tail;
        for (auto it = log.end() - 3; it != log.end(); ++it)
            tail.push_back (it->bytes);
        EXPECT_EQ (tail, place (0, 4));

        backend.deliverPending();
        for (int b = c.first; b < c.first + c.count; ++b)
            for (int p = b == c.first ? 0 : 1; p < 128; ++p)
                ASSERT_EQ (deviceProgramAsStored (b, p), throughWire (b, p)) << "bank " << b << " program " << p;
        EXPECT_EQ (device.corvane.getProgram (c.first + 1, 0), untouched);
        EXPECT_EQ (device.corvane.getBank(), 0);
    }
}

TEST_F (Transfer, CancelStopsATransmissionAtOnceAndReturnsTheInstrument)
{
    main().transferTickMs = 10;
    state().programNumber = 7;
    ASSERT_TRUE (midiMenu ({ "Transmit Program Bank ", "Bank B" }));
    ASSERT_TRUE (pumpUntil ([this] { return state().transferProgram >= 20; }));
    cancel();
    const auto wire = sentBytes();
    pump (200);
    EXPECT_TRUE (sentBytes().empty()) << "nothing after the cancel";

    const auto dumps = std::count_if (wire.begin(), wire.end(), isDump);
    EXPECT_GE (dumps, 20);
    EXPECT_LT (dumps, 128);
    EXPECT_EQ (std::vector<Bytes> (wire.end() - 3, wire.end()), place (0, 7));
    EXPECT_FALSE (state().transferBusy.load());
    EXPECT_FALSE (state().transferTimerOn);
}

TEST_F (Transfer, TransmissionWithNoOutputRunsItsCourse)
{
    state().portControl->closeDevice (false, 0);
    ASSERT_TRUE (midiMenu ({ "Transmit Program Bank ", "Bank A" }));
    ASSERT_TRUE (pumpUntil ([this] { return ! transferring(); }, 10000));
    EXPECT_EQ (state().transferKind.load(), -1);
    EXPECT_FALSE (state().transferTimerOn);
}

// Each fault starts after a few good programs; the user cancels the stalled receive, and replies that
// were held back arrive after it. Nothing lands outside the bank being received.
TEST_F (Transfer, FaultyRepliesLandOnlyInTheBankBeingReceived)
{
    const struct { const char* name; VirtualCorvane::Faults faults; } cases[] = {
        { "dropped", { 1, false, false, 0 } }, { "late", { 0, false, true, 0 } },
        { "cut short", { 0, true, false, 0 } }, { "garbled", { 0, false, false, 3 } },
    };
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
    for (int i = 0; i < 60; ++i, ++round)
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

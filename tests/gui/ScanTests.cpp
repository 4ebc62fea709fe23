// The connection scan against virtual ports on in-process MIDI: four inputs and four outputs, the
// remembered "Corvane" pair silent, and a second virtual Corvane hidden behind another pair or behind
// none. Most tests tick the scan by hand and deliver the MIDI themselves, so each tick's replies are
// the test's; one runs on the scan's own timer and measures it.

#include "EditorHarness.h"
#include "device/MIDI_PORTS_Control.h"
#include "device/MIDI_scan.h"
#include "editor/AboutPanel.h"

#include <set>

namespace
{
const juce::StringArray portNames { "Port A", "Port B", "Port C" };

bool isPoll (const juce::MidiMessage& m)
{
    const auto* d = m.getRawData();
    return m.getRawDataSize() == 6 && d[0] == 0xF0 && d[4] == 0x05;
}

struct ScanScene : EditorHarness
{
    // Ports "Port A" to "Port C" beside the silent "Corvane"; a virtual Corvane listens on output
    // `hiddenOutput` and answers on input `hiddenInput` (0 to 2, -1 for none).
    void plug (int hiddenInput, int hiddenOutput, VirtualCorvane::Faults faults = {})
    {
        VirtualCorvane::Faults silent;
        silent.dropReplies = 1 << 30;
        device.corvane.setFaults (silent);
        hidden.setFaults (faults);
        for (int i = 0; i < portNames.size(); ++i)
        {
            sources.add (backend.addSource (portNames[i]));
            destinations.add (backend.addDestination (portNames[i], i == hiddenOutput ? &hidden : nullptr));
        }
        if (hiddenInput >= 0)
            hidden.setOutput ([this, id = sources[hiddenInput]] (const juce::MidiMessage& m) { backend.sendFromSource (id, m); });
        destinations.add (device.inputId);
        openReady();
    }

    ~ScanScene() { hidden.setOutput (nullptr); }

    MIDI_scan& scan() { return *main().scanPanel; }
    MIDI_PORTS_Control& ports() { return *state().portControl; }

    // Opens the scan with its timer stopped: the test ticks it.
    void startByHand()
    {
        main().show_Scan (true);
        scan().stopTimer();
    }

    void tick()
    {
        scan().timerCallback();
        backend.deliverPending();
    }

    void tickToEnd()
    {
        for (int i = 0; i < 500 && main().scanPanel != nullptr && scan().waitingReply; ++i)
            tick();
    }

    int pollsTo (const juce::String& destination)
    {
        int polls = 0;
        for (auto& t : backend.messagesTo (destination))
            polls += isPoll (t.message) ? 1 : 0;
        return polls;
    }

    int pollsToAll()
    {
        int polls = 0;
        for (auto& id : destinations)
            polls += pollsTo (id);
        return polls;
    }

    void clearLogs()
    {
        for (auto& id : destinations)
            backend.clearLog (id);
    }

    juce::StringArray savedSettings() { return MidiCntrState::ParseIniText (folder.dir.getChildFile ("tkplugsts.dat").loadFileAsString()); }

    juce::StringArray savedPorts()
    {
        MidiCntrState reader { &backend };
        reader.settingsFolder = folder.dir;
        reader.ReadWritePorts (0);
        return reader.portNames;
    }

    void expectOpen (int input, int output)
    {
        EXPECT_EQ (ports().currentInput, input);
        EXPECT_EQ (ports().currentOutput, output);
        EXPECT_EQ (ports().inputOpen.load(), input >= 0);
        EXPECT_EQ (ports().outputOpen.load(), output >= 0);
    }

    void expectFound (int input, int output)
    {
        ASSERT_TRUE (pumpUntil ([this] { return main().scanPanel == nullptr; }));
        EXPECT_FALSE (state().scanActive);
        expectOpen (input, output);
        EXPECT_EQ (state().iniStrings[1], juce::String (input));
        EXPECT_EQ (state().iniStrings[2], juce::String (output));
        const auto settings = savedSettings();
        EXPECT_EQ (settings[1], juce::String (input));
        EXPECT_EQ (settings[2], juce::String (output));
    }

    VirtualCorvane hidden { 1, 7 };
    juce::StringArray sources, destinations;
};

struct Scan : ::testing::Test, ScanScene
{
};

// Lists: inputs and outputs are "Corvane", then "Port A" to "Port C" at 1 to 3.
TEST_F (Scan, FindsTheInstrumentBehindOnePairAmongSeveralAndASecondProcessorOpensItByName)
{
    plug (2, 1);
    startByHand();
    tickToEnd();

    // The remembered pair first, then the pairs of one name, then the rest, the input changing first.
    const juce::StringArray expectedStart { "- Tried IN: Corvane   OUT: Corvane", "- Tried IN: Port A   OUT: Port A",
                                            "- Tried IN: Port B   OUT: Port B", "- Tried IN: Port C   OUT: Port C",
                                            "- Tried IN: Port A   OUT: Corvane" };
    for (int i = 0; i < expectedStart.size(); ++i)
        EXPECT_EQ (scan().triedPairs[i], expectedStart[i]);
    EXPECT_EQ (scan().triedPairs.strings.getLast(), "- Tried IN: Port C   OUT: Port B");
    EXPECT_FALSE (scan().notConnected);

    expectFound (3, 2);
    const auto names = savedPorts();
    EXPECT_EQ (names[0], "Port C");
    EXPECT_EQ (names[1], "Port B");

    DeskerAudioProcessor second { folder.dir, &backend };
    auto& secondPorts = *second.midiCntrState.portControl;
    ASSERT_TRUE (secondPorts.inputOpen && secondPorts.outputOpen);
    EXPECT_EQ (secondPorts.midiInputs[secondPorts.currentInput]->deviceInfo.name, "Port C");
    EXPECT_EQ (secondPorts.midiOutputs[secondPorts.currentOutput]->deviceInfo.name, "Port B");
    second.midiCntrState.getPOLL();
    backend.deliverPending();
    EXPECT_TRUE (second.midiCntrState.deviceOnline);
}

// A reply while warning lines stand keeps the pair and leaves the panel on the warning page.
TEST_F (Scan, AReplyWithWarningLinesStaysOnTheWarningPageUntilAClick)
{
    plug (2, 1);
    startByHand();
    scan().warningLines = juce::StringArray ("Local: OFF", "Clock: IN");
    tickToEnd();
    pump();
    ASSERT_NE (main().scanPanel, nullptr);
    EXPECT_EQ (scan().getHeight(), 90);
    expectOpen (3, 2);
    click (centreOf (scan()));
    EXPECT_EQ (main().scanPanel, nullptr);
    expectOpen (3, 2);
}

// On the scan's own timer: the whole of a 4 by 4 scan, its failure page, and silence after it.
TEST_F (Scan, NothingAnswersInFourByFourWithinTenSecondsListsEveryPairAndPollsNoMore)
{
    plug (-1, -1);
    const double start = juce::Time::getMillisecondCounterHiRes();
    main().show_Scan (true);
    ASSERT_TRUE (pumpUntil ([this] { backend.deliverPending(); return scan().notConnected; }, 20000));
    const double elapsed = juce::Time::getMillisecondCounterHiRes() - start;
    std::cout << "[ 4x4 scan that finds nothing ] " << juce::roundToInt (elapsed) << " ms" << std::endl;
    EXPECT_LT (elapsed, 10000.0);

    std::set<juce::String> pairs (scan().triedPairs.begin(), scan().triedPairs.end());
    EXPECT_EQ (scan().triedPairs.size(), 16);
    EXPECT_EQ (pairs.size(), 16u);
    for (auto& id : destinations)
        EXPECT_EQ (pollsTo (id), 4 * MIDI_scan::pollsPerPair);
    EXPECT_TRUE (scan().helpLink->isVisible());
    EXPECT_TRUE (scan().helpLink->getURL().toString (true).endsWith ("#if-the-instrument-does-not-answer"));
    EXPECT_EQ (scan().getHeight(), scan().panelHeight);
    EXPECT_TRUE (state().scanActive);
    expectOpen (0, 0);

    clearLogs();
    pump (4 * MIDI_scan::tickMs);
    backend.deliverPending();
    EXPECT_EQ (pollsToAll(), 0);
    EXPECT_EQ (state().iniStrings[1], "-1");
}

// The hidden pair is the last candidate; its replies are held and let go after its last poll.
TEST (ScanLastTry, AReplyToTheLastPollOfTheLastPairIsSeenOnTheNextTickAndCountsAsFound)
{
    struct Case
    {
        const char* name;
        int ticksAfterLastPoll; // before the replies are let go
    };
    for (const auto c : { Case { "on the tick that moves on", 0 }, Case { "on the tick that would fail", 1 } })
    {
        SCOPED_TRACE (c.name);
        ScanScene s;
        VirtualCorvane::Faults late;
        late.late = true;
        s.plug (1, 2, late);
        s.startByHand();
        for (int i = 0; i < 500 && ! (s.state().scanInput == 2 && s.state().scanOutput == 3 && s.scan().tryIndex == s.scan().triesPerPort); ++i)
            s.tick();
        ASSERT_EQ (s.scan().portIndex, s.scan().portCount - 1);

        for (int i = 0; i < c.ticksAfterLastPoll; ++i)
            s.tick();
        EXPECT_GT (s.hidden.releaseLateReplies(), 0);
        s.backend.deliverPending();
        s.tick();
        EXPECT_FALSE (s.scan().notConnected);
        s.expectFound (2, 3);
    }
}

// A click on the panel, at any stage, ends the scan with the ports as they were.
TEST_F (Scan, AClickStopsItAtAnyStageAndTheEarlierPortsAreOpenAgain)
{
    plug (-1, -1);
    for (const int ticks : { 0, 1, 6, 500 })
    {
        SCOPED_TRACE (ticks);
        startByHand();
        for (int i = 0; i < ticks && scan().waitingReply; ++i)
            tick();
        EXPECT_EQ (scan().notConnected, ticks == 500);
        if (ticks == 6)
            expectOpen (1, 1); // the second pair under test

        clearLogs();
        click (centreOf (scan()));
        EXPECT_EQ (main().scanPanel, nullptr);
        EXPECT_FALSE (state().scanActive);
        expectOpen (0, 0);
        pump (2 * MIDI_scan::tickMs);
        backend.deliverPending();
        EXPECT_EQ (pollsToAll(), 0);
    }
}

// The editor opens with the scan after unusable settings while the instrument is off line; the
// splash that covers it takes it away, and the next editor opens with it again.
TEST (ScanOpening, TheEditorOpensWithTheScanAfterFreshSettingsWhileOffLine)
{
    struct Case
    {
        bool fresh, online, scans;
    };
    for (const auto c : { Case { true, false, true }, Case { true, true, false }, Case { false, false, false } })
    {
        SCOPED_TRACE (juce::String ("fresh ") + (c.fresh ? "1" : "0") + " online " + (c.online ? "1" : "0"));
        EditorHarness h;
        h.state().iniFresh = c.fresh;
        h.state().deviceOnline = c.online;
        h.openEditor();
        EXPECT_EQ (h.main().scanPanel != nullptr, c.scans);
        EXPECT_EQ (h.state().scanActive.load(), c.scans);
        if (! c.scans)
            continue;

        ASSERT_NE (h.main().aboutPanel, nullptr);
        EXPECT_LT (h.main().getIndexOfChildComponent (h.main().scanPanel.get()),
                   h.main().getIndexOfChildComponent (h.main().aboutPanel.get()));
        h.dismissSplash();
        EXPECT_EQ (h.main().scanPanel, nullptr);
        EXPECT_FALSE (h.state().scanActive);

        h.closeEditor();
        h.openEditor();
        ASSERT_NE (h.main().scanPanel, nullptr);
        EXPECT_TRUE (h.main().scanPanel->isTimerRunning());
        EXPECT_TRUE (h.main().scanPanel->isVisible());
        h.closeEditor();
        EXPECT_FALSE (h.state().scanActive);
    }
}

// Poll replies arrive on another thread in a tight loop while the message thread reads and writes the
// settings and the scan moves its pair: the reply thread leaves the settings alone.
TEST (ScanThreads, RepliesOnTheMidiThreadLeaveTheSettingsToTheMessageThread)
{
    const juce::int64 seed = juce::Time::currentTimeMillis();
    std::cout << "[ seed ] " << seed << std::endl;
    juce::Random random (seed);

    LinkedProcessor linked;
    auto& state = linked.state();
    state.scanActive = true;
    const auto slotsBefore = juce::StringArray (state.iniStrings[1], state.iniStrings[2]);

    std::atomic<bool> stop { false };
    std::atomic<int> rounds { 0 };
    std::thread midi ([&] {
        while (! stop)
        {
            state.getPOLL();
            linked.backend.deliverPending();
            ++rounds;
        }
    });

    for (int i = 0; i < 400 || rounds < 50; ++i)
    {
        state.scanInput = random.nextInt (8);
        state.scanOutput = random.nextInt (8);
        state.setIniSlot (6, juce::String (random.nextInt (1505)));
        EXPECT_GE (state.iniSlotInt (7), 0);
        state.ReadWriteIni (1);
        if (i % 20 == 0)
            state.ReadWriteIni (0);
    }
    state.scanInput = 5;
    state.scanOutput = 6;
    const int seen = rounds;
    while (rounds < seen + 2)
        std::this_thread::yield();
    stop = true;
    midi.join();

    EXPECT_TRUE (state.deviceOnline);
    EXPECT_EQ (state.scanReplyInput, 5);
    EXPECT_EQ (state.scanReplyOutput, 6);
    EXPECT_EQ (juce::StringArray (state.iniStrings[1], state.iniStrings[2]), slotsBefore);
}
} // namespace

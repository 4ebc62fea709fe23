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
struct ScanScene : EditorHarness
{
    static juce::String portName (int i) { return juce::String ("Port ") + (char) ('A' + i); }

    // Ports "Port A" to "Port C" (1 to 3 in the lists) beside the silent "Corvane" (0); a virtual
    // Corvane listens on output `hiddenOutput` and answers on input `hiddenInput` (0 to 2, -1 for none).
    void plug (int hiddenInput, int hiddenOutput, bool late = false)
    {
        VirtualCorvane::Faults silent, faults;
        silent.dropReplies = 1 << 30;
        faults.late = late;
        device.corvane.setFaults (silent);
        hidden.setFaults (faults);
        for (int i = 0; i < 3; ++i)
        {
            sources.add (backend.addSource (portName (i)));
            destinations.add (backend.addDestination (portName (i), i == hiddenOutput ? &hidden : nullptr));
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
    void startByHand() { main().show_Scan (true); scan().stopTimer(); }
    void tick() { scan().timerCallback(); backend.deliverPending(); }

    // Polls logged on `ids` since the last call.
    int polls (const juce::StringArray& ids)
    {
        int count = 0;
        for (auto& id : ids)
        {
            for (auto& t : backend.messagesTo (id))
                count += t.message.getRawDataSize() == 6 && t.message.getRawData()[0] == 0xF0 && t.message.getRawData()[4] == 0x05;
            backend.clearLog (id);
        }
        return count;
    }

    void expectOpen (int input, int output)
    {
        EXPECT_EQ (std::tuple (ports().currentInput, ports().currentOutput, ports().inputOpen.load(), ports().outputOpen.load()),
                   std::tuple (input, output, input >= 0, output >= 0));
    }

    void expectFound (int input, int output)
    {
        ASSERT_TRUE (pumpUntil ([this] { return main().scanPanel == nullptr; }));
        EXPECT_FALSE (state().scanActive);
        expectOpen (input, output);
        const juce::StringArray slots { juce::String (input), juce::String (output) };
        const auto saved = MidiCntrState::ParseIniText (folder.dir.getChildFile ("tkplugsts.dat").loadFileAsString());
        EXPECT_EQ (juce::StringArray (state().iniStrings[1], state().iniStrings[2]), slots);
        EXPECT_EQ (juce::StringArray (saved[1], saved[2]), slots);
    }

    VirtualCorvane hidden { 1, 7 };
    juce::StringArray sources, destinations;
};

struct Scan : ::testing::Test, ScanScene {};

// The remembered pair is tried first, then the pairs of one name, then the rest, the input changing
// first. Warning lines keep the found pair on the warning page until a click. A hidden pair that is
// the last candidate holds its replies until after its last poll, then lets them go on the tick that
// moves on (0) or on the one that would fail (1).
TEST (ScanFound, FindsTheInstrumentAmongSeveralPairsAndASecondProcessorOpensItByName)
{
    struct Case { int hiddenInput, hiddenOutput; bool warnings; int lateTicks; }; // lateTicks -1: replies at once
    for (const auto c : { Case { 2, 1, false, -1 }, Case { 2, 1, true, -1 }, Case { 1, 2, false, 0 }, Case { 1, 2, false, 1 } })
    {
        SCOPED_TRACE (testing::Message() << "hidden " << c.hiddenInput << c.hiddenOutput << " warnings " << c.warnings << " late " << c.lateTicks);
        ScanScene s;
        s.plug (c.hiddenInput, c.hiddenOutput, c.lateTicks >= 0);
        s.startByHand();
        if (c.warnings)
            s.scan().warningLines = juce::StringArray ("Local: OFF", "Clock: IN");
        const auto lastPollSent = [&] { return s.scan().portIndex == s.scan().portCount - 1 && s.scan().tryIndex == s.scan().triesPerPort; };
        for (int i = 0; i < 500 && s.main().scanPanel != nullptr && s.scan().waitingReply && ! (c.lateTicks >= 0 && lastPollSent()); ++i)
            s.tick();
        if (c.lateTicks >= 0)
        {
            ASSERT_TRUE (lastPollSent());
            for (int i = 0; i < c.lateTicks; ++i)
                s.tick();
            EXPECT_GT (s.hidden.releaseLateReplies(), 0);
            s.backend.deliverPending();
            s.tick();
        }

        const juce::StringArray expectedStart { "- Tried IN: Corvane   OUT: Corvane", "- Tried IN: Port A   OUT: Port A",
                                                "- Tried IN: Port B   OUT: Port B", "- Tried IN: Port C   OUT: Port C",
                                                "- Tried IN: Port A   OUT: Corvane" };
        for (int i = 0; i < expectedStart.size(); ++i)
            EXPECT_EQ (s.scan().triedPairs[i], expectedStart[i]);
        const auto in = ScanScene::portName (c.hiddenInput), out = ScanScene::portName (c.hiddenOutput);
        EXPECT_EQ (s.scan().triedPairs.strings.getLast(), "- Tried IN: " + in + "   OUT: " + out);
        EXPECT_FALSE (s.scan().notConnected);
        if (c.warnings)
        {
            pump();
            ASSERT_NE (s.main().scanPanel, nullptr);
            s.expectOpen (3, 2);
            s.click (s.centreOf (s.scan()));
        }
        s.expectFound (c.hiddenInput + 1, c.hiddenOutput + 1);

        DeskerAudioProcessor second { s.folder.dir, &s.backend };
        auto& secondPorts = *second.midiCntrState.portControl;
        ASSERT_TRUE (secondPorts.inputOpen && secondPorts.outputOpen);
        EXPECT_EQ (secondPorts.midiInputs[secondPorts.currentInput]->deviceInfo.name, in);
        EXPECT_EQ (secondPorts.midiOutputs[secondPorts.currentOutput]->deviceInfo.name, out);
        second.midiCntrState.getPOLL();
        s.backend.deliverPending();
        s.hidden.releaseLateReplies();
        s.backend.deliverPending();
        EXPECT_TRUE (second.midiCntrState.deviceOnline);
    }
}

// On the scan's own timer: the whole of a 4 by 4 scan, its failure page, and silence after it. Then a
// click on the panel, there and at earlier stages, ends the scan with the ports as they were.
TEST_F (Scan, NothingAnswersInFourByFourWithinTenSecondsListsEveryPairAndPollsNoMoreAndAClickStopsIt)
{
    plug (-1, -1);
    const double start = juce::Time::getMillisecondCounterHiRes();
    main().show_Scan (true);
    ASSERT_TRUE (pumpUntil ([this] { backend.deliverPending(); return scan().notConnected; }, 20000));
    const double elapsed = juce::Time::getMillisecondCounterHiRes() - start;
    std::cout << "[ 4x4 scan that finds nothing ] " << juce::roundToInt (elapsed) << " ms" << std::endl;
    EXPECT_LT (elapsed, 10000.0);

    EXPECT_EQ (std::set<juce::String> (scan().triedPairs.begin(), scan().triedPairs.end()).size(), 16u);
    EXPECT_EQ (scan().triedPairs.size(), 16);
    for (auto& id : destinations)
        EXPECT_EQ (polls ({ id }), 4 * MIDI_scan::pollsPerPair);
    EXPECT_TRUE (scan().helpLink->isVisible());
    EXPECT_TRUE (state().scanActive);
    expectOpen (0, 0);
    pump (4 * MIDI_scan::tickMs);
    backend.deliverPending();
    EXPECT_EQ (polls (destinations), 0);
    EXPECT_EQ (state().iniStrings[1], "-1");

    for (const int ticks : { -1, 0, 1, 6 }) // -1: the failure page as it stands
    {
        SCOPED_TRACE (ticks);
        if (ticks >= 0)
            startByHand();
        for (int i = 0; i < ticks; ++i)
            tick();
        EXPECT_EQ (scan().notConnected, ticks < 0);
        if (ticks == 6)
            expectOpen (1, 1); // the second pair under test
        polls (destinations);
        click (centreOf (scan()));
        EXPECT_EQ (main().scanPanel, nullptr);
        EXPECT_FALSE (state().scanActive);
        expectOpen (0, 0);
        pump (2 * MIDI_scan::tickMs);
        backend.deliverPending();
        EXPECT_EQ (polls (destinations), 0);
    }
}

// The editor opens with the scan after unusable settings while the instrument is off line; the
// splash that covers it takes it away, and the next editor opens with it again.
TEST (ScanOpening, TheEditorOpensWithTheScanAfterFreshSettingsWhileOffLine)
{
    for (const auto& [fresh, online] : { std::pair { true, false }, std::pair { true, true }, std::pair { false, false } })
    {
        SCOPED_TRACE (testing::Message() << "fresh " << fresh << " online " << online);
        EditorHarness h;
        h.state().iniFresh = fresh;
        h.state().deviceOnline = online;
        h.openEditor();
        const bool scans = fresh && ! online;
        EXPECT_EQ (h.main().scanPanel != nullptr, scans);
        EXPECT_EQ (h.state().scanActive.load(), scans);
        if (! scans)
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
        EXPECT_TRUE (h.main().scanPanel->isTimerRunning() && h.main().scanPanel->isVisible());
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
        for (; ! stop; ++rounds)
        {
            state.getPOLL();
            linked.backend.deliverPending();
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
    for (const int seen = rounds; rounds < seen + 2;)
        std::this_thread::yield();
    stop = true;
    midi.join();

    EXPECT_TRUE (state.deviceOnline);
    EXPECT_EQ (state.scanReplyInput, 5);
    EXPECT_EQ (state.scanReplyOutput, 6);
    EXPECT_EQ (juce::StringArray (state.iniStrings[1], state.iniStrings[2]), slotsBefore);
}
} // namespace

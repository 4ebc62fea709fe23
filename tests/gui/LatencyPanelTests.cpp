// The latency panel of the MIDI page as a user works it: its face by host and sample rate, the
// slider and the modes menu, and what reaches the state, the settings slots and the wire.

#include "EditorHarness.h"
#include "device/MIDI_SETUP.h"
#include "plugin/MIDI_Sync.h"

namespace
{
juce::Array<int> syncValuesOf (const MidiCntrState& state)
{
    juce::Array<int> values;
    for (int i = 0; i < state.syncValueCount.load(); ++i)
        values.add (state.syncValues[(size_t) i].load());
    return values;
}

// The edges of the face the editor tests below do not reach: a rate the panel does not know has no
// text, the Logic host without a mode shows an empty range, missing or negative values show 0 and
// large ones the slider's top. One panel goes through all rows: each set-up leaves no trace of the one before.
TEST (LatencyPanel, FaceByHostModeAndRate)
{
    struct Row
    {
        int logicHost, mode, rateIndex;
        juce::Array<int> values;
        const char* rate;
        const char* range;
        bool sliderShown;
        int editedIndex;
        float sliderValue;
    };
    const juce::Array<int> seven { 1, 2, 3, 40, 5, 6, 70 };
    const Row rows[] = {
        { 1, 0, 5, seven, "192000 Hz", "", false, 6, 70 },
        { 0, 402, 6, seven, "", "(hidden)", true, 6, 70 },
        { 0, 0, -1, seven, "", "(hidden)", true, -1, 0 },
        { 0, 0, 3, { 1, 2 }, "96000 Hz", "(hidden)", true, 3, 0 },
        { 0, 0, 1, { 1, -5 }, "48100 Hz", "(hidden)", true, 1, 0 },
        { 1, 400, 0, { 0, 0, 0, 0, 0, 0, 5000 }, "44100 Hz", "USER", true, 6, 1000 },
    };
    MIDI_Sync panel;
    for (const auto& r : rows)
    {
        SCOPED_TRACE (testing::Message() << r.logicHost << " " << r.mode << " " << r.rateIndex);
        panel.setUp (r.logicHost, r.mode, r.rateIndex, r.values);
        EXPECT_EQ (panel.rateLabel.text, r.rate);
        EXPECT_EQ (panel.rangeLabel.isVisible() ? panel.rangeLabel.text : juce::String ("(hidden)"), r.range);
        EXPECT_EQ (std::pair (panel.slider.isVisible(), panel.sliderCaption.isVisible()), std::pair (r.sliderShown, r.sliderShown));
        EXPECT_EQ (std::tuple (panel.rateIndex, panel.mode, panel.slider.value), std::tuple (r.editedIndex, r.mode, r.sliderValue));
        EXPECT_EQ (panel.values, r.values);
    }
}

// First use by host, from fresh settings: the Logic host's panel shows "MEDIUM", another's the slider.
TEST (LatencyPanel, FirstUseByHost)
{
    for (auto [path, logic, range] : { std::tuple { "/Applications/Logic Pro X", 1, "MEDIUM" }, std::tuple { "/usr/bin/reaper", 0, "" } })
    {
        SCOPED_TRACE (path);
        ScratchFolder settings;
        MidiCntrState state;
        state.settingsFolder = settings.dir;
        state.hostPathOverride = path;
        state.InitializeMe();
        MIDI_Sync panel;
        panel.setUp (state.isLogicHost, state.syncMode, state.sampleRateIndex, syncValuesOf (state));
        EXPECT_EQ (std::tuple (panel.isLogicHost, panel.rangeLabel.isVisible(), panel.slider.isVisible()), std::tuple (logic, logic == 1, logic == 0));
        EXPECT_EQ (panel.rangeLabel.text, range);
        EXPECT_EQ (panel.values, (juce::Array<int> { 0, 0, 0, 0, 0, 0, 0 }));
    }
}

// The editor with the latency panel open on the MIDI page, and a stopped host transport that
// moves before each block, so that every block sends the clock's Stop and song position.
struct LatencyPanelEditor : EditorHarness
{
    explicit LatencyPanelEditor (double sampleRate)
    {
        processor.setRateAndBufferSizeDetails (sampleRate, 512);
        processor.prepareToPlay (sampleRate, 512);
        processor.setPlayHead (&playHead);
    }

    ~LatencyPanelEditor() { processor.setPlayHead (nullptr); }

    // Opens the MIDI page by its tool-bar button; the page sets the panel up from the state.
    bool openPanel()
    {
        openReady();
        for (auto* b : main().appBar->buttons)
            if (b->id == 77)
                click (centreOf (*b));
        const bool open = pumpUntil ([this] { return main().midiPanel != nullptr; });
        sent(); // the page polls as it opens
        return open;
    }

    MIDI_Sync& sync() { return *main().midiPanel->syncPanel; }

    // Drags the slider's thumb from the track's middle to `x` of the slider; its new value.
    int slideTo (int x)
    {
        drag (at (sync().slider, { 100, 9 }), at (sync().slider, { x, 9 }));
        pump();
        return (int) sync().slider.value;
    }

    bool chooseMode (const char* item)
    {
        click (centreOf (sync().rangeLabel));
        return chooseMenu ({ item });
    }

    // How many ms after the block the clock's next message is due on the wire.
    double clockDelay()
    {
        juce::AudioPlayHead::PositionInfo position;
        position.setBpm (120.0);
        position.setPpqPosition (ppq += 4.0);
        playHead.position = position;
        juce::MidiBuffer midi;
        const double before = juce::Time::getMillisecondCounterHiRes();
        process (midi, 512);
        for (const auto& s : sent())
            if (s.bytes == std::vector<int> { 0xFC })
                return s.timeMs - before;
        ADD_FAILURE() << "no Stop";
        return -1.0;
    }

    ScriptedPlayHead playHead;
    double ppq = 0.0;
};

// On another host the slider edits the value of the host's rate (a rate the panel does not know
// edits the first) and the mode stays; the wire follows each value.
TEST (LatencyPanel, OtherHostSliderEditsTheValueOfTheRate)
{
    for (auto [rate, text, index] : { std::tuple { 96000.0, "96000 Hz", 3 }, std::tuple { 48000.0, "44100 Hz", 0 } })
    {
        SCOPED_TRACE (text);
        LatencyPanelEditor editor (rate);
        editor.state().SetSyncModes (0, { 11, 12, 13, 14, 15, 16, 17 });
        ASSERT_TRUE (editor.openPanel());
        EXPECT_EQ (editor.sync().rateLabel.text, text);
        EXPECT_FALSE (editor.sync().rangeLabel.isVisible());
        EXPECT_NEAR (editor.clockDelay(), 11.0 + index, 5.0);

        for (int x : { 60, 30 }) // later, then earlier
        {
            const int value = editor.slideTo (x);
            juce::Array<int> expected { 11, 12, 13, 14, 15, 16, 17 };
            expected.set (index, value);
            EXPECT_EQ (syncValuesOf (editor.state()), expected) << x;
            EXPECT_EQ (editor.state().syncMode.load(), 0) << x;
            EXPECT_EQ (editor.state().iniSlotInt (11 + index), value) << x;
            EXPECT_NEAR (editor.clockDelay(), value, 5.0) << x;
        }
    }
}

// On the Logic host, as start-up decides it (its saved mode stands): a range keeps the seventh value,
// the slider sets "USER" whatever the label says, and choosing "USER" clears the value.
TEST (LatencyPanel, LogicHostPicksARangeOrTheUserValue)
{
    LatencyPanelEditor editor (96000.0);
    auto& state = editor.state();
    state.hostPathOverride = "/Applications/Logic Pro X";
    state.isLogicHost = state.getHostType() == 6 ? 1 : 0;
    state.syncMode = state.iniSlotInt (17);
    EXPECT_EQ (state.syncMode.load(), 402); // the first use
    state.SetSyncModes (402, { 0, 0, 0, 0, 0, 0, 25 });
    ASSERT_TRUE (editor.openPanel());
    auto& panel = editor.sync();
    EXPECT_EQ (panel.rangeLabel.text, "MEDIUM");
    EXPECT_FALSE (panel.slider.isVisible() || panel.sliderCaption.isVisible());
    EXPECT_NEAR (editor.clockDelay(), 31.0, 5.0);

    ASSERT_TRUE (editor.chooseMode ("LARGE"));
    EXPECT_EQ (std::pair (state.syncMode.load(), syncValuesOf (state)[6]), std::pair (403, 25));
    EXPECT_NEAR (editor.clockDelay(), 64.0, 5.0);

    // A menu closed with no choice changes nothing.
    editor.click (editor.centreOf (panel.rangeLabel));
    ASSERT_TRUE (pumpUntil ([&] { return ! editor.openMenus().empty(); }));
    juce::PopupMenu::dismissAllActiveMenus();
    pump (100);
    EXPECT_EQ (panel.rangeLabel.text, "LARGE");
    EXPECT_EQ (state.syncMode.load(), 403);

    panel.slider.setVisible (true);
    const int value = editor.slideTo (60);
    EXPECT_GT (value, 100);
    EXPECT_EQ (std::pair (state.syncMode.load(), state.iniSlotInt (17)), std::pair (400, 400));
    EXPECT_EQ (syncValuesOf (state), (juce::Array<int> { 0, 0, 0, 0, 0, 0, value }));
    EXPECT_EQ (state.iniSlotInt (18), value);
    EXPECT_NEAR (editor.clockDelay(), value, 5.0);

    // "USER" starts from no delay until the slider moves.
    ASSERT_TRUE (editor.chooseMode ("USER"));
    EXPECT_TRUE (panel.slider.isVisible() && panel.sliderCaption.isVisible());
    EXPECT_EQ (std::pair (state.syncMode.load(), syncValuesOf (state)[6]), std::pair (400, 0));
    EXPECT_NEAR (editor.clockDelay(), 0.0, 5.0);
}
} // namespace

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

TEST (LatencyPanel, FaceByHostModeAndRate)
{
    struct Row
    {
        int logicHost, mode, rateIndex;
        juce::Array<int> values;
        const char* rate;
        bool rangeShown;
        const char* range;
        bool sliderShown;
        int editedIndex;
        float sliderValue;
    };
    const juce::Array<int> seven { 1, 2, 3, 40, 5, 6, 70 };
    // One panel through all rows: each set-up leaves no trace of the one before.
    const Row rows[] = {
        { 0, 0, 3, seven, "96000 Hz", false, "", true, 3, 40 },
        { 1, 400, 3, seven, "96000 Hz", true, "USER", true, 6, 70 },
        { 0, 0, 0, seven, "44100 Hz", false, "USER", true, 0, 1 },
        { 1, 401, 1, seven, "48100 Hz", true, "SMALL", false, 6, 70 },
        { 1, 402, 2, seven, "88200 Hz", true, "MEDIUM", false, 6, 70 },
        { 1, 403, 4, seven, "176400 Hz", true, "LARGE", false, 6, 70 },
        { 1, 0, 5, seven, "192000 Hz", true, "", false, 6, 70 },
        { 0, 402, 6, seven, "", false, "", true, 6, 70 },
        { 0, 0, -1, seven, "", false, "", true, -1, 0 },
        { 0, 0, 3, { 1, 2 }, "96000 Hz", false, "", true, 3, 0 },       // missing: 0
        { 0, 0, 1, { 1, -5 }, "48100 Hz", false, "", true, 1, 0 },      // negative: 0
        { 1, 400, 0, { 0, 0, 0, 0, 0, 0, 5000 }, "44100 Hz", true, "USER", true, 6, 1000 },
    };
    MIDI_Sync panel;
    for (const auto& r : rows)
    {
        SCOPED_TRACE (juce::String (r.logicHost) + " " + juce::String (r.mode) + " " + juce::String (r.rateIndex));
        panel.setUp (r.logicHost, r.mode, r.rateIndex, r.values);
        EXPECT_EQ (panel.rateLabel.text, r.rate);
        EXPECT_EQ (panel.rangeLabel.isVisible(), r.rangeShown);
        if (r.rangeShown)
        {
            EXPECT_EQ (panel.rangeLabel.text, r.range);
        }
        EXPECT_EQ (panel.slider.isVisible(), r.sliderShown);
        EXPECT_EQ (panel.sliderCaption.isVisible(), r.sliderShown);
        EXPECT_EQ (panel.rateIndex, r.editedIndex);
        EXPECT_EQ (panel.mode, r.mode);
        EXPECT_EQ (panel.values, r.values);
        EXPECT_EQ (panel.slider.value, r.sliderValue);
    }
}

TEST (LatencyPanel, FirstUseByHost)
{
    for (auto [path, logic, range] : { std::tuple { "/Applications/Logic Pro X", 1, "MEDIUM" },
                                       std::tuple { "/usr/bin/reaper", 0, "" } })
    {
        SCOPED_TRACE (path);
        ScratchFolder settings;
        MidiCntrState state;
        state.settingsFolder = settings.dir;
        state.hostPathOverride = path;
        state.InitializeMe();

        MIDI_Sync panel;
        panel.setUp (state.isLogicHost, state.syncMode, state.sampleRateIndex, syncValuesOf (state));
        EXPECT_EQ (panel.isLogicHost, logic);
        EXPECT_EQ (panel.rangeLabel.isVisible(), logic == 1);
        EXPECT_EQ (panel.rangeLabel.text, range);
        EXPECT_EQ (panel.slider.isVisible(), logic == 0);
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

    // As start-up decides the Logic host: its saved mode stands.
    void poseAsLogicHost()
    {
        state().hostPathOverride = "/Applications/Logic Pro X";
        state().isLogicHost = state().getHostType() == 6 ? 1 : 0;
        state().syncMode = state().iniSlotInt (17);
    }

    // Opens the MIDI page by its tool-bar button; the page sets the panel up from the state.
    bool openPanel()
    {
        openReady();
        auto& bar = *main().appBar;
        for (auto* b : bar.buttons)
            if (b->id == 77 && b != bar.lockButton)
                click (centreOf (*b));
        const bool open = pumpUntil ([this] { return main().midiPanel != nullptr; });
        sent(); // the page polls as it opens
        return open;
    }

    MIDI_Sync& sync() { return *main().midiPanel->syncPanel; }

    // Drags the slider's thumb from the track's middle to `x` of the slider; its new value.
    int slideTo (MIDI_Sync& panel, int x)
    {
        drag (at (panel.slider, { 100, 9 }), at (panel.slider, { x, 9 }));
        pump();
        return (int) panel.slider.value;
    }

    bool chooseMode (MIDI_Sync& panel, const char* item)
    {
        click (centreOf (panel.rangeLabel));
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

TEST (LatencyPanel, OtherHostSliderEditsTheValueOfTheRate)
{
    for (auto [rate, text, index] : { std::tuple { 96000.0, "96000 Hz", 3 }, std::tuple { 48000.0, "44100 Hz", 0 } })
    {
        SCOPED_TRACE (text);
        LatencyPanelEditor editor (rate);
        editor.state().SetSyncModes (0, { 11, 12, 13, 14, 15, 16, 17 });
        ASSERT_TRUE (editor.openPanel());
        auto& panel = editor.sync();
        EXPECT_EQ (panel.rateLabel.text, text);
        EXPECT_FALSE (panel.rangeLabel.isVisible());
        EXPECT_EQ (panel.slider.value, 11.0f + (float) index);
        EXPECT_NEAR (editor.clockDelay(), 11.0 + index, 5.0);

        for (int x : { 60, 30, 150 }) // later, earlier, later again
        {
            const int value = editor.slideTo (panel, x);
            juce::Array<int> expected { 11, 12, 13, 14, 15, 16, 17 };
            expected.set (index, value);
            EXPECT_EQ (syncValuesOf (editor.state()), expected) << x;
            EXPECT_EQ (editor.state().syncMode.load(), 0) << x;
            EXPECT_EQ (editor.state().iniSlotInt (11 + index), value) << x;
            EXPECT_NEAR (editor.clockDelay(), value, 5.0) << x;
        }
    }
}

TEST (LatencyPanel, LogicHostPicksARangeOrTheUserValue)
{
    LatencyPanelEditor editor (96000.0);
    editor.poseAsLogicHost();
    EXPECT_EQ (editor.state().syncMode.load(), 402); // the first use
    editor.state().SetSyncModes (402, { 0, 0, 0, 0, 0, 0, 25 });
    ASSERT_TRUE (editor.openPanel());
    auto& panel = editor.sync();
    EXPECT_EQ (panel.rangeLabel.text, "MEDIUM");
    EXPECT_FALSE (panel.slider.isVisible());
    EXPECT_NEAR (editor.clockDelay(), 31.0, 5.0);

    // "USER" drops the earlier value: no delay until the slider moves, which the choice leaves.
    ASSERT_TRUE (editor.chooseMode (panel, "USER"));
    EXPECT_EQ (panel.rangeLabel.text, "USER");
    EXPECT_TRUE (panel.slider.isVisible() && panel.sliderCaption.isVisible());
    EXPECT_EQ (panel.slider.value, 25.0f);
    EXPECT_EQ (editor.state().syncMode.load(), 400);
    EXPECT_EQ (syncValuesOf (editor.state())[6], 0);
    EXPECT_EQ (editor.state().iniSlotInt (17), 400);
    EXPECT_NEAR (editor.clockDelay(), 0.0, 5.0);

    const int value = editor.slideTo (panel, 60);
    EXPECT_GT (value, 100);
    EXPECT_EQ (syncValuesOf (editor.state()), (juce::Array<int> { 0, 0, 0, 0, 0, 0, value }));
    EXPECT_EQ (editor.state().iniSlotInt (18), value);
    EXPECT_NEAR (editor.clockDelay(), value, 5.0);

    // A range keeps the user's value for later; the table's delay applies.
    ASSERT_TRUE (editor.chooseMode (panel, "LARGE"));
    EXPECT_EQ (panel.rangeLabel.text, "LARGE");
    EXPECT_FALSE (panel.slider.isVisible() || panel.sliderCaption.isVisible());
    EXPECT_EQ (editor.state().syncMode.load(), 403);
    EXPECT_EQ (syncValuesOf (editor.state())[6], value);
    EXPECT_NEAR (editor.clockDelay(), 64.0, 5.0);

    // A menu closed with no choice changes nothing.
    editor.click (editor.centreOf (panel.rangeLabel));
    ASSERT_TRUE (pumpUntil ([&] { return ! editor.openMenus().empty(); }));
    juce::PopupMenu::dismissAllActiveMenus();
    pump (100);
    EXPECT_EQ (panel.rangeLabel.text, "LARGE");
    EXPECT_EQ (editor.state().syncMode.load(), 403);

    // The slider means "USER" whatever the label says; hidden, only the panel's own code moves it.
    panel.slider.setVisible (true);
    const int moved = editor.slideTo (panel, 30);
    EXPECT_EQ (editor.state().syncMode.load(), 400);
    EXPECT_EQ (syncValuesOf (editor.state())[6], moved);
    EXPECT_NEAR (editor.clockDelay(), moved, 5.0);
}
} // namespace

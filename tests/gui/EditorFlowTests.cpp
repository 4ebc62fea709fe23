// The editor driven as a user drives it: edits reach the host and the instrument once, values from
// the instrument and the host move the controls and add nothing.

#include "EditorHarness.h"
#include "sound/AutoBank.h"

namespace
{
constexpr int cutoff = 32;     // "Filter Cutoff"
constexpr int cutoffHost = 15; // its host parameter
constexpr int cutoffMsb = 19;  // its controller pair: 19 and 51

struct EditorFlow : ::testing::Test, EditorHarness
{
    EditorFlow() { openReady(); }

    std::vector<int> hostValuesOf (int index)
    {
        std::vector<int> values;
        for (auto [i, v] : host.changes)
            if (i == index)
                values.push_back ((int) std::lround (v * 255.0f));
        return values;
    }

    // The cutoff's controller pairs among what went to the instrument, as 8-bit values.
    std::vector<int> cutoffOnTheWire()
    {
        const auto wire = sentBytes();
        std::vector<int> values;
        for (size_t i = 0; i + 1 < wire.size(); ++i)
            if (wire[i].size() == 3 && (wire[i][0] & 0xF0) == 0xB0 && wire[i][1] == cutoffMsb && wire[i + 1].size() == 3 && wire[i + 1][1] == cutoffMsb + 32)
                values.push_back ((wire[i][2] << 1) + (wire[i + 1][2] >> 6));
        return values;
    }
};
} // namespace

TEST_F (EditorFlow, DragReachesHostInGestureAndWireOncePerValue)
{
    auto& k = knob (cutoff);
    const int before = k.currentValue;
    drag (centreOf (k), centreOf (k) + juce::Point<float> (0.0f, -40.0f));
    // The gesture ends 200 ms after the last move.
    ASSERT_TRUE (pumpUntil ([this] { return ! host.log.empty() && host.log.back() == "end 15"; }));

    EXPECT_EQ (k.currentValue, juce::jmin (255, before + 40));
    EXPECT_EQ (host.log.front(), "begin " + std::to_string (cutoffHost));
    EXPECT_EQ (std::count (host.log.begin(), host.log.end(), "begin 15"), 1);
    const auto wire = cutoffOnTheWire();
    ASSERT_FALSE (wire.empty());
    EXPECT_EQ (wire, hostValuesOf (cutoffHost)); // each value the host heard left once
    EXPECT_EQ (wire.back(), k.currentValue);     // and the last is what the knob shows
    EXPECT_EQ (std::adjacent_find (wire.begin(), wire.end()), wire.end());
    EXPECT_EQ (state().editBuffer->patchData[cutoff] >> 8, k.currentValue);
    EXPECT_EQ (juce::Component::getCurrentlyFocusedComponent(), nullptr); // the host keeps its keys
}

TEST_F (EditorFlow, ValuesFromTheInstrumentAndTheHostMoveTheKnobAndGoBackOnce)
{
    for (const bool fromHost : { false, true })
    {
        SCOPED_TRACE (fromHost ? "host" : "instrument");
        const int value = fromHost ? 100 : 77;
        sent();
        host.changes.clear();
        if (fromHost)
        {
            JUCE_BEGIN_IGNORE_WARNINGS_GCC_LIKE ("-Wdeprecated-declarations")
            processor.setParameter (cutoffHost, (float) value / 255.0f);
            JUCE_END_IGNORE_WARNINGS_GCC_LIKE
        }
        else
        {
            device.corvane.movePanel (cutoff, value);
            backend.deliverPending();
        }
        ASSERT_TRUE (pumpUntil ([&] { return knob (cutoff).currentValue == value; }));
        pump (50);

        EXPECT_EQ (knob (cutoff).valueText, juce::String (value));
        // The instrument's move reaches the host; the host's own comes back to it from nowhere.
        EXPECT_EQ (hostValuesOf (cutoffHost), fromHost ? std::vector<int>() : std::vector<int> { value });
        // The value differs from the stored one, so it goes to the instrument once as the pair.
        EXPECT_EQ (cutoffOnTheWire(), std::vector<int> { value });
    }
}

TEST_F (EditorFlow, SwitchClickTogglesAndSendsItsController)
{
    auto& sw = knob (61); // "Osc 1 on/off", controller 82
    const int before = sw.currentValue;
    click (centreOf (sw));
    EXPECT_EQ (sw.currentValue, before == 0 ? 1 : 0);
    click (centreOf (sw));
    EXPECT_EQ (sw.currentValue, before);
    EXPECT_EQ (juce::Component::getCurrentlyFocusedComponent(), nullptr); // the host keeps its keys
    std::vector<int> values;
    for (auto& m : sentBytes())
        if (m.size() == 3 && m[1] == 82)
            values.push_back (m[2]);
    EXPECT_EQ (values, (std::vector<int> { before == 0 ? 127 : 0, before == 0 ? 0 : 127 }));
}

TEST_F (EditorFlow, WheelStepsOnInstrumentPanelOnlyAndOnceWhateverItsSize)
{
    auto& k = knob (cutoff);
    const int before = k.currentValue;
    wheel (centreOf (k), 5.0f);
    EXPECT_EQ (k.currentValue, juce::jmin (255, before + 1));
    wheel (centreOf (k), -0.01f);
    EXPECT_EQ (k.currentValue, before);

    main().Show_Window (106, true, 0);
    pump();
    auto& box = *advanced().control (98); // "Bus PGM Shape 1"
    const int boxBefore = box.currentValue;
    sent();
    wheel (centreOf (box), 1.0f);
    EXPECT_EQ (box.currentValue, boxBefore);
    EXPECT_TRUE (sentBytes().empty());
}

TEST_F (EditorFlow, LabelBoxMenuSendsTheChosenValueAsWholeProgram)
{
    main().Show_Window (106, true, 0);
    pump();
    auto& box = *advanced().control (111); // "Glide Mode", 0 to 7
    click (at (box, { 20, 9 }));
    ASSERT_TRUE (chooseMenu ({ "4 Legato Glide back to 1st only" }));

    EXPECT_EQ (box.currentValue, 3);
    EXPECT_EQ (box.valueText, "4 Legato Glide back to 1st only");
    EXPECT_EQ (state().editBuffer->patchData[111], 3);
    const auto wire = sentBytes();
    ASSERT_EQ (wire.size(), 1u);
    EXPECT_EQ ((int) wire[0].size(), AutoBank::patchFrameBytes);
    EXPECT_EQ (wire[0][0], 0xF0);
}

TEST_F (EditorFlow, ProgramChangeShowsEveryValueAndKeepsTheSound)
{
    auto words = state().editBuffer->patchData;
    words.set (47, 7);      // beyond the selector's 0 to 5
    words.set (95, 0);      // below the clock divider's 2
    words.set (cutoff, 200 << 8);
    words.set (65, 1);
    state().editBuffer->patchData = words;
    state().Internal_UpdInt (0x440000);
    pump();

    EXPECT_EQ (knob (47).currentValue, 5);
    EXPECT_EQ (advanced().control (95)->currentValue, 2);
    EXPECT_EQ (advanced().control (95)->valueText, "2");
    EXPECT_EQ (knob (65).valueText, "HIGHPASSLOWPASS");
    EXPECT_EQ (state().editBuffer->patchData, words);
    for (int i = 17; i <= 66; ++i)
    {
        const int word = state().editBuffer->patchData[i];
        const int value = juce::jlimit (knob (i).minimum, knob (i).maximum, i <= 45 ? word >> 8 : word);
        EXPECT_EQ (knob (i).currentValue, value) << "parameter " << i;
        EXPECT_EQ (knob (i).valueText, ParDes::SndParDes (knob (i).description, value)) << "parameter " << i;
    }
    EXPECT_TRUE (sentBytes().empty() && host.changes.empty());
}

TEST (EditorLife, SplashOncePerProcessorAndNoStaleReplay)
{
    EditorHarness h;
    h.openEditor();
    EXPECT_NE (h.main().aboutPanel, nullptr);
    h.closeEditor();

    // Codes pile up while no editor listens; the next editor shows the present state instead.
    for (int v = 0; v < 5000; ++v)
        h.state().Internal_UpdInt (0x400000u + (32u << 8) + (unsigned) (v & 255));
    h.state().editBuffer->patchData.set (cutoff, 9 << 8);

    for (int round = 0; round < 5; ++round)
    {
        h.openEditor (978, 480);
        EXPECT_EQ (h.main().aboutPanel, nullptr);
        EXPECT_EQ (h.knob (cutoff).currentValue, 9);
        pump (50);
        EXPECT_EQ (h.knob (cutoff).currentValue, 9); // nothing stale replayed
        unsigned code = 0;
        EXPECT_FALSE (h.state().popUpdateCode (code));
        h.closeEditor();
    }
}

TEST_F (EditorFlow, ToolBarLockKeepsButtonsAndUnlockedBarHidesThemOnlyThroughItsLowerEdge)
{
    auto& bar = *main().appBar;
    auto* bank = bar.buttons[1];
    ASSERT_EQ (bank->label, "BANK");
    const auto leave = [&] (float y)
    {
        mouse (at (bar, { 900, 10 }), {});
        mouse (at (bar, { 900, (int) y }), {});
        pump();
        return bank->isVisible();
    };
    EXPECT_TRUE (bar.locked && leave (30)); // locked: stays
    click (centreOf (*bar.lockButton));
    EXPECT_FALSE (bar.locked);
    EXPECT_TRUE (leave (-20)); // out through the top
    EXPECT_FALSE (leave (30));
    mouse (at (bar, { 900, 10 }), {}); // back in: all return
    pump();
    EXPECT_TRUE (bank->isVisible());
}

TEST_F (EditorFlow, CopyPasteAndAutomationSenderThroughTheirMenus)
{
    auto& bar = *main().appBar;
    auto& edit = *bar.buttons[3];
    auto& send = *bar.buttons[6];
    ASSERT_EQ (edit.label + send.label, "EDITSEND");
    const auto name = state().editBuffer->PatchGetName();

    click (centreOf (edit)); // copy: the sound also goes out whole
    ASSERT_TRUE (chooseMenu ({ "Copy Program: " + name }));
    EXPECT_TRUE (main().copyBufferFull);
    EXPECT_EQ (sentBytes().size(), 1u);
    const auto copied = state().editBuffer->patchData;
    state().editBuffer->patchData.set (cutoff, 3 << 8);
    click (centreOf (edit)); // paste brings it back and sends it
    ASSERT_TRUE (chooseMenu ({ "Paste: " + name }));
    EXPECT_EQ (state().editBuffer->patchData, copied);
    EXPECT_EQ (knob (cutoff).currentValue, copied[cutoff] >> 8);
    EXPECT_EQ (sentBytes().size(), 1u);

    click (centreOf (send));
    ASSERT_TRUE (chooseMenu ({ "Send Automation parameters" }));
    EXPECT_NE (main().progressBar, nullptr);
    EXPECT_EQ (state().transferStep, 199);
    EXPECT_EQ (juce::Component::getCurrentlyFocusedComponent(), nullptr); // menus leave the host its keys

    // One parameter every three ticks of 50 ms, in the order of the panel from "LFO Rate" (host 0).
    ASSERT_TRUE (pumpUntil ([this] { return host.changes.size() >= 3; }));
    for (int i = 0; i < 3; ++i)
    {
        EXPECT_EQ (host.changes[(size_t) i].first, i);
        EXPECT_EQ ((int) std::lround (host.changes[(size_t) i].second * 255.0f), knob (17 + i).currentValue);
    }
}

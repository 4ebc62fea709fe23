// The editor driven as a user drives it: edits reach the host and the instrument once, values from
// the instrument and the host move the controls and add nothing.

#include "EditorHarness.h"
#include "sound/AutoBank.h"

namespace
{
constexpr int cutoff = 32;     // "Filter Cutoff"
constexpr int cutoffHost = 15; // its host parameter
constexpr int cutoffMsb = 19;  // its controller pair: 19 and 51

// Controller pairs of one controller among what went to the instrument, as 8-bit values.
std::vector<int> pairValues (const std::vector<std::vector<int>>& sent, int msbController)
{
    std::vector<int> values;
    for (size_t i = 0; i + 1 < sent.size(); ++i)
        if (sent[i].size() == 3 && (sent[i][0] & 0xF0) == 0xB0 && sent[i][1] == msbController
            && sent[i + 1].size() == 3 && sent[i + 1][1] == msbController + 32)
            values.push_back ((sent[i][2] << 1) + (sent[i + 1][2] >> 6));
    return values;
}

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
    ASSERT_FALSE (host.log.empty());
    EXPECT_EQ (host.log.front(), "begin " + std::to_string (cutoffHost));
    EXPECT_EQ (host.log.back(), "end " + std::to_string (cutoffHost));
    EXPECT_EQ (std::count (host.log.begin(), host.log.end(), "begin 15"), 1);

    const auto hostValues = hostValuesOf (cutoffHost);
    const auto wire = pairValues (sentBytes(), cutoffMsb);
    ASSERT_FALSE (wire.empty());
    EXPECT_EQ (wire, hostValues);            // each value the host heard left once
    EXPECT_EQ (wire.back(), k.currentValue); // and the last is what the knob shows
    EXPECT_EQ (std::adjacent_find (wire.begin(), wire.end()), wire.end());
    EXPECT_EQ (state().editBuffer->patchData[cutoff] >> 8, k.currentValue);
}

TEST_F (EditorFlow, InstrumentMoveMovesKnobAndHostAndGoesBackOnce)
{
    device.corvane.movePanel (cutoff, 77);
    backend.deliverPending();
    ASSERT_TRUE (pumpUntil ([this] { return knob (cutoff).currentValue == 77; }));
    pump (50);

    EXPECT_EQ (knob (cutoff).currentValue, 77);
    EXPECT_EQ (knob (cutoff).valueText, "77");
    EXPECT_EQ (hostValuesOf (cutoffHost), std::vector<int> { 77 });
    // The value differs from the stored one, so it goes back once as the pair; the panel adds none.
    EXPECT_EQ (pairValues (sentBytes(), cutoffMsb), std::vector<int> { 77 });
}

TEST_F (EditorFlow, HostAutomationMovesKnobAndPanelAddsNothing)
{
    JUCE_BEGIN_IGNORE_WARNINGS_GCC_LIKE ("-Wdeprecated-declarations")
    processor.setParameter (cutoffHost, 100.0f / 255.0f);
    JUCE_END_IGNORE_WARNINGS_GCC_LIKE
    ASSERT_TRUE (pumpUntil ([this] { return knob (cutoff).currentValue == 100; }));
    pump (50);

    EXPECT_EQ (knob (cutoff).currentValue, 100);
    EXPECT_TRUE (host.changes.empty());
    EXPECT_EQ (pairValues (sentBytes(), cutoffMsb), std::vector<int> { 100 });
}

TEST_F (EditorFlow, SwitchClickTogglesAndSendsItsController)
{
    auto& sw = knob (61); // "Osc 1 on/off", controller 82
    const int before = sw.currentValue;
    click (centreOf (sw));
    EXPECT_EQ (sw.currentValue, before == 0 ? 1 : 0);
    click (centreOf (sw));
    EXPECT_EQ (sw.currentValue, before);

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
    pump (300);
    auto* menu = openMenu();
    ASSERT_NE (menu, nullptr);

    // Items are in value order: the fourth is value 3.
    auto* item = menu->getChildComponent (3);
    ASSERT_NE (item, nullptr);
    const auto p = editor->getLocalPoint (item, item->getLocalBounds().getCentre()).toFloat();
    mouse (p, {});
    pump (100);
    press (p); // the menu watches the button on its own timer
    pump (100);
    release (p);
    pump (100);

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
    EXPECT_EQ (knob (cutoff).currentValue, 200);
    EXPECT_EQ (knob (65).valueText, "HIGHPASSLOWPASS");
    EXPECT_EQ (state().editBuffer->patchData[47], 7);
    EXPECT_EQ (state().editBuffer->patchData[95], 0);

    for (int i = 17; i <= 66; ++i)
    {
        const int word = state().editBuffer->patchData[i];
        const int value = juce::jlimit (knob (i).minimum, knob (i).maximum, i <= 45 ? word >> 8 : word);
        EXPECT_EQ (knob (i).currentValue, value) << "parameter " << i;
        EXPECT_EQ (knob (i).valueText, ParDes::SndParDes (knob (i).description, value)) << "parameter " << i;
    }
    EXPECT_TRUE (sentBytes().empty());
    EXPECT_TRUE (host.changes.empty());
}

TEST (EditorLife, SplashOncePerProcessorAndNoStaleReplay)
{
    EditorHarness h;
    h.openEditor();
    EXPECT_NE (h.main().aboutPanel, nullptr);
    h.dismissSplash();
    EXPECT_EQ (h.main().aboutPanel, nullptr);
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

TEST (EditorLife, ClicksLeaveTheHostsKeyboardAlone)
{
    EditorHarness h;
    h.openEditor();
    h.dismissSplash();
    h.click (h.centreOf (h.knob (61)));
    h.drag (h.centreOf (h.knob (cutoff)), h.centreOf (h.knob (cutoff)) + juce::Point<float> (0, -5));
    h.click (h.centreOf (*h.main().appBar));
    EXPECT_EQ (juce::Component::getCurrentlyFocusedComponent(), nullptr);
}

TEST_F (EditorFlow, ToolBarLockKeepsButtonsAndUnlockedBarHidesThemOnlyThroughItsLowerEdge)
{
    auto& bar = *main().appBar;
    auto* bank = bar.buttons[1];
    ASSERT_EQ (bank->label, "BANK");
    EXPECT_TRUE (bar.locked);

    const auto leaveThroughBottom = [&]
    {
        mouse (at (bar, { 900, 10 }), {});
        mouse (at (bar, { 900, 30 }), {});
        pump();
    };
    leaveThroughBottom();
    EXPECT_TRUE (bank->isVisible()); // locked: stays

    click (centreOf (*bar.lockButton));
    EXPECT_FALSE (bar.locked);
    mouse (at (bar, { 900, 10 }), {});
    mouse ({ 900.0f, -20.0f }, {}); // out through the top
    pump();
    EXPECT_TRUE (bank->isVisible());
    leaveThroughBottom();
    EXPECT_FALSE (bank->isVisible());
    mouse (at (bar, { 900, 10 }), {}); // back in: all return
    pump();
    EXPECT_TRUE (bank->isVisible());
}

TEST_F (EditorFlow, CopyPasteAndAutomationSenderThroughTheirMenus)
{
    const auto choose = [this] (juce::Component& button, int item)
    {
        click (centreOf (button));
        pump (300);
        auto* menu = openMenu();
        ASSERT_NE (menu, nullptr);
        auto* entry = menu->getChildComponent (item);
        ASSERT_NE (entry, nullptr);
        const auto p = editor->getLocalPoint (entry, entry->getLocalBounds().getCentre()).toFloat();
        mouse (p, {});
        pump (100);
        press (p);
        pump (100);
        release (p);
        pump (100);
    };
    auto& bar = *main().appBar;
    auto* edit = bar.buttons[3];
    auto* send = bar.buttons[6];
    ASSERT_EQ (edit->label + send->label, "EDITSEND");

    choose (*edit, 0); // copy: the sound also goes out whole
    EXPECT_TRUE (main().copyBufferFull);
    EXPECT_EQ (sentBytes().size(), 1u);
    const auto copied = state().editBuffer->patchData;
    state().editBuffer->patchData.set (cutoff, 3 << 8);
    choose (*edit, 1); // paste brings it back and sends it
    EXPECT_EQ (state().editBuffer->patchData, copied);
    EXPECT_EQ (knob (cutoff).currentValue, copied[cutoff] >> 8);
    EXPECT_EQ (sentBytes().size(), 1u);

    choose (*send, 3); // after the separator: "Send Automation parameters"
    EXPECT_NE (main().progressBar, nullptr);
    EXPECT_EQ (state().transferStep, 199);

    // One parameter every three ticks of 50 ms, in the order of the panel from "LFO Rate" (host 0).
    ASSERT_TRUE (pumpUntil ([this] { return host.changes.size() >= 3; }));
    for (int i = 0; i < 3; ++i)
    {
        EXPECT_EQ (host.changes[(size_t) i].first, i);
        EXPECT_EQ ((int) std::lround (host.changes[(size_t) i].second * 255.0f), knob (17 + i).currentValue);
    }
}

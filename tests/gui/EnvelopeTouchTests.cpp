// The envelope curves of the advanced page and the touch surface, through the window: a curve's
// drag leaves by the panel's knobs, the touch surface speaks to the host only and springs back, and
// remote values draw a crosshair that fades.

#include "EditorHarness.h"
#include "editor/Envelope.h"
#include "editor/TS_Class.h"

#include <map>

namespace
{
struct EnvelopeTouch : ::testing::Test, EditorHarness
{
    EnvelopeTouch() { openReady(); }

    Envel& filterCurve() { return advanced().filterEnvelope; }
    TS_Class& surface() { return panel().touchSurface; }

    // The values each controller took on its way to the instrument since the last call.
    std::map<int, std::vector<int>> controllersSent()
    {
        std::map<int, std::vector<int>> values;
        for (auto& b : sentBytes())
            if (b.size() == 3 && (b[0] & 0xF0) == 0xB0)
                values[b[1]].push_back (b[2]);
        return values;
    }

    // The last value the host was told for a parameter, in its own units; -1 when none.
    int lastHostValue (int index)
    {
        for (auto it = host.changes.rbegin(); it != host.changes.rend(); ++it)
            if (it->first == index)
                return juce::roundToInt (it->second * 127.0f);
        return -1;
    }

    // A program whose touch surface uses the controllers 12 (X) and 13 (Y).
    void useTouchControllers()
    {
        state().editBuffer->patchData.set (83, 12);
        state().editBuffer->patchData.set (87, 13);
        main().Display_Program();
        sent();
    }

    void fromDevice (int controller, int value)
    {
        state().handleIncomingMidiMessage (nullptr, juce::MidiMessage::controllerEvent (1, controller, value));
        pump (60);
    }
};
} // namespace

TEST_F (EnvelopeTouch, CurveDragLeavesThroughTheKnobsOncePerChangedKnob)
{
    for (int index : { 29, 37, 38, 39, 40 })
        state().editBuffer->patchData.set (index, 60 << 8);
    main().Display_Program();
    main().Show_Window (106, true, 0);
    pump();

    // Knobs 37 to 40 (filter attack, decay, sustain, release) leave on the controllers 23 to 26.
    struct Case { const char* name; int corner; int dx, dy; std::map<int, int> moved; }; // corner 1 peak, 2 sustain strip, 4 end
    for (const auto& c : { Case { "peak right 3", 1, 3, 0, { { 37, 2 } } },
                           Case { "sustain strip right 3, up 3", 2, 3, -3, { { 38, 2 }, { 39, 2 } } },
                           Case { "sustain strip down 2", 2, 0, 2, { { 39, -1 } } },
                           Case { "sustain strip left 1", 2, -1, 0, { { 38, -1 } } },
                           Case { "end left 3", 4, -3, 0, { { 40, -2 } } } })
    {
        SCOPED_TRACE (c.name);
        auto& curve = filterCurve();
        const int x = juce::roundToInt (c.corner == 2 ? (curve.pointX[2] + curve.pointX[3]) / 2 : curve.pointX[c.corner]);
        const auto from = at (curve, { x, juce::roundToInt (curve.pointY[c.corner]) });
        const auto to = from + juce::Point<float> ((float) c.dx, (float) c.dy);
        std::map<int, int> before;
        for (int k = 37; k <= 40; ++k)
            before[k] = knob (k).currentValue;
        sent();
        host.changes.clear();

        mouse (from, {});
        press (from);
        pump();
        EXPECT_TRUE (curve.showReadout);
        mouse (to, juce::ModifierKeys::leftButtonModifier);
        pump();
        EXPECT_FALSE (curve.showReadout); // the readout stands only until the first drag
        release (to);
        pump (150);

        auto wire = controllersSent();
        const float shown[] = { curve.attack, curve.decay, curve.sustain, curve.release };
        for (int k = 37; k <= 40; ++k)
        {
            const bool moved = c.moved.count (k) != 0;
            EXPECT_EQ (knob (k).currentValue, before[k] + (moved ? c.moved.at (k) : 0)) << "knob " << k;
            EXPECT_EQ ((int) shown[k - 37], knob (k).currentValue) << "curve stage " << k;
            EXPECT_EQ (wire[k - 14].size(), moved ? 1u : 0u) << "controller of knob " << k;
        }
        EXPECT_EQ (host.changes.size(), c.moved.size());
    }
}

TEST_F (EnvelopeTouch, CurvesFollowProgramsAndKnobsWithTheFilterSustainFromWord29)
{
    for (auto [index, value] : { std::pair { 29, 100 }, { 37, 11 }, { 38, 22 }, { 39, 40 }, { 40, 33 }, { 41, 44 }, { 42, 55 }, { 43, 66 }, { 44, 77 } })
        state().editBuffer->patchData.set (index, (unsigned short) (value << 8));
    state().Internal_UpdInt (0x440000); // the whole program again
    pump();

    auto& filter = filterCurve();
    auto& volume = advanced().volumeEnvelope;
    EXPECT_EQ (std::vector<float> ({ filter.attack, filter.decay, filter.sustain, filter.release }), std::vector<float> ({ 11, 22, 100, 33 }));
    EXPECT_EQ (std::vector<float> ({ volume.attack, volume.decay, volume.sustain, volume.release }), std::vector<float> ({ 44, 55, 66, 77 }));
    EXPECT_EQ (knob (39).currentValue, 40);

    // A knob moved from outside redraws its stage; the polygon's corner follows.
    state().Internal_UpdInt (0x400000u + (39u << 8) + 50u);
    state().Internal_UpdInt (0x400000u + (44u << 8) + 9u);
    pump();
    EXPECT_EQ (filter.sustain, 50.0f);
    EXPECT_EQ (volume.release, 9.0f);
    EXPECT_FLOAT_EQ (filter.pointY[2], 62.0f + 23.0f - 50.0f * 62.0f / 255.0f);
}

TEST_F (EnvelopeTouch, SurfaceDragGoesToTheHostWhichPassesItOnAndReleaseReturnsTo64)
{
    useTouchControllers();
    const int hostX = state().soundToHost[69], hostY = state().soundToHost[70];
    ASSERT_EQ (processor.getParameterName (hostX) + processor.getParameterName (hostY), "Touch Surf XTouch Surf Y");

    struct Case { const char* name; juce::Point<int> to; int x, y; }; // `to` in the surface
    for (const auto& c : { Case { "inside", { 60, 43 }, (int) (60 / (241.0f / 128)), (int) (127 - 43 / (172.0f / 128)) },
                           Case { "past the top left", { -40, -30 }, 0, 127 },
                           Case { "past the bottom right", { 300, 250 }, 127, 0 } })
    {
        SCOPED_TRACE (c.name);
        const auto from = centreOf (surface());
        mouse (from, {});
        press (from);
        pump();
        EXPECT_EQ (surface().getMouseCursor(), juce::MouseCursor (juce::MouseCursor::NoCursor));
        // The host hears the values and passes them to the instrument on the program's controllers.
        for (const auto& [mods, x, y] : { std::tuple { juce::ModifierKeys (juce::ModifierKeys::leftButtonModifier), c.x, c.y }, { juce::ModifierKeys(), 64, 64 } })
        {
            mouse (at (surface(), c.to), mods);
            pump (60);
            EXPECT_EQ (lastHostValue (hostX), x);
            EXPECT_EQ (lastHostValue (hostY), y);
            auto wire = controllersSent();
            EXPECT_TRUE (! wire[12].empty() && wire[12].back() == x && ! wire[13].empty() && wire[13].back() == y);
        }
        EXPECT_FALSE (surface().pressed);
    }

    // A press and release with no drag sends nothing: both are at 64 already.
    host.changes.clear();
    click (centreOf (surface()));
    EXPECT_TRUE (lastHostValue (hostX) == -1 && lastHostValue (hostY) == -1);
}

TEST_F (EnvelopeTouch, HostWritesTheCaptionOnlyAndTheDeviceACrosshairThatFadesHalfASecondAfterItsLastValue)
{
    useTouchControllers();
    juce::MidiBuffer fromHost;
    fromHost.addEvent (juce::MidiMessage::controllerEvent (1, 12, 90), 0);
    process (fromHost, 512);
    pump (60);
    EXPECT_EQ (panel().touchCaptions.captions[0], "*12 | 90");
    EXPECT_FALSE (surface().cursorShown);
    EXPECT_EQ (surface().xValue, 64);

    fromDevice (12, 30);
    EXPECT_EQ (panel().touchCaptions.captions[0], "30");
    EXPECT_TRUE (surface().cursorShown);
    EXPECT_TRUE (surface().xValue == 30 && surface().yValue == 64); // a controller that moves X leaves Y
    EXPECT_FLOAT_EQ (surface().cursorX, 30 * (241.0f - 20.0f) / 128.0f);
    const double last = juce::Time::getMillisecondCounterHiRes();
    fromDevice (13, 100); // restarts the fade
    EXPECT_EQ (surface().yValue, 100);
    ASSERT_TRUE (surface().cursorShown);
    ASSERT_TRUE (pumpUntil ([this] { return ! surface().cursorShown; }, 3000));
    EXPECT_GE (juce::Time::getMillisecondCounterHiRes() - last, 490.0);

    // Nothing stored restarts nothing; while the finger is down outside values do not fade, and the
    // surface takes no keyboard focus from the host.
    surface().Set_TS_XY (-1, -1);
    EXPECT_FALSE (surface().isTimerRunning());
    const auto centre = centreOf (surface());
    mouse (centre, {});
    press (centre);
    pump();
    fromDevice (12, 20);
    EXPECT_TRUE (surface().cursorShown && ! surface().isTimerRunning());
    release (centre);
    pump();
    EXPECT_FALSE (surface().hasKeyboardFocus (true) || filterCurve().getWantsKeyboardFocus() || surface().getWantsKeyboardFocus());
}

// The keyboard strip played through the window: notes reach the instrument at the set velocity and
// the host at 127, a glissando holds every key until the button comes up, notes from elsewhere
// light their keys, and the wheels send what they show.

#include "EditorHarness.h"
#include "editor/KeyBrd.h"

namespace
{
using Bytes = std::vector<int>;

struct KeyboardStrip : ::testing::Test, EditorHarness
{
    KeyboardStrip() { openReady(); }

    KeyBrd& strip() { return *main().keyboard; }
    PianoPad& pad() { return strip().pianoPad; }

    // A point on a key: a black key at the middle of its top, a white one below the black keys.
    juce::Point<float> keyPoint (int key)
    {
        const auto r = pad().keyBounds (key);
        const int y = pad().black[(size_t) key] ? r.getY() + pad().blackHeight / 2 : pad().blackHeight + 30;
        return at (pad(), { r.getX() + r.getWidth() / 2, y });
    }

    // Note messages among what went to the instrument since the last call.
    std::vector<Bytes> notesSent()
    {
        std::vector<Bytes> notes;
        for (auto& b : sentBytes())
            if (b.size() == 3 && (b[0] & 0xE0) == 0x80)
                notes.push_back (b);
        return notes;
    }

    // What the host finds in its MIDI output after one block.
    std::vector<Bytes> hostOutput()
    {
        juce::MidiBuffer midi;
        process (midi, 512);
        std::vector<Bytes> out;
        for (const auto event : midi)
            out.emplace_back (event.data, event.data + event.numBytes);
        return out;
    }

    // The last message of a kind (status with the channel masked) that reached the instrument.
    Bytes lastSent (int kind, const std::vector<Bytes>& wire)
    {
        for (auto it = wire.rbegin(); it != wire.rend(); ++it)
            if (((*it)[0] & 0xF0) == kind)
                return *it;
        return {};
    }
};
} // namespace

TEST_F (KeyboardStrip, ClickSendsNoteOnBothWaysAndReleaseSendsTheOffs)
{
    struct Case
    {
        int velocity, channel;
        Bytes deviceOn, hostOn; // empty: nothing expected
    };
    const Case cases[] = {
        { 100, 1, { 0x90, 60, 100 }, { 0x90, 60, 127 } },
        { 1, 5, { 0x94, 60, 1 }, { 0x94, 60, 127 } }, // the host hears 127 for any velocity from 1
        { 0, 16, { 0x9F, 60, 0 }, { 0x9F, 60, 0 } },
        { 100, 17, {}, { 0x9F, 60, 127 } }, // no such channel on the wire; the host's is clamped
    };

    for (const auto& c : cases)
    {
        SCOPED_TRACE ("velocity " + std::to_string (c.velocity) + ", channel " + std::to_string (c.channel));
        state().keyVelocity = c.velocity;
        state().midiChannel = c.channel;

        const auto p = keyPoint (12); // the C of note 60 at the base of 48
        mouse (p, {});
        press (p);
        pump();
        EXPECT_TRUE (pad().isDown (12));
        EXPECT_EQ (notesSent(), (c.deviceOn.empty() ? std::vector<Bytes> {} : std::vector<Bytes> { c.deviceOn }));
        EXPECT_EQ (hostOutput(), std::vector<Bytes> { c.hostOn });

        release (p);
        pump();
        EXPECT_FALSE (pad().isDown (12));
        const int offStatus = 0x80 | (juce::jlimit (1, 16, c.channel) - 1);
        EXPECT_EQ (notesSent(), (c.deviceOn.empty() ? std::vector<Bytes> {} : std::vector<Bytes> { { offStatus, 60, 0 } }));
        EXPECT_EQ (hostOutput(), (std::vector<Bytes> { { offStatus, 60, 0 } }));
    }
}

TEST_F (KeyboardStrip, GlissandoHoldsEveryKeyUntilTheButtonComesUp)
{
    // Along the lower zone from C to G: the white keys 60, 62, 64, 65, 67.
    drag (keyPoint (12), keyPoint (19), 16);

    const auto notes = notesSent();
    const std::vector<Bytes> expected { { 0x90, 60, 100 }, { 0x90, 62, 100 }, { 0x90, 64, 100 }, { 0x90, 65, 100 }, { 0x90, 67, 100 },
                                        { 0x80, 60, 0 },   { 0x80, 62, 0 },   { 0x80, 64, 0 },   { 0x80, 65, 0 },   { 0x80, 67, 0 } };
    EXPECT_EQ (notes, expected);
    EXPECT_FALSE (pad().anyDown());
}

TEST_F (KeyboardStrip, NotesFromTheInstrumentAndTheHostLightTheirKeys)
{
    device.corvane.playNote (64, 1); // shown although its velocity is below the key's threshold
    backend.deliverPending();
    juce::MidiBuffer fromHost;
    fromHost.addEvent (juce::MidiMessage::noteOn (1, 67, (juce::uint8) 90), 0);
    process (fromHost, 512);
    pump (60);

    EXPECT_EQ (pad().keyState[16], 5);
    EXPECT_EQ (pad().keyState[19], 90);
    sent();

    // A key already held sends nothing; the button's release lifts every key that is down.
    const auto p = keyPoint (16);
    mouse (p, {});
    press (p);
    pump();
    EXPECT_TRUE (notesSent().empty());
    release (p);
    pump();
    EXPECT_EQ (notesSent(), (std::vector<Bytes> { { 0x80, 64, 0 }, { 0x80, 67, 0 } }));
    EXPECT_FALSE (pad().anyDown());

    // And the offs from outside lift them too, sending nothing.
    device.corvane.playNote (62, 80);
    backend.deliverPending();
    pump (60);
    EXPECT_EQ (pad().keyState[14], 80);
    device.corvane.playNote (62, 0);
    backend.deliverPending();
    pump (60);
    EXPECT_FALSE (pad().isDown (14));
    EXPECT_TRUE (notesSent().empty());
}

TEST_F (KeyboardStrip, KeysAboveNote127GoDownAndSendNothing)
{
    state().keyBase = 100;
    for (auto [key, sends] : { std::pair { 27, true }, { 28, false }, { 48, false } }) // notes 127, 128, 148
    {
        SCOPED_TRACE (key);
        const auto p = keyPoint (key);
        mouse (p, {});
        press (p);
        pump();
        EXPECT_TRUE (pad().isDown (key));
        release (p);
        pump();
        EXPECT_FALSE (pad().isDown (key));
        EXPECT_EQ (notesSent(), (sends ? std::vector<Bytes> { { 0x90, 127, 100 }, { 0x80, 127, 0 } } : std::vector<Bytes> {}));
        EXPECT_EQ (hostOutput().size(), sends ? 2u : 0u);
    }
}

TEST_F (KeyboardStrip, PitchWheelSpringsBackAndModulationWheelStays)
{
    struct Case
    {
        WheelCnt* wheel;
        int kind;        // what it sends: pitch wheel or controller
        int hostIndex;   // the host parameter it echoes to
        int resting;     // where it ends after a drag of 30 pixels up
        Bytes lastWire;
    };
    const Case cases[] = {
        { &strip().pitchWheel, 0xE0, 313, 64, { 0xE0, 0x00, 0x40 } }, // 8192
        { &strip().modWheel, 0xB0, 58, 30, { 0xB0, 1, 30 } },
    };

    for (const auto& c : cases)
    {
        SCOPED_TRACE (c.hostIndex);
        host.changes.clear();
        const auto from = centreOf (*c.wheel);
        drag (from, from + juce::Point<float> (0.0f, -30.0f));

        EXPECT_EQ ((int) c.wheel->position, c.resting);
        EXPECT_EQ (lastSent (c.kind, sentBytes()), c.lastWire);
        ASSERT_FALSE (host.changes.empty());
        EXPECT_EQ (host.changes.back().first, c.hostIndex);
        EXPECT_EQ (processor.getParameterText (c.hostIndex), juce::String (c.hostIndex == 313 ? 8192 : 30));
    }

    // A wheel event moves the pitch wheel one step, and nothing springs it back.
    wheel (centreOf (strip().pitchWheel), 3.0f);
    EXPECT_EQ ((int) strip().pitchWheel.position, 65);
    EXPECT_EQ (lastSent (0xE0, sentBytes()), (Bytes { 0xE0, 0x00, 65 }));
}

TEST_F (KeyboardStrip, WheelsAndSwitchesFollowTheInstrumentAndTheHost)
{
    device.corvane.movePanel (67, 1); // "Release" on the instrument
    backend.deliverPending();
    juce::MidiBuffer fromHost;
    fromHost.addEvent (juce::MidiMessage::pitchWheel (1, 100 << 7), 0);
    fromHost.addEvent (juce::MidiMessage::controllerEvent (1, 1, 77), 1);
    process (fromHost, 512);
    pump (60);

    EXPECT_EQ (strip().release.currentValue, 1);
    EXPECT_EQ (strip().release.valueText, "RELEASE ON");
    EXPECT_EQ ((int) strip().pitchWheel.position, 100);
    EXPECT_EQ ((int) strip().modWheel.position, 77);

    // The switches send through the host like any control of the panel.
    sent();
    click (centreOf (strip().glide));
    pump (60);
    EXPECT_EQ (strip().glide.currentValue, 1);
    EXPECT_EQ (lastSent (0xB0, sentBytes()), (Bytes { 0xB0, 65, 127 }));
}

TEST_F (KeyboardStrip, VelocityMenuSetsTheVelocityOfTheKeys)
{
    auto& box = strip().velocity;
    EXPECT_EQ (box.valueText, "100");
    click (at (box, { 20, 8 }));
    pump (300);
    auto* menu = openMenu();
    ASSERT_NE (menu, nullptr);
    auto* item = menu->getChildComponent (2); // "30"
    ASSERT_NE (item, nullptr);
    const auto p = editor->getLocalPoint (item, item->getLocalBounds().getCentre()).toFloat();
    mouse (p, {});
    pump (100);
    press (p);
    pump (100);
    release (p);
    pump (100);

    EXPECT_EQ (state().keyVelocity, 30);
    EXPECT_EQ (box.valueText, "30");
    click (keyPoint (12));
    EXPECT_EQ (notesSent().front(), (Bytes { 0x90, 60, 30 }));
}

TEST_F (KeyboardStrip, StripScalesWithTheWindowAndPlaysTheKeyUnderThePointer)
{
    for (auto [width, banks] : { std::pair { 1505, false }, { 978, false }, { 1279, true }, { 1103, true } })
    {
        SCOPED_TRACE (std::to_string (width) + (banks ? " with banks" : ""));
        editor->setSize (width, 739);
        if (main().bankPanelShown != banks)
            main().Show_Window (103, banks, 0);
        pump();

        const float s = main().scale;
        EXPECT_EQ (strip().getBounds(), juce::Rectangle<int> (banks ? 500 : 0, (int) (467 * s), (int) (1505 * s), (int) (272 * s)));
        EXPECT_EQ (pad().getBounds(), juce::Rectangle<int> ((int) (250 * s), (int) (32 * s), (int) (1040 * s), (int) (245 * s)));
        EXPECT_EQ (strip().modWheel.getBounds(), juce::Rectangle<int> ((int) (140 * s), (int) (120 * s), (int) (31 * s), (int) (112 * s)));

        for (int key : { 5, 6, 25, 48 }) // the first key, its black neighbour, one in the middle, the last
        {
            click (keyPoint (key));
            EXPECT_EQ (notesSent(), (std::vector<Bytes> { { 0x90, 48 + key, 100 }, { 0x80, 48 + key, 0 } })) << key;
        }
    }

    // The tool-bar's keyboard switch takes the strip away and brings it back.
    main().IvrButAct (967);
    EXPECT_FALSE (strip().isVisible());
    main().IvrButAct (967);
    EXPECT_TRUE (strip().isVisible());
}

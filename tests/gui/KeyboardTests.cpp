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
    Bytes lastSent (int kind)
    {
        const auto wire = sentBytes();
        auto it = std::find_if (wire.rbegin(), wire.rend(), [kind] (auto& b) { return (b[0] & 0xF0) == kind; });
        return it != wire.rend() ? *it : Bytes();
    }

    // Presses (`down`) or releases `key` with the mouse; whether the key shows down after it.
    bool hold (int key, bool down)
    {
        if (down)
        {
            mouse (keyPoint (key), {});
            press (keyPoint (key));
        }
        else
            release (keyPoint (key));
        pump();
        return pad().isDown (key);
    }

    void tap (int key)
    {
        EXPECT_TRUE (hold (key, true)) << key;
        EXPECT_FALSE (hold (key, false)) << key;
    }
};
} // namespace

TEST_F (KeyboardStrip, ClickSendsNoteOnBothWaysAndReleaseSendsTheOffs)
{
    struct Case { int velocity, channel; Bytes deviceOn, hostOn; }; // empty: nothing expected
    for (const auto& c : { Case { 100, 1, { 0x90, 60, 100 }, { 0x90, 60, 127 } },
                           Case { 1, 5, { 0x94, 60, 1 }, { 0x94, 60, 127 } }, // the host hears 127 for any velocity from 1
                           Case { 0, 16, { 0x9F, 60, 0 }, { 0x9F, 60, 0 } },
                           Case { 100, 17, {}, { 0x9F, 60, 127 } } }) // no such channel on the wire; the host's is clamped
    {
        SCOPED_TRACE ("velocity " + std::to_string (c.velocity) + ", channel " + std::to_string (c.channel));
        state().keyVelocity = c.velocity;
        state().midiChannel = c.channel;
        EXPECT_TRUE (hold (12, true)); // the C of note 60 at the base of 48
        EXPECT_EQ (notesSent(), (c.deviceOn.empty() ? std::vector<Bytes> {} : std::vector<Bytes> { c.deviceOn }));
        EXPECT_EQ (hostOutput(), std::vector<Bytes> { c.hostOn });

        EXPECT_FALSE (hold (12, false));
        const Bytes off { 0x80 | (juce::jlimit (1, 16, c.channel) - 1), 60, 0 };
        EXPECT_EQ (notesSent(), (c.deviceOn.empty() ? std::vector<Bytes> {} : std::vector<Bytes> { off }));
        EXPECT_EQ (hostOutput(), std::vector<Bytes> { off });
    }
}

TEST_F (KeyboardStrip, GlissandoHoldsEveryKeyUntilTheButtonComesUp)
{
    // Along the lower zone from C to G: the white keys 60, 62, 64, 65, 67.
    drag (keyPoint (12), keyPoint (19), 16);
    const std::vector<Bytes> expected { { 0x90, 60, 100 }, { 0x90, 62, 100 }, { 0x90, 64, 100 }, { 0x90, 65, 100 }, { 0x90, 67, 100 },
                                        { 0x80, 60, 0 },   { 0x80, 62, 0 },   { 0x80, 64, 0 },   { 0x80, 65, 0 },   { 0x80, 67, 0 } };
    EXPECT_EQ (notesSent(), expected);
    EXPECT_FALSE (pad().anyDown());
}

TEST_F (KeyboardStrip, NotesWheelsAndReleaseFollowTheInstrumentAndTheHost)
{
    device.corvane.playNote (64, 1); // shown although its velocity is below the key's threshold
    device.corvane.movePanel (67, 1); // "Release"
    backend.deliverPending();
    juce::MidiBuffer fromHost;
    fromHost.addEvent (juce::MidiMessage::noteOn (1, 67, (juce::uint8) 90), 0);
    fromHost.addEvent (juce::MidiMessage::pitchWheel (1, 100 << 7), 1);
    fromHost.addEvent (juce::MidiMessage::controllerEvent (1, 1, 77), 2);
    process (fromHost, 512);
    pump (60);

    EXPECT_EQ (pad().keyState[16], 5);
    EXPECT_EQ (pad().keyState[19], 90);
    EXPECT_EQ (strip().release.valueText, "RELEASE ON");
    EXPECT_EQ ((int) strip().pitchWheel.position, 100);
    EXPECT_EQ ((int) strip().modWheel.position, 77);
    sent();

    // A key already held sends nothing; the button's release lifts every key that is down.
    hold (16, true);
    EXPECT_TRUE (notesSent().empty());
    hold (16, false);
    EXPECT_EQ (notesSent(), (std::vector<Bytes> { { 0x80, 64, 0 }, { 0x80, 67, 0 } }));
    EXPECT_FALSE (pad().anyDown());

    // The offs from outside lift keys too, sending nothing.
    device.corvane.playNote (62, 80);
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
        tap (key);
        EXPECT_EQ (notesSent(), (sends ? std::vector<Bytes> { { 0x90, 127, 100 }, { 0x80, 127, 0 } } : std::vector<Bytes> {})) << key;
        EXPECT_EQ (hostOutput().size(), sends ? 2u : 0u) << key;
    }
}

TEST_F (KeyboardStrip, PitchWheelSpringsBackAndModulationWheelStays)
{
    struct Case { WheelCnt* wheel; int kind, hostIndex, resting; Bytes lastWire; juce::String hostText; };
    for (const auto& c : { Case { &strip().pitchWheel, 0xE0, 313, 64, { 0xE0, 0x00, 0x40 }, "8192" },
                           Case { &strip().modWheel, 0xB0, 58, 30, { 0xB0, 1, 30 }, "30" } }) // after 30 pixels up
    {
        SCOPED_TRACE (c.hostIndex);
        host.changes.clear();
        drag (centreOf (*c.wheel), centreOf (*c.wheel) + juce::Point<float> (0.0f, -30.0f));
        EXPECT_EQ ((int) c.wheel->position, c.resting);
        EXPECT_EQ (lastSent (c.kind), c.lastWire);
        ASSERT_FALSE (host.changes.empty());
        EXPECT_EQ (host.changes.back().first, c.hostIndex);
        EXPECT_EQ (processor.getParameterText (c.hostIndex), c.hostText);
    }

    // A wheel event moves the pitch wheel one step, and nothing springs it back.
    wheel (centreOf (strip().pitchWheel), 3.0f);
    EXPECT_EQ ((int) strip().pitchWheel.position, 65);
    EXPECT_EQ (lastSent (0xE0), (Bytes { 0xE0, 0x00, 65 }));
}

TEST_F (KeyboardStrip, VelocityMenuSetsTheVelocityOfTheKeys)
{
    EXPECT_EQ (strip().velocity.valueText, "100");
    click (at (strip().velocity, { 20, 8 }));
    ASSERT_TRUE (chooseMenu ({ "30" }));
    EXPECT_EQ (state().keyVelocity, 30);
    EXPECT_EQ (strip().velocity.valueText, "30");
    tap (12);
    EXPECT_EQ (notesSent().front(), (Bytes { 0x90, 60, 30 }));
}

TEST_F (KeyboardStrip, TheKeyUnderThePointerPlaysAtEveryWidth)
{
    for (auto [width, banks] : { std::pair { 1505, false }, { 978, false }, { 1279, true }, { 1103, true } })
    {
        editor->setSize (width, 739);
        if (main().bankPanelShown != banks)
            main().Show_Window (103, banks, 0);
        pump();
        for (int key : { 5, 6, 25, 48 }) // the first key in view, its black neighbour, one in the middle, the last
        {
            tap (key);
            EXPECT_EQ (notesSent(), (std::vector<Bytes> { { 0x90, 48 + key, 100 }, { 0x80, 48 + key, 0 } })) << width << (banks ? " with banks, key " : ", key ") << key;
        }
    }
}

// What the keyboard strip plays: notes and wheels to the instrument and, with the host echo on,
// to the host as well.

#include "editor/MainComp.h"

#include "device/MIDI_PORTS_Control.h"
#include "device/MidiCntrState.h"
#include "editor/KeyBrd.h"
#include "plugin/HandlerComp.h"

namespace
{
// One note of the on-screen keys, `kind` 0x90 or 0x80. Notes above 127 do not exist and go
// nowhere. The host gets its channel clamped to 1 to 16; the instrument gets nothing on a channel
// above 16.
void sendKeyNote (MidiCntrState& state, int kind, int note, int velocity)
{
    if (! juce::isPositiveAndBelow (note, 128))
        return;

    const int channel = state.midiChannel.load();
    const auto status = (juce::uint8) (kind | (juce::jlimit (1, 16, channel) - 1));

    if (state.hostEcho)
    {
        // The velocity goes into the float form of a note-on as it stands: 127 for any from 1.
        const int hostVelocity = juce::jlimit (0, 127, juce::roundToInt (velocity * 127.0));
        state.SendVST3_Message (juce::MidiMessage (status, note, hostVelocity));
    }

    if (channel <= 16 && state.portControl != nullptr)
    {
        const juce::uint8 bytes[] = { status, (juce::uint8) note, (juce::uint8) juce::jlimit (0, 127, velocity) };
        state.portControl->sendShortMessage (bytes, 3);
    }
}
} // namespace

void MainComp::PianoPad_playing()
{
    auto& pad = keyboard->pianoPad;

    if (pad.action == PianoPad::actionNoteOn)
    {
        sendKeyNote (*state, 0x90, state->keyBase + pad.lastKey, state->keyVelocity);
        return;
    }

    if (pad.action != PianoPad::actionAllOff)
        return;

    // Every key that is down comes up, the ones that other players hold included.
    for (int key = 0; key < PianoPad::numStates; ++key)
    {
        if (! pad.isDown (key))
            continue;

        pad.keyState[(size_t) key] = 0;
        sendKeyNote (*state, 0x80, state->keyBase + key, 0);
        pad.repaintKey (key);
    }
}

void MainComp::WheelMd_playing (int value)
{
    if (state->hostEcho && state->handler != nullptr)
        state->handler->SendParam (58, state->normalisedFor (58, value));
    if (state->portControl != nullptr)
        state->portControl->Send_CC (state->midiChannel.load(), 1, value);
}

void MainComp::WheelPb_playing (int position)
{
    // Seven bits of the wheel in the upper half of the bend: the centre 64 is 8192.
    const int value = position << 7;
    if (state->hostEcho && state->handler != nullptr)
        state->handler->SendParam (313, state->normalisedFor (313, value));
    if (state->portControl != nullptr)
        state->portControl->Send_PitchBend (state->midiChannel.load(), value);
}

void MainComp::NoteVel_playing (IvrCont* control)
{
    const auto take = [this] (IvrCont* c)
    {
        c->ValueChanged (c->requestedValue, juce::String (c->requestedValue));
        state->keyVelocity = c->requestedValue;
    };

    if (control->action == IvrCont::actionStep)
        return take (control);

    if (control->action != IvrCont::actionMenu)
        return;

    juce::PopupMenu menu;
    for (int value : { 10, 20, 30, 40, 50, 60, 70, 80, 90, 100, 110, 127 })
        menu.addItem (value + 1, juce::String (value));

    showMenu (std::move (menu), control, [take, safe = juce::Component::SafePointer<IvrCont> (control)] (int id)
    {
        if (safe == nullptr)
            return;
        safe->requestedValue = id - 1;
        take (safe);
    });
}

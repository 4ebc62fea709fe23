#include "device/MidiCntrState.h"
#include "plugin/HandlerComp.h"
#include "ScratchFolder.h"

#include <gtest/gtest.h>

TEST (HostParameterTables, InstrumentMessagesReachTheHostQueueInOrderNotesWaitAndGoStale)
{
    ScratchFolder settings;
    MidiCntrState state;
    state.settingsFolder = settings.dir;
    state.InitializeMe();

    state.SendVST3_Message (juce::MidiMessage::controllerEvent (1, 20, 127));
    state.SendVST3_Message (juce::MidiMessage::aftertouchChange (1, 60, 64));
    state.SendVST3_Message (juce::MidiMessage::programChange (1, 5));
    state.SendVST3_Message (juce::MidiMessage::channelPressureChange (1, 127));
    state.SendVST3_Message (juce::MidiMessage::pitchWheel (1, 16383)); // reads above 1.0: 16383 / 16363
    state.SendVST3_Message (juce::MidiMessage::midiClock());           // nothing
    state.SendVST3_Message (juce::MidiMessage::noteOn (1, 60, (juce::uint8) 100)); // to hostMidi instead
    state.SendVST3_Message (juce::MidiMessage::noteOff (1, 60));

    const std::pair<int, float> expected[] = { { 77, 1.0f }, { 245, 64.0f / 127.0f }, { 56, 5.0f / 127.0f },
                                               { 314, 1.0f }, { 313, 16383.0f / 16363.0f } };
    HandlerComp::PendingParam p;
    for (auto [index, value] : expected)
    {
        ASSERT_TRUE (state.handler->nextPending (p));
        EXPECT_EQ (p.index, index);
        EXPECT_FLOAT_EQ (p.value, value) << index;
    }
    EXPECT_FALSE (state.handler->nextPending (p));
    EXPECT_EQ (state.hostMidi.getNumEvents(), 2);

    {
        // A note stamped more than 500 ms ago is dropped by the next arrival.
        const juce::ScopedLock sl (state.lock);
        state.hostMidi.clear();
        state.hostMidi.addEvent (juce::MidiMessage::noteOn (1, 50, (juce::uint8) 1), (int) juce::Time::getMillisecondCounter() - 2000);
    }
    state.SendVST3_Message (juce::MidiMessage::noteOn (1, 61, (juce::uint8) 100));
    ASSERT_EQ (state.hostMidi.getNumEvents(), 1);
    for (const auto m : state.hostMidi)
        EXPECT_EQ (m.getMessage().getNoteNumber(), 61);
}

#include "device/MidiCntrState.h"
#include "plugin/HandlerComp.h"
#include "ScratchFolder.h"

#include <gtest/gtest.h>

#include <vector>

namespace
{
std::vector<HandlerComp::PendingParam> pendingOf (MidiCntrState& state)
{
    std::vector<HandlerComp::PendingParam> items;
    HandlerComp::PendingParam p;
    while (state.handler->nextPending (p))
        items.push_back (p);
    return items;
}
} // namespace

TEST (HostParameterTables, TopValuesDisplayCodesAndIndexMaps)
{
    MidiCntrState state;
    state.SetAutoParam();

    EXPECT_EQ (state.paramMax[0], 255);
    EXPECT_EQ (state.paramMax[28], 255);
    const int stepped[] = { 3, 5, 5, 3, 5, 5, 3, 5, 5, 5 };
    for (int i = 0; i < 10; ++i)
        EXPECT_EQ (state.paramMax[29 + i], stepped[i]) << 29 + i;
    EXPECT_EQ (state.paramMax[39], 1);
    EXPECT_EQ (state.paramMax[51], 1);
    EXPECT_EQ (state.paramMax[52], 127);
    EXPECT_EQ (state.paramMax[89], 6);
    EXPECT_EQ (state.paramMax[313], 16363);
    EXPECT_EQ (state.paramMax[555], 127);
    EXPECT_EQ (state.paramMax.size(), 556);

    // Four host indices carry the centred rule, the kept historic mix-up.
    for (int i : { 21, 22, 26, 34 })
        EXPECT_EQ (state.autoParamB[i], 18) << i;
    EXPECT_EQ (state.autoParamB[4], 17);
    EXPECT_EQ (state.autoParamB[29], 46);
    EXPECT_EQ (state.autoParamB[41], 56);
    EXPECT_EQ (state.autoParamB[55], 222);

    EXPECT_EQ (state.hostToSound[0], 17);
    EXPECT_EQ (state.hostToSound[499], 516);
    EXPECT_EQ (state.soundToHost[17], 0);
    EXPECT_EQ (state.soundToHost[68], 51);
    EXPECT_EQ (state.soundToHost[5], 0);
    EXPECT_EQ (state.soundToHost.size(), 1000);
    EXPECT_EQ (state.hostToSound.size(), 1000);
    EXPECT_EQ (state.autoParamA.size(), 500);
}

TEST (HostParameterTables, InstrumentMessagesReachTheHostQueueInOrder)
{
    ScratchFolder settings;
    MidiCntrState state;
    state.settingsFolder = settings.dir;
    state.InitializeMe();

    state.SendVST3_Message (juce::MidiMessage::controllerEvent (1, 20, 127));
    state.SendVST3_Message (juce::MidiMessage::aftertouchChange (1, 60, 64));
    state.SendVST3_Message (juce::MidiMessage::programChange (1, 5));
    state.SendVST3_Message (juce::MidiMessage::channelPressureChange (1, 127));
    state.SendVST3_Message (juce::MidiMessage::pitchWheel (1, 16383));
    state.SendVST3_Message (juce::MidiMessage::midiClock()); // nothing

    const auto items = pendingOf (state);
    ASSERT_EQ (items.size(), 5u);
    EXPECT_EQ (items[0].index, 77);
    EXPECT_FLOAT_EQ (items[0].value, 1.0f);
    EXPECT_EQ (items[1].index, 245);
    EXPECT_FLOAT_EQ (items[1].value, 64.0f / 127.0f);
    EXPECT_EQ (items[2].index, 56);
    EXPECT_FLOAT_EQ (items[2].value, 5.0f / 127.0f);
    EXPECT_EQ (items[3].index, 314);
    EXPECT_EQ (items[4].index, 313);
    EXPECT_GT (items[4].value, 1.0f); // 16383 / 16363: a wheel at its top reads above 1.0
}

TEST (HostParameterTables, InstrumentNotesWaitForTheHostAndGoStale)
{
    ScratchFolder settings;
    MidiCntrState state;
    state.settingsFolder = settings.dir;
    state.InitializeMe();

    state.SendVST3_Message (juce::MidiMessage::noteOn (1, 60, (juce::uint8) 100));
    state.SendVST3_Message (juce::MidiMessage::noteOff (1, 60));
    EXPECT_EQ (state.hostMidi.getNumEvents(), 2);
    EXPECT_TRUE (pendingOf (state).empty());

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

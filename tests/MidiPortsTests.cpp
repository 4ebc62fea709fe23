#include "DeviceLinkFixture.h"

namespace
{
struct Ports : ::testing::Test
{
    InProcessMidiBackend backend;
    juce::String synth = backend.addDestination ("Synth", nullptr);
    MIDI_PORTS_Control ports { backend };

    void SetUp() override
    {
        ports.updateDeviceList (false);
        ports.open_Device (false, 0, nullptr);
        ASSERT_TRUE (ports.outputOpen);
    }

    Bytes sent() { return takeLog (backend, synth); }
};
} // namespace

TEST_F (Ports, ChannelGateAndStatusBytes)
{
    ports.Send_CC (17, 7, 1);
    ports.Send_CC (-1, 7, 1);
    ports.Send_PitchBend (17, 0);
    EXPECT_TRUE (sent().empty());

    ports.Send_CC (0, 7, 100);    // channel 0 counts as the first
    ports.Send_CC (16, 135, 200); // data masked to seven bits
    ports.Send_PitchBend (1, 8192);
    ports.Send_PitchBend (16, 16383);
    EXPECT_EQ (sent(), (Bytes { { 0xB0, 7, 100 }, { 0xBF, 7, 72 }, { 0xE0, 0x00, 0x40 }, { 0xEF, 127, 127 } }));
}

TEST_F (Ports, ABlockLeavesAtStartPlusOffsetOverRate)
{
    juce::MidiBuffer block;
    block.addEvent (juce::MidiMessage::noteOn (1, 60, (juce::uint8) 90), 0);
    block.addEvent (juce::MidiMessage::midiClock(), 441);
    block.addEvent (juce::MidiMessage::noteOff (1, 60), 44100);
    ports.sendBlockOfMessages (block, 1000.0, 44100.0);

    const auto log = backend.messagesTo (synth);
    ASSERT_EQ (log.size(), 3u);
    EXPECT_TRUE (log[0].timeMs == 1000.0 && log[1].timeMs == 1010.0 && log[2].timeMs == 2000.0);
}

TEST_F (Ports, DeviceListReusesEntriesByNameAndIdentifier)
{
    auto* entry = ports.midiOutputs[0].get();
    ports.updateDeviceList (false); // unchanged: the same entry, still open
    EXPECT_TRUE (ports.midiOutputs[0].get() == entry && ports.outputOpen);

    // A device plugged in ahead shifts the list, but the open entry is reused.
    backend.addDestination ("Newcomer", nullptr, 0);
    ports.updateDeviceList (false);
    ASSERT_EQ (ports.midiOutputs.size(), 2);
    EXPECT_TRUE (ports.midiOutputs[1].get() == entry && entry->outDevice != nullptr && ports.midiOutputs[0]->deviceInfo.name == "Newcomer");
    EXPECT_EQ (ports.currentOutput, 0); // still the old index until chosen again

    // Sends follow the index: the newcomer has no open port, so nothing goes out.
    ports.Send_CC (1, 7, 1);
    EXPECT_TRUE (sent().empty());
    ports.open_Device (false, 1, nullptr);
    ports.Send_CC (1, 7, 1);
    EXPECT_EQ (sent().size(), 1u);

    ports.open_Device (false, 5, nullptr); // beyond the list: closed
    EXPECT_TRUE (! ports.outputOpen && ports.currentOutput == -1);
}
